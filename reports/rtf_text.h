// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "reports/rtf_token.h"
#include "reports/rtf_words.h"

#include <cstddef>
#include <string_view>
#include <vector>

namespace kaloria::rtf {

/// A piece of what a reader of the document sees, with the bytes [begin, end) that make it.
struct Piece {
    enum class Kind {
        end,       ///< behind the last piece
        character, ///< one UTF-16 code unit, its fallback included
        tab,
        lineBreak,    ///< within a paragraph
        generated,    ///< text that a reader makes up, as a page number
        object,       ///< a whole group that is shown without being text: a picture, a field's instruction
        paragraphEnd, ///< also one that ends a page
        sectionEnd,
        cellEnd,
        nestedCellEnd,
        rowEnd,
        rowFormat,  ///< nothing to be seen, but it goes with the row
        storyBegin, ///< a text of its own inside this one: header, footer, footnote, text box
        storyEnd,
    };

    Kind kind = Kind::end;
    char32_t character = 0;
    std::size_t begin = 0;
    std::size_t end = 0;
    int fallbackLength = 1;       ///< characters that follow each \uN here
    bool isInTable = false;       ///< in a row of a table
    bool isInBody = true;         ///< in no story but the document's own
    bool startsParagraph = true;  ///< no text before it in its paragraph
    bool followsBareWord = false; ///< a word that no blank ends stands right before it

    /// Whether no text, and so no tag, goes on over it.
    [[nodiscard]] bool IsBreak() const { return kind != Kind::character; }
};

/// Goes through what is to be seen of a checked document. Formatting, bookmarks, proofing marks, tables of
/// the header, field instructions and revisions that delete are passed over, so that text which a word
/// processor has split into runs comes out in one piece.
class TextScanner {
public:
    /// @param bytes  must outlive the scanner
    explicit TextScanner(std::string_view bytes);

    [[nodiscard]] Piece Next();

private:
    struct Group {
        std::size_t begin = 0;
        bool followsBareWord = false;
        int fallbackLength = 1;
        bool isVisible = true;
        bool isObject = false;  ///< the outermost group of one
        bool isDeleted = false; ///< by a revision
        bool isInTable = false;
        bool beginsStory = false;
    };

    void Advance();
    void ShortenText();
    /// @returns whether @p piece is one to hand out; the same of the functions below
    bool Take(Piece& piece);
    bool TakeText(Piece& piece);
    bool TakeWord(const Token& word, bool isStarred, Piece& piece);
    bool TakeShown(const Token& word, const WordMeaning& meaning, Piece& piece);
    bool BeginStory(Piece& piece);
    void Hide(bool isObject);
    bool TakeSymbol(const Token& symbol, Piece& piece);
    bool TakeClose(Piece& piece);
    bool Character(char32_t character, Piece& piece);
    void SkipFallback(Piece& piece);
    [[nodiscard]] Piece Completed(Piece piece);
    [[nodiscard]] Group& Top() { return groups_.back(); }
    [[nodiscard]] bool IsShown() const { return groups_.back().isVisible && !groups_.back().isDeleted; }

    std::string_view bytes_;
    Tokenizer tokens_;
    Token token_;          ///< the current one; of a text, what is left of it
    bool isAhead_ = false; ///< it has not been taken yet
    std::vector<Group> groups_;
    std::vector<bool> storyHasText_; ///< of the paragraph that each open story is in
    std::size_t bareWordEnd_ = 0;
    bool isStarred_ = false; ///< the token before was \*
    bool isOfRow_ = false;   ///< the word before was a format of a row
};

} // namespace kaloria::rtf
