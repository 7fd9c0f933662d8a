// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/job.h"

namespace kaloria {

namespace {

JobMaterial ById(std::int32_t id) { return {id, "ID " + std::to_string(id), false}; }

std::int32_t DefaultId(Field field) { return std::stoi(std::string(InfoOf(field).defaultText)); }

} // namespace

Job::Job(Units units) {
    for (const JobField& field : JobFields()) {
        if (field.kind != FieldKind::material) {
            (*this)[field.id] = units == Units::si ? field.defaultTextSI : field.defaultText;
        }
    }
    baseMetal = ById(DefaultId(Field::BaseMetal));
    jacket = ById(DefaultId(Field::Jacket));
    layers.push_back({ById(DefaultId(Field::Insulation)), "1", "Vary", ""});
}

} // namespace kaloria
