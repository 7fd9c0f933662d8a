// SPDX-License-Identifier: GPL-3.0-or-later
// Whole economic analyses, from a job's texts to typed results, on the reference data that ships.
#include "application/economics.h"
#include "application/report_items.h"
#include "engine/number_text.h"
#include "reports/custom_costs.h"
#include "tests/support/job_fixture.h"
#include "tests/support/temporary_folder.h"

#include <gtest/gtest.h>

#include <cmath>
#include <gmock/gmock.h>

namespace kaloria {
namespace {

using test::Sets;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

class Economics : public test::JobFixture {
protected:
    EconomicsResult Run(const Sets& sets, const EconomicsRequest& request = {},
                        Units units = Units::english) {
        OpenAsFiled(sets, units);
        return RunEconomics(application, request);
    }

    const EconomicAnalysis& Analysis() { return *application.Report().Analysis(); }
    const TemperatureResult& First() { return Analysis().surfaces.at(0).temperatures.at(0); }

    static const ThicknessResult& At(const TemperatureResult& step, float nominal) {
        for (const ThicknessResult& row : step.rows) {
            if (row.nominal == nominal) {
                return row;
            }
        }
        throw std::out_of_range("no such thickness");
    }

    static std::string AllFindings(const EconomicsResult& result) {
        std::string text;
        for (const Finding& finding : result.findings) {
            text += finding.subject + ": " + finding.text + "\n";
        }
        return text;
    }

    /// 6 in pipe at 350 degF, every thickness.
    static inline const Sets steamLine{{"ReportStartingTemperature", "250"}, {"EngineeringReport", "True"}};
    static inline const Sets coldLine{{"HotSurface", "False"},
                                      {"ReportFuel", "Electricity"},
                                      {"ReportFuelCost", "0.0806"},
                                      {"ReportHeatingValue", "3412.87"},
                                      {"ReportInsulationMaterial", "Cellular Glass Pipe Insulation"},
                                      {"ReportPipeInsulationPrice", "0"},
                                      {"ReportStartingTemperature", "60"},
                                      {"ReportTemperatureIncrement", "-20"},
                                      {"EngineeringReport", "True"}};

