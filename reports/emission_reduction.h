// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace kaloria {

/// Emission of one pollutant that a saved heat flow avoids [lb/yr per foot or square foot]:
/// dQ x H / 1 000 000 / (E / 100) x amount.
/// @param savedFlow   dQ [Btu/h]; negative when more is lost than before, and then so is the result
/// @param efficiency  E, conversion of the fuel [%]
/// @param amount      [lb per million Btu of fuel]
/// @throws NumericFault for an efficiency of 0 and on overflow
[[nodiscard]] float EmissionReduction(float savedFlow, float hoursPerYear, float efficiency, float amount);

} // namespace kaloria
