// SPDX-License-Identifier: GPL-3.0-or-later
// Whole reports with the templates that ship, from the job to the finished rich text.
#include "application/report_items.h"
#include "application/report_run.h"
#include "benchmarks/default_job.h"

#include <sys/resource.h>

namespace kaloria {
namespace {

void Reports(benchmark::State& state, ReportKind kind, bool engineering) {
    DefaultJob job(state);
    if (!job.IsOpen()) {
        return;
    }
    ReportRequest request;
    request.kind = kind;
    request.economics.choice.engineering = engineering;
    request.economics.choice.items = AllItems();
    double bytes = 0;
    for (auto _ : state) {
        const ReportResult result = RunReport(job.application, request);
        if (result.rtf.empty()) {
            state.SkipWithError("there is no report");
            return;
        }
        bytes = static_cast<double>(result.rtf.size());
    }
    rusage usage{};
    ::getrusage(RUSAGE_SELF, &usage);
    constexpr double kilobytesPerMegabyte = 1024.0;
    state.counters["bytes"] = bytes;
    state.counters["peak_MB"] = static_cast<double>(usage.ru_maxrss) / kilobytesPerMegabyte;
}

BENCHMARK_CAPTURE(Reports, all_items_tables, ReportKind::economic, false)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Reports, all_items_environmental_tables, ReportKind::environmental, false)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Reports, all_items_environmental_engineering, ReportKind::environmental, true)
    ->Unit(benchmark::kMillisecond);

} // namespace
} // namespace kaloria
