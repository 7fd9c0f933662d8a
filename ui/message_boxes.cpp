// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/message_boxes.h"

#include "ui/theme.h"

#include <QMessageBox>

#include <iostream>

namespace kaloria {

void MessageBoxes::Show(std::string_view text) {
    if (handler_) {
        handler_(std::string(text));
        return;
    }
    QMessageBox box(QMessageBox::NoIcon, QStringLiteral("Kaloria"), ToQt(text), QMessageBox::Ok, parent_);
    box.setTextFormat(Qt::PlainText);
    box.exec();
}

void MessageBoxes::Log(std::string_view detail) { std::cerr << "kaloria: " << detail << '\n'; }

} // namespace kaloria
