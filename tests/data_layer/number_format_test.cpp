// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/field_check.h"
#include "data/number_format.h"
#include "data/quantity.h"

#include <gtest/gtest.h>

#include <limits>
#include <set>

namespace kaloria {
namespace {

TEST(NumberFormat, RoundsHalvesAwayFromZeroAsReadByHand) {
    const struct {
        const char* why;
        double value;
        NumberFormat format;
        const char* text;
    } rows[] = {
        {"a tie that binary holds exactly", 0.125, NumberFormat::hundredths, "0.13"},
        {"a tie that binary holds a hair low", 2.675, NumberFormat::hundredths, "2.68"},
        {"the same in single precision", static_cast<double>(110.85F), NumberFormat::tenths, "110.9"},
        {"a negative tie", -2.5, NumberFormat::whole, "-3"},
        {"a carry through every digit", 999.995, NumberFormat::hundredths, "1000.00"},
        {"a carry into the first digit", 0.96, NumberFormat::tenths, "1.0"},
        {"no minus before zero", -0.004, NumberFormat::hundredths, "0.00"},
        {"far below the last place", 1e-9, NumberFormat::thousandths, "0.000"},
        {"half of the last place", 0.0005, NumberFormat::thousandths, "0.001"},
        {"no grouping", 13085197.0, NumberFormat::whole, "13085197"},
        {"digits beyond single precision", 1234567.891, NumberFormat::thousandths, "1234567.891"},
        {"scientific", 38257172.0, NumberFormat::scientific, "3.826E+07"},
        {"scientific, carry", 9.9996e-5, NumberFormat::scientific, "1.000E-04"},
        {"shortest of a whole number", 6.0, NumberFormat::shortest, "6"},
        {"shortest of a fraction", static_cast<double>(0.0806F), NumberFormat::shortest, "0.0806"},
        {"not a number", std::numeric_limits<double>::quiet_NaN(), NumberFormat::tenths, ""},
        {"infinite", std::numeric_limits<double>::infinity(), NumberFormat::scientific, ""},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(FormatNumber(row.value, row.format), row.text) << row.why;
    }
}

TEST(Quantity, ConvertsThereAndBack) {
    for (int i = 0; i <= static_cast<int>(Quantity::heatContent); ++i) {
        const auto quantity = static_cast<Quantity>(i);
        const double there = FromEnglish(quantity, Units::si, 123.4);
        EXPECT_NEAR(ToEnglish(quantity, Units::si, there), 123.4, 1e-4) << i;
    }
    // Prices per unit go the other way than the unit: a dollar per foot is 3.28 dollars per meter.
    EXPECT_NEAR(FromEnglish(Quantity::pipePrice, Units::si, 1), 3.28084, 1e-5);
    EXPECT_NEAR(FromEnglish(Quantity::boardPrice, Units::si, 1), 10.7639, 1e-4);
    EXPECT_NEAR(FromEnglish(Quantity::waterCost, Units::si, 1), 0.264173, 1e-6);
    EXPECT_NEAR(FromEnglish(Quantity::temperatureDifference, Units::si, 18), 10, 1e-9);
    EXPECT_NEAR(FromEnglish(Quantity::conductivity, Units::si, 1), 0.144228, 1e-9);
}

TEST(FieldTable, IsConsistent) {
    std::set<std::string_view> elements;
    std::set<std::string_view> controls;
    for (const JobField& field : JobFields()) {
        SCOPED_TRACE(field.element);
        EXPECT_TRUE(elements.insert(field.element).second);
        EXPECT_TRUE(controls.insert(field.control).second) << field.control;
        EXPECT_FALSE(field.label.empty());
        EXPECT_FALSE(field.help.empty());
        EXPECT_EQ(FindField(field.element), &field);
        // The defaults of both unit systems may stand in their own field, and mean about the same.
        EXPECT_FALSE(WhatIsWrong(field, field.defaultText, Units::english)) << field.defaultText;
        EXPECT_FALSE(WhatIsWrong(field, field.defaultTextSI, Units::si)) << field.defaultTextSI;
        if (field.kind == FieldKind::number && field.quantity == Quantity::temperature) {
            const double si = std::stod(std::string(field.defaultTextSI));
            EXPECT_NEAR(ToEnglish(field.quantity, Units::si, si), std::stod(std::string(field.defaultText)),
                        5.0);
        }
    }
    EXPECT_EQ(FindField("processtemp"), nullptr);
}

TEST(FieldCheck, SaysWhatIsWrong) {
    const struct {
        Field field;
        const char* text;
        Units units;
        bool wrong;
    } rows[] = {
        {Field::ProcessTemp, "3000", Units::english, false},
        {Field::ProcessTemp, "3001", Units::english, true},
        {Field::ProcessTemp, "1648.8", Units::si, false},
        {Field::ProcessTemp, "1649", Units::si, true},
        {Field::ProcessTemp, "", Units::english, false},
        {Field::ProcessTemp, "1,5", Units::english, true},
        {Field::ProcessTemp, "nan", Units::english, true},
        {Field::ProcessTemp, "1e400", Units::english, true},
        {Field::RelativeHumidity, "101", Units::si, true},
        {Field::FEA, "true", Units::english, true},
        {Field::CompanyName, "1,5 nan", Units::english, false},
        {Field::InsulationThicknessCalculationType, "7", Units::english, true},
        {Field::ReportInstallationComplexity, "Very Simple", Units::english, false},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(WhatIsWrong(InfoOf(row.field), row.text, row.units).has_value(), row.wrong)
            << InfoOf(row.field).element << " " << row.text;
    }
    EXPECT_EQ(RangeText(InfoOf(Field::WindSpeed), Units::english), "0 to 200 mph");
}

} // namespace
} // namespace kaloria
