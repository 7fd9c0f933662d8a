// SPDX-License-Identifier: GPL-3.0-or-later
// Which panel is shown, how one gets there, and what the window shows of the job besides.
#include "application/visible_fields.h"
#include "application/wizard_rules.h"
#include "ui/file_dialogs.h"
#include "ui/job_commands.h"
#include "ui/layers_card.h"
#include "ui/main_window.h"
#include "ui/materials_panel.h"
#include "ui/menu_strip.h"
#include "ui/rail.h"
#include "ui/report_commands.h"
#include "ui/report_panels.h"
#include "ui/report_summary.h"
#include "ui/theme.h"

#include <QFileInfo>
#include <QLabel>
#include <QScrollArea>
#include <QStackedWidget>

#include <algorithm>

namespace kaloria {

namespace {

// In characters of the text's size, so that larger type gets more room.
constexpr int wideBody = 143; ///< inputs and answer stand beside each other from here on
constexpr int inputsWidth = 71;

bool IsReportPanel(Panel panel) {
    return panel == Panel::project || panel == Panel::economics || panel == Panel::installedCost ||
           panel == Panel::report;
}

bool IsHeatFlowPanel(Panel panel) {
    return panel == Panel::surface || panel == Panel::insulation || panel == Panel::fuel ||
           panel == Panel::results || panel == Panel::userInformation;
}

} // namespace

int MainWindow::Characters(int count) const {
    // Ordinary type has about seven pixels to a character.
    return count * std::max(7, fontMetrics().averageCharWidth());
}

bool MainWindow::IsWide() const { return body_->width() >= Characters(wideBody); }

void MainWindow::Arrange() {
    const MenuItem* const item = MenuItemAt(position_);
    const Panel panel = item != nullptr ? item->panel : Panel::none;
    const bool showsInputs = panel != Panel::results;
    const bool hasSide = IsHeatFlowPanel(panel) || IsReportPanel(panel);
    const bool showsSide = hasSide && (!showsInputs || IsWide());
    if (IsReportPanel(panel)) {
        side_->setCurrentWidget(summary_);
    } else {
        side_->setCurrentWidget(resultsSide_);
    }
    fraData_->setVisible(showsInputs);
    fraData_->setMinimumWidth(showsSide && showsInputs ? Characters(inputsWidth) : 0);
    fraData_->setMaximumWidth(showsSide && showsInputs ? Characters(inputsWidth) : QWIDGETSIZE_MAX);
    side_->setVisible(showsSide);
    imgBackground_->setGeometry(body_->rect());
}

void MainWindow::ShowPosition(MenuPosition position) {
    const MenuItem* const item = MenuItemAt(position);
    if (item == nullptr || item->panel == Panel::none) {
        return;
    }
    position_ = position;
    session_.SetPosition(position.category, position.menuItem);
    rail_->Select(position.category);
    strip_->Show(position, ActionText());
    header_->setText(ToQt(session_.App().HeaderText(position.category, position.menuItem)));
    if (const auto found = panels_.find(item->panel); found != panels_.end()) {
        fraData_->setCurrentWidget(found->second);
        if (auto* const materials = qobject_cast<MaterialsPanel*>(found->second)) {
            materials->Refresh();
        }
    }
    PlaceSharedCards(item->panel);
    if (IsReportPanel(item->panel)) {
        summary_->SetKind(position.category == 3 ? tr("Pollutant Reduction") : tr("Cost of Energy"));
        summary_->Refresh();
    }
    Arrange();
}

void MainWindow::PlaceSharedCards(Panel panel) {
    // One layers grid and one pair of temperatures, wherever they are wanted.
    PanelPage* const home = panel == Panel::insulation ? insulation_ : surface_;
    if (layers_->parentWidget() != home->widget()) {
        home->AddWidget(layers_);
    }
    const bool makesTable = CalculationTypeOf(session_.TheJob()) == calculation_type::thicknessTable;
    PanelPage* const place = makesTable && panel == Panel::surface ? surface_ : report_;
    if (report_->Temperatures()->parentWidget() != place->widget()) {
        place->AddWidget(report_->Temperatures());
    }
}

void MainWindow::ShowPanel(Panel panel) {
    if (const auto position = PositionOf(panel, position_.category)) {
        ShowPosition(*position);
    }
}

void MainWindow::RefreshAll() {
    for (PanelPage* const page : pages_) {
        page->Refresh();
    }
    layers_->Refresh();
    if (const MenuItem* const item = MenuItemAt(position_)) {
        PlaceSharedCards(item->panel);
    }
    fuelNote_->setVisible(!IsShown(Field::Fuel, session_.TheJob(), session_.Records()));
    for (MaterialsPanel* const page : materials_) {
        if (page->isVisible()) {
            page->Refresh(); // the others do when they are shown
        }
    }
    const bool isSI = session_.TheJob().UnitsInForce() == Units::si;
    mnuUnitsEnglish_->setChecked(!isSI);
    mnuUnitsSI_->setChecked(isSI);
    strip_->ShowUnits(isSI);
    strip_->Show(position_, ActionText());
    if (summary_->isVisible()) {
        summary_->Refresh();
    }
}

void MainWindow::ShowFindings() {
    const std::vector<Finding>& findings = session_.Result().findings;
    for (PanelPage* const page : pages_) {
        page->Recheck();
        page->ShowFindings(findings);
    }
    layers_->ShowProblem();
    layers_->ShowFindings(findings);
}

void MainWindow::ShowTitle() {
    const QString name =
        session_.Path().empty() ? tr("New job") : QFileInfo(files::ToQt(session_.Path())).fileName();
    setWindowTitle(QStringLiteral("%1[*] – Kaloria").arg(name));
    setWindowModified(session_.IsDirty());
    setWindowFilePath(files::ToQt(session_.Path()));
    setWindowTitle(QStringLiteral("%1[*] – Kaloria").arg(name));
}

void MainWindow::ShowStatus() {
    const CalculationResult& result = session_.Result();
    if (!session_.IsCurrent()) {
        statusTime_->setText(tr("Inputs have changed"));
    } else if (result.done) {
        statusTime_->setText(tr("%1 rows solved in %2 ms")
                                 .arg(result.grid.rows.size())
                                 .arg(session_.CalculationMilliseconds(), 0, 'f', 1));
    } else {
        statusTime_->setText(tr("No answer: see the marked inputs"));
    }
    const QString audit = files::ToQt(session_.App().AuditPath);
    statusAudit_->setText(audit.isEmpty() ? QString() : tr("Audit: %1").arg(QFileInfo(audit).fileName()));
}

void MainWindow::ChooseItem(int menuItem) {
    const MenuPosition position{position_.category, menuItem};
    const MenuItem* const item = MenuItemAt(position);
    if (item == nullptr) {
        return;
    }
    switch (item->action) {
    case MenuAction::openJob:
        jobs_->Open();
        break;
    case MenuAction::saveJob:
        jobs_->Save();
        break;
    case MenuAction::none:
        ShowPosition(position);
        break;
    }
}

void MainWindow::Step(std::optional<MenuPosition> to) {
    if (to) {
        ShowPosition(*to);
    }
}

std::string_view MainWindow::StepProblem() {
    const MenuItem* const item = MenuItemAt(position_);
    if (item != nullptr && item->panel == Panel::project) {
        return ProjectProblem(session_.TheJob());
    }
    if (item != nullptr && item->panel == Panel::installedCost) {
        return SurfacesProblem(installedCost_->Ticks());
    }
    return {};
}

void MainWindow::GoNext() {
    if (const std::string_view problem = StepProblem(); !problem.empty()) {
        messages_.Show(problem);
        return;
    }
    Step(NextPanel(position_));
}

void MainWindow::Finish() {
    layers_->FinishEditing();
    const MenuCategory* const category = CategoryAt(position_.category);
    if (category == nullptr) {
        return;
    }
    if (category->finish == FinishAction::report) {
        if (const std::string_view problem = ProjectProblem(session_.TheJob()); !problem.empty()) {
            messages_.Show(problem);
            return;
        }
    }
    const int finished = position_.category;
    if (Act()) {
        Step(FinishPanel(finished));
    }
}

bool MainWindow::MakesReport() const {
    const MenuCategory* const category = CategoryAt(position_.category);
    return category != nullptr && category->finish == FinishAction::report;
}

QString MainWindow::ActionText() const {
    if (MakesReport()) {
        return tr("&Create report");
    }
    return reports_ != nullptr && reports_->MakesTable() ? tr("&Create table") : tr("&Calculate");
}

bool MainWindow::Act() {
    layers_->FinishEditing();
    if (MakesReport()) {
        if (const std::string_view problem = ProjectProblem(session_.TheJob()); !problem.empty()) {
            messages_.Show(problem);
            ShowPanel(Panel::project);
            return false;
        }
        reports_->MakeReport(position_.category == 3);
    } else if (reports_->MakesTable()) {
        reports_->MakeTable();
    } else {
        return CalculateNow();
    }
    return true;
}

bool MainWindow::CalculateNow() {
    const CalculationResult& result = session_.Calculate();
    if (!result.done) {
        FocusWrong();
        return false;
    }
    if (!IsWide() || !side_->isVisible() || side_->currentWidget() != resultsSide_) {
        ShowPanel(Panel::results);
    }
    return true;
}

void MainWindow::FocusWrong() {
    for (const Panel panel : {Panel::surface, Panel::insulation, Panel::fuel}) {
        auto* const page = qobject_cast<PanelPage*>(panels_.at(panel));
        if (FieldEditor* const wrong = page->FirstWrong()) {
            ShowPosition(PositionOf(panel, 1).value_or(position_));
            wrong->Control()->setFocus();
            page->ensureWidgetVisible(wrong->Control());
            return;
        }
    }
    if (layers_->HasError()) {
        ShowPosition(PositionOf(Panel::insulation, 1).value_or(position_));
    }
}

void MainWindow::SwitchUnits(Units units) {
    layers_->FinishEditing();
    session_.SwitchUnits(units);
}

} // namespace kaloria
