// SPDX-License-Identifier: GPL-3.0-or-later
// The user's own records: guards, adding, deleting and bringing back, and the check of conductivity curves.
#include "application/conductivity_check.h"
#include "application/material_rules.h"
#include "tests/support/shipped_catalogue.h"

#include <gtest/gtest.h>

#include <cmath>
#include <gmock/gmock.h>
#include <limits>

namespace kaloria {
namespace {

using ::testing::Contains;
using ::testing::Field;
using ::testing::HasSubstr;
using enum MaterialKind;

constexpr float notANumber = std::numeric_limits<float>::quiet_NaN();

class MaterialRules : public ::testing::Test {
protected:
    std::int32_t AddInsulation(const std::string& name) {
        CInsulation record = NewInsulation(catalogue);
        record.Name = name;
        record.A = 0.3F;
        record.InsulationType = 1;
        record.MaxTemp = 500;
        EXPECT_EQ(Accept(catalogue, job, record), "");
        return record.ID;
    }

    [[nodiscard]] std::string NameOf(std::int32_t id) const {
        const auto* record = FindById(catalogue.Insulations, id);
        return record != nullptr ? record->Name : "none";
    }

    [[nodiscard]] std::vector<std::string> InsulationNames() const {
        std::vector<std::string> names;
        for (const CInsulation& record : catalogue.Insulations) {
            names.push_back(record.Name);
        }
        return names;
    }

