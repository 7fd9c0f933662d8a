// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/findings_output.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <iostream>

namespace kaloria::cli {

void PrintFindings(const std::vector<Finding>& findings, std::ostream& out) {
    for (const Finding& finding : findings) {
        out << (&finding == findings.data() ? "\n" : "") << WordOf(finding.severity) << ": " << finding.text
            << '\n';
    }
}

void Complain(const std::vector<Finding>& findings) {
    for (const Finding& finding : findings) {
        if (finding.severity != Severity::information) {
            std::cerr << "kaloria-cli: " << finding.text << '\n';
        }
    }
}

nlohmann::json ToJson(const std::vector<Finding>& findings) {
    nlohmann::json list = nlohmann::json::array();
    for (const Finding& finding : findings) {
        list.push_back(
            {{"severity", WordOf(finding.severity)}, {"subject", finding.subject}, {"text", finding.text}});
    }
    return list;
}

} // namespace kaloria::cli
