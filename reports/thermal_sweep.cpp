// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/thermal_sweep.h"

namespace kaloria {

namespace {

constexpr std::int16_t heatLossPerHour = 5; // position among the calculation types: flow per foot of pipes

/// The material with its curve fitted once, so that no solution has to.
CInsulation Fitted(const CInsulation& material) {
    CInsulation layer = material.Copy();
    if (!layer.TemperaturePoints.empty()) {
        layer.CalculateQuadratic();
        layer.TemperaturePoints.clear();
    }
    return layer;
}

} // namespace

ThermalSweep::ThermalSweep(const ReportInputs& inputs) : inputs_(inputs), baseMetal_(inputs.baseMetal) {
    SetInputs(asItIs_);
    SetInputs(insulated_);
    if (inputs.existing) {
        asItIs_.InsulationLayers.push_back(Fitted(*inputs.existing));
        insulated_.InsulationLayers.push_back(asItIs_.InsulationLayers.front());
    }
    insulated_.InsulationLayers.push_back(Fitted(inputs.insulation));
}

void ThermalSweep::SetInputs(CHeatLossCalculator& calculator) {
    calculator.CalculationType = heatLossPerHour;
    calculator.AmbientTemp = inputs_.ambientTemp;
    calculator.WindSpeed = inputs_.windSpeed;
    calculator.BaseMetal = &baseMetal_;
    calculator.JacketMaterial = &inputs_.jacket;
}

std::vector<ThicknessResult> ThermalSweep::Solve(const ReportSurface& surface, float temperature) {
    for (auto* calculator : {&asItIs_, &insulated_}) {
        calculator->ProcessTemp = temperature;
        calculator->SurfaceGeometry = surface.geometry;
        calculator->Pipe = surface.pipe;
        if (surface.existing) {
            calculator->InsulationLayers.front().Thickness = surface.existing->thickness;
        }
    }
    std::vector<ThicknessResult> rows(inputs_.thicknesses.size() + 1);
    rows.front().made = true;
    asItIs_.InsulationOD = surface.existing ? surface.existing->diameter : -1.0F;
    Solve(asItIs_, rows.front());
    for (std::size_t i = 0; i < inputs_.thicknesses.size(); ++i) {
        ThicknessResult& row = rows[i + 1];
        row.nominal = inputs_.thicknesses[i];
        row.layers = LayersOf(row.nominal);
        if (const auto& covering = surface.coverings[i]) {
            row.made = true;
            insulated_.InsulationLayers.back().Thickness = covering->thickness;
            // The table's diameter is that of a covering laid on the pipe itself.
            insulated_.InsulationOD = surface.existing ? -1.0F : covering->diameter;
            Solve(insulated_, row);
        }
    }
    return rows;
}

void ThermalSweep::Solve(CHeatLossCalculator& calculator, ThicknessResult& row) {
    try {
        calculator.Solve();
        (void)calculator.Settle();
        row.heatFlow = calculator.UnitHeatFlow();
        row.surfaceTemp = calculator.SurfaceTemp();
        row.unsteady = calculator.StoppedBySafeguard();
    } catch (const NumericFault& fault) {
        row.fault = fault.what();
    }
}

} // namespace kaloria
