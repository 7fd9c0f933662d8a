// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "application/calculation_result.h"
#include "application/case_inputs.h"

#include <optional>
#include <span>

namespace kaloria {

/// The grid of a solved case: per-layer layout for types 0 to 3, 5 and 6, economic layout for type 4.
/// @param money  one per row, in English units; nothing where it could not be reckoned
[[nodiscard]] ResultsGrid BuildGrid(const CaseInputs& inputs, std::span<const SolvedRow> rows,
                                    std::span<const std::optional<RowMoney>> money, const SolvedRow* design);

/// The grid as it stands before the first calculation: headings without rows.
[[nodiscard]] ResultsGrid EmptyGrid();

/// Text of a nominal thickness, "1.5".
[[nodiscard]] std::string ThicknessText(double thickness);

} // namespace kaloria
