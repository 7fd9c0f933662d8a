// SPDX-License-Identifier: GPL-3.0-or-later
#include "application/material_rules.h"

#include "application/choice_rules.h"
#include "application/conductivity_check.h"
#include "application/messages.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <iterator>
#include <type_traits>
#include <utility>

namespace kaloria {

namespace {

constexpr std::string_view userCreator = "User";

struct KindTexts {
    std::string_view alter;
    std::string_view remove;
};

// In the order of MaterialKind.
constexpr std::array<KindTexts, 4> texts{{
    {message::systemMaterial, message::deleteMaterial},
    {message::systemBaseMetal, message::deleteBaseMetal},
    {message::systemJacket, message::deleteJacket},
    {message::systemFuel, message::deleteFuel},
}};

const KindTexts& TextsOf(MaterialKind kind) { return texts.at(static_cast<std::size_t>(kind)); }

/// Calls @p use with the collection of that kind.
template <class AnyCatalogue, class Use>
decltype(auto) WithRecords(AnyCatalogue& catalogue, MaterialKind kind, Use&& use) {
    switch (kind) {
    case MaterialKind::baseMetal:
        return use(catalogue.BaseMetals);
    case MaterialKind::jacket:
        return use(catalogue.JacketMaterials);
    case MaterialKind::fuel:
        return use(catalogue.Fuels);
    default:
        return use(catalogue.Insulations);
    }
}

template <class Record>
constexpr MaterialKind kindOf = std::is_same_v<Record, CInsulation>       ? MaterialKind::insulation
                                : std::is_same_v<Record, CBaseMetal>      ? MaterialKind::baseMetal
                                : std::is_same_v<Record, CJacketMaterial> ? MaterialKind::jacket
                                                                          : MaterialKind::fuel;

/// The collection that a type of record is kept in.
template <class Record, class AnyCatalogue>
auto& RecordsOf(AnyCatalogue& catalogue) {
    if constexpr (std::is_same_v<Record, CInsulation>) {
        return catalogue.Insulations;
    } else if constexpr (std::is_same_v<Record, CBaseMetal>) {
        return catalogue.BaseMetals;
    } else if constexpr (std::is_same_v<Record, CJacketMaterial>) {
        return catalogue.JacketMaterials;
    } else {
        return catalogue.Fuels;
    }
}

/// @param systemText  that refuses what may be done to the user's records alone
std::string_view GuardRecord(const Catalogue& catalogue, MaterialKind kind, std::int32_t id,
                             std::string_view systemText) {
    return WithRecords(catalogue, kind, [&](const auto& records) -> std::string_view {
        const auto* record = FindById(records, id);
        if (record == nullptr) {
            return message::recordGone;
        }
        return record->CreatedBy == systemCreator ? systemText : std::string_view();
    });
}

template <class Record>
Record AsNew(const Catalogue& catalogue, Record record) {
    record.ID = NextId(RecordsOf<Record>(catalogue));
    record.CreatedBy = userCreator;
    record.Active = true;
    return record;
}

template <class Records>
std::string FreeName(const Records& records, const std::string& name) {
    std::string free = name + " (copy)";
    for (int number = 2; FindByName(records, free) != nullptr; ++number) {
        free = fmt::format("{} (copy {})", name, number);
    }
    return free;
}

template <class Record>
Record Duplicate(const Catalogue& catalogue, const Record& record) {
    Record copy = AsNew(catalogue, record);
    copy.Name = FreeName(RecordsOf<Record>(catalogue), record.Name);
    return copy;
}

/// The choices of a job that name a record of that kind.
std::vector<Field> ChoicesOfKind(MaterialKind kind) {
    switch (kind) {
    case MaterialKind::insulation:
        return {Field::ReportInsulationMaterial, Field::ReportExistingInsulationMaterial};
    case MaterialKind::jacket:
        return {Field::ReportJacketMaterial};
    case MaterialKind::fuel:
        return {Field::Fuel, Field::ReportFuel};
    default:
        return {};
    }
}

std::vector<JobMaterial*> RowsOfKind(Job& job, MaterialKind kind) {
    if (kind == MaterialKind::baseMetal) {
        return {&job.baseMetal};
    }
    if (kind == MaterialKind::jacket) {
        return {&job.jacket};
    }
    std::vector<JobMaterial*> rows;
    if (kind == MaterialKind::insulation) {
        for (JobLayer& layer : job.layers) {
            rows.push_back(&layer.material);
        }
    }
    return rows;
}

void FollowRename(Job& job, MaterialKind kind, std::int32_t id, const std::string& from,
                  const std::string& to) {
    for (JobMaterial* row : RowsOfKind(job, kind)) {
        if (row->id == id) {
            row->name = to;
        }
    }
    for (const Field field : ChoicesOfKind(kind)) {
        if (job[field] == from) {
            job[field] = to;
        }
    }
}

/// The new record's `ID` may be one that a deleted record had; what was left without that record must not
/// calculate with this one.
void Detach(Job& job, MaterialKind kind, std::int32_t id) {
    for (JobMaterial* row : RowsOfKind(job, kind)) {
        if (row->id == id) {
            row->id = 0;
            row->missing = true;
        }
    }
}

/// The job's uses of a fuel that take over its edited figures. The calculation's: a calculation gives the
/// job's figures to its fuel, which would have its old ones back at once. The report's, unless its figures
/// were typed and the units are still theirs.
std::vector<Field> UsesToFollow(const Job& job, const Catalogue& catalogue, const CFuel& old,
                                const CFuel& edited) {
    std::vector<Field> uses;
    const bool sameUnits = old.CostUnits == edited.CostUnits && old.BTUUnits == edited.BTUUnits;
    if (sameUnits && old.Cost == edited.Cost && old.BTU == edited.BTU) {
        return uses;
    }
    if (job[Field::Fuel] == old.Name) {
        uses.push_back(Field::Fuel);
    }
    Job chosen = job;
    ChooseFuel(chosen, catalogue, Field::ReportFuel, old.Name);
    const bool typed = chosen[Field::ReportFuelCost] != job[Field::ReportFuelCost] ||
                       chosen[Field::ReportHeatingValue] != job[Field::ReportHeatingValue];
    if (job[Field::ReportFuel] == old.Name && !(typed && sameUnits)) {
        uses.push_back(Field::ReportFuel);
    }
    return uses;
}

/// The efficiency stays: no record ever takes it from the job.
void TakeFigures(Job& job, const Catalogue& catalogue, Field use) {
    const Field efficiency = use == Field::ReportFuel ? Field::ReportEfficiency : Field::ConversionEfficiency;
    const std::string kept = job[efficiency];
    ChooseFuel(job, catalogue, use, std::string(job[use]));
    job[efficiency] = kept;
}

template <class Record>
std::string_view AcceptRecord(Catalogue& catalogue, Job& job, Record record) {
    if (record.CreatedBy == systemCreator) {
        return TextsOf(kindOf<Record>).alter;
    }
    if constexpr (std::is_same_v<Record, CInsulation>) {
        SortPoints(record.TemperaturePoints);
    }
    auto& records = RecordsOf<Record>(catalogue);
    auto* present = FindById(records, record.ID);
    if (present == nullptr) {
        Detach(job, kindOf<Record>, record.ID);
        records.push_back(std::move(record));
        return {};
    }
    if (present->CreatedBy == systemCreator) {
        return TextsOf(kindOf<Record>).alter;
    }
    std::vector<Field> uses;
    if constexpr (std::is_same_v<Record, CFuel>) {
        uses = UsesToFollow(job, catalogue, *present, record);
    }
    const std::string oldName = std::exchange(*present, std::move(record)).Name;
    FollowRename(job, kindOf<Record>, present->ID, oldName, present->Name);
    for (const Field use : uses) {
        TakeFigures(job, catalogue, use);
    }
    return {};
}

std::string LayersText(const std::vector<std::size_t>& numbers) {
    std::string text = numbers.size() == 1 ? "layer " : "layers ";
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        text += i == 0 ? "" : i + 1 == numbers.size() ? " and " : ", ";
        text += std::to_string(numbers[i]);
    }
    return text;
}

std::string UseInRows(const Job& job, MaterialKind kind, std::int32_t id) {
    if (kind == MaterialKind::baseMetal) {
        return job.baseMetal.id == id ? "the base metal" : "";
    }
    if (kind == MaterialKind::jacket) {
        return job.jacket.id == id ? "the jacket" : "";
    }
    std::vector<std::size_t> numbers;
    for (std::size_t i = 0; kind == MaterialKind::insulation && i < job.layers.size(); ++i) {
        if (job.layers[i].material.id == id) {
            numbers.push_back(i + 1);
        }
    }
    return numbers.empty() ? std::string() : LayersText(numbers);
}

std::string_view UseText(Field field) {
    switch (field) {
    case Field::ReportInsulationMaterial:
        return "the insulation of the report";
    case Field::ReportExistingInsulationMaterial:
        return "the existing insulation of the report";
    case Field::ReportJacketMaterial:
        return "the jacket of the report";
    case Field::ReportFuel:
        return "the fuel of the report";
    default:
        return "the fuel";
    }
}

/// As it was, but for an `ID` or a name that another record has taken since.
template <class Record>
std::int32_t PutBack(Catalogue& catalogue, Record record, std::size_t position) {
    auto& records = RecordsOf<Record>(catalogue);
    if (FindById(records, record.ID) != nullptr) {
        record.ID = NextId(records);
    }
    if (FindByName(records, record.Name) != nullptr) {
        record.Name = FreeName(records, record.Name);
    }
    const std::int32_t id = record.ID;
    const auto steps = static_cast<std::ptrdiff_t>(std::min(position, records.size()));
    records.insert(std::next(records.begin(), steps), std::move(record));
    return id;
}

} // namespace

