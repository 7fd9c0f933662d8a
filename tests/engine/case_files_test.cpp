// SPDX-License-Identifier: GPL-3.0-or-later
// The engine's parts against cases computed by an independent reference model of the same method
// (tests/data/README.md gives origin and tolerances).
#include "engine/conversion.h"
#include "engine/heat_loss_calculator.h"
#include "tests/support/case_files.h"

#include <gtest/gtest.h>

#include <functional>
#include <map>

namespace kaloria {
namespace {

using nlohmann::json;
using testing::CasesOf;
using testing::Near;

float Number(const json& inputs, const char* name) { return inputs.at(name).get<float>(); }

/// Calls the film routine a case names; results by the names that the case file uses.
std::map<std::string, float> CallFilmRoutine(const std::string& function, const json& in) {
    float h = 0;
    if (function == "AirProp") {
        float k = 0, mu = 0, pr = 0, beta = 0, rho = 0, nu = 0, cp = 0, ra = 0;
        CHeatLossCalculator::AirProp(k, mu, pr, beta, Number(in, "dT"), rho, nu, cp, Number(in, "TK"),
                                     Number(in, "TF"), ra, Number(in, "L"));
        return {{"k", k},     {"mu", mu}, {"Pr", pr}, {"beta", beta},
                {"rho", rho}, {"nu", nu}, {"cp", cp}, {"Ra", ra}};
    }
    if (function == "Hpipe") {
        CHeatLossCalculator::Hpipe(Number(in, "Ts"), Number(in, "Ta"), Number(in, "D"), Number(in, "V"),
                                   Number(in, "Emittance"), h);
        return {{"H", h}};
    }
    if (function == "Vpipe") {
        CHeatLossCalculator::Vpipe(Number(in, "Ts"), Number(in, "Ta"), Number(in, "L"), Number(in, "V"),
                                   Number(in, "Emittance"), h, Number(in, "D"));
        return {{"H", h}};
    }
    if (function == "Flat") {
        CHeatLossCalculator::Flat(Number(in, "Ts"), Number(in, "Ta"), Number(in, "Orientation"),
                                  Number(in, "L"), in.at("Position").get<std::int16_t>(), Number(in, "V"),
                                  Number(in, "Emittance"), h);
        return {{"H", h}};
    }
    (function == "Logp" ? CHeatLossCalculator::Logp : CHeatLossCalculator::Log10)(Number(in, "x"), h);
    return {{"Result", h}};
}

TEST(CaseFiles, FilmRoutines) {
    const auto cases = CasesOf("film-cases.jsonl");
    ASSERT_EQ(cases.size(), 40U);
    for (const json& c : cases) {
        SCOPED_TRACE(c.dump());
        const std::string function = c.at("function");
        if (c.at("expected").at("Fault").get<bool>()) {
            EXPECT_THROW(CallFilmRoutine(function, c.at("inputs")), NumericFault);
            continue;
        }
        const auto results = CallFilmRoutine(function, c.at("inputs"));
        for (const auto& [name, value] : results) {
            EXPECT_TRUE(Near(value, c.at("expected").at(name).get<double>(), 1e-5)) << name << " " << value;
        }
    }
}

TEST(CaseFiles, ConductivityCurves) {
    const auto cases = CasesOf("quadratic-cases.jsonl");
    ASSERT_EQ(cases.size(), 8U);
    for (const json& c : cases) {
        SCOPED_TRACE(c.dump());
        CInsulation material;
        for (const json& point : c.at("inputs").at("TemperaturePoints")) {
            material.TemperaturePoints.push_back(
                {Number(point, "Temperature"), Number(point, "Conductivity")});
        }
        const json& expected = c.at("expected");
        if (expected.at("Fault").get<bool>()) {
            EXPECT_THROW(material.CalculateQuadratic(), NumericFault);
            continue;
        }
        material.CalculateQuadratic();
        EXPECT_FLOAT_EQ(material.LowerTemp(), Number(expected, "LowerTemp"));
        EXPECT_FLOAT_EQ(material.UpperTemp(), Number(expected, "UpperTemp"));
        for (const json& probe : expected.at("ConductivityAt")) {
            EXPECT_TRUE(Near(material.ConductivityAt(probe[0].get<float>()), probe[1].get<double>(), 1e-5));
        }
    }
}

TEST(CaseFiles, DewPoints) {
    const auto cases = CasesOf("dewpoint-cases.jsonl");
    ASSERT_EQ(cases.size(), 16U);
    for (const json& c : cases) {
        SCOPED_TRACE(c.dump());
        CHeatLossCalculator calculator;
        calculator.AmbientTemp = Number(c.at("inputs"), "AmbientTemp");
        calculator.RelativeHumidity = Number(c.at("inputs"), "RelativeHumidity");
        calculator.CalculateDewPoint();
        EXPECT_NEAR(calculator.DewPointTemp, Number(c.at("expected"), "DewPointTemp"), 0.01);
        EXPECT_FLOAT_EQ(calculator.RelativeHumidity, Number(c.at("expected"), "RelativeHumidity"));
    }
}

TEST(CaseFiles, Conversions) {
    using Conversion = float (*)(const ConversionInput&);
    const std::map<std::string, Conversion> conversions{
        {"CubicFeetToCubicMeters", CubicFeetToCubicMeters},
        {"CubicMetersToCubicFeet", CubicMetersToCubicFeet},
        {"BtuToJoules", BtuToJoules},
        {"JoulesToBtu", JoulesToBtu},
        {"TonsToTonnes", TonsToTonnes},
        {"TonnesToTons", TonnesToTons},
        {"FahrenheitToCelsius", FahrenheitToCelsius},
        {"CelsiusToFahrenheit", CelsiusToFahrenheit},
        {"MphToMetersPerSecond", MphToMetersPerSecond},
        {"MetersPerSecondToMph", MetersPerSecondToMph},
        {"ApplyFactor9614", ApplyFactor9614},
        {"HeatFluxToSI", HeatFluxToSI},
        {"HeatFluxToEnglish", HeatFluxToEnglish},
        {"FeetToMeters", FeetToMeters},
        {"MetersToFeet", MetersToFeet},
        {"SquareFeetToSquareMeters", SquareFeetToSquareMeters},
        {"SquareMetersToSquareFeet", SquareMetersToSquareFeet},
        {"InchesToMillimeters", InchesToMillimeters},
        {"MillimetersToInches", MillimetersToInches},
        {"YardsToCentimeters", YardsToCentimeters},
        {"CentimetersToYards", CentimetersToYards},
        {"SquareCentimetersToSquareYards", SquareCentimetersToSquareYards},
        {"LitersToGallons", LitersToGallons},
        {"GallonsToLiters", GallonsToLiters},
    };
    const auto cases = CasesOf("conversion-cases.jsonl");
    ASSERT_EQ(cases.size(), 32U);
    for (const json& c : cases) {
        SCOPED_TRACE(c.dump());
        const json& value = c.at("inputs").at("value");
        const ConversionInput input = value.is_string() ? ConversionInput(value.get<std::string>())
                                                        : ConversionInput(value.get<double>());
        const float result = conversions.at(c.at("function"))(input);
        EXPECT_TRUE(Near(result, c.at("expected").at("Result").get<double>(), 1e-6)) << result;
    }
}

TEST(CaseFiles, Rounding) {
    const auto cases = CasesOf("rounding-cases.jsonl");
    ASSERT_EQ(cases.size(), 18U);
    for (const json& c : cases) {
        SCOPED_TRACE(c.dump());
        float x = Number(c.at("inputs"), "x");
        const float returned = RoundToSignificant(x);
        EXPECT_EQ(returned, x);
        EXPECT_TRUE(Near(x, c.at("expected").at("Result").get<double>(), 1e-6)) << x;
    }
}

} // namespace
} // namespace kaloria
