// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>

namespace kaloria {

/// The display formats of fields and results.
enum class NumberFormat : std::uint8_t {
    whole,       ///< "0"
    tenths,      ///< "0.0"
    hundredths,  ///< "0.00"
    thousandths, ///< "0.000"
    scientific,  ///< "0.000E+00"
    shortest,    ///< as many digits as the value needs, seven for single precision
};

/// Text of a finite number: a point, no grouping, halves away from zero as in a hand calculation (of the
/// decimal digits that one would read, so that a stored 0.125 or 2.675 rounds up). No "-0". NaN and infinity
/// give "".
[[nodiscard]] std::string FormatNumber(double value, NumberFormat format);

/// As above with a number of decimals, 0 to 15.
[[nodiscard]] std::string FormatFixed(double value, int decimals);

} // namespace kaloria
