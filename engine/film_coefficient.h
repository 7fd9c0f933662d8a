// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>

/// Combined convection and radiation coefficients of an outer surface, as the solver's loop uses them. Pure
/// functions without a trap of their own: faults show in the floating-point status flags (the operations of
/// CHeatLossCalculator of the same meaning turn them into NumericFault).
///
/// Common arguments: surface and ambient temperature [degF]; air speed [ft/h], because the Reynolds number is
/// formed with nu in ft2/h and lengths in ft; emittance 0 to 1 [-]. Result [Btu/(h ft2 degF)].
namespace kaloria::film {

/// Linearised radiation coefficient, sigma (Ts^4 - Ta^4) / (Ts - Ta) with sigma = 0.1714e-8 Btu/(h ft2
/// degR4), in the factored form that never divides by the temperature difference.
[[nodiscard]] double Radiation(double surfaceTemp, double ambientTemp, double emittance);

/// Horizontal cylinder of outside @p diameter [ft].
[[nodiscard]] float HorizontalCylinder(float surfaceTemp, float ambientTemp, float diameter, float airSpeed,
                                       float emittance);

/// Vertical cylinder: natural convection over @p height [ft], forced across @p diameter [ft].
[[nodiscard]] float VerticalCylinder(float surfaceTemp, float ambientTemp, float height, float airSpeed,
                                     float emittance, float diameter);

/// Flat surface of characteristic @p length [ft].
/// @param orientation  inclination [deg]: 90 vertical, 0 horizontal (a magnitude of 1 or more counts as
/// vertical)
/// @param position     2 faces downward, anything else upward
[[nodiscard]] float FlatSurface(float surfaceTemp, float ambientTemp, float orientation, float length,
                                std::int16_t position, float airSpeed, float emittance);

} // namespace kaloria::film
