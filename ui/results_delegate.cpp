// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/results_delegate.h"

#include "ui/theme.h"

#include <QPainter>

namespace kaloria {

QSize ResultsDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
    // Bold figures are the widest.
    const QFontMetrics metrics(theme::BoldFont());
    return {metrics.horizontalAdvance(index.data().toString()) + 2 * sidePadding,
            option.fontMetrics.height() + 7};
}

void ResultsDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                            const QModelIndex& index) const {
    const theme::Colors& colors = theme::Current();
    const QVariant ground = index.data(Qt::BackgroundRole);
    const QVariant font = index.data(Qt::FontRole);
    const QVariant alignment = index.data(Qt::TextAlignmentRole);
    const QVariant text = index.data(Qt::ForegroundRole);
    painter->save();
    painter->fillRect(option.rect, ground.isValid()                                ? ground.value<QColor>()
                                   : option.state.testFlag(QStyle::State_Selected) ? colors.accentSoft
                                                                                   : colors.panel);
    if (option.state.testFlag(QStyle::State_Selected) && index.column() == 0) {
        painter->fillRect(QRect(option.rect.topLeft(), QSize(3, option.rect.height())), colors.accent);
    }
    painter->setPen(colors.line);
    painter->drawLine(option.rect.bottomLeft(), option.rect.bottomRight());
    painter->setFont(font.isValid() ? font.value<QFont>() : option.font);
    painter->setPen(text.isValid() ? text.value<QColor>() : colors.text);
    painter->drawText(option.rect.adjusted(sidePadding, 0, -sidePadding, 0),
                      alignment.isValid() ? alignment.toInt() : Qt::AlignLeft | Qt::AlignVCenter,
                      index.data().toString());
    painter->restore();
}

} // namespace kaloria
