// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "application/finding.h"
#include "data/catalogue.h"
#include "data/job.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

/// Editing the layer build-up of a job by the rows of its grid: 0 the heading, 1 the base metal, then the
/// insulation layers from the inside out, and last the jacket.
namespace kaloria {

inline constexpr std::size_t baseRow = 1;
inline constexpr std::size_t mostGridRows = mostLayers + 3;

[[nodiscard]] std::size_t GridRowCount(const Job& job);
[[nodiscard]] std::size_t JacketRow(const Job& job);
[[nodiscard]] bool IsLayerRow(const Job& job, std::size_t row);

/// The cells of a row, from the left: "#", "Type", "Name", "Lock Thickness", "Thickness". Base and jacket
/// have no lock and no thickness.
struct LayerRowTexts {
    std::string number;
    std::string_view type;
    std::string name;
    std::string locked;
    std::string thickness;
};
[[nodiscard]] LayerRowTexts LayerRow(const Job& job, std::size_t row);

/// How an edit went. Refused: the job is as it was.
struct LayerEdit {
    std::string refusal;        ///< the text for the person; empty when it is done
    std::size_t row = 0;        ///< where the edited row is now
    std::vector<Finding> notes; ///< warnings and information about the material

    [[nodiscard]] bool Done() const { return refusal.empty(); }
};

/// A new insulation layer above the jacket: of the outermost layer's material, fixed, without a thickness.
LayerEdit AddLayer(Job& job);
LayerEdit DeleteRow(Job& job, std::size_t row);
/// A copy of an insulation layer just outside of it. A copy of a varying layer is fixed.
LayerEdit CopyRow(Job& job, std::size_t row);

/// Inwards (up in the grid) and outwards.
LayerEdit MoveUp(Job& job, std::size_t row);
LayerEdit MoveDown(Job& job, std::size_t row);
[[nodiscard]] bool CanMoveUp(const Job& job, std::size_t row);
[[nodiscard]] bool CanMoveDown(const Job& job, std::size_t row);

/// Material of a row by the `ID` of a base metal, an insulation or a jacket material, as the row's place
/// says.
LayerEdit SetMaterial(Job& job, const Catalogue& catalogue, std::size_t row, std::int32_t id);

/// "Fix" or "Vary".
LayerEdit SetLock(Job& job, std::size_t row, std::string_view lock);

/// Takes the text over as it is typed, and fixes the layer unless it is empty; what is wrong with it comes
/// back as an error among the notes, for its cell to be marked.
LayerEdit SetThickness(Job& job, std::size_t row, std::string_view text);

/// What is wrong with a text as the thickness of a layer, as a sentence; empty when nothing is. An empty text
/// is nothing wrong here.
[[nodiscard]] std::string ThicknessProblem(std::string_view text, Units units);

/// The nominal thicknesses to choose from, as texts: on pipes and tubes those that the size's table has (all
/// of the series while there is no size); on everything else, whose thickness is typed, none.
[[nodiscard]] std::vector<std::string> ThicknessChoices(const Job& job, const Catalogue& catalogue);

/// The process temperature against the service limits of a layer, compared as shown; with the information
/// about duct wrap.
[[nodiscard]] std::vector<Finding> MaterialNotes(const Job& job, const Catalogue& catalogue, std::size_t row);

/// The process temperature against the service limits of all layers.
[[nodiscard]] std::vector<Finding> ProcessTemperatureNotes(const Job& job, const Catalogue& catalogue);

} // namespace kaloria
