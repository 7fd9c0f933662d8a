// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "data/file_problem.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// The ratio file "FEAratio.dta": what an installation takes in labor and material, relative to a base case.
///
/// 140 lines of numbers between commas: a heading of up to 18 thicknesses; 27 labor lines, one for each of
/// 26 pipe sizes and one for flat surfaces; then four blocks, each of a line with the insulation type code
/// and 27 material lines. A line of ratios has at most 21 fields, one per thickness; those it lacks are 0.
namespace kaloria {

/// A ratio file that was read whole.
struct CostRatios {
    static constexpr std::size_t headingCount = 18;
    static constexpr std::size_t fieldCount = 21;
    static constexpr std::size_t sizeCount = 27; ///< 26 pipe sizes, then flat
    static constexpr std::size_t flat = 26;
    static constexpr std::size_t blockCount = 4;

    using Line = std::array<float, fieldCount>;
    using Lines = std::array<Line, sizeCount>;
    struct Material {
        std::int32_t InsulationType = 0;
        Lines ratios{};
    };

    std::array<float, headingCount> thicknesses{}; ///< [in]
    Lines labor{};                                 ///< 1 is 0.012 hours per ft or ft2
    std::array<Material, blockCount> materials{};

    /// Index in materials of the block of an insulation type; nothing when it has none.
    [[nodiscard]] std::optional<std::size_t> BlockOf(std::int32_t insulationType) const;
};

/// How reading went: the ratios or what prevented it.
struct RatioLoad {
    std::optional<CostRatios> ratios;
    FileProblem problem; ///< when there are no ratios; the text names the field
};

/// The ratio file of a folder, in either of its spellings, FEAratio.dta or FEARatio.dta (the first when both
/// are there); nothing when it has none.
[[nodiscard]] std::optional<std::filesystem::path> FindRatioFile(const std::filesystem::path& folder);

/// Reads a whole file strictly. Anything amiss in any line, be its block needed or not, is a failure: a line
/// too few or too many shifts all that follow into numbers that look right.
[[nodiscard]] RatioLoad LoadRatioFile(const std::filesystem::path& path);
[[nodiscard]] RatioLoad LoadRatioText(std::string_view text);

/// Everything wrong or doubtful in a ratio file, in the order of its lines. A file without any loads.
[[nodiscard]] std::vector<FileProblem> CheckRatioFile(const std::filesystem::path& path);
[[nodiscard]] std::vector<FileProblem> CheckRatioText(std::string_view text);

/// Keeps a parsed ratio file until the file changes.
class RatioFileCache {
public:
    /// As LoadRatioFile. The result is good until the next call.
    [[nodiscard]] const RatioLoad& Load(const std::filesystem::path& path);

private:
    struct Stamp {
        std::filesystem::path path;
        std::uintmax_t size = 0;
        std::filesystem::file_time_type changed;

        bool operator==(const Stamp&) const = default;
    };
    [[nodiscard]] static std::optional<Stamp> StampOf(const std::filesystem::path& path);

    std::optional<Stamp> stamp_;
    RatioLoad load_;
};

} // namespace kaloria
