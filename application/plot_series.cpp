// SPDX-License-Identifier: GPL-3.0-or-later
#include "application/plot_series.h"

#include "application/headline.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

namespace kaloria {

namespace {

using namespace calculation_type;

/// "Heat Loss, BTU/hr/ft" of a column with the heading "Heat Loss" "(BTU/hr/ft)".
std::string TitleOf(const ResultColumn& column) {
    std::string unit = column.unit;
    if (unit.size() >= 2 && unit.front() == '(' && unit.back() == ')') {
        unit = unit.substr(1, unit.size() - 2);
    }
    return column.name + ", " + unit;
}

std::string Titled(const char* name, Quantity quantity, Units units) {
    return fmt::format("{}, {}", name, InfoOf(quantity).Text(units));
}

/// The insulated rows of that column against nominal thickness.
PlotCurve CurveOf(const ResultsGrid& grid, std::size_t column) {
    PlotCurve curve;
    curve.name = grid.columns.at(column).name;
    for (std::size_t row = 1; row < grid.rows.size(); ++row) {
        const ResultRow& shown = grid.rows[row];
        const std::optional<double> value = shown.cells.at(column - 1).value; // cells leave out the label
        if (shown.thickness && value) {
            curve.points.push_back({*shown.thickness, *value, row});
        }
    }
    return curve;
}

std::vector<std::size_t> ColumnsOf(const ResultsGrid& grid, ResultKind kind) {
    std::vector<std::size_t> columns;
    for (std::size_t i = 0; i < grid.columns.size(); ++i) {
        if (grid.columns[i].kind == kind) {
            columns.push_back(i);
        }
    }
    return columns;
}

PlotModel AgainstThickness(const CalculationResult& result, std::size_t row) {
    PlotModel plot;
    plot.title = "Against thickness";
    plot.x = {Titled("Nominal thickness", Quantity::length, result.units), true};
    const ResultsGrid& grid = result.grid;
    if (row < grid.rows.size() && grid.rows[row].thickness) {
        plot.marks.push_back(
            {PlotMark::Kind::chosen, *grid.rows[row].thickness, false, RowCaption(result, row)});
    }
    return plot;
}

/// A curve with fewer points than two is none.
void AddCurve(PlotModel& plot, PlotCurve curve) {
    if (curve.points.size() >= 2) {
        plot.curves.push_back(std::move(curve));
    }
}

void CheckEmpty(PlotModel& plot, const char* reason) {
    if (plot.curves.empty()) {
        plot.marks.clear();
        plot.reason = reason;
    }
    std::string names;
    for (const PlotCurve& curve : plot.curves) {
        const auto& first = curve.points.front();
        const auto& last = curve.points.back();
        names +=
            fmt::format(" {} from {} to {}.", curve.name, FormatNumber(first.y, NumberFormat::hundredths),
                        FormatNumber(last.y, NumberFormat::hundredths));
    }
    for (const PlotMark& mark : plot.marks) {
        names += mark.text.empty() ? "" : " " + mark.text + ".";
    }
    plot.description =
        plot.title + " (" + plot.x.title + ")." + names + (plot.reason.empty() ? "" : " ") + plot.reason;
}

constexpr const char* nothingVaries = "No thickness varies in this calculation.";

PlotCurve SurfaceCurve(const CalculationResult& result) {
    PlotCurve curve;
    curve.name = "Surface Temp";
    curve.color = PlotColor::second;
    curve.onRight = true;
    for (std::size_t row = 1; row < result.solved.size(); ++row) {
        const SolvedRow& solved = result.solved[row];
        if (solved.IsSolved() && solved.nominal) {
            curve.points.push_back(
                {*solved.nominal, FromEnglish(Quantity::temperature, result.units, solved.surfaceTemp), row});
        }
    }
    return curve;
}

/// A limit of the flux, as the flow that it allows at each thickness: on a cylinder that grows with the area.
PlotCurve FluxLimitCurve(const CalculationResult& result, const CaseInputs& inputs, const PlotCurve& flow) {
    PlotCurve curve;
    const double shown = std::abs(FromEnglish(Quantity::heatFlux, result.units, inputs.heatFlowLimit));
    curve.name = fmt::format("limit {} {}", FormatNumber(shown, NumberFormat::tenths),
                             InfoOf(Quantity::heatFlux).Text(result.units));
    curve.color = PlotColor::quiet;
    curve.dots = false;
    curve.style = 1;
    for (const PlotPoint& point : flow.points) {
        const double flux = std::abs(result.solved.at(point.row.value_or(0)).meanFlux);
        if (flux > 0) {
            curve.points.push_back({point.x, point.y / flux * std::abs(inputs.heatFlowLimit), {}});
        }
    }
    return curve;
}

void AddLimit(PlotModel& plot, const CalculationResult& result, const CaseInputs& inputs) {
    const auto temperature = [&](double degF, const char* name) {
        plot.marks.push_back({PlotMark::Kind::limit, FromEnglish(Quantity::temperature, result.units, degF),
                              true, fmt::format("{} {}", name, ShortTempText(degF, result.units))});
    };
    switch (result.calculationType) {
    case personnelProtection:
    case thicknessTable:
        temperature(inputs.maxSurfaceTemp, "limit");
        break;
    case condensationControl:
        if (result.condensation) {
            temperature(result.condensation->dewPoint, "dew point");
        }
        break;
    case heatFlowLimitation:
        if (!plot.curves.empty()) {
            AddCurve(plot, FluxLimitCurve(result, inputs, plot.curves.front()));
        }
        break;
    default:
        break;
    }
}

double GreatestOf(const PlotCurve& curve) {
    double greatest = 0;
    for (const PlotPoint& point : curve.points) {
        greatest = std::max(greatest, point.y);
    }
    return greatest;
}

/// Of two axes with the same title each says what belongs to it: the one name, or that it is the others.
void NameAxes(PlotModel& plot) {
    for (const bool isRight : {false, true}) {
        std::string name;
        int count = 0;
        for (const PlotCurve& curve : plot.curves) {
            if (curve.onRight == isRight) {
                name = curve.name;
                ++count;
            }
        }
        std::string& title = isRight ? plot.right->title : plot.left.title;
        const std::string unit = title.substr(title.find(", "));
        title = (count == 1 ? name : isRight ? "Others" : "Most") + unit;
    }
}

} // namespace

PlotModel ThicknessPlot(const CalculationResult& result, const CaseInputs& inputs, std::size_t row) {
    PlotModel plot = AgainstThickness(result, row);
    const ResultsGrid& grid = result.grid;
    for (const ResultKind kind : {ResultKind::hourlyHeatFlow, ResultKind::annualHeatFlow}) {
        for (const std::size_t column : ColumnsOf(grid, kind)) {
            plot.left = {TitleOf(grid.columns[column]), true};
            AddCurve(plot, CurveOf(grid, column));
        }
    }
    plot.right = {Titled("Surface", Quantity::temperature, result.units), false};
    AddCurve(plot, SurfaceCurve(result));
    AddLimit(plot, result, inputs);
    CheckEmpty(plot, nothingVaries);
    return plot;
}

PlotModel ProfilePlot(const SectionModel& section) {
    constexpr int pieces = 16;
    PlotModel plot;
    plot.title = "Temperature";
    plot.x = {Titled("From the inside of the wall", Quantity::length, section.units), true};
    plot.left = {Titled("Temperature", Quantity::temperature, section.units), false};
    const auto length = [&](double inches) { return FromEnglish(Quantity::length, section.units, inches); };
    const auto temperature = [&](double degF) {
        return FromEnglish(Quantity::temperature, section.units, degF);
    };
    PlotCurve line{"Temperature", PlotColor::accent, false, true, false, 0, {}, true};
    PlotCurve known{"Interfaces", PlotColor::accent, false, false, true, 0, {}, true};
    for (std::size_t band = 0; band < section.bands.size(); ++band) {
        const double from = section.DepthOf(band);
        for (int i = 0; i <= pieces; ++i) {
            const double share = i / double{pieces};
            line.points.push_back({length(from + share * section.bands[band].thickness),
                                   temperature(section.TempIn(band, share)),
                                   {}});
        }
        plot.marks.push_back({PlotMark::Kind::edge, length(from), false, {}});
    }
    for (std::size_t i = 0; i < section.interfaces.size(); ++i) {
        known.points.push_back({length(section.DepthOf(i)), temperature(section.interfaces[i].temp), {}});
    }
    AddCurve(plot, std::move(line));
    known.named = false;
    AddCurve(plot, std::move(known));
    if (section.fault.empty()) {
        plot.marks.push_back({PlotMark::Kind::limit, temperature(section.ambientTemp), false,
                              "ambient " + section.ambientText, true});
    }
    CheckEmpty(plot, section.fault.c_str());
    return plot;
}

PlotModel YearlyCostPlot(const CalculationResult& result, std::size_t row) {
    PlotModel plot = AgainstThickness(result, row);
    const ResultsGrid& grid = result.grid;
    for (const ResultKind kind : {ResultKind::cost, ResultKind::savings}) {
        for (const std::size_t column : ColumnsOf(grid, kind)) {
            plot.left = {
                "Money, " + TitleOf(grid.columns[column]).substr(grid.columns[column].name.size() + 2), true};
            PlotCurve curve = CurveOf(grid, column);
            curve.color = kind == ResultKind::cost ? PlotColor::accent : PlotColor::second;
            AddCurve(plot, std::move(curve));
        }
    }
    CheckEmpty(plot, "This calculation has no yearly costs against thickness.");
    return plot;
}

PlotModel EmissionPlot(const CalculationResult& result, std::size_t row) {
    PlotModel plot = AgainstThickness(result, row);
    const ResultsGrid& grid = result.grid;
    std::vector<PlotCurve> curves;
    double greatest = 0;
    for (const std::size_t column : ColumnsOf(grid, ResultKind::emission)) {
        curves.push_back(CurveOf(grid, column));
        plot.left.title = grid.columns[column].unit;
        greatest = std::max(greatest, GreatestOf(curves.back()));
    }
    if (!plot.left.title.empty()) {
        plot.left = {"Emissions, " + plot.left.title.substr(1, plot.left.title.size() - 2), true};
    }
    // Carbon dioxide is hundreds of times the rest, which would lie on the axis: what is less than a tenth of
    // the greatest has the right one.
    int styles[2] = {0, 0};
    for (PlotCurve& curve : curves) {
        curve.onRight = GreatestOf(curve) < greatest / 10;
        curve.color = curve.onRight ? PlotColor::second : PlotColor::accent;
        curve.style = styles[curve.onRight ? 1 : 0]++;
        curve.dots = curve.style == 0;
        AddCurve(plot, std::move(curve));
    }
    plot.namesAcross = 3; // seven names are two wide lines
    if (styles[1] > 0) {
        plot.right = PlotAxis{plot.left.title, true};
        NameAxes(plot);
    }
    CheckEmpty(plot, "This calculation has no emissions against thickness.");
    return plot;
}

PlotModel ConductivityCurve(const ConductivityCheck& check, const std::vector<CTemperaturePoint>& points,
                            Units units) {
    constexpr int pieces = 96;
    PlotModel plot;
    plot.title = "Conductivity";
    plot.x = {Titled("Mean temperature", Quantity::temperature, units), false};
    // Zero belongs to the axis: a curve that reaches it is the fault that one should see.
    plot.left = {Titled("k", Quantity::conductivity, units), true};
    const auto add = [&](PlotCurve& curve, double degF, double k) {
        curve.points.push_back({FromEnglish(Quantity::temperature, units, degF),
                                FromEnglish(Quantity::conductivity, units, k),
                                {}});
    };
    PlotCurve fitted{"Curve", PlotColor::accent, false, true, false, 0, {}, true};
    if (check.hasCurve) {
        for (int i = 0; i <= pieces; ++i) {
            const double t =
                check.lowTemp + (double{check.highTemp} - double{check.lowTemp}) * i / double{pieces};
            add(fitted, t, check.curve.ConductivityAt(t));
        }
    }
    PlotCurve measured{"Points", PlotColor::second, false, false, true, 0, {}, true};
    for (const CTemperaturePoint& point : points) {
        add(measured, point.Temperature, point.Conductivity);
    }
    AddCurve(plot, std::move(fitted));
    if (!measured.points.empty()) {
        plot.curves.push_back(std::move(measured));
    }
    CheckEmpty(plot, "The curve shows here as soon as there is one.");
    return plot;
}

PlotModel EconomicPlot(const SurfaceResult& surface, const TemperatureResult& result, Units units) {
    const Quantity money = surface.isPipe ? Quantity::moneyPerLength : Quantity::moneyPerArea;
    PlotModel plot;
    plot.title = fmt::format("{} at {}", surface.name, ShortTempText(result.temperature, units));
    plot.x = {Titled("Nominal thickness", Quantity::length, units), true};
    plot.left = {Titled("Over its life, after tax", money, units), true};
    PlotCurve capital{"Capital", PlotColor::second, false, true, false, 0, {}, true};
    PlotCurve energy{"Energy", PlotColor::second, false, true, false, 1, {}, true};
    PlotCurve total{"Total", PlotColor::accent, false, true, true, 0, {}, true};
    for (const ThicknessResult& row : result.rows) {
        if (!row.IsSolved() || !row.curve) {
            continue;
        }
        if (row.nominal == 0.0F) {
            // Many times the rest; drawn, it would flatten the minimum that one looks for.
            plot.note = fmt::format(
                "As it is: {} {}. ",
                FormatNumber(FromEnglish(money, units, row.curve->Total()), NumberFormat::hundredths),
                InfoOf(money).Text(units));
        } else {
            const double x = FromEnglish(Quantity::length, units, row.nominal);
            capital.points.push_back({x, FromEnglish(money, units, row.curve->capital), {}});
            energy.points.push_back({x, FromEnglish(money, units, row.curve->energy), {}});
            total.points.push_back({x, FromEnglish(money, units, row.curve->Total()), {}});
        }
    }
    AddCurve(plot, std::move(capital));
    AddCurve(plot, std::move(energy));
    AddCurve(plot, std::move(total));
    if (result.outcome == EconomicOutcome::found) {
        const ThicknessResult* const economic = result.Economic();
        const double x = FromEnglish(Quantity::length, units, economic->nominal);
        plot.marks.push_back({PlotMark::Kind::chosen, x, false,
                              fmt::format("economic {} {}", FormatNumber(x, NumberFormat::shortest),
                                          InfoOf(Quantity::length).Text(units))});
    } else {
        plot.note += TextOf(result.outcome);
    }
    CheckEmpty(plot, "No thickness has both an installed cost and a heat flow.");
    return plot;
}

} // namespace kaloria
