// SPDX-License-Identifier: GPL-3.0-or-later
#include "application/job_edit.h"

#include "data/field_check.h"
#include "data/value_text.h"
#include "engine/number_text.h"

#include <fmt/format.h>

#include <algorithm>

namespace kaloria {

namespace {

using Problem = std::optional<std::string>;

char Lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

bool SameIgnoringCase(std::string_view a, std::string_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char x, char y) { return Lower(x) == Lower(y); });
}

/// The record of that name, of that name in other case, or of that ID.
template <class Records>
auto* FindRecord(const Records& records, std::string_view text) {
    if (auto* exact = FindByName(records, text)) {
        return exact;
    }
    for (const auto& record : records) {
        if (SameIgnoringCase(record.Name, text)) {
            return &record;
        }
    }
    const auto id = value_text::ParseInteger(text);
    return id ? FindById(records, *id) : nullptr;
}

Problem Unknown(std::string_view text, std::string_view what) {
    return fmt::format("\"{}\" is no {} of the catalogue.", text, what);
}

template <class Records>
Problem SetMaterial(JobMaterial& row, const Records& records, std::string_view text, std::string_view what) {
    const auto* record = FindRecord(records, text);
    if (record == nullptr) {
        return Unknown(text, what);
    }
    row = {record->ID, record->Name, false};
    return std::nullopt;
}

template <class Records>
Problem SetName(std::string& field, const Records& records, std::string_view text, std::string_view what) {
    const auto* record = FindRecord(records, text);
    if (record == nullptr) {
        return Unknown(text, what);
    }
    field = record->Name;
    return std::nullopt;
}

Problem SetChoice(Job& job, const Catalogue& catalogue, const JobField& field, std::string_view value) {
    std::string& text = job[field.id];
    switch (field.choice) {
    case FieldChoice::surfaceGeometry:
        return SetName(text, catalogue.SurfaceGeometries, value, "system application");
    case FieldChoice::fuel:
        return SetName(text, catalogue.Fuels, value, "fuel");
    case FieldChoice::insulation:
        return SetName(text, catalogue.Insulations, value, "insulation");
    case FieldChoice::jacket:
        return SetName(text, catalogue.JacketMaterials, value, "jacket material");
    case FieldChoice::reportingUnit:
        return SetName(text, catalogue.ReportingUnits, value, "reporting unit");
    case FieldChoice::calculationType:
        if (const auto type = CalculationTypeFrom(value)) {
            text = calculationTypeNames[*type];
            return std::nullopt;
        }
        return fmt::format("\"{}\" is no calculation type.", value);
    default:
        text = value;
        return std::nullopt;
    }
}

void Renumber(Job& job) {
    for (std::size_t i = 0; i < job.layers.size(); ++i) {
        job.layers[i].layer = std::to_string(i + 1);
    }
}

/// The row that "Insulation.N" names, added when it is the next one; null and a problem otherwise.
JobLayer* LayerAt(Job& job, std::size_t number, Problem& problem) {
    if (number == job.layers.size() + 1 && number <= mostLayers) {
        job.layers.push_back({{}, std::to_string(number), "Fix", ""});
    }
    if (number < 1 || number > job.layers.size()) {
        problem = number > mostLayers
                      ? "You may not have more than five layers."
                      : fmt::format("There is no layer {}: the job has {}.", number, job.layers.size());
        return nullptr;
    }
    return &job.layers[number - 1];
}

Problem RemoveLayer(Job& job, std::size_t number) {
    if (number < 1 || number > job.layers.size()) {
        return fmt::format("There is no layer {}.", number);
    }
    if (job.layers.size() == 1) {
        return "You must have at least one insulation layer.";
    }
    job.layers.erase(job.layers.begin() + static_cast<std::ptrdiff_t>(number - 1));
    Renumber(job);
    return std::nullopt;
}

Problem SetLayerCell(JobLayer& row, std::string_view cell, std::string_view value) {
    if (cell == "Thickness") {
        const auto thickness = ParseSingle(value);
        if (!thickness || !(*thickness > 0.0F)) {
            return fmt::format("\"{}\" is no thickness.", value);
        }
        row.thickness = Trimmed(value);
        row.locked = "Fix";
        return std::nullopt;
    }
    if (cell == "Locked") {
        if (value != "Fix" && value != "Vary") {
            return fmt::format("\"{}\" is neither \"Fix\" nor \"Vary\".", value);
        }
        row.locked = value;
        return std::nullopt;
    }
    return fmt::format("A layer has no input \"{}\": it has Thickness and Locked.", cell);
}

/// @param rest  what follows "Insulation": "", ".2", ".2.Thickness", ".Thickness"
Problem SetLayer(Job& job, const Catalogue& catalogue, std::string_view rest, std::string_view value) {
    std::size_t number = 1;
    if (rest.size() > 1 && rest[1] >= '0' && rest[1] <= '9') {
        const auto end = std::min(rest.find('.', 1), rest.size());
        const auto parsed = value_text::ParseInteger(rest.substr(1, end - 1));
        number = parsed && *parsed > 0 ? static_cast<std::size_t>(*parsed) : mostLayers + 1;
        rest.remove_prefix(end);
    }
    if (rest.empty() && Trimmed(value).empty()) {
        return RemoveLayer(job, number);
    }
    Job changed = job;
    Problem problem;
    JobLayer* row = LayerAt(changed, number, problem);
    if (row != nullptr) {
        problem = rest.empty() ? SetMaterial(row->material, catalogue.Insulations, value, "insulation")
                               : SetLayerCell(*row, rest.substr(1), value);
    }
    if (!problem) {
        job = std::move(changed);
    }
    return problem;
}

} // namespace

std::optional<std::string> SetJobField(Job& job, const Catalogue& catalogue, std::string_view name,
                                       std::string_view value) {
    constexpr std::string_view insulation = "Insulation";
    if (name == insulation || (name.starts_with(insulation) && name.substr(insulation.size(), 1) == ".")) {
        return SetLayer(job, catalogue, name.substr(insulation.size()), value);
    }
    const JobField* field = FindField(name);
    if (field == nullptr) {
        return fmt::format("There is no input \"{}\".", name);
    }
    if (const auto problem = WhatIsWrong(*field, value, job.UnitsInForce())) {
        return fmt::format("{}: {}.", name, *problem);
    }
    switch (field->kind) {
    case FieldKind::material:
        return field->id == Field::BaseMetal
                   ? SetMaterial(job.baseMetal, catalogue.BaseMetals, value, "base metal")
                   : SetMaterial(job.jacket, catalogue.JacketMaterials, value, "jacket material");
    case FieldKind::choice:
        return SetChoice(job, catalogue, *field, value);
    case FieldKind::moisture:
        job.moisture = field->id;
        break;
    default:
        break;
    }
    job[field->id] = value;
    return std::nullopt;
}

} // namespace kaloria
