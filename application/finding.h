// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>

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

} // namespace kaloria
