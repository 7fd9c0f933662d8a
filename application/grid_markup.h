// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "application/calculation_result.h"
#include "reports/rtf_markup.h"

namespace kaloria {

/// The results grid as a table with its two heading lines. A grid with many columns goes on below, under
/// headings of its own, with the row labels again. The design row is marked.
/// @param hasHeading  false: the rows alone
[[nodiscard]] rtf::Markup GridTable(const ResultsGrid& grid, bool hasHeading = true);

} // namespace kaloria
