// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/atomic_file.h"
#include "reports/rtf_binder.h"
#include "reports/rtf_tables.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <gmock/gmock.h>
#include <map>
#include <ostream>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace kaloria::rtf {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

Document Sample(const std::string& name) {
    return Document(ReadFile(KALORIA_TEST_DATA_DIR "/rtf/" + name, maxBytes));
}

std::string Bound(const std::vector<std::string>& pages) {
    Binder binder{Document(pages.front())};
    for (std::size_t i = 1; i < pages.size(); ++i) {
        binder.Append(Document(pages[i]));
    }
    return binder.Bytes();
}

std::string TableOf(const std::string& bytes, TableKind kind) {
    const auto place = FindTables(bytes).Of(kind);
    return bytes.substr(place.begin, place.end - place.begin);
}

/// What a reader makes of the numbers in a text.
struct Run {
    std::string font;
    std::string color;
    std::string style;
    bool operator==(const Run&) const = default;
    friend void PrintTo(const Run& run, std::ostream* out) { *out << run.font << run.color << run.style; }
};

/// The runs of a document's body, each character with its own, read by the rules of the format: groups keep
/// formats, \plain brings back the default font, \pard style 0.
class RunReader {
public:
    explicit RunReader(const std::string& bytes) : bytes_(bytes), header_(FindTables(bytes)) {
        for (const std::string& font : TableEntries(Table(TableKind::fonts))) {
            fonts_[NumberIn(font, "f", 0)] = Rewritten(font, [](const Token& token, std::size_t) {
                return Change{token.IsWord("f") ? Change::Kind::drop : Change::Kind::keep, 0, {}};
            });
        }
        colors_ = ColorEntries(Table(TableKind::colors));
        for (const std::string& style : TableEntries(Table(TableKind::styles))) {
            if (NumberIn(style, "cs", -1) >= 0 || NumberIn(style, "ts", -1) >= 0) {
                continue; // not a paragraph's
            }
            const NamePlace place = NameOf(style);
            const std::string name = style.substr(place.begin, place.end - place.begin);
            styles_[NumberIn(style, "s", 0)] = name.substr(0, name.find(" ("));
        }
    }

    [[nodiscard]] std::map<char, std::vector<Run>> Read() const {
        struct State {
            int font = 0;
            int color = -1; ///< not the first of the table, which only \cf0 asks for
            int style = 0;
            bool isHidden = false;
        };
        std::map<char, std::vector<Run>> runs;
        std::vector<State> states = {{header_.defaultFont}};
        Tokenizer tokens(bytes_);
        for (Token token = tokens.Next(); token.kind != Token::Kind::end; token = tokens.Next()) {
            State& now = states.back();
            static const std::set<std::string_view> hidden = {
                "fonttbl", "colortbl", "stylesheet", "info", "pict", "*", "listoverridetable"};
            now.isHidden = now.isHidden || hidden.contains(token.name);
            if (token.kind == Token::Kind::open) {
                states.push_back(State(now));
            } else if (token.kind == Token::Kind::close) {
                states.pop_back();
            } else if (token.IsWord("plain")) {
                now.font = header_.defaultFont;
                now.color = -1;
            } else if (token.IsWord("pard")) {
                now.style = 0;
            } else if (token.IsWord("f")) {
                now.font = token.value;
            } else if (token.IsWord("cf")) {
                now.color = token.value;
            } else if (token.IsWord("s")) {
                now.style = token.value;
            } else if (token.kind == Token::Kind::text && !now.isHidden) {
                const Run run = {At(fonts_, now.font), Color(now.color), At(styles_, now.style)};
                for (const char c : bytes_.substr(token.begin, token.end - token.begin)) {
                    runs[c].push_back(run);
                }
            }
        }
        return runs;
    }

private:
    [[nodiscard]] std::string Table(TableKind kind) const { return TableOf(bytes_, kind); }
    static std::string At(const std::map<int, std::string>& names, int number) {
        const auto found = names.find(number);
        return found == names.end() ? "Normal" : found->second;
    }
    [[nodiscard]] std::string Color(int number) const {
        return static_cast<std::size_t>(number) < colors_.size() ? colors_[static_cast<std::size_t>(number)]
                                                                 : "none";
    }

    std::string bytes_;
    HeaderTables header_;
    std::map<int, std::string> fonts_;
    std::vector<std::string> colors_;
    std::map<int, std::string> styles_;
};

std::string WithEndedLine(const std::string& text) { return text.ends_with('\n') ? text : text + "\n"; }

