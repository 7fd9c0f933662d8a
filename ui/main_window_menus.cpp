// SPDX-License-Identifier: GPL-3.0-or-later
#include "application/grid_export.h"
#include "data/atomic_file.h"
#include "ui/compare/compare_commands.h"
#include "ui/file_dialogs.h"
#include "ui/job_commands.h"
#include "ui/layers_card.h"
#include "ui/main_window.h"
#include "ui/minor_windows.h"
#include "ui/report_commands.h"
#include "ui/results_view.h"
#include "ui/theme.h"

#include <QActionGroup>
#include <QApplication>
#include <QMenuBar>
#include <QStatusBar>

namespace kaloria {

QAction* MainWindow::Add(QMenu& menu, const QString& text, const char* name, const QKeySequence& keys,
                         const std::function<void()>& run) {
    auto* const action = menu.addAction(text);
    action->setObjectName(QLatin1String(name));
    action->setShortcut(keys);
    connect(action, &QAction::triggered, this, [this, run] {
        layers_->FinishEditing(); // a shortcut leaves the cursor where it is
        run();
    });
    return action;
}

void MainWindow::BuildMenus() {
    BuildFileMenu();
    BuildEditMenu();
    BuildUnitsMenu();
    BuildHelpMenu();
}

void MainWindow::BuildFileMenu() {
    QMenu& menu = *menuBar()->addMenu(tr("&File"));
    Add(menu, tr("&New job"), "mnuFileNew", QKeySequence::New, [this] { jobs_->New(); });
    Add(menu, tr("&Open..."), "mnuFileOpen", QKeySequence::Open, [this] { jobs_->Open(); });
    QMenu* const recent = menu.addMenu(tr("Open &recent"));
    recent->setObjectName(QStringLiteral("mnuFileRecent"));
    connect(&menu, &QMenu::aboutToShow, recent, [this, recent] { jobs_->ShowRecent(*recent); });
    Add(menu, tr("&Save"), "mnuFileSave", QKeySequence::Save, [this] { jobs_->Save(); });
    Add(menu, tr("Save &as..."), "mnuFileSaveAs", QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S),
        [this] { jobs_->SaveAs(); });
    menu.addSeparator();
    Add(menu, tr("&Calculate"), "mnuFileCalculate", QKeySequence(Qt::Key_F9), [this] { CalculateNow(); });
    Add(menu, tr("&Export short report..."), "mnuFileExportReport", QKeySequence(Qt::CTRL | Qt::Key_E),
        [this] {
            if (CalculateNow()) {
                reports_->ExportShortReport();
            }
        });
    Add(menu, tr("Export results as &table..."), "mnuFileExportGrid",
        QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_E), [this] { ExportGrid(); });
    Add(menu, tr("Export &dimensions of insulation..."), "mnuFileExportDimensions", {},
        [this] { reports_->ExportDimensions(); });
    Add(menu, tr("&Print report..."), "mnuFilePrintReport", QKeySequence::Print, [this] {
        if (CalculateNow()) {
            reports_->PrintShortReport();
        }
    });
    menu.addSeparator();
    Add(menu, tr("E&xit"), "mnuFileExit", QKeySequence(Qt::CTRL | Qt::Key_Q), [this] { close(); });
}

void MainWindow::BuildEditMenu() {
    QMenu& menu = *menuBar()->addMenu(tr("&Edit"));
    Add(menu, tr("&Copy results"), "mnuEditCopyResults", QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_C),
        [this] {
            results_->CopyGrid();
            statusBar()->showMessage(tr("Results copied"), 5000);
        });
    compare_ = new CompareCommands(session_, *jobs_, *results_, *this);
    auto* const keep = Add(menu, tr("&Keep case"), "mnuEditKeepCase", QKeySequence(Qt::CTRL | Qt::Key_K),
                           [this] { compare_->Keep(); });
    auto* const show =
        Add(menu, tr("Co&mpare cases..."), "mnuEditCompare", QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_K),
            [this] { compare_->ShowWindow(); });
    connect(results_, &ResultsView::KeepAsked, keep, &QAction::trigger);
    connect(results_, &ResultsView::CompareAsked, show, &QAction::trigger);
    connect(compare_, &CompareCommands::Said, this,
            [this](const QString& text) { statusBar()->showMessage(text, 8000); });
    menu.addSeparator();
    Add(menu, tr("&Load defaults"), "mnuEditLoadDefaults", {}, [this] { jobs_->LoadDefaults(); });
    Add(menu, tr("&Save as default..."), "mnuEditSaveAsDefault", {}, [this] { jobs_->SaveAsDefault(); });
}

void MainWindow::BuildUnitsMenu() {
    QMenu& menu = *menuBar()->addMenu(tr("&Units"));
    auto* const group = new QActionGroup(this);
    mnuUnitsEnglish_ = Add(menu, tr("&English"), "mnuUnitsEnglish", QKeySequence(Qt::CTRL | Qt::Key_1),
                           [this] { SwitchUnits(Units::english); });
    mnuUnitsSI_ = Add(menu, tr("&SI"), "mnuUnitsSI", QKeySequence(Qt::CTRL | Qt::Key_2),
                      [this] { SwitchUnits(Units::si); });
    for (QAction* const action : {mnuUnitsEnglish_, mnuUnitsSI_}) {
        action->setCheckable(true);
        group->addAction(action);
    }
}

void MainWindow::BuildHelpMenu() {
    QMenu& menu = *menuBar()->addMenu(tr("&Help"));
    Add(menu, tr("&Guide"), "mnuHelpContents", {}, [this] { ShowPanel(Panel::guide); });
    Add(menu, tr("Help on this &field"), "mnuHelpField", QKeySequence::HelpContents,
        [this] { ShowHelpOfFocus(); });
    Add(menu, tr("&Disclaimer"), "mnuHelpDisclaimer", {},
        [this] { windows::ShowDisclaimer(session_, this); });
    menu.addSeparator();
    Add(menu, tr("&About Kaloria"), "mnuHelpAbout", {}, [this] { windows::ShowAbout(session_, this); });
}

void MainWindow::ShowHelpOfFocus() {
    for (const QWidget* widget = QApplication::focusWidget(); widget != nullptr;
         widget = widget->parentWidget()) {
        const QVariant field = widget->property("field");
        if (field.isValid()) {
            windows::ShowHelp(static_cast<Field>(field.toInt()), session_, this);
            return;
        }
    }
    ShowPanel(Panel::guide);
}

void MainWindow::ExportGrid() {
    if (!CalculateNow()) {
        return;
    }
    const QString path =
        files::AskSave(this, tr("Export results"), QStringLiteral("Results.xlsx"),
                       tr("Workbook (*.xlsx);;Comma-separated values (*.csv)"), QStringLiteral("xlsx"));
    if (path.isEmpty()) {
        return;
    }
    try {
        if (path.endsWith(QStringLiteral(".csv"), Qt::CaseInsensitive)) {
            WriteGridCsv(files::FromQt(path), session_.Result().grid);
        } else {
            WriteGridXlsx(files::FromQt(path), session_.Result(), session_.TheJob(), session_.Records());
        }
        statusBar()->showMessage(tr("Exported to %1").arg(path), 5000);
    } catch (const FileError& error) {
        messages_.Show("The results could not be exported. " + std::string(error.what()));
    }
}

} // namespace kaloria
