// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/dialogs/disclaimer.h"

#include "application/disclaimer_text.h"
#include "ui/dialogs/grow.h"
#include "ui/theme.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace kaloria {

Disclaimer::Disclaimer(SettingsStore& settings, QWidget* parent) : QDialog(parent) {
    constexpr int width = 560;
    setObjectName(QStringLiteral("frmDisclaimer"));
    setWindowTitle(QStringLiteral("Kaloria"));
    auto* const page = new QVBoxLayout(this);
    page->setContentsMargins(2 * theme::pageMargin, 2 * theme::pageMargin, 2 * theme::pageMargin,
                             theme::pageMargin);
    page->setSpacing(theme::pageMargin);
    auto* const title = new QLabel(ToQt(disclaimerTitle));
    title->setFont(theme::HeadingFont());
    page->addWidget(title);
    auto* const text = new QLabel(ToQt(disclaimerText));
    text->setObjectName(QStringLiteral("lblDisclaimer"));
    text->setWordWrap(true);
    text->setTextInteractionFlags(Qt::TextSelectableByMouse);
    page->addWidget(text, 1);

    auto* const show = new QCheckBox(tr("&Show this at start-up"));
    show->setObjectName(QStringLiteral("chkShowDisclaimer"));
    show->setAccessibleName(tr("Show this at start-up"));
    show->setChecked(settings.Get(setting::section, setting::showDisclaimer) != setting::no);
    auto* const accept = new QPushButton(tr("&I understand"));
    accept->setObjectName(QStringLiteral("cmdOK"));
    accept->setAccessibleName(tr("I understand"));
    accept->setDefault(true);
    theme::SetRole(*accept, "primary");
    auto* const foot = new QHBoxLayout;
    foot->addWidget(show);
    foot->addStretch(1);
    foot->addWidget(accept);
    page->addLayout(foot);
    accept->setFocus();
    FitHeight(*this, width);
    connect(accept, &QPushButton::clicked, this, &QDialog::accept);
    connect(this, &QDialog::finished, this, [&settings, show] {
        settings.Set(setting::section, setting::showDisclaimer,
                     show->isChecked() ? setting::yes : setting::no);
    });
}

} // namespace kaloria
