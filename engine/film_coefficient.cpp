// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/film_coefficient.h"

#include "engine/air_properties.h"
#include "engine/numeric_fault.h"
#include "engine/nusselt.h"

#include <cmath>

namespace kaloria::film {

namespace {

constexpr double absoluteZero = 459.67; // degF to degR

double Cube(double x) { return x * x * x; }

double FourthPower(double x) { return x * x * (x * x); }

AirProperties AirAround(float surfaceTemp, float ambientTemp, float length) {
    const double filmF = (double{surfaceTemp} + ambientTemp) / 2.0;
    const double filmK = (filmF + absoluteZero) / 1.8;
    return AirAtFilm(Single(double{surfaceTemp} - ambientTemp), Single(filmK), Single(filmF), length);
}

/// The natural correlation asks for the magnitude of the inclination, the combination below for its sign: an
/// overhanging surface (negative inclination) flows like a vertical one and mixes like a horizontal one.
double NaturalFlat(const AirProperties& air, float orientation, bool facesDown, bool hot) {
    if (std::abs(orientation) >= 1.0F) {
        return air.rayleigh < 1e9F ? nusselt::NaturalVerticalLaminar(air.rayleigh, air.prandtl)
                                   : nusselt::NaturalVertical(air.rayleigh, air.prandtl);
    }
    return hot != facesDown ? nusselt::NaturalHorizontalFavourable(air.rayleigh)
                            : nusselt::NaturalHorizontalUnfavourable(air.rayleigh);
}

/// (a^n + b^n)^(1/n), n = 3 or 3.5
double Combined(double natural, double forced, bool cubic) {
    if (forced == 0.0) {
        return natural;
    }
    if (cubic) {
        return std::cbrt(Cube(natural) + Cube(forced));
    }
    return std::pow(Cube(natural) * std::sqrt(natural) + Cube(forced) * std::sqrt(forced), 1.0 / 3.5);
}

} // namespace

double Radiation(double surfaceTemp, double ambientTemp, double emittance) {
    const double surface = (surfaceTemp + absoluteZero) / 100.0;
    const double ambient = (ambientTemp + absoluteZero) / 100.0;
    return (surface + ambient) * emittance * 0.001714 * (surface * surface + ambient * ambient);
}

float HorizontalCylinder(float surfaceTemp, float ambientTemp, float diameter, float airSpeed,
                         float emittance) {
    const AirProperties air = AirAround(surfaceTemp, ambientTemp, diameter);
    const double natural = nusselt::NaturalHorizontalCylinder(air.rayleigh, air.prandtl) - 0.3;
    const double reynolds = double{airSpeed} * diameter / air.kinematicViscosity;
    const double forced = nusselt::ForcedCylinder(reynolds, air.prandtl) - 0.3;
    // Both correlations contain the conduction limit of a cylinder; it is taken out before they are combined.
    const double number = (forced == 0.0 ? std::abs(natural)
                                         : std::sqrt(std::sqrt(FourthPower(natural) + FourthPower(forced)))) +
                          0.3;
    return Single(Radiation(surfaceTemp, ambientTemp, emittance) + number * air.conductivity / diameter);
}

float VerticalCylinder(float surfaceTemp, float ambientTemp, float height, float airSpeed, float emittance,
                       float diameter) {
    const AirProperties air = AirAround(surfaceTemp, ambientTemp, height);
    const double natural = nusselt::NaturalVertical(air.rayleigh, air.prandtl);
    const double reynolds = double{airSpeed} * diameter / air.kinematicViscosity;
    const double forced = nusselt::ForcedCylinder(reynolds, air.prandtl) - 0.3;
    // The two lengths differ, so coefficients are combined here, not Nusselt numbers.
    const double convection =
        Combined(natural * air.conductivity / height, forced * air.conductivity / diameter, true);
    return Single(Radiation(surfaceTemp, ambientTemp, emittance) + convection);
}

float FlatSurface(float surfaceTemp, float ambientTemp, float orientation, float length,
                  std::int16_t position, float airSpeed, float emittance) {
    const AirProperties air = AirAround(surfaceTemp, ambientTemp, length);
    const bool hot = surfaceTemp > ambientTemp; // equal temperatures count as not hot
    const double natural = NaturalFlat(air, orientation, position == 2, hot);
    const double reynolds = double{airSpeed} * length / air.kinematicViscosity;
    const double number = Combined(natural, nusselt::ForcedPlate(reynolds, air.prandtl), orientation >= 1.0F);
    return Single(Radiation(surfaceTemp, ambientTemp, emittance) + number * air.conductivity / length);
}

} // namespace kaloria::film
