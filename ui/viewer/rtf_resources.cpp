// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/viewer/rtf_resources.h"

#include "reports/rtf_tables.h"
#include "ui/viewer/code_page.h"

#include <algorithm>

namespace kaloria::viewer {

namespace {

using rtf::Token;

constexpr int symbolCharset = 2;

struct Family {
    std::string_view word;
    QFont::StyleHint hint;
    const char* standIn;
};
constexpr Family families[] = {{"froman", QFont::Serif, "Liberation Serif"},
                               {"fswiss", QFont::SansSerif, "Liberation Sans"},
                               {"fmodern", QFont::Monospace, "Liberation Mono"}};

std::string_view TableOf(std::string_view bytes, const rtf::HeaderTables& tables, rtf::TableKind kind) {
    const auto place = tables.Of(kind);
    return bytes.substr(place.begin, place.end - place.begin);
}

/// The text directly in a group, or in markup without one.
QString NameIn(std::string_view markup, int codePage) {
    std::string bytes;
    std::size_t depth = markup.substr(0, 1) == "{" ? 0 : 1;
    rtf::Tokenizer tokens(markup);
    for (Token token = tokens.Next(); token.kind != Token::Kind::end; token = tokens.Next()) {
        depth += token.kind == Token::Kind::open ? 1 : 0;
        depth -= token.kind == Token::Kind::close ? 1 : 0;
        if (token.kind == Token::Kind::text && depth == 1) {
            bytes += markup.substr(token.begin, token.end - token.begin);
        } else if (token.kind == Token::Kind::hex && depth == 1) {
            bytes += static_cast<char>(token.value);
        }
    }
    return Decoded(bytes, codePage).remove(QLatin1Char(';')).trimmed();
}

/// What the group {\*\falt ...} offers.
QString StandInOf(std::string_view entry, int codePage) {
    constexpr std::string_view word = "\\falt";
    const auto begin = entry.find(word);
    if (begin == std::string_view::npos) {
        return {};
    }
    const auto text = entry.substr(begin + word.size());
    return NameIn(text.substr(0, text.find('}')), codePage);
}

bool HasWord(std::string_view entry, std::string_view word) {
    rtf::Tokenizer tokens(entry);
    for (Token token = tokens.Next(); token.kind != Token::Kind::end; token = tokens.Next()) {
        if (token.IsWord(word)) {
            return true;
        }
    }
    return false;
}

Font FontIn(std::string_view entry, int documentCodePage) {
    Font font;
    const int charset = rtf::NumberIn(entry, "fcharset", 0);
    font.isSymbol = charset == symbolCharset;
    font.codePage = rtf::NumberIn(entry, "cpg", CodePageOfCharset(charset));
    const int codePage = font.codePage > 0 ? font.codePage : documentCodePage;
    font.families << NameIn(entry, codePage) << StandInOf(entry, codePage);
    for (const Family& family : families) {
        if (HasWord(entry, family.word)) {
            font.hint = family.hint;
            font.families << QLatin1String(family.standIn);
        }
    }
    font.families.removeAll(QString());
    font.families.removeDuplicates();
    return font;
}

QColor ColorIn(const std::string& entry) {
    const std::string group = "{" + entry + "}";
    constexpr int none = -1;
    const int red = rtf::NumberIn(group, "red", none);
    const int green = rtf::NumberIn(group, "green", none);
    const int blue = rtf::NumberIn(group, "blue", none);
    if (red == none && green == none && blue == none) {
        return {};
    }
    const auto part = [](int value) { return std::clamp(value, 0, 255); };
    return {part(red), part(green), part(blue)};
}

} // namespace

QColor Resources::Color(int number) const {
    return number >= 0 && static_cast<std::size_t>(number) < colors.size()
               ? colors[static_cast<std::size_t>(number)]
               : QColor();
}

const Font& Resources::FontOf(int number) const {
    static const Font none{};
    const auto found = fonts.find(number);
    return found == fonts.end() ? none : found->second;
}

Resources ReadResources(std::string_view bytes) {
    const rtf::HeaderTables tables = rtf::FindTables(bytes);
    Resources resources;
    resources.defaultFont = tables.defaultFont;
    resources.codePage = tables.codePage;
    for (const std::string& entry : rtf::TableEntries(TableOf(bytes, tables, rtf::TableKind::fonts))) {
        resources.fonts.insert_or_assign(rtf::NumberIn(entry, "f", 0), FontIn(entry, tables.codePage));
    }
    for (const std::string& entry : rtf::ColorEntries(TableOf(bytes, tables, rtf::TableKind::colors))) {
        resources.colors.push_back(ColorIn(entry));
    }
    return resources;
}

} // namespace kaloria::viewer
