// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "application/calculation_result.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace kaloria {

/// One of the figures that a person looks for first.
struct HeadlineFigure {
    enum class Goal : std::uint8_t { none, met, missed };
    std::string caption; ///< "Surface at 1.5 in."
    std::string text;    ///< "110.9"; "-" when it was not computed
    std::string unit;    ///< "°F"
    Goal goal = Goal::none;
};

/// The row whose figures stand for the whole answer: the design row, else the thickest solved one. Nothing
/// when no insulated row is solved.
[[nodiscard]] std::optional<std::size_t> HeadlineRow(const CalculationResult& result);

/// Four figures: the design thickness (or the bare surface's heat flow where there is no goal), and surface
/// temperature, heat flow and efficiency of a row, in the units of the grid.
/// @param row  of the grid; see HeadlineRow
[[nodiscard]] std::vector<HeadlineFigure> HeadlineFigures(const CalculationResult& result, std::size_t row);

/// What a row of the grid is called in a caption: "1.5 in.", "38 mm", "bare".
[[nodiscard]] std::string RowCaption(const CalculationResult& result, std::size_t row);

} // namespace kaloria
