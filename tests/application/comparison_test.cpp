// SPDX-License-Identifier: GPL-3.0-or-later
// Cases side by side: which inputs are told to differ, whose figures are shown, and what they are compared
// by. The witness of a figure is the same job calculated alone.
#include "application/application.h"
#include "application/comparison_export.h"
#include "application/comparison_plots.h"
#include "application/grid_export.h"
#include "application/job_edit.h"
#include "application/units_switch.h"
#include "data/atomic_file.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/zip_file.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <gmock/gmock.h>

namespace kaloria {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::UnorderedElementsAreArray;

using Sets = std::vector<std::pair<const char*, const char*>>;

const Sets flat{{"SurfaceGeometry", "Vertical Flat"}};
const Sets yearly{{"InsulationThicknessCalculationType", "Heat Loss Per Year"}};
const Sets twoLayers{{"Insulation.1.Thickness", "2"}, {"Insulation.2", "9"}, {"Insulation.2.Locked", "Vary"}};

class ComparisonOf : public ::testing::Test {
protected:
    ComparisonOf() : application(KALORIA_RESOURCES_DIR, messages) {
        application.LoadConfigurationFile();
        application.JobPath = application.DefaultJobPath();
    }

    Catalogue& Records() { return application.Records(); }

    /// The default job with changes; in SI switched as the window does it.
    KeptCase Case(const Sets& sets, Units units = Units::english) {
        EXPECT_TRUE(application.OpenJob());
        KeptCase kept{{}, application.CurrentJob(), {}, {}};
        for (const auto& [field, value] : sets) {
            const auto problem = SetJobField(kept.job, Records(), field, value);
            EXPECT_FALSE(problem) << *problem;
        }
        kept.memory.Switch(kept.job, Records(), units);
        return kept;
    }

    Comparison Kept(const std::vector<Sets>& cases, Units units = Units::english) {
        Comparison comparison;
        for (const Sets& sets : cases) {
            EXPECT_EQ(comparison.Add(Case(sets)), "");
        }
        comparison.SwitchUnits(Records(), units);
        return comparison;
    }

    std::vector<ComparedCase> Solved(const Comparison& comparison) {
        return SolveCases(comparison.Cases(), Records());
    }
    ComparisonTable Table(const Comparison& comparison) {
        return MakeComparisonTable(Solved(comparison), Records());
    }

    CalculationResult Alone(const Job& job) {
        application.CurrentJob() = job;
        return application.Calculate();
    }

