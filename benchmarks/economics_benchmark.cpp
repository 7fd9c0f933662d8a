// SPDX-License-Identifier: GPL-3.0-or-later
// Economic analyses as reports ask for them, on the reference data that ships.
#include "application/economics.h"
#include "application/report_items.h"

#include <benchmark/benchmark.h>

namespace kaloria {
namespace {

void Analyses(benchmark::State& state, bool engineering, bool everything) {
    MessageList messages;
    CApplication application(KALORIA_RESOURCES_DIR, messages);
    application.JobPath = application.DefaultJobPath();
    if (!application.LoadConfigurationFile() || !application.OpenJob()) {
        state.SkipWithError("the reference data cannot be read");
        return;
    }
    EconomicsRequest request;
    request.choice.engineering = engineering;
    if (everything) {
        request.choice.items = AllItems();
    }
    for (auto _ : state) {
        const EconomicsResult result = RunEconomics(application, request);
        if (!result.complete) {
            state.SkipWithError("the analysis is not complete");
            return;
        }
    }
    double solutions = 0;
    for (const SurfaceResult& surface : application.Report().Analysis()->surfaces) {
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
