// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/report.h"

#include "engine/numeric_fault.h"
#include "reports/fuel_cost.h"

namespace kaloria {

void CReport::UnitFuelCost() {
    if (Fuel == nullptr) {
        throw NumericFault("no fuel is chosen");
    }
    fuelCostPerBtu_ = kaloria::UnitFuelCost(MeasureOf(Fuel->CostUnits), Fuel->Cost, Fuel->BTU);
}

std::optional<InstalledCostFault> CReport::GetFEA() {
    return EstimateInstalledCosts(ProgramFolder, Inputs.installedCost, ratios_, costData_);
}

bool CReport::Analyse(CCostData& costs, const AnalysisProgress& progress) {
    analysis_.reset();
    Fuel = &Inputs.fuel;
    UnitFuelCost();
    Inputs.money.unitFuelCost = fuelCostPerBtu_;
    analysis_ = kaloria::Analyse(Inputs, Inputs.money, costs, progress);
    return analysis_.has_value();
}

} // namespace kaloria
