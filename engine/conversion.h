// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string_view>

/// modConversion: one value in, one single-precision value out, between the English units in which the engine
/// computes and SI. The factors are this program's own and stay as they are, so that files and reports keep
/// their figures: 0.447028 is not the exact 0.44704 m/s per mph, the heat-flux factor is made of two rounded
/// ones.
namespace kaloria {

/// A number, or a text that may hold one. A text that holds none converts to 0 in every direction.
class ConversionInput {
public:
    // NOLINTBEGIN(google-explicit-constructor): it stands for a plain argument
    ConversionInput(double number) : number_(number) {}
    ConversionInput(std::string_view text);
    ConversionInput(const char* text) : ConversionInput(std::string_view(text)) {}
    // NOLINTEND(google-explicit-constructor)

    [[nodiscard]] const std::optional<double>& Number() const { return number_; }

private:
    std::optional<double> number_;
};

[[nodiscard]] float CubicFeetToCubicMeters(const ConversionInput& x);
[[nodiscard]] float CubicMetersToCubicFeet(const ConversionInput& x);
[[nodiscard]] float BtuToJoules(const ConversionInput& x); ///< the same ratio turns MMBtu into MJ
[[nodiscard]] float JoulesToBtu(const ConversionInput& x);
[[nodiscard]] float TonsToTonnes(const ConversionInput& x); ///< short tons
[[nodiscard]] float TonnesToTons(const ConversionInput& x);
[[nodiscard]] float FahrenheitToCelsius(const ConversionInput& x);
[[nodiscard]] float CelsiusToFahrenheit(const ConversionInput& x);
[[nodiscard]] float MphToMetersPerSecond(const ConversionInput& x);
[[nodiscard]] float MetersPerSecondToMph(const ConversionInput& x);
/// Btu/(h ft) to W/m; one-way (the exact factor is 0.96152)
[[nodiscard]] float ApplyFactor9614(const ConversionInput& x);
[[nodiscard]] float HeatFluxToSI(const ConversionInput& x);      ///< Btu/(h ft2) to W/m2
[[nodiscard]] float HeatFluxToEnglish(const ConversionInput& x); ///< W/m2 to Btu/(h ft2)
[[nodiscard]] float FeetToMeters(const ConversionInput& x);
[[nodiscard]] float MetersToFeet(const ConversionInput& x);
[[nodiscard]] float SquareFeetToSquareMeters(const ConversionInput& x);
[[nodiscard]] float SquareMetersToSquareFeet(const ConversionInput& x);
[[nodiscard]] float InchesToMillimeters(const ConversionInput& x);
[[nodiscard]] float MillimetersToInches(const ConversionInput& x);
[[nodiscard]] float YardsToCentimeters(const ConversionInput& x);
[[nodiscard]] float CentimetersToYards(const ConversionInput& x);
[[nodiscard]] float SquareCentimetersToSquareYards(const ConversionInput& x);
[[nodiscard]] float LitersToGallons(const ConversionInput& x); ///< US gallons
[[nodiscard]] float GallonsToLiters(const ConversionInput& x);

/// Rounds to about four significant figures, in place, and returns the result. Values below 1, negative ones
/// included, stay as they are; there is no step of 1000, so that from one million on values are rounded to
/// whole tens of thousands.
float RoundToSignificant(float& x);

} // namespace kaloria
