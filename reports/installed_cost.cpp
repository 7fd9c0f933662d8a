// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/installed_cost.h"

#include "data/job_fields.h"
#include "engine/numeric_fault.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <iterator>
#include <limits>
#include <numeric>

namespace kaloria {

namespace {

using Kind = InstalledCostFault::Kind;

constexpr std::string_view missingFileText =
    "File FEAratio.dta cannot be found in the Kaloria program directory.  This program will terminate.";
constexpr std::string_view otherMaterialText =
    " The FEA procedure cannot supply estimated cost information for type OTHER insulation material";

constexpr float defaultLaborRate = 38.35F;
constexpr float defaultProductivity = 100.0F;
constexpr double hoursPerLaborRatio = 0.012;
constexpr float leastPipeCost = 0.5F; // less is a size that nobody makes

/// What is taken for the labor factors and prices of a material that are not given.
struct MaterialDefaults {
    double pipeLaborFactor;
    double flatLaborFactor;
    float pipePrice;
    float boardPrice;
};

std::optional<MaterialDefaults> DefaultsOf(std::int32_t insulationType, bool isHotService) {
    switch (insulationType) {
    case 1:
    case 2:
        return {{0.87, 0.93, 4.97F, 1.71F}};
    case 3:
        return {{1.0, 1.0, 4.88F, 1.90F}};
    case 4: // cold work takes longer: every joint is sealed against vapor
        return isHotService ? MaterialDefaults{1.15, 1.10, 4.63F, 1.92F}
                            : MaterialDefaults{1.35, 1.30, 4.63F, 1.92F};
    default:
        return std::nullopt;
    }
}

/// Money per unit of labor ratio [$].
float LaborMoney(float laborFactor, const InstalledCostInputs& inputs) {
    return Single(double{laborFactor} * inputs.RegionalProductivity / 100.0 * inputs.LaborRate *
                  hoursPerLaborRatio);
}

struct Rates {
    float price;      ///< of the material whose ratio is 1 [$]
    float laborMoney; ///< of the labor whose ratio is 1 [$]
    float leastCost;  ///< costs below count as 0 [$]
};

/// Costs by the thickness position, from 0.
using CostLine = std::array<float, CostRatios::headingCount>;

CostLine CostsOf(const CostRatios::Line& material, const CostRatios::Line& labor, const Rates& rates) {
    CostLine costs{};
    for (std::size_t i = 0; i < costs.size(); ++i) {
        if (material[i] != 0) {
            const float laborCost = Single(double{labor[i]} * rates.laborMoney);
            const float cost = Single(double{rates.price} * material[i] + laborCost);
            costs[i] = cost < rates.leastCost ? 0 : cost;
        }
    }
    return costs;
}

using CostLines = std::array<CostLine, CostRatios::sizeCount>;

CostLines CostsOf(const CostRatios& ratios, const InstalledCostInputs& inputs) {
    const FaultTrap trap;
    const float none = -std::numeric_limits<float>::infinity();
    const Rates pipe{inputs.PipePrice, LaborMoney(inputs.PipeLaborFactor, inputs), leastPipeCost};
    const Rates board{inputs.BoardPrice, LaborMoney(inputs.FlatLaborFactor, inputs), none};
    CostLines costs{};
    double sum = double{pipe.laborMoney} + board.laborMoney;
    if (const auto block = ratios.BlockOf(inputs.InsulationType)) {
        const CostRatios::Lines& material = ratios.materials[*block].ratios;
        for (std::size_t size = 0; size < costs.size(); ++size) {
            costs[size] =
                CostsOf(material[size], ratios.labor[size], size == CostRatios::flat ? board : pipe);
            sum = std::accumulate(costs[size].begin(), costs[size].end(), sum);
        }
    }
    trap.Check("installed cost", {sum});
    return costs;
}

std::string WherePlaced(const FileProblem& problem) {
    return problem.line > 0 ? fmt::format("line {}: {}", problem.line, problem.text) : problem.text;
}

} // namespace

std::optional<float> ComplexityFactorOf(std::string_view name) {
    constexpr float factors[] = {1.30F, 1.00F, 0.85F, 0.70F};
    static_assert(std::size(factors) == std::size(complexityNames));
    const auto* const found = std::find(std::begin(complexityNames), std::end(complexityNames), name);
    if (found == std::end(complexityNames)) {
        return std::nullopt;
    }
    return factors[found - std::begin(complexityNames)];
}

std::optional<InstalledCostInputs> WithDefaults(InstalledCostInputs inputs) {
    inputs.LaborRate = inputs.LaborRate == 0 ? defaultLaborRate : inputs.LaborRate;
    inputs.RegionalProductivity =
        inputs.RegionalProductivity == 0 ? defaultProductivity : inputs.RegionalProductivity;
    const bool lacksFactor = inputs.PipeLaborFactor == 0 || inputs.FlatLaborFactor == 0;
    const bool lacksPrice = inputs.PipePrice == 0 || inputs.BoardPrice == 0;
    const auto defaults = DefaultsOf(inputs.InsulationType, inputs.HotService);
    if ((lacksFactor || lacksPrice) && !defaults) {
        return std::nullopt;
    }
    if (lacksFactor) {
        inputs.PipeLaborFactor = Single(defaults->pipeLaborFactor * inputs.ComplexityFactor);
        inputs.FlatLaborFactor = Single(defaults->flatLaborFactor * inputs.ComplexityFactor);
    }
    if (lacksPrice) {
        inputs.PipePrice = defaults->pipePrice;
        inputs.BoardPrice = defaults->boardPrice;
    }
    return inputs;
}

void FillInstalledCosts(const CostRatios& ratios, const InstalledCostInputs& inputs, CCostData& costs) {
    const CostLines lines = CostsOf(ratios, inputs);
    costs.ClearCostData();
    for (int position = 1; position <= CCostData::lastSizePosition; ++position) {
        const auto size = std::min(static_cast<std::size_t>(position - 1), CostRatios::flat);
        for (int thickness = 1; thickness <= CCostData::lastThicknessPosition; ++thickness) {
            const auto i = static_cast<std::size_t>(thickness - 1);
            CThicknessCost cell;
            cell.Thickness = ratios.thicknesses[i];
            cell.InstalledCost = lines[size][i];
            costs.SetCostData(position, thickness, cell);
        }
    }
}

std::optional<InstalledCostFault> EstimateInstalledCosts(const std::filesystem::path& programFolder,
                                                         const InstalledCostInputs& inputs,
                                                         RatioFileCache& cache, CCostData& costs) {
    const auto path = FindRatioFile(programFolder);
    if (!path) {
        return {{Kind::missingFile, std::string(missingFileText),
                 fmt::format("no FEAratio.dta in {}", programFolder.string())}};
    }
    const auto complete = WithDefaults(inputs);
    if (!complete) {
        return {{Kind::otherMaterial, std::string(otherMaterialText),
                 fmt::format("installed cost: insulation type {} has no default labor factors and prices",
                             inputs.InsulationType)}};
    }
    const RatioLoad& load = cache.Load(*path);
    if (!load.ratios) {
        const std::string what = WherePlaced(load.problem);
        return {
            {Kind::brokenFile,
             fmt::format("The installed costs cannot be estimated: {}, {}", path->filename().string(), what),
             fmt::format("{}, {}", path->string(), what)}};
    }
    try {
        FillInstalledCosts(*load.ratios, *complete, costs);
    } catch (const NumericFault& fault) {
        return {{Kind::overflow, fmt::format("The installed costs cannot be estimated: {}.", fault.what()),
                 fault.what()}};
    }
    return std::nullopt;
}

} // namespace kaloria
