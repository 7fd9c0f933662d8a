// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/custom_costs.h"
#include "tests/fuzz/fuzz_check.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace kaloria;
    const std::string text = fuzz::Text(data, size);
    CCostData costs;
    const auto problem = LoadCustomCostsText(text, costs);
    fuzz::Check(problem.has_value() == !CheckCustomCostsText(text).empty(), "what loads passes the check");
    if (problem) {
        fuzz::Check(problem->line > 0, "a problem has a line");
        return 0;
    }
    const std::string once = CustomCostsText(costs);
    CCostData reloaded;
    fuzz::Check(!LoadCustomCostsText(once, reloaded), "what was saved loads");
    fuzz::Check(CustomCostsText(reloaded) == once, "saving twice gives the same bytes");
    return 0;
}
