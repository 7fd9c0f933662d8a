// SPDX-License-Identifier: GPL-3.0-or-later
// What happens when the program starts and when it ends.
#include "data/atomic_file.h"
#include "data/configuration_file.h"
#include "data/xml_document.h"
#include "ui/field_editor.h"
#include "ui/file_dialogs.h"
#include "ui/job_commands.h"
#include "ui/layers_card.h"
#include "ui/main_window.h"
#include "ui/menu_strip.h"
#include "ui/minor_windows.h"
#include "ui/panel_page.h"
#include "ui/rail.h"
#include "ui/theme.h"

#include <QApplication>
#include <QCloseEvent>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>

namespace kaloria {

namespace {

constexpr const char* windowSection = "Window";
constexpr const char* geometryKey = "Geometry";

} // namespace

void MainWindow::LoadPictures() {
    imgBackground_->setPixmap(pictures_.Named(QStringLiteral("colorback.jpg")));
    imgBackground_->lower();
    rail_->ShowPictures();
    strip_->ShowPictures();
    setWindowIcon(QIcon(pictures_.Named(QStringLiteral("kaloria-48.png"))));
}

void MainWindow::StartUp() {
    try {
        LoadPictures();
        session_.App().LoadConfigurationFile();
        session_.App().BuildCostData();
        FillDropDowns();
        session_.StartNew();
    } catch (const std::exception& error) {
        messages_.Show(message::loadingForm);
        messages_.Log(error.what());
    }
    ShowPosition(PositionOf(session_.TheJob()));
    ShowTitle();
    ShowStatus();
    if (FieldEditor* const first = surface_->EditorOf(Field::ItemDescription)) {
        first->Control()->setFocus();
    }
}

void MainWindow::FillDropDowns() {
    try {
        RefreshAll();
    } catch (const std::exception& error) {
        messages_.Show(message::loadingDropdowns);
        messages_.Log(error.what());
    }
}

void MainWindow::Greet() {
    const StartUpChoices choices = ReadStartUpChoices(session_.Settings());
    if (choices.showDisclaimer) {
        windows::ShowDisclaimer(session_, this);
    }
    if (choices.firstRun) {
        ShowPanel(Panel::userInformation);
        messages_.Show(message::firstRun);
        EndFirstRun(session_.Settings());
    }
    jobs_->OfferRecovery();
}

bool MainWindow::SaveRecordsElsewhere() {
    const QString path = files::AskSave(this, tr("Save As"), QStringLiteral("CorvaneConfig.xml"),
                                        tr("Configuration (*.xml)"), QStringLiteral("xml"));
    if (path.isEmpty()) {
        return false;
    }
    try {
        // The shipped records come from the file in the program folder, the user's from this run.
        ReplaceFile(files::FromQt(path), SavedConfigurationText(ReadFile(session_.App().ConfigurationPath(),
                                                                         XmlDocument::maxBytes),
                                                                session_.Records()));
        return true;
    } catch (const std::exception& error) {
        messages_.Show("The file could not be saved. " + std::string(error.what()));
        return false;
    }
}

bool MainWindow::SaveRecords() {
    while (const auto problem = session_.App().SaveConfigurationFile()) {
        if (!session_.RecordsEdited()) {
            messages_.Log(problem->text); // the file has what there is
            return true;
        }
        QMessageBox box(QMessageBox::NoIcon, QStringLiteral("Kaloria"),
                        tr("Your own materials and fuels could not be saved."),
                        QMessageBox::Retry | QMessageBox::Cancel, this);
        box.setObjectName(QStringLiteral("frmRecordsNotSaved"));
        box.setTextFormat(Qt::PlainText);
        box.setInformativeText(ToQt(problem->text));
        auto* const elsewhere = box.addButton(tr("Save &elsewhere..."), QMessageBox::ActionRole);
        auto* const drop = box.addButton(tr("&Leave without them"), QMessageBox::DestructiveRole);
        box.exec();
        if (box.clickedButton() == drop) {
            return true;
        }
        if (box.clickedButton() == elsewhere) {
            if (SaveRecordsElsewhere()) {
                return true;
            }
        } else if (box.standardButton(box.clickedButton()) != QMessageBox::Retry) {
            return false;
        }
    }
    return true;
}

void MainWindow::closeEvent(QCloseEvent* event) {
    layers_->FinishEditing();
    if (!jobs_->MayLeave() || !SaveRecords()) {
        event->ignore();
        return;
    }
    KeepGeometry();
    jobs_->End();
    event->accept();
    QApplication::closeAllWindows();
}

void MainWindow::KeepGeometry() {
    session_.Settings().Set(windowSection, geometryKey, saveGeometry().toBase64().toStdString());
}

void MainWindow::RestoreGeometry() {
    const std::string kept = session_.Settings().Get(windowSection, geometryKey);
    if (!kept.empty()) {
        restoreGeometry(QByteArray::fromBase64(QByteArray::fromStdString(kept)));
    }
}

} // namespace kaloria
