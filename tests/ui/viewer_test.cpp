// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/rtf_binder.h"
#include "reports/rtf_document.h"
#include "ui/progress_window.h"
#include "ui/theme.h"
#include "ui/viewer/paper_view.h"
#include "ui/viewer/report_pages.h"
#include "ui/viewer/rtf_reader.h"
#include "ui/viewer/view_report.h"

#include <QAction>
#include <QElapsedTimer>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTextTable>
#include <QTimer>
#include <QtTest>

#include <cmath>
#include <string>

namespace kaloria {
namespace {

const QString line(65, QLatin1Char('-'));
const std::string rule = "\\par " + std::string(65, '-') + "\\par ";

QByteArray BytesOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

int SheetsIn(const QByteArray& pdf) {
    static const QRegularExpression page(QStringLiteral("/Type\\s*/Page[^s]"));
    return static_cast<int>(QString::fromLatin1(pdf).count(page));
}

/// A window whose questions are answered by the test.
struct Viewer {
    Viewer() {
        FrmViewReport::Questions questions;
        questions.fileName = [this](const QString&, const QString& filter, const QString& suffix,
                                    const QString& proposal) {
            asked << filter + QLatin1Char('|') + suffix;
            proposed = proposal;
            return answers.isEmpty() ? QString() : answers.takeFirst();
        };
        questions.tell = [this](const QString& message) { told << message; };
        questions.triesElsewhere = [this](const QString& message) {
            told << message;
            return triesElsewhere;
        };
        window.SetQuestions(questions);
    }

    void Trigger(const char* action) { window.findChild<QAction*>(QLatin1String(action))->trigger(); }
    [[nodiscard]] viewer::PaperView& Paper() const {
        return *window.findChild<viewer::PaperView*>(QStringLiteral("RichTextBox1"));
    }
    [[nodiscard]] QString Label(const char* name) const {
        return window.findChild<QLabel*>(QLatin1String(name))->text();
    }

    FrmViewReport window;
    QStringList asked;
    QStringList answers;
    QStringList told;
    QString proposed;
    bool triesElsewhere = false;
};

class ViewerTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void CountsPages_data();
    void CountsPages();
    void PrintsPageByPage_data();
    void PrintsPageByPage();
    void PrintsThePaperOfEachSection();
    void PrintsOnAPrinter();
    void ShowsBoundTemplates();
    void LoadsOnlyReports();
    void SavesItsOwnBytes();
    void FindsAroundTheEnd();
    void Zooms();
    void ProgressEndsWhenCancelled();

private:
    QTemporaryDir folder_;
};

void ViewerTest::initTestCase() {
    theme::Install(*qApp);
    QVERIFY(folder_.isValid());
}

void ViewerTest::CountsPages_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("pages");
    const auto row = [](const char* name, const QString& text, const QStringList& pages) {
        QTest::newRow(name) << text << pages;
    };
    const QString a = QStringLiteral("a");
    const QString b = QStringLiteral("b");
    row("nothing", QString(), {});
    row("no separator: all of it", QStringLiteral("a\nb"), {QStringLiteral("a\nb")});
    row("two separators", a + '\n' + line + '\n' + b + '\n' + line + '\n', {a, b});
    row("text behind the last", a + '\n' + line + '\n' + b, {a, b});
    row("blank behind the last", a + '\n' + line + QStringLiteral("\n \n\n"), {a});
    row("an empty page between", a + '\n' + line + '\n' + line, {a, QString()});
    row("64 and 66 are no separators", line.left(64) + '\n' + line + '-',
        {line.left(64) + '\n' + line + '-'});
    row("within a line it is text", QStringLiteral("x ") + line, {QStringLiteral("x ") + line});
}

void ViewerTest::CountsPages() {
    QFETCH(QString, text);
    QFETCH(QStringList, pages);
    QCOMPARE(viewer::PagesOf(text), pages);
    // The report that reads so has as many.
    const std::string rtf =
        "{\\rtf1 " + QString(text).replace('\n', QStringLiteral("\\par ")).toStdString() + "}";
    QCOMPARE(viewer::CountPages(viewer::ReadRichText(rtf)), static_cast<int>(pages.size()));
}

