// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "application/calculation_result.h"

#include <QAbstractTableModel>

namespace kaloria {

/// The results grid as a table, with two-line headings; before the first answer the headings alone.
class ResultsModel final : public QAbstractTableModel {
    Q_OBJECT

public:
    static constexpr int unitRole = Qt::UserRole;       ///< second line of a heading
    static constexpr int designRole = Qt::UserRole + 1; ///< whether the row meets the design goal

    explicit ResultsModel(QObject* parent = nullptr);

    void Show(const ResultsGrid& grid);
    /// Greyed: the figures do not belong to the inputs any more.
    void SetStale(bool stale);
    [[nodiscard]] const ResultsGrid& Grid() const { return grid_; }
    /// Row that meets the design goal; -1 when none does.
    [[nodiscard]] int DesignRow() const;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    [[nodiscard]] QString TextOf(int row, int column) const;
    ResultsGrid grid_;
    bool isStale_ = false;
};

} // namespace kaloria
