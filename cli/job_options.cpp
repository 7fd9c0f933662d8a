// SPDX-License-Identifier: GPL-3.0-or-later
#include "application/job_edit.h"
#include "application/units_switch.h"
#include "cli/commands.h"

#include <iostream>

namespace kaloria::cli {

namespace {

bool ApplySets(const std::vector<std::string>& sets, CApplication& application) {
    for (const std::string& set : sets) {
        const auto equals = set.find('=');
        if (equals == std::string::npos) {
            std::cerr << "kaloria-cli: --set " << set << ": write FIELD=VALUE\n";
            return false;
        }
        const auto problem = SetJobField(application.CurrentJob(), application.Records(),
                                         set.substr(0, equals), set.substr(equals + 1));
        if (problem) {
            std::cerr << "kaloria-cli: --set " << set << ": " << *problem << '\n';
            return false;
        }
    }
    return true;
}

} // namespace

bool OpenJob(const JobOptions& options, Workplace& workplace) {
    CApplication& application = workplace.application;
    application.JobPath = options.job.empty() ? application.DefaultJobPath() : options.job;
    if (!workplace.hasCatalogue || !application.OpenJob() || !ApplySets(options.sets, application)) {
        return false;
    }
    if (!options.units.empty()) {
        UnitsChange(application.CurrentJob(), application.Records(),
                    options.units == "si" ? Units::si : Units::english, SwitchPrecision::full);
    }
    return true;
}

} // namespace kaloria::cli
