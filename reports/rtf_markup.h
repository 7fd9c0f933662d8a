// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace kaloria::rtf {

/// A balanced piece of markup, made by the functions below and never of text from outside, so that a value
/// can never become markup by mistake.
class Markup {
public:
    Markup() = default;

    [[nodiscard]] const std::string& Rtf() const { return rtf_; }
    [[nodiscard]] bool IsTable() const { return isTable_; }

private:
    friend class TableBuilder;
    friend Markup Paragraphs(const std::vector<std::string>& lines);
    Markup(std::string rtf, bool isTable) : rtf_(std::move(rtf)), isTable_(isTable) {}

    std::string rtf_;
    bool isTable_ = false;
};

/// UTF-8 texts as paragraphs of the same format, the last one open.
[[nodiscard]] Markup Paragraphs(const std::vector<std::string>& lines);

enum class Alignment { left, center, right };

struct TableColumn {
    int width = 0; ///< [twip], 1/1440 in
    Alignment alignment = Alignment::left;
};

struct RowLook {
    bool isBold = false;
    bool hasRuleAbove = false;
    bool hasRuleBelow = false;
    bool staysWithNext = false; ///< never the last row of a page
    int shading = 0;            ///< gray behind the row [%]
};

/// Builds a table of rows and cells. Font and size are those of the place that it is put in.
class TableBuilder {
public:
    /// @param left  edge of the first column, from the margin; text stands a little inside [twip]
    explicit TableBuilder(std::vector<TableColumn> columns, int left = 0);

    /// A bold row that is repeated at the top of each page. Several make a heading of several lines; only the
    /// rows at the start of a table can be repeated.
    void AddHeading(const std::vector<std::string>& cells,
                    RowLook look = {.isBold = true, .hasRuleBelow = true});

    /// @param cells  UTF-8; columns without one stay empty
    void AddRow(const std::vector<std::string>& cells, const RowLook& look = {});

    /// One cell over all columns, for the title of a group of rows.
    void AddSpan(std::string_view text, const RowLook& look = {.isBold = true, .staysWithNext = true});

    /// Whole width [twip].
    [[nodiscard]] int Width() const;

    [[nodiscard]] Markup Build() const;

private:
    void BeginRow(bool isHeading);
    void AddCellEdge(const RowLook& look, int right);
    void AddCellText(std::string_view text, Alignment alignment, const RowLook& look);
    void AddWholeRow(const std::vector<std::string>& cells, const RowLook& look, bool isHeading);

    std::vector<TableColumn> columns_;
    int left_;
    std::string rows_;
};

} // namespace kaloria::rtf
