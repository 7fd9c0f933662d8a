// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace kaloria {

/// Dry air at sea-level pressure, at the film temperature; single precision as stored.
struct AirProperties {
    float conductivity = 0;       ///< k [Btu/(h ft degF)]
    float dynamicViscosity = 0;   ///< mu [lb/(ft h)]
    float prandtl = 0;            ///< Pr [-]
    float expansion = 0;          ///< beta, volumetric expansion coefficient [1/degR]
    float density = 0;            ///< rho [lb/ft3]
    float kinematicViscosity = 0; ///< nu [ft2/h]
    float specificHeat = 0;       ///< cp [Btu/(lb degF)]
    float rayleigh = 0;           ///< Ra on the given length, never negative [-]
};

/// Air properties as in the standard practice for heat gain or loss of insulated systems by computer
/// (ASTM C680): conductivity and viscosity in Sutherland's form (U.S. Standard Atmosphere tables), Prandtl
/// number and specific heat as cubic fits to tables of air, density of an ideal gas.
///
/// @param tempDifference  surface minus ambient, of either sign [degF]
/// @param filmK           film temperature [K]
/// @param filmF           the same film temperature [degF]
/// @param length          characteristic length of the Rayleigh number [ft]
/// Sets no trap of its own: faults show in the floating-point status flags.
[[nodiscard]] AirProperties AirAtFilm(float tempDifference, float filmK, float filmF, float length);

} // namespace kaloria
