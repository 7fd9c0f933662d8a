// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/dialogs/about_box.h"

#include "ui/dialogs/grow.h"
#include "ui/dialogs/system_information.h"
#include "ui/theme.h"

#include <QCoreApplication>
#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <fmt/format.h>

namespace kaloria {

namespace {

constexpr int iconSize = 72;

/// The icon in all its sizes, so that every screen finds its own.
QIcon ProgramIcon(const CApplication& application) {
    QIcon icon;
    for (const int size : {16, 24, 32, 48, 64, 128, 256}) {
        const auto file = application.ProgramFolder() / "images" / fmt::format("kaloria-{}.png", size);
        icon.addFile(ToQt(file.string()), QSize(size, size));
    }
    return icon;
}

QLabel* WrappedLabel(const QString& text, const char* role) {
    auto* const label = new QLabel(text);
    label->setWordWrap(true);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    theme::SetRole(*label, role);
    return label;
}

QVBoxLayout* Words() {
    auto* const column = new QVBoxLayout;
    column->setSpacing(theme::gap);
    auto* const name = new QLabel(QStringLiteral("Kaloria"));
    name->setFont(theme::FigureFont());
    column->addWidget(name);
    auto* const version =
        WrappedLabel(AboutBox::tr("Version %1").arg(QCoreApplication::applicationVersion()), "quiet");
    version->setObjectName(QStringLiteral("lblVersion"));
    column->addWidget(version);
    column->addSpacing(theme::gap);
    column->addWidget(WrappedLabel(
        AboutBox::tr(
            "A calculator for industrial thermal insulation: heat flow and surface temperatures of "
            "insulated pipes, tanks and ducts, the thickness that a goal asks for, and what energy and "
            "emissions it saves."),
        "plain"));
    column->addWidget(WrappedLabel(
        AboutBox::tr(
            "Free software under the GNU General Public License, version 3 or later. It comes with no "
            "warranty. Windows by Qt, under the GNU Lesser General Public License."),
        "quiet"));
    column->addStretch(1);
    return column;
}

} // namespace

AboutBox::AboutBox(CApplication& application, QWidget* parent) : QDialog(parent) {
    constexpr int width = 520;
    setObjectName(QStringLiteral("frmAbout"));
    setWindowTitle(tr("About Kaloria"));
    auto* const page = new QVBoxLayout(this);
    page->setContentsMargins(2 * theme::pageMargin, 2 * theme::pageMargin, 2 * theme::pageMargin,
                             theme::pageMargin);
    page->setSpacing(theme::pageMargin);
    auto* const icon = new QLabel;
    icon->setPixmap(ProgramIcon(application).pixmap(QSize(iconSize, iconSize), devicePixelRatioF()));
    auto* const top = new QHBoxLayout;
    top->setSpacing(theme::pageMargin);
    top->addWidget(icon, 0, Qt::AlignTop);
    top->addLayout(Words(), 1);
    page->addLayout(top, 1);
    auto* const information = new QPushButton(tr("&System information..."));
    information->setObjectName(QStringLiteral("cmdSystemInfo"));
    information->setAccessibleName(tr("System information"));
    information->setAutoDefault(false);
    auto* const close = new QPushButton(tr("Close"));
    close->setObjectName(QStringLiteral("cmdClose"));
    close->setAccessibleName(tr("Close"));
    close->setDefault(true);
    auto* const foot = new QHBoxLayout;
    foot->addWidget(information);
    foot->addStretch(1);
    foot->addWidget(close);
    page->addLayout(foot);
    close->setFocus();
    FitHeight(*this, width);
    connect(close, &QPushButton::clicked, this, &QDialog::accept);
    connect(information, &QPushButton::clicked, this,
            [this, &application] { SystemInformationDialog(SystemInformation(application), this).exec(); });
}

} // namespace kaloria
