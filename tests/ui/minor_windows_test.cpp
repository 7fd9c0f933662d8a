// SPDX-License-Identifier: GPL-3.0-or-later
#include "application/application.h"
#include "tests/ui/dialog_driver.h"
#include "ui/dialogs/about_box.h"
#include "ui/dialogs/disclaimer.h"
#include "ui/dialogs/help_window.h"
#include "ui/dialogs/system_information.h"
#include "ui/theme.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QDialog>
#include <QPlainTextEdit>

#include <functional>
#include <map>
#include <memory>

using namespace kaloria;
using kaloria::test::Find;
using kaloria::test::FirstNameless;

class MinorWindowsTest final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void DisclaimerKeepsTheChoice_data();
    void DisclaimerKeepsTheChoice();
    void SystemInformationCanBeCopied();
    void HelpExplainsAField();
    void EveryControlHasAName_data();
    void EveryControlHasAName();

private:
    [[nodiscard]] std::unique_ptr<QDialog> Open(const QString& which);

    MessageList messages_;
    CApplication application_{KALORIA_RESOURCES_DIR, messages_};
    Catalogue& records_ = application_.Records();
    MemorySettings settings_;
};

void MinorWindowsTest::initTestCase() {
    QVERIFY(application_.LoadConfigurationFile());
    theme::Install(*qApp);
}

/// Each window by the object name that it has to have.
std::unique_ptr<QDialog> MinorWindowsTest::Open(const QString& which) {
    const std::map<QString, std::function<QDialog*()>> windows{
        {"frmAbout", [this] { return new AboutBox(application_); }},
        {"frmSystemInfo", [this] { return new SystemInformationDialog(SystemInformation(application_)); }},
        {"frmDisclaimer", [this] { return new Disclaimer(settings_); }},
        {"frmHelp", [] { return new HelpWindow; }},
    };
    std::unique_ptr<QDialog> window(windows.at(which)());
    window->show();
    return window;
}

void MinorWindowsTest::DisclaimerKeepsTheChoice_data() {
    QTest::addColumn<bool>("untick");
    QTest::addColumn<int>("key");
    QTest::newRow("Enter") << false << static_cast<int>(Qt::Key_Return);
    QTest::newRow("unticked, Enter") << true << static_cast<int>(Qt::Key_Return);
    QTest::newRow("unticked, Esc") << true << static_cast<int>(Qt::Key_Escape);
}

void MinorWindowsTest::DisclaimerKeepsTheChoice() {
    QFETCH(const bool, untick);
    QFETCH(const int, key);
    MemorySettings settings;
    Disclaimer dialog(settings);
    dialog.show();
    if (untick) {
        Find<QCheckBox>(dialog, "chkShowDisclaimer")->click();
    }
    QTest::keyClick(&dialog, static_cast<Qt::Key>(key));
    QVERIFY(!dialog.isVisible());
    QCOMPARE(dialog.result(), key == Qt::Key_Return ? QDialog::Accepted : QDialog::Rejected);
    QCOMPARE(settings.Get(setting::section, setting::showDisclaimer), untick ? setting::no : setting::yes);
}

void MinorWindowsTest::SystemInformationCanBeCopied() {
    const auto dialog = Open("frmSystemInfo");
    Find<QPushButton>(*dialog, "cmdCopy")->click();
    const QString text = QApplication::clipboard()->text();
    QCOMPARE(text, Find<QPlainTextEdit>(*dialog, "txtSystemInfo")->toPlainText());
    QVERIFY(text.contains(QString::fromLatin1(qVersion())) && text.contains(KALORIA_RESOURCES_DIR));
    QVERIFY(text.contains(QStringLiteral("%1 fuels").arg(records_.Fuels.size())));
}

void MinorWindowsTest::HelpExplainsAField() {
    HelpWindow window;
    Job& job = application_.CurrentJob();
    window.Explain(Field::ProcessTemp, job, records_);
    QCOMPARE(Find<QLabel>(window, "lblHelpRange")->text(), QStringLiteral("-459 to 3000 °F"));
    QCOMPARE(Find<QLabel>(window, "lblHelpName")->text(), QStringLiteral("ProcessTemp"));
    QCOMPARE(Find<QLabel>(window, "lblHelpText")->text(), ToQt(InfoOf(Field::ProcessTemp).help));
    window.show();
    QVERIFY(!window.isModal());
    QTest::keyClick(&window, Qt::Key_Escape);
    QVERIFY(!window.isVisible());
}

void MinorWindowsTest::EveryControlHasAName_data() {
    QTest::addColumn<QString>("window");
    for (const char* const name : {"frmAbout", "frmSystemInfo", "frmDisclaimer", "frmHelp"}) {
        QTest::newRow(name) << name;
    }
}

void MinorWindowsTest::EveryControlHasAName() {
    QFETCH(const QString, window);
    const auto dialog = Open(window);
    QCOMPARE(dialog->objectName(), window);
    QCOMPARE(FirstNameless(*dialog), QString());
}

QTEST_MAIN(MinorWindowsTest)
#include "minor_windows_test.moc"
