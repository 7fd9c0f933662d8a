// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/viewer/document_formats.h"

#include <algorithm>
#include <cstdlib>

namespace kaloria::viewer {

namespace {

constexpr int oneLine = 240; // of \sl when it is a multiple
constexpr int hairline = 5;  // a thinner line is not seen [twip]

struct CellSide {
    Side side;
    void (QTextTableCellFormat::*setWidth)(qreal);
    void (QTextTableCellFormat::*setStyle)(QTextFrameFormat::BorderStyle);
    void (QTextTableCellFormat::*setBrush)(const QBrush&);
};
constexpr CellSide cellSides[] = {
    {Side::top, &QTextTableCellFormat::setTopBorder, &QTextTableCellFormat::setTopBorderStyle,
     &QTextTableCellFormat::setTopBorderBrush},
    {Side::right, &QTextTableCellFormat::setRightBorder, &QTextTableCellFormat::setRightBorderStyle,
     &QTextTableCellFormat::setRightBorderBrush},
    {Side::bottom, &QTextTableCellFormat::setBottomBorder, &QTextTableCellFormat::setBottomBorderStyle,
     &QTextTableCellFormat::setBottomBorderBrush},
    {Side::left, &QTextTableCellFormat::setLeftBorder, &QTextTableCellFormat::setLeftBorderStyle,
     &QTextTableCellFormat::setLeftBorderBrush},
};

QTextFrameFormat::BorderStyle StyleOf(Qt::PenStyle style) {
    return style == Qt::DotLine    ? QTextFrameFormat::BorderStyle_Dotted
           : style == Qt::DashLine ? QTextFrameFormat::BorderStyle_Dashed
                                   : QTextFrameFormat::BorderStyle_Solid;
}

void SetFont(QTextCharFormat& format, const Font& font) {
    // A symbol font's characters have been told by their names; any font has them.
    if (!font.families.isEmpty() && !font.isSymbol) {
        format.setFontFamilies(font.families);
        format.setFontStyleHint(font.hint);
    }
}

} // namespace

int PaddingOf(const CellLook& look, const Row& row, Side side) {
    return look.padding.at(side) >= 0 ? look.padding.at(side) : row.padding.at(side);
}

Formats::Formats(const RichText& text, const BuildOptions& options)
    : text_(text), options_(options), unitsPerTwip_(options.scale * UnitsPerInch() / twipsPerInch) {}

Inset Formats::InsetOf(std::size_t section) const {
    return section < options_.insets.size() ? options_.insets[section] : Inset{};
}

QTextCharFormat Formats::Of(const TextLook& look) const {
    QTextCharFormat format;
    const auto font = text_.fonts.find(look.font);
    if (font != text_.fonts.end()) {
        SetFont(format, font->second);
    }
    format.setFontPointSize(look.size * options_.scale);
    format.setFontWeight(look.isBold ? QFont::Bold : QFont::Normal);
    format.setFontItalic(look.isItalic);
    format.setFontUnderline(look.isUnderlined);
    format.setFontStrikeOut(look.isStruck);
    format.setForeground(look.color.isValid() ? look.color : QColor(Qt::black));
    if (look.background.isValid()) {
        format.setBackground(look.background);
    }
    if (look.isCapital || look.isSmallCapital) {
        format.setFontCapitalization(look.isCapital ? QFont::AllUppercase : QFont::SmallCaps);
    }
    if (look.raise != 0) {
        format.setVerticalAlignment(look.raise > 0 ? QTextCharFormat::AlignSuperScript
                                                   : QTextCharFormat::AlignSubScript);
    }
    return format;
}

void Formats::SetLineHeight(QTextBlockFormat& format, const ParagraphLook& look) const {
    if (look.lineHeight == 0) {
        return;
    }
    if (look.isMultiple) {
        format.setLineHeight(100.0 * std::abs(look.lineHeight) / oneLine,
                             QTextBlockFormat::ProportionalHeight);
    } else {
        format.setLineHeight(Units(std::abs(look.lineHeight)), look.lineHeight > 0
                                                                   ? QTextBlockFormat::MinimumHeight
                                                                   : QTextBlockFormat::FixedHeight);
    }
}

void Formats::SetTabs(QTextBlockFormat& format, const ParagraphLook& look) const {
    QList<QTextOption::Tab> tabs;
    // They are counted from where the first line starts. A hanging one has one where the others start.
    const int origin = look.left + look.first;
    if (look.first < 0) {
        tabs.append({Units(-look.first), QTextOption::LeftTab});
    }
    for (const TabStop& tab : look.tabs) {
        tabs.append({Units(tab.position - origin), tab.type, QLatin1Char('.')});
    }
    for (int i = 1; tabs.size() < 64 && i * text_.tabDistance < text_.sections.front().paperWidth; ++i) {
        const int position = i * text_.tabDistance;
        if (look.tabs.isEmpty() || position > look.tabs.last().position) {
            tabs.append({Units(position - origin), QTextOption::LeftTab});
        }
    }
    std::stable_sort(tabs.begin(), tabs.end(),
                     [](const auto& one, const auto& other) { return one.position < other.position; });
    format.setTabPositions(tabs);
}

QTextBlockFormat Formats::Of(const ParagraphLook& look, const Inset& inset) const {
    QTextBlockFormat format;
    format.setAlignment(look.alignment);
    format.setLeftMargin(Units(look.left + inset.left));
    format.setRightMargin(Units(look.right + inset.right));
    format.setTextIndent(Units(look.first));
    format.setTopMargin(Units(std::max(0, look.before)));
    format.setBottomMargin(Units(std::max(0, look.after)));
    format.setNonBreakableLines(false);
    if (look.breaksPage) {
        format.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
    }
    if (look.shading.isValid()) {
        format.setBackground(look.shading);
    }
    SetLineHeight(format, look);
    SetTabs(format, look);
    return format;
}

QTextTableCellFormat Formats::Of(const CellLook& look, const Row& row, const TextLook& endLook) const {
    QTextCharFormat text = Of(endLook);
    text.clearBackground();
    QTextTableCellFormat format;
    format.merge(text);
    format.setTopPadding(Units(PaddingOf(look, row, Side::top)));
    format.setRightPadding(Units(PaddingOf(look, row, Side::right)));
    format.setBottomPadding(Units(PaddingOf(look, row, Side::bottom)));
    format.setLeftPadding(Units(PaddingOf(look, row, Side::left)));
    format.setVerticalAlignment(look.vertical);
    if (look.shading.isValid()) {
        format.setBackground(look.shading);
    }
    for (const CellSide& side : cellSides) {
        const Border& border = look.borders.at(side.side);
        if (border.width > 0) {
            (format.*side.setWidth)(Units(std::max(border.width, hairline)));
            (format.*side.setStyle)(StyleOf(border.style));
            (format.*side.setBrush)(border.color.isValid() ? border.color : QColor(Qt::black));
        }
    }
    return format;
}

} // namespace kaloria::viewer
