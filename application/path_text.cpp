// SPDX-License-Identifier: GPL-3.0-or-later
#include "application/path_text.h"

#include <charconv>

namespace kaloria {

namespace {

constexpr unsigned char lastControl = 0x20; // the blank counts as one: texts are trimmed
constexpr unsigned char deleteCharacter = 0x7F;
constexpr std::size_t escapeLength = 3;
constexpr int hexadecimal = 16;

bool NeedsEscape(char c) {
    const auto byte = static_cast<unsigned char>(c);
    return c == '%' || c == '|' || byte <= lastControl || byte == deleteCharacter;
}

} // namespace

std::string PathText(const std::filesystem::path& path) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string text;
    for (const char c : path.string()) {
        if (NeedsEscape(c)) {
            const auto byte = static_cast<unsigned char>(c);
            text += {'%', digits[byte / digits.size()], digits[byte % digits.size()]};
        } else {
            text += c;
        }
    }
    return text;
}

std::optional<std::filesystem::path> ParsePathText(std::string_view text) {
    std::string path;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '%') {
            path += text[i];
            continue;
        }
        const std::string_view code = text.substr(i + 1, escapeLength - 1);
        unsigned int byte = 0;
        const auto [end, error] = std::from_chars(code.data(), code.data() + code.size(), byte, hexadecimal);
        if (code.size() != escapeLength - 1 || error != std::errc() || end != code.data() + code.size() ||
            byte == 0) {
            return std::nullopt;
        }
        path += static_cast<char>(byte);
        i += escapeLength - 1;
    }
    return path;
}

} // namespace kaloria
