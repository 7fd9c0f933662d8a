// SPDX-License-Identifier: GPL-3.0-or-later
#include "application/units_switch.h"

#include "application/case_inputs.h"
#include "data/fuel_units.h"
#include "engine/number_text.h"
#include "engine/numeric_fault.h"
#include "engine/surface_geometry.h"

#include <algorithm>
#include <string>

namespace kaloria {

namespace {

/// Converts the entries of one job.
class UnitsSwitch {
public:
    UnitsSwitch(Job& job, const Catalogue& catalogue, Units units, SwitchPrecision precision)
        : job_(job), catalogue_(catalogue), units_(units), precision_(precision) {}

    void Run() {
        for (const JobField& field : JobFields()) {
            if (field.kind == FieldKind::number || field.kind == FieldKind::moisture) {
                ConvertField(field);
            }
        }
        const auto* geometry = FindByName(catalogue_.SurfaceGeometries, job_[Field::SurfaceGeometry]);
        const std::int32_t code = geometry != nullptr ? geometry->ID : 0;
        ConvertSize(code);
        for (JobLayer& layer : job_.layers) {
            ConvertThickness(layer.thickness, geometry::IsCylinder(code));
        }
        job_[Field::Units] = units_ == Units::si ? "SI" : "English";
    }

private:
    [[nodiscard]] bool ToSI() const { return units_ == Units::si; }

    [[nodiscard]] std::string Written(double value, NumberFormat format) const {
        return precision_ == SwitchPrecision::full ? FormatNumber(Single(value), NumberFormat::shortest)
                                                   : FormatNumber(value, format);
    }

    void ConvertField(const JobField& field) {
        std::string& text = job_[field.id];
        if (field.quantity == Quantity::fuelCost || field.quantity == Quantity::heatContent) {
            ConvertFuelFigure(text, field);
            return;
        }
        if (field.id == Field::PaybackReferenceThickness ||
            field.id == Field::ReportExistingInsulationThickness) {
            ConvertThickness(text, true);
            return;
        }
        const QuantityInfo& info = InfoOf(field.quantity);
        const auto value = ParseNumber(text);
        if (value && info.englishText != info.siText) {
            text = Written(ToSI() ? info.toSI(*value) : info.toEnglish(*value), field.format);
        }
    }

    void ConvertFuelFigure(std::string& text, const JobField& field) {
        const bool ofReport = field.id == Field::ReportFuelCost || field.id == Field::ReportHeatingValue;
        const auto* fuel = FindByName(catalogue_.Fuels, job_[ofReport ? Field::ReportFuel : Field::Fuel]);
        const auto value = ParseNumber(text);
        if (fuel == nullptr || !value) {
            return;
        }
        const FuelMeasure measure = MeasureOf(fuel->CostUnits);
        if (field.quantity == Quantity::heatContent) {
            const double heat =
                ToSI() ? HeatContentToSI(measure, *value) : HeatContentToEnglish(measure, *value);
            text = Written(heat, ToSI() ? NumberFormat::scientific : NumberFormat::tenths);
            return;
        }
        const double cost = ToSI() ? FuelCostToSI(measure, *value) : FuelCostToEnglish(measure, *value);
        if (cost != *value) { // the price of electricity keeps its text
            text = Written(cost, cost < 10.0 ? NumberFormat::thousandths : NumberFormat::hundredths);
        }
    }

    // NOLINTNEXTLINE(misc-no-recursion): one step deep, for a pipe is a cylinder
    void ConvertSize(std::int32_t code) {
        const auto from = SizeTexts(catalogue_, code, ToSI() ? Units::english : Units::si);
        const auto to = SizeTexts(catalogue_, code, units_);
        const auto found = std::find(from.begin(), from.end(), job_[Field::PipeSize]);
        if (found != from.end()) {
            job_[Field::PipeSize] = to[static_cast<std::size_t>(found - from.begin())];
        } else if (!geometry::IsCylinder(code)) {
            ConvertSize(geometry::horizontalPipe); // a size that waits behind another geometry
        }
    }

    /// A nominal thickness is a name more than a measure: 2 in is 50 mm, not 50.8.
    void ConvertThickness(std::string& text, bool nominal) {
        const auto value = ParseSingle(text);
        if (!value) {
            return;
        }
        if (nominal) {
            for (const CNominalThickness& row : catalogue_.NominalThicknesses) {
                if ((ToSI() ? row.US : row.USMetric) == *value) {
                    text = FormatNumber(ToSI() ? row.USMetric : row.US, NumberFormat::shortest);
                    return;
                }
            }
        }
        const QuantityInfo& info = InfoOf(Quantity::length);
        text = Written(ToSI() ? info.toSI(*value) : info.toEnglish(*value),
                       ToSI() ? NumberFormat::tenths : NumberFormat::hundredths);
    }

    Job& job_;
    const Catalogue& catalogue_;
    Units units_;
    SwitchPrecision precision_;
};

} // namespace

void UnitsChange(Job& job, const Catalogue& catalogue, Units units, SwitchPrecision precision) {
    if (job.UnitsInForce() != units) {
        UnitsSwitch(job, catalogue, units, precision).Run();
    }
}

} // namespace kaloria
