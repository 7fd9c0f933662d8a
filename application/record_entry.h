// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "data/quantity.h"

#include <span>
#include <string_view>

/// What the editors of the reference records need to know beyond the records themselves.
namespace kaloria {

/// Coefficients of k = a + b T + c T2 in one unit system: degF and Btu in/(h ft2 degF), or degC and W/(m
/// degC).
struct ConductivityPolynomial {
    double a = 0;
    double b = 0;
    double c = 0;
};

/// The same curve, from English coefficients to those of @p units, and back.
[[nodiscard]] ConductivityPolynomial PolynomialIn(Units units, const ConductivityPolynomial& english);
[[nodiscard]] ConductivityPolynomial PolynomialToEnglish(Units units, const ConductivityPolynomial& shown);

/// Kinds of insulation that the cost estimate tells apart; the position plus one is `InsulationType`.
[[nodiscard]] std::span<const std::string_view> InsulationTypeNames();

/// `UnitCostFactor` of a fuel: price x factor / heating value is then the price of one Btu as the
/// calculations form it.
/// @param heat  heating value, English [BTUUnits]
[[nodiscard]] double UnitCostFactorOf(std::string_view costUnits, double heat);

} // namespace kaloria
