// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "application/covering_table.h"
#include "application/thickness_table.h"

#include <nlohmann/json_fwd.hpp>

#include <iosfwd>

namespace kaloria::cli {

/// Panel, table and findings as text.
void PrintThicknessTable(const ThicknessTable& table, std::ostream& out);

/// The table alone, as it is shown.
void PrintThicknessTableCsv(const ThicknessTable& table, std::ostream& out);

/// `done`, `units`, `temperatures`, `rows` (size, thicknesses; null where there is none), `maxSurfaceTemp`,
/// `dewPoint`, `panel`, `findings`.
[[nodiscard]] nlohmann::json ToJson(const ThicknessTable& table);

/// One line per size and covering.
void PrintCoverings(const std::vector<SizeCoverings>& sizes, Units units, std::ostream& out);
void PrintCoveringsCsv(const std::vector<SizeCoverings>& sizes, Units units, std::ostream& out);

/// `units`, `sizes` (size, outsideDiameter, coverings with nominal, actual and outside).
[[nodiscard]] nlohmann::json ToJson(const std::vector<SizeCoverings>& sizes, Units units);

} // namespace kaloria::cli
