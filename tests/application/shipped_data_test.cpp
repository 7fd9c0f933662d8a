// SPDX-License-Identifier: GPL-3.0-or-later
// The files that ship: everything a calculation takes from them is there and sound.
#include "data/atomic_file.h"
#include "data/configuration_file.h"
#include "data/job_file.h"
#include "engine/numeric_fault.h"
#include "reports/fuel_cost.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <set>

namespace kaloria {
namespace {

const std::filesystem::path resources = KALORIA_RESOURCES_DIR;

class ShippedData : public ::testing::Test {
protected:
    void SetUp() override {
        const auto problem = LoadConfiguration(resources / "CorvaneConfig.xml", catalogue);
        ASSERT_FALSE(problem) << problem->line << ": " << problem->text;
    }

    template <class Records>
    static void ExpectUniqueIds(const Records& records, std::size_t atLeast) {
        std::set<std::int32_t> ids;
        for (const auto& record : records) {
            EXPECT_TRUE(ids.insert(record.ID).second) << record.ID;
        }
        EXPECT_GE(ids.size(), atLeast);
    }

    /// Rows of a size in both series: known nominal thickness, and diameter = size + two walls.
    void ExpectSoundTable(const Collection<CInsulationThickness>& table, double inches) const {
        EXPECT_FALSE(table.empty());
        for (const CInsulationThickness& row : table) {
            SCOPED_TRACE(row.NominalThickness);
            ASSERT_TRUE(row.InsulationType == 1 || row.InsulationType == 2);
            const bool metric = row.InsulationType == 2;
            const auto isIt = [&](const CNominalThickness& n) {
                return (metric ? n.USMetric : n.US) == row.NominalThickness;
            };
            EXPECT_TRUE(
                std::any_of(catalogue.NominalThicknesses.begin(), catalogue.NominalThicknesses.end(), isIt));
            const double scale = metric ? 25.4 : 1.0;
            EXPECT_NEAR(row.OD / scale, inches + 2.0 * row.ActualThickness / scale, 0.02);
        }
    }

