// SPDX-License-Identifier: GPL-3.0-or-later
#include "application/report_panel.h"

#include "application/results_grid.h"
#include "data/fuel_units.h"
#include "engine/surface_geometry.h"

#include <array>
#include <string_view>

namespace kaloria {

namespace {

using namespace calculation_type;

constexpr std::array<std::string_view, 7> titles{
    "Personnel Protection Report",   "Condensation Control Report", "Heat Flow Limitation Report",
    "Interface Temperatures Report", "Heat Loss Per Year Report",   "Heat Loss Per Hour Report",
    "Insulation Thickness Table"};

constexpr std::array<std::string_view, 3> designLabels{
    "Personnel Protection Thickness:", "Condensation Control Thickness:", "Heat Flow Limitation Thickness:"};

constexpr const char* notApplicable = "N/A";

std::string Tenths(Quantity quantity, Units units, double english) {
    return FormatNumber(FromEnglish(quantity, units, english), NumberFormat::tenths) + " " +
           std::string(InfoOf(quantity).Text(units));
}

std::string Emittance(float value) { return FormatNumber(value, NumberFormat::hundredths); }

/// Size line: nothing for surfaces that have none.
void AddSize(std::vector<PanelLine>& panel, const CaseInputs& inputs) {
    const std::int32_t code = inputs.geometry->ID;
    if (geometry::IsCylinder(code)) {
        panel.push_back({"lblPipeSize", geometry::IsPipe(code) ? "Nominal Pipe Size:" : "Nominal Tube Size:",
                         inputs.sizeText});
    } else if (geometry::IsDuct(code)) {
        const bool lies = code == geometry::horizontalDuct;
        panel.push_back({"lblDuctWidth", lies ? "Duct Horiz. Dimension:" : "Duct Width:",
                         Tenths(Quantity::length, inputs.units, inputs.ductWidth)});
        panel.push_back({"lblDuctDepth", lies ? "Duct Vert. Dimension:" : "Duct Depth:",
                         Tenths(Quantity::length, inputs.units, inputs.ductDepth)});
    } else if (geometry::IsTank(code)) {
        panel.push_back({"lblTankNote", "", "NOTE: heat loss from ends of tank not included"});
    }
}

void AddMoisture(std::vector<PanelLine>& panel, const CaseInputs& inputs,
                 const std::optional<CondensationResult>& condensation) {
    std::string humidity = notApplicable;
    std::string dewPoint = notApplicable;
    if (condensation) {
        dewPoint = Tenths(Quantity::temperature, inputs.units, condensation->dewPoint);
        if (condensation->relativeHumidity) {
            humidity = FormatNumber(*condensation->relativeHumidity, NumberFormat::shortest) + " %";
        }
    }
    panel.push_back({"lblRelativeHumidity", "Relative Humidity:", humidity});
    panel.push_back({"lblDewPoint", "Dew Point:", dewPoint});
    if (condensation && condensation->psychrometric) {
        panel.push_back({"lblPsychrometricDewPoint", "Psychrometric dew point (for comparison):",
                         Tenths(Quantity::temperature, inputs.units, *condensation->psychrometric)});
    }
}

/// The limit that a design thickness is held against; a dew point stands with the moisture.
void AddGoal(std::vector<PanelLine>& panel, const CaseInputs& inputs) {
    if (inputs.calculationType == personnelProtection) {
        panel.push_back({"lblMaxSurfaceTemp", "Maximum Surface Temp:",
                         Tenths(Quantity::temperature, inputs.units, inputs.maxSurfaceTemp)});
    } else if (inputs.calculationType == heatFlowLimitation) {
        panel.push_back({"lblHeatFlowLimit",
                         "Heat Flow Limit:", Tenths(Quantity::heatFlux, inputs.units, inputs.heatFlowLimit)});
    }
}

void AddLayers(std::vector<PanelLine>& panel, const CaseInputs& inputs) {
    const std::string_view unit = inputs.units == Units::si ? " mm" : " in.";
    for (const LayerInput& layer : inputs.layers) {
        const std::string number = std::to_string(layer.position);
        panel.push_back(
            {"lblInsulationLayer" + number, "Insulation Layer " + number + ":", layer.material.Name});
        panel.push_back({"lblInsulationThickness" + number, "Thickness " + number + ":",
                         layer.varies
                             ? "Varied"
                             : FormatNumber(layer.nominal, NumberFormat::tenths) + std::string(unit)});
    }
}

void AddFuel(std::vector<PanelLine>& panel, const CaseInputs& inputs) {
    if (!inputs.fuel) {
        return;
    }
    const FuelUnitTexts units = FuelUnitsOf(*inputs.fuel->record, inputs.units);
    panel.push_back({"lblFuelName", "Fuel:", inputs.fuel->record->Name});
    panel.push_back({"lblReportHeatContent", "Heating Value (" + units.heat + "):", inputs.fuel->heatText});
    panel.push_back(
        {"lblReportFuelCost", "First Year Cost (" + units.costEntry + "):", inputs.fuel->costText});
    panel.push_back({"lblReportEfficiency", "Conversion Efficiency (%):", inputs.fuel->efficiencyText});
    panel.push_back({"lblHoursPerYear", "Hours Per Year:", inputs.hoursText});
}

} // namespace

std::vector<PanelLine> BuildPanel(const CaseInputs& inputs,
                                  const std::optional<CondensationResult>& condensation,
                                  const DesignThickness& design) {
    std::vector<PanelLine> panel;
    panel.push_back({"lblDescription", "Description:", inputs.itemDescription});
    panel.push_back({"lblSystemUnits", "System Units:", inputs.units == Units::si ? "SI" : "English"});
    panel.push_back({"lblGeometry", "System Application:", inputs.geometry->Name});
    panel.push_back({"lblBaseMetal", "Base Metal:", inputs.baseMetal->Name});
    panel.push_back(
        {"lblBareSurfaceEmittance", "Bare Surface Emittance:", Emittance(inputs.baseMetal->Emittance)});
    AddSize(panel, inputs);
    panel.push_back(
        {"lblProcessTemp", "Process Temp:", Tenths(Quantity::temperature, inputs.units, inputs.processTemp)});
    panel.push_back(
        {"lblAmbientTemp", "Ambient Temp:", Tenths(Quantity::temperature, inputs.units, inputs.ambientTemp)});
    panel.push_back(
        {"lblWindSpeed", "Wind Speed:", Tenths(Quantity::windSpeed, inputs.units, inputs.windSpeed)});
    AddMoisture(panel, inputs, condensation);
    AddGoal(panel, inputs);
    AddLayers(panel, inputs);
    panel.push_back({"lblOuterJacketMaterial", "Outer Jacket Material:", inputs.jacket->Name});
    panel.push_back(
        {"lblOuterSurfaceEmittance", "Outer Surface Emittance:", Emittance(inputs.jacket->Emittance)});
    AddFuel(panel, inputs);
    if (!design.label.empty()) {
        panel.push_back({"lblCondensationControlThickness", design.label, design.text});
    }
    return panel;
}

std::string PanelTitle(int calculationType) {
    return std::string(titles.at(static_cast<std::size_t>(calculationType)));
}

std::string DesignLabel(int calculationType) {
    const auto position = static_cast<std::size_t>(calculationType);
    return position < designLabels.size() ? std::string(designLabels.at(position)) : std::string();
}

} // namespace kaloria
