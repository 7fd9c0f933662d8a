// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "data/catalogue.h"
#include "data/job.h"

#include <string>
#include <string_view>
#include <vector>

/// Choices that change more than their own field.
namespace kaloria {

/// What a choice did besides.
struct ChoiceOutcome {
    std::string_view message;       ///< one of the fixed texts; empty when no rule applied
    std::vector<Field> changed;     ///< further fields that have a new text
    std::vector<std::string> notes; ///< sentences about them
};

/// @param type  position in the list. The thickness table on anything but a pipe or tube switches the
/// geometry to pipe.
ChoiceOutcome ChooseCalculationType(Job& job, const Catalogue& catalogue, int type);

/// @param name  of a geometry of the catalogue; others are taken over as they are. Anything but a pipe or
/// tube
///              ends the calculation type "Insulation Thickness Table". Between pipes and tubes the size goes
///              over to the nearest one listed.
ChoiceOutcome ChooseGeometry(Job& job, const Catalogue& catalogue, std::string_view name);

/// Chooses a fuel in Field::Fuel or Field::ReportFuel and gives its price, heating value and efficiency to
/// the fields that belong to it, in the job's units. A name that the catalogue does not have changes the name
/// alone.
ChoiceOutcome ChooseFuel(Job& job, const Catalogue& catalogue, Field field, std::string_view name);

/// Chooses where installed costs come from: sets one of FEA, PreviousCostData and UserSuppliedCostData and
/// clears the others.
void ChooseCostSource(Job& job, Field source);

/// Name of the geometry that "pipe" means: the horizontal pipe; empty when the catalogue has none.
[[nodiscard]] std::string PipeGeometryName(const Catalogue& catalogue);

} // namespace kaloria
