// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/viewer/report_pages.h"

#include "reports/rtf_binder.h"

#include <algorithm>

namespace kaloria::viewer {

namespace {

bool IsSeparatorBlock(const Block& block) {
    const auto* const paragraph = std::get_if<Paragraph>(&block.content);
    return paragraph != nullptr && IsSeparator(paragraph->Text());
}

bool IsBlank(const Block& block) {
    const auto* const paragraph = std::get_if<Paragraph>(&block.content);
    return paragraph != nullptr && paragraph->IsBlank();
}

bool IsBlank(const RichText& text, const Part& part) {
    return std::all_of(text.blocks.begin() + static_cast<std::ptrdiff_t>(part.begin),
                       text.blocks.begin() + static_cast<std::ptrdiff_t>(part.end),
                       [](const Block& block) { return IsBlank(block); });
}

/// A sheet that the page ends with and that nothing stands on would be paper wasted.
void CutBlankSheets(const RichText& text, Part& part) {
    for (std::size_t i = part.end; i > part.begin + 1 && IsBlank(text.blocks[i - 1]); --i) {
        if (std::get<Paragraph>(text.blocks[i - 1].content).look.breaksPage) {
            part.end = i - 1;
        }
    }
}

/// A page, cut where its section changes to one that starts a sheet.
void AddParts(std::vector<Part>& parts, const RichText& text, Part page) {
    for (std::size_t i = page.begin; i < page.end; ++i) {
        const std::size_t section = text.blocks[i].section;
        if (i > page.begin && section != page.section && text.sections.at(section).startsSheet) {
            parts.push_back({page.begin, i, page.section});
            page.begin = i;
        }
        page.section = i == page.begin ? section : page.section;
    }
    parts.push_back(page);
}

void Finish(std::vector<Part>& parts, const RichText& text) {
    for (std::size_t i = 0; i < parts.size(); ++i) {
        CutBlankSheets(text, parts[i]);
        parts[i].startsSection = i == 0 || parts[i].section != parts[i - 1].section;
    }
}

} // namespace

bool IsSeparator(QStringView line) {
    const auto separator = QLatin1String(rtf::pageSeparator.data(), rtf::pageSeparator.size());
    return line.trimmed() == separator;
}

QStringList PagesOf(const QString& text) {
    QStringList pages;
    QStringList page;
    for (const QString& line : text.split(QLatin1Char('\n'))) {
        if (IsSeparator(line)) {
            pages << page.join(QLatin1Char('\n'));
            page.clear();
        } else {
            page << line;
        }
    }
    const QString rest = page.join(QLatin1Char('\n'));
    if (!rest.trimmed().isEmpty()) {
        pages << rest;
    }
    return pages;
}

std::vector<Part> PartsOf(const RichText& text) {
    std::vector<Part> parts;
    Part page;
    for (std::size_t i = 0; i < text.blocks.size(); ++i) {
        if (IsSeparatorBlock(text.blocks[i])) {
            page.end = i;
            page.section = text.blocks[page.begin].section;
            AddParts(parts, text, page);
            page.begin = i + 1;
        }
    }
    page.end = text.blocks.size();
    if (page.begin < page.end && !IsBlank(text, page)) {
        page.section = text.blocks[page.begin].section;
        AddParts(parts, text, page);
    }
    Finish(parts, text);
    return parts;
}

int CountPages(const RichText& text) {
    int pages = 0;
    Part page;
    for (std::size_t i = 0; i < text.blocks.size(); ++i) {
        if (IsSeparatorBlock(text.blocks[i])) {
            ++pages;
            page.begin = i + 1;
        }
    }
    page.end = text.blocks.size();
    return pages + (IsBlank(text, page) ? 0 : 1);
}

} // namespace kaloria::viewer
