// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "reports/cost_data.h"
#include "reports/ratio_file.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

/// Installed cost of insulation by surface size and thickness, from a base price of the material and an
/// hourly rate of labor, scaled by the ratios of the ratio file:
///
///   cost = price x material ratio + labor factor x productivity / 100 x labor rate x 0.012 x labor ratio
namespace kaloria {

/// What the estimate starts from. Exactly 0 stands for "take the default"; a negative value counts as
/// entered.
struct InstalledCostInputs {
    float PipePrice = 0;            ///< 2 in insulation on a 2 in pipe, including jacket [$/ft]
    float BoardPrice = 0;           ///< 2 in board or block, including jacket [$/ft2]
    float LaborRate = 0;            ///< [$/h]; default 38.35
    float RegionalProductivity = 0; ///< hours needed, in percent of the average; default 100
    float PipeLaborFactor = 0;      ///< multiplies the labor ratios of pipes
    float FlatLaborFactor = 0;      ///< multiplies those of flat surfaces

    std::int32_t InsulationType = 0; ///< code of the first insulation layer; defaults are known for 1 to 4
    bool HotService = true;          ///< of cellular glass (4): false where joints are sealed against vapour
    float ComplexityFactor = 1;      ///< multiplies labor factors that are taken from the defaults

    bool operator==(const InstalledCostInputs&) const = default;
};

/// Why there is no estimate.
struct InstalledCostFault {
    enum class Kind : std::uint8_t {
        missingFile,   ///< neither spelling of the ratio file is in the folder
        otherMaterial, ///< a default is needed and the insulation type has none
        brokenFile,    ///< the ratio file cannot be read
        overflow,      ///< a cost is no number
    };
    Kind kind;
    std::string message; ///< to be shown: a fixed text where there is one
    std::string detail;  ///< for the log: with path, line and field
};

/// Labour factor of an installation complexity by its name in complexityNames (data/job_fields.h); nothing
/// for another text. Judgement, not measurement: many fittings and cramped access against long straight runs.
[[nodiscard]] std::optional<float> ComplexityFactorOf(std::string_view name);

/// The inputs with every 0 replaced by its default. One labor factor of 0 replaces both, and so with the
/// prices: the two belong to one material. Nothing when a default is needed for an insulation type that has
/// none.
[[nodiscard]] std::optional<InstalledCostInputs> WithDefaults(InstalledCostInputs inputs);

/// Replaces the contents of @p costs by an estimate from complete inputs: thickness and cost of the positions
/// 1 to 29 by 1 to 18. A thickness without a material ratio, a size on pipe that comes to less than 0.50 and
/// an insulation type that the ratios do not have cost 0. The three flat surfaces cost the same.
/// @throws NumericFault on overflow; @p costs are then as they were
void FillInstalledCosts(const CostRatios& ratios, const InstalledCostInputs& inputs, CCostData& costs);

/// The whole procedure with the ratio file of the program folder. When it returns a fault, @p costs are as
/// they were.
[[nodiscard]] std::optional<InstalledCostFault>
EstimateInstalledCosts(const std::filesystem::path& programFolder, const InstalledCostInputs& inputs,
                       RatioFileCache& cache, CCostData& costs);

} // namespace kaloria
