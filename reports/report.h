// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/reference_records.h"
#include "reports/cost_data.h"
#include "reports/economic_analysis.h"
#include "reports/installed_cost.h"
#include "reports/report_inputs.h"

#include <filesystem>
#include <optional>
#include <string>

namespace kaloria {

/// The report generator. It holds what a report is made from: its inputs, the unit fuel cost, the installed
/// costs of the last estimate or of the user, and the last analysis.
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

    std::filesystem::path ProgramFolder; ///< holds the ratio file
    ReportInputs Inputs;                 ///< of the next analysis

    /// Stores the cost of one Btu of the selected fuel; see UnitFuelCost in reports/fuel_cost.h.
    /// @throws NumericFault when no fuel is selected or its heating value is zero and needed
    void UnitFuelCost();

    /// What UnitFuelCost last stored [$/Btu].
    [[nodiscard]] float FuelCostPerBtu() const { return fuelCostPerBtu_; }

    /// Estimates the installed costs for Inputs from the ratio file into CostData(). After a fault the costs
    /// are as they were, those of another material perhaps.
    [[nodiscard]] std::optional<InstalledCostFault> GetFEA();

    /// Installed costs by size and thickness; they stay until the next GetFEA or until someone else fills
    /// them.
    [[nodiscard]] CCostData& CostData() { return costData_; }
    [[nodiscard]] const CCostData& CostData() const { return costData_; }

    /// Analyses Inputs: the unit fuel cost first, then every surface. Fuel points to the fuel of Inputs from
    /// then on.
    /// @param costs  CostData(), or another grid when its contents do not belong to Inputs
    /// @return false when @p progress ended it; there is no analysis then
    /// @throws NumericFault; there is no analysis then
    bool Analyse(CCostData& costs, const AnalysisProgress& progress = {});

    /// The last analysis.
    [[nodiscard]] const std::optional<EconomicAnalysis>& Analysis() const { return analysis_; }

private:
    float fuelCostPerBtu_ = 0;
    RatioFileCache ratios_;
    CCostData costData_;
    std::optional<EconomicAnalysis> analysis_;
};

} // namespace kaloria
