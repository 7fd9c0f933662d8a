// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/heat_loss_calculator.h"
#include "reports/economic_results.h"
#include "reports/report_inputs.h"

namespace kaloria {

/// Solves the surfaces of a report, one thickness after the other. A thickness counts as one layer of the
/// material, however many layers it is laid in: they are of one kind, and their joints are not reckoned with.
class ThermalSweep {
public:
    /// @param inputs  must outlive this object
    /// @throws NumericFault when a material's measured points determine no curve
    explicit ThermalSweep(const ReportInputs& inputs);

    /// The surface as it is, then every nominal thickness over it. A thickness that is not made for the size
    /// stays unsolved; one that cannot be solved carries its fault.
    [[nodiscard]] std::vector<ThicknessResult> Solve(const ReportSurface& surface, float temperature);

private:
    void SetInputs(CHeatLossCalculator& calculator);
    static void Solve(CHeatLossCalculator& calculator, ThicknessResult& row);

    const ReportInputs& inputs_;
    CBaseMetal baseMetal_; // receives results
    CHeatLossCalculator asItIs_;
    CHeatLossCalculator insulated_; // a second one, so that no layer is made anew for each solution
};

} // namespace kaloria
