// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "reports/report_inputs.h"

#include <cstdint>
#include <optional>

namespace kaloria {

/// What a thickness does and costs, per foot of pipe or per square foot.
struct HeatAndCost {
    float heatFlow = 0;      ///< [Btu/h]
    float installedCost = 0; ///< [$]
};

/// The terms of a comparison of two thicknesses, from today's prices; yearly ones [$/yr], others [$].
struct PaybackTerms {
    double savedFlow = 0;              ///< dQ = |Qr - Q| [Btu/h]
    double extraCost = 0;              ///< dC = candidate's installed cost less the reference's
    double plantDepreciation = 0;      ///< A = dQ K t / Np: tax relief that is forgone, yearly
    double fuel = 0;                   ///< B = (1+f) dQ (1-t) U H / (E/100), yearly
    double insulationMaintenance = 0;  ///< C = (1-t) dC i, yearly
    double insulationDepreciation = 0; ///< D = dC t / Ni: tax relief, yearly
    double coolingWater = 0;           ///< G2 = (1-t) r (s/12000) dQ H, yearly; 0 in hot service
    double avoidedCapacity = 0;        ///< G = dQ K

    /// What has to come back: dC - G.
    [[nodiscard]] double Outlay() const { return extraCost - avoidedCapacity; }
    /// What comes back in a year: -A + B - C + D + G2, added in this order.
    [[nodiscard]] double Yearly() const {
        return -plantDepreciation + fuel - insulationMaintenance + insulationDepreciation + coolingWater;
    }
};

/// @param figures  whose plant depreciation period below 1 is raised to 1, and stays so
/// @throws NumericFault  for an efficiency or an insulation depreciation period of 0, and on overflow
[[nodiscard]] PaybackTerms TermsOf(const HeatAndCost& reference, const HeatAndCost& candidate,
                                   EconomicFigures& figures);

/// Outlay over yearly return [yr]; 100 and more counts as 25.
/// @throws NumericFault when nothing comes back in a year
[[nodiscard]] float SimplePayback(const PaybackTerms& terms);

/// Net present worth after @p years of the difference between two thicknesses [$]:
///   N(n) = B Pe(n) + G2 Pw(n) - C Pu(n) + D Pu(min(n, Ni)) - A Pu(min(n, Np)) - (dC - G)
/// with the series of reports/present_worth.h: Pu uniform, Pe escalating with the fuel, Pw with the water.
[[nodiscard]] double NetPresentWorth(const PaybackTerms& terms, const EconomicFigures& figures, double years);

struct Payback {
    enum class Kind : std::uint8_t {
        simple,     ///< neither discount nor inflation matters
        discounted, ///< the year in which the net present worth becomes positive
        undecided,  ///< the net present worth never changes: the simple payback stands in
        never,      ///< not paid back within three depreciation periods, or at all: 25 stands in
    };
    static constexpr float neverYears = 25;

    Kind kind = Kind::simple;
    float years = 0;
    std::optional<float> simple; ///< whatever the kind [yr]; none when nothing comes back at today's prices

    /// The second result: `years` is a stand-in.
    [[nodiscard]] bool Flag() const { return kind == Kind::undecided || kind == Kind::never; }
};

/// The payback of a comparison. The simple one, at least 0.1, when d is not above 0.0001 and g no more than
/// 0.0001 from it; otherwise the n with N(n) = 0 by bisection of 0 to 3 Ni, to 0.01 year. An outlay that is
/// nothing or less is paid back at once.
/// @throws NumericFault
[[nodiscard]] Payback PaybackOf(const PaybackTerms& terms, const EconomicFigures& figures);

} // namespace kaloria
