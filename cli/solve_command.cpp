// SPDX-License-Identifier: GPL-3.0-or-later
#include "application/raw_case.h"
#include "cli/commands.h"

#include <nlohmann/json.hpp>

#include <iostream>

namespace kaloria::cli {

int RunSolve() {
    std::ios::sync_with_stdio(false);
    int exitCode = exitDone;
    std::size_t number = 0;
    for (std::string line; std::getline(std::cin, line);) {
        ++number;
        if (line.find_first_not_of(" \t\r") == std::string::npos) {
            continue;
        }
        try {
            std::cout << SolveCaseLine(line).dump(-1, ' ', false, nlohmann::json::error_handler_t::replace)
                      << '\n';
        } catch (const RawCaseError& error) {
            std::cerr << "kaloria-cli: line " << number << ": " << error.what() << '\n';
            exitCode = exitMisused;
        }
    }
    std::cout.flush();
    return exitCode;
}

} // namespace kaloria::cli
