// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

namespace kaloria {

/// UTF-8 as 8-bit text in Windows-1252 (Western European). A character that the code page does not have
/// becomes "?", and so does every byte that is no UTF-8.
[[nodiscard]] std::string ToWindows1252(std::string_view utf8);

} // namespace kaloria
