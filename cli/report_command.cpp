// SPDX-License-Identifier: GPL-3.0-or-later
#include "application/report_file.h"
#include "application/report_run.h"
#include "cli/commands.h"
#include "cli/findings_output.h"

namespace kaloria::cli {

int RunReport(const ReportOptions& options, Workplace& workplace) {
    const auto economics = RequestOf(options);
    if (!economics || !OpenJob(options, workplace)) {
        return exitMisused;
    }
    ReportRequest request;
    request.economics = *economics;
    request.kind = options.kind == "environmental" ? ReportKind::environmental : ReportKind::economic;
    const ReportResult result = kaloria::RunReport(workplace.application, request);
    Complain(result.economics.findings);
    if (result.rtf.empty()) {
        return result.hasTemplates ? exitNotComputed : exitMisused;
    }
    if (!SaveReport(workplace.application, options.file, result.rtf)) {
        return exitMisused;
    }
    return HasErrors(result.economics.findings) || !result.economics.complete ? exitNotComputed : exitDone;
}

} // namespace kaloria::cli
