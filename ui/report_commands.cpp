// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/report_commands.h"

#include "application/covering_table.h"
#include "application/report_run.h"
#include "application/short_report.h"
#include "application/table_report.h"
#include "application/thickness_table.h"
#include "data/atomic_file.h"
#include "reports/report_pages.h"
#include "ui/file_dialogs.h"
#include "ui/progress_window.h"
#include "ui/report_panels.h"
#include "ui/theme.h"
#include "ui/viewer/view_report.h"

#include <QFileInfo>
#include <QMessageBox>
#include <QPushButton>

namespace kaloria {

namespace {

QString ReportFilter() { return QObject::tr("Kaloria Report (*.rtf)"); }

} // namespace

ReportCommands::ReportCommands(Session& session, InstalledCostPanel& items, QWidget& window)
    : QObject(&window), session_(session), items_(items), window_(window) {}

FrmViewReport* ReportCommands::Viewer() const { return viewer_; }

QString ReportCommands::ReportPath() const {
    const QString path = ToQt(session_.TheJob()[Field::Path]).trimmed();
    return path.isEmpty() ? QStringLiteral("NewJob.rtf") : path;
}

bool ReportCommands::SaveReport(const std::string& rtf, QString& path) {
    while (true) {
        try {
            ReplaceFile(files::FromQt(path), rtf);
            return true;
        } catch (const FileError& error) {
            session_.Messages().Log(error.what());
            QMessageBox box(QMessageBox::NoIcon, QStringLiteral("Kaloria"),
                            tr("The report could not be saved as %1.").arg(path), QMessageBox::Cancel,
                            &window_);
            box.setInformativeText(QString::fromUtf8(error.what()));
            box.setTextFormat(Qt::PlainText);
            auto* const elsewhere = box.addButton(tr("Save &elsewhere..."), QMessageBox::AcceptRole);
            box.setDefaultButton(elsewhere);
            box.exec();
            if (box.clickedButton() != elsewhere) {
                return false;
            }
            path = files::AskSave(&window_, tr("Save As"), QFileInfo(path).fileName(), ReportFilter(),
                                  QStringLiteral("rtf"));
            if (path.isEmpty()) {
                return false;
            }
        }
    }
}

void ReportCommands::ShowFindings(const std::vector<Finding>& findings) {
    QStringList errors;
    for (const Finding& finding : findings) {
        if (finding.severity == Severity::error) {
            errors << ToQt(finding.text);
        }
    }
    if (!errors.isEmpty()) {
        QMessageBox box(QMessageBox::NoIcon, QStringLiteral("Kaloria"),
                        tr("The report could not be made whole."), QMessageBox::Ok, &window_);
        box.setTextFormat(Qt::PlainText);
        errors.removeDuplicates();
        box.setInformativeText(errors.mid(0, 8).join(u'\n'));
        box.exec();
    }
}

FrmViewReport& ReportCommands::ShownViewer() {
    if (viewer_ == nullptr) {
        viewer_ = new FrmViewReport(&window_);
        viewer_->setAttribute(Qt::WA_DeleteOnClose);
    }
    viewer_->show();
    viewer_->raise();
    viewer_->activateWindow();
    return *viewer_;
}

void ReportCommands::Show(const QString& path, bool print) {
    FrmViewReport& viewer = ShownViewer();
    viewer.LoadReport(path);
    Q_EMIT Said(tr("Saved as %1").arg(path));
    if (print) {
        viewer.Print();
    }
}

void ReportCommands::MakeReport(bool environmental) {
    FrmProgress progress(&window_);
    ReportRequest request;
    request.kind = environmental ? ReportKind::environmental : ReportKind::economic;
    request.economics.choice = items_.Ticks().Choice();
    request.economics.costFile = files::FromQt(items_.CostFile());
    request.progress = [&progress](std::string_view caption, int done, int count) {
        return progress.Report(caption, done, count);
    };
    const ReportResult result = RunReport(session_.App(), request);
    const bool wasCancelled = progress.IsCancelled();
    progress.hide();
    if (wasCancelled || result.economics.cancelled) {
        Q_EMIT Said(tr("The report was cancelled"));
        return;
    }
    ShowFindings(result.economics.findings);
    if (result.economics.done) {
        Q_EMIT session_.Analysed();
    }
    if (result.rtf.empty()) {
        return;
    }
    QString path = ReportPath();
    if (SaveReport(result.rtf, path)) {
        session_.SetText(Field::Path, FromQt(path));
        Show(path, session_.TheJob().IsTrue(Field::PrintReport));
    }
}

void ReportCommands::ExportShortReport() {
    const QString path = files::AskSave(&window_, tr("Save As"), QStringLiteral("NewReport.rtf"),
                                        ReportFilter(), QStringLiteral("rtf"));
    if (!path.isEmpty() &&
        kaloria::ExportShortReport(session_.App(), session_.Result(), files::FromQt(path))) {
        Show(path, false);
    }
}

void ReportCommands::PrintShortReport() {
    try {
        FrmViewReport& viewer = ShownViewer();
        viewer.ShowReport(
            MakeShortReport(LoadTemplate(session_.App().ProgramFolder(), "ShortReportTemplate.rtf"),
                            session_.Result(), session_.TheJob()),
            QStringLiteral("NewReport.rtf"));
        viewer.Print();
    } catch (const std::exception& error) { // of the template, which people may exchange
        session_.Messages().Show(error.what());
    }
}

bool ReportCommands::MakesTable() const {
    const Job& job = session_.TheJob();
    return job[Field::InsulationThicknessCalculationType] ==
               calculationTypeNames[calculation_type::thicknessTable] &&
           job.UnitsInForce() == Units::english;
}

void ReportCommands::MakeTable() {
    FrmProgress progress(&window_);
    progress.Report("Creating Table ...", 0, 0);
    const ThicknessTable table = MakeThicknessTable(session_.TheJob(), session_.App().Records());
    progress.hide();
    ShowFindings(table.findings);
    const std::filesystem::path file = session_.App().ProgramFolder() / thicknessTableFile;
    if (table.done && ExportThicknessTable(session_.App(), table, file)) {
        Show(files::ToQt(file), false);
    }
}

void ReportCommands::ExportDimensions() {
    const Job& job = session_.TheJob();
    const auto* const shape = FindByName(session_.Records().SurfaceGeometries, job[Field::SurfaceGeometry]);
    const auto sizes =
        CoveringTable(session_.Records(), shape != nullptr ? shape->ID : 0, job.UnitsInForce());
    if (sizes.empty()) {
        session_.Messages().Show("Only pipes and tubes have a table of insulation.");
        return;
    }
    const QString path = files::AskSave(&window_, tr("Save As"), ToQt(coveringTableFile), ReportFilter(),
                                        QStringLiteral("rtf"));
    if (!path.isEmpty() && ExportCoverings(session_.App(), sizes, files::FromQt(path))) {
        Show(path, false);
    }
}

} // namespace kaloria
