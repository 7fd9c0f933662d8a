// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "data/catalogue.h"
#include "data/quantity.h"

#include <cstdint>
#include <string>
#include <vector>

namespace kaloria {

/// One thickness of pipe or tube insulation, in the units of the table.
struct CoveringDimensions {
    double nominal = 0; ///< thickness by which it is sold
    double actual = 0;  ///< thickness laid on the size
    double outside = 0; ///< diameter over the insulation
};

/// A size and every covering that is made for it.
struct SizeCoverings {
    std::string size;         ///< as the list of sizes shows it
    double outsideDiameter{}; ///< of the pipe or tube itself [in or mm]
    std::vector<CoveringDimensions> coverings;
};

/// The dimensions of all insulation made for pipes or tubes, by the geometry, in inches or millimetres: the
/// series of the units in force. Empty for flats, ducts and tanks.
[[nodiscard]] std::vector<SizeCoverings> CoveringTable(const Catalogue& catalogue, std::int32_t geometryCode,
                                                       Units units);

} // namespace kaloria
