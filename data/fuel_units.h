// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "data/quantity.h"
#include "engine/reference_records.h"

#include <string>
#include <string_view>

namespace kaloria {

/// The measure by which a fuel is bought, told from its `CostUnits`; the code by which its unit cost is
/// formed.
enum class FuelMeasure : std::uint8_t {
    other = 0,        ///< anything else, such as "$/MMBtu"
    gasVolume = 1,    ///< "$/Mcf", thousand cubic feet
    liquidVolume = 2, ///< "$/gal"
    pound = 3,        ///< "$/lb"
    ton = 4,          ///< "$/ton", short tons; heating value per pound
    electricity = 5,  ///< "$/kWh"
};

[[nodiscard]] FuelMeasure MeasureOf(std::string_view costUnits);

/// Unit texts of a fuel's price and heating value.
struct FuelUnitTexts {
    std::string cost;      ///< of the record: "$/Mcf", "$/m^3"
    std::string heat;      ///< of the record: "Btu/cf", "J/m^3"
    std::string costEntry; ///< beside the field: as cost, but "$/Mm^3" for gas in SI (thousand cubic meters,
                           ///< as Mcf is thousand cubic feet), which is what the number in the field counts
};
[[nodiscard]] FuelUnitTexts FuelUnitsOf(const CFuel& fuel, Units units);

/// Price and heating value between English and SI so that money per unit of heat does not change.
/// @param cost  English [CostUnits]; SI: per thousand m3, l, tonne, tonne, kWh by measure
/// @param heat  English [BTUUnits]; SI: J per m3, l, tonne, tonne, kWh
[[nodiscard]] double FuelCostToSI(FuelMeasure measure, double cost);
[[nodiscard]] double FuelCostToEnglish(FuelMeasure measure, double cost);
[[nodiscard]] double HeatContentToSI(FuelMeasure measure, double heat);
[[nodiscard]] double HeatContentToEnglish(FuelMeasure measure, double heat);

} // namespace kaloria
