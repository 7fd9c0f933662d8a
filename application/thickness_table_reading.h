// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "application/case_inputs.h"
#include "application/thickness_table.h"

#include <array>
#include <optional>
#include <vector>

namespace kaloria {

/// A thickness table's inputs, checked.
struct ThicknessTableInputs {
    std::array<TableColumn, ThicknessTable::temperatures> columns;
    std::vector<CaseInputs> sizes; ///< the case of each size, one layer varying; without process temperature
    std::optional<MoistureInput> moisture; ///< when a column is cold

    [[nodiscard]] bool HasHotColumn() const;
    [[nodiscard]] bool HasColdColumn() const;
};

/// What reading a job's inputs gave: the table's, or the errors that stand in its way, with what else was
/// noticed.
struct ThicknessTableReading {
    std::optional<ThicknessTableInputs> inputs;
    std::vector<Finding> findings;
};

/// Checks and converts every input that the table uses; others may hold anything.
[[nodiscard]] ThicknessTableReading ReadThicknessTable(const Job& job, Catalogue& catalogue);

} // namespace kaloria
