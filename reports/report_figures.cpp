// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/report_figures.h"

#include "data/number_format.h"

#include <algorithm>
#include <cmath>

namespace kaloria {

namespace {

constexpr double joulesPerWattHour = 3600.0;

/// Emissions go from a ton of carbon dioxide to a trace of nitrous oxide: two decimals, more where they would
/// leave fewer than three digits.
std::string EmissionText(double pounds) {
    constexpr int fewest = 2;
    constexpr int most = 6;
    constexpr double smallest = 5e-7;
    if (pounds == 0.0) {
        return FormatFixed(pounds, fewest);
    }
    if (std::abs(pounds) < smallest) {
        return FormatNumber(pounds, NumberFormat::scientific);
    }
    const int magnitude = static_cast<int>(std::floor(std::log10(std::abs(pounds))));
    return FormatFixed(pounds, std::clamp(fewest - magnitude, fewest, most));
}

} // namespace

PageUnits::PageUnits(Units units, bool isPipe)
    : payback(" yr"), emission(isPipe ? " Lbs/lnft/yr" : " Lbs/sqft/yr") {
    if (units == Units::si) {
        temperature = " °C";
        thickness = " mm";
        heatFlow = isPipe ? " W/m" : " W/m^2";
        annualCost = isPipe ? " $/m/yr" : " $/m^2/yr";
        savings = isPipe ? " $/m/yr" : " $/sqm/yr";
        installedCost = isPipe ? " $/m" : " $/sqm";
        thicknessHeading = "mm       ";
        heatFlowHeading = isPipe ? "J/hr/m       " : "J/hr/sqm       ";
        paybackHeading = "Years       ";
    } else {
        temperature = " °F";
        thickness = " in";
        heatFlow = isPipe ? " Btu/ft/hr" : " Btu/hr/ft^2";
        annualCost = isPipe ? " $/ft/yr" : " $/ft^2/yr";
        savings = isPipe ? " $/lnft/yr" : " $/sqft/yr";
        installedCost = isPipe ? " $/lnft" : " $/sqft";
        thicknessHeading = "Inches   ";
        heatFlowHeading = isPipe ? "Btu/hr/ft    " : "Btu/hr/sqft    ";
        paybackHeading = "Years   ";
    }
}

PageFigures::PageFigures(const ReportInputs& inputs, bool isPipe, bool isGain)
    : texts_(inputs.units, isPipe),
      units_(inputs.units),
      isPipe_(isPipe),
      isGain_(isGain),
      isRetrofit_(inputs.existing.has_value()) {}

std::string PageFigures::Fixed(Quantity quantity, std::optional<double> english, int decimals) const {
    return english ? FormatFixed(FromEnglish(quantity, units_, *english), decimals) : std::string(noFigure);
}

std::string PageFigures::Temperature(double fahrenheit) const {
    return Fixed(Quantity::temperature, fahrenheit, 1);
}

std::string PageFigures::Thickness(const ThicknessResult* row) const {
    if (row == nullptr) {
        return std::string(noFigure);
    }
    if (row->nominal > 0.0F) {
        const double shown = FromEnglish(Quantity::length, units_, row->nominal);
        constexpr double sameTenth = 0.005;
        return FormatFixed(shown, std::abs(shown * 10 - std::round(shown * 10)) < sameTenth * 10 ? 1 : 2);
    }
    return isRetrofit_ ? "Do Nothing" : "Bare";
}

std::optional<double> PageFigures::Flow(const ThicknessResult* row) const {
    if (row == nullptr || !row->IsSolved()) {
        return std::nullopt;
    }
    return isGain_ ? -double{row->heatFlow} : double{row->heatFlow};
}

std::string PageFigures::HeatFlow(const ThicknessResult* row) const {
    return Fixed(isPipe_ ? Quantity::heatFlowPerLength : Quantity::heatFlux, Flow(row), 2);
}

std::string PageFigures::HourlyHeat(const ThicknessResult* row) const {
    const auto flow = Flow(row);
    if (units_ == Units::english || !flow) {
        return HeatFlow(row);
    }
    const double watts =
        FromEnglish(isPipe_ ? Quantity::heatFlowPerLength : Quantity::heatFlux, units_, *flow);
    return FormatNumber(watts * joulesPerWattHour, NumberFormat::whole);
}

std::string PageFigures::SurfaceTemp(const ThicknessResult* row) const {
    const bool isSolved = row != nullptr && row->IsSolved();
    return isSolved ? Temperature(row->surfaceTemp) : std::string(noFigure);
}

std::string PageFigures::InstalledCost(const ThicknessResult* row) const {
    std::optional<double> cost;
    if (row != nullptr && row->installedCost) {
        cost = *row->installedCost;
    }
    return Fixed(isPipe_ ? Quantity::pipePrice : Quantity::boardPrice, cost, 2);
}

std::string PageFigures::Payback(const ThicknessResult* row) const {
    if (row == nullptr || !row->money) {
        return std::string(noFigure);
    }
    return row->money->payback.kind == kaloria::Payback::Kind::never
               ? "never"
               : FormatFixed(row->money->payback.years, 2);
}

std::string PageFigures::AnnualCost(const ThicknessResult* row) const {
    std::optional<double> cost;
    if (row != nullptr && row->IsSolved()) {
        cost = row->annualCost;
    }
    return Fixed(isPipe_ ? Quantity::moneyPerLength : Quantity::moneyPerArea, cost, 2);
}

std::string PageFigures::TotalSavings(const ThicknessResult* row) const {
    std::optional<double> savings;
    if (row != nullptr && row->money) {
        savings = row->money->totalSavings;
    }
    return Fixed(isPipe_ ? Quantity::moneyPerLength : Quantity::moneyPerArea, savings, 2);
}

std::string PageFigures::Reduction(const ThicknessResult* row, std::size_t pollutant) const {
    const bool isKnown = row != nullptr && row->money && pollutant < row->money->reductions.size();
    return isKnown ? EmissionText(row->money->reductions[pollutant]) : std::string(noFigure);
}

std::string TenthsWithUnit(Quantity quantity, Units units, double english) {
    std::string text = FormatNumber(FromEnglish(quantity, units, english), NumberFormat::tenths);
    text += ' ';
    text += InfoOf(quantity).Text(units);
    return text;
}

} // namespace kaloria
