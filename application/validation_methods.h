// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "application/validation.h"
#include "application/validation_units.h"

#include <set>

/// The ways through the engine that validation cases name. Everything here is in SI; the methods convert to
/// the engine's units where the engine's function has any.
namespace kaloria::validation {

/// A case whose inputs do not fit its method.
class InputError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Inputs of a case in SI. Remembers what was asked for: an input that no method looked at is a slip in the
/// file (a misspelt emittance would otherwise pass for none).
class Reader {
public:
    explicit Reader(const ValidationInputs& inputs) : inputs_(inputs) {}

    [[nodiscard]] bool Has(std::string_view name) const { return inputs_.find(name) != inputs_.end(); }

    /// @throws InputError when it is missing or its unit measures something else
    double Get(std::string_view name, Dimension dimension);
    /// [K]; @throws InputError
    double GetDifference(std::string_view name);
    double GetOr(std::string_view name, Dimension dimension, double otherwise) {
        return Has(name) ? Get(name, dimension) : otherwise;
    }
    /// pi, unless the source has a rounder one
    double Pi();

    /// @throws InputError naming an input that nothing has asked for
    void ExpectAllUsed() const;

private:
    const ValidationFigure& Find(std::string_view name, Dimension dimension);

    const ValidationInputs& inputs_;
    std::set<std::string, std::less<>> used_;
};

/// Computes the case's quantity. @throws InputError, NumericFault
using Method = double (*)(const ValidationCase& validationCase, Reader& in);

/// The method of that name, or null.
[[nodiscard]] Method FindMethod(std::string_view name);

/// What can be compared: dimension, and whether it is a difference of two temperatures.
struct Quantity {
    std::string_view name;
    Dimension dimension;
    bool difference = false;
};
[[nodiscard]] const Quantity* FindQuantity(std::string_view name);

/// Concentric cylinders or plane layers with film coefficients given (validation_layers.cpp).
double LayeredPipe(const ValidationCase& c, Reader& in);
double LayeredWall(const ValidationCase& c, Reader& in);

} // namespace kaloria::validation
