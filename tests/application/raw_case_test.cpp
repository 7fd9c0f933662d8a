// SPDX-License-Identifier: GPL-3.0-or-later
// The solver as a whole, by the road that `kaloria-cli solve` takes, against the reference model's cases.
#include "application/raw_case.h"
#include "tests/support/case_files.h"

#include <gtest/gtest.h>

namespace kaloria {
namespace {

using nlohmann::json;
using testing::CasesOf;
using testing::Near;

void ExpectAgreement(const json& result, const json& expected) {
    ASSERT_EQ(result.at("Fault"), expected.at("Fault"));
    if (expected.at("Fault").get<bool>()) {
        return;
    }
    const auto near = [&](const json& a, const json& b, double relative, double absolute) {
        return Near(a.get<double>(), b.get<double>(), relative, absolute);
    };
    EXPECT_TRUE(near(result.at("UnitHeatFlow"), expected.at("UnitHeatFlow"), 2e-4, 0.001));
    EXPECT_TRUE(near(result.at("SurfaceTemp"), expected.at("SurfaceTemp"), 2e-4, 0.01));
    EXPECT_TRUE(near(result.at("BaseMetalOutsideTemp"), expected.at("BaseMetalOutsideTemp"), 2e-4, 0.01));
    ASSERT_EQ(result.at("Layers").size(), expected.at("Layers").size());
    for (std::size_t i = 0; i < expected.at("Layers").size(); ++i) {
        const json& layer = result.at("Layers")[i];
        EXPECT_TRUE(near(layer.at("OutsideTemp"), expected.at("Layers")[i].at("OutsideTemp"), 2e-4, 0.01));
        EXPECT_TRUE(near(layer.at("Conductivity"), expected.at("Layers")[i].at("Conductivity"), 2e-4, 0.0));
    }
    ASSERT_EQ(result.contains("FaceSurfaceTemps"), expected.contains("FaceSurfaceTemps"));
    if (expected.contains("FaceSurfaceTemps")) {
        for (std::size_t face = 0; face < 3; ++face) {
            EXPECT_TRUE(
                near(result.at("FaceSurfaceTemps")[face], expected.at("FaceSurfaceTemps")[face], 2e-4, 0.01));
        }
        EXPECT_EQ(result.at("Passes").size(), 3U);
    } else {
        EXPECT_NEAR(result.at("Passes").get<int>(), expected.at("Passes").get<int>(), 1);
    }
}

TEST(RawCase, AgreesWithTheReferenceModel) {
    const auto cases = CasesOf("engine-cases.jsonl");
    ASSERT_EQ(cases.size(), 60U);
    for (const json& c : cases) {
        SCOPED_TRACE(c.dump());
        const json answer = SolveCaseLine(c.dump());
        EXPECT_EQ(answer.at("id"), c.at("id"));
        SCOPED_TRACE(answer.dump());
        ExpectAgreement(answer.at("result"), c.at("expected"));
    }
}

} // namespace
} // namespace kaloria
