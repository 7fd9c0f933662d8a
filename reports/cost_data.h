// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <optional>

namespace kaloria {

/// What one insulation thickness on one surface costs and, during an analysis, does. Money is per foot of
/// pipe or per square foot of flat surface.
struct CThicknessCost {
    float Thickness = 0;     ///< nominal [in]
    float InstalledCost = 0; ///< [$/ft, $/ft2]; 0: this thickness is not made for this size

    // At the temperature that was analysed last.
    float HeatFlow = 0;    ///< [Btu/h per ft, per ft2]
    float SurfaceTemp = 0; ///< [degF]
};

/// Grid of cost records by size position (1 to 26 pipes, 27 to 29 flat surfaces) and thickness position (1 to
/// 18); position 0 and those beyond are there but not in use. It owns its records: one stays where it is, and
/// a reference to it good, until the grid is cleared or goes.
class CCostData {
public:
    static constexpr int sizeCount = 31;      ///< first index 0 to 30
    static constexpr int thicknessCount = 21; ///< second index 0 to 20

    static constexpr int firstFlatPosition = 27;
    static constexpr int lastSizePosition = 29;
    static constexpr int lastThicknessPosition = 18;

    /// The record of a cell; an empty cell gets a new one first.
    /// @throws std::out_of_range
    [[nodiscard]] CThicknessCost& GetCostData(int size, int thickness);

    /// The record of a cell, or nullptr when the cell is empty.
    /// @throws std::out_of_range
    [[nodiscard]] const CThicknessCost* FindCostData(int size, int thickness) const;

    /// Puts a record into a cell, in place of what was there.
    /// @throws std::out_of_range
    void SetCostData(int size, int thickness, const CThicknessCost& record);

    /// Empties every cell.
    void ClearCostData();

private:
    [[nodiscard]] std::optional<CThicknessCost>& Cell(int size, int thickness);

    std::array<std::array<std::optional<CThicknessCost>, thicknessCount>, sizeCount> cells_;
};

} // namespace kaloria
