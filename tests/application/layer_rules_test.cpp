// SPDX-License-Identifier: GPL-3.0-or-later
// Editing the layer build-up by grid rows.
#include "application/layer_rules.h"
#include "application/messages.h"
#include "tests/support/shipped_catalogue.h"

#include <gtest/gtest.h>

#include <gmock/gmock.h>

namespace kaloria {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::Not;

constexpr const char* hot = "This insulation has a maximum temperature that is lower than the process "
                            "temperature.  Please use caution.";
constexpr const char* cold = "This insulation has a minimum temperature that is higher than the process "
                             "temperature.  Please use caution.";

class LayerRules : public ::testing::Test {
protected:
    /// Insulation rows as "thickness lock", from the inside out.
    [[nodiscard]] std::vector<std::string> Layers() const {
        std::vector<std::string> texts;
        for (const JobLayer& layer : job.layers) {
            texts.push_back(layer.layer + ":" + layer.thickness + " " + layer.locked);
        }
        return texts;
    }

    std::int32_t AddMaterial(const std::string& name, float minTemp, float maxTemp) {
        CInsulation material;
        material.ID = NextId(catalogue.Insulations);
        material.Name = name;
        material.MinTemp = minTemp;
        material.MaxTemp = maxTemp;
        catalogue.Insulations.push_back(material);
        return material.ID;
    }

    /// Texts of the notes when a layer of that material meets a process temperature.
    std::vector<std::string> NotesAt(std::int32_t material, const char* processTemp, const char* units) {
        job[Field::Units] = units;
        job[Field::ProcessTemp] = processTemp;
        std::vector<std::string> texts;
        for (const Finding& note : SetMaterial(job, catalogue, 2, material).notes) {
            EXPECT_EQ(note.subject, "Insulation.1");
            texts.push_back(note.text);
        }
        return texts;
    }

