// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/viewer/document_builder.h"
#include "ui/viewer/report_pages.h"
#include "ui/viewer/rtf_reader.h"

#include <QBuffer>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTextCursor>
#include <QTextTable>
#include <QtTest>

#include <random>
#include <string>

namespace kaloria::viewer {
namespace {

QString LookOf(const TextLook& look, const RichText& text) {
    QString words;
    const auto add = [&](bool is, const QString& word) { words += is ? word : QString(); };
    add(look.isBold, QStringLiteral("b"));
    add(look.isItalic, QStringLiteral("i"));
    add(look.isUnderlined, QStringLiteral("u"));
    add(look.isStruck, QStringLiteral("s"));
    add(look.isCapital, QStringLiteral("A"));
    add(look.raise > 0, QStringLiteral("^"));
    add(look.raise < 0, QStringLiteral("_"));
    add(look.size != 12, QString::number(look.size));
    add(look.color.isValid(), look.color.name());
    add(look.background.isValid(), QStringLiteral("/") + look.background.name());
    const auto font = text.fonts.find(look.font);
    add(font != text.fonts.end() && look.font != 0,
        QStringLiteral(":") + (font == text.fonts.end() ? QString() : font->second.families.value(0)));
    return words;
}

QString Told(const Paragraph& paragraph, const RichText& text) {
    const ParagraphLook& look = paragraph.look;
    QString told;
    const auto add = [&](int value, const QString& word) {
        told += value == 0 ? QString() : word + QString::number(value) + QStringLiteral(" ");
    };
    told += look.alignment == Qt::AlignHCenter ? QStringLiteral("center ")
            : look.alignment == Qt::AlignRight ? QStringLiteral("right ")
                                               : QString();
    add(look.left, QStringLiteral("li"));
    add(look.right, QStringLiteral("ri"));
    add(look.first, QStringLiteral("fi"));
    add(look.before, QStringLiteral("sb"));
    add(look.after, QStringLiteral("sa"));
    add(look.lineHeight, look.isMultiple ? QStringLiteral("x") : QStringLiteral("sl"));
    add(look.borders[Side::bottom].width, QStringLiteral("rule"));
    add(look.breaksPage ? 1 : 0, QStringLiteral("page"));
    for (const TabStop& tab : look.tabs) {
        add(tab.position, tab.type == QTextOption::RightTab       ? QStringLiteral("tabr")
                          : tab.type == QTextOption::DelimiterTab ? QStringLiteral("tabd")
                                                                  : QStringLiteral("tab"));
    }
    for (const Run& run : paragraph.runs) {
        const QString words = LookOf(run.look, text);
        told += run.picture >= 0                 ? QStringLiteral("(picture)")
                : run.field == Field::pageNumber ? QStringLiteral("(page)")
                : words.isEmpty()
                    ? run.text
                    : QStringLiteral("[") + words + QStringLiteral(" ") + run.text + QStringLiteral("]");
    }
    return told;
}

QString Told(const Row& row, const RichText& text) {
    QString told = row.isHeading ? QStringLiteral("head ") : QStringLiteral("row ");
    told += QString::number(row.left);
    for (const Cell& cell : row.cells) {
        QStringList lines;
        for (const Paragraph& paragraph : cell.paragraphs) {
            lines << Told(paragraph, text);
        }
        const CellLook& look = cell.look;
        told += QStringLiteral(" <") + lines.join(QLatin1Char('/')) + QStringLiteral(">") +
                QString::number(look.right);
        told += look.down == CellLook::Merge::first  ? QStringLiteral("v")
                : look.down == CellLook::Merge::more ? QStringLiteral("^")
                                                     : QString();
        told += look.shading.isValid() ? look.shading.name() : QString();
        told += look.borders[Side::top].width > 0
                    ? QStringLiteral("T") + QString::number(look.borders[Side::top].width)
                    : QString();
        told += look.vertical == QTextCharFormat::AlignBottom ? QStringLiteral("low") : QString();
    }
    return told;
}

QString Told(const std::vector<Block>& blocks, const RichText& text) {
    QStringList lines;
    for (const Block& block : blocks) {
        const auto* const row = std::get_if<Row>(&block.content);
        lines << (row != nullptr ? Told(*row, text) : Told(std::get<Paragraph>(block.content), text));
    }
    return lines.join(QLatin1Char('\n'));
}

std::unique_ptr<QTextDocument> Laid(const RichText& text) {
    auto document = BuildDocument(text, text.blocks, {});
    document->setTextWidth(600);
    return document;
}

std::string Repeated(std::string_view part, int count) {
    std::string all;
    for (int i = 0; i < count; ++i) {
        all += part;
    }
    return all;
}

std::string PngHex() {
    QImage image(3, 2, QImage::Format_RGB32);
    image.fill(Qt::red);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return bytes.toHex().toStdString();
}

class ReportReaderTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void Reads_data();
    void Reads();
    void KeepsHeadersAndPaperOfSections();
    void ShowsPictures();
    void SurvivesHostile_data();
    void SurvivesHostile();
    void SurvivesDamage();
    void MergesCells();
    void FitsWideTables();
};

void ReportReaderTest::Reads_data() {
    QTest::addColumn<QString>("rtf");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char* name, const char* rtf, const char* expected) {
        QTest::newRow(name) << QString::fromUtf8(rtf) << QString::fromUtf8(expected);
    };
    row("looks",
        R"(a\b b\b0\i c\i0\ul d\ulnone\strike e\strike0\super f\nosupersub\sub g\nosupersub\caps h\caps0 k)",
        "a[b b][i c][u d][s e][^ f][_ g][A h]k");
    row("sizes, colours",
        R"({\colortbl;\red255\green0\blue0;\red0\green0\blue255;}\fs20 a{\cf1 b}\highlight2 c\plain d)",
        "[10 a][10#ff0000 b][10/#0000ff c]d");
    row("fonts", R"({\fonttbl{\f0 Arial;}{\f3\fmodern Courier New{\*\falt Mono};}}a{\f3 b}\f0 c)",
        "a[:Courier New b]c");
    row("paragraphs",
        R"(\pard\qc\li720\ri360\fi-360\sb120\sa60 a\par\pard\qr\sl360\slmult1 b\par\pard\sl-200 c\par)",
        "center li720 ri360 fi-360 sb120 sa60 a\nright x360 b\nsl-200 c");
    row("tab stops", R"(\tx1000\tqr\tx5000\tqdec\tx6000 a\tab b\par)", "tab1000 tabr5000 tabd6000 a\tb");
    row("rule below", R"(\brdrb\brdrs\brdrw15 a\par\pard b\par)", "rule15 a\nb");
    row("characters", R"(\emdash\~\{\\\}\lquote\bullet\line\_)", "—\u00a0{\\}‘•\u2028\u2011");
    row("Unicode and its stand-ins", R"(\u8212\'97a\uc2\u945 ??b{\uc0\u946 c}\uc1\u-10179?\u-8704?d\u61623?)",
        "—aαbβc😀d•");
    row("code pages",
        R"({\fonttbl{\f0 A;}{\f1\fcharset204 B;}{\f2\fcharset128 C;}{\f3\fcharset2 Symbol;}}\'e9{\f1\'cf}{\f2\'82\'a0}{\f3\'b7a})",
        "é[:B П][:C あ][:Symbol •α]");
    row("nothing that is not to be seen",
        R"({\info{\title T}}{\*\unknown x}a{\v h}{\deleted d}{\*\bkmkstart m}b{\stylesheet{\s1 S;}}\'00\ab c)",
        "ab c");
    row("fields",
        R"({\field{\*\fldinst HYPERLINK "http://a"}{\fldrslt link}} {\field{\*\fldinst{ PAGE }}{\fldrslt 7}})",
        "link 7");
    row("raised by a distance", R"(x{\up6 2}\dn4 i\dn0 k)", "x[^ 2][_ i]k");
    row("blanks in front of a number", R"({\listtext\pard\plain  1.\tab}\ls1 one\par)", "1.\tone");
    row("lists", R"({\listtext\pard\plain 1.\tab}\ls1 one\par{\listtext\tab}none\par)", "1.\tone\nnone");
    row("breaks", R"(a\page b\par\pagebb c\par)", "a\npage1 b\npage1 c");
    row("a table",
        R"(\trowd\trleft100\trhdr\cellx1000\clvertalb\clshdng5000\clbrdrt\brdrs\brdrw30\cellx3000\pard\intbl a\cell\qr b\par c\cell\row\pard d\par)",
        "head 100 <a>1000 <right b/right c>3000#808080T30low\nd");
    row("the second row's own cells",
        R"(\trowd\clcbpat1\cellx1000\pard\intbl a\cell\row\trowd\cellx1500\pard\intbl b\cell\row)",
        "row 0 <a>1000\nrow 0 <b>1500");
    row("merged across",
        R"(\trowd\clmgf\cellx1000\clmrg\cellx2000\cellx3000\pard\intbl a\cell\cell b\cell\row)",
        "row 0 <a>2000 <b>3000");
    row("merged down",
        R"(\trowd\clvmgf\cellx1000\pard\intbl a\cell\row\trowd\clvmrg\cellx1000\pard\intbl\cell\row)",
        "row 0 <a>1000v\nrow 0 <>1000^");
    row("a table in a cell",
        R"(\trowd\cellx5000\pard\intbl\itap2 a\nestcell b\nestcell{\*\nesttableprops\trowd\cellx1\nestrow}{\nonesttables\par}\pard\intbl c\cell\row)",
        "row 0 <a\tb\tc>5000");
    row("a text box and a footnote",
        R"(a{\shp{\*\shpinst{\sp{\sn x}{\sv 1}}{\shptxt box\par}}{\shprslt old}}b{\footnote note}\par)",
        "box\nnote\nab");
    row("cells without a row's end", R"(\trowd\cellx1000\pard\intbl a\cell\pard b\par)", "row 0 <a>1000\nb");
}

