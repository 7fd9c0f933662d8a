// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "data/file_problem.h"
#include "reports/cost_data.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Installed costs that the user supplies: a text file beside the job, 30 lines of 18 numbers between commas.
/// The first line holds the thicknesses [in], each of the other 29 the costs of one size position [$/ft of
/// pipe,
/// $/ft2 of flat surface]; 0 means that the size is not made in this thickness. Thicknesses rise; positions
/// that are not in use come last and have the thickness 0.
namespace kaloria {

/// The cost file of a job: its path with ".costs.csv" in place of the extension.
[[nodiscard]] std::filesystem::path CustomCostsPath(const std::filesystem::path& job);

/// Replaces the contents of @p costs by those of the file. Returns the first thing that is not as it should
/// be; @p costs are then as they were.
[[nodiscard]] std::optional<FileProblem> LoadCustomCosts(const std::filesystem::path& path, CCostData& costs);
[[nodiscard]] std::optional<FileProblem> LoadCustomCostsText(std::string_view text, CCostData& costs);

/// Replaces the file by the grid, whose thicknesses are taken from size position 1; an empty cell costs 0.
/// @throws FileError; the old file is then as it was
void SaveCustomCosts(const std::filesystem::path& path, const CCostData& costs);
[[nodiscard]] std::string CustomCostsText(const CCostData& costs);

/// Everything wrong in a cost file, in the order of its lines. A file without any loads.
[[nodiscard]] std::vector<FileProblem> CheckCustomCosts(const std::filesystem::path& path);
[[nodiscard]] std::vector<FileProblem> CheckCustomCostsText(std::string_view text);

} // namespace kaloria
