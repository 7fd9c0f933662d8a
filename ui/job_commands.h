// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "application/recent_files.h"
#include "application/recovery.h"
#include "ui/session.h"

#include <QObject>
#include <QTimer>

class QMenu;
class QWidget;

namespace kaloria {

/// Opening and saving jobs as a person asks for it: nothing unsaved goes without a question, and a copy is
/// kept against a crash.
class JobCommands final : public QObject {
    Q_OBJECT

public:
    JobCommands(Session& session, QWidget& window, std::filesystem::path recoveryFolder);

    void New();
    void Open();
    void OpenPath(const QString& path);
    bool Save();
    bool SaveAs();
    void LoadDefaults();
    void SaveAsDefault();

    /// Asks about unsaved changes; whether to go on.
    [[nodiscard]] bool MayLeave();
    /// Offers what crashed runs left.
    void OfferRecovery();
    /// The program ends in order.
    void End();

    /// Fills the menu of recent files.
    void ShowRecent(QMenu& menu);
    /// Writes the recovery copy now.
    void KeepCopy();

private:
    bool SaveTo(const QString& path);

    Session& session_;
    QWidget& window_;
    RecentFiles recent_;
    RecoveryStore recovery_;
    QTimer copies_;
};

} // namespace kaloria
