// SPDX-License-Identifier: GPL-3.0-or-later
#include "application/text_encoding.h"

#include "data/xml_text.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

namespace kaloria {

namespace {

constexpr char unmappable = '?';

/// Characters of the codes 0x80 to 0x9F, where Windows-1252 parts from Latin-1; 0 where it has none.
constexpr std::array<std::uint16_t, 32> upperControls{
    0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0,      0x017D, 0,      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

/// Code point of one character in valid UTF-8.
std::uint32_t CodePoint(std::string_view character) {
    const auto lead = static_cast<unsigned char>(character.front());
    std::uint32_t code = lead;
    if (character.size() > 1) {
        code &= 0x7FU >> character.size();
    }
    for (const char c : character.substr(1)) {
        code = (code << 6U) | (static_cast<unsigned char>(c) & 0x3FU);
    }
    return code;
}

char CodeOf(std::uint32_t character) {
    if (character < 0x80 || (character >= 0xA0 && character <= 0xFF)) {
        return static_cast<char>(static_cast<unsigned char>(character));
    }
    const auto* const found = std::find(upperControls.begin(), upperControls.end(), character);
    return found == upperControls.end()
               ? unmappable
               : static_cast<char>(static_cast<unsigned char>(0x80 + (found - upperControls.begin())));
}

} // namespace

std::string ToWindows1252(std::string_view utf8) {
    std::string text;
    while (!utf8.empty()) {
        const bool ascii = static_cast<unsigned char>(utf8.front()) < 0x80;
        const std::size_t length = ascii ? 1 : XmlCharacterLength(utf8);
        text += length == 0 ? unmappable : CodeOf(CodePoint(utf8.substr(0, length)));
        utf8.remove_prefix(std::max<std::size_t>(length, 1));
    }
    return text;
}

} // namespace kaloria
