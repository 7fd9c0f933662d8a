// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "application/settings.h"

#include <QDialog>

namespace kaloria {

/// The disclaimer of the start (`frmDisclaimer`). Whether it shows at the next start is kept when it closes,
/// whichever way.
class Disclaimer final : public QDialog {
    Q_OBJECT

public:
    /// @param settings must outlive the dialog
    explicit Disclaimer(SettingsStore& settings, QWidget* parent = nullptr);
};

} // namespace kaloria
