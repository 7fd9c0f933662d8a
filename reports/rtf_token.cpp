// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/rtf_token.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <limits>

namespace kaloria::rtf {

namespace {

constexpr std::size_t longestWord = 32;
constexpr int hexDigits = 2;

// Not std::isalpha and the like, which follow the locale.
constexpr bool IsLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }
constexpr bool IsDigit(char c) { return c >= '0' && c <= '9'; }

int LineOf(std::string_view bytes, std::size_t offset) {
    int line = 1;
    for (std::size_t at = 0; at < std::min(offset, bytes.size()); ++at) {
        const bool endsLine = bytes[at] == '\n' || (bytes[at] == '\r' && bytes.substr(at + 1, 1) != "\n");
        line += endsLine ? 1 : 0;
    }
    return line;
}

} // namespace

FileFault FaultAtByte(std::string_view bytes, std::size_t offset, std::string_view text) {
    return FileFault({LineOf(bytes, offset), fmt::format("byte {}: {}", offset, text)});
}

FileFault Tokenizer::FaultAt(std::size_t offset, std::string_view text) const {
    return FaultAtByte(bytes_, offset, text);
}

Token Tokenizer::Next() {
    Token token;
    token.begin = at_;
    if (at_ >= bytes_.size()) {
        token.end = at_;
        return token;
    }
    switch (bytes_[at_]) {
    case '{':
    case '}':
        token.kind = bytes_[at_] == '{' ? Token::Kind::open : Token::Kind::close;
        token.end = at_ + 1;
        break;
    case '\\':
        ReadEscape(token);
        break;
    case '\r':
    case '\n':
        token.kind = Token::Kind::lineEnd;
        token.end = bytes_.find_first_not_of("\r\n", at_);
        break;
    default:
        token.kind = Token::Kind::text;
        token.end = bytes_.find_first_of("\\{}\r\n", at_);
    }
    token.end = std::min(token.end, bytes_.size());
    at_ = token.end;
    return token;
}

void Tokenizer::ReadEscape(Token& token) {
    std::size_t end = at_ + 1;
    while (end < bytes_.size() && IsLetter(bytes_[end])) {
        ++end;
    }
    token.name = bytes_.substr(at_ + 1, end - at_ - 1);
    token.end = end;
    if (token.name.size() > longestWord) {
        throw FaultAt(at_, "a control word of more than 32 letters");
    }
    if (!token.name.empty()) {
        token.kind = Token::Kind::word;
        ReadNumber(token);
        if (token.name == "bin") {
            ReadBinary(token);
        }
        return;
    }
    if (end >= bytes_.size()) {
        throw FaultAt(at_, "ends in a backslash");
    }
    token.kind = Token::Kind::symbol;
    token.name = bytes_.substr(end, 1);
    token.end = end + 1;
    if (token.name == "'") {
        const char* const first = bytes_.data() + token.end;
        const char* const last = first + std::min<std::size_t>(hexDigits, bytes_.size() - token.end);
        const auto [next, error] = std::from_chars(first, last, token.value, 16);
        if (error != std::errc() || next != first + hexDigits || token.value < 0) {
            throw FaultAt(at_, "\\' without two hexadecimal digits");
        }
        token.kind = Token::Kind::hex;
        token.end += hexDigits;
    }
}

void Tokenizer::ReadNumber(Token& token) {
    const std::size_t sign = At(token.end) == '-' ? 1 : 0;
    if (IsDigit(At(token.end + sign))) {
        const auto [next, error] =
            std::from_chars(bytes_.data() + token.end, bytes_.data() + bytes_.size(), token.value);
        if (error != std::errc()) {
            throw FaultAt(token.begin, "a control word with a number beyond 32 bits");
        }
        token.hasValue = true;
        token.end = static_cast<std::size_t>(next - bytes_.data());
    }
    if (token.name.size() == 1 && token.name.front() == 'u' &&
        (!token.hasValue || token.value < std::numeric_limits<std::int16_t>::min() ||
         token.value > std::numeric_limits<std::uint16_t>::max())) {
        throw FaultAt(token.begin, "\\u without the number of a character");
    }
    token.isBare = At(token.end) != ' ';
    token.end += token.isBare ? 0 : 1;
}

void Tokenizer::ReadBinary(Token& token) const {
    token.kind = Token::Kind::binary;
    // Its bytes end it whatever they are, and whatever follows them.
    token.isBare = token.isBare && token.value == 0;
    if (token.value < 0 || static_cast<std::size_t>(token.value) > bytes_.size() - token.end) {
        throw FaultAt(token.begin, "\\bin with more bytes than there are");
    }
    token.end += static_cast<std::size_t>(token.value);
}

namespace {

/// Behind the document: blanks, and the null byte that some rich-text controls write.
void CheckNothingFollows(std::string_view bytes, std::size_t end) {
    const std::size_t more = bytes.find_first_not_of(std::string_view(" \t\r\n\0", 5), end);
    if (more != std::string_view::npos) {
        throw FaultAtByte(bytes, more, "text behind the end of the document");
    }
}

} // namespace

std::size_t CheckDocument(std::string_view bytes) {
    if (bytes.size() > maxBytes) {
        throw FileFault({0, fmt::format("the file is larger than {} bytes", maxBytes)});
    }
    Tokenizer tokens(bytes);
    if (tokens.Next().kind != Token::Kind::open) {
        throw FaultAtByte(bytes, 0, "not rich text: it does not start with {\\rtf1");
    }
    const Token rtf = tokens.Next();
    if (!rtf.IsWord("rtf") || (rtf.hasValue && rtf.value != 1)) {
        throw FaultAtByte(bytes, 0, "not rich text: it does not start with {\\rtf1");
    }
    std::size_t depth = 1;
    for (Token token = tokens.Next(); token.kind != Token::Kind::end; token = tokens.Next()) {
        if (token.kind == Token::Kind::open && ++depth > maxDepth) {
            throw FaultAtByte(bytes, token.begin,
                              fmt::format("groups are nested more than {} deep", maxDepth));
        }
        if (token.kind == Token::Kind::close && --depth == 0) {
            CheckNothingFollows(bytes, token.end);
            return token.begin;
        }
    }
    throw FaultAtByte(bytes, bytes.size(), fmt::format("ends with {} groups not closed", depth));
}

} // namespace kaloria::rtf
