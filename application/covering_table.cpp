// SPDX-License-Identifier: GPL-3.0-or-later
#include "application/covering_table.h"

#include "application/case_inputs.h"
#include "engine/conversion.h"
#include "engine/surface_geometry.h"

namespace kaloria {

namespace {

std::vector<CoveringDimensions> CoveringsOf(const Collection<CInsulationThickness>& table, Units units) {
    const std::int32_t series = units == Units::si ? 2 : 1;
    std::vector<CoveringDimensions> coverings;
    for (const CInsulationThickness& row : table) {
        if (row.InsulationType == series) {
            coverings.push_back({row.NominalThickness, row.ActualThickness, row.OD});
        }
    }
    return coverings;
}

double OutsideDiameter(const CPipe& pipe, Units units) {
    return units == Units::si ? pipe.ActualPipeSizemm : pipe.ActualPipeSizeInches;
}

double OutsideDiameter(const CTube& tube, Units units) {
    return units == Units::si ? InchesToMillimeters(tube.ActualTubeSizeInches) : tube.ActualTubeSizeInches;
}

template <class Sizes>
std::vector<SizeCoverings> TableOf(const Sizes& sizes, const std::vector<std::string>& texts, Units units) {
    std::vector<SizeCoverings> table;
    for (const auto& size : sizes) {
        table.push_back({texts.at(table.size()), OutsideDiameter(size, units),
                         CoveringsOf(size.InsulationThicknesses, units)});
    }
    return table;
}

} // namespace

std::vector<SizeCoverings> CoveringTable(const Catalogue& catalogue, std::int32_t geometryCode, Units units) {
    const auto texts = SizeTexts(catalogue, geometryCode, units);
    if (geometry::IsPipe(geometryCode)) {
        return TableOf(catalogue.Pipes, texts, units);
    }
    return geometry::IsTube(geometryCode) ? TableOf(catalogue.Tubes, texts, units)
                                          : std::vector<SizeCoverings>();
}

} // namespace kaloria
