// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/pictures/plot_painter.h"

#include "ui/pictures/plot_library.h"
#include "ui/theme.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace kaloria {

namespace {

constexpr double dotSize = 5;
constexpr double lineWidth = 1.8;
constexpr double room = 0.06;     // of a range, left free at its ends
constexpr double barWidth = 0.36; // of the distance from bar to bar
constexpr int fewTicks = 4;
constexpr double million = 1e6;
constexpr double ringSize = 12;

/// A span of values that grows.
struct Span {
    double low = std::numeric_limits<double>::infinity();
    double high = -std::numeric_limits<double>::infinity();
    void Take(double value) {
        low = std::min(low, value);
        high = std::max(high, value);
    }
    [[nodiscard]] bool IsEmpty() const { return low > high; }
};

/// With room at the ends, but none on the far side of a zero that the axis starts from.
QCPRange RangeOf(Span span, bool fromZero) {
    if (span.IsEmpty()) {
        return {0, 1};
    }
    if (fromZero) {
        span.Take(0);
    }
    double size = span.high - span.low;
    if (size <= 0) {
        size = std::max(1.0, std::abs(span.high));
    }
    const bool startsAtZero = fromZero && span.low == 0;
    const bool endsAtZero = fromZero && span.high == 0 && !startsAtZero;
    return {span.low - (startsAtZero ? 0 : room * size), span.high + (endsAtZero ? 0 : room * size)};
}

/// Ticks of large numbers, which the title counts in millions.
class MillionsTicker final : public QCPAxisTicker {
protected:
    QString getTickLabel(double tick, const QLocale& locale, QChar formatChar, int precision) override {
        return QCPAxisTicker::getTickLabel(tick / million, locale, formatChar, precision);
    }
};

/// "Heat Loss, BTU/ft/yr" as "Heat Loss, 10⁶ BTU/ft/yr".
QString InMillions(QString title) {
    const QString mark = QStringLiteral(", ");
    const auto unit = title.lastIndexOf(mark);
    return unit < 0 ? title + QStringLiteral(", 10⁶")
                    : title.insert(unit + mark.size(), QStringLiteral("10⁶ "));
}

/// Seven figures and more would stand as "1.5e+06".
void CountLargeInMillions(QCPAxis& axis) {
    if (std::max(std::abs(axis.range().lower), std::abs(axis.range().upper)) < million) {
        return;
    }
    const auto ticker = QSharedPointer<MillionsTicker>::create();
    ticker->setTickCount(axis.ticker()->tickCount());
    axis.setTicker(ticker);
    axis.setLabel(InMillions(axis.label()));
}

Qt::PenStyle PenStyleOf(int style) {
    constexpr std::array<Qt::PenStyle, 5> styles{Qt::SolidLine, Qt::DashLine, Qt::DotLine, Qt::DashDotLine,
                                                 Qt::DashDotDotLine};
    return styles.at(static_cast<std::size_t>(style) % styles.size());
}

/// Shapes that are told apart without their colour.
QCPScatterStyle MarkerOf(const PlotCurve& curve, const QColor& color) {
    using Style = QCPScatterStyle;
    constexpr std::array<Style::ScatterShape, 6> shapes{Style::ssCircle,           Style::ssSquare,
                                                        Style::ssTriangle,         Style::ssDiamond,
                                                        Style::ssTriangleInverted, Style::ssCross};
    if (curve.ring) {
        return {Style::ssCircle, QPen(color, lineWidth), Qt::NoBrush, ringSize};
    }
    const auto shape = shapes.at(static_cast<std::size_t>(curve.marker) % shapes.size());
    return {shape, QPen(color), QBrush(color), curve.marker == 0 ? dotSize : dotSize + 1};
}

} // namespace

PlotPainter::PlotPainter(QCustomPlot& plot, const PlotModel& model, bool stale)
    : plot_(plot), model_(model), isStale_(stale) {}

QColor PlotPainter::ColorOf(PlotColor color) const {
    const theme::Colors& colors = theme::Current();
    if (isStale_) {
        return colors.line;
    }
    switch (color) {
    case PlotColor::accent:
        return colors.accent;
    case PlotColor::second:
        return colors.second;
    case PlotColor::quiet:
        break;
    }
    return colors.quiet;
}

/// Ticks and title of an axis have the colour of its curves, when they have one colour.
QColor PlotPainter::ColorOfAxis(bool isRight) const {
    std::optional<PlotColor> color;
    for (const PlotCurve& curve : model_.curves) {
        if (curve.onRight == isRight && curve.color != PlotColor::quiet) {
            if (color && *color != curve.color) {
                return theme::Current().quiet;
            }
            color = curve.color;
        }
    }
    return color && model_.right ? ColorOf(*color) : theme::Current().quiet;
}

