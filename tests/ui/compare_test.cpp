// SPDX-License-Identifier: GPL-3.0-or-later
// The comparison as a person uses it: keep, look, rename, order, take one back, copy, export.
#include "tests/support/temporary_folder.h"
#include "tests/ui/window_driver.h"
#include "ui/compare/compare_commands.h"
#include "ui/compare/compare_grid.h"
#include "ui/compare/compare_window.h"
#include "ui/pictures/plot_view.h"

#include <QClipboard>
#include <QPushButton>
#include <QTableView>

namespace kaloria {
namespace {

class CompareTest final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() {
        driver_ = std::make_unique<test::WindowDriver>(program_);
        driver_->Trigger(QStringLiteral("mnuEditCompare"));
        shown_ = &driver_->Find<CompareWindow>(QStringLiteral("frmCompare"));
        grid_ = &driver_->Find<CompareGrid>(QStringLiteral("flxCompare"));
    }
    void cleanup() {
        QVERIFY2(driver_->boxes.AreDone(), qPrintable(driver_->boxes.unexpected.join(u' ')));
        driver_.reset();
    }

    void AnEmptyComparisonSaysWhatToDo() {
        QVERIFY(shown_->isVisible() && !shown_->isModal());
        QVERIFY(driver_->LabelText(QStringLiteral("lblCompareEmpty")).contains(QStringLiteral("Keep case")));
        QVERIFY(!grid_->isVisible());
        QVERIFY(!Enabled("cmdCompareCopy") && !Enabled("cmdCompareExport"));
        KeepWithWind("2");
        QVERIFY(grid_->isVisible() && !driver_->Find<QLabel>(QStringLiteral("lblCompareEmpty")).isVisible());
        QVERIFY(Cell("Wind speed", 0).isEmpty()); // nothing to differ from
    }

    void KeptCasesStandStillWhileTheJobGoesOn() {
        driver_->Click(QStringLiteral("cmdKeepCase"));
        driver_->Session().SetText(Field::WindSpeed, "10");
        driver_->Session().Calculate();
        const QString windy = ToQt(driver_->Session().Result().grid.rows[1].cells[1].text); // 0.5 in
        QTest::keyClick(shown_, Qt::Key_K, Qt::ControlModifier);
        driver_->Session().SetText(Field::WindSpeed, "77");
        QCOMPARE(grid_->model()->columnCount(), CompareModel::firstCase + 2);
        QCOMPARE(Cell("Wind speed", 0) + u' ' + Cell("Wind speed", 1), QStringLiteral("2 10"));
        QCOMPARE(Cell("Heat flow", 0), QStringLiteral("165.91")); // of the guide's first job
        QCOMPARE(Cell("Heat flow", 1), windy);
        QCOMPARE(Cell("Compared at", 1), QStringLiteral("0.5 in., design"));
        QCOMPARE(Plot("picCompareFlow").Model().curves.size(), std::size_t{4});
        QCOMPARE(Heading(1), QStringLiteral("2 Steam line (2)"));
    }

    void TheRowInHandIsTheOneThatIsCompared() {
        auto& results = driver_->Find<QTableView>(QStringLiteral("flxResults"));
        results.setCurrentIndex(results.model()->index(6, 0));
        const QString flow = results.model()->index(6, 2).data().toString();
        KeepWithWind("2");
        QCOMPARE(Cell("Compared at", 0), QStringLiteral("3 in., chosen"));
        QCOMPARE(Cell("Heat flow", 0), flow);
    }

    void FollowsTheUnitsAndComesBack() {
        KeepWithWind("2");
        KeepWithWind("10");
        driver_->Trigger(QStringLiteral("mnuUnitsSI"));
        // The job in hand is the second case: both were switched in the same way.
        const ResultsGrid& grid = driver_->Session().Calculate().grid;
        const auto design = std::find_if(grid.rows.begin(), grid.rows.end(),
                                         [](const ResultRow& row) { return row.isDesign; });
        QCOMPARE(Cell("Surface temperature", 1), ToQt(design->cells[0].text));
        QCOMPARE(Cell("Heat flow", 1), ToQt(design->cells[1].text));
        QCOMPARE(Cell("Wind speed", -1), QStringLiteral("m/s"));
        QCOMPARE(Cell("Wind speed", 0), QStringLiteral("0.9"));
        QVERIFY(Plot("picCompareSurface").Model().left.title.ends_with("°C"));
        shown_->close();
        driver_->Trigger(QStringLiteral("mnuUnitsEnglish"));
        driver_->Trigger(QStringLiteral("mnuEditCompare"));
        QCOMPARE(Cell("Wind speed", 0), QStringLiteral("2"));
        QCOMPARE(Cell("Surface temperature", 0), QStringLiteral("126.1"));
    }

    void ASeventhIsRefused() {
        for (int wind = 1; wind <= 6; ++wind) {
            KeepWithWind(std::to_string(wind));
        }
        QVERIFY(!Enabled("cmdCompareKeep"));
        driver_->Trigger(QStringLiteral("mnuEditKeepCase"));
        QCOMPARE(driver_->told.size(), 1);
        QVERIFY(driver_->told[0].contains(QStringLiteral("6 cases are kept already")));
        driver_->Click(QStringLiteral("cmdCaseRemove")); // the first is in hand
        QVERIFY(Enabled("cmdCompareKeep"));
        QCOMPARE(Cell("Wind speed", 0), QStringLiteral("2"));
    }