    static Sets With(Sets sets, const Sets& more) {
        sets.insert(sets.end(), more.begin(), more.end());
        return sets;
    }
};

TEST_F(Economics, TheSteamLineHasOneMinimumOfCost) {
    ASSERT_TRUE(Run(steamLine).complete);
    const TemperatureResult& step = First();
    EXPECT_EQ(step.temperature, 350.0F);
    // Installed cost (price x ratio + labour), net present worth and its yearly equivalent by hand, from the
    // heat flows of the results grid.
    const struct {
        float nominal;
        double installed, worth, yearly, carbonDioxide;
    } rows[] = {{2, 20.583, 501.795, 58.624, 1794.27},
                {2.5F, 24.122, 503.230, 58.792, 1811.19},
                {3, 27.900, 502.943, 58.759, 1823.00},
                {3.5F, 38.115, 495.957, 57.942, 1833.60}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.nominal);
        const ThicknessResult& thickness = At(step, row.nominal);
        EXPECT_NEAR(thickness.installedCost.value_or(-1), row.installed, 0.002);
        ASSERT_TRUE(thickness.money);
        EXPECT_NEAR(thickness.money->presentWorth, row.worth, 0.02);
        EXPECT_NEAR(thickness.money->totalSavings, row.yearly, 0.002);
        EXPECT_NEAR(thickness.money->reductions.at(0), row.carbonDioxide, 0.05);
    }
    ASSERT_NE(step.Economic(), nullptr);
    EXPECT_EQ(step.Economic()->nominal, 2.5F);
    int turns = 0;
    const ThicknessResult* before = nullptr;
    bool rising = false;
    for (const ThicknessResult& row : step.rows) {
        if (row.curve) {
            const bool nowRising = before != nullptr && row.curve->Total() > before->curve->Total();
            turns += nowRising != rising ? 1 : 0;
            rising = nowRising;
            before = &row;
        }
    }
    EXPECT_EQ(turns, 1) << "the total cost falls, then rises";
}

TEST_F(Economics, AnnualCostIsThatOfTheResultsGrid) {
    ASSERT_TRUE(Run(steamLine).done);
    application.CurrentJob()[Field::InsulationThicknessCalculationType] = "Heat Loss Per Year";
    const CalculationResult calculated = application.Calculate();
    ASSERT_TRUE(calculated.HasAnswer());
    for (const SolvedRow& solved : calculated.solved) {
        const auto& row = At(First(), solved.nominal.value_or(0));
        EXPECT_NEAR(row.heatFlow, solved.unitHeatFlow, 1e-5 * solved.unitHeatFlow);
        EXPECT_NEAR(row.annualCost, std::abs(solved.comparedFlow) * 8320 / 0.8 * 4.53 / 1000 / 1026,
                    1e-5 * row.annualCost);
    }
}

TEST_F(Economics, IsTheSameInBothUnitSystems) {
    const Sets sets = With(steamLine, {{"PaybackReferenceThickness", "1"}, {"InvestmentRate", "20000"}});
    ASSERT_TRUE(Run(sets).complete);
    const TemperatureResult english = First();
    ASSERT_TRUE(Run(sets, {}, Units::si).complete);
    const TemperatureResult& si = First();
    EXPECT_EQ(english.reference, 2U);
    EXPECT_EQ(si.reference, 2U);
    EXPECT_EQ(english.economic, si.economic);
    for (std::size_t i = 3; i < si.rows.size(); ++i) {
        EXPECT_NEAR(si.rows[i].money->totalSavings, english.rows[i].money->totalSavings, 2e-3);
        EXPECT_NEAR(*si.rows[i].installedCost, *english.rows[i].installedCost, 2e-3);
    }
}

TEST_F(Economics, ReferencesAsChosen) {
    ASSERT_TRUE(Run(With(steamLine, {{"PaybackReferenceThickness", "1.5"}})).complete);
    EXPECT_FALSE(At(First(), 1.5F).money) << "not above the reference";
    EXPECT_FALSE(At(First(), 1.0F).money);
    EXPECT_NEAR(At(First(), 3.0F).money->savedFlow, 123.37 - 74.29, 0.02);
    // A retrofit: the surface as it is has 1.5 in already, and new insulation comes on top.
    ASSERT_TRUE(
        Run(With(steamLine, {{"NewApplication", "False"}, {"ReportExistingInsulationThickness", "1.5"}}))
            .complete);
    EXPECT_NEAR(First().rows.front().heatFlow, 123.37, 0.02);
    EXPECT_EQ(First().rows.front().installedCost, 0.0F);
    EXPECT_LT(At(First(), 1.5F).heatFlow, 85) << "about as 3 in";
    EXPECT_GT(At(First(), 1.5F).heatFlow, 65);
    EXPECT_NEAR(At(First(), 1.5F).money->savedFlow, 123.37 - At(First(), 1.5F).heatFlow, 0.02);
}

TEST_F(Economics, ColdSurfacesStayDry) {
    // Dew point of air at 75 degF and 85 %: 70.2 degF (psychrometric chart).
    const auto result = Run(With(coldLine, {{"ChillerRelativeHumidity", "85"}}));
    ASSERT_TRUE(result.complete) << AllFindings(result);
    const TemperatureResult& step = First();
    ASSERT_TRUE(step.firstDry && step.economic);
    for (std::size_t i = 0; i < step.rows.size(); ++i) {
        EXPECT_EQ(step.rows[i].wet, step.rows[i].surfaceTemp < 70.2F) << step.rows[i].nominal;
    }
    EXPECT_EQ(step.rows[*step.firstDry].nominal, 1.5F);
    EXPECT_EQ(step.Economic()->nominal, 1.5F) << "1 in would save more money and drip";
    EXPECT_GT(At(step, 1.0F).money->totalSavings, step.Economic()->money->totalSavings);
    // Chiller: cost of the gain by the coefficient of performance.
    EXPECT_NEAR(step.Economic()->annualCost, -step.Economic()->heatFlow * 8320 / 4 * 0.0806 / 3412.87, 1e-4);
    // The wet bulb that belongs to 85 %, where no humidity is given (75 degF and 71.6 degF on the chart).
    ASSERT_TRUE(
        Run(With(coldLine, {{"ChillerRelativeHumidity", ""}, {"ChillerWetBulbTemperature", "71.6"}})).done);
    EXPECT_NEAR(application.Report().Inputs.dewPoint.value_or(0), 70.2, 0.4);
}

TEST_F(Economics, BadInputsGetAMessageOrARightNumber) {
    const struct {
        Sets sets;
        const char* finding; ///< empty: none is expected
        bool done, complete;
    } rows[] = {
        {{{"FEA", "False"}, {"PreviousCostData", "True"}},
         "no installed costs of an earlier run",
         true,
         false},
        {{{"ReportHeatingValue", "0"}}, "Heating Value: there is no cost of heat", false, false},
        {{{"ReportFuel", "Electricity"}, {"ReportHeatingValue", "0"}}, "", true, true},
        {{{"ReportEfficiency", "0"}}, "Conversion efficiency: a value above 0 is needed", false, false},
        {{{"ReportFuel", "Peat"}}, "\"Peat\" is not in the catalogue", false, false},
        {{{"PlantDepreciationPeriod", "0"}, {"InvestmentRate", "20000"}}, "", true, true},
        {{{"NewInsulationDepreciationPeriod", "0"}}, "outside 1 to 100 yr", false, false},
        {{{"TaxRate", "100"}}, "Tax rate: 100 % is outside", false, false},
        {{{"InterestRate", "120"}}, "Interest rate: 120 % is outside", false, false},
        {{{"InterestRate", "-5"}}, "A negative interest rate counts as 0", true, true},
        {{{"ReportAnnualInflationRate", "-5"}}, "", true, true},
        {{{"InterestRate", "8,5"}}, "is not a number", false, false},
        {{{"TaxRate", ""}}, "a value is needed", false, false},
        {{{"PaybackReferenceThickness", "1.2"}}, "not one of the nominal thicknesses", false, false},
        {{{"PaybackReferenceThickness", "0.5"}},
         "Pipe 6 in: The reference thickness is not made",
         true,
         false},
        {{{"PaybackReferenceThickness", "10"}}, "No thickness above the reference", true, false},
        {{{"ReportInsulationMaterial", "Aerogel Blanket 1200 F"}},
         "for type OTHER insulation material",
         true,
         false},
        {{{"FEA", "False"}}, "no source of installed costs", false, false},
        {{{"FEA", "False"}, {"UserSuppliedCostData", "True"}}, "Default.costs.csv", true, false},
        {{{"HotSurface", "yes"}}, "neither \"True\" nor \"False\"", false, false},
        {{{"SurfaceGeometry", "Vertical Tank"}}, "not among the pipe sizes and flat surfaces", false, false},
        {{{"ReportInstallationComplexity", "Awful"}}, "is no installation complexity", false, false},
        {{{"ReportRegionalProductivity", "Atlantis"}}, "is no region", false, false},
        {{{"AnnualOperation", "0"}}, "", true, true},
        {{{"ReportTemperatureIncrement", "-200"}}, "outside -459", false, false},
        {{{"ReportStartingTemperature", "75"}, {"ReportTemperatureIncrement", "0"}},
         "above that of the air",
         true,
         true},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.sets.front().first + "=" + row.sets.front().second);
        const auto result = Run(row.sets);
        EXPECT_EQ(result.done, row.done) << AllFindings(result);
        EXPECT_EQ(result.complete, row.complete) << AllFindings(result);
        EXPECT_THAT(AllFindings(result), HasSubstr(row.finding));
        EXPECT_EQ(row.finding[0] == '\0', result.findings.empty()) << AllFindings(result);
    }
    EconomicsRequest nothing;
    nothing.choice.items.emplace();
    EXPECT_THAT(AllFindings(Run({}, nothing)), HasSubstr("no size or surface is chosen"));
}

