// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/viewer/view_report.h"

#include "data/atomic_file.h"
#include "reports/rtf_token.h"
#include "ui/theme.h"
#include "ui/viewer/find_bar.h"
#include "ui/viewer/paper_view.h"
#include "ui/viewer/report_printer.h"
#include "ui/viewer/rtf_reader.h"

#include <QBuffer>
#include <QDir>
#include <QFileInfo>
#include <QLabel>
#include <QPdfWriter>
#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <QScrollBar>
#include <QStatusBar>
#include <QVBoxLayout>

#include <exception>
#include <utility>

namespace kaloria {

namespace {

constexpr int resolution = 600; // of a PDF [1/in]; its text and lines have none, its pictures need no more
const QString rtfSuffix = QStringLiteral("rtf");
const QString pdfSuffix = QStringLiteral("pdf");

QString RtfFilter() { return FrmViewReport::tr("Rich Text File (*.rtf)"); }
QString PdfFilter() { return FrmViewReport::tr("PDF File (*.pdf)"); }

QString Told(const std::exception& error) { return QString::fromUtf8(error.what()); }

} // namespace

FrmViewReport::FrmViewReport(QWidget* parent)
    : QMainWindow(parent),
      paper_(new viewer::PaperView(this)),
      find_(new viewer::FindBar(*paper_, this)),
      problem_(new QLabel(this)),
      questions_(Dialogs()) {
    setObjectName(QStringLiteral("frmViewReport"));
    setWindowTitle(tr("Report"));
    paper_->setObjectName(QStringLiteral("RichTextBox1"));
    paper_->setAccessibleName(tr("Report"));
    problem_->setObjectName(QStringLiteral("lblProblem"));
    problem_->setWordWrap(true);
    theme::SetRole(*problem_, "noticeCare");
    problem_->hide();

    auto* const content = new QWidget(this);
    auto* const column = new QVBoxLayout(content);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(problem_);
    column->addWidget(find_);
    column->addWidget(paper_, 1);
    setCentralWidget(content);
    MakeMenus();
    MakeStatus();
    constexpr QSize usual(980, 860);
    resize(usual);
    paper_->setFocus(Qt::OtherFocusReason);
}

FrmViewReport::~FrmViewReport() = default;

void FrmViewReport::MakeStatus() {
    pages_ = new QLabel(this);
    pages_->setObjectName(QStringLiteral("lblPages"));
    zoom_ = new QLabel(this);
    zoom_->setObjectName(QStringLiteral("lblZoom"));
    pages_->setIndent(theme::gap);
    zoom_->setIndent(theme::gap);
    statusBar()->addWidget(pages_, 1);
    statusBar()->addPermanentWidget(zoom_);
    connect(paper_->verticalScrollBar(), &QScrollBar::valueChanged, this, &FrmViewReport::Tell);
    connect(paper_, &viewer::PaperView::ZoomWanted, this, [this](int steps) {
        constexpr double step = 1.1;
        SetZoom(paper_->Zoom() * (steps > 0 ? step : 1 / step));
    });
    Tell();
}

void FrmViewReport::Tell() {
    const int count = paper_->PageCount();
    pages_->setText(count == 0 ? tr("No report") : tr("Page %1 of %2").arg(paper_->CurrentPage()).arg(count));
    zoom_->setText(tr("%1 %").arg(qRound(100 * paper_->Zoom())));
}

int FrmViewReport::PageCount() const { return paper_->PageCount(); }

void FrmViewReport::LoadReport(const QString& path) {
    const QFileInfo file(path);
    if (!file.exists()) {
        return;
    }
    try {
        if (Take(ReadFile(path.toStdString(), rtf::maxBytes), path)) {
            name_ = file.absoluteFilePath();
        }
    } catch (const FileError& error) {
        questions_.tell(Told(error));
    }
}

void FrmViewReport::ShowReport(std::string bytes, const QString& name) {
    if (Take(std::move(bytes), name)) {
        name_ = name;
    }
}

bool FrmViewReport::Take(std::string bytes, const QString& path) {
    viewer::RichText text = viewer::ReadRichText(bytes);
    if (text.blocks.empty() && !text.problem.isEmpty()) {
        questions_.tell(tr("%1 cannot be shown: %2.").arg(QDir::toNativeSeparators(path), text.problem));
        return false;
    }
    problem_->setVisible(!text.problem.isEmpty());
    problem_->setText(tr("Not all of this report could be read: %1.").arg(text.problem));
    bytes_ = std::move(bytes);
    paper_->Show(std::move(text));
    find_->Refresh();
    setWindowTitle(tr("Report - %1").arg(QFileInfo(path).fileName()));
    Tell();
    return true;
}

void FrmViewReport::SetZoom(double zoom) {
    fits_ = false;
    paper_->SetZoom(zoom);
    find_->Refresh();
    Tell();
}

void FrmViewReport::resizeEvent(QResizeEvent* event) {
    QMainWindow::resizeEvent(event);
    if (fits_ && !isMinimized()) {
        SetZoom(paper_->FittingZoom());
        fits_ = true;
    }
}

bool FrmViewReport::PrintOn(QPrinter& printer) {
    printer.setFullPage(true);
    const bool isPdf = printer.outputFormat() == QPrinter::PdfFormat;
    viewer::ReportPrinter sheets(paper_->Text(), printer);
    const bool isRange = printer.printRange() == QPrinter::PageRange;
    return sheets.Print(isPdf, isRange ? printer.fromPage() : 1, isRange ? printer.toPage() : 0);
}

void FrmViewReport::Print() {
    QPrinter printer(QPrinter::HighResolution);
    printer.setPageLayout(viewer::ReportPrinter::LayoutOf(paper_->Text().sections.front()));
    QPrintDialog dialog(&printer, this);
    dialog.setWindowTitle(tr("Print report"));
    dialog.setOption(QAbstractPrintDialog::PrintPageRange);
    if (dialog.exec() == QDialog::Accepted && !PrintOn(printer)) {
        questions_.tell(tr("The report could not be printed. Is the printer ready, or the file writable?"));
    }
}

void FrmViewReport::Preview() {
    QPrinter printer(QPrinter::HighResolution);
    printer.setPageLayout(viewer::ReportPrinter::LayoutOf(paper_->Text().sections.front()));
    QPrintPreviewDialog dialog(&printer, this);
    connect(&dialog, &QPrintPreviewDialog::paintRequested, this, [this](QPrinter* sheet) {
        sheet->setFullPage(true);
        viewer::ReportPrinter sheets(paper_->Text(), *sheet);
        static_cast<void>(sheets.Print(false));
    });
    dialog.exec();
}

QString FrmViewReport::Proposed(const QString& suffix) const {
    const QFileInfo last(name_);
    const QString base = last.completeBaseName().isEmpty() ? tr("Report") : last.completeBaseName();
    const QString folder = last.isAbsolute() ? last.absolutePath() : QDir::homePath();
    return QDir(folder).filePath(base + QLatin1Char('.') + suffix);
}

bool FrmViewReport::Write(QString path, const QString& filter, const QString& suffix, const Writer& writer) {
    while (!path.isEmpty()) {
        try {
            writer(path);
            return true;
        } catch (const FileError& error) {
            if (!questions_.triesElsewhere(Told(error))) {
                return false;
            }
        }
        path = questions_.fileName(tr("Save As"), filter, suffix, path);
    }
    return false;
}

bool FrmViewReport::SaveAs(const QString& path) {
    return Write(path, RtfFilter(), rtfSuffix, [this](const QString& file) {
        ReplaceFile(file.toStdString(), bytes_);
        name_ = QFileInfo(file).absoluteFilePath();
        setWindowTitle(tr("Report - %1").arg(QFileInfo(file).fileName()));
        statusBar()->showMessage(tr("Saved"), 3000);
    });
}

void FrmViewReport::Save() {
    SaveAs(questions_.fileName(tr("Save As"), RtfFilter(), rtfSuffix, Proposed(rtfSuffix)));
}

std::string FrmViewReport::PdfBytes() const {
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    {
        QPdfWriter writer(&buffer);
        writer.setResolution(resolution);
        writer.setTitle(QFileInfo(name_).completeBaseName());
        viewer::ReportPrinter sheets(paper_->Text(), writer);
        if (!sheets.Print(true)) {
            return {};
        }
    }
    return buffer.data().toStdString();
}

bool FrmViewReport::ExportPdf(const QString& path) {
    return Write(path, PdfFilter(), pdfSuffix, [this](const QString& file) {
        ReplaceFile(file.toStdString(), PdfBytes());
        statusBar()->showMessage(tr("Exported"), 3000);
    });
}

void FrmViewReport::Export() {
    ExportPdf(questions_.fileName(tr("Export as PDF"), PdfFilter(), pdfSuffix, Proposed(pdfSuffix)));
}

} // namespace kaloria