    void CasesAreRenamedAndOrdered() {
        KeepWithWind("2");
        KeepWithWind("10");
        grid_->ChooseCase(1);
        driver_->Type(QStringLiteral("txtCaseName"), QStringLiteral("Steam line"));
        QVERIFY(driver_->LabelText(QStringLiteral("lblCompareNotice"))
                    .contains(QStringLiteral("already a case")));
        QCOMPARE(driver_->Text(QStringLiteral("txtCaseName")), QStringLiteral("Steam line (2)"));
        driver_->Type(QStringLiteral("txtCaseName"), QStringLiteral("Größe 2"));
        QCOMPARE(Heading(1), QStringLiteral("2 Größe 2"));
        QVERIFY(!Enabled("cmdCaseRight"));
        driver_->Click(QStringLiteral("cmdCaseLeft"));
        QCOMPARE(Heading(0), QStringLiteral("1 Größe 2"));
        QCOMPARE(grid_->Case(), 0);
        QCOMPARE(Cell("Wind speed", 0), QStringLiteral("10"));
        // The name field and the buttons follow the column that is clicked.
        QTest::mouseClick(grid_->viewport(), Qt::LeftButton, {},
                          grid_->visualRect(grid_->model()->index(3, CompareModel::firstCase + 1)).center());
        QCOMPARE(driver_->Text(QStringLiteral("txtCaseName")), QStringLiteral("Steam line"));
    }

    void ACaseComesBackIntoTheWindowAfterTheQuestion() {
        KeepWithWind("2");
        driver_->Session().SetText(Field::WindSpeed, "33");
        driver_->boxes.ExpectButton(QStringLiteral("frmAskSave"), QMessageBox::Cancel);
        driver_->Click(QStringLiteral("cmdCaseOpen"));
        QCOMPARE(driver_->TheJob()[Field::WindSpeed], std::string("33"));
        driver_->boxes.ExpectButton(QStringLiteral("frmAskSave"), QMessageBox::Discard);
        driver_->Click(QStringLiteral("cmdCaseOpen"));
        QCOMPARE(driver_->TheJob()[Field::WindSpeed], std::string("2"));
        QVERIFY(driver_->Session().IsDirty() && driver_->Session().Path().empty());
        QTRY_COMPARE(driver_->Text(QStringLiteral("txtWindSpeed")), QStringLiteral("2"));
    }

    void AReasonStandsInPlaceOfFigures() {
        KeepWithWind("2");
        driver_->Session().SetText(Field::WindSpeed, "much");
        driver_->Trigger(QStringLiteral("mnuEditKeepCase"));
        QCOMPARE(Cell("Heat flow", 1), QStringLiteral("–"));
        QVERIFY(Cell("No answer", 1).contains(QStringLiteral("\"much\"")));
        QVERIFY(driver_->LabelText(QStringLiteral("lblCompareNotice")).contains(QStringLiteral("\"much\"")));
        // A material that goes takes the figures along at once.
        driver_->Session().EditRecords([](Catalogue& records, Job&) {
            records.Insulations.remove_if([](const CInsulation& one) { return one.ID == 9; });
        });
        QVERIFY(Cell("No answer", 0).contains(QStringLiteral("not in the catalogue")));
    }

    void CopiesAndExports() {
        KeepWithWind("2");
        KeepWithWind("10");
        QTest::keyClick(grid_, Qt::Key_C, Qt::ControlModifier);
        const QString copied = QApplication::clipboard()->text();
        QVERIFY2(copied.contains(QStringLiteral("\nWind speed\tmph\t2\t10\n")), qPrintable(copied));
        const test::TemporaryFolder folder;
        driver_->boxes.ExpectFile(folder / "c.csv");
        driver_->Click(QStringLiteral("cmdCompareExport"));
        QVERIFY(test::Slurp(folder / "c.csv").find("\r\nWind speed,mph,2,10\r\n") != std::string::npos);
        driver_->boxes.ExpectFile(folder / "c.xlsx");
        driver_->Click(QStringLiteral("cmdCompareExport"));
        QVERIFY(test::Slurp(folder / "c.xlsx").starts_with("PK"));
        QVERIFY(!driver_->window->Compare().Export(QStringLiteral("/dev/null/c.xlsx")));
        QVERIFY(driver_->told.last().contains(QStringLiteral("could not be exported")));
    }

    void EndsWithTheProgramWhileANameIsTyped() {
        KeepWithWind("2");
        auto& name = driver_->Find<QLineEdit>(QStringLiteral("txtCaseName"));
        name.setFocus();
        name.setText(QStringLiteral("half a na"));
        driver_.reset();
        driver_ = std::make_unique<test::WindowDriver>(program_);
    }

private:
    void KeepWithWind(const std::string& wind) {
        driver_->Session().SetText(Field::WindSpeed, wind);
        driver_->Trigger(QStringLiteral("mnuEditKeepCase"));
    }
    bool Enabled(const char* name) { return driver_->Find<QPushButton>(QLatin1String(name)).isEnabled(); }
    PlotView& Plot(const char* name) { return driver_->Find<PlotView>(QLatin1String(name)); }
    QString Heading(int index) {
        return grid_->model()->headerData(index + CompareModel::firstCase, Qt::Horizontal).toString();
    }
    /// The cell of a case in the row of that label, -1 its unit; empty without such a row.
    QString Cell(const char* label, int index) {
        for (int row = 0; row < grid_->model()->rowCount(); ++row) {
            if (grid_->model()->index(row, 0).data().toString() == QLatin1String(label)) {
                return grid_->model()->index(row, index + CompareModel::firstCase).data().toString();
            }
        }
        return {};
    }

    test::ProgramCopy program_;
    std::unique_ptr<test::WindowDriver> driver_;
    CompareWindow* shown_ = nullptr;
    CompareGrid* grid_ = nullptr;
};

} // namespace
} // namespace kaloria

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    kaloria::theme::Install(application);
    kaloria::CompareTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "compare_test.moc"
