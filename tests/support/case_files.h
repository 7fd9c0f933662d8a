// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <nlohmann/json.hpp>

#include <fstream>
#include <string>
#include <vector>

namespace kaloria::testing {

/// The lines of a JSON Lines file of tests/data; fails loudly (empty result) when it is not there.
inline std::vector<nlohmann::json> CasesOf(const std::string& file) {
    std::ifstream stream(std::string(KALORIA_TEST_DATA_DIR) + "/" + file);
    std::vector<nlohmann::json> cases;
    for (std::string line; std::getline(stream, line);) {
        if (!line.empty()) {
            cases.push_back(nlohmann::json::parse(line));
        }
    }
    return cases;
}

/// Relative closeness with an absolute floor, whichever allows more.
inline bool Near(double value, double expected, double relative, double absolute = 0.0) {
    return std::abs(value - expected) <= std::max(relative * std::abs(expected), absolute);
}

} // namespace kaloria::testing
