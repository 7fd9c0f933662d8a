// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/viewer/rich_text.h"

#include <cstddef>
#include <vector>

namespace kaloria::viewer {

/// Rows whose cells end where they like, as a grid of columns that cells reach over.
class TableGrid {
public:
    /// A cell's place in the grid.
    struct Place {
        std::size_t row = 0;
        std::size_t column = 0;
        std::size_t rows = 1;
        std::size_t columns = 1;
        const Cell* cell = nullptr; ///< null: a gap at the side
    };

    /// @param row  must outlive the grid
    /// @returns whether the row belongs to this table; not one that starts a sheet, nor one so different that
    ///     the grid would become mostly gaps
    bool Add(const Row& row);

    [[nodiscard]] const std::vector<const Row*>& Rows() const { return rows_; }
    [[nodiscard]] std::size_t ColumnCount() const { return edges_.size() - 1; }
    /// Edges of the columns from left to right, from the left margin [twip].
    [[nodiscard]] const std::vector<int>& Edges() const { return edges_; }
    /// The same, brought together when the table is wider than @p widest.
    [[nodiscard]] std::vector<int> FittedEdges(int widest) const;
    [[nodiscard]] std::vector<Place> Places() const;

private:
    [[nodiscard]] std::size_t IndexOf(int edge) const;
    void AddRowPlaces(std::vector<Place>& places, std::size_t index) const;
    static void MergeDown(std::vector<Place>& places);

    std::vector<const Row*> rows_;
    std::vector<int> edges_;
    std::size_t mostCells_ = 0;
};

} // namespace kaloria::viewer
