// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/present_worth.h"

#include "engine/numeric_fault.h"

#include <cmath>

namespace kaloria::present_worth {

namespace {

constexpr double smallestDiscount = 1e-4;
constexpr double smallestDifference = 1e-6;

double Sound(double worth) {
    if (!std::isfinite(worth)) {
        throw NumericFault("a present worth is beyond all numbers");
    }
    return worth;
}

} // namespace

double UniformSeries(double years, double discount) {
    if (discount < smallestDiscount) {
        return years;
    }
    return Sound((1.0 - std::pow(1.0 + discount, -years)) / discount);
}

double EscalatingSeries(double years, double discount, double inflation) {
    if (!(discount > -1.0) || !(inflation > -1.0)) {
        throw NumericFault("a rate is -100 % or less");
    }
    if (std::abs(discount - inflation) < smallestDifference) {
        return Sound(years / (1.0 + discount));
    }
    return Sound((1.0 - std::pow((1.0 + inflation) / (1.0 + discount), years)) / (discount - inflation));
}

} // namespace kaloria::present_worth
