// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/ratio_file.h"
#include "tests/support/ratio_lines.h"
#include "tests/support/temporary_folder.h"

#include <gtest/gtest.h>

#include <chrono>
#include <gmock/gmock.h>

namespace kaloria {
namespace {

using test::Joined;
using test::RatioLines;
using test::Repeated;
using test::Spill;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using Lines = std::vector<std::string>;

TEST(RatioFile, NamesLineAndFieldOfWhateverIsBroken) {
    const struct {
        const char* why;
        void (*damage)(Lines&);
        int line;
        const char* text;
    } rows[] = {
        {"nothing at all", [](Lines& l) { l.clear(); }, 1, "field 1: missing, the line of thicknesses"},
        {"ends in the labor lines", [](Lines& l) { l.resize(20); }, 21, "after 20 of 140 lines"},
        {"last line missing", [](Lines& l) { l.pop_back(); }, 140, "field 1: missing, a line of material"},
        {"last block missing", [](Lines& l) { l.resize(112); }, 113,
         "field 1: missing, a line with an insul"},
        {"a block in the middle missing", [](Lines& l) { l.erase(l.begin() + 56, l.begin() + 84); }, 113,
         "field 1: missing"},
        {"a labor line missing, so that the type is a ratio", [](Lines& l) { l.erase(l.begin() + 5); }, 29,
         "field 1: 0.5 is not a whole number"},
        {"a labor line twice, so that a ratio is the type", [](Lines& l) { l.insert(l.begin() + 5, l[5]); },
         57, "field 1: 0.25 is not a whole number"},
        {"a line of notes at the end", [](Lines& l) { l.emplace_back("prices of May"); }, 141, "field 1"},
        {"heading of 19", [](Lines& l) { l[0] = Repeated("1", 19); }, 1, "field 19: too many"},
        {"labor of 22", [](Lines& l) { l[27] = Repeated("1", 22); }, 28, "field 22: too many"},
        {"material of 22", [](Lines& l) { l[139] = Repeated("1", 22); }, 140, "field 22: too many"},
        {"text in the heading", [](Lines& l) { l[0] = "1,2 in"; }, 1, "field 2: \"2 in\" is not a number"},
        {"text in a number", [](Lines& l) { l[30] = "0.5,n/a"; }, 31, "field 2: \"n/a\" is not a number"},
        {"empty field", [](Lines& l) { l[2] = "10,"; }, 3, "field 2: empty"},
        {"blank line", [](Lines& l) { l[60] = "  "; }, 61, "field 1: empty"},
        {"not a number", [](Lines& l) { l[3] = "nan,1"; }, 4, "field 1: \"nan\""},
        {"infinite", [](Lines& l) { l[3] = "1,-inf"; }, 4, "field 2: \"-inf\""},
        {"beyond double", [](Lines& l) { l[3] = "1,1e400"; }, 4, "field 2: \"1e400\""},
        {"beyond single", [](Lines& l) { l[3] = "1,1e39"; }, 4, "field 2: \"1e39\""},
        {"decimal comma and semicolon", [](Lines& l) { l[3] = "1;2"; }, 4, "field 1: \"1;2\""},
        {"type in words", [](Lines& l) { l[28] = "block"; }, 29, "field 1: \"block\""},
        {"type with a fraction", [](Lines& l) { l[28] = "1.5"; }, 29, "field 1: 1.5 is not a whole number"},
        {"type beyond 32 bits", [](Lines& l) { l[28] = "4294967297"; }, 29, "is not a whole number"},
        {"type twice", [](Lines& l) { l[84] = "1"; }, 85, "type 1 has a block at line 29 already"},
        {"binary", [](Lines& l) { l[1] = std::string("\0\x80\x1b", 3); }, 2, "field 1: \"?\?\?\""},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.why);
        Lines lines = RatioLines();
        row.damage(lines);
        const RatioLoad load = LoadRatioText(Joined(lines));
        EXPECT_FALSE(load.ratios);
        EXPECT_EQ(load.problem.line, row.line);
        EXPECT_THAT(load.problem.text, HasSubstr(row.text));
        EXPECT_THAT(CheckRatioText(Joined(lines)),
                    ::testing::Contains(::testing::Field(&FileProblem::text, load.problem.text)));
    }
}

TEST(RatioFile, ReadsWhatSpreadsheetsAndEditorsMakeOfAFile) {
    Lines spaced = RatioLines();
    spaced[0] = " 1.0 ,\t+2e0 ";
    spaced[28] = " 1 , block";
    const struct {
        const char* why;
        std::string text;
    } rows[] = {
        {"plain", Joined(RatioLines())},
        {"CR LF", Joined(RatioLines(), "\r\n")},
        {"byte-order mark", "\xEF\xBB\xBF" + Joined(RatioLines())},
        {"blanks, exponent, word behind the type", Joined(spaced)},
        {"blank lines at the end", Joined(RatioLines()) + "\n \r\n"},
        {"no break at the end", Joined(RatioLines()).substr(0, Joined(RatioLines()).size() - 1)},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.why);
        const RatioLoad load = LoadRatioText(row.text);
        ASSERT_TRUE(load.ratios) << load.problem.line << load.problem.text;
        EXPECT_EQ(load.ratios->thicknesses[1], 2);
        EXPECT_EQ(load.ratios->thicknesses[2], 0);
        EXPECT_EQ(load.ratios->labor[CostRatios::flat][1], 20);
        EXPECT_EQ(load.ratios->materials[3].InsulationType, 4);
        EXPECT_EQ(load.ratios->materials[3].ratios[CostRatios::flat][0], 0.25F);
        EXPECT_THAT(CheckRatioText(row.text), IsEmpty());
    }
    Lines wide = RatioLines();
    wide[27] = Repeated("3", 21);
    EXPECT_EQ(LoadRatioText(Joined(wide)).ratios->labor[CostRatios::flat][20], 3);
}

