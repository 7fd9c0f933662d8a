// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "application/calculation_result.h"
#include "application/case_inputs.h"

#include <string>

namespace kaloria {

/// A calculated case as one line of the audit file, in UTF-8 and without a line end: 22 fields with one tab
/// between them, in this order.
///
///  1 item description   7 conversion efficiency [%]  13 wind speed [mph]       18 heading of grid column 2
///  2 fuel               8 hours per year             14 pipe size [in]         19 its cells
///  3 base metal         9 heating value              15 total thickness [in]   20 heading of grid column 1
///  4 insulation layers 10 fuel price                 16 "Thickness"            21 its cells
///  5 jacket            11 process temp [degF]        17 row labels             22 emissions
///  6 surface geometry  12 ambient temp [degF]
///
/// Fields 17 to 21 stand as the results grid shows them, in its units; the other numbers are English, with
/// seven digits. The fuel's fields (2, 7, 9, 10, 22) are empty when the case has no usable fuel.
/// Items of a list are separated by a comma. The total thickness counts the layers below the varying one.
/// Emissions: for each row, of each pollutant " NAME=AMOUNT" [lb a year, per foot or square foot as the
/// row's heat flow]. What could not be computed is "-".
///
/// @param result  of @p inputs, done
[[nodiscard]] std::string AuditLine(const CalculationResult& result, const CaseInputs& inputs);

} // namespace kaloria
