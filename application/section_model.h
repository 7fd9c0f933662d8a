// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "application/calculation_result.h"
#include "application/case_inputs.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace kaloria {

enum class SectionShape : std::uint8_t { cylinder, slab, box };

/// A solid of the section: the metal wall or an insulation layer.
struct SectionBand {
    bool isWall = false;
    std::string name;
    double thickness = 0;   ///< as installed [in]
    double insideTemp = 0;  ///< [degF]
    double outsideTemp = 0; ///< [degF]
    std::string thicknessText;
    std::string conductivityText;
    std::string meanTempText;
    std::optional<double> share; ///< of the whole resistance, film included [0..1]; none without a flow
    std::string shareText;
    std::string limit;     ///< the service limit that it exceeds; empty within its range
    std::string limitWord; ///< "too hot" or "too cold" then
};

/// A place where a temperature is known: bands[i] lies between interfaces i and i + 1.
struct SectionInterface {
    double temp = 0;   ///< [degF]
    std::string text;  ///< "110.9 °F"
    std::string name;  ///< "surface"
    std::string limit; ///< what it exceeds; empty when nothing
};

/// What a cut through the surface shows, for one row of a result. Dimensions and temperatures are in English
/// units, texts in those of the result.
struct SectionModel {
    SectionShape shape = SectionShape::slab;
    std::string title;   ///< "Section at 1.5 in."
    std::string subject; ///< "NPS 6"
    std::string fault;   ///< why there is nothing to show; the rest is empty then
    Units units = Units::english;
    double bore = 0;   ///< inner radius of a cylinder [in]
    double width = 0;  ///< of a box, inside [in]
    double height = 0; ///< of a box, inside [in]
    double processTemp = 0;
    double ambientTemp = 0;
    std::string processText;
    std::string ambientText;
    std::vector<SectionBand> bands;           ///< wall first, innermost layer next
    std::vector<SectionInterface> interfaces; ///< one more than bands
    std::string jacket;                       ///< its name; empty on the bare surface
    std::string filmShareText;                ///< of the whole resistance
    std::string description;                  ///< in words, for who does not see the picture

    [[nodiscard]] bool IsCold() const { return processTemp < ambientTemp; }
    /// Distance of interface @p index from the inside of the wall [in].
    [[nodiscard]] double DepthOf(std::size_t index) const;
    /// Temperature inside a band, at a share of its thickness from its inside [degF]: linear in a plane,
    /// logarithmic in the radius of a cylinder.
    [[nodiscard]] double TempIn(std::size_t band, double share) const;
};

/// A temperature to a tenth, which is left out when it is 0: "350 °F", "176.7 °C". For inputs and limits.
[[nodiscard]] std::string ShortTempText(double degF, Units units);

/// @param inputs  of the case that @p result answers
/// @param row     of its grid
[[nodiscard]] SectionModel MakeSection(const CalculationResult& result, const CaseInputs& inputs,
                                       std::size_t row);

} // namespace kaloria
