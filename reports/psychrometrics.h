// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace kaloria::psychrometrics {

/// Moist air at sea-level pressure (1 atm), by the saturation function of Goff and Gratch (1946) over water.
/// These give the true dew point; the engine's own lies on the safe side of it (see
/// CHeatLossCalculator::Logp). All temperatures degF, pressures atm. Every function throws NumericFault where
/// there is no result.

/// Base-10 logarithm of the saturation pressure [atm], x = 273.16 K / T.
[[nodiscard]] double SaturationLog(double x);

/// Slope of SaturationLog for a Newton step. Its constants are kept as stored; the two exponential terms lack
/// a factor ln 10, which costs a step or two and changes no result.
[[nodiscard]] double SaturationLogSlope(double x);

/// ln(value) / ln(base)
[[nodiscard]] double LogToBase(double value, double base);

/// Saturation pressure of water vapour [atm].
[[nodiscard]] double SaturationPressure(double temp);

/// Temperature at which vapour of that pressure [atm] is saturated.
[[nodiscard]] double DewPointOfPressure(double pressure);

/// Dew point of air at @p temp and @p relativeHumidity [%], above 0.
[[nodiscard]] double DewPointFromHumidity(double temp, double relativeHumidity);

/// Vapour pressure [atm] from dry- and wet-bulb temperature:
///   W = [(1093 - 0.556 t*) Ws* - 0.240 (t - t*)] / (1093 + 0.444 t - t*),  p = W / (0.621945 + W)
/// ASHRAE Handbook, Fundamentals (2017), chapter 1, equations 33 and 36, for a wet bulb covered by liquid
/// water.
[[nodiscard]] double VapourPressureFromWetBulb(double temp, double wetBulb);

/// Relative humidity [%] from dry- and wet-bulb temperature.
[[nodiscard]] double HumidityFromWetBulb(double temp, double wetBulb);

} // namespace kaloria::psychrometrics