void PlotPainter::Draw() {
    plot_.clearPlottables();
    plot_.clearItems();
    plot_.plotLayout()->clear();
    plot_.legend = nullptr; // went with the layout
    plot_.setAutoAddPlottableToLegend(false);
    plot_.setBackground(theme::Current().panel);
    plot_.plotLayout()->setRowSpacing(0);
    if (!model_.bars.empty()) {
        DrawBars();
    } else if (!model_.curves.empty()) {
        DrawCurves();
    }
}

QCPAxisRect* PlotPainter::AddRect(int row, int column) {
    auto* const rect = new QCPAxisRect(&plot_, true);
    plot_.plotLayout()->addElement(row, column, rect);
    for (QCPAxis* const axis : rect->axes()) {
        axis->setLayer(QStringLiteral("axes"));
        axis->grid()->setLayer(QStringLiteral("grid"));
    }
    rect->setMinimumMargins({2, 6, 6, 2});
    return rect;
}

void PlotPainter::Dress(QCPAxis& axis, const QColor& color, const std::string& title) const {
    const theme::Colors& colors = theme::Current();
    axis.setVisible(true);
    axis.setLabel(ToQt(title));
    axis.setLabelFont(theme::CaptionFont());
    axis.setTickLabelFont(theme::CaptionFont());
    axis.setLabelColor(color);
    axis.setTickLabelColor(color);
    axis.setTickLabels(!isStale_);
    axis.setNumberFormat(QStringLiteral("g"));
    axis.setNumberPrecision(6);
    axis.setBasePen(axis.orientation() == Qt::Horizontal ? QPen(colors.line) : QPen(Qt::NoPen));
    axis.setTickPen(Qt::NoPen);
    axis.setSubTickPen(Qt::NoPen);
    axis.setTickLength(0, 0);
    axis.setTickLabelPadding(4);
    axis.setLabelPadding(2);
    axis.ticker()->setTickCount(fewTicks);
    axis.grid()->setPen(QPen(colors.line, 1));
    axis.grid()->setZeroLinePen(QPen(colors.line, 1));
    axis.grid()->setSubGridVisible(false);
}

// Curves
// ---------------------------------------------------------------------------------------------------------------

void PlotPainter::DrawCurves() {
    QCPLegend* const legend = NeedsLegend() ? AddLegend() : nullptr;
    QCPAxisRect* const rect = AddRect(legend != nullptr ? 1 : 0, 0);
    const bool hasRight = model_.right && std::any_of(model_.curves.begin(), model_.curves.end(),
                                                      [](const PlotCurve& curve) { return curve.onRight; });
    Dress(*rect->axis(QCPAxis::atBottom), theme::Current().quiet, model_.x.title);
    Dress(*rect->axis(QCPAxis::atLeft), ColorOfAxis(false), model_.left.title);
    rect->axis(QCPAxis::atBottom)->grid()->setVisible(false);
    rect->axis(QCPAxis::atRight)->setVisible(false);
    if (hasRight) {
        Dress(*rect->axis(QCPAxis::atRight), ColorOfAxis(true), model_.right->title);
        rect->axis(QCPAxis::atRight)->grid()->setVisible(false);
    }
    for (const PlotCurve& curve : model_.curves) {
        AddCurve(*rect, curve);
    }
    SetRanges(*rect);
    for (const PlotMark& mark : model_.marks) {
        AddMark(*rect, mark);
    }
    for (int i = 0; legend != nullptr && i < plot_.graphCount(); ++i) {
        const PlotCurve& curve = model_.curves.at(static_cast<std::size_t>(i));
        if (curve.named && CurvesOn(curve.onRight) > 1) {
            plot_.graph(i)->addToLegend(legend);
        }
    }
}

void PlotPainter::AddCurve(QCPAxisRect& rect, const PlotCurve& curve) {
    QCPGraph* const graph =
        plot_.addGraph(rect.axis(QCPAxis::atBottom),
                       rect.axis(curve.onRight && model_.right ? QCPAxis::atRight : QCPAxis::atLeft));
    const QColor color = ColorOf(curve.color);
    graph->setName(ToQt(curve.name));
    graph->setPen(QPen(color, lineWidth, PenStyleOf(curve.style)));
    graph->setLineStyle(curve.line ? QCPGraph::lsLine : QCPGraph::lsNone);
    if (curve.dots) {
        graph->setScatterStyle(MarkerOf(curve, color));
    }
    QVector<double> x;
    QVector<double> y;
    for (const PlotPoint& point : curve.points) {
        x << point.x;
        y << point.y;
    }
    graph->setData(x, y);
}

/// Names stand above the plot when an axis has several curves; a single one is named by its axis.
int PlotPainter::CurvesOn(bool isRight) const {
    return static_cast<int>(
        std::count_if(model_.curves.begin(), model_.curves.end(),
                      [isRight](const PlotCurve& curve) { return curve.named && curve.onRight == isRight; }));
}

