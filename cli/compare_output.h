// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "application/comparison_table.h"
#include "cli/commands.h"

#include <nlohmann/json_fwd.hpp>

#include <iosfwd>
#include <vector>

namespace kaloria::cli {

/// As a table or as CSV.
void PrintComparison(const ComparisonTable& table, Format format, std::ostream& out);

/// `cases` (name, calculation, why there is no answer, findings), `inputs` and `results`, each row with its
/// values by case: numbers, texts, or null where a case has nothing to say.
[[nodiscard]] nlohmann::json ToJson(const std::vector<ComparedCase>& cases, const ComparisonTable& table);

} // namespace kaloria::cli
