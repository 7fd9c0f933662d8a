// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "data/catalogue.h"
#include "data/job.h"

#include <cstdint>

namespace kaloria {

/// How converted entries are written.
enum class SwitchPrecision : std::uint8_t {
    display, ///< in each field's display format, as a person reads it
    full,    ///< with all digits of single precision, so that results do not move with the switch
};

/// Converts every numeric entry of a job to @p units and records them. Pipe sizes and nominal thicknesses of
/// pipes and tubes are carried over by their position in the lists; entries that are empty or no numbers stay
/// as they are.
void UnitsChange(Job& job, const Catalogue& catalogue, Units units, SwitchPrecision precision);

} // namespace kaloria
