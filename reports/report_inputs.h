// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "data/quantity.h"
#include "engine/insulation.h"
#include "engine/reference_records.h"
#include "reports/installed_cost.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace kaloria {

/// The figures that turn a heat flow and an installed cost into money. Rates are fractions (0.08, not 8).
/// The letters are those of docs/methods-economics.md.
struct EconomicFigures {
    float unitFuelCost = 0;     ///< U, fuel for one Btu, before any loss of conversion [$/Btu]
    float hoursPerYear = 0;     ///< H [h]
    float efficiency = 100;     ///< E, of the conversion; of a chiller 100 x coefficient of performance [%]
    float taxRate = 0;          ///< t
    float plantMaintenance = 0; ///< f, of the yearly fuel bill
    float insulationMaintenance = 0; ///< i, of the installed cost, yearly
    float capacityCost = 0;          ///< K, of plant that a saved heat flow makes unnecessary [$ per Btu/h]
    float plantYears = 1;            ///< Np, over which the plant is written off
    float insulationYears = 1;       ///< Ni, the same of the insulation: its economic life
    bool hotService = true;          ///< false: a chiller, whose condenser needs make-up water
    float waterCost = 0;             ///< r [$/gal]
    float condenserFactor = 0;       ///< s [gal per ton-hour]
    float discountRate = 0;          ///< d
    float fuelInflation = 0;         ///< g
    float waterInflation = 0;        ///< w
};

/// A nominal thickness as it is laid on one surface.
struct Covering {
    float thickness = 0; ///< [in]
    float diameter = -1; ///< over the insulation, of a pipe [in]; -1: not in a table
};

/// One pipe size or flat surface to be reported.
struct ReportSurface {
    int position = 0; ///< in the list of sizes and surfaces: 1 to 26 pipes, 27 to 29 flat
    std::string name; ///< as shown
    const CSurfaceGeometry* geometry = nullptr;
    const CPipe* pipe = nullptr;                    ///< null of a flat surface
    std::vector<std::optional<Covering>> coverings; ///< one per nominal thickness; none where it is not made
    std::optional<Covering> existing;               ///< what is there already, in a retrofit
};

/// Everything that an economic analysis starts from, checked and in English units. It owns what it needs but
/// for geometries and pipes, which stay in the catalogue.
struct ReportInputs {
    static constexpr std::size_t mostThicknesses = 18;

    EconomicFigures money;               ///< unitFuelCost is filled by the report
    CFuel fuel;                          ///< with the price and the heating value of the report
    InstalledCostInputs installedCost;   ///< for the estimate
    std::string complexity;              ///< of the estimate, as chosen; empty: costs come from elsewhere
    Units units = Units::english;        ///< in which a report is written
    bool engineering = false;            ///< one temperature with every thickness; else tables
    float startingTemp = 0;              ///< [degF]
    float tempIncrement = 0;             ///< [degF]
    float ambientTemp = 0;               ///< average of the year [degF]
    float windSpeed = 0;                 ///< average of the year [mph]
    CInsulation insulation;              ///< that is priced and laid
    std::optional<CInsulation> existing; ///< under it, in a retrofit
    CBaseMetal baseMetal;
    CJacketMaterial jacket;
    float referenceThickness = 0;        ///< nominal; 0: the surface as it is [in]
    std::optional<float> dewPoint;       ///< of the air, in cold service [degF]
    std::vector<float> thicknesses;      ///< nominal, rising, at most 18 [in]
    std::vector<ReportSurface> surfaces; ///< the ticked ones

    [[nodiscard]] int TemperatureCount() const { return engineering ? 1 : 6; }

    /// Operating temperature of step @p k, from 1 [degF].
    [[nodiscard]] float Temperature(int k) const {
        return static_cast<float>(double{tempIncrement} * k + startingTemp);
    }
};

/// Layers in which a thickness is laid: one up to 3 in, two up to 6 in, three above; 0 for no thickness.
[[nodiscard]] constexpr int LayersOf(float nominal) {
    constexpr float thickestSingle = 3.0F;
    constexpr float thickestDouble = 6.0F;
    if (nominal <= 0.0F) {
        return 0;
    }
    if (nominal <= thickestSingle) {
        return 1;
    }
    return nominal <= thickestDouble ? 2 : 3;
}

} // namespace kaloria
