// SPDX-License-Identifier: GPL-3.0-or-later
#include "application/insulation_thickness.h"

#include "engine/numeric_fault.h"
#include "engine/surface_geometry.h"

namespace kaloria {

namespace {

const Collection<CInsulationThickness>* TableOf(std::int32_t geometryCode, const CPipe* pipe,
                                                const CTube* tube) {
    if (geometry::IsPipe(geometryCode) && pipe != nullptr) {
        return &pipe->InsulationThicknesses;
    }
    if (geometry::IsTube(geometryCode) && tube != nullptr) {
        return &tube->InsulationThicknesses;
    }
    return nullptr;
}

} // namespace

const CInsulationThickness* FindThicknessRow(std::int32_t geometryCode, float nominal, const CPipe* pipe,
                                             const CTube* tube, bool si) {
    const auto* table = TableOf(geometryCode, pipe, tube);
    if (table == nullptr) {
        return nullptr;
    }
    const std::int32_t series = si ? 2 : 1;
    for (const CInsulationThickness& row : *table) {
        if (row.InsulationType == series && row.NominalThickness == nominal) {
            return &row;
        }
    }
    return nullptr;
}

bool IsDuctWrap(std::string_view insulationName) {
    return insulationName.find("Duct Wrap") != std::string_view::npos;
}

float GetInsulationThickness(std::int32_t geometryCode, float nominal, std::string_view insulationName,
                             const CPipe* pipe, const CTube* tube, bool si) {
    const auto* row = FindThicknessRow(geometryCode, nominal, pipe, tube, si);
    const float thickness = row != nullptr ? row->ActualThickness : nominal;
    return IsDuctWrap(insulationName) ? Single(thickness * 0.75) : thickness;
}

float GetInsulationOD(std::int32_t geometryCode, float nominal, const CPipe* pipe, const CTube* tube,
                      bool si) {
    const auto* row = FindThicknessRow(geometryCode, nominal, pipe, tube, si);
    return row != nullptr ? row->OD : -1.0F;
}

} // namespace kaloria
