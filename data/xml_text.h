// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace kaloria {

/// Length in bytes of the character at the start of @p text when it is one that an XML document may hold, in
/// valid UTF-8; 0 otherwise, also for an empty text.
[[nodiscard]] std::size_t XmlCharacterLength(std::string_view text);

/// @p text as it can stand in a document: bytes that are no UTF-8 become U+FFFD, control characters other
/// than tab and line ends are left out. A text typed or passed in by the user must never make a file
/// unreadable.
[[nodiscard]] std::string XmlText(std::string_view text);

} // namespace kaloria
