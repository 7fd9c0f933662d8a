// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/emission_reduction.h"

#include "engine/numeric_fault.h"

namespace kaloria {

float EmissionReduction(float savedFlow, float hoursPerYear, float efficiency, float amount) {
    const FaultTrap trap;
    const double heat = double{savedFlow} * hoursPerYear / 1e6; // [MMBtu]
    const float reduction = Single(heat / (efficiency / 100.0F) * amount);
    trap.Check("reduction of an emission", {reduction});
    return reduction;
}

} // namespace kaloria
