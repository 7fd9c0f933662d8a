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

} // namespace kaloria
