// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "data/catalogue.h"
#include "data/job.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// The list of sizes and surfaces that a report can be about: positions 1 to 26 are the first 26 pipe sizes,
/// 27 a vertical flat surface, 28 the top and 29 the bottom of a vessel or duct.
namespace kaloria {

inline constexpr int reportItemCount = 29;
inline constexpr int firstFlatItem = 27;

/// Geometry code by which a position is solved: pipes lie horizontally.
[[nodiscard]] std::int32_t GeometryCodeOf(int position);

/// The pipe of a position; null for flat surfaces and where the catalogue has fewer sizes.
[[nodiscard]] const CPipe* PipeOf(int position, const Catalogue& catalogue);

/// As shown: "Pipe 6 in", "Pipe 150 mm", "Vertical Flat".
[[nodiscard]] std::string ItemName(int position, const Catalogue& catalogue, Units units);

/// The position of a job's own surface; nothing for tubes, ducts, tanks and sizes that are not listed.
[[nodiscard]] std::optional<int> OwnItem(const Job& job, const Catalogue& catalogue);

/// Positions named by a text such as "6,12-15,27" or "all", rising and each once, or what is wrong with it.
struct ItemSelection {
    std::vector<int> positions;
    std::string problem; ///< a phrase; empty when there is none
};
[[nodiscard]] ItemSelection ParseItems(std::string_view text);

/// All positions.
[[nodiscard]] std::vector<int> AllItems();

} // namespace kaloria
