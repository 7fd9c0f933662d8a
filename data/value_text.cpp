// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/value_text.h"

#include "engine/number_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>

namespace kaloria::value_text {

namespace {

char LowerAscii(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

bool EqualIgnoringCase(std::string_view text, std::string_view lower) {
    return std::equal(text.begin(), text.end(), lower.begin(), lower.end(),
                      [](char a, char b) { return LowerAscii(a) == b; });
}

} // namespace

std::optional<std::int32_t> RoundToInteger(double value) {
    const double rounded = std::nearbyint(value); // ties to even
    using Limits = std::numeric_limits<std::int32_t>;
    // Written so that a NaN is out of range too.
    if (!(rounded >= Limits::min() && rounded <= Limits::max())) {
        return std::nullopt;
    }
    return static_cast<std::int32_t>(rounded);
}

std::optional<std::int32_t> ParseInteger(std::string_view text) {
    const auto number = ParseNumber(text);
    return number ? RoundToInteger(*number) : std::nullopt;
}

std::optional<bool> ParseFlag(std::string_view text) {
    text = Trimmed(text);
    if (EqualIgnoringCase(text, "true")) {
        return true;
    }
    if (EqualIgnoringCase(text, "false")) {
        return false;
    }
    const auto number = ParseNumber(text);
    return number ? std::optional(*number != 0.0) : std::nullopt;
}

std::string IntegerText(std::int32_t value) { return std::to_string(value); }

std::string RealText(float value) {
    const float magnitude = std::abs(value);
    const bool plain = value == 0.0F || (magnitude >= 1e-9F && magnitude < 1e15F);
    std::array<char, 64> text{};
    char* const end = text.data() + text.size();
    const auto result = plain ? std::to_chars(text.data(), end, value, std::chars_format::fixed)
                              : std::to_chars(text.data(), end, value, std::chars_format::scientific);
    return {text.data(), result.ptr};
}

} // namespace kaloria::value_text