    MessageList messages;
    CApplication application;
};

std::vector<std::string> Lines(const std::vector<ComparisonRow>& rows) {
    std::vector<std::string> lines;
    for (const ComparisonRow& row : rows) {
        std::string line = row.label + (row.unit.empty() ? "" : " " + row.unit) + ":";
        for (const ComparisonCell& cell : row.cells) {
            line += " " + cell.text + (&cell == &row.cells.back() ? "" : " |");
        }
        lines.push_back(line);
    }
    return lines;
}

const ComparisonRow* RowOf(const ComparisonTable& table, const std::string& label,
                           const std::string& unit = {}) {
    for (const ComparisonRow& row : table.results) {
        if (row.label == label && (unit.empty() || row.unit == unit)) {
            return &row;
        }
    }
    return nullptr;
}

TEST_F(ComparisonOf, NamesAreGivenAndStayDifferent) {
    const std::string accents = "é" + std::string(39, 'x'); // 40 characters, 41 bytes
    const struct {
        std::string asked, description, name;
    } rows[] = {{"", "Steam\tline", "Steam line"},
                {"", "Steam line", "Steam line (2)"},
                {"", " ", "Case 1"},
                {"", "", "Case 2"},
                {accents + "y", "unused", accents},
                {accents, "unused", accents.substr(0, 37) + " (2)"}};
    Comparison comparison;
    for (const auto& row : rows) {
        EXPECT_FALSE(comparison.IsFull());
        KeptCase kept;
        kept.name = row.asked;
        kept.job[Field::ItemDescription] = row.description;
        EXPECT_EQ(comparison.Add(kept), "");
        EXPECT_EQ(comparison.Cases().back().name, row.name);
    }
    EXPECT_THAT(comparison.Add(KeptCase()), HasSubstr("6 cases are kept already"));
    ASSERT_EQ(comparison.Cases().size(), mostKeptCases);
    EXPECT_THAT(comparison.Rename(0, " \t"), HasSubstr("needs a name"));
    EXPECT_THAT(comparison.Rename(0, " Case 2 "), HasSubstr("already a case named \"Case 2\""));
    EXPECT_EQ(comparison.Rename(0, "Steam line"), "") << "its own name";
    EXPECT_EQ(comparison.Rename(0, "a"), "");
    comparison.Move(0, 2);
    comparison.Move(3, 1);
    comparison.Move(0, 9);
    comparison.Remove(9);
    comparison.Remove(5);
    std::vector<std::string> names;
    for (const KeptCase& kept : comparison.Cases()) {
        names.push_back(kept.name);
    }
    EXPECT_THAT(names, ElementsAre("Steam line (2)", "Case 2", "Case 1", "a", accents));
}

TEST_F(ComparisonOf, ShowsTheInputsThatDifferInValueAndAreUsed) {
    const Sets condensation{{"InsulationThicknessCalculationType", "Condensation Control"}};
    const auto with = [](Sets sets, const char* field, const char* value) {
        sets.emplace_back(field, value);
        return sets;
    };
    const struct {
        Sets one, other;
        std::vector<std::string> lines;
    } cases[] = {
        {{}, {}, {}},
        {{}, {{"WindSpeed", "2.00"}}, {}}, // the same number
        {{}, {{"HeatFlowLimit", "7"}, {"FuelCost", "9"}, {"DuctWidth", "9"}}, {}},
        {{}, {{"WindSpeed", "10"}}, {"Wind speed mph: 2 | 10"}},
        {{},
         {{"Jacket", "13"}, {"BaseMetal", "2"}},
         {"Base metal: Carbon Steel | Stainless Steel",
          "Jacket: Aluminum Oxidized In Service | Painted Metal"}},
        // What another shape is called by is another input, even at the same figure.
        {{{"PipeSize", "2"}},
         {{"SurfaceGeometry", "Horizontal Tube"}, {"PipeSize", "2"}},
         {"NPS Pipe Size: 2 | -", "NTS Tube Size: - | 2",
          "System application: Horizontal Pipe | Horizontal Tube"}},
        {condensation,
         with(condensation, "DewPoint", "55"),
         {"Relative humidity %: 60 | -", "Dew point °F: - | 55"}},
        // The same figure by the gallon is another figure.
        {yearly,
         with(yearly, "Fuel", "No. 2 Fuel Oil"),
         {"Fuel: Natural Gas | No. 2 Fuel Oil", "Heating Value Btu/cf: 1026 | -",
          "Heating Value Btu/gal: - | 1026", "First Year Cost $/Mcf: 4.53 | -",
          "First Year Cost $/gal: - | 4.53"}},
        {{},
         twoLayers,
         {"Layer 1, thickness in: varies | 2", "Layer 2: - | Mineral Wool Pipe Insulation 1200 F",
          "Layer 2, thickness in: - | varies"}},
    };
    for (const auto& c : cases) {
        EXPECT_THAT(Lines(Table(Kept({c.one, c.other})).inputs), UnorderedElementsAreArray(c.lines));
    }
}

TEST_F(ComparisonOf, TheSameThicknessInOtherUnitsIsNoDifference) {
    const Sets fixed{{"SurfaceGeometry", "Vertical Flat"}, {"Insulation.1.Thickness", "4"}};
    KeptCase metric = Case(fixed, Units::si);
    metric.memory.Forget();
    EXPECT_EQ(metric.job.layers.front().thickness, "101.6");
    metric.job[Field::WindSpeed] = "0.894"; // 2 mph
    Comparison comparison = Kept({fixed});
    comparison.Add(metric);
    for (const Units units : {Units::si, Units::english, Units::si}) {
        comparison.SwitchUnits(Records(), units);
        for (const std::string& line : Lines(Table(comparison).inputs)) {
            EXPECT_THAT(line, ::testing::Not(HasSubstr("hickness"))) << line;
        }
    }
    comparison.SwitchUnits(Records(), Units::english);
    EXPECT_EQ(comparison.Cases()[0].job[Field::ProcessTemp], "350") << "the very text that was typed";
}

TEST_F(ComparisonOf, FiguresAreThoseOfTheCaseAlone) {
    const std::vector<Sets> sets{{}, {{"WindSpeed", "0"}, {"Jacket", "13"}}, flat, yearly, twoLayers};
    for (const Units units : {Units::english, Units::si}) {
        const bool isSI = units == Units::si;
        const Comparison comparison = Kept(sets, units);
        const ComparisonTable table = Table(comparison);
        for (std::size_t i = 0; i < sets.size(); ++i) {
            const CalculationResult alone = Alone(comparison.Cases()[i].job);
            ASSERT_TRUE(alone.HasAnswer());
            const auto design = std::find_if(alone.grid.rows.begin(), alone.grid.rows.end(),
                                             [](const ResultRow& row) { return row.isDesign; });
            const bool isYearly = i == 3;
            ASSERT_EQ(design == alone.grid.rows.end(), isYearly);
            const ResultRow& shown = isYearly ? alone.grid.rows.back() : *design;
            const auto figure = [&](const char* label, const char* english, const char* si) {
                const ComparisonRow* const row = RowOf(table, label, isSI ? si : english);
                return row == nullptr ? std::nullopt : row->cells.at(i).value;
            };
            const double fixed = i == 4 ? (isSI ? 50 : 2) : 0;
            EXPECT_EQ(figure("Insulation, nominal thickness", "in", "mm"), fixed + *shown.thickness);
            if (isYearly) {
                EXPECT_EQ(figure("Heat flow in a year", "BTU/ft/yr", "Wh/m/yr"), shown.cells[0].value);
                EXPECT_EQ(figure("Cost", "$/ft/yr", "$/m/yr"), shown.cells[1].value);
                EXPECT_FALSE(figure("Heat flow", "BTU/hr/ft", "W/m"));
                EXPECT_EQ(RowOf(table, "Goal met")->cells[i].text, "-");
                continue;
            }
            EXPECT_EQ(figure("Surface temperature", "°F", "°C"), shown.cells[0].value);
            EXPECT_EQ(i == 2 ? figure("Heat flow", "BTU/hr/ft^2", "W/m^2")
                             : figure("Heat flow", "BTU/hr/ft", "W/m"),
                      shown.cells[1].value);
            EXPECT_EQ(figure("Saved against bare", "%", "%"), shown.cells[2].value);
            EXPECT_EQ(RowOf(table, "Goal met")->cells[i].text, "yes");
        }
        // What leaves a flat square foot is its flux; a pipe has it by its outer area.
        const ComparisonRow& flux = *RowOf(table, "Heat flux at the surface");
        EXPECT_NEAR(*flux.cells[2].value,
                    *RowOf(table, "Heat flow", isSI ? "W/m^2" : "BTU/hr/ft^2")->cells[2].value, 1e-4);
        // 6.625 in pipe in a 1 in shell of 8.625 in: BTU/hr/ft through pi * 8.625 / 12 square feet.
        if (!isSI) {
            EXPECT_NEAR(*flux.cells[0].value, 165.91 / (3.14159265 * 8.625 / 12), 0.05);
        }
    }
}

TEST_F(ComparisonOf, DifferencesAreFromTheFirstCase) {
    const ComparisonTable table = Table(Kept({{}, {{"MaxSurfaceTemp", "100"}}}));
    const auto check = [&](const char* label, int decimals, bool hasPercent) {
        const ComparisonRow& row = *RowOf(table, label);
        const double change = *row.cells[1].value - *row.cells[0].value;
        EXPECT_FALSE(row.cells[0].change);
        EXPECT_EQ(row.cells[1].changeText, (change > 0 ? "+" : "") + FormatFixed(change, decimals)) << label;
        ASSERT_EQ(row.cells[1].percent.has_value(), hasPercent) << label;
        if (hasPercent) {
            EXPECT_NEAR(*row.cells[1].percent, 100 * (*row.cells[1].value / *row.cells[0].value - 1), 1e-9);
        }
    };
    check("Surface temperature", 1, false); // a percentage of degrees means nothing
    check("Heat flow", 2, true);
    check("Saved against bare", 2, false);
    EXPECT_EQ(RowOf(table, "Insulation, nominal thickness")->cells[1].percentText, "+150.0"); // 1 in, 2.5 in
    EXPECT_EQ(SignedNumber(-0.04, NumberFormat::tenths), "0.0");

    // A gain is below zero: less of it is a rise, in figures and in percent.
    const Sets cold{{"ProcessTemp", "40"}, {"Insulation.1", "26"}};
    Sets warmer = cold;
    warmer.emplace_back("ProcessTemp", "50");
    warmer.emplace_back("MaxSurfaceTemp", "140");
    const ComparisonCell gain = RowOf(Table(Kept({cold, warmer})), "Heat flow")->cells[1];
    EXPECT_LT(*gain.value, 0);
    EXPECT_GT(*gain.change, 0);
    EXPECT_GT(*gain.percent, 0);
}

TEST_F(ComparisonOf, ARowThatWasChosenStaysTheNearestInOtherUnits) {
    Comparison comparison;
    for (const Sets& sets : {Sets{}, flat}) {
        KeptCase kept = Case(sets);
        kept.chosen = ChosenThickness{3, Units::english};
        comparison.Add(kept);
    }
    const auto compared = [&] { return Lines({*RowOf(Table(comparison), "Compared at")}).front(); };
    EXPECT_EQ(compared(), "Compared at: 3 in., chosen | 3 in., chosen");
    // 3 in is the 75 mm of the pipes' tables; of 70 and 80 mm, which boards have, 80 is nearer to 76.2.
    comparison.SwitchUnits(Records(), Units::si);
    EXPECT_EQ(compared(), "Compared at: 75 mm, chosen | 80 mm, chosen");
    comparison.SwitchUnits(Records(), Units::english);
    EXPECT_EQ(compared(), "Compared at: 3 in., chosen | 3 in., chosen");
}

TEST_F(ComparisonOf, ACaseWithoutAnAnswerGivesItsReasonAndNoFigure) {
    Comparison comparison = Kept({{}, {}, {}});
    KeptCase wrong = Case({});
    wrong.job[Field::PipeSize] = "7";
    comparison.Add(wrong);
    const auto figures = [&](std::size_t index) {
        std::size_t count = 0;
        for (const ComparisonRow& row : Table(comparison).results) {
            count += row.cells.at(index).value ? 1U : 0U;
        }
        return count;
    };
    EXPECT_EQ(figures(3), 0U);
    EXPECT_EQ(figures(0), 4U);
    EXPECT_EQ(RowOf(Table(comparison), "No answer")->cells[3].text,
              "NPS Pipe Size: \"7\" is not in the list of pipe sizes.");
    for (const PlotModel& plot :
         {ComparedFlowPlot(Solved(comparison)), ComparedSurfacePlot(Solved(comparison))}) {
        EXPECT_EQ(plot.curves.size(), 6U) << "a curve and a ring of each of the other three";
    }

    // A record that changes takes the kept figures along; one that goes takes them away, and whoever gets its
    // number is another material.
    CInsulation& wool = *FindById(Records().Insulations, 9);
    const double before = *RowOf(Table(comparison), "Heat flow")->cells[0].value;
    for (CTemperaturePoint& point : wool.TemperaturePoints) {
        point.Conductivity *= 2;
    }
    wool.A *= 2;
    EXPECT_GT(*RowOf(Table(comparison), "Heat flow")->cells[0].value, 1.2 * before);
    wool.Name = "Another wool";
    EXPECT_EQ(figures(0), 0U);
    EXPECT_THAT(RowOf(Table(comparison), "No answer")->cells[0].text, HasSubstr("not in the catalogue"));
}

TEST_F(ComparisonOf, LeavesTheRecordsOfTheJobAlone) {
    const Sets dear{{"InsulationThicknessCalculationType", "Heat Loss Per Year"}, {"FuelCost", "99"}};
    const Comparison comparison = Kept({yearly, dear});
    const float before = FindByName(Records().Fuels, "Natural Gas")->Cost;
    const ComparisonRow cost = *RowOf(Table(comparison), "Cost");
    EXPECT_NEAR(*cost.cells[1].value / *cost.cells[0].value, 99 / 4.53, 1e-4);
    EXPECT_EQ(FindByName(Records().Fuels, "Natural Gas")->Cost, before);
}

TEST_F(ComparisonOf, WarningsStandBesideTheFigures) {
    const ComparisonTable table = Table(Kept({{}, {{"ProcessTemp", "1400"}}}));
    EXPECT_EQ(RowOf(table, "Warnings")->cells[0].text, "-");
    EXPECT_THAT(RowOf(table, "Warnings")->cells[1].text, HasSubstr("above its service limit"));
    EXPECT_EQ(RowOf(Table(Kept({{}})), "Warnings"), nullptr);
}

TEST_F(ComparisonOf, PlotsLayTheCurvesOverEachOther) {
    const auto alike = Solved(Kept({{}, twoLayers}));
    const PlotModel flow = ComparedFlowPlot(alike);
    EXPECT_EQ(flow.left.title, "Heat flow, BTU/hr/ft");
    ASSERT_EQ(flow.curves.size(), 4U);
    EXPECT_EQ(flow.curves[0].points.front().x, 0.5);
    EXPECT_EQ(flow.curves[2].points.front().x, 2.5) << "all layers together";
    EXPECT_EQ(flow.curves[2].points.front().y, *alike[1].result.grid.rows[1].cells[1].value);
    EXPECT_NE(flow.curves[0].style, flow.curves[2].style);
    EXPECT_NE(flow.curves[0].marker, flow.curves[2].marker);
    EXPECT_TRUE(flow.curves[1].ring);
    EXPECT_EQ(flow.curves[1].points.front().x, 1);
    EXPECT_EQ(ComparedSurfacePlot(alike).curves[1].points.front().y, alike[0].Shown().cells[0].value);
    // What has no common measure but the area is compared by it, and so are hours and years.
    const Sets hourly{{"InsulationThicknessCalculationType", "Heat Loss Per Hour"}};
    for (const auto& mixed : {Kept({{}, flat}, Units::si), Kept({yearly, hourly}, Units::si)}) {
        EXPECT_EQ(ComparedFlowPlot(Solved(mixed)).left.title, "Heat flux, W/m^2");
    }
    const Sets given{{"InsulationThicknessCalculationType", "Interface Temperatures"},
                     {"Insulation.1.Thickness", "3"}};
    const auto single = Solved(Kept({given}));
    EXPECT_EQ(ComparedSurfacePlot(single).curves[0].points.size(), 1U);
    EXPECT_EQ(ComparedSurfacePlot(single).curves[0].points[0].x, 3);
    EXPECT_THAT(ComparedFlowPlot({}).reason, HasSubstr("no case"));
}

TEST_F(ComparisonOf, ExportsNumbersAsNumbersAndNothingHalf) {
    Comparison comparison = Kept({{}, {{"WindSpeed", "10"}}});
    ASSERT_EQ(comparison.Rename(1, "=1+1"), "");
    const ComparisonTable table = Table(comparison);
    const std::string text = GridAsTabText(ComparisonGrid(table));
    const std::string flow = RowOf(table, "Heat flow")->cells[0].text;
    EXPECT_THAT(text, HasSubstr("Case\tUnit\tSteam line\t'=1+1\n"));
    EXPECT_THAT(text, HasSubstr("\nWind speed\tmph\t2\t10\n"));
    EXPECT_THAT(text, HasSubstr("\nHeat flow\tBTU/hr/ft\t" + flow + "\t"));
    EXPECT_THAT(text, HasSubstr("\nSaved against bare\tpoints\t-\t-"));
    EXPECT_THAT(
        text,
        HasSubstr("\nDifference from Steam line, %\t\t\t\nInsulation, nominal thickness\t%\t-\t-50.0\n"));

    const test::TemporaryFolder scratch;
    WriteComparison(scratch / "c.CSV", table);
    EXPECT_THAT(test::Slurp(scratch / "c.CSV"), HasSubstr("\r\nWind speed,mph,2,10\r\n"));
    WriteComparison(scratch / "c.xlsx", table);
    const auto files = test::Unzipped(test::Slurp(scratch / "c.xlsx"));
    const std::string& sheet = files.at("xl/worksheets/sheet1.xml");
    EXPECT_THAT(
        sheet,
        HasSubstr(fmt::format("<v>{}", *RowOf(table, "Surface temperature")->cells[0].value).substr(0, 12)));
    EXPECT_EQ(sheet.find("<f>"), std::string::npos) << "a formula";
    EXPECT_THAT(files.at("xl/sharedStrings.xml"), HasSubstr("=1+1"));
    EXPECT_THROW(WriteComparison(scratch / "no" / "c.xlsx", table), FileError);
    EXPECT_EQ(scratch.FileCount(), 2) << "no temporary file stays";
}

} // namespace
} // namespace kaloria
