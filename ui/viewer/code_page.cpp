// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/viewer/code_page.h"

#include "reports/rtf_characters.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <iconv.h>
#include <iterator>
#include <map>
#include <string>

namespace kaloria::viewer {

namespace {

constexpr int western = 1252;
constexpr int macRoman = 10000;

struct Charset {
    int number;
    int codePage;
};
constexpr Charset charsets[] = {{77, macRoman}, {128, 932},  {129, 949},  {134, 936},  {136, 950},
                                {161, 1253},    {162, 1254}, {163, 1258}, {177, 1255}, {178, 1256},
                                {186, 1257},    {204, 1251}, {222, 874},  {238, 1250}, {254, 437}};

/// Owns a converter of the system's library.
class Converter {
public:
    explicit Converter(int codePage)
        : handle_(::iconv_open(
              "UTF-16LE", codePage == macRoman ? "MACINTOSH" : ("CP" + std::to_string(codePage)).c_str())) {}
    Converter(const Converter&) = delete;
    Converter& operator=(const Converter&) = delete;
    ~Converter() {
        if (IsOpen()) {
            ::iconv_close(handle_);
        }
    }

    // The library says "none" by a pointer made of -1.
    [[nodiscard]] bool IsOpen() const { return reinterpret_cast<std::intptr_t>(handle_) != -1; } // NOLINT
    [[nodiscard]] QString Convert(std::string_view bytes) const;

private:
    iconv_t handle_;
};

QString Converter::Convert(std::string_view bytes) const {
    QString text;
    std::string copy(bytes); // the library wants to be able to write there
    char* in = copy.data();
    std::size_t left = copy.size();
    ::iconv(handle_, nullptr, nullptr, nullptr, nullptr);
    while (left > 0) {
        std::array<char16_t, 256> units{};
        char* out =
            reinterpret_cast<char*>(units.data()); // NOLINT(cppcoreguidelines-pro-type-reinterpret-cast)
        std::size_t room = sizeof units;
        const std::size_t before = left;
        const bool failed = ::iconv(handle_, &in, &left, &out, &room) == static_cast<std::size_t>(-1);
        const std::size_t made = (sizeof units - room) / sizeof(char16_t);
        text += QString::fromUtf16(units.data(), static_cast<qsizetype>(made));
        if (failed && (made == 0 || left == before)) {
            text += QChar(QChar::ReplacementCharacter);
            ++in;
            --left;
        }
    }
    return text;
}

/// Opening one takes longer than most uses of it. Only a hostile file names more than a handful.
const Converter& ConverterOf(int codePage) {
    constexpr std::size_t most = 32;
    thread_local std::map<int, Converter> converters;
    if (converters.size() >= most && converters.count(codePage) == 0) {
        converters.clear();
    }
    return converters.try_emplace(codePage, codePage).first->second;
}

QString Western(std::string_view bytes) {
    QString text;
    for (const char byte : bytes) {
        text += QChar(static_cast<char16_t>(rtf::CharacterOfByte(static_cast<unsigned char>(byte))));
    }
    return text;
}

bool IsAscii(std::string_view bytes) {
    return std::all_of(bytes.begin(), bytes.end(),
                       [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

} // namespace

int CodePageOfCharset(int charset) {
    const auto* const found = std::find_if(std::begin(charsets), std::end(charsets),
                                           [&](const Charset& known) { return known.number == charset; });
    return found == std::end(charsets) ? 0 : found->codePage;
}

QString Decoded(std::string_view bytes, int codePage) {
    if (IsAscii(bytes)) {
        return QString::fromLatin1(bytes.data(), static_cast<qsizetype>(bytes.size()));
    }
    if (codePage == western || codePage <= 0) {
        return Western(bytes);
    }
    const Converter& converter = ConverterOf(codePage);
    return converter.IsOpen() ? converter.Convert(bytes) : Western(bytes);
}

QChar SymbolOf(unsigned char byte) {
    static const QString capitals = QStringLiteral("ΑΒΧΔΕΦΓΗΙϑΚΛΜΝΟΠΘΡΣΤΥςΩΞΨΖ");
    static const QString smalls = QStringLiteral("αβχδεφγηιϕκλμνοπθρστυϖωξψζ");
    static const std::map<unsigned char, char16_t> signs{
        {0xA3, u'≤'}, {0xA5, u'∞'}, {0xAC, u'←'}, {0xAE, u'→'}, {0xB0, u'°'}, {0xB1, u'±'},
        {0xB3, u'≥'}, {0xB4, u'×'}, {0xB6, u'∂'}, {0xB7, u'•'}, {0xB8, u'÷'}, {0xB9, u'≠'},
        {0xBB, u'≈'}, {0xD6, u'√'}, {0xD7, u'⋅'}, {0xE5, u'∑'}, {0xF2, u'∫'}};
    if (byte >= 'A' && byte <= 'Z') {
        return capitals.at(byte - 'A');
    }
    if (byte >= 'a' && byte <= 'z') {
        return smalls.at(byte - 'a');
    }
    const auto sign = signs.find(byte);
    if (sign != signs.end()) {
        return {sign->second};
    }
    return byte < 0x80 ? QChar(u' ' <= byte ? byte : u' ') : QChar(QChar::ReplacementCharacter);
}

} // namespace kaloria::viewer
