// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "application/comparison.h"

namespace kaloria {

/// The figure or word of one case. A case that has nothing to say here has the text "-" and no value.
struct ComparisonCell {
    std::optional<double> value;
    std::string text;
    std::optional<double> change;  ///< against the first case
    std::string changeText;        ///< with its sign
    std::optional<double> percent; ///< of the first case's magnitude; never of a temperature
    std::string percentText;       ///< with its sign
};

struct ComparisonRow {
    enum class Kind : std::uint8_t {
        input,  ///< what differs
        figure, ///< a number of the answer
        word,   ///< a text of the answer
        care,   ///< warnings, and why there is no answer
    };
    Kind kind = Kind::input;
    std::string label;
    std::string unit;
    NumberFormat format = NumberFormat::shortest;
    std::vector<ComparisonCell> cells; ///< one per case

    /// Of the changes: percentages differ by points.
    [[nodiscard]] std::string ChangeUnit() const { return unit == "%" ? "points" : unit; }
};

/// The cases as columns: first the inputs in which any two of them differ, then what they answer. Figures of
/// different units never share a row.
struct ComparisonTable {
    struct Heading {
        std::string name;
        std::string calculation; ///< calculation type
    };
    std::vector<Heading> cases;
    std::vector<ComparisonRow> inputs;
    std::vector<ComparisonRow> results;
};

/// @param cases  as SolveCases gave them, with the same catalogue
[[nodiscard]] ComparisonTable MakeComparisonTable(const std::vector<ComparedCase>& cases,
                                                  const Catalogue& catalogue);

/// "+15.2", "0", "-9.1".
[[nodiscard]] std::string SignedNumber(double value, NumberFormat format);

} // namespace kaloria
