// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "reports/payback.h"
#include "reports/result_table.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// What an economic analysis answers. English units; flows and money are per foot of pipe or per square foot
/// of flat surface.
namespace kaloria {

/// What a thickness is worth against the reference.
struct MoneyResult {
    float savedFlow = 0; ///< |Qr| - |Q|; negative when more is lost than at the reference [Btu/h]
    float savedCost = 0; ///< in the first year: annual cost of the reference less this one's [$/yr]
    Payback payback;
    float cellValue = 0;           ///< |Qr - Q| x money factor; see MoneyFactor
    double presentWorth = 0;       ///< N(Ni), over the life of the insulation [$]
    double totalSavings = 0;       ///< its yearly equivalent N(Ni) / Pu(Ni) [$/yr]
    std::vector<float> reductions; ///< per pollutant of the fuel [lb/yr]
};

/// A point of the cost curve: what a thickness costs over the life of the insulation, after tax, as a yearly
/// equivalent [$/yr]. The economic thickness is where the total is lowest.
struct CurvePoint {
    double capital = 0; ///< insulation: price, upkeep, depreciation
    double energy = 0;  ///< fuel and upkeep of the plant, plant capacity, cooling water
    [[nodiscard]] double Total() const { return capital + energy; }
};

/// One thickness on one surface at one temperature.
struct ThicknessResult {
    float nominal = 0;     ///< [in]; 0: the surface as it is, bare or with its existing insulation
    int layers = 0;        ///< in which the thickness is laid
    bool made = false;     ///< false: not made for this size, and nothing below is filled
    std::string fault;     ///< why there is no heat flow; empty when there is one
    float heatFlow = 0;    ///< negative for a gain [Btu/h]
    float surfaceTemp = 0; ///< [degF]
    float annualCost = 0;  ///< |Q| H / (E/100) U, before tax [$/yr]
    bool unsteady = false; ///< no steady solution: one of two alternating answers
    bool wet = false;      ///< in cold service: the surface is below the dew point
    std::optional<float> installedCost; ///< [$]; none when there is no price for it
    std::optional<MoneyResult> money;   ///< of priced thicknesses above the reference
    std::optional<CurvePoint> curve;    ///< of the surface as it is and of priced thicknesses

    [[nodiscard]] bool IsSolved() const { return made && fault.empty(); }
};

/// How the search for the economic thickness ended.
enum class EconomicOutcome : std::uint8_t {
    found,
    notWorthwhile, ///< the best thickness costs more than it saves: the reference is cheaper
    noReference,   ///< the reference thickness has no heat flow or no price on this surface
    noPrice,       ///< no thickness above the reference has an installed cost
    nothingDry,    ///< no priced thickness keeps the surface above the dew point
};

/// A sentence, without a full stop; empty for found.
[[nodiscard]] std::string_view TextOf(EconomicOutcome outcome);

struct TemperatureResult {
    float temperature = 0;             ///< operating [degF]
    std::size_t reference = 0;         ///< row that the others are compared with
    std::vector<ThicknessResult> rows; ///< the surface as it is, then one per nominal thickness
    EconomicOutcome outcome = EconomicOutcome::noPrice;
    std::optional<std::size_t> economic; ///< row of the economic thickness; with found and notWorthwhile
    std::optional<std::size_t> firstDry; ///< thinnest row at or above the dew point, in cold service

    [[nodiscard]] const ThicknessResult* Economic() const { return economic ? &rows[*economic] : nullptr; }

    /// What is best to be done: the economic thickness, or the reference where no thickness pays; null where
    /// nothing could be compared.
    [[nodiscard]] const ThicknessResult* Best() const {
        return outcome == EconomicOutcome::notWorthwhile ? &rows[reference] : Economic();
    }
};

struct SurfaceResult {
    int position = 0;
    std::string name;
    bool isPipe = false; ///< figures per foot; else per square foot
    std::vector<TemperatureResult> temperatures;
};

struct EconomicAnalysis {
    EconomicFigures figures; ///< as they were reckoned with
    double moneyFactor = 0;
    std::vector<SurfaceResult> surfaces;
    std::vector<ResultTable> cellValues; ///< per temperature: MoneyResult::cellValue
    std::vector<ResultTable>
        marginalSavings; ///< per temperature: annual cost less than one thickness before [$/yr]
};

} // namespace kaloria
