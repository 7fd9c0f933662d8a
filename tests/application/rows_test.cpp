// SPDX-License-Identifier: GPL-3.0-or-later
// The driver's rows and the thickness look-ups against the reference model's cases.
#include "application/insulation_thickness.h"
#include "application/solved_rows.h"
#include "reports/fuel_cost.h"
#include "tests/support/case_files.h"

#include <gtest/gtest.h>

namespace kaloria {
namespace {

using nlohmann::json;
using testing::CasesOf;
using testing::Near;

Collection<CInsulationThickness> TableFrom(const json& size) {
    Collection<CInsulationThickness> table;
    for (const json& row : size.value("InsulationThicknesses", json::array())) {
        table.push_back({row.at("NominalThickness").get<float>(), row.at("ActualThickness").get<float>(),
                         row.at("OD").get<float>(), row.at("InsulationType").get<std::int32_t>()});
    }
    return table;
}

std::optional<CPipe> PipeFrom(const json& inputs) {
    if (inputs.at("Pipe").is_null()) {
        return std::nullopt;
    }
    CPipe pipe;
    pipe.InsulationThicknesses = TableFrom(inputs.at("Pipe"));
    pipe.ActualPipeSizeInches = inputs.at("Pipe").value("ActualPipeSizeInches", 0.0F);
    pipe.WallThicknessInches = inputs.at("Pipe").value("WallThicknessInches", 0.0F);
    return pipe;
}

std::optional<CTube> TubeFrom(const json& inputs) {
    if (inputs.at("Tube").is_null()) {
        return std::nullopt;
    }
    CTube tube;
    tube.InsulationThicknesses = TableFrom(inputs.at("Tube"));
    tube.ActualTubeSizeInches = inputs.at("Tube").value("ActualTubeSizeInches", 0.0F);
    tube.WallThicknessInches = inputs.at("Tube").value("WallThicknessInches", 0.0F);
    return tube;
}

TEST(InsulationThickness, AgreesWithTheReferenceModel) {
    const auto cases = CasesOf("thickness-cases.jsonl");
    ASSERT_EQ(cases.size(), 10U);
    for (const json& c : cases) {
        SCOPED_TRACE(c.dump());
        const json& in = c.at("inputs");
        const auto pipe = PipeFrom(in);
        const auto tube = TubeFrom(in);
        const auto* pipeOrNull = pipe ? &*pipe : nullptr;
        const auto* tubeOrNull = tube ? &*tube : nullptr;
        const auto code = in.at("GeometryCode").get<std::int32_t>();
        const auto nominal = in.at("NominalThickness").get<float>();
        const bool si = in.at("SI").get<bool>();
        const json& expected = c.at("expected");
        EXPECT_TRUE(Near(GetInsulationThickness(code, nominal, in.at("InsulationName").get<std::string>(),
                                                pipeOrNull, tubeOrNull, si),
                         expected.at("Thickness").get<double>(), 1e-6));
        const double diameter =
            expected.at("OD").is_null() ? -1.0 : expected.at("OD").get<double>(); // no row
        EXPECT_TRUE(Near(GetInsulationOD(code, nominal, pipeOrNull, tubeOrNull, si), diameter, 1e-6));
    }
}

/// Records of one rows case.
struct RowsCase {
    CSurfaceGeometry geometry;
    CBaseMetal metal;
    CJacketMaterial jacket;
    CFuel fuel;
    CaseInputs inputs;
    FuelMeasure measure = FuelMeasure::other;

    explicit RowsCase(const json& in) {
        geometry.ID = in.at("GeometryCode");
        metal.ID = in.at("BaseMetal").at("ID");
        metal.Emittance = in.at("BaseMetal").at("Emittance");
        jacket.Emittance = in.at("JacketMaterial").at("Emittance");
        for (const json& pollutant : in.at("Pollutants")) {
            fuel.Pollutants.push_back({0, "", pollutant.at("Amount").get<float>(), pollutant.at("Name")});
        }
        measure = static_cast<FuelMeasure>(in.at("CostUnitsCode").get<int>());
        inputs.calculationType = in.at("CalculationType");
        inputs.geometry = &geometry;
        inputs.baseMetal = &metal;
        inputs.jacket = &jacket;
        inputs.pipe = PipeFrom(in);
        inputs.tube = TubeFrom(in);
        inputs.processTemp = in.at("ProcessTemp");
        inputs.ambientTemp = in.at("AmbientTemp");
        inputs.windSpeed = in.at("WindSpeed");
        inputs.ductWidth = in.at("DuctWidth");
        inputs.ductDepth = in.at("DuctDepth");
        inputs.maxSurfaceTemp = Optional(in, "MaxSurfaceTemp");
        inputs.heatFlowLimit = Optional(in, "HeatFlowLimit");
        inputs.hoursPerYear = in.at("HoursPerYear");
        inputs.fuel = FuelInput{&fuel,
                                in.at("HeatContent").get<float>(),
                                in.at("FuelCost").get<float>(),
                                in.at("ConversionEfficiency").get<float>(),
                                {},
                                {},
                                {}};
        for (const json& thickness : in.at("NominalThicknesses")) {
            inputs.nominalThicknesses.push_back(thickness.get<float>());
        }
        for (const json& layer : in.at("Layers")) {
            AddLayer(layer);
        }
    }

