// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/calculation_output.h"
#include "cli/commands.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <iostream>

namespace kaloria::cli {

namespace {

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
    if (!OpenJob(options, workplace)) {
        return exitMisused;
    }
    const CalculationResult result = workplace.application.Calculate();
    Complain(result, options.format);
    if (result.done || options.format == Format::json) {
        Print(result, options.format);
    }
    const bool failed = std::any_of(result.findings.begin(), result.findings.end(),
                                    [](const Finding& f) { return f.severity == Severity::error; });
    return failed || !result.HasAnswer() ? exitNotComputed : exitDone;
}

} // namespace kaloria::cli
