// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "application/finding.h"
#include "data/catalogue.h"
#include "data/job.h"
#include "reports/report_inputs.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace kaloria {

/// Where installed costs come from.
enum class CostSource : std::uint8_t {
    estimate, ///< the ratio file
    previous, ///< the last run
    supplied, ///< a file of the user's
};

/// What is asked for beside the job.
struct ReportChoice {
    std::optional<std::vector<int>>
        items;                       ///< positions; else all or the job's own surface, by ReportAllSurfaces
    std::optional<bool> engineering; ///< else by EngineeringReport
    std::optional<CostSource> costSource; ///< else by FEA, PreviousCostData and UserSuppliedCostData
    bool mayBeEmpty = false;              ///< items may name no position
};

/// What reading the report fields gave: the inputs, or the errors that stand in their way, with what else was
/// noticed.
struct ReportReading {
    std::optional<ReportInputs> inputs;
    CostSource costSource = CostSource::estimate;
    std::vector<Finding> findings;
};

/// Checks and converts every report field that this analysis uses; others may hold anything. Pipes and
/// geometries of the inputs stay in @p catalogue.
[[nodiscard]] ReportReading ReadReport(const Job& job, const Catalogue& catalogue,
                                       const ReportChoice& choice);

} // namespace kaloria
