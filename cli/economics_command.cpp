// SPDX-License-Identifier: GPL-3.0-or-later
#include "application/economics.h"
#include "application/report_items.h"
#include "cli/commands.h"
#include "cli/economics_output.h"
#include "data/atomic_file.h"
#include "reports/custom_costs.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <iostream>

namespace kaloria::cli {

namespace {

void Print(const EconomicsResult& result, const CReport& report, Format format) {
    if (format == Format::json) {
        std::cout << ToJson(result, report).dump(2, ' ', false, nlohmann::json::error_handler_t::replace)
                  << '\n';
    } else if (!result.done) {
        return;
    } else if (format == Format::csv) {
        PrintEconomicsCsv(result, report, std::cout);
    } else {
        PrintEconomics(result, report, std::cout);
    }
}

/// Findings that the printed form leaves out go to standard error.
void Complain(const EconomicsResult& result, Format format) {
    if (format == Format::table && result.done) {
        return;
    }
    for (const Finding& finding : result.findings) {
        if (finding.severity != Severity::information) {
            std::cerr << "kaloria-cli: " << finding.text << '\n';
        }
    }
}

bool ExportCosts(const std::filesystem::path& path, const EconomicsResult& result, const CReport& report) {
    if (path.empty()) {
        return true;
    }
    if (!result.hasCosts) {
        std::cerr << "kaloria-cli: --export-costs: there are no installed costs\n";
        return false;
    }
    try {
        SaveCustomCosts(path, report.CostData());
    } catch (const FileError& error) {
        std::cerr << "kaloria-cli: " << error.what() << '\n';
        return false;
    }
    return true;
}

} // namespace

std::optional<EconomicsRequest> RequestOf(const AnalysisOptions& options) {
    EconomicsRequest request;
    if (options.items) {
        ItemSelection selection = ParseItems(*options.items);
        if (!selection.problem.empty()) {
            std::cerr << "kaloria-cli: --items: " << selection.problem << '\n';
            return std::nullopt;
        }
        request.choice.items = std::move(selection.positions);
    }
    if (!options.layout.empty()) {
        request.choice.engineering = options.layout == "engineering";
    }
    if (!options.importCosts.empty()) {
        const auto problems = CheckCustomCosts(options.importCosts);
        for (const FileProblem& problem : problems) {
            std::cerr << "kaloria-cli: ";
            if (problem.line > 0) {
                std::cerr << options.importCosts.string() << ':' << problem.line << ": ";
            }
            std::cerr << problem.text << '\n';
        }
        if (!problems.empty()) {
            return std::nullopt;
        }
        request.costFile = options.importCosts;
    }
    return request;
}

int RunEconomics(const EconomicsOptions& options, Workplace& workplace) {
    const auto request = RequestOf(options);
    if (!request || !OpenJob(options, workplace)) {
        return exitMisused;
    }
    const EconomicsResult result = kaloria::RunEconomics(workplace.application, *request);
    const CReport& report = workplace.application.Report();
    Complain(result, options.format);
    Print(result, report, options.format);
    if (!ExportCosts(options.exportCosts, result, report)) {
        return exitMisused;
    }
    const bool failed = std::any_of(result.findings.begin(), result.findings.end(),
                                    [](const Finding& f) { return f.severity == Severity::error; });
    return failed || !result.complete ? exitNotComputed : exitDone;
}

} // namespace kaloria::cli
