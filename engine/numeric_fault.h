// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <initializer_list>
#include <stdexcept>
#include <string>

namespace kaloria {

/// The one exception of the numeric code: a computation that has no result (division by zero, a logarithm
/// of nothing, an overflow, a conductivity that is not positive, a loop that does not end).
/// what() is a sentence fit for a warning, without a full stop.
class NumericFault : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Narrows a double result to the single precision in which results are stored.
[[nodiscard]] constexpr float Single(double value) { return static_cast<float>(value); }

/// Watches one numeric routine through the floating-point status flags: construct it at the start, call
/// Check at the end. Underflow and rounding are no faults.
class FaultTrap {
public:
    FaultTrap() noexcept;

    /// @param what     the routine, for the message
    /// @param results  what the routine is about to return; passing them here makes the compiler compute
    ///                 them before the flags are read, and a result that is NaN is a fault of its own
    ///                 (a quiet NaN that came in as an argument raises no flag)
    /// @throws NumericFault on an invalid operation, a division by zero or an overflow since construction
    void Check(const char* what, std::initializer_list<double> results) const;
};

} // namespace kaloria
