// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/compare/compare_window.h"

#include "application/comparison_plots.h"
#include "ui/compare/compare_commands.h"
#include "ui/compare/compare_grid.h"
#include "ui/field_card.h"
#include "ui/file_dialogs.h"
#include "ui/notice.h"
#include "ui/pictures/plot_view.h"
#include "ui/theme.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSplitter>
#include <QVBoxLayout>

#include <algorithm>

namespace kaloria {

namespace {
constexpr int plotHeight = 200;
constexpr int plotLines = 14; // of text, for the title of the axis
} // namespace

CompareWindow::CompareWindow(CompareCommands& commands, QWidget* parent)
    : QDialog(parent, Qt::Window), commands_(commands) {
    setObjectName(QStringLiteral("frmCompare"));
    setWindowTitle(tr("Compare cases – Kaloria"));
    setModal(false);
    setMinimumSize(960, 620);
    resize(1180, 760);
    auto* const page = new QVBoxLayout(this);
    page->setContentsMargins(theme::pageMargin, 12, theme::pageMargin, theme::pageMargin);
    page->setSpacing(theme::cardGap);
    BuildHead(*page);
    BuildBody(*page);
    connect(&commands_, &CompareCommands::Changed, this, [this] {
        if (isVisible()) {
            Refresh();
        }
    });
    connect(grid_, &CompareGrid::CaseChosen, this, &CompareWindow::ShowCase);
    connect(grid_, &CompareGrid::CopyAsked, copy_, &QPushButton::click);
    connect(grid_, &CompareGrid::HeadingPressed, name_, [this] {
        name_->setFocus();
        name_->selectAll();
    });
}

CompareWindow::~CompareWindow() {
    name_->blockSignals(true); // a name that loses the cursor by the end of the program has no say
}

QPushButton* CompareWindow::Button(const QString& text, const char* name, const QString& tip) {
    auto* const button = new QPushButton(text, this);
    button->setObjectName(QLatin1String(name));
    button->setToolTip(tip);
    button->setAccessibleName(tip);
    button->setAutoDefault(false); // Enter belongs to the name of the case
    return button;
}

void CompareWindow::BuildHead(QVBoxLayout& page) {
    auto* const head = new QHBoxLayout;
    head->setSpacing(theme::gap);
    auto* const title = new QLabel(tr("Cases side by side"), this);
    title->setFont(theme::HeadingFont());
    count_ = new QLabel(this);
    count_->setObjectName(QStringLiteral("lblCompareCount"));
    theme::SetRole(*count_, "quiet");
    keep_ = Button(tr("&Keep current case"), "cmdCompareKeep",
                   tr("Keep the case of the main window as it is now (Ctrl+K)"));
    keep_->setShortcut(Qt::CTRL | Qt::Key_K);
    keep_->setText(tr("&Keep current case"));
    copy_ = Button(tr("&Copy"), "cmdCompareCopy", tr("Copy the table, to be pasted into a spreadsheet"));
    export_ = Button(tr("&Export..."), "cmdCompareExport", tr("Write the table as a workbook or CSV"));
    head->addWidget(title);
    head->addWidget(count_);
    head->addStretch(1);
    for (QPushButton* const button : {keep_, copy_, export_}) {
        head->addWidget(button);
    }
    page.addLayout(head);
    connect(keep_, &QPushButton::clicked, &commands_, &CompareCommands::Keep);
    connect(copy_, &QPushButton::clicked, &commands_, &CompareCommands::Copy);
    connect(export_, &QPushButton::clicked, this, &CompareWindow::Export);
}

void CompareWindow::BuildBody(QVBoxLayout& page) {
    empty_ =
        new QLabel(tr("No case is kept yet.\n\nCalculate a case in the main window and press Keep case "
                      "(Ctrl+K). Change an input there and keep the next:\nup to %1 cases stand here side "
                      "by side, with the inputs that differ, their results and their curves.")
                       .arg(mostKeptCases),
                   this);
    empty_->setObjectName(QStringLiteral("lblCompareEmpty"));
    empty_->setAlignment(Qt::AlignCenter);
    empty_->setWordWrap(true);
    theme::SetRole(*empty_, "quiet");
    page.addWidget(empty_, 1);
    body_ = new QSplitter(Qt::Vertical, this);
    body_->setChildrenCollapsible(false);
    body_->setHandleWidth(theme::cardGap);
    body_->addWidget(BuildTable());
    body_->addWidget(BuildPlots());
    body_->setStretchFactor(0, 3);
    body_->setStretchFactor(1, 2);
    page.addWidget(body_, 1);
}

QWidget* CompareWindow::BuildTable() {
    auto* const card = new QWidget(this);
    card->setAttribute(Qt::WA_StyledBackground);
    theme::SetRole(*card, "card");
    auto* const lines = new QVBoxLayout(card);
    lines->setContentsMargins(6, 6, 6, 8);
    grid_ = new CompareGrid(card);
    lines->addWidget(grid_, 1);
    notice_ = NewNotice(Severity::error, QString(), card);
    notice_->setObjectName(QStringLiteral("lblCompareNotice"));
    lines->addWidget(notice_);
    auto* const bar = new QHBoxLayout;
    bar->setContentsMargins(6, 0, 6, 0);
    bar->setSpacing(theme::gap);
    auto* const label = new QLabel(tr("Case &name:"), card);
    name_ = new QLineEdit(card);
    name_->setObjectName(QStringLiteral("txtCaseName"));
    name_->setAccessibleName(tr("Name of the chosen case"));
    name_->setToolTip(tr("Name of the chosen case; a click into a column chooses another"));
    name_->setMaxLength(static_cast<int>(longestCaseName));
    label->setBuddy(name_);
    left_ = Button(tr("‹ &Left"), "cmdCaseLeft",
                   tr("Move the case to the left; the first is the one that the "
                      "others differ from"));
    right_ = Button(tr("&Right ›"), "cmdCaseRight", tr("Move the case to the right"));
    auto* const open =
        Button(tr("&Open this case"), "cmdCaseOpen", tr("Put the inputs of this case into the main window"));
    auto* const remove = Button(tr("Re&move"), "cmdCaseRemove", tr("Do not keep this case any more"));
    bar->addWidget(label);
    bar->addWidget(name_, 1);
    for (QPushButton* const button : {left_, right_, open, remove}) {
        bar->addWidget(button);
    }
    lines->addLayout(bar);
    const auto inHand = [this] { return static_cast<std::size_t>(grid_->Case()); };
    connect(name_, &QLineEdit::editingFinished, this, &CompareWindow::RenameCase);
    connect(left_, &QPushButton::clicked, this, [this] { MoveCase(-1); });
    connect(right_, &QPushButton::clicked, this, [this] { MoveCase(1); });
    connect(open, &QPushButton::clicked, this, [this, inHand] { commands_.Open(inHand()); });
    connect(remove, &QPushButton::clicked, this, [this, inHand] { commands_.Remove(inHand()); });
    return card;
}

QWidget* CompareWindow::BuildPlots() {
    auto* const row = new QWidget(this);
    auto* const layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(theme::cardGap);
    const auto add = [this, row, layout](const QString& title, const char* name) {
        auto* const card = new Card(title, row);
        auto* const plot = new PlotView(card);
        plot->setObjectName(QLatin1String(name));
        plot->setMinimumHeight(std::max(plotHeight, plotLines * fontMetrics().height()));
        card->Content()->addWidget(plot, 1);
        layout->addWidget(card, 1);
        return std::pair(card, plot);
    };
    const auto [flowCard, flow] = add(tr("Heat flow"), "picCompareFlow");
    const auto [surfaceCard, surface] = add(tr("Surface temperature"), "picCompareSurface");
    static_cast<void>(surfaceCard);
    flow_ = flow;
    flowTitle_ = flowCard->Title();
    surface_ = surface;
    return row;
}

void CompareWindow::Refresh() {
    const auto& answers = commands_.Answers();
    const bool isEmpty = answers.empty();
    const bool isSI = commands_.TheSession().TheJob().UnitsInForce() == Units::si;
    count_->setText(isEmpty ? QString()
                            : tr("%1 of %2, in %3 units")
                                  .arg(answers.size())
                                  .arg(mostKeptCases)
                                  .arg(isSI ? tr("SI") : tr("English")));
    empty_->setVisible(isEmpty);
    body_->setVisible(!isEmpty);
    copy_->setEnabled(!isEmpty);
    export_->setEnabled(!isEmpty);
    keep_->setEnabled(!commands_.Kept().IsFull());
    grid_->Show(commands_.Table());
    PlotModel flow = ComparedFlowPlot(answers);
    flowTitle_->setText(ToQt(flow.title));
    flow_->Show(std::move(flow));
    surface_->Show(ComparedSurfacePlot(answers));
    ShowReasons();
}

void CompareWindow::ShowCase(int index) {
    const auto& cases = commands_.Kept().Cases();
    const bool isThere = index >= 0 && index < static_cast<int>(cases.size());
    name_->setText(isThere ? ToQt(cases[static_cast<std::size_t>(index)].name) : QString());
    left_->setEnabled(index > 0);
    right_->setEnabled(isThere && index + 1 < static_cast<int>(cases.size()));
}

void CompareWindow::ShowReasons() {
    QStringList reasons;
    for (const ComparedCase& compared : commands_.Answers()) {
        if (!compared.HasFigures()) {
            reasons << tr("\"%1\" has no answer: %2").arg(ToQt(compared.name), ToQt(compared.reason));
        }
    }
    notice_->setVisible(!reasons.isEmpty());
    ShowNotice(*notice_, Severity::error, reasons.join(u'\n'));
}

void CompareWindow::RenameCase() {
    const int index = grid_->Case();
    const auto& cases = commands_.Kept().Cases();
    if (index < 0 || index >= static_cast<int>(cases.size()) ||
        FromQt(name_->text()) == cases[static_cast<std::size_t>(index)].name) {
        return;
    }
    const QString refusal = commands_.Rename(static_cast<std::size_t>(index), name_->text());
    if (!refusal.isEmpty()) {
        ShowCase(index);
        ShowNotice(*notice_, Severity::error, refusal);
        notice_->show();
    }
}

void CompareWindow::MoveCase(int by) {
    const int from = grid_->Case();
    const int to = from + by;
    if (from >= 0 && to >= 0 && to < static_cast<int>(commands_.Kept().Cases().size())) {
        commands_.Move(static_cast<std::size_t>(from), static_cast<std::size_t>(to));
        grid_->ChooseCase(to);
    }
}

void CompareWindow::Export() {
    const QString path =
        files::AskSave(this, tr("Export comparison"), QStringLiteral("Comparison.xlsx"),
                       tr("Workbook (*.xlsx);;Comma-separated values (*.csv)"), QStringLiteral("xlsx"));
    if (!path.isEmpty()) {
        commands_.Export(path);
    }
}

void CompareWindow::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    Refresh();
    grid_->setFocus();
}

void CompareWindow::changeEvent(QEvent* event) {
    QDialog::changeEvent(event);
    if (event->type() == QEvent::PaletteChange && grid_ != nullptr) {
        grid_->viewport()->update();
    }
}

} // namespace kaloria
