// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "application/case_inputs.h"
#include "engine/heat_loss_calculator.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace kaloria {

/// One insulation layer of a solved row; English units.
struct SolvedLayer {
    std::string name;
    float thickness = 0;    ///< as installed [in]
    float insideTemp = 0;   ///< [degF]
    float outsideTemp = 0;  ///< [degF]
    float conductivity = 0; ///< [Btu in/(h ft2 degF)]
};

/// One solved case: the bare surface, or the layers with one thickness of the varying one. English units. A
/// row with a fault holds no numbers.
struct SolvedRow {
    bool bare = false;
    std::optional<float> nominal; ///< of the varying layer, in the units of the series
    std::string fault;            ///< why there is no solution; empty when there is one
    float unitHeatFlow = 0;       ///< as the engine reports it for the calculation type
    double comparedFlow =
        0; ///< per foot of cylinders and ducts, else per square foot: what savings are formed from
    double meanFlux = 0;                 ///< over the outer surface [Btu/(h ft2)]
    float metalOutsideTemp = 0;          ///< [degF]
    float surfaceTemp = 0;               ///< of a horizontal duct the face that governs [degF]
    std::vector<float> faceSurfaceTemps; ///< of a horizontal duct: sides, top, bottom [degF]
    std::vector<SolvedLayer> layers;     ///< in the governing face
    float insulationOD = -1;             ///< as handed to the engine [in]
    bool stoppedBySafeguard = false;
    float settledBy = 0;      ///< how far the first answer was off [degF]
    double flowSettledBy = 0; ///< the same for the flow, relative

    [[nodiscard]] bool IsSolved() const { return fault.empty(); }
};

/// Runs the case: the bare row, then one row, or with a varying layer one per nominal thickness. Every
/// solution is settled. A row that cannot be computed carries its fault and does not stop the others. Leaves
/// @p calculator with the last case; it refers to records in @p inputs and in the catalogue.
[[nodiscard]] std::vector<SolvedRow> SolveRows(const CaseInputs& inputs, CHeatLossCalculator& calculator);

/// The insulated rows alone, in the order of the series, up to and including the first that @p isEnough
/// accepts.
[[nodiscard]] std::vector<SolvedRow>
SolveInsulatedRows(const CaseInputs& inputs, CHeatLossCalculator& calculator,
                   const std::function<bool(const SolvedRow&)>& isEnough);

/// The row like @p row alone, with the engine's inputs changed by @p alter just before it is solved. Records
/// that the change points at must outlive the use of @p calculator.
[[nodiscard]] SolvedRow SolveRowLike(const SolvedRow& row, const CaseInputs& inputs,
                                     CHeatLossCalculator& calculator,
                                     const std::function<void(CHeatLossCalculator&)>& alter);

/// What a row costs and emits in a year; English units, per foot or per square foot.
struct RowMoney {
    double cost = 0;               ///< [$]
    double savings = 0;            ///< bare row's cost less this one's [$]
    std::vector<double> emissions; ///< per pollutant of the fuel [lb]
};

/// @param unitFuelCost  [$/Btu]; @param bare  the bare row's money, or null for the bare row itself
/// @throws NumericFault when the efficiency is zero
[[nodiscard]] RowMoney MoneyOf(const SolvedRow& row, const CaseInputs& inputs, float unitFuelCost,
                               const RowMoney* bare);

/// Insulated against bare heat flow [%]; nothing when the bare surface exchanges no heat.
[[nodiscard]] std::optional<double> EfficiencyOf(const SolvedRow& row, const SolvedRow& bare);

/// Whether a solved row meets the goal of types 0 to 2, inclusively: surface not above the limit; surface not
/// below @p dewPoint [degF], in cold service only; mean flux not above the limit in magnitude.
[[nodiscard]] bool MeetsGoal(const SolvedRow& row, const CaseInputs& inputs, std::optional<float> dewPoint);

/// The first insulated row that meets the goal.
[[nodiscard]] const SolvedRow* DesignRow(const std::vector<SolvedRow>& rows, const CaseInputs& inputs,
                                         std::optional<float> dewPoint);

} // namespace kaloria
