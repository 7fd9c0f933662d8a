// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/fuel_cost.h"

#include "engine/numeric_fault.h"

namespace kaloria {

float UnitFuelCost(FuelMeasure measure, float cost, float heatingValue) {
    const FaultTrap trap;
    double result = cost;
    switch (measure) {
    case FuelMeasure::gasVolume:
        result = result / 1000.0 / heatingValue;
        break;
    case FuelMeasure::liquidVolume:
    case FuelMeasure::pound:
        result = result / heatingValue;
        break;
    case FuelMeasure::ton:
        result = result / 2000.0 / heatingValue;
        break;
    case FuelMeasure::electricity:
        result = result / 3412.87; // the program's Btu per kWh
        break;
    case FuelMeasure::other:
        result = result / 1000.0 / 1000.0;
        break;
    }
    trap.Check("unit fuel cost", {result});
    return Single(result);
}

} // namespace kaloria
