// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/rtf_characters.h"

#include <fmt/format.h>

#include <array>
#include <cstdint>
#include <iterator>
#include <utility>

namespace kaloria::rtf {

namespace {

constexpr char32_t replacement = 0xFFFD;
constexpr char32_t firstAstral = 0x10000;
constexpr char32_t firstHighSurrogate = 0xD800;
constexpr char32_t firstLowSurrogate = 0xDC00;
constexpr char32_t behindSurrogates = 0xE000;

bool IsHighSurrogate(char32_t unit) { return unit >= firstHighSurrogate && unit < firstLowSurrogate; }
bool IsLowSurrogate(char32_t unit) { return unit >= firstLowSurrogate && unit < behindSurrogates; }

/// What the first byte of a character in UTF-8 says.
struct Lead {
    std::size_t length;
    char32_t bits;
    char32_t least; ///< a smaller character is written too long
};

Lead LeadOf(unsigned char byte) {
    if (byte < 0x80) {
        return {1, byte, 0};
    }
    if (byte >= 0xC2 && byte < 0xE0) {
        return {2, byte & 0x1FU, 0x80};
    }
    if (byte >= 0xE0 && byte < 0xF0) {
        return {3, byte & 0x0FU, 0x800};
    }
    if (byte >= 0xF0 && byte < 0xF5) {
        return {4, byte & 0x07U, firstAstral};
    }
    return {0, 0, 0};
}

/// The first character of @p text, which is not empty, and takes it off; U+FFFD for a byte that is no UTF-8.
char32_t TakeCharacter(std::string_view& text) {
    const Lead lead = LeadOf(static_cast<unsigned char>(text.front()));
    char32_t character = lead.bits;
    bool isGood = lead.length > 0 && lead.length <= text.size();
    for (std::size_t i = 1; isGood && i < lead.length; ++i) {
        const auto byte = static_cast<unsigned char>(text[i]);
        isGood = (byte & 0xC0U) == 0x80;
        character = (character << 6U) | (byte & 0x3FU);
    }
    isGood = isGood && character >= lead.least && character <= 0x10FFFF && !IsHighSurrogate(character) &&
             !IsLowSurrogate(character);
    text.remove_prefix(isGood ? lead.length : 1);
    return isGood ? character : replacement;
}

void AddUnit(std::string& out, char32_t unit, std::string_view fallback) {
    fmt::format_to(std::back_inserter(out), "\\u{}{}", static_cast<std::int16_t>(unit), fallback);
}

void AddEscaped(std::string& out, char32_t character) {
    if (character >= firstAstral) {
        const char32_t offset = character - firstAstral;
        AddUnit(out, firstHighSurrogate + (offset >> 10U), "?");
        AddUnit(out, firstLowSurrogate + (offset & 0x3FFU), "?");
    } else if (character >= 0xA0 && character <= 0xFF) { // the same in Windows-1252
        AddUnit(out, character, fmt::format("\\'{:02x}", static_cast<unsigned>(character)));
    } else if (character > 0x7E) {
        AddUnit(out, character, "?");
    } else if (character == '\\' || character == '{' || character == '}') {
        out += {'\\', static_cast<char>(character)};
    } else if (character == '\n') {
        out += "\\line ";
    } else if (character == '\t') {
        out += "\\tab ";
    } else if (character >= ' ') {
        out += static_cast<char>(character);
    }
}

} // namespace

std::string EscapedText(std::string_view utf8) {
    std::string out;
    out.reserve(utf8.size() + utf8.size() / 4);
    while (!utf8.empty()) {
        char32_t character = TakeCharacter(utf8);
        if (character == '\r') {
            character = '\n';
            utf8.remove_prefix(utf8.starts_with('\n') ? 1 : 0);
        }
        const bool isControl = character >= 0x7F && character < 0xA0;
        if (!isControl) {
            AddEscaped(out, character);
        }
    }
    return out;
}

char32_t CharacterOfByte(unsigned char byte) {
    // 0x80 to 0x9F of Windows-1252.
    static constexpr std::array<std::uint16_t, 32> high = {
        0x20AC, 0xFFFD, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
        0x2039, 0x0152, 0xFFFD, 0x017D, 0xFFFD, 0xFFFD, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
        0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0xFFFD, 0x017E, 0x0178};
    return byte >= 0x80 && byte < 0xA0 ? high.at(byte - 0x80U) : byte;
}

void Utf8Builder::Add(char32_t unit) {
    if (IsLowSurrogate(unit) && high_ != 0) {
        AddCharacter(firstAstral + ((std::exchange(high_, 0) - firstHighSurrogate) << 10U) +
                     (unit - firstLowSurrogate));
        return;
    }
    Flush();
    if (IsHighSurrogate(unit)) {
        high_ = unit;
    } else {
        AddCharacter(IsLowSurrogate(unit) ? replacement : unit);
    }
}

std::string Utf8Builder::Take() {
    Flush();
    return std::exchange(text_, {});
}

void Utf8Builder::Flush() {
    if (std::exchange(high_, 0) != 0) {
        AddCharacter(replacement);
    }
}

void Utf8Builder::AddCharacter(char32_t character) {
    const auto add = [&](char32_t bits) { text_ += static_cast<char>(static_cast<unsigned char>(bits)); };
    const auto addTail = [&](unsigned shift) { add(0x80U | ((character >> shift) & 0x3FU)); };
    if (character < 0x80) {
        add(character);
    } else if (character < 0x800) {
        add(0xC0U | (character >> 6U));
        addTail(0);
    } else if (character < firstAstral) {
        add(0xE0U | (character >> 12U));
        addTail(6);
        addTail(0);
    } else {
        add(0xF0U | (character >> 18U));
        addTail(12);
        addTail(6);
        addTail(0);
    }
}

} // namespace kaloria::rtf
