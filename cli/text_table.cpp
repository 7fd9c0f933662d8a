// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/text_table.h"

#include "engine/number_text.h"

#include <algorithm>
#include <ostream>

namespace kaloria::cli {

namespace {

std::string Padded(const std::string& text, std::size_t width, bool right) {
    const std::size_t own = DisplayWidth(text);
    const std::string blanks(width > own ? width - own : 0, ' ');
    return right ? blanks + text : text + blanks;
}

/// One line of cells, without blanks at its end.
void PrintLine(std::ostream& out, const std::vector<TextTable::Column>& columns,
               const std::vector<std::size_t>& widths, const std::vector<std::string>& cells) {
    std::string line;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        line += (i > 0 ? "  " : "") + Padded(i < cells.size() ? cells[i] : "", widths[i], columns[i].right);
    }
    line.erase(line.find_last_not_of(' ') + 1);
    out << line << '\n';
}

std::string Quoted(const std::string& text) {
    if (text.find_first_of(",\"\n\r") == std::string::npos) {
        return text;
    }
    std::string quoted = "\"";
    for (const char c : text) {
        quoted += c;
        if (c == '"') {
            quoted += c;
        }
    }
    return quoted + "\"";
}

} // namespace

std::size_t DisplayWidth(const std::string& text) {
    // Every byte that does not continue a UTF-8 sequence begins a character.
    return static_cast<std::size_t>(std::count_if(
        text.begin(), text.end(), [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U; }));
}

void TextTable::Print(std::ostream& out) const {
    std::vector<std::size_t> widths;
    std::size_t headingLines = 0;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        std::size_t width = 0;
        for (const std::string& heading : columns[i].headings) {
            width = std::max(width, DisplayWidth(heading));
        }
        for (const auto& row : rows) {
            width = std::max(width, i < row.size() ? DisplayWidth(row[i]) : 0);
        }
        widths.push_back(width);
        headingLines = std::max(headingLines, columns[i].headings.size());
    }
    for (std::size_t line = 0; line < headingLines; ++line) {
        std::vector<std::string> cells;
        for (const Column& column : columns) {
            cells.push_back(line < column.headings.size() ? column.headings[line] : "");
        }
        PrintLine(out, columns, widths, cells);
    }
    std::vector<std::string> rule;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        rule.emplace_back(columns[i].headings.empty() ? 0 : widths[i], '-');
    }
    PrintLine(out, columns, widths, rule);
    for (const auto& row : rows) {
        PrintLine(out, columns, widths, row);
    }
}

void TextTable::PrintCsv(std::ostream& out) const {
    for (std::size_t i = 0; i < columns.size(); ++i) {
        std::string heading;
        for (const std::string& line : columns[i].headings) {
            heading += (heading.empty() ? "" : " ") + std::string(Trimmed(line));
        }
        out << (i > 0 ? "," : "") << Quoted(heading);
    }
    out << '\n';
    for (const auto& row : rows) {
        for (std::size_t i = 0; i < columns.size(); ++i) {
            out << (i > 0 ? "," : "") << (i < row.size() ? Quoted(row[i]) : "");
        }
        out << '\n';
    }
}

} // namespace kaloria::cli
