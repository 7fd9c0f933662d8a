// SPDX-License-Identifier: GPL-3.0-or-later
#include "application/comparison_table.h"

#include "application/comparison_rows.h"
#include "data/quantity.h"

#include <algorithm>
#include <cmath>

namespace kaloria {

ComparisonCell& ComparisonRows::Cell(std::size_t index, ComparisonRow::Kind kind, const std::string& label,
                                     const std::string& unit, NumberFormat format) {
    auto found = std::find_if(rows.begin(), rows.end(), [&](const ComparisonRow& row) {
        return row.label == label && row.unit == unit;
    });
    if (found == rows.end()) {
        ComparisonCell nothing;
        nothing.text = "-";
        rows.push_back({kind, label, unit, format, std::vector<ComparisonCell>(cases_, nothing)});
        found = rows.end() - 1;
    }
    return found->cells.at(index);
}

void ComparisonRows::Number(std::size_t index, const std::string& label, const std::string& unit,
                            NumberFormat format, double value) {
    ComparisonCell& cell = Cell(index, ComparisonRow::Kind::figure, label, unit, format);
    cell.value = value;
    cell.text = FormatNumber(value, format);
}

void ComparisonRows::Word(std::size_t index, ComparisonRow::Kind kind, const std::string& label,
                          std::string text) {
    Cell(index, kind, label, {}, NumberFormat::shortest).text = std::move(text);
}

std::string SignedNumber(double value, NumberFormat format) {
    const std::string text = FormatNumber(value, format);
    const bool isZero = text.find_first_not_of("0.") == std::string::npos;
    return isZero || text.front() == '-' ? text : "+" + text;
}

namespace {

bool IsTemperature(const ComparisonRow& row) {
    const QuantityInfo& info = InfoOf(Quantity::temperature);
    return row.unit == info.englishText || row.unit == info.siText;
}

/// A tenth of the zero of a scale means nothing, and neither does a percentage of a percentage.
bool IsRatioScale(const ComparisonRow& row) { return !IsTemperature(row) && row.unit != "%"; }

void AddChanges(ComparisonRow& row) {
    const std::optional<double> first = row.cells.front().value;
    for (std::size_t i = 1; i < row.cells.size(); ++i) {
        ComparisonCell& cell = row.cells[i];
        if (!first || !cell.value) {
            continue;
        }
        cell.change = *cell.value - *first;
        cell.changeText = SignedNumber(*cell.change, row.format);
        if (IsRatioScale(row) && *first != 0.0) {
            cell.percent = *cell.change / std::abs(*first) * 100;
            cell.percentText = SignedNumber(*cell.percent, NumberFormat::tenths);
        }
    }
}

} // namespace

ComparisonTable MakeComparisonTable(const std::vector<ComparedCase>& cases, const Catalogue& catalogue) {
    ComparisonTable table;
    for (const ComparedCase& compared : cases) {
        table.cases.push_back({compared.name, compared.job[Field::InsulationThicknessCalculationType]});
    }
    if (cases.empty()) {
        return table;
    }
    table.inputs = InputDifferences(cases, catalogue);
    table.results = ComparedResults(cases);
    for (ComparisonRow& row : table.results) {
        if (row.kind == ComparisonRow::Kind::figure) {
            AddChanges(row);
        }
    }
    return table;
}

} // namespace kaloria
