// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/pictures/plot_view.h"

#include "data/number_format.h"
#include "ui/pictures/picture_export.h"
#include "ui/pictures/plot_library.h"
#include "ui/pictures/plot_painter.h"
#include "ui/theme.h"

#include <QContextMenuEvent>
#include <QLabel>
#include <QMenu>
#include <QPointer>
#include <QToolTip>
#include <QVBoxLayout>
namespace kaloria {

namespace {
constexpr double reach = 12; // of the pointer, in pixels
}

PlotView::PlotView(QWidget* parent) : QWidget(parent) {
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    plot_ = new QCustomPlot(this);
    plot_->setObjectName(QStringLiteral("picPlot"));
    plot_->setAccessibleName(tr("Plot"));
    plot_->setLocale(QLocale::c());
    plot_->setFocusPolicy(Qt::TabFocus);
    plot_->setContextMenuPolicy(Qt::NoContextMenu); // this widget's own
    plot_->setMouseTracking(true);
    plot_->installEventFilter(this);
    reason_ = new QLabel(this);
    reason_->setAlignment(Qt::AlignCenter);
    reason_->setWordWrap(true);
    theme::SetRole(*reason_, "quiet");
    note_ = new QLabel(this);
    note_->setFont(theme::CaptionFont());
    note_->setWordWrap(true);
    note_->setTextFormat(Qt::RichText);
    theme::SetRole(*note_, "quiet");
    layout->addWidget(plot_, 1);
    layout->addWidget(reason_, 1);
    layout->addWidget(note_);
    reason_->hide();
    note_->hide();
}

void PlotView::Show(PlotModel model) {
    model_ = std::move(model);
    isStale_ = false;
    Draw();
}

void PlotView::SetStale(bool stale) {
    if (isStale_ != stale) {
        isStale_ = stale;
        Draw();
    }
}

void PlotView::Draw() {
    isDrawing_ = true;
    plot_->setAccessibleName(model_.title.empty() ? tr("Plot") : ToQt(model_.title));
    plot_->setAccessibleDescription(isStale_ ? tr("Out of date") : ToQt(model_.description));
    plot_->setVisible(!model_.IsEmpty());
    reason_->setVisible(model_.IsEmpty());
    reason_->setText(isStale_ ? QString() : ToQt(model_.reason));
    const QString note = NoteText();
    note_->setVisible(!note.isEmpty() && !isStale_ && !model_.IsEmpty());
    note_->setText(note);
    PlotPainter(*plot_, model_, isStale_).Draw();
    plot_->replot(QCustomPlot::rpQueuedReplot);
    isDrawing_ = false;
}

/// The note, below what the two sides of bars stand for.
QString PlotView::NoteText() const {
    const QString note = ToQt(model_.note).toHtmlEscaped();
    if (model_.bars.empty()) {
        return note;
    }
    const theme::Colors& colors = theme::Current();
    const PlotBars& bars = model_.bars.front();
    return QStringLiteral("<span style='color:%1'>■</span> %2 &nbsp; <span style='color:%3'>■</span> %4. %5")
        .arg(colors.second.name(), ToQt(bars.lowName).toHtmlEscaped(), colors.accent.name(),
             ToQt(bars.highName).toHtmlEscaped(), note);
}

picture::Drawing PlotView::AsDrawing() const {
    const QSize size = plot_->size();
    return {size, ToQt(model_.title), [kept = QPointer(plot_), size](QPaintDevice& device) {
                if (QCustomPlot* const plot = kept.data()) {
                    QCPPainter painter(&device);
                    painter.setMode(QCPPainter::pmVectorized);
                    plot->toPainter(&painter, size.width(), size.height());
                }
            }};
}

std::optional<PlotView::Hit> PlotView::HitAt(const QPointF& place) const {
    std::optional<Hit> hit;
    double nearest = reach;
    for (int i = 0; i < plot_->graphCount() && i < static_cast<int>(model_.curves.size()); ++i) {
        const PlotCurve& curve = model_.curves[static_cast<std::size_t>(i)];
        const QCPGraph& graph = *plot_->graph(i);
        for (const PlotPoint& point : curve.points) {
            const QPointF at(graph.keyAxis()->coordToPixel(point.x),
                             graph.valueAxis()->coordToPixel(point.y));
            const double distance = QLineF(at, place).length();
            if (distance < nearest) {
                nearest = distance;
                const PlotAxis& axis = curve.onRight && model_.right ? *model_.right : model_.left;
                hit = Hit{point.row,
                          tr("%1\n%2: %3\n%4: %5")
                              .arg(ToQt(curve.name), ToQt(model_.x.title),
                                   ToQt(FormatNumber(point.x, NumberFormat::hundredths)), ToQt(axis.title),
                                   ToQt(FormatNumber(point.y, NumberFormat::thousandths)))};
            }
        }
    }
    return hit;
}

/// Between Draw and the painting that it asks for nothing has a place yet.
bool PlotView::IsLaidOut() const {
    return plot_->axisRectCount() > 0 && plot_->axisRect()->width() > 1 && plot_->axisRect()->height() > 1;
}

void PlotView::PointAt(const QPointF& place, const QPoint& global) {
    if (!IsLaidOut()) {
        return;
    }
    const auto hit = isStale_ ? std::nullopt : HitAt(place);
    if (!hit) {
        QToolTip::hideText();
        Leave();
        return;
    }
    QToolTip::showText(global, hit->text, plot_);
    if (hit->row && hit->row != pointedAt_) {
        pointedAt_ = hit->row;
        Q_EMIT RowPointedAt(static_cast<int>(*hit->row));
    }
}

void PlotView::Leave() {
    if (pointedAt_) {
        pointedAt_.reset();
        Q_EMIT RowLeft();
    }
}

bool PlotView::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::MouseMove) {
        const auto* const mouse = static_cast<QMouseEvent*>(event);
        PointAt(mouse->position(), mouse->globalPosition().toPoint());
    } else if (event->type() == QEvent::MouseButtonPress) {
        const auto* const mouse = static_cast<QMouseEvent*>(event);
        const auto hit = isStale_ || !IsLaidOut() || mouse->button() != Qt::LeftButton
                             ? std::nullopt
                             : HitAt(mouse->position());
        if (hit && hit->row) {
            Q_EMIT RowChosen(static_cast<int>(*hit->row));
        }
    } else if (event->type() == QEvent::Leave) {
        Leave();
    }
    return QWidget::eventFilter(watched, event);
}

void PlotView::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (plot_ != nullptr && !isDrawing_ &&
        (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange)) {
        Draw();
    }
}

void PlotView::contextMenuEvent(QContextMenuEvent* event) {
    if (isStale_ || model_.IsEmpty()) {
        return;
    }
    QMenu menu(this);
    picture::AddActions(menu, *this, [this] { return AsDrawing(); });
    menu.exec(event->globalPos());
}

} // namespace kaloria
