// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "application/calculation_result.h"
#include "application/units_memory.h"
#include "data/catalogue.h"
#include "data/job.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Cases of one session side by side: what is kept, and what it answers.
namespace kaloria {

inline constexpr std::size_t mostKeptCases = 6;
inline constexpr std::size_t longestCaseName = 40; ///< in characters

/// The nominal thickness of the varying layer that a person had in hand when keeping the case.
struct ChosenThickness {
    double nominal = 0; ///< [in or mm]
    Units units = Units::english;
};

/// A case to be compared: its inputs, not its figures, which are calculated anew whenever they are shown.
struct KeptCase {
    std::string name;
    Job job;
    UnitsMemory memory;                    ///< so that switching back brings the very texts that were typed
    std::optional<ChosenThickness> chosen; ///< nothing: the design thickness, wherever it is
};

/// Up to six kept cases, all in the same units. What is refused comes back as a sentence for the person; it
/// is empty when the change was made.
class Comparison {
public:
    /// Keeps a case under its name, or, when that is empty, under its item description or as "Case 1", made
    /// different from the other names and cut to longestCaseName. Its job and the ones kept before may be in
    /// different units; SwitchUnits makes them alike.
    std::string Add(KeptCase kept);
    /// Refuses a name that is empty or another case's. Longer names are cut.
    std::string Rename(std::size_t index, std::string_view name);
    void Remove(std::size_t index);
    /// The case takes the place @p to, and those between move up.
    void Move(std::size_t from, std::size_t to);
    /// Switches every case as the window switches its job.
    void SwitchUnits(const Catalogue& catalogue, Units units);

    [[nodiscard]] const std::vector<KeptCase>& Cases() const { return cases_; }
    [[nodiscard]] bool IsFull() const { return cases_.size() >= mostKeptCases; }

private:
    [[nodiscard]] bool IsTaken(std::string_view name, std::size_t except) const;
    [[nodiscard]] std::string Unique(const std::string& wanted) const;

    std::vector<KeptCase> cases_;
};

/// Which row of its grid stands for a case.
enum class ComparedRow : std::uint8_t {
    none,
    design,   ///< the thinnest that meets the goal
    chosen,   ///< in hand when the case was kept, or in other units the nearest to that
    thickest, ///< of a case without a goal, or whose goal no row meets
    given,    ///< nothing varies: the layers as they are
};

/// A kept case with its answer.
struct ComparedCase {
    std::string name;
    Job job;
    CalculationResult result;
    std::string reason; ///< why there are no figures; empty when there are
    ComparedRow why = ComparedRow::none;
    std::size_t row = 0;                            ///< of grid and solved rows; only without a reason
    std::optional<bool> meetsGoal;                  ///< of that row; nothing when the calculation has no goal
    std::vector<std::optional<double>> thicknesses; ///< of the rows: all layers together, nominal [in or mm]

    [[nodiscard]] bool HasFigures() const { return reason.empty(); }
    [[nodiscard]] const SolvedRow& Solved() const { return result.solved.at(row); }
    [[nodiscard]] const ResultRow& Shown() const { return result.grid.rows.at(row); }
};

/// Finds the materials of a job that was kept for a while in the catalogue as it is now. They go by their
/// names: the number of a record that was deleted may be another record's meanwhile.
void FollowMaterials(Job& job, const Catalogue& catalogue);

/// Calculates the cases with the records as they are now. Neither the records nor the engine of the
/// application are touched by it.
/// @param catalogue  a record that a case names and that is not there any more is a reason without figures
[[nodiscard]] std::vector<ComparedCase> SolveCases(const std::vector<KeptCase>& cases,
                                                   const Catalogue& catalogue);

} // namespace kaloria
