// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "data/quantity.h"
#include "engine/insulation.h"

#include <QWidget>

#include <cstdint>
#include <string_view>
#include <vector>

class QPushButton;
class QTableWidget;

namespace kaloria {

/// Paired temperatures and conductivities of a material (`flxTemperaturePoints`), with rows to add, to
/// delete, and to paste from a spreadsheet. Cells that were not edited give back exactly the number that went
/// in.
class PointsGrid final : public QWidget {
    Q_OBJECT

public:
    PointsGrid(const std::vector<CTemperaturePoint>& points, Units units, QWidget* parent = nullptr);

    /// The pairs that can be read; rows left wholly empty are no points.
    [[nodiscard]] std::vector<CTemperaturePoint> Points() const;
    /// The first cell that cannot be read, said with its row; empty when all can. Marks the cells.
    [[nodiscard]] QString Unreadable();
    [[nodiscard]] QTableWidget& Table() const { return *table_; }

    /// Takes pairs of numbers, one pair a line, parted by tabs, semicolons or blanks, from the current row
    /// on.
    void Paste(const QString& text);

Q_SIGNALS:
    void Changed();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void BuildTable();
    void BuildButtons();
    void AppendRow();
    void DeleteRow();
    void Number();
    void SetCell(int row, int column, double english);
    [[nodiscard]] bool IsEmptyRow(int row) const;
    [[nodiscard]] QString TextAt(int row, int column) const;
    [[nodiscard]] float EnglishAt(int row, int column) const;

    Units units_;
    QTableWidget* table_ = nullptr;
    QPushButton* delete_ = nullptr;
};

} // namespace kaloria
