// SPDX-License-Identifier: GPL-3.0-or-later
// The audit line field by field, its 8-bit text, and a file that several programs and full disks must not
// spoil.
#include "application/audit_file.h"
#include "application/text_encoding.h"
#include "data/atomic_file.h"
#include "engine/number_text.h"
#include "tests/support/job_fixture.h"
#include "tests/support/temporary_folder.h"

#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <functional>
#include <gmock/gmock.h>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace kaloria {
namespace {

using test::Sets;
using test::Slurp;
using test::Spill;
using test::TemporaryFolder;
using ::testing::ElementsAre;
using ::testing::EndsWith;

class Audit : public test::JobFixture {
protected:
    static std::vector<std::string> Fields(const std::string& line) {
        std::vector<std::string> fields(1);
        for (const char c : line) {
            if (c == '\t') {
                fields.emplace_back();
            } else {
                fields.back() += c;
            }
        }
        return fields;
    }
};

/// Figures of the steam line of the window's drawing; the emissions are reckoned from its heat flows by hand:
/// 1572.74 and 123.37 Btu/(h ft) x 8000 h / 1e6 / 0.75 x 116.98 lb/MMBtu.
TEST_F(Audit, TheLineFieldByField) {
    const auto result = Run({{"ItemDescription", "Line\t7\r\nnorth\x01wing"},
                             {"HoursPerYear", "8000"},
                             {"ConversionEfficiency", "75"},
                             {"Insulation.1.Thickness", "1.5"}});
    auto fields = Fields(result.auditLine);
    ASSERT_EQ(fields.size(), 22U);
    const std::string emissions = fields.back();
    fields.pop_back();
    EXPECT_THAT(fields,
                ElementsAre("Line 7 north wing", "Natural Gas", "Carbon Steel",
                            "Mineral Wool Pipe Insulation 1200 F", "Aluminum Oxidized In Service",
                            "Horizontal Pipe", "75", "8000", "1026", "4.53", "350", "75", "2", "6", "1.5",
                            "Thickness", "Bare,Mineral Wool Pipe Insulation 1200 F", "Heat Loss (BTU/hr/ft)",
                            "1572.74,123.37", "Surface Temp (°F)", "349.3,110.9"));
    ASSERT_EQ(emissions.substr(0, 5), " CO2=");
    const auto second = emissions.find(", CO2=");
    ASSERT_NE(second, std::string::npos);
    EXPECT_NEAR(*ParseNumber(emissions.substr(5, emissions.find(' ', 5) - 5)), 1962.440, 0.02);
    EXPECT_NEAR(*ParseNumber(emissions.substr(second + 6, emissions.find(' ', second + 6) - second - 6)),
                153.939, 0.01);
    EXPECT_THAT(emissions,
                ::testing::MatchesRegex("( [A-Z0-9a-z]+=[0-9.E-]+){7},( [A-Z0-9a-z]+=[0-9.E-]+){7}"));
}

TEST_F(Audit, FieldsFollowTheCase) {
    const auto fixedAndVarying = [](const char* first, const char* second) {
        return Sets{{"Insulation.2", "9"},
                    {"Insulation.2.Thickness", "2"},
                    {"Insulation.1.Thickness", "1.5"},
                    {"Insulation.1.Locked", first},
                    {"Insulation.2.Locked", second}};
    };
    const struct {
        const char* why;
        Sets sets;
        Units units;
        std::size_t field; ///< from 1
        const char* text;
    } rows[] = {
        {"layers, innermost first", fixedAndVarying("Fix", "Fix"), Units::english, 4,
         "Mineral Wool Pipe Insulation 1200 F,Mineral Wool Pipe Insulation 1200 F"},
        {"all layers fixed", fixedAndVarying("Fix", "Fix"), Units::english, 15, "3.5"},
        {"outer one varies", fixedAndVarying("Fix", "Vary"), Units::english, 15, "1.5"},
        {"inner one varies", fixedAndVarying("Vary", "Fix"), Units::english, 15, "0"},
        {"SI thickness", {{"Insulation.1.Thickness", "2"}}, Units::si, 15, "1.968504"}, // 50 mm
        {"SI process", {}, Units::si, 11, "350"},
        {"SI ambient", {}, Units::si, 12, "75"},
        {"SI wind", {}, Units::si, 13, "2"},
        {"SI size", {}, Units::si, 14, "5.905512"}, // 150 mm
        {"SI price", {}, Units::si, 10, "4.53"},
        {"SI heading", {}, Units::si, 18, "Heat Loss (W/m)"},
        {"cold heading",
         {{"ProcessTemp", "40"}, {"Insulation.1", "26"}},
         Units::english,
         18,
         "Heat Gain (BTU/hr/ft)"},
        {"yearly column 2",
         {{"InsulationThicknessCalculationType", "4"}},
         Units::english,
         18,
         "Cost ($/ft/yr)"},
        {"yearly column 1",
         {{"InsulationThicknessCalculationType", "4"}},
         Units::english,
         20,
         "Heat Loss (BTU/ft/yr)"},
        {"no fuel: name", {{"FuelCost", ""}}, Units::english, 2, ""},
        {"no fuel: efficiency", {{"FuelCost", ""}}, Units::english, 7, ""},
        {"no fuel: hours", {{"FuelCost", ""}}, Units::english, 8, "8320"},
        {"no hours", {{"HoursPerYear", ""}}, Units::english, 8, ""},
        {"no fuel: price", {{"FuelCost", ""}}, Units::english, 10, ""},
        {"no fuel: emissions", {{"FuelCost", ""}}, Units::english, 22, ""},
        {"no emissions",
         {{"ConversionEfficiency", "0"}, {"Fuel", "Purchased Steam"}, {"Insulation.1.Thickness", "2"}},
         Units::english,
         22,
         " CO2=-, CO2=-"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.why);
        const auto fields = Fields(Run(row.sets, row.units).auditLine);
        ASSERT_EQ(fields.size(), 22U);
        EXPECT_EQ(fields[row.field - 1], row.text);
    }
}

TEST_F(Audit, AFuelWithoutPollutantsEndsTheLineWithATab) {
    application.Fuels().front().Pollutants.clear();
    EXPECT_THAT(Run({}).auditLine, EndsWith("\t"));
}

TEST_F(Audit, AppendsTheSameLineTwiceAndSaysWhatStandsInTheWay) {
    const TemporaryFolder folder;
    const auto result = Run({{"ItemDescription", "Straße 5 Ω"}});
    EXPECT_FALSE(application.AppendAudit(result));
    EXPECT_THAT(messages.shown, ElementsAre("No audit file has been selected."));
    messages.shown.clear();
    application.AuditPath = folder / "plant.aud";
    EXPECT_FALSE(application.AppendAudit(CalculationResult{})); // never calculated
    EXPECT_EQ(folder.FileCount(), 0);
    messages.shown.clear();
    EXPECT_TRUE(application.AppendAudit(result));
    EXPECT_TRUE(application.AppendAudit(result));
    EXPECT_TRUE(messages.shown.empty());
    const std::string text = Slurp(application.AuditPath);
    const std::string half = text.substr(0, text.size() / 2);
    EXPECT_EQ(text, half + half);
    EXPECT_EQ(half.substr(0, 11), "Stra\xDF"
                                  "e 5 ?\t");
    EXPECT_EQ(half.substr(half.size() - 2), "\r\n");
    for (const auto& path :
         {folder / "no/such/folder.aud", folder / "", std::filesystem::path("/dev/full")}) {
        messages.shown.clear();
        application.AuditPath = path;
        EXPECT_FALSE(application.AppendAudit(result));
        EXPECT_THAT(messages.shown, ElementsAre("An error has occured while saving audit data.")) << path;
    }
    EXPECT_EQ(folder.FileCount(), 1);
}

TEST(AuditFile, ALastLineThatSomebodyLeftOpenIsEndedFirst) {
    const TemporaryFolder folder;
    const auto path = folder / "a.aud";
    Spill(path, "by hand");
    AppendAuditLine(path, "one");
    AppendAuditLine(path, "two");
    EXPECT_EQ(Slurp(path), "by hand\r\none\r\ntwo\r\n");
}

/// Runs @p work in a process of its own; its result is the exit code.
pid_t Start(const std::function<int()>& work) {
    const pid_t child = ::fork();
    if (child == 0) {
        int code = 99;
        try {
            code = work();
        } catch (...) {
            code = 98;
        }
        ::_exit(code);
    }
    return child;
}

int ExitCodeOf(pid_t child) {
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

TEST(AuditFile, FourProgramsNeverMixTheirLines) {
    const TemporaryFolder folder;
    const auto path = folder / "shared.aud";
    constexpr std::size_t lines = 500;
    const auto lineOf = [](std::size_t program, std::size_t i) {
        return std::string(1 + (i * 37 + program * 101) % 6000, static_cast<char>('a' + program));
    };
    std::array<pid_t, 4> programs{};
    for (std::size_t program = 0; program < programs.size(); ++program) {
        programs.at(program) = Start([&] {
            for (std::size_t i = 0; i < lines; ++i) {
                AppendAuditLine(path, lineOf(program, i));
            }
            return 0;
        });
    }
    for (const pid_t program : programs) {
        EXPECT_EQ(ExitCodeOf(program), 0);
    }
    std::array<std::size_t, 4> seen{};
    std::istringstream text(Slurp(path));
    for (std::string line; std::getline(text, line);) {
        const std::size_t program = static_cast<std::size_t>(line.front() - 'a');
        ASSERT_LT(program, seen.size());
        ASSERT_EQ(line, lineOf(program, seen.at(program)++) + "\r");
    }
    EXPECT_THAT(seen, ::testing::Each(lines));
}

TEST(AuditFile, WaitsWhileAnotherProgramWrites) {
    const TemporaryFolder folder;
    const auto path = folder / "locked.aud";
    const int other = ::open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
    ASSERT_EQ(::flock(other, LOCK_EX), 0);
    const pid_t program = ::fork();
    if (program == 0) {
        ::close(other); // the lock belongs to the open file, which a child shares
        AppendAuditLine(path, "late");
        ::_exit(0);
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(100));
    EXPECT_EQ(Slurp(path), "");
    ::flock(other, LOCK_UN);
    EXPECT_EQ(ExitCodeOf(program), 0);
    ::close(other);
    EXPECT_EQ(Slurp(path), "late\r\n");
}

/// A limit of the file's size ends a request half done, as a full disk does.
TEST(AuditFile, AFullDiskLeavesNoHalfLine) {
    const TemporaryFolder folder;
    const auto path = folder / "full.aud";
    AppendAuditLine(path, "first");
    const std::string before = Slurp(path);
    const pid_t program = Start([&] {
        ::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{100, 100};
        if (::setrlimit(RLIMIT_FSIZE, &limit) != 0) {
            return 1;
        }
        for (const std::size_t length : {200U, 5000U}) {
            try {
                AppendAuditLine(path, std::string(length, 'x'));
                return 2;
            } catch (const FileError& error) {
                if (error.GetKind() != FileError::Kind::unwritable) {
                    return 3;
                }
            }
        }
        AppendAuditLine(path, std::string(50, 'y')); // there is room for this one
        return 0;
    });
    EXPECT_EQ(ExitCodeOf(program), 0);
    EXPECT_EQ(Slurp(path), before + std::string(50, 'y') + "\r\n");
}

TEST(TextEncoding, Windows1252) {
    const struct {
        const char* why;
        std::string utf8;
        std::string bytes;
    } rows[] = {
        {"ASCII, controls included", std::string("a~\t\r\n\0\x7F", 7), std::string("a~\t\r\n\0\x7F", 7)},
        {"Latin-1", "\u00A0°é\u00AD÷ÿ", "\xA0\xB0\xE9\xAD\xF7\xFF"},
        {"what stands in place of Latin-1's controls", "€‚ƒ„…†‡ˆ‰Š‹ŒŽ‘’“”•–—˜™š›œžŸ",
         "\x80\x82\x83\x84\x85\x86\x87\x88\x89\x8A\x8B\x8C\x8E"
         "\x91\x92\x93\x94\x95\x96\x97\x98\x99\x9A\x9B\x9C\x9E\x9F"},
        {"not in the code page", "Ω中😀Ā\u2028", "?????"},
        {"codes that the page leaves free", "\u0080\u0081\u008D\u008F\u0090\u009D", "??????"},
        {"no UTF-8",
         "a\xFF\x80"
         "b\xE2\x82",
         "a??b??"},
        {"overlong and surrogate", "\xC0\x80\xED\xA0\x80", "?????"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(ToWindows1252(row.utf8), row.bytes) << row.why;
    }
}

} // namespace
} // namespace kaloria