bool PlotPainter::NeedsLegend() const { return !isStale_ && (CurvesOn(false) > 1 || CurvesOn(true) > 1); }

QCPLegend* PlotPainter::AddLegend() {
    auto* const legend = new QCPLegend;
    plot_.plotLayout()->addElement(0, 0, legend);
    legend->setLayer(QStringLiteral("legend"));
    legend->setFillOrder(QCPLegend::foColumnsFirst);
    legend->setBorderPen(Qt::NoPen);
    legend->setBrush(Qt::NoBrush);
    legend->setFont(theme::CaptionFont());
    legend->setTextColor(theme::Current().quiet);
    legend->setIconSize(16, 8);
    legend->setMargins({0, 0, 0, 0});
    legend->setColumnSpacing(8);
    legend->setRowSpacing(0);
    legend->setWrap(model_.namesAcross);
    plot_.plotLayout()->setRowStretchFactor(0, 0.001); // as high as its words
    return legend;
}

void PlotPainter::SetRanges(QCPAxisRect& rect) {
    Span x;
    Span y[2];
    for (const PlotCurve& curve : model_.curves) {
        for (const PlotPoint& point : curve.points) {
            x.Take(point.x);
            y[curve.onRight && model_.right ? 1 : 0].Take(point.y);
        }
    }
    // A limit near the curve belongs to the picture, a far one would flatten it.
    for (const PlotMark& mark : model_.marks) {
        Span& span = y[mark.onRight && model_.right ? 1 : 0];
        if (mark.kind == PlotMark::Kind::limit && !span.IsEmpty()) {
            const double size = span.high - span.low;
            if (mark.value > span.low - size && mark.value < span.high + size) {
                span.Take(mark.value);
            }
        }
    }
    rect.axis(QCPAxis::atBottom)->setRange(RangeOf(x, model_.x.fromZero));
    rect.axis(QCPAxis::atLeft)->setRange(RangeOf(y[0], model_.left.fromZero));
    rect.axis(QCPAxis::atRight)->setRange(RangeOf(y[1], model_.right && model_.right->fromZero));
    CountLargeInMillions(*rect.axis(QCPAxis::atLeft));
    CountLargeInMillions(*rect.axis(QCPAxis::atRight));
}

void PlotPainter::AddMark(QCPAxisRect& rect, const PlotMark& mark) {
    if (isStale_) {
        return;
    }
    const bool isLimit = mark.kind == PlotMark::Kind::limit;
    QCPAxis& axis = isLimit ? *rect.axis(mark.onRight && model_.right ? QCPAxis::atRight : QCPAxis::atLeft)
                            : *rect.axis(QCPAxis::atBottom);
    const theme::Colors& colors = theme::Current();
    const bool isChosen = mark.kind == PlotMark::Kind::chosen;
    const QColor color =
        isLimit ? (mark.onRight ? colors.second : colors.accent) : (isChosen ? colors.text : colors.line);
    const bool isOutside = !axis.range().contains(mark.value);
    if (!isOutside) {
        auto* const line = new QCPItemLine(&plot_);
        line->setClipAxisRect(&rect);
        line->setPen(QPen(color, 1.2, isLimit ? Qt::DashLine : isChosen ? Qt::DotLine : Qt::SolidLine));
        for (QCPItemPosition* const end : {line->start, line->end}) {
            const double far = end == line->start ? 0 : 1;
            end->setAxisRect(&rect);
            end->setAxes(rect.axis(QCPAxis::atBottom), isLimit ? &axis : rect.axis(QCPAxis::atLeft));
            end->setTypeX(isLimit ? QCPItemPosition::ptAxisRectRatio : QCPItemPosition::ptPlotCoords);
            end->setTypeY(isLimit ? QCPItemPosition::ptPlotCoords : QCPItemPosition::ptAxisRectRatio);
            end->setCoords(isLimit ? far : mark.value, isLimit ? mark.value : far);
        }
    }
    if (!mark.text.empty() && (isLimit || !isOutside)) {
        AddText(rect, axis, mark, color, isOutside);
    }
}

