// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/number_format.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdlib>
#include <limits>
#include <string_view>

namespace kaloria {

namespace {

/// A number as decimal digits: 0.d1d2d3... x 10^exponent.
struct Decimal {
    bool negative = false;
    std::string digits;
    int exponent = 0;
};

template <class Number>
Decimal DigitsOf(Number value) {
    std::array<char, 64> buffer{};
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), std::abs(value),
                                   std::chars_format::scientific)
                         .ptr;
    const std::string_view text(buffer.data(), static_cast<std::size_t>(end - buffer.data()));
    const auto mark = text.find('e');
    Decimal decimal;
    decimal.negative = std::signbit(value);
    for (const char c : text.substr(0, mark)) {
        if (c != '.') {
            decimal.digits += c;
        }
    }
    decimal.exponent = std::atoi(text.data() + mark + 1) + 1;
    return decimal;
}

/// A value stored in single precision shows the digits of its single-precision text, not the binary tail.
Decimal Shown(double value) {
    if (std::abs(value) <= double{std::numeric_limits<float>::max()} &&
        static_cast<double>(static_cast<float>(value)) == value) {
        return DigitsOf(static_cast<float>(value));
    }
    return DigitsOf(value);
}

/// Keeps the first @p count digits (may be negative: nothing is left), rounding halves up.
void Round(Decimal& decimal, int count) {
    if (count >= static_cast<int>(decimal.digits.size())) {
        return;
    }
    const bool up = count >= 0 && decimal.digits[static_cast<std::size_t>(count)] >= '5';
    decimal.digits.resize(static_cast<std::size_t>(count > 0 ? count : 0));
    if (!up) {
        return;
    }
    for (std::size_t i = decimal.digits.size(); i-- > 0;) {
        if (decimal.digits[i] != '9') {
            ++decimal.digits[i];
            return;
        }
        decimal.digits[i] = '0';
    }
    decimal.digits.insert(0, 1, '1');
    ++decimal.exponent;
}

std::string Scientific(double value) {
    Decimal decimal = value == 0.0 ? Decimal{false, "0", 1} : Shown(value);
    Round(decimal, 4);
    decimal.digits.resize(4, '0');
    const int exponent = decimal.exponent - 1;
    std::string magnitude = std::to_string(std::abs(exponent));
    if (magnitude.size() < 2) {
        magnitude.insert(0, 1, '0');
    }
    return (decimal.negative ? "-" : "") + decimal.digits.substr(0, 1) + "." + decimal.digits.substr(1) +
           (exponent < 0 ? "E-" : "E+") + magnitude;
}

std::string Shortest(double value) {
    const Decimal decimal = Shown(value);
    const int after = static_cast<int>(decimal.digits.size()) - decimal.exponent;
    if (value != 0.0 && (decimal.exponent > 15 || decimal.exponent < -5)) {
        return Scientific(value);
    }
    std::string text = FormatFixed(value, after > 0 ? after : 0);
    if (text.find('.') != std::string::npos) {
        text.erase(text.find_last_not_of('0') + 1);
        if (text.back() == '.') {
            text.pop_back();
        }
    }
    return text;
}

} // namespace

std::string FormatFixed(double value, int decimals) {
    if (!std::isfinite(value)) {
        return {};
    }
    Decimal decimal = Shown(value);
    Round(decimal, decimal.exponent + decimals);
    std::string whole;
    std::string fraction(static_cast<std::size_t>(decimals), '0');
    for (std::size_t i = 0; i < decimal.digits.size(); ++i) {
        const int place = decimal.exponent - 1 - static_cast<int>(i); // power of ten of this digit
        if (place >= 0) {
            whole += decimal.digits[i];
        } else if (-place <= decimals) {
            fraction[static_cast<std::size_t>(-place - 1)] = decimal.digits[i];
        }
    }
    if (decimal.exponent > static_cast<int>(whole.size())) {
        whole.append(static_cast<std::size_t>(decimal.exponent) - whole.size(), '0');
    }
    if (whole.empty() || decimal.digits.empty()) {
        whole = "0";
    }
    const std::string text = decimals > 0 ? whole + "." + fraction : whole;
    const bool zero = text.find_first_not_of("0.") == std::string::npos;
    return decimal.negative && !zero ? "-" + text : text;
}

std::string FormatNumber(double value, NumberFormat format) {
    if (!std::isfinite(value)) {
        return {};
    }
    switch (format) {
    case NumberFormat::scientific:
        return Scientific(value);
    case NumberFormat::shortest:
        return Shortest(value);
    default:
        return FormatFixed(value, static_cast<int>(format));
    }
}

} // namespace kaloria
