// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "application/comparison_table.h"

#include <QAbstractTableModel>

namespace kaloria {

/// The comparison as a table: label, unit, a column per case; inputs that differ above the results.
class CompareModel final : public QAbstractTableModel {
    Q_OBJECT

public:
    static constexpr int firstCase = 2; ///< column

    static constexpr int secondLineRole = Qt::UserRole; ///< of a heading, or the difference under a figure
    static constexpr int titleRole = Qt::UserRole + 1;  ///< whether the row is the title of those below

    using QAbstractTableModel::QAbstractTableModel;

    void Show(ComparisonTable table);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    /// Whether figures of the row have a difference under them.
    [[nodiscard]] bool HasSecondLine(int row) const;

private:
    [[nodiscard]] const ComparisonRow* RowAt(int row) const; ///< null: a title
    [[nodiscard]] QString TextOf(const QModelIndex& index) const;
    [[nodiscard]] QString DifferenceOf(const QModelIndex& index) const;
    [[nodiscard]] QVariant ColorOf(const QModelIndex& index) const;
    [[nodiscard]] const ComparisonCell* CellAt(const QModelIndex& index) const;

    ComparisonTable table_;
};

} // namespace kaloria
