// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/viewer/rich_text.h"

#include <QStringList>

#include <cstddef>
#include <vector>

namespace kaloria::viewer {

/// Whether a line is the separator that stands after each page of a report: exactly 65 hyphens.
[[nodiscard]] bool IsSeparator(QStringView line);

/// The pages of a report's plain text, without their separators. Each separator ends a page. What stands
/// behind the last one is a page too unless it is blank, and so is a text without any separator: whoever
/// prints wants all of the text on paper, also that of a file made elsewhere.
[[nodiscard]] QStringList PagesOf(const QString& text);

/// Blocks [begin, end) of a text that are printed on sheets of their own.
struct Part {
    std::size_t begin = 0;
    std::size_t end = 0;
    std::size_t section = 0;
    bool startsSection = false;
};

/// The parts in which a text is printed: its pages, cut where a section wants a new sheet.
[[nodiscard]] std::vector<Part> PartsOf(const RichText& text);

/// How many pages as by PagesOf.
[[nodiscard]] int CountPages(const RichText& text);

} // namespace kaloria::viewer
