// SPDX-License-Identifier: GPL-3.0-or-later
#include "application/report_items.h"

#include "application/case_inputs.h"
#include "data/number_format.h"
#include "engine/number_text.h"
#include "engine/surface_geometry.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>
#include <numeric>
#include <set>

namespace kaloria {

namespace {

constexpr int pipeItemCount = firstFlatItem - 1;

/// One position, or nothing.
std::optional<int> ParsePosition(std::string_view text) {
    const auto number = ParseNumber(text);
    if (!number || !(*number >= 1) || !(*number <= reportItemCount) || *number != static_cast<int>(*number)) {
        return std::nullopt;
    }
    return static_cast<int>(*number);
}

/// Adds "6" or "12-15"; false when it is neither.
bool AddRange(std::string_view text, std::set<int>& positions) {
    const auto hyphen = text.find('-');
    const auto first = ParsePosition(text.substr(0, hyphen));
    const auto last = hyphen == std::string_view::npos ? first : ParsePosition(text.substr(hyphen + 1));
    if (!first || !last || *last < *first) {
        return false;
    }
    for (int position = *first; position <= *last; ++position) {
        positions.insert(position);
    }
    return true;
}

} // namespace

std::int32_t GeometryCodeOf(int position) {
    return position < firstFlatItem ? geometry::horizontalPipe
                                    : geometry::verticalFlat + position - firstFlatItem;
}

const CPipe* PipeOf(int position, const Catalogue& catalogue) {
    if (position < 1 || position > pipeItemCount ||
        static_cast<std::size_t>(position) > catalogue.Pipes.size()) {
        return nullptr;
    }
    return &*std::next(catalogue.Pipes.begin(), position - 1);
}

std::string ItemName(int position, const Catalogue& catalogue, Units units) {
    if (position < firstFlatItem) {
        const CPipe* pipe = PipeOf(position, catalogue);
        const float size = pipe == nullptr ? 0.0F : (units == Units::si ? pipe->USMetric : pipe->USNPS);
        return fmt::format("Pipe {} {}", FormatNumber(size, NumberFormat::shortest),
                           InfoOf(Quantity::length).Text(units));
    }
    const auto* geometry = FindById(catalogue.SurfaceGeometries, GeometryCodeOf(position));
    return geometry != nullptr ? geometry->Name : fmt::format("Surface {}", position);
}

std::optional<int> OwnItem(const Job& job, const Catalogue& catalogue) {
    const auto* geometry = FindByName(catalogue.SurfaceGeometries, job[Field::SurfaceGeometry]);
    if (geometry == nullptr) {
        return std::nullopt;
    }
    if (geometry->ID >= geometry::verticalFlat && geometry->ID <= geometry::bottomFlat) {
        return firstFlatItem + geometry->ID - geometry::verticalFlat;
    }
    if (!geometry::IsPipe(geometry->ID)) {
        return std::nullopt;
    }
    const auto wanted = ParseSingle(job[Field::PipeSize]);
    const auto sizes = SizeTexts(catalogue, geometry->ID, job.UnitsInForce());
    const auto found = std::find_if(sizes.begin(), sizes.end(), [&](const std::string& size) {
        return wanted && ParseSingle(size) == wanted;
    });
    const auto position = std::distance(sizes.begin(), found) + 1;
    return found == sizes.end() || position > pipeItemCount ? std::nullopt
                                                            : std::optional(static_cast<int>(position));
}

ItemSelection ParseItems(std::string_view text) {
    ItemSelection selection;
    if (Trimmed(text) == "all") {
        selection.positions = AllItems();
        return selection;
    }
    std::set<int> positions;
    while (!Trimmed(text).empty()) {
        const auto comma = std::min(text.find(','), text.size());
        const std::string_view part = Trimmed(text.substr(0, comma));
        if (!AddRange(part, positions)) {
            selection.problem =
                fmt::format("\"{}\" is neither a position from 1 to {} nor a rising range such as 12-15",
                            part, reportItemCount);
            return selection;
        }
        text.remove_prefix(std::min(comma + 1, text.size()));
    }
    selection.positions.assign(positions.begin(), positions.end());
    return selection;
}

std::vector<int> AllItems() {
    std::vector<int> positions(reportItemCount);
    std::iota(positions.begin(), positions.end(), 1);
    return positions;
}

} // namespace kaloria
