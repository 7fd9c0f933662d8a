// SPDX-License-Identifier: GPL-3.0-or-later
// The published cases against the engine, and that the comparison and the reading can say no.
#include "application/validation.h"

#include <gtest/gtest.h>

#include <cmath>
#include <gmock/gmock.h>
#include <map>
#include <string>

namespace kaloria {
namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;

const std::vector<ValidationCase>& Shipped() {
    static const auto cases = LoadValidationCases(KALORIA_RESOURCES_DIR "/validation_cases.json");
    return cases;
}

TEST(Validation, EveryPublishedCaseIsMet) {
    std::map<std::string, int> perGroup;
    for (const ValidationCase& c : Shipped()) {
        SCOPED_TRACE(c.id + " " + c.subject + ", " + c.source);
        ++perGroup[c.group];
        const ValidationResult result = RunValidation(c);
        EXPECT_EQ(result.fault, "");
        EXPECT_TRUE(result.met) << result.ours << " for " << c.published << " " << c.unit << ", allowed "
                                << result.allowed;
    }
    const std::map<std::string, int> expected{{"A", 14}, {"B", 18}, {"C", 24}, {"T", 52},
                                              {"P", 13}, {"G", 20}, {"E", 6}};
    EXPECT_EQ(perGroup, expected);
}

TEST(Validation, AValueOutsideTheToleranceIsNotMet) {
    for (const ValidationCase& c : Shipped()) {
        SCOPED_TRACE(c.id);
        const double unit = c.tolerance.relative ? std::abs(c.published) : 1.0;
        EXPECT_TRUE(CompareWithPublished(c, c.published + 0.99 * c.tolerance.above * unit).met);
        EXPECT_TRUE(CompareWithPublished(c, c.published - 0.99 * c.tolerance.below * unit).met);
        EXPECT_FALSE(CompareWithPublished(c, c.published + 1.01 * c.tolerance.above * unit).met);
        EXPECT_FALSE(CompareWithPublished(c, c.published - 1.01 * c.tolerance.below * unit).met);
        EXPECT_FALSE(CompareWithPublished(c, std::nan("")).met);
    }
}

/// A case that runs, from whose text the tests below break one thing each.
const std::string sound = R"({"cases": [{
    "id": "X1", "group": "X", "subject": "s", "method": "layered_wall", "quantity": "heat flux",
    "inputs": {"inside temperature [degC]": 100, "outside temperature [degC]": 0},
    "layers": [{"thickness [mm]": 100, "conductivity [W/(m K)]": 0.05}],
    "published": 50, "unit": "W/m2", "tolerance": {"absolute": 0.001}, "source": "by hand: 100 K 0.05 / 0.1"}]})";

std::string With(const std::string& part, const std::string& instead) {
    std::string text = sound;
    const auto at = text.find(part);
    EXPECT_NE(at, std::string::npos) << part;
    return text.replace(at, part.size(), instead);
}

TEST(Validation, BrokenFilesAreNamedAndRefused) {
    ASSERT_TRUE(RunValidation(ParseValidationCases(sound, "f").front()).met);
    const std::string entry = sound.substr(sound.find('[') + 1, sound.size() - sound.find('[') - 3);
    const struct {
        std::string text, message;
    } files[] = {
        {"", "parse error"},
        {sound.substr(0, 200), "parse error"},
        {With("50,", "1e400,"), "number overflow"},
        {With("\"s\"", "\"\xff\""), "UTF-8"},
        {std::string(100000, '['), "nested too deeply"},
        {"[1]", "no list of cases"},
        {R"({"cases": []})", "no case"},
        {R"({"cases": [7]})", "case 1: not an object"},
        {R"({"cases": [{"id": ""}]})", "case 1: id is not a text"},
        {With(entry, entry + "," + entry), "case X1: the identifier occurs twice"},
        {With("\"source\"", "\"sauce\""), "case X1: source is missing"},
        {With("layered_wall", "guess"), "case X1: there is no method \"guess\""},
        {With("heat flux", "mood"), "no quantity \"mood\""},
        {With("W/m2", "K"), "a heat flux cannot be in \"K\""},
        {With("[mm]", "[furlong]"), "unknown unit"},
        {With(" [mm]", ""), "no unit in brackets"},
        {With("[mm]\": 100", "[mm]\": \"100\""), "is not a number"},
        {With("\"outside temperature [degC]\"", "\"inside temperature [K]\""), "given twice"},
        {With("[{\"thickness", "[3, {\"thickness"), "are objects"},
        {With("0.001", "-1"), "tolerance is not positive"},
        {With("absolute", "about"), "absolute is missing"},
        {With("{\"absolute\": 0.001}", "{\"relative\": {\"below\": 1}}"), "above is missing"},
        {With("{\"absolute\"", "{\"relative\": 1, \"absolute\""), "neither relative nor absolute"},
    };
    for (const auto& file : files) {
        SCOPED_TRACE(file.text.substr(0, 300));
        try {
            (void)ParseValidationCases(file.text, "cases.json");
            ADD_FAILURE() << "read";
        } catch (const ValidationFileError& error) {
            EXPECT_THAT(error.what(), AllOf(HasSubstr("cases.json: "), HasSubstr(file.message)));
        }
    }
    EXPECT_THROW((void)LoadValidationCases("no such file"), ValidationFileError);
    EXPECT_THROW((void)LoadValidationCases(KALORIA_RESOURCES_DIR), ValidationFileError);
}

TEST(Validation, CasesThatCannotBeComputedSayWhy) {
    const struct {
        std::string text, fault;
    } cases[] = {
        {With("inside temperature", "inner temperature"), "\"inside temperature\" is missing"},
        {With("\"inside temperature [degC]\"", "\"emitance [-]\": 1, \"inside temperature [degC]\""),
         "\"emitance\" plays no part"},
        {With("inside temperature [degC]", "inside temperature [m]"), "cannot be in m"},
        {With("[mm]\": 100", "[mm]\": 0"), "a thickness is not positive"},
        {With("0.05", "0"), "a conductivity is not positive"},
        {With("[degC]\": 100", "[degC]\": 1e300"), ""},
        {With("layered_wall", "nusselt"), "no correlation"},
        {With("layered_wall", "film_routine"), "is missing"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.text);
        const ValidationResult result = RunValidation(ParseValidationCases(c.text, "f").front());
        EXPECT_FALSE(result.met);
        EXPECT_THAT(result.fault, HasSubstr(c.fault));
    }
}

} // namespace
} // namespace kaloria
