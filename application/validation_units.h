// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string_view>

namespace kaloria {

/// What a figure of a validation case measures, as far as it decides which units can stand with it.
enum class Dimension : unsigned char {
    None,
    Length,
    Area,
    Speed,
    Acceleration,
    Temperature, ///< a point of the scale; a difference uses the scale's degree alone
    Expansion,
    Diffusivity, ///< also kinematic viscosity
    Density,
    SpecificHeat,
    Pressure,
    Conductivity, ///< also heat flow per length and degree
    FilmCoefficient,
    HeatFlow,
    HeatFlowPerLength,
    HeatFlux,
    RadiationConstant,
};

/// A unit as sources print it: value in SI = value * factor + offset (metre, kilogram, second, kelvin, watt,
/// pascal). The factors are exact, by the definitions of inch, pound and International Table Btu; the
/// program's own conversions for display are shortened and have no place in a comparison.
struct Unit {
    std::string_view text;
    Dimension dimension;
    double factor;
    double offset = 0;
};

/// The unit of that text, or null when it is not known.
[[nodiscard]] const Unit* FindUnit(std::string_view text);

namespace si {

// English units of the engine in SI.
inline constexpr double inch = 0.0254;
inline constexpr double foot = 0.3048;
inline constexpr double hour = 3600.0;
inline constexpr double pound = 0.45359237;
inline constexpr double degree = 1.0 / 1.8; ///< Fahrenheit and Rankine
inline constexpr double btu = 1055.05585262;
inline constexpr double airConductivity = btu / (hour * foot * degree);        ///< Btu/(h ft degF)
inline constexpr double filmCoefficient = btu / (hour * foot * foot * degree); ///< Btu/(h ft2 degF)

[[nodiscard]] constexpr double Fahrenheit(double kelvin) { return kelvin * 1.8 - 459.67; }

} // namespace si

} // namespace kaloria
