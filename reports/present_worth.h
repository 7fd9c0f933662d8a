// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace kaloria::present_worth {

/// Present worth of a row of yearly payments, made at the end of each year, of which the first is 1 (Grant,
/// Ireson and Leavenworth, Principles of Engineering Economy, 8th ed., chapters 4 and 5). Years may be a
/// fraction; rates are fractions. Every function throws NumericFault where there is no result.

/// Payments that stay as they are: [1 - (1+d)^-n] / d; n when @p discount is below 0.0001, also when it is
/// negative.
[[nodiscard]] double UniformSeries(double years, double discount);

/// Payments of 1 (1+g)^(k-1) in year k: [1 - ((1+g)/(1+d))^n] / (d - g); n / (1+d) when the two rates differ
/// by less than 0.000001.
[[nodiscard]] double EscalatingSeries(double years, double discount, double inflation);

} // namespace kaloria::present_worth
