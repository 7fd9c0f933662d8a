// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "data/catalogue.h"
#include "data/job.h"

#include <pugixml.hpp>

#include <functional>
#include <string>
#include <string_view>

namespace kaloria {

/// Reads the elements of a job document into a job. What cannot be read goes to `report`, which either
/// throws, as opening does, or returns to have the rest read, as checking does.
class JobReader {
public:
    using Report = std::function<void(pugi::xml_node place, std::string text)>;

    JobReader(const Catalogue& catalogue, Job& job, Report report);

    /// @param root  an element
    void Read(pugi::xml_node root);

private:
    void ReadField(pugi::xml_node element, const JobField& field);
    void ReadRow(pugi::xml_node element, Field field);
    template <class Records>
    [[nodiscard]] JobMaterial ReadMaterial(pugi::xml_node element, const Records& records);
    void ReadLayer(pugi::xml_node element);

    const Catalogue& catalogue_;
    Job& job_;
    Report report_;
    bool hasRows_ = false; ///< the file's build-up has begun, the job's has been cleared
};

/// Name of an element without its namespace prefix.
[[nodiscard]] std::string_view LocalName(pugi::xml_node element);

} // namespace kaloria
