// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "application/comparison.h"
#include "application/plot_series.h"

/// The compared cases over each other, a curve per case, against the nominal thickness of all of a case's
/// layers together; rings mark the thickness that is compared. A case in which nothing varies is a point.
/// Cases without figures are left out.
namespace kaloria {

/// Heat flow as the results have it; of cases that have it per length and per area, or per hour and per
/// year, the heat flux at the outer surface.
[[nodiscard]] PlotModel ComparedFlowPlot(const std::vector<ComparedCase>& cases);

[[nodiscard]] PlotModel ComparedSurfacePlot(const std::vector<ComparedCase>& cases);

} // namespace kaloria
