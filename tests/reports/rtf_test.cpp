// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/atomic_file.h"
#include "reports/rtf_document.h"
#include "reports/rtf_markup.h"

#include <gtest/gtest.h>

#include <gmock/gmock.h>
#include <string>
#include <vector>

namespace kaloria::rtf {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

std::string Wrapped(const std::string& body) { return "{\\rtf1\\ansi" + body + "}"; }

std::size_t CountOf(std::string_view text, std::string_view part) {
    std::size_t count = 0;
    for (auto at = text.find(part); at != std::string_view::npos; at = text.find(part, at + part.size())) {
        ++count;
    }
    return count;
}

TEST(Rtf, WritesWhatItRead) {
    for (const char* const sample :
         {"writer-cover.rtf", "writer-wide.rtf", "split-runs.rtf", "by-hand.rtf"}) {
        const std::string bytes = ReadFile(std::string(KALORIA_TEST_DATA_DIR "/rtf/") + sample, maxBytes);
        Document document(bytes);
        EXPECT_FALSE(document.Tags().empty()) << sample;
        document.Fill({{"<None/>", "x"}});
        EXPECT_EQ(document.RemoveParagraphsWith({"<None/>"}), 0U);
        EXPECT_EQ(document.Bytes(), bytes) << sample;
    }
}

TEST(Rtf, FillsEveryTagOfWordProcessorsFiles) {
    Document document(ReadFile(KALORIA_TEST_DATA_DIR "/rtf/split-runs.rtf", maxBytes));
    TagValues values;
    for (const char* const tag : {"CompanyName", "ProjectName", "Address", "Phone", "PhoneNumber", "Contact",
                                  "Temperature", "Date", "Engineer", "System", "Location", "TableData"}) {
        values["<" + std::string(tag) + "/>"] = std::string("=") + tag;
    }
    document.Fill(values);
    EXPECT_EQ(document.PlainText(Document::TextOf::everything),
              "=CompanyName\tPage 1\n=ProjectName\n=Address, then =PhoneNumber and =Phone\n"
              "Optional =Contact line\nTemperature =Temperature here\nA bullet \xE2\x80\x93 "
              "=Date\nEngineer\t=Engineer\t\n"
              "System\t=System\t\n\nBox =Location\n\n=TableData\n");
    EXPECT_THAT(document.Tags(), ElementsAre());
}

TEST(Rtf, FillsATagHoweverItIsSplit) {
    const struct {
        const char* why;
        std::string body;
        std::string expected;
    } rows[] = {
        {"plain, twice, beside another", " <A/><B/>\\par<A/>", " xy\\par x"},
        {"runs; the first one's format wins", "{\\b <}{\\i A}{/>}", "{\\b x}{\\i }{}"},
        {"right-to-left marks", "{\\rtlch\\fcs1 \\af0 \\ltrch <A}{\\rtlch \\ltrch /}>",
         "{\\rtlch\\fcs1 \\af0 \\ltrch x}{\\rtlch \\ltrch }"},
        {"bookmark, smart tag, proofing, ids",
         "{<}{\\*\\bkmkstart b}{\\*\\xmlopen\\xmlns1{\\factoidname City}}{\\noproof\\insrsid7 "
         "A}{\\*\\bkmkend b}{/>}",
         "{x}{\\*\\bkmkstart b}{\\*\\xmlopen\\xmlns1{\\factoidname City}}{\\noproof\\insrsid7 }{\\*\\bkmkend "
         "b}{}"},
        {"bytes and code units, with fallback", "\\'3c\\u65?/\\u62\\'3e", " x"},
        {"two characters of fallback, none", "\\uc2\\u60??A/>{\\uc0\\u60 A/>}", "\\uc2 x{\\uc0 x}"},
        {"line ends and soft hyphen", " <\r\nA\\-/\n>", " x\r\n\\-\n"},
        {"deleted by a revision", "<{\\deleted B}A/>", " x{\\deleted B}"},
        {"words do not swallow the value or what follows", "\\b<A/>\\b0<E/>y\\i<E/> z\\fs2<D/>",
         "\\b x\\b0 y\\i  z\\fs2 1"},
        {"header, footnote, text box, field",
         "{\\header <A/>}<{\\footnote <A/>}{\\shp{\\*\\shpinst{\\sp{\\sn n}{\\sv v}}{\\shptxt <A/>}}}"
         "{\\field{\\*\\fldinst <A/>}{\\fldrslt <A/>}}",
         "{\\header x}<{\\footnote x}{\\shp{\\*\\shpinst{\\sp{\\sn n}{\\sv v}}{\\shptxt x}}}"
         "{\\field{\\*\\fldinst <A/>}{\\fldrslt x}}"},
        {"not over a paragraph, a tab, a cell", " <A\\par/><A\\tab/><\\cell A/>",
         " <A\\par/><A\\tab/><\\cell A/>"},
        {"other tags, almost tags, text between brackets", " <<A/> <C/> <A /> </> <A/ > A<B <A>",
         " <x <C/> <A /> </> <A/ > A<B <A>"},
        {"not in tables of the header or binary data", "{\\info{\\title <A/>}}{\\pict\\bin4 <A/>}",
         "{\\info{\\title <A/>}}{\\pict\\bin4 <A/>}"},
        {"a value is not filled in again", " <T/>", " <A/>"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.why);
        Document document(Wrapped(row.body));
        document.Fill({{"<A/>", "x"}, {"<B/>", "y"}, {"<D/>", "1"}, {"<E/>", ""}, {"<T/>", "<A/>"}});
        EXPECT_EQ(document.Bytes(), Wrapped(row.expected));
    }
    Document escaped(Wrapped("\\uc0 <A/>"));
    escaped.Fill({{"<A/>", "\xC3\xA9"}});
    EXPECT_EQ(escaped.Bytes(), Wrapped("\\uc0 {\\uc1 \\u233\\'e9}")) << "the fallback counts for all readers";
    EXPECT_THAT(Document(Wrapped("<B/>{<}A/><B/>")).Tags(), ElementsAre("<A/>", "<B/>"));
}

TEST(Rtf, EscapesValues) {
    const struct {
        std::string value;
        std::string rtf;
        std::string plain;
    } rows[] = {
        {"a{b}\\c", "a\\{b\\}\\\\c", "a{b}\\c"},
        {"\\par }{\\rtf1", "\\\\par \\}\\{\\\\rtf1", "\\par }{\\rtf1"},
        {"350 \xC2\xB0"
         "F",
         "350 \\u176\\'b0F",
         "350 \xC2\xB0"
         "F"},
        {"\xE2\x82\xAC \xEF\xBF\xA5", "\\u8364? \\u-27?", "\xE2\x82\xAC \xEF\xBF\xA5"},
        {"\xF0\x9D\x9B\xBC", "\\u-10187?\\u-8452?", "\xF0\x9D\x9B\xBC"},
        {"a\r\nb\nc\rd\te", "a\\line b\\line c\\line d\\tab e", "a\nb\nc\nd\te"},
        {std::string("\0\x01\x7F\xC2\x85z", 6), "z", "z"},
        {"\xC0\xAF\xFF\xED\xA0\x80", "\\u-3?\\u-3?\\u-3?\\u-3?\\u-3?\\u-3?",
         "\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.value);
        Document document(Wrapped("\\pard <A/>"));
        document.Fill({{"<A/>", row.value}});
        EXPECT_EQ(document.Bytes(), Wrapped("\\pard " + row.rtf));
        EXPECT_EQ(document.PlainText(), row.plain);
    }
    EXPECT_EQ(Document(Wrapped(" \\'80\\'96\\u8364\\'80\\emdash\\~\\u55357 x")).PlainText(),
              "\xE2\x82\xAC\xE2\x80\x93\xE2\x82\xAC\xE2\x80\x94\xC2\xA0\xEF\xBF\xBD");
}

TEST(Rtf, RemovesOptionalParagraphsAndRows) {
    const std::string row = "\\trowd\\cellx9\\pard\\intbl ";
    const struct {
        const char* why;
        std::string body;
        std::size_t count;
        std::string expected;
    } rows[] = {
        {"nothing to remove", "a\\par <B/>\\par", 0, "a\\par <B/>\\par"},
        {"label and tag", "a\\par\\pard\\b l: {\\i <A}/>\\par\\pard c\\par", 1,
         "a\\par\\pard\\b {\\i }\\pard c\\par"},
        {"the mark inside a group", "a{\\par <A/>\\tab x\\par}c", 1, "a{\\par }c"},
        {"two tags, one paragraph", "<A/><A/>\\par b", 1, " b"},
        {"picture and field go with it",
         "{\\field{\\*\\fldinst PAGE}{\\fldrslt 1}}{\\*\\shppict{\\pict 00}}<A/>\\par b", 1,
         "{\\field{\\fldrslt }}b"},
        {"the last of a section, a header and the document stay", "{\\header\\pard l <A/>}<A/>\\sect <A/>", 3,
         "{\\header\\pard }\\sect "},
        {"row whose cell it fills", "a\\par" + row + "l\\cell <A/>\\cell\\row" + row + "b\\cell c\\cell\\row",
         1, "a\\par\\pard\\intbl " + row + "b\\cell c\\cell\\row"},
        {"row definition repeated before its end",
         row + "l\\cell{<A/>}\\cell{\\trowd\\irow1\\cellx9\\row}\\pard b\\par", 1,
         "\\pard\\intbl {}{}\\pard b\\par"},
        {"with the looks of the row, not of a paragraph",
         "\\pard\\brdrb\\brdrs a\\par\\trowd\\trkeep\\clbrdrb\\brdrs\\brdrw9\\cellx9\\pard\\intbl "
         "<A/>\\cell\\row"
         "\\pard b\\par",
         1, "\\pard\\brdrb\\brdrs a\\par\\pard\\intbl \\pard b\\par"},
        {"one of a cell's paragraphs", row + "a\\par <A/>\\par b\\cell\\row", 1, row + "a\\par b\\cell\\row"},
        {"the last of a cell's paragraphs", row + "a\\par <A/>\\cell\\row", 1, row + "a\\cell\\row"},
        {"all of a cell's paragraphs", row + "a\\cell <A/>\\par <A/>\\cell\\row b", 2, "\\pard\\intbl b"},
        {"a footnote's paragraph is not the text's", "a{\\footnote f <A/>\\par g}\\par", 1,
         "a{\\footnote g}\\par"},
    };
    for (const auto& sample : rows) {
        SCOPED_TRACE(sample.why);
        Document document(Wrapped(sample.body));
        EXPECT_EQ(document.RemoveParagraphsWith({"<A/>"}), sample.count);
        EXPECT_EQ(document.Bytes(), Wrapped(sample.expected));
    }
}

TEST(Rtf, BuildsTables) {
    TableBuilder table({{2000}, {1000, Alignment::right}}, 100);
    table.AddHeading({"S{ze", "mm"});
    table.AddSpan("Bare");
    table.AddRow({"1/2"}, {.hasRuleAbove = true, .shading = 10});
    EXPECT_THROW(table.AddRow({"1", "2", "3"}), std::invalid_argument);
    Document document(Wrapped("\\pard\\qc x <T/>\\par\\pard <T/>\\par <E/>z\\par"));
    document.FillBlock("<T/>", table.Build());
    document.FillBlock("<E/>", TableBuilder(std::vector<TableColumn>(1)).Build());
    EXPECT_EQ(document.PlainText(), "x \nS{ze\tmm\t\nBare\t\n1/2\t\t\n\nS{ze\tmm\t\nBare\t\n1/2\t\t\n\nz\n");
    const std::string& rtf = document.Bytes();
    EXPECT_EQ(CountOf(rtf, "\\trhdr"), 2U) << "one heading in each";
    EXPECT_EQ(CountOf(rtf, "\\cellx2100\n"), 4U) << "not in the row over all columns";
    EXPECT_EQ(CountOf(rtf, "\\cellx3100\n"), 6U);
    EXPECT_THAT(rtf, HasSubstr("\\pard\\intbl\\li70\\ri70\\sb0\\sa30\\qr\\keepn{\\b mm}\\cell"));
    EXPECT_THAT(rtf, HasSubstr("\\clbrdrt\\brdrs\\brdrw10\\clshdng1000\\cellx3100"));
    EXPECT_NO_THROW(Document(std::string(rtf)));

    Document inTable(Wrapped("\n\\trowd\\cellx9\\pard\\intbl <T/>\\cell\\row"));
    const std::string before = inTable.Bytes();
    try {
        inTable.FillBlock("<T/>", table.Build());
        FAIL() << "a table in a table";
    } catch (const FileFault& fault) {
        EXPECT_EQ(fault.Problem().line, 2);
        EXPECT_THAT(fault.Problem().text, HasSubstr("<T/>"));
    }
    EXPECT_EQ(inTable.Bytes(), before);
    inTable.FillBlock("<T/>", Paragraphs({"a}", "b"}));
    EXPECT_EQ(inTable.PlainText(), "a}\nb\t\n");
}

TEST(Rtf, RefusesWhatIsNoDocument) {
    const std::string deep(100000, '{');
    const struct {
        const char* why;
        std::string bytes;
        int line;
        const char* text;
    } rows[] = {
        {"empty", "", 1, "not rich text"},
        {"binary", std::string("\x89PNG\r\n\x1a\n\0", 9), 1, "not rich text"},
        {"no header", "{\\ansi a}", 1, "not rich text"},
        {"another version", "{\\rtf2 a}", 1, "not rich text"},
        {"not closed", "{\\rtf1\r\n{a}\r\r", 4, "byte 13: ends with 1 groups not closed"},
        {"closed too early", "{\\rtf1\n}\na}", 3, "byte 9: text behind the end"},
        {"100 000 groups", "{\\rtf1\n" + deep, 2, "more than 500 deep"},
        {"100 000 groups, closed", "{\\rtf1" + deep + std::string(100001, '}'), 1, "more than 500 deep"},
        {"binary data beyond the end", "{\\rtf1\n\\bin2147483647 x}", 2, "byte 7: \\bin with more"},
        {"binary data of less than none", "{\\rtf1\\bin-1 x}", 1, "\\bin with more"},
        {"\\u without a number", "{\\rtf1\\u x}", 1, "\\u without"},
        {"\\u beyond 16 bits", "{\\rtf1\\u65536 x}", 1, "\\u without"},
        {"\\' without digits", "{\\rtf1\n\n\\'4x}", 3, "\\' without two"},
        {"\\' with a sign", "{\\rtf1\\'-1}", 1, "\\' without two"},
        {"a number beyond 32 bits", "{\\rtf1\\fs99999999999}", 1, "beyond 32 bits"},
        {"an endless word", "{\\rtf1\\" + std::string(1 << 20, 'a') + "}", 1, "more than 32 letters"},
        {"ends in a backslash", "{\\rtf1\\", 1, "ends in a backslash"},
        {"50 MB", "{\\rtf1 " + std::string(50 << 20, 'a') + "}", 0, "larger than"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.why);
        try {
            const Document document(row.bytes);
            ADD_FAILURE() << "accepted";
        } catch (const FileFault& fault) {
            EXPECT_EQ(fault.Problem().line, row.line);
            EXPECT_THAT(fault.Problem().text, HasSubstr(row.text));
        }
    }
    EXPECT_NO_THROW(Document(std::string("{\\rtf1 a}\r\n\0", 12))) << "as rich-text controls end a file";
}

} // namespace
} // namespace kaloria::rtf
