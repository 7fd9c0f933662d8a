// SPDX-License-Identifier: GPL-3.0-or-later
// The main window as a whole: start-up, its controls by name, keyboard and navigation.
#include "application/messages.h"
#include "tests/ui/window_driver.h"
#include "ui/results_model.h"

#include <QAccessible>
#include <QAction>
#include <QMenuBar>
#include <QScrollBar>
#include <QTableView>

#include <map>

namespace kaloria {
namespace {

using test::ProgramCopy;
using test::Q;
using test::WindowDriver;
namespace fs = std::filesystem;

/// Controls that a person works with; what the toolkit makes within them is not ours to name.
QList<QWidget*> Interactive(const QWidget& window) {
    QList<QWidget*> found;
    for (QWidget* const widget : window.findChildren<QWidget*>()) {
        bool isInner = qobject_cast<QScrollBar*>(widget) != nullptr;
        for (const QWidget* w = widget; w != &window && w != nullptr; w = w->parentWidget()) {
            isInner = isInner || w->objectName().startsWith(QStringLiteral("qt_")) || w->inherits("QMenu") ||
                      w->inherits("QComboBoxPrivateContainer") || w->inherits("QHeaderView") ||
                      w->inherits("QLineEditIconButton") || w->inherits("QTableCornerButton");
        }
        if (!isInner && (widget->focusPolicy() & Qt::TabFocus) != 0 && widget->focusProxy() == nullptr) {
            found << widget;
        }
    }
    return found;
}

class MainWindowTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { theme::Install(*qApp); }
    void StartsWithWhatIsThere_data();
    void StartsWithWhatIsThere();
    void GreetsOnTheFirstStart();
    void ExportsTheDimensionsOfPipesAndTubes();
    void HasHeadingsBeforeAnyAnswer();
    void HasEveryControlByName();
    void NamesEveryControlForAssistiveTechnology();
    void ReachesEveryControlByTab_data();
    void ReachesEveryControlByTab();
    void GivesEachAccessKeyOnce_data();
    void GivesEachAccessKeyOnce();
    void WalksThePanels();
    void cleanupTestCase() { shared_.reset(); }
    void KeepsThePositionInTheJob();

private:
    static void AddPanelRows();
    /// A window for tests that only look at it.
    WindowDriver& Shared() {
        if (shared_ == nullptr) {
            shared_ = std::make_unique<WindowDriver>(folder_);
        }
        return *shared_;
    }
    ProgramCopy folder_;
    std::unique_ptr<WindowDriver> shared_;
};

// Start-up
// ---------------------------------------------------------------------------------------------------------------

void MainWindowTest::StartsWithWhatIsThere_data() {
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("action"); // "remove", "cut" in half, or the text that replaces the version
    QTest::addColumn<QStringList>("told");
    QTest::addColumn<bool>("hasAnswer");
    const QString config = QStringLiteral("CorvaneConfig.xml");
    const QString job = QStringLiteral("Default.kal");
    const auto row = [](const char* name, const QString& file, const char* action,
                        const std::vector<std::string_view>& told, bool hasAnswer) {
        QStringList texts;
        for (const std::string_view text : told) {
            texts << Q(text);
        }
        QTest::newRow(name) << file << QString::fromLatin1(action) << texts << hasAnswer;
    };
    row("everything there", config, "", {}, true);
    row("no configuration", config, "remove", {message::loadingMaterials}, false);
    row("half a configuration", config, "cut", {message::loadingMaterials}, false);
    row("no default job", job, "remove", {message::fileNotFound}, true);
    row("half a default job", job, "cut", {message::openingJob}, true);
    row("default job of another version", job, "Version=\"4.0\"", {message::wrongVersion}, true);
    row("no pictures", QStringLiteral("images"), "remove", {}, true);
}

void MainWindowTest::StartsWithWhatIsThere() {
    QFETCH(QString, file);
    QFETCH(QString, action);
    const ProgramCopy folder;
    const fs::path path = folder.Path() / file.toStdString();
    if (action == u"remove") {
        fs::remove_all(path);
    } else if (!action.isEmpty()) {
        QString text = QString::fromStdString(test::Slurp(path));
        text = action == u"cut" ? text.left(text.size() / 2)
                                : text.replace(QStringLiteral("Version=\"4\""), action);
        test::Spill(path, text.toStdString());
    }
    const std::string left = fs::is_regular_file(path) ? test::Slurp(path) : std::string();

    WindowDriver driver(folder);
    QTEST(driver.told, "told");
    QVERIFY(driver.window->isVisible());
    QVERIFY(driver.Find(QStringLiteral("txtProcessTemp")).isVisible());
    QTRY_VERIFY(driver.Session().IsCurrent());
    const CalculationResult& result = driver.Session().Result();
    QTEST(result.done && result.HasAnswer(), "hasAnswer");
    QCOMPARE(driver.Text(QStringLiteral("txtProcessTemp")), QStringLiteral("350"));
    QCOMPARE(driver.Text(QStringLiteral("txtDate")),
             QDate::currentDate().toString(QStringLiteral("MM/dd/yyyy")));
    QCOMPARE(driver.Text(QStringLiteral("txtPath")),
             QString::fromStdString((folder.Path() / "NewJob.rtf").string()));
    QVERIFY(!driver.window->isWindowModified());

    for (const int category : {0, 1, 2, 3, 4, 5}) { // every panel opens with what there is
        for (int item = 0; MenuItemAt({category, item}) != nullptr; ++item) {
            driver.window->ShowPosition({category, item});
        }
    }
    // Without records of one's own there is nothing to lose, and nothing of the shipped file is touched.
    QVERIFY(driver.window->close());
    QVERIFY2(driver.boxes.AreDone(), qPrintable(driver.boxes.unexpected.join(u'\n')));
    QCOMPARE(fs::is_regular_file(path) ? test::Slurp(path) : std::string(), left);
}

void MainWindowTest::GreetsOnTheFirstStart() {
    WindowDriver driver(folder_);
    const auto kept = [&](std::string_view key) {
        return QString::fromStdString(driver.settings.Get(setting::section, key));
    };
    QStringList order;
    driver.boxes.Expect(QStringLiteral("frmDisclaimer"), [&](QDialog& box) {
        order << box.objectName() + driver.told.join(u'|');
        QVERIFY(box.isModal());
        QCOMPARE(kept(setting::firstRun), QStringLiteral("TRUE")); // ended here, it has not asked yet
        box.findChild<QAbstractButton*>(QStringLiteral("cmdOK"))->click();
    });
    driver.window->Greet();
    QVERIFY(driver.boxes.AreDone());
    QCOMPARE(order, QStringList{QStringLiteral("frmDisclaimer")}); // before the message
    QCOMPARE(driver.told, QStringList{Q(message::firstRun)});
    QVERIFY(driver.Find(QStringLiteral("txtUserName")).isVisible());
    QCOMPARE(kept(setting::showDisclaimer), QStringLiteral("TRUE"));
    QCOMPARE(kept(setting::firstRun), QStringLiteral("FALSE"));

    driver.told.clear();
    driver.boxes.Expect(QStringLiteral("frmDisclaimer"), [](QDialog& box) {
        box.findChild<QAbstractButton*>(QStringLiteral("chkShowDisclaimer"))->click();
        box.findChild<QAbstractButton*>(QStringLiteral("cmdOK"))->click();
    });
    driver.window->Greet(); // the second start
    QVERIFY(driver.boxes.AreDone());
    QCOMPARE(kept(setting::showDisclaimer), QStringLiteral("FALSE"));
    driver.window->Greet(); // the third
    QVERIFY(driver.boxes.AreDone());
    QCOMPARE(driver.told, QStringList());
}

void MainWindowTest::ExportsTheDimensionsOfPipesAndTubes() {
    WindowDriver driver(folder_);
    const fs::path file = folder_.Scratch("sizes.rtf");
    driver.boxes.ExpectFile(file);
    driver.Trigger(QStringLiteral("mnuFileExportDimensions"));
    QVERIFY2(driver.boxes.AreDone(), qPrintable(driver.boxes.unexpected.join(u'\n')));
    QVERIFY(test::Slurp(file).find("10.750") != std::string::npos); // NPS 6 with 2 in, by ASTM C585
    driver.Session().Choose(Field::SurfaceGeometry, "Vertical Flat");
    driver.told.clear();
    driver.Trigger(QStringLiteral("mnuFileExportDimensions"));
    QCOMPARE(driver.told, QStringList{QStringLiteral("Only pipes and tubes have a table of insulation.")});
}

// Controls
// ---------------------------------------------------------------------------------------------------------------

void MainWindowTest::HasHeadingsBeforeAnyAnswer() {
    MemorySettings settings;
    MessageBoxes messages;
    MainWindow window({folder_.Path(), folder_.Scratch("recovery")}, settings, messages);
    const QAbstractItemModel& model = *window.findChild<QTableView*>(QStringLiteral("flxResults"))->model();
    QStringList headings;
    for (int column = 0; column < model.columnCount(); ++column) {
        headings << model.headerData(column, Qt::Horizontal).toString()
                 << model.headerData(column, Qt::Horizontal, ResultsModel::unitRole).toString();
    }
    QCOMPARE(headings.join(u'|'), QString::fromUtf8("Insulation|Thickness|Surface Temp|(°F)|Heat Loss|"
                                                    "(BTU/hr/ft)|Efficiency|(%)"));
    QCOMPARE(model.rowCount(), 0);
}

void MainWindowTest::HasEveryControlByName() {
    WindowDriver driver(folder_);
    driver.Trigger(QStringLiteral("mnuFileCalculate"));
    QCOMPARE(driver.window->objectName(), QStringLiteral("frmMain"));
    const char* const names =
        "cboBaseMetals cboFuelType cboInsulationThicknessCalculationType cboJacketMaterials cboPipeSize "
        "cboSurfaceGeometries cboSystemUnits cmdActivateBaseMetal cmdActivateJacket cmdAddFuel cmdAddLayer "
        "cmdAppendToAudit cmdAuditBrowse cmdBack cmdDelete cmdDeleteBaseMetal cmdDeleteFuel cmdDeleteJacket "
        "cmdDeleteMaterial cmdEdit cmdEditBaseMetal cmdEditJacket cmdFinish cmdNext cmdShowReport "
        "flxBaseMetals flxFuel flxInsulationLayers flxInsulationMaterial flxJacket flxResults "
        "fraCondensation fraData fraMenu fraReport imgBackground imgCategoryButtons imgMenu0 imgMenu1 "
        "imgMenu2 imgMenu3 Label4 lblAmbientTemp lblAnnualOperation lblAuditPath lblBareSurfaceEmittance "
        "lblCalculationType lblCondensationControlThickness lblConversionEfficiency lblDescription "
        "lblDewPoint lblFuelCost lblFuelType lblGeometry lblHeader lblHeatContent lblHeatFlowLimit "
        "lblInsulationLayer1 lblInsulationThickness1 lblMaxSurfaceTemp lblOuterJacketMaterial "
        "lblOuterSurfaceEmittance lblPipeSize lblProcessTemp lblRelativeHumidity lblSystemUnits "
        "lblWindSpeed mnuFileCalculate mnuFileExportDimensions mnuFileExportReport mnuFileOpen "
        "mnuFilePrintReport "
        "mnuUnitsEnglish mnuUnitsSI mnuEditLoadDefaults mnuEditSaveAsDefault";
    QStringList missing;
    QStringList twice;
    for (const QString& name : QString::fromLatin1(names).split(u' ')) {
        const auto found = driver.window->findChildren<QObject*>(name).size();
        (found == 0 ? missing : twice) << (found == 1 ? QString() : name);
    }
    twice.removeAll(QString());
    QCOMPARE(missing.join(u'\n'), QString());
    QCOMPARE(twice.join(u'\n'), QString());
    for (const JobField& field : JobFields()) {
        // All surfaces are 29 check boxes in the window.
        QVERIFY2(field.id == Field::ReportAllSurfaces ||
                     driver.window->findChild<QObject*>(Q(field.control)) != nullptr,
                 field.control.data());
    }

    driver.Choose(QStringLiteral("cboInsulationThicknessCalculationType"),
                  QStringLiteral("Heat Loss Per Year"));
    driver.Trigger(QStringLiteral("mnuFileCalculate"));
    for (const char* const name : {"lblFuelName", "lblReportHeatContent", "lblReportFuelCost",
                                   "lblReportEfficiency", "lblHoursPerYear"}) {
        QVERIFY2(driver.window->findChild<QLabel*>(QLatin1String(name)) != nullptr, name);
    }
    QTableWidget& layers = driver.Layers();
    layers.editItem(layers.item(1, 2));
    QVERIFY(driver.window->findChild<QComboBox*>(QStringLiteral("cboInsulation")) != nullptr);
    QVERIFY(driver.window->findChild<QWidget*>(QStringLiteral("picDropDown")) != nullptr);
}

void MainWindowTest::NamesEveryControlForAssistiveTechnology() {
    WindowDriver driver(folder_);
    driver.Trigger(QStringLiteral("mnuFileCalculate"));
    QStringList nameless;
    for (QWidget* const widget : Interactive(*driver.window)) {
        QAccessibleInterface* const face = QAccessible::queryAccessibleInterface(widget);
        if (face == nullptr || face->text(QAccessible::Name).trimmed().isEmpty() ||
            widget->objectName().isEmpty()) {
            nameless << QStringLiteral("%1 '%2' in %3")
                            .arg(QLatin1String(widget->metaObject()->className()), widget->objectName(),
                                 widget->parentWidget()->objectName());
        }
    }
    QCOMPARE(nameless.join(u'\n'), QString());
}

void MainWindowTest::AddPanelRows() {
    QTest::addColumn<int>("category");
    QTest::addColumn<int>("item");
    for (int category = 0; CategoryAt(category) != nullptr; ++category) {
        for (int item = 0; MenuItemAt({category, item}) != nullptr; ++item) {
            if (MenuItemAt({category, item})->panel != Panel::none) {
                QTest::addRow("%d.%d", category, item) << category << item;
            }
        }
    }
}

void MainWindowTest::ReachesEveryControlByTab_data() { AddPanelRows(); }

void MainWindowTest::ReachesEveryControlByTab() {
    QFETCH(int, category);
    QFETCH(int, item);
    WindowDriver& driver = Shared();
    driver.window->ShowPosition({category, item});
    QVERIFY(QTest::qWaitForWindowActive(driver.window.get()));
    QWidget& first = driver.Find(QStringLiteral("imgMenu%1").arg(item));
    first.setFocus();
    QSet<QWidget*> reached;
    for (QWidget* at = &first; at != nullptr && !reached.contains(at); at = QApplication::focusWidget()) {
        reached << at;
        QTest::keyClick(at, Qt::Key_Tab);
    }
    QStringList missed;
    for (QWidget* const widget : Interactive(*driver.window)) {
        if (widget->isVisible() && widget->isEnabled() && !reached.contains(widget)) {
            missed << widget->objectName();
        }
    }
    QCOMPARE(missed.join(u'\n'), QString());
    QVERIFY(reached.size() > 6); // rail, tabs and what stands beside them
}

void MainWindowTest::GivesEachAccessKeyOnce_data() { AddPanelRows(); }

void MainWindowTest::GivesEachAccessKeyOnce() {
    QFETCH(int, category);
    QFETCH(int, item);
    WindowDriver& driver = Shared();
    driver.window->ShowPosition({category, item});
    std::map<QString, QStringList> users;
    const auto add = [&](const QString& text) {
        if (const QKeySequence key = QKeySequence::mnemonic(text); !key.isEmpty()) {
            users[key.toString()] << text;
        }
    };
    for (const QAction* const menu : driver.window->menuBar()->actions()) {
        add(menu->text());
    }
    for (const QAbstractButton* const button : driver.window->findChildren<QAbstractButton*>()) {
        add(button->isVisible() ? button->text() : QString());
    }
    for (const QLabel* const label : driver.window->findChildren<QLabel*>()) {
        add(label->isVisible() && label->buddy() != nullptr ? label->text() : QString());
    }
    QStringList clashes;
    for (const auto& [key, texts] : users) {
        if (texts.size() > 1) {
            clashes << key + QStringLiteral(": ") + texts.join(QStringLiteral(", "));
        }
    }
    QCOMPARE(clashes.join(u'\n'), QString());
}

// Navigation
// ---------------------------------------------------------------------------------------------------------------

void MainWindowTest::WalksThePanels() {
    WindowDriver driver(folder_);
    const auto header = [&] { return driver.LabelText(QStringLiteral("lblHeader")); };
    const auto expected = [&](int category, int item) {
        return QString::fromStdString(driver.Session().App().HeaderText(category, item));
    };
    for (int category = 0; CategoryAt(category) != nullptr; ++category) {
        driver.Click(QStringLiteral("imgCategoryButtons%1").arg(category));
        const MenuPosition first = FirstPanel(category);
        QCOMPARE(driver.window->Position(), first);
        QCOMPARE(header(), expected(category, first.menuItem));
        for (int item = 0; MenuItemAt({category, item}) != nullptr; ++item) {
            if (MenuItemAt({category, item})->panel == Panel::none) {
                continue;
            }
            driver.Click(QStringLiteral("imgMenu%1").arg(item));
            QCOMPARE(header(), expected(category, item));
            QVERIFY(!header().isEmpty());
            QVERIFY(driver.Find<QAbstractButton>(QStringLiteral("imgMenu%1").arg(item)).isChecked());
        }
    }
    // Next and Back walk a category and end where it ends.
    driver.window->ShowPosition({1, 0});
    QVERIFY(!driver.Find(QStringLiteral("cmdBack")).isEnabled());
    for (const int item : {1, 2, 3}) {
        driver.Click(QStringLiteral("cmdNext"));
        QCOMPARE(driver.window->Position(), (MenuPosition{1, item}));
    }
    QVERIFY(!driver.Find(QStringLiteral("cmdNext")).isEnabled());
    QVERIFY(driver.Find(QStringLiteral("fraData4")).isVisible());
    QVERIFY(!driver.Find(QStringLiteral("txtProcessTemp")).isVisible());
    driver.Click(QStringLiteral("cmdBack"));
    QCOMPARE(driver.window->Position(), (MenuPosition{1, 2}));
    // Finish calculates and leads to the results.
    driver.window->ShowPosition({1, 0});
    driver.Click(QStringLiteral("cmdFinish"));
    QCOMPARE(driver.window->Position(), (MenuPosition{1, 3}));
    QVERIFY(driver.Session().IsCurrent() && driver.Session().Result().done);
    // An entry that stands in the way is where it leads instead.
    driver.window->ShowPosition({1, 0});
    driver.Type(QStringLiteral("txtProcessTemp"), QStringLiteral("hot"));
    driver.window->ShowPosition({1, 1});
    driver.Click(QStringLiteral("cmdFinish"));
    QCOMPARE(driver.window->Position(), (MenuPosition{1, 0}));
    QCOMPARE(driver.window->focusWidget()->objectName(), QStringLiteral("txtProcessTemp"));
    // The keyboard has every category.
    QVERIFY(QTest::qWaitForWindowActive(driver.window.get()));
    QTest::keyClick(driver.window.get(), Qt::Key_5, Qt::AltModifier);
    QTRY_COMPARE(driver.window->Position().category, 4);
}

void MainWindowTest::KeepsThePositionInTheJob() {
    const fs::path file = folder_.Scratch("position.kal");
    {
        WindowDriver driver(folder_);
        driver.window->ShowPosition({2, 1});
        QVERIFY(!driver.window->isWindowModified()); // looking around is no change
        QVERIFY(driver.Session().Save(file));
    }
    WindowDriver driver(folder_);
    QCOMPARE(driver.window->Position(), (MenuPosition{1, 0}));
    driver.window->Jobs().OpenPath(QString::fromStdString(file.string()));
    QCOMPARE(driver.window->Position(), (MenuPosition{2, 1}));
    QVERIFY(driver.Find(QStringLiteral("txtReportFuelCost")).isVisible());
    driver.Trigger(QStringLiteral("mnuFileNew"));
    QCOMPARE(driver.window->Position(), (MenuPosition{1, 0}));
}

} // namespace
} // namespace kaloria

QTEST_MAIN(kaloria::MainWindowTest)
#include "main_window_test.moc"
