// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands.h"
#include "data/atomic_file.h"
#include "data/configuration_file.h"
#include "data/job_file.h"
#include "reports/custom_costs.h"
#include "reports/ratio_file.h"

#include <iostream>

namespace kaloria::cli {

namespace {

constexpr std::size_t largestFile = 64U << 20U;

/// A job by its name, or by its root element where the name does not say.
bool IsJob(const std::filesystem::path& file) {
    if (file.extension() == ".kal") {
        return true;
    }
    return file.extension() != ".xml" && ReadFile(file, largestFile).find("<Job") != std::string::npos;
}

/// Every problem of the file, by what kind of file it is.
std::vector<FileProblem> ProblemsOf(const std::filesystem::path& file,
                                    const std::filesystem::path& programFolder) {
    if (file.extension() == ".dta") {
        return CheckRatioFile(file);
    }
    if (file.extension() == ".csv") {
        return CheckCustomCosts(file);
    }
    if (IsJob(file)) {
        Workplace workplace(programFolder);
        return CheckJob(file, workplace.application.Records());
    }
    return CheckConfiguration(file);
}

} // namespace

int RunCheck(const CheckOptions& options, const std::filesystem::path& programFolder) {
    std::vector<FileProblem> problems;
    try {
        (void)ReadFile(options.file, largestFile); // a file that cannot be read is no finding but an error
        problems = ProblemsOf(options.file, programFolder);
    } catch (const FileError& error) {
        std::cerr << "kaloria-cli: " << error.what() << '\n';
        return exitMisused;
    }
    for (const FileProblem& problem : problems) {
        std::cout << options.file.string() << ':';
        if (problem.line > 0) {
            std::cout << problem.line << ':';
        }
        std::cout << ' ' << problem.text << '\n';
    }
    if (problems.empty()) {
        std::cout << options.file.string() << ": nothing wrong\n";
    }
    return problems.empty() ? exitDone : exitMisused;
}

} // namespace kaloria::cli
