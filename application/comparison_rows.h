// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "application/comparison_table.h"

#include <deque>

namespace kaloria {

/// Rows in the making, found by label and unit: what has another unit goes to another row.
class ComparisonRows {
public:
    explicit ComparisonRows(std::size_t cases) : cases_(cases) {}

    ComparisonCell& Cell(std::size_t index, ComparisonRow::Kind kind, const std::string& label,
                         const std::string& unit, NumberFormat format);
    void Number(std::size_t index, const std::string& label, const std::string& unit, NumberFormat format,
                double value);
    void Word(std::size_t index, ComparisonRow::Kind kind, const std::string& label, std::string text);

    std::deque<ComparisonRow> rows;

private:
    std::size_t cases_;
};

// What the columns of the cases' grids hold.

[[nodiscard]] bool IsFlow(const ResultColumn& column);
/// "Heat flow", "Heat flow in a year": hot and cold cases share it, a gain is a flow below zero.
[[nodiscard]] std::string FlowNameOf(const ResultColumn& column);
/// Unit without brackets. The heading of a yearly flow in SI says watts; it counts watt-hours, and beside an
/// hourly flow that has to be told.
[[nodiscard]] std::string UnitOf(const ResultColumn& column, Units units);
/// The column of the heat flow, when all cases with figures have the same in the same unit; null otherwise.
[[nodiscard]] const ResultColumn* SharedFlow(const std::vector<ComparedCase>& cases);

/// The inputs in which any two cases differ, as the job has them; compared as numbers where they are numbers.
[[nodiscard]] std::vector<ComparisonRow> InputDifferences(const std::vector<ComparedCase>& cases,
                                                          const Catalogue& catalogue);

/// Figures and words of the rows that stand for the cases, and what should be known about them.
[[nodiscard]] std::vector<ComparisonRow> ComparedResults(const std::vector<ComparedCase>& cases);

} // namespace kaloria
