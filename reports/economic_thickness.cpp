// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/economic_thickness.h"

#include "engine/numeric_fault.h"
#include "reports/present_worth.h"

#include <algorithm>
#include <cmath>

namespace kaloria {

namespace {

/// The terms that one Btu/h and one dollar bring into a comparison.
PaybackTerms TermsOfUnits(float heatFlow, float installedCost, EconomicFigures figures) {
    return TermsOf({heatFlow, 0.0F}, {0.0F, installedCost}, figures);
}

} // namespace

LifeCost::LifeCost(const EconomicFigures& figures) {
    const double life = figures.insulationYears;
    uniform_ = present_worth::UniformSeries(life, figures.discountRate);
    perFlow_ = NetPresentWorth(TermsOfUnits(1.0F, 0.0F, figures), figures, life);
    perDollar_ = -NetPresentWorth(TermsOfUnits(0.0F, 1.0F, figures), figures, life);
    if (!(uniform_ > 0.0)) {
        throw NumericFault("the depreciation period of the insulation is not above zero");
    }
}

CurvePoint LifeCost::Of(float heatFlow, float installedCost) const {
    const FaultTrap trap;
    const CurvePoint point{installedCost * perDollar_ / uniform_,
                           std::abs(double{heatFlow}) * perFlow_ / uniform_};
    trap.Check("cost of a thickness", {point.capital, point.energy});
    return point;
}

std::string_view TextOf(EconomicOutcome outcome) {
    switch (outcome) {
    case EconomicOutcome::notWorthwhile:
        return "No thickness pays: the reference is cheaper over the life of the insulation";
    case EconomicOutcome::noReference:
        return "The reference thickness is not made, not priced or not solved for this surface, so that "
               "there is "
               "nothing to compare with";
    case EconomicOutcome::noPrice:
        return "No thickness above the reference has an installed cost";
    case EconomicOutcome::nothingDry:
        return "No priced thickness keeps the surface above the dew point";
    default:
        return "";
    }
}

void ChooseEconomicThickness(TemperatureResult& result, bool cold) {
    const auto& rows = result.rows;
    result.economic.reset();
    result.firstDry.reset();
    const auto dry = std::find_if(rows.begin(), rows.end(),
                                  [](const ThicknessResult& row) { return row.IsSolved() && !row.wet; });
    if (cold && dry != rows.end()) {
        result.firstDry = static_cast<std::size_t>(dry - rows.begin());
    }
    bool anyPriced = false;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        if (!rows[i].money) {
            continue;
        }
        anyPriced = true;
        const bool saves = rows[i].money->savedFlow > 0.0F;
        const bool dryEnough = !cold || (result.firstDry && i >= *result.firstDry);
        if (saves && dryEnough &&
            (!result.economic || rows[i].money->presentWorth > rows[*result.economic].money->presentWorth)) {
            result.economic = i;
        }
    }
    if (result.economic) {
        result.outcome = rows[*result.economic].money->presentWorth > 0.0 ? EconomicOutcome::found
                                                                          : EconomicOutcome::notWorthwhile;
    } else if (!anyPriced) {
        result.outcome = EconomicOutcome::noPrice;
    } else {
        const bool nothingDry =
            cold && (!result.firstDry ||
                     std::none_of(dry, rows.end(), [](const auto& row) { return row.money.has_value(); }));
        result.outcome = nothingDry ? EconomicOutcome::nothingDry : EconomicOutcome::notWorthwhile;
    }
}

} // namespace kaloria