TEST(RatioFile, CheckListsEveryProblemAndWhatIsDoubtful) {
    EXPECT_THAT(CheckRatioFile(KALORIA_RESOURCES_DIR "/FEAratio.dta"), IsEmpty());
    Lines lines = RatioLines();
    lines[0] = "2,1";
    lines[1] = "10,0,5";
    lines[29] = "-0.5,1";
    lines[84] = "7";
    std::vector<int> where;
    for (const FileProblem& problem : CheckRatioText(Joined(lines))) {
        where.push_back(problem.line);
    }
    // No type 3; thicknesses fall; a ratio without thickness; a negative one, one without labor.
    EXPECT_THAT(where, ::testing::ElementsAre(0, 1, 2, 30, 30));
    EXPECT_TRUE(LoadRatioText(Joined(lines)).ratios) << "doubts do not stop it";
    lines[100] = lines[130] = "a,b";
    EXPECT_EQ(CheckRatioText(Joined(lines)).size(), 8U); // type 3 is not looked for in a broken file
}

TEST(RatioFile, IsParsedAgainOnlyWhenItHasChanged) {
    const test::TemporaryFolder folder;
    const auto path = folder / "FEAratio.dta";
    RatioFileCache cache;
    EXPECT_FALSE(cache.Load(path).ratios);
    const auto rewrite = [&](const char* heading, int second) {
        Lines lines = RatioLines();
        lines[0] = heading;
        Spill(path, Joined(lines));
        std::filesystem::last_write_time(path, std::filesystem::file_time_type(std::chrono::seconds(second)));
        return cache.Load(path);
    };
    EXPECT_EQ(rewrite("1,2", 1).ratios->thicknesses[1], 2) << "what could not be read is tried again";
    EXPECT_EQ(rewrite("1,3", 1).ratios->thicknesses[1], 2) << "same size and time: kept";
    EXPECT_EQ(rewrite("1,3", 2).ratios->thicknesses[1], 3);
    EXPECT_EQ(rewrite("1,3.5", 2).ratios->thicknesses[1], 3.5F);
    EXPECT_EQ(rewrite("1,x", 3).problem.line, 1);
    EXPECT_EQ(rewrite("1,4", 4).ratios->thicknesses[1], 4);
    Spill(path, std::string(1 << 20, '1'));
    EXPECT_THAT(cache.Load(path).problem.text, HasSubstr("larger than"));
}

} // namespace
} // namespace kaloria
