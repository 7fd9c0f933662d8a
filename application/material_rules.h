// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "application/finding.h"
#include "data/catalogue.h"
#include "data/job.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

/// The user's own reference records: what may be done with which, and how.
namespace kaloria {

enum class MaterialKind : std::uint8_t { insulation, baseMetal, jacket, fuel };

/// The text that refuses the action on the record of that `ID`; empty when it may be done.
[[nodiscard]] std::string_view EditRefusal(const Catalogue& catalogue, MaterialKind kind, std::int32_t id);
[[nodiscard]] std::string_view ActivateRefusal(const Catalogue& catalogue, MaterialKind kind,
                                               std::int32_t id);
[[nodiscard]] std::string_view DeleteRefusal(const Catalogue& catalogue, MaterialKind kind, std::int32_t id);
[[nodiscard]] std::string_view AddRefusal(MaterialKind kind, Units units);

/// A record to fill in: the next `ID`, made by "User", active. Not yet in the catalogue.
/// @throws std::length_error when there is no `ID` left
[[nodiscard]] CInsulation NewInsulation(const Catalogue& catalogue);
[[nodiscard]] CBaseMetal NewBaseMetal(const Catalogue& catalogue);
[[nodiscard]] CJacketMaterial NewJacket(const Catalogue& catalogue);
[[nodiscard]] CFuel NewFuel(const Catalogue& catalogue);

/// A copy as a record of the user's: new `ID`, "User", active, a name of its own ("Steel (copy)",
/// "Steel (copy 2)"). Not yet in the catalogue.
[[nodiscard]] CInsulation DuplicateOf(const Catalogue& catalogue, const CInsulation& record);
[[nodiscard]] CBaseMetal DuplicateOf(const Catalogue& catalogue, const CBaseMetal& record);
[[nodiscard]] CJacketMaterial DuplicateOf(const Catalogue& catalogue, const CJacketMaterial& record);
[[nodiscard]] CFuel DuplicateOf(const Catalogue& catalogue, const CFuel& record);

/// Puts an edited record into the catalogue: in the place of the one of its `ID`, or at the end. Points are
/// sorted. The job follows: its rows and choices take over a changed name, its fuels changed figures, and a
/// row left without its record never comes to mean a new one of the same `ID`.
/// @return the refusal; empty when it is done. What is wrong in the record is not asked here, see
/// CheckRecord.
std::string_view Accept(Catalogue& catalogue, Job& job, const CInsulation& record);
std::string_view Accept(Catalogue& catalogue, Job& job, const CBaseMetal& record);
std::string_view Accept(Catalogue& catalogue, Job& job, const CJacketMaterial& record);
std::string_view Accept(Catalogue& catalogue, Job& job, const CFuel& record);

/// Flips `Active`; the refusal, empty when it is done.
std::string_view ToggleActive(Catalogue& catalogue, MaterialKind kind, std::int32_t id);

/// What uses the record in the job, for a question before it is deleted ("layers 1 and 3", "the jacket",
/// "the fuel of the report"); empty when nothing does.
[[nodiscard]] std::string UseInJob(const Catalogue& catalogue, const Job& job, MaterialKind kind,
                                   std::int32_t id);

/// Deletes records and brings them back, the last one first, where they were. Rows of a job that used one are
/// marked by CApplication::NameMaterials.
class MaterialDeletions {
public:
    /// @return the refusal; empty when it is done
    std::string_view Delete(Catalogue& catalogue, MaterialKind kind, std::int32_t id);

    [[nodiscard]] bool CanUndo() const { return !deleted_.empty(); }
    [[nodiscard]] std::string LastName() const;  ///< of what Undo brings back; empty when nothing
    [[nodiscard]] MaterialKind LastKind() const; ///< insulation when nothing
    /// Brings the last one back. Its `ID` and name stay its own, unless a record added since has taken them:
    /// then they are made new ones.
    /// @return its `ID`; 0 when there was nothing to undo
    std::int32_t Undo(Catalogue& catalogue);

private:
    struct Deleted {
        std::variant<CInsulation, CBaseMetal, CJacketMaterial, CFuel> record;
        std::size_t position;
    };
    std::vector<Deleted> deleted_;
};

/// Everything wrong or doubtful in a record that is being edited; the subject of a finding is the name of the
/// record's field ("Name", "Emittance", "TemperaturePoints"). Errors stand in the way of accepting it.
/// @param units  in which the findings speak
[[nodiscard]] std::vector<Finding> CheckRecord(const Catalogue& catalogue, const CInsulation& record,
                                               Units units = Units::english);
[[nodiscard]] std::vector<Finding> CheckRecord(const Catalogue& catalogue, const CBaseMetal& record);
[[nodiscard]] std::vector<Finding> CheckRecord(const Catalogue& catalogue, const CJacketMaterial& record);
[[nodiscard]] std::vector<Finding> CheckRecord(const Catalogue& catalogue, const CFuel& record);

/// The units by which fuels can be bought, with the units of their heating values; another unit has no price
/// of heat.
struct FuelUnitPair {
    std::string_view cost; ///< "$/Mcf"
    std::string_view heat; ///< "Btu/cf"
};
[[nodiscard]] std::span<const FuelUnitPair> FuelUnitPairs();

} // namespace kaloria
