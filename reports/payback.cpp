// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/payback.h"

#include "engine/numeric_fault.h"
#include "reports/present_worth.h"

#include <algorithm>
#include <cmath>

namespace kaloria {

namespace {

constexpr double btuPerTonHour = 12000;
constexpr float longestPayback = 100;
constexpr float shortestPayback = 0.1F;
constexpr float ratesTooSmallToMatter = 0.0001F;
constexpr double closeEnough = 0.01; // [yr]
constexpr int mostHalvings = 60;

bool RatesMatter(const EconomicFigures& figures) {
    return figures.discountRate > ratesTooSmallToMatter ||
           std::abs(figures.fuelInflation - figures.discountRate) > ratesTooSmallToMatter;
}

/// Nothing comes back in a year and something has to.
bool LosesYearly(const PaybackTerms& terms) { return terms.Outlay() > 0.0 && !(terms.Yearly() > 0.0); }

std::optional<float> SimpleOf(const PaybackTerms& terms) {
    if (LosesYearly(terms)) {
        return std::nullopt;
    }
    // The outlay is covered at once by plant that need not be bought; the quotient of two losses is no time.
    return terms.Yearly() > 0.0 ? SimplePayback(terms) : 0.0F;
}

/// The year in which the net present worth turns positive, between one at which it is negative and one at
/// which it is not.
double YearOfReturn(const PaybackTerms& terms, const EconomicFigures& figures, double upper) {
    double lower = 0.0;
    for (int halving = 0; halving < mostHalvings && upper - lower > closeEnough; ++halving) {
        const double middle = (lower + upper) * 0.5;
        (NetPresentWorth(terms, figures, middle) < 0.0 ? lower : upper) = middle;
    }
    return (lower + upper) * 0.5;
}

Payback Discounted(const PaybackTerms& terms, const EconomicFigures& figures) {
    using Kind = Payback::Kind;
    Payback result;
    result.simple = SimpleOf(terms);
    const double last = 3.0 * figures.insulationYears;
    const double atOnce = -terms.Outlay();
    const double atLast = NetPresentWorth(terms, figures, last);
    if (atOnce == atLast) {
        result.kind = result.simple ? Kind::undecided : Kind::never;
        result.years = result.simple ? std::max(*result.simple, 0.0F) : Payback::neverYears;
    } else if (atOnce >= 0.0) {
        result.kind = Kind::discounted;
    } else if (atLast < 0.0) {
        result.kind = Kind::never;
        result.years = Payback::neverYears;
    } else {
        result.kind = Kind::discounted;
        result.years = Single(YearOfReturn(terms, figures, last));
    }
    return result;
}

} // namespace

PaybackTerms TermsOf(const HeatAndCost& reference, const HeatAndCost& candidate, EconomicFigures& figures) {
    if (figures.plantYears < 1.0F) {
        figures.plantYears = 1.0F;
    }
    const FaultTrap trap;
    const EconomicFigures& e = figures;
    const double afterTax = 1.0 - e.taxRate;
    PaybackTerms terms;
    terms.savedFlow = std::abs(double{reference.heatFlow} - candidate.heatFlow);
    terms.extraCost = double{candidate.installedCost} - reference.installedCost;
    const double saved = terms.savedFlow;
    terms.plantDepreciation = saved * e.capacityCost * e.taxRate / e.plantYears;
    terms.fuel = (1.0 + e.plantMaintenance) * saved * afterTax * e.unitFuelCost * e.hoursPerYear /
                 (e.efficiency / 100.0);
    terms.insulationMaintenance = afterTax * terms.extraCost * e.insulationMaintenance;
    terms.insulationDepreciation = terms.extraCost * e.taxRate / e.insulationYears;
    terms.coolingWater =
        e.hotService ? 0.0
                     : afterTax * e.waterCost * (e.condenserFactor / btuPerTonHour) * saved * e.hoursPerYear;
    terms.avoidedCapacity = saved * e.capacityCost;
    trap.Check("terms of a payback", {terms.Outlay(), terms.Yearly()});
    return terms;
}

float SimplePayback(const PaybackTerms& terms) {
    const FaultTrap trap;
    const float years = Single(terms.Outlay() / terms.Yearly());
    trap.Check("simple payback", {years});
    return years >= longestPayback ? Payback::neverYears : years;
}

double NetPresentWorth(const PaybackTerms& terms, const EconomicFigures& figures, double years) {
    using namespace present_worth;
    const double d = figures.discountRate;
    const double uniform = UniformSeries(years, d);
    const auto upTo = [&](double period) { return years <= period ? uniform : UniformSeries(period, d); };
    double worth = terms.fuel * EscalatingSeries(years, d, figures.fuelInflation);
    if (terms.coolingWater != 0.0) {
        worth += terms.coolingWater * EscalatingSeries(years, d, figures.waterInflation);
    }
    worth -= terms.insulationMaintenance * uniform;
    worth += terms.insulationDepreciation * upTo(figures.insulationYears);
    worth -= terms.plantDepreciation * upTo(figures.plantYears);
    worth -= terms.Outlay();
    if (!std::isfinite(worth)) {
        throw NumericFault("a net present worth is beyond all numbers");
    }
    return worth;
}

Payback PaybackOf(const PaybackTerms& terms, const EconomicFigures& figures) {
    if (RatesMatter(figures)) {
        return Discounted(terms, figures);
    }
    Payback result;
    result.simple = SimpleOf(terms);
    result.kind = result.simple ? Payback::Kind::simple : Payback::Kind::never;
    result.years = result.simple ? std::max(*result.simple, shortestPayback) : Payback::neverYears;
    return result;
}

} // namespace kaloria
