// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/result_table.h"

namespace kaloria {

void ResultTable::SubtractNeighbours() {
    for (int column = 0; column < columnCount; ++column) {
        std::optional<float> above;
        for (int row = 0; row < rowCount; ++row) {
            auto& cell = At(row, column);
            const std::optional<float> own = cell;
            if (own) {
                cell = above ? std::optional(*own - *above) : std::nullopt;
                above = own;
            }
        }
    }
}

void ResultTable::Negate() {
    for (auto& cell : cells_) {
        if (cell) {
            cell = *cell * -1.0F;
        }
    }
}

} // namespace kaloria
