// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string_view>

namespace kaloria::rtf {

/// What a control word means to someone who reads the text.
enum class WordRole {
    unknown,
    character,
    tab,
    lineBreak,
    generated, ///< text that a reader makes up, as a page number
    paragraphEnd,
    sectionEnd,
    cellEnd,
    nestedCellEnd,
    rowEnd,
    rowFormat,   ///< says that a row is there, where its cells are and how they look
    border,      ///< how the border named before looks
    story,       ///< its group is a text of its own
    hiddenGroup, ///< its group is not shown as text; without \* too
    objectGroup, ///< the same, but it is shown in another way
    unicode,     ///< \uN
    fallbackLength,
    deleted, ///< by a revision
    inTable,
    plain, ///< resets the formats of characters
    pard,  ///< resets those of paragraphs
};

struct WordMeaning {
    WordRole role = WordRole::unknown;
    char32_t character = 0; ///< of the role character
};

/// @param word  without backslash and number
[[nodiscard]] WordMeaning MeaningOf(std::string_view word);

} // namespace kaloria::rtf
