// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/rtf_text.h"

#include "reports/rtf_characters.h"

#include <algorithm>
#include <utility>

namespace kaloria::rtf {

namespace {

using Kind = Piece::Kind;

/// Of the words that are pieces themselves.
Kind KindOf(WordRole role) {
    switch (role) {
    case WordRole::character:
        return Kind::character;
    case WordRole::tab:
        return Kind::tab;
    case WordRole::lineBreak:
        return Kind::lineBreak;
    case WordRole::generated:
        return Kind::generated;
    case WordRole::paragraphEnd:
        return Kind::paragraphEnd;
    case WordRole::sectionEnd:
        return Kind::sectionEnd;
    case WordRole::cellEnd:
        return Kind::cellEnd;
    case WordRole::nestedCellEnd:
        return Kind::nestedCellEnd;
    case WordRole::rowEnd:
        return Kind::rowEnd;
    case WordRole::rowFormat:
        return Kind::rowFormat;
    default:
        return Kind::end;
    }
}

bool EndsParagraph(Kind kind) { return kind >= Kind::paragraphEnd && kind <= Kind::rowEnd; }

} // namespace

TextScanner::TextScanner(std::string_view bytes) : bytes_(bytes), tokens_(bytes) {
    storyHasText_.push_back(false);
    groups_.emplace_back();
}

void TextScanner::Advance() {
    if (token_.isBare) {
        bareWordEnd_ = token_.end;
    }
    token_ = tokens_.Next();
}

Piece TextScanner::Next() {
    Piece piece;
    for (;;) {
        if (!isAhead_) {
            Advance();
        }
        if (token_.kind == Token::Kind::end) {
            return {};
        }
        isAhead_ = false;
        piece.begin = token_.begin;
        piece.end = token_.end;
        piece.followsBareWord = token_.begin == bareWordEnd_;
        if (Take(piece)) {
            return Completed(piece);
        }
    }
}

Piece TextScanner::Completed(Piece piece) {
    piece.fallbackLength = Top().fallbackLength;
    piece.isInTable = Top().isInTable;
    piece.isInBody = storyHasText_.size() == 1;
    piece.startsParagraph = !storyHasText_.back();
    if (EndsParagraph(piece.kind)) {
        storyHasText_.back() = false;
    } else if (piece.kind < Kind::paragraphEnd) {
        storyHasText_.back() = true;
    }
    return piece;
}

/// By its first byte.
void TextScanner::ShortenText() {
    ++token_.begin;
    isAhead_ = token_.begin < token_.end;
}

bool TextScanner::TakeText(Piece& piece) {
    if (!IsShown()) {
        return false;
    }
    const auto byte = static_cast<unsigned char>(bytes_[token_.begin]);
    ShortenText();
    piece.end = token_.begin;
    if (byte == '\t') {
        piece.kind = Kind::tab;
        return true;
    }
    return byte >= ' ' && Character(CharacterOfByte(byte), piece);
}

bool TextScanner::Take(Piece& piece) {
    const Token& token = token_;
    const bool wasStarred = std::exchange(isStarred_, false);
    switch (token.kind) {
    case Token::Kind::text:
        return TakeText(piece);
    case Token::Kind::open:
        groups_.push_back(Top());
        Top().begin = token.begin;
        Top().followsBareWord = piece.followsBareWord;
        Top().isObject = Top().beginsStory = false;
        return false;
    case Token::Kind::close:
        return TakeClose(piece);
    case Token::Kind::hex:
        return Character(CharacterOfByte(static_cast<unsigned char>(token.value)), piece);
    case Token::Kind::symbol:
        return TakeSymbol(token, piece);
    case Token::Kind::word:
        return TakeWord(token, wasStarred, piece);
    default:
        return false;
    }
}

bool TextScanner::TakeClose(Piece& piece) {
    const Group closed = Top();
    if (groups_.size() > 1) {
        groups_.pop_back();
    }
    if (closed.beginsStory) {
        piece.kind = Kind::storyEnd;
        piece.end = piece.begin;
        storyHasText_.pop_back();
        return true;
    }
    if (closed.isObject && IsShown()) {
        piece.kind = Kind::object;
        piece.begin = closed.begin;
        piece.followsBareWord = closed.followsBareWord;
        return true;
    }
    return false;
}

bool TextScanner::TakeWord(const Token& word, bool isStarred, Piece& piece) {
    WordMeaning meaning = MeaningOf(word.name);
    if (meaning.role == WordRole::border && isOfRow_) {
        meaning.role = WordRole::rowFormat;
    }
    isOfRow_ = meaning.role == WordRole::rowFormat;
    const bool isOn = !word.hasValue || word.value != 0;
    switch (meaning.role) {
    case WordRole::story:
        return BeginStory(piece);
    case WordRole::hiddenGroup:
    case WordRole::objectGroup:
        Hide(meaning.role == WordRole::objectGroup);
        return false;
    case WordRole::fallbackLength:
        Top().fallbackLength = std::max(0, word.hasValue ? word.value : 1);
        break;
    case WordRole::deleted:
        Top().isDeleted = isOn;
        break;
    case WordRole::plain:
        Top().isDeleted = false;
        break;
    case WordRole::inTable:
        Top().isInTable = isOn;
        break;
    case WordRole::pard:
        Top().isInTable = false;
        break;
    default:
        break;
    }
    if (isStarred) {
        Hide(false);
    }
    return IsShown() && TakeShown(word, meaning, piece);
}

bool TextScanner::TakeShown(const Token& word, const WordMeaning& meaning, Piece& piece) {
    if (meaning.role == WordRole::unicode) {
        const auto unit = static_cast<char16_t>(word.value);
        SkipFallback(piece);
        return Character(unit, piece);
    }
    piece.kind = KindOf(meaning.role);
    piece.character = meaning.character;
    return piece.kind != Kind::end;
}

void TextScanner::Hide(bool isObject) {
    Top().isObject = Top().isObject || (isObject && Top().isVisible);
    Top().isVisible = false;
}

/// Visible also where the group around it is not: a text box stands in a shape's properties.
bool TextScanner::BeginStory(Piece& piece) {
    if (Top().beginsStory || groups_.size() <= 1) {
        return false;
    }
    Top().beginsStory = true;
    Top().isVisible = true;
    Top().isInTable = false;
    storyHasText_.push_back(false);
    piece.kind = Kind::storyBegin;
    piece.begin = piece.end;
    return true;
}

bool TextScanner::TakeSymbol(const Token& symbol, Piece& piece) {
    const char c = symbol.name.front();
    isStarred_ = c == '*';
    if (!IsShown()) {
        return false;
    }
    switch (c) {
    case '\\':
    case '{':
    case '}':
        return Character(static_cast<unsigned char>(c), piece);
    case '~':
        return Character(0xA0, piece);
    case '_':
        return Character(0x2011, piece);
    case '\t':
        piece.kind = Kind::tab;
        return true;
    case '\r':
    case '\n':
        piece.kind = Kind::paragraphEnd;
        return true;
    default: // also \-, where a word may be divided
        return false;
    }
}

bool TextScanner::Character(char32_t character, Piece& piece) {
    piece.kind = Kind::character;
    piece.character = character;
    return IsShown();
}

/// A control word ends the fallback, as it does for most readers: taking it for a character of the fallback
/// would lose formatting with the text.
void TextScanner::SkipFallback(Piece& piece) {
    for (int left = Top().fallbackLength; left > 0; --left) {
        do {
            if (!isAhead_) {
                Advance();
            }
            isAhead_ = false;
        } while (token_.kind == Token::Kind::lineEnd);
        if (token_.kind == Token::Kind::text) {
            ShortenText();
            piece.end = token_.begin;
        } else if (token_.kind == Token::Kind::hex || token_.kind == Token::Kind::symbol) {
            piece.end = token_.end;
        } else {
            isAhead_ = true;
            return;
        }
    }
}

} // namespace kaloria::rtf
