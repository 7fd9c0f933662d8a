// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/numeric_fault.h"
#include "reports/economic_analysis.h"
#include "reports/economic_thickness.h"
#include "reports/emission_reduction.h"
#include "reports/present_worth.h"
#include "tests/support/case_files.h"

#include <gtest/gtest.h>

#include <cmath>

namespace kaloria {
namespace {

using nlohmann::json;
using testing::CasesOf;
using testing::Near;

TEST(SimplePayback, AgreesWithTheReferenceModel) {
    const auto cases = CasesOf("payback-cases.jsonl");
    ASSERT_EQ(cases.size(), 12U);
    for (const json& c : cases) {
        SCOPED_TRACE(c.dump());
        const json& in = c.at("inputs");
        const auto of = [&](const char* name) { return in.at(name).get<float>(); };
        EconomicFigures e;
        e.unitFuelCost = of("UnitFuelCost");
        e.hoursPerYear = of("HoursPerYear");
        e.efficiency = of("Efficiency");
        e.taxRate = of("TaxFraction");
        e.plantMaintenance = of("PlantMaintenanceFraction");
        e.insulationMaintenance = of("InsulationMaintenanceFraction");
        e.capacityCost = of("CapacityCostPerMillion") / 1000.0F / 1000.0F;
        e.plantYears = of("PlantYears");
        e.insulationYears = of("InsulationYears");
        e.hotService = in.at("ServiceFlag").get<bool>();
        e.waterCost = of("r");
        e.condenserFactor = of("s");
        e.discountRate = of("DiscountFraction");
        e.fuelInflation = of("InflationFraction");
        const auto terms = TermsOf({of("HeatFlowReference"), of("CostReference")},
                                   {of("HeatFlowCandidate"), of("CostCandidate")}, e);
        const json& expected = c.at("expected");
        EXPECT_EQ(e.plantYears, expected.at("PlantYears").get<float>());
        EXPECT_TRUE(Near(SimplePayback(terms), expected.at("SimplePayback").get<double>(), 1e-5));
        const Payback payback = PaybackOf(terms, e);
        if (expected.at("Result").is_null()) {
            EXPECT_EQ(payback.kind, Payback::Kind::discounted);
        } else {
            EXPECT_EQ(payback.kind, Payback::Kind::simple);
            EXPECT_TRUE(Near(payback.years, expected.at("Result").get<double>(), 1e-5));
        }
    }
}

TEST(EmissionReduction, AgreesWithTheReferenceModel) {
    const auto cases = CasesOf("pollutant-reduction-cases.jsonl");
    ASSERT_GE(cases.size(), 6U);
    for (const json& c : cases) {
        SCOPED_TRACE(c.dump());
        const auto of = [&](const char* name) { return c.at("inputs").at(name).get<float>(); };
        const auto call = [&] {
            return EmissionReduction(of("dQ"), of("HoursPerYear"), of("Efficiency"), of("Amount"));
        };
        if (c.at("expected").at("Fault").get<bool>()) {
            EXPECT_THROW((void)call(), NumericFault);
        } else {
            EXPECT_TRUE(Near(call(), c.at("expected").at("Reduction").get<double>(), 1e-5));
        }
    }
}

/// A series is what its payments are worth, one by one.
TEST(PresentWorth, IsTheSumOfThePayments) {
    using namespace present_worth;
    for (const double d : {0.0, 0.00005, 0.01, 0.08, 0.5, 0.99}) {
        for (const double g : {-0.3, 0.0, 0.03, 0.08, 0.0800005, 0.99}) {
            double uniform = 0;
            double escalating = 0;
            for (int year = 1; year <= 30; ++year) {
                uniform += std::pow(1 + d, -year);
                escalating += std::pow(1 + g, year - 1) * std::pow(1 + d, -year);
                EXPECT_TRUE(Near(UniformSeries(year, d), uniform, d < 1e-4 ? 1e-3 : 1e-12))
                    << d << ' ' << year;
                EXPECT_TRUE(
                    Near(EscalatingSeries(year, d, g), escalating, std::abs(d - g) < 1e-6 ? 1e-5 : 1e-9))
                    << d << ' ' << g << ' ' << year;
            }
        }
    }
    EXPECT_EQ(UniformSeries(12.5, -0.05), 12.5); // by rule, not by the sum
    EXPECT_THROW((void)EscalatingSeries(3, -1.0, 0.03), NumericFault);
    EXPECT_THROW((void)EscalatingSeries(1e6, -0.5, 0.99), NumericFault);
}

/// The figures of docs/methods-economics.md.
EconomicFigures SteamLine() {
    EconomicFigures e;
    e.unitFuelCost = 4.415204678e-6F; // natural gas, 4.53 $/Mcf, 1026 Btu/cf
    e.hoursPerYear = 8320;
    e.efficiency = 80;
    e.taxRate = 0.25F;
    e.plantMaintenance = 0.01F;
    e.insulationMaintenance = 0.02F;
    e.capacityCost = 0.02F;
    e.plantYears = 20;
    e.insulationYears = 15;
    e.discountRate = 0.08F;
    e.fuelInflation = 0.03F;
    return e;
}

EconomicFigures ColdLine() {
    EconomicFigures e = SteamLine();
    e.unitFuelCost = 2.361648703e-5F; // electricity, 0.0806 $/kWh
    e.efficiency = 400;               // coefficient of performance 4
    e.capacityCost = 0.01F;
    e.hotService = false;
    e.waterCost = 0.004F;
    e.condenserFactor = 2.3F;
    e.waterInflation = 0.05F;
    return e;
}

TEST(WorkedExample, CarriedByHandThroughEveryStep) {
    const struct {
        const char* what;
        EconomicFigures figures;
        HeatAndCost reference, candidate;
        double plantDepreciation, fuel, maintenance, depreciation, water, capacity;
        double simple, worth, yearly, years;
        CurvePoint ofReference, ofCandidate;
    } rows[] = {
        {"6 in steam line, from 1 in to 3 in",
         SteamLine(),
         {165.91F, 13.80F},
         {74.29F, 27.90F},
         0.022905,
         3.186817,
         0.2115,
         0.235,
         0,
         1.8324,
         3.848765,
         20.170601,
         2.356522,
         4.509025,
         {1.589248, 7.207757},
         {3.213044, 3.227438}},
        {"6 in cold line, from bare to 1.5 in",
         ColdLine(),
         {-135.32F, 0},
         {-14.00F, 22.07F},
         0.015165,
         4.514334,
         0.33105,
         0.367833,
         0.580395,
         1.2132,
         4.076502,
         31.939336,
         3.731458,
         4.787933,
         {0, 6.997002},
         {2.541645, 0.723899}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        EconomicFigures e = row.figures;
        const PaybackTerms terms = TermsOf(row.reference, row.candidate, e);
        const auto expectNear = [](double value, double expected) {
            EXPECT_TRUE(Near(value, expected, 2e-6, 1e-6)) << value << " instead of " << expected;
        };
        expectNear(terms.plantDepreciation, row.plantDepreciation);
        expectNear(terms.fuel, row.fuel);
        expectNear(terms.insulationMaintenance, row.maintenance);
        expectNear(terms.insulationDepreciation, row.depreciation);
        expectNear(terms.coolingWater, row.water);
        expectNear(terms.avoidedCapacity, row.capacity);
        const Payback payback = PaybackOf(terms, e);
        EXPECT_TRUE(Near(payback.simple.value_or(-1), row.simple, 5e-6));
        EXPECT_FALSE(payback.Flag());
        EXPECT_NEAR(payback.years, row.years, 0.01);
        const double worth = NetPresentWorth(terms, e, e.insulationYears);
        EXPECT_TRUE(Near(worth, row.worth, 5e-6)) << worth;
        const LifeCost life(e);
        EXPECT_TRUE(Near(life.Yearly(worth), row.yearly, 5e-6));
        const auto reference = life.Of(row.reference.heatFlow, row.reference.installedCost);
        const auto candidate = life.Of(row.candidate.heatFlow, row.candidate.installedCost);
        EXPECT_TRUE(Near(reference.capital, row.ofReference.capital, 5e-6));
        EXPECT_TRUE(Near(reference.energy, row.ofReference.energy, 5e-6));
        EXPECT_TRUE(Near(candidate.capital, row.ofCandidate.capital, 5e-6));
        EXPECT_TRUE(Near(candidate.energy, row.ofCandidate.energy, 5e-6));
        // What the curve falls by is what the net present worth is a year.
        EXPECT_NEAR(reference.Total() - candidate.Total(), life.Yearly(worth), 1e-6);
    }
}

TEST(Payback, EndsWhereItShould) {
    using Kind = Payback::Kind;
    const auto figures = [](float d, float g) {
        EconomicFigures e;
        e.discountRate = d;
        e.fuelInflation = g;
        e.insulationYears = 10;
        return e;
    };
    const auto terms = [](double outlay, double fuel, double maintenance = 0) {
        PaybackTerms t;
        t.extraCost = outlay;
        t.fuel = fuel;
        t.insulationMaintenance = maintenance;
        return t;
    };
    const struct {
        const char* why;
        PaybackTerms terms;
        float discount, inflation;
        Kind kind;
        float years;
    } rows[] = {
        {"99.9 years stay", terms(99.9, 1), 0, 0, Kind::simple, 99.9F},
        {"100 years are 25", terms(100, 1), 0, 0, Kind::simple, 25},
        {"months are 0.1 year at least", terms(1, 1000), 0, 0, Kind::simple, 0.1F},
        {"rates of 0.01 % do not matter", terms(5, 1), 0.0001F, 0.0002F, Kind::simple, 5},
        {"inflation alone does", terms(5, 1), 0, 0.05F, Kind::discounted, 4.574F}, // 1.05^n = 1.25
        {"discount as inflation: n / (1+d)", terms(5, 1), 0.1F, 0.1F, Kind::discounted, 5.5F},
        {"upkeep eats the saving", terms(5, 1, 1), 0, 0, Kind::never, 25},
        {"not within three periods", terms(5, 0.1), 0.08F, 0.03F, Kind::never, 25},
        {"nothing to pay back", terms(0, 1), 0.08F, 0.03F, Kind::discounted, 0},
        {"nothing to pay back, no rates", terms(-5, -1), 0, 0, Kind::simple, 0.1F},
        {"nothing ever comes of it", terms(5, 0), 0.08F, 0.03F, Kind::never, 25},
        {"nothing at all", terms(0, 0), 0.08F, 0.03F, Kind::undecided, 0},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.why);
        const Payback payback = PaybackOf(row.terms, figures(row.discount, row.inflation));
        EXPECT_EQ(payback.kind, row.kind);
        EXPECT_NEAR(payback.years, row.years, 0.006);
    }
}

TEST(Payback, HasNoTermsWithoutEfficiencyOrPeriod) {
    for (const bool efficiency : {true, false}) {
        EconomicFigures e = SteamLine();
        (efficiency ? e.efficiency : e.insulationYears) = 0;
        EXPECT_THROW((void)TermsOf({100, 0}, {10, 5}, e), NumericFault);
        EXPECT_THROW(LifeCost{e}, NumericFault);
    }
    EconomicFigures e = SteamLine();
    e.plantYears = 0.5F;
    (void)TermsOf({100, 0}, {10, 5}, e);
    EXPECT_EQ(e.plantYears, 1.0F);
}

TEST(MoneyFactor, IsFormedAsWritten) {
    // ((4.415204678e-6 x 8320 / 80) x 100 x 1 x 0.01 x 0.75) + 0.02 - 0.25 + 1
    EXPECT_NEAR(MoneyFactor(SteamLine()), 0.770344386, 1e-7);
}

TEST(ResultTable, KeepsItsBoundsAndTakesDifferences) {
    ResultTable table;
    table.At(0, 5) = 10.0F;
    table.At(2, 5) = 7.0F; // nothing at 1
    table.At(18, 30) = 1.0F;
    EXPECT_THROW((void)table.At(19, 0), std::out_of_range);
    EXPECT_THROW((void)table.At(0, 31), std::out_of_range);
    EXPECT_THROW((void)table.At(-1, 0), std::out_of_range);
    table.SubtractNeighbours();
    table.Negate();
    EXPECT_FALSE(table.At(0, 5));
    EXPECT_FALSE(table.At(1, 5));
    EXPECT_EQ(table.At(2, 5), 3.0F);
    EXPECT_FALSE(table.At(18, 30));
}

TEST(Layers, ByThickness) {
    const struct {
        float nominal;
        int layers;
    } rows[] = {{0, 0}, {0.5F, 1}, {3, 1}, {3.5F, 2}, {6, 2}, {6.5F, 3}, {10, 3}};
    for (const auto& row : rows) {
        EXPECT_EQ(LayersOf(row.nominal), row.layers) << row.nominal;
    }
}

TEST(EconomicThickness, IsTheBestThatMayBeChosen) {
    // Per row: worth (none: not priced), saved flow, wet.
    struct Row {
        std::optional<double> worth;
        float saved;
        bool wet;
    };
    const struct {
        const char* why;
        bool cold;
        std::vector<Row> rows;
        EconomicOutcome outcome;
        std::optional<std::size_t> economic;
    } cases[] = {
        {"the largest worth",
         false,
         {{{}, 0, false}, {5, 1, false}, {7, 2, false}, {6, 3, false}},
         EconomicOutcome::found,
         2},
        {"an unpriced thickness is none",
         false,
         {{{}, 0, false}, {{}, 0, false}, {3, 2, false}},
         EconomicOutcome::found,
         2},
        {"all lose money",
         false,
         {{{}, 0, false}, {-5, 1, false}, {-3, 2, false}},
         EconomicOutcome::notWorthwhile,
         2},
        {"a thickness that loses more heat",
         false,
         {{{}, 0, false}, {9, -1, false}},
         EconomicOutcome::notWorthwhile,
         std::nullopt},
        {"nothing has a price",
         false,
         {{{}, 0, false}, {{}, 0, false}},
         EconomicOutcome::noPrice,
         std::nullopt},
        {"not below the first dry one",
         true,
         {{{}, 0, true}, {9, 1, true}, {7, 2, false}, {8, 3, false}},
         EconomicOutcome::found,
         3},
        {"the first dry one is not priced",
         true,
         {{{}, 0, true}, {9, 1, true}, {{}, 0, false}, {2, 3, false}},
         EconomicOutcome::found,
         3},
        {"all wet", true, {{{}, 0, true}, {9, 1, true}}, EconomicOutcome::nothingDry, std::nullopt},
        {"hot surfaces do not sweat", false, {{{}, 0, true}, {9, 1, true}}, EconomicOutcome::found, 1},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        TemperatureResult result;
        for (const Row& row : c.rows) {
            ThicknessResult& thickness = result.rows.emplace_back();
            thickness.made = true;
            thickness.wet = row.wet;
            if (row.worth) {
                thickness.money.emplace();
                thickness.money->presentWorth = *row.worth;
                thickness.money->savedFlow = row.saved;
            }
        }
        ChooseEconomicThickness(result, c.cold);
        EXPECT_EQ(result.outcome, c.outcome);
        EXPECT_EQ(result.economic, c.economic);
    }
}

} // namespace
} // namespace kaloria
