// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/main_window.h"

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

#include <QDragEnterEvent>
#include <QLabel>
#include <QMimeData>
#include <QScrollArea>
#include <QStackedWidget>
#include <QStatusBar>
#include <QVBoxLayout>

namespace kaloria {

namespace {

constexpr QSize smallest(1024, 700);
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
