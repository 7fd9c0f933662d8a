// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/custom_costs.h"
#include "tests/support/ratio_lines.h"
#include "tests/support/temporary_folder.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <gmock/gmock.h>

namespace kaloria {
namespace {

using test::Joined;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using Lines = std::vector<std::string>;

std::string Unused(int count) { return fmt::format(",{}", test::Repeated("0", count)); }

/// Two thicknesses in use; the size at position p costs p and p + 0.25.
Lines CostLines() {
    Lines lines{"1,2.5" + Unused(16)};
    for (int position = 1; position <= 29; ++position) {
        lines.push_back(fmt::format("{0},{0}.25{1}", position, Unused(16)));
    }
    return lines;
}

/// The costs with one line replaced.
std::string With(std::size_t line, const std::string& text) {
    Lines lines = CostLines();
    lines.at(line - 1) = text;
    return Joined(lines);
}

std::string OfLines(std::size_t count) {
    Lines lines = CostLines();
    lines.resize(count, lines.back());
    return Joined(lines);
}

TEST(CustomCosts, ComeBackAsTheyWereSaved) {
    const test::TemporaryFolder folder;
    const auto path = CustomCostsPath(folder / "plant 3.north.kal");
    EXPECT_EQ(path, folder / "plant 3.north.costs.csv");
    CCostData costs;
    EXPECT_FALSE(LoadCustomCostsText(Joined(CostLines(), "\r\n"), costs));
    EXPECT_EQ(costs.GetCostData(29, 2).InstalledCost, 29.25F);
    EXPECT_EQ(costs.GetCostData(29, 2).Thickness, 2.5F);
    costs.GetCostData(7, 1).InstalledCost = 0.1F; // has no short binary form
    SaveCustomCosts(path, costs);
    EXPECT_EQ(test::Slurp(path).substr(0, 6), "1,2.5,");
    EXPECT_THAT(CheckCustomCosts(path), IsEmpty());
    CCostData reloaded;
    reloaded.GetCostData(30, 20).InstalledCost = 1;
    EXPECT_FALSE(LoadCustomCosts(path, reloaded));
    EXPECT_EQ(reloaded.FindCostData(30, 20), nullptr) << "nothing of the old grid stays";
    EXPECT_EQ(reloaded.GetCostData(7, 1).InstalledCost, 0.1F);
    EXPECT_EQ(CustomCostsText(reloaded), test::Slurp(path));
}

TEST(CustomCosts, NameLineAndFieldOfWhateverIsBroken) {
    const struct {
        const char* why;
        std::string text;
        int line;
        const char* problem;
    } rows[] = {
        {"empty", "", 1, "has 30 lines, this one 0"},
        {"a size too few", OfLines(29), 30, "has 30 lines, this one 29"},
        {"a size too many", OfLines(31), 31, "has 30 lines, this one 31"},
        {"a column of names in front", With(4, "NPS 1,3,3.25" + Unused(16)), 4, "field 1: \"NPS 1\""},
        {"a cost too few", With(4, "3,3.25" + Unused(15)), 4, "field 18: missing"},
        {"a cost too many", With(4, "3,3.25" + Unused(17)), 4, "field 19: too many"},
        {"empty cell", With(30, ",29.25" + Unused(16)), 30, "field 1: empty"},
        {"negative cost", With(3, "2,-2.25" + Unused(16)), 3, "field 2: -2.25 is negative"},
        {"not finite", With(3, "inf,2" + Unused(16)), 3, "field 1: \"inf\""},
        {"semicolons", With(1, "1;2"), 1, "field 1: \"1;2\""},
        {"no thickness", With(1, "0" + Unused(17)), 1, "field 1: the first thickness"},
        {"falling thickness", With(1, "3,2.5" + Unused(16)), 1, "field 2: thicknesses have to rise"},
        {"a gap", With(1, "1,2.5,0,3" + Unused(14)), 1, "field 4: a thickness behind one"},
        {"a cost of no thickness", With(6, "5,5,5" + Unused(15)), 6, "field 3: a cost where line 1"},
    };
    CCostData costs;
    costs.GetCostData(1, 1).InstalledCost = 12;
    for (const auto& row : rows) {
        SCOPED_TRACE(row.why);
        const auto problem = LoadCustomCostsText(row.text, costs);
        ASSERT_TRUE(problem);
        EXPECT_EQ(problem->line, row.line);
        EXPECT_THAT(problem->text, HasSubstr(row.problem));
        EXPECT_EQ(costs.GetCostData(1, 1).InstalledCost, 12);
    }
    const test::TemporaryFolder folder;
    EXPECT_THAT(LoadCustomCosts(folder / "none.costs.csv", costs)->text, HasSubstr("No such file"));
}

} // namespace
} // namespace kaloria
