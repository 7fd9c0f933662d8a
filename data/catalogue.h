// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/insulation.h"
#include "engine/reference_records.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace kaloria {

/// The texts shown above the input panels, by position in the navigation.
class HeaderTexts {
public:
    static constexpr int categories = 6;
    static constexpr int menuItems = 6;
    static constexpr int subItems = 11;

    /// @throws std::out_of_range for an index outside the bounds above
    [[nodiscard]] const std::string& At(int category, int menuItem, int subItem = 0) const;
    /// @throws std::out_of_range as above
    void Set(int category, int menuItem, int subItem, std::string text);

private:
    std::array<std::string, std::size_t{categories} * menuItems * subItems> texts_;
};

/// The reference data of a run. Order is the configuration file's, with the user's records added at the end.
struct Catalogue {
    HeaderTexts Headers;
    Collection<CSurfaceGeometry> SurfaceGeometries;
    Collection<CReportingUnit> ReportingUnits;
    Collection<CInsulation> Insulations;
    Collection<CBaseMetal> BaseMetals;
    Collection<CJacketMaterial> JacketMaterials;
    Collection<CFuel> Fuels;
    Collection<CPipe> Pipes;
    Collection<CTube> Tubes;
    Collection<CNominalThickness> NominalThicknesses;
    Collection<CProductivityFactor> ProductivityFactors;
};

/// Supplied records carry this text, exactly, in CreatedBy; every other record is the user's own.
constexpr std::string_view systemCreator = "System";

/// The first record with this ID, or nullptr. @p records may be const.
template <class Records>
[[nodiscard]] auto* FindById(Records& records, std::int32_t id) {
    const auto found =
        std::find_if(records.begin(), records.end(), [id](const auto& r) { return r.ID == id; });
    return found == records.end() ? nullptr : &*found;
}

/// The first record of exactly this name, or nullptr. @p records may be const.
template <class Records>
[[nodiscard]] auto* FindByName(Records& records, std::string_view name) {
    const auto found =
        std::find_if(records.begin(), records.end(), [name](const auto& r) { return r.Name == name; });
    return found == records.end() ? nullptr : &*found;
}

/// One more than @p largest.
/// @throws std::length_error when that is no 32-bit integer
[[nodiscard]] std::int32_t IdAfter(std::int32_t largest);

/// The ID of a new record: the largest of the collection plus 1; 1 for an empty collection.
/// @throws std::length_error when the largest possible ID is taken
template <class Records>
[[nodiscard]] std::int32_t NextId(const Records& records) {
    const auto largest = std::max_element(records.begin(), records.end(),
                                          [](const auto& a, const auto& b) { return a.ID < b.ID; });
    return IdAfter(largest == records.end() ? 0 : largest->ID);
}

} // namespace kaloria
