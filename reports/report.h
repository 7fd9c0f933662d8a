// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/reference_records.h"
#include "reports/cost_data.h"
#include "reports/economic_analysis.h"
#include "reports/installed_cost.h"
#include "reports/report_inputs.h"
#include "reports/report_pages.h"
#include "reports/report_particulars.h"

#include <chrono>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace kaloria {

/// A rich text: the buffer that a page is made in, or a whole report.
struct ReportText {
    std::string rtf;
};

/// Told what is being done and how many of the surfaces are done with it; returns whether to go on.
using ReportProgress = std::function<bool(std::string_view caption, int done, int count)>;

/// What kind of report is made of the inputs.
struct ReportOptions {
    ReportKind kind = ReportKind::economic;
    CCostData* costs = nullptr;                      ///< installed costs of the inputs; null: CostData()
    std::optional<std::chrono::year_month_day> date; ///< printed on it; none: today
    ReportProgress progress;                         ///< may be empty
};

/// The report generator. It holds what a report is made from: its inputs, the unit fuel cost, the installed
/// costs of the last estimate or of the user, and the last analysis.
class CReport {
public:
    // Records owned by the application.
    const Collection<CPipe>* Pipes = nullptr;
    const Collection<CSurfaceGeometry>* SurfaceGeometries = nullptr;
    const CFuel* Fuel = nullptr; ///< selected; with its `Cost` and `BTU` as they are to be reckoned with

    // The user's particulars, printed on every page of a report.
    std::string CompanyName;
    std::string Address;
    std::string CityStateZip;
    std::string PhoneNumber;

    ProjectParticulars Project; ///< printed on its cover

    std::filesystem::path ProgramFolder; ///< holds the ratio file and the templates
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

    /// Analyses Inputs and makes a report of it: the cover, the data that all surfaces share, a page per
    /// surface, the disclaimer, and behind each of them, the last too, a line of 65 hyphens.
    /// @param work    holds the page that is being made
    /// @param output  receives the report when it is whole; is empty until then
    /// @return false when the progress ended it
    /// @throws FileError when a template is missing or is no rich text; before anything else
    /// @throws NumericFault
    bool CreateReport(ReportText& work, ReportText& output, const ReportOptions& options = {});

    /// The last analysis.
    [[nodiscard]] const std::optional<EconomicAnalysis>& Analysis() const { return analysis_; }

private:
    bool WritePages(const ReportPages& pages, ReportText& work, ReportText& output,
                    const ReportOptions& options) const;

    float fuelCostPerBtu_ = 0;
    RatioFileCache ratios_;
    CCostData costData_;
    std::optional<EconomicAnalysis> analysis_;
};

} // namespace kaloria
