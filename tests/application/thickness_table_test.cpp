// SPDX-License-Identifier: GPL-3.0-or-later
// The thickness table against single calculations, against physics, and against wrong inputs.
#include "application/covering_table.h"
#include "application/thickness_table.h"
#include "tests/support/job_fixture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <gmock/gmock.h>

namespace kaloria {
namespace {

using test::Sets;
using ::testing::HasSubstr;

class Table : public test::JobFixture {
protected:
    ThicknessTable Make(const Sets& sets, Units units = Units::english) {
        Open(sets, units);
        return MakeThicknessTable(application.CurrentJob(), application.Records());
    }

    /// Position of a cell's thickness in the series; past its end for none.
    std::ptrdiff_t Position(const TableCell& cell, Units units) const {
        const auto series = NominalSeries(records, 1, units);
        const auto found =
            cell.thickness ? std::find(series.begin(), series.end(), Single(*cell.thickness)) : series.end();
        return found - series.begin();
    }

    const Catalogue& records = application.Records();
};

/// On the steam line of the window's drawing (6 inch, 350 °F) 1 in leaves the surface at 126.1 °F and 1.5 in
/// at 110.9 °F.
TEST_F(Table, TheSteamLineOfTheDrawing) {
    const Sets temps{{"ReportStartingTemperature", "250"}, {"ReportTemperatureIncrement", "50"}};
    for (const auto& [limit, thickness] :
         {std::pair{"126.2", 1.0}, {"126", 1.5}, {"111", 1.5}, {"110.8", 2.0}}) {
        Sets sets = temps;
        sets.emplace_back("MaxSurfaceTemp", limit);
        const auto table = Make(sets);
        ASSERT_TRUE(table.done) << AllFindings(table.findings);
        ASSERT_EQ(table.rows.size(), 26U);
        EXPECT_EQ(table.rows[11].size, "6");
        EXPECT_EQ(table.columns[0].text, "300 °F");
        EXPECT_EQ(table.columns[1].value, 350.0);
        EXPECT_EQ(table.columns[5].text, "550 °F");
        EXPECT_EQ(table.rows[11].cells[1].thickness, thickness) << limit;
        EXPECT_TRUE(table.findings.empty()) << AllFindings(table.findings);
    }
}

TEST_F(Table, EveryCellIsTheDesignThicknessOfItsCase) {
    const struct {
        Sets sets;
        Units units;
        std::vector<std::pair<std::size_t, std::size_t>> cells; ///< row, column
    } rows[] = {
        {{}, Units::english, {{0, 0}, {3, 4}, {11, 5}, {25, 5}}},
        {{}, Units::si, {{1, 3}, {12, 5}}},
        {{{"SurfaceGeometry", "Vertical Tube"}, {"PipeSize", "2"}, {"MaxSurfaceTemp", "125"}},
         Units::english,
         {{0, 2}, {5, 5}}},
        // From far below the temperature of the air to above it.
        {{{"ReportStartingTemperature", "-50"},
          {"ReportTemperatureIncrement", "30"},
          {"Insulation.1", "Cellular Glass Pipe Insulation"}},
         Units::english,
         {{0, 0}, {8, 1}, {13, 3}, {25, 0}, {6, 5}}},
        {{{"ReportStartingTemperature", "-50"},
          {"ReportTemperatureIncrement", "20"},
          {"DewPoint", "62"},
          {"Insulation.2", "Cellular Glass Pipe Insulation"},
          {"Insulation.2.Locked", "Vary"},
          {"Insulation.1.Thickness", "0.5"}},
         Units::si,
         {{2, 0}, {15, 2}}},
    };
    for (const auto& row : rows) {
        const auto table = Make(row.sets, row.units);
        ASSERT_TRUE(table.done) << AllFindings(table.findings);
        for (const auto& [size, column] : row.cells) {
            const auto& cell = table.rows[size].cells[column];
            SCOPED_TRACE(table.rows[size].size + " at " + table.columns[column].text);
            Open(row.sets, row.units);
            Job& job = application.CurrentJob();
            job[Field::InsulationThicknessCalculationType] =
                table.columns[column].cold ? "Condensation Control" : "Personnel Protection";
            job[Field::PipeSize] = table.rows[size].size;
            job[Field::ProcessTemp] = FormatNumber(table.columns[column].value, NumberFormat::shortest);
            const auto result = application.Calculate();
            ASSERT_TRUE(result.done);
            EXPECT_TRUE(cell.thickness);
            EXPECT_EQ(cell.thickness, result.design.value);
        }
    }
}

TEST_F(Table, FurtherFromTheAirNeedsNotLess) {
    const struct {
        const char* material;
        const char* start;
        const char* increment;
    } rows[] = {{"Mineral Wool Pipe Insulation 1200 F", "150", "75"},
                {"Calcium Silicate Pipe and Block 1200 F", "100", "100"},
                {"Cellular Glass Pipe Insulation", "75", "-30"}};
    for (const auto& row : rows) {
        const auto table = Make({{"Insulation.1", row.material},
                                 {"ReportStartingTemperature", row.start},
                                 {"ReportTemperatureIncrement", row.increment},
                                 {"MaxSurfaceTemp", "125"}});
        ASSERT_TRUE(table.done);
        for (const TableRow& line : table.rows) {
            EXPECT_TRUE(std::is_sorted(line.cells.begin(), line.cells.end(),
                                       [&](const TableCell& a, const TableCell& b) {
                                           return Position(a, table.units) < Position(b, table.units);
                                       }))
                << row.material << " on " << line.size;
            // Different temperatures need different thicknesses, else nothing has been looked at.
            EXPECT_LT(Position(line.cells.front(), table.units), Position(line.cells.back(), table.units));
        }
    }
}

/// Metric coverings are as thick as the inch ones to a few per cent: a cell may differ by one step, and few
/// do.
TEST_F(Table, SIAgreesWithEnglishByPosition) {
    const Sets sets{{"MaxSurfaceTemp", "120"}};
    const auto english = Make(sets);
    const auto si = Make(sets, Units::si);
    ASSERT_EQ(si.rows.size(), english.rows.size());
    int moved = 0;
    for (std::size_t row = 0; row < si.rows.size(); ++row) {
        for (std::size_t i = 0; i < ThicknessTable::temperatures; ++i) {
            const auto steps = Position(si.rows[row].cells[i], Units::si) -
                               Position(english.rows[row].cells[i], Units::english);
            EXPECT_LE(std::abs(steps), 1) << si.rows[row].size;
            moved += steps != 0 ? 1 : 0;
        }
    }
    EXPECT_LT(moved, 26 * 6 / 10);
    EXPECT_EQ(si.rows[11].size, "150");
    EXPECT_EQ(si.columns[0].text, "121 °C");
}

TEST_F(Table, SaysWhatIsWrongAndWhatToKnow) {
    const Sets cold{{"ReportStartingTemperature", "0"}, {"ReportTemperatureIncrement", "10"}};
    const auto with = [](Sets sets, const Sets& more) {
        sets.insert(sets.end(), more.begin(), more.end());
        return sets;
    };
    const struct {
        Sets sets;
        bool done;
        const char* finding; ///< "" for none at all
    } rows[] = {
        {{{"SurfaceGeometry", "Vertical Flat"}}, false, "can only be created for pipes and tubes"},
        {{{"ReportStartingTemperature", ""}}, false, "Starting temperature: a value is needed."},
        {{{"ReportTemperatureIncrement", "900"}}, false, "temperature 4 would be 3750 °F, outside"},
        {{{"ReportTemperatureIncrement", "0"}}, true, "all six temperatures are the same"},
        {{{"MaxSurfaceTemp", ""}}, false, "Maximum surface temp.: a value is needed."},
        {{{"MaxSurfaceTemp", "75"}}, true, "no thickness keeps a hot surface below it"},
        {with(cold, {{"MaxSurfaceTemp", ""}, {"Insulation.1", "26"}}), true, ""}, // no column is hot
        {with(cold, {{"RelativeHumidity", ""}}), false, "Relative humidity: a value is needed."},
        {with(cold, {{"RelativeHumidity", "0"}}), true, "below 1 % is reckoned as 1 %"},
        {with(cold, {{"WetBulbTemperature", "90"}}), false, "There is no dew point"},
        {with(cold, {{"DewPoint", "80"}}), true, "dew point lies above the ambient temperature"},
        // Size, process temperature and fuel of the job play no part; nor does moisture in hot service.
        {{{"PipeSize", "7"}, {"ProcessTemp", ""}, {"FuelCost", ""}, {"RelativeHumidity", ""}}, true, ""},
        {{{"Insulation.1.Thickness", "2"}}, true, "thickness of the only layer is varied"},
        {{{"Insulation.1.Thickness", "2"}, {"Insulation.2", "9"}, {"Insulation.2.Thickness", "2"}},
         false,
         "one layer must be set to \"Vary\""},
        {{{"Insulation.2", "9"}, {"Insulation.2.Thickness", "1.3"}}, true, "no covering of 1.3 in"},
        {{{"Insulation.1", "Glass Fiber Blanket 450 F"}},
         true,
         "At 550 °F: Layer 1 (Glass Fiber Blanket 450 F"},
    };
    for (const auto& row : rows) {
        const auto table = Make(row.sets);
        SCOPED_TRACE(AllFindings(table.findings));
        EXPECT_EQ(table.done, row.done) << row.finding;
        EXPECT_EQ(table.rows.empty(), !row.done);
        EXPECT_THAT(AllFindings(table.findings), HasSubstr(row.finding));
        EXPECT_EQ(AllFindings(table.findings).empty(), *row.finding == '\0');
    }
}

TEST_F(Table, NothingWhereNoThicknessIsEnoughAndAnErrorWhereNoneCanBeComputed) {
    const auto none = Make({{"MaxSurfaceTemp", "76"}});
    EXPECT_FALSE(none.rows[11].cells[0].thickness);
    EXPECT_EQ(none.rows[11].cells[0].text, "-");
    EXPECT_TRUE(none.findings.empty()) << AllFindings(none.findings);
    // A material whose conductivity falls below zero where it is hot.
    CInsulation* const material =
        FindByName(application.Records().Insulations, "Mineral Wool Pipe Insulation 1200 F");
    ASSERT_NE(material, nullptr);
    material->TemperaturePoints.clear();
    material->A = 1.0F;
    material->B = -0.003F;
    material->C = 0.0F;
    const auto faulty = Make({});
    ASSERT_TRUE(faulty.done);
    EXPECT_FALSE(faulty.rows[11].cells[5].thickness);
    EXPECT_TRUE(std::any_of(faulty.findings.begin(), faulty.findings.end(), [](const Finding& f) {
        return f.severity == Severity::error && f.text.find("At 750 °F there are thicknesses") == 0;
    })) << AllFindings(faulty.findings);
}

/// Dimensions of ASTM C585: 2 inch insulation on a 6 inch pipe is 10.75 inches outside, which is a 10 inch
/// pipe's own diameter.
TEST_F(Table, CoveringsOfEverySize) {
    const auto pipes = CoveringTable(records, 1, Units::english);
    ASSERT_EQ(pipes.size(), 26U);
    EXPECT_EQ(pipes[11].size, "6");
    EXPECT_FLOAT_EQ(static_cast<float>(pipes[11].outsideDiameter), 6.625F);
    const auto& two = pipes[11].coverings[3];
    EXPECT_EQ(two.nominal, 2.0);
    EXPECT_FLOAT_EQ(static_cast<float>(two.outside), 10.75F);
    EXPECT_NEAR(two.actual, (10.75 - 6.625) / 2, 0.02);
    EXPECT_TRUE(CoveringTable(records, 5, Units::english).empty());
    for (const std::int32_t code : {2, 4}) {
        for (const Units units : {Units::english, Units::si}) {
            for (const SizeCoverings& size : CoveringTable(records, code, units)) {
                EXPECT_GE(size.coverings.size(), 5U) << size.size;
                for (const CoveringDimensions& row : size.coverings) {
                    // Thicknesses of the tables are rounded, and cover the tolerance of the pipe.
                    EXPECT_NEAR(row.outside, size.outsideDiameter + 2 * row.actual, 0.02 * row.outside);
                }
            }
        }
    }
}

} // namespace
} // namespace kaloria