TEST_F(Economics, NoTableHoldsWhatIsNoNumber) {
    EconomicsRequest everything;
    everything.choice.items = AllItems();
    for (const Sets& sets :
         {Sets{}, coldLine,
          Sets{{"InterestRate", "-50"},
               {"ReportAnnualInflationRate", "99"},
               {"NewInsulationDepreciationPeriod", "100"},
               {"InvestmentRate", "1000000000"}},
          Sets{{"ReportFuelCost", "1000000000"}, {"ReportEfficiency", "0.001"}, {"TaxRate", "99"}},
          Sets{{"AnnualOperation", "0"},
               {"ReportFuelCost", "0"},
               {"InterestRate", "0"},
               {"ReportAnnualInflationRate", "0"}}}) {
        const auto result = Run(sets, everything);
        if (!result.done) {
            EXPECT_FALSE(result.findings.empty());
            continue;
        }
        for (const SurfaceResult& surface : Analysis().surfaces) {
            for (const TemperatureResult& step : surface.temperatures) {
                for (const ThicknessResult& row : step.rows) {
                    double sum = double{row.heatFlow} + row.surfaceTemp + row.annualCost;
                    sum += row.curve ? row.curve->Total() : 0.0;
                    if (row.money) {
                        sum += row.money->payback.years + row.money->cellValue + row.money->presentWorth +
                               row.money->totalSavings + row.money->reductions.at(0);
                        EXPECT_GE(row.money->payback.years, 0.0F);
                    }
                    EXPECT_TRUE(std::isfinite(sum))
                        << surface.name << ' ' << step.temperature << ' ' << row.nominal;
                }
            }
        }
    }
}

