// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/viewer/rtf_machine.h"

#include "ui/viewer/code_page.h"
#include "ui/viewer/rtf_look.h"

#include <QDate>
#include <QLocale>

#include <algorithm>
#include <utility>

namespace kaloria::viewer {

using rtf::Token;
using rtf::WordRole;

namespace {

constexpr std::size_t mostGroups = rtf::maxDepth;

/// Characters that the document we build means something of its own by.
QString Harmless(QString text) {
    for (QChar& c : text) {
        const char16_t unit = c.unicode();
        const bool isControl = unit < u' ' && unit != u'\t';
        const bool isMark = unit == 0xFDD0 || unit == 0xFDD1 || unit == 0x2029 || unit == 0xFFFC;
        c = isControl ? QChar(u' ') : isMark ? QChar(QChar::ReplacementCharacter) : c;
    }
    return text;
}

/// Symbol fonts lie in a private range, where other fonts have nothing.
QChar OfPrivateRange(char16_t unit) {
    constexpr char16_t begin = 0xF000;
    constexpr char16_t end = 0xF0FF;
    return unit >= begin && unit <= end ? SymbolOf(static_cast<unsigned char>(unit - begin)) : QChar(unit);
}

} // namespace

RtfMachine::RtfMachine(Resources resources) : resources_(std::move(resources)) {
    result_.fonts = resources_.fonts;
    result_.sections.emplace_back();
    Group outermost;
    outermost.text.font = resources_.defaultFont;
    groups_.push_back(outermost);
    stories_.emplace_back(Story::Kind::body);
}

void RtfMachine::Take(const Token& token, std::string_view bytes) {
    const bool wasStarred = std::exchange(isStarred_, false);
    const std::string_view own = bytes.substr(token.begin, token.end - token.begin);
    if (token.kind != Token::Kind::text && token.kind != Token::Kind::hex &&
        token.kind != Token::Kind::lineEnd) {
        Flush();
        fallbackLeft_ = token.kind == Token::Kind::symbol ? fallbackLeft_ : 0;
    }
    switch (token.kind) {
    case Token::Kind::open:
        Open();
        break;
    case Token::Kind::close:
        Close();
        break;
    case Token::Kind::text:
        TakeText(own);
        break;
    case Token::Kind::hex:
        TakeByte(static_cast<char>(token.value));
        break;
    case Token::Kind::symbol:
        TakeSymbol(token.name.front());
        break;
    case Token::Kind::binary:
        if (Top().destination == Destination::picture) {
            picture_.AddBytes(own.substr(own.size() - static_cast<std::size_t>(token.value)));
        }
        break;
    case Token::Kind::word:
        TakeWord(token, wasStarred);
        break;
    default:
        isStarred_ = wasStarred && token.kind == Token::Kind::lineEnd;
    }
}

void RtfMachine::Open() {
    if (groups_.size() > mostGroups) {
        throw FileFault({0, "groups are nested too deep"});
    }
    Group inner = Top();
    inner.endsStory = inner.endsPicture = inner.endsInstruction = inner.endsListText = false;
    groups_.push_back(std::move(inner));
}

void RtfMachine::Close() {
    if (groups_.size() <= 1) {
        return;
    }
    const Group closed = std::move(groups_.back());
    groups_.pop_back();
    if (closed.endsStory) {
        EndStory(closed);
    } else if (closed.endsPicture) {
        EndPicture(closed);
    } else if (closed.endsInstruction) {
        EndInstruction(closed);
    } else if (closed.endsListText && Current().Current().IsBlank()) {
        Current().Current().runs.resize(std::min(listTextRun_, Current().Current().runs.size()));
    }
    if (groups_.size() == 1) {
        // Behind the document nothing counts.
        Current().End(closed.paragraph, closed.text, budget_);
        Top().destination = Destination::skipped;
    }
}

void RtfMachine::TakeText(std::string_view text) {
    switch (Top().destination) {
    case Destination::picture:
        picture_.AddHex(text);
        break;
    case Destination::instruction: {
        constexpr qsizetype longest = 1000;
        QString& instruction = fields_[static_cast<std::size_t>(Top().field)].instruction;
        instruction += QString::fromLatin1(text.data(), static_cast<qsizetype>(text.size())).left(longest);
        instruction.truncate(longest);
        break;
    }
    case Destination::text: {
        const auto skipped = std::min(text.size(), static_cast<std::size_t>(fallbackLeft_));
        fallbackLeft_ -= static_cast<int>(skipped);
        bytes_ += text.substr(skipped);
        break;
    }
    default:
        break;
    }
}

void RtfMachine::TakeByte(char byte) {
    if (fallbackLeft_ > 0) {
        --fallbackLeft_;
    } else if (IsText()) {
        bytes_ += byte;
    }
}

void RtfMachine::Flush() {
    if (bytes_.empty()) {
        return;
    }
    const std::string bytes = std::exchange(bytes_, {});
    const Font& font = resources_.FontOf(Top().text.font);
    if (!font.isSymbol) {
        const QString text = Decoded(bytes, font.codePage > 0 ? font.codePage : resources_.codePage);
        // The blanks by which writers push a list's number into its place are not needed here.
        const bool isNumber = Top().isListText && Current().Current().runs.size() == listTextRun_;
        Write(isNumber && text.startsWith(QLatin1Char(' ')) ? text.trimmed() : text);
        return;
    }
    QString text;
    for (const char byte : bytes) {
        text += SymbolOf(static_cast<unsigned char>(byte));
    }
    Write(text);
}

void RtfMachine::Write(const QString& text) { Current().AddText(Harmless(text), Top().text, budget_); }

void RtfMachine::TakeSymbol(char symbol) {
    isStarred_ = symbol == '*';
    if (isStarred_ || !IsText()) {
        return;
    }
    if (fallbackLeft_ > 0) {
        --fallbackLeft_;
        return;
    }
    switch (symbol) {
    case '\\':
    case '{':
    case '}':
        Write(QString(QLatin1Char(symbol)));
        break;
    case '~':
        Write(QString(QChar(QChar::Nbsp)));
        break;
    case '_':
        Write(QString(QChar(u'\u2011')));
        break;
    case '\t':
        Write(QStringLiteral("\t"));
        break;
    case '\r':
    case '\n':
        Current().EndParagraph(Top().paragraph, Top().text, budget_);
        break;
    default:
        break;
    }
}

void RtfMachine::TakeWord(const Token& word, bool isStarred) {
    const rtf::WordMeaning meaning = rtf::MeaningOf(word.name);
    if (TakeDestination(word, meaning.role, isStarred)) {
        return;
    }
    if (Top().destination == Destination::picture) {
        picture_.ApplyWord(word);
    }
    if (word.name == "uc") {
        constexpr int longest = 255;
        Top().fallbackLength = NumberOf(word, 0, longest, 1);
    } else if (word.name == "u") {
        TakeUnicode(word);
    } else if (IsText() && !TakeBreak(meaning.role, word.name)) {
        TakeCharacter(word, meaning);
        TakeFormat(word);
    }
}

bool RtfMachine::TakeDestination(const Token& word, WordRole role, bool isStarred) {
    if (role == WordRole::story && groups_.size() > 1) {
        return BeginStory(word.name);
    }
    if (Top().destination == Destination::skipped) {
        return true;
    }
    if (TakeGroupWord(word)) {
        return true;
    }
    const bool isShown = word.name == "shppict" || word.name == "listtext" || word.name == "pntext";
    if (!isShown && (role == WordRole::hiddenGroup || isStarred || word.name == "nesttableprops" ||
                     word.name == "nonshppict" || word.name == "shprslt")) {
        Top().destination = Destination::skipped;
        return true;
    }
    return isShown;
}

bool RtfMachine::TakeGroupWord(const Token& word) {
    if (word.name == "pict") {
        Top().destination = Destination::picture;
        Top().endsPicture = true;
        picture_ = {};
    } else if (word.name == "field") {
        Top().field = static_cast<int>(fields_.size());
        fields_.emplace_back();
    } else if (word.name == "fldinst" && Top().field >= 0) {
        Top().destination = Destination::instruction;
        Top().endsInstruction = true;
    } else if (word.name == "fldrslt" && Top().field >= 0 &&
               fields_[static_cast<std::size_t>(Top().field)].isMadeUp) {
        Top().destination = Destination::skipped;
    } else if (word.name == "listtext" || word.name == "pntext") {
        Top().endsListText = Top().isListText = true;
        listTextRun_ = Current().Current().runs.size();
    } else {
        return false;
    }
    return true;
}

bool RtfMachine::BeginStory(std::string_view name) {
    if (Top().endsStory) {
        return true;
    }
    const bool isFirst = !name.empty() && name.back() == 'f';
    Story::Kind kind = Story::Kind::box;
    if (name.substr(0, 6) == "header") {
        kind = isFirst ? Story::Kind::firstHeader : Story::Kind::header;
    } else if (name.substr(0, 6) == "footer") {
        kind = isFirst ? Story::Kind::firstFooter : Story::Kind::footer;
    } else if (name != "shptxt" && Top().destination == Destination::skipped) {
        return true;
    }
    if (kind != Story::Kind::box && Top().destination != Destination::text) {
        return true; // a description of a page style, which is not in force here
    }
    Top().destination = Destination::text;
    Top().endsStory = true;
    Top().paragraph = {};
    Top().text = {};
    Top().text.font = resources_.defaultFont;
    stories_.emplace_back(kind);
    return true;
}

void RtfMachine::TakeUnicode(const Token& word) {
    if (!IsText()) {
        return;
    }
    Write(QString(OfPrivateRange(static_cast<char16_t>(word.value))));
    fallbackLeft_ = Top().fallbackLength;
}

bool RtfMachine::TakeBreak(WordRole role, std::string_view name) {
    const Group& top = Top();
    switch (role) {
    case WordRole::paragraphEnd:
        if (name == "page") {
            Current().BreakPage(top.paragraph, top.text, budget_);
        } else {
            Current().EndParagraph(top.paragraph, top.text, budget_);
        }
        return true;
    case WordRole::cellEnd:
        Current().EndCell(top.paragraph, top.text, budget_);
        return true;
    case WordRole::rowEnd:
        Current().EndRow(budget_);
        return true;
    case WordRole::nestedCellEnd:
        Write(QStringLiteral("\t"));
        return true;
    case WordRole::sectionEnd:
        EndSection();
        return true;
    default:
        break;
    }
    if (name == "nestrow") {
        Current().EndParagraph(top.paragraph, top.text, budget_);
        return true;
    }
    return false;
}

void RtfMachine::TakeCharacter(const Token& word, const rtf::WordMeaning& meaning) {
    if (meaning.role == WordRole::character) {
        Write(QString(QChar(static_cast<char16_t>(meaning.character))));
    } else if (meaning.role == WordRole::tab) {
        Write(QStringLiteral("\t"));
    } else if (meaning.role == WordRole::lineBreak) {
        Write(QString(QChar(QChar::LineSeparator)));
    } else if (word.name == "chpgn") {
        Current().AddField(Field::pageNumber, Top().text, budget_);
    } else if (word.name == "chdate") {
        Write(QLocale().toString(QDate::currentDate(), QLocale::ShortFormat));
    }
}

bool RtfMachine::TakeBorderWord(const Token& word) {
    constexpr std::string_view names[sideCount] = {"brdrt", "brdrr", "brdrb", "brdrl"};
    if (word.name == "box") {
        sides_ = {Side::top, Side::right, Side::bottom, Side::left};
        return true;
    }
    const auto* const side = std::find(std::begin(names), std::end(names), word.name);
    if (side != std::end(names)) {
        sides_ = {static_cast<Side>(side - std::begin(names))};
        return true;
    }
    bool isBorderWord = false;
    for (const Side which : sides_) {
        isBorderWord = ApplyBorderWord(Top().paragraph.borders.at(which), word, resources_);
    }
    return isBorderWord;
}

void RtfMachine::TakeFormat(const Token& word) {
    if (word.name == "pard") {
        Top().paragraph = {};
        sides_.clear();
    } else if (word.name == "plain") {
        if (Top().isListText) {
            return; // a list's number looks like the text that it numbers
        }
        Top().text = {};
        Top().text.font = resources_.defaultFont;
    } else if (word.name == "deftab") {
        constexpr int least = 72;
        result_.tabDistance = NumberOf(word, least, farthest, result_.tabDistance);
    } else if (!ApplyTextWord(Top().text, word, resources_) &&
               !Current().Rows().ApplyWord(word, resources_) && !TakeBorderWord(word) &&
               !ApplyParagraphWord(Top().paragraph, word, resources_)) {
        ApplySectionWord(result_.sections.back(), defaults_, word);
    }
}

} // namespace kaloria::viewer
