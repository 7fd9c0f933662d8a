// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "application/calculation_result.h"

#include <nlohmann/json_fwd.hpp>

#include <iosfwd>

namespace kaloria::cli {

/// Panel, grid, design thickness and findings as text.
void PrintReport(const CalculationResult& result, std::ostream& out);

/// The grid alone, numbers as they are shown.
void PrintGridCsv(const CalculationResult& result, std::ostream& out);

/// The whole result with numbers unrounded: `done`, `calculationType`, `units`, `columns` (name, unit),
/// `rows` (label, thickness, values by column, isDesign, fault), `designThickness`, `panel`, `condensation`,
/// `findings`.
[[nodiscard]] nlohmann::json ToJson(const CalculationResult& result);

} // namespace kaloria::cli
