// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/report_tables.h"

#include <fmt/format.h>

#include <string>
#include <string_view>
#include <vector>

namespace kaloria {

namespace {

using rtf::Alignment;
using Row = ThicknessResult;

constexpr int leadingWidth = 1240; // of the column that names a row [twip]
constexpr int economicShading = 10;

std::string Trimmed(std::string_view text) {
    const auto first = text.find_first_not_of(' ');
    return first == std::string_view::npos
               ? std::string()
               : std::string(text.substr(first, text.find_last_not_of(' ') - first + 1));
}

/// A leading column and @p count others of the same width.
rtf::TableBuilder TableOf(std::size_t count) {
    const int width = (reportTextWidth - leadingWidth) / static_cast<int>(count);
    std::vector<rtf::TableColumn> columns(count + 1, {width, Alignment::right});
    columns.front() = {reportTextWidth - width * static_cast<int>(count), Alignment::left};
    return rtf::TableBuilder(std::move(columns));
}

/// Title of the rows from one with that many layers on; empty for single layers.
std::string_view GroupTitle(int layers) {
    if (layers < 2) {
        return {};
    }
    return layers == 2 ? "Double Layer" : "Triple Layer";
}

std::string Heading(bool isGain) { return isGain ? "Heat Gain" : "Heat Loss"; }

/// Rows of every thickness that is made, in groups by layers, the economic one marked.
template <class CellsOf>
void AddThicknesses(rtf::TableBuilder& table, const ReportInputs& inputs, const TemperatureResult& step,
                    const PageFigures& figures, CellsOf cellsOf) {
    int layers = 0;
    bool anyWet = false;
    for (std::size_t i = 0; i < step.rows.size(); ++i) {
        const Row& row = step.rows[i];
        if (!row.made) {
            continue;
        }
        if (row.layers != layers && !GroupTitle(row.layers).empty()) {
            table.AddSpan(GroupTitle(row.layers),
                          {.isBold = true, .hasRuleAbove = true, .staysWithNext = true});
        }
        layers = row.layers;
        anyWet = anyWet || row.wet;
        std::vector<std::string> cells{figures.Thickness(&row) + (row.wet ? " *" : "")};
        cellsOf(row, cells);
        const bool isEconomic = step.economic == i;
        table.AddRow(
            cells,
            {.isBold = isEconomic, .hasRuleBelow = i == 0, .shading = isEconomic ? economicShading : 0});
    }
    if (anyWet && inputs.dewPoint) {
        table.AddSpan(fmt::format("* surface below the dew point of {}",
                                  TenthsWithUnit(Quantity::temperature, inputs.units, *inputs.dewPoint)),
                      {.hasRuleAbove = true});
    }
}

std::string NoPollutants(const ReportInputs& inputs) {
    return fmt::format("No emissions are known of {}.", inputs.fuel.Name);
}

} // namespace

rtf::Markup MoneyTable(const ReportInputs& inputs, const TemperatureResult& step, const PageFigures& figures,
                       bool isGain) {
    const PageUnits& units = figures.Texts();
    auto table = TableOf(6);
    table.AddHeading({"Thickness", Heading(isGain), "Surface Temp", "Installed Cost", "Payback",
                      "Annual Cost", "Total Savings"},
                     {.isBold = true, .hasRuleAbove = true});
    table.AddHeading({Trimmed(units.thicknessHeading), Trimmed(units.heatFlowHeading),
                      Trimmed(units.temperature), Trimmed(units.installedCost), Trimmed(units.paybackHeading),
                      Trimmed(units.annualCost), Trimmed(units.savings)});
    AddThicknesses(table, inputs, step, figures, [&](const Row& row, std::vector<std::string>& cells) {
        cells.insert(cells.end(),
                     {figures.HourlyHeat(&row), figures.SurfaceTemp(&row), figures.InstalledCost(&row),
                      figures.Payback(&row), figures.AnnualCost(&row), figures.TotalSavings(&row)});
    });
    return table.Build();
}

rtf::Markup EmissionTable(const ReportInputs& inputs, const TemperatureResult& step,
                          const PageFigures& figures, bool isGain) {
    const auto& pollutants = inputs.fuel.Pollutants;
    auto table = TableOf(pollutants.size() + 1);
    std::vector<std::string> names{"Thickness", Heading(isGain)};
    std::vector<std::string> units{Trimmed(figures.Texts().thicknessHeading),
                                   Trimmed(figures.Texts().heatFlowHeading)};
    for (const CPollutant& pollutant : pollutants) {
        names.push_back(pollutant.Name);
        units.push_back(Trimmed(figures.Texts().emission));
    }
    table.AddHeading(names, {.isBold = true, .hasRuleAbove = true});
    table.AddHeading(units);
    AddThicknesses(table, inputs, step, figures, [&](const Row& row, std::vector<std::string>& cells) {
        cells.push_back(figures.HourlyHeat(&row));
        for (std::size_t i = 0; i < pollutants.size(); ++i) {
            cells.push_back(figures.Reduction(&row, i));
        }
    });
    return table.Build();
}

rtf::Markup ReductionSentences(const ReportInputs& inputs, const TemperatureResult& step,
                               const PageFigures& figures) {
    const Row* const row = step.Economic();
    std::vector<std::string> sentences;
    std::size_t index = 0;
    for (const CPollutant& pollutant : inputs.fuel.Pollutants) {
        const std::string amount = figures.Reduction(row, index++);
        sentences.push_back(amount == noFigure
                                ? fmt::format("The reduction in {} is not known.", pollutant.Name)
                                : fmt::format("The reduction in {} is {}{}", pollutant.Name, amount,
                                              figures.Texts().emission));
    }
    if (sentences.empty()) {
        return rtf::Paragraphs({NoPollutants(inputs)});
    }
    // Side by side, or the page of a fuel with seven pollutants would not fit on a sheet.
    rtf::TableBuilder table({{reportTextWidth / 2, Alignment::left}, {reportTextWidth / 2, Alignment::left}});
    for (std::size_t i = 0; i < sentences.size(); i += 2) {
        table.AddRow({sentences[i], i + 1 < sentences.size() ? sentences[i + 1] : ""});
    }
    return table.Build();
}

rtf::Markup ReductionTable(const ReportInputs& inputs, const SurfaceResult& surface,
                           const PageFigures& figures) {
    const auto& pollutants = inputs.fuel.Pollutants;
    if (pollutants.empty()) {
        return rtf::Paragraphs({NoPollutants(inputs)});
    }
    auto table = TableOf(pollutants.size());
    std::vector<std::string> names{"Temperature"};
    std::vector<std::string> units{Trimmed(figures.Texts().temperature)};
    for (const CPollutant& pollutant : pollutants) {
        names.push_back(pollutant.Name + " Reduction");
        units.push_back(Trimmed(figures.Texts().emission));
    }
    table.AddHeading(names, {.isBold = true, .hasRuleAbove = true});
    table.AddHeading(units);
    for (const TemperatureResult& step : surface.temperatures) {
        std::vector<std::string> cells{figures.Temperature(step.temperature)};
        for (std::size_t i = 0; i < pollutants.size(); ++i) {
            cells.push_back(figures.Reduction(step.Best(), i));
        }
        table.AddRow(cells);
    }
    return table.Build();
}

} // namespace kaloria
