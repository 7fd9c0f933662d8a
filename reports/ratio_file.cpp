// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/ratio_file.h"

#include "data/atomic_file.h"
#include "data/value_text.h"
#include "engine/number_text.h"
#include "reports/separated_text.h"

#include <fmt/format.h>

#include <algorithm>
#include <functional>
#include <iterator>
#include <span>
#include <system_error>
#include <utility>

namespace kaloria {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t largestFile = 1 << 18; // ten times what the longest sensible numbers need
constexpr std::size_t lineCount =
    1 + CostRatios::sizeCount + CostRatios::blockCount * (1 + CostRatios::sizeCount);

/// Goes through the lines of a file in their fixed order, to the end whatever it meets.
class RatioReader {
public:
    explicit RatioReader(std::string_view text) : lines_(separated_text::Lines(text)) { Read(); }

    [[nodiscard]] RatioLoad Load() &&;
    [[nodiscard]] std::vector<FileProblem> Problems() &&;

private:
    void Read();
    void ReadHeading();
    void ReadType(CostRatios::Material& block);
    void ReadMaterial(CostRatios::Material& block);
    void CheckTypes();

    /// Goes on to the next line. False when there is none, which is said once.
    [[nodiscard]] bool Next(std::string_view expected);
    void ReadNumbers(std::span<float> numbers);
    void DoubtRatios(const CostRatios::Line& ratios);

    /// @param field  of the current line, from 0
    void Fail(std::size_t field, std::string_view text) {
        failures_.push_back({Line(), fmt::format("field {}: {}", field + 1, text)});
    }
    void Doubt(std::size_t field, std::string_view text) {
        doubts_.push_back({Line(), fmt::format("field {}: {}", field + 1, text)});
    }
    [[nodiscard]] int Line() const { return static_cast<int>(line_); }

    std::vector<std::string_view> lines_;
    std::size_t line_ = 0; ///< the current one, from 1
    bool hasEnded_ = false;
    CostRatios ratios_;
    std::vector<FileProblem> failures_; ///< in the order of the lines
    std::vector<FileProblem> doubts_;
};

void RatioReader::Read() {
    ReadHeading();
    for (CostRatios::Line& ratios : ratios_.labor) {
        if (Next("a line of labor ratios")) {
            ReadNumbers(ratios);
            DoubtRatios(ratios);
        }
    }
    for (CostRatios::Material& block : ratios_.materials) {
        ReadType(block);
        ReadMaterial(block);
    }
    CheckTypes();
    if (lines_.size() > lineCount) {
        line_ = lineCount + 1;
        Fail(0, fmt::format("a line behind the {} of a ratio file, so that lines before it may stand in the "
                            "wrong place",
                            lineCount));
    }
}

bool RatioReader::Next(std::string_view expected) {
    if (line_ < lines_.size()) {
        ++line_;
        return true;
    }
    if (!std::exchange(hasEnded_, true)) {
        ++line_;
        Fail(0, fmt::format("missing, {} is expected; the file ends after {} of {} lines", expected,
                            lines_.size(), lineCount));
    }
    return false;
}

void RatioReader::ReadNumbers(std::span<float> numbers) {
    const auto fields = separated_text::Fields(lines_[line_ - 1], numbers.size());
    for (std::size_t i = 0; i < std::min(fields.size(), numbers.size()); ++i) {
        if (const auto number = ParseSingle(fields[i])) {
            numbers[i] = *number;
        } else {
            Fail(i, separated_text::NotANumber(fields[i]));
        }
    }
    if (fields.size() > numbers.size()) {
        Fail(numbers.size(), fmt::format("too many, the line may have {}", numbers.size()));
    }
}

void RatioReader::ReadHeading() {
    if (!Next("the line of thicknesses")) {
        return;
    }
    ReadNumbers(ratios_.thicknesses);
    const auto& thicknesses = ratios_.thicknesses;
    const auto* const end = std::find(thicknesses.begin(), thicknesses.end(), 0.0F);
    if (end == thicknesses.begin() || thicknesses.front() < 0) {
        Doubt(0, "the first thickness should be above 0");
    }
    const auto* const fall = std::adjacent_find(thicknesses.begin(), end, std::greater_equal<>());
    if (fall != end) {
        Doubt(static_cast<std::size_t>(fall - thicknesses.begin()) + 1, "thicknesses should rise");
    }
}

void RatioReader::DoubtRatios(const CostRatios::Line& ratios) {
    const auto& thicknesses = ratios_.thicknesses;
    for (std::size_t i = 0; i < ratios.size(); ++i) {
        if (ratios[i] < 0) {
            Doubt(i, "the ratio is negative");
        }
        if (ratios[i] != 0 && (i >= thicknesses.size() || thicknesses[i] == 0)) {
            Doubt(i, "a ratio where line 1 has no thickness");
        }
    }
}

void RatioReader::ReadType(CostRatios::Material& block) {
    if (!Next("a line with an insulation type code")) {
        return;
    }
    // Some files have a word behind the code.
    const auto fields = separated_text::Fields(lines_[line_ - 1], CostRatios::fieldCount);
    const auto number = ParseNumber(fields[0]);
    const auto code = value_text::ParseInteger(fields[0]);
    if (!number) {
        Fail(0, separated_text::NotANumber(fields[0]));
    } else if (!code || *code != *number) {
        Fail(0, fmt::format("{} is not a whole number, an insulation type code is expected", fields[0]));
    } else {
        block.InsulationType = *code;
    }
    if (fields.size() > 1 && ParseNumber(fields[1])) {
        Doubt(1, "a number behind the insulation type code; lines may stand in the wrong place");
    }
}

void RatioReader::ReadMaterial(CostRatios::Material& block) {
    for (std::size_t size = 0; size < block.ratios.size(); ++size) {
        CostRatios::Line& ratios = block.ratios[size];
        if (!Next("a line of material ratios")) {
            return;
        }
        ReadNumbers(ratios);
        DoubtRatios(ratios);
        for (std::size_t i = 0; i < ratios.size(); ++i) {
            if (ratios[i] != 0 && ratios_.labor[size][i] == 0) {
                Doubt(i, fmt::format("a material ratio, but line {} has no labor ratio for it", size + 2));
            }
        }
    }
}

/// A type that stands there twice has two answers, one that is missing costs nothing.
void RatioReader::CheckTypes() {
    const auto lineOf = [](std::size_t block) {
        return static_cast<int>(2 + CostRatios::sizeCount + block * (1 + CostRatios::sizeCount));
    };
    for (std::size_t block = 0; block < CostRatios::blockCount; ++block) {
        const auto type = ratios_.materials[block].InsulationType;
        const auto first = ratios_.BlockOf(type);
        if (type != 0 && first != block) { // 0 as well for a code that could not be read
            failures_.push_back({lineOf(block), fmt::format("field 1: insulation type {} has a block at line "
                                                            "{} already",
                                                            type, lineOf(*first))});
        }
    }
    for (std::int32_t type = 1; failures_.empty() && type <= 4; ++type) {
        if (!ratios_.BlockOf(type)) {
            doubts_.push_back(
                {0, fmt::format("no block for insulation type {}, which therefore costs nothing", type)});
        }
    }
}

void SortByLine(std::vector<FileProblem>& problems) {
    std::stable_sort(problems.begin(), problems.end(),
                     [](const FileProblem& a, const FileProblem& b) { return a.line < b.line; });
}

RatioLoad RatioReader::Load() && {
    if (failures_.empty()) {
        return {ratios_, {}};
    }
    SortByLine(failures_);
    return {std::nullopt, std::move(failures_.front())};
}

std::vector<FileProblem> RatioReader::Problems() && {
    std::move(doubts_.begin(), doubts_.end(), std::back_inserter(failures_));
    SortByLine(failures_);
    return std::move(failures_);
}

} // namespace

