// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/number_text.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <system_error>

namespace kaloria {

std::string_view Trimmed(std::string_view text) {
    constexpr std::string_view blanks = " \t\r\n";
    const auto first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

std::optional<double> ParseNumber(std::string_view text) {
    text = Trimmed(text);
    if (text.size() > 1 && text.front() == '+' && text[1] != '-') {
        text.remove_prefix(1);
    }
    double value = 0.0;
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, value);
    if (error != std::errc{} || stop != end || !std::isfinite(value)) {
        return std::nullopt;
    }
    return value;
}

std::optional<float> ParseSingle(std::string_view text) {
    const auto value = ParseNumber(text);
    // Compared in double: narrowing first would raise the overflow flag that the engine watches. Numbers less
    // than half a step above the largest float still round to it, above all that float's own shortest text.
    constexpr double largest = std::numeric_limits<float>::max();
    constexpr double firstTooLarge = 0x1.ffffffp127;
    if (!value || std::abs(*value) >= firstTooLarge) {
        return std::nullopt;
    }
    return static_cast<float>(std::clamp(*value, -largest, largest));
}

} // namespace kaloria
