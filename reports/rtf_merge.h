// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "reports/rtf_tables.h"

#include <array>
#include <cstddef>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace kaloria::rtf {

/// Hands out numbers that are not in use, the lowest first.
class NumberPool {
public:
    explicit NumberPool(int first) : next_(first) {}
    void Use(int number) { used_.insert(number); }
    [[nodiscard]] int Take();

private:
    std::set<int> used_;
    int next_;
};

/// The tables of a document to which pages of others are added, as they grow.
class MergedTables {
public:
    /// @param document  checked, the first; its entries keep their numbers
    explicit MergedTables(std::string_view document);

    [[nodiscard]] const HeaderTables& Header() const { return header_; }

    /// The document's own markup with the tables grown by what was added.
    /// @param document  that of the constructor
    /// @param end       where its last closing brace stands
    [[nodiscard]] std::string Grown(std::string_view document, std::size_t end) const;

private:
    friend class PageNumbers;

    void ReadFonts(std::string_view table);
    void ReadColors(std::string_view table);
    void ReadStyles(std::string_view table);
    void ReadLists(std::string_view lists, std::string_view overrides);
    std::string& Added(TableKind kind) { return added_.at(static_cast<std::size_t>(kind)); }

    HeaderTables header_;
    std::array<std::string, tableCount> added_;
    // Entries, brought into a form in which equal ones are the same text, and their numbers.
    std::map<std::string, int, std::less<>> fonts_;
    std::map<std::string, int, std::less<>> colors_;
    std::map<std::string, int, std::less<>> styles_;
    std::set<std::string, std::less<>> styleNames_;
    NumberPool fontNumbers_{0};
    NumberPool styleNumbers_{1};
    NumberPool listNumbers_{1};
    NumberPool listIds_{1};
    int colorCount_ = 0;
};

/// What the numbers of a page's fonts, colours, styles and lists are in the document that it is added to. An
/// entry is added to the tables when it is first asked for, and only when they have no equal one; a style
/// that has the name of another there is renamed. Each page's lists are new, so that they count from the
/// start.
class PageNumbers {
public:
    /// @param page  checked; both must outlive the object
    PageNumbers(MergedTables& merged, std::string_view page);

    /// What is to be done with a word that refers to a table; to keep it when it refers to none.
    [[nodiscard]] Change For(const Token& word);

    /// What \plain and \pard mean on the page: its default font, and its style 0.
    [[nodiscard]] int DefaultFont() { return Font(header_.defaultFont); }
    [[nodiscard]] int DefaultStyle() { return Style('s', 0); }

private:
    using StyleKey = std::pair<char, int>; ///< kind (s, c, d, t) and number
    struct List {
        std::string list;
        std::string listOverride;
    };

    void ReadEntries(std::string_view page);
    [[nodiscard]] int Font(int number);
    [[nodiscard]] int Color(int number);
    [[nodiscard]] int Style(char kind, int number);
    /// Of a kind if there is one, else of any.
    [[nodiscard]] int RelatedStyle(char kind, int number);
    [[nodiscard]] int ListOverride(int number);
    [[nodiscard]] std::string FontEntry(const std::string& entry, int number) const;
    void AddPendingStyles();
    void AddStyle(const StyleKey& key, int number);
    [[nodiscard]] std::string UniquelyNamed(const std::string& style);
    void AddList(const List& source, int number);

    MergedTables& merged_;
    HeaderTables header_;
    std::map<int, std::string> fonts_;
    std::vector<std::string> colors_;
    std::map<StyleKey, std::string> styles_;
    std::map<int, std::string> lists_; ///< by id
    std::map<int, std::string> listOverrides_;
    std::map<int, int> fontNumbers_; ///< of the page, and what they are in the document; the same below
    std::map<StyleKey, int> styleNumbers_;
    std::map<int, int> listNumbers_;
    std::vector<std::pair<StyleKey, int>> pendingStyles_; ///< have their number, not yet their entry
    bool isAddingStyles_ = false;
};

} // namespace kaloria::rtf
