// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/main_window.h"

#include "application/visible_fields.h"
#include "application/wizard_rules.h"
#include "data/atomic_file.h"
#include "data/configuration_file.h"
#include "data/xml_document.h"
#include "ui/file_dialogs.h"
#include "ui/help_pages.h"
#include "ui/job_commands.h"
#include "ui/layers_card.h"
#include "ui/materials_panel.h"
#include "ui/menu_strip.h"
#include "ui/minor_windows.h"
#include "ui/notice.h"
#include "ui/rail.h"
#include "ui/report_commands.h"
#include "ui/report_panels.h"
#include "ui/report_summary.h"
#include "ui/results_view.h"
#include "ui/surface_panel.h"
#include "ui/theme.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QFileInfo>
#include <QLabel>
#include <QMessageBox>
#include <QMimeData>
#include <QPushButton>
#include <QScrollArea>
#include <QStackedWidget>
#include <QStatusBar>
#include <QVBoxLayout>

#include <algorithm>

namespace kaloria {

namespace {

// In characters of the text's size, so that larger type gets more room.
constexpr int wideBody = 143; ///< inputs and answer stand beside each other from here on
constexpr int inputsWidth = 71;
constexpr QSize smallest(1024, 700);
constexpr const char* windowSection = "Window";
constexpr const char* geometryKey = "Geometry";

bool IsReportPanel(Panel panel) {
    return panel == Panel::project || panel == Panel::economics || panel == Panel::installedCost ||
           panel == Panel::report;
}

bool IsHeatFlowPanel(Panel panel) {
    return panel == Panel::surface || panel == Panel::insulation || panel == Panel::fuel ||
           panel == Panel::results || panel == Panel::userInformation;
}

} // namespace

MainWindow::MainWindow(const Places& places, SettingsStore& settings, MessageBoxes& messages)
    : messages_(messages),
      session_(places.programFolder, messages, settings),
      pictures_(places.programFolder) {
    setObjectName(QStringLiteral("frmMain"));
    setMinimumSize(smallest);
    resize(1280, 800);
    setAcceptDrops(true);
    messages_.SetParent(this);
    jobs_ = new JobCommands(session_, *this, places.recoveryFolder);
    BuildBody();
    reports_ = new ReportCommands(session_, *installedCost_, *this);
    BuildMenus();
    BuildStatus();
    Connect();
    RestoreGeometry();
}

MainWindow::~MainWindow() {
    messages_.SetParent(nullptr);
    // The panels go before the session that they show; an entry that loses the cursor by that has no say.
    if (QWidget* const entry = focusWidget()) {
        entry->blockSignals(true);
    }
    delete takeCentralWidget();
}

// Building
// ---------------------------------------------------------------------------------------------------------------

void MainWindow::BuildBody() {
    auto* const central = new QWidget(this);
    auto* const columns = new QHBoxLayout(central);
    columns->setContentsMargins(0, 0, 0, 0);
    columns->setSpacing(0);
    rail_ = new Rail(pictures_, central);
    columns->addWidget(rail_);
    auto* const right = new QVBoxLayout;
    right->setSpacing(0);
    strip_ = new MenuStrip(pictures_, central);
    right->addWidget(strip_);
    body_ = new QWidget(central);
    body_->installEventFilter(this);
    imgBackground_ = new QLabel(body_);
    imgBackground_->setObjectName(QStringLiteral("imgBackground"));
    imgBackground_->setScaledContents(true);
    auto* const lines = new QVBoxLayout(body_);
    lines->setContentsMargins(theme::pageMargin, 8, theme::pageMargin, 10);
    lines->setSpacing(8);
    header_ = new QLabel(body_);
    header_->setObjectName(QStringLiteral("lblHeader"));
    theme::SetRole(*header_, "quiet");
    lines->addWidget(header_);
    auto* const content = new QHBoxLayout;
    content->setSpacing(theme::pageMargin);
    fraData_ = new QStackedWidget(body_);
    fraData_->setObjectName(QStringLiteral("fraData"));
    side_ = new QStackedWidget(body_);
    BuildPanels();
    content->addWidget(fraData_);
    content->addWidget(side_, 1);
    lines->addLayout(content, 1);
    right->addWidget(body_, 1);
    columns->addLayout(right, 1);
    setCentralWidget(central);
}

void MainWindow::AddPage(Panel panel, QWidget* page) {
    page->setProperty("panel", static_cast<int>(panel));
    fraData_->addWidget(page);
    panels_[panel] = page;
}

void MainWindow::AddPanel(Panel panel, PanelPage* page) {
    AddPage(panel, page);
    pages_.push_back(page);
}

void MainWindow::BuildPanels() {
    const auto plain = [this](Panel panel, const char* name, const QString& title) {
        auto* const page = new PanelPage(session_, QLatin1String(name), title);
        AddPanel(panel, page);
        return page;
    };
    PanelPage* const user = plain(Panel::userInformation, "fraData0", tr("User information"));
    user->AddFields(tr("Who calculates"), {Field::UserName, Field::CompanyName, Field::Address,
                                           Field::CityStateZip, Field::PhoneNumber});
    user->AddStretch();
    surface_ = new SurfacePanel(session_, QStringLiteral("fraData1"), tr("Surface"));
    AddPanel(Panel::surface, surface_);
    insulation_ = plain(Panel::insulation, "fraData2", tr("Insulation"));
    insulation_->AddStretch();
    layers_ = new LayersCard(session_, surface_);
    surface_->AddWidget(layers_);
    PanelPage* const fuel = plain(Panel::fuel, "fraData3", tr("Fuel"));
    fuel->AddFields(tr("Fuel"),
                    {Field::Fuel, Field::HeatContent, Field::FuelCost, Field::ConversionEfficiency});
    fuelNote_ = NewNotice(Severity::information,
                          tr("This calculation asks for no fuel. Heat Loss Per Year shows cost, savings and "
                             "emissions; the reports have a fuel of their own under Cost of energy."),
                          fuel);
    fuel->AddWidget(fuelNote_);
    fuel->AddStretch();
    AddPanel(Panel::project, new ProjectPanel(session_, QStringLiteral("fraData5"), tr("Project")));
    AddPanel(Panel::economics, new EconomicsPanel(session_, QStringLiteral("fraData6"), tr("Economics")));
    installedCost_ = new InstalledCostPanel(session_, QStringLiteral("fraData7"), tr("Installed cost"));
    AddPanel(Panel::installedCost, installedCost_);
    report_ = new ReportPanel(session_, QStringLiteral("fraData8"), tr("Report"));
    AddPanel(Panel::report, report_);

    const std::pair<Panel, MaterialKind> kinds[] = {{Panel::insulations, MaterialKind::insulation},
                                                    {Panel::baseMetals, MaterialKind::baseMetal},
                                                    {Panel::jackets, MaterialKind::jacket},
                                                    {Panel::fuels, MaterialKind::fuel}};
    int number = 9;
    for (const auto& [panel, kind] : kinds) {
        auto* const page =
            new MaterialsPanel(kind, QStringLiteral("fraData%1").arg(number++), session_, deletions_);
        AddPage(panel, page);
        materials_.push_back(page);
    }
    AddPage(Panel::guide, new GuidePage(session_.App().ProgramFolder(), this));
    AddPage(Panel::about, new AboutPage(session_, this));
    resultsSide_ = new QScrollArea(side_);
    resultsSide_->setObjectName(QStringLiteral("fraData4"));
    resultsSide_->setAccessibleName(tr("Results"));
    resultsSide_->setFrameShape(QFrame::NoFrame);
    resultsSide_->setWidgetResizable(true);
    resultsSide_->setFocusPolicy(Qt::NoFocus);
    results_ = new ResultsView(session_);
    results_->setProperty("role", QStringLiteral("page"));
    resultsSide_->setWidget(results_);
    resultsSide_->viewport()->setAutoFillBackground(false);
    side_->addWidget(resultsSide_);
    summary_ = new ReportSummary(session_, [this] { return installedCost_->Ticks().Choice(); });
    side_->addWidget(summary_);
}

void MainWindow::BuildStatus() {
    statusTime_ = new QLabel(this);
    statusAudit_ = new QLabel(this);
    statusBar()->addWidget(statusTime_);
    statusBar()->addPermanentWidget(statusAudit_);
    statusBar()->setSizeGripEnabled(false);
    statusBar()->setContentsMargins(theme::gap, 0, theme::gap, 0);
}

void MainWindow::Connect() {
    connect(rail_, &Rail::Chosen, this, [this](int category) { ShowPosition(FirstPanel(category)); });
    connect(strip_, &MenuStrip::ItemChosen, this, &MainWindow::ChooseItem);
    connect(strip_, &MenuStrip::Next, this, &MainWindow::GoNext);
    connect(strip_, &MenuStrip::Back, this, [this] { Step(PreviousPanel(position_)); });
    connect(strip_, &MenuStrip::Finish, this, &MainWindow::Finish);
    connect(strip_, &MenuStrip::ActionPressed, this, &MainWindow::Act);
    connect(strip_, &MenuStrip::UnitsChosen, this,
            [this](bool si) { SwitchUnits(si ? Units::si : Units::english); });
    connect(strip_, &MenuStrip::LiveChosen, this, [this](bool live) {
        session_.SetLive(live);
        strip_->ShowLive(live);
    });
    connect(&session_, &Session::JobReplaced, this, &MainWindow::RefreshAll);
    connect(&session_, &Session::JobOpened, this, [this] { ShowPosition(PositionOf(session_.TheJob())); });
    connect(&session_, &Session::CatalogueChanged, this, &MainWindow::RefreshAll);
    connect(&session_, &Session::FileChanged, this, &MainWindow::ShowTitle);
    connect(&session_, &Session::Calculated, this, [this] {
        ShowFindings();
        ShowStatus();
    });
    connect(&session_, &Session::Stale, this, &MainWindow::ShowStatus);
    connect(results_, &ResultsView::Said, this, [this](const QString& text) {
        statusBar()->showMessage(text, 5000);
        ShowStatus();
    });
    connect(reports_, &ReportCommands::Said, this,
            [this](const QString& text) { statusBar()->showMessage(text, 5000); });
    connect(&session_, &Session::Noted, this,
            [this](const QString& text) { statusBar()->showMessage(text, 8000); });
    strip_->ShowLive(session_.IsLive());
}

// Start-up and end
// ---------------------------------------------------------------------------------------------------------------

void MainWindow::LoadPictures() {
    imgBackground_->setPixmap(theme::CurrentScheme() == theme::Scheme::light
                                  ? pictures_.Named(QStringLiteral("colorback.jpg"))
                                  : QPixmap());
    imgBackground_->lower();
    rail_->ShowPictures();
    strip_->ShowPictures();
    setWindowIcon(QIcon(pictures_.Named(QStringLiteral("kaloria-48.png"))));
}

void MainWindow::StartUp() {
    try {
        LoadPictures();
        session_.App().LoadConfigurationFile();
        session_.App().BuildCostData();
        FillDropDowns();
        session_.StartNew();
    } catch (const std::exception& error) {
        messages_.Show(message::loadingForm);
        messages_.Log(error.what());
    }
    ShowPosition(PositionOf(session_.TheJob()));
    ShowTitle();
    ShowStatus();
    if (FieldEditor* const first = surface_->EditorOf(Field::ItemDescription)) {
        first->Control()->setFocus();
    }
}

void MainWindow::FillDropDowns() {
    try {
        RefreshAll();
    } catch (const std::exception& error) {
        messages_.Show(message::loadingDropdowns);
        messages_.Log(error.what());
    }
}

void MainWindow::Greet() {
    const StartUpChoices choices = ReadStartUpChoices(session_.Settings());
    if (choices.showDisclaimer) {
        windows::ShowDisclaimer(session_, this);
    }
    if (choices.firstRun) {
        ShowPanel(Panel::userInformation);
        messages_.Show(message::firstRun);
    }
    jobs_->OfferRecovery();
}

bool MainWindow::SaveRecordsElsewhere() {
    const QString path = files::AskSave(this, tr("Save As"), QStringLiteral("CorvaneConfig.xml"),
                                        tr("Configuration (*.xml)"), QStringLiteral("xml"));
    if (path.isEmpty()) {
        return false;
    }
    try {
        // The shipped records come from the file in the program folder, the user's from this run.
        ReplaceFile(files::FromQt(path), SavedConfigurationText(ReadFile(session_.App().ConfigurationPath(),
                                                                         XmlDocument::maxBytes),
                                                                session_.Records()));
        return true;
    } catch (const std::exception& error) {
        messages_.Show("The file could not be saved. " + std::string(error.what()));
        return false;
    }
}

bool MainWindow::SaveRecords() {
    while (const auto problem = session_.App().SaveConfigurationFile()) {
        if (!session_.RecordsEdited()) {
            messages_.Log(problem->text); // the file has what there is
            return true;
        }
        QMessageBox box(QMessageBox::NoIcon, QStringLiteral("Kaloria"),
                        tr("Your own materials and fuels could not be saved."),
                        QMessageBox::Retry | QMessageBox::Cancel, this);
        box.setObjectName(QStringLiteral("frmRecordsNotSaved"));
        box.setTextFormat(Qt::PlainText);
        box.setInformativeText(ToQt(problem->text));
        auto* const elsewhere = box.addButton(tr("Save &elsewhere..."), QMessageBox::ActionRole);
        auto* const drop = box.addButton(tr("&Leave without them"), QMessageBox::DestructiveRole);
        box.exec();
        if (box.clickedButton() == drop) {
            return true;
        }
        if (box.clickedButton() == elsewhere) {
            if (SaveRecordsElsewhere()) {
                return true;
            }
        } else if (box.standardButton(box.clickedButton()) != QMessageBox::Retry) {
            return false;
        }
    }
    return true;
}

void MainWindow::closeEvent(QCloseEvent* event) {
    layers_->FinishEditing();
    if (!jobs_->MayLeave() || !SaveRecords()) {
        event->ignore();
        return;
    }
    KeepGeometry();
    jobs_->End();
    event->accept();
    QApplication::closeAllWindows();
}

void MainWindow::KeepGeometry() {
    session_.Settings().Set(windowSection, geometryKey, saveGeometry().toBase64().toStdString());
}

void MainWindow::RestoreGeometry() {
    const std::string kept = session_.Settings().Get(windowSection, geometryKey);
    if (!kept.empty()) {
        restoreGeometry(QByteArray::fromBase64(QByteArray::fromStdString(kept)));
    }
}

// What is shown
// ---------------------------------------------------------------------------------------------------------------

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

// Navigation
// ---------------------------------------------------------------------------------------------------------------

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
    Act();
    Step(FinishPanel(position_.category));
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

void MainWindow::Act() {
    layers_->FinishEditing();
    if (MakesReport()) {
        if (const std::string_view problem = ProjectProblem(session_.TheJob()); !problem.empty()) {
            messages_.Show(problem);
            ShowPanel(Panel::project);
            return;
        }
        reports_->MakeReport(position_.category == 3);
    } else if (reports_->MakesTable()) {
        reports_->MakeTable();
    } else {
        CalculateNow();
    }
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

// Events
// ---------------------------------------------------------------------------------------------------------------

bool MainWindow::eventFilter(QObject* watched, QEvent* event) {
    if (watched == body_ && event->type() == QEvent::Resize) {
        Arrange();
    }
    return QMainWindow::eventFilter(watched, event);
}

void MainWindow::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::PaletteChange && rail_ != nullptr && strip_ != nullptr) {
        LoadPictures();
    }
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event) {
    const QList<QUrl> urls = event->mimeData()->urls();
    if (urls.size() == 1 &&
        urls.first().toLocalFile().endsWith(QStringLiteral(".kal"), Qt::CaseInsensitive)) {
        event->acceptProposedAction();
    }
}

void MainWindow::dropEvent(QDropEvent* event) {
    const QList<QUrl> urls = event->mimeData()->urls();
    layers_->FinishEditing();
    if (!urls.isEmpty() && jobs_->MayLeave()) {
        jobs_->OpenPath(urls.first().toLocalFile());
    }
}

} // namespace kaloria
