// SPDX-License-Identifier: GPL-3.0-or-later
#include "application/validation.h"

#include "application/validation_methods.h"
#include "engine/numeric_fault.h"

#include <cmath>

namespace kaloria {

namespace {

/// From SI to the unit in which the source prints the result.
double InPublishedUnit(const ValidationCase& validationCase, double value) {
    const Unit* unit = FindUnit(validationCase.unit);
    const validation::Quantity* quantity = validation::FindQuantity(validationCase.quantity);
    if (unit == nullptr || quantity == nullptr || unit->dimension != quantity->dimension) {
        throw validation::InputError("the unit does not fit the quantity");
    }
    return (value - (quantity->difference ? 0.0 : unit->offset)) / unit->factor;
}

double Compute(const ValidationCase& validationCase) {
    const validation::Method method = validation::FindMethod(validationCase.method);
    if (method == nullptr) {
        throw validation::InputError("there is no method " + validationCase.method);
    }
    validation::Reader in(validationCase.inputs);
    const double value = method(validationCase, in);
    in.ExpectAllUsed();
    if (!std::isfinite(value)) {
        throw NumericFault("the result is not a finite number");
    }
    return InPublishedUnit(validationCase, value);
}

ValidationResult Unanswered(const char* why) {
    ValidationResult result;
    result.fault = why;
    return result;
}

} // namespace

ValidationResult CompareWithPublished(const ValidationCase& validationCase, double ours) {
    const ValidationTolerance& tolerance = validationCase.tolerance;
    ValidationResult result;
    result.ours = ours;
    result.difference = ours - validationCase.published;
    const double unitOfTolerance = tolerance.relative ? std::abs(validationCase.published) : 1.0;
    result.allowed = (result.difference < 0 ? tolerance.below : tolerance.above) * unitOfTolerance;
    result.met = std::abs(result.difference) <= result.allowed;
    return result;
}

ValidationResult RunValidation(const ValidationCase& validationCase) {
    try {
        return CompareWithPublished(validationCase, Compute(validationCase));
    } catch (const validation::InputError& error) {
        return Unanswered(error.what());
    } catch (const NumericFault& fault) {
        return Unanswered(fault.what());
    }
}

} // namespace kaloria
