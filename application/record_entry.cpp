// SPDX-License-Identifier: GPL-3.0-or-later
#include "application/record_entry.h"

#include "data/fuel_units.h"
#include "reports/fuel_cost.h"

#include <array>

namespace kaloria {

namespace {

constexpr double degFPerDegC = 1.8;
constexpr double freezing = 32.0; // degF

constexpr std::array<std::string_view, 6> typeNames{
    "Glass fiber",    "Mineral wool",  "Calcium silicate, perlite",
    "Cellular glass", "Foam, plastic", "Aerogel, ceramic fiber, other"};

} // namespace

// With T = 1.8 t + 32 the English polynomial in T is one in t; the scale of k stands before all of it.
ConductivityPolynomial PolynomialIn(Units units, const ConductivityPolynomial& english) {
    const auto& [a, b, c] = english;
    const auto k = [units](double value) { return FromEnglish(Quantity::conductivity, units, value); };
    if (units == Units::english) {
        return english;
    }
    return {k(a + freezing * (b + freezing * c)), k(degFPerDegC * (b + 2 * freezing * c)),
            k(degFPerDegC * degFPerDegC * c)};
}

ConductivityPolynomial PolynomialToEnglish(Units units, const ConductivityPolynomial& shown) {
    if (units == Units::english) {
        return shown;
    }
    const auto k = [units](double value) { return ToEnglish(Quantity::conductivity, units, value); };
    const double c = k(shown.c) / (degFPerDegC * degFPerDegC);
    const double b = k(shown.b) / degFPerDegC - 2 * freezing * c;
    return {k(shown.a) - freezing * (b + freezing * c), b, c};
}

std::span<const std::string_view> InsulationTypeNames() { return typeNames; }

double UnitCostFactorOf(std::string_view costUnits, double heat) {
    constexpr float onePrice = 1;
    return heat > 0 ? heat * UnitFuelCost(MeasureOf(costUnits), onePrice, static_cast<float>(heat)) : 0.0;
}

} // namespace kaloria
