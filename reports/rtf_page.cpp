// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/rtf_page.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <iterator>
#include <utility>
#include <vector>

namespace kaloria::rtf {

namespace {

/// A document's paper and margins [twip], and the words for those of a section.
struct Measure {
    std::string_view word;
    std::string_view sectionWord;
    int value; ///< where the document does not say it
};
constexpr std::array<Measure, 7> measures = {{
    {"paperw", "pgwsxn", 12240},
    {"paperh", "pghsxn", 15840},
    {"margl", "marglsxn", 1800},
    {"margr", "margrsxn", 1800},
    {"margt", "margtsxn", 1440},
    {"margb", "margbsxn", 1440},
    {"gutter", "guttersxn", 0},
}};

// Groups that belong to a document as a whole. Sorted.
constexpr std::string_view documentGroups[] = {
    "aftncn",
    "aftnsep",
    "aftnsepc",
    "background",
    "colorschememapping",
    "colortbl",
    "datastore",
    "defchp",
    "defpap",
    "docvar",
    "filetbl",
    "fonttbl",
    "ftncn",
    "ftnsep",
    "ftnsepc",
    "generator",
    "info",
    "latentstyles",
    "listoverridetable",
    "listpicture",
    "listtable",
    "mmathPr",
    "passwordhash",
    "pgdsctbl",
    "pgptbl",
    "protusertbl",
    "revtbl",
    "rsidtbl",
    "stylesheet",
    "template",
    "themedata",
    "userprops",
    "wgrffmtfilter",
    "writereservhash",
    "xmlnstbl",
};
static_assert(std::is_sorted(std::begin(documentGroups), std::end(documentGroups)));

// Of the groups with \* those that may stand at the start of the text; others there belong to the document.
// Sorted.
constexpr std::string_view textGroups[] = {"bkmkend", "bkmkstart", "do", "pn", "shppict"};

// Formats that a text may start with where its writer did not trouble to reset them first; any other word
// before the first reset belongs to the document. Sorted.
constexpr std::string_view textWords[] = {
    "b",     "caps", "cb",      "cf",      "cols",    "colsx",     "cs",     "endnhere", "expnd",   "expndtw",
    "f",     "fi",   "footery", "fs",      "headery", "highlight", "i",      "keep",     "keepn",   "lang",
    "li",    "ls",   "ltrpar",  "ltrsect", "outl",    "qc",        "qj",     "ql",       "qr",      "ri",
    "s",     "sa",   "sb",      "scaps",   "shad",    "sl",        "slmult", "strike",   "titlepg", "tqc",
    "tqdec", "tqr",  "tx",      "uc",      "ul",      "ulnone",    "up",     "v",        "vertalc"};
static_assert(std::is_sorted(std::begin(textWords), std::end(textWords)));

// Sorted.
constexpr std::string_view firstResets[] = {"pard", "plain", "sectd", "trowd"};

// Of a section that starts in another way than on a new sheet or counts its pages anew. Sorted.
constexpr std::string_view sectionStarts[] = {"pgnrestart", "sbkcol", "sbkeven",
                                              "sbknone",    "sbkodd", "sbkpage"};

// They refer to tables that are not merged, or to the paper of the whole document. Sorted.
constexpr std::string_view lostWords[] = {"crauth",     "facingp", "ipgp",       "landscape",
                                          "margmirror", "revauth", "revauthdel", "rtlgutter"};

template <typename Names>
bool Contains(const Names& names, std::string_view name) {
    return std::binary_search(std::begin(names), std::end(names), name);
}

const Measure* FindMeasure(std::string_view word) {
    const auto* const found = std::find_if(measures.begin(), measures.end(),
                                           [&](const Measure& measure) { return measure.word == word; });
    return found == measures.end() ? nullptr : found;
}

/// What there is to know about a page before it is copied.
struct PageParts {
    std::string setup;                        ///< of its sections
    std::vector<HeaderTables::Place> leftOut; ///< groups that belong to its document, in order
    std::size_t textBegin = 0;                ///< behind the words that do
    std::size_t textEnd = 0;
};

/// Goes once through a page for its PageParts.
class PartReader {
public:
    explicit PartReader(std::string_view page) : page_(page) {}
    [[nodiscard]] PageParts Read() &&;

private:
    void Take(const Token& token);
    void TakeGroupName(const Token& token);
    void TakeWord(const Token& word);
    void EndFront(std::size_t at);

