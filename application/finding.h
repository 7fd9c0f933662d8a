// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace kaloria {

enum class Severity : std::uint8_t {
    information, ///< good to know
    warning,     ///< the result stands, with care
    error,       ///< there is no result, or not this part of it
};

/// Something that was noticed about a case: shown beside the field or the result, never as a box.
struct Finding {
    Severity severity = Severity::information;
    std::string
        subject; ///< element name of the field ("ProcessTemp", "Insulation.2"); empty: the case as a whole
    std::string text; ///< a sentence
};

/// "error", "warning", "note", as compilers say it.
[[nodiscard]] constexpr std::string_view WordOf(Severity severity) {
    switch (severity) {
    case Severity::error:
        return "error";
    case Severity::warning:
        return "warning";
    case Severity::information:
        break;
    }
    return "note";
}

/// Whether one of them stands in the way of a result.
[[nodiscard]] inline bool HasErrors(const std::vector<Finding>& findings) {
    return std::any_of(findings.begin(), findings.end(),
                       [](const Finding& finding) { return finding.severity == Severity::error; });
}

} // namespace kaloria
