// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/compare/compare_grid.h"

#include "ui/theme.h"
#include "ui/two_line_header.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QPainter>

#include <algorithm>

namespace kaloria {

namespace {
constexpr int sideMargin = 10;
constexpr int rowMargin = 7;
constexpr int narrowestCase = 17; // in characters, so that larger type gets more room
constexpr int widestCase = 320;
constexpr int slack = 2; // of a text's measures
} // namespace

void CompareDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                            const QModelIndex& index) const {
    const theme::Colors& colors = theme::Current();
    const bool isTitle = index.data(CompareModel::titleRole).toBool();
    const bool isChosen = option.state.testFlag(QStyle::State_Selected) && !isTitle;
    const int side = index.data(Qt::TextAlignmentRole).toInt() & Qt::AlignHorizontal_Mask;
    const QString second = index.data(CompareModel::secondLineRole).toString();
    const QFont font = isTitle ? theme::BoldFont() : option.font;
    painter->save();
    painter->fillRect(option.rect, isTitle ? colors.background : isChosen ? colors.accentSoft : colors.panel);
    painter->setPen(colors.line);
    painter->drawLine(option.rect.bottomLeft(), option.rect.bottomRight());
    QRect place = option.rect.adjusted(sideMargin, 0, -sideMargin, 0);
    const QFontMetrics caption(theme::CaptionFont());
    const QFontMetrics metrics(font);
    if (!second.isEmpty()) {
        const int top = place.top() + (place.height() - metrics.height() - caption.height()) / 2;
        const QRect below(place.left(), top + metrics.height(), place.width(), caption.height());
        painter->setFont(theme::CaptionFont());
        painter->setPen(colors.quiet);
        painter->drawText(below, side | Qt::AlignVCenter,
                          caption.elidedText(second, Qt::ElideRight, below.width()));
        place = QRect(place.left(), top, place.width(), metrics.height());
    }
    painter->setFont(font);
    painter->setPen(index.data(Qt::ForegroundRole).value<QColor>());
    painter->drawText(place, side | Qt::AlignVCenter,
                      metrics.elidedText(index.data().toString(), Qt::ElideRight, place.width()));
    painter->restore();
}

CompareGrid::CompareGrid(QWidget* parent) : QTableView(parent) {
    setObjectName(QStringLiteral("flxCompare"));
    setAccessibleName(tr("Cases side by side"));
    model_ = new CompareModel(this);
    setModel(model_);
    setItemDelegate(new CompareDelegate(this));
    auto* const header = new TwoLineHeader(this);
    setHorizontalHeader(header);
    header->setSectionsClickable(true);
    verticalHeader()->hide();
    verticalHeader()->setMinimumSectionSize(1);
    setShowGrid(false);
    setSelectionBehavior(QAbstractItemView::SelectColumns);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    setTabKeyNavigation(false);
    connect(header, &QHeaderView::sectionPressed, this,
            [this](int column) { ChooseCase(column - CompareModel::firstCase); });
    connect(header, &QHeaderView::sectionDoubleClicked, this, &CompareGrid::HeadingPressed);
    connect(selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this] { Q_EMIT CaseChosen(Case()); });
}

void CompareGrid::Show(ComparisonTable table) {
    const int before = Case();
    const int count = static_cast<int>(table.cases.size());
    {
        const QSignalBlocker quiet(selectionModel());
        model_->Show(std::move(table));
    }
    FitRows();
    FitColumns();
    ChooseCase(std::clamp(before, count == 0 ? -1 : 0, count - 1));
    viewport()->update();
    horizontalHeader()->viewport()->update();
}

int CompareGrid::Case() const {
    return currentIndex().isValid() ? currentIndex().column() - CompareModel::firstCase : -1;
}

void CompareGrid::ChooseCase(int index) {
    if (index >= 0 && index + CompareModel::firstCase < model_->columnCount()) {
        setCurrentIndex(model_->index(std::max(1, currentIndex().row()), index + CompareModel::firstCase));
    }
    Q_EMIT CaseChosen(Case());
}

void CompareGrid::FitRows() {
    const int line = fontMetrics().height() + rowMargin;
    const int second = QFontMetrics(theme::CaptionFont()).height();
    clearSpans();
    for (int row = 0; row < model_->rowCount(); ++row) {
        setRowHeight(row, line + (model_->HasSecondLine(row) ? second : 0));
        if (model_->index(row, 0).data(CompareModel::titleRole).toBool()) {
            setSpan(row, 0, 1, model_->columnCount());
        }
    }
}

/// Labels and units as wide as they need, the rest for the cases in equal parts.
void CompareGrid::FitColumns() {
    const int cases = model_->columnCount() - CompareModel::firstCase;
    if (cases <= 0) {
        return;
    }
    int used = 0;
    for (int column = 0; column < CompareModel::firstCase; ++column) {
        int width = horizontalHeader()->sectionSizeHint(column);
        for (int row = 0; row < model_->rowCount(); ++row) {
            const QModelIndex index = model_->index(row, column);
            if (!index.data(CompareModel::titleRole).toBool()) {
                width = std::max(width, fontMetrics().horizontalAdvance(index.data().toString()) +
                                            2 * sideMargin + slack);
            }
        }
        setColumnWidth(column, width);
        used += width;
    }
    const int room = (viewport()->width() - used) / cases;
    const int narrowest = narrowestCase * std::max(7, fontMetrics().averageCharWidth());
    for (int i = 0; i < cases; ++i) {
        setColumnWidth(i + CompareModel::firstCase,
                       std::clamp(room, narrowest, std::max(narrowest, widestCase)));
    }
}

void CompareGrid::keyPressEvent(QKeyEvent* event) {
    if (event->matches(QKeySequence::Copy)) {
        Q_EMIT CopyAsked();
        return;
    }
    QTableView::keyPressEvent(event);
}

void CompareGrid::resizeEvent(QResizeEvent* event) {
    QTableView::resizeEvent(event);
    FitColumns();
}

void CompareGrid::changeEvent(QEvent* event) {
    QTableView::changeEvent(event);
    if (event->type() == QEvent::FontChange) {
        FitRows();
        FitColumns();
    }
}

} // namespace kaloria
