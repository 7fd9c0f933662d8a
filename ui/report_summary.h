// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "application/report_reading.h"
#include "ui/session.h"

#include <QWidget>

#include <functional>

class QLabel;
class QVBoxLayout;

namespace kaloria {

class EconomicCard;

/// Beside the panels of a report: what it will be about, and what still stands in its way.
class ReportSummary final : public QWidget {
    Q_OBJECT

public:
    /// @param choice  what is ticked at the moment
    ReportSummary(Session& session, std::function<ReportChoice()> choice, QWidget* parent = nullptr);

    void SetKind(const QString& kind);
    void Refresh();

private:
    void AddLine(const QString& caption, const QString& text);
    void FollowAnalysis();

    Session& session_;
    std::function<ReportChoice()> choice_;
    QString kind_;
    QWidget* content_ = nullptr;
    EconomicCard* curve_ = nullptr;
};

} // namespace kaloria
