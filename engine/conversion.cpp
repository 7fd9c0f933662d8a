// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/conversion.h"

#include "engine/number_text.h"
#include "engine/numeric_fault.h"

#include <cmath>

namespace kaloria {

namespace {

constexpr double cubicMetersPerCubicFoot = 0.02831685;
constexpr double joulesPerBtu = 1055.87;
constexpr double tonnesPerTon = 0.90718;
constexpr double metersPerSecondPerMph = 0.447028;
constexpr double wattsPerBtuPerHour = 0.293071;
constexpr double squareMetersPerSquareFoot = 0.092903; // of the heat flux; areas use 0.3048 squared
constexpr double metersPerFoot = 0.3048;
constexpr double millimetersPerInch = 25.4;
constexpr double centimetersPerYard = 91.44;
constexpr double litersPerGallon = 3.7854;

float Scaled(const ConversionInput& x, double factor) {
    return x.Number() ? Single(*x.Number() * factor) : 0.0F;
}

float Divided(const ConversionInput& x, double divisor) {
    return x.Number() ? Single(*x.Number() / divisor) : 0.0F;
}

} // namespace

ConversionInput::ConversionInput(std::string_view text) : number_(ParseNumber(text)) {}

float CubicFeetToCubicMeters(const ConversionInput& x) { return Scaled(x, cubicMetersPerCubicFoot); }
float CubicMetersToCubicFeet(const ConversionInput& x) { return Divided(x, cubicMetersPerCubicFoot); }
float BtuToJoules(const ConversionInput& x) { return Scaled(x, joulesPerBtu); }
float JoulesToBtu(const ConversionInput& x) { return Divided(x, joulesPerBtu); }
float TonsToTonnes(const ConversionInput& x) { return Scaled(x, tonnesPerTon); }
float TonnesToTons(const ConversionInput& x) { return Divided(x, tonnesPerTon); }

float FahrenheitToCelsius(const ConversionInput& x) {
    return x.Number() ? Single((*x.Number() - 32.0) / 1.8) : 0.0F;
}

float CelsiusToFahrenheit(const ConversionInput& x) {
    return x.Number() ? Single(*x.Number() * 1.8 + 32.0) : 0.0F;
}

float MphToMetersPerSecond(const ConversionInput& x) { return Scaled(x, metersPerSecondPerMph); }
float MetersPerSecondToMph(const ConversionInput& x) { return Divided(x, metersPerSecondPerMph); }
float ApplyFactor9614(const ConversionInput& x) { return Scaled(x, 0.9614); }

float HeatFluxToSI(const ConversionInput& x) {
    return x.Number() ? Single(*x.Number() * wattsPerBtuPerHour / squareMetersPerSquareFoot) : 0.0F;
}

float HeatFluxToEnglish(const ConversionInput& x) {
    return x.Number() ? Single(*x.Number() / wattsPerBtuPerHour * squareMetersPerSquareFoot) : 0.0F;
}

float FeetToMeters(const ConversionInput& x) { return Scaled(x, metersPerFoot); }
float MetersToFeet(const ConversionInput& x) { return Divided(x, metersPerFoot); }
float SquareFeetToSquareMeters(const ConversionInput& x) { return Scaled(x, metersPerFoot * metersPerFoot); }
float SquareMetersToSquareFeet(const ConversionInput& x) { return Divided(x, metersPerFoot * metersPerFoot); }
float InchesToMillimeters(const ConversionInput& x) { return Scaled(x, millimetersPerInch); }
float MillimetersToInches(const ConversionInput& x) { return Divided(x, millimetersPerInch); }
float YardsToCentimeters(const ConversionInput& x) { return Scaled(x, 2.54 * 36.0); }
float CentimetersToYards(const ConversionInput& x) { return Divided(x, centimetersPerYard); }

float SquareCentimetersToSquareYards(const ConversionInput& x) {
    return Divided(x, centimetersPerYard * centimetersPerYard);
}

float LitersToGallons(const ConversionInput& x) { return Divided(x, litersPerGallon); }
float GallonsToLiters(const ConversionInput& x) { return Scaled(x, litersPerGallon); }

float RoundToSignificant(float& x) {
    if (!(x >= 1.0F)) {
        return x;
    }
    const double value = x;
    double step = 10000.0; // from one million on: there is no step of 1000
    if (value < 10.0) {
        step = 0.001;
    } else if (value < 100.0) {
        step = 0.01;
    } else if (value < 1000.0) {
        step = 0.1;
    } else if (value < 10000.0) {
        step = 1.0;
    } else if (value < 100000.0) {
        step = 10.0;
    } else if (value < 1000000.0) {
        step = 100.0;
    }
    x = Single(std::floor(value / step + 0.5) * step);
    return x;
}

} // namespace kaloria
