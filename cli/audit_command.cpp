// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands.h"
#include "cli/findings_output.h"

namespace kaloria::cli {

int RunAudit(const AuditOptions& options, Workplace& workplace) {
    if (!OpenJob(options, workplace)) {
        return exitMisused;
    }
    CApplication& application = workplace.application;
    const CalculationResult result = application.Calculate();
    Complain(result.findings);
    if (!result.HasAnswer()) {
        return exitNotComputed;
    }
    application.AuditPath = options.file;
    if (!application.AppendAudit(result)) {
        return exitMisused;
    }
    return HasErrors(result.findings) ? exitNotComputed : exitDone;
}

} // namespace kaloria::cli
