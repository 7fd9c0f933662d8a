// SPDX-License-Identifier: GPL-3.0-or-later
// Economic analyses as reports ask for them, on the reference data that ships.
#include "application/economics.h"
#include "application/report_items.h"
#include "benchmarks/default_job.h"

namespace kaloria {
namespace {

void Analyses(benchmark::State& state, bool engineering, bool everything) {
    DefaultJob job(state);
    if (!job.IsOpen()) {
        return;
    }
    EconomicsRequest request;
    request.choice.engineering = engineering;
    if (everything) {
        request.choice.items = AllItems();
    }
    for (auto _ : state) {
        const EconomicsResult result = RunEconomics(job.application, request);
        if (!result.complete) {
            state.SkipWithError("the analysis is not complete");
            return;
        }
    }
    double solutions = 0;
    for (const SurfaceResult& surface : job.application.Report().Analysis()->surfaces) {
        for (const TemperatureResult& step : surface.temperatures) {
            for (const ThicknessResult& row : step.rows) {
                solutions += row.IsSolved() ? 1 : 0;
            }
        }
    }
    state.counters["solutions"] = solutions;
}

BENCHMARK_CAPTURE(Analyses, one_pipe_engineering, true, false)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Analyses, all_items_tables, false, true)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace kaloria
