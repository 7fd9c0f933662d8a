// SPDX-License-Identifier: GPL-3.0-or-later
// What a person waits for: a full table of sizes and thicknesses, the reference data at start-up, one
// calculation.
#include "application/solved_rows.h"
#include "application/thickness_table.h"
#include "benchmarks/default_job.h"
#include "data/configuration_file.h"

namespace kaloria {
namespace {

const std::filesystem::path resources = KALORIA_RESOURCES_DIR;

void LoadReferenceData(benchmark::State& state) {
    for (auto _ : state) {
        Catalogue catalogue;
        if (LoadConfiguration(resources / "CorvaneConfig.xml", catalogue)) {
            state.SkipWithError("the configuration file does not load");
        }
        benchmark::DoNotOptimize(catalogue.Pipes.size());
    }
}
BENCHMARK(LoadReferenceData)->Unit(benchmark::kMillisecond);

/// 26 pipe sizes by 18 thicknesses, each row solved and settled; bare rows included.
void TableOfSizesAndThicknesses(benchmark::State& state) {
    DefaultJob job(state);
    CApplication& application = job.application;
    CaseReading reading = ReadCase(application.CurrentJob(), application.Records());
    CaseInputs inputs = *reading.inputs;
    inputs.onlyListed = false;
    CHeatLossCalculator calculator;
    std::size_t rows = 0;
    for (auto _ : state) {
        rows = 0;
        for (const CPipe& pipe : application.Pipes()) {
            inputs.pipe->ActualPipeSizeInches = pipe.ActualPipeSizeInches;
            inputs.pipe->WallThicknessInches = pipe.WallThicknessInches;
            rows += SolveRows(inputs, calculator).size();
        }
        benchmark::DoNotOptimize(rows);
    }
    state.counters["rows"] = static_cast<double>(rows);
}
BENCHMARK(TableOfSizesAndThicknesses)->Unit(benchmark::kMillisecond);

void CalculateDefaultJob(benchmark::State& state) {
    DefaultJob job(state);
    for (auto _ : state) {
        benchmark::DoNotOptimize(job.application.Calculate().grid.rows.size());
    }
}
BENCHMARK(CalculateDefaultJob)->Unit(benchmark::kMillisecond);

/// 26 pipe sizes by six temperatures, each cell searched from the thinnest covering on.
void ThicknessTableOfAllSizes(benchmark::State& state) {
    MessageList messages;
    CApplication application(resources, messages);
    application.LoadConfigurationFile();
    std::size_t sizes = 0;
    for (auto _ : state) {
        sizes = MakeThicknessTable(application.CurrentJob(), application.Records()).rows.size();
        benchmark::DoNotOptimize(sizes);
    }
    state.counters["sizes"] = static_cast<double>(sizes);
}
BENCHMARK(ThicknessTableOfAllSizes)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace kaloria
