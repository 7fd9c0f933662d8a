// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "application/calculation_result.h"
#include "application/case_inputs.h"

namespace kaloria {

/// The dew point behind a condensation goal, by the moisture input in use: as given; from relative humidity
/// by the engine, with the psychrometric one beside it; from the wet-bulb temperature by the psychrometric
/// equation. Sets the calculator's `DewPointTemp` and `RelativeHumidity`.
/// @throws NumericFault, for a wet bulb above the ambient temperature too
[[nodiscard]] CondensationResult ResolveMoisture(const MoistureInput& moisture, float ambientTemp,
                                                 CHeatLossCalculator& calculator);

} // namespace kaloria
