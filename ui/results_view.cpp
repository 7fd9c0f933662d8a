// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/results_view.h"

#include "application/grid_export.h"
#include "application/headline.h"
#include "ui/notice.h"
#include "ui/pictures/picture_row.h"
#include "ui/report_card.h"
#include "ui/results_delegate.h"
#include "ui/theme.h"
#include "ui/two_line_header.h"

#include <QApplication>
#include <QClipboard>
#include <QEvent>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QResizeEvent>
#include <QScrollBar>
#include <QTableView>
#include <QVBoxLayout>

#include <algorithm>

namespace kaloria {

namespace {

constexpr int rowHeight = 23;
constexpr int wideView = 980;
constexpr std::size_t longFigure = 15;

} // namespace

ResultsView::ResultsView(Session& session, QWidget* parent) : QWidget(parent), session_(session) {
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(theme::cardGap);
    stale_ = NewNotice(Severity::warning, QString(), this);
    stale_->setObjectName(QStringLiteral("lblStale"));
    stale_->hide();
    layout->addWidget(stale_);
    layout->addWidget(BuildFigures());
    pictures_ = new PictureRow(session_, this);
    layout->addWidget(pictures_);
    pictures_->hide(); // until there is an answer
    columns_ = new QBoxLayout(QBoxLayout::TopToBottom);
    columns_->setSpacing(theme::cardGap);
    auto* const answer = new QVBoxLayout;
    answer->setSpacing(theme::cardGap);
    columns_->addLayout(answer, 3);
    layout->addLayout(columns_);
    answer->addWidget(BuildGrid());
    notices_ = new QWidget(this);
    notices_->setObjectName(QStringLiteral("fraFindings"));
    auto* const notices = new QVBoxLayout(notices_);
    notices->setContentsMargins(0, 0, 0, 0);
    notices->setSpacing(6);
    answer->addWidget(notices_);
    answer->addStretch(1);
    report_ = new ReportCard(session_, this);
    columns_->addWidget(report_, 2, Qt::AlignTop);
    layout->addStretch(1);
    connect(report_, &ReportCard::Appended, this, &ResultsView::Said);
    ConnectPictures();
    connect(&session_, &Session::Calculated, this, &ResultsView::ShowResult);
    connect(&session_, &Session::Stale, this, &ResultsView::ShowStale);
    ShowStale();
}

/// Grid, section and plot point to the same case when one of them is pointed at or chosen.
void ResultsView::ConnectPictures() {
    connect(this, &ResultsView::RowChosen, pictures_, &PictureRow::ShowRow);
    grid_->setMouseTracking(true);
    grid_->viewport()->installEventFilter(this);
    connect(grid_, &QTableView::entered, pictures_,
            [this](const QModelIndex& index) { pictures_->PointAt(index.row()); });
    connect(pictures_, &PictureRow::RowPointedAt, grid_, [this](int row) {
        grid_->selectionModel()->select(model_.index(row, 0),
                                        QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    });
    connect(pictures_, &PictureRow::RowLeft, grid_, [this] {
        const QModelIndex current = grid_->currentIndex();
        grid_->selectionModel()->select(current,
                                        QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    });
    connect(pictures_, &PictureRow::RowChosen, grid_,
            [this](int row) { grid_->setCurrentIndex(model_.index(row, 0)); });
}

QWidget* ResultsView::BuildFigures() {
    auto* const row = new QWidget(this);
    row->setObjectName(QStringLiteral("fraFigures"));
    auto* const layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(10);
    for (FigureCard& figure : figures_) {
        figure.card = new QWidget(row);
        figure.card->setAttribute(Qt::WA_StyledBackground);
        theme::SetRole(*figure.card, "card");
        auto* const lines = new QVBoxLayout(figure.card);
        lines->setContentsMargins(12, 8, 8, 8);
        lines->setSpacing(2);
        figure.caption = new QLabel(figure.card);
        figure.caption->setFont(theme::CaptionFont());
        figure.caption->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
        theme::SetRole(*figure.caption, "quiet");
        figure.value = new QLabel(figure.card);
        figure.value->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
        figure.value->setTextInteractionFlags(Qt::TextSelectableByMouse);
        figure.value->setTextFormat(Qt::RichText);
        lines->addWidget(figure.caption);
        lines->addWidget(figure.value);
        layout->addWidget(figure.card, 1);
    }
    return row;
}

QWidget* ResultsView::BuildGrid() {
    auto* const card = new QWidget(this);
    card->setAttribute(Qt::WA_StyledBackground);
    theme::SetRole(*card, "card");
    auto* const layout = new QVBoxLayout(card);
    layout->setContentsMargins(6, 4, 6, 6);
    layout->setSpacing(0);
    layout->addWidget(BuildKeep());
    grid_ = new QTableView(card);
    grid_->setObjectName(QStringLiteral("flxResults"));
    grid_->setAccessibleName(tr("Results"));
    grid_->setModel(&model_);
    grid_->setItemDelegate(new ResultsDelegate(grid_));
    grid_->setHorizontalHeader(new TwoLineHeader(grid_));
    grid_->verticalHeader()->hide();
    grid_->verticalHeader()->setDefaultSectionSize(std::max(rowHeight, grid_->fontMetrics().height() + 7));
    grid_->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    grid_->setShowGrid(false);
    grid_->setSelectionBehavior(QAbstractItemView::SelectRows);
    grid_->setSelectionMode(QAbstractItemView::ExtendedSelection);
    grid_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    grid_->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    grid_->setTabKeyNavigation(false);
    grid_->installEventFilter(this);
    layout->addWidget(grid_);
    connect(grid_->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            [this](const QModelIndex& current) {
                if (current.isValid() && session_.IsCurrent()) {
                    ShowFigures(current.row());
                    Q_EMIT RowChosen(current.row());
                }
            });
    return card;
}

/// A line above the grid: keep this answer, compare those that are kept.
QWidget* ResultsView::BuildKeep() {
    auto* const line = new QWidget(this);
    auto* const layout = new QHBoxLayout(line);
    layout->setContentsMargins(theme::gap, 0, 0, 0);
    layout->setSpacing(2);
    auto* const title = new QLabel(tr("Results"), line);
    theme::SetRole(*title, "cardTitle");
    layout->addWidget(title);
    layout->addStretch(1);
    const auto add = [line, layout](const QString& text, const char* name, const QString& tip) {
        auto* const button = new QPushButton(text, line);
        button->setObjectName(QLatin1String(name));
        button->setFont(theme::CaptionFont());
        button->setToolTip(tip);
        button->setAccessibleName(tip);
        theme::SetRole(*button, "segment");
        layout->addWidget(button);
        return button;
    };
    auto* const keep = add(tr("Keep case"), "cmdKeepCase", tr("Keep this case for comparison (Ctrl+K)"));
    compare_ = add(tr("Compare..."), "cmdCompare", tr("Show the kept cases side by side (Ctrl+Shift+K)"));
    connect(keep, &QPushButton::clicked, this, &ResultsView::KeepAsked);
    connect(compare_, &QPushButton::clicked, this, &ResultsView::CompareAsked);
    return line;
}

void ResultsView::ShowKept(int count) {
    compare_->setText(count > 0 ? tr("Compare %1...").arg(count) : tr("Compare..."));
}

std::optional<std::size_t> ResultsView::ChosenRow() const {
    const int row = grid_->currentIndex().row();
    return row > 0 && row != model_.DesignRow() ? std::optional(static_cast<std::size_t>(row)) : std::nullopt;
}

void ResultsView::ShowResult() {
    const CalculationResult& result = session_.Result();
    if (!result.done) {
        ShowStale();
        return;
    }
    stale_->hide();
    const int before = grid_->currentIndex().row();
    const int designBefore = model_.DesignRow();
    model_.SetStale(false);
    model_.Show(result.grid);
    grid_->setEnabled(true);
    FitGrid();
    const auto headline = HeadlineRow(result);
    // A row that one has chosen stays chosen while one types; the design row goes with the answer.
    const bool followsDesign = before < 0 || before == designBefore || before >= model_.rowCount();
    if (followsDesign) {
        grid_->clearSelection();
        grid_->setCurrentIndex({});
    }
    ShowFigures(followsDesign ? static_cast<int>(headline.value_or(0)) : before);
    report_->Refresh();
    report_->show();
    ShowNotices();
    pictures_->show();
    Q_EMIT RowChosen(followsDesign ? static_cast<int>(headline.value_or(0)) : before);
}

void ResultsView::ShowFigures(int row) {
    const CalculationResult& result = session_.Result();
    const bool isFresh = session_.IsCurrent() && result.done && row >= 0 && row < model_.rowCount();
    const std::vector<HeadlineFigure> shown =
        isFresh ? HeadlineFigures(result, static_cast<std::size_t>(row)) : std::vector<HeadlineFigure>();
    for (std::size_t i = 0; i < figures_.size(); ++i) {
        FigureCard& card = figures_.at(i);
        const HeadlineFigure figure = i < shown.size() ? shown[i] : HeadlineFigure{};
        const bool isMet = figure.goal == HeadlineFigure::Goal::met;
        theme::SetRole(*card.card, isMet ? "metCard" : "card");
        // A long figure in smaller type is better than half a figure.
        QFont font = theme::FigureFont();
        if (figure.text.size() + figure.unit.size() > longFigure) {
            font.setPointSizeF(font.pointSizeF() * 0.75);
        }
        const QColor color = isMet ? theme::Current().met : theme::Current().text;
        card.caption->setText(ToQt(figure.caption));
        card.caption->setToolTip(ToQt(figure.caption));
        card.value->setText(
            i < shown.size()
                ? QStringLiteral("<span style='font-size:%1pt; font-weight:700; color:%2'>%3</span>"
                                 " <span style='font-size:%4pt; color:%5'>%6</span>")
                      .arg(font.pointSizeF())
                      .arg(color.name(), ToQt(figure.text).toHtmlEscaped())
                      .arg(theme::CaptionFont().pointSizeF())
                      .arg(theme::Current().quiet.name(), ToQt(figure.unit).toHtmlEscaped())
                : QStringLiteral("<span style='font-size:%1pt; color:%2'>–</span>")
                      .arg(font.pointSizeF())
                      .arg(theme::Current().quiet.name()));
        card.card->setAccessibleName(
            QStringLiteral("%1: %2 %3").arg(ToQt(figure.caption), ToQt(figure.text), ToQt(figure.unit)));
        card.card->setVisible(i < shown.size() || shown.empty());
    }
}

void ResultsView::ShowStale() {
    const CalculationResult& result = session_.Result();
    QStringList reasons;
    if (session_.IsCurrent() && !result.done) {
        for (const Finding& finding : result.findings) {
            if (finding.severity == Severity::error) {
                reasons << ToQt(finding.text);
            }
        }
    }
    if (!reasons.isEmpty()) {
        ShowNotice(*stale_, Severity::error, tr("No answer: %1").arg(reasons.join(u' ')));
    } else if (model_.rowCount() > 0) {
        ShowNotice(*stale_, Severity::warning,
                   tr("Inputs have changed; Calculate brings the answer up to date."));
    } else {
        ShowNotice(*stale_, Severity::information, tr("Calculate fills this page."));
    }
    stale_->show();
    model_.SetStale(true);
    grid_->setEnabled(false);
    ShowFigures(-1);
    pictures_->SetStale();
    report_->setVisible(false);
    ShowNotices();
}

void ResultsView::ShowNotices() {
    while (QLayoutItem* const item = notices_->layout()->takeAt(0)) {
        delete item->widget();
        delete item;
    }
    const CalculationResult& result = session_.Result();
    if (!session_.IsCurrent() || !result.done) {
        return;
    }
    bool isClean = true;
    for (const Finding& finding : result.findings) {
        notices_->layout()->addWidget(NewNotice(finding, notices_));
        isClean = isClean && finding.severity == Severity::information;
    }
    if (isClean && result.HasAnswer()) {
        notices_->layout()->addWidget(
            NewGoodNotice(tr("Checked: every row settled, every layer within its service range."), notices_));
    }
}

void ResultsView::FitGrid() {
    // The grid shows all of its rows; the page around it scrolls.
    QHeaderView& header = *grid_->horizontalHeader();
    header.setSectionResizeMode(QHeaderView::ResizeToContents);
    header.setStretchLastSection(false);
    int needed = 0;
    for (int column = 0; column < model_.columnCount(); ++column) {
        needed += header.sectionSizeHint(column);
    }
    const bool fits = needed < grid_->viewport()->width();
    header.setSectionResizeMode(fits ? QHeaderView::Stretch : QHeaderView::ResizeToContents);
    const int bar = fits ? 0 : grid_->horizontalScrollBar()->sizeHint().height();
    grid_->setFixedHeight(header.sizeHint().height() +
                          model_.rowCount() * grid_->verticalHeader()->defaultSectionSize() + bar + 2);
}

void ResultsView::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    // In a wide window the words stand beside the figures.
    const bool isWide = width() >= wideView;
    columns_->setDirection(isWide ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
    columns_->setAlignment(report_, isWide ? Qt::AlignTop : Qt::Alignment());
    report_->SetColumns(isWide ? 1 : 2);
}

void ResultsView::CopyGrid() const { QApplication::clipboard()->setText(ToQt(GridAsTabText(model_.Grid()))); }

bool ResultsView::eventFilter(QObject* watched, QEvent* event) {
    if (watched == grid_ && event->type() == QEvent::KeyPress &&
        static_cast<QKeyEvent*>(event)->matches(QKeySequence::Copy)) {
        CopyGrid();
        Q_EMIT Said(tr("Results copied"));
        return true;
    }
    if (watched == grid_ && event->type() == QEvent::Resize &&
        static_cast<QResizeEvent*>(event)->oldSize().width() !=
            static_cast<QResizeEvent*>(event)->size().width()) {
        FitGrid();
    }
    if (watched == grid_->viewport() && event->type() == QEvent::Leave) {
        pictures_->PointAway();
    }
    return QWidget::eventFilter(watched, event);
}

} // namespace kaloria
