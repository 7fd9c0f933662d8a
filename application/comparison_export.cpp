// SPDX-License-Identifier: GPL-3.0-or-later
#include "application/comparison_export.h"

#include "application/grid_export.h"
#include "application/workbook.h"

#include <fmt/format.h>

#include <algorithm>
#include <cctype>

namespace kaloria {

namespace {

/// A line of the sheet: a title alone, or a row with its figures.
struct Line {
    std::string label;
    std::string unit;
    NumberFormat format = NumberFormat::shortest;
    std::vector<ResultCell> cells;
    bool isTitle = false;
};

Line Title(std::string text, std::size_t cases) {
    return {std::move(text), {}, NumberFormat::shortest, std::vector<ResultCell>(cases), true};
}

void AddRows(std::vector<Line>& lines, const std::vector<ComparisonRow>& rows) {
    for (const ComparisonRow& row : rows) {
        Line line{row.label, row.unit, row.format, {}, false};
        for (const ComparisonCell& cell : row.cells) {
            line.cells.push_back({cell.value, cell.text});
        }
        lines.push_back(std::move(line));
    }
}

/// The rows in which there is something to tell, as changes in their own unit or in percent.
void AddChanges(std::vector<Line>& lines, const ComparisonTable& table, bool inPercent) {
    for (const ComparisonRow& row : table.results) {
        Line line{row.label,
                  inPercent ? "%" : row.ChangeUnit(),
                  inPercent ? NumberFormat::tenths : row.format,
                  {},
                  false};
        bool hasAny = false;
        for (const ComparisonCell& cell : row.cells) {
            const auto& value = inPercent ? cell.percent : cell.change;
            line.cells.push_back({value, value ? FormatNumber(*value, line.format) : std::string("-")});
            hasAny = hasAny || value;
        }
        if (hasAny) {
            lines.push_back(std::move(line));
        }
    }
}

std::vector<Line> LinesOf(const ComparisonTable& table) {
    const std::size_t cases = table.cases.size();
    std::vector<Line> lines;
    if (!table.inputs.empty()) {
        lines.push_back(Title("Inputs that differ", cases));
        AddRows(lines, table.inputs);
    }
    lines.push_back(Title("Results", cases));
    AddRows(lines, table.results);
    if (cases > 1) {
        lines.push_back(Title(fmt::format("Difference from {}", table.cases.front().name), cases));
        AddChanges(lines, table, false);
        lines.push_back(Title(fmt::format("Difference from {}, %", table.cases.front().name), cases));
        AddChanges(lines, table, true);
    }
    return lines;
}

bool IsCsv(const std::filesystem::path& path) {
    std::string suffix = path.extension().string();
    std::transform(suffix.begin(), suffix.end(), suffix.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return suffix == ".csv";
}

void WriteLine(Workbook& book, std::uint32_t at, const Line& line) {
    const CellStyle plain{NumberFormat::shortest, line.isTitle, false, false};
    book.Write(at, 0, line.label, plain);
    book.Write(at, 1, line.unit, plain);
    const CellStyle right{line.format, false, false, true};
    std::uint16_t column = 2;
    for (const ResultCell& cell : line.cells) {
        if (cell.value) {
            book.Write(at, column++, *cell.value, right);
        } else {
            book.Write(at, column++, cell.text, right);
        }
    }
}

void WriteXlsx(const std::filesystem::path& path, const ComparisonTable& table) {
    constexpr CellStyle heading{NumberFormat::shortest, true, false, false};
    constexpr CellStyle rightHeading{NumberFormat::shortest, true, false, true};
    Workbook book;
    book.AddSheet("Comparison");
    book.Write(0, 0, "Case", heading);
    book.Write(1, 0, "Calculation", heading);
    book.Write(0, 1, "Unit", heading);
    std::uint16_t column = 2;
    for (const ComparisonTable::Heading& compared : table.cases) {
        book.Write(0, column, compared.name, rightHeading);
        book.Write(1, column++, compared.calculation, rightHeading);
    }
    std::uint32_t at = 2;
    for (const Line& line : LinesOf(table)) {
        WriteLine(book, at++, line);
    }
    book.Freeze(2, 2);
    book.Save(path);
}

} // namespace

ResultsGrid ComparisonGrid(const ComparisonTable& table) {
    ResultsGrid grid;
    grid.columns.push_back({ResultKind::label, 0, "Case", "Calculation", NumberFormat::shortest});
    grid.columns.push_back({ResultKind::label, 0, "Unit", "", NumberFormat::shortest});
    for (const ComparisonTable::Heading& compared : table.cases) {
        grid.columns.push_back(
            {ResultKind::label, 0, compared.name, compared.calculation, NumberFormat::shortest});
    }
    for (Line& line : LinesOf(table)) {
        ResultRow row;
        row.label = std::move(line.label);
        row.cells.push_back({std::nullopt, std::move(line.unit)});
        std::move(line.cells.begin(), line.cells.end(), std::back_inserter(row.cells));
        grid.rows.push_back(std::move(row));
    }
    return grid;
}

void WriteComparison(const std::filesystem::path& path, const ComparisonTable& table) {
    if (IsCsv(path)) {
        WriteGridCsv(path, ComparisonGrid(table));
    } else {
        WriteXlsx(path, table);
    }
}

} // namespace kaloria
