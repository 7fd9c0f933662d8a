// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/numeric_fault.h"

#include <cfenv>
#include <cmath>

namespace kaloria {

namespace {
constexpr int faultFlags = FE_INVALID | FE_DIVBYZERO | FE_OVERFLOW;
}

FaultTrap::FaultTrap() noexcept {
    // Clearing writes the control word and costs as much as a logarithm; testing is nearly free.
    if (std::fetestexcept(faultFlags) != 0) {
        std::feclearexcept(faultFlags);
    }
}

void FaultTrap::Check(const char* what, std::initializer_list<double> results) const {
    const int raised = std::fetestexcept(faultFlags);
    if ((raised & FE_DIVBYZERO) != 0) {
        throw NumericFault(std::string(what) + ": division by zero");
    }
    if ((raised & FE_OVERFLOW) != 0) {
        throw NumericFault(std::string(what) + ": overflow");
    }
    if (raised != 0) {
        throw NumericFault(std::string(what) + ": invalid operation");
    }
    for (const double result : results) {
        if (std::isnan(result)) {
            throw NumericFault(std::string(what) + ": not a number");
        }
    }
}

} // namespace kaloria