void ReportReaderTest::Reads() {
    QFETCH(QString, rtf);
    QFETCH(QString, expected);
    const std::string bytes = (QStringLiteral("{\\rtf1\\ansi ") + rtf + QStringLiteral("}")).toStdString();
    const RichText text = ReadRichText(bytes);
    QCOMPARE(text.problem, QString());
    QCOMPARE(Told(text.blocks, text), expected);
    QVERIFY(Laid(text)->size().height() > 0);
}

void ReportReaderTest::KeepsHeadersAndPaperOfSections() {
    const RichText text = ReadRichText(
        R"({\rtf1\paperw12240\paperh15840\margl1000{\header Head {\field{\*\fldinst PAGE}{\fldrslt 1}}\par}a\par)"
        R"(\sect\sectd\pgwsxn15840\pghsxn12240\marglsxn500\titlepg{\headerf First}{\footer \chpgn}b\par})");
    QCOMPARE(Told(text.blocks, text), QStringLiteral("a\nb"));
    QCOMPARE(text.sections.size(), std::size_t{2});
    const Section& one = text.sections[0];
    const Section& two = text.sections[1];
    QCOMPARE(QSize(one.paperWidth, one.paperHeight), QSize(12240, 15840));
    QCOMPARE(QSize(two.paperWidth, two.paperHeight), QSize(15840, 12240));
    QCOMPARE(QSize(one.marginLeft, two.marginLeft), QSize(1000, 500));
    QCOMPARE(Told(*one.all.header, text), QStringLiteral("Head (page)"));
    QCOMPARE(Told(*two.all.header, text), QStringLiteral("Head (page)")); // it goes on
    QVERIFY(!one.hasFirst && two.hasFirst && !one.all.footer);
    QCOMPARE(Told(*two.first.header, text), QStringLiteral("First"));
    QCOMPARE(Told(*two.all.footer, text), QStringLiteral("(page)"));
}