    Catalogue catalogue = test::ShippedCatalogue();
    Job job;
};

TEST_F(LayerRules, KeepOneToFiveLayersBetweenBaseAndJacket) {
    EXPECT_EQ(GridRowCount(job), 4U);
    EXPECT_EQ(DeleteRow(job, 2).refusal, "You must have at least one insulation layer.");
    for (const char* const thickness : {"2", "3", "4", "5"}) {
        const LayerEdit added = AddLayer(job);
        ASSERT_TRUE(added.Done());
        EXPECT_EQ(added.row + 1, JacketRow(job)) << "just above the jacket";
        EXPECT_TRUE(SetThickness(job, added.row, thickness).notes.empty());
    }
    EXPECT_THAT(Layers(), ElementsAre("1: Vary", "2:2 Fix", "3:3 Fix", "4:4 Fix", "5:5 Fix"));
    EXPECT_EQ(GridRowCount(job), 8U);
    EXPECT_EQ(AddLayer(job).refusal, "You may not have more than five layers.");
    EXPECT_EQ(CopyRow(job, 3).refusal, "You may not have more than five layers.");

    EXPECT_EQ(MoveUp(job, 4).row, 3U);
    EXPECT_EQ(MoveDown(job, 5).row, 6U);
    EXPECT_THAT(Layers(), ElementsAre("1: Vary", "2:3 Fix", "3:2 Fix", "4:5 Fix", "5:4 Fix"));
    EXPECT_FALSE(MoveUp(job, 2).Done());
    EXPECT_FALSE(MoveDown(job, 6).Done());
    EXPECT_FALSE(CanMoveUp(job, 2) || CanMoveDown(job, 6) || CanMoveUp(job, 7) || CanMoveDown(job, 1) ||
                 CanMoveUp(job, 0) || CanMoveDown(job, 99));

    EXPECT_EQ(DeleteRow(job, 1).refusal, "You may not remove the base material layer.");
    EXPECT_EQ(DeleteRow(job, 7).refusal, "You may not remove the jacket material layer.");
    EXPECT_FALSE(DeleteRow(job, 0).Done() || DeleteRow(job, 8).Done());
    EXPECT_EQ(DeleteRow(job, 3).row, 3U);
    EXPECT_EQ(DeleteRow(job, 5).row, 4U) << "the row that is last now";
    EXPECT_THAT(Layers(), ElementsAre("1: Vary", "2:2 Fix", "3:5 Fix"));

    EXPECT_EQ(CopyRow(job, 2).row, 3U);
    EXPECT_THAT(Layers(), ElementsAre("1: Vary", "2: Fix", "3:2 Fix", "4:5 Fix")) << "one layer varies";
    EXPECT_FALSE(CopyRow(job, 1).Done() || CopyRow(job, JacketRow(job)).Done());
}

TEST_F(LayerRules, CellsShowAndTakeWhatIsTyped) {
    SetMaterial(job, catalogue, 1, 2);
    SetMaterial(job, catalogue, 3, 3);
    EXPECT_EQ(LayerRow(job, 1).type, "Base Metal");
    EXPECT_EQ(LayerRow(job, 1).name, "Stainless Steel");
    EXPECT_EQ(LayerRow(job, 2).type, "Insulation");
    EXPECT_EQ(LayerRow(job, 3).type, "Jacket Material");
    EXPECT_EQ(LayerRow(job, 3).name, "Aluminum Dull Or Weathered");
    EXPECT_FALSE(SetMaterial(job, catalogue, 2, 9999).Done());
    EXPECT_FALSE(SetThickness(job, 1, "2").Done() || SetLock(job, 3, "Fix").Done());
    EXPECT_FALSE(SetLock(job, 2, "vary").Done());

    for (const char* const wrong : {"0", "-1", "two", "1,5", "101", "1e9"}) {
        const LayerEdit edit = SetThickness(job, 2, wrong);
        EXPECT_TRUE(edit.Done());
        ASSERT_EQ(edit.notes.size(), 1U) << wrong;
        EXPECT_EQ(edit.notes[0].severity, Severity::error);
        EXPECT_EQ(job.layers[0].thickness, wrong) << "nothing typed is lost";
    }
    EXPECT_TRUE(SetThickness(job, 2, " 1.5 ").notes.empty());
    EXPECT_EQ(job.layers[0].thickness + job.layers[0].locked, "1.5Fix");
    job[Field::Units] = "SI";
    EXPECT_TRUE(SetThickness(job, 2, "2540").notes.empty());
    EXPECT_FALSE(SetThickness(job, 2, "2541").notes.empty());

    AddLayer(job);
    EXPECT_TRUE(SetLock(job, 2, "Vary").notes.empty());
    EXPECT_EQ(SetLock(job, 3, "Vary").notes.size(), 1U) << "two that vary";
}

TEST_F(LayerRules, WarnOfServiceLimitsAsTheyAreShown) {
    const std::int32_t material = AddMaterial("Test", -20, 850); // -28.9 and 454.4 degC as shown
    const struct {
        const char* units;
        const char* processTemp;
        const char* expected;
    } cases[] = {
        {"English", "850", nullptr}, {"English", "850.1", hot}, {"English", "-20", nullptr},
        {"English", "-20.1", cold},  {"English", "", nullptr},  {"English", "hot", nullptr},
        {"SI", "454.4", nullptr},    {"SI", "454.5", hot},      {"SI", "-28.9", nullptr},
        {"SI", "-29", cold},
    };
    for (const auto& c : cases) {
        const auto notes = NotesAt(material, c.processTemp, c.units);
        SCOPED_TRACE(std::string(c.units) + c.processTemp);
        if (c.expected != nullptr) {
            EXPECT_THAT(notes, ElementsAre(c.expected));
        } else {
            EXPECT_TRUE(notes.empty());
        }
        EXPECT_EQ(ProcessTemperatureNotes(job, catalogue).size(), notes.size());
    }
    EXPECT_TRUE(NotesAt(AddMaterial("Without limits", 0, 0), "500", "English").empty());
    EXPECT_THAT(NotesAt(AddMaterial("FSK Duct Wrap 1", 0, 250), "75", "English"),
                ElementsAre("For duct wrap material, the thickness that is entered should be the nominal "
                            "packaged thickness.  All calculations will assume that the installed thickness "
                            "is 75% of the nominal thickness."));
}

TEST_F(LayerRules, ThicknessesAreChosenFromTheSizesTableOnPipesAlone) {
    job[Field::PipeSize] = "6";
    EXPECT_THAT(ThicknessChoices(job, catalogue), Contains("1.5"));
    job[Field::Units] = "SI";
    job[Field::PipeSize] = "150";
    EXPECT_THAT(ThicknessChoices(job, catalogue), Contains("40"));
    job[Field::PipeSize] = "no size";
    EXPECT_EQ(ThicknessChoices(job, catalogue).size(), catalogue.NominalThicknesses.size());
    job[Field::SurfaceGeometry] = "Vertical Flat";
    EXPECT_TRUE(ThicknessChoices(job, catalogue).empty());

    // A size whose table lacks a thickness does not offer it.
    job = Job();
    auto& rows = catalogue.Pipes.front().InsulationThicknesses;
    job[Field::PipeSize] = "0.5";
    const auto before = ThicknessChoices(job, catalogue);
    rows.remove_if([](const CInsulationThickness& row) { return row.NominalThickness == 1.0F; });
    EXPECT_THAT(before, Contains("1"));
    EXPECT_THAT(ThicknessChoices(job, catalogue), Not(Contains("1")));
}

} // namespace
} // namespace kaloria
