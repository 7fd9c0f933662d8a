// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/dialogs/system_information.h"

#include "application/settings.h"
#include "ui/theme.h"

#include <QApplication>
#include <QClipboard>
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScreen>
#include <QStyle>
#include <QSysInfo>
#include <QVBoxLayout>

namespace kaloria {

namespace {

QString OfSystem() {
    return QStringLiteral("System: %1, kernel %2 %3\nProcessor: %4\nQt: %5 (built with %6), platform %7\n")
        .arg(QSysInfo::prettyProductName(), QSysInfo::kernelType(), QSysInfo::kernelVersion(),
             QSysInfo::currentCpuArchitecture(), QString::fromLatin1(qVersion()),
             QStringLiteral(QT_VERSION_STR), QGuiApplication::platformName());
}

QString OfScreens() {
    QString text;
    for (const QScreen* const screen : QGuiApplication::screens()) {
        text += QStringLiteral("Screen: %1, %2 x %3 at %4, %5 dpi\n")
                    .arg(screen->name())
                    .arg(screen->size().width())
                    .arg(screen->size().height())
                    .arg(screen->devicePixelRatio())
                    .arg(qRound(screen->logicalDotsPerInch()));
    }
    return text;
}

QString OfCatalogue(CApplication& application) {
    const Catalogue& records = application.Records();
    const auto count = [](const auto& list) { return QString::number(list.size()); };
    return QStringLiteral(
               "Reference data: %1 insulations, %2 base metals, %3 jackets, %4 fuels, %5 geometries, "
               "%6 pipes, %7 tubes, %8 regions\n")
        .arg(count(records.Insulations), count(records.BaseMetals), count(records.JacketMaterials),
             count(records.Fuels), count(records.SurfaceGeometries), count(records.Pipes),
             count(records.Tubes), count(records.ProductivityFactors));
}

} // namespace

QString SystemInformation(CApplication& application) {
    return QStringLiteral("Kaloria %1\n").arg(QCoreApplication::applicationVersion()) + OfSystem() +
           OfScreens() + QStringLiteral("Locale: %1\n").arg(QLocale::system().name()) +
           QStringLiteral("Program folder: %1\nConfiguration: %2\nSettings: %3\nJob: %4\n")
               .arg(ToQt(application.ProgramFolder().string()),
                    ToQt(application.ConfigurationPath().string()), ToQt(FileSettings::UserFile().string()),
                    ToQt(application.JobPath.string())) +
           OfCatalogue(application);
}

SystemInformationDialog::SystemInformationDialog(const QString& text, QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmSystemInfo"));
    setWindowTitle(tr("System information"));
    resize(640, 340);
    auto* const page = new QVBoxLayout(this);
    page->setContentsMargins(theme::pageMargin, theme::pageMargin, theme::pageMargin, theme::pageMargin);
    page->setSpacing(theme::cardGap);
    auto* const edit = new QPlainTextEdit(text);
    edit->setObjectName(QStringLiteral("txtSystemInfo"));
    edit->setAccessibleName(windowTitle());
    edit->setReadOnly(true);
    edit->setTabChangesFocus(true);
    edit->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    page->addWidget(edit, 1);
    auto* const copy = new QPushButton(tr("&Copy"));
    copy->setObjectName(QStringLiteral("cmdCopy"));
    copy->setAccessibleName(tr("Copy"));
    auto* const close = new QPushButton(tr("Close"));
    close->setObjectName(QStringLiteral("cmdClose"));
    close->setAccessibleName(tr("Close"));
    close->setDefault(true);
    auto* const foot = new QHBoxLayout;
    foot->addWidget(copy);
    foot->addStretch(1);
    foot->addWidget(close);
    page->addLayout(foot);
    close->setFocus();
    connect(copy, &QPushButton::clicked, this, [text] { QApplication::clipboard()->setText(text); });
    connect(close, &QPushButton::clicked, this, &QDialog::accept);
}

} // namespace kaloria
