// SPDX-License-Identifier: GPL-3.0-or-later
// How the window shows and edits a job: visible fields, labels, choices, the units switch.
#include "application/case_inputs.h"
#include "application/choice_rules.h"
#include "application/messages.h"
#include "application/units_memory.h"
#include "application/visible_fields.h"
#include "tests/support/shipped_catalogue.h"

#include <gtest/gtest.h>

#include <gmock/gmock.h>
#include <map>

namespace kaloria {
namespace {

using ::testing::ElementsAre;

class WindowJob : public ::testing::Test {
protected:
    void Set(Field field, std::string_view text) { job[field] = text; }

    Catalogue catalogue = test::ShippedCatalogue();
    Job job;
};

TEST_F(WindowJob, ShowsWhatTheCaseUsesAndNothingElse) {
    using F = Field;
    const struct {
        F condition;
        const char* text;
        std::vector<F> shown;
        std::vector<F> hidden;
    } cases[] = {
        {F::SurfaceGeometry, "Vertical Tube", {F::PipeSize}, {F::DuctWidth, F::DuctDepth}},
        {F::SurfaceGeometry, "Vertical Rectangular Duct", {F::DuctWidth, F::DuctDepth}, {F::PipeSize}},
        {F::SurfaceGeometry, "Vertical Flat", {F::ProcessTemp}, {F::PipeSize, F::DuctWidth}},
        {F::InsulationThicknessCalculationType,
         "Personnel Protection",
         {F::MaxSurfaceTemp},
         {F::HeatFlowLimit, F::DewPoint, F::Fuel, F::HoursPerYear}},
        {F::InsulationThicknessCalculationType,
         "Condensation Control",
         {F::WetBulbTemperature, F::RelativeHumidity, F::DewPoint},
         {F::MaxSurfaceTemp, F::Fuel}},
        {F::InsulationThicknessCalculationType, "Heat Flow Limitation", {F::HeatFlowLimit}, {F::DewPoint}},
        {F::InsulationThicknessCalculationType,
         "Heat Loss Per Year",
         {F::Fuel, F::HeatContent, F::FuelCost, F::ConversionEfficiency, F::HoursPerYear},
         {F::MaxSurfaceTemp}},
        {F::InsulationThicknessCalculationType, "Insulation Thickness Table", {F::MaxSurfaceTemp}, {F::Fuel}},
        {F::HotSurface,
         "True",
         {F::ReportEfficiency},
         {F::ChillerMakeUpWaterCost, F::ChillerCondensorFactor}},
        {F::HotSurface,
         "False",
         {F::ChillerMakeUpWaterCost, F::ChillerRelativeHumidity},
         {F::ReportEfficiency}},
        {F::NewApplication, "True", {}, {F::ReportExistingInsulationMaterial}},
        {F::NewApplication, "False", {F::ReportExistingInsulationThickness}, {}},
        {F::UserSuppliedCostData, "True", {F::ReportInsulationMaterial}, {F::ReportLaborRate}},
        {F::UserSuppliedCostData, "False", {F::ReportLaborRate, F::ReportRegionalProductivity}, {}},
    };
    for (const auto& c : cases) {
        job = Job();
        Set(c.condition, c.text);
        SCOPED_TRACE(std::string(InfoOf(c.condition).element) + "=" + c.text);
        for (const F field : c.shown) {
            EXPECT_TRUE(IsShown(field, job, catalogue)) << InfoOf(field).element;
        }
        for (const F field : c.hidden) {
            EXPECT_FALSE(IsShown(field, job, catalogue)) << InfoOf(field).element;
        }
    }
    job.moisture = F::DewPoint;
    EXPECT_TRUE(IsInUse(F::DewPoint, job) && IsInUse(F::ProcessTemp, job));
    EXPECT_FALSE(IsInUse(F::RelativeHumidity, job));
}

TEST_F(WindowJob, LabelsFollowGeometryFuelAndUnits) {
    const struct {
        Field field;
        const char* geometry;
        const char* fuel;
        const char* english;
        const char* si;
    } cases[] = {
        {Field::PipeSize, "Horizontal Pipe", "", "NPS Pipe Size:", "NPS Pipe Size:"},
        {Field::PipeSize, "Horizontal Tube", "", "NTS Tube Size:", "NTS Tube Size:"},
        {Field::DuctWidth, "Vertical Rectangular Duct", "", "Duct Width:", "Duct Width:"},
        {Field::DuctDepth, "Vertical Rectangular Duct", "", "Duct Depth:", "Duct Depth:"},
        {Field::DuctWidth, "Horizontal Rectangular Duct", "",
         "Duct Horiz. Dimension:", "Duct Horiz. Dimension:"},
        {Field::DuctDepth, "Horizontal Rectangular Duct", "",
         "Duct Vert. Dimension:", "Duct Vert. Dimension:"},
        {Field::FuelCost, "", "Natural Gas", "First Year Cost ($/Mcf):", "First Year Cost ($/Mm^3):"},
        {Field::FuelCost, "", "Propane", "First Year Cost ($/gal):", "First Year Cost ($/l):"},
        {Field::FuelCost, "", "Wood", "First Year Cost ($/ton):", "First Year Cost ($/tonne):"},
        {Field::FuelCost, "", "Electricity", "First Year Cost ($/kWh):", "First Year Cost ($/kwh):"},
        {Field::HeatContent, "", "Natural Gas", "Heating Value (Btu/cf):", "Heating Value (J/m^3):"},
        {Field::HeatContent, "", "Electricity", "Heating Value (Btu/kWh):", "Heating Value (J/kwh):"},
        {Field::ReportHeatingValue, "", "LPG By Weight",
         "Heating Value (Btu/lb):", "Heating Value (J/tonne):"},
        {Field::FuelCost, "", "Not There", "First Year Cost:", "First Year Cost:"},
        {Field::InvestmentRate, "", "", "Incremental Cost of Plant Capacity ($/MMBtu/hr):",
         "Incremental Cost of Plant Capacity ($/MMJ/hr):"},
        {Field::AnnualAverageTemp, "", "",
         "Average Annual Ambient Temperature (°F):", "Average Annual Ambient Temperature (°C):"},
        {Field::AnnualAverageWindSpeed, "", "",
         "Average Annual Wind Speed (mph):", "Average Annual Wind Speed (m/s):"},
        {Field::ReportPipeInsulationPrice, "", "",
         "Material Price, $/ft for 2 x 2 pipe insulation, including jacket:",
         "Material Price, $/m for 50 x 50 pipe insulation, including jacket:"},
        {Field::ReportBoardInsulationPrice, "", "",
         "Material Price, $/sqft for 2 inch thick board or block, including jacket:",
         "Material Price, $/m^2 for 50 mm thick board or block, including jacket:"},
        {Field::PaybackReferenceThickness, "", "", "Thickness (in):", "Thickness (mm):"},
        {Field::ChillerWetBulbTemperature, "", "",
         "Wet Bulb Design Temperature (F):", "Wet Bulb Design Temperature (C):"},
        {Field::ChillerMakeUpWaterCost, "", "",
         "Cost of Chiller Make-Up Water ($/1000 gallons):", "Cost of Chiller Make-Up Water ($/1000 liters):"},
    };
    for (const auto& c : cases) {
        for (const char* const units : {"English", "SI"}) {
            Set(Field::SurfaceGeometry, c.geometry);
            Set(Field::Fuel, c.fuel);
            Set(Field::ReportFuel, c.fuel);
            Set(Field::Units, units);
            EXPECT_EQ(LabelOf(c.field, job, catalogue), std::string(units) == "SI" ? c.si : c.english);
            const bool beside = InfoOf(c.field).quantity == Quantity::length && c.geometry[0] != '\0';
            EXPECT_EQ(UnitTextOf(c.field, job, catalogue).empty(), !beside) << c.english;
        }
    }
    const std::map<Field, std::pair<const char*, const char*>> units{
        {Field::ProcessTemp, {"°F", "°C"}},
        {Field::WindSpeed, {"mph", "m/s"}},
        {Field::DuctWidth, {"in", "mm"}},
        {Field::HeatFlowLimit, {"BTU/hr/ft^2", "W/m^2"}}};
    for (const auto& [field, texts] : units) {
        Set(Field::Units, "English");
        EXPECT_EQ(UnitTextOf(field, job, catalogue), texts.first);
        Set(Field::Units, "SI");
        EXPECT_EQ(UnitTextOf(field, job, catalogue), texts.second);
    }
    Set(Field::SurfaceGeometry, "Vertical Tank");
    EXPECT_EQ(TankNote(job, catalogue), "NOTE: heat loss from ends of tank not included");
    Set(Field::SurfaceGeometry, "Vertical Flat");
    EXPECT_EQ(TankNote(job, catalogue), "");
    EXPECT_EQ(LayerThicknessHeading(Units::english), "Thickness, Inches");
    EXPECT_EQ(LayerThicknessHeading(Units::si), "Thickness, mm");
}

TEST_F(WindowJob, ThicknessTableAndGeometryKeepEachOtherPossible) {
    Set(Field::SurfaceGeometry, "Vertical Flat");
    auto outcome = ChooseCalculationType(job, catalogue, calculation_type::thicknessTable);
    EXPECT_EQ(outcome.message, "This report can only be selected for pipe or tubing.  Therefore, the system "
                               "application has been changed to pipe.");
    EXPECT_EQ(job[Field::SurfaceGeometry], "Horizontal Pipe");
    EXPECT_EQ(CalculationTypeOf(job), 6);

    outcome = ChooseGeometry(job, catalogue, "Vertical Tube");
    EXPECT_EQ(outcome.message, "");
    EXPECT_EQ(CalculationTypeOf(job), 6);

    outcome = ChooseGeometry(job, catalogue, "Horizontal Tank");
    EXPECT_EQ(outcome.message, "An insulation thickness table can only be created for pipes and tubes.  "
                               "Therefore, the calculation type has been changed.");
    EXPECT_NE(CalculationTypeOf(job), 6);
    EXPECT_EQ(job[Field::SurfaceGeometry], "Horizontal Tank");

    Set(Field::SurfaceGeometry, "Vertical Tube");
    EXPECT_EQ(ChooseCalculationType(job, catalogue, 6).message, "");
    EXPECT_EQ(job[Field::SurfaceGeometry], "Vertical Tube");
}

TEST_F(WindowJob, ASizeGoesOverBetweenPipesAndTubesByItsNominalSize) {
    const struct {
        const char* units;
        const char* from;
        const char* size;
        const char* to;
        const char* expected;
    } cases[] = {
        {"English", "Horizontal Pipe", "2", "Vertical Tube", "2"},
        {"English", "Horizontal Pipe", "2", "Vertical Pipe", "2"},
        {"English", "Horizontal Pipe", "6", "Vertical Flat", "6"},
        {"English", "Vertical Flat", "6", "Horizontal Tube", "6"},
        {"SI", "Horizontal Pipe", "50", "Horizontal Tube", "2"}, // DN 50 is NPS 2
        {"SI", "Horizontal Tube", "4", "Horizontal Pipe", "100"},
        {"SI", "Vertical Flat", "150", "Vertical Pipe", "150"},
        {"English", "Vertical Flat", "0.375", "Vertical Pipe", "0.5"}, // waits since a tube was chosen
        {"SI", "Horizontal Tank", "3", "Horizontal Pipe", "80"},
        {"English", "Horizontal Pipe", "seven", "Horizontal Tube", "seven"}, // stays, to be marked
    };
    for (const auto& c : cases) {
        Set(Field::Units, c.units);
        Set(Field::SurfaceGeometry, c.from);
        Set(Field::PipeSize, c.size);
        const auto outcome = ChooseGeometry(job, catalogue, c.to);
        EXPECT_EQ(job[Field::PipeSize], c.expected) << c.units << c.from << c.to;
        EXPECT_EQ(outcome.notes.empty(), std::string_view(c.size) == c.expected);
    }
}

TEST_F(WindowJob, AFuelBringsItsFiguresInTheUnitsInForce) {
    ChooseFuel(job, catalogue, Field::Fuel, "Propane");
    EXPECT_EQ(job[Field::FuelCost], "2.43");
    EXPECT_EQ(job[Field::HeatContent], "91000");
    EXPECT_EQ(job[Field::ConversionEfficiency], "80");
    EXPECT_EQ(job[Field::ReportFuel], "Natural Gas");

    Set(Field::Units, "SI");
    const auto outcome = ChooseFuel(job, catalogue, Field::ReportFuel, "Propane");
    EXPECT_EQ(job[Field::ReportFuelCost], "0.642");         // 2.43 / 3.7854
    EXPECT_EQ(job[Field::ReportHeatingValue], "2.538E+07"); // 91000 x 1055.87 / 3.7854
    EXPECT_THAT(outcome.changed,
                ElementsAre(Field::ReportFuelCost, Field::ReportHeatingValue, Field::ReportEfficiency));
    ChooseFuel(job, catalogue, Field::Fuel, "Electricity");
    EXPECT_EQ(job[Field::FuelCost], "0.0806");
    ChooseFuel(job, catalogue, Field::Fuel, "Gone");
    EXPECT_EQ(job[Field::FuelCost], "0.0806");
}

TEST_F(WindowJob, UnitsAndBackReturnTheVeryTexts) {
    UnitsMemory memory;
    const std::map<Field, std::string> odd{{Field::ProcessTemp, "350.04"},
                                           {Field::AmbientTemp, "+75.00"},
                                           {Field::WindSpeed, "7.5e-1"},
                                           {Field::MaxSurfaceTemp, ""},
                                           {Field::DuctWidth, "12 in"},
                                           {Field::HeatFlowLimit, " 33.333 "},
                                           {Field::FuelCost, "4.5300"},
                                           {Field::HeatContent, "1026.4"},
                                           {Field::DewPoint, "59.96"},
                                           {Field::InvestmentRate, "12345.67"},
                                           {Field::ReportLaborRate, "38"},
                                           {Field::PipeSize, "2"},
                                           {Field::PaybackReferenceThickness, "1.50"}};
    for (const auto& [field, text] : odd) {
        Set(field, text);
    }
    job.layers.push_back({job.layers[0].material, "2", "Fix", "1.7749"});
    const Job typed = job;

    memory.Switch(job, catalogue, Units::si);
    EXPECT_EQ(job[Field::ProcessTemp], "176.7");
    EXPECT_EQ(job[Field::PipeSize], "50");
    const Job metric = job;
    for (int round = 0; round < 3; ++round) {
        memory.Switch(job, catalogue, Units::english);
        for (const JobField& field : JobFields()) {
            if (field.kind != FieldKind::material) {
                EXPECT_EQ(job[field.id], typed[field.id]) << field.element;
            }
        }
        EXPECT_EQ(job.layers[1].thickness, "1.7749");
        memory.Switch(job, catalogue, Units::si);
        EXPECT_EQ(job[Field::WindSpeed], metric[Field::WindSpeed]);
    }

    // What was edited since is converted; what belongs to another fuel or geometry too. 100 degC = 212 degF.
    Set(Field::ProcessTemp, "100");
    ChooseFuel(job, catalogue, Field::Fuel, "Propane");
    Set(Field::FuelCost, metric[Field::FuelCost]); // by chance the same figure, now $/l
    std::swap(job.layers[0], job.layers[1]);
    Set(Field::SurfaceGeometry, "Vertical Pipe"); // the same sizes and thicknesses
    memory.Switch(job, catalogue, Units::english);
    EXPECT_EQ(job[Field::ProcessTemp], "212.0");
    EXPECT_NE(job[Field::FuelCost], "4.5300");
    EXPECT_EQ(job[Field::AmbientTemp], "+75.00");
    EXPECT_EQ(job.layers[0].thickness, "1.7749");

    memory.Switch(job, catalogue, Units::si);
    EXPECT_EQ(job[Field::ProcessTemp], "100");
    Set(Field::SurfaceGeometry, "Vertical Flat"); // a measure now, no nominal thickness
    memory.Switch(job, catalogue, Units::english);
    EXPECT_EQ(job.layers[0].thickness, "1.78"); // 45.1 mm / 25.4
    memory.Switch(job, catalogue, Units::si);
    memory.Forget();
    memory.Switch(job, catalogue, Units::english);
    EXPECT_EQ(job[Field::AmbientTemp], "75.0");
}

} // namespace
} // namespace kaloria
