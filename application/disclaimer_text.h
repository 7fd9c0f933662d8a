// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string_view>

/// What people have to know before they build on a result.
namespace kaloria {

inline constexpr std::string_view disclaimerTitle = "Before you rely on a result";

/// Paragraphs, parted by empty lines.
inline constexpr std::string_view disclaimerText =
    "Kaloria estimates heat flow, surface temperatures, costs and emissions of insulated piping and "
    "equipment "
    "with the methods of the published standards for such calculations. It is an aid for people who know the "
    "trade and does not replace their judgement.\n"
    "\n"
    "Results are as good as what goes in. Conductivities, emittances, prices, labor factors and emission "
    "factors that come with the program are typical values from open sources, not the data of the product "
    "that you buy or of the fuel that you burn. Check them against the maker's data sheet and your own "
    "contracts. Wet, damaged or badly fitted insulation, supports, flanges and other thermal bridges are not "
    "in the calculation.\n"
    "\n"
    "Where people may touch a surface, where condensation does harm, or where much money is decided, have "
    "the "
    "result checked by a qualified engineer and keep a margin.\n"
    "\n"
    "This program comes with no warranty, to the extent that the law permits. See the license for details.";

} // namespace kaloria
