// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "application/finding.h"
#include "application/solved_rows.h"
#include "data/number_format.h"
#include "data/quantity.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace kaloria {

/// What a column of the results grid shows.
enum class ResultKind : std::uint8_t {
    label,
    surfaceTemp,
    hourlyHeatFlow,
    annualHeatFlow,
    efficiency,
    layerThickness,
    interfaceTemp,
    conductivity,
    cost,
    savings,
    emission,
};

/// A column, with its two-line heading.
struct ResultColumn {
    ResultKind kind = ResultKind::label;
    std::size_t index = 0; ///< layer (from 0) or pollutant (from 0) of the kinds that have one
    std::string name;      ///< first heading line
    std::string unit;      ///< second heading line, as written ("(°F)"); of the label column its second word
    NumberFormat format = NumberFormat::shortest;
};

/// A cell: the number in the units of the grid and its text. A number that was not computed has the text "-"
/// and no value; a cell that has nothing to say (efficiency of the bare row) is empty.
struct ResultCell {
    std::optional<double> value;
    std::string text;
};

struct ResultRow {
    std::string label;
    std::optional<double> thickness; ///< nominal, of the varying layer [in or mm]
    std::vector<ResultCell> cells;   ///< one per column but the label column
    bool isDesign = false;           ///< the row whose thickness meets the goal
    std::string fault;
};

/// The results grid: the label column first.
struct ResultsGrid {
    std::vector<ResultColumn> columns;
    std::vector<ResultRow> rows;
};

/// A label of the report panel.
struct PanelLine {
    std::string control; ///< object name of the label that shows it
    std::string caption; ///< what it is
    std::string text;
};

/// The moisture of the air behind a condensation goal; English units.
struct CondensationResult {
    float dewPoint = 0;                    ///< that the surface is held against [degF]
    std::optional<float> psychrometric;    ///< the true one, when relative humidity was given [degF]
    std::optional<float> relativeHumidity; ///< as given, or lifted to 1 [%]
};

/// The thickness that meets the goal, as the report panel shows it.
struct DesignThickness {
    std::string label;           ///< "Personnel Protection Thickness:"; empty for types without a goal
    std::string text;            ///< "1.5 in.", "N/A"
    std::optional<double> value; ///< [in or mm]
};

/// Everything that a calculation answers.
struct CalculationResult {
    bool done = false; ///< false: an input stands in the way, and nothing but findings is filled
    int calculationType = 0;
    Units units = Units::english;
    std::string title; ///< of the report panel
    ResultsGrid grid;
    DesignThickness design;
    std::vector<PanelLine> panel;
    std::optional<CondensationResult> condensation;
    std::optional<float> unitFuelCost; ///< [$/Btu]
    std::vector<SolvedRow> solved;     ///< row by row as the grid, in English units
    std::string auditLine;             ///< the case as a line of the audit file; of CApplication::Calculate
    std::vector<Finding> findings;

    /// Whether the bare row and at least one insulated row have an answer.
    [[nodiscard]] bool HasAnswer() const;
};

} // namespace kaloria
