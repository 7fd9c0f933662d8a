// SPDX-License-Identifier: GPL-3.0-or-later
#include "application/audit_line.h"

#include "data/field_check.h"
#include "engine/number_text.h"
#include "engine/numeric_fault.h"

#include <fmt/format.h>

#include <array>
#include <span>
#include <string_view>

namespace kaloria {

namespace {

constexpr std::string_view notComputed = "-";

/// A number in single precision with the seven digits that it holds.
std::string NumberText(float value) { return fmt::format("{:.7G}", value + 0.0F); }

/// A field in one line and without tabs: nothing in it can be taken for the end of field or line.
std::string Cleaned(std::string_view text) {
    std::string field;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto code = static_cast<unsigned char>(text[i]);
        const bool secondOfLineEnd = text[i] == '\n' && i > 0 && text[i - 1] == '\r';
        if (!secondOfLineEnd) {
            field += code < 0x20 || code == 0x7F ? ' ' : text[i];
        }
    }
    return field;
}

/// The texts that @p textOf makes of the items, with commas between.
template <class Items, class TextOf>
std::string Listed(const Items& items, TextOf textOf) {
    std::string list;
    bool first = true;
    for (const auto& item : items) {
        list += (first ? "" : ",") + textOf(item);
        first = false;
    }
    return list;
}

std::string Heading(const ResultColumn& column) { return column.name + " " + column.unit; }

/// Cells of the grid's column @p position, counted from the label column.
std::string Cells(const ResultsGrid& grid, std::size_t position) {
    return Listed(grid.rows, [&](const ResultRow& row) { return row.cells.at(position - 1).text; });
}

/// Sum over the fixed layers up to the varying one [in].
float TotalThickness(const CaseInputs& inputs) {
    double total = 0;
    for (const LayerInput& layer : inputs.layers) {
        if (layer.varies) {
            break;
        }
        total += ToEnglish(Quantity::length, inputs.units, layer.nominal);
    }
    return Single(total);
}

/// Without a usable fuel the hours may be unusable too, and then are no number.
std::string Hours(const CaseInputs& inputs) {
    const bool usable =
        inputs.fuel || (!Trimmed(inputs.hoursText).empty() &&
                        !WhatIsWrong(InfoOf(Field::HoursPerYear), inputs.hoursText, inputs.units));
    return usable ? NumberText(inputs.hoursPerYear) : std::string();
}

/// Of each pollutant of the fuel [lb a year, per unit of the row's heat flow]; empty when there is no number.
std::vector<double> EmissionsOf(const SolvedRow& row, const CaseInputs& inputs) {
    if (!row.IsSolved()) {
        return {};
    }
    SolvedRow asShown = row; // the line's heat flow and its emissions are per the same unit
    asShown.comparedFlow = row.unitHeatFlow;
    try {
        return MoneyOf(asShown, inputs, 0, nullptr).emissions;
    } catch (const NumericFault&) {
        return {};
    }
}

std::string Emissions(const SolvedRow& row, const CaseInputs& inputs) {
    const std::vector<double> amounts = EmissionsOf(row, inputs);
    std::string text;
    std::size_t i = 0;
    for (const CPollutant& pollutant : inputs.fuel->record->Pollutants) {
        text += " " + pollutant.Name + "=";
        text += i < amounts.size() ? NumberText(Single(amounts[i])) : std::string(notComputed);
        ++i;
    }
    return text;
}

std::string Emissions(const CalculationResult& result, const CaseInputs& inputs) {
    if (!inputs.fuel || inputs.fuel->record->Pollutants.empty()) {
        return {};
    }
    return Listed(result.solved, [&](const SolvedRow& row) { return Emissions(row, inputs); });
}

std::string Joined(std::span<const std::string> fields) {
    std::string line;
    for (const std::string& field : fields) {
        line += (&field == fields.data() ? "" : "\t") + Cleaned(field);
    }
    return line;
}

} // namespace

std::string AuditLine(const CalculationResult& result, const CaseInputs& inputs) {
    const ResultsGrid& grid = result.grid;
    const FuelInput* fuel = inputs.fuel ? &*inputs.fuel : nullptr;
    const auto ofFuel = [&](float FuelInput::*figure) {
        return fuel != nullptr ? NumberText(fuel->*figure) : std::string();
    };
    const std::array<std::string, 22> fields{
        inputs.itemDescription,
        fuel != nullptr ? fuel->record->Name : std::string(),
        inputs.baseMetal->Name,
        Listed(inputs.layers, [](const LayerInput& layer) { return layer.material.Name; }),
        inputs.jacket->Name,
        inputs.geometry->Name,
        ofFuel(&FuelInput::efficiency),
        Hours(inputs),
        ofFuel(&FuelInput::heatContent),
        ofFuel(&FuelInput::cost),
        NumberText(inputs.processTemp),
        NumberText(inputs.ambientTemp),
        NumberText(inputs.windSpeed),
        NumberText(inputs.pipeSize),
        NumberText(TotalThickness(inputs)),
        "Thickness",
        Listed(grid.rows, [](const ResultRow& row) { return row.label; }),
        Heading(grid.columns.at(2)),
        Cells(grid, 2),
        Heading(grid.columns.at(1)),
        Cells(grid, 1),
        Emissions(result, inputs),
    };
    return Joined(fields);
}

} // namespace kaloria
