// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/two_line_header.h"

#include "ui/theme.h"

#include <QPainter>

#include <algorithm>

namespace kaloria {

namespace {
constexpr int sideMargin = 10;
constexpr int topMargin = 4;
constexpr int narrowest = 60;
constexpr int rounding = 2; ///< widths of texts are rounded, and one pixel too few costs three letters
} // namespace

TwoLineHeader::TwoLineHeader(QWidget* parent) : QHeaderView(Qt::Horizontal, parent) {
    setSectionsClickable(false);
    setHighlightSections(false);
    setMinimumSectionSize(narrowest);
}

QString TwoLineHeader::TextOf(int column, int role) const {
    return model()->headerData(column, orientation(), role).toString().trimmed();
}

QSize TwoLineHeader::sectionSizeFromContents(int column) const {
    const QFontMetrics name(theme::BoldFont());
    const QFontMetrics unit(theme::CaptionFont());
    const int width = std::max(name.horizontalAdvance(TextOf(column, Qt::DisplayRole)),
                               unit.horizontalAdvance(TextOf(column, Qt::UserRole)));
    return {width + rounding + 2 * sideMargin, name.height() + unit.height() + 2 * topMargin};
}

void TwoLineHeader::paintSection(QPainter* painter, const QRect& rect, int column) const {
    const theme::Colors& colors = theme::Current();
    const int side =
        model()->headerData(column, orientation(), Qt::TextAlignmentRole).toInt() & Qt::AlignHorizontal_Mask;
    const QRect inner = rect.adjusted(sideMargin, topMargin, -sideMargin, -topMargin);
    painter->save();
    painter->fillRect(rect, colors.panel);
    painter->setPen(colors.line);
    painter->drawLine(rect.bottomLeft(), rect.bottomRight());
    painter->setPen(colors.text);
    painter->setFont(theme::BoldFont());
    const auto fitting = [&](int role) {
        return painter->fontMetrics().elidedText(TextOf(column, role), Qt::ElideRight, inner.width());
    };
    painter->drawText(inner, side | Qt::AlignTop, fitting(Qt::DisplayRole));
    painter->setPen(colors.quiet);
    painter->setFont(theme::CaptionFont());
    painter->drawText(inner, side | Qt::AlignBottom, fitting(Qt::UserRole));
    painter->restore();
}

} // namespace kaloria
