// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "application/application.h"

#include <QDialog>
#include <QString>

namespace kaloria {

/// What a person who helps from afar asks first, one fact a line: versions, system, screens, folders, and how
/// much of each kind of reference data was loaded.
[[nodiscard]] QString SystemInformation(CApplication& application);

/// Shows it (`frmSystemInfo`), to be copied.
class SystemInformationDialog final : public QDialog {
    Q_OBJECT

public:
    explicit SystemInformationDialog(const QString& text, QWidget* parent = nullptr);
};

} // namespace kaloria
