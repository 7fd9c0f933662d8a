// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <string_view>

namespace kaloria::viewer {

/// Windows' code page of a font's character set; 0 when the set leaves it to the document.
[[nodiscard]] int CodePageOfCharset(int charset);

/// Bytes of a Windows code page as text. One that the system does not know is read as 1252; what stands for
/// no character becomes U+FFFD.
[[nodiscard]] QString Decoded(std::string_view bytes, int codePage);

/// A character of a symbol font's byte, for the Greek letters and signs that reports use; U+FFFD for others.
[[nodiscard]] QChar SymbolOf(unsigned char byte);

} // namespace kaloria::viewer
