// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "reports/cost_data.h"
#include "reports/economic_results.h"

#include <functional>

namespace kaloria {

/// Told how many of the surfaces are done; returns whether to go on.
using AnalysisProgress = std::function<bool(int done, int count)>;

/// The factor of the analysis' cell values, F = ((U H / E) c d f (1 - t)) + P - t + 1 with c = 100, d = 1 and
/// P the capacity cost. Its outer terms are no money: the value is kept for whoever compares tables of
/// earlier reports, and no report prints it.
[[nodiscard]] double MoneyFactor(const EconomicFigures& figures);

/// The analysis of every surface, temperature and thickness in the inputs.
/// @param figures  with the unit fuel cost; a plant depreciation period below 1 is raised to 1
/// @param costs    installed costs by size position and thickness; its records receive the heat flow and the
/// surface
///                 temperature of the last temperature
/// @return nothing when @p progress ended it
/// @throws NumericFault when the figures have no result for any surface (an efficiency of 0)
[[nodiscard]] std::optional<EconomicAnalysis> Analyse(const ReportInputs& inputs, EconomicFigures& figures,
                                                      CCostData& costs,
                                                      const AnalysisProgress& progress = {});

} // namespace kaloria
