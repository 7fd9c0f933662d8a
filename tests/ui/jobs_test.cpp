// SPDX-License-Identifier: GPL-3.0-or-later
// Files from the window: jobs with their questions, recovery after a crash, and records of one's own.
#include "application/material_rules.h"
#include "application/messages.h"
#include "data/atomic_file.h"
#include "tests/ui/window_driver.h"

#include <QDropEvent>
#include <QMenu>
#include <QMimeData>
#include <QTableView>

#include <csignal>
#include <sys/resource.h>

namespace kaloria {
namespace {

using test::ProgramCopy;
using test::Q;
using test::WindowDriver;
namespace fs = std::filesystem;

QString T(const char* text) { return QString::fromUtf8(text); }
QString PathText(const fs::path& path) { return QString::fromStdString(path.string()); }

const QString askSave = QStringLiteral("frmAskSave");
const QString item = QStringLiteral("txtItemDescription");

/// As long as it lives, no file grows beyond a few kilobytes: a disk that is full.
class FullDisk {
public:
    FullDisk() {
        std::signal(SIGXFSZ, SIG_IGN);
        ::getrlimit(RLIMIT_FSIZE, &before_);
        rlimit small = before_;
        small.rlim_cur = 60'000;
        ::setrlimit(RLIMIT_FSIZE, &small);
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;
    ~FullDisk() { ::setrlimit(RLIMIT_FSIZE, &before_); }

private:
    rlimit before_{};
};

class JobsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { theme::Install(*qApp); }
    void init() { folder_ = std::make_unique<ProgramCopy>(); }
    void AskBeforeChangesAreLost();
    void OpenFromWhereverTheyCome();
    void StayWhenTheFileIsNoGood_data();
    void StayWhenTheFileIsNoGood();
    void BecomeTheDefault();
    void ComeBackAfterACrash();
    void KeepACopyThatCannotBeRead();
    void KeepRecordsOfOnesOwn();
    void OfferAnotherPlaceForRecords();
    void KeepTheFiguresOfAFuelInUse();
    void LeaveTheRecordsOfAnotherWindow();

private:
    static void FillMetal(QDialog& box, const char* name, const char* emittance);
    std::unique_ptr<ProgramCopy> folder_;
};

void JobsTest::AskBeforeChangesAreLost() {
    const fs::path file = folder_->Scratch("first.kal");
    WindowDriver driver(*folder_);
    QVERIFY(driver.window->windowTitle().startsWith(T("New job")));
    driver.Type(item, T("Condensate line"));
    QVERIFY(driver.window->isWindowModified());

    driver.boxes.ExpectButton(askSave, QMessageBox::Cancel);
    QVERIFY(!driver.window->close());
    QVERIFY(driver.window->isVisible());
    driver.boxes.ExpectButton(askSave, QMessageBox::Cancel);
    driver.Trigger(T("mnuFileNew"));
    QCOMPARE(driver.Text(item), T("Condensate line"));
    driver.boxes.ExpectButton(askSave, QMessageBox::Save);
    driver.boxes.Expect({}, [](QDialog& box) { box.reject(); }); // no name, no saving, no closing
    QVERIFY(!driver.window->close());

    driver.boxes.ExpectFile(file);
    driver.Trigger(T("mnuFileSave"));
    QVERIFY(fs::is_regular_file(file));
    QVERIFY(!driver.window->isWindowModified());
    QVERIFY(driver.window->windowTitle().startsWith(T("first.kal")));

    driver.Type(item, T("Other line"));
    driver.boxes.ExpectButton(askSave, QMessageBox::Save); // it has a name now
    driver.Trigger(T("mnuFileNew"));
    QVERIFY(test::Slurp(file).find("Other line") != std::string::npos);
    QVERIFY(driver.window->windowTitle().startsWith(T("New job")));
    driver.Type(item, T("Lost on purpose"));
    driver.boxes.ExpectButton(askSave, QMessageBox::Discard);
    QVERIFY(driver.window->close());
    QVERIFY2(driver.boxes.AreDone(), qPrintable(driver.boxes.unexpected.join(u'\n')));
    QCOMPARE(driver.told, QStringList());
}

void JobsTest::OpenFromWhereverTheyCome() {
    const fs::path file = folder_->Scratch("job with ü.kal");
    WindowDriver driver(*folder_);
    driver.Type(item, T("Steam header"));
    QVERIFY(driver.Session().Save(file));
    const auto change = [&] {
        driver.Type(item, T("changed"));
        driver.boxes.ExpectButton(askSave, QMessageBox::Discard);
    };
    const auto check = [&] {
        QCOMPARE(driver.Text(item), T("Steam header"));
        QVERIFY(!driver.window->isWindowModified());
        QVERIFY2(driver.boxes.AreDone(), qPrintable(driver.boxes.unexpected.join(u'\n')));
    };
    change();
    driver.boxes.ExpectFile(file);
    driver.Trigger(T("mnuFileOpen"));
    check();

    change();
    QMenu menu;
    driver.window->Jobs().ShowRecent(menu);
    QVERIFY(!menu.actions().isEmpty() && menu.actions().first()->text().contains(T("job with ü.kal")));
    menu.actions().first()->trigger();
    check();

    QMimeData mime;
    mime.setUrls({QUrl::fromLocalFile(PathText(file))});
    QDragEnterEvent enter({5, 5}, Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(driver.window.get(), &enter);
    QVERIFY(enter.isAccepted());
    change();
    QDropEvent drop({5, 5}, Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(driver.window.get(), &drop);
    check();

    mime.setUrls({QUrl::fromLocalFile(T("/notes.txt"))});
    QDragEnterEvent other({5, 5}, Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
    other.ignore();
    QApplication::sendEvent(driver.window.get(), &other);
    QVERIFY(!other.isAccepted());
}

void JobsTest::StayWhenTheFileIsNoGood_data() {
    QTest::addColumn<QString>("content"); // null: there is no file
    QTest::addColumn<QString>("message");
    QTest::newRow("not there") << QString() << Q(message::fileNotFound);
    QTest::newRow("another version") << T("<Job Version='4.0'><ItemDescription>x</ItemDescription></Job>")
                                     << Q(message::wrongVersion);
    QTest::newRow("no job at all") << T("PK\x03\x04 not even XML") << Q(message::openingJob);
}

void JobsTest::StayWhenTheFileIsNoGood() {
    QFETCH(QString, content);
    const fs::path file = folder_->Scratch("bad.kal");
    if (!content.isNull()) {
        test::Spill(file, content.toStdString());
    }
    WindowDriver driver(*folder_);
    driver.Type(item, T("Mine"));
    QVERIFY(driver.Session().Save(folder_->Scratch("mine.kal")));
    driver.window->Jobs().OpenPath(PathText(file)); // as from the command line
    QTEST(driver.told.join(u'|'), "message");
    QCOMPARE(driver.Text(item), T("Mine"));
    QVERIFY(driver.window->windowTitle().startsWith(T("mine.kal")));
    // A place where nothing can be written is told, and the changes stay unsaved.
    driver.told.clear();
    driver.Type(item, T("Mine, changed"));
    QVERIFY(!driver.Session().Save(folder_->Scratch("no") / "folder" / "x.kal"));
    QCOMPARE(driver.told, QStringList{Q(message::savingJob)});
    QVERIFY(driver.window->isWindowModified());
    QVERIFY(driver.window->windowTitle().startsWith(T("mine.kal")));
}

void JobsTest::BecomeTheDefault() {
    WindowDriver driver(*folder_);
    driver.Type(item, T("Every day"));
    driver.boxes.ExpectButton(QString(), QMessageBox::No);
    driver.Trigger(T("mnuEditSaveAsDefault"));
    QVERIFY(test::Slurp(folder_->Path() / "Default.kal").find("Every day") == std::string::npos);
    driver.boxes.ExpectButton(QString(), QMessageBox::Yes);
    driver.Trigger(T("mnuEditSaveAsDefault"));
    const fs::path file = folder_->Scratch("own.kal");
    driver.Type(item, T("Today"));
    QVERIFY(driver.Session().Save(file));
    driver.window->ShowPosition({2, 1});
    driver.Trigger(T("mnuEditLoadDefaults"));
    QCOMPARE(driver.Text(item), T("Every day"));
    QVERIFY(driver.window->windowTitle().startsWith(T("own.kal"))); // the job keeps its file
    QVERIFY(driver.window->isWindowModified());
    QCOMPARE(driver.window->Position(), (MenuPosition{2, 1}));
    driver.boxes.ExpectButton(askSave, QMessageBox::Discard);
    driver.Trigger(T("mnuFileNew"));
    QCOMPARE(driver.Text(item), T("Every day"));
    QVERIFY2(driver.boxes.AreDone(), qPrintable(driver.boxes.unexpected.join(u'\n')));
}

void JobsTest::ComeBackAfterACrash() {
    const fs::path file = folder_->Scratch("crashed.kal");
    const auto greet = [](WindowDriver& driver) {
        driver.settings.Set(setting::section, setting::showDisclaimer, setting::no);
        driver.settings.Set(setting::section, setting::firstRun, setting::no);
        driver.window->Greet();
        QVERIFY2(driver.boxes.AreDone(), qPrintable(driver.boxes.unexpected.join(u'\n')));
        QCOMPARE(driver.told, QStringList());
    };
    {
        WindowDriver driver(*folder_);
        QVERIFY(driver.Session().Save(file));
        driver.Type(item, T("Half done"));
        driver.window->ShowPosition({2, 1});
        driver.window->Jobs().KeepCopy();
    } // gone without closing
    {
        WindowDriver driver(*folder_);
        driver.boxes.ExpectButton(T("frmRecovery"), T("Later"));
        greet(driver);
        QCOMPARE(driver.Text(item), T("Steam line"));
    }
    {
        WindowDriver driver(*folder_);
        driver.boxes.ExpectButton(T("frmRecovery"), T("Recover"));
        greet(driver);
        QCOMPARE(driver.Text(item), T("Half done"));
        QVERIFY(driver.window->isWindowModified());
        QVERIFY(driver.window->windowTitle().startsWith(T("crashed.kal")));
        QCOMPARE(driver.window->Position(), (MenuPosition{2, 1}));
    } // once more, before it was saved
    {
        WindowDriver driver(*folder_);
        driver.boxes.ExpectButton(T("frmRecovery"), T("Discard"));
        greet(driver);
    }
    WindowDriver driver(*folder_);
    greet(driver); // nothing is left to offer
    driver.Type(item, T("In order"));
    driver.window->Jobs().KeepCopy();
    driver.boxes.ExpectButton(askSave, QMessageBox::Discard);
    QVERIFY(driver.window->close());
    WindowDriver next(*folder_);
    greet(next);
}

/// A copy that does not open must not become a job of defaults under the name of the job that it is of.
void JobsTest::KeepACopyThatCannotBeRead() {
    const fs::path file = folder_->Scratch("crashed.kal");
    {
        WindowDriver driver(*folder_);
        QVERIFY(driver.Session().Save(file));
        driver.Type(item, T("Half done"));
        driver.window->Jobs().KeepCopy();
    }
    const fs::path copy = [&] {
        for (const auto& entry : fs::directory_iterator(folder_->Scratch("recovery"))) {
            if (entry.path().extension() == ".copy") {
                return entry.path();
            }
        }
        return fs::path();
    }();
    std::string damaged = test::Slurp(copy);
    damaged.resize(damaged.size() - damaged.size() / 3);
    ReplaceFile(copy, damaged);
    WindowDriver driver(*folder_);
    driver.settings.Set(setting::section, setting::showDisclaimer, setting::no);
    driver.settings.Set(setting::section, setting::firstRun, setting::no);
    driver.boxes.ExpectButton(T("frmRecovery"), T("Recover"));
    driver.window->Greet();
    QCOMPARE(driver.told, QStringList{Q(message::openingJob)});
    QVERIFY(!driver.window->isWindowModified());
    QVERIFY(driver.window->windowTitle().startsWith(T("New job")));
    QCOMPARE(test::Slurp(copy), damaged);
}

// Records
// ---------------------------------------------------------------------------------------------------------------

void JobsTest::FillMetal(QDialog& box, const char* name, const char* emittance) {
    const auto type = [&](const char* entry, const char* text) {
        auto* const line = box.findChild<QLineEdit*>(QLatin1String(entry));
        line->selectAll();
        QTest::keyClicks(line, QLatin1String(text));
    };
    type("txtName", name);
    type("txtEmittance", emittance);
    box.findChild<QAbstractButton*>(QStringLiteral("cmdOK"))->click();
}

void JobsTest::KeepRecordsOfOnesOwn() {
    const auto names = [](WindowDriver& driver) {
        driver.window->ShowPosition({4, 1});
        const QAbstractItemModel& model = *driver.Find<QTableView>(T("flxBaseMetals")).model();
        QStringList texts;
        for (int row = 0; row < model.rowCount(); ++row) {
            texts << model.index(row, 1).data().toString();
        }
        return texts;
    };
    {
        WindowDriver driver(*folder_);
        const QStringList before = names(driver);
        driver.boxes.Expect(T("frmBaseMetal"), [](QDialog& box) { FillMetal(box, "Zinc <1>", "0.23"); });
        driver.Click(T("cmdAddBaseMetal"));
        QCOMPARE(names(driver), before + QStringList{T("Zinc <1>")});
        const CBaseMetal& added = driver.Session().Records().BaseMetals.back();
        QCOMPARE(added.CreatedBy, std::string("User"));
        QCOMPARE(added.ID, std::prev(driver.Session().Records().BaseMetals.end(), 2)->ID + 1);
        auto& choice = driver.Find<QComboBox>(T("cboBaseMetals"));
        QVERIFY(driver.Choose(choice, T("Zinc <1> (0.23)")));
        QVERIFY(driver.Session().Save(folder_->Scratch("zinc.kal")));

        driver.window->ShowPosition({4, 1});
        driver.Find<QTableView>(T("flxBaseMetals")).selectRow(static_cast<int>(before.size()));
        driver.boxes.ExpectButton(T("frmAskDelete"), QMessageBox::Yes); // the job uses it
        driver.Click(T("cmdDeleteBaseMetal"));
        QCOMPARE(names(driver), before);
        driver.Click(T("cmdUndoBaseMetal"));
        QCOMPARE(names(driver), before + QStringList{T("Zinc <1>")});
        driver.Find<QTableView>(T("flxBaseMetals")).selectRow(0);
        driver.boxes.Expect(T("frmBaseMetal"), [](QDialog& box) { FillMetal(box, "My steel", "0.5"); });
        driver.Click(T("cmdDuplicateBaseMetal"));
        QCOMPARE(names(driver), before + (QStringList{T("Zinc <1>"), T("My steel")}));
        QVERIFY(driver.window->close());
        QVERIFY2(driver.boxes.AreDone(), qPrintable(driver.boxes.unexpected.join(u'\n')));
        QCOMPARE(driver.told, QStringList());
    }
    WindowDriver driver(*folder_);
    QCOMPARE(names(driver).mid(names(driver).size() - 2), (QStringList{T("Zinc <1>"), T("My steel")}));
    driver.window->Jobs().OpenPath(PathText(folder_->Scratch("zinc.kal")));
    QCOMPARE(driver.Find<QComboBox>(T("cboBaseMetals")).currentText(), T("Zinc <1> (0.23)"));
}

void JobsTest::OfferAnotherPlaceForRecords() {
    const fs::path elsewhere = folder_->Scratch("mine.xml");
    const fs::path config = folder_->Path() / "CorvaneConfig.xml";
    const std::string shipped = test::Slurp(config);
    WindowDriver driver(*folder_);
    driver.window->ShowPosition({4, 1});
    driver.boxes.Expect(T("frmBaseMetal"), [](QDialog& box) { FillMetal(box, "Zinc", "0.23"); });
    driver.Click(T("cmdAddBaseMetal"));
    auto disk = std::make_unique<FullDisk>();
    driver.boxes.ExpectButton(T("frmRecordsNotSaved"), QMessageBox::Retry);
    driver.boxes.ExpectButton(T("frmRecordsNotSaved"), QMessageBox::Cancel);
    QVERIFY(!driver.window->close());
    QVERIFY(driver.window->isVisible());
    driver.boxes.Expect(T("frmRecordsNotSaved"), [&](QDialog& box) {
        disk.reset();
        for (QAbstractButton* const button : box.findChildren<QAbstractButton*>()) {
            if (button->text().contains(T("elsewhere"))) {
                button->click();
            }
        }
    });
    driver.boxes.ExpectFile(elsewhere);
    QVERIFY(driver.window->close());
    QVERIFY2(driver.boxes.AreDone(), qPrintable(driver.boxes.unexpected.join(u'\n')));
    QCOMPARE(test::Slurp(config), shipped);
    fs::copy_file(elsewhere, config, fs::copy_options::overwrite_existing);
    WindowDriver next(*folder_);
    QCOMPARE(next.told, QStringList());
    QCOMPARE(next.Session().Records().BaseMetals.back().Name, std::string("Zinc"));
}

/// The fuel of the job takes over the job's price with each calculation; a new price of the record has to
/// reach the job before that.
void JobsTest::KeepTheFiguresOfAFuelInUse() {
    WindowDriver driver(*folder_);
    driver.window->ShowPanel(Panel::fuels);
    auto& grid = driver.Find<QTableView>(T("flxFuel"));
    grid.selectRow(0);
    const auto price = [&](const char* verb, const char* cost) {
        driver.boxes.Expect(T("frmFuel"), [cost](QDialog& box) {
            auto* const line = box.findChild<QLineEdit*>(QStringLiteral("txtCost"));
            line->selectAll();
            QTest::keyClicks(line, QLatin1String(cost));
            box.findChild<QAbstractButton*>(QStringLiteral("cmdOK"))->click();
        });
        driver.Click(QLatin1String(verb));
        QTest::qWait(50); // the answer follows by itself
    };
    price("cmdDuplicateFuel", "5.25");
    const CFuel& mine = driver.Session().Records().Fuels.back();
    driver.Session().Choose(Field::Fuel, mine.Name);
    driver.Session().Choose(Field::ReportFuel, mine.Name);
    driver.Session().SetText(Field::ConversionEfficiency, "72");
    driver.Session().SetText(Field::ReportFuelCost, "9.99"); // typed, not the record's
    driver.window->ShowPanel(Panel::fuels);
    grid.selectRow(grid.model()->rowCount() - 1);
    price("cmdEditFuel", "7.75");
    QVERIFY2(driver.boxes.AreDone(), qPrintable(driver.boxes.unexpected.join(u'\n')));
    QCOMPARE(mine.Cost, 7.75F);
    QCOMPARE(driver.TheJob()[Field::FuelCost], std::string("7.75"));
    QCOMPARE(driver.TheJob()[Field::ConversionEfficiency], std::string("72"));
    QCOMPARE(driver.TheJob()[Field::ReportFuelCost], std::string("9.99"));
}

void JobsTest::LeaveTheRecordsOfAnotherWindow() {
    const auto add = [](WindowDriver& driver, const char* name) {
        driver.Session().EditRecords([name](Catalogue& catalogue, Job& job) {
            CBaseMetal metal = NewBaseMetal(catalogue);
            metal.Name = name;
            Accept(catalogue, job, metal);
        });
    };
    const auto last = [this] { return WindowDriver(*folder_).Session().Records().BaseMetals.back().Name; };
    {
        WindowDriver idle(*folder_);
        {
            WindowDriver adding(*folder_);
            add(adding, "Gunmetal");
            QVERIFY(adding.window->close());
        }
        QVERIFY(idle.window->close());
    }
    QCOMPARE(last(), std::string("Gunmetal"));
    // What both have changed cannot be saved by the second without a word.
    const fs::path elsewhere = folder_->Scratch("mine.xml");
    WindowDriver second(*folder_);
    {
        WindowDriver first(*folder_);
        add(first, "Pewter");
        QVERIFY(first.window->close());
    }
    second.window->show(); // the first one closes all windows of its process
    add(second, "Bell metal");
    second.boxes.ExpectButton(T("frmRecordsNotSaved"), T("Save elsewhere..."));
    second.boxes.ExpectFile(elsewhere);
    QVERIFY(second.window->close());
    QVERIFY2(second.boxes.AreDone(), qPrintable(second.boxes.unexpected.join(u'\n')));
    QCOMPARE(last(), std::string("Pewter"));
    QVERIFY(test::Slurp(elsewhere).find("Bell metal") != std::string::npos);
}

} // namespace
} // namespace kaloria

QTEST_MAIN(kaloria::JobsTest)
#include "jobs_test.moc"