std::string_view EditRefusal(const Catalogue& catalogue, MaterialKind kind, std::int32_t id) {
    return GuardRecord(catalogue, kind, id, TextsOf(kind).alter);
}

std::string_view ActivateRefusal(const Catalogue& catalogue, MaterialKind kind, std::int32_t id) {
    return GuardRecord(catalogue, kind, id, TextsOf(kind).alter);
}

std::string_view DeleteRefusal(const Catalogue& catalogue, MaterialKind kind, std::int32_t id) {
    return GuardRecord(catalogue, kind, id, TextsOf(kind).remove);
}

std::string_view AddRefusal(MaterialKind kind, Units units) {
    return kind == MaterialKind::fuel && units == Units::si ? message::fuelsInImperial : std::string_view();
}

CInsulation NewInsulation(const Catalogue& catalogue) { return AsNew(catalogue, CInsulation()); }
CBaseMetal NewBaseMetal(const Catalogue& catalogue) { return AsNew(catalogue, CBaseMetal()); }
CJacketMaterial NewJacket(const Catalogue& catalogue) { return AsNew(catalogue, CJacketMaterial()); }
CFuel NewFuel(const Catalogue& catalogue) { return AsNew(catalogue, CFuel()); }

CInsulation DuplicateOf(const Catalogue& catalogue, const CInsulation& record) {
    return Duplicate(catalogue, record);
}
CBaseMetal DuplicateOf(const Catalogue& catalogue, const CBaseMetal& record) {
    return Duplicate(catalogue, record);
}
CJacketMaterial DuplicateOf(const Catalogue& catalogue, const CJacketMaterial& record) {
    return Duplicate(catalogue, record);
}
CFuel DuplicateOf(const Catalogue& catalogue, const CFuel& record) { return Duplicate(catalogue, record); }

