// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "data/file_problem.h"

#include <cstddef>
#include <string>
#include <string_view>

/// Rich text (RTF): what the templates of the reports are written in, and the reports themselves.
///
/// A document is kept as the bytes that it was read from. Every use of it goes through these bytes once, from
/// token to token, and changes only what it must, so that markup unknown to us (a word processor writes
/// plenty) survives as it stands.
namespace kaloria::rtf {

/// The smallest unit of a document. Its bytes are [begin, end) of the document's.
struct Token {
    enum class Kind {
        end,     ///< behind the last byte
        open,    ///< {
        close,   ///< }
        word,    ///< \par, \fs20; with the one blank that may end it
        symbol,  ///< a backslash and one character: \~ \{ \*
        hex,     ///< \'hh, one byte of text
        binary,  ///< \binN with its N bytes
        text,    ///< bytes that stand for themselves; no line ends
        lineEnd, ///< carriage returns and line feeds, which mean nothing
    };

    Kind kind = Kind::end;
    std::size_t begin = 0;
    std::size_t end = 0;
    std::string_view name; ///< of a word without its backslash and number; the character of a symbol
    int value = 0;         ///< number of a word; the byte of a hex
    bool hasValue = false;
    bool isBare = false; ///< a word that no blank ends: what follows must not look like more of it

    [[nodiscard]] bool Is(Kind other, std::string_view otherName) const {
        return kind == other && name == otherName;
    }
    [[nodiscard]] bool IsWord(std::string_view otherName) const { return Is(Kind::word, otherName); }
};

/// Takes bytes apart into tokens, without a gap: the tokens' bytes one after another are the document's.
class Tokenizer {
public:
    /// @param bytes  must outlive the tokenizer and its tokens
    explicit Tokenizer(std::string_view bytes) : bytes_(bytes) {}

    /// @throws FileFault  a word of more than 32 letters, a number beyond 32 bits, \'hh without two digits,
    ///     \bin whose bytes are not there, \u without a number or with one beyond 16 bits
    [[nodiscard]] Token Next();

private:
    void ReadEscape(Token& token);
    void ReadNumber(Token& token);
    void ReadBinary(Token& token) const;
    /// A null byte behind the end.
    [[nodiscard]] char At(std::size_t offset) const { return offset < bytes_.size() ? bytes_[offset] : '\0'; }
    [[nodiscard]] FileFault FaultAt(std::size_t offset, std::string_view text) const;

    std::string_view bytes_;
    std::size_t at_ = 0;
};

/// A fault that names the line of @p offset, and the byte in its text.
[[nodiscard]] FileFault FaultAtByte(std::string_view bytes, std::size_t offset, std::string_view text);

inline constexpr std::size_t maxBytes = std::size_t{32} << 20U;
inline constexpr std::size_t maxDepth = 500; ///< of groups in groups; word processors stay below 50

/// Checks a whole document: its size, that it is RTF, every token, and that its groups are balanced and not
/// too deep. Going through a checked document throws nothing.
/// @returns where its last closing brace stands
/// @throws FileFault
std::size_t CheckDocument(std::string_view bytes);

} // namespace kaloria::rtf
