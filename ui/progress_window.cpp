// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/progress_window.h"

#include "ui/theme.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

namespace kaloria {

namespace {
constexpr qint64 betweenLooks = 50; // [ms]
constexpr int usualWidth = 420;
} // namespace

FrmProgress::FrmProgress(QWidget* parent)
    : QDialog(parent),
      caption_(new QLabel(this)),
      bar_(new QProgressBar(this)),
      cancel_(new QPushButton(tr("Cancel"), this)) {
    setObjectName(QStringLiteral("frmProgress"));
    setWindowTitle(tr("Please wait"));
    setWindowModality(Qt::ApplicationModal);
    setMinimumWidth(usualWidth);
    caption_->setObjectName(QStringLiteral("lblProgress"));
    caption_->setWordWrap(true);
    bar_->setObjectName(QStringLiteral("barProgress"));
    bar_->setAccessibleName(tr("Progress"));
    bar_->setRange(0, 0);
    cancel_->setObjectName(QStringLiteral("cmdCancel"));
    cancel_->setAccessibleName(tr("Cancel"));
    cancel_->setAutoDefault(false); // Enter ends nothing
    connect(cancel_, &QPushButton::clicked, this, &FrmProgress::reject);

    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(theme::pageMargin, theme::pageMargin, theme::pageMargin, theme::pageMargin);
    column->setSpacing(theme::cardGap);
    column->addWidget(caption_);
    column->addWidget(bar_);
    column->addWidget(cancel_, 0, Qt::AlignRight);
}

bool FrmProgress::Report(std::string_view caption, int done, int count) {
    caption_->setText(ToQt(caption));
    bar_->setRange(0, count);
    bar_->setValue(done);
    if (!lastLook_.isValid()) {
        show();
    }
    if (!lastLook_.isValid() || lastLook_.elapsed() >= betweenLooks) {
        lastLook_.start();
        QCoreApplication::processEvents();
    }
    return !isCancelled_;
}

void FrmProgress::reject() {
    isCancelled_ = true;
    cancel_->setEnabled(false);
    cancel_->setText(tr("Ending..."));
}

void FrmProgress::closeEvent(QCloseEvent* event) {
    reject();
    event->ignore();
}

} // namespace kaloria
