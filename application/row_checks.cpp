// SPDX-License-Identifier: GPL-3.0-or-later
#include "application/calculate.h"
#include "application/results_grid.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

namespace kaloria {

namespace {

std::string RowName(const SolvedRow& row, Units units) {
    if (row.bare) {
        return "the bare surface";
    }
    if (!row.nominal) {
        return "the insulated surface";
    }
    return fmt::format("the thickness {} {}", ThicknessText(*row.nominal),
                       InfoOf(Quantity::length).Text(units));
}

std::string TempText(double temp, Units units) {
    return fmt::format("{} {}",
                       FormatNumber(FromEnglish(Quantity::temperature, units, temp), NumberFormat::tenths),
                       InfoOf(Quantity::temperature).Text(units));
}

void CheckSolution(const SolvedRow& row, Units units, std::vector<Finding>& findings) {
    if (!row.IsSolved()) {
        findings.push_back(
            {Severity::error, "", fmt::format("No result for {}: {}.", RowName(row, units), row.fault)});
    } else if (row.stoppedBySafeguard) {
        findings.push_back(
            {Severity::warning, "",
             fmt::format(
                 "For {} the iteration did not come to rest: where the air flow changes its kind, "
                 "or a conductivity curve runs far outside its data, answers alternate. One of them is "
                 "shown.",
                 RowName(row, units))});
    }
}

/// Extremes of a layer's faces over all rows.
struct FaceSpan {
    double hottest = -1e30;
    double coldest = 1e30;
    const SolvedRow* hottestRow = nullptr;
    const SolvedRow* coldestRow = nullptr;
};

FaceSpan SpanOf(std::size_t layer, const std::vector<SolvedRow>& rows) {
    FaceSpan span;
    for (const SolvedRow& row : rows) {
        if (!row.IsSolved() || layer >= row.layers.size()) {
            continue;
        }
        const auto [low, high] = std::minmax(row.layers[layer].insideTemp, row.layers[layer].outsideTemp);
        if (high > span.hottest) {
            span.hottest = high;
            span.hottestRow = &row;
        }
        if (low < span.coldest) {
            span.coldest = low;
            span.coldestRow = &row;
        }
    }
    return span;
}

/// In a layered system it is the interface that a material has to bear, not the process temperature.
void CheckServiceRange(const LayerInput& layer, const FaceSpan& span, Units units,
                       std::vector<Finding>& findings) {
    constexpr double hair = 0.05; // [degF]
    const CInsulation& material = layer.material;
    const bool unlimited = material.MaxTemp == 0.0F && material.MinTemp == 0.0F;
    const std::string subject = fmt::format("Insulation.{}", layer.position);
    if (unlimited) {
        return;
    }
    if (span.hottestRow != nullptr && span.hottest > material.MaxTemp + hair) {
        findings.push_back(
            {Severity::warning, subject,
             fmt::format("Layer {} ({}) reaches {}, above its service limit of {}, at {}.", layer.position,
                         material.Name, TempText(span.hottest, units), TempText(material.MaxTemp, units),
                         RowName(*span.hottestRow, units))});
    }
    if (span.coldestRow != nullptr && span.coldest < material.MinTemp - hair) {
        findings.push_back(
            {Severity::warning, subject,
             fmt::format("Layer {} ({}) falls to {}, below its service limit of {}, at {}.", layer.position,
                         material.Name, TempText(span.coldest, units), TempText(material.MinTemp, units),
                         RowName(*span.coldestRow, units))});
    }
}

} // namespace

std::vector<Finding> CheckRows(const CaseInputs& inputs, const std::vector<SolvedRow>& rows) {
    std::vector<Finding> findings;
    for (const SolvedRow& row : rows) {
        CheckSolution(row, inputs.units, findings);
    }
    for (std::size_t i = 0; i < inputs.layers.size(); ++i) {
        CheckServiceRange(inputs.layers[i], SpanOf(i, rows), inputs.units, findings);
    }
    return findings;
}

} // namespace kaloria
