// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "application/conductivity_check.h"
#include "application/section_model.h"
#include "reports/economic_results.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace kaloria {

/// The colour that a curve takes of the theme; a name goes with it always.
enum class PlotColor : std::uint8_t { accent, second, quiet };

struct PlotPoint {
    double x = 0;
    double y = 0;
    std::optional<std::size_t> row; ///< of the results grid, when the point stands for one
};

struct PlotCurve {
    std::string name;
    PlotColor color = PlotColor::accent;
    bool onRight = false; ///< belongs to the right axis
    bool line = true;     ///< joins its points
    bool dots = true;     ///< marks its points
    int style = 0;        ///< of the line: 0 solid, then dashes and dots in turn
    std::vector<PlotPoint> points;
    bool named = true; ///< stands in the legend, when there is one
    int marker = 0;    ///< of the points: 0 a disc, then other shapes in turn
    bool ring = false; ///< its points are rings about the points of another curve
};

/// A line through the whole plot.
struct PlotMark {
    enum class Kind : std::uint8_t {
        limit,  ///< dashed, at a value of an axis
        chosen, ///< dotted, at an x
        edge,   ///< a hairline, at an x
    };
    Kind kind = Kind::limit;
    double value = 0;
    bool onRight = false;
    std::string text;
    bool textAtStart = false; ///< of a limit: where the curve is far from it; else at the end
};

struct PlotAxis {
    std::string title; ///< with its unit
    bool fromZero = false;
};

/// A two-sided bar: what an input that is lower and higher does to an answer.
struct PlotBar {
    std::string name;
    double low = 0;  ///< with the lower input
    double high = 0; ///< with the higher input
    std::string lowText;
    std::string highText;
};

/// Bars about zero.
struct PlotBars {
    std::string title; ///< with its unit
    std::vector<PlotBar> bars;
    std::string lowName; ///< what the two sides stand for
    std::string highName;
};

/// Everything that a plot shows, in the units and words of the person.
struct PlotModel {
    std::string title;
    std::string reason; ///< why there is nothing to show; empty when there is something
    PlotAxis x;
    PlotAxis left;
    std::optional<PlotAxis> right;
    std::vector<PlotCurve> curves;
    std::vector<PlotMark> marks;
    std::vector<PlotBars> bars; ///< instead of curves, side by side with the same names
    int namesAcross = 6;        ///< in a line of the legend
    std::string note;           ///< a line below
    std::string description;    ///< in words

    [[nodiscard]] bool IsEmpty() const { return curves.empty() && bars.empty(); }
};

// All leave out rows without an answer. @p row is of the grid and is the one that is marked.

/// Heat flow and surface temperature of the insulated rows against nominal thickness, with the limit of the
/// goal.
[[nodiscard]] PlotModel ThicknessPlot(const CalculationResult& result, const CaseInputs& inputs,
                                      std::size_t row);

/// Temperature from the inside of the wall to the surface.
[[nodiscard]] PlotModel ProfilePlot(const SectionModel& section);

/// Yearly cost and savings against nominal thickness, of a calculation that has money.
[[nodiscard]] PlotModel YearlyCostPlot(const CalculationResult& result, std::size_t row);

/// Yearly emissions, a curve per pollutant.
[[nodiscard]] PlotModel EmissionPlot(const CalculationResult& result, std::size_t row);

/// The curve of a material and the points it stands on.
[[nodiscard]] PlotModel ConductivityCurve(const ConductivityCheck& check,
                                          const std::vector<CTemperaturePoint>& points, Units units);

/// Capital, energy and their total against thickness, with the economic thickness.
[[nodiscard]] PlotModel EconomicPlot(const SurfaceResult& surface, const TemperatureResult& result,
                                     Units units);

} // namespace kaloria
