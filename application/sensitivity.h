// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "application/plot_series.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace kaloria {

/// The inputs whose uncertainty is asked after.
enum class UncertainInput : std::uint8_t {
    processTemp,  ///< by a share of the difference between process and ambient
    ambientTemp,  ///< by a share of the same difference
    windSpeed,    ///< by a share of itself, as all that follow
    emittance,    ///< of the outer surface; not above 1
    thickness,    ///< of every layer
    conductivity, ///< of every layer
};
inline constexpr std::array<UncertainInput, 6> uncertainInputs{
    UncertainInput::processTemp, UncertainInput::ambientTemp, UncertainInput::windSpeed,
    UncertainInput::emittance,   UncertainInput::thickness,   UncertainInput::conductivity};

/// How far the inputs are moved, up and down.
inline constexpr double sensitivityShare = 0.1;

/// What moving one input does; English units.
struct Sensitivity {
    UncertainInput input{};
    std::string name;
    /// Relative change of the heat flow (0.05: 5 % more) and change of the surface temperature [degF].
    struct Change {
        double flow = 0;
        double surface = 0;
    };
    std::optional<Change> low;  ///< none when there is no solution there
    std::optional<Change> high; ///< none when there is no solution there
};

/// A row solved anew with each input that matters to it moved by sensitivityShare, the most influential on
/// the heat flow first. Inputs that the row does not have (layers of the bare one, wind in still air) are
/// left out. Empty when the row has no solution or no heat flow.
/// @param row  of the result that @p inputs gave
[[nodiscard]] std::vector<Sensitivity> SensitivityOf(const SolvedRow& row, const CaseInputs& inputs);

/// The same as bars: heat flow in percent, surface temperature in degrees.
[[nodiscard]] PlotModel SensitivityPlot(const CalculationResult& result, const CaseInputs& inputs,
                                        std::size_t row);

} // namespace kaloria
