// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/calculation_output.h"

#include "cli/findings_output.h"
#include "cli/text_table.h"
#include "data/job_fields.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <ostream>

namespace kaloria::cli {

namespace {

using nlohmann::json;

TextTable TableOf(const ResultsGrid& grid, bool markDesign) {
    TextTable table;
    for (const ResultColumn& column : grid.columns) {
        table.columns.push_back({{column.name, column.unit}, column.kind != ResultKind::label});
    }
    for (const ResultRow& row : grid.rows) {
        std::vector<std::string> cells{row.label};
        for (const ResultCell& cell : row.cells) {
            cells.push_back(cell.text);
        }
        if (markDesign && row.isDesign) {
            cells.emplace_back("<");
        }
        table.rows.push_back(std::move(cells));
    }
    if (markDesign) {
        table.columns.push_back({});
    }
    return table;
}

void PrintPanel(const CalculationResult& result, std::ostream& out) {
    std::size_t width = 0;
    for (const PanelLine& line : result.panel) {
        width = std::max(width, DisplayWidth(line.caption));
    }
    for (const PanelLine& line : result.panel) {
        const bool isDesign = line.control == "lblCondensationControlThickness";
        if (!isDesign && !line.text.empty() && line.text != "N/A") {
            out << line.caption << std::string(width - DisplayWidth(line.caption) + 2, ' ') << line.text
                << '\n';
        }
    }
}

json NumberOrNull(const std::optional<double>& value) { return value ? json(*value) : json(nullptr); }

json OptionalOf(const std::optional<float>& value, Quantity quantity, Units units) {
    return value ? json(FromEnglish(quantity, units, *value)) : json(nullptr);
}

json GridJson(const ResultsGrid& grid, json& result) {
    for (const ResultColumn& column : grid.columns) {
        result["columns"].push_back({{"name", column.name}, {"unit", column.unit}});
    }
    json rows = json::array();
    for (const ResultRow& row : grid.rows) {
        json values = json::array();
        for (const ResultCell& cell : row.cells) {
            values.push_back(NumberOrNull(cell.value));
        }
        rows.push_back({{"label", row.label},
                        {"thickness", NumberOrNull(row.thickness)},
                        {"values", values},
                        {"isDesign", row.isDesign}});
        if (!row.fault.empty()) {
            rows.back()["fault"] = row.fault;
        }
    }
    return rows;
}

} // namespace

void PrintReport(const CalculationResult& result, std::ostream& out) {
    out << result.title << "\n\n";
    PrintPanel(result, out);
    out << '\n';
    TableOf(result.grid, true).Print(out);
    if (!result.design.label.empty()) {
        out << '\n' << result.design.label << ' ' << result.design.text << '\n';
    }
    PrintFindings(result.findings, out);
}

void PrintGridCsv(const CalculationResult& result, std::ostream& out) {
    TableOf(result.grid, false).PrintCsv(out);
}

json ToJson(const CalculationResult& result) {
    json object{{"done", result.done}, {"findings", ToJson(result.findings)}};
    if (!result.done) {
        return object;
    }
    object["calculationType"] = calculationTypeNames[result.calculationType];
    object["units"] = result.units == Units::si ? "SI" : "English";
    object["rows"] = GridJson(result.grid, object);
    object["designThickness"] = {{"label", result.design.label},
                                 {"text", result.design.text},
                                 {"value", NumberOrNull(result.design.value)}};
    for (const PanelLine& line : result.panel) {
        object["panel"].push_back(
            {{"control", line.control}, {"caption", line.caption}, {"text", line.text}});
    }
    if (result.condensation) {
        const auto& moisture = *result.condensation;
        object["condensation"] = {
            {"dewPoint", OptionalOf(moisture.dewPoint, Quantity::temperature, result.units)},
            {"psychrometricDewPoint",
             OptionalOf(moisture.psychrometric, Quantity::temperature, result.units)},
            {"relativeHumidity", OptionalOf(moisture.relativeHumidity, Quantity::percent, result.units)}};
    }
    for (std::size_t i = 0; i < result.solved.size(); ++i) {
        for (const float temp : result.solved[i].faceSurfaceTemps) {
            object["rows"][i]["faceSurfaceTemps"].push_back(
                FromEnglish(Quantity::temperature, result.units, temp));
        }
        if (result.solved[i].stoppedBySafeguard) {
            object["rows"][i]["stoppedBySafeguard"] = true;
        }
    }
    return object;
}

} // namespace kaloria::cli
