// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/results_model.h"

#include "application/results_grid.h"
#include "ui/theme.h"

#include <algorithm>

namespace kaloria {

ResultsModel::ResultsModel(QObject* parent) : QAbstractTableModel(parent), grid_(EmptyGrid()) {}

void ResultsModel::Show(const ResultsGrid& grid) {
    // The shape stays while one types; then only the texts are new, and selection and scrolling stay.
    const bool sameShape =
        grid.columns.size() == grid_.columns.size() && grid.rows.size() == grid_.rows.size();
    if (!sameShape) {
        beginResetModel();
    }
    grid_ = grid;
    if (!sameShape) {
        endResetModel();
    } else if (!grid_.rows.empty()) {
        Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
    }
    if (sameShape && !grid_.columns.empty()) {
        Q_EMIT headerDataChanged(Qt::Horizontal, 0, columnCount() - 1);
    }
}

void ResultsModel::SetStale(bool stale) {
    if (stale != isStale_) {
        isStale_ = stale;
        if (!grid_.rows.empty()) {
            Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
        }
    }
}

int ResultsModel::DesignRow() const {
    const auto found =
        std::find_if(grid_.rows.begin(), grid_.rows.end(), [](const ResultRow& r) { return r.isDesign; });
    return found == grid_.rows.end() ? -1 : static_cast<int>(found - grid_.rows.begin());
}

int ResultsModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(grid_.rows.size());
}

int ResultsModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(grid_.columns.size());
}

QString ResultsModel::TextOf(int row, int column) const {
    const ResultRow& shown = grid_.rows.at(static_cast<std::size_t>(row));
    if (column == 0) {
        return ToQt(shown.label);
    }
    const auto cell = static_cast<std::size_t>(column - 1);
    return cell < shown.cells.size() ? ToQt(shown.cells[cell].text) : QString();
}

QVariant ResultsModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) {
        return {};
    }
    const ResultRow& row = grid_.rows.at(static_cast<std::size_t>(index.row()));
    const theme::Colors& colors = theme::Current();
    switch (role) {
    case Qt::DisplayRole:
        return TextOf(index.row(), index.column());
    case Qt::TextAlignmentRole:
        return QVariant(Qt::AlignVCenter | (index.column() == 0 ? Qt::AlignLeft : Qt::AlignRight));
    case Qt::ForegroundRole:
        return isStale_ ? colors.quiet : row.isDesign ? colors.met : colors.text;
    case Qt::BackgroundRole:
        return row.isDesign && !isStale_ ? QVariant(colors.metGround) : QVariant();
    case Qt::FontRole:
        return row.isDesign ? QVariant(theme::BoldFont()) : QVariant();
    case Qt::ToolTipRole:
        return row.isDesign ? tr("The first thickness that meets the goal")
                            : (row.fault.empty() ? QString() : ToQt(row.fault));
    case designRole:
        return row.isDesign;
    default:
        return {};
    }
}

QVariant ResultsModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || section < 0 || section >= columnCount()) {
        return {};
    }
    const ResultColumn& column = grid_.columns.at(static_cast<std::size_t>(section));
    switch (role) {
    case Qt::DisplayRole:
        return ToQt(column.name);
    case unitRole:
        return ToQt(column.unit);
    case Qt::TextAlignmentRole:
        return QVariant(section == 0 ? Qt::AlignLeft : Qt::AlignRight);
    case Qt::AccessibleTextRole:
        return QStringLiteral("%1 %2").arg(ToQt(column.name), ToQt(column.unit));
    default:
        return {};
    }
}

} // namespace kaloria
