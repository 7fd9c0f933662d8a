// SPDX-License-Identifier: GPL-3.0-or-later
// Whole calculations, from a job's texts to the grid, on the reference data that ships.
#include "application/job_edit.h"
#include "application/units_switch.h"
#include "engine/number_text.h"
#include "tests/support/job_fixture.h"

#include <gtest/gtest.h>

#include <cmath>
#include <gmock/gmock.h>

namespace kaloria {
namespace {

using test::Sets;
using ::testing::HasSubstr;

class Calculate : public test::JobFixture {
protected:
    static std::string Headings(const CalculationResult& result) {
        std::string text;
        for (const ResultColumn& column : result.grid.columns) {
            text += column.name + "/" + column.unit + ";";
        }
        return text;
    }
};

/// Figures of the reference model for the steam line of the window's drawing.
TEST_F(Calculate, TheSteamLineOfTheDrawing) {
    const auto result = Run({{"MaxSurfaceTemp", "120"}});
    const struct {
        std::size_t row;
        const char* cells[4];
    } drawing[] = {{0, {"Bare", "349.3", "1572.74", ""}},  {1, {"0.5", "162.5", "269.43", "82.87"}},
                   {2, {"1", "126.1", "165.91", "89.45"}}, {3, {"1.5", "110.9", "123.37", "92.16"}},
                   {5, {"2.5", "96.8", "84.00", "94.66"}}, {10, {"5", "86.0", "52.76", "96.65"}}};
    for (const auto& row : drawing) {
        EXPECT_EQ(result.grid.rows[row.row].label, row.cells[0]);
        for (std::size_t i = 0; i < 3; ++i) {
            EXPECT_EQ(result.grid.rows[row.row].cells[i].text, row.cells[i + 1]) << row.cells[0];
        }
    }
    EXPECT_EQ(result.design.text, "1.5 in.");
    EXPECT_TRUE(result.grid.rows[3].isDesign);
    EXPECT_EQ(result.title, "Personnel Protection Report");
    EXPECT_EQ(result.grid.rows.size(), 19U);
    EXPECT_TRUE(result.findings.empty()) << AllFindings(result.findings);
}

TEST_F(Calculate, HeadingsFollowTypeGeometryServiceAndUnits) {
    const struct {
        Sets sets;
        Units units;
        const char* headings;
    } rows[] = {
        {{},
         Units::english,
         " Variable Insulation/Thickness;Surface Temp/(°F);Heat Loss/(BTU/hr/ft);Efficiency/(%);"},
        {{{"ProcessTemp", "40"}, {"SurfaceGeometry", "Vertical Tank"}, {"Insulation.1", "26"}},
         Units::si,
         " Variable Insulation/Thickness;Surface Temp/(°C);Heat Gain/(W/m^2);Efficiency/(%);"},
        {{{"InsulationThicknessCalculationType", "Interface Temperatures"}, {"Insulation.1.Thickness", "2"}},
         Units::english,
         "Insulation/Layers;Surface Temp/(°F);Heat Loss/(BTU/hr/ft^2);Efficiency/(%);Thickness/(in);"
         "Interface Temp/(°F);k/(BTU*in/hr*sf*°F);"},
        {{{"InsulationThicknessCalculationType", "Interface Temperatures"}, {"Insulation.1.Thickness", "2"}},
         Units::si,
         "Insulation/Layers;Surface Temp/(°C);Heat Loss/(W/m^2);Efficiency/(%);Thickness/(mm);"
         "Interface Temp/(°C);k/(W/m*°C);"},
        {{{"InsulationThicknessCalculationType", "Heat Loss Per Year"}, {"Fuel", "Purchased Steam"}},
         Units::english,
         " Variable Insulation/Thickness;Heat "
         "Loss/(BTU/ft/yr);Cost/($/ft/yr);Savings/($/ft/yr);CO2/(lb/ft/yr);"},
        {{{"InsulationThicknessCalculationType", "Heat Loss Per Year"},
          {"Fuel", "Purchased Steam"},
          {"SurfaceGeometry", "Vertical Flat"}},
         Units::si,
         " Variable Insulation/Thickness;Heat "
         "Loss/(W/m^2);Cost/($/m^2/yr);Savings/($/m^2/yr);CO2/(kg/m^2/yr);"},
        {{{"InsulationThicknessCalculationType", "Heat Loss Per Hour"},
          {"SurfaceGeometry", "Horizontal Rectangular Duct"}},
         Units::english,
         " Variable Insulation/Thickness;Surface Temp/(°F);Heat Loss/(BTU/hr/ft);Efficiency/(%);"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.headings);
        EXPECT_EQ(Headings(Run(row.sets, row.units)), row.headings);
    }
}

/// The same job in SI is the same physics: only the metric diameters and coverings differ, by their rounding.
TEST_F(Calculate, SwitchingTheUnitsDoesNotMoveTheAnswer) {
    for (const char* surface :
         {"Horizontal Pipe", "Vertical Tube", "Horizontal Rectangular Duct", "Vertical Flat"}) {
        SCOPED_TRACE(surface);
        const Sets sets{{"SurfaceGeometry", surface},
                        {"PipeSize", "2"},
                        {"InsulationThicknessCalculationType", "Heat Loss Per Year"},
                        {"Insulation.1.Thickness", "2"}};
        const auto english = Run(sets);
        const auto si = Run(sets, Units::si);
        ASSERT_EQ(si.solved.size(), english.solved.size());
        const double perUnit =
            std::string(english.grid.columns[1].unit) == "(BTU/ft/yr)" ? 3.28084 : 10.76391;
        for (std::size_t i = 0; i < si.solved.size(); ++i) {
            EXPECT_NEAR(si.solved[i].surfaceTemp, english.solved[i].surfaceTemp, 0.1);
            const double cost = *english.grid.rows[i].cells[1].value * perUnit;
            EXPECT_NEAR(*si.grid.rows[i].cells[1].value, cost, 0.01 * cost);
        }
    }
}

TEST_F(Calculate, CostAndEmissionsByHand) {
    const auto result = Run({{"InsulationThicknessCalculationType", "Heat Loss Per Year"},
                             {"Fuel", "No. 2 Fuel Oil"},
                             {"HeatContent", "140000"},
                             {"FuelCost", "2.80"},
                             {"ConversionEfficiency", "75"},
                             {"HoursPerYear", "4000"},
                             {"Insulation.1.Thickness", "2"}});
    // 2.80 $/gal over 140 000 Btu/gal is 20 $ per million Btu; 4000 h at 75 % burn 5333.3 Btu per Btu/h of
    // loss.
    for (std::size_t i = 0; i < 2; ++i) {
        const double flow = result.solved[i].unitHeatFlow;
        const auto& cells = result.grid.rows[i].cells;
        EXPECT_NEAR(*cells[0].value, flow * 4000, 1e-6 * flow * 4000);
        EXPECT_NEAR(*cells[1].value, flow * 5333.3333 * 20e-6, 1e-5 * flow);
        EXPECT_NEAR(*cells[3].value, flow * 5333.3333e-6 * 163.05, 1e-4 * flow); // CO2
    }
    const auto& rows = result.grid.rows;
    EXPECT_FALSE(rows[0].cells[2].value); // the bare row saves nothing
    EXPECT_NEAR(*rows[1].cells[2].value, *rows[0].cells[1].value - *rows[1].cells[1].value, 1e-9);
}

TEST_F(Calculate, TheTablesDiameterIsUsedWhereItIsTrue) {
    const auto diameter = [&](const Sets& sets) { return Run(sets).solved.back().insulationOD; };
    const Sets fixed{{"Insulation.1.Thickness", "2"}};
    EXPECT_FLOAT_EQ(diameter(fixed), 10.75F); // NPS 6 with 2 in: ASTM C585
    EXPECT_FLOAT_EQ(diameter({{"Insulation.1.Thickness", "2.2"}}), -1);
    EXPECT_FLOAT_EQ(diameter({{"Insulation.1.Thickness", "2"}, {"Insulation.1", "7"}}), -1); // duct wrap
    EXPECT_FLOAT_EQ(
        diameter({{"Insulation.1.Thickness", "2"}, {"Insulation.2", "9"}, {"Insulation.2.Thickness", "1"}}),
        -1);
    EXPECT_FLOAT_EQ(diameter({{"Insulation.1.Thickness", "2"}, {"SurfaceGeometry", "Vertical Flat"}}), -1);
    const auto wrap = Run({{"Insulation.1", "7"}, {"Insulation.1.Thickness", "2"}, {"SurfaceGeometry", "5"}});
    EXPECT_FLOAT_EQ(wrap.solved[1].layers[0].thickness, 1.5F);
}

TEST_F(Calculate, AHorizontalDuctShowsTheFaceThatGoverns) {
    for (const char* process : {"350", "20"}) {
        const auto result = Run({{"SurfaceGeometry", "8"}, {"ProcessTemp", process}, {"Insulation.1", "9"}});
        const SolvedRow& row = result.solved[2];
        ASSERT_EQ(row.faceSurfaceTemps.size(), 3U);
        const auto [low, high] =
            std::minmax_element(row.faceSurfaceTemps.begin(), row.faceSurfaceTemps.end());
        EXPECT_GT(*high - *low, 0.1F);
        EXPECT_EQ(row.surfaceTemp, std::string(process) == "350" ? *high : *low);
        EXPECT_EQ(row.layers[0].outsideTemp, row.surfaceTemp);
    }
}

TEST_F(Calculate, GoalsAreMetInclusivelyAndOnlyByWhatTheyMean) {
    // The limit set to a row's own value is met by that row.
    const auto rows = Run({});
    const std::string temp = FormatNumber(rows.solved[3].surfaceTemp, NumberFormat::shortest);
    EXPECT_EQ(Run({{"MaxSurfaceTemp", temp.c_str()}}).design.text, "1.5 in.");
    const std::string flux = FormatNumber(Single(rows.solved[4].meanFlux), NumberFormat::shortest);
    const Sets limit{{"InsulationThicknessCalculationType", "2"}, {"HeatFlowLimit", flux.c_str()}};
    const auto limited = Run(limit);
    // Single-precision text of the flux may lie a hair on either side.
    EXPECT_TRUE(limited.design.text == "2 in." || limited.design.text == "2.5 in.") << limited.design.text;
    // Flux at the covering's outside, not at the pipe's: flow over pi times the diameter of the table.
    EXPECT_NEAR(rows.solved[4].meanFlux, rows.solved[4].unitHeatFlow / (3.14159 * 10.75 / 12), 0.01);

    const Sets moist{{"InsulationThicknessCalculationType", "Condensation Control"},
                     {"ProcessTemp", "40"},
                     {"AmbientTemp", "80"},
                     {"Insulation.1", "26"}};
    auto dry = moist;
    dry.emplace_back("DewPoint", "-90");
    EXPECT_EQ(Run(dry).design.text, "0.5 in.");
    auto hot = moist;
    hot[1].second = "200";
    hot.emplace_back("DewPoint", "60");
    EXPECT_EQ(Run(hot).design.text, "N/A");
    EXPECT_THAT(AllFindings(Run(hot).findings), HasSubstr("no condensation to control"));
}

TEST_F(Calculate, MoistureInputsAgreeWithTheChart) {
    const Sets moist{{"InsulationThicknessCalculationType", "Condensation Control"},
                     {"ProcessTemp", "40"},
                     {"AmbientTemp", "80"},
                     {"Insulation.1", "26"}};
    auto sets = moist;
    sets.emplace_back("RelativeHumidity", "70");
    const auto byHumidity = Run(sets);
    ASSERT_TRUE(byHumidity.condensation && byHumidity.condensation->psychrometric);
    EXPECT_NEAR(*byHumidity.condensation->psychrometric, 69.3, 0.1); // published: 80 degF, 70 %
    EXPECT_GT(byHumidity.condensation->dewPoint, *byHumidity.condensation->psychrometric);
    sets = moist;
    sets.emplace_back("WetBulbTemperature", "72.3"); // chart: 80 degF, 69.5 %
    const auto byWetBulb = Run(sets);
    EXPECT_NEAR(byWetBulb.condensation->dewPoint, 69.2, 0.4);
    EXPECT_FALSE(byWetBulb.condensation->psychrometric);
}

TEST_F(Calculate, SaysWhatStandsInTheWayAndWhereCareIsDue) {
    const struct {
        const char* why;
        Sets sets;
        bool done;
        const char* finding;
    } rows[] = {
        {"unknown size", {{"PipeSize", "7"}}, false, "PipeSize: NPS Pipe Size: \"7\" is not in the list"},
        {"empty number", {{"ProcessTemp", ""}}, false, "ProcessTemp: Process temp.: a value is needed."},
        {"fixed layer without thickness",
         {{"Insulation.2", "9"}},
         false,
         "Insulation.2: Layer 2: a thickness is needed"},
        {"two layers vary",
         {{"Insulation.2", "9"}, {"Insulation.2.Locked", "Vary"}},
         false,
         "since another layer varies"},
        {"thickness table on a flat",
         {{"SurfaceGeometry", "Vertical Flat"}, {"InsulationThicknessCalculationType", "6"}},
         false,
         "can only be created for pipes and tubes"},
        {"thickness not made", {{"Insulation.1.Thickness", "2.2"}}, true, "has no covering of 2.2 in"},
        {"too hot for the layer",
         {{"ProcessTemp", "1500"}},
         true,
         "(Mineral Wool Pipe Insulation 1200 F) reaches 14"},
        {"too hot for the inner of two, not for the outer",
         {{"ProcessTemp", "900"},
          {"Insulation.1", "21"},
          {"Insulation.1.Thickness", "1"},
          {"Insulation.2", "15"},
          {"Insulation.2.Thickness", "2"}},
         true,
         "Layer 1 (Polyisocyanurate Foam) reaches 8"},
        {"too cold for the layer", {{"ProcessTemp", "-200"}}, true, "below its service limit of 0.0 °F"},
        {"no efficiency",
         {{"InsulationThicknessCalculationType", "4"}, {"ConversionEfficiency", "0"}},
         true,
         "the conversion efficiency is 0"},
        {"no heating value",
         {{"InsulationThicknessCalculationType", "4"}, {"HeatContent", "0"}},
         true,
         "the heating value is 0"},
        {"wet bulb above dry bulb",
         {{"InsulationThicknessCalculationType", "1"}, {"ProcessTemp", "40"}, {"WetBulbTemperature", "90"}},
         true,
         "wet-bulb temperature is above the ambient temperature"},
        {"humidity of nothing",
         {{"InsulationThicknessCalculationType", "1"}, {"ProcessTemp", "40"}, {"RelativeHumidity", "0"}},
         true,
         "below 1 % is reckoned as 1 %"},
        {"goal out of reach",
         {{"MaxSurfaceTemp", "76"}},
         true,
         "No thickness that was calculated meets the goal."},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.why);
        const auto result = Run(row.sets);
        EXPECT_EQ(result.done, row.done);
        EXPECT_THAT(AllFindings(result.findings), HasSubstr(row.finding));
    }
    // Inputs that the calculation does not use may hold anything.
    EXPECT_TRUE(Run({{"DuctWidth", ""}, {"HeatFlowLimit", ""}, {"FuelCost", ""}, {"DewPoint", ""}}).done);
}

TEST_F(Calculate, ARowWithoutASolutionShowsADash) {
    // A user's material whose line falls below zero: thin layers run hot and have no answer.
    CInsulation& steep = application.Insulations().emplace_back();
    steep.ID = 900;
    steep.Name = "Steep";
    steep.A = 0.5F;
    steep.B = -0.003F;
    const auto result = Run({{"Insulation.1", "900"}, {"InsulationThicknessCalculationType", "5"}});
    ASSERT_TRUE(result.done);
    EXPECT_FALSE(result.HasAnswer());
    EXPECT_FALSE(result.grid.rows[1].cells[0].value);
    EXPECT_EQ(result.grid.rows[1].cells[0].text, "-");
    EXPECT_TRUE(result.grid.rows[0].cells[0].value); // the bare row stands
    EXPECT_THAT(AllFindings(result.findings),
                HasSubstr("No result for the thickness 0.5 in: the conductivity of layer 1 (Steep)"));
}

TEST_F(Calculate, AMissingMaterialIsNamedAndNotDropped) {
    ASSERT_TRUE(application.OpenJob());
    application.CurrentJob().layers[0].material = {4711, "", false};
    application.NameMaterials(application.CurrentJob());
    EXPECT_TRUE(application.CurrentJob().layers[0].material.missing);
    const auto result = application.Calculate();
    EXPECT_FALSE(result.done);
    EXPECT_THAT(AllFindings(result.findings),
                HasSubstr("Layer 1: its material (ID 4711) is not in the catalogue any more."));
}

TEST_F(Calculate, ARetrofitStartsFromLayerZero) {
    EXPECT_EQ(Run({{"NewApplication", "False"}}).grid.rows[0].label, "Layer 0");
}

TEST_F(Calculate, SetJobFieldRefusesWithoutChangingAnything) {
    ASSERT_TRUE(application.OpenJob());
    const struct {
        const char* field;
        const char* value;
        const char* problem;
    } rows[] = {
        {"Proces", "1", "There is no input"},
        {"ProcessTemp", "12,5", "is not a number"},
        {"ProcessTemp", "9999", "is outside -459"},
        {"WindSpeed", "-1", "is outside 0"},
        {"Jacket", "Gold", "is no jacket material"},
        {"BaseMetal", "", "is no base metal"},
        {"Fuel", "Peat", "is no fuel"},
        {"Units", "Metric", "is neither \"English\" nor \"SI\""},
        {"HotSurface", "yes", "is neither"},
        {"Insulation.7", "9", "more than five layers"},
        {"Insulation.3", "9", "There is no layer 3"},
        {"Insulation", "", "at least one insulation layer"},
        {"Insulation.1.Locked", "Maybe", "is neither"},
        {"Insulation.1.Thickness", "-2", "is no thickness"},
        {"Insulation.1.Colour", "red", "has no input"},
    };
    const CalculationResult before = application.Calculate();
    for (const auto& row : rows) {
        SCOPED_TRACE(row.field);
        const auto problem =
            SetJobField(application.CurrentJob(), application.Records(), row.field, row.value);
        ASSERT_TRUE(problem);
        EXPECT_THAT(*problem, HasSubstr(row.problem));
    }
    EXPECT_EQ(application.Calculate().grid.rows[5].cells[1].text, before.grid.rows[5].cells[1].text);
}

TEST_F(Calculate, UnitsGoThereAndBackWithinTheDisplayedDigits) {
    ASSERT_TRUE(application.OpenJob());
    Job& job = application.CurrentJob();
    ASSERT_FALSE(SetJobField(job, application.Records(), "Insulation.1.Thickness", "2.5"));
    job[Field::DewPoint] = "not yet known";
    job[Field::DuctWidth] = "";
    const Job before = job;
    UnitsChange(job, application.Records(), Units::si, SwitchPrecision::display);
    EXPECT_EQ(job[Field::ProcessTemp], "176.7");
    EXPECT_EQ(job[Field::ReportTemperatureIncrement], "55.6"); // a difference has no offset
    EXPECT_EQ(job[Field::PipeSize], "150");
    EXPECT_EQ(job.layers[0].thickness, "65"); // the nominal size of that position, not 63.5
    EXPECT_EQ(job[Field::FuelCost], "159.98");
    EXPECT_EQ(job[Field::HeatContent], "3.826E+07");
    EXPECT_EQ(job[Field::DewPoint], "not yet known");
    EXPECT_EQ(job[Field::DuctWidth], "");
    UnitsChange(job, application.Records(), Units::english, SwitchPrecision::display);
    for (const JobField& field : JobFields()) {
        const auto was = ParseNumber(before[field.id]);
        if (field.kind == FieldKind::number && was) {
            const auto is = ParseNumber(job[field.id]);
            ASSERT_TRUE(is) << field.element;
            EXPECT_NEAR(*is, *was, 0.051 + 2e-3 * std::abs(*was)) << field.element;
        }
    }
    EXPECT_EQ(job[Field::PipeSize], "6");
    EXPECT_EQ(job.layers[0].thickness, "2.5");
}

} // namespace
} // namespace kaloria