    Catalogue catalogue;
};

TEST_F(ShippedData, RecordsHaveUniqueIdsAndResolvableReferences) {
    ExpectUniqueIds(catalogue.SurfaceGeometries, 11);
    ExpectUniqueIds(catalogue.ReportingUnits, 5);
    ExpectUniqueIds(catalogue.Insulations, 30);
    ExpectUniqueIds(catalogue.BaseMetals, 3);
    ExpectUniqueIds(catalogue.JacketMaterials, 10);
    ExpectUniqueIds(catalogue.Fuels, 8);
    ExpectUniqueIds(catalogue.Tubes, 10);
    ExpectUniqueIds(catalogue.Pipes, 26);
    EXPECT_EQ(catalogue.Pipes.size(), 26U); // the installed-cost grid counts on it
    EXPECT_EQ(catalogue.NominalThicknesses.size(), 18U);
    for (std::int32_t code = 1; code <= 11; ++code) {
        EXPECT_NE(FindById(catalogue.SurfaceGeometries, code), nullptr);
    }
    for (const CReportingUnit& unit : catalogue.ReportingUnits) {
        EXPECT_NE(FindById(catalogue.BaseMetals, unit.DefaultBaseMetalID), nullptr) << unit.Name;
    }
    for (const auto* surface : {"Vertical Flat", "Top of Vessel or Duct", "Bottom of Vessel or Duct"}) {
        EXPECT_NE(FindByName(catalogue.SurfaceGeometries, surface), nullptr) << surface;
    }
}

TEST_F(ShippedData, ThicknessTablesFitTheirSizes) {
    for (const CPipe& pipe : catalogue.Pipes) {
        SCOPED_TRACE(pipe.USNPS);
        EXPECT_GT(pipe.WallThicknessInches, 0);
        EXPECT_LT(pipe.WallThicknessInches, pipe.ActualPipeSizeInches / 2);
        // Metric diameters are rounded by their standard, to 1 mm at most and somewhat more on the largest
        // sizes.
        EXPECT_NEAR(pipe.ActualPipeSizemm, pipe.ActualPipeSizeInches * 25.4, 1.0);
        ExpectSoundTable(pipe.InsulationThicknesses, pipe.ActualPipeSizeInches);
    }
    for (const CTube& tube : catalogue.Tubes) {
        SCOPED_TRACE(tube.USNTS);
        EXPECT_LT(tube.WallThicknessInches, tube.ActualTubeSizeInches / 2);
        ExpectSoundTable(tube.InsulationThicknesses, tube.ActualTubeSizeInches);
    }
}

TEST_F(ShippedData, ConductivitiesArePositiveOverTheServiceRange) {
    for (const CInsulation& record : catalogue.Insulations) {
        SCOPED_TRACE(record.Name);
        EXPECT_EQ(record.CreatedBy, "System");
        EXPECT_TRUE(record.Active);
        EXPECT_LT(record.MinTemp, record.MaxTemp);
        CInsulation material = record.Copy();
        if (!material.TemperaturePoints.empty()) {
            material.CalculateQuadratic();
        }
        for (int step = 0; step <= 100; ++step) {
            const double temp = material.MinTemp + double{material.MaxTemp - material.MinTemp} * step / 100.0;
            const double k = material.ConductivityAt(temp);
            EXPECT_TRUE(std::isfinite(k) && k > 0.05 && k < 10.0) << k << " at " << temp;
        }
    }
    for (const CJacketMaterial& jacket : catalogue.JacketMaterials) {
        EXPECT_TRUE(jacket.Emittance > 0 && jacket.Emittance <= 1) << jacket.Name;
    }
}

TEST_F(ShippedData, BothRoadsToTheCostOfHeatAgree) {
    for (const CFuel& fuel : catalogue.Fuels) {
        SCOPED_TRACE(fuel.Name);
        const double byFactor = double{fuel.Cost} * fuel.UnitCostFactor / fuel.BTU;
        EXPECT_NEAR(UnitFuelCost(MeasureOf(fuel.CostUnits), fuel.Cost, fuel.BTU) / byFactor, 1.0, 1e-6);
        // The switch to SI changes neither the money per unit of heat nor, there and back, a figure.
        const FuelMeasure measure = MeasureOf(fuel.CostUnits);
        EXPECT_NEAR(FuelCostToEnglish(measure, FuelCostToSI(measure, fuel.Cost)), fuel.Cost,
                    1e-6 * fuel.Cost);
        EXPECT_NEAR(HeatContentToEnglish(measure, HeatContentToSI(measure, fuel.BTU)), fuel.BTU,
                    1e-6 * fuel.BTU);
        const double thousand = measure == FuelMeasure::gasVolume ? 1000.0 : 1.0;
        const double perJoule =
            FuelCostToSI(measure, fuel.Cost) / thousand / HeatContentToSI(measure, fuel.BTU);
        EXPECT_NEAR(perJoule * 1055.87 / byFactor, 1.0, 1e-6);
    }
}

TEST_F(ShippedData, DefaultJobResolvesAndTheRatioFileIsComplete) {
    EXPECT_TRUE(CheckConfiguration(resources / "CorvaneConfig.xml").empty());
    EXPECT_TRUE(CheckJob(resources / "Default.kal", catalogue).empty());
    Job job;
    ASSERT_EQ(LoadJob(resources / "Default.kal", catalogue, job).kind, JobLoad::Kind::done);
    EXPECT_NE(FindById(catalogue.BaseMetals, job.baseMetal.id), nullptr);
    EXPECT_NE(FindById(catalogue.JacketMaterials, job.jacket.id), nullptr);
    ASSERT_EQ(job.layers.size(), 1U);
    EXPECT_NE(FindById(catalogue.Insulations, job.layers[0].material.id), nullptr);
    EXPECT_NE(FindByName(catalogue.Fuels, job[Field::Fuel]), nullptr);
    // The defaults of the field table and the default job are one and the same case.
    const Job fresh;
    for (const JobField& field : JobFields()) {
        if (field.kind != FieldKind::material && field.kind != FieldKind::text) {
            EXPECT_EQ(job[field.id], fresh[field.id]) << field.element;
        }
    }
    const std::string ratios = ReadFile(resources / "FEAratio.dta", 1 << 20);
    EXPECT_EQ(std::count(ratios.begin(), ratios.end(), '\n'), 140);
}

} // namespace
} // namespace kaloria
