// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStyledItemDelegate>

namespace kaloria {

/// Cells between hairlines, with the colours that the model says.
class ResultsDelegate final : public QStyledItemDelegate {
    Q_OBJECT

public:
    static constexpr int sidePadding = 10;

    using QStyledItemDelegate::QStyledItemDelegate;
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
};

} // namespace kaloria