    static float Optional(const json& in, const char* name) {
        return in.at(name).is_null() ? 0.0F : in.at(name).get<float>();
    }

    void AddLayer(const json& in) {
        LayerInput layer;
        layer.material.Name = in.at("Name");
        layer.material.A = in.value("A", 0.0F);
        layer.material.B = in.value("B", 0.0F);
        layer.material.C = in.value("C", 0.0F);
        for (const json& point : in.value("TemperaturePoints", json::array())) {
            layer.material.TemperaturePoints.push_back(
                {point.at("Temperature").get<float>(), point.at("Conductivity").get<float>()});
        }
        layer.varies = !in.contains("Thickness");
        layer.nominal = in.value("Thickness", 0.0F);
        layer.position = inputs.layers.size() + 1;
        inputs.layers.push_back(layer);
    }
};

void ExpectRow(const SolvedRow& row, const RowMoney& money, const SolvedRow& bare, double bareCost,
               const json& expected) {
    SCOPED_TRACE(expected.dump());
    ASSERT_TRUE(row.IsSolved()) << row.fault;
    EXPECT_EQ(row.bare, expected.at("NominalThickness").is_null());
    EXPECT_TRUE(Near(row.unitHeatFlow, expected.at("UnitHeatFlow").get<double>(), 2e-4, 0.001));
    // Of a horizontal duct the cases hold the face solved last, the bottom.
    const float surface = row.faceSurfaceTemps.empty() ? row.surfaceTemp : row.faceSurfaceTemps.back();
    EXPECT_TRUE(Near(surface, expected.at("SurfaceTemp").get<double>(), 2e-4, 0.01));
    EXPECT_TRUE(Near(money.cost, expected.at("Cost").get<double>(), 5e-4));
    ASSERT_EQ(money.emissions.size(), expected.at("Emissions").size());
    for (std::size_t i = 0; i < money.emissions.size(); ++i) {
        EXPECT_TRUE(Near(money.emissions[i], expected.at("Emissions")[i].get<double>(), 5e-4));
    }
    if (!row.bare) {
        EXPECT_NEAR(money.savings, expected.at("Savings").get<double>(), 5e-4 * bareCost);
        EXPECT_NEAR(EfficiencyOf(row, bare).value_or(-1e9), expected.at("Efficiency").get<double>(), 0.05);
        EXPECT_TRUE(Near(row.insulationOD, expected.at("InsulationOD").get<double>(), 1e-6));
        EXPECT_TRUE(
            Near(row.layers.front().thickness, expected.at("InstalledThickness").get<double>(), 1e-6));
    }
}

TEST(SolvedRows, AgreeWithTheReferenceModel) {
    const auto cases = CasesOf("rows-cases.jsonl");
    ASSERT_EQ(cases.size(), 10U);
    for (const json& c : cases) {
        SCOPED_TRACE(c.at("id").get<std::string>());
        const json& in = c.at("inputs");
        const json& expected = c.at("expected");
        RowsCase rowsCase(in);
        const CaseInputs& inputs = rowsCase.inputs;
        CHeatLossCalculator calculator;
        const auto rows = SolveRows(inputs, calculator);
        ASSERT_EQ(rows.size(), expected.at("Rows").size());
        const float unitCost = UnitFuelCost(rowsCase.measure, inputs.fuel->cost, inputs.fuel->heatContent);
        EXPECT_TRUE(Near(unitCost, expected.at("UnitFuelCost").get<double>(), 1e-6));
        const RowMoney bare = MoneyOf(rows[0], inputs, unitCost, nullptr);
        for (std::size_t i = 0; i < rows.size(); ++i) {
            const RowMoney money = MoneyOf(rows[i], inputs, unitCost, i > 0 ? &bare : nullptr);
            ExpectRow(rows[i], money, rows[0], bare.cost, expected.at("Rows")[i]);
        }
        const std::optional<float> dewPoint = in.at("DewPointTemp").is_null()
                                                  ? std::nullopt
                                                  : std::optional(in.at("DewPointTemp").get<float>());
        const SolvedRow* design = DesignRow(rows, inputs, dewPoint);
        ASSERT_EQ(design == nullptr, expected.at("DesignThickness").is_null());
        if (design != nullptr) {
            EXPECT_FLOAT_EQ(*design->nominal, expected.at("DesignThickness").get<float>());
        }
    }
}

} // namespace
} // namespace kaloria
