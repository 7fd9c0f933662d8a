// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

namespace kaloria::rtf {

/// UTF-8 text as it stands in a document where \uc1 is in force: backslash and braces escaped, other than
/// ASCII as \uN with a fallback for readers without Unicode, beyond the basic plane as surrogate pairs, a
/// line break (LF, CR, CR LF) as \line, a tab as \tab. Other control characters are left out; what is no
/// UTF-8 becomes U+FFFD. It never opens or closes a group.
[[nodiscard]] std::string EscapedText(std::string_view utf8);

/// The character of a byte of text, which is Windows-1252; U+FFFD for the five bytes it leaves free.
[[nodiscard]] char32_t CharacterOfByte(unsigned char byte);

/// Puts UTF-16 code units together to UTF-8; a lone surrogate becomes U+FFFD.
class Utf8Builder {
public:
    /// @param unit  a code unit, or a whole character
    void Add(char32_t unit);
    [[nodiscard]] std::string Take();

private:
    void AddCharacter(char32_t character);
    void Flush();

    std::string text_;
    char32_t high_ = 0; ///< a first surrogate that waits for its second
};

} // namespace kaloria::rtf
