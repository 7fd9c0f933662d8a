// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/cost_data.h"

#include <fmt/format.h>

#include <cstddef>
#include <stdexcept>

namespace kaloria {

namespace {

std::size_t Checked(const char* what, int index, int count) {
    if (index < 0 || index >= count) {
        throw std::out_of_range(
            fmt::format("cost data: {} position {} is outside 0 to {}", what, index, count - 1));
    }
    return static_cast<std::size_t>(index);
}

} // namespace

CThicknessCost& CCostData::GetCostData(int size, int thickness) {
    auto& cell = Cell(size, thickness);
    return cell ? *cell : cell.emplace();
}

const CThicknessCost* CCostData::FindCostData(int size, int thickness) const {
    const auto& cell =
        cells_[Checked("size", size, sizeCount)][Checked("thickness", thickness, thicknessCount)];
    return cell ? &*cell : nullptr;
}

void CCostData::SetCostData(int size, int thickness, const CThicknessCost& record) {
    Cell(size, thickness) = record;
}

void CCostData::ClearCostData() { cells_ = {}; }

std::optional<CThicknessCost>& CCostData::Cell(int size, int thickness) {
    return cells_[Checked("size", size, sizeCount)][Checked("thickness", thickness, thicknessCount)];
}

} // namespace kaloria
