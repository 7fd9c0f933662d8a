// SPDX-License-Identifier: GPL-3.0-or-later
// The report wizard: dates, required fields and the 29 check boxes.
#include "application/wizard_rules.h"
#include "tests/support/shipped_catalogue.h"

#include <gtest/gtest.h>

#include <gmock/gmock.h>
#include <numeric>

namespace kaloria {
namespace {

using ::testing::ElementsAre;

TEST(WizardRules, DatesInCommonFormsAreReadAndOthersRefused) {
    for (const char* const valid :
         {"03/09/2024", "3/9/2024", " 03/09/2024 ", "2024-03-09", "9.3.2024", "09.03.2024", "March 9, 2024",
          "mar 9, 2024", "9 March 2024", "09-Mar-2024", "Mar. 9 2024", "9. March 2024"}) {
        const auto date = ParseDate(valid);
        ASSERT_TRUE(date) << valid;
        EXPECT_EQ(DateText(*date), "03/09/2024") << valid;
        EXPECT_EQ(DateProblem(valid), "");
    }
    for (const char* const invalid :
         {"13/09/2024", "02/30/2024", "02/29/2023", "0/9/2024",   "3/0/2024",       "3/9/24",
          "3/9",        "3/9/2024/1", "2024",       "today",      "Marchy 9, 2024", "Ma 9, 2024",
          "3/9-2024",   "3//9/2024",  "/3/9/2024",  "3/9/2024/",  "3/9/99999",      "3/9/1899",
          "03-09-2024", "3/9/2024 x", "３/9/2024",  "1e1/9/2024", "-3/9/2024"}) {
        EXPECT_EQ(DateProblem(invalid), "The project date is not valid.") << invalid;
    }
    EXPECT_TRUE(ParseDate("02/29/2024"));
    EXPECT_EQ(DateProblem("  "), "") << "whether it is needed is asked elsewhere";
    EXPECT_TRUE(ParseDate(Today()));
}

TEST(WizardRules, ProjectNumberAndDateAreRequired) {
    const struct {
        const char* number;
        const char* date;
        const char* expected;
    } cases[] = {
        {"P-1", "03/09/2024", ""},
        {"", "03/09/2024", "The Project Number and Date are required fields."},
        {"P-1", " ", "The Project Number and Date are required fields."},
        {"P-1", "31/12/2024", "The project date is not valid."},
    };
    for (const auto& c : cases) {
        Job job;
        job[Field::ProjectNumber] = c.number;
        job[Field::Date] = c.date;
        EXPECT_EQ(ProjectProblem(job), c.expected) << c.number << c.date;
    }
}

TEST(WizardRules, TheCheckBoxesGiveTheItemsOfTheReport) {
    const Catalogue catalogue = test::ShippedCatalogue();
    Job job;
    job[Field::SurfaceGeometry] = "Top of Vessel or Duct";
    ItemTicks ticks = ItemTicks::Of(job, catalogue);
    EXPECT_THAT(ticks.Positions(), ElementsAre(28));
    EXPECT_EQ(SurfacesProblem(ticks), "");
    ticks.Tick(28, false);
    EXPECT_EQ(SurfacesProblem(ticks), "At least one surface must be selected.");
    EXPECT_EQ(ticks.SelectRange("1, 3-5, 7,8"), "");
    EXPECT_EQ(ticks.RangeText(), "1,3-5,7,8");
    EXPECT_EQ(SurfacesProblem(ticks), "At least one surface must be selected.") << "pipes are no surfaces";
    EXPECT_FALSE(ticks.SelectRange("1,30").empty());
    EXPECT_EQ(ticks.RangeText(), "1,3-5,7,8") << "a slip changes nothing";
    for (const int flat : {27, 28, 29}) {
        ticks.SelectNone();
        ticks.Tick(flat, true);
        EXPECT_EQ(SurfacesProblem(ticks), "") << flat;
    }
    EXPECT_EQ(*ticks.Choice().items, std::vector{29});
    ticks.KeepIn(job);
    EXPECT_EQ(job[Field::ReportAllSurfaces], "False");

    ticks.SelectAll();
    ticks.KeepIn(job);
    const ItemTicks all = ItemTicks::Of(job, catalogue);
    EXPECT_EQ(all.RangeText(), "1-29");
    EXPECT_EQ(all.Choice().items->size(), 29U);
    EXPECT_THROW(ticks.Tick(30, true), std::out_of_range);
    EXPECT_THROW((void)ticks.IsTicked(0), std::out_of_range);
}

} // namespace
} // namespace kaloria
