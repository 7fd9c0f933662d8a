// SPDX-License-Identifier: GPL-3.0-or-later
// kaloria-cli as scripts use it: what it prints, where, and with which exit code.
#include "tests/support/case_files.h"
#include "tests/support/temporary_folder.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <gmock/gmock.h>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

namespace kaloria {
namespace {

using nlohmann::json;
using ::testing::HasSubstr;

#define KALORIA_DEFAULT KALORIA_RESOURCES_DIR "/Default.kal"

struct Outcome {
    int exitCode = -1;
    std::string out; ///< standard output and, where asked for, standard error
};

/// Runs the program through a shell; @p input becomes its standard input.
Outcome RunCli(const std::string& arguments, const std::string& input = {}, bool withErrors = false) {
    const auto file =
        std::filesystem::temp_directory_path() / ("kaloria-cli-test-" + std::to_string(::getpid()));
    std::ofstream(file, std::ios::binary) << input;
    const std::string command = std::string(KALORIA_CLI) + " " + arguments + " < " + file.string() +
                                (withErrors ? " 2>&1" : " 2>/dev/null");
    FILE* const pipe = ::popen(command.c_str(), "r");
    Outcome outcome;
    std::array<char, 4096> buffer{};
    for (std::size_t n = 0; (n = std::fread(buffer.data(), 1, buffer.size(), pipe)) > 0;) {
        outcome.out.append(buffer.data(), n);
    }
    const int status = ::pclose(pipe);
    std::filesystem::remove(file);
    outcome.exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    return outcome;
}

TEST(Cli, EndsWithTheExitCodeOfWhatHappened) {
    const struct {
        const char* arguments;
        int exitCode;
        const char* says;
    } rows[] = {
        {"calculate", 0, "Personnel Protection Thickness: 1 in."},
        {"calculate --units si", 0, "Personnel Protection Thickness: 25 mm"},
        {"calculate --set PipeSize=7", 1, "\"7\" is not in the list of pipe sizes"},
        {"calculate --set InsulationThicknessCalculationType=4 --set ConversionEfficiency=0", 1,
         "the conversion efficiency is 0"},
        {"calculate --set ProcessTemp=warm", 2, "\"warm\" is not a number"},
        {"calculate --set ProcessTemp", 2, "write FIELD=VALUE"},
        {"calculate /no/such/job.kal", 2, "File not found."},
        {"calculate --format xml", 2, "--format"},
        {"--program-folder /no/such/folder calculate", 2, "An error occured while loading material data."},
        {"thickness-table", 0, "   6     0.5"},
        {"thickness-table --units si", 0, "121 °C"},
        {"thickness-table --set SurfaceGeometry='Vertical Flat'", 1, "only be created for pipes and tubes"},
        {"thickness-table --dimensions --format csv", 0, "6,6.625,2,2.0"},
        {"thickness-table --dimensions --set SurfaceGeometry='Vertical Flat'", 1, "only pipes and tubes"},
        {"compare " KALORIA_DEFAULT " " KALORIA_DEFAULT " --set ItemDescription=x", 0, "Surface temperature"},
        {"compare " KALORIA_DEFAULT " " KALORIA_DEFAULT " --thickness 3", 0, "3 in., chosen"},
        {"compare " KALORIA_DEFAULT " " KALORIA_DEFAULT " --set PipeSize=7", 1,
         "not in the list of pipe sizes"},
        {"compare " KALORIA_DEFAULT, 2, "At least 2 required"},
        {"compare " KALORIA_DEFAULT " /no/such/job.kal", 2, "File not found."},
        {"compare " KALORIA_DEFAULT " " KALORIA_DEFAULT " -o a.txt", 2, "write FILE.xlsx or FILE.csv"},
        {"compare " KALORIA_DEFAULT " " KALORIA_DEFAULT " -o /dev/null/a.csv", 2, "/dev/null/a.csv"},
        {"audit --append /dev/full", 2, "An error has occured while saving audit data."},
        {"audit --append ''", 2, "No audit file has been selected."},
        {"audit --set PipeSize=7 --append /no/such/folder/a.aud", 1, "not in the list of pipe sizes"},
        {"audit", 2, "--append is required"},
        {"economics", 0, "economic thickness"},
        {"economics --layout engineering --set ReportStartingTemperature=250", 0,
         "Economic thickness: 2.5 in"},
        {"economics --items 0", 2, "neither a position from 1 to 29"},
        {"economics --items ''", 1, "no size or surface is chosen"},
        {"economics --layout pages", 2, "--layout"},
        {"economics --import-costs /no/such/file", 2, "No such file"},
        {"economics --set AnnualOperation=", 1, "Annual operation"},
        {"economics --set FEA=False --set PreviousCostData=True", 1, "no installed costs of an earlier run"},
        {"report -o /dev/null/report.rtf", 2,
         "A problem occured while saving your report.  Please try again."},
        {"report --items 30 -o /dev/null/report.rtf", 2, "neither a position from 1 to 29"},
        {"report --set ReportFuel=Peat -o /dev/null/report.rtf", 2, "Peat"},
        {"report --set AnnualOperation= -o /dev/null/report.rtf", 1, "Annual operation"},
        {"report --kind technical -o a.rtf", 2, "--kind"},
        {"report", 2, "--output is required"},
        {"short-report -o /dev/null/report.rtf", 2, "A problem occured while saving your report."},
        {"short-report --set PipeSize=7 -o /dev/null/report.rtf", 1, "not in the list of pipe sizes"},
        {"thickness-table -o /dev/null/table.rtf", 2, "A problem occured while saving your report."},
        {"list", 2, "what is required"},
        {"list moons", 2, "moons not in"},
        {"list pipes", 0, "6.625"},
        {"check /no/such/file", 2, "No such file"},
        {"check " KALORIA_RESOURCES_DIR "/Default.kal", 0, "nothing wrong"},
        {"validate", 0, "147 of 147 published cases are met"},
        {"", 2, "subcommand"},
        {"--version", 0, "kaloria-cli 4."},
        {"--help", 0, "calculate"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.arguments);
        const Outcome outcome = RunCli(row.arguments, {}, true);
        EXPECT_EQ(outcome.exitCode, row.exitCode);
        EXPECT_THAT(outcome.out, HasSubstr(row.says));
    }
}

TEST(Cli, JsonCarriesNumbersAndCsvTheShownFigures) {
    const Outcome asJson = RunCli("calculate --format json --set InsulationThicknessCalculationType=3");
    ASSERT_EQ(asJson.exitCode, 0);
    const json result = json::parse(asJson.out);
    EXPECT_EQ(result.at("columns").size(), 7U);
    for (const json& row : result.at("rows")) {
        EXPECT_EQ(row.at("values").size(), 6U);
        EXPECT_TRUE(row.at("values")[0].is_number());
    }
    EXPECT_TRUE(result.at("rows")[0].at("values")[2].is_null()); // the bare row has no efficiency
    const Outcome asCsv = RunCli("calculate --format csv");
    EXPECT_THAT(asCsv.out, HasSubstr("Variable Insulation Thickness,Surface Temp (°F),Heat Loss (BTU/hr/ft),"
                                     "Efficiency (%)\nBare,349.3,1572.74,\n0.5,162.5,269.43,82.87\n"));
}

TEST(Cli, ComparesWithFiguresOfTheJobsAlone) {
    const test::TemporaryFolder folder;
    test::Spill(folder / "b.kal", test::Slurp(KALORIA_DEFAULT));
    const std::string jobs = KALORIA_DEFAULT " " + (folder / "b.kal").string() + " --units si";
    const json table = json::parse(RunCli("compare " + jobs + " --format json").out);
    EXPECT_EQ(table.at("units"), "SI");
    EXPECT_EQ(table.at("cases")[1].at("name"), "b");
    EXPECT_TRUE(table.at("inputs").empty()) << "the same job";
    const json alone = json::parse(RunCli("calculate --units si --format json").out);
    bool isThere = false;
    for (const json& row : table.at("results")) {
        if (row.at("name") == "Surface temperature") {
            isThere = true;
            EXPECT_EQ(row.at("values")[1], alone.at("rows")[2].at("values")[0]); // 25 mm
            EXPECT_EQ(row.at("differences"), json({nullptr, 0.0}));
            EXPECT_TRUE(row.at("percent")[1].is_null());
        }
    }
    EXPECT_TRUE(isThere);
    const auto file = folder / "c.csv";
    EXPECT_EQ(RunCli("compare " + jobs + " -o " + file.string()).exitCode, 0);
    EXPECT_THAT(test::Slurp(file), HasSubstr("Case,Unit,Default,b\r\n"));
}

TEST(Cli, ThicknessTableAsNumbersAndAsShown) {
    const json table = json::parse(RunCli("thickness-table --format json --set MaxSurfaceTemp=120").out);
    EXPECT_EQ(table.at("temperatures"), json::parse("[250,350,450,550,650,750]"));
    EXPECT_EQ(table.at("rows").size(), 26U);
    EXPECT_EQ(table.at("rows")[11].at("size"), "6");
    EXPECT_EQ(table.at("rows")[11].at("thicknesses")[1], 1.5); // as in the window's drawing
    EXPECT_EQ(table.at("maxSurfaceTemp"), 120.0);
    EXPECT_TRUE(table.at("dewPoint").is_null());
    EXPECT_THAT(RunCli("thickness-table --format csv --set MaxSurfaceTemp=76").out,
                ::testing::StartsWith("Size,250 °F,350 °F,450 °F,550 °F,650 °F,750 °F\n0.5,-,-,"));
}

TEST(Cli, AuditAppendsOneLineForEachRun) {
    const test::TemporaryFolder folder;
    const auto file = folder / "plant.aud";
    for (int run = 0; run < 2; ++run) {
        const Outcome outcome =
            RunCli("audit --set ItemDescription=Boiler --append " + file.string(), {}, true);
        EXPECT_EQ(outcome.exitCode, 0);
        EXPECT_EQ(outcome.out, "");
    }
    EXPECT_EQ(RunCli("audit --set PipeSize=7 --append " + file.string()).exitCode, 1); // and no line
    EXPECT_THAT(test::Slurp(file), ::testing::MatchesRegex("Boiler\t[^\n]*\r\nBoiler\t[^\n]*\r\n"));
}

TEST(Cli, SolveAnswersEveryGoodLineAndNamesTheBadOnes) {
    const std::string good =
        R"({"id":"a","note":"ignored","inputs":{"ProcessTemp":350,"AmbientTemp":75,"GeometryCode":5,)"
        R"("BaseMetal":{"ID":1,"Emittance":0.8}}})";
    std::string bad = "{\"id\":\"b\"}\n";
    bad.append(3000, '[');
    bad += "\n{\"id\":1,\"inputs\":{\"ProcessTemp\":1e400}}\n"
           "{\"id\":\"c\",\"inputs\":{\"ProcessTemp\":\"hot\",\"AmbientTemp\":75}}\n\xff\xfe\n";
    const Outcome outcome = RunCli("solve", good + "\n" + bad + "\n" + good + "\n");
    EXPECT_EQ(outcome.exitCode, 2);
    const auto lineEnd = outcome.out.find('\n');
    const json answer = json::parse(outcome.out.substr(0, lineEnd));
    EXPECT_EQ(answer.at("id"), "a");
    EXPECT_FALSE(answer.at("result").at("Fault").get<bool>());
    EXPECT_EQ(outcome.out.substr(lineEnd + 1), outcome.out.substr(0, lineEnd + 1)); // the last line again
    const Outcome complaints = RunCli("solve", bad, true);
    for (const char* line :
         {"line 1:", "line 2:", "line 3:", "line 4: ProcessTemp is not a number", "line 5:"}) {
        EXPECT_THAT(complaints.out, HasSubstr(line));
    }
    // A case without a solution is an answer, not a failure of the program.
    const Outcome fault =
        RunCli("solve", R"({"id":1,"inputs":{"ProcessTemp":1,"AmbientTemp":2,"GeometryCode":99}})");
    EXPECT_EQ(fault.exitCode, 0);
    EXPECT_THAT(fault.out, HasSubstr("\"Fault\":true"));
}

TEST(Cli, EconomicsAsNumbersAndCostsInAndOut) {
    const std::string line = "economics --layout engineering --set ReportStartingTemperature=250";
    const json analysis = json::parse(RunCli(line + " --format json").out);
    const json& step = analysis.at("items")[0].at("temperatures")[0];
    EXPECT_EQ(analysis.at("items")[0].at("position"), 12);
    EXPECT_EQ(step.at("economicThickness"), 2.5); // docs/methods-economics.md, over all thicknesses
    EXPECT_THAT(RunCli(line + " --format csv").out, HasSubstr("\n12,Pipe 6 in,"));

    // Costs that were written and are read again change nothing; other costs do.
    const test::TemporaryFolder folder;
    const auto costs = folder / "costs.csv";
    ASSERT_EQ(RunCli(line + " --export-costs " + costs.string()).exitCode, 0);
    const json again = json::parse(RunCli(line + " --format json --import-costs " + costs.string()).out);
    EXPECT_EQ(again.at("items")[0].at("temperatures"), analysis.at("items")[0].at("temperatures"));
}

TEST(Cli, WritesReportsAndReplacesThem) {
    const test::TemporaryFolder folder;
    const auto file = folder / "a.rtf";
    for (const char* const command :
         {"report", "report --kind environmental --layout engineering --items 3,28 --units si",
          "report --items ''", "short-report", "thickness-table", "thickness-table --dimensions"}) {
        SCOPED_TRACE(command);
        test::Spill(file, "old");
        const Outcome outcome = RunCli(std::string(command) + " -o " + file.string(), {}, true);
        EXPECT_EQ(outcome.exitCode, 0);
        EXPECT_EQ(outcome.out, "");
        EXPECT_EQ(test::Slurp(file).substr(0, 6), "{\\rtf1");
        EXPECT_EQ(folder.FileCount(), 1);
    }
}

TEST(Cli, NumbersDoNotDependOnTheLocale) {
    const Outcome plain = RunCli("calculate --format csv");
    ::setenv("LC_ALL", "de_DE.UTF-8", 1);
    const Outcome german = RunCli("calculate --format csv");
    ::unsetenv("LC_ALL");
    EXPECT_EQ(german.out, plain.out);
}

} // namespace
} // namespace kaloria
