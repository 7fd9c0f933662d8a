// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "reports/rtf_token.h"
#include "ui/viewer/rtf_resources.h"

namespace kaloria::viewer {

/// The number of a word, within limits that no honest document goes beyond.
[[nodiscard]] int NumberOf(const rtf::Token& word, int least, int most, int otherwise = 0);

/// Whether a word that switches something does so on.
[[nodiscard]] inline bool IsOn(const rtf::Token& word) { return !word.hasValue || word.value != 0; }

inline constexpr int farthest = 31680; ///< that anything on a sheet may lie away from its margin [twip]

// Each returns whether the word is one of its kind.

bool ApplyTextWord(TextLook& look, const rtf::Token& word, const Resources& resources);
bool ApplyParagraphWord(ParagraphLook& look, const rtf::Token& word, const Resources& resources);
bool ApplyBorderWord(Border& border, const rtf::Token& word, const Resources& resources);

/// @param defaults  of the document, which \sectd goes back to and words in front of it set
bool ApplySectionWord(Section& section, Section& defaults, const rtf::Token& word);

} // namespace kaloria::viewer
