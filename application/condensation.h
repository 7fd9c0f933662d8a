// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "application/calculation_result.h"
#include "application/case_inputs.h"
#include "application/finding.h"

namespace kaloria {

/// The dew point behind a condensation goal, by the moisture input in use: as given; from relative humidity
/// by the engine, with the psychrometric one beside it; from the wet-bulb temperature by the psychrometric
/// equation. Sets the calculator's `DewPointTemp` and `RelativeHumidity`.
/// @throws NumericFault, for a wet bulb above the ambient temperature too
[[nodiscard]] CondensationResult ResolveMoisture(const MoistureInput& moisture, float ambientTemp,
                                                 CHeatLossCalculator& calculator);

/// What was found out about the moisture of the air: nothing and an error, or the dew point and warnings.
struct MoistureReading {
    std::optional<CondensationResult> condensation;
    std::vector<Finding> findings;
};

/// As ResolveMoisture, with what should be known about it.
[[nodiscard]] MoistureReading ReadMoisture(const MoistureInput& moisture, float ambientTemp,
                                           CHeatLossCalculator& calculator);

} // namespace kaloria
