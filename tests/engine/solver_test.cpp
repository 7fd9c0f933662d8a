// SPDX-License-Identifier: GPL-3.0-or-later
// What must hold for every solution, and what must never be taken for one.
#include "engine/film_coefficient.h"
#include "engine/heat_loss_calculator.h"
#include "engine/surface_geometry.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

namespace kaloria {
namespace {

CInsulation Polynomial(float thickness, float a, float b = 0, float c = 0) {
    CInsulation layer;
    layer.Name = "Wool";
    layer.Thickness = thickness;
    layer.A = a;
    layer.B = b;
    layer.C = c;
    return layer;
}

/// A case whose records live beside its calculator.
struct Bench {
    CSurfaceGeometry geometry;
    CBaseMetal metal;
    CJacketMaterial jacket;
    CPipe pipe;
    CHeatLossCalculator calculator;

    explicit Bench(int code) {
        geometry.ID = code;
        metal.ID = 1;
        metal.Emittance = 0.8F;
        jacket.Emittance = 0.3F;
        pipe.ActualPipeSizeInches = 6.625F;
        pipe.WallThicknessInches = 0.28F;
        calculator.ProcessTemp = 350;
        calculator.AmbientTemp = 75;
        calculator.WindSpeed = 5;
        calculator.DuctWidth = 24;
        calculator.DuctDepth = 12;
        calculator.SurfaceGeometry = &geometry;
        calculator.BaseMetal = &metal;
        calculator.JacketMaterial = &jacket;
        calculator.Pipe = &pipe;
        calculator.InsulationLayers = {Polynomial(1.5F, 0.3F)};
    }
};

/// Film coefficient of a solution's surface, computed anew.
double FilmAt(const Bench& bench, const CHeatLossCalculator::Solution& solution) {
    const auto& c = bench.calculator;
    const float emittance = c.InsulationLayers.empty() ? bench.metal.Emittance : bench.jacket.Emittance;
    const float speed = c.WindSpeed * 5280.0F;
    const float surface = solution.SurfaceTemp();
    const float diameter = 2.0F * c.OuterRadius() / 12.0F;
    switch (solution.GeometryCode) {
    case 1:
    case 3:
        return film::HorizontalCylinder(surface, c.AmbientTemp, diameter, speed, emittance);
    case 2:
    case 4:
        return film::VerticalCylinder(surface, c.AmbientTemp, 10, speed, emittance, diameter);
    case 6:
        return film::FlatSurface(surface, c.AmbientTemp, 0, 10, 1, speed, emittance);
    case 7:
        return film::FlatSurface(surface, c.AmbientTemp, 0, 10, 2, speed, emittance);
    default:
        return film::FlatSurface(surface, c.AmbientTemp, 90, 10, 1, speed, emittance);
    }
}

/// Heat that leaves the surface is heat that came through the wall and every layer.
TEST(Solver, BalancesHeatAcrossEveryElement) {
    std::mt19937 random(20261121); // fixed: a failure must come back
    const auto uniform = [&](double low, double high) {
        return static_cast<float>(std::uniform_real_distribution<>(low, high)(random));
    };
    int balanced = 0;
    for (int i = 0; i < 400; ++i) {
        Bench bench(i % 11 + 1);
        auto& c = bench.calculator;
        c.ProcessTemp = uniform(-250, 1200);
        c.AmbientTemp = uniform(-20, 110);
        c.WindSpeed = i % 3 == 0 ? 0.0F : uniform(0, 30);
        bench.metal.ID = i % 5 + 1;
        bench.jacket.Emittance = uniform(0.05, 0.95);
        c.InsulationLayers.clear();
        for (int layer = i % 4; layer > 0; --layer) {
            c.InsulationLayers.push_back(
                Polynomial(uniform(0.5, 4), uniform(0.15, 0.5), uniform(0, 4e-4), 1e-7F));
        }
        c.Solve();
        const auto settlement = c.Settle();
        SCOPED_TRACE(i);
        EXPECT_GE(settlement.Passes, 1);
        for (const auto& solution : c.Solutions()) {
            if (solution.StoppedBySafeguard) {
                continue;
            }
            const double leaving = FilmAt(bench, solution) * (solution.SurfaceTemp() - c.AmbientTemp);
            // The last thousandth of a degree, seen through a coefficient of up to some tens.
            EXPECT_NEAR(leaving, solution.Flux, 1e-4 * std::abs(solution.Flux) + 0.02);
            const bool loss = c.ProcessTemp > c.AmbientTemp;
            for (std::size_t t = 1; t < solution.Temps.size(); ++t) {
                EXPECT_TRUE(loss ? solution.Temps[t] <= solution.Temps[t - 1]
                                 : solution.Temps[t] >= solution.Temps[t - 1]);
            }
            ++balanced;
        }
        EXPECT_EQ(c.ProcessTemp > c.AmbientTemp, c.UnitHeatFlow() > 0.0F);
    }
    EXPECT_GT(balanced, 390);
}

TEST(Solver, TellsEachFaultAndLeavesNothingBehind) {
    struct Row {
        const char* why;
        void (*spoil)(Bench&);
    };
    const Row rows[] = {
        {"conductivity zero", [](Bench& b) { b.calculator.InsulationLayers[0].A = 0; }},
        {"conductivity negative at the solution",
         [](Bench& b) { b.calculator.InsulationLayers[0] = Polynomial(1, 0.5F, -0.01F); }},
        {"points that determine no curve",
         [](Bench& b) {
             b.calculator.InsulationLayers[0].TemperaturePoints = {{100, 0.3F}, {200, 0.4F}};
         }},
        {"process temperature not a number",
         [](Bench& b) { b.calculator.ProcessTemp = std::numeric_limits<float>::quiet_NaN(); }},
        {"wind not a number",
         [](Bench& b) { b.calculator.WindSpeed = std::numeric_limits<float>::quiet_NaN(); }},
        {"ambient below absolute zero", [](Bench& b) { b.calculator.AmbientTemp = -600; }},
        {"overflow", [](Bench& b) { b.calculator.ProcessTemp = 3e38F; }},
        {"pipe of no diameter", [](Bench& b) { b.pipe.ActualPipeSizeInches = 0; }},
        {"wall thicker than the pipe", [](Bench& b) { b.pipe.WallThicknessInches = 4; }},
        {"negative thickness", [](Bench& b) { b.calculator.InsulationLayers[0].Thickness = -1; }},
        {"no size", [](Bench& b) { b.calculator.Pipe = nullptr; }},
        {"no metal", [](Bench& b) { b.calculator.BaseMetal = nullptr; }},
        {"no jacket over insulation", [](Bench& b) { b.calculator.JacketMaterial = nullptr; }},
        {"geometry code 12", [](Bench& b) { b.geometry.ID = 12; }},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.why);
        Bench bench(geometry::horizontalPipe);
        bench.calculator.Solve(); // a good answer stands when the bad case comes
        const float flow = bench.calculator.UnitHeatFlow();
        const float metalTemp = bench.metal.OutsideTemp;
        EXPECT_TRUE(std::isfinite(flow));
        bench.calculator.InsulationLayers[0].OutsideTemp = 111;
        row.spoil(bench);
        EXPECT_THROW(bench.calculator.Solve(), NumericFault);
        EXPECT_FALSE(bench.calculator.Converged());
        EXPECT_TRUE(std::isnan(bench.calculator.UnitHeatFlow()));
        EXPECT_TRUE(std::isnan(bench.calculator.SurfaceTemp()));
        EXPECT_TRUE(bench.calculator.Solutions().empty());
        EXPECT_EQ(bench.metal.OutsideTemp, metalTemp);
        EXPECT_TRUE(bench.calculator.InsulationLayers[0].OutsideTemp == 111 ||
                    bench.calculator.InsulationLayers[0].OutsideTemp == 0);
        EXPECT_THROW(bench.calculator.Settle(), NumericFault);
    }
}

TEST(Solver, AFaultInOneFaceOfADuctLeavesTheLayersAlone) {
    Bench bench(geometry::horizontalDuct);
    bench.calculator.InsulationLayers[0] = Polynomial(1, 0.5F, -0.01F);
    bench.calculator.InsulationLayers[0].OutsideTemp = 111;
    EXPECT_THROW(bench.calculator.Solve(), NumericFault);
    EXPECT_EQ(bench.calculator.InsulationLayers[0].OutsideTemp, 111);
}

TEST(Solver, SettlingMovesAnInnerInterfaceThatWasStillOnItsWay) {
    // Two thick layers whose conductivities change steeply: the surface comes to rest before the interface
    // does.
    Bench bench(geometry::verticalFlat);
    bench.calculator.ProcessTemp = 1200;
    bench.calculator.WindSpeed = 30;
    bench.calculator.InsulationLayers = {Polynomial(6, 0.1F, 0, 6e-6F), Polynomial(4, 0.2F, 2e-4F)};
    bench.calculator.Solve();
    const float before = bench.calculator.Solutions()[0].Temps[2];
    const auto settlement = bench.calculator.Settle();
    const float after = bench.calculator.Solutions()[0].Temps[2];
    EXPECT_GE(settlement.TempChange, std::abs(after - before));
    EXPECT_EQ(bench.calculator.InsulationLayers[0].OutsideTemp, after);
    const auto again = bench.calculator.Settle();
    EXPECT_LT(again.TempChange, 0.001F);
    EXPECT_LT(again.FlowChange, 2e-6);
}

TEST(Solver, FlowsAreOfTheirBasis) {
    Bench bench(geometry::horizontalPipe);
    auto& c = bench.calculator;
    c.Solve();
    const float perFoot = c.UnitHeatFlow();
    EXPECT_NEAR(perFoot, c.FlowPerFoot(), 1e-3);
    c.InsulationOD = 2 * c.OuterRadius(); // the same diameter, given
    c.Solve();
    EXPECT_NEAR(c.UnitHeatFlow(), perFoot, 1e-3);
    c.CalculationType = 3;
    c.Solve();
    const double circumference = std::acos(-1.0) * c.InsulationOD / 12.0; // [ft]
    EXPECT_NEAR(c.UnitHeatFlow() * circumference, perFoot, 1e-4 * perFoot);

    Bench duct(geometry::verticalDuct);
    Bench flat(geometry::verticalFlat);
    duct.calculator.Solve();
    flat.calculator.Solve();
    EXPECT_NEAR(duct.calculator.UnitHeatFlow(), 6.0 * flat.calculator.UnitHeatFlow(),
                1e-3); // 2 x 2 ft + 2 x 1 ft
    EXPECT_EQ(duct.geometry.ID, geometry::verticalDuct);
}

} // namespace
} // namespace kaloria
