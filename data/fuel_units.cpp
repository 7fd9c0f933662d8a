// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/fuel_units.h"

#include <array>
#include <cstddef>

namespace kaloria {

namespace {

constexpr double joulesPerBtu = 1055.87;
constexpr double cubicMetersPerCubicFoot = 0.02831685;
constexpr double litersPerGallon = 3.7854;
constexpr double tonnesPerTon = 0.90718;
constexpr double tonnesPerPound = tonnesPerTon / 2000.0;
constexpr double btuPerKilowattHour = 3412.87; // the constant of the unit fuel cost
constexpr double kilowattHoursPerMillionBtu = 1e6 / btuPerKilowattHour;

/// SI units per English unit of what the price is for, and of what the heating value is for.
struct Measure {
    std::string_view costUnits;
    double costDivisor;
    double heatDivisor;
    std::string_view siCost;
    std::string_view siHeat;
    std::string_view siCostEntry;
};

// In the order of FuelMeasure. Heat sold by the million Btu has no pair of its own; the energy pair serves
// it.
constexpr std::array<Measure, 6> measures{{
    {"", kilowattHoursPerMillionBtu, kilowattHoursPerMillionBtu, "$/kwh", "J/kwh", "$/kwh"},
    {"$/Mcf", cubicMetersPerCubicFoot, cubicMetersPerCubicFoot, "$/m^3", "J/m^3", "$/Mm^3"},
    {"$/gal", litersPerGallon, litersPerGallon, "$/l", "J/l", "$/l"},
    {"$/lb", tonnesPerPound, tonnesPerPound, "$/tonne", "J/tonne", "$/tonne"},
    {"$/ton", tonnesPerTon, tonnesPerPound, "$/tonne", "J/tonne", "$/tonne"},
    {"$/kWh", 1.0, 1.0, "$/kwh", "J/kwh", "$/kwh"},
}};

const Measure& InfoOf(FuelMeasure measure) { return measures.at(static_cast<std::size_t>(measure)); }

} // namespace

FuelMeasure MeasureOf(std::string_view costUnits) {
    for (std::size_t i = 1; i < measures.size(); ++i) {
        if (measures[i].costUnits == costUnits) {
            return static_cast<FuelMeasure>(i);
        }
    }
    return FuelMeasure::other;
}

FuelUnitTexts FuelUnitsOf(const CFuel& fuel, Units units) {
    if (units == Units::english) {
        return {fuel.CostUnits, fuel.BTUUnits, fuel.CostUnits};
    }
    const Measure& measure = InfoOf(MeasureOf(fuel.CostUnits));
    return {std::string(measure.siCost), std::string(measure.siHeat), std::string(measure.siCostEntry)};
}

double FuelCostToSI(FuelMeasure measure, double cost) { return cost / InfoOf(measure).costDivisor; }
double FuelCostToEnglish(FuelMeasure measure, double cost) { return cost * InfoOf(measure).costDivisor; }

double HeatContentToSI(FuelMeasure measure, double heat) {
    return heat * joulesPerBtu / InfoOf(measure).heatDivisor;
}

double HeatContentToEnglish(FuelMeasure measure, double heat) {
    return heat / joulesPerBtu * InfoOf(measure).heatDivisor;
}

} // namespace kaloria
