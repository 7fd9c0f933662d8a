// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "application/application.h"

#include <QDialog>

namespace kaloria {

/// What the program is, its version and its license (`frmAbout`), with the way to the system information.
class AboutBox final : public QDialog {
    Q_OBJECT

public:
    /// @param application must outlive the dialog; the version is the one that the QApplication carries
    explicit AboutBox(CApplication& application, QWidget* parent = nullptr);
};

} // namespace kaloria
