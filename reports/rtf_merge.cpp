// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/rtf_merge.h"

#include "reports/rtf_output.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <functional>
#include <iterator>
#include <optional>

namespace kaloria::rtf {

namespace {

enum class Reference { font, color, style, styleRelation, listNumber };

struct ReferringWord {
    std::string_view name;
    Reference reference;
};

// Sorted by name.
constexpr ReferringWord referringWords[] = {
    {"af", Reference::font},
    {"brdrcf", Reference::color},
    {"cb", Reference::color},
    {"cbpat", Reference::color},
    {"cf", Reference::color},
    {"cfpat", Reference::color},
    {"chcbpat", Reference::color},
    {"chcfpat", Reference::color},
    {"clcbpat", Reference::color},
    {"clcbpatraw", Reference::color},
    {"clcfpat", Reference::color},
    {"clcfpatraw", Reference::color},
    {"cs", Reference::style},
    {"ds", Reference::style},
    {"f", Reference::font},
    {"highlight", Reference::color},
    {"ls", Reference::listNumber},
    {"pncf", Reference::color},
    {"pnf", Reference::font},
    {"s", Reference::style},
    {"sbasedon", Reference::styleRelation},
    {"slink", Reference::styleRelation},
    {"snext", Reference::styleRelation},
    {"trcbpat", Reference::color},
    {"trcfpat", Reference::color},
    {"ts", Reference::style},
    {"tscellcbpat", Reference::color},
    {"tscellcfpat", Reference::color},
    {"ulc", Reference::color},
    {"yts", Reference::style},
};

std::optional<Reference> ReferenceOf(std::string_view word) {
    const auto* const found =
        std::lower_bound(std::begin(referringWords), std::end(referringWords), word,
                         [](const ReferringWord& row, std::string_view name) { return row.name < name; });
    return found != std::end(referringWords) && found->name == word ? std::optional(found->reference)
                                                                    : std::nullopt;
}

/// s, c, d or t: numbers of different kinds of styles are different things.
char KindOfWord(std::string_view word) { return word == "yts" ? 't' : word.front(); }

bool IsOwnNumber(const Token& token, std::size_t depth) {
    return depth == 1 && token.kind == Token::Kind::word && ReferenceOf(token.name) == Reference::style &&
           token.name != "yts";
}

struct NumberedStyle {
    char kind = 's';
    int number = 0;
    std::string entry;
};

/// @param entry  one without a number is style 0
NumberedStyle Numbered(std::string entry) {
    for (const std::string_view word : {"cs", "ds", "ts", "s"}) {
        if (const int number = NumberIn(entry, word, -1); number >= 0) {
            return {KindOfWord(word), number, std::move(entry)};
        }
    }
    return {'s', 0, "{\\s0 " + entry.substr(1)};
}

Change Renumber(int number) { return {Change::Kind::renumber, number, {}}; }
constexpr auto drop = Change::Kind::drop;

/// A style without what differs between equal ones: its number, and those of its relatives and its list.
/// @param change  what to do with references to fonts and colours
std::string Normalized(const std::string& style, const std::function<Change(const Token&)>& change) {
    return Rewritten(style, [&](const Token& token, std::size_t depth) -> Change {
        const auto reference = token.kind == Token::Kind::word ? ReferenceOf(token.name) : std::nullopt;
        if (!reference) {
            return {};
        }
        if (*reference == Reference::font || *reference == Reference::color) {
            return change(token);
        }
        return IsOwnNumber(token, depth) || *reference == Reference::listNumber ? Renumber(0)
                                                                                : Change{drop, 0, {}};
    });
}

std::string NormalizedFont(const std::string& font) {
    return Rewritten(font, [](const Token& token, std::size_t depth) {
        return depth == 1 && token.IsWord("f") ? Renumber(0) : Change{};
    });
}

std::string_view Part(std::string_view bytes, const HeaderTables& header, TableKind kind) {
    const HeaderTables::Place place = header.Of(kind);
    return bytes.substr(place.begin, place.end - place.begin);
}

/// Aliases may follow the name behind a comma.
std::string_view FirstName(std::string_view style) {
    const NamePlace place = NameOf(style);
    const std::string_view names = style.substr(place.begin, place.end - place.begin);
    return names.substr(0, names.find(','));
}

/// The same for names that a word processor may take for one: it knows its own styles in several spellings
/// ("heading 1" and "Heading 1", "Body Text" and "Text Body").
std::string NameKey(std::string_view name) {
    std::multiset<std::string> words;
    std::string word;
    for (const char c : name) {
        if (c == ' ') {
            words.insert(std::exchange(word, {}));
        } else {
            word += c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
        }
    }
    words.insert(word);
    return fmt::format("{}", fmt::join(words, " "));
}

} // namespace

int NumberPool::Take() {
    while (used_.contains(next_)) {
        ++next_;
    }
    return next_++;
}

MergedTables::MergedTables(std::string_view document) : header_(FindTables(document)) {
    ReadFonts(Part(document, header_, TableKind::fonts));
    ReadColors(Part(document, header_, TableKind::colors));
    ReadStyles(Part(document, header_, TableKind::styles));
    ReadLists(Part(document, header_, TableKind::lists), Part(document, header_, TableKind::listOverrides));
}

void MergedTables::ReadFonts(std::string_view table) {
    for (const std::string& entry : TableEntries(table)) {
        const int number = NumberIn(entry, "f", 0);
        fonts_.emplace(NormalizedFont(entry), number);
        fontNumbers_.Use(number);
    }
    fontNumbers_.Use(header_.defaultFont);
}

void MergedTables::ReadColors(std::string_view table) {
    const auto entries = ColorEntries(table);
    for (const std::string& entry : entries) {
        colors_.emplace(entry, colorCount_++);
    }
    if (entries.empty()) {
        // Number 0 is the automatic colour also where there is no table.
        colors_.emplace("", colorCount_++);
        Added(TableKind::colors) = ";";
    } else if (std::count(table.begin(), table.end(), ';') < colorCount_) {
        Added(TableKind::colors) = ";"; // the last one lacked it
    }
}

void MergedTables::ReadStyles(std::string_view table) {
    bool hasDefault = false;
    auto entries = TableEntries(table);
    for (std::size_t i = 0; i <= entries.size(); ++i) {
        if (i == entries.size() && hasDefault) {
            break;
        }
        const NumberedStyle style = Numbered(i < entries.size() ? std::move(entries[i]) : "{Normal;}");
        hasDefault = hasDefault || (style.kind == 's' && style.number == 0);
        styles_.emplace(Normalized(style.entry, [](const Token&) { return Change{}; }), style.number);
        styleNames_.insert(NameKey(FirstName(style.entry)));
        styleNumbers_.Use(style.number);
    }
}

void MergedTables::ReadLists(std::string_view lists, std::string_view overrides) {
    for (const std::string& entry : TableEntries(lists)) {
        listIds_.Use(NumberIn(entry, "listid", 0));
    }
    for (const std::string& entry : TableEntries(overrides)) {
        listNumbers_.Use(NumberIn(entry, "ls", 0));
    }
}

std::string MergedTables::Grown(std::string_view document, std::size_t end) const {
    static constexpr std::string_view begins[tableCount] = {"{\\fonttbl", "{\\colortbl", "{\\stylesheet",
                                                            "{\\*\\listtable", "{\\*\\listoverridetable"};
    std::vector<Edit> edits;
    std::size_t before = header_.front; // where a table goes that is not there
    for (std::size_t i = 0; i < tableCount; ++i) {
        const HeaderTables::Place place = header_.places.at(i);
        if (place.end != 0) {
            before = std::max(before, place.end);
        }
        if (added_.at(i).empty() || (place.end == 0 && added_.at(i) == ";")) {
            continue;
        }
        if (place.end != 0) {
            edits.push_back({place.end - 1, place.end - 1, added_.at(i), false});
        } else {
            edits.push_back({before, before, fmt::format("{}{}}}\n", begins[i], added_.at(i)), false});
        }
    }
    return Edited(document.substr(0, end), std::move(edits));
}

PageNumbers::PageNumbers(MergedTables& merged, std::string_view page)
    : merged_(merged), header_(FindTables(page)) {
    ReadEntries(page);
}

void PageNumbers::ReadEntries(std::string_view page) {
    for (std::string& entry : TableEntries(Part(page, header_, TableKind::fonts))) {
        const int number = NumberIn(entry, "f", 0);
        fonts_.emplace(number, std::move(entry));
    }
    colors_ = ColorEntries(Part(page, header_, TableKind::colors));
    for (std::string& entry : TableEntries(Part(page, header_, TableKind::styles))) {
        NumberedStyle style = Numbered(std::move(entry));
        styles_.emplace(StyleKey(style.kind, style.number), std::move(style.entry));
    }
    styles_.emplace(StyleKey('s', 0), "{\\s0 Normal;}");
    for (std::string& entry : TableEntries(Part(page, header_, TableKind::lists))) {
        const int id = NumberIn(entry, "listid", 0);
        lists_.emplace(id, std::move(entry));
    }
    for (std::string& entry : TableEntries(Part(page, header_, TableKind::listOverrides))) {
        const int number = NumberIn(entry, "ls", 0);
        listOverrides_.emplace(number, std::move(entry));
    }
}

Change PageNumbers::For(const Token& word) {
    const auto reference = ReferenceOf(word.name);
    if (!reference) {
        return {};
    }
    switch (*reference) {
    case Reference::font:
        return Renumber(Font(word.value));
    case Reference::color:
        return Renumber(Color(word.value));
    case Reference::style:
        return Renumber(Style(KindOfWord(word.name), word.value));
    case Reference::styleRelation:
        return Renumber(RelatedStyle('s', word.value));
    default:
        const int number = ListOverride(word.value);
        return number > 0 ? Renumber(number) : Change{drop, 0, {}};
    }
}

std::string PageNumbers::FontEntry(const std::string& entry, int number) const {
    // A font that does not say the code page of its bytes has that of its document.
    const int charset = NumberIn(entry, "fcharset", 1);
    const bool needsCodePage =
        header_.codePage != merged_.header_.codePage && charset <= 1 && NumberIn(entry, "cpg", -1) < 0;
    return Rewritten(entry, [&](const Token& token, std::size_t depth) -> Change {
        if (depth != 1 || !token.IsWord("f")) {
            return {};
        }
        return needsCodePage
                   ? Change{Change::Kind::replace, 0, fmt::format("\\f{}\\cpg{} ", number, header_.codePage)}
                   : Renumber(number);
    });
}

int PageNumbers::Font(int number) {
    if (const auto known = fontNumbers_.find(number); known != fontNumbers_.end()) {
        return known->second;
    }
    // One that the table lacks is the default font.
    auto found = fonts_.find(number);
    if (found == fonts_.end()) {
        found = fonts_.find(header_.defaultFont);
    }
    if (found == fonts_.end()) {
        return merged_.header_.defaultFont;
    }
    const auto [place, isNew] = merged_.fonts_.try_emplace(FontEntry(found->second, 0), 0);
    if (isNew) {
        place->second = merged_.fontNumbers_.Take();
        merged_.Added(TableKind::fonts) += FontEntry(found->second, place->second) + "\n";
    }
    return fontNumbers_[number] = place->second;
}

int PageNumbers::Color(int number) {
    const bool isKnown = number >= 0 && static_cast<std::size_t>(number) < colors_.size();
    const std::string& entry = isKnown ? colors_[static_cast<std::size_t>(number)] : std::string();
    const auto [place, isNew] = merged_.colors_.try_emplace(entry, merged_.colorCount_);
    if (isNew) {
        ++merged_.colorCount_;
        merged_.Added(TableKind::colors) += entry + ";";
    }
    return place->second;
}

int PageNumbers::RelatedStyle(char kind, int number) {
    for (const char any : {kind, 's', 'c', 't', 'd'}) {
        if (styles_.contains({any, number})) {
            return Style(any, number);
        }
    }
    return DefaultStyle();
}

int PageNumbers::Style(char kind, int number) {
    // One that the table lacks is the default style, which is always there.
    const StyleKey asked(kind, number);
    const StyleKey key = styles_.contains(asked) ? asked : StyleKey('s', 0);
    if (const auto known = styleNumbers_.find(key); known != styleNumbers_.end()) {
        return known->second;
    }
    auto normalized = Normalized(styles_.at(key), [this](const Token& word) { return For(word); });
    const auto [place, isNew] = merged_.styles_.try_emplace(std::move(normalized), 0);
    if (isNew) {
        place->second = merged_.styleNumbers_.Take();
        pendingStyles_.emplace_back(key, place->second);
    }
    styleNumbers_[key] = place->second;
    AddPendingStyles();
    return place->second;
}

/// One after another, however many styles are based on one another: the chain may be as long as the file.
void PageNumbers::AddPendingStyles() {
    if (isAddingStyles_) {
        return;
    }
    isAddingStyles_ = true;
    while (!pendingStyles_.empty()) {
        const auto [key, number] = pendingStyles_.back();
        pendingStyles_.pop_back();
        AddStyle(key, number);
    }
    isAddingStyles_ = false;
}

void PageNumbers::AddStyle(const StyleKey& key, int number) {
    const std::string style = UniquelyNamed(styles_.at(key));
    const char kind = key.first;
    merged_.Added(TableKind::styles) +=
        Rewritten(style,
                  [&](const Token& token, std::size_t depth) -> Change {
                      if (token.kind != Token::Kind::word) {
                          return {};
                      }
                      if (IsOwnNumber(token, depth)) {
                          return Renumber(number);
                      }
                      return ReferenceOf(token.name) == Reference::styleRelation
                                 ? Renumber(RelatedStyle(kind, token.value))
                                 : For(token);
                  }) +
        "\n";
}

/// Two styles of one name are one to a word processor.
std::string PageNumbers::UniquelyNamed(const std::string& style) {
    const NamePlace place = NameOf(style);
    const std::string_view name = FirstName(style);
    if (merged_.styleNames_.insert(NameKey(name)).second) {
        return style;
    }
    for (int i = 2;; ++i) {
        const std::string other = fmt::format("{} ({})", name, i);
        if (merged_.styleNames_.insert(NameKey(other)).second) {
            return style.substr(0, place.begin) + other + style.substr(place.end);
        }
    }
}

int PageNumbers::ListOverride(int number) {
    if (const auto known = listNumbers_.find(number); known != listNumbers_.end()) {
        return known->second;
    }
    const auto listOverride = listOverrides_.find(number);
    const auto list = listOverride == listOverrides_.end()
                          ? lists_.end()
                          : lists_.find(NumberIn(listOverride->second, "listid", 0));
    if (list == lists_.end()) {
        return 0;
    }
    const int added = merged_.listNumbers_.Take();
    listNumbers_[number] = added;
    AddList({list->second, listOverride->second}, added);
    return added;
}

void PageNumbers::AddList(const List& source, int number) {
    const int id = merged_.listIds_.Take();
    const TokenChange change = [&](const Token& token, std::size_t depth) -> Change {
        if (token.kind != Token::Kind::word) {
            return {};
        }
        if (token.name == "listid") {
            return Renumber(id);
        }
        if (token.name == "ls") {
            return depth == 1 ? Renumber(number) : Change{drop, 0, {}};
        }
        // They refer to tables that are not merged.
        const bool isLost = token.name == "levelpicture" || token.name == "liststyleid";
        return isLost ? Change{drop, 0, {}} : For(token);
    };
    merged_.Added(TableKind::lists) += Rewritten(source.list, change) + "\n";
    merged_.Added(TableKind::listOverrides) += Rewritten(source.listOverride, change) + "\n";
}

} // namespace kaloria::rtf
