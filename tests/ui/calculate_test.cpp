// SPDX-License-Identifier: GPL-3.0-or-later
// What the window shows of an answer is the answer of the job as a file has it: each calculation type on each
// geometry.
#include "application/grid_export.h"
#include "application/messages.h"
#include "tests/ui/window_driver.h"
#include "ui/results_model.h"

#include <QClipboard>
#include <QTableView>

namespace kaloria {
namespace {

using test::ProgramCopy;
using test::Q;
using test::WindowDriver;

QString T(const char* text) { return QString::fromUtf8(text); }

constexpr int geometryCount = 11;
constexpr int typeCount = 7;
constexpr int table = 6;
constexpr int cylinders = 4; ///< the first geometries, which have sizes

class CalculateTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase() { driver_.reset(); }
    void ShowsTheAnswerOfTheJob_data();
    void ShowsTheAnswerOfTheJob();
    void CopiesCellsForASpreadsheet();
    void GreysWhatIsOutOfDate();

private:
    void CompareGrid(const CalculationResult& expected);
    void ComparePanel(const CalculationResult& expected);

    ProgramCopy folder_;
    std::unique_ptr<WindowDriver> driver_;
    std::unique_ptr<MessageList> sink_;
    std::unique_ptr<CApplication> reference_;
};

void CalculateTest::initTestCase() {
    theme::Install(*qApp);
    driver_ = std::make_unique<WindowDriver>(folder_);
    sink_ = std::make_unique<MessageList>();
    reference_ = std::make_unique<CApplication>(folder_.Path(), *sink_);
    QVERIFY(reference_->LoadConfigurationFile());
    QCOMPARE(driver_->Session().Records().SurfaceGeometries.size(), std::size_t{geometryCount});
}

void CalculateTest::ShowsTheAnswerOfTheJob_data() {
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("geometry");
    QTest::addColumn<bool>("si");
    for (int type = 0; type < typeCount; ++type) {
        for (int geometry = 0; geometry < (type == table ? cylinders : geometryCount); ++geometry) {
            for (const bool si : {false, true}) {
                QTest::addRow("%d on %d, %s", type, geometry + 1, si ? "SI" : "English")
                    << type << geometry << si;
            }
        }
    }
}

void CalculateTest::CompareGrid(const CalculationResult& expected) {
    const QAbstractItemModel& model = *driver_->Find<QTableView>(T("flxResults")).model();
    QCOMPARE(model.rowCount(), static_cast<int>(expected.grid.rows.size()));
    QCOMPARE(model.columnCount(), static_cast<int>(expected.grid.columns.size()));
    for (int column = 0; column < model.columnCount(); ++column) {
        const ResultColumn& heading = expected.grid.columns[static_cast<std::size_t>(column)];
        QCOMPARE(model.headerData(column, Qt::Horizontal, Qt::DisplayRole).toString(),
                 QString::fromStdString(heading.name));
        QCOMPARE(model.headerData(column, Qt::Horizontal, ResultsModel::unitRole).toString(),
                 QString::fromStdString(heading.unit));
        for (int row = 0; row < model.rowCount(); ++row) {
            const ResultRow& cells = expected.grid.rows[static_cast<std::size_t>(row)];
            const std::string& text =
                column == 0 ? cells.label : cells.cells[static_cast<std::size_t>(column) - 1].text;
            QCOMPARE(model.index(row, column).data().toString(), QString::fromStdString(text));
        }
    }
}

void CalculateTest::ComparePanel(const CalculationResult& expected) {
    QWidget& panel = driver_->Find(T("fraReport"));
    QVERIFY(panel.isVisible());
    QCOMPARE(driver_->LabelText(T("lblReportTitle")), QString::fromStdString(expected.title));
    for (const PanelLine& line : expected.panel) {
        const bool isTwice = line.control == "lblMaxSurfaceTemp" || line.control == "lblHeatFlowLimit";
        const QString name = isTwice ? T("lblReport") + Q(line.control).mid(3) : Q(line.control);
        const auto* const label = panel.findChild<QLabel*>(name);
        QVERIFY2(label != nullptr, line.control.c_str());
        QCOMPARE(label->text(), QString::fromStdString(line.text));
    }
    for (const char* const control : {"cmdAppendToAudit", "lblAuditPath", "cmdAuditBrowse"}) {
        QVERIFY2(driver_->Find(T(control)).isVisible(), control);
    }
}

void CalculateTest::ShowsTheAnswerOfTheJob() {
    QFETCH(int, type);
    QFETCH(int, geometry);
    QFETCH(bool, si);
    WindowDriver& driver = *driver_;
    const auto file = folder_.Scratch("calculated.kal");
    const std::string& name = std::next(driver.Session().Records().SurfaceGeometries.begin(), geometry)->Name;
    driver.window->ShowPanel(Panel::surface);
    driver.Choose(T("cboSystemUnits"), si ? T("SI") : T("English"));
    // Cold enough that condensation control has something to answer.
    driver.Type(T("txtProcessTemp"), type == 1 ? T("8") : T("175"));
    driver.Choose(T("cboSurfaceGeometries"), Q(name));
    driver.Choose(T("cboInsulationThicknessCalculationType"), Q(calculationTypeNames[type]));
    driver.Trigger(T("mnuFileCalculate"));
    QVERIFY(driver.Session().Save(file));

    reference_->JobPath = file;
    QVERIFY(reference_->OpenJob());
    const CalculationResult expected = reference_->Calculate();
    QVERIFY2(expected.done && expected.HasAnswer(),
             expected.findings.empty() ? "" : expected.findings.front().text.c_str());
    QCOMPARE(expected.calculationType, type);
    QCOMPARE(driver.TheJob()[Field::SurfaceGeometry], name);
    QVERIFY(driver.Find(T("flxResults")).isEnabled());
    CompareGrid(expected);
    ComparePanel(expected);
    if (!expected.design.label.empty()) {
        QCOMPARE(driver.LabelText(T("Label4")), QString::fromStdString(expected.design.label));
    }
}

void CalculateTest::CopiesCellsForASpreadsheet() {
    WindowDriver& driver = *driver_;
    driver.Trigger(T("mnuFileCalculate"));
    driver.Trigger(T("mnuEditCopyResults"));
    const QStringList lines = QApplication::clipboard()->text().split(u'\n', Qt::SkipEmptyParts);
    const QAbstractItemModel& model = *driver.Find<QTableView>(T("flxResults")).model();
    QCOMPARE(lines.size(), model.rowCount() + 2);
    for (int row = 0; row < model.rowCount(); ++row) {
        const QStringList cells = QString(lines[row + 2]).remove(u'\r').split(u'\t');
        QCOMPARE(cells.size(), model.columnCount());
        for (int column = 0; column < model.columnCount(); ++column) {
            QCOMPARE(cells[column], model.index(row, column).data().toString().trimmed());
        }
    }
}

void CalculateTest::GreysWhatIsOutOfDate() {
    WindowDriver& driver = *driver_;
    driver.window->ShowPanel(Panel::surface);
    driver.Trigger(T("mnuFileCalculate"));
    QVERIFY(!driver.Find(T("lblStale")).isVisible());
    driver.Click(T("cmdLive")); // off
    driver.Type(T("txtProcessTemp"), T("180"));
    QVERIFY(driver.Find(T("lblStale")).isVisible());
    QVERIFY(!driver.Find(T("flxResults")).isEnabled());
    QVERIFY(!driver.Session().IsCurrent());
    driver.Trigger(T("mnuFileCalculate"));
    QVERIFY(!driver.Find(T("lblStale")).isVisible());
    driver.Click(T("cmdLive")); // on: the answer follows by itself
    driver.Type(T("txtProcessTemp"), T("185"));
    QTRY_VERIFY(driver.Session().IsCurrent());
    QVERIFY(driver.LabelText(T("lblProcessTemp")).startsWith(T("185")));
}

} // namespace
} // namespace kaloria

QTEST_MAIN(kaloria::CalculateTest)
#include "calculate_test.moc"
