// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/rtf_markup.h"

#include "reports/rtf_characters.h"

#include <fmt/format.h>

#include <cstddef>
#include <iterator>
#include <stdexcept>

namespace kaloria::rtf {

namespace {

constexpr int indent = 70;    // of the text of a cell from both its edges [twip]
constexpr int ruleWidth = 10; // [twip]
constexpr int fromRule = 30;  // of the text of a cell, above and below [twip]
constexpr int leading = 12;   // below a cell without a rule [twip]

std::string_view WordOf(Alignment alignment) {
    switch (alignment) {
    case Alignment::center:
        return "\\qc";
    case Alignment::right:
        return "\\qr";
    default:
        return "\\ql";
    }
}

} // namespace

Markup Paragraphs(const std::vector<std::string>& lines) {
    std::string rtf;
    for (const std::string& line : lines) {
        rtf += rtf.empty() ? "{\\uc1 " : "\\par\n";
        rtf += EscapedText(line);
    }
    return {rtf.empty() ? rtf : rtf + "}", false};
}

TableBuilder::TableBuilder(std::vector<TableColumn> columns, int left)
    : columns_(std::move(columns)), left_(left) {
    if (columns_.empty()) {
        throw std::invalid_argument("a table without columns");
    }
}

void TableBuilder::AddHeading(const std::vector<std::string>& cells, RowLook look) {
    look.staysWithNext = true;
    AddWholeRow(cells, look, true);
}

void TableBuilder::AddRow(const std::vector<std::string>& cells, const RowLook& look) {
    AddWholeRow(cells, look, false);
}

void TableBuilder::AddWholeRow(const std::vector<std::string>& cells, const RowLook& look, bool isHeading) {
    if (cells.size() > columns_.size()) {
        throw std::invalid_argument("more cells than columns");
    }
    BeginRow(isHeading);
    int right = left_;
    for (const TableColumn& column : columns_) {
        right += column.width;
        AddCellEdge(look, right);
    }
    for (std::size_t i = 0; i < columns_.size(); ++i) {
        AddCellText(i < cells.size() ? cells[i] : std::string_view(), columns_[i].alignment, look);
    }
    rows_ += "\\row\n";
}

void TableBuilder::AddSpan(std::string_view text, const RowLook& look) {
    BeginRow(false);
    AddCellEdge(look, left_ + Width());
    AddCellText(text, Alignment::left, look);
    rows_ += "\\row\n";
}

int TableBuilder::Width() const {
    int width = 0;
    for (const TableColumn& column : columns_) {
        width += column.width;
    }
    return width;
}

Markup TableBuilder::Build() const {
    // The group gives the text around the table its own formats back.
    return {rows_.empty() ? rows_ : "{\\uc1\n" + rows_ + "\\pard}", true};
}

void TableBuilder::BeginRow(bool isHeading) {
    // Readers differ in where a gap around the text leaves the edge of a row, so there is none: the
    // paragraphs are indented.
    fmt::format_to(std::back_inserter(rows_), "\\trowd\\trgaph0\\trleft{}\\trkeep{}\n", left_,
                   isHeading ? "\\trhdr" : "");
}

void TableBuilder::AddCellEdge(const RowLook& look, int right) {
    rows_ += "\\clvertalb";
    const auto addRule = [&](std::string_view side) {
        fmt::format_to(std::back_inserter(rows_), "\\clbrdr{}\\brdrs\\brdrw{}", side, ruleWidth);
    };
    if (look.hasRuleAbove) {
        addRule("t");
    }
    if (look.hasRuleBelow) {
        addRule("b");
    }
    if (look.shading > 0) {
        fmt::format_to(std::back_inserter(rows_), "\\clshdng{}", look.shading * 100);
    }
    fmt::format_to(std::back_inserter(rows_), "\\cellx{}\n", right);
}

void TableBuilder::AddCellText(std::string_view text, Alignment alignment, const RowLook& look) {
    fmt::format_to(
        std::back_inserter(rows_), "\\pard\\intbl\\li{0}\\ri{0}\\sb{1}\\sa{2}{3}{4}{{{5}{6}}}\\cell\n",
        indent, look.hasRuleAbove ? fromRule : 0, look.hasRuleBelow ? fromRule : leading, WordOf(alignment),
        look.staysWithNext ? "\\keepn" : "", look.isBold ? "\\b " : "\\b0 ", EscapedText(text));
}

} // namespace kaloria::rtf
