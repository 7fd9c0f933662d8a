// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "data/catalogue.h"
#include "data/job.h"

#include <cstdint>
#include <string>
#include <string_view>

/// What the window shows of a job: which fields, under which labels, with which units.
namespace kaloria {

/// Code of the job's geometry; 0 when the catalogue does not have it.
[[nodiscard]] std::int32_t GeometryCodeOf(const Job& job, const Catalogue& catalogue);

/// Position of the job's calculation type; -1 when it is none.
[[nodiscard]] int CalculationTypeOf(const Job& job);

/// Whether the field is shown, by calculation type, geometry, service (hot or cold), new or retrofit, and
/// source of the installed costs.
[[nodiscard]] bool IsShown(Field field, const Job& job, const Catalogue& catalogue);

/// Whether a field that is shown takes part: of the three moistures only the one in use.
[[nodiscard]] bool IsInUse(Field field, const Job& job);

/// Label beside the field, with the unit in it where it belongs there: "NTS Tube Size:",
/// "First Year Cost ($/Mcf):".
[[nodiscard]] std::string LabelOf(Field field, const Job& job, const Catalogue& catalogue);

/// Unit behind the field: "°F"; empty for texts, pure numbers, and where the label has it already.
[[nodiscard]] std::string UnitTextOf(Field field, const Job& job, const Catalogue& catalogue);

/// What a sentence or a table calls the field and its unit, whatever the window shows where:
/// "First Year Cost", "$/Mcf".
[[nodiscard]] std::string PlainLabelOf(Field field, const Job& job, const Catalogue& catalogue);
[[nodiscard]] std::string PlainUnitOf(Field field, const Job& job, const Catalogue& catalogue);

/// "NOTE: heat loss from ends of tank not included" for a tank, else empty.
[[nodiscard]] std::string_view TankNote(const Job& job, const Catalogue& catalogue);

/// Heading of the thickness column of flxInsulationLayers: "Thickness, Inches", "Thickness, mm".
[[nodiscard]] std::string_view LayerThicknessHeading(Units units);

} // namespace kaloria
