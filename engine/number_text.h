// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace kaloria {

/// Reads a whole text as one finite number, whatever the locale: a point as separator, no grouping,
/// blanks around it and a leading plus allowed. Empty text, "nan", "inf", "1,5", "12 mm" and numbers
/// outside the range of a double are no numbers.
[[nodiscard]] std::optional<double> ParseNumber(std::string_view text);

/// As ParseNumber, narrowed to single precision; numbers that overflow a float are no numbers.
[[nodiscard]] std::optional<float> ParseSingle(std::string_view text);

/// Text without blanks, tabs and line breaks at its ends.
[[nodiscard]] std::string_view Trimmed(std::string_view text);

} // namespace kaloria
