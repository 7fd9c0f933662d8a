// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>

/// What a geometry code 1 to 11 means to the engine and to everyone who shows its results.
namespace kaloria::geometry {

constexpr std::int32_t horizontalPipe = 1;
constexpr std::int32_t verticalPipe = 2;
constexpr std::int32_t horizontalTube = 3;
constexpr std::int32_t verticalTube = 4;
constexpr std::int32_t verticalFlat = 5;
constexpr std::int32_t topFlat = 6;
constexpr std::int32_t bottomFlat = 7;
constexpr std::int32_t horizontalDuct = 8; ///< three faces: two sides, top, bottom
constexpr std::int32_t verticalDuct = 9;   ///< four vertical faces
constexpr std::int32_t horizontalTank = 10;
constexpr std::int32_t verticalTank = 11;

/// Metal of every surface but pipes and tubes, which have the wall of their size [in].
constexpr float flatWall = 0.25F;

[[nodiscard]] constexpr bool IsKnown(std::int32_t code) { return code >= 1 && code <= 11; }
[[nodiscard]] constexpr bool IsPipe(std::int32_t code) { return code == 1 || code == 2; }
[[nodiscard]] constexpr bool IsTube(std::int32_t code) { return code == 3 || code == 4; }
[[nodiscard]] constexpr bool IsCylinder(std::int32_t code) { return code >= 1 && code <= 4; }
[[nodiscard]] constexpr bool IsVerticalCylinder(std::int32_t code) { return code == 2 || code == 4; }
[[nodiscard]] constexpr bool IsDuct(std::int32_t code) { return code == 8 || code == 9; }
[[nodiscard]] constexpr bool IsTank(std::int32_t code) { return code == 10 || code == 11; }
/// Heat flow of pipes, tubes and ducts is per foot of length, of everything else per square foot.
[[nodiscard]] constexpr bool IsPerLength(std::int32_t code) { return IsCylinder(code) || IsDuct(code); }

} // namespace kaloria::geometry
