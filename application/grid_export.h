// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "application/calculation_result.h"
#include "data/catalogue.h"
#include "data/job.h"

#include <filesystem>
#include <string>

/// The results grid for other programs. Texts that a spreadsheet would take for a formula are never one.
namespace kaloria {

/// Tab-separated lines with the numbers as they are shown, for the clipboard: two heading lines, then the
/// rows.
[[nodiscard]] std::string GridAsTabText(const ResultsGrid& grid);

/// As CSV (RFC 4180; UTF-8 with a byte order mark, which spreadsheets need to see the degree sign), numbers
/// with a point and as they are shown.
[[nodiscard]] std::string GridAsCsv(const ResultsGrid& grid);

/// @throws FileError; the old file is then as it was
void WriteGridCsv(const std::filesystem::path& path, const ResultsGrid& grid);

/// A workbook: the grid with its numbers in full precision and shown as in the window, its two heading rows
/// frozen, the design row marked; on a second sheet the case with the inputs that it uses and the findings.
/// @param job  whose calculation @p result is
/// @throws FileError; the old file is then as it was
void WriteGridXlsx(const std::filesystem::path& path, const CalculationResult& result, const Job& job,
                   const Catalogue& catalogue);

} // namespace kaloria
