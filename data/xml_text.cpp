// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/xml_text.h"

#include <cstdint>

namespace kaloria {

namespace {

struct LeadByte {
    std::size_t length; ///< of the sequence; 0 when no sequence starts so
    std::uint32_t bits; ///< the byte's share of the code point
};

LeadByte Decode(unsigned char byte) {
    if (byte < 0x80) {
        return {1, byte};
    }
    if (byte >= 0xC2 && byte < 0xE0) {
        return {2, byte & 0x1FU};
    }
    if (byte >= 0xE0 && byte < 0xF0) {
        return {3, byte & 0x0FU};
    }
    if (byte >= 0xF0 && byte < 0xF5) {
        return {4, byte & 0x07U};
    }
    return {0, 0};
}

/// The characters of XML 1.0 (fifth edition), production 2, encoded no longer than needed.
bool IsAllowed(std::uint32_t code, std::size_t length) {
    if (code < 0x20) {
        return code == '\t' || code == '\n' || code == '\r';
    }
    const bool overlong = (length == 3 && code < 0x800) || (length == 4 && code < 0x10000);
    const bool surrogate = code >= 0xD800 && code <= 0xDFFF;
    return !overlong && !surrogate && code != 0xFFFE && code != 0xFFFF && code <= 0x10FFFF;
}

} // namespace

std::size_t XmlCharacterLength(std::string_view text) {
    if (text.empty()) {
        return 0;
    }
    auto [length, code] = Decode(static_cast<unsigned char>(text.front()));
    if (length > text.size()) {
        return 0;
    }
    for (std::size_t i = 1; i < length; ++i) {
        const auto byte = static_cast<unsigned char>(text[i]);
        if ((byte & 0xC0U) != 0x80U) {
            return 0;
        }
        code = (code << 6U) | (byte & 0x3FU);
    }
    return IsAllowed(code, length) ? length : 0;
}

std::string XmlText(std::string_view text) {
    constexpr std::string_view replacement = "\xEF\xBF\xBD";
    std::string result;
    result.reserve(text.size());
    while (!text.empty()) {
        const std::size_t length = XmlCharacterLength(text);
        if (length > 0) {
            result += text.substr(0, length);
        } else if (static_cast<unsigned char>(text.front()) >= 0x80) {
            result += replacement;
        }
        text.remove_prefix(length > 0 ? length : 1);
    }
    return result;
}

} // namespace kaloria
