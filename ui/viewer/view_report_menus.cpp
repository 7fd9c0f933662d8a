// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/file_dialogs.h"
#include "ui/viewer/find_bar.h"
#include "ui/viewer/paper_view.h"
#include "ui/viewer/view_report.h"

#include <QAction>
#include <QMenuBar>
#include <QMessageBox>
#include <QPushButton>

// The menus of the report's window, and the dialogs that it asks by.
namespace kaloria {

QAction* FrmViewReport::AddAction(QMenu& menu, const QString& name, const QString& text,
                                  const QKeySequence& keys, const std::function<void()>& what) {
    QAction* const action = menu.addAction(text);
    action->setObjectName(name);
    action->setShortcut(keys);
    connect(action, &QAction::triggered, this, what);
    return action;
}

void FrmViewReport::MakeMenus() {
    MakeFileMenu();
    MakeEditMenu();
    MakeViewMenu();
}

void FrmViewReport::MakeFileMenu() {
    QMenu& menu = *menuBar()->addMenu(tr("&File"));
    menu.setObjectName(QStringLiteral("mnuFile"));
    AddAction(menu, QStringLiteral("mnuFileprint"), tr("&Print..."), QKeySequence::Print,
              [this] { Print(); });
    AddAction(menu, QStringLiteral("mnuFilePreview"), tr("Print pre&view..."), {}, [this] { Preview(); });
    menu.addSeparator();
    AddAction(menu, QStringLiteral("mnuFileSave"), tr("&Save as..."), QKeySequence::Save, [this] { Save(); });
    AddAction(menu, QStringLiteral("mnuFileExportPdf"), tr("&Export as PDF..."), QKeySequence(tr("Ctrl+E")),
              [this] { Export(); });
    menu.addSeparator();
    AddAction(menu, QStringLiteral("mnuFileClose"), tr("&Close"), QKeySequence(tr("Ctrl+W")),
              [this] { close(); });
}

void FrmViewReport::MakeEditMenu() {
    QMenu& menu = *menuBar()->addMenu(tr("&Edit"));
    menu.setObjectName(QStringLiteral("mnuEdit"));
    AddAction(menu, QStringLiteral("mnuEditCopy"), tr("&Copy"), QKeySequence::Copy,
              [this] { paper_->copy(); });
    AddAction(menu, QStringLiteral("mnuEditSelectAll"), tr("Select &all"), QKeySequence::SelectAll,
              [this] { paper_->selectAll(); });
    menu.addSeparator();
    AddAction(menu, QStringLiteral("mnuEditFind"), tr("&Find..."), QKeySequence::Find,
              [this] { find_->Open(); });
    AddAction(menu, QStringLiteral("mnuEditFindNext"), tr("Find &next"), QKeySequence(Qt::Key_F3),
              [this] { find_->FindNext(); });
    AddAction(menu, QStringLiteral("mnuEditFindPrevious"), tr("Find &previous"),
              QKeySequence(Qt::SHIFT | Qt::Key_F3), [this] { find_->FindPrevious(); });
}

void FrmViewReport::MakeViewMenu() {
    constexpr double step = 1.25;
    QMenu& menu = *menuBar()->addMenu(tr("&View"));
    menu.setObjectName(QStringLiteral("mnuView"));
    QAction* const larger = AddAction(menu, QStringLiteral("mnuViewZoomIn"), tr("Zoom &in"), {},
                                      [this] { SetZoom(paper_->Zoom() * step); });
    // Without Shift too, where + is above =.
    larger->setShortcuts({QKeySequence(Qt::CTRL | Qt::Key_Plus), QKeySequence(Qt::CTRL | Qt::Key_Equal)});
    AddAction(menu, QStringLiteral("mnuViewZoomOut"), tr("Zoom &out"), QKeySequence(Qt::CTRL | Qt::Key_Minus),
              [this] { SetZoom(paper_->Zoom() / step); });
    AddAction(menu, QStringLiteral("mnuViewFit"), tr("&Fit to the window's width"),
              QKeySequence(Qt::CTRL | Qt::Key_0), [this] {
                  SetZoom(paper_->FittingZoom());
                  fits_ = true;
              });
    AddAction(menu, QStringLiteral("mnuViewActualSize"), tr("&Actual size"),
              QKeySequence(Qt::CTRL | Qt::Key_1), [this] { SetZoom(1); });
}

FrmViewReport::Questions FrmViewReport::Dialogs() {
    Questions questions;
    questions.fileName = [this](const QString& title, const QString& filter, const QString& suffix,
                                const QString& proposed) {
        return files::AskSave(this, title, proposed, filter, suffix);
    };
    questions.tell = [this](const QString& message) { QMessageBox::warning(this, tr("Report"), message); };
    questions.triesElsewhere = [this](const QString& message) {
        QMessageBox box(QMessageBox::Warning, tr("Report"), message, QMessageBox::Cancel, this);
        const auto* const elsewhere = box.addButton(tr("Another place..."), QMessageBox::AcceptRole);
        box.exec();
        return box.clickedButton() == elsewhere;
    };
    return questions;
}

} // namespace kaloria
