// SPDX-License-Identifier: GPL-3.0-or-later
#include "application/raw_case.h"
#include "tests/fuzz/fuzz_check.h"

#include <nlohmann/json.hpp>

#include <cmath>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace kaloria;
    try {
        const nlohmann::json answer = SolveCaseLine(fuzz::Text(data, size));
        const nlohmann::json& result = answer.at("result");
        fuzz::Check(result.at("Fault").get<bool>() || std::isfinite(result.at("UnitHeatFlow").get<double>()),
                    "an answer is a number");
    } catch (const RawCaseError&) {
        return 0;
    }
    return 0;
}
