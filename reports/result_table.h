// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <optional>
#include <stdexcept>

namespace kaloria {

/// One figure by thickness position (row: 0 the surface as it is, 1 to 18 the nominal thicknesses) and size
/// position (column: 1 to 26 pipes, 27 to 29 flat surfaces; 0 and 30 are not in use). A cell without a
/// figure is empty.
class ResultTable {
public:
    static constexpr int rowCount = 19;
    static constexpr int columnCount = 31;

    /// @throws std::out_of_range
    [[nodiscard]] std::optional<float>& At(int row, int column) { return cells_[Index(row, column)]; }
    /// @throws std::out_of_range
    [[nodiscard]] const std::optional<float>& At(int row, int column) const {
        return cells_[Index(row, column)];
    }

    /// Replaces every figure by its difference from the nearest one above it in its column; the topmost has
    /// none.
    void SubtractNeighbours();

    /// Multiplies every figure by -1.
    void Negate();

private:
    [[nodiscard]] static std::size_t Index(int row, int column) {
        if (row < 0 || row >= rowCount || column < 0 || column >= columnCount) {
            throw std::out_of_range("a cell outside the result table");
        }
        return static_cast<std::size_t>(row) * columnCount + static_cast<std::size_t>(column);
    }

    std::array<std::optional<float>, std::size_t{rowCount} * columnCount> cells_;
};

} // namespace kaloria
