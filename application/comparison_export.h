// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "application/comparison_table.h"

#include <filesystem>

/// The comparison for other programs: inputs that differ, results, and the differences from the first case.
namespace kaloria {

/// As a grid of two headings (name, calculation) with the unit as its second column, for the clipboard
/// (GridAsTabText) and as CSV.
[[nodiscard]] ResultsGrid ComparisonGrid(const ComparisonTable& table);

/// Writes it to a file of the kind that the suffix tells: .csv, or else a workbook with its numbers in full
/// precision.
/// @throws FileError; the old file is then as it was
void WriteComparison(const std::filesystem::path& path, const ComparisonTable& table);

} // namespace kaloria
