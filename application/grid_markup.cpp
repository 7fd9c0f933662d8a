// SPDX-License-Identifier: GPL-3.0-or-later
#include "application/grid_markup.h"

#include "reports/report_tables.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace kaloria {

namespace {

constexpr std::size_t mostFigures = 6; // in a row of the table: two layers of interface temperatures

/// Characters, not bytes, of the longest word of @p text.
std::size_t LongestWord(std::string_view text) {
    std::size_t longest = 0;
    std::size_t length = 0;
    for (const char c : text) {
        const bool isContinuation = (static_cast<unsigned char>(c) & 0xC0U) == 0x80U;
        length = c == ' ' ? 0 : length + (isContinuation ? 0 : 1);
        longest = std::max(longest, length);
    }
    return longest;
}

/// Lays one grid out.
class GridLayout {
public:
    explicit GridLayout(const ResultsGrid& grid) : grid_(grid) {}

    rtf::Markup Build(bool hasHeading) {
        rtf::TableBuilder table(Columns());
        const std::size_t figures = grid_.columns.size() - 1;
        for (std::size_t first = 0; first == 0 || first < figures; first += mostFigures) {
            if (hasHeading) {
                AddHeading(table, first);
            }
            for (const ResultRow& row : grid_.rows) {
                table.AddRow(CellsOf(row, first), {.isBold = row.isDesign,
                                                   .hasRuleBelow = &row == &grid_.rows.back(),
                                                   .shading = row.isDesign ? 10 : 0});
            }
        }
        return table.Build();
    }

private:
    [[nodiscard]] std::size_t FigureCount() const { return std::min(mostFigures, grid_.columns.size() - 1); }

    void AddHeading(rtf::TableBuilder& table, std::size_t first) const {
        std::vector<std::string> upper{grid_.columns.front().name};
        std::vector<std::string> lower{grid_.columns.front().unit};
        upper.front().erase(0, upper.front().find_first_not_of(' '));
        for (std::size_t i = 0; i < FigureCount() && first + i + 1 < grid_.columns.size(); ++i) {
            upper.push_back(grid_.columns[first + i + 1].name);
            lower.push_back(grid_.columns[first + i + 1].unit);
        }
        rtf::RowLook look{.isBold = true, .hasRuleAbove = true, .staysWithNext = true};
        rtf::RowLook lastLook{.isBold = true, .hasRuleBelow = true, .staysWithNext = true};
        if (first == 0) {
            table.AddHeading(upper, look);
            table.AddHeading(lower, lastLook);
        } else {
            table.AddRow(upper, look);
            table.AddRow(lower, lastLook);
        }
    }

    [[nodiscard]] std::vector<std::string> CellsOf(const ResultRow& row, std::size_t first) const {
        std::vector<std::string> cells{row.label};
        for (std::size_t i = 0; i < FigureCount() && first + i < row.cells.size(); ++i) {
            cells.push_back(row.cells[first + i].text);
        }
        return cells;
    }

    /// As wide as their longest words ask for.
    [[nodiscard]] std::vector<rtf::TableColumn> Columns() const {
        constexpr std::size_t shortestLabel = 12;
        constexpr std::size_t longestLabel = 18;
        std::size_t labelLength = shortestLabel;
        for (const ResultRow& row : grid_.rows) {
            labelLength = std::clamp(row.label.size(), labelLength, longestLabel);
        }
        constexpr std::size_t gap = 3;
        std::vector<std::size_t> lengths(FigureCount() + 1, labelLength);
        for (std::size_t i = 1; i < grid_.columns.size(); ++i) {
            std::size_t& length = lengths[(i - 1) % mostFigures + 1];
            length = std::max(i <= mostFigures ? 0 : length, LongestOf(i));
        }
        std::size_t total = 0;
        for (std::size_t& length : lengths) {
            total += length += gap;
        }
        total = std::max(total, gap); // plain to see for whoever checks the division
        std::vector<rtf::TableColumn> columns;
        columns.reserve(lengths.size());
        for (const std::size_t length : lengths) {
            columns.push_back({static_cast<int>(reportTextWidth * length / total),
                               columns.empty() ? rtf::Alignment::left : rtf::Alignment::right});
        }
        return columns;
    }

    [[nodiscard]] std::size_t LongestOf(std::size_t column) const {
        std::size_t length =
            std::max(LongestWord(grid_.columns[column].name), LongestWord(grid_.columns[column].unit));
        for (const ResultRow& row : grid_.rows) {
            length = std::max(length, LongestWord(row.cells[column - 1].text));
        }
        return length;
    }

    const ResultsGrid& grid_;
};

} // namespace

rtf::Markup GridTable(const ResultsGrid& grid, bool hasHeading) {
    return grid.columns.empty() ? rtf::Markup() : GridLayout(grid).Build(hasHeading);
}

} // namespace kaloria
