// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/report_values.h"

#include "data/fuel_units.h"
#include "data/number_format.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cmath>

namespace kaloria {

namespace {

std::string Number(double value, int decimals) { return FormatFixed(value, decimals); }
std::string Percent(float fraction) { return Number(double{fraction} * 100.0, 1); }

/// Prices of energy: two decimals, four below a dollar.
std::string PriceText(double price) { return Number(price, std::abs(price) < 1.0 ? 4 : 2); }

/// The price by the unit that FuelCostUnits names; fields count gas by the thousand cubic meters in SI.
std::string FuelPrice(const CFuel& fuel, Units units) {
    const FuelMeasure measure = MeasureOf(fuel.CostUnits);
    if (units == Units::english) {
        return PriceText(fuel.Cost);
    }
    const double cost = FuelCostToSI(measure, fuel.Cost);
    constexpr double cubicMeters = 1000.0;
    return PriceText(measure == FuelMeasure::gasVolume ? cost / cubicMeters : cost);
}

std::string HeatingValue(const CFuel& fuel, Units units) {
    const double heat = fuel.BTU;
    return Number(units == Units::si ? HeatContentToSI(MeasureOf(fuel.CostUnits), heat) : heat, 0);
}

/// What the others are compared with, as a value and in a sentence.
std::string ReferenceText(const ReportInputs& inputs) {
    if (inputs.existing) {
        return fmt::format("Do Nothing ({})", inputs.existing->Name);
    }
    return inputs.referenceThickness > 0.0F
               ? TenthsWithUnit(Quantity::length, inputs.units, inputs.referenceThickness)
               : "Bare";
}

std::string ReferencePhrase(const ReportInputs& inputs) {
    if (inputs.existing) {
        return "the existing insulation";
    }
    return inputs.referenceThickness > 0.0F ? ReferenceText(inputs) : "the bare surface";
}

std::string_view GeometryWords(const SurfaceResult& surface) {
    constexpr int verticalFlat = 27;
    constexpr int topFlat = 28;
    if (surface.isPipe) {
        return "Horizontal Cylinder";
    }
    if (surface.position == verticalFlat) {
        return "Vertical Flat Surface";
    }
    return surface.position == topFlat ? "Top of Tank or Duct" : "Bottom of Tank or Duct";
}

/// The size line; nothing of a flat surface.
std::string PipeSizeText(const ReportInputs& inputs, int position) {
    const auto surface =
        std::find_if(inputs.surfaces.begin(), inputs.surfaces.end(),
                     [&](const ReportSurface& candidate) { return candidate.position == position; });
    if (surface == inputs.surfaces.end() || surface->pipe == nullptr) {
        return {};
    }
    const bool si = inputs.units == Units::si;
    return fmt::format(
        "Pipe Size = {}{}",
        FormatNumber(si ? surface->pipe->USMetric : surface->pipe->USNPS, NumberFormat::shortest),
        si ? " mm" : " inches");
}

std::string PriceWithUnit(Quantity quantity, const ReportInputs& inputs, double price, bool isPipe) {
    return Number(FromEnglish(quantity, inputs.units, price), 2) +
           std::string(PageUnits(inputs.units, isPipe).installedCost);
}

/// What the estimate of installed costs started from; dashes when they come from elsewhere.
void AddEstimate(rtf::TagValues& values, const ReportInputs& inputs) {
    const auto costs = inputs.complexity.empty() ? std::nullopt : WithDefaults(inputs.installedCost);
    const std::string none(noFigure);
    values["<InstallationComplexity/>"] = costs ? inputs.complexity : none;
    values["<ComplexityFactor/>"] = costs ? Number(costs->ComplexityFactor, 2) : none;
    values["<LaborRate/>"] = costs ? Number(costs->LaborRate, 2) : none;
    values["<ProductivityFactor/>"] = costs ? Number(costs->RegionalProductivity, 1) : none;
    values["<PipeInstallationCost/>"] =
        costs ? PriceWithUnit(Quantity::pipePrice, inputs, costs->PipePrice, true) : none;
    values["<BoardInstallationCost/>"] =
        costs ? PriceWithUnit(Quantity::boardPrice, inputs, costs->BoardPrice, false) : none;
}

std::string_view LayerWords(int layers) {
    constexpr std::array<std::string_view, 3> words{"single layer ", "double layer ", "triple layer "};
    return words.at(static_cast<std::size_t>(std::clamp(layers, 1, 3) - 1));
}

std::string ThicknessSentence(const TemperatureResult& step, const PageFigures& figures) {
    const ThicknessResult* const row = step.Economic();
    if (row == nullptr) {
        return fmt::format("There is no economic thickness. {}.", TextOf(step.outcome));
    }
    const std::string what = fmt::format("a {}of {}{}", LayerWords(row->layers), figures.Thickness(row),
                                         figures.Texts().thickness);
    return step.outcome == EconomicOutcome::found
               ? fmt::format("The economic thickness is {}.", what)
               : fmt::format("{}. The one that comes closest is {}.", TextOf(step.outcome), what);
}

std::string SavingsSentence(const ReportInputs& inputs, const TemperatureResult& step,
                            const PageFigures& figures) {
    const ThicknessResult* const row = step.Economic();
    if (row == nullptr || !row->money) {
        return "There are no savings to be reported.";
    }
    const std::string payback = figures.Payback(row);
    return fmt::format("Its total savings against {} are {}{}; {}.", ReferencePhrase(inputs),
                       figures.TotalSavings(row), figures.Texts().savings,
                       payback == "never"
                           ? "it is never paid back"
                           : fmt::format("the payback is {}{}", payback, figures.Texts().payback));
}

} // namespace

std::string ReportDateText(std::chrono::year_month_day date) {
    return fmt::format("{:02}/{:02}/{:04}", static_cast<unsigned>(date.month()),
                       static_cast<unsigned>(date.day()), static_cast<int>(date.year()));
}

rtf::TagValues ParticularsValues(const CompanyParticulars& company, const ProjectParticulars& project,
                                 std::chrono::year_month_day date) {
    return {{"<CompanyName/>", company.name},
            {"<Address/>", company.address},
            {"<CityStateZip/>", company.cityStateZip},
            {"<PhoneNumber/>", company.phoneNumber},
            {"<ProjectName/>", project.name},
            {"<ProjectNumber/>", project.number},
            {"<System/>", project.system},
            {"<Location/>", project.location},
            {"<Date/>", project.date},
            {"<Engineer/>", project.engineer},
            {"<Contact/>", project.contact},
            {"<Phone/>", project.phone},
            {"<ReportDate/>", ReportDateText(date)}};
}

rtf::TagValues GeneralValues(const ReportInputs& inputs, const EconomicFigures& figures) {
    const Units units = inputs.units;
    const FuelUnitTexts fuelUnits = FuelUnitsOf(inputs.fuel, units);
    constexpr double perMillion = 1e6;
    const double capacity =
        FromEnglish(Quantity::plantCapacityCost, units, double{figures.capacityCost} * perMillion);
    return {
        {"<FuelName/>", inputs.fuel.Name},
        {"<FuelPrice/>", FuelPrice(inputs.fuel, units)},
        {"<FuelCostUnits/>", fuelUnits.cost},
        {"<FuelBTU/>", HeatingValue(inputs.fuel, units)},
        {"<FuelBTUUnits/>", fuelUnits.heat},
        {"<AverageTemp/>", TenthsWithUnit(Quantity::temperature, units, inputs.ambientTemp)},
        {"<AverageWindSpeed/>", TenthsWithUnit(Quantity::windSpeed, units, inputs.windSpeed)},
        {"<ReferenceThickness/>", ReferenceText(inputs)},
        {"<FuelEfficiency/>", Number(figures.efficiency, 1)},
        {"<FuelInflationRate/>", Percent(figures.fuelInflation)},
        {"<OperatingHours/>", Number(figures.hoursPerYear, 0)},
        {"<InterestRate/>", Percent(figures.discountRate)},
        {"<TaxRate/>", Percent(figures.taxRate)},
        {"<PlantDepreciationPeriod/>", FormatNumber(figures.plantYears, NumberFormat::shortest)},
        {"<InsulationDepreciationPeriod/>", FormatNumber(figures.insulationYears, NumberFormat::shortest)},
        {"<InvestmentRate/>",
         fmt::format("{} {}", Number(capacity, 2), InfoOf(Quantity::plantCapacityCost).Text(units))},
        {"<InsulationMaintenancePercent/>", Percent(figures.insulationMaintenance)},
        {"<FuelMaintenancePercent/>", Percent(figures.plantMaintenance)},
        {"<JacketEmittance/>", Number(inputs.jacket.Emittance, 2)},
        {"<JacketName/>", inputs.jacket.Name},
        {"<BaseEmittance/>", Number(inputs.baseMetal.Emittance, 2)},
        {"<InsulationName/>", inputs.insulation.Name}};
}

rtf::TagValues HeadingValues(const ReportInputs& inputs, const SurfaceResult& surface,
                             std::size_t pageNumber) {
    rtf::TagValues values{{"<SurfaceNumber/>", std::to_string(surface.position)},
                          {"<SurfaceGeometry/>", std::string(GeometryWords(surface))},
                          {"<PipeSize/>", PipeSizeText(inputs, surface.position)},
                          {"<BaseMetalEmittance/>", Number(inputs.baseMetal.Emittance, 2)},
                          {"<BaseMetalName/>", inputs.baseMetal.Name},
                          {"<HeatGain/>", IsGain(surface) ? "Gain" : "Loss"},
                          {"<PageNumber/>", std::to_string(pageNumber)}};
    AddEstimate(values, inputs);
    return values;
}

rtf::TagValues ColumnValues(const SurfaceResult& surface, const PageFigures& figures) {
    const PageUnits& units = figures.Texts();
    rtf::TagValues values;
    for (std::size_t i = 0; i < surface.temperatures.size(); ++i) {
        const TemperatureResult& step = surface.temperatures[i];
        const bool isLast = i + 1 == surface.temperatures.size();
        const auto add = [&](std::string_view word, std::string text, std::string_view unit) {
            values[fmt::format("<{}{}/>", word, i + 1)] = std::move(text) + std::string(isLast ? unit : "");
        };
        const ThicknessResult* const row = step.Best(); // columns have no room to say that it does not pay
        add("Temperature", figures.Temperature(step.temperature), units.temperature);
        add("Thickness", figures.Thickness(row), units.thickness);
        add("HeatLoss", figures.HeatFlow(row), units.heatFlow);
        add("SurfaceTemp", figures.SurfaceTemp(row), units.temperature);
        add("Payback", figures.Payback(row), units.payback);
        add("AnnualCost", figures.AnnualCost(row), units.annualCost);
        add("TotalSavings", figures.TotalSavings(row), units.savings);
    }
    return values;
}

rtf::TagValues EngineeringValues(const ReportInputs& inputs, const TemperatureResult& step,
                                 const PageFigures& figures) {
    const PageUnits& units = figures.Texts();
    return {{"<Temperature/>", figures.Temperature(step.temperature) + std::string(units.temperature)},
            {"<Units1/>", std::string(units.thicknessHeading)},
            {"<Units2/>", std::string(units.heatFlowHeading)},
            {"<Units3/>", std::string(units.temperature)},
            {"<Units4/>", std::string(units.installedCost)},
            {"<Units6/>", std::string(units.paybackHeading)},
            {"<Units7/>", std::string(units.annualCost)},
            {"<EconomicThickness/>", ThicknessSentence(step, figures)},
            {"<Savings/>", SavingsSentence(inputs, step, figures)}};
}

bool IsGain(const SurfaceResult& surface) {
    return !surface.temperatures.empty() &&
           std::all_of(surface.temperatures.begin(), surface.temperatures.end(), [](const auto& step) {
               return !step.rows.empty() && step.rows.front().heatFlow < 0.0F;
           });
}

} // namespace kaloria
