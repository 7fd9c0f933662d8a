// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// The forms of values in the files, the same in every locale. Texts with blanks round the value are
/// accepted; reals are read by ParseSingle (engine/number_text.h).
namespace kaloria::value_text {

/// A 32-bit integer; a fractional text is rounded to the nearest one, ties to even. Nothing when the text is
/// no number or the number is out of range.
[[nodiscard]] std::optional<std::int32_t> ParseInteger(std::string_view text);

/// The nearest 32-bit integer, ties to even; nothing when out of range or not finite.
[[nodiscard]] std::optional<std::int32_t> RoundToInteger(double value);

/// "True" or "False" in any case, or a number, which is true when it is not zero.
[[nodiscard]] std::optional<bool> ParseFlag(std::string_view text);

/// True for the exact text "True" and for nothing else.
[[nodiscard]] constexpr bool IsExactTrue(std::string_view text) { return text == "True"; }

[[nodiscard]] std::string IntegerText(std::int32_t value);

/// The shortest decimal text that reads back as the same float; without an exponent except for very large and
/// very small magnitudes. @p value must be finite.
[[nodiscard]] std::string RealText(float value);

[[nodiscard]] constexpr std::string_view FlagText(bool value) { return value ? "True" : "False"; }

} // namespace kaloria::value_text
