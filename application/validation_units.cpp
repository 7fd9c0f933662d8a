// SPDX-License-Identifier: GPL-3.0-or-later
#include "application/validation_units.h"

#include <algorithm>
#include <iterator>

namespace kaloria {

namespace {

using namespace si;

constexpr double rankine4 = degree * degree * degree * degree;

constexpr Unit units[] = {
    {"-", Dimension::None, 1},
    {"m", Dimension::Length, 1},
    {"mm", Dimension::Length, 1e-3},
    {"in", Dimension::Length, inch},
    {"ft", Dimension::Length, foot},
    {"m2", Dimension::Area, 1},
    {"ft2", Dimension::Area, foot* foot},
    {"m/s", Dimension::Speed, 1},
    {"m/s2", Dimension::Acceleration, 1},
    {"ft/s2", Dimension::Acceleration, foot},
    {"K", Dimension::Temperature, 1},
    {"degC", Dimension::Temperature, 1, 273.15},
    {"degF", Dimension::Temperature, degree, 459.67 * degree},
    {"degR", Dimension::Temperature, degree},
    {"1/K", Dimension::Expansion, 1},
    {"m2/s", Dimension::Diffusivity, 1},
    {"ft2/s", Dimension::Diffusivity, foot* foot},
    {"ft2/h", Dimension::Diffusivity, foot* foot / hour},
    {"lb/ft3", Dimension::Density, pound / (foot * foot * foot)},
    {"Btu/(lb degF)", Dimension::SpecificHeat, btu / (pound * degree)},
    {"hPa", Dimension::Pressure, 100},
    {"atm", Dimension::Pressure, 101325},
    {"W/(m K)", Dimension::Conductivity, 1},
    {"Btu/(h ft degF)", Dimension::Conductivity, airConductivity},
    {"W/(m2 K)", Dimension::FilmCoefficient, 1},
    {"Btu/(h ft2 degF)", Dimension::FilmCoefficient, filmCoefficient},
    {"W", Dimension::HeatFlow, 1},
    {"Btu/h", Dimension::HeatFlow, btu / hour},
    {"W/m", Dimension::HeatFlowPerLength, 1},
    {"Btu/(h ft)", Dimension::HeatFlowPerLength, btu / (hour * foot)},
    {"W/m2", Dimension::HeatFlux, 1},
    {"Btu/(h ft2)", Dimension::HeatFlux, btu / (hour * foot * foot)},
    {"W/(m2 K4)", Dimension::RadiationConstant, 1},
    {"Btu/(h ft2 degR4)", Dimension::RadiationConstant, btu / (hour * foot * foot * rankine4)},
};

} // namespace

const Unit* FindUnit(std::string_view text) {
    const auto* const found = std::find_if(std::begin(units), std::end(units),
                                           [text](const Unit& unit) { return unit.text == text; });
    return found == std::end(units) ? nullptr : found;
}

} // namespace kaloria
