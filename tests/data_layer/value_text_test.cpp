// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/catalogue.h"
#include "data/value_text.h"
#include "data/xml_text.h"
#include "engine/number_text.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>
#include <random>

namespace kaloria {
namespace {

using namespace value_text;

TEST(ValueText, ReadsIntegersWithTiesToEvenAndChecksTheRange) {
    struct Row {
        const char* text = nullptr;
        std::optional<std::int32_t> value;
    };
    const Row rows[] = {
        {"12", 12},
        {" -7 ", -7},
        {"0.5", 0},
        {"1.5", 2},
        {"2.5", 2},
        {"-2.5", -2},
        {"2.51", 3},
        {"1e3", 1000},
        {"2147483647", 2147483647},
        {"2147483647.4", 2147483647},
        {"2147483647.5", std::nullopt},
        {"-2147483648", std::numeric_limits<std::int32_t>::min()},
        {"-2147483649", std::nullopt},
        {"1,5", std::nullopt},
        {"0x10", std::nullopt},
        {"nan", std::nullopt},
        {"1e400", std::nullopt},
        {"", std::nullopt},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(ParseInteger(row.text), row.value) << row.text;
    }
    EXPECT_EQ(RoundToInteger(std::nan("")), std::nullopt);
}

TEST(ValueText, ReadsFlags) {
    struct Row {
        const char* text = nullptr;
        std::optional<bool> value;
    };
    for (const Row& row :
         {Row{"True", true}, Row{"tRUE", true}, Row{"FALSE", false}, Row{"0", false}, Row{"-0.1", true},
          Row{"-1", true}, Row{"yes", {}}, Row{"Truely", {}}, Row{"", {}}}) {
        EXPECT_EQ(ParseFlag(row.text), row.value) << row.text;
    }
}

TEST(ValueText, WritesTheShortestRealThatReadsBack) {
    struct Row {
        float value;
        const char* text;
    };
    for (const Row& row : {Row{0.0F, "0"}, Row{0.1F, "0.1"}, Row{-2.5F, "-2.5"}, Row{1000000.0F, "1000000"},
                           Row{1.426585e-06F, "0.000001426585"}, Row{16777216.0F, "16777216"}}) {
        EXPECT_EQ(RealText(row.value), row.text);
    }
    EXPECT_EQ(ParseSingle("3.4028235e38"), std::numeric_limits<float>::max());
    EXPECT_EQ(ParseSingle("-3.4028236e38"), std::nullopt);
    std::mt19937 random(1);
    for (int i = 0; i < 100'000; ++i) {
        const auto bits = static_cast<std::uint32_t>(random());
        float value = 0;
        std::memcpy(&value, &bits, sizeof value);
        if (std::isfinite(value)) {
            ASSERT_EQ(ParseSingle(RealText(value)), value) << RealText(value);
        }
    }
}

TEST(XmlText, LeavesOutOrReplacesWhatAFileCannotHold) {
    struct Row {
        std::string given;
        std::string expected;
    };
    const std::string mark = "\xEF\xBF\xBD";
    const Row rows[] = {
        {"plain\t\r\n <&>\"", "plain\t\r\n <&>\""},
        {"350 \xC2\xB0"
         "F \xE2\x82\xAC \xF0\x9F\x94\xA5",
         "350 \xC2\xB0"
         "F \xE2\x82\xAC \xF0\x9F\x94\xA5"},
        {std::string("a\0b\x01\x1F", 5), "ab"},
        {"350 \xB0", "350 " + mark},                     // Latin-1
        {"\xC0\x80", mark + mark},                       // overlong
        {"\xE0\x80\x80", mark + mark + mark},            // overlong
        {"\xED\xA0\x80", mark + mark + mark},            // surrogate
        {"\xEF\xBF\xBF", mark + mark + mark},            // no character
        {"\xF4\x90\x80\x80", mark + mark + mark + mark}, // beyond Unicode
        {"\xE2\x82", mark + mark},                       // cut off
    };
    for (const Row& row : rows) {
        EXPECT_EQ(XmlText(row.given), row.expected);
    }
}

TEST(Catalogue, FindsTheFirstRecordAndNumbersNewOnes) {
    Catalogue catalogue;
    EXPECT_EQ(NextId(catalogue.Fuels), 1);
    for (const std::int32_t id : {3, 8, 3}) {
        catalogue.Fuels.emplace_back().ID = id;
        catalogue.Fuels.back().Name = "Coal";
    }
    EXPECT_EQ(FindById(catalogue.Fuels, 3), &catalogue.Fuels.front());
    EXPECT_EQ(FindByName(catalogue.Fuels, "Coal"), &catalogue.Fuels.front());
    EXPECT_EQ(FindById(catalogue.Fuels, 4), nullptr);
    EXPECT_EQ(FindByName(catalogue.Fuels, "coal"), nullptr);
    EXPECT_EQ(NextId(catalogue.Fuels), 9);
    catalogue.Fuels.back().ID = std::numeric_limits<std::int32_t>::max();
    EXPECT_THROW((void)NextId(catalogue.Fuels), std::length_error);
}

TEST(Catalogue, HeaderTextsHaveBounds) {
    HeaderTexts texts;
    texts.Set(5, 5, 10, "last");
    texts.Set(2, 3, 0, "first of its item");
    EXPECT_EQ(texts.At(5, 5, 10), "last");
    EXPECT_EQ(texts.At(2, 3), "first of its item");
    for (const auto& [category, item, sub] :
         {std::tuple{6, 0, 0}, {0, 6, 0}, {0, 0, 11}, {-1, 0, 0}, {0, -1, 0}, {0, 0, -1}}) {
        EXPECT_THROW((void)texts.At(category, item, sub), std::out_of_range);
    }
}

} // namespace
} // namespace kaloria
