// SPDX-License-Identifier: GPL-3.0-or-later
#include "application/comparison_export.h"
#include "cli/commands.h"
#include "cli/compare_output.h"
#include "data/atomic_file.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <iostream>

namespace kaloria::cli {

namespace {

/// Keeps every job under the name of its file, in the units of the first one where none are asked for.
bool KeepAll(const CompareOptions& options, Workplace& workplace, Comparison& comparison) {
    JobOptions job;
    job.sets = options.sets;
    job.units = options.units;
    for (const std::filesystem::path& file : options.jobs) {
        job.job = file;
        if (!OpenJob(job, workplace)) {
            return false;
        }
        const Job& opened = workplace.application.CurrentJob();
        if (job.units.empty()) {
            job.units = opened.UnitsInForce() == Units::si ? "si" : "english";
        }
        KeptCase kept{file.stem().string(), opened, {}, {}};
        if (options.thickness) {
            kept.chosen = ChosenThickness{*options.thickness, opened.UnitsInForce()};
        }
        const std::string refusal = comparison.Add(std::move(kept));
        if (!refusal.empty()) {
            std::cerr << "kaloria-cli: " << refusal << '\n';
            return false;
        }
    }
    return true;
}

void Complain(const std::vector<ComparedCase>& cases) {
    for (const ComparedCase& compared : cases) {
        for (const Finding& finding : compared.result.findings) {
            if (finding.severity != Severity::information) {
                std::cerr << "kaloria-cli: " << compared.name << ": " << finding.text << '\n';
            }
        }
    }
}

void Print(const std::vector<ComparedCase>& cases, const ComparisonTable& table, Format format) {
    if (format == Format::json) {
        std::cout << ToJson(cases, table).dump(2, ' ', false, nlohmann::json::error_handler_t::replace)
                  << '\n';
    } else {
        PrintComparison(table, format, std::cout);
    }
}

} // namespace

int RunCompare(const CompareOptions& options, Workplace& workplace) {
    Comparison comparison;
    if (!KeepAll(options, workplace, comparison)) {
        return exitMisused;
    }
    const auto cases = SolveCases(comparison.Cases(), workplace.application.Records());
    const ComparisonTable table = MakeComparisonTable(cases, workplace.application.Records());
    Complain(cases);
    if (options.file.empty()) {
        Print(cases, table, options.format);
    } else {
        try {
            WriteComparison(options.file, table);
        } catch (const FileError& error) {
            std::cerr << "kaloria-cli: " << error.what() << '\n';
            return exitMisused;
        }
    }
    const bool all = std::all_of(cases.begin(), cases.end(), [](const ComparedCase& compared) {
        return compared.HasFigures() && !HasErrors(compared.result.findings);
    });
    return all ? exitDone : exitNotComputed;
}

} // namespace kaloria::cli
