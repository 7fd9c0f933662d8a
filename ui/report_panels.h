// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "application/wizard_rules.h"
#include "ui/panel_page.h"

#include <array>

class QCheckBox;
class QLineEdit;
class QRadioButton;

namespace kaloria {

class OptionPair;

/// The project as the cover of a report names it.
class ProjectPanel final : public PanelPage {
    Q_OBJECT

public:
    ProjectPanel(Session& session, const QString& objectName, const QString& title);
    void Refresh() override;

private:
    void CheckDate();
};

/// Fuel, money and operation over the years.
class EconomicsPanel final : public PanelPage {
    Q_OBJECT

public:
    EconomicsPanel(Session& session, const QString& objectName, const QString& title);
    void Refresh() override;

private:
    std::array<OptionPair*, 2> options_{};
};

/// The 29 sizes and surfaces of a report, and what their insulation costs installed.
class InstalledCostPanel final : public PanelPage {
    Q_OBJECT

public:
    InstalledCostPanel(Session& session, const QString& objectName, const QString& title);
    void Refresh() override;

    [[nodiscard]] const ItemTicks& Ticks() const { return ticks_; }
    /// The file of the user's own installed costs; empty when none is chosen.
    [[nodiscard]] QString CostFile() const;

private:
    QWidget* BuildSurfaces();
    QWidget* BuildSource();
    void ShowTicks();
    void Ticked();
    void SelectRange();
    void BrowseCosts();

    ItemTicks ticks_;
    std::array<QCheckBox*, reportItemCount> boxes_{};
    QCheckBox* all_ = nullptr;
    std::array<QRadioButton*, 3> sources_{};
    QLineEdit* range_ = nullptr;
    QLabel* rangeError_ = nullptr;
    QLineEdit* costFile_ = nullptr;
    QWidget* costFileRow_ = nullptr;
    std::string ticksOf_; ///< surface and flag of the job that the ticks were taken from
};

/// Which kind of report, and the button that makes it.
class ReportPanel final : public PanelPage {
    Q_OBJECT

public:
    ReportPanel(Session& session, const QString& objectName, const QString& title);
    void Refresh() override;

    /// The temperatures, which the thickness table has in common with the reports.
    [[nodiscard]] FieldCard* Temperatures() const { return temperatures_; }

private:
    OptionPair* layout_ = nullptr;
    FieldCard* temperatures_ = nullptr;
};

} // namespace kaloria