TEST(RtfBinder, PagesKeepFontsColorsStylesAndText) {
    const char* const samples[] = {"writer-cover.rtf", "writer-wide.rtf", "split-runs.rtf", "by-hand.rtf"};
    for (const char* const first : samples) {
        for (const char* const second : samples) {
            SCOPED_TRACE(std::string(first) + " + " + second);
            const Document pages[] = {Sample(first), Sample(second)};
            const Document bound(Bound({pages[0].Bytes(), pages[1].Bytes()}));
            auto expected = RunReader(pages[0].Bytes()).Read();
            for (const auto& [c, runs] : RunReader(pages[1].Bytes()).Read()) {
                expected[c].insert(expected[c].end(), runs.begin(), runs.end());
            }
            auto actual = RunReader(bound.Bytes()).Read();
            expected.erase('-'); // the separators
            actual.erase('-');
            EXPECT_GT(expected.size(), 20U);
            for (const auto& [c, runs] : expected) {
                EXPECT_EQ(actual[c], runs) << c;
            }
            const std::string separator = fmt::format("{:->65}\n", "");
            EXPECT_EQ(bound.PlainText(),
                      fmt::format("{}{}{}{}", WithEndedLine(pages[0].PlainText()), separator,
                                  WithEndedLine(pages[1].PlainText()), separator));
        }
    }
}

TEST(RtfBinder, RepeatedPagesAddOnlyTheirLists) {
    const std::string page = Sample("writer-cover.rtf").Bytes();
    const std::string bound = Bound({page, page, page});
    for (const TableKind kind : {TableKind::fonts, TableKind::colors, TableKind::styles}) {
        EXPECT_EQ(TableOf(bound, kind), TableOf(page, kind));
    }
    std::set<int> numbers;
    std::set<int> ids;
    const auto overrides = TableEntries(TableOf(bound, TableKind::listOverrides));
    for (const std::string& entry : overrides) {
        numbers.insert(NumberIn(entry, "ls", 0));
        ids.insert(NumberIn(entry, "listid", 0));
    }
    EXPECT_GT(overrides.size(), TableEntries(TableOf(page, TableKind::listOverrides)).size());
    EXPECT_EQ(numbers.size(), overrides.size());
    EXPECT_EQ(ids.size(), overrides.size());
    EXPECT_EQ(TableEntries(TableOf(bound, TableKind::lists)).size(), ids.size());
}

TEST(RtfBinder, SaysWhatAPageTakesForGranted) {
    const std::string first = "{\\rtf1\\ansi\\deff0{\\fonttbl{\\f0 Ara;}}\\paperw9000 a\\par}";
    const struct {
        const char* why;
        std::string page;
        std::string section; ///< from \sectd on, as it comes into the report
        const char* table;   ///< what the report's head holds then
    } rows[] = {
        {"its default font, paper and margins where it says nothing",
         "{\\rtf1\\deff7{\\fonttbl{\\f7 Bo;}}\\b x\\plain y}",
         "\\sectd\\pgwsxn12240\\pghsxn15840\\marglsxn1800\\margrsxn1800\\margtsxn1440\\margbsxn1440\\guttersx"
         "n0\n"
         "\\pard \\plain\\f1 \\uc1\n\\b x\\plain\\f1 y\\par\n",
         "{\\fonttbl{\\f0 Ara;}{\\f1 Bo;}\n}"},
        {"sections that go on, pages that count from one",
         "{\\rtf1\\landscape\\margl1\\sectd\\sbknone\\pgnrestart x\\sect\\sectd\\sbknone y\\par}",
         "\\sectd\\pgwsxn12240\\pghsxn15840\\marglsxn1\\margrsxn1800\\margtsxn1440\\margbsxn1440\\guttersxn0"
         "\\lndscpsxn\n"
         "\\pard \\plain \\uc1\n"
         "\\sectd\\pgwsxn12240\\pghsxn15840\\marglsxn1\\margrsxn1800\\margtsxn1440\\margbsxn1440\\guttersxn0"
         "\\lndscpsxn\n"
         "x\\sect"
         "\\sectd\\pgwsxn12240\\pghsxn15840\\marglsxn1\\margrsxn1800\\margtsxn1440\\margbsxn1440\\guttersxn0"
         "\\lndscpsxn\n"
         "\\sbknone y\\par\n",
         "{\\fonttbl{\\f0 Ara;}}"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.why);
        const std::string bound = Bound({first, row.page});
        EXPECT_THAT(bound, HasSubstr("\\sect\n" + row.section));
        EXPECT_THAT(bound, HasSubstr(row.table));
    }
}

