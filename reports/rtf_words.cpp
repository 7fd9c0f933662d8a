// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/rtf_words.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <iterator>

namespace kaloria::rtf {

namespace {

struct Word {
    std::string_view name;
    WordMeaning meaning;
};

// Sorted by name.
constexpr Word words[] = {
    {"annotation", {WordRole::hiddenGroup}},
    {"author", {WordRole::hiddenGroup}},
    {"bkmkend", {WordRole::hiddenGroup}},
    {"bkmkstart", {WordRole::hiddenGroup}},
    {"bullet", {WordRole::character, 0x2022}},
    {"cell", {WordRole::cellEnd}},
    {"cellx", {WordRole::rowFormat}},
    {"chdate", {WordRole::generated}},
    {"chftn", {WordRole::generated}},
    {"chpgn", {WordRole::generated}},
    {"chtime", {WordRole::generated}},
    {"colortbl", {WordRole::hiddenGroup}},
    {"column", {WordRole::paragraphEnd}},
    {"comment", {WordRole::hiddenGroup}},
    {"deleted", {WordRole::deleted}},
    {"dptxbxtext", {WordRole::story}},
    {"emdash", {WordRole::character, 0x2014}},
    {"emspace", {WordRole::character, 0x2003}},
    {"endash", {WordRole::character, 0x2013}},
    {"enspace", {WordRole::character, 0x2002}},
    {"factoidname", {WordRole::hiddenGroup}},
    {"falt", {WordRole::hiddenGroup}},
    {"filetbl", {WordRole::hiddenGroup}},
    {"fldinst", {WordRole::objectGroup}},
    {"fonttbl", {WordRole::hiddenGroup}},
    {"footer", {WordRole::story}},
    {"footerf", {WordRole::story}},
    {"footerl", {WordRole::story}},
    {"footerr", {WordRole::story}},
    {"footnote", {WordRole::story}},
    {"header", {WordRole::story}},
    {"headerf", {WordRole::story}},
    {"headerl", {WordRole::story}},
    {"headerr", {WordRole::story}},
    {"info", {WordRole::hiddenGroup}},
    {"intbl", {WordRole::inTable}},
    {"irow", {WordRole::rowFormat}},
    {"irowband", {WordRole::rowFormat}},
    {"keywords", {WordRole::hiddenGroup}},
    {"lastrow", {WordRole::rowFormat}},
    {"ldblquote", {WordRole::character, 0x201C}},
    {"levelnumbers", {WordRole::hiddenGroup}},
    {"leveltext", {WordRole::hiddenGroup}},
    {"line", {WordRole::lineBreak}},
    {"listname", {WordRole::hiddenGroup}},
    {"listoverridetable", {WordRole::hiddenGroup}},
    {"listtable", {WordRole::hiddenGroup}},
    {"listtext", {WordRole::hiddenGroup}},
    {"lquote", {WordRole::character, 0x2018}},
    {"ltrrow", {WordRole::rowFormat}},
    {"mmathPr", {WordRole::hiddenGroup}},
    {"nestcell", {WordRole::nestedCellEnd}},
    {"nesttableprops", {WordRole::objectGroup}},
    {"nonesttables", {WordRole::hiddenGroup}},
    {"nonshppict", {WordRole::objectGroup}},
    {"objclass", {WordRole::hiddenGroup}},
    {"objdata", {WordRole::hiddenGroup}},
    {"page", {WordRole::paragraphEnd}},
    {"panose", {WordRole::hiddenGroup}},
    {"par", {WordRole::paragraphEnd}},
    {"pard", {WordRole::pard}},
    {"pict", {WordRole::objectGroup}},
    {"plain", {WordRole::plain}},
    {"pntext", {WordRole::hiddenGroup}},
    {"pntxta", {WordRole::hiddenGroup}},
    {"pntxtb", {WordRole::hiddenGroup}},
    {"qmspace", {WordRole::character, 0x2005}},
    {"rdblquote", {WordRole::character, 0x201D}},
    {"revtbl", {WordRole::hiddenGroup}},
    {"row", {WordRole::rowEnd}},
    {"rquote", {WordRole::character, 0x2019}},
    {"rtlrow", {WordRole::rowFormat}},
    {"rxe", {WordRole::hiddenGroup}},
    {"sect", {WordRole::sectionEnd}},
    {"sectnum", {WordRole::generated}},
    {"shppict", {WordRole::objectGroup}},
    {"shptxt", {WordRole::story}},
    {"sn", {WordRole::hiddenGroup}},
    {"sp", {WordRole::hiddenGroup}},
    {"stylesheet", {WordRole::hiddenGroup}},
    {"subject", {WordRole::hiddenGroup}},
    {"sv", {WordRole::hiddenGroup}},
    {"tab", {WordRole::tab}},
    {"tc", {WordRole::hiddenGroup}},
    {"tcn", {WordRole::hiddenGroup}},
    {"template", {WordRole::hiddenGroup}},
    {"title", {WordRole::hiddenGroup}},
    {"ts", {WordRole::rowFormat}},
    {"txe", {WordRole::hiddenGroup}},
    {"u", {WordRole::unicode}},
    {"uc", {WordRole::fallbackLength}},
    {"xe", {WordRole::hiddenGroup}},
};

constexpr bool IsBefore(const Word& left, const Word& right) { return left.name < right.name; }
static_assert(std::is_sorted(std::begin(words), std::end(words), IsBefore));

constexpr std::size_t letterCount = 'z' - 'a' + 1;

/// Where the words of each first letter start: most words of a document are none of ours, and this is asked
/// for every one of them.
constexpr std::array<std::size_t, letterCount + 1> Starts() {
    std::array<std::size_t, letterCount + 1> starts{};
    for (const Word& word : words) {
        const auto letter = static_cast<std::size_t>(word.name.front() - 'a');
        for (std::size_t later = letter + 1; later <= letterCount; ++later) {
            ++starts[later];
        }
    }
    return starts;
}
constexpr auto starts = Starts();

/// The many formats of rows and cells. \trackmoves and its like are the document's.
bool IsOfRow(std::string_view word) {
    return word.starts_with("cl") || word.starts_with("tbl") ||
           (word.starts_with("tr") && !word.starts_with("trac"));
}

/// How a border looks, which follows the word that says whose it is: \clbrdrb\brdrs\brdrw10.
bool IsOfBorder(std::string_view word) {
    static constexpr std::string_view ofParagraph[] = {"brdrt", "brdrb",   "brdrl",
                                                       "brdrr", "brdrbtw", "brdrbar"};
    return word.starts_with("brdr") &&
           std::find(std::begin(ofParagraph), std::end(ofParagraph), word) == std::end(ofParagraph);
}

/// Of a word that is not in the table.
WordMeaning MeaningByName(std::string_view word) {
    if (IsOfRow(word)) {
        return {WordRole::rowFormat};
    }
    return {IsOfBorder(word) ? WordRole::border : WordRole::unknown};
}

} // namespace

WordMeaning MeaningOf(std::string_view word) {
    const auto letter = static_cast<std::size_t>(word.empty() ? 0 : word.front() - 'a');
    if (letter >= letterCount) {
        return {};
    }
    const auto* const end = std::begin(words) + starts[letter + 1];
    const auto* const found = std::find_if(std::begin(words) + starts[letter], end,
                                           [&](const Word& known) { return known.name == word; });
    return found == end ? MeaningByName(word) : found->meaning;
}

} // namespace kaloria::rtf
