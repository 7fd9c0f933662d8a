// SPDX-License-Identifier: GPL-3.0-or-later
#include "application/validation.h"
#include "cli/commands.h"
#include "cli/text_table.h"
#include "data/number_format.h"

#include <fmt/format.h>
#include <nlohmann/json.hpp>

#include <iostream>

namespace kaloria::cli {

namespace {

using nlohmann::json;

std::string Figure(double value) { return fmt::format("{:.6g}", value); }

TextTable TableOf(const std::vector<ValidationCase>& cases, const std::vector<ValidationResult>& results) {
    TextTable table;
    table.columns = {{{"Case"}},
                     {{"Computed"}},
                     {{"Unit"}},
                     {{"Published"}, true},
                     {{"Ours"}, true},
                     {{"Difference"}, true},
                     {{"Tolerance"}, true},
                     {{"Met"}},
                     {{"Source"}}};
    for (std::size_t i = 0; i < cases.size(); ++i) {
        const ValidationCase& c = cases[i];
        const ValidationResult& r = results[i];
        table.rows.push_back({c.id, c.subject + ", " + c.quantity, c.unit, Figure(c.published),
                              r.fault.empty() ? Figure(r.ours) : "-",
                              r.fault.empty() ? Figure(r.difference) : r.fault, Figure(r.allowed),
                              r.met ? "yes" : "NO", c.source});
    }
    return table;
}

json JsonOf(const std::vector<ValidationCase>& cases, const std::vector<ValidationResult>& results) {
    json list = json::array();
    for (std::size_t i = 0; i < cases.size(); ++i) {
        list.push_back(
            {{"id", cases[i].id},
             {"subject", cases[i].subject},
             {"quantity", cases[i].quantity},
             {"unit", cases[i].unit},
             {"published", cases[i].published},
             {"ours", results[i].fault.empty() ? json(results[i].ours) : json(nullptr)},
             {"difference", results[i].fault.empty() ? json(results[i].difference) : json(nullptr)},
             {"allowed", results[i].allowed},
             {"met", results[i].met},
             {"source", cases[i].source}});
    }
    return list;
}

} // namespace

int RunValidate(const ValidateOptions& options, const std::filesystem::path& programFolder) {
    std::vector<ValidationCase> cases;
    try {
        cases = LoadValidationCases(options.cases.empty() ? programFolder / "validation_cases.json"
                                                          : options.cases);
    } catch (const ValidationFileError& error) {
        std::cerr << "kaloria-cli: " << error.what() << '\n';
        return exitMisused;
    }
    std::vector<ValidationResult> results;
    std::size_t met = 0;
    for (const ValidationCase& c : cases) {
        results.push_back(RunValidation(c));
        met += results.back().met ? 1U : 0U;
    }
    switch (options.format) {
    case Format::json:
        std::cout << JsonOf(cases, results).dump(2) << '\n';
        break;
    case Format::csv:
        TableOf(cases, results).PrintCsv(std::cout);
        break;
    case Format::table:
        TableOf(cases, results).Print(std::cout);
        std::cout << fmt::format("\n{} of {} published cases are met within their tolerance.\n", met,
                                 cases.size());
        break;
    }
    return met == cases.size() && met > 0 ? exitDone : exitNotComputed;
}

} // namespace kaloria::cli
