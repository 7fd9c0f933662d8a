// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/session.h"

#include <QWidget>

class QGridLayout;
class QLabel;
class QPushButton;

namespace kaloria {

/// The report panel `fraReport`: what was calculated, in words, and the audit file below it.
class ReportCard final : public QWidget {
    Q_OBJECT

public:
    explicit ReportCard(Session& session, QWidget* parent = nullptr);

    /// Shows the panel lines of the answer.
    void Refresh();

    /// In how many columns the lines stand.
    void SetColumns(int columns);

Q_SIGNALS:
    void Appended(const QString& message);

private:
    QWidget* BuildAudit();
    void Browse();
    void Append();
    void ShowAuditPath();
    QLabel* ValueLabel(const PanelLine& line);

    Session& session_;
    int columns_ = 2;
    QLabel* title_ = nullptr;
    QWidget* lines_ = nullptr;
    QWidget* audit_ = nullptr;
    QLabel* auditPath_ = nullptr;
    QPushButton* append_ = nullptr;
};

} // namespace kaloria
