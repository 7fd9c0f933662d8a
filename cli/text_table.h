// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace kaloria::cli {

/// A table for a terminal, or as comma-separated values.
struct TextTable {
    struct Column {
        std::vector<std::string> headings; ///< one per heading line
        bool right = false;                ///< figures are aligned to the right
    };
    std::vector<Column> columns;
    std::vector<std::vector<std::string>> rows;

    /// Columns padded to their widest text, two blanks between them, a line of hyphens under the headings.
    void Print(std::ostream& out) const;

    /// RFC 4180: one heading line (heading lines joined by a blank), texts quoted where they need it.
    void PrintCsv(std::ostream& out) const;
};

/// Characters that a text takes on a terminal, for the Latin texts that this program prints.
[[nodiscard]] std::size_t DisplayWidth(const std::string& text);

} // namespace kaloria::cli