std::string_view Accept(Catalogue& catalogue, Job& job, const CInsulation& record) {
    return AcceptRecord(catalogue, job, record);
}
std::string_view Accept(Catalogue& catalogue, Job& job, const CBaseMetal& record) {
    return AcceptRecord(catalogue, job, record);
}
std::string_view Accept(Catalogue& catalogue, Job& job, const CJacketMaterial& record) {
    return AcceptRecord(catalogue, job, record);
}
std::string_view Accept(Catalogue& catalogue, Job& job, const CFuel& record) {
    return AcceptRecord(catalogue, job, record);
}

std::string_view ToggleActive(Catalogue& catalogue, MaterialKind kind, std::int32_t id) {
    const std::string_view refusal = ActivateRefusal(catalogue, kind, id);
    if (refusal.empty()) {
        WithRecords(catalogue, kind, [id](auto& records) {
            if (auto* record = FindById(records, id)) {
                record->Active = !record->Active;
            }
        });
    }
    return refusal;
}

std::string UseInJob(const Catalogue& catalogue, const Job& job, MaterialKind kind, std::int32_t id) {
    const std::string name = WithRecords(catalogue, kind, [id](const auto& records) {
        const auto* record = FindById(records, id);
        return record != nullptr ? record->Name : std::string();
    });
    std::string text = UseInRows(job, kind, id);
    for (const Field field : ChoicesOfKind(kind)) {
        if (!name.empty() && job[field] == name) {
            text += (text.empty() ? "" : ", ") + std::string(UseText(field));
        }
    }
    return text;
}

std::string_view MaterialDeletions::Delete(Catalogue& catalogue, MaterialKind kind, std::int32_t id) {
    const std::string_view refusal = DeleteRefusal(catalogue, kind, id);
    if (refusal.empty()) {
        WithRecords(catalogue, kind, [&](auto& records) {
            const auto found = std::find_if(records.begin(), records.end(),
                                            [id](const auto& record) { return record.ID == id; });
            const auto position = static_cast<std::size_t>(std::distance(records.begin(), found));
            deleted_.push_back({std::move(*found), position});
            records.erase(found);
        });
    }
    return refusal;
}

std::string MaterialDeletions::LastName() const {
    return deleted_.empty()
               ? std::string()
               : std::visit([](const auto& record) { return record.Name; }, deleted_.back().record);
}

MaterialKind MaterialDeletions::LastKind() const {
    return deleted_.empty() ? MaterialKind::insulation
                            : static_cast<MaterialKind>(deleted_.back().record.index());
}

std::int32_t MaterialDeletions::Undo(Catalogue& catalogue) {
    if (deleted_.empty()) {
        return 0;
    }
    Deleted last = std::move(deleted_.back());
    deleted_.pop_back();
    return std::visit([&](auto& record) { return PutBack(catalogue, std::move(record), last.position); },
                      last.record);
}

} // namespace kaloria
