// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

/// Nusselt numbers of the correlations that the film coefficients are made of, each by itself, so that it
/// can be held against published values. Pure functions of Rayleigh or Reynolds and Prandtl number; none
/// sets a trap of its own.
namespace kaloria::nusselt {

/// Natural convection round a long horizontal cylinder, on its diameter, any Ra:
///   Nu = { 0.6 + 0.387 Ra^(1/6) / [1 + (0.559/Pr)^(9/16)]^(8/27) }^2
/// Churchill and Chu, Int. J. Heat Mass Transfer 18 (1975) 1049.
[[nodiscard]] double NaturalHorizontalCylinder(double rayleigh, double prandtl);

/// Natural convection on a vertical surface, on its height, any Ra:
///   Nu = { 0.825 + 0.387 Ra^(1/6) / [1 + (0.492/Pr)^(9/16)]^(8/27) }^2
/// Churchill and Chu, Int. J. Heat Mass Transfer 18 (1975) 1323.
[[nodiscard]] double NaturalVertical(double rayleigh, double prandtl);

/// The same for laminar flow (Ra < 1e9):
///   Nu = 0.68 + 0.67 Ra^(1/4) / [1 + (0.492/Pr)^(9/16)]^(4/9)
/// Churchill and Chu, as above.
[[nodiscard]] double NaturalVerticalLaminar(double rayleigh, double prandtl);

/// Natural convection on a horizontal surface, hot facing up or cold facing down:
///   Nu = 0.54 Ra^(1/4) for Ra < 1e7, 0.15 Ra^(1/3) from there on
/// McAdams, Heat Transmission, 3rd ed. (1954).
[[nodiscard]] double NaturalHorizontalFavourable(double rayleigh);

/// Natural convection on a horizontal surface, cold facing up or hot facing down: Nu = 0.27 Ra^(1/4)
/// McAdams, as above.
[[nodiscard]] double NaturalHorizontalUnfavourable(double rayleigh);

/// Forced convection across a cylinder, on its diameter; exactly 0.3 in still air:
///   Nu = 0.3 + 0.62 Re^(1/2) Pr^(1/3) / [1 + (0.4/Pr)^(2/3)]^(1/4) [1 + (Re/282000)^(5/8)]^(4/5)
/// Churchill and Bernstein, J. Heat Transfer 99 (1977) 300.
[[nodiscard]] double ForcedCylinder(double reynolds, double prandtl);

/// Forced convection along a plate, on its length; 0 for Re not above 0:
///   Nu = 0.6774 Re^(1/2) Pr^(1/3) / [1 + (0.0468/Pr)^(2/3)]^(1/4)  for Re < 500000
///   Nu = (0.037 Re^0.8 - 871) Pr^(1/3)                              from there on
/// Churchill and Ozoe, J. Heat Transfer 95 (1973) 416, and the mixed boundary layer of Incropera and DeWitt,
/// Fundamentals of Heat and Mass Transfer.
[[nodiscard]] double ForcedPlate(double reynolds, double prandtl);

} // namespace kaloria::nusselt
