// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/viewer/table_grid.h"

#include <algorithm>
#include <cstdlib>
#include <map>
#include <utility>

namespace kaloria::viewer {

namespace {

constexpr int sameEdge = 20; // rounding of word processors [twip]

void AddEdge(std::vector<int>& edges, int edge) {
    const auto next = std::lower_bound(edges.begin(), edges.end(), edge - sameEdge);
    if (next == edges.end() || std::abs(*next - edge) > sameEdge) {
        edges.insert(next, edge);
    }
}

std::vector<int> EdgesWith(std::vector<int> edges, const Row& row) {
    AddEdge(edges, row.left);
    for (const Cell& cell : row.cells) {
        AddEdge(edges, cell.look.right);
    }
    std::sort(edges.begin(), edges.end());
    return edges;
}

} // namespace

bool TableGrid::Add(const Row& row) {
    constexpr std::size_t mostPlaces = 20'000; // beyond, laying it out takes too long
    std::vector<int> edges = EdgesWith(edges_, row);
    const std::size_t most = std::max(mostCells_, row.cells.size());
    if (!rows_.empty() && (row.breaksPage || row.alignment != rows_.front()->alignment ||
                           edges.size() > 2 * most + 5 || edges.size() * (rows_.size() + 1) > mostPlaces)) {
        return false;
    }
    if (edges.size() < 2) { // no width at all
        constexpr int usual = 1440;
        edges.push_back(edges.front() + usual);
    }
    edges_ = std::move(edges);
    mostCells_ = most;
    rows_.push_back(&row);
    return true;
}

std::vector<int> TableGrid::FittedEdges(int widest) const {
    const int width = edges_.back() - edges_.front();
    std::vector<int> fitted = edges_;
    if (width > widest) {
        for (int& edge : fitted) {
            edge = static_cast<int>(static_cast<double>(edge - edges_.front()) * widest / width);
        }
    }
    return fitted;
}

std::size_t TableGrid::IndexOf(int edge) const {
    const auto next = std::lower_bound(edges_.begin(), edges_.end(), edge - sameEdge);
    return next == edges_.end() ? edges_.size() - 1 : static_cast<std::size_t>(next - edges_.begin());
}

void TableGrid::AddRowPlaces(std::vector<Place>& places, std::size_t index) const {
    const Row& row = *rows_[index];
    std::size_t column = IndexOf(row.left);
    if (column > 0) {
        places.push_back({index, 0, 1, column, nullptr});
    }
    for (const Cell& cell : row.cells) {
        const std::size_t end = IndexOf(cell.look.right);
        if (end > column) { // a cell without width has no place
            places.push_back({index, column, 1, end - column, &cell});
            column = end;
        }
    }
    if (column + 1 < edges_.size()) {
        places.push_back({index, column, 1, edges_.size() - 1 - column, nullptr});
    }
}

std::vector<TableGrid::Place> TableGrid::Places() const {
    std::vector<Place> places;
    for (std::size_t row = 0; row < rows_.size(); ++row) {
        AddRowPlaces(places, row);
    }
    MergeDown(places);
    return places;
}

/// Lets cells reach over those below that go on with them.
void TableGrid::MergeDown(std::vector<Place>& places) {
    using Merge = CellLook::Merge;
    std::map<std::size_t, std::size_t> open; // by column, the index of the place that is reaching down
    std::vector<Place> kept;
    for (const Place& place : places) {
        const Merge merge = place.cell == nullptr ? Merge::none : place.cell->look.down;
        const auto above = open.find(place.column);
        if (merge == Merge::more && above != open.end() && kept[above->second].columns == place.columns &&
            kept[above->second].row + kept[above->second].rows == place.row) {
            ++kept[above->second].rows;
            continue;
        }
        open.erase(place.column);
        if (merge == Merge::first) {
            open.emplace(place.column, kept.size());
        }
        kept.push_back(place);
    }
    places = std::move(kept);
}

} // namespace kaloria::viewer
