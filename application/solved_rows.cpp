// SPDX-License-Identifier: GPL-3.0-or-later
#include "application/solved_rows.h"

#include "application/insulation_thickness.h"
#include "engine/conversion.h"
#include "engine/surface_geometry.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace kaloria {

namespace {

using namespace calculation_type;

void SetInputs(CHeatLossCalculator& calculator, const CaseInputs& inputs) {
    calculator.CalculationType = static_cast<std::int16_t>(inputs.calculationType);
    calculator.AmbientTemp = inputs.ambientTemp;
    calculator.MaxSurfaceTemp = inputs.maxSurfaceTemp;
    calculator.HeatFlowLimit = inputs.heatFlowLimit;
    calculator.PipeSize = inputs.pipeSize;
    calculator.ProcessTemp = inputs.processTemp;
    calculator.WindSpeed = inputs.windSpeed;
    calculator.HoursPerYear = inputs.hoursPerYear;
    calculator.BaseMetal = inputs.baseMetal;
    calculator.JacketMaterial = inputs.jacket;
    calculator.SurfaceGeometry = inputs.geometry;
    calculator.FuelType = inputs.fuel ? inputs.fuel->record : nullptr;
    calculator.Pipe = inputs.Pipe();
    calculator.Tube = inputs.Tube();
    calculator.DuctWidth = inputs.ductWidth;
    calculator.DuctDepth = inputs.ductDepth;
    calculator.InsulationLayers.clear();
    calculator.InsulationOD = -1;
}

/// Lays the layers on the surface, the varying one at @p nominal.
void SetLayers(CHeatLossCalculator& calculator, const CaseInputs& inputs, std::optional<float> nominal) {
    const bool si = inputs.units == Units::si;
    const std::int32_t code = inputs.geometry->ID;
    calculator.InsulationOD = -1;
    calculator.InsulationLayers.clear();
    for (const LayerInput& layer : inputs.layers) {
        const float chosen = layer.varies ? nominal.value_or(0.0F) : layer.nominal;
        const float thickness =
            GetInsulationThickness(code, chosen, layer.material.Name, inputs.Pipe(), inputs.Tube(), si);
        CInsulation& copy = calculator.InsulationLayers.emplace_back(layer.material.Copy());
        copy.Thickness = si ? MillimetersToInches(thickness) : thickness;
        const auto& series = inputs.nominalThicknesses;
        const auto found = std::find(series.begin(), series.end(), chosen);
        copy.NominalThicknessID =
            found == series.end() ? 0 : static_cast<std::int32_t>(std::distance(series.begin(), found)) + 1;
        // The table's diameter is true only for a single covering laid as the table has it.
        if (inputs.layers.size() == 1 && !IsDuctWrap(copy.Name)) {
            const float diameter = GetInsulationOD(code, chosen, inputs.Pipe(), inputs.Tube(), si);
            calculator.InsulationOD = si && diameter != -1.0F ? MillimetersToInches(diameter) : diameter;
        }
    }
}

/// The solution that a result shows: the only one, or of a horizontal duct the face that governs, the hottest
/// in hot service and the coldest in cold service.
const CHeatLossCalculator::Solution& Governing(const CHeatLossCalculator& calculator, bool cold) {
    const auto solutions = calculator.Solutions();
    const auto warmer = [](const auto& a, const auto& b) { return a.SurfaceTemp() < b.SurfaceTemp(); };
    return cold ? *std::min_element(solutions.begin(), solutions.end(), warmer)
                : *std::max_element(solutions.begin(), solutions.end(), warmer);
}

void ReadResults(SolvedRow& row, const CHeatLossCalculator& calculator, const CaseInputs& inputs) {
    row.unitHeatFlow = calculator.UnitHeatFlow();
    row.comparedFlow =
        geometry::IsCylinder(inputs.geometry->ID) ? calculator.FlowPerFoot() : row.unitHeatFlow;
    row.meanFlux = calculator.MeanFlux();
    row.insulationOD = calculator.InsulationOD;
    row.stoppedBySafeguard = calculator.StoppedBySafeguard();
    const auto& shown = Governing(calculator, inputs.IsCold());
    row.surfaceTemp = shown.SurfaceTemp();
    row.metalOutsideTemp = shown.Temps[1];
    if (calculator.Solutions().size() > 1) {
        for (const auto& face : calculator.Solutions()) {
            row.faceSurfaceTemps.push_back(face.SurfaceTemp());
        }
    }
    for (std::size_t i = 0; i < calculator.InsulationLayers.size(); ++i) {
        const CInsulation& layer = calculator.InsulationLayers[i];
        row.layers.push_back({layer.Name, layer.Thickness, shown.Temps[i + 1], shown.Temps[i + 2],
                              shown.Conductivities[i + 1]});
    }
}

void SolveRow(SolvedRow& row, CHeatLossCalculator& calculator, const CaseInputs& inputs) {
    try {
        calculator.Solve();
        const auto settlement = calculator.Settle();
        row.settledBy = settlement.TempChange;
        row.flowSettledBy = settlement.FlowChange;
        ReadResults(row, calculator, inputs);
    } catch (const NumericFault& fault) {
        row.fault = fault.what();
    }
}

/// Whether a covering of that nominal thickness is made for the size; everything is for surfaces other than
/// cylinders.
bool Exists(const CaseInputs& inputs, float nominal) {
    const std::int32_t code = inputs.geometry->ID;
    return !geometry::IsCylinder(code) || FindThicknessRow(code, nominal, inputs.Pipe(), inputs.Tube(),
                                                           inputs.units == Units::si) != nullptr;
}

} // namespace

