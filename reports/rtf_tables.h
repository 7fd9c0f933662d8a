// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "reports/rtf_token.h"

#include <array>
#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

/// The tables at the start of a document, to whose entries its text refers by number.
namespace kaloria::rtf {

/// In the order in which they have to stand.
enum class TableKind { fonts, colors, styles, lists, listOverrides };
inline constexpr std::size_t tableCount = 5;

struct HeaderTables {
    /// Where a table's group stands, from its opening to behind its closing brace; both 0 when there is none.
    struct Place {
        std::size_t begin = 0;
        std::size_t end = 0;
    };
    std::array<Place, tableCount> places;
    std::size_t front = 0; ///< behind the words that the document starts with, where tables may be put
    int defaultFont = 0;   ///< what \plain sets
    int codePage = 1252;   ///< of bytes in fonts that do not say theirs

    [[nodiscard]] Place Of(TableKind kind) const { return places.at(static_cast<std::size_t>(kind)); }
};

/// @param bytes  of a checked document
[[nodiscard]] HeaderTables FindTables(std::string_view bytes);

/// An entry of the table of fonts, styles, lists or list overrides: a group with its braces. Entries that old
/// writers leave without braces ("\f0\fswiss Arial;") have got them.
[[nodiscard]] std::vector<std::string> TableEntries(std::string_view table);

/// The entries of a colour table, without the semicolons that end them; the automatic colour is empty.
[[nodiscard]] std::vector<std::string> ColorEntries(std::string_view table);

/// A number to put into a word, or what else to do with a token.
struct Change {
    enum class Kind { keep, drop, renumber, replace };
    Kind kind = Kind::keep;
    int number = 0;
    std::string text; ///< instead of the token; does not end in a bare word
};

/// Markup with changes made to its tokens, except line ends, which stay.
/// @param depth  of groups in which the token stands, 1 inside the outermost
using TokenChange = std::function<Change(const Token& token, std::size_t depth)>;
[[nodiscard]] std::string Rewritten(std::string_view rtf, const TokenChange& change);

/// Number of the first word of that name directly in the entry's group, @p otherwise when there is none.
[[nodiscard]] int NumberIn(std::string_view entry, std::string_view word, int otherwise);

/// Where the name at the end of a style stands: behind its last word, up to the semicolon.
struct NamePlace {
    std::size_t begin = 0;
    std::size_t end = 0;
};
[[nodiscard]] NamePlace NameOf(std::string_view style);

} // namespace kaloria::rtf
