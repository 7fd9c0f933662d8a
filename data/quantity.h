// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string_view>

namespace kaloria {

enum class Units : std::uint8_t { english, si };

/// What a number measures. Each quantity has two unit texts and two conversions, and nobody converts by hand.
enum class Quantity : std::uint8_t {
    none,                  ///< a text, a flag or a pure number
    temperature,           ///< degF, degC
    temperatureDifference, ///< degF, degC without the offset
    length,                ///< in, mm
    windSpeed,             ///< mph, m/s
    heatFlux,              ///< Btu/(h ft2), W/m2
    heatFlowPerLength,     ///< Btu/(h ft), W/m
    conductivity,          ///< Btu in/(h ft2 degF), W/(m degC)
    percent,
    emittance,
    hoursPerYear,
    years,
    moneyPerLength,    ///< $/(ft yr), $/(m yr)
    moneyPerArea,      ///< $/(ft2 yr), $/(m2 yr)
    emissionPerLength, ///< lb/(ft yr), kg/(m yr)
    emissionPerArea,   ///< lb/(ft2 yr), kg/(m2 yr)
    plantCapacityCost, ///< $ per MMBtu/h, $ per MMJ/h
    pipePrice,         ///< $/ft, $/m
    boardPrice,        ///< $/ft2, $/m2
    waterCost,         ///< $ per 1000 gallons, per 1000 liters
    laborRate,         ///< $/h
    fuelCost,          ///< by the fuel, see data/fuel_units.h
    heatContent,       ///< by the fuel, see data/fuel_units.h
};

struct QuantityInfo {
    std::string_view englishText; ///< as shown beside a field
    std::string_view siText;
    double (*toSI)(double);
    double (*toEnglish)(double);

    [[nodiscard]] std::string_view Text(Units units) const {
        return units == Units::si ? siText : englishText;
    }
};

/// Conversions of fuelCost and heatContent leave the number as it is: they need the fuel.
[[nodiscard]] const QuantityInfo& InfoOf(Quantity quantity);

/// A value in @p units as its English value, and back.
[[nodiscard]] double ToEnglish(Quantity quantity, Units units, double value);
[[nodiscard]] double FromEnglish(Quantity quantity, Units units, double value);

} // namespace kaloria