std::vector<SolvedRow> SolveRows(const CaseInputs& inputs, CHeatLossCalculator& calculator) {
    std::vector<SolvedRow> rows;
    SetInputs(calculator, inputs);
    rows.emplace_back().bare = true;
    SolveRow(rows.back(), calculator, inputs);
    auto insulated = SolveInsulatedRows(inputs, calculator, [](const SolvedRow&) { return false; });
    std::move(insulated.begin(), insulated.end(), std::back_inserter(rows));
    return rows;
}

std::vector<SolvedRow> SolveInsulatedRows(const CaseInputs& inputs, CHeatLossCalculator& calculator,
                                          const std::function<bool(const SolvedRow&)>& isEnough) {
    std::vector<SolvedRow> rows;
    SetInputs(calculator, inputs);
    const std::vector<float> none{0};
    const bool varies = inputs.Varies();
    for (const float nominal : varies ? inputs.nominalThicknesses : none) {
        if (varies && inputs.onlyListed && !Exists(inputs, nominal)) {
            continue;
        }
        SolvedRow& row = rows.emplace_back();
        if (varies) {
            row.nominal = nominal;
        }
        SetLayers(calculator, inputs, row.nominal);
        SolveRow(row, calculator, inputs);
        if (isEnough(row)) {
            break;
        }
    }
    return rows;
}

SolvedRow SolveRowLike(const SolvedRow& row, const CaseInputs& inputs, CHeatLossCalculator& calculator,
                       const std::function<void(CHeatLossCalculator&)>& alter) {
    SolvedRow solved;
    solved.bare = row.bare;
    solved.nominal = row.nominal;
    SetInputs(calculator, inputs);
    if (!row.bare) {
        SetLayers(calculator, inputs, row.nominal);
    }
    alter(calculator);
    SolveRow(solved, calculator, inputs);
    return solved;
}

RowMoney MoneyOf(const SolvedRow& row, const CaseInputs& inputs, float unitFuelCost, const RowMoney* bare) {
    const FaultTrap trap;
    const double fuelHeat =
        row.comparedFlow * inputs.hoursPerYear / (inputs.fuel->efficiency / 100.0); // [Btu]
    RowMoney money;
    money.cost = std::abs(fuelHeat * unitFuelCost);
    money.savings = bare != nullptr ? bare->cost - money.cost : 0.0;
    for (const CPollutant& pollutant : inputs.fuel->record->Pollutants) {
        money.emissions.push_back(std::abs(fuelHeat / 1e6 * pollutant.Amount));
    }
    trap.Check("cost of a row", {money.cost, money.savings});
    return money;
}

std::optional<double> EfficiencyOf(const SolvedRow& row, const SolvedRow& bare) {
    if (!row.IsSolved() || !bare.IsSolved() || bare.comparedFlow == 0.0) {
        return std::nullopt;
    }
    return (bare.comparedFlow - row.comparedFlow) / bare.comparedFlow * 100.0;
}

bool MeetsGoal(const SolvedRow& row, const CaseInputs& inputs, std::optional<float> dewPoint) {
    if (!row.IsSolved()) {
        return false;
    }
    switch (inputs.calculationType) {
    case personnelProtection:
        return row.surfaceTemp <= inputs.maxSurfaceTemp;
    case condensationControl:
        return inputs.IsCold() && dewPoint && row.surfaceTemp >= *dewPoint;
    case heatFlowLimitation:
        return std::abs(row.meanFlux) <= std::abs(double{inputs.heatFlowLimit});
    default:
        return false;
    }
}

const SolvedRow* DesignRow(const std::vector<SolvedRow>& rows, const CaseInputs& inputs,
                           std::optional<float> dewPoint) {
    for (const SolvedRow& row : rows) {
        if (!row.bare && MeetsGoal(row, inputs, dewPoint)) {
            return &row;
        }
    }
    return nullptr;
}

} // namespace kaloria
