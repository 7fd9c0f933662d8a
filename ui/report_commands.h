// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/session.h"

#include <QObject>
#include <QPointer>

#include <functional>

class QWidget;

namespace kaloria {

class FrmProgress;
class FrmViewReport;
class InstalledCostPanel;

/// Making reports and showing them.
class ReportCommands final : public QObject {
    Q_OBJECT

public:
    ReportCommands(Session& session, InstalledCostPanel& items, QWidget& window);

    /// The economic or the environmental report of the ticked surfaces: analysed under a progress window,
    /// saved where the job says, shown, and printed when the job asks for it.
    void MakeReport(bool environmental);
    /// The short report of the last calculation.
    void ExportShortReport();
    void PrintShortReport();

    /// Whether cmdShowReport makes the thickness table rather than a calculation.
    [[nodiscard]] bool MakesTable() const;
    void MakeTable();

    /// The dimensions of all insulation that is made for the sizes of the job's system application.
    void ExportDimensions();

    /// The window of the last report; null when none is open.
    [[nodiscard]] FrmViewReport* Viewer() const;

Q_SIGNALS:
    void Said(const QString& message);

private:
    FrmViewReport& ShownViewer();
    void Show(const QString& path, bool print);
    [[nodiscard]] QString ReportPath() const;
    bool SaveReport(const std::string& rtf, QString& path);
    void ShowFindings(const std::vector<Finding>& findings);

    Session& session_;
    InstalledCostPanel& items_;
    QWidget& window_;
    QPointer<FrmViewReport> viewer_;
};

} // namespace kaloria
