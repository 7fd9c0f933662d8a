// SPDX-License-Identifier: GPL-3.0-or-later
#include "application/comparison_rows.h"

#include <algorithm>

namespace kaloria {

bool IsFlow(const ResultColumn& column) {
    return column.kind == ResultKind::hourlyHeatFlow || column.kind == ResultKind::annualHeatFlow;
}

std::string FlowNameOf(const ResultColumn& column) {
    return column.kind == ResultKind::annualHeatFlow ? "Heat flow in a year" : "Heat flow";
}

std::string UnitOf(const ResultColumn& column, Units units) {
    const std::string& unit = column.unit;
    const bool hasBrackets = unit.size() >= 2 && unit.front() == '(' && unit.back() == ')';
    const std::string bare = hasBrackets ? unit.substr(1, unit.size() - 2) : unit;
    const bool isYearlySI = column.kind == ResultKind::annualHeatFlow && units == Units::si;
    return isYearlySI && bare.substr(0, 2) == "W/" ? "Wh" + bare.substr(1) + "/yr" : bare;
}

const ResultColumn* SharedFlow(const std::vector<ComparedCase>& cases) {
    const ResultColumn* shared = nullptr;
    for (const ComparedCase& compared : cases) {
        const auto& columns = compared.result.grid.columns;
        const auto found = std::find_if(columns.begin(), columns.end(), IsFlow);
        if (!compared.HasFigures() || found == columns.end()) {
            continue;
        }
        if (shared != nullptr && (shared->kind != found->kind || shared->unit != found->unit)) {
            return nullptr;
        }
        shared = &*found;
    }
    return shared;
}

} // namespace kaloria
