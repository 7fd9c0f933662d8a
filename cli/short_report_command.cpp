// SPDX-License-Identifier: GPL-3.0-or-later
#include "application/short_report.h"
#include "cli/commands.h"
#include "cli/findings_output.h"

namespace kaloria::cli {

int RunShortReport(const ShortReportOptions& options, Workplace& workplace) {
    if (!OpenJob(options, workplace)) {
        return exitMisused;
    }
    const CalculationResult result = workplace.application.Calculate();
    Complain(result.findings);
    if (!result.done) {
        return exitNotComputed;
    }
    if (!ExportShortReport(workplace.application, result, options.file)) {
        return exitMisused;
    }
    return HasErrors(result.findings) || !result.HasAnswer() ? exitNotComputed : exitDone;
}

} // namespace kaloria::cli
