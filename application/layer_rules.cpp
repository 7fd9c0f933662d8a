// SPDX-License-Identifier: GPL-3.0-or-later
#include "application/layer_rules.h"

#include "application/case_inputs.h"
#include "application/insulation_thickness.h"
#include "application/messages.h"
#include "application/visible_fields.h"
#include "data/number_format.h"
#include "engine/number_text.h"
#include "engine/surface_geometry.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

namespace kaloria {

namespace {

constexpr std::string_view noSuchRow = "There is no such row.";
constexpr std::string_view onlyLayersMove = "The base metal stays innermost and the jacket outermost.";
constexpr std::string_view onlyLayersCopied = "Only an insulation layer can be copied.";
constexpr std::string_view onlyLayersHaveThickness = "Only an insulation layer has a thickness.";

LayerEdit Refused(std::string_view text, std::size_t row) { return {std::string(text), row, {}}; }

std::size_t LayerIndex(std::size_t row) { return row - baseRow - 1; }

JobLayer& LayerAt(Job& job, std::size_t row) { return job.layers.at(LayerIndex(row)); }

void Renumber(Job& job) {
    for (std::size_t i = 0; i < job.layers.size(); ++i) {
        job.layers[i].layer = std::to_string(i + 1);
    }
}

void InsertLayer(Job& job, std::size_t row, JobLayer layer) {
    if (layer.locked == "Vary") {
        layer.locked = "Fix"; // one layer varies
    }
    job.layers.insert(job.layers.begin() + static_cast<std::ptrdiff_t>(LayerIndex(row)), std::move(layer));
    Renumber(job);
}

LayerEdit SwapWith(Job& job, std::size_t row, std::size_t other) {
    if (!IsLayerRow(job, row) || !IsLayerRow(job, other)) {
        return Refused(onlyLayersMove, row);
    }
    std::swap(LayerAt(job, row), LayerAt(job, other));
    Renumber(job);
    return {{}, other, {}};
}

template <class Records>
bool TakeMaterial(JobMaterial& row, const Records& records, std::int32_t id) {
    const auto* record = FindById(records, id);
    if (record != nullptr) {
        row = {record->ID, record->Name, false};
    }
    return record != nullptr;
}

std::string SubjectOf(std::size_t row) { return fmt::format("Insulation.{}", LayerIndex(row) + 1); }

/// A service limit as it is shown in the units of the job: what the person compares with.
double ShownLimit(float limit, Units units) {
    const double shown = FromEnglish(Quantity::temperature, units, limit);
    return units == Units::si ? ParseNumber(FormatNumber(shown, NumberFormat::tenths)).value_or(shown)
                              : shown;
}

/// A material without limits (both 0) serves everywhere.
void NoteLimits(const Job& job, const CInsulation& material, const std::string& subject,
                std::vector<Finding>& notes) {
    const auto process = ParseNumber(job[Field::ProcessTemp]);
    if (!process || (material.MaxTemp == 0.0F && material.MinTemp == 0.0F)) {
        return;
    }
    if (*process > ShownLimit(material.MaxTemp, job.UnitsInForce())) {
        notes.push_back({Severity::warning, subject, std::string(message::aboveMaxTemp)});
    }
    if (*process < ShownLimit(material.MinTemp, job.UnitsInForce())) {
        notes.push_back({Severity::warning, subject, std::string(message::belowMinTemp)});
    }
}

const CInsulation* MaterialOf(const Job& job, const Catalogue& catalogue, std::size_t row) {
    return IsLayerRow(job, row) ? FindById(catalogue.Insulations, job.layers[LayerIndex(row)].material.id)
                                : nullptr;
}

/// The record at the place of the size's text in its list.
template <class Sizes>
const typename Sizes::value_type* SizeAt(const Sizes& sizes, const std::vector<std::string>& texts,
                                         const std::string& text) {
    const auto found = std::find(texts.begin(), texts.end(), text);
    auto size = sizes.begin();
    for (auto at = texts.begin(); at != found && size != sizes.end(); ++at) {
        ++size;
    }
    return found == texts.end() || size == sizes.end() ? nullptr : &*size;
}

} // namespace

std::size_t GridRowCount(const Job& job) { return job.layers.size() + 3; }
std::size_t JacketRow(const Job& job) { return GridRowCount(job) - 1; }
bool IsLayerRow(const Job& job, std::size_t row) { return row > baseRow && row < JacketRow(job); }

LayerRowTexts LayerRow(const Job& job, std::size_t row) {
    const std::string number = std::to_string(row);
    if (row == baseRow) {
        return {number, "Base Metal", job.baseMetal.name, {}, {}};
    }
    if (row == JacketRow(job)) {
        return {number, "Jacket Material", job.jacket.name, {}, {}};
    }
    if (!IsLayerRow(job, row)) {
        return {};
    }
    const JobLayer& layer = job.layers[LayerIndex(row)];
    return {number, "Insulation", layer.material.name, layer.locked, layer.thickness};
}

LayerEdit AddLayer(Job& job) {
    if (GridRowCount(job) >= mostGridRows) {
        return Refused(message::tooManyLayers, JacketRow(job));
    }
    const std::size_t row = JacketRow(job);
    JobLayer layer;
    layer.locked = "Fix";
    if (!job.layers.empty()) {
        layer.material = job.layers.back().material;
    }
    InsertLayer(job, row, std::move(layer));
    return {{}, row, {}};
}

LayerEdit DeleteRow(Job& job, std::size_t row) {
    constexpr std::size_t fewestRows = 5; // heading, base, two layers, jacket
    if (row == baseRow) {
        return Refused(message::baseLayerStays, row);
    }
    if (row == JacketRow(job)) {
        return Refused(message::jacketLayerStays, row);
    }
    if (!IsLayerRow(job, row)) {
        return Refused(noSuchRow, row);
    }
    if (GridRowCount(job) < fewestRows) {
        return Refused(message::oneLayerNeeded, row);
    }
    job.layers.erase(job.layers.begin() + static_cast<std::ptrdiff_t>(LayerIndex(row)));
    Renumber(job);
    return {{}, std::min(row, JacketRow(job) - 1), {}};
}

LayerEdit CopyRow(Job& job, std::size_t row) {
    if (!IsLayerRow(job, row)) {
        return Refused(onlyLayersCopied, row);
    }
    if (GridRowCount(job) >= mostGridRows) {
        return Refused(message::tooManyLayers, row);
    }
    InsertLayer(job, row + 1, LayerAt(job, row));
    return {{}, row + 1, {}};
}

LayerEdit MoveUp(Job& job, std::size_t row) { return SwapWith(job, row, row - 1); }
LayerEdit MoveDown(Job& job, std::size_t row) { return SwapWith(job, row, row + 1); }
bool CanMoveUp(const Job& job, std::size_t row) { return IsLayerRow(job, row) && IsLayerRow(job, row - 1); }
bool CanMoveDown(const Job& job, std::size_t row) { return IsLayerRow(job, row) && IsLayerRow(job, row + 1); }

LayerEdit SetMaterial(Job& job, const Catalogue& catalogue, std::size_t row, std::int32_t id) {
    bool found = false;
    if (row == baseRow) {
        found = TakeMaterial(job.baseMetal, catalogue.BaseMetals, id);
    } else if (row == JacketRow(job)) {
        found = TakeMaterial(job.jacket, catalogue.JacketMaterials, id);
    } else if (IsLayerRow(job, row)) {
        found = TakeMaterial(LayerAt(job, row).material, catalogue.Insulations, id);
    } else {
        return Refused(noSuchRow, row);
    }
    return found ? LayerEdit{{}, row, MaterialNotes(job, catalogue, row)} : Refused(message::recordGone, row);
}

LayerEdit SetLock(Job& job, std::size_t row, std::string_view lock) {
    if (!IsLayerRow(job, row)) {
        return Refused(onlyLayersHaveThickness, row);
    }
    if (lock != "Fix" && lock != "Vary") {
        return Refused(fmt::format("\"{}\" is neither \"Fix\" nor \"Vary\".", lock), row);
    }
    LayerAt(job, row).locked = lock;
    LayerEdit edit{{}, row, {}};
    const auto varying = std::count_if(job.layers.begin(), job.layers.end(),
                                       [](const JobLayer& layer) { return layer.locked == "Vary"; });
    if (lock == "Vary" && varying > 1) {
        edit.notes.push_back({Severity::information, SubjectOf(row),
                              "Only the innermost layer that reads \"Vary\" is varied; others keep the "
                              "thickness that they show."});
    }
    return edit;
}

LayerEdit SetThickness(Job& job, std::size_t row, std::string_view text) {
    if (!IsLayerRow(job, row)) {
        return Refused(onlyLayersHaveThickness, row);
    }
    JobLayer& layer = LayerAt(job, row);
    layer.thickness = Trimmed(text);
    if (!layer.thickness.empty()) {
        layer.locked = "Fix";
    }
    LayerEdit edit{{}, row, {}};
    const std::string problem = ThicknessProblem(layer.thickness, job.UnitsInForce());
    if (!problem.empty()) {
        edit.notes.push_back({Severity::error, SubjectOf(row), problem});
    }
    return edit;
}

std::string ThicknessProblem(std::string_view text, Units units) {
    constexpr double thickest = 100.0; // [in]
    if (Trimmed(text).empty()) {
        return {};
    }
    const auto value = ParseSingle(text);
    const double inches = ToEnglish(Quantity::length, units, value.value_or(0.0F));
    if (value && inches > 0.0 && inches <= thickest) {
        return {};
    }
    return fmt::format("\"{}\" is no thickness above 0 and up to {}.", text,
                       units == Units::si ? "2540 mm" : "100 in");
}

std::vector<std::string> ThicknessChoices(const Job& job, const Catalogue& catalogue) {
    const std::int32_t code = GeometryCodeOf(job, catalogue);
    if (!geometry::IsCylinder(code)) {
        return {};
    }
    const Units units = job.UnitsInForce();
    const auto texts = SizeTexts(catalogue, code, units);
    const CPipe* pipe =
        geometry::IsPipe(code) ? SizeAt(catalogue.Pipes, texts, job[Field::PipeSize]) : nullptr;
    const CTube* tube =
        geometry::IsTube(code) ? SizeAt(catalogue.Tubes, texts, job[Field::PipeSize]) : nullptr;
    std::vector<std::string> choices;
    for (const float nominal : NominalSeries(catalogue, code, units)) {
        const bool sized = pipe != nullptr || tube != nullptr;
        if (!sized || FindThicknessRow(code, nominal, pipe, tube, units == Units::si) != nullptr) {
            choices.push_back(FormatNumber(nominal, NumberFormat::shortest));
        }
    }
    return choices;
}

std::vector<Finding> MaterialNotes(const Job& job, const Catalogue& catalogue, std::size_t row) {
    std::vector<Finding> notes;
    if (const CInsulation* material = MaterialOf(job, catalogue, row)) {
        NoteLimits(job, *material, SubjectOf(row), notes);
        if (IsDuctWrap(material->Name)) {
            notes.push_back({Severity::information, SubjectOf(row), std::string(message::ductWrap)});
        }
    }
    return notes;
}

std::vector<Finding> ProcessTemperatureNotes(const Job& job, const Catalogue& catalogue) {
    std::vector<Finding> notes;
    for (std::size_t row = baseRow + 1; row < JacketRow(job); ++row) {
        if (const CInsulation* material = MaterialOf(job, catalogue, row)) {
            NoteLimits(job, *material, SubjectOf(row), notes);
        }
    }
    return notes;
}

} // namespace kaloria