TEST(RtfBinder, AddsWhatTheTablesLack) {
    const struct {
        const char* why;
        std::string first;
        std::string page;
        std::vector<const char*> expected;
    } rows[] = {
        {"tables that are not there",
         "{\\rtf1\\ansi a}",
         "{\\rtf1{\\fonttbl{\\f0 A;}}{\\colortbl;\\red1\\green2\\blue3;}{\\stylesheet{\\s4 "
         "S;}}\\pard\\s4\\f0\\cf1 x}",
         {"{\\rtf1\\ansi {\\fonttbl{\\f1 A;}\n}\n{\\colortbl;\\red1\\green2\\blue3;}\n{\\stylesheet{\\s1 "
          "S;}\n}\na",
          "\\s1\\f1\\cf1 x"}},
        {"entries without braces or a last semicolon",
         "{\\rtf1{\\fonttbl\\f0 A;\\f2 B;}{\\colortbl;\\red9}a}",
         "{\\rtf1{\\fonttbl\\f1 B;\\f2 C;}{\\colortbl\\red9;;\\red8;}\\f1 b\\f2 c\\cf0 d\\cf1 e\\cf2 f\\cf9 "
         "g\\f9 h}",
         {"\\f2 B;{\\f1 C;}\n}", "\\red9;\\red8;}", "\\f2 b\\f1 c\\cf1 d\\cf0 e\\cf2 f\\cf0 g\\f0 h"}},
        {"styles of one name, and what they are based on",
         "{\\rtf1{\\stylesheet{Normal;}{\\s1 heading 1,h1;}}a}",
         "{\\rtf1{\\stylesheet{\\fs9 Normal;}{\\s1\\sbasedon0\\snext3\\b Heading 1,h1;}{\\s3\\sbasedon1 "
         "New;}{\\s4 No;}}\\pard\\s1 x}",
         {"{\\s2 \\fs9 Normal (2);}", "\\sbasedon2\\snext4\\b Heading 1 (2);}", "{\\s4\\sbasedon3 New;}\n}",
          "\\pard\\s2 \\s3 x"}},
        {"kinds of styles apart",
         "{\\rtf1{\\stylesheet{\\s1 P;}{\\*\\cs1\\b P;}}a}",
         "{\\rtf1{\\stylesheet{\\s2 P;}{\\*\\cs2\\b P;}{\\*\\ts2 T;}}\\s2\\cs2 x\\yts2 y}",
         {"{\\*\\ts2 T;}", "\\s1\\cs1 x\\yts2 y"}},
        {"bytes of another code page",
         "{\\rtf1\\ansi\\ansicpg1252{\\fonttbl{\\f0 A;}}a}",
         "{\\rtf1\\ansi\\ansicpg1250{\\fonttbl{\\f0 A;}{\\f1\\fcharset238 B;}}x\\f1 y}",
         {"{\\f1\\cpg1250 A;}", "{\\f2\\fcharset238 B;}"}},
        {"pictures, byte for byte",
         "{\\rtf1 a}",
         "{\\rtf1{\\pict\\bin6 }{\\f1{}{\\*\\shppict{\\pict 00fF\n12}}}",
         {"{\\pict\\bin6 }{\\f1{}", "{\\*\\shppict{\\pict 00fF\n12}}"}},
        {"a list under new numbers, no list for a number without one",
         "{\\rtf1{\\*\\listtable{\\list{\\listname "
         ";}\\listid1}}{\\*\\listoverridetable{\\listoverride\\listid1\\ls1}}a}",
         "{\\rtf1{\\*\\listtable{\\list{\\listlevel\\levelpicture2\\cf0}\\listid1}}"
         "{\\*\\listoverridetable{\\listoverride\\listid1\\ls1}}{\\ls1 x}{\\ls7 y}}",
         {"{\\list{\\listlevel\\cf0}\\listid2}", "{\\listoverride\\listid2\\ls2}", "{\\ls2 x}{y}"}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.why);
        const std::string bound = Bound({row.first, row.page});
        EXPECT_NO_THROW(Document(std::string(bound)));
        for (const char* const expected : row.expected) {
            EXPECT_THAT(bound, HasSubstr(expected));
        }
    }
}

TEST(RtfBinder, LeavesOutWhatBelongsToThePagesOwnDocument) {
    const std::string bound = Bound({Sample("writer-cover.rtf").Bytes(), Sample("split-runs.rtf").Bytes()});
    for (const char* const word :
         {"themedata", "latentstyles", "datastore", "mmathPr", "rsidtbl", "defchp"}) {
        EXPECT_THAT(bound, Not(HasSubstr(word)));
    }
    for (const std::string_view once :
         {"\\info", "\\generator", "\\paperw", "\\margl1134", "{\\fonttbl", "\\rtf1"}) {
        EXPECT_EQ(bound.find(once), bound.rfind(once)) << once;
        EXPECT_NE(bound.find(once), std::string::npos) << once;
    }
}

TEST(RtfBinder, IsNotSlowedDownByLongChains) {
    std::string styles;
    std::string lists;
    std::string overrides;
    for (int i = 1; i < 100000; ++i) {
        styles += fmt::format("{{\\s{0}\\sbasedon{1}\\ls{0} n;}}", i, i + 1);
        lists += fmt::format("{{\\list\\s{}\\listid{}}}", i + 1, i);
        overrides += fmt::format("{{\\listoverride\\listid{0}\\ls{0}}}", i);
    }
    const std::string bound =
        Bound({"{\\rtf1 a}", "{\\rtf1{\\stylesheet" + styles + "}{\\*\\listtable" + lists +
                                 "}{\\*\\listoverridetable" + overrides + "}\\s1\\ls1 x}"});
    EXPECT_NO_THROW(Document(std::string(bound)));
}

} // namespace
} // namespace kaloria::rtf
