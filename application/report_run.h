// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "application/economics.h"

#include <filesystem>
#include <string>

namespace kaloria {

/// What report is made of the current job.
struct ReportRequest {
    EconomicsRequest economics; ///< its progress is not asked; items may name no position
    ReportKind kind = ReportKind::economic;
    std::optional<std::chrono::year_month_day> date; ///< printed on it; none: today
    ReportProgress progress;                         ///< may be empty
};

/// How it went.
struct ReportResult {
    EconomicsResult economics; ///< `done`: there is a report
    bool hasTemplates = true;  ///< false after a message about one of them
    std::string rtf;           ///< the report, empty when there is none
};

/// Analyses the current job and makes a report of it. A template that is missing or broken is shown in the
/// application's messages, by its name; everything else is among the findings.
[[nodiscard]] ReportResult RunReport(CApplication& application, const ReportRequest& request);

} // namespace kaloria
