// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/compare_output.h"

#include "application/comparison_export.h"
#include "application/grid_export.h"
#include "cli/findings_output.h"
#include "cli/text_table.h"

#include <nlohmann/json.hpp>

#include <ostream>

namespace kaloria::cli {

namespace {

using nlohmann::json;

json NumberOrNull(const std::optional<double>& value) { return value ? json(*value) : json(nullptr); }

json ValueOf(const ComparisonCell& cell) {
    if (cell.value) {
        return *cell.value;
    }
    return cell.text == "-" ? json(nullptr) : json(cell.text);
}

json RowsJson(const std::vector<ComparisonRow>& rows) {
    json array = json::array();
    for (const ComparisonRow& row : rows) {
        json object{{"name", row.label}, {"unit", row.unit}, {"values", json::array()}};
        for (const ComparisonCell& cell : row.cells) {
            object["values"].push_back(ValueOf(cell));
            if (row.kind == ComparisonRow::Kind::figure) {
                object["differences"].push_back(NumberOrNull(cell.change));
                object["percent"].push_back(NumberOrNull(cell.percent));
            }
        }
        array.push_back(std::move(object));
    }
    return array;
}

} // namespace

void PrintComparison(const ComparisonTable& table, Format format, std::ostream& out) {
    const ResultsGrid grid = ComparisonGrid(table);
    if (format == Format::csv) {
        out << GridAsCsv(grid).substr(3); // the byte order mark is for files
        return;
    }
    TextTable text;
    for (std::size_t i = 0; i < grid.columns.size(); ++i) {
        text.columns.push_back({{grid.columns[i].name, grid.columns[i].unit}, i > 1});
    }
    for (const ResultRow& row : grid.rows) {
        std::vector<std::string> cells{row.label};
        for (const ResultCell& cell : row.cells) {
            cells.push_back(cell.text);
        }
        text.rows.push_back(std::move(cells));
    }
    text.Print(out);
}

json ToJson(const std::vector<ComparedCase>& cases, const ComparisonTable& table) {
    json list = json::array();
    for (const ComparedCase& compared : cases) {
        list.push_back({{"name", compared.name},
                        {"calculationType", compared.job[Field::InsulationThicknessCalculationType]},
                        {"reason", compared.HasFigures() ? json(nullptr) : json(compared.reason)},
                        {"findings", ToJson(compared.result.findings)}});
    }
    const bool isSI = !cases.empty() && cases.front().job.UnitsInForce() == Units::si;
    return {{"units", isSI ? "SI" : "English"},
            {"cases", std::move(list)},
            {"inputs", RowsJson(table.inputs)},
            {"results", RowsJson(table.results)}};
}

} // namespace kaloria::cli
