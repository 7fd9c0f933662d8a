// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/compare/compare_model.h"

#include <QStyledItemDelegate>
#include <QTableView>

namespace kaloria {

/// A figure, and in small type under it how far it is from the first case's.
class CompareDelegate final : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;
    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
};

/// The table of the comparison (`flxCompare`). A case is chosen as a whole, by any of its cells or by its
/// heading.
class CompareGrid final : public QTableView {
    Q_OBJECT

public:
    explicit CompareGrid(QWidget* parent = nullptr);

    void Show(ComparisonTable table);
    /// Position of the case in hand; -1 without one.
    [[nodiscard]] int Case() const;
    void ChooseCase(int index);

Q_SIGNALS:
    void CaseChosen(int index);
    void HeadingPressed();
    void CopyAsked();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void FitColumns();
    void FitRows();

    CompareModel* model_ = nullptr;
};

} // namespace kaloria
