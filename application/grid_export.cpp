// SPDX-License-Identifier: GPL-3.0-or-later
#include "application/grid_export.h"

#include "data/atomic_file.h"
#include "engine/number_text.h"

#include <algorithm>
#include <string_view>
#include <vector>

namespace kaloria {

namespace {

/// Text that a spreadsheet would take for a formula gets an apostrophe in front, its own sign for a text. The
/// lone dash of a number that was not computed is none.
std::string Harmless(std::string_view text) {
    constexpr std::string_view formulaSigns = "=+-@";
    const std::string_view seen = Trimmed(text);
    const bool isFormula = seen.size() > 1 && formulaSigns.find(seen.front()) != std::string_view::npos;
    return isFormula && !ParseNumber(seen) ? "'" + std::string(text) : std::string(text);
}

/// The texts of a line of the grid; 0 and 1 are the headings.
std::vector<std::string> LineTexts(const ResultsGrid& grid, std::size_t line) {
    std::vector<std::string> texts;
    if (line < 2) {
        for (const ResultColumn& column : grid.columns) {
            texts.emplace_back(Harmless(Trimmed(line == 0 ? column.name : column.unit)));
        }
        return texts;
    }
    const ResultRow& row = grid.rows.at(line - 2);
    texts.push_back(Harmless(row.label));
    for (const ResultCell& cell : row.cells) {
        texts.push_back(cell.value ? cell.text : Harmless(cell.text));
    }
    return texts;
}

template <class Cell>
std::string Lines(const ResultsGrid& grid, char separator, std::string_view end, Cell&& cellText) {
    std::string text;
    for (std::size_t line = 0; line < grid.rows.size() + 2; ++line) {
        bool first = true;
        for (const std::string& cell : LineTexts(grid, line)) {
            text += (first ? std::string() : std::string(1, separator)) + cellText(cell);
            first = false;
        }
        text += end;
    }
    return text;
}

std::string OneCell(std::string text) {
    std::replace_if(
        text.begin(), text.end(), [](char c) { return c == '\t' || c == '\n' || c == '\r'; }, ' ');
    return text;
}

std::string Quoted(const std::string& text) {
    if (text.find_first_of(",\"\r\n") == std::string::npos) {
        return text;
    }
    std::string quoted = "\"";
    for (const char c : text) {
        quoted += c == '"' ? "\"\"" : std::string(1, c);
    }
    return quoted + '"';
}

} // namespace

std::string GridAsTabText(const ResultsGrid& grid) { return Lines(grid, '\t', "\n", OneCell); }

std::string GridAsCsv(const ResultsGrid& grid) { return "\xEF\xBB\xBF" + Lines(grid, ',', "\r\n", Quoted); }

void WriteGridCsv(const std::filesystem::path& path, const ResultsGrid& grid) {
    ReplaceFile(path, GridAsCsv(grid));
}

} // namespace kaloria
