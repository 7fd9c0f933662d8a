// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "data/fuel_units.h"

namespace kaloria {

/// Cost of one Btu of fuel heat, before any loss of conversion [$/Btu], by the way the fuel is bought:
/// cost / 1000 / heat (gas by the thousand cubic feet), cost / heat (gallons, pounds), cost / 2000 / heat
/// (short tons, heating value per pound), cost / 3412.87 (electricity, whatever the heating value), else cost
/// / 1 000 000.
/// @param cost          [$ per unit of purchase]
/// @param heatingValue  [Btu/cf, Btu/gal, Btu/lb, Btu/lb by measure]
/// @throws NumericFault when the heating value is zero and needed
[[nodiscard]] float UnitFuelCost(FuelMeasure measure, float cost, float heatingValue);

} // namespace kaloria