void ViewerTest::PrintsPageByPage_data() {
    QTest::addColumn<QByteArray>("body");
    QTest::addColumn<int>("sheets");
    const auto row = [](const char* name, const std::string& body, int sheets) {
        QTest::newRow(name) << QByteArray::fromStdString(body) << sheets;
    };
    // Lines of exactly 20 pt on letter paper with margins of 1 in: 648 pt hold 32 of them.
    std::string lines;
    for (int i = 0; i < 80; ++i) {
        lines += "\\pard\\sl-400\\slmult0 line " + std::to_string(i) + "\\par";
    }
    row("no separator", "all", 1);
    row("two separators", "a" + rule + "b" + rule, 2);
    row("text behind the last", "a" + rule + "b" + rule + "c", 3);
    row("a page longer than a sheet", lines + rule + "b" + rule, 4);
    row("page breaks and sections", "a\\page b\\sect c\\sect\\sbknone d" + rule, 3);
    row("a break in front of the separator", "a\\page" + rule + "b" + rule, 2);
    row("a break in front of the first line", "a" + rule + "\\pard\\pagebb b\\par\\pard" + rule, 2);
    row("an empty page", "a" + rule + rule, 2);
    row(
        "a table over two sheets",
        [] {
            std::string rows = "\\trowd\\trhdr\\cellx2000\\intbl\\sl-400 head\\cell\\row";
            for (int i = 0; i < 40; ++i) {
                rows += "\\trowd\\cellx2000\\pard\\intbl\\sl-400 cell\\cell\\row";
            }
            return rows + "\\pard";
        }(),
        2);
}

void ViewerTest::PrintsPageByPage() {
    QFETCH(QByteArray, body);
    QFETCH(int, sheets);
    Viewer viewer;
    viewer.window.ShowReport("{\\rtf1\\paperw12240\\paperh15840\\margt1440\\margb1440 " + body.toStdString() +
                                 "}",
                             QStringLiteral("x.rtf"));
    const QString path = folder_.filePath(QStringLiteral("sheets.pdf"));
    QVERIFY(viewer.window.ExportPdf(path));
    QVERIFY(BytesOf(path).startsWith("%PDF"));
    QCOMPARE(SheetsIn(BytesOf(path)), sheets);
}

void ViewerTest::PrintsThePaperOfEachSection() {
    Viewer viewer;
    viewer.window.ShowReport("{\\rtf1\\paperw12240\\paperh15840 a" + rule +
                                 "\\sect\\sectd\\pgwsxn16838\\pghsxn11906 b" + rule + "}",
                             QStringLiteral("x.rtf"));
    const QString path = folder_.filePath(QStringLiteral("paper.pdf"));
    QVERIFY(viewer.window.ExportPdf(path));
    const QByteArray pdf = BytesOf(path);
    QVERIFY(pdf.contains("/MediaBox [0 0 612"));
    QVERIFY(pdf.contains("/MediaBox [0 0 842"));
}

void ViewerTest::PrintsOnAPrinter() {
    Viewer viewer;
    viewer.window.ShowReport("{\\rtf1 a" + rule + "b" + rule + "c" + rule + "}", QStringLiteral("x.rtf"));
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(folder_.filePath(QStringLiteral("printed.pdf")));
    printer.setPrintRange(QPrinter::PageRange);
    printer.setFromTo(2, 3);
    QVERIFY(viewer.window.PrintOn(printer));
    QCOMPARE(SheetsIn(BytesOf(printer.outputFileName())), 2);

    printer.setOutputFileName(folder_.filePath(QStringLiteral("missing/printed.pdf")));
    QVERIFY(!viewer.window.PrintOn(printer));
}

