// SPDX-License-Identifier: GPL-3.0-or-later
#include "application/comparison_rows.h"
#include "application/visible_fields.h"
#include "engine/number_text.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

namespace kaloria {

namespace {

/// Numbers that single precision cannot tell apart came from the same entry in two unit systems.
bool AreSame(const ComparisonCell& one, const ComparisonCell& other) {
    if (one.value && other.value) {
        constexpr double lastDigit = 1e-6;
        const double size = std::max({std::abs(*one.value), std::abs(*other.value), 1.0});
        return std::abs(*one.value - *other.value) <= lastDigit * size;
    }
    return one.value.has_value() == other.value.has_value() && one.text == other.text;
}

bool Differs(const ComparisonRow& row) {
    return std::any_of(row.cells.begin(), row.cells.end(),
                       [&](const ComparisonCell& cell) { return !AreSame(cell, row.cells.front()); });
}

/// Walks the inputs, one after the other through all cases, so that a row stands where its input does.
class InputWalk {
public:
    InputWalk(const std::vector<ComparedCase>& cases, const Catalogue& catalogue)
        : cases_(cases), catalogue_(catalogue), rows_(cases.size()) {}

    std::vector<ComparisonRow> Run() {
        for (const JobField& field : JobFields()) {
            if (field.group == FieldGroup::surface || field.group == FieldGroup::fuel) {
                AddField(field);
            } else if (field.id == Field::Insulation) {
                AddLayers();
            } else if (field.id == Field::BaseMetal) {
                AddMaterial("Base metal", [](const Job& job) { return job.baseMetal.name; });
            } else if (field.id == Field::Jacket) {
                AddMaterial("Jacket", [](const Job& job) { return job.jacket.name; });
            }
        }
        std::vector<ComparisonRow> different;
        std::copy_if(std::make_move_iterator(rows_.rows.begin()), std::make_move_iterator(rows_.rows.end()),
                     std::back_inserter(different), Differs);
        return different;
    }

private:
    void Take(std::size_t index, const std::string& label, const std::string& unit, bool isNumber,
              const std::string& text) {
        ComparisonCell& cell =
            rows_.Cell(index, ComparisonRow::Kind::input, label, unit, NumberFormat::shortest);
        cell.text = Trimmed(text);
        cell.value = isNumber ? ParseNumber(text) : std::nullopt;
    }

    void AddField(const JobField& field) {
        const bool isNumber = field.kind == FieldKind::number || field.kind == FieldKind::moisture;
        for (std::size_t i = 0; i < cases_.size(); ++i) {
            const Job& job = cases_[i].job;
            if (IsShown(field.id, job, catalogue_) && IsInUse(field.id, job)) {
                Take(i, PlainLabelOf(field.id, job, catalogue_), PlainUnitOf(field.id, job, catalogue_),
                     isNumber, job[field.id]);
            }
        }
    }

    template <class NameOf>
    void AddMaterial(const std::string& label, NameOf&& nameOf) {
        for (std::size_t i = 0; i < cases_.size(); ++i) {
            Take(i, label, {}, false, nameOf(cases_[i].job));
        }
    }

    void AddLayers() {
        for (std::size_t layer = 0; layer < mostLayers; ++layer) {
            const std::string label = fmt::format("Layer {}", layer + 1);
            for (std::size_t i = 0; i < cases_.size(); ++i) {
                const Job& job = cases_[i].job;
                if (layer < job.layers.size()) {
                    Take(i, label, {}, false, job.layers[layer].material.name);
                }
            }
            for (std::size_t i = 0; i < cases_.size(); ++i) {
                const Job& job = cases_[i].job;
                if (layer < job.layers.size()) {
                    const bool varies = job.layers[layer].locked == "Vary";
                    Take(i, label + ", thickness",
                         std::string(InfoOf(Quantity::length).Text(job.UnitsInForce())), !varies,
                         varies ? "varies" : job.layers[layer].thickness);
                }
            }
        }
    }

    const std::vector<ComparedCase>& cases_;
    const Catalogue& catalogue_;
    ComparisonRows rows_;
};

} // namespace

std::vector<ComparisonRow> InputDifferences(const std::vector<ComparedCase>& cases,
                                            const Catalogue& catalogue) {
    return InputWalk(cases, catalogue).Run();
}

} // namespace kaloria
