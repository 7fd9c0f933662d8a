// SPDX-License-Identifier: GPL-3.0-or-later
#include "application/units_memory.h"

#include "application/units_switch.h"
#include "application/visible_fields.h"
#include "engine/surface_geometry.h"

#include <algorithm>
#include <string>

namespace kaloria {

namespace {

/// Gives a job just converted back what it was converted from, as far as that is still so.
class Restorer {
public:
    /// @param edited  the job as it was before it was converted back
    Restorer(const Job& before, const Job& after, const Job& edited, const Catalogue& catalogue)
        : before_(before),
          after_(after),
          edited_(edited),
          sameSizes_(ListOf(after, catalogue) == ListOf(edited, catalogue)),
          sameSeries_(geometry::IsCylinder(GeometryCodeOf(after, catalogue)) ==
                      geometry::IsCylinder(GeometryCodeOf(edited, catalogue))) {}

    void Restore(Job& job) const {
        for (const JobField& field : JobFields()) {
            const bool isNumber = field.kind == FieldKind::number || field.kind == FieldKind::moisture;
            if ((isNumber || field.choice == FieldChoice::size) && Unchanged(field.id) &&
                SameConversion(field)) {
                job[field.id] = before_[field.id];
            }
        }
        if (sameSeries_) {
            RestoreLayers(job);
        }
    }

private:
    [[nodiscard]] bool Unchanged(Field field) const { return edited_[field] == after_[field]; }

    /// Which list of sizes converts the job's size: 1 pipes, 2 tubes.
    static int ListOf(const Job& job, const Catalogue& catalogue) {
        return geometry::IsTube(GeometryCodeOf(job, catalogue)) ? 2 : 1;
    }

    [[nodiscard]] bool SameConversion(const JobField& field) const {
        if (field.choice == FieldChoice::size) {
            return sameSizes_;
        }
        if (field.quantity == Quantity::fuelCost || field.quantity == Quantity::heatContent) {
            return Unchanged(field.group == FieldGroup::fuel ? Field::Fuel : Field::ReportFuel);
        }
        return field.group != FieldGroup::navigation;
    }

    /// Rows may have been moved, added and deleted since: a text is looked for at its own place, then
    /// anywhere.
    void RestoreLayers(Job& job) const {
        for (std::size_t i = 0; i < job.layers.size(); ++i) {
            const std::string& text = edited_.layers[i].thickness;
            if (i < after_.layers.size() && after_.layers[i].thickness == text) {
                job.layers[i].thickness = before_.layers[i].thickness;
                continue;
            }
            const auto moved = std::find_if(after_.layers.begin(), after_.layers.end(),
                                            [&](const JobLayer& layer) { return layer.thickness == text; });
            if (moved != after_.layers.end()) {
                const auto place = static_cast<std::size_t>(moved - after_.layers.begin());
                job.layers[i].thickness = before_.layers[place].thickness;
            }
        }
    }

    const Job& before_;
    const Job& after_;
    const Job& edited_;
    bool sameSizes_;
    bool sameSeries_; // of nominal thicknesses
};

} // namespace

void UnitsMemory::Switch(Job& job, const Catalogue& catalogue, Units units) {
    if (job.UnitsInForce() == units) {
        return;
    }
    const Job edited = job;
    UnitsChange(job, catalogue, units, SwitchPrecision::display);
    if (last_ && last_->before.UnitsInForce() == units) {
        Restorer(last_->before, last_->after, edited, catalogue).Restore(job);
    }
    last_.emplace(Conversion{edited, job});
}

} // namespace kaloria
