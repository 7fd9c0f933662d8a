// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/job_fields.h"

#include "engine/number_text.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace kaloria {

namespace {

using enum FieldKind;
using G = FieldGroup;
using Q = Quantity;
using C = FieldChoice;
using N = NumberFormat;

// The rows are made by kind, so that each states only what its kind leaves open.

constexpr JobField Text(Field id, std::string_view element, std::string_view control, G group,
                        std::string_view label, std::string_view help) {
    return {id, element, control, text, C::none, Q::none, N::shortest, "", "", 0, 0, group, label, help};
}

constexpr JobField Number(Field id, std::string_view element, std::string_view control, Q quantity, N format,
                          std::string_view english, std::string_view si, double low, double high, G group,
                          std::string_view label, std::string_view help) {
    return {id,      element, control, number, C::none, quantity, format,
            english, si,      low,     high,   group,   label,    help};
}

constexpr JobField Moisture(Field id, std::string_view element, std::string_view control, Q quantity,
                            std::string_view english, std::string_view si, double low, double high,
                            std::string_view label, std::string_view help) {
    return {id,      element, control, moisture, C::none,    quantity, N::tenths,
            english, si,      low,     high,     G::surface, label,    help};
}

constexpr JobField Choice(Field id, std::string_view element, std::string_view control, C choice,
                          std::string_view chosen, G group, std::string_view label, std::string_view help,
                          std::string_view chosenSI = {}) {
    return {id,
            element,
            control,
            FieldKind::choice,
            choice,
            Q::none,
            N::shortest,
            chosen,
            chosenSI.empty() ? chosen : chosenSI,
            0,
            0,
            group,
            label,
            help};
}

constexpr JobField Flag(Field id, std::string_view element, std::string_view control, bool set, G group,
                        std::string_view label, std::string_view help) {
    const std::string_view state = set ? "True" : "False";
    return {id,    element, control, flag, C::none, Q::none, N::shortest,
            state, state,   0,       1,    group,   label,   help};
}

constexpr JobField Material(Field id, std::string_view element, std::string_view control, C choice,
                            std::string_view recordId, std::string_view label, std::string_view help) {
    return {id,       element,  control, material, choice,    Q::none, N::shortest,
            recordId, recordId, 0,       0,        G::layers, label,   help};
}

constexpr std::array<JobField, fieldCount> rows{{
    Number(Field::CurrentCategory, "CurrentCategory", "imgCategoryButtons", Q::none, N::whole, "1", "1", 0, 5,
           G::navigation, "Category", "The category that is shown."),
    Number(Field::CurrentMenuItem, "CurrentMenuItem", "imgMenu0", Q::none, N::whole, "0", "0", 0, 5,
           G::navigation, "Menu item", "The menu item that is shown within the category."),
    Choice(Field::Units, "Units", "cboSystemUnits", C::units, "English", G::navigation,
           "Units:", "Unit system in which the inputs of this job are given.", "SI"),
    Text(Field::UserName, "UserName", "txtUserName", G::user,
         "Your name:", "Your name, as shown on reports."),
    Text(Field::CompanyName, "CompanyName", "txtCompanyName", G::user, "Company:", "Heads every report."),
    Text(Field::Address, "Address", "txtAddress", G::user, "Address:", "Street and number of the company."),
    Text(Field::CityStateZip, "CityStateZip", "txtCityStateZip", G::user,
         "City, state, zip:", "City, state and postal code of the company."),
    Text(Field::PhoneNumber, "PhoneNumber", "txtPhoneNumber", G::user,
         "Phone:", "Telephone number of the company."),
    Text(Field::ItemDescription, "ItemDescription", "txtItemDescription", G::surface, "Item description:",
         "What is calculated, in your words; names the case in reports and in the audit file."),
    Choice(
        Field::InsulationThicknessCalculationType, "InsulationThicknessCalculationType",
        "cboInsulationThicknessCalculationType", C::calculationType, "Personnel Protection", G::surface,
        "Calculation type:", "What is asked of the insulation; decides which inputs and results are shown."),
    Number(Field::ProcessTemp, "ProcessTemp", "txtProcessTemp", Q::temperature, N::tenths, "350", "175", -459,
           3000, G::surface, "Process temp.:", "Temperature inside the pipe, duct or vessel."),
    Number(Field::AmbientTemp, "AmbientTemp", "txtAmbientTemp", Q::temperature, N::tenths, "75", "24", -100,
           250, G::surface, "Ambient temp.:", "Temperature of the air around the insulated surface."),
    Number(Field::WindSpeed, "WindSpeed", "txtWindSpeed", Q::windSpeed, N::tenths, "2", "0.9", 0, 200,
           G::surface, "Wind speed:", "Speed of the air past the surface; 0 for still air indoors."),
    Choice(Field::PipeSize, "PipeSize", "cboPipeSize", C::size, "6", G::surface,
           "NPS Pipe Size:", "Nominal size of the pipe or tube.", "150"),
    Number(Field::DuctWidth, "DuctWidth", "txtDuctWidth", Q::length, N::tenths, "24", "600", 0.1, 10000,
           G::surface, "Duct Width:", "Width of the duct; of a horizontal duct its horizontal dimension."),
    Number(Field::DuctDepth, "DuctDepth", "txtDuctDepth", Q::length, N::tenths, "12", "300", 0.1, 10000,
           G::surface, "Duct Depth:", "Depth of the duct; of a horizontal duct its vertical dimension."),
    Number(Field::MaxSurfaceTemp, "MaxSurfaceTemp", "txtMaxSurfaceTemp", Q::temperature, N::tenths, "140",
           "60", -100, 1000, G::surface, "Maximum surface temp.:",
           "Highest surface temperature that a person may touch; 140 °F is the usual limit (ASTM C1055)."),
    Choice(Field::SurfaceGeometry, "SurfaceGeometry", "cboSurfaceGeometries", C::surfaceGeometry,
           "Horizontal Pipe", G::surface,
           "System application:", "Shape and position of the insulated surface."),
    Number(Field::HeatFlowLimit, "HeatFlowLimit", "txtHeatFlowLimit", Q::heatFlux, N::tenths, "50", "150", 0,
           1e6, G::surface, "Heat flow limit:",
           "Highest heat flow per unit of outer surface area; pipes and ducts are compared by it too."),
    Moisture(Field::WetBulbTemperature, "WetBulbTemperature", "txtWetBulbTemperature", Q::temperature, "65",
             "18", -100, 250, "Wet-bulb temperature:",
             "Wet-bulb temperature of the ambient air; gives the dew point with the ambient temperature."),
    Moisture(Field::RelativeHumidity, "RelativeHumidity", "txtRelativeHumidity", Q::percent, "60", "60", 0,
             100, "Relative humidity:", "Relative humidity of the ambient air; gives the dew point."),
    Moisture(Field::DewPoint, "DewPoint", "txtDewPoint", Q::temperature, "60", "16", -100, 250,
             "Dew point:", "Dew point of the ambient air, used as given."),
    Number(Field::HoursPerYear, "HoursPerYear", "txtHoursPerYear", Q::hoursPerYear, N::whole, "8320", "8320",
           0, 8784, G::fuel, "Annual operation:", "Hours a year at process temperature."),
    Material(Field::BaseMetal, "BaseMetal", "cboBaseMetals", C::none, "1",
             "Base metal:", "Metal of the wall; its emittance counts where the surface is bare."),
    Material(Field::Insulation, "Insulation", "flxInsulationLayers", C::insulation, "9", "Insulation layers:",
             "One to five layers, innermost first; \"Vary\" runs a layer through the nominal thicknesses."),
    Material(Field::Jacket, "Jacket", "cboJacketMaterials", C::jacket, "2",
             "Jacket material:", "Outer covering; its emittance decides how much the surface radiates."),
    Choice(Field::Fuel, "Fuel", "cboFuelType", C::fuel, "Natural Gas", G::fuel,
           "Fuel:", "What makes the heat, or the cold, that is lost."),
    Number(Field::HeatContent, "HeatContent", "txtHeatContent", Q::heatContent, N::scientific, "1026",
           "38257000", 0, 1e15, G::fuel, "Heating Value:", "Heating value of the fuel."),
    Number(Field::FuelCost, "FuelCost", "txtFuelCost", Q::fuelCost, N::hundredths, "4.53", "159.98", 0, 1e9,
           G::fuel, "First Year Cost:", "Price of the fuel in the first year."),
    Number(Field::ConversionEfficiency, "ConversionEfficiency", "txtConversionEfficiency", Q::percent,
           N::tenths, "80", "80", 0, 1000, G::fuel, "Conversion efficiency:",
           "Useful heat from the fuel's heat; above 100 % for heat pumps and chillers."),
    Text(Field::JobName, "JobName", "txtJobName", G::project, "Job name:", "Name of the job."),
    Text(Field::Path, "Path", "txtPath", G::project, "Report file:", "Where the report is saved."),
    Flag(Field::PrintReport, "PrintReport", "chkPrintReport", false, G::report, "Print the report",
         "Prints the report as soon as it is made."),
    Choice(Field::ReportUnits, "ReportUnits", "cboReportUnits", C::reportingUnit, "Pipe", G::project,
           "Report unit:", "Kind of surface that the report is about."),
    Text(Field::ReportName, "ReportName", "txtReportName", G::project, "Report name:", "Title on the cover."),
    Text(Field::ProjectNumber, "ProjectNumber", "txtProjectNumber", G::project,
         "Project number:", "Number of the project; a report needs it."),
    Text(Field::System, "System", "txtSystem", G::project,
         "System:", "Plant or system that the project is about."),
    Text(Field::Date, "Date", "txtDate", G::project, "Date:", "Date of the project; a report needs it."),
    Text(Field::Location, "Location", "txtLocation", G::project, "Location:", "Where the plant stands."),
    Text(Field::Engineer, "Engineer", "txtEngineer", G::project, "Engineer:", "Engineer in charge."),
    Text(Field::Contact, "Contact", "txtContact", G::project, "Contact:", "Person to ask."),
    Text(Field::Phone, "Phone", "txtPhone", G::project, "Contact phone:", "Telephone number of the contact."),
    Flag(Field::HotSurface, "HotSurface", "optHotSurface", true, G::economics, "Hot surface",
         "Hot service loses heat that fuel made; cold service gains heat that a chiller removes."),
    Flag(Field::NewApplication, "NewApplication", "optNewApplication", true, G::economics, "New application",
         "A bare surface to be insulated; otherwise insulation is there already (retrofit)."),
    Choice(Field::ReportFuel, "ReportFuel", "cboReportFuel", C::fuel, "Natural Gas", G::economics,
           "Fuel:", "What makes the heat, or the cold, that the report prices."),
    Number(Field::ReportFuelCost, "ReportFuelCost", "txtReportFuelCost", Q::fuelCost, N::hundredths, "4.53",
           "159.98", 0, 1e9, G::economics, "First Year Cost:", "Price of the fuel in the first year."),
    Number(Field::ReportHeatingValue, "ReportHeatingValue", "txtReportHeatingValue", Q::heatContent,
           N::scientific, "1026", "38257000", 0, 1e15, G::economics,
           "Heating Value:", "Heating value of the fuel."),
    Number(Field::ReportEfficiency, "ReportEfficiency", "txtReportEfficiency", Q::percent, N::tenths, "80",
           "80", 0, 1000, G::economics, "Conversion efficiency:", "Useful heat from the fuel's heat."),
    Number(Field::ChillerCondensorFactor, "ChillerCondensorFactor", "txtChillerCondensorFactor", Q::none,
           N::hundredths, "2.3", "2.3", 0, 1000, G::economics,
           "Condenser factor:", "Gallons of make-up water that the condenser needs per ton-hour of cooling."),
    Number(Field::ChillerCoefficientOfPerformance, "ChillerCoefficientOfPerformance",
           "txtChillerCoefficientOfPerformance", Q::none, N::hundredths, "4", "4", 0, 50, G::economics,
           "Coefficient of performance:", "Heat that the chiller removes per unit of energy."),
    Number(Field::ChillerWetBulbTemperature, "ChillerWetBulbTemperature", "txtChillerWetBulbTemperature",
           Q::temperature, N::tenths, "65", "18", -100, 250, G::economics,
           "Wet Bulb Design Temperature:", "Wet-bulb temperature for which the cooling plant is designed."),
    Number(Field::ChillerRelativeHumidity, "ChillerRelativeHumidity", "txtChillerRelativeHumidity",
           Q::percent, N::tenths, "60", "60", 0, 100, G::economics,
           "Relative humidity:", "Average relative humidity at the cold surface."),
    Number(Field::ChillerMakeUpWaterCost, "ChillerMakeUpWaterCost", "txtChillerMakeUpWaterCost", Q::waterCost,
           N::hundredths, "4", "1.06", 0, 1e6, G::economics,
           "Cost of Chiller Make-Up Water:", "Price of the water that replaces what the condenser loses."),
    Number(Field::ChillerMakeUpWaterInflationRate, "ChillerMakeUpWaterInflationRate",
           "txtChillerMakeUpWaterInflationRate", Q::percent, N::tenths, "3", "3", -50, 99, G::economics,
           "Make-up water inflation:", "Yearly rise of the water's price."),
    Number(Field::ReportAnnualInflationRate, "ReportAnnualInflationRate", "txtReportAnnualInflationRate",
           Q::percent, N::tenths, "3", "3", -50, 99, G::economics,
           "Fuel inflation:", "Yearly rise of the fuel's price."),
    Number(Field::InterestRate, "InterestRate", "txtInterestRate", Q::percent, N::tenths, "8", "8", -50, 99,
           G::economics, "Interest rate:", "Discount rate by which later money is valued."),
    Number(Field::TaxRate, "TaxRate", "txtTaxRate", Q::percent, N::tenths, "25", "25", 0, 99, G::economics,
           "Tax rate:", "Tax on the savings, and relief on depreciation."),
    Number(Field::PlantDepreciationPeriod, "PlantDepreciationPeriod", "txtPlantDepreciationPeriod", Q::years,
           N::whole, "20", "20", 0, 100, G::economics,
           "Plant depreciation period:", "Years over which the plant is written off."),
    Number(Field::NewInsulationDepreciationPeriod, "NewInsulationDepreciationPeriod",
           "txtNewInsulationDepreciationPeriod", Q::years, N::whole, "15", "15", 1, 100, G::economics,
           "Insulation depreciation period:", "Years over which the insulation is written off."),
    Number(Field::InvestmentRate, "InvestmentRate", "txtInvestmentRate", Q::plantCapacityCost, N::hundredths,
           "0", "0", 0, 1e9, G::economics, "Incremental Cost of Plant Capacity:",
           "What a unit of additional heating plant would cost; 0 when the plant is there already."),
    Number(
        Field::InsulationMaintenancePercent, "InsulationMaintenancePercent",
        "txtInsulationMaintenancePercent", Q::percent, N::tenths, "2", "2", 0, 100, G::economics,
        "Insulation maintenance:", "Yearly upkeep of the insulation, in percent of what it costs installed."),
    Number(Field::FuelMaintenancePercent, "FuelMaintenancePercent", "txtFuelMaintenancePercent", Q::percent,
           N::tenths, "1", "1", 0, 100, G::economics,
           "Plant maintenance:", "Yearly upkeep of the heating plant, in percent of the fuel bill."),
    Number(Field::AnnualOperation, "AnnualOperation", "txtAnnualOperation", Q::hoursPerYear, N::whole, "8320",
           "8320", 0, 8784, G::economics, "Annual operation:", "Hours a year at operating temperature."),
    Number(Field::AnnualAverageTemp, "AnnualAverageTemp", "txtAnnualAverageTemp", Q::temperature, N::tenths,
           "75", "24", -100, 250, G::economics,
           "Average Annual Ambient Temperature:", "Ambient temperature over the year."),
    Number(Field::AnnualAverageWindSpeed, "AnnualAverageWindSpeed", "txtAnnualAverageWindSpeed", Q::windSpeed,
           N::tenths, "2", "0.9", 0, 200, G::economics,
           "Average Annual Wind Speed:", "Wind speed over the year."),
    Number(Field::PaybackReferenceThickness, "PaybackReferenceThickness", "txtPaybackReferenceThickness",
           Q::length, N::tenths, "0", "0", 0, 100, G::economics,
           "Thickness:", "Thickness against which paybacks are reckoned; 0 for the bare surface."),
    Flag(Field::ReportAllSurfaces, "ReportAllSurfaces", "chkReportAllSurfaces", false, G::installedCost,
         "Report all sizes and surfaces", "Reports every pipe size and flat surface."),
    Flag(Field::EngineeringReport, "EngineeringReport", "optEngineeringReport", false, G::report,
         "Engineering report", "One temperature with every thickness; otherwise tables of six temperatures."),
    Flag(Field::FEA, "FEA", "optFEA", true, G::installedCost, "Estimate installed costs",
         "Installed costs from the ratio file."),
    Flag(Field::PreviousCostData, "PreviousCostData", "optPreviousCostData", false, G::installedCost,
         "Use the previous cost data", "Installed costs of the last run."),
    Flag(Field::UserSuppliedCostData, "UserSuppliedCostData", "optUserSuppliedCostData", false,
         G::installedCost, "Use your own cost data", "Installed costs from a table of your own."),
    Number(Field::ReportStartingTemperature, "ReportStartingTemperature", "txtReportStartingTemperature",
           Q::temperature, N::tenths, "150", "65", -459, 3000, G::report,
           "Starting temperature:", "The first operating temperature is this plus one increment."),
    Number(Field::ReportTemperatureIncrement, "ReportTemperatureIncrement", "txtReportTemperatureIncrement",
           Q::temperatureDifference, N::tenths, "100", "55", -1000, 1000, G::report,
           "Temperature increment:", "Step from one operating temperature to the next."),
    Choice(Field::ReportInsulationMaterial, "ReportInsulationMaterial", "cboReportInsulationMaterial",
           C::insulation, "Mineral Wool Pipe Insulation 1200 F", G::installedCost,
           "Insulation:", "Material that is priced."),
    Choice(Field::ReportInstallationComplexity, "ReportInstallationComplexity",
           "cboReportInstallationComplexity", C::complexity, "Average", G::installedCost,
           "Installation:", "How hard the piping is to insulate."),
    Choice(Field::ReportJacketMaterial, "ReportJacketMaterial", "cboReportJacketMaterial", C::jacket,
           "Aluminum Oxidized In Service", G::installedCost, "Jacket:", "Jacket of the priced insulation."),
    Number(Field::ReportPipeInsulationPrice, "ReportPipeInsulationPrice", "txtReportPipeInsulationPrice",
           Q::pipePrice, N::hundredths, "4.97", "16.31", 0, 1e6, G::installedCost,
           "Material Price, 2 x 2 pipe insulation:",
           "Price of 2 inch insulation on a 2 inch pipe, jacket included; 0 takes the material's default."),
    Number(Field::ReportBoardInsulationPrice, "ReportBoardInsulationPrice", "txtReportBoardInsulationPrice",
           Q::boardPrice, N::hundredths, "1.71", "18.41", 0, 1e6, G::installedCost,
           "Material Price, 2 inch board or block:",
           "Price of 2 inch board or block, jacket included; 0 takes the material's default."),
    Number(Field::ReportLaborRate, "ReportLaborRate", "txtReportLaborRate", Q::laborRate, N::hundredths,
           "38.35", "38.35", 0, 1e5, G::installedCost, "Labor rate:", "Cost of an hour of labor."),
    Choice(Field::ReportRegionalProductivity, "ReportRegionalProductivity", "cboReportRegionalProductivity",
           C::region, "United States Average", G::installedCost,
           "Region:", "Where the work is done; scales the labor hours."),
    Choice(Field::ReportExistingInsulationMaterial, "ReportExistingInsulationMaterial",
           "cboReportExistingInsulationMaterial", C::insulation, "Mineral Wool Pipe Insulation 1200 F",
           G::installedCost, "Existing insulation:", "Material that is there already, in a retrofit."),
    Number(Field::ReportExistingInsulationThickness, "ReportExistingInsulationThickness",
           "txtReportExistingInsulationThickness", Q::length, N::tenths, "0", "0", 0, 100, G::installedCost,
           "Existing thickness:", "Thickness that is there already, in a retrofit."),
}};

static_assert(
    [] {
        for (std::size_t i = 0; i < rows.size(); ++i) {
            if (static_cast<std::size_t>(rows[i].id) != i) {
                return false;
            }
        }
        return true;
    }(),
    "the rows stand in the order of Field");

} // namespace

std::span<const JobField, fieldCount> JobFields() { return rows; }

const JobField& InfoOf(Field field) { return rows.at(static_cast<std::size_t>(field)); }

const JobField* FindField(std::string_view element) {
    const auto* const found =
        std::find_if(rows.begin(), rows.end(), [&](const JobField& row) { return row.element == element; });
    return found == rows.end() ? nullptr : found;
}

std::optional<int> CalculationTypeFrom(std::string_view text) {
    const auto* const found =
        std::find(std::begin(calculationTypeNames), std::end(calculationTypeNames), text);
    if (found != std::end(calculationTypeNames)) {
        return static_cast<int>(found - std::begin(calculationTypeNames));
    }
    const auto position = ParseNumber(text);
    if (position && (*position == 0 || *position == 1 || *position == 2 || *position == 3 || *position == 4 ||
                     *position == 5 || *position == 6)) {
        return static_cast<int>(*position);
    }
    return std::nullopt;
}

} // namespace kaloria
