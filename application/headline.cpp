// SPDX-License-Identifier: GPL-3.0-or-later
#include "application/headline.h"

#include <algorithm>

namespace kaloria {

namespace {

constexpr const char* notComputed = "-";

const ResultColumn* ColumnOf(const ResultsGrid& grid, ResultKind kind) {
    const auto found = std::find_if(grid.columns.begin(), grid.columns.end(),
                                    [kind](const ResultColumn& column) { return column.kind == kind; });
    return found == grid.columns.end() ? nullptr : &*found;
}

/// Text of the cell in that column, "-" where there is none.
std::string CellText(const ResultsGrid& grid, std::size_t row, const ResultColumn* column) {
    if (column == nullptr) {
        return notComputed;
    }
    // The cells leave out the label column, which is the first.
    const auto cell = static_cast<std::size_t>(column - grid.columns.data()) - 1;
    const auto& cells = grid.rows.at(row).cells;
    return cell < cells.size() && !cells[cell].text.empty() ? cells[cell].text : notComputed;
}

/// "(°F)" as "°F".
std::string BareUnit(const ResultColumn* column) {
    if (column == nullptr) {
        return {};
    }
    const std::string& unit = column->unit;
    const bool hasBrackets = unit.size() >= 2 && unit.front() == '(' && unit.back() == ')';
    return hasBrackets ? unit.substr(1, unit.size() - 2) : unit;
}

const ResultColumn* FlowColumn(const ResultsGrid& grid) {
    const ResultColumn* const hourly = ColumnOf(grid, ResultKind::hourlyHeatFlow);
    return hourly != nullptr ? hourly : ColumnOf(grid, ResultKind::annualHeatFlow);
}

HeadlineFigure FigureOf(const CalculationResult& result, std::size_t row, const ResultColumn* column,
                        std::string caption) {
    return {std::move(caption), CellText(result.grid, row, column), BareUnit(column),
            HeadlineFigure::Goal::none};
}

/// What follows the name of a figure; short, as the captions stand in narrow cards.
std::string WhereOf(const CalculationResult& result, std::size_t row) {
    if (row == 0) {
        return ", bare";
    }
    return result.grid.rows.at(row).thickness ? " at " + RowCaption(result, row) : ", as given";
}

HeadlineFigure FirstFigure(const CalculationResult& result) {
    if (!result.design.label.empty()) {
        return {"Design thickness",
                result.design.text,
                {},
                result.design.value ? HeadlineFigure::Goal::met : HeadlineFigure::Goal::missed};
    }
    const ResultColumn* const flow = FlowColumn(result.grid);
    return FigureOf(result, 0, flow, (flow != nullptr ? flow->name : "Heat Loss") + ", bare");
}

} // namespace

std::optional<std::size_t> HeadlineRow(const CalculationResult& result) {
    const auto& rows = result.grid.rows;
    const auto design = std::find_if(rows.begin(), rows.end(), [](const ResultRow& r) { return r.isDesign; });
    if (design != rows.end()) {
        return static_cast<std::size_t>(design - rows.begin());
    }
    for (std::size_t row = rows.size(); row > 1; --row) {
        if (rows[row - 1].fault.empty()) {
            return row - 1;
        }
    }
    return std::nullopt;
}

std::string RowCaption(const CalculationResult& result, std::size_t row) {
    if (row == 0) {
        return "bare";
    }
    const ResultRow& shown = result.grid.rows.at(row);
    if (!shown.thickness) {
        return "the layers given";
    }
    return shown.label + (result.units == Units::si ? " mm" : " in.");
}

std::vector<HeadlineFigure> HeadlineFigures(const CalculationResult& result, std::size_t row) {
    const std::string at = WhereOf(result, row);
    std::vector<HeadlineFigure> figures{FirstFigure(result)};
    if (const ResultColumn* const surface = ColumnOf(result.grid, ResultKind::surfaceTemp)) {
        figures.push_back(FigureOf(result, row, surface, "Surface" + at));
    }
    if (const ResultColumn* const flow = FlowColumn(result.grid)) {
        figures.push_back(FigureOf(result, row, flow, flow->name + at));
    }
    for (const ResultKind kind : {ResultKind::efficiency, ResultKind::cost, ResultKind::savings}) {
        const ResultColumn* const column = ColumnOf(result.grid, kind);
        if (column != nullptr && figures.size() < 4) {
            figures.push_back(
                FigureOf(result, row, column,
                         kind == ResultKind::efficiency ? "Saved against bare" : column->name + at));
        }
    }
    return figures;
}

} // namespace kaloria