/// The words of a mark; of a limit outside of the plot at the edge beyond which it lies.
void PlotPainter::AddText(QCPAxisRect& rect, QCPAxis& axis, const PlotMark& mark, const QColor& color,
                          bool isOutside) {
    const bool isLimit = mark.kind == PlotMark::Kind::limit;
    const bool isAbove = mark.value > axis.range().upper;
    auto* const text = new QCPItemText(&plot_);
    text->setClipToAxisRect(false);
    text->setFont(theme::CaptionFont());
    text->setColor(color);
    QColor ground = theme::Current().panel;
    ground.setAlpha(200); // words are read across a curve
    text->setBrush(ground);
    text->setText(ToQt(mark.text) + (!isOutside ? QString()
                                     : isAbove  ? QStringLiteral(" ↑")
                                                : QStringLiteral(" ↓")));
    text->position->setAxisRect(&rect);
    text->position->setAxes(rect.axis(QCPAxis::atBottom), isLimit ? &axis : rect.axis(QCPAxis::atLeft));
    if (!isLimit) {
        const bool isNearEnd = axis.range().upper - mark.value < 0.25 * axis.range().size();
        text->position->setTypeX(QCPItemPosition::ptPlotCoords);
        text->position->setTypeY(QCPItemPosition::ptAxisRectRatio);
        text->position->setCoords(mark.value, 0);
        text->setPadding({4, 0, 4, 0});
        text->setPositionAlignment((isNearEnd ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignTop);
        return;
    }
    text->position->setTypeX(QCPItemPosition::ptAxisRectRatio);
    text->position->setTypeY(isOutside ? QCPItemPosition::ptAxisRectRatio : QCPItemPosition::ptPlotCoords);
    text->position->setCoords(mark.textAtStart ? 0.01 : 0.99, isOutside ? (isAbove ? 0.0 : 1.0) : mark.value);
    text->setPositionAlignment((mark.textAtStart ? Qt::AlignLeft : Qt::AlignRight) |
                               (isOutside && isAbove ? Qt::AlignTop : Qt::AlignBottom));
}

// Bars
// ---------------------------------------------------------------------------------------------------------------

void PlotPainter::DrawBars() {
    for (std::size_t i = 0; i < model_.bars.size(); ++i) {
        AddBars(*AddRect(0, static_cast<int>(i)), model_.bars[i], i == 0);
    }
    constexpr double withNames = 1.7; // the first has the names at its left
    plot_.plotLayout()->setColumnStretchFactor(0, withNames);
}

void PlotPainter::AddBars(QCPAxisRect& rect, const PlotBars& bars, bool named) {
    const theme::Colors& colors = theme::Current();
    QCPAxis& names = *rect.axis(QCPAxis::atLeft);
    QCPAxis& values = *rect.axis(QCPAxis::atBottom);
    Dress(values, colors.quiet, bars.title);
    Dress(names, colors.text, {});
    names.grid()->setVisible(false);
    // The bars say their figures themselves.
    values.setTickLabels(false);
    values.grid()->setPen(Qt::NoPen);
    values.grid()->setZeroLinePen(QPen(colors.quiet, 1));
    const auto ticker = QSharedPointer<QCPAxisTickerText>::create();
    QVector<double> places;
    QVector<double> low;
    QVector<double> high;
    Span span;
    span.Take(0);
    for (const PlotBar& bar : bars.bars) {
        const auto place = static_cast<double>(bars.bars.size()) - static_cast<double>(places.size());
        places << place;
        low << bar.low;
        high << bar.high;
        span.Take(bar.low);
        span.Take(bar.high);
        ticker->addTick(place, ToQt(bar.name));
        AddBarText(rect, bar.low, place + barWidth / 2, bar.lowText);
        AddBarText(rect, bar.high, place - barWidth / 2, bar.highText);
    }
    names.setTicker(ticker);
    names.setTickLabels(named);
    for (const bool isHigh : {false, true}) {
        auto* const plottable = new QCPBars(&names, &values);
        plottable->setWidth(barWidth);
        plottable->setPen(Qt::NoPen);
        plottable->setBrush(ColorOf(isHigh ? PlotColor::accent : PlotColor::second));
        QVector<double> shifted = places;
        for (double& place : shifted) {
            place += isHigh ? -barWidth / 2 : barWidth / 2;
        }
        plottable->setData(shifted, isHigh ? high : low);
    }
    names.setRange(0.4, static_cast<double>(bars.bars.size()) + 0.6);
    // The words at the ends of the bars need twice the room of the longest bar.
    const double widest = std::max({span.high, -span.low, 1e-9});
    constexpr double withWords = 3.2;
    values.setRange(-withWords * widest, withWords * widest);
}

void PlotPainter::AddBarText(QCPAxisRect& rect, double value, double place, const std::string& text) {
    if (isStale_) {
        return;
    }
    auto* const item = new QCPItemText(&plot_);
    QFont font = theme::CaptionFont();
    font.setPointSizeF(font.pointSizeF() * 0.9);
    item->setFont(font);
    item->setColor(theme::Current().quiet);
    item->setText(ToQt(text));
    item->setClipToAxisRect(false);
    item->position->setAxisRect(&rect);
    item->position->setAxes(rect.axis(QCPAxis::atBottom), rect.axis(QCPAxis::atLeft));
    item->position->setCoords(value, place);
    item->setPadding({2, 0, 2, 0});
    item->setPositionAlignment((value < 0 ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
}

} // namespace kaloria
