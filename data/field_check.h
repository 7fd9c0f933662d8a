// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "data/job_fields.h"

#include <optional>
#include <string>
#include <string_view>

namespace kaloria {

/// What is wrong with a text in a field of a job in those units, as a phrase to put behind the field's label
/// ("\"12 in\" is not a number", "5000 °F is outside -459 to 3000 °F"); nothing when it may stand. An empty
/// number is nothing wrong here: whether it is needed depends on the calculation. Choices from the catalogue
/// are not looked up, except those with a fixed list.
[[nodiscard]] std::optional<std::string> WhatIsWrong(const JobField& field, std::string_view text,
                                                     Units units);

/// The allowed range of a number field in those units, for a tooltip ("-459 to 3000 °F").
[[nodiscard]] std::string RangeText(const JobField& field, Units units);

} // namespace kaloria
