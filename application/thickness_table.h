// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "application/calculation_result.h"
#include "data/catalogue.h"
#include "data/job.h"

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace kaloria {

/// One process temperature of the thickness table.
struct TableColumn {
    float temp = 0;   ///< [degF]
    double value = 0; ///< [degF or degC]
    std::string text; ///< "250 °F"
    bool cold =
        false; ///< colder than the air: the dew point is the goal, not the highest surface temperature
};

struct TableCell {
    std::optional<double> thickness; ///< nominal [in or mm]; nothing when no thickness was found
    std::string text;                ///< "1.5", "-"
};

struct TableRow {
    std::string size; ///< as the list of sizes shows it
    std::vector<TableCell> cells;
};

/// The insulation thickness table: for every pipe or tube size and six process temperatures the smallest
/// nominal thickness of the varying layer that keeps a hot surface at or below the maximum surface
/// temperature, or a cold one at or above the dew point.
struct ThicknessTable {
    static constexpr std::size_t temperatures = 6;

    bool done = false; ///< false: an input stands in the way, and nothing but findings is filled
    Units units = Units::english;
    std::string title;
    std::array<TableColumn, temperatures> columns;
    std::vector<TableRow> rows;
    std::vector<PanelLine> panel;                   ///< labels of the case, without size and temperature
    std::optional<float> maxSurfaceTemp;            ///< [degF], when a column is hot
    std::optional<CondensationResult> condensation; ///< when a column is cold
    std::vector<Finding> findings;
};

/// Computes the table of a job: geometry, layers, ambient conditions, MaxSurfaceTemp and the moisture of the
/// air as in a calculation, temperatures ReportStartingTemperature + k x ReportTemperatureIncrement, k = 1 to
/// 6. Size, process temperature, goal and fuel of the job play no part. Every solution is settled. A size and
/// temperature that cannot be computed has an empty cell and an error among the findings.
[[nodiscard]] ThicknessTable MakeThicknessTable(const Job& job, Catalogue& catalogue);

} // namespace kaloria
