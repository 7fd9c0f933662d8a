// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "reports/economic_results.h"
#include "reports/report_figures.h"
#include "reports/report_inputs.h"
#include "reports/rtf_markup.h"

/// The tables of a report, as wide as the text of letter and A4 paper.
namespace kaloria {

/// Width of the text on letter and A4 paper, 6.5 in [twip].
inline constexpr int reportTextWidth = 9360;

/// Every thickness at one temperature with its heat flow and money.
[[nodiscard]] rtf::Markup MoneyTable(const ReportInputs& inputs, const TemperatureResult& step,
                                     const PageFigures& figures, bool isGain);

/// Every thickness at one temperature with its heat flow and what it keeps from being emitted.
[[nodiscard]] rtf::Markup EmissionTable(const ReportInputs& inputs, const TemperatureResult& step,
                                        const PageFigures& figures, bool isGain);

/// A sentence per pollutant: the reduction by the economic thickness.
[[nodiscard]] rtf::Markup ReductionSentences(const ReportInputs& inputs, const TemperatureResult& step,
                                             const PageFigures& figures);

/// The reductions by the economic thickness at each temperature.
[[nodiscard]] rtf::Markup ReductionTable(const ReportInputs& inputs, const SurfaceResult& surface,
                                         const PageFigures& figures);

} // namespace kaloria
