// SPDX-License-Identifier: GPL-3.0-or-later
#include "application/comparison_plots.h"

#include "application/comparison_rows.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <functional>

namespace kaloria {

namespace {

/// The figure of a row of a case; nothing when it has none.
using FigureOf = std::function<std::optional<double>(const ComparedCase&, std::size_t row)>;

constexpr std::size_t longestLegendName = 16;

/// "2 Steam line, 3 in". The number tells apart what a legend has to shorten.
std::string LegendName(const std::string& name, std::size_t index) {
    std::string shortened;
    std::size_t count = 0;
    for (const char c : name) {
        const bool starts = (static_cast<unsigned char>(c) & 0xC0U) != 0x80U;
        count += starts ? 1U : 0U;
        if (count > longestLegendName) {
            shortened += "…";
            break;
        }
        shortened += c;
    }
    return fmt::format("{} {}", index + 1, shortened);
}

PlotCurve CurveOf(const ComparedCase& compared, std::size_t index, const FigureOf& figureOf) {
    constexpr std::array colors{PlotColor::accent, PlotColor::second, PlotColor::quiet};
    PlotCurve curve;
    curve.name = LegendName(compared.name, index);
    curve.color = colors.at(index % colors.size());
    curve.style = static_cast<int>(index);
    curve.marker = static_cast<int>(index);
    for (std::size_t row = 1; row < compared.result.solved.size(); ++row) {
        const auto& thickness = compared.thicknesses.at(row);
        const auto figure = figureOf(compared, row);
        if (thickness && figure) {
            curve.points.push_back({*thickness, *figure, {}});
        }
    }
    return curve;
}

/// Round the point of the thickness that is compared.
void AddRing(PlotModel& plot, const ComparedCase& compared, const PlotCurve& curve,
             const FigureOf& figureOf) {
    const auto figure = figureOf(compared, compared.row);
    const auto& thickness = compared.thicknesses.at(compared.row);
    if (!figure || !thickness) {
        return;
    }
    PlotCurve ring = curve;
    ring.named = false;
    ring.line = false;
    ring.ring = true;
    ring.points = {{*thickness, *figure, {}}};
    plot.curves.push_back(std::move(ring));
    plot.description +=
        fmt::format(" {}: {} at {}.", compared.name, FormatNumber(*figure, NumberFormat::hundredths),
                    FormatNumber(*thickness, NumberFormat::shortest));
}

PlotModel Overlay(const std::vector<ComparedCase>& cases, std::string title, std::string axis, bool fromZero,
                  const FigureOf& figureOf) {
    PlotModel plot;
    plot.title = std::move(title);
    const Units units = cases.empty() ? Units::english : cases.front().job.UnitsInForce();
    plot.x = {fmt::format("Nominal thickness of all layers, {}", InfoOf(Quantity::length).Text(units)), true};
    plot.left = {std::move(axis), fromZero};
    plot.namesAcross = 3;
    plot.description = plot.title + " (" + plot.left.title + "; " + plot.x.title + ").";
    for (std::size_t i = 0; i < cases.size(); ++i) {
        if (!cases[i].HasFigures()) {
            continue;
        }
        PlotCurve curve = CurveOf(cases[i], i, figureOf);
        if (!curve.points.empty()) {
            plot.curves.push_back(curve);
            AddRing(plot, cases[i], curve, figureOf);
        }
    }
    if (plot.curves.empty()) {
        plot.reason = "There is no case with figures.";
    } else {
        plot.note = "Rings: the thickness that is compared.";
    }
    return plot;
}

} // namespace

PlotModel ComparedFlowPlot(const std::vector<ComparedCase>& cases) {
    const Units units = cases.empty() ? Units::english : cases.front().job.UnitsInForce();
    if (const ResultColumn* const flow = SharedFlow(cases)) {
        return Overlay(
            cases, FlowNameOf(*flow), fmt::format("{}, {}", FlowNameOf(*flow), UnitOf(*flow, units)), true,
            [](const ComparedCase& compared, std::size_t row) -> std::optional<double> {
                const auto& columns = compared.result.grid.columns;
                const auto found = std::find_if(columns.begin(), columns.end(), IsFlow);
                const auto cell = static_cast<std::size_t>(found - columns.begin()) - 1; // none for the label
                return compared.result.grid.rows.at(row).cells.at(cell).value;
            });
    }
    return Overlay(cases, "Heat flux at the surface",
                   fmt::format("Heat flux, {}", InfoOf(Quantity::heatFlux).Text(units)), true,
                   [](const ComparedCase& compared, std::size_t row) -> std::optional<double> {
                       const SolvedRow& solved = compared.result.solved.at(row);
                       return solved.IsSolved()
                                  ? std::optional(FromEnglish(Quantity::heatFlux, compared.result.units,
                                                              solved.meanFlux))
                                  : std::nullopt;
                   });
}

PlotModel ComparedSurfacePlot(const std::vector<ComparedCase>& cases) {
    const Units units = cases.empty() ? Units::english : cases.front().job.UnitsInForce();
    return Overlay(cases, "Surface temperature",
                   fmt::format("Surface temperature, {}", InfoOf(Quantity::temperature).Text(units)), false,
                   [](const ComparedCase& compared, std::size_t row) -> std::optional<double> {
                       const SolvedRow& solved = compared.result.solved.at(row);
                       return solved.IsSolved()
                                  ? std::optional(FromEnglish(Quantity::temperature, compared.result.units,
                                                              solved.surfaceTemp))
                                  : std::nullopt;
                   });
}

} // namespace kaloria
