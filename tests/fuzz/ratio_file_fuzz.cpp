// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/numeric_fault.h"
#include "reports/installed_cost.h"
#include "tests/fuzz/fuzz_check.h"

#include <cmath>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace kaloria;
    const std::string text = fuzz::Text(data, size);
    const RatioLoad load = LoadRatioText(text);
    fuzz::Check(load.ratios.has_value() == load.problem.text.empty(), "ratios or a problem");
    fuzz::Check(load.ratios || load.problem.line > 0, "a problem has a line");
    fuzz::Check(load.ratios || !CheckRatioText(text).empty(), "what does not load does not pass the check");
    if (!load.ratios) {
        return 0;
    }
    CCostData costs;
    try {
        FillInstalledCosts(*load.ratios, *WithDefaults({0, 0, 0, 0, 0, 0, 3}), costs);
    } catch (const NumericFault&) {
        return 0;
    }
    for (int position = 1; position <= CCostData::lastSizePosition; ++position) {
        for (int thickness = 1; thickness <= CCostData::lastThicknessPosition; ++thickness) {
            fuzz::Check(std::isfinite(costs.GetCostData(position, thickness).InstalledCost),
                        "no cost is infinite");
        }
    }
    return 0;
}