TEST_F(Economics, TakesCostsFromAFileAndFromTheLastRun) {
    const test::TemporaryFolder folder;
    const Sets previous = With(steamLine, {{"FEA", "False"}, {"PreviousCostData", "True"}});
    ASSERT_TRUE(Run(steamLine).complete);
    SaveCustomCosts(folder / "Job.costs.csv", application.Report().CostData());
    const double estimated = *At(First(), 2.0F).installedCost;
    ASSERT_TRUE(Run(previous).complete) << "the estimate is still there";
    EXPECT_EQ(*At(First(), 2.0F).installedCost, estimated);

    CCostData costs;
    ASSERT_FALSE(LoadCustomCosts(folder / "Job.costs.csv", costs));
    costs.GetCostData(12, 4).InstalledCost = 33.25F; // 6 in pipe, 2 in
    SaveCustomCosts(folder / "Job.costs.csv", costs);
    OpenAsFiled(With(steamLine, {{"FEA", "False"}, {"UserSuppliedCostData", "True"}}));
    application.JobPath = folder / "Job.kal";
    const auto result = RunEconomics(application, {});
    ASSERT_TRUE(result.complete) << AllFindings(result);
    EXPECT_EQ(*At(First(), 2.0F).installedCost, 33.25F);
    EXPECT_TRUE(result.hasCosts);

    test::Spill(folder / "Job.costs.csv", "0.5,1\n1,nan\n");
    EXPECT_FALSE(RunEconomics(application, {}).complete);
    EXPECT_FALSE(First().economic);
}

TEST_F(Economics, TellsItsProgressAndCanBeCancelled) {
    EconomicsRequest request;
    request.choice.items = std::vector<int>{6, 12, 27};
    std::vector<int> told;
    request.progress = [&](int done, int count) {
        EXPECT_EQ(count, 3);
        told.push_back(done);
        return true;
    };
    EXPECT_TRUE(Run({}, request).complete);
    EXPECT_THAT(told, ElementsAre(0, 1, 2, 3));
    ASSERT_EQ(Analysis().surfaces.size(), 3U);
    EXPECT_EQ(Analysis().surfaces[1].temperatures.size(), 6U);
    EXPECT_EQ(Analysis().surfaces[2].name, "Vertical Flat");
    // Flat, 2 in: 1.71 x 1 + 0.93 x 38.35 x 0.012 x 9.42
    EXPECT_NEAR(*At(Analysis().surfaces[2].temperatures[0], 2.0F).installedCost, 5.7416, 0.0002);
    request.progress = [](int done, int) { return done < 1; };
    const auto result = Run({}, request);
    EXPECT_TRUE(result.cancelled);
    EXPECT_FALSE(result.done);
    EXPECT_FALSE(application.Report().Analysis());
}

TEST_F(Economics, ItemsByPosition) {
    const struct {
        const char* text;
        std::vector<int> positions;
        bool good;
    } rows[] = {
        {"6,12-15,27", {6, 12, 13, 14, 15, 27}, true},
        {" 29 , 1 , 1 ", {1, 29}, true},
        {"", {}, true},
        {"0", {}, false},
        {"30", {}, false},
        {"3-", {}, false},
        {"-3", {}, false},
        {"5-4", {}, false},
        {"1,,2", {}, false},
        {"1.5", {}, false},
        {"nan", {}, false},
        {"1e9", {}, false},
        {"pipe", {}, false},
    };
    for (const auto& row : rows) {
        const ItemSelection selection = ParseItems(row.text);
        EXPECT_EQ(selection.problem.empty(), row.good) << row.text;
        EXPECT_EQ(selection.positions, row.positions) << row.text;
    }
    EXPECT_EQ(ParseItems("all").positions.size(), 29U);
    const struct {
        const char* geometry;
        const char* size;
        std::optional<int> position;
    } own[] = {{"Horizontal Pipe", "6", 12},           {"Vertical Pipe", "36", 26},
               {"Bottom of Vessel or Duct", "", 29},   {"Horizontal Tube", "1", std::nullopt},
               {"Horizontal Pipe", "7", std::nullopt}, {"Cube", "6", std::nullopt}};
    for (const auto& row : own) {
        OpenAsFiled({{"SurfaceGeometry", row.geometry}, {"PipeSize", row.size}});
        EXPECT_EQ(OwnItem(application.CurrentJob(), application.Records()), row.position) << row.geometry;
    }
}

} // namespace
} // namespace kaloria
