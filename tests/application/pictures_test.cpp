// SPDX-License-Identifier: GPL-3.0-or-later
// What the pictures of an answer are made of: the section, the plots, the sensitivity. The engine is the
// witness.
#include "application/plot_series.h"
#include "application/sensitivity.h"
#include "tests/support/job_fixture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace kaloria {
namespace {

using test::Sets;

class PicturesOf : public test::JobFixture {
protected:
    [[nodiscard]] const CaseInputs& Inputs() const { return *application.CalculatedCase(); }
};

const PlotMark* MarkOf(const PlotModel& plot, PlotMark::Kind kind) {
    const auto found = std::find_if(plot.marks.begin(), plot.marks.end(),
                                    [kind](const PlotMark& mark) { return mark.kind == kind; });
    return found == plot.marks.end() ? nullptr : &*found;
}

/// The share of a layer comes from its resistance here, and from its temperatures there.
TEST_F(PicturesOf, SharesAgreeWithTemperaturesOnEveryShape) {
    const struct {
        Sets sets;
        SectionShape shape;
        const char* subject;
    } cases[] = {
        {{}, SectionShape::cylinder, "NPS 6"},
        {{{"SurfaceGeometry", "Vertical Tube"}, {"PipeSize", "2"}}, SectionShape::cylinder, "NTS 2"},
        {{{"SurfaceGeometry", "Vertical Flat"}}, SectionShape::slab, "Vertical Flat"},
        {{{"SurfaceGeometry", "Horizontal Rectangular Duct"}}, SectionShape::box, "24 x 12 in"},
        {{{"ProcessTemp", "40"}, {"Insulation.1", "26"}}, SectionShape::cylinder, "NPS 6"},
    };
    for (const auto& c : cases) {
        const CalculationResult result = Run(c.sets);
        ASSERT_TRUE(result.HasAnswer()) << c.subject;
        for (const std::size_t row : {std::size_t{0}, std::size_t{3}}) {
            const SectionModel section = MakeSection(result, Inputs(), row);
            EXPECT_EQ(section.shape, c.shape);
            EXPECT_EQ(section.subject, c.subject);
            ASSERT_EQ(section.bands.size(), row == 0 ? 1U : 2U);
            ASSERT_EQ(section.interfaces.size(), section.bands.size() + 1);
            const double whole = section.processTemp - section.ambientTemp;
            for (const SectionBand& band : section.bands) {
                EXPECT_NEAR(*band.share, (band.insideTemp - band.outsideTemp) / whole, 1e-4) << band.name;
            }
            EXPECT_EQ(section.jacket.empty(), row == 0);
        }
    }
}

TEST_F(PicturesOf, SectionOfTwoLayersInSI) {
    const CalculationResult result = Run({{"InsulationThicknessCalculationType", "Interface Temperatures"},
                                          {"ProcessTemp", "1400"},
                                          {"Insulation.1.Thickness", "2"},
                                          {"Insulation.2", "9"},
                                          {"Insulation.2.Thickness", "1"}},
                                         Units::si);
    ASSERT_TRUE(result.HasAnswer());
    const SectionModel section = MakeSection(result, Inputs(), 1);
    ASSERT_EQ(section.bands.size(), 3U);
    EXPECT_EQ(section.title, "Section at the layers given");
    EXPECT_EQ(section.processText, "760 °C");
    // 1200 F is the limit of the material: the inner layer is past it, the outer one is not.
    EXPECT_EQ(section.bands[1].limit, "above its service limit of 648.9 °C");
    EXPECT_EQ(section.bands[2].limit, "");
    for (std::size_t i = 0; i < section.bands.size(); ++i) {
        EXPECT_FLOAT_EQ(static_cast<float>(section.TempIn(i, 1)),
                        static_cast<float>(section.interfaces[i + 1].temp));
        EXPECT_DOUBLE_EQ(section.TempIn(i, 0), section.interfaces[i].temp);
    }
    // At the geometric mean radius half of a cylindrical layer's difference has passed.
    const double inner = section.bore + section.DepthOf(1);
    const double thickness = section.bands[1].thickness;
    const double half = (std::sqrt(inner * (inner + thickness)) - inner) / thickness;
    EXPECT_NEAR(section.TempIn(1, half), (section.bands[1].insideTemp + section.bands[1].outsideTemp) / 2,
                1e-9);
    const PlotModel profile = ProfilePlot(section);
    const auto& points = profile.curves.front().points;
    EXPECT_NEAR(points.front().y, 760, 1e-4);
    EXPECT_NEAR(points.back().y, *result.grid.rows[1].cells[0].value, 1e-4);
    EXPECT_NEAR(points.back().x, section.DepthOf(3) * 25.4, 1e-3);
    EXPECT_NEAR(MarkOf(profile, PlotMark::Kind::limit)->value, Inputs().ambientTemp / 1.8 - 32 / 1.8, 1e-4);
}

TEST_F(PicturesOf, PlotsShowTheFiguresOfTheGrid) {
    for (const Units units : {Units::english, Units::si}) {
        const CalculationResult result = Run({{"MaxSurfaceTemp", "120"}}, units);
        const PlotModel plot = ThicknessPlot(result, Inputs(), 3);
        ASSERT_EQ(plot.curves.size(), 2U);
        EXPECT_EQ(plot.left.title, units == Units::si ? "Heat Loss, W/m" : "Heat Loss, BTU/hr/ft");
        EXPECT_EQ(plot.curves[0].points.size(), result.grid.rows.size() - 1);
        for (const PlotPoint& point : plot.curves[0].points) {
            const ResultRow& row = result.grid.rows.at(*point.row);
            EXPECT_EQ(point.x, *row.thickness);
            EXPECT_EQ(point.y, *row.cells[1].value);
        }
        for (const PlotPoint& point : plot.curves[1].points) {
            EXPECT_EQ(point.y, *result.grid.rows.at(*point.row).cells[0].value);
        }
        EXPECT_EQ(MarkOf(plot, PlotMark::Kind::chosen)->value, *result.grid.rows[3].thickness);
        EXPECT_EQ(MarkOf(plot, PlotMark::Kind::limit)->text,
                  units == Units::si ? "limit 48.9 °C" : "limit 120 °F");
    }
    EXPECT_FALSE(ThicknessPlot(Run({{"InsulationThicknessCalculationType", "Interface Temperatures"},
                                    {"Insulation.1.Thickness", "2"}}),
                               Inputs(), 1)
                     .reason.empty());
}

/// The curve of the limit crosses the curve of the flow where the goal begins to be met.
TEST_F(PicturesOf, AFluxLimitIsACurveOnACylinder) {
    const CalculationResult result =
        Run({{"InsulationThicknessCalculationType", "Heat Flow Limitation"}, {"HeatFlowLimit", "50"}});
    const PlotModel plot = ThicknessPlot(result, Inputs(), 1);
    ASSERT_EQ(plot.curves.size(), 3U);
    const PlotCurve& flow = plot.curves[0];
    const PlotCurve& limit = plot.curves[2];
    EXPECT_EQ(limit.name, "limit 50.0 BTU/hr/ft^2");
    for (std::size_t i = 0; i < flow.points.size(); ++i) {
        const ResultRow& row = result.grid.rows.at(*flow.points[i].row);
        const bool isMet = *row.thickness >= *result.design.value;
        EXPECT_EQ(flow.points[i].y <= limit.points[i].y, isMet) << row.label;
    }
}

TEST_F(PicturesOf, MoneyAndEmissionsOfAYear) {
    const CalculationResult result = Run({{"InsulationThicknessCalculationType", "Heat Loss Per Year"}});
    const PlotModel money = YearlyCostPlot(result, 4);
    ASSERT_EQ(money.curves.size(), 2U);
    EXPECT_EQ(money.left.title, "Money, $/ft/yr");
    EXPECT_LT(money.curves[0].points.back().y, money.curves[0].points.front().y); // cost falls
    EXPECT_GT(money.curves[1].points.back().y, money.curves[1].points.front().y); // savings rise
    const PlotModel emissions = EmissionPlot(result, 4);
    EXPECT_EQ(emissions.curves.size(), Inputs().fuel->record->Pollutants.size());
    // What would lie on the axis beside carbon dioxide has an axis of its own.
    ASSERT_TRUE(emissions.right);
    EXPECT_EQ(emissions.left.title, "CO2, lb/ft/yr");
    EXPECT_EQ(emissions.right->title, "Others, lb/ft/yr");
    for (const PlotCurve& curve : emissions.curves) {
        EXPECT_EQ(curve.onRight, curve.name != "CO2") << curve.name;
    }
    EXPECT_FALSE(EmissionPlot(Run({}), 1).reason.empty());
}

/// Each input moved in the job and in the records, and everything calculated anew, is the same answer.
TEST_F(PicturesOf, SensitivityAgreesWithAJobThatWasChanged) {
    const Sets sets{{"InsulationThicknessCalculationType", "Heat Loss Per Hour"},
                    {"SurfaceGeometry", "Vertical Flat"},
                    {"WindSpeed", "5"},
                    {"Insulation.1.Thickness", "2"}};
    const CalculationResult base = Run(sets);
    ASSERT_TRUE(base.HasAnswer());
    const auto all = SensitivityOf(base.solved[1], Inputs());
    ASSERT_EQ(all.size(), uncertainInputs.size());
    const struct {
        UncertainInput input;
        const char* field;
        const char* high;
        const char* low;
    } moved[] = {
        {UncertainInput::processTemp, "ProcessTemp", "377.5", "322.5"}, // 350 to 75 is 275
        {UncertainInput::ambientTemp, "AmbientTemp", "102.5", "47.5"},
        {UncertainInput::windSpeed, "WindSpeed", "5.5", "4.5"},
        {UncertainInput::thickness, "Insulation.1.Thickness", "2.2", "1.8"},
        {UncertainInput::emittance, nullptr, nullptr, nullptr},
        {UncertainInput::conductivity, nullptr, nullptr, nullptr},
    };
    const auto scaleRecords = [this](UncertainInput input, float factor) {
        for (CJacketMaterial& jacket : application.JacketMaterials()) {
            jacket.Emittance *= input == UncertainInput::emittance ? factor : 1.0F;
        }
        for (CInsulation& insulation : application.Insulations()) {
            for (CTemperaturePoint& point : insulation.TemperaturePoints) {
                point.Conductivity *= input == UncertainInput::conductivity ? factor : 1.0F;
            }
            for (float* const coefficient : {&insulation.A, &insulation.B, &insulation.C}) {
                *coefficient *= input == UncertainInput::conductivity ? factor : 1.0F;
            }
        }
    };
    for (const auto& row : moved) {
        const auto found =
            std::find_if(all.begin(), all.end(), [&](const Sensitivity& s) { return s.input == row.input; });
        for (const bool isHigh : {false, true}) {
            SCOPED_TRACE(found->name + (isHigh ? ", high" : ", low"));
            const float factor = isHigh ? 1.1F : 0.9F;
            scaleRecords(row.input, factor);
            Sets changed = sets;
            if (row.field != nullptr) {
                changed.emplace_back(row.field, isHigh ? row.high : row.low);
            }
            const CalculationResult again = Run(changed);
            scaleRecords(row.input, 1 / factor);
            ASSERT_TRUE(again.HasAnswer());
            const Sensitivity::Change& change = isHigh ? *found->high : *found->low;
            EXPECT_NEAR(change.flow, again.solved[1].comparedFlow / base.solved[1].comparedFlow - 1, 1e-5);
            EXPECT_NEAR(change.surface, again.solved[1].surfaceTemp - base.solved[1].surfaceTemp, 2e-3);
        }
    }
    for (std::size_t i = 1; i < all.size(); ++i) {
        EXPECT_GE(std::max(std::abs(all[i - 1].low->flow), std::abs(all[i - 1].high->flow)),
                  std::max(std::abs(all[i].low->flow), std::abs(all[i].high->flow)));
    }
}

TEST_F(PicturesOf, SensitivityLeavesOutWhatTheCaseDoesNotHave) {
    const CalculationResult result = Run({{"WindSpeed", "0"}});
    EXPECT_EQ(SensitivityOf(result.solved[0], Inputs()).size(), 3U); // bare, still air
    EXPECT_EQ(SensitivityOf(result.solved[3], Inputs()).size(), 5U);
    const PlotModel plot = SensitivityPlot(result, Inputs(), 3);
    ASSERT_EQ(plot.bars.size(), 2U);
    // A higher conductivity lets more through and warms the surface, more insulation does the opposite.
    for (const PlotBars& bars : plot.bars) {
        for (const PlotBar& bar : bars.bars) {
            EXPECT_EQ(bar.high > bar.low, bar.name != "Thickness" &&
                                              (bar.name != "Emittance" || &bars == plot.bars.data()) &&
                                              (bar.name != "Ambient temp." || &bars != plot.bars.data()))
                << bars.title << ' ' << bar.name;
        }
    }
    const CalculationResult still = Run({{"ProcessTemp", "75"}});
    EXPECT_TRUE(SensitivityOf(still.solved[0], Inputs()).empty());
}

TEST(EconomicPlot, MarksAThicknessOnlyWhereOnePays) {
    SurfaceResult surface;
    surface.isPipe = true;
    TemperatureResult step;
    for (const float nominal : {1.0F, 2.0F}) {
        ThicknessResult& row = step.rows.emplace_back();
        row.nominal = nominal;
        row.made = true;
        row.curve = CurvePoint{1.0, 1.0};
    }
    step.economic = 1;
    step.outcome = EconomicOutcome::found;
    EXPECT_EQ(EconomicPlot(surface, step, Units::english).marks.at(0).value, 2.0);
    step.outcome = EconomicOutcome::notWorthwhile; // row 1 comes closest
    const PlotModel plot = EconomicPlot(surface, step, Units::english);
    EXPECT_TRUE(plot.marks.empty());
    EXPECT_NE(plot.note.find("No thickness pays"), std::string::npos);
}

} // namespace
} // namespace kaloria
