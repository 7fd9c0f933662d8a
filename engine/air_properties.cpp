// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/air_properties.h"

#include "engine/numeric_fault.h"

#include <cmath>

namespace kaloria {

namespace {
constexpr double gravity = 416975000.0; // [ft/h2]
}

AirProperties AirAtFilm(float tempDifference, float filmK, float filmF, float length) {
    const double T = filmK;
    const double t = filmF;
    const double rootT = std::sqrt(T);
    // 10^(-12/T) as an exponential: std::pow with a constant base is no faster than this and no better.
    const double tenPower = std::exp(-12.0 / T * 2.302585092994045684);

    AirProperties air;
    air.conductivity = Single(241.77 * (6.325e-6 * rootT) / (1.0 + 245.4 * tenPower / T));
    air.dynamicViscosity = Single(2.419e-5 * 145.8 * T * rootT / (T + 110.4));
    air.prandtl = Single(((-5.6617e-11 * t + 1.8106e-7) * t - 0.00015349) * t + 0.7189);
    air.expansion = Single(1.0 / (t + 459.67));
    air.density = Single(22.0493 / T);
    air.kinematicViscosity = Single(double{air.dynamicViscosity} / air.density);
    air.specificHeat = Single(((-1.6088e-11 * t + 4.0489e-8) * t - 1.2477e-6) * t + 0.24008);
    const double cube = double{length} * length * length;
    air.rayleigh =
        Single(air.expansion * gravity * air.density * air.specificHeat * std::abs(double{tempDifference}) *
               cube / air.kinematicViscosity / air.conductivity);
    return air;
}

} // namespace kaloria
