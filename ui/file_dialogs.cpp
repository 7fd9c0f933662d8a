// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/file_dialogs.h"

#include <QFileDialog>
#include <QFileInfo>

namespace kaloria::files {

QString AskSave(QWidget* parent, const QString& title, const QString& proposed, const QString& filter,
                const QString& suffix, Overwrite overwrite) {
    QFileDialog dialog(parent, title, QFileInfo(proposed).path(), filter);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    dialog.setDefaultSuffix(suffix);
    dialog.setOption(QFileDialog::DontConfirmOverwrite, overwrite == Overwrite::dontAsk);
    dialog.selectFile(QFileInfo(proposed).fileName());
    return dialog.exec() == QDialog::Accepted && !dialog.selectedFiles().isEmpty()
               ? dialog.selectedFiles().constFirst()
               : QString();
}

QString AskOpen(QWidget* parent, const QString& title, const QString& folder, const QString& filter) {
    return QFileDialog::getOpenFileName(parent, title, folder, filter);
}

} // namespace kaloria::files
