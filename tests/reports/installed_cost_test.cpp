// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/numeric_fault.h"
#include "reports/installed_cost.h"
#include "tests/support/case_files.h"
#include "tests/support/ratio_lines.h"
#include "tests/support/temporary_folder.h"

#include <gtest/gtest.h>

#include <cmath>
#include <gmock/gmock.h>
#include <stdexcept>

namespace kaloria {
namespace {

using nlohmann::json;
using test::Joined;
using test::RatioLines;
using test::Spill;
using testing::CasesOf;
using testing::Near;
using Kind = InstalledCostFault::Kind;

constexpr int ofTwoInchPipe = 6; // size position
constexpr int ofTwoInches = 4;   // thickness position

InstalledCostInputs InputsOf(const json& in) {
    InstalledCostInputs inputs;
    inputs.PipePrice = in.at("PipePrice");
    inputs.BoardPrice = in.at("BoardPrice");
    inputs.LaborRate = in.at("LaborRate");
    inputs.RegionalProductivity = in.at("RegionalProductivity");
    inputs.PipeLaborFactor = in.at("PipeLaborFactor");
    inputs.FlatLaborFactor = in.at("FlatLaborFactor");
    inputs.InsulationType = in.at("InsulationType");
    inputs.HotService = in.at("Type4Flag");
    return inputs;
}

TEST(InstalledCost, AgreesWithTheReferenceModel) {
    const auto cases = CasesOf("fea-cases.jsonl");
    ASSERT_EQ(cases.size(), 6U);
    const test::TemporaryFolder folder;
    RatioFileCache cache;
    CCostData costs;
    for (const json& c : cases) {
        SCOPED_TRACE(c.at("id"));
        const json& expected = c.at("expected");
        Spill(folder / "FEAratio.dta", test::Slurp(std::string(KALORIA_TEST_DATA_DIR) + "/" +
                                                   c.at("inputs").at("File").get<std::string>()));
        costs.GetCostData(1, 1).InstalledCost = -77; // is replaced or stays
        const auto fault = EstimateInstalledCosts(folder / "", InputsOf(c.at("inputs")), cache, costs);
        EXPECT_EQ(!fault, expected.at("Filled").get<bool>());
        if (fault) {
            EXPECT_EQ(costs.GetCostData(1, 1).InstalledCost, -77);
            continue;
        }
        for (int size = 1; size <= CCostData::lastSizePosition; ++size) {
            const json& line = expected.at("InstalledCost").at(static_cast<std::size_t>(size - 1));
            for (int thickness = 1; thickness <= CCostData::lastThicknessPosition; ++thickness) {
                const auto i = static_cast<std::size_t>(thickness - 1);
                const CThicknessCost* const cell = costs.FindCostData(size, thickness);
                ASSERT_NE(cell, nullptr);
                EXPECT_TRUE(Near(cell->Thickness, expected.at("Thickness").at(i), 1e-5));
                EXPECT_TRUE(Near(cell->InstalledCost, line.at(i), 1e-5)) << size << ' ' << thickness;
            }
        }
    }
}

TEST(InstalledCost, TakesDefaultsTogetherAndCostsByHand) {
    // Pipe: 0.5 x price + 10 x factor x rate x productivity / 100 x 0.012; flat 0.25 x price + 20 x ...
    // Entered: prices 4 and 8, 50 $/h, 100 %, factors 1 and 2.
    const struct {
        const char* why = "";
        InstalledCostInputs inputs;
        double pipe = 0, flat = 0;
    } rows[] = {
        {"as entered", {4, 8, 50, 100, 1, 2, 1}, 2 + 6, 2 + 24},
        {"productivity 150", {4, 8, 50, 150, 1, 2, 1}, 2 + 9, 2 + 36},
        {"productivity 0 is 100", {4, 8, 50, 0, 1, 2, 1}, 2 + 6, 2 + 24},
        {"labor rate 0 is 38.35", {4, 8, 0, 100, 1, 2, 1}, 2 + 4.602, 2 + 18.408},
        {"a negative rate counts", {4, 8, -50, 100, 1, 2, 1}, 0, 2 - 24},
        {"one price 0: both are defaults", {4, 0, 50, 100, 1, 2, 1}, 2.485 + 6, 0.4275 + 24},
        {"one factor 0: both are defaults", {4, 8, 50, 100, 0, 2, 1}, 2 + 5.22, 2 + 11.16},
        {"factors and prices of type 3", {0, 8, 50, 100, 1, 0, 3}, 2.44 + 6, 0.475 + 12},
        {"type 4 hot", {0, 8, 50, 100, 1, 0, 4, true}, 2.315 + 6.9, 0.48 + 13.2},
        {"type 4 cold", {0, 8, 50, 100, 1, 0, 4, false}, 2.315 + 8.1, 0.48 + 15.6},
        {"complexity scales default factors", {4, 8, 50, 100, 0, 2, 1, true, 1.3F}, 8.786, 16.508},
        {"complexity leaves entered factors", {4, 8, 50, 100, 1, 2, 1, true, 1.3F}, 2 + 6, 2 + 24},
        {"less than 0.50 is nothing on pipe", {0.5F, 1, 2, 100, 1, 0.5F, 1}, 0, 0.49},
        {"a type without a block", {4, 8, 50, 100, 1, 2, 7}, 0, 0},
    };
    const auto ratios = LoadRatioText(Joined(RatioLines())).ratios;
    ASSERT_TRUE(ratios);
    for (const auto& row : rows) {
        SCOPED_TRACE(row.why);
        const auto complete = WithDefaults(row.inputs);
        ASSERT_TRUE(complete);
        CCostData costs;
        FillInstalledCosts(*ratios, *complete, costs);
        for (const int pipe : {1, 26}) {
            EXPECT_TRUE(Near(costs.GetCostData(pipe, 1).InstalledCost, row.pipe, 1e-6));
            EXPECT_EQ(costs.GetCostData(pipe, 2).InstalledCost, 0) << "no material, no labor";
        }
        for (const int flat : {27, 28, 29}) {
            EXPECT_TRUE(Near(costs.GetCostData(flat, 1).InstalledCost, row.flat, 1e-6));
        }
        EXPECT_EQ(costs.GetCostData(29, 2).Thickness, 2);
    }
    EXPECT_EQ(ComplexityFactorOf("Very Simple"), 0.70F);
    EXPECT_EQ(ComplexityFactorOf("Complex"), 1.30F);
    EXPECT_EQ(ComplexityFactorOf("complex"), std::nullopt);
}

TEST(InstalledCost, OfTheShippedRatiosIsAsReckonedByHand) {
    // 2 in on 2 in pipe: labor ratio 18.93, so type 1 is 4.97 + 18.93 x 0.87 x 38.35 x 0.012 = 4.97 + 7.579;
    // 2 in board: 9.42, so 1.71 + 9.42 x 0.93 x 0.4602 = 1.71 + 4.032.
    const struct {
        std::int32_t type;
        bool isHot;
        double pipe, board;
    } rows[] = {{1, true, 12.549, 5.742},
                {2, false, 12.549, 5.742},
                {3, true, 13.592, 6.235},
                {4, true, 14.648, 6.689},
                {4, false, 16.391, 7.556}};
    RatioFileCache cache;
    for (const auto& row : rows) {
        SCOPED_TRACE(row.type);
        InstalledCostInputs inputs;
        inputs.InsulationType = row.type;
        inputs.HotService = row.isHot;
        CCostData costs;
        ASSERT_FALSE(EstimateInstalledCosts(KALORIA_RESOURCES_DIR, inputs, cache, costs));
        EXPECT_NEAR(costs.GetCostData(ofTwoInchPipe, ofTwoInches).InstalledCost, row.pipe, 6e-4);
        EXPECT_NEAR(costs.GetCostData(27, ofTwoInches).InstalledCost, row.board, 6e-4);
    }
}

TEST(InstalledCost, SaysWhatIsMissingAndLeavesTheGridAlone) {
    const test::TemporaryFolder empty;
    const test::TemporaryFolder otherSpelling;
    const test::TemporaryFolder broken;
    Spill(otherSpelling / "FEARatio.dta", Joined(RatioLines()));
    Spill(broken / "FEAratio.dta", "1,2\n3,x\n");
    const InstalledCostInputs type1{0, 0, 0, 0, 0, 0, 1};
    const InstalledCostInputs type5{4, 8, 50, 100, 1, 0, 5};
    const struct {
        const char* why = "";
        const test::TemporaryFolder& folder;
        InstalledCostInputs inputs;
        Kind kind = Kind::overflow;
        const char* message = "";
        const char* detail = "";
    } rows[] = {
        {"no file", empty, type1, Kind::missingFile,
         "File FEAratio.dta cannot be found in the Kaloria program directory.  This program will terminate.",
         "FEAratio.dta"},
        {"no default", otherSpelling, type5, Kind::otherMaterial,
         " The FEA procedure cannot supply estimated cost information for type OTHER insulation material",
         "type 5"},
        {"broken file", broken, type1, Kind::brokenFile,
         "The installed costs cannot be estimated: FEAratio.dta, line 2: field 2: \"x\" is not a number that "
         "fits",
         "/FEAratio.dta, line 2: field 2"},
        {"overflow",
         otherSpelling,
         {4, 8, 3e38F, 1e38F, 1, 2, 1},
         Kind::overflow,
         "The installed costs cannot be estimated: installed cost: overflow.",
         "overflow"},
    };
    RatioFileCache cache;
    CCostData costs;
    costs.GetCostData(3, 3).InstalledCost = 12;
    for (const auto& row : rows) {
        SCOPED_TRACE(row.why);
        const auto fault = EstimateInstalledCosts(row.folder / "", row.inputs, cache, costs);
        ASSERT_TRUE(fault);
        EXPECT_EQ(fault->kind, row.kind);
        EXPECT_EQ(fault->message, row.message);
        EXPECT_THAT(fault->detail, ::testing::HasSubstr(row.detail));
        EXPECT_EQ(costs.GetCostData(3, 3).InstalledCost, 12);
    }
    EXPECT_FALSE(EstimateInstalledCosts(otherSpelling / "", type1, cache, costs));
    EXPECT_NE(costs.GetCostData(3, 1).InstalledCost, 12);
}

TEST(CostData, HoldsOneRecordPerCellWithinItsBounds) {
    CCostData costs;
    EXPECT_EQ(costs.FindCostData(30, 20), nullptr);
    CThicknessCost& record = costs.GetCostData(30, 20);
    EXPECT_EQ(record.InstalledCost, 0);
    EXPECT_EQ(&costs.GetCostData(30, 20), &record);
    EXPECT_EQ(costs.FindCostData(30, 20), &record);
    costs.SetCostData(0, 0, {2, 5});
    EXPECT_EQ(costs.GetCostData(0, 0).InstalledCost, 5);
    costs.ClearCostData();
    EXPECT_EQ(costs.FindCostData(0, 0), nullptr);
    EXPECT_EQ(costs.FindCostData(30, 20), nullptr);
    for (const auto& [size, thickness] : {std::pair(31, 0), {-1, 0}, {0, 21}, {0, -1}}) {
        EXPECT_THROW((void)costs.GetCostData(size, thickness), std::out_of_range);
        EXPECT_THROW((void)costs.FindCostData(size, thickness), std::out_of_range);
        EXPECT_THROW(costs.SetCostData(size, thickness, {}), std::out_of_range);
    }
}

} // namespace
} // namespace kaloria
