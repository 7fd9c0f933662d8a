// SPDX-License-Identifier: GPL-3.0-or-later
#include "application/choice_rules.h"

#include "application/case_inputs.h"
#include "application/messages.h"
#include "application/visible_fields.h"
#include "data/fuel_units.h"
#include "data/number_format.h"
#include "engine/surface_geometry.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

namespace kaloria {

namespace {

using namespace calculation_type;

/// Nominal sizes in inches, by place in the list of the geometry.
std::vector<float> NominalSizes(const Catalogue& catalogue, std::int32_t code) {
    std::vector<float> sizes;
    if (geometry::IsPipe(code)) {
        for (const CPipe& pipe : catalogue.Pipes) {
            sizes.push_back(pipe.USNPS);
        }
    } else if (geometry::IsTube(code)) {
        for (const CTube& tube : catalogue.Tubes) {
            sizes.push_back(tube.USNTS);
        }
    }
    return sizes;
}

/// Nominal size of a text in a geometry's list; nothing when it is not listed there.
std::optional<float> NominalOf(const std::string& text, const Catalogue& catalogue, std::int32_t code,
                               Units units) {
    const auto texts = SizeTexts(catalogue, code, units);
    const auto found = std::find(texts.begin(), texts.end(), text);
    if (found == texts.end()) {
        return std::nullopt;
    }
    return NominalSizes(catalogue, code)[static_cast<std::size_t>(found - texts.begin())];
}

/// The text of the listed size nearest to a nominal one.
std::string NearestSize(float nominal, const Catalogue& catalogue, std::int32_t code, Units units) {
    const auto sizes = NominalSizes(catalogue, code);
    const auto nearest = std::min_element(sizes.begin(), sizes.end(), [&](float a, float b) {
        return std::abs(a - nominal) < std::abs(b - nominal);
    });
    return nearest == sizes.end()
               ? std::string()
               : SizeTexts(catalogue, code, units)[static_cast<std::size_t>(nearest - sizes.begin())];
}

/// Carries the size over to another list. A size that waits behind a geometry without one is a pipe's, or
/// else a tube's.
void CarrySize(Job& job, const Catalogue& catalogue, std::int32_t from, std::int32_t to,
               ChoiceOutcome& outcome) {
    if (!geometry::IsCylinder(to)) {
        return;
    }
    const Units units = job.UnitsInForce();
    const std::int32_t listed = geometry::IsCylinder(from) ? from : geometry::horizontalPipe;
    const bool sameList = geometry::IsPipe(listed) == geometry::IsPipe(to);
    const std::string old = job[Field::PipeSize];
    if (sameList && NominalOf(old, catalogue, to, units)) {
        return;
    }
    auto nominal = NominalOf(old, catalogue, listed, units);
    if (!nominal && !geometry::IsCylinder(from)) {
        nominal = NominalOf(old, catalogue, geometry::horizontalTube, units);
    }
    if (!nominal) {
        return; // a text that is in no list stays, to be marked
    }
    const std::string size = NearestSize(*nominal, catalogue, to, units);
    if (size != old && !size.empty()) {
        job[Field::PipeSize] = size;
        outcome.changed.push_back(Field::PipeSize);
        outcome.notes.push_back(fmt::format("The size has been changed from {} to {}, the nearest {} size.",
                                            old, size, geometry::IsPipe(to) ? "pipe" : "tube"));
    }
}

std::string CostText(double cost) {
    constexpr double small = 10.0;
    return FormatNumber(cost, cost < small ? NumberFormat::thousandths : NumberFormat::hundredths);
}

} // namespace

std::string PipeGeometryName(const Catalogue& catalogue) {
    const auto* pipe = FindById(catalogue.SurfaceGeometries, geometry::horizontalPipe);
    return pipe != nullptr ? pipe->Name : std::string();
}

ChoiceOutcome ChooseCalculationType(Job& job, const Catalogue& catalogue, int type) {
    ChoiceOutcome outcome;
    if (type < 0 || static_cast<std::size_t>(type) >= std::size(calculationTypeNames)) {
        return outcome;
    }
    job[Field::InsulationThicknessCalculationType] = calculationTypeNames[type];
    if (type == thicknessTable && !geometry::IsCylinder(GeometryCodeOf(job, catalogue))) {
        outcome = ChooseGeometry(job, catalogue, PipeGeometryName(catalogue));
        outcome.message = message::changedToPipe;
        outcome.changed.push_back(Field::SurfaceGeometry);
    }
    return outcome;
}

ChoiceOutcome ChooseGeometry(Job& job, const Catalogue& catalogue, std::string_view name) {
    ChoiceOutcome outcome;
    const std::int32_t before = GeometryCodeOf(job, catalogue);
    job[Field::SurfaceGeometry] = name;
    const std::int32_t code = GeometryCodeOf(job, catalogue);
    CarrySize(job, catalogue, before, code, outcome);
    if (!geometry::IsCylinder(code) && CalculationTypeOf(job) == thicknessTable) {
        job[Field::InsulationThicknessCalculationType] = calculationTypeNames[personnelProtection];
        outcome.message = message::calculationTypeChanged;
        outcome.changed.push_back(Field::InsulationThicknessCalculationType);
    }
    return outcome;
}

ChoiceOutcome ChooseFuel(Job& job, const Catalogue& catalogue, Field field, std::string_view name) {
    ChoiceOutcome outcome;
    job[field] = name;
    const CFuel* fuel = FindByName(catalogue.Fuels, name);
    if (fuel == nullptr) {
        return outcome;
    }
    const bool ofReport = field == Field::ReportFuel;
    const Field cost = ofReport ? Field::ReportFuelCost : Field::FuelCost;
    const Field heat = ofReport ? Field::ReportHeatingValue : Field::HeatContent;
    const Field efficiency = ofReport ? Field::ReportEfficiency : Field::ConversionEfficiency;
    const FuelMeasure measure = MeasureOf(fuel->CostUnits);
    if (job.UnitsInForce() == Units::si) {
        const double converted = FuelCostToSI(measure, fuel->Cost);
        job[cost] = converted == double{fuel->Cost} ? FormatNumber(fuel->Cost, NumberFormat::shortest)
                                                    : CostText(converted);
        job[heat] = FormatNumber(HeatContentToSI(measure, fuel->BTU), NumberFormat::scientific);
    } else {
        job[cost] = FormatNumber(fuel->Cost, NumberFormat::shortest);
        job[heat] = FormatNumber(fuel->BTU, NumberFormat::shortest);
    }
    outcome.changed = {cost, heat};
    if (fuel->ConversionEfficiency > 0.0F) {
        job[efficiency] = FormatNumber(fuel->ConversionEfficiency, NumberFormat::shortest);
        outcome.changed.push_back(efficiency);
    }
    return outcome;
}

void ChooseCostSource(Job& job, Field source) {
    for (const Field field : {Field::FEA, Field::PreviousCostData, Field::UserSuppliedCostData}) {
        job[field] = field == source ? "True" : "False";
    }
}

} // namespace kaloria
