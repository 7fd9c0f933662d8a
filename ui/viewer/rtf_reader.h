// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/viewer/rich_text.h"

#include <QTextDocument>

#include <memory>
#include <string_view>

namespace kaloria::viewer {

/// Reads RTF as word processors and our own templates write it: fonts, looks, paragraphs, tables, pictures
/// (PNG and JPEG), sections with their paper, headers and footers. Tables in tables become lines of the cell
/// that they stand in; text boxes and footnotes stand before the paragraph that they are anchored in.
///
/// Never throws for what the bytes hold: as much as can be read is returned, with the reason in `problem`.
/// It takes one pass without recursion, and memory for at most a few million characters.
[[nodiscard]] RichText ReadRichText(std::string_view bytes);

} // namespace kaloria::viewer
