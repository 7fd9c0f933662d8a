// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/viewer/rtf_look.h"

#include <algorithm>
#include <functional>
#include <unordered_map>

namespace kaloria::viewer {

namespace {

using rtf::Token;

template <typename Look>
using Words =
    std::unordered_map<std::string_view, std::function<void(Look&, const Token&, const Resources&)>>;

template <typename Look>
bool Apply(const Words<Look>& words, Look& look, const Token& word, const Resources& resources) {
    const auto found = words.find(word.name);
    if (found == words.end()) {
        return false;
    }
    found->second(look, word, resources);
    return true;
}

template <typename Look>
auto Switch(bool Look::*member) {
    return [member](Look& look, const Token& word, const Resources&) { look.*member = IsOn(word); };
}

template <typename Look>
auto Length(int Look::*member) {
    return [member](Look& look, const Token& word, const Resources&) {
        look.*member = NumberOf(word, -farthest, farthest);
    };
}

template <typename Look>
auto ColorWord(QColor Look::*member) {
    return [member](Look& look, const Token& word, const Resources& resources) {
        look.*member = resources.Color(word.value);
    };
}

/// Behind text and paragraphs colour 0 means none, whatever the table has there.
template <typename Look>
auto GroundWord(QColor Look::*member) {
    return [member](Look& look, const Token& word, const Resources& resources) {
        look.*member = word.value == 0 ? QColor() : resources.Color(word.value);
    };
}

auto Raise(int raise) {
    return [raise](TextLook& look, const Token& word, const Resources&) {
        look.raise = IsOn(word) ? raise : 0; // by how much is left to the type
    };
}

auto Aligned(Qt::Alignment alignment) {
    return [alignment](ParagraphLook& look, const Token&, const Resources&) { look.alignment = alignment; };
}

auto NextTab(QTextOption::TabType type) {
    return [type](ParagraphLook& look, const Token&, const Resources&) { look.nextTab = type; };
}

void NotUnderlined(TextLook& look, const Token&, const Resources&) { look.isUnderlined = false; }

void SetFont(TextLook& look, const Token& word, const Resources&) { look.font = word.value; }

void SetSize(TextLook& look, const Token& word, const Resources&) {
    constexpr int largest = 800; // half points
    look.size = 0.5 * NumberOf(word, 2, largest, 24);
}

const Words<TextLook>& TextWords() {
    static const Words<TextLook> words = [] {
        Words<TextLook> made{{"b", Switch(&TextLook::isBold)},
                             {"i", Switch(&TextLook::isItalic)},
                             {"strike", Switch(&TextLook::isStruck)},
                             {"striked", Switch(&TextLook::isStruck)},
                             {"v", Switch(&TextLook::isHidden)},
                             {"deleted", Switch(&TextLook::isDeleted)},
                             {"caps", Switch(&TextLook::isCapital)},
                             {"scaps", Switch(&TextLook::isSmallCapital)},
                             {"super", Raise(1)},
                             {"up", Raise(1)},
                             {"dn", Raise(-1)},
                             {"sub", Raise(-1)},
                             {"nosupersub", Raise(0)},
                             {"cf", ColorWord(&TextLook::color)},
                             {"cb", GroundWord(&TextLook::background)},
                             {"chcbpat", GroundWord(&TextLook::background)},
                             {"highlight", GroundWord(&TextLook::background)},
                             {"ulnone", NotUnderlined},
                             {"f", SetFont},
                             {"fs", SetSize}};
        for (const auto* line : {"ul", "uld", "uldash", "uldashd", "uldashdd", "uldb", "ulth", "ulw",
                                 "ulwave", "ulhwave", "ululdbwave", "ulthd", "ulthdash"}) {
            made.insert({line, Switch(&TextLook::isUnderlined)});
        }
        return made;
    }();
    return words;
}

void SetTab(ParagraphLook& look, const Token& word, const Resources&) {
    constexpr int most = 64;
    if (look.tabs.size() < most) {
        look.tabs.append({NumberOf(word, 0, farthest), look.nextTab});
    }
    look.nextTab = QTextOption::LeftTab;
}

void SetShading(ParagraphLook& look, const Token& word, const Resources&) {
    const int gray = 255 - NumberOf(word, 0, 10000) * 255 / 10000;
    look.shading = gray == 255 ? look.shading : QColor(gray, gray, gray);
}

const Words<ParagraphLook>& ParagraphWords() {
    using Look = ParagraphLook;
    static const Words<Look> words{{"ql", Aligned(Qt::AlignLeft)},
                                   {"qr", Aligned(Qt::AlignRight)},
                                   {"qc", Aligned(Qt::AlignHCenter)},
                                   {"qj", Aligned(Qt::AlignJustify)},
                                   {"qd", Aligned(Qt::AlignJustify)},
                                   {"li", Length(&Look::left)},
                                   {"ri", Length(&Look::right)},
                                   {"fi", Length(&Look::first)},
                                   {"sb", Length(&Look::before)},
                                   {"sa", Length(&Look::after)},
                                   {"sl", Length(&Look::lineHeight)},
                                   {"slmult", Switch(&Look::isMultiple)},
                                   {"pagebb", Switch(&Look::breaksPage)},
                                   {"keep", Switch(&Look::staysWhole)},
                                   {"intbl", Switch(&Look::isInTable)},
                                   {"itap", Length(&Look::depth)},
                                   {"cbpat", GroundWord(&Look::shading)},
                                   {"brsp", Length(&Look::borderSpace)},
                                   {"shading", SetShading},
                                   {"tqr", NextTab(QTextOption::RightTab)},
                                   {"tqc", NextTab(QTextOption::CenterTab)},
                                   {"tqdec", NextTab(QTextOption::DelimiterTab)},
                                   {"tx", SetTab}};
    return words;
}

void SetWidth(Border& border, const Token& word, const Resources&) {
    constexpr int widest = 120;
    border.width = NumberOf(word, 1, widest, 1);
}

auto Line(Qt::PenStyle style) {
    return [style](Border& border, const Token&, const Resources&) {
        constexpr int usualWidth = 10;
        border.style = style;
        border.width = style == Qt::NoPen ? 0 : std::max(border.width, usualWidth);
    };
}

const Words<Border>& BorderWords() {
    static const Words<Border> words{{"brdrs", Line(Qt::SolidLine)},        {"brdrth", Line(Qt::SolidLine)},
                                     {"brdrhair", Line(Qt::SolidLine)},     {"brdrdb", Line(Qt::SolidLine)},
                                     {"brdrdot", Line(Qt::DotLine)},        {"brdrdash", Line(Qt::DashLine)},
                                     {"brdrnone", Line(Qt::NoPen)},         {"brdrnil", Line(Qt::NoPen)},
                                     {"brdrcf", ColorWord(&Border::color)}, {"brdrw", SetWidth}};
    return words;
}

struct SectionLength {
    std::string_view ofDocument;
    std::string_view ofSection;
    int Section::*member;
};
constexpr SectionLength sectionLengths[] = {
    {"paperw", "pgwsxn", &Section::paperWidth},  {"paperh", "pghsxn", &Section::paperHeight},
    {"margl", "marglsxn", &Section::marginLeft}, {"margr", "margrsxn", &Section::marginRight},
    {"margt", "margtsxn", &Section::marginTop},  {"margb", "margbsxn", &Section::marginBottom},
    {"headery", "headery", &Section::headerTop}, {"footery", "footery", &Section::footerBottom},
};

/// No smaller than an inch, and the margins leave room for text.
void LimitPaper(Section& section) {
    constexpr int least = 1440;
    section.paperWidth = std::max(section.paperWidth, least);
    section.paperHeight = std::max(section.paperHeight, least);
}

bool ApplyLength(Section& section, Section& defaults, const Token& word) {
    for (const SectionLength& length : sectionLengths) {
        const bool isOfDocument = word.name == length.ofDocument;
        if (!isOfDocument && word.name != length.ofSection) {
            continue;
        }
        section.*length.member = NumberOf(word, 0, farthest, section.*length.member);
        LimitPaper(section);
        if (isOfDocument && length.ofDocument != length.ofSection) {
            defaults.*length.member = section.*length.member;
        }
        return true;
    }
    return false;
}

} // namespace

int NumberOf(const rtf::Token& word, int least, int most, int otherwise) {
    return word.hasValue ? std::clamp(word.value, least, most) : otherwise;
}

bool ApplyTextWord(TextLook& look, const rtf::Token& word, const Resources& resources) {
    return Apply(TextWords(), look, word, resources);
}

bool ApplyParagraphWord(ParagraphLook& look, const rtf::Token& word, const Resources& resources) {
    return Apply(ParagraphWords(), look, word, resources);
}

bool ApplyBorderWord(Border& border, const rtf::Token& word, const Resources& resources) {
    return Apply(BorderWords(), border, word, resources);
}

bool ApplySectionWord(Section& section, Section& defaults, const rtf::Token& word) {
    constexpr int mostSheets = 32767;
    if (ApplyLength(section, defaults, word)) {
        return true;
    }
    if (word.name == "sectd") {
        const Section old = section;
        section = defaults;
        section.first = old.first;
        section.all = old.all;
    } else if (word.name == "sbknone" || word.name == "sbkcol") {
        section.startsSheet = false;
    } else if (word.name == "sbkpage" || word.name == "sbkodd" || word.name == "sbkeven") {
        section.startsSheet = true;
    } else if (word.name == "titlepg") {
        section.hasFirst = true;
    } else if (word.name == "pgnstarts" || word.name == "pgnstart") {
        section.firstNumber = NumberOf(word, 1, mostSheets, 1);
    } else if (word.name == "pgncont") {
        section.firstNumber = 0;
    } else {
        return false;
    }
    return true;
}

} // namespace kaloria::viewer
