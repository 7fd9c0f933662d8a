// SPDX-License-Identifier: GPL-3.0-or-later
#include "application/job_edit.h"
#include "application/units_switch.h"
#include "cli/calculation_output.h"
#include "cli/commands.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <iostream>

namespace kaloria::cli {

namespace {

bool ApplySets(const CalculateOptions& options, CApplication& application) {
    for (const std::string& set : options.sets) {
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

void Print(const CalculationResult& result, Format format) {
    switch (format) {
    case Format::json:
        std::cout << ToJson(result).dump(2, ' ', false, nlohmann::json::error_handler_t::replace) << '\n';
        break;
    case Format::csv:
        PrintGridCsv(result, std::cout);
        break;
    case Format::table:
        PrintReport(result, std::cout);
        break;
    }
}

/// Findings that the printed form leaves out go to standard error.
void Complain(const CalculationResult& result, Format format) {
    if (format == Format::table && result.done) {
        return;
    }
    for (const Finding& finding : result.findings) {
        if (finding.severity != Severity::information) {
            std::cerr << "kaloria-cli: " << finding.text << '\n';
        }
    }
}

} // namespace

int RunCalculate(const CalculateOptions& options, Workplace& workplace) {
    CApplication& application = workplace.application;
    application.JobPath = options.job.empty() ? application.DefaultJobPath() : options.job;
    if (!workplace.hasCatalogue || !application.OpenJob() || !ApplySets(options, application)) {
        return exitMisused;
    }
    if (!options.units.empty()) {
        UnitsChange(application.CurrentJob(), application.Records(),
                    options.units == "si" ? Units::si : Units::english, SwitchPrecision::full);
    }
    const CalculationResult result = application.Calculate();
    Complain(result, options.format);
    if (result.done || options.format == Format::json) {
        Print(result, options.format);
    }
    const bool failed = std::any_of(result.findings.begin(), result.findings.end(),
                                    [](const Finding& f) { return f.severity == Severity::error; });
    return failed || !result.HasAnswer() ? exitNotComputed : exitDone;
}

} // namespace kaloria::cli
