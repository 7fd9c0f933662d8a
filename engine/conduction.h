// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>

/// One-dimensional steady conduction through the elements between process and outer surface: metal wall
/// first, then the insulation layers, innermost first. None of the functions sets a trap of its own.
namespace kaloria::conduction {

/// Equivalent thicknesses of concentric cylinders, so that thickness over conductivity is the resistance
/// referred to the outer surface: L[i] = r_out ln(r[i+1] / r[i]) [in] (a plane element's is its own
/// thickness).
/// @param radii        n + 1 radii, innermost first [in]
/// @param equivalents  receives n values
void EquivalentThicknesses(std::span<const float> radii, std::span<double> equivalents);

/// R[i] = L[i] / k[i] [h ft2 degF/Btu], n values each.
/// @param conductivities  [Btu in/(h ft2 degF)]
void Resistances(std::span<const double> equivalents, std::span<const float> conductivities,
                 std::span<double> resistances);

/// Heat flux through the outer surface, process to ambient [Btu/(h ft2)]; negative for a heat gain.
/// @param film  combined outer film coefficient [Btu/(h ft2 degF)]
[[nodiscard]] double Flux(double tempDifference, double film, std::span<const double> resistances);

/// T[i+1] = T[i] - q R[i] from @p temps[0] on; @p temps has one element more than @p resistances [degF].
void InterfaceTemperatures(double flux, std::span<const double> resistances, std::span<float> temps);

/// Conductivity of a wall metal [Btu in/(h ft2 degF)] at mean temperature @p meanTemp [degF], fitted to
/// handbook values of low-carbon steel (1), austenitic stainless steel (2) and copper (3); anything else is
/// plastic.
[[nodiscard]] double WallConductivity(int baseMetalId, double meanTemp);

} // namespace kaloria::conduction
