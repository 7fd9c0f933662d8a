// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/configuration_file.h"
#include "tests/support/temporary_folder.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <cmath>
#include <gmock/gmock.h>
#include <limits>
#include <sstream>

namespace kaloria {
namespace {

using test::Slurp;
using test::Spill;
using test::TemporaryFolder;
using testing::ElementsAre;
using testing::HasSubstr;

const std::string shippedFile = KALORIA_RESOURCES_DIR "/CorvaneConfig.xml";

/// What is in a catalogue, at a glance: a letter for the collection, the `ID`, the number of sub-records.
std::string Contents(const Catalogue& catalogue) {
    std::string all;
    const auto add = [&all](const char* letter, const auto& records) {
        for (const auto& record : records) {
            all += fmt::format("{}{} ", letter, record.ID);
        }
    };
    add("G", catalogue.SurfaceGeometries);
    add("R", catalogue.ReportingUnits);
    for (const CInsulation& r : catalogue.Insulations) {
        all += fmt::format("I{}/{} ", r.ID, r.TemperaturePoints.size());
    }
    add("M", catalogue.BaseMetals);
    add("J", catalogue.JacketMaterials);
    for (const CFuel& r : catalogue.Fuels) {
        all += fmt::format("F{}/{} ", r.ID, r.Pollutants.size());
    }
    for (const CPipe& r : catalogue.Pipes) {
        all += fmt::format("P{}/{} ", r.ID, r.InsulationThicknesses.size());
    }
    for (const CTube& r : catalogue.Tubes) {
        all += fmt::format("T{}/{} ", r.ID, r.InsulationThicknesses.size());
    }
    for (const CNominalThickness& r : catalogue.NominalThicknesses) {
        all += fmt::format("N{} ", r.US);
    }
    for (const CProductivityFactor& r : catalogue.ProductivityFactors) {
        all += fmt::format("{}={} ", r.Region, r.Factor);
    }
    return all;
}

std::string Nested(std::size_t bytes) {
    std::string text;
    while (text.size() < bytes) {
        text += "<a>";
    }
    return text;
}

std::string NestedAndClosed(int depth) {
    std::string text;
    for (int i = 0; i < depth; ++i) {
        text += "<a>";
    }
    for (int i = 0; i < depth; ++i) {
        text += "</a>";
    }
    return text;
}

TEST(LoadConfiguration, StopsAtTheFirstFaultAndKeepsWhatCameBefore) {
    constexpr int loads = -1; // no fault
    struct Row {
        const char* why;
        std::string bytes;
        int line;
        const char* contents;
    };
    const std::string metal1 = "<c>\n<BaseMetals><m ID='1'/>\n";
    const std::string metal2 = "\n<m ID='2'/></BaseMetals></c>";
    const Row rows[] = {
        {"empty file", "", 1, ""},
        {"blanks only", " \n ", 1, ""},
        {"not XML", "{\"a\": 1}", 1, ""},
        {"truncated", "<c>\n<Fuels><f ID='1'/>\n<f ID=", 3, ""},
        {"a second root", "<c/>\n<c/>", 2, ""},
        {"text behind the root", "<c/>\nabc", 1, ""},
        {"10 MB of open elements", Nested(10'000'000), 1, ""},
        {"10 MB of elements, well formed", NestedAndClosed(1'400'000), 1, ""},
        {"nested as deep as allowed", NestedAndClosed(100), loads, ""},
        {"nested one too deep", NestedAndClosed(101), 1, ""},
        {"UTF-16", std::string("\xFF\xFE<\0c\0/\0>\0", 10), 1, ""},
        {"Latin-1", "<c>\n<Fuels><f Name='\xE4'/></Fuels></c>", 2, ""},
        {"a zero byte", std::string("<c/>\n\0", 6), 2, ""},
        {"more than 32 MB", std::string((32U << 20U) + 1, ' '), 0, ""},
        {"byte order mark", "\xEF\xBB\xBF" + metal1 + metal2, loads, "M1 M2 "},
        {"declaration first: nothing is found", "<?xml version='1.0'?>\n" + metal1 + metal2, loads, ""},
        {"comment first: nothing is found", "<!-- c -->" + metal1 + metal2, loads, ""},
        {"document type first", "<!DOCTYPE c [<!ENTITY a 'b'>]>" + metal1 + metal2, loads, ""},
        {"comment behind the root", metal1 + metal2 + "<!-- c -->", loads, "M1 M2 "},
        {"comment between sections", "<c>\n<BaseMetals><m ID='1'/></BaseMetals>\n<!-- c --><Fuels/></c>", 3,
         "M1 "},
        {"comment between records", metal1 + "<!-- c -->" + metal2, 3, "M1 "},
        {"text between records", metal1 + "abc" + metal2, 2, "M1 "},
        {"instruction between points", "<c><Insulations><i ID='4'>\n<?p?></i></Insulations></c>", 2, ""},
        {"comment in a record without sub-records", metal1 + "<m ID='9'><!-- c --></m>" + metal2, loads,
         "M1 M9 M2 "},
        {"comment in an unknown section",
         "<c><Other><!-- c --></Other><BaseMetals><m ID='1'/></BaseMetals></c>", loads, "M1 "},
        {"section names are exact", "<c><basemetals><m ID='1'/></basemetals></c>", loads, ""},
        {"duplicate sections are both read", metal1 + "</BaseMetals><BaseMetals>" + metal2, loads, "M1 M2 "},
        {"a comma in a real", metal1 + "<m Emittance='0,8'/>" + metal2, 3, "M1 "},
        {"NaN", metal1 + "<m Emittance='NaN'/>" + metal2, 3, "M1 "},
        {"1e400", metal1 + "<m Emittance='1e400'/>" + metal2, 3, "M1 "},
        {"1e39 is no single", metal1 + "<m Emittance='1e39'/>" + metal2, 3, "M1 "},
        {"an empty number", metal1 + "<m ID=''/>" + metal2, 3, "M1 "},
        {"a flag of neither kind", metal1 + "<m Active='yes'/>" + metal2, 3, "M1 "},
        {"unknown attributes and elements", metal1 + "<x Colour='red' id='7' ID='5'/>" + metal2, loads,
         "M1 M5 M2 "},
        {"integers round to even", "<c><BaseMetals><m ID='2.5'/><m ID='3.5'/></BaseMetals></c>", loads,
         "M2 M4 "},
        {"a bad point drops its material, keeps the one before",
         "<c><Insulations><i ID='1'><p/><p/></i>\n<i ID='2'><p Temperature='x'/></i></Insulations></c>", 2,
         "I1/2 "},
        {"the row of a point has to be a number", "<c><Insulations><i><p Row='x'/></i></Insulations></c>", 1,
         ""},
        {"header 600",
         "<c><BaseMetals><m ID='1'/></BaseMetals><HeaderText>\n<t ID='600'>x</t></HeaderText></c>", 2, "M1 "},
        {"header 70", "<c><HeaderText>\n<t ID='70'>x</t></HeaderText></c>", 2, ""},
        {"header -1", "<c><HeaderText>\n<t ID='-1'>x</t></HeaderText></c>", 2, ""},
        {"every other section",
         "<c><SurfaceGeometries><g ID='1'/></SurfaceGeometries><ReportingUnits><u ID='2'/></ReportingUnits>"
         "<JacketMaterials><j ID='3'/></JacketMaterials><Fuels><f ID='4'><p/></f></Fuels>"
         "<PipeSizes><p ID='5'><t/><t/></p></PipeSizes><TubeSizes><t ID='6'><t/></t></TubeSizes>"
         "<NominalInsulationThicknesses><n US='1.5'/></NominalInsulationThicknesses>"
         "<ProductivityFactors><f Region='Here' Factor='99.5'/></ProductivityFactors></c>",
         loads, "G1 R2 J3 F4/1 P5/2 T6/1 N1.5 Here=99.5 "},
    };
    for (const Row& row : rows) {
        Catalogue catalogue;
        const auto problem = LoadConfigurationText(row.bytes, catalogue);
        EXPECT_EQ(problem ? problem->line : loads, row.line)
            << row.why << ": " << (problem ? problem->text : "");
        EXPECT_EQ(Contents(catalogue), row.contents) << row.why;
        if (row.bytes.size() < 2000) {
            EXPECT_NO_THROW((void)CheckConfigurationText(row.bytes)) << row.why;
        }
    }
}

TEST(LoadConfiguration, FillsTheFields) {
    Catalogue catalogue;
    const auto problem = LoadConfigurationText(
        "<c><Insulations><i C='3' B='2' A='1' MinTemp='-20' MaxTemp='450.5' InsulationType='2' "
        "CreatedBy='User' "
        "Name='W\xC3\xA4rme &lt;1&gt; &quot;x&quot;' Active='tRue' ID='7'><p Conductivity='0.25' "
        "Temperature='75'/>"
        "</i></Insulations>"
        "<ReportingUnits><u Pipe='true' DefaultSize='2'/><u Pipe='True' PipeLabel='NPS:'/></ReportingUnits>"
        "<Fuels><f ConversionEfficiencyChange='TRUE' Active='0'><p CreatedBy='System' "
        "Amount='1.25'/></f></Fuels>"
        "<PipeSizes><p US-NPS='0.75' US-Metric='20' European='26.9'><t InsulationType='1.5' "
        "OD='4'/></p></PipeSizes>"
        "<HeaderText><t>zero</t><t ID='231'>a &amp; <!-- c -->b</t><t>over</t><t ID='1' ID='12'>last ID</t>"
        "</HeaderText></c>",
        catalogue);
    EXPECT_FALSE(problem) << problem->text;
    const CInsulation& material = catalogue.Insulations.front();
    EXPECT_EQ(std::tie(material.ID, material.Active, material.Name, material.CreatedBy,
                       material.InsulationType, material.MaxTemp, material.MinTemp, material.A, material.B,
                       material.C),
              std::tuple(7, true, "W\xC3\xA4rme <1> \"x\"", "User", 2, 450.5F, -20.0F, 1.0F, 2.0F, 3.0F));
    EXPECT_EQ(material.TemperaturePoints.front().Conductivity, 0.25F);
    EXPECT_FALSE(catalogue.ReportingUnits.front().IsPipe) << "only the exact text \"True\" is a pipe";
    EXPECT_TRUE(catalogue.ReportingUnits.back().IsPipe);
    EXPECT_EQ(catalogue.ReportingUnits.back().PipeLabel, "NPS:");
    EXPECT_FALSE(catalogue.Fuels.front().ConversionEfficiencyChange);
    EXPECT_EQ(catalogue.Fuels.front().Pollutants.front().CreatedBy, "") << "must not be read back";
    EXPECT_EQ(catalogue.Fuels.front().Pollutants.front().Amount, 1.25F);
    EXPECT_EQ(catalogue.Pipes.front().USMetric, 20.0F);
    EXPECT_EQ(catalogue.Pipes.front().InsulationThicknesses.front().InsulationType, 2);
    EXPECT_EQ(catalogue.Headers.At(0, 0), "zero");
    EXPECT_EQ(catalogue.Headers.At(2, 3, 1), "over") << "an element without ID takes that of the one before";
    EXPECT_EQ(catalogue.Headers.At(0, 1, 2), "last ID");
}

void AddUserRecords(Catalogue& catalogue) {
    CInsulation points;
    points.ID = NextId(catalogue.Insulations);
    points.Name = "Stein & \"Wolle\" \xC2\xB0\n<neu>";
    points.CreatedBy = "User";
    points.MaxTemp = 1200;
    points.TemperaturePoints = {{100, 0.25F}, {200, 0.3F}, {300, 0.1F}, {-459.5F, 1e-12F}};
    catalogue.Insulations.push_back(points);
    CInsulation curve = points;
    curve.Active = true;
    curve.CreatedBy = "system"; // not exactly "System": the user's
    curve.A = 0.25F;
    catalogue.Insulations.push_back(curve);
    catalogue.BaseMetals.push_back({0, 0.1F, 77, "User", "Lead", true});
    catalogue.JacketMaterials.push_back({0.9F, 78, "", "Canvas", false});
    CFuel fuel;
    fuel.ID = 79;
    fuel.Name = "Wood";
    fuel.CreatedBy = "User";
    fuel.Cost = 12.5F;
    fuel.CostUnits = "$/ton";
    fuel.BTU = 1.6e7F;
    fuel.BTUUnits = "Btu/ton";
    fuel.ConversionEfficiency = 70;
    fuel.ConversionEfficiencyChange = true;
    fuel.UnitCostFactor = 0.0005F;
    fuel.Pollutants = {{2, "User", 0.5F, "NOx"}, {1, "User", 200, "CO2"}};
    catalogue.Fuels.push_back(fuel);
}

/// Whether the lines of @p part stand in @p whole in their order.
bool HasAllLines(const std::string& whole, const std::string& part) {
    std::istringstream wholeLines(whole);
    std::istringstream partLines(part);
    for (std::string wanted; std::getline(partLines, wanted);) {
        std::string line;
        while (line != wanted) {
            if (!std::getline(wholeLines, line)) {
                return false;
            }
        }
    }
    return true;
}

TEST(SaveConfiguration, WritesTheUsersRecordsAndNothingElse) {
    const std::string shipped = Slurp(shippedFile);
    ASSERT_FALSE(shipped.empty());
    const TemporaryFolder folder;
    const auto path = folder / "CorvaneConfig.xml";
    Spill(path, shipped);
    Catalogue catalogue;
    ASSERT_FALSE(LoadConfiguration(path, catalogue));
    const std::string before = Contents(catalogue);

    AddUserRecords(catalogue);
    catalogue.Fuels.front().Cost = 99; // a change to a system record lasts for the run only
    ASSERT_FALSE(SaveConfiguration(path, catalogue));
    const std::string once = Slurp(path);
    EXPECT_TRUE(HasAllLines(once, shipped)) << "a line of the supplied file has changed";
    const std::string expectedRecords[] = {
        "\t\t<Insulation ID=\"35\" Active=\"False\" Name=\"Stein &amp; &quot;Wolle&quot; "
        "\xC2\xB0&#10;&lt;neu>\" "
        "CreatedBy=\"User\" InsulationType=\"0\" MaxTemp=\"1200\" MinTemp=\"0\">\n"
        "\t\t\t<TemperaturePoint Row=\"1\" Temperature=\"100\" Conductivity=\"0.25\" />\n"
        "\t\t\t<TemperaturePoint Row=\"2\" Temperature=\"200\" Conductivity=\"0.3\" />\n"
        "\t\t\t<TemperaturePoint Row=\"3\" Temperature=\"300\" Conductivity=\"0.1\" />\n"
        "\t\t\t<TemperaturePoint Row=\"4\" Temperature=\"-459.5\" Conductivity=\"1e-12\" />\n"
        "\t\t</Insulation>\n"
        "\t\t<Insulation ID=\"35\" Active=\"True\" ",
        "CreatedBy=\"system\" InsulationType=\"0\" MaxTemp=\"1200\" MinTemp=\"0\" A=\"0.25\" B=\"0\" C=\"0\" "
        "/>\n"
        "\t</Insulations>",
        "\t\t<BaseMetal ID=\"77\" Active=\"True\" Name=\"Lead\" CreatedBy=\"User\" Emittance=\"0.1\" />\n"
        "\t</BaseMetals>",
        "\t\t<JacketMaterial ID=\"78\" Active=\"False\" Name=\"Canvas\" CreatedBy=\"\" Emittance=\"0.9\" />\n"
        "\t</JacketMaterials>",
        "\t\t<Fuel ID=\"79\" Active=\"False\" Name=\"Wood\" CreatedBy=\"User\" Cost=\"12.5\" "
        "CostUnits=\"$/ton\" "
        "BTU=\"16000000\" BTUUnits=\"Btu/ton\" ConversionEfficiency=\"70\" "
        "ConversionEfficiencyChange=\"True\" "
        "UnitCostFactor=\"0.0005\">\n"
        "\t\t\t<Pollutant ID=\"2\" Name=\"NOx\" CreatedBy=\"User\" Amount=\"0.5\" />\n"
        "\t\t\t<Pollutant ID=\"1\" Name=\"CO2\" CreatedBy=\"User\" Amount=\"200\" />\n"
        "\t\t</Fuel>\n\t</Fuels>",
    };
    for (const std::string& expected : expectedRecords) {
        EXPECT_THAT(once, HasSubstr(expected));
    }

    Catalogue reloaded;
    ASSERT_FALSE(LoadConfiguration(path, reloaded));
    EXPECT_EQ(reloaded.Insulations.back().Name, catalogue.Insulations.back().Name);
    EXPECT_EQ(reloaded.Fuels.back().UnitCostFactor, 0.0005F);
    EXPECT_EQ(reloaded.Fuels.back().Pollutants.back().Name, "CO2");
    EXPECT_NE(reloaded.Fuels.front().Cost, 99.0F);
    ASSERT_FALSE(SaveConfiguration(path, reloaded));
    std::string twice = Slurp(path);
    // What a pollutant's CreatedBy was is not read back, so that it is written empty from then on.
    for (std::size_t at = 0; (at = twice.find("CreatedBy=\"\" Amount", at)) != std::string::npos;) {
        twice.replace(at, 12, "CreatedBy=\"User\"");
    }
    EXPECT_EQ(twice, once);
    ASSERT_FALSE(SaveConfiguration(path, reloaded));
    const std::string third = Slurp(path);
    ASSERT_FALSE(SaveConfiguration(path, reloaded));
    EXPECT_EQ(Slurp(path), third);

    Catalogue withoutUser;
    ASSERT_FALSE(LoadConfigurationText(shipped, withoutUser));
    EXPECT_EQ(Contents(withoutUser), before);
    ASSERT_FALSE(SaveConfiguration(path, withoutUser));
    EXPECT_EQ(Slurp(path), shipped)
        << "removing the user's records must give the supplied file back, byte for byte";
}

TEST(SaveConfiguration, OddSections) {
    Catalogue catalogue;
    catalogue.BaseMetals.push_back({0, 0.5F, 5, "User", "Lead", true});
    struct Row {
        const char* why;
        const char* bytes;
        const char* expected;
    };
    const char* const record = "<BaseMetal ID=\"5\" Active=\"True\" Name=\"Lead\" CreatedBy=\"User\" "
                               "Emittance=\"0.5\" />\n";
    const Row rows[] = {
        {"user records side by side are all removed",
         "<c><BaseMetals><a CreatedBy='User'/><b CreatedBy='User'/><c CreatedBy='System'/><d "
         "CreatedBy='User'/>"
         "</BaseMetals></c>",
         "<c>\n\t<BaseMetals>\n\t\t<c CreatedBy=\"System\" />\n\t\t{}\t</BaseMetals>\n</c>\n"},
        {"a section that stands there twice does not double the records",
         "<c><BaseMetals/><BaseMetals><a CreatedBy='User'/></BaseMetals></c>",
         "<c>\n\t<BaseMetals>\n\t\t{}\t</BaseMetals>\n\t<BaseMetals />\n</c>\n"},
        {"of two makers the one that is read says what stays",
         "<c><BaseMetals><a CreatedBy='User' CreatedBy='System'/><b CreatedBy='System' CreatedBy='User'/>"
         "</BaseMetals></c>",
         "<c>\n\t<BaseMetals>\n\t\t<a CreatedBy=\"User\" CreatedBy=\"System\" "
         "/>\n\t\t{}\t</BaseMetals>\n</c>\n"},
        {"a missing section is made rather than the record lost", "<c><Fuels/></c>",
         "<c>\n\t<Fuels />\n\t<BaseMetals>\n\t\t{}\t</BaseMetals>\n</c>\n"},
        {"what is unknown or behind the root stays",
         "<c><Other a='&amp;'>t<!--x--></Other><BaseMetals/></c><!--y-->",
         "<c>\n\t<Other "
         "a=\"&amp;\">t<!--x-->\n\t</Other>\n\t<BaseMetals>\n\t\t{}\t</BaseMetals>\n</c>\n<!--y-->\n"},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(SavedConfigurationText(row.bytes, catalogue),
                  fmt::format(fmt::runtime(row.expected), record))
            << row.why;
    }
}

TEST(SaveConfiguration, ChangesNothingWhenItFails) {
    const TemporaryFolder folder;
    const auto path = folder / "CorvaneConfig.xml";
    Catalogue catalogue;
    AddUserRecords(catalogue);
    EXPECT_TRUE(SaveConfiguration(path, catalogue)) << "there is no file to start from";
    EXPECT_EQ(folder.FileCount(), 0);

    const std::pair<const char*, int> files[] = {
        {"", 1},
        {"<c>\n<Fuels>", 2},
        {"<?xml version='1.0'?><c><Fuels/></c>", 1},
        {"<c><Fuels>\n<f ID='1'/></Fuels></c>", 2}, // no CreatedBy
        {"<c><Fuels>\n<!-- c --></Fuels></c>", 2},  // not an element
        {"<c><PipeSizes>\n<p ID='x'/></PipeSizes><Fuels><f CreatedBy='User'/></Fuels></c>",
         2}, // does not load
    };
    for (const auto& [bytes, line] : files) {
        Spill(path, bytes);
        const auto problem = SaveConfiguration(path, catalogue);
        ASSERT_TRUE(problem) << bytes;
        EXPECT_EQ(problem->line, line) << problem->text;
        EXPECT_EQ(Slurp(path), bytes);
    }
    Spill(path, "<c><Fuels/></c>");
    catalogue.Fuels.back().Cost = std::numeric_limits<float>::quiet_NaN();
    EXPECT_TRUE(SaveConfiguration(path, catalogue)) << "a file with NaN would not load again";
    EXPECT_EQ(Slurp(path), "<c><Fuels/></c>");
    EXPECT_EQ(folder.FileCount(), 1);
}

std::vector<std::string> Lines(const std::vector<FileProblem>& problems) {
    std::vector<std::string> lines;
    lines.reserve(problems.size());
    for (const FileProblem& problem : problems) {
        lines.push_back(fmt::format("{}: {}", problem.line, problem.text));
    }
    return lines;
}

TEST(CheckConfiguration, FindsNothingInTheSuppliedFile) {
    EXPECT_THAT(Lines(CheckConfiguration(shippedFile)), ElementsAre());
}

TEST(CheckConfiguration, NamesEverythingWithItsLine) {
    const std::string bytes = R"(<!-- first -->
<c>
<HeaderText><t ID="12" Source="x">a</t>
<t>b</t><t ID="12">c</t>
<t ID="900">d</t></HeaderText>
<Insulations>
<i ID="1" Active="maybe" Name="n" CreatedBy="System" InsulationType="1" MaxTemp="1000" MinTemp="0" A="1" B="-0.0041" C="0.000004"/>
<i ID="1" Active="True" Name="n" CreatedBy="System" InsulationType="1" MaxTemp="100" MinTemp="0" A="1" B="-0.0041" C="0.000004" Colour="red"/>
<i Active="True" Name="n" InsulationType="1" MaxTemp="1" MinTemp="0"><p Temperature="1" Conductivity="1"/><p Temperature="2" Conductivity="1"/></i>
</Insulations>
<BaseMetals><m ID="1" Active="True" Name="n" CreatedBy="System" Emittance="1.5"/>
<!-- inside --></BaseMetals>
<ReportingUnits><u ID="1" Name="n" DefaultBaseMetalID="8" DefaultInsulationThickness="1" DefaultInsulationThicknessSI="1" Pipe="True" PipeLabel="" DefaultSize="1" DefaultSizeSI="1"/></ReportingUnits>
<Fuels/><JacketMaterials/><SurfaceGeometries/><PipeSizes/><ProductivityFactors/>
<TubeSizes><t ID="1" US-NTS="1" ActualTubeSizeInches="1" WallThicknessInches="0.1" ID="2">
<r NominalThickness="1" ActualThickness="1" OD="3" InsulationType="1"/>
<r NominalThickness="1.25" ActualThickness="1" OD="3" InsulationType="1"/>
<r NominalThickness="1" ActualThickness="1" OD="3" InsulationType="3"/></t></TubeSizes>
<NominalInsulationThicknesses><n US="1" USMetric="25" European="30" EuropeanFlat="30"/></NominalInsulationThicknesses>
<Fuel/><Fuels><f ID="1" Active="True" Name="n" CreatedBy="System" Cost="1" CostUnits="" BTU="0" BTUUnits="" ConversionEfficiency="80" ConversionEfficiencyChange="True" UnitCostFactor="1"/></Fuels>
</c>)";
    EXPECT_THAT(
        Lines(CheckConfigurationText(bytes)),
        ElementsAre(
            HasSubstr("1: the root element is not the first node"), HasSubstr("4: no ID attribute"),
            "4: ID 12 has been used before in this section", HasSubstr("5: ID: 900 is no position"),
            "7: Active: \"maybe\" cannot be read",
            HasSubstr("7: the conductivity at 512.5 degF, within the service range, is -0.05"),
            "8: ID 1 has been used before in this section", "8: unknown attribute Colour",
            "9: no ID attribute",
            HasSubstr("9: no CreatedBy attribute: the configuration file cannot be saved"),
            HasSubstr("9: the temperature points do not determine"), "11: Emittance 1.5 is not within 0 to 1",
            HasSubstr("12: a comment, text or instruction inside <BaseMetals>"),
            "13: DefaultBaseMetalID 8 is no base metal",
            HasSubstr("15: attribute ID is given more than once"),
            "17: NominalThickness 1.25 is not in the nominal series",
            HasSubstr("18: InsulationType 3 is no series"), "20: unknown section <Fuel>",
            HasSubstr("20: section <Fuels> stands in the file more than once"), "20: BTU 0 is not above 0"));
    EXPECT_THAT(Lines(CheckConfigurationText("<c/>")), testing::SizeIs(11)) << "eleven sections are missing";
    EXPECT_THAT(Lines(CheckConfigurationText("<c>\n<a></c>")),
                ElementsAre(HasSubstr("2: not well-formed XML")));
    EXPECT_THAT(CheckConfiguration("/nowhere/file.xml"), testing::SizeIs(1));
}

} // namespace
} // namespace kaloria
