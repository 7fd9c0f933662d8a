// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

/// Text files of numbers between commas. The pieces point into the text that they are taken from.
namespace kaloria::separated_text {

/// The lines, ended by LF or CR LF, without a byte-order mark before the first and without blank lines behind
/// the last.
[[nodiscard]] std::vector<std::string_view> Lines(std::string_view text);

/// The fields between the commas, without blanks at their ends. Of a line of more than @p most fields the
/// first @p most + 1.
[[nodiscard]] std::vector<std::string_view> Fields(std::string_view line, std::size_t most);

/// What is wrong with a field that should be a number: that it is empty, or its text, shortened and with
/// nothing but printable characters.
[[nodiscard]] std::string NotANumber(std::string_view field);

} // namespace kaloria::separated_text
