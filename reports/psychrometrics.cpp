// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/psychrometrics.h"

#include "engine/numeric_fault.h"

#include <cmath>

namespace kaloria::psychrometrics {

namespace {

constexpr double ln10 = 2.302585092994045684;
constexpr double degreesPerRatio = 491.688; // 1.8 x 273.16 K [degR]
constexpr double vapourToAirMass = 0.621945;

double RatioOf(double temp) { return 1.0 / ((temp - 32.0) / degreesPerRatio + 1.0); }
double TempOf(double ratio) { return (1.0 / ratio - 1.0) * degreesPerRatio + 32.0; }
double PowerOfTen(double exponent) { return std::exp(exponent * ln10); }

} // namespace

double SaturationLog(double x) {
    return 10.79586 * (1.0 - x) + 5.02802 * LogToBase(x, 10.0) +
           0.000150474 * (1.0 - PowerOfTen(-8.29692 * (1.0 / x - 1.0))) +
           0.00042873 * (PowerOfTen(4.76955 * (1.0 - x)) - 1.0) - 2.2195983;
}

double SaturationLogSlope(double x) {
    return 2.1836188058 / x - 0.0012484375524 * PowerOfTen(-8.29692 * (1.0 / x - 1.0)) -
           0.0020448491715 * PowerOfTen(4.76955 * (1.0 - x)) - 10.79586;
}

double LogToBase(double value, double base) {
    if (!(value > 0.0) || !(base > 0.0) || base == 1.0) {
        throw NumericFault("a logarithm of nothing");
    }
    return std::log(value) / std::log(base);
}

double SaturationPressure(double temp) { return PowerOfTen(SaturationLog(RatioOf(temp))); }

double DewPointOfPressure(double pressure) {
    constexpr int mostSteps = 100;
    constexpr double closeEnough = 1e-9; // of x; under 1e-6 degF
    const double target = LogToBase(pressure, 10.0);
    double x = 1.0;
    for (int step = 0; step < mostSteps; ++step) {
        const double change = (SaturationLog(x) - target) / SaturationLogSlope(x);
        // Half way at most, so that x stays positive for the driest air.
        x = change < x / 2.0 ? x - change : x / 2.0;
        if (std::abs(change) < closeEnough) {
            return TempOf(x);
        }
    }
    throw NumericFault("no dew point found");
}

double DewPointFromHumidity(double temp, double relativeHumidity) {
    return DewPointOfPressure(SaturationPressure(temp) * relativeHumidity / 100.0);
}

double VapourPressureFromWetBulb(double temp, double wetBulb) {
    const double saturation = SaturationPressure(wetBulb);
    const double saturatedRatio = vapourToAirMass * saturation / (1.0 - saturation);
    const double ratio = ((1093.0 - 0.556 * wetBulb) * saturatedRatio - 0.240 * (temp - wetBulb)) /
                         (1093.0 + 0.444 * temp - wetBulb);
    if (!(ratio > 0.0) || !(saturation < 1.0)) {
        throw NumericFault("the wet-bulb temperature is lower than dry air would give");
    }
    return ratio / (vapourToAirMass + ratio);
}

double HumidityFromWetBulb(double temp, double wetBulb) {
    return 100.0 * VapourPressureFromWetBulb(temp, wetBulb) / SaturationPressure(temp);
}

} // namespace kaloria::psychrometrics
