// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/compare/compare_model.h"

#include "ui/theme.h"

#include <algorithm>

namespace kaloria {

void CompareModel::Show(ComparisonTable table) {
    beginResetModel();
    table_ = std::move(table);
    endResetModel();
}

int CompareModel::rowCount(const QModelIndex& parent) const {
    const bool isEmpty = parent.isValid() || table_.cases.empty();
    return isEmpty ? 0 : static_cast<int>(table_.inputs.size() + table_.results.size()) + 2;
}

int CompareModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(table_.cases.size()) + firstCase;
}

const ComparisonRow* CompareModel::RowAt(int row) const {
    const auto inputs = static_cast<int>(table_.inputs.size());
    if (row >= 1 && row <= inputs) {
        return &table_.inputs.at(static_cast<std::size_t>(row - 1));
    }
    return row > inputs + 1 ? &table_.results.at(static_cast<std::size_t>(row - inputs - 2)) : nullptr;
}

const ComparisonCell* CompareModel::CellAt(const QModelIndex& index) const {
    const ComparisonRow* const row = RowAt(index.row());
    return row == nullptr || index.column() < firstCase
               ? nullptr
               : &row->cells.at(static_cast<std::size_t>(index.column() - firstCase));
}

bool CompareModel::HasSecondLine(int row) const {
    const ComparisonRow* const shown = RowAt(row);
    return shown != nullptr &&
           std::any_of(shown->cells.begin(), shown->cells.end(),
                       [](const ComparisonCell& cell) { return cell.change.has_value(); });
}

QString CompareModel::TextOf(const QModelIndex& index) const {
    const ComparisonRow* const row = RowAt(index.row());
    if (row == nullptr) {
        const bool isFirst = index.row() == 0;
        const QString inputs = table_.cases.size() < 2 ? tr("Inputs that differ: keep a second case")
                               : table_.inputs.empty() ? tr("The inputs are the same")
                                                       : tr("Inputs that differ");
        const QString results = table_.cases.size() < 2
                                    ? tr("Results")
                                    : tr("Results, and under them the differences from \"%1\"")
                                          .arg(ToQt(table_.cases.front().name));
        return index.column() > 0 ? QString() : isFirst ? inputs : results;
    }
    if (const ComparisonCell* const cell = CellAt(index)) {
        return cell->text == "-" ? QStringLiteral("–") : ToQt(cell->text);
    }
    return ToQt(index.column() == 0 ? row->label : row->unit);
}

QString CompareModel::DifferenceOf(const QModelIndex& index) const {
    const ComparisonCell* const cell = CellAt(index);
    if (cell == nullptr || !cell->change) {
        return {};
    }
    return cell->percent
               ? QStringLiteral("%1  (%2 %)").arg(ToQt(cell->changeText), ToQt(cell->percentText))
               : ToQt(cell->changeText) + (RowAt(index.row())->unit == "%" ? tr(" points") : QString());
}

QVariant CompareModel::ColorOf(const QModelIndex& index) const {
    const theme::Colors& colors = theme::Current();
    const ComparisonRow* const row = RowAt(index.row());
    const ComparisonCell* const cell = CellAt(index);
    if (row == nullptr || index.column() == 1 || (cell != nullptr && cell->text == "-")) {
        return colors.quiet;
    }
    if (cell != nullptr && row->kind == ComparisonRow::Kind::care) {
        return row->label == "Warnings" ? colors.care : colors.wrong;
    }
    return colors.text;
}

QVariant CompareModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) {
        return {};
    }
    const QString difference = DifferenceOf(index);
    switch (role) {
    case Qt::DisplayRole:
        return TextOf(index);
    case secondLineRole:
        return difference;
    case titleRole:
        return RowAt(index.row()) == nullptr;
    case Qt::TextAlignmentRole:
        return QVariant(Qt::AlignVCenter | (index.column() < firstCase ? Qt::AlignLeft : Qt::AlignRight));
    case Qt::ForegroundRole:
        return ColorOf(index);
    case Qt::ToolTipRole:
        return difference.isEmpty()
                   ? TextOf(index)
                   : tr("%1\n%2 from %3").arg(TextOf(index), difference, ToQt(table_.cases.front().name));
    case Qt::AccessibleTextRole:
        return difference.isEmpty() ? TextOf(index) : tr("%1, difference %2").arg(TextOf(index), difference);
    default:
        return {};
    }
}

QVariant CompareModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || section < 0 || section >= columnCount()) {
        return {};
    }
    const bool isCase = section >= firstCase;
    ComparisonTable::Heading heading{section == 0 ? "Case" : "Unit", section == 0 ? "Calculation" : ""};
    if (isCase) {
        const auto index = static_cast<std::size_t>(section - firstCase);
        heading = table_.cases.at(index);
        heading.name = std::to_string(index + 1) + " " + heading.name; // as the plots number them
    }
    switch (role) {
    case Qt::DisplayRole:
        return ToQt(heading.name);
    case secondLineRole:
        return ToQt(heading.calculation);
    case Qt::TextAlignmentRole:
        return QVariant(isCase ? Qt::AlignRight : Qt::AlignLeft);
    case Qt::ToolTipRole:
    case Qt::AccessibleTextRole:
        return QStringLiteral("%1\n%2").arg(ToQt(heading.name), ToQt(heading.calculation));
    default:
        return {};
    }
}

} // namespace kaloria
