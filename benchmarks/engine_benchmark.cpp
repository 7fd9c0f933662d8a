// SPDX-License-Identifier: GPL-3.0-or-later
// Solves per second of the cases that people run by the thousand.
#include "engine/heat_loss_calculator.h"

#include <benchmark/benchmark.h>

namespace kaloria {
namespace {

/// A 6 inch steel pipe at 350 degF in light wind, or the same surface as a duct.
struct SteamLine {
    CSurfaceGeometry geometry;
    CBaseMetal metal;
    CJacketMaterial jacket;
    CPipe pipe;
    CHeatLossCalculator calculator;

    SteamLine(int code, int layers, float windSpeed) {
        geometry.ID = code;
        metal.ID = 1;
        metal.Emittance = 0.8F;
        jacket.Emittance = 0.1F;
        pipe.ActualPipeSizeInches = 6.625F;
        pipe.WallThicknessInches = 0.28F;
        calculator.ProcessTemp = 350;
        calculator.AmbientTemp = 75;
        calculator.WindSpeed = windSpeed;
        calculator.DuctWidth = 24;
        calculator.DuctDepth = 12;
        calculator.SurfaceGeometry = &geometry;
        calculator.BaseMetal = &metal;
        calculator.JacketMaterial = &jacket;
        calculator.Pipe = &pipe;
        for (int i = 0; i < layers; ++i) {
            CInsulation layer;
            layer.Name = "Mineral wool";
            layer.Thickness = 1.5F;
            layer.A = 0.2F;
            layer.B = 0.0003F;
            layer.C = 3e-7F;
            calculator.InsulationLayers.push_back(layer);
        }
    }
};

void Solves(benchmark::State& state, int code, int layers, float windSpeed) {
    SteamLine line(code, layers, windSpeed);
    for (auto _ : state) {
        line.calculator.Solve();
        benchmark::DoNotOptimize(line.calculator.UnitHeatFlow());
    }
    state.counters["solves/s"] =
        benchmark::Counter(static_cast<double>(state.iterations()), benchmark::Counter::kIsRate);
    state.counters["passes"] = line.calculator.Solutions()[0].Passes;
}

BENCHMARK_CAPTURE(Solves, bare_pipe_wind, 1, 0, 5.0F);
BENCHMARK_CAPTURE(Solves, one_layer_pipe_wind, 1, 1, 5.0F);
BENCHMARK_CAPTURE(Solves, one_layer_pipe_still_air, 1, 1, 0.0F);
BENCHMARK_CAPTURE(Solves, three_layer_pipe_wind, 1, 3, 5.0F);
BENCHMARK_CAPTURE(Solves, one_layer_duct_wind, 8, 1, 5.0F);
BENCHMARK_CAPTURE(Solves, one_layer_flat_wind, 5, 1, 5.0F);

} // namespace
} // namespace kaloria
