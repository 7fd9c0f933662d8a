// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "application/material_rules.h"
#include "application/navigation.h"
#include "ui/message_boxes.h"
#include "ui/pictures.h"
#include "ui/session.h"

#include <QMainWindow>

#include <filesystem>
#include <map>

class QLabel;
class QScrollArea;
class QStackedWidget;

namespace kaloria {

class CompareCommands;
class InstalledCostPanel;
class JobCommands;
class LayersCard;
class MaterialsPanel;
class MenuStrip;
class PanelPage;
class Rail;
class ReportCommands;
class ReportPanel;
class ReportSummary;
class ResultsView;

/// Where the program finds and keeps things.
struct Places {
    std::filesystem::path programFolder;
    std::filesystem::path recoveryFolder;
};

/// `frmMain`, the whole working surface: categories at the left, the menu of the category along the top,
/// inputs and the answer beside each other, or one after the other where the window is narrow.
class MainWindow final : public QMainWindow {
    Q_OBJECT

public:
    /// @param settings, @param messages  must outlive this object
    MainWindow(const Places& places, SettingsStore& settings, MessageBoxes& messages);
    ~MainWindow() override;

    /// Loads what there is to load and opens the default job; what fails is told and the window stays.
    void StartUp();
    /// What a first start asks for: disclaimer, user information, recovery.
    void Greet();

    [[nodiscard]] Session& TheSession() { return session_; }
    [[nodiscard]] JobCommands& Jobs() { return *jobs_; }
    [[nodiscard]] CompareCommands& Compare() { return *compare_; }
    void ShowPosition(MenuPosition position);
    [[nodiscard]] MenuPosition Position() const { return position_; }
    void ShowPanel(Panel panel);

    /// Calculates; an input that stands in the way is shown and gets the cursor.
    bool CalculateNow();
    void SwitchUnits(Units units);

protected:
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void BuildBody();
    void BuildPanels();
    void AddPanel(Panel panel, PanelPage* page);
    void AddPage(Panel panel, QWidget* page);
    void BuildMenus();
    void BuildFileMenu();
    void BuildEditMenu();
    void BuildUnitsMenu();
    void BuildHelpMenu();
    QAction* Add(QMenu& menu, const QString& text, const char* name, const QKeySequence& keys,
                 const std::function<void()>& run);
    void BuildStatus();
    void Connect();

    void Arrange();
    [[nodiscard]] int Characters(int count) const;
    [[nodiscard]] bool IsWide() const;
    void PlaceSharedCards(Panel panel);
    void FillDropDowns();
    void RefreshAll();
    void ShowFindings();
    void ShowTitle();
    void ShowStatus();
    void ChooseItem(int menuItem);
    void Step(std::optional<MenuPosition> to);
    void GoNext();
    void Finish();
    /// Makes what the category is for; false when an input stands in the way.
    bool Act();
    [[nodiscard]] QString ActionText() const;
    [[nodiscard]] bool MakesReport() const;
    [[nodiscard]] std::string_view StepProblem();
    void FocusWrong();
    void ExportGrid();
    void ShowHelpOfFocus();
    bool SaveRecords();
    bool SaveRecordsElsewhere();
    void LoadPictures();
    void KeepGeometry();
    void RestoreGeometry();

    MessageBoxes& messages_;
    Session session_;
    Pictures pictures_;
    MenuPosition position_;
    JobCommands* jobs_ = nullptr;
    ReportCommands* reports_ = nullptr;
    CompareCommands* compare_ = nullptr;
    Rail* rail_ = nullptr;
    MenuStrip* strip_ = nullptr;
    QLabel* imgBackground_ = nullptr;
    QWidget* body_ = nullptr;
    QLabel* header_ = nullptr;
    QStackedWidget* fraData_ = nullptr;
    QStackedWidget* side_ = nullptr;
    QScrollArea* resultsSide_ = nullptr;
    ResultsView* results_ = nullptr;
    ReportSummary* summary_ = nullptr;
    LayersCard* layers_ = nullptr;
    QLabel* fuelNote_ = nullptr;
    PanelPage* surface_ = nullptr;
    PanelPage* insulation_ = nullptr;
    InstalledCostPanel* installedCost_ = nullptr;
    ReportPanel* report_ = nullptr;
    std::map<Panel, QWidget*> panels_;
    std::vector<PanelPage*> pages_;
    MaterialDeletions deletions_;
    std::vector<MaterialsPanel*> materials_;
    QAction* mnuUnitsEnglish_ = nullptr;
    QAction* mnuUnitsSI_ = nullptr;
    QLabel* statusTime_ = nullptr;
    QLabel* statusAudit_ = nullptr;
};

} // namespace kaloria
