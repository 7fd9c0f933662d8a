// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "application/finding.h"
#include "data/quantity.h"
#include "engine/insulation.h"

#include <vector>

namespace kaloria {

/// The conductivity curve of an insulation as its editor shows it: k = a + b T + c T2 with T in degF and k in
/// Btu in/(h ft2 degF).
struct ConductivityCheck {
    bool hasCurve = false;       ///< false: the points determine no curve, and nothing below holds
    CInsulation curve;           ///< the record with A, B and C as the calculation will use them
    float lowTemp = 0;           ///< where the curve is checked: service limits and points together [degF]
    float highTemp = 0;          ///< [degF]
    double lowestK = 0;          ///< of the curve in that range
    double highestK = 0;         ///< of the curve in that range
    double largestDeviation = 0; ///< magnitude, of the curve from a point; 0 without points
    float deviationTemp = 0;     ///< where [degF]
    std::vector<Finding> findings;
};

/// The fit of the points (or the polynomial of a material without points) and what is wrong or doubtful about
/// it. Never throws for anything in @p record.
/// @param units  in which the findings speak
[[nodiscard]] ConductivityCheck CheckConductivity(const CInsulation& record, Units units = Units::english);

/// The same with given coefficients held against points that serve as evidence alone.
[[nodiscard]] ConductivityCheck CheckPolynomial(const CInsulation& record,
                                                const std::vector<CTemperaturePoint>& evidence,
                                                Units units = Units::english);

/// Points by rising temperature.
void SortPoints(std::vector<CTemperaturePoint>& points);

} // namespace kaloria
