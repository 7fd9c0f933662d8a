// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace kaloria {

/// The user's particulars, printed on every page of a report.
struct CompanyParticulars {
    std::string name;
    std::string address;
    std::string cityStateZip;
    std::string phoneNumber;
};

/// What the cover says about the project.
struct ProjectParticulars {
    std::string name;
    std::string number;
    std::string system;
    std::string location;
    std::string date;
    std::string engineer;
    std::string contact;
    std::string phone;
};

} // namespace kaloria
