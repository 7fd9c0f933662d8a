// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "application/calculation_result.h"
#include "application/case_inputs.h"

namespace kaloria {

/// The report panel's labels for a case, with the numbers as they are shown.
[[nodiscard]] std::vector<PanelLine> BuildPanel(const CaseInputs& inputs,
                                                const std::optional<CondensationResult>& condensation,
                                                const DesignThickness& design);

/// Caption of the panel for a calculation type.
[[nodiscard]] std::string PanelTitle(int calculationType);

/// "Personnel Protection Thickness:" and its like; empty for types without a design goal.
[[nodiscard]] std::string DesignLabel(int calculationType);

} // namespace kaloria
