// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/numeric_fault.h"
#include "reports/fuel_cost.h"
#include "reports/psychrometrics.h"
#include "tests/support/case_files.h"

#include <gtest/gtest.h>

namespace kaloria {
namespace {

using nlohmann::json;
using testing::CasesOf;
using testing::Near;

TEST(UnitFuelCost, AgreesWithTheReferenceModel) {
    const auto cases = CasesOf("unit-fuel-cost-cases.jsonl");
    ASSERT_EQ(cases.size(), 12U);
    for (const json& c : cases) {
        SCOPED_TRACE(c.dump());
        const json& in = c.at("inputs");
        const int code = in.at("CostUnitsCode");
        const auto measure = static_cast<FuelMeasure>(code >= 1 && code <= 5 ? code : 0);
        const auto call = [&] {
            return UnitFuelCost(measure, in.at("Cost").get<float>(), in.at("HeatingValue").get<float>());
        };
        if (c.at("expected").at("Fault").get<bool>()) {
            EXPECT_THROW((void)call(), NumericFault);
        } else {
            EXPECT_TRUE(Near(call(), c.at("expected").at("UnitFuelCost").get<double>(), 1e-6));
        }
    }
}

TEST(Psychrometrics, MatchesPublishedTables) {
    using namespace psychrometrics;
    // Saturation pressures of the Smithsonian tables (Goff and Gratch), hPa. The stored constants differ from
    // the published ones in the fifth figure: 0.06 % of pressure is 0.02 degF of dew point.
    const struct {
        double celsius;
        double hectopascal;
    } saturation[] = {{0, 6.1078}, {10, 12.272}, {20, 23.373}, {30, 42.430}, {40, 73.777}};
    for (const auto& row : saturation) {
        EXPECT_NEAR(SaturationPressure(row.celsius * 1.8 + 32.0) * 1013.25, row.hectopascal,
                    6e-4 * row.hectopascal);
    }
    // Dry bulb, wet bulb, relative humidity and dew point of psychrometric charts at sea level (ASHRAE): the
    // reading error of a chart is half a percent and half a degree.
    const struct {
        double temp, wetBulb, humidity, dewPoint;
    } chart[] = {{75, 62.5, 50, 55.1}, {95, 75, 40, 67.2}, {80, 80, 100, 80}, {70, 58.5, 50, 50.5}};
    for (const auto& row : chart) {
        SCOPED_TRACE(row.temp);
        EXPECT_NEAR(HumidityFromWetBulb(row.temp, row.wetBulb), row.humidity, 0.8);
        EXPECT_NEAR(DewPointFromHumidity(row.temp, row.humidity), row.dewPoint, 0.5);
        EXPECT_NEAR(DewPointOfPressure(VapourPressureFromWetBulb(row.temp, row.wetBulb)), row.dewPoint, 0.6);
    }
}

TEST(Psychrometrics, HasNoAnswerWhereThereIsNone) {
    using namespace psychrometrics;
    EXPECT_THROW((void)VapourPressureFromWetBulb(100, 40), NumericFault); // drier than dry
    EXPECT_THROW((void)DewPointFromHumidity(70, 0), NumericFault);
    // The search ends far outside any weather too.
    EXPECT_NEAR(SaturationPressure(DewPointFromHumidity(70, 0.01)) / SaturationPressure(70), 1e-4, 1e-9);
}

} // namespace
} // namespace kaloria
