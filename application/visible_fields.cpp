// SPDX-License-Identifier: GPL-3.0-or-later
#include "application/visible_fields.h"

#include "application/case_inputs.h"
#include "application/messages.h"
#include "data/fuel_units.h"
#include "engine/surface_geometry.h"

#include <fmt/format.h>

namespace kaloria {

namespace {

bool IsOfReportFuel(Field field) {
    return field == Field::ReportFuel || field == Field::ReportFuelCost || field == Field::ReportHeatingValue;
}

const CFuel* FuelOf(Field field, const Job& job, const Catalogue& catalogue) {
    return FindByName(catalogue.Fuels, job[IsOfReportFuel(field) ? Field::ReportFuel : Field::Fuel]);
}

std::string WithoutColon(std::string text) {
    if (!text.empty() && text.back() == ':') {
        text.pop_back();
    }
    return text;
}

/// Labels that carry their unit, for English and for SI units.
struct UnitLabel {
    Field field;
    std::string_view english;
    std::string_view si;
};
constexpr UnitLabel unitLabels[] = {
    {Field::InvestmentRate,
     "Incremental Cost of Plant Capacity ($/MMBtu/hr):", "Incremental Cost of Plant Capacity ($/MMJ/hr):"},
    {Field::AnnualAverageTemp,
     "Average Annual Ambient Temperature (°F):", "Average Annual Ambient Temperature (°C):"},
    {Field::AnnualAverageWindSpeed, "Average Annual Wind Speed (mph):", "Average Annual Wind Speed (m/s):"},
    {Field::ReportPipeInsulationPrice, "Material Price, $/ft for 2 x 2 pipe insulation, including jacket:",
     "Material Price, $/m for 50 x 50 pipe insulation, including jacket:"},
    {Field::ReportBoardInsulationPrice,
     "Material Price, $/sqft for 2 inch thick board or block, including jacket:",
     "Material Price, $/m^2 for 50 mm thick board or block, including jacket:"},
    {Field::PaybackReferenceThickness, "Thickness (in):", "Thickness (mm):"},
    {Field::ChillerWetBulbTemperature,
     "Wet Bulb Design Temperature (F):", "Wet Bulb Design Temperature (C):"},
    {Field::ChillerMakeUpWaterCost,
     "Cost of Chiller Make-Up Water ($/1000 gallons):", "Cost of Chiller Make-Up Water ($/1000 liters):"},
};

const UnitLabel* FindUnitLabel(Field field) {
    for (const UnitLabel& label : unitLabels) {
        if (label.field == field) {
            return &label;
        }
    }
    return nullptr;
}

bool IsFuelFigure(Field field) {
    const Quantity quantity = InfoOf(field).quantity;
    return quantity == Quantity::fuelCost || quantity == Quantity::heatContent;
}

std::string FuelUnit(Field field, const Job& job, const Catalogue& catalogue) {
    const CFuel* fuel = FuelOf(field, job, catalogue);
    if (fuel == nullptr) {
        return {};
    }
    const FuelUnitTexts texts = FuelUnitsOf(*fuel, job.UnitsInForce());
    return InfoOf(field).quantity == Quantity::fuelCost ? texts.costEntry : texts.heat;
}

std::string GeometryLabel(Field field, std::int32_t code) {
    switch (field) {
    case Field::PipeSize:
        return geometry::IsTube(code) ? "NTS Tube Size:" : "NPS Pipe Size:";
    case Field::DuctWidth:
        return code == geometry::horizontalDuct ? "Duct Horiz. Dimension:" : "Duct Width:";
    case Field::DuctDepth:
        return code == geometry::horizontalDuct ? "Duct Vert. Dimension:" : "Duct Depth:";
    default:
        return std::string(InfoOf(field).label);
    }
}

bool IsShownInEconomics(Field field, const Job& job) {
    switch (field) {
    case Field::ReportEfficiency:
        return job.IsTrue(Field::HotSurface);
    case Field::ChillerCondensorFactor:
    case Field::ChillerCoefficientOfPerformance:
    case Field::ChillerWetBulbTemperature:
    case Field::ChillerRelativeHumidity:
    case Field::ChillerMakeUpWaterCost:
    case Field::ChillerMakeUpWaterInflationRate:
        return !job.IsTrue(Field::HotSurface);
    default:
        return true;
    }
}

/// The source that counts when more than one is set, as ReadReport has it.
bool CostsAreEstimated(const Job& job) {
    return !job.IsTrue(Field::PreviousCostData) && !job.IsTrue(Field::UserSuppliedCostData);
}

bool IsShownInInstalledCost(Field field, const Job& job) {
    switch (field) {
    case Field::ReportExistingInsulationMaterial:
    case Field::ReportExistingInsulationThickness:
        return !job.IsTrue(Field::NewApplication);
    case Field::ReportInstallationComplexity:
    case Field::ReportPipeInsulationPrice:
    case Field::ReportBoardInsulationPrice:
    case Field::ReportLaborRate:
    case Field::ReportRegionalProductivity:
        return CostsAreEstimated(job);
    default:
        return true;
    }
}

} // namespace

std::int32_t GeometryCodeOf(const Job& job, const Catalogue& catalogue) {
    const auto* found = FindByName(catalogue.SurfaceGeometries, job[Field::SurfaceGeometry]);
    return found != nullptr ? found->ID : 0;
}

int CalculationTypeOf(const Job& job) {
    return CalculationTypeFrom(job[Field::InsulationThicknessCalculationType]).value_or(-1);
}

bool IsShown(Field field, const Job& job, const Catalogue& catalogue) {
    switch (InfoOf(field).group) {
    case FieldGroup::surface:
    case FieldGroup::layers:
    case FieldGroup::fuel:
        return IsUsed(field, CalculationTypeOf(job), GeometryCodeOf(job, catalogue));
    case FieldGroup::economics:
        return IsShownInEconomics(field, job);
    case FieldGroup::installedCost:
        return IsShownInInstalledCost(field, job);
    default:
        return true;
    }
}

bool IsInUse(Field field, const Job& job) {
    return InfoOf(field).kind != FieldKind::moisture || field == job.moisture;
}

std::string PlainLabelOf(Field field, const Job& job, const Catalogue& catalogue) {
    return WithoutColon(GeometryLabel(field, GeometryCodeOf(job, catalogue)));
}

std::string PlainUnitOf(Field field, const Job& job, const Catalogue& catalogue) {
    return IsFuelFigure(field) ? FuelUnit(field, job, catalogue)
                               : std::string(InfoOf(InfoOf(field).quantity).Text(job.UnitsInForce()));
}

std::string LabelOf(Field field, const Job& job, const Catalogue& catalogue) {
    if (const UnitLabel* label = FindUnitLabel(field)) {
        return std::string(job.UnitsInForce() == Units::si ? label->si : label->english);
    }
    if (IsFuelFigure(field)) {
        const std::string unit = FuelUnit(field, job, catalogue);
        return unit.empty() ? std::string(InfoOf(field).label)
                            : fmt::format("{} ({}):", WithoutColon(std::string(InfoOf(field).label)), unit);
    }
    return GeometryLabel(field, GeometryCodeOf(job, catalogue));
}

std::string UnitTextOf(Field field, const Job& job, const Catalogue& catalogue) {
    if (FindUnitLabel(field) != nullptr || IsFuelFigure(field)) {
        return {};
    }
    return PlainUnitOf(field, job, catalogue);
}

std::string_view TankNote(const Job& job, const Catalogue& catalogue) {
    return geometry::IsTank(GeometryCodeOf(job, catalogue)) ? message::tankEnds : std::string_view();
}

std::string_view LayerThicknessHeading(Units units) {
    return units == Units::si ? "Thickness, mm" : "Thickness, Inches";
}

} // namespace kaloria
