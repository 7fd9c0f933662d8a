// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "application/application.h"
#include "application/report_reading.h"

#include <filesystem>
#include <functional>

namespace kaloria {

/// What an economic analysis of the current job is asked for.
struct EconomicsRequest {
    ReportChoice choice;
    std::filesystem::path costFile; ///< installed costs to be used instead of the job's source; empty: none
    AnalysisProgress progress;      ///< may be empty
};

/// What is done with the inputs and installed costs that were provided; false when it was cancelled. It
/// leaves an analysis in the report.
/// @param costs  of these inputs; without any when there are none
using EconomicsWork = std::function<bool(CReport& report, CCostData& costs)>;

/// How it went. The figures are in the application's report: `Analysis()`, `Inputs`, `CostData()`.
struct EconomicsResult {
    bool done = false;      ///< there is an analysis
    bool cancelled = false; ///< the progress ended it
    bool hasCosts = false;  ///< CostData() holds installed costs of this job
    Units units = Units::english;
    std::vector<Finding> findings;

    /// Whether at least one thickness of every surface has an answer in money at every temperature.
    bool complete = false;
};

/// Reads the report fields of the current job, provides the installed costs and runs the analysis. An
/// estimate that fails leaves an analysis without installed costs and paybacks, and an error among the
/// findings.
[[nodiscard]] EconomicsResult RunEconomics(CApplication& application, const EconomicsRequest& request);

/// The same with @p work in place of the analysis alone; `done` and `cancelled` tell how that ended.
[[nodiscard]] EconomicsResult RunEconomicsWith(CApplication& application, const EconomicsRequest& request,
                                               const EconomicsWork& work);

} // namespace kaloria
