// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/quantity.h"

#include "engine/conversion.h"

#include <array>
#include <cstddef>

namespace kaloria {

namespace {

double Same(double x) { return x; }

/// Wraps a conversion of one value.
template <float (*Convert)(const ConversionInput&)>
double By(double x) {
    return Convert(x);
}

constexpr double siConductivity = 0.144228;     // W/(m degC) per Btu in/(h ft2 degF)
constexpr double poundsPerFootToSI = 1.4881627; // kg/m per lb/ft
constexpr double poundsPerAreaToSI = 4.8824276; // kg/m2 per lb/ft2
constexpr double flowPerLengthToSI = 0.9614;    // ApplyFactor9614 has no inverse of its own

double ToCelsiusDegrees(double x) { return x / 1.8; }
double ToFahrenheitDegrees(double x) { return x * 1.8; }
double ConductivityToSI(double x) { return x * siConductivity; }
double ConductivityToEnglish(double x) { return x / siConductivity; }
double FlowToEnglish(double x) { return x / flowPerLengthToSI; }
double EmissionPerLengthToSI(double x) { return x * poundsPerFootToSI; }
double EmissionPerLengthToEnglish(double x) { return x / poundsPerFootToSI; }
double EmissionPerAreaToSI(double x) { return x * poundsPerAreaToSI; }
double EmissionPerAreaToEnglish(double x) { return x / poundsPerAreaToSI; }

// In the order of Quantity. A price per unit converts with the inverse of its unit: dollars per foot times
// feet per meter.
constexpr std::array<QuantityInfo, 23> infos{{
    {"", "", Same, Same},
    {"°F", "°C", By<FahrenheitToCelsius>, By<CelsiusToFahrenheit>},
    {"°F", "°C", ToCelsiusDegrees, ToFahrenheitDegrees},
    {"in", "mm", By<InchesToMillimeters>, By<MillimetersToInches>},
    {"mph", "m/s", By<MphToMetersPerSecond>, By<MetersPerSecondToMph>},
    {"BTU/hr/ft^2", "W/m^2", By<HeatFluxToSI>, By<HeatFluxToEnglish>},
    {"BTU/hr/ft", "W/m", By<ApplyFactor9614>, FlowToEnglish},
    {"BTU*in/hr*sf*°F", "W/m*°C", ConductivityToSI, ConductivityToEnglish},
    {"%", "%", Same, Same},
    {"", "", Same, Same},
    {"hr/yr", "hr/yr", Same, Same},
    {"yr", "yr", Same, Same},
    {"$/ft/yr", "$/m/yr", By<MetersToFeet>, By<FeetToMeters>},
    {"$/ft^2/yr", "$/m^2/yr", By<SquareMetersToSquareFeet>, By<SquareFeetToSquareMeters>},
    {"lb/ft/yr", "kg/m/yr", EmissionPerLengthToSI, EmissionPerLengthToEnglish},
    {"lb/ft^2/yr", "kg/m^2/yr", EmissionPerAreaToSI, EmissionPerAreaToEnglish},
    {"$/MMBtu/hr", "$/MMJ/hr", By<JoulesToBtu>, By<BtuToJoules>},
    {"$/ft", "$/m", By<MetersToFeet>, By<FeetToMeters>},
    {"$/sqft", "$/m^2", By<SquareMetersToSquareFeet>, By<SquareFeetToSquareMeters>},
    {"$/1000 gallons", "$/1000 liters", By<LitersToGallons>, By<GallonsToLiters>},
    {"$/hr", "$/hr", Same, Same},
    {"", "", Same, Same},
    {"", "", Same, Same},
}};
static_assert(infos.size() == static_cast<std::size_t>(Quantity::heatContent) + 1);

} // namespace

const QuantityInfo& InfoOf(Quantity quantity) { return infos.at(static_cast<std::size_t>(quantity)); }

double ToEnglish(Quantity quantity, Units units, double value) {
    return units == Units::si ? InfoOf(quantity).toEnglish(value) : value;
}

double FromEnglish(Quantity quantity, Units units, double value) {
    return units == Units::si ? InfoOf(quantity).toSI(value) : value;
}

} // namespace kaloria