    std::string_view page_;
    PageParts parts_;
    std::array<int, measures.size()> values_{};
    bool isLandscape_ = false;
    bool isFront_ = true; ///< before the text
    std::size_t depth_ = 0;
    std::size_t groupBegin_ = 0;
    enum class Group { unnamed, starred, kept, leftOut } group_ = Group::kept; ///< the one in the document's
};

PageParts PartReader::Read() && {
    std::transform(measures.begin(), measures.end(), values_.begin(),
                   [](const Measure& m) { return m.value; });
    Tokenizer tokens(page_);
    for (Token token = tokens.Next(); token.kind != Token::Kind::end; token = tokens.Next()) {
        depth_ += token.kind == Token::Kind::open ? 1 : 0;
        Take(token);
        depth_ -= token.kind == Token::Kind::close ? 1 : 0;
        if (depth_ == 0) {
            parts_.textEnd = token.begin;
            break;
        }
    }
    EndFront(parts_.textEnd);
    for (std::size_t i = 0; i < measures.size(); ++i) {
        parts_.setup += fmt::format("\\{}{}", measures.at(i).sectionWord, values_.at(i));
    }
    parts_.setup += isLandscape_ ? "\\lndscpsxn\n" : "\n";
    return std::move(parts_);
}

void PartReader::Take(const Token& token) {
    if (depth_ == 1) {
        if (token.kind == Token::Kind::word) {
            TakeWord(token);
        } else if (token.kind != Token::Kind::lineEnd && token.kind != Token::Kind::open &&
                   token.kind != Token::Kind::close) {
            EndFront(token.begin);
        }
        return;
    }
    if (depth_ != 2) {
        if (group_ == Group::unnamed || group_ == Group::starred) {
            EndFront(groupBegin_);
            group_ = Group::kept;
        }
        return;
    }
    if (token.kind == Token::Kind::open) {
        groupBegin_ = token.begin;
        group_ = Group::unnamed;
    } else if (token.kind == Token::Kind::close) {
        if (group_ == Group::leftOut) {
            parts_.leftOut.push_back({groupBegin_, token.end});
        }
        group_ = Group::kept;
    } else if (token.kind != Token::Kind::lineEnd) {
        TakeGroupName(token);
    }
}

void PartReader::TakeGroupName(const Token& token) {
    if (group_ == Group::unnamed && token.Is(Token::Kind::symbol, "*")) {
        group_ = Group::starred;
        return;
    }
    if (group_ != Group::unnamed && group_ != Group::starred) {
        return;
    }
    const bool isWord = token.kind == Token::Kind::word;
    const bool isOfDocument = isFront_ && group_ == Group::starred && !Contains(textGroups, token.name);
    group_ = isWord && (isOfDocument || Contains(documentGroups, token.name)) ? Group::leftOut : Group::kept;
    if (group_ == Group::kept) {
        EndFront(groupBegin_);
    }
}

void PartReader::TakeWord(const Token& word) {
    if (const Measure* const measure = FindMeasure(word.name)) {
        values_.at(static_cast<std::size_t>(measure - measures.data())) = word.value;
    } else if (word.name == "landscape") {
        isLandscape_ = true;
    } else if (Contains(firstResets, word.name)) {
        EndFront(word.begin);
    }
}

void PartReader::EndFront(std::size_t at) {
    if (std::exchange(isFront_, false)) {
        parts_.textBegin = at;
    }
}

/// Copies a page, from token to token.
class PageCopier {
public:
    PageCopier(std::string_view page, MergedTables& merged)
        : parts_(PartReader(page).Read()),
          numbers_(merged, page),
          isOtherFont_(numbers_.DefaultFont() != merged.Header().defaultFont),
          isOtherStyle_(numbers_.DefaultStyle() != 0),
          page_(page) {}

    [[nodiscard]] std::string Copy();

private:
    [[nodiscard]] Change For(const Token& token, std::size_t depth);
    [[nodiscard]] Change ForWord(const Token& word, bool isFront);
    [[nodiscard]] bool IsLeftOut(const Token& token);
    /// The words that bring back what a page takes for granted at its start.
    [[nodiscard]] std::string Plain();
    [[nodiscard]] std::string Pard();

    PageParts parts_;
    PageNumbers numbers_;
    bool isOtherFont_;
    bool isOtherStyle_;
    std::string_view page_;
    std::size_t nextLeftOut_ = 0;
    bool isFirstSection_ = true;
};

std::string PageCopier::Copy() {
    // Without the braces around the document, so that a token outside any group has depth 0.
    const std::string text =
        Rewritten(page_.substr(0, parts_.textEnd).substr(1), [this](Token token, std::size_t depth) {
            ++token.begin; // as in the whole page
            return For(token, depth);
        });
    return fmt::format("\\sectd{}{}{}\\uc1\n{}", parts_.setup, Pard(), Plain(), text);
}

std::string PageCopier::Plain() {
    return isOtherFont_ ? fmt::format("\\plain\\f{} ", numbers_.DefaultFont()) : "\\plain ";
}

std::string PageCopier::Pard() {
    return isOtherStyle_ ? fmt::format("\\pard\\s{} ", numbers_.DefaultStyle()) : "\\pard ";
}

bool PageCopier::IsLeftOut(const Token& token) {
    while (nextLeftOut_ < parts_.leftOut.size() && parts_.leftOut[nextLeftOut_].end <= token.begin) {
        ++nextLeftOut_;
    }
    return nextLeftOut_ < parts_.leftOut.size() && parts_.leftOut[nextLeftOut_].begin <= token.begin;
}

Change PageCopier::For(const Token& token, std::size_t depth) {
    if (IsLeftOut(token)) {
        return {Change::Kind::drop, 0, {}};
    }
    return token.kind == Token::Kind::word ? ForWord(token, depth == 0 && token.begin < parts_.textBegin)
                                           : Change{};
}

Change PageCopier::ForWord(const Token& word, bool isFront) {
    if ((isFront && !Contains(textWords, word.name)) || FindMeasure(word.name) != nullptr ||
        Contains(lostWords, word.name) || (isFirstSection_ && Contains(sectionStarts, word.name))) {
        return {Change::Kind::drop, 0, {}};
    }
    if (word.name == "plain" && isOtherFont_) {
        return {Change::Kind::replace, 0, Plain()};
    }
    if (word.name == "pard" && isOtherStyle_) {
        return {Change::Kind::replace, 0, Pard()};
    }
    if (word.name == "sectd") {
        return {Change::Kind::replace, 0, "\\sectd" + parts_.setup};
    }
    isFirstSection_ = isFirstSection_ && word.name != "sect";
    return numbers_.For(word);
}

} // namespace

std::string SectionOf(std::string_view page, MergedTables& merged) { return PageCopier(page, merged).Copy(); }

} // namespace kaloria::rtf
