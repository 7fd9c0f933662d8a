// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "reports/economic_results.h"

namespace kaloria {

/// What a heat flow and an installed cost come to over the life of the insulation, after tax, so that the net
/// present worth of a thickness against another is the difference of their costs.
class LifeCost {
public:
    /// @throws NumericFault
    explicit LifeCost(const EconomicFigures& figures);

    /// Of a thickness, as a yearly equivalent [$/yr]. @throws NumericFault on overflow
    [[nodiscard]] CurvePoint Of(float heatFlow, float installedCost) const;

    /// Yearly equivalent of a present worth: over Pu(Ni).
    [[nodiscard]] double Yearly(double presentWorth) const { return presentWorth / uniform_; }

    /// The present worth of a yearly equivalent.
    [[nodiscard]] double Worth(double yearly) const { return yearly * uniform_; }

private:
    double uniform_ = 1;   // Pu(Ni)
    double perFlow_ = 0;   // [$ per Btu/h]
    double perDollar_ = 1; // [$ per $ installed]
};

/// Chooses among the rows of @p result with money the one with the largest net present worth and sets its
/// outcome, its economic row and, with a dew point, its first dry row and what the choice must not go below.
/// Rows that lose no less than the reference do not stand.
void ChooseEconomicThickness(TemperatureResult& result, bool cold);

} // namespace kaloria
