// SPDX-License-Identifier: GPL-3.0-or-later
#include "application/sensitivity.h"

#include "application/headline.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

namespace kaloria {

namespace {

const char* NameOf(UncertainInput input) {
    switch (input) {
    case UncertainInput::processTemp:
        return "Process temp.";
    case UncertainInput::ambientTemp:
        return "Ambient temp.";
    case UncertainInput::windSpeed:
        return "Wind speed";
    case UncertainInput::emittance:
        return "Emittance";
    case UncertainInput::thickness:
        return "Thickness";
    case UncertainInput::conductivity:
        return "Conductivity";
    }
    return "";
}

/// Solves a row with one input moved. The records that it changes are its own.
class Trial {
public:
    Trial(const SolvedRow& row, const CaseInputs& inputs)
        : row_(row), inputs_(inputs), jacket_(*inputs.jacket), metal_(*inputs.baseMetal) {}

    SolvedRow Solve(UncertainInput input, double share) {
        return SolveRowLike(row_, inputs_, calculator_,
                            [&](CHeatLossCalculator& engine) { Move(engine, input, share); });
    }

private:
    void Move(CHeatLossCalculator& engine, UncertainInput input, double share) {
        const double factor = 1 + share;
        const auto by = [factor](float value) { return static_cast<float>(value * factor); };
        const double step = share * std::abs(double{inputs_.processTemp} - inputs_.ambientTemp);
        switch (input) {
        case UncertainInput::processTemp:
            engine.ProcessTemp = static_cast<float>(inputs_.processTemp + step);
            break;
        case UncertainInput::ambientTemp:
            engine.AmbientTemp = static_cast<float>(inputs_.ambientTemp + step);
            break;
        case UncertainInput::windSpeed:
            engine.WindSpeed = by(inputs_.windSpeed);
            break;
        case UncertainInput::emittance:
            jacket_.Emittance = std::min(1.0F, by(inputs_.jacket->Emittance));
            metal_.Emittance = std::min(1.0F, by(inputs_.baseMetal->Emittance));
            engine.JacketMaterial = &jacket_;
            engine.BaseMetal = &metal_;
            break;
        case UncertainInput::thickness:
            Thicken(engine, share);
            break;
        case UncertainInput::conductivity:
            Conduct(engine, factor);
            break;
        }
    }

    /// A covering's diameter grows with its thickness on both sides.
    static void Thicken(CHeatLossCalculator& engine, double share) {
        double added = 0;
        for (CInsulation& layer : engine.InsulationLayers) {
            added += share * layer.Thickness;
            layer.Thickness = static_cast<float>(layer.Thickness * (1 + share));
        }
        if (engine.InsulationOD > 0) {
            engine.InsulationOD = static_cast<float>(engine.InsulationOD + 2 * added);
        }
    }

    /// The engine fits a curve to the points where there are any, and else takes the coefficients.
    static void Conduct(CHeatLossCalculator& engine, double factor) {
        const auto multiply = [factor](float& value) { value = static_cast<float>(value * factor); };
        for (CInsulation& layer : engine.InsulationLayers) {
            multiply(layer.A);
            multiply(layer.B);
            multiply(layer.C);
            for (CTemperaturePoint& point : layer.TemperaturePoints) {
                multiply(point.Conductivity);
            }
        }
    }

    const SolvedRow& row_;
    const CaseInputs& inputs_;
    CJacketMaterial jacket_;
    CBaseMetal metal_;
    CHeatLossCalculator calculator_;
};

bool Matters(UncertainInput input, const SolvedRow& row, const CaseInputs& inputs) {
    switch (input) {
    case UncertainInput::windSpeed:
        return inputs.windSpeed > 0;
    case UncertainInput::thickness:
    case UncertainInput::conductivity:
        return !row.bare && !row.layers.empty();
    default:
        return true;
    }
}

std::optional<Sensitivity::Change> ChangeOf(const SolvedRow& moved, const SolvedRow& base) {
    if (!moved.IsSolved()) {
        return std::nullopt;
    }
    return Sensitivity::Change{moved.comparedFlow / base.comparedFlow - 1,
                               double{moved.surfaceTemp} - base.surfaceTemp};
}

double Influence(const Sensitivity& sensitivity) {
    const double low = sensitivity.low ? std::abs(sensitivity.low->flow) : 0;
    const double high = sensitivity.high ? std::abs(sensitivity.high->flow) : 0;
    return std::max(low, high);
}

std::string SignedText(double value) {
    const std::string text = FormatNumber(value, NumberFormat::tenths);
    return text.front() == '-' || text == "0.0" ? text : "+" + text;
}

} // namespace

std::vector<Sensitivity> SensitivityOf(const SolvedRow& row, const CaseInputs& inputs) {
    std::vector<Sensitivity> all;
    if (!row.IsSolved() || row.comparedFlow == 0.0) {
        return all;
    }
    Trial trial(row, inputs);
    for (const UncertainInput input : uncertainInputs) {
        if (Matters(input, row, inputs)) {
            all.push_back({input, NameOf(input), ChangeOf(trial.Solve(input, -sensitivityShare), row),
                           ChangeOf(trial.Solve(input, sensitivityShare), row)});
        }
    }
    std::stable_sort(all.begin(), all.end(), [](const Sensitivity& one, const Sensitivity& other) {
        return Influence(one) > Influence(other);
    });
    return all;
}

PlotModel SensitivityPlot(const CalculationResult& result, const CaseInputs& inputs, std::size_t row) {
    PlotModel plot;
    plot.title = row == 0 ? "Bare" : "At " + RowCaption(result, row);
    const auto unit = InfoOf(Quantity::temperatureDifference).Text(result.units);
    PlotBars flow{
        fmt::format("{}, %", inputs.IsCold() ? "Heat Gain" : "Heat Loss"), {}, "10 % lower", "10 % higher"};
    PlotBars surface{fmt::format("Surface, {}", unit), {}, flow.lowName, flow.highName};
    for (const Sensitivity& one : SensitivityOf(result.solved.at(row), inputs)) {
        if (!one.low || !one.high) {
            plot.note += fmt::format("{} has no solution at one end. ", one.name);
            continue;
        }
        const auto degrees = [&](double degF) {
            return FromEnglish(Quantity::temperatureDifference, result.units, degF);
        };
        const auto bar = [&one](double low, double high) {
            return PlotBar{one.name, low, high, SignedText(low), SignedText(high)};
        };
        const PlotBar flowBar = bar(one.low->flow * 100, one.high->flow * 100);
        const PlotBar surfaceBar = bar(degrees(one.low->surface), degrees(one.high->surface));
        plot.description += fmt::format(
            " {} 10 % lower: heat flow {} %, surface {} {}; 10 % higher: {} %, {} {}.", one.name,
            flowBar.lowText, surfaceBar.lowText, unit, flowBar.highText, surfaceBar.highText, unit);
        flow.bars.push_back(flowBar);
        surface.bars.push_back(surfaceBar);
    }
    if (flow.bars.empty()) {
        plot.reason = "There is no heat flow to compare with.";
    } else {
        plot.bars = {std::move(flow), std::move(surface)};
        plot.note += "Of the temperatures 10 % of process less ambient.";
    }
    plot.description = plot.title + "." + plot.description + " " + plot.note + plot.reason;
    return plot;
}

} // namespace kaloria