    Catalogue catalogue = test::ShippedCatalogue();
    Job job;
    MaterialDeletions deletions;
};

TEST_F(MaterialRules, SystemRecordsAreGuardedByTheirTexts) {
    const struct {
        MaterialKind kind;
        const char* alter;
        const char* remove;
    } cases[] = {
        {insulation, "System materials may not be altered.", "You may not delete a system material."},
        {baseMetal, "System base metals may not be altered.", "You may not delete a system base metal."},
        {jacket, "System jacket materials may not be altered.",
         "You may not delete a system jacket material."},
        {fuel, "System fuels may not be altered.", "You may not delete a system fuel."},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(EditRefusal(catalogue, c.kind, 1), c.alter);
        EXPECT_EQ(ToggleActive(catalogue, c.kind, 1), c.alter);
        EXPECT_EQ(deletions.Delete(catalogue, c.kind, 1), c.remove);
        EXPECT_FALSE(EditRefusal(catalogue, c.kind, 9999).empty());
        EXPECT_FALSE(deletions.Delete(catalogue, c.kind, 9999).empty());
        EXPECT_EQ(AddRefusal(c.kind, Units::english), "");
        EXPECT_EQ(AddRefusal(c.kind, Units::si),
                  c.kind == fuel ? "New fuels can only be added using imperial units." : "");
    }
    EXPECT_TRUE(catalogue.BaseMetals.front().Active);
    EXPECT_FALSE(deletions.CanUndo());

    CJacketMaterial system = catalogue.JacketMaterials.front();
    system.Emittance = 1;
    EXPECT_FALSE(Accept(catalogue, job, system).empty());
    system.CreatedBy = "User"; // of a dialog that lost track of whose record it is
    EXPECT_FALSE(Accept(catalogue, job, system).empty());
    EXPECT_NE(catalogue.JacketMaterials.front().Emittance, 1.0F);
}

TEST_F(MaterialRules, NewRecordsGetTheNextIdAndMayBeChanged) {
    std::int32_t largest = 0;
    for (const CInsulation& record : catalogue.Insulations) {
        largest = std::max(largest, record.ID);
    }
    const std::int32_t id = AddInsulation("Mine");
    EXPECT_EQ(id, largest + 1);
    EXPECT_EQ(catalogue.Insulations.back().CreatedBy, "User");
    EXPECT_EQ(ToggleActive(catalogue, insulation, id), "");
    EXPECT_FALSE(catalogue.Insulations.back().Active);

    job.layers[0].material = {id, "Mine", false};
    job[kaloria::Field::ReportInsulationMaterial] = "Mine";
    EXPECT_EQ(UseInJob(catalogue, job, insulation, id), "layer 1, the insulation of the report");
    CInsulation edited = catalogue.Insulations.back();
    edited.Name = "Yours";
    edited.TemperaturePoints = {{200, 0.4F}, {100, 0.3F}};
    const std::size_t count = catalogue.Insulations.size();
    EXPECT_EQ(Accept(catalogue, job, edited), "");
    EXPECT_EQ(catalogue.Insulations.size(), count);
    EXPECT_EQ(catalogue.Insulations.back().TemperaturePoints[0].Temperature, 100);
    EXPECT_EQ(job.layers[0].material.name, "Yours");
    EXPECT_EQ(job[kaloria::Field::ReportInsulationMaterial], "Yours");

    const CFuel copy = DuplicateOf(catalogue, catalogue.Fuels.front());
    EXPECT_EQ(copy.Name, "Natural Gas (copy)");
    EXPECT_EQ(copy.CreatedBy, "User");
    EXPECT_EQ(copy.Pollutants.size(), catalogue.Fuels.front().Pollutants.size());
    EXPECT_EQ(Accept(catalogue, job, copy), "");
    EXPECT_EQ(DuplicateOf(catalogue, catalogue.Fuels.front()).Name, "Natural Gas (copy 2)");
    EXPECT_EQ(UseInJob(catalogue, job, fuel, 1), "the fuel, the fuel of the report");
    EXPECT_EQ(UseInJob(catalogue, job, fuel, copy.ID), "");
    job.layers.resize(3);
    for (JobLayer& layer : job.layers) {
        layer.material.id = 1;
    }
    EXPECT_EQ(UseInJob(catalogue, job, insulation, 1), "layers 1, 2 and 3");
}

TEST_F(MaterialRules, DeletedRecordsComeBackToTheirPlaces) {
    const std::int32_t first = AddInsulation("First");
    const std::int32_t second = AddInsulation("Second");
    AddInsulation("Third");
    const auto before = InsulationNames();
    const CInsulation* third = &catalogue.Insulations.back();
    EXPECT_EQ(deletions.Delete(catalogue, insulation, first), "");
    EXPECT_EQ(deletions.Delete(catalogue, insulation, second), "");
    EXPECT_EQ(deletions.LastName(), "Second");
    EXPECT_EQ(deletions.LastKind(), insulation);
    EXPECT_EQ(deletions.Undo(catalogue), second);
    EXPECT_EQ(deletions.Undo(catalogue), first);
    EXPECT_EQ(InsulationNames(), before);
    EXPECT_EQ(&catalogue.Insulations.back(), third) << "records in use do not move";
    EXPECT_EQ(deletions.Undo(catalogue), 0);
}

TEST_F(MaterialRules, ANewRecordNeverTakesThePlaceOfADeletedOneInAJob) {
    const std::int32_t id = AddInsulation("Old");
    job.layers[0].material = {id, "Old", false};
    ASSERT_EQ(deletions.Delete(catalogue, insulation, id), "");
    ASSERT_EQ(AddInsulation("New"), id) << "the ID is free again";
    EXPECT_NE(job.layers[0].material.id, id);
    EXPECT_TRUE(job.layers[0].material.missing);
    const std::int32_t back = deletions.Undo(catalogue);
    EXPECT_EQ(NameOf(id), "New");
    EXPECT_EQ(NameOf(back), "Old");
}

TEST_F(MaterialRules, WrongRecordsAreNotAccepted) {
    const auto subjects = [](const std::vector<Finding>& findings) {
        std::vector<std::string> names;
        for (const Finding& finding : findings) {
            if (finding.severity == Severity::error) {
                names.push_back(finding.subject);
            }
        }
        return names;
    };
    for (const float wrong : {-0.01F, 1.01F, notANumber}) {
        CJacketMaterial record = NewJacket(catalogue);
        record.Name = "Foil";
        record.Emittance = 0.5F;
        EXPECT_FALSE(HasErrors(CheckRecord(catalogue, record)));
        record.Emittance = wrong;
        EXPECT_THAT(subjects(CheckRecord(catalogue, record)), ::testing::ElementsAre("Emittance"));
    }
    for (const char* const wrong : {"", "  ", " Copper Alloy", "Copper", "Cop\nper", "Cop\x01per"}) {
        CBaseMetal record = NewBaseMetal(catalogue);
        record.Emittance = 0.5F;
        record.Name = wrong;
        EXPECT_THAT(subjects(CheckRecord(catalogue, record)), ::testing::ElementsAre("Name")) << wrong;
    }

    const CFuel gas = DuplicateOf(catalogue, catalogue.Fuels.front());
    EXPECT_FALSE(HasErrors(CheckRecord(catalogue, gas)));
    const std::pair<const char*, void (*)(CFuel&)> changes[] = {
        {"CostUnits", [](CFuel& f) { f.CostUnits = "$/therm"; }},
        {"BTUUnits", [](CFuel& f) { f.BTUUnits = "Btu/gal"; }},
        {"Cost", [](CFuel& f) { f.Cost = -1; }},
        {"BTU", [](CFuel& f) { f.BTU = 0; }},
        {"ConversionEfficiency", [](CFuel& f) { f.ConversionEfficiency = notANumber; }},
        {"Pollutants", [](CFuel& f) { f.Pollutants.front().Amount = -1; }},
        {"Pollutants", [](CFuel& f) { f.Pollutants.push_back(f.Pollutants.front()); }},
    };
    for (const auto& [subject, change] : changes) {
        CFuel record = gas;
        change(record);
        EXPECT_THAT(subjects(CheckRecord(catalogue, record)), ::testing::ElementsAre(subject));
    }

    CInsulation limits = DuplicateOf(catalogue, catalogue.Insulations.front());
    EXPECT_FALSE(HasErrors(CheckRecord(catalogue, limits)));
    std::swap(limits.MinTemp, limits.MaxTemp);
    EXPECT_THAT(subjects(CheckRecord(catalogue, limits)), Contains("MaxTemp"));
    for (const CInsulation& record : catalogue.Insulations) {
        EXPECT_FALSE(HasErrors(CheckRecord(catalogue, record))) << record.Name;
    }
}

TEST(Conductivity, FitsAndReportsTheLargestDeviation) {
    // k = 0.2 + 0.0005 T + 1e-6 T2 at four temperatures, then the second point lifted by 0.04.
    CInsulation record;
    record.MinTemp = 0;
    record.MaxTemp = 300;
    record.TemperaturePoints = {{300, 0.44F}, {0, 0.2F}, {200, 0.34F}, {100, 0.26F}};
    const ConductivityCheck exact = CheckConductivity(record);
    ASSERT_TRUE(exact.hasCurve);
    EXPECT_TRUE(exact.findings.empty()) << exact.findings[0].text;
    EXPECT_NEAR(exact.curve.A, 0.2, 1e-5);
    EXPECT_NEAR(exact.curve.B, 0.0005, 1e-7);
    EXPECT_NEAR(exact.curve.C, 1e-6, 1e-9);
    EXPECT_LT(exact.largestDeviation, 1e-5);
    EXPECT_NEAR(exact.lowestK, 0.2, 1e-5);
    EXPECT_NEAR(exact.highestK, 0.44, 1e-5);

    // Equidistant points: lifting the second of four by d leaves residuals d * (-3, 9, -9, 3) / 20 (the part
    // along the cubic that a parabola cannot follow).
    record.TemperaturePoints[3].Conductivity = 0.30F;
    const ConductivityCheck lifted = CheckConductivity(record);
    EXPECT_NEAR(lifted.largestDeviation, 0.04 * 9 / 20, 1e-4);
    EXPECT_TRUE(lifted.deviationTemp == 100 || lifted.deviationTemp == 200);
    EXPECT_THAT(lifted.findings, Contains(Field(&Finding::severity, Severity::warning)));

    record.MaxTemp = 900;
    EXPECT_EQ(CheckConductivity(record).highTemp, 900);
    EXPECT_THAT(CheckConductivity(record).findings,
                Contains(Field(&Finding::text, HasSubstr("The points cover 0 to 300 °F"))));
}

TEST(Conductivity, TellsWhatIsWrongWithTheCurve) {
    const struct {
        std::vector<CTemperaturePoint> points;
        float maxTemp;
        Severity severity;
        const char* text;
    } cases[] = {
        {{{0, 0.2F}, {100, 0.3F}}, 100, Severity::error, "points at 3 different temperatures; there are 2"},
        {{{0, 0.2F}, {100, 0.3F}, {100, 0.3F}}, 100, Severity::error, "there are 2"},
        {{{0, 0.2F}, {100, 0.3F}, {100, 0.4F}, {200, 0.4F}}, 200, Severity::error, "stands twice, with"},
        {{{0, 0.2F}, {100, 0.3F}, {100, 0.3F}, {200, 0.4F}}, 200, Severity::warning, "counts twice"},
        {{{0, 0.2F}, {100, 0}, {200, 0.4F}}, 200, Severity::error, "above 0"},
        {{{0, 0.2F}, {100, notANumber}, {200, 0.4F}}, 200, Severity::error, "above 0"},
        {{{-500, 0.2F}, {100, 0.3F}, {200, 0.4F}}, 200, Severity::error, "absolute zero"},
        {{{notANumber, 0.2F}, {100, 0.3F}, {200, 0.4F}}, 200, Severity::error, "missing"},
        // falls from 0.4 through 0.3 to 0.15: k = 0.4 - 0.00075 T - 2.5e-6 T2, below 0 from 278 on
        {{{0, 0.4F}, {100, 0.3F}, {200, 0.15F}}, 400, Severity::error, "which no material has"},
        {{{0, 0.4F}, {100, 0.3F}, {200, 0.15F}}, 200, Severity::information, nullptr},
        // W/(m degC) where BTU*in/hr*sf*degF is expected
        {{{0, 0.033F}, {100, 0.036F}, {200, 0.04F}}, 200, Severity::warning, "unusual"},
    };
    for (const auto& c : cases) {
        CInsulation record;
        record.MaxTemp = c.maxTemp;
        record.TemperaturePoints = c.points;
        const ConductivityCheck check = CheckConductivity(record);
        if (c.text == nullptr) {
            EXPECT_TRUE(check.findings.empty());
            continue;
        }
        EXPECT_THAT(check.findings, Contains(::testing::AllOf(Field(&Finding::severity, c.severity),
                                                              Field(&Finding::text, HasSubstr(c.text)))));
    }
    // A polynomial that dips below zero at its vertex only, 0.1 - 0.002 T + 5e-6 T2 at 200.
    CInsulation dip;
    dip.A = 0.1F;
    dip.B = -0.002F;
    dip.C = 5e-6F;
    dip.MaxTemp = 600;
    EXPECT_TRUE(HasErrors(CheckConductivity(dip).findings));
    EXPECT_NEAR(CheckConductivity(dip).lowestK, -0.1, 1e-6);
    dip.A = notANumber;
    EXPECT_FALSE(CheckConductivity(dip).hasCurve);

    // Held against evidence: 0.3 everywhere, measured 0.33 at 100.
    CInsulation flat;
    flat.A = 0.3F;
    flat.MaxTemp = 200;
    const ConductivityCheck held = CheckPolynomial(flat, {{0, 0.3F}, {100, 0.33F}});
    EXPECT_FALSE(HasErrors(held.findings));
    EXPECT_NEAR(held.largestDeviation, 0.03, 1e-6);
    EXPECT_EQ(held.deviationTemp, 100);
    EXPECT_TRUE(CheckPolynomial(flat, {{0, 0}}).hasCurve);
}

} // namespace
} // namespace kaloria
