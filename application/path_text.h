// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace kaloria {

/// A path as printable text of one line: "%", "|", blanks and control characters as "%" and two hexadecimal
/// digits. Other bytes, also those that are no UTF-8, stay.
[[nodiscard]] std::string PathText(const std::filesystem::path& path);

/// The path of such a text; nothing when it is none.
[[nodiscard]] std::optional<std::filesystem::path> ParsePathText(std::string_view text);

} // namespace kaloria