void ReportReaderTest::ShowsPictures() {
    const std::string hex = PngHex();
    const RichText text =
        ReadRichText("{\\rtf1 a{\\*\\shppict{\\pict\\pngblip\\picwgoal1440\\pichgoal720\\picscalex50 " +
                     hex.substr(0, 40) + "\n" + hex.substr(40) +
                     "}}{\\nonshppict{\\pict\\wmetafile8 00}}b{\\pict\\wmetafile8 0100}c}");
    QCOMPARE(Told(text.blocks, text), QStringLiteral("a(picture)b[i#a0a0a4 [picture]]c"));
    QCOMPARE(text.pictures.size(), std::size_t{1});
    QCOMPARE(text.pictures[0].image.size(), QSize(3, 2));
    QCOMPARE(QSize(text.pictures[0].width, text.pictures[0].height), QSize(720, 720));
}

void ReportReaderTest::SurvivesHostile_data() {
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<bool>("isWhole");
    const auto row = [](const char* name, const std::string& bytes, bool isWhole) {
        QTest::newRow(name) << QByteArray::fromStdString(bytes) << isWhole;
    };
    row("empty", "", false);
    row("not RTF", "Hello", false);
    row("not closed", "{\\rtf1 seen {\\b bold", false);
    row("closed too often", "{\\rtf1 seen}}}}", false);
    row("a header not closed", "{\\rtf1 seen{\\header x", false);
    row("groups without end", "{\\rtf1 seen" + Repeated("{", 200'000), false);
    row("bytes that are not there", "{\\rtf1 seen\\bin999999 x}", false);
    row("a number beyond all bounds", "{\\rtf1 seen\\fs99999999999 x}", false);
    row("huge numbers",
        "{\\rtf1 seen\\li2000000000\\fs2000000000\\sb-2000000000\\tx-5\\paperw0\\margl30000 x\\par}", true);
    row("no font, colour, field", "{\\rtf1\\f77\\cf99\\cb-4 seen{\\fldinst PAGE}{\\fldrslt x}}", true);
    row("a table of nothing",
        "{\\rtf1\\trowd\\row\\trowd\\cellx0\\cellx-50\\intbl seen\\cell\\cell\\cell\\row}", true);
    row(
        "every row its own cells",
        [] {
            std::string rtf = "{\\rtf1 seen\\par";
            for (int i = 0; i < 8'000; ++i) {
                rtf += "\\trowd\\cellx" + std::to_string(100 + 37 * i % 20'000) +
                       "\\cellx30000\\intbl a\\cell b\\cell\\row";
            }
            return rtf + "}";
        }(),
        true);
    row("endless merges",
        "{\\rtf1 seen\\par" +
            Repeated("\\trowd\\clvmgf\\clmgf\\cellx99\\clvmrg\\clmrg\\cellx700\\clvmrg\\cellx900\\intbl\\cell"
                     " a\\cell\\cell\\row",
                     3000) +
            "}",
        true);
    row("more than can be shown", "{\\rtf1 seen" + Repeated("\\par", 3'000'000) + "}", false);
    row("a look for each letter", "{\\rtf1 seen" + Repeated("\\b x\\b0 y", 300'000) + "}", false);
    row("a broken picture",
        "{\\rtf1 seen{\\pict\\pngblip 89504e470d0a1a0a0000000d49484452ffffffffffffffff0806000000}}", true);
    row("marks of documents", "{\\rtf1 seen\\u-560 ?\\u-559 ?\\u8233 ?\\u-4 ?\\u-10179 ?x}", true);
}

void ReportReaderTest::SurvivesHostile() {
    QFETCH(QByteArray, bytes);
    QFETCH(bool, isWhole);
    QElapsedTimer timer;
    timer.start();
    const RichText text = ReadRichText({bytes.constData(), static_cast<std::size_t>(bytes.size())});
    const QString shown = Laid(text)->toPlainText();
    QCOMPARE(text.problem.isEmpty(), isWhole);
    QCOMPARE(shown.contains(QStringLiteral("seen")), bytes.contains("seen"));
    QVERIFY2(timer.elapsed() < 30'000, qPrintable(QStringLiteral("took %1 ms").arg(timer.elapsed())));
}

/// Files of word processors, cut off and with bytes exchanged.
void ReportReaderTest::SurvivesDamage() {
    std::mt19937 random(20260);
    const QDir folder(QStringLiteral(KALORIA_TEST_DATA_DIR "/rtf"));
    const QStringList names = folder.entryList({QStringLiteral("*.rtf")});
    QVERIFY(names.size() >= 3);
    for (const QString& name : names) {
        QFile file(folder.filePath(name));
        QVERIFY(file.open(QIODevice::ReadOnly));
        const std::string whole = file.readAll().toStdString();
        QVERIFY(ReadRichText(whole).problem.isEmpty());
        for (int i = 0; i < 60; ++i) {
            std::string bytes = whole.substr(0, i % 3 == 0 ? random() % whole.size() : whole.size());
            for (int flips = i % 20; flips > 0 && !bytes.empty(); --flips) {
                bytes[random() % bytes.size()] = static_cast<char>("{}\\0 a\xff"[random() % 7]);
            }
            const RichText text = ReadRichText(bytes);
            QVERIFY(Laid(text)->blockCount() > 0);
            QVERIFY(PartsOf(text).size() <= text.blocks.size());
        }
    }
}

void ReportReaderTest::MergesCells() {
    const RichText text = ReadRichText(
        R"({\rtf1\trowd\trhdr\cellx3000\pard\intbl all\cell\row\trowd\clvmgf\cellx1000\cellx2000\cellx3000\pard\intbl a\cell b\cell\qr 1.5\cell\row)"
        R"(\trowd\clvmrg\cellx1000\cellx2000\cellx3000\pard\intbl\cell c\cell d\cell\row\pard end\par})");
    const auto document = Laid(text);
    QTextCursor cursor = document->find(QStringLiteral("all"));
    QTextTable* const table = cursor.currentTable();
    QVERIFY(table != nullptr);
    QCOMPARE(QSize(table->columns(), table->rows()), QSize(3, 3));
    QCOMPARE(table->format().headerRowCount(), 1);
    QCOMPARE(table->cellAt(0, 0).columnSpan(), 3);
    QCOMPARE(table->cellAt(1, 0).rowSpan(), 2);
    QCOMPARE(document->find(QStringLiteral("1.5")).blockFormat().alignment(), Qt::AlignRight);
    QVERIFY(document->find(QStringLiteral("end")).currentTable() == nullptr);
}

void ReportReaderTest::FitsWideTables() {
    // A writer's way of saying "as wide as there is room": 6480 twips between the margins of this sheet.
    const RichText text = ReadRichText(
        R"({\rtf1\paperw9360\margl1440\margr1440\trowd\trpaddl50\clpadr200\cellx16383\cellx65532\pard\intbl a\cell b\cell\row})");
    const auto document = Laid(text);
    QTextTable* const table = document->find(QStringLiteral("a")).currentTable();
    QVERIFY(table != nullptr);
    const auto widths = table->format().columnWidthConstraints();
    QCOMPARE(qRound(widths.value(0).rawValue() * twipsPerInch / UnitsPerInch()), 1620);
    QCOMPARE(qRound(widths.value(1).rawValue() * twipsPerInch / UnitsPerInch()), 4860);
    const QTextTableCellFormat cell = table->cellAt(0, 0).format().toTableCellFormat();
    QCOMPARE(qRound(cell.leftPadding() * twipsPerInch / UnitsPerInch()), 50);
    QCOMPARE(qRound(cell.rightPadding() * twipsPerInch / UnitsPerInch()), 200);
}

} // namespace
} // namespace kaloria::viewer

QTEST_MAIN(kaloria::viewer::ReportReaderTest)
#include "report_reader_test.moc"
