// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/dialogs/unit_header.h"

#include "ui/theme.h"

#include <QPainter>

namespace kaloria {

namespace {
constexpr int margin = 8;

QFont NameFont(const QWidget& widget) {
    QFont font = widget.font();
    font.setWeight(QFont::DemiBold);
    return font;
}
} // namespace

UnitHeader::UnitHeader(QWidget* parent) : QHeaderView(Qt::Horizontal, parent) {
    setSectionsClickable(false);
    setHighlightSections(false);
}

QSize UnitHeader::sectionSizeFromContents(int column) const {
    const QString name = model()->headerData(column, Qt::Horizontal).toString();
    const QString unit = model()->headerData(column, Qt::Horizontal, Qt::UserRole).toString();
    const QFontMetrics large(NameFont(*this));
    const QFontMetrics small(theme::CaptionFont());
    return {std::max(large.horizontalAdvance(name), small.horizontalAdvance(unit)) + 2 * margin,
            large.height() + small.height() + margin};
}

void UnitHeader::paintSection(QPainter* painter, const QRect& rect, int column) const {
    const auto alignment =
        model()->headerData(column, Qt::Horizontal, Qt::TextAlignmentRole).value<Qt::Alignment>();
    const QRect inner = rect.adjusted(margin, margin / 2, -margin, -margin / 2);
    const auto& colors = theme::Current();
    painter->fillRect(rect, colors.panel);
    painter->setPen(colors.line);
    painter->drawLine(rect.bottomLeft(), rect.bottomRight());
    painter->setPen(colors.text);
    painter->setFont(NameFont(*this));
    painter->drawText(inner, static_cast<int>((alignment & Qt::AlignHorizontal_Mask) | Qt::AlignTop),
                      model()->headerData(column, Qt::Horizontal).toString());
    painter->setPen(colors.quiet);
    painter->setFont(theme::CaptionFont());
    painter->drawText(inner, static_cast<int>((alignment & Qt::AlignHorizontal_Mask) | Qt::AlignBottom),
                      model()->headerData(column, Qt::Horizontal, Qt::UserRole).toString());
}

} // namespace kaloria
