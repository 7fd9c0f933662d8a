// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/reference_records.h"

#include <string>

namespace kaloria {

/// The report generator. It holds what a report is made from and the unit fuel cost of its fuel.
class CReport {
public:
    // Records owned by the application.
    const Collection<CPipe>* Pipes = nullptr;
    const Collection<CSurfaceGeometry>* SurfaceGeometries = nullptr;
    const CFuel* Fuel = nullptr; ///< selected; with its `Cost` and `BTU` as they are to be reckoned with

    // The user's particulars, printed on every report.
    std::string CompanyName;
    std::string Address;
    std::string CityStateZip;
    std::string PhoneNumber;

    /// Stores the cost of one Btu of the selected fuel; see UnitFuelCost in reports/fuel_cost.h.
    /// @throws NumericFault when no fuel is selected or its heating value is zero and needed
    void UnitFuelCost();

    /// What UnitFuelCost last stored [$/Btu].
    [[nodiscard]] float FuelCostPerBtu() const { return fuelCostPerBtu_; }

private:
    float fuelCostPerBtu_ = 0;
};

} // namespace kaloria
