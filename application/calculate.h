// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "application/calculation_result.h"
#include "application/case_inputs.h"
#include "reports/report.h"

namespace kaloria {

/// Runs a checked case: bare row, insulated rows, design thickness, money, report panel, warnings. The
/// figures of the fuel are stored in its record; the calculator is left with the last solved case and refers
/// to @p inputs.
[[nodiscard]] CalculationResult Calculate(const CaseInputs& inputs, CHeatLossCalculator& calculator,
                                          CReport& report);

/// What should be known about solved rows: faults, layers outside their service range, solutions that did not
/// settle.
[[nodiscard]] std::vector<Finding> CheckRows(const CaseInputs& inputs, const std::vector<SolvedRow>& rows);

} // namespace kaloria