void ViewerTest::ShowsBoundTemplates() {
    const QString resources = QStringLiteral(KALORIA_RESOURCES_DIR);
    const auto page = [&](const char* name) {
        return rtf::Document(BytesOf(resources + QLatin1Char('/') + QLatin1String(name)).toStdString());
    };
    rtf::Binder binder(page("CoverTemplate.rtf"));
    binder.Append(page("EconomicTemplate.rtf"));
    binder.Append(page("DisclaimerTemplate.rtf"));
    Viewer viewer;
    viewer.window.ShowReport(binder.Bytes(), QStringLiteral("report.rtf"));
    QCOMPARE(viewer.told, QStringList());
    QCOMPARE(viewer.window.PageCount(), 3);
    QCOMPARE(viewer.Label("lblPages"), QStringLiteral("Page 1 of 3"));
    QCOMPARE(static_cast<int>(viewer::PagesOf(viewer.Paper().toPlainText()).size()), 3);
    QVERIFY(viewer.Paper().isReadOnly());
    QVERIFY(viewer.Paper().toPlainText().contains(QStringLiteral("<SurfaceGeometry/>")));
}

void ViewerTest::LoadsOnlyReports() {
    Viewer viewer;
    viewer.window.ShowReport("{\\rtf1 first}", QStringLiteral("x.rtf"));
    viewer.window.LoadReport(folder_.filePath(QStringLiteral("missing.rtf")));
    QCOMPARE(viewer.told, QStringList());
    viewer.window.LoadReport(folder_.path());
    QCOMPARE(viewer.told.size(), 1);
    QVERIFY(viewer.told.last().contains(QStringLiteral("not a regular file")));
    viewer.window.LoadReport(QStringLiteral(KALORIA_RESOURCES_DIR "/Default.kal"));
    QCOMPARE(viewer.told.size(), 2);
    QVERIFY(viewer.told.last().contains(QStringLiteral("not rich text")));
    QCOMPARE(viewer.Paper().toPlainText(), QStringLiteral("first"));

    viewer.window.LoadReport(QStringLiteral(KALORIA_TEST_DATA_DIR "/rtf/by-hand.rtf"));
    QVERIFY(viewer.Paper().toPlainText().startsWith(QStringLiteral("Terms for")));
    QVERIFY(viewer.window.findChild<QLabel*>(QStringLiteral("lblProblem"))->isHidden());
    viewer.window.ShowReport("{\\rtf1 cut off", QStringLiteral("x.rtf"));
    QCOMPARE(viewer.Paper().toPlainText(), QStringLiteral("cut off"));
    QVERIFY(viewer.Label("lblProblem").contains(QStringLiteral("not closed")));
    QCOMPARE(viewer.told.size(), 2);
}

void ViewerTest::SavesItsOwnBytes() {
    // What the window shows in another way: unknown markup, a null byte behind the end, line ends.
    const std::string bytes = std::string("{\\rtf1\\ansi{\\*\\mine x}\\r\n a\\'e9\r\n}\n") + '\0';
    Viewer viewer;
    viewer.window.ShowReport(bytes, QStringLiteral("mine.rtf"));
    const QString missing = folder_.filePath(QStringLiteral("missing/a.rtf"));
    const QString good = folder_.filePath(QStringLiteral("good.rtf"));

    viewer.Trigger("mnuFileSave"); // thought better of
    QCOMPARE(viewer.asked, QStringList{QStringLiteral("Rich Text File (*.rtf)|rtf")});
    QVERIFY(viewer.proposed.endsWith(QStringLiteral("/mine.rtf")));
    QCOMPARE(viewer.told, QStringList());

    viewer.answers = {missing}; // fails, and no other place is wanted
    viewer.Trigger("mnuFileSave");
    QCOMPARE(viewer.told.size(), 1);

    viewer.triesElsewhere = true;
    viewer.answers = {missing, good};
    viewer.Trigger("mnuFileSave");
    QCOMPARE(viewer.told.size(), 2);
    QCOMPARE(BytesOf(good).toStdString(), bytes);

    viewer.Trigger("mnuFileSave");
    QCOMPARE(viewer.proposed, good); // the name last used

    viewer.answers = {folder_.filePath(QStringLiteral("missing/a.pdf"))};
    viewer.triesElsewhere = false;
    viewer.Trigger("mnuFileExportPdf");
    QCOMPARE(viewer.told.size(), 3);
    QCOMPARE(viewer.asked.last(), QStringLiteral("PDF File (*.pdf)|pdf"));
}

