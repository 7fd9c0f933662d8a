// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/reference_records.h"

#include <cstdint>
#include <string_view>

namespace kaloria {

/// Row of the size's table for a nominal thickness, equal to the last bit, in the series of the units in
/// force (1: inches, 2: millimetres). Null for geometries other than pipe and tube, without a size, and when
/// no row matches.
[[nodiscard]] const CInsulationThickness* FindThicknessRow(std::int32_t geometryCode, float nominal,
                                                           const CPipe* pipe, const CTube* tube, bool si);

/// Whether a material is duct wrap, installed at 75 % of its nominal packaged thickness.
[[nodiscard]] bool IsDuctWrap(std::string_view insulationName);

/// Installed thickness of a covering of that nominal thickness: the table row's actual thickness, or the
/// nominal one where there is none; three quarters of it for duct wrap. In the units of @p nominal.
[[nodiscard]] float GetInsulationThickness(std::int32_t geometryCode, float nominal,
                                           std::string_view insulationName, const CPipe* pipe,
                                           const CTube* tube, bool si);

/// Outside diameter of the matching row in the units of its series; -1 ("not set") when no row matches.
[[nodiscard]] float GetInsulationOD(std::int32_t geometryCode, float nominal, const CPipe* pipe,
                                    const CTube* tube, bool si);

} // namespace kaloria
