// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "data/catalogue.h"
#include "data/job.h"

#include <optional>
#include <string>
#include <string_view>

namespace kaloria {

/// Sets one input of a job by the name of its element, as scripts and the command line do.
///
/// Materials are given by name or `ID`. "Insulation.2" is the second layer (one past the last adds a layer,
/// an empty value removes it; "Insulation" alone is the first), "Insulation.2.Thickness" its thickness, which
/// also fixes it, and "Insulation.2.Locked" is "Fix" or "Vary". Setting WetBulbTemperature, RelativeHumidity
/// or DewPoint puts it in use.
/// @return what is wrong, as a sentence; nothing when it is done
[[nodiscard]] std::optional<std::string> SetJobField(Job& job, const Catalogue& catalogue,
                                                     std::string_view name, std::string_view value);

} // namespace kaloria