void ViewerTest::FindsAroundTheEnd() {
    Viewer viewer;
    viewer.window.show();
    viewer.window.ShowReport(
        "{\\rtf1 Heat and heat\\par\\trowd\\cellx4000\\intbl heat\\cell\\row\\pard loss\\par}",
        QStringLiteral("x.rtf"));
    viewer.Trigger("mnuEditFind");
    auto* const wanted = viewer.window.findChild<QLineEdit*>(QStringLiteral("txtFind"));
    wanted->setText(QStringLiteral("heat"));
    QCOMPARE(viewer.Label("lblFound"), QStringLiteral("1 of 3"));
    QTest::keyClick(wanted, Qt::Key_Return);
    viewer.Trigger("mnuEditFindNext");
    QCOMPARE(viewer.Label("lblFound"), QStringLiteral("3 of 3"));
    viewer.Trigger("mnuEditFindNext");
    QCOMPARE(viewer.Label("lblFound"), QStringLiteral("1 of 3"));
    viewer.Trigger("mnuEditFindPrevious");
    QCOMPARE(viewer.Label("lblFound"), QStringLiteral("3 of 3"));
    QVERIFY(viewer.Paper().textCursor().currentTable() != nullptr);
    wanted->setText(QStringLiteral("cold"));
    QCOMPARE(viewer.Label("lblFound"), QStringLiteral("Not found"));
    QTest::keyClick(wanted, Qt::Key_Escape);
    QVERIFY(!wanted->isVisible());
}

void ViewerTest::Zooms() {
    Viewer viewer;
    viewer.window.show();
    viewer.window.ShowReport("{\\rtf1 some words" + rule + "more" + rule + "}", QStringLiteral("x.rtf"));
    viewer.Paper().setTextCursor(viewer.Paper().document()->find(QStringLiteral("words")));
    const QString text = viewer.Paper().toPlainText();
    const double height = viewer.Paper().document()->size().height();
    viewer.Trigger("mnuViewZoomIn");
    viewer.Trigger("mnuViewZoomIn");
    QCOMPARE(viewer.Label("lblZoom"), QStringLiteral("156 %"));
    // Sheets grow, the gaps between them stay.
    QVERIFY(std::abs(viewer.Paper().document()->size().height() / height - 1.5625) < 0.02);
    QCOMPARE(viewer.Paper().textCursor().selectedText(), QStringLiteral("words"));
    QCOMPARE(viewer.Paper().toPlainText(), text);
    viewer.Trigger("mnuViewFit");
    QVERIFY(viewer.Paper().lineWrapColumnOrWidth() <= viewer.Paper().width());
    viewer.Trigger("mnuViewActualSize");
    QCOMPARE(viewer.Label("lblZoom"), QStringLiteral("100 %"));
}

void ViewerTest::ProgressEndsWhenCancelled() {
    FrmProgress progress;
    QVERIFY(progress.Report("Performing Analysis...", 0, 0));
    QVERIFY(progress.isVisible());
    auto* const cancel = progress.findChild<QPushButton*>(QStringLiteral("cmdCancel"));
    QTimer::singleShot(0, cancel, &QPushButton::click);
    // Not before its next look, which is cheap to wait for.
    QElapsedTimer timer;
    timer.start();
    int steps = 0;
    while (progress.Report("Creating Report ...", 3, 29) && timer.elapsed() < 10'000) {
        ++steps;
    }
    QVERIFY(progress.IsCancelled());
    QVERIFY2(steps > 100, qPrintable(QString::number(steps)));
    QCOMPARE(progress.findChild<QLabel*>(QStringLiteral("lblProgress"))->text(),
             QStringLiteral("Creating Report ..."));
    QVERIFY(!progress.Report("Creating Report ...", 4, 29));
}

} // namespace
} // namespace kaloria

QTEST_MAIN(kaloria::ViewerTest)
#include "viewer_test.moc"
