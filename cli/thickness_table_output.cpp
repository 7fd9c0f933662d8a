// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/thickness_table_output.h"

#include "cli/findings_output.h"
#include "cli/text_table.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <ostream>

namespace kaloria::cli {

namespace {

using nlohmann::json;

const char* UnitsWord(Units units) { return units == Units::si ? "SI" : "English"; }

TextTable TableOf(const ThicknessTable& table) {
    TextTable text;
    text.columns.push_back({{"Size"}, true});
    for (const TableColumn& column : table.columns) {
        text.columns.push_back({{column.text}, true});
    }
    for (const TableRow& row : table.rows) {
        std::vector<std::string> cells{row.size};
        for (const TableCell& cell : row.cells) {
            cells.push_back(cell.text);
        }
        text.rows.push_back(std::move(cells));
    }
    return text;
}

TextTable TableOf(const std::vector<SizeCoverings>& sizes, Units units) {
    const std::string unit = "(" + std::string(InfoOf(Quantity::length).Text(units)) + ")";
    TextTable text;
    text.columns.push_back({{"Size"}, true});
    for (const char* const name : {"Diameter", "Nominal", "Actual", "Outside"}) {
        text.columns.push_back({{name, unit}, true});
    }
    const auto number = [](double value) { return FormatNumber(value, NumberFormat::shortest); };
    for (const SizeCoverings& size : sizes) {
        for (const CoveringDimensions& row : size.coverings) {
            text.rows.push_back({size.size, number(size.outsideDiameter), number(row.nominal),
                                 number(row.actual), number(row.outside)});
        }
    }
    return text;
}

void PrintPanel(const ThicknessTable& table, std::ostream& out) {
    std::size_t width = 0;
    for (const PanelLine& line : table.panel) {
        width = std::max(width, DisplayWidth(line.caption));
    }
    for (const PanelLine& line : table.panel) {
        if (!line.text.empty() && line.text != "N/A") {
            out << line.caption << std::string(width - DisplayWidth(line.caption) + 2, ' ') << line.text
                << '\n';
        }
    }
}

bool HasGaps(const ThicknessTable& table) {
    return std::any_of(table.rows.begin(), table.rows.end(), [](const TableRow& row) {
        return std::any_of(row.cells.begin(), row.cells.end(),
                           [](const TableCell& cell) { return !cell.thickness; });
    });
}

json Shown(const std::optional<float>& temp, Units units) {
    return temp ? json(FromEnglish(Quantity::temperature, units, *temp)) : json(nullptr);
}

json RowsOf(const ThicknessTable& table) {
    json rows = json::array();
    for (const TableRow& row : table.rows) {
        json thicknesses = json::array();
        for (const TableCell& cell : row.cells) {
            thicknesses.push_back(cell.thickness ? json(*cell.thickness) : json(nullptr));
        }
        rows.push_back({{"size", row.size}, {"thicknesses", thicknesses}});
    }
    return rows;
}

} // namespace

void PrintThicknessTable(const ThicknessTable& table, std::ostream& out) {
    out << table.title << "\n\n";
    PrintPanel(table, out);
    out << "\nNominal thickness (" << InfoOf(Quantity::length).Text(table.units)
        << ") by process temperature";
    if (table.condensation) {
        const double dewPoint = FromEnglish(Quantity::temperature, table.units, table.condensation->dewPoint);
        out << "; surfaces colder than the air are kept at the dew point of "
            << FormatNumber(dewPoint, NumberFormat::tenths) << ' '
            << InfoOf(Quantity::temperature).Text(table.units);
    }
    out << "\n\n";
    TableOf(table).Print(out);
    if (HasGaps(table)) {
        out << "\n-  no thickness that is made for the size meets the goal\n";
    }
    PrintFindings(table.findings, out);
}

void PrintThicknessTableCsv(const ThicknessTable& table, std::ostream& out) { TableOf(table).PrintCsv(out); }

json ToJson(const ThicknessTable& table) {
    json object{{"done", table.done}, {"findings", ToJson(table.findings)}};
    if (!table.done) {
        return object;
    }
    object["units"] = UnitsWord(table.units);
    for (const TableColumn& column : table.columns) {
        object["temperatures"].push_back(column.value);
    }
    object["rows"] = RowsOf(table);
    object["maxSurfaceTemp"] = Shown(table.maxSurfaceTemp, table.units);
    object["dewPoint"] =
        table.condensation ? Shown(table.condensation->dewPoint, table.units) : json(nullptr);
    for (const PanelLine& line : table.panel) {
        object["panel"].push_back(
            {{"control", line.control}, {"caption", line.caption}, {"text", line.text}});
    }
    return object;
}

void PrintCoverings(const std::vector<SizeCoverings>& sizes, Units units, std::ostream& out) {
    TableOf(sizes, units).Print(out);
}

void PrintCoveringsCsv(const std::vector<SizeCoverings>& sizes, Units units, std::ostream& out) {
    TableOf(sizes, units).PrintCsv(out);
}

json ToJson(const std::vector<SizeCoverings>& sizes, Units units) {
    json list = json::array();
    for (const SizeCoverings& size : sizes) {
        json coverings = json::array();
        for (const CoveringDimensions& row : size.coverings) {
            coverings.push_back({{"nominal", row.nominal}, {"actual", row.actual}, {"outside", row.outside}});
        }
        list.push_back(
            {{"size", size.size}, {"outsideDiameter", size.outsideDiameter}, {"coverings", coverings}});
    }
    return {{"units", UnitsWord(units)}, {"sizes", list}};
}

} // namespace kaloria::cli
