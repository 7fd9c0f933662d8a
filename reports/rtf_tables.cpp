// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/rtf_tables.h"

#include "reports/rtf_output.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <utility>

namespace kaloria::rtf {

namespace {

constexpr std::string_view tableNames[tableCount] = {"fonttbl", "colortbl", "stylesheet", "listtable",
                                                     "listoverridetable"};

// What stands before the tables. Sorted.
constexpr std::string_view frontWords[] = {
    "adeff",     "adeflang",  "ansi",       "ansicpg",   "deff",        "deflang",     "deflangfe",
    "fbidis",    "mac",       "nouicompat", "pc",        "pca",         "rtf",         "stshfbi",
    "stshfdbch", "stshfhich", "stshfloch",  "themelang", "themelangcs", "themelangfe", "uc"};
static_assert(std::is_sorted(std::begin(frontWords), std::end(frontWords)));

std::optional<std::size_t> TableOf(const Token& word) {
    const auto* const found = std::find(std::begin(tableNames), std::end(tableNames), word.name);
    return found == std::end(tableNames) || word.kind != Token::Kind::word
               ? std::nullopt
               : std::optional(static_cast<std::size_t>(found - std::begin(tableNames)));
}

/// Reads the words that the document starts with.
void TakeFront(HeaderTables& tables, const Token& word) {
    if (!std::binary_search(std::begin(frontWords), std::end(frontWords), word.name)) {
        return;
    }
    if (word.name == "deff" && word.hasValue) {
        tables.defaultFont = word.value;
    } else if (word.name == "ansicpg" && word.hasValue) {
        tables.codePage = word.value;
    }
}

} // namespace

HeaderTables FindTables(std::string_view bytes) {
    HeaderTables tables;
    Tokenizer tokens(bytes);
    std::size_t depth = 0;
    std::size_t groupBegin = 0;
    std::optional<std::size_t> current;
    bool isAtFront = true;
    for (Token token = tokens.Next(); token.kind != Token::Kind::end; token = tokens.Next()) {
        if (token.kind == Token::Kind::open) {
            ++depth;
            groupBegin = depth == 2 ? token.begin : groupBegin;
            isAtFront = isAtFront && depth == 1;
        } else if (token.kind == Token::Kind::close) {
            if (depth == 2 && current) {
                tables.places.at(*current) = {groupBegin, token.end};
                current.reset();
            }
            --depth;
        } else if (token.kind == Token::Kind::word && depth == 1) {
            if (token.name == "sectd" || token.name == "pard") {
                break; // the text starts
            }
            TakeFront(tables, token);
            isAtFront =
                isAtFront && std::binary_search(std::begin(frontWords), std::end(frontWords), token.name);
        } else if (depth == 2 && !current) {
            // The first of a kind counts.
            const auto kind = TableOf(token);
            current = kind && tables.places.at(*kind).end == 0 ? kind : std::nullopt;
        }
        tables.front = isAtFront && depth == 1 && token.kind == Token::Kind::word ? token.end : tables.front;
    }
    return tables;
}

std::vector<std::string> TableEntries(std::string_view table) {
    std::vector<std::string> entries;
    Tokenizer tokens(table);
    std::size_t depth = 0;
    std::size_t groupBegin = 0;
    std::string loose; // an entry without braces, so far
    const auto bytesOf = [&](const Token& token) {
        return table.substr(token.begin, token.end - token.begin);
    };
    for (Token token = tokens.Next(); token.kind != Token::Kind::end; token = tokens.Next()) {
        depth += token.kind == Token::Kind::open ? 1 : 0;
        if (token.kind == Token::Kind::open && depth == 2) {
            groupBegin = token.begin;
        } else if (token.kind == Token::Kind::close && depth == 2) {
            const std::string_view group = table.substr(groupBegin, token.end - groupBegin);
            if (loose.empty()) {
                entries.emplace_back(group);
            } else {
                loose += group;
            }
        } else if (depth == 1 && token.kind == Token::Kind::text) {
            std::string_view text = bytesOf(token);
            for (auto end = text.find(';'); end != std::string_view::npos; end = text.find(';')) {
                entries.push_back("{" + std::exchange(loose, {}) + std::string(text.substr(0, end + 1)) +
                                  "}");
                text.remove_prefix(end + 1);
            }
            loose += loose.empty() && text.find_first_not_of(' ') == std::string_view::npos ? "" : text;
        } else if (depth == 1 && token.kind != Token::Kind::open && token.kind != Token::Kind::lineEnd &&
                   !TableOf(token) && !token.Is(Token::Kind::symbol, "*")) {
            loose += bytesOf(token);
        }
        depth -= token.kind == Token::Kind::close ? 1 : 0;
    }
    return entries;
}

std::vector<std::string> ColorEntries(std::string_view table) {
    std::vector<std::string> entries;
    std::string entry;
    Tokenizer tokens(table);
    for (Token token = tokens.Next(); token.kind != Token::Kind::end; token = tokens.Next()) {
        if (token.kind == Token::Kind::word && !TableOf(token)) {
            entry += table.substr(token.begin, token.end - token.begin - (token.isBare ? 0 : 1));
        } else if (token.kind == Token::Kind::text) {
            const auto text = table.substr(token.begin, token.end - token.begin);
            for (auto left = std::count(text.begin(), text.end(), ';'); left > 0; --left) {
                entries.push_back(std::exchange(entry, {}));
            }
        }
    }
    if (!entry.empty()) {
        entries.push_back(entry);
    }
    return entries;
}

std::string Rewritten(std::string_view rtf, const TokenChange& change) {
    Output out;
    out.Reserve(rtf.size() + rtf.size() / 16);
    Tokenizer tokens(rtf);
    std::size_t depth = 0;
    for (Token token = tokens.Next(); token.kind != Token::Kind::end; token = tokens.Next()) {
        if (token.kind == Token::Kind::lineEnd) {
            out.PutToken(rtf, token);
            continue;
        }
        depth += token.kind == Token::Kind::open ? 1 : 0;
        const Change what = change(token, depth);
        switch (what.kind) {
        case Change::Kind::keep:
            out.PutToken(rtf, token);
            break;
        case Change::Kind::renumber:
            out.PutWord(token, what.number);
            break;
        case Change::Kind::replace:
            out.Put(what.text);
            break;
        case Change::Kind::drop:
            break;
        }
        depth -= token.kind == Token::Kind::close ? 1 : 0;
    }
    return out.Take();
}

int NumberIn(std::string_view entry, std::string_view word, int otherwise) {
    Tokenizer tokens(entry);
    std::size_t depth = 0;
    for (Token token = tokens.Next(); token.kind != Token::Kind::end; token = tokens.Next()) {
        depth += token.kind == Token::Kind::open ? 1 : 0;
        depth -= token.kind == Token::Kind::close ? 1 : 0;
        if (depth == 1 && token.IsWord(word)) {
            return token.hasValue ? token.value : otherwise;
        }
    }
    return otherwise;
}

NamePlace NameOf(std::string_view style) {
    Tokenizer tokens(style);
    NamePlace place;
    std::size_t depth = 0;
    for (Token token = tokens.Next(); token.kind != Token::Kind::end; token = tokens.Next()) {
        depth += token.kind == Token::Kind::open ? 1 : 0;
        const bool isOfName = token.kind == Token::Kind::text || token.kind == Token::Kind::hex ||
                              token.kind == Token::Kind::symbol || token.kind == Token::Kind::lineEnd ||
                              token.IsWord("u");
        if (depth == 1 && isOfName) {
            place.begin = place.end == 0 ? token.begin : place.begin;
            place.end = token.end;
        } else if (depth != 1 || token.kind != Token::Kind::close) {
            place = {};
        }
        depth -= token.kind == Token::Kind::close ? 1 : 0;
    }
    const std::size_t semicolon = style.substr(0, place.end).rfind(';');
    place.end = semicolon != std::string_view::npos && semicolon >= place.begin ? semicolon : place.end;
    return place;
}

} // namespace kaloria::rtf