std::optional<std::size_t> CostRatios::BlockOf(std::int32_t insulationType) const {
    for (std::size_t block = 0; block < materials.size(); ++block) {
        if (materials[block].InsulationType == insulationType) {
            return block;
        }
    }
    return std::nullopt;
}

std::optional<fs::path> FindRatioFile(const fs::path& folder) {
    for (const char* const name : {"FEAratio.dta", "FEARatio.dta"}) {
        std::error_code unreadable; // what cannot be looked at is left to the reading to report
        if (fs::exists(folder / name, unreadable) || unreadable) {
            return folder / name;
        }
    }
    return std::nullopt;
}

RatioLoad LoadRatioFile(const fs::path& path) {
    try {
        return LoadRatioText(ReadFile(path, largestFile));
    } catch (const FileError& error) {
        return {std::nullopt, {0, error.what()}};
    }
}

RatioLoad LoadRatioText(std::string_view text) { return RatioReader(text).Load(); }

std::vector<FileProblem> CheckRatioFile(const fs::path& path) {
    try {
        return CheckRatioText(ReadFile(path, largestFile));
    } catch (const FileError& error) {
        return {{0, error.what()}};
    }
}

std::vector<FileProblem> CheckRatioText(std::string_view text) { return RatioReader(text).Problems(); }

std::optional<RatioFileCache::Stamp> RatioFileCache::StampOf(const fs::path& path) {
    std::error_code noSize;
    std::error_code noTime;
    Stamp stamp{path, fs::file_size(path, noSize), fs::last_write_time(path, noTime)};
    return noSize || noTime ? std::nullopt : std::optional(std::move(stamp));
}

const RatioLoad& RatioFileCache::Load(const fs::path& path) {
    // Taken before reading: a file that changes in between is read once more.
    auto stamp = StampOf(path);
    if (!stamp || stamp != stamp_) {
        load_ = LoadRatioFile(path);
        // A file that could not be read at all may be readable next time without having changed.
        const bool wasRead = load_.ratios || load_.problem.line > 0;
        stamp_ = wasRead ? std::move(stamp) : std::nullopt;
    }
    return load_;
}

} // namespace kaloria
