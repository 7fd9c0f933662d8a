// SPDX-License-Identifier: GPL-3.0-or-later
// The short report and the tables as rich text, with the templates that ship.
#include "application/short_report.h"
#include "application/table_report.h"
#include "tests/support/job_fixture.h"
#include "tests/support/temporary_folder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <gmock/gmock.h>

namespace kaloria {
namespace {

using test::Sets;
using test::Slurp;
using test::TemporaryFolder;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Not;

class ShortReports : public test::JobFixture {
protected:
    /// The text of the report that was written, whose tags must all be filled.
    std::string Written() {
        const rtf::Document report(Slurp(path));
        EXPECT_THAT(report.Tags(), ElementsAre());
        return report.PlainText(rtf::Document::TextOf::everything);
    }

    TemporaryFolder folder;
    const std::filesystem::path path = folder / "a.rtf";
};

TEST_F(ShortReports, SaysWhatTheCaseHasAndNothingElse) {
    const Sets cold{{"ProcessTemp", "40"}, {"Insulation.1", "26"}, {"RelativeHumidity", "80"}};
    const auto of = [](const char* type, Sets sets) {
        sets.emplace_back("InsulationThicknessCalculationType", type);
        return sets;
    };
    const struct {
        Sets sets;
        Units units;
        std::vector<const char*> says;
        std::vector<const char*> saysNot;
    } rows[] = {
        {of("0", {{"CompanyName", "Müller {&} Söhne\\"}, {"ItemDescription", "Line Ω"}}),
         Units::english,
         {"Müller {&} Söhne\\", "Line Ω", "Personnel Protection Report", "Personnel Protection Thickness",
          "1 in.", "Horizontal Pipe", "350.0 °F",
          "Insulation Layer 1 = Mineral Wool Pipe Insulation 1200 F, Varied\n",
          "Efficiency = 80 %        Fuel Name = Natural Gas\n",
          "Heat Content = 1026 Btu/cf                     Fuel Cost = 4.53 $/Mcf\n",
          "Hours Per Year = 8320\n", "Pipe size"},
         {"Layer 2", "Relative Humidity", "Dew Point", "Tube", "N/A"}},
        {of("1", cold),
         Units::si,
         {"Condensation Control Thickness", "Relative Humidity", "80 %", "   Dew Point", "4.4 °C"},
         {"Personnel"}},
        {of("2", {}), Units::english, {"Heat Flow Limitation Thickness"}, {"Dew Point"}},
        {of("3", {{"Insulation.2", "9"},
                  {"Insulation.2.Thickness", "2"},
                  {"Insulation.1.Locked", "Fix"},
                  {"Insulation.1.Thickness", "1.5"}}),
         Units::english,
         {"Insulation Layer 1 = Mineral Wool Pipe Insulation 1200 F, 1.5 in.\n"
          "Insulation Layer 2 = Mineral Wool Pipe Insulation 1200 F, 2.0 in.\n"},
         {"Layer 3", "Control Thickness", "Protection Thickness"}},
        {of("5", {{"SurfaceGeometry", "Horizontal Tube"}, {"PipeSize", "2"}, {"FuelCost", ""}}),
         Units::english,
         {"Tube size"},
         {"Efficiency =", "Fuel", "Hours Per Year ="}},
        {of("5", {{"SurfaceGeometry", "Vertical Flat"}}), Units::english, {"Vertical Flat"}, {"size"}},
    };
    for (const auto& row : rows) {
        Open(row.sets, row.units);
        ASSERT_TRUE(ExportShortReport(application, application.Calculate(), path));
        const std::string text = Written();
        for (const char* const says : row.says) {
            EXPECT_THAT(text, HasSubstr(says));
        }
        for (const char* const saysNot : row.saysNot) {
            EXPECT_THAT(text, Not(HasSubstr(saysNot)));
        }
    }
}

/// A grid that is too wide goes on below; no cell may be lost or stand under another heading.
TEST_F(ShortReports, TheGridIsATableOfAllItsCells) {
    Open({{"InsulationThicknessCalculationType", "4"}});
    const CalculationResult result = application.Calculate();
    ASSERT_TRUE(ExportShortReport(application, result, path));
    const std::string text = Written();
    const auto lineOf = [](const std::string& label, const auto& cells, std::size_t begin, std::size_t end) {
        std::string line = "\n" + label + "\t";
        for (std::size_t i = begin; i < end; ++i) {
            line += cells(i) + "\t";
        }
        return line;
    };
    const ResultsGrid& grid = result.grid;
    ASSERT_EQ(grid.columns.size(), 11U);
    std::size_t at = 0;
    for (const auto& [begin, end] : {std::pair{0U, 6U}, std::pair{6U, 10U}}) {
        const auto name = [&](std::size_t i) { return grid.columns[i + 1].name; };
        at = text.find(lineOf("Variable Insulation", name, begin, end), at);
        ASSERT_NE(at, std::string::npos);
        for (const ResultRow& row : grid.rows) {
            const auto cell = [&](std::size_t i) { return row.cells[i].text; };
            at = text.find(lineOf(row.label, cell, begin, end), at);
            ASSERT_NE(at, std::string::npos) << row.label;
        }
    }
}

TEST_F(ShortReports, WhatStandsInTheWayIsSaid) {
    Open({});
    const CalculationResult result = application.Calculate();
    EXPECT_FALSE(ExportShortReport(application, result, folder / "no/such.rtf"));
    EXPECT_THAT(messages.shown,
                ElementsAre("A problem occured while saving your report.  Please try again."));
    messages.shown.clear();
    CApplication bare(folder / "", messages);
    EXPECT_FALSE(ExportShortReport(bare, result, path));
    EXPECT_THAT(messages.shown, ElementsAre(HasSubstr("ShortReportTemplate.rtf")));
    // A table cannot stand in a cell.
    test::Spill(folder / "ShortReportTemplate.rtf",
                "{\\rtf1\\trowd\\cellx999\\pard\\intbl <Data/>\\cell\\row\\pard\\par}");
    messages.shown.clear();
    EXPECT_FALSE(ExportShortReport(bare, result, path));
    EXPECT_THAT(messages.shown,
                ElementsAre(::testing::AllOf(HasSubstr("ShortReportTemplate.rtf: "), HasSubstr("<Data/>"))));
    EXPECT_EQ(folder.FileCount(), 1);
}

TEST_F(ShortReports, ThicknessTable) {
    const struct {
        Sets sets;
        Units units;
        std::vector<const char*> says;
        std::vector<const char*> saysNot;
    } rows[] = {
        {{{"MaxSurfaceTemp", "120"}},
         Units::english,
         {"\nSize\t250 °F\t350 °F\t450 °F\t550 °F\t650 °F\t750 °F\t\n", "120.0 °F",
          "Insulation Layer 1 = Mineral Wool Pipe Insulation 1200 F\n"},
         {"Dew point", "made for the size meets"}},
        {{{"ReportStartingTemperature", "60"},
          {"ReportTemperatureIncrement", "-20"},
          {"Insulation.1", "26"},
          {"Insulation.2", "26"},
          {"Insulation.2.Thickness", "1"},
          {"RelativeHumidity", "95"}},
         Units::si,
         {"\nSize\t4 °C\t-7 °C\t", "Dew point", "95 %", "\t-\t", "-  no thickness that is made for the size",
          "Insulation Layer 1 = Flexible Elastomeric Foam 350 F, \n"
          "Insulation Layer 2 = Flexible Elastomeric Foam 350 F\n"},
         {"Maximum surface temperature"}},
    };
    for (const auto& row : rows) {
        Open(row.sets, row.units);
        const ThicknessTable table = MakeThicknessTable(application.CurrentJob(), application.Records());
        ASSERT_TRUE(table.done);
        ASSERT_TRUE(ExportThicknessTable(application, table, path));
        const std::string text = Written();
        for (const char* const says : row.says) {
            EXPECT_THAT(text, HasSubstr(says));
        }
        for (const char* const saysNot : row.saysNot) {
            EXPECT_THAT(text, Not(HasSubstr(saysNot)));
        }
    }
    // 1.5 in for 120 degF on the 6 in pipe at 350 degF, as in the window's drawing.
    Open({{"MaxSurfaceTemp", "120"}});
    const ThicknessTable table = MakeThicknessTable(application.CurrentJob(), application.Records());
    ASSERT_TRUE(ExportThicknessTable(application, table, path));
    EXPECT_THAT(Written(), ::testing::ContainsRegex("\n6\t[0-9.]+\t1.5\t"));
}

/// Diameters of NPS 6 with 1.5 and 2 in of insulation by ASTM C585: 9 5/8 and 10 3/4 in.
TEST_F(ShortReports, DimensionsOfCoverings) {
    Open({});
    constexpr std::int32_t horizontalPipe = 1;
    const auto sizes = CoveringTable(application.Records(), horizontalPipe, Units::english);
    ASSERT_TRUE(ExportCoverings(application, sizes, path));
    const std::string text = Written();
    EXPECT_THAT(text, HasSubstr("\n6\t6.625\t0.5\t"));
    EXPECT_THAT(text, HasSubstr("\n\t\t2.0\t2."));
    EXPECT_THAT(text, HasSubstr("\t10.750\t\n"));
    EXPECT_THAT(text, HasSubstr("Diameter (in)\t\n0.5\t0.840\t"));
}

} // namespace
} // namespace kaloria
