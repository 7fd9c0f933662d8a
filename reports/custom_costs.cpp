// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/custom_costs.h"

#include "data/atomic_file.h"
#include "data/value_text.h"
#include "engine/number_text.h"
#include "reports/separated_text.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <utility>

namespace kaloria {

namespace {

constexpr std::size_t largestFile = 1 << 18;
constexpr std::size_t fieldCount = CCostData::lastThicknessPosition;
constexpr std::size_t lineCount = 1 + CCostData::lastSizePosition;

using Numbers = std::array<float, fieldCount>;

/// Reads the whole file, whatever it meets.
class CostReader {
public:
    explicit CostReader(std::string_view text);

    std::vector<FileProblem> problems;
    CCostData costs;

private:
    [[nodiscard]] Numbers ReadLine(std::string_view line);
    void CheckThicknesses();
    void ReadCosts(int position, std::string_view line);
    void Fail(std::size_t field, std::string_view text) {
        problems.push_back({line_, fmt::format("field {}: {}", field + 1, text)});
    }

    int line_ = 1;
    Numbers thicknesses_{};
};

CostReader::CostReader(std::string_view text) {
    const auto lines = separated_text::Lines(text);
    if (!lines.empty()) {
        thicknesses_ = ReadLine(lines.front());
        CheckThicknesses();
    }
    for (std::size_t i = 1; i < std::min(lines.size(), lineCount); ++i) {
        ++line_;
        ReadCosts(static_cast<int>(i), lines[i]);
    }
    if (lines.size() != lineCount) {
        line_ = static_cast<int>(std::min(lines.size(), lineCount)) + 1;
        Fail(0, fmt::format("a cost file has {} lines, this one {}", lineCount, lines.size()));
    }
}

Numbers CostReader::ReadLine(std::string_view line) {
    Numbers numbers{};
    const auto fields = separated_text::Fields(line, numbers.size());
    for (std::size_t i = 0; i < std::min(fields.size(), numbers.size()); ++i) {
        const auto number = ParseSingle(fields[i]);
        if (!number) {
            Fail(i, separated_text::NotANumber(fields[i]));
        } else if (*number < 0) {
            Fail(i, fmt::format("{} is negative", fields[i]));
        } else {
            numbers[i] = *number;
        }
    }
    if (fields.size() != numbers.size()) {
        Fail(std::min(fields.size(), numbers.size()),
             fmt::format("{}, a line has {}", fields.size() < numbers.size() ? "missing" : "too many",
                         numbers.size()));
    }
    return numbers;
}

void CostReader::CheckThicknesses() {
    if (thicknesses_.front() == 0) {
        Fail(0, "the first thickness has to be above 0");
    }
    for (std::size_t i = 1; i < thicknesses_.size(); ++i) {
        if (thicknesses_[i] != 0 && thicknesses_[i] <= thicknesses_[i - 1]) {
            Fail(i, "thicknesses have to rise");
        } else if (thicknesses_[i] != 0 && thicknesses_[i - 1] == 0) {
            Fail(i, "a thickness behind one that is 0");
        }
    }
}

void CostReader::ReadCosts(int position, std::string_view line) {
    const Numbers numbers = ReadLine(line);
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        if (numbers[i] != 0 && thicknesses_[i] == 0) {
            Fail(i, "a cost where line 1 has no thickness");
        }
        CThicknessCost& cell = costs.GetCostData(position, static_cast<int>(i) + 1);
        cell.Thickness = thicknesses_[i];
        cell.InstalledCost = numbers[i];
    }
}

/// A line of the numbers that @p numberOf gives for the thickness positions.
template <class NumberOf>
std::string LineOf(NumberOf numberOf) {
    std::string line;
    for (int i = 1; i <= CCostData::lastThicknessPosition; ++i) {
        line += (i == 1 ? "" : ",") + value_text::RealText(numberOf(i));
    }
    return line + '\n';
}

} // namespace

std::filesystem::path CustomCostsPath(const std::filesystem::path& job) {
    return std::filesystem::path(job).replace_extension(".costs.csv");
}

std::optional<FileProblem> LoadCustomCosts(const std::filesystem::path& path, CCostData& costs) {
    try {
        return LoadCustomCostsText(ReadFile(path, largestFile), costs);
    } catch (const FileError& error) {
        return {{0, error.what()}};
    }
}

std::optional<FileProblem> LoadCustomCostsText(std::string_view text, CCostData& costs) {
    CostReader reader(text);
    if (!reader.problems.empty()) {
        return std::move(reader.problems.front());
    }
    costs = reader.costs;
    return std::nullopt;
}

void SaveCustomCosts(const std::filesystem::path& path, const CCostData& costs) {
    ReplaceFile(path, CustomCostsText(costs));
}

std::string CustomCostsText(const CCostData& costs) {
    const auto cellOf = [&](int size, int thickness) {
        const CThicknessCost* const cell = costs.FindCostData(size, thickness);
        return cell == nullptr ? CThicknessCost() : *cell;
    };
    std::string text = LineOf([&](int i) { return cellOf(1, i).Thickness; });
    for (int size = 1; size <= CCostData::lastSizePosition; ++size) {
        text += LineOf([&](int i) { return cellOf(size, i).InstalledCost; });
    }
    return text;
}

std::vector<FileProblem> CheckCustomCosts(const std::filesystem::path& path) {
    try {
        return CheckCustomCostsText(ReadFile(path, largestFile));
    } catch (const FileError& error) {
        return {{0, error.what()}};
    }
}

std::vector<FileProblem> CheckCustomCostsText(std::string_view text) { return CostReader(text).problems; }

} // namespace kaloria
