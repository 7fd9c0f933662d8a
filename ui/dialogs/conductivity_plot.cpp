// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/dialogs/conductivity_plot.h"

#include "data/number_format.h"
#include "ui/theme.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cmath>

namespace kaloria {

ConductivityPlot::ConductivityPlot(Units units, QWidget* parent) : QWidget(parent), units_(units) {
    setObjectName(QStringLiteral("picConductivity"));
    setAccessibleName(tr("Conductivity against mean temperature"));
    setMinimumSize(320, 240);
}

double ConductivityPlot::Shown(Quantity quantity, double english) const {
    return FromEnglish(quantity, units_, english);
}

void ConductivityPlot::Show(const ConductivityCheck& check, const std::vector<CTemperaturePoint>& points) {
    check_ = check;
    points_ = points;
    SetAxes();
    update();
}

void ConductivityPlot::SetAxes() {
    double low = check_.lowTemp;
    double high = check_.highTemp;
    // Zero belongs to the axis: a curve that reaches it is the fault that one should see.
    double least = 0;
    double most = 0;
    if (check_.hasCurve) {
        least = std::min(least, check_.lowestK);
        most = std::max(most, check_.highestK);
    }
    for (const CTemperaturePoint& point : points_) {
        low = std::min(low, double{point.Temperature});
        high = std::max(high, double{point.Temperature});
        least = std::min(least, double{point.Conductivity});
        most = std::max(most, double{point.Conductivity});
    }
    temperature_ = AxisOf(Shown(Quantity::temperature, low), Shown(Quantity::temperature, high));
    conductivity_ = AxisOf(Shown(Quantity::conductivity, least), Shown(Quantity::conductivity, most));
}

ConductivityPlot::Axis ConductivityPlot::AxisOf(double low, double high) {
    constexpr double wantedSteps = 5;
    if (!std::isfinite(low) || !std::isfinite(high) || !(high > low)) {
        return {};
    }
    const double raw = (high - low) / wantedSteps;
    const double power = std::pow(10.0, std::floor(std::log10(raw)));
    double step = 10 * power;
    for (const double factor : {1.0, 2.0, 5.0}) {
        if (factor * power >= raw) {
            step = factor * power;
            break;
        }
    }
    return {std::floor(low / step) * step, std::ceil(high / step) * step, step};
}

QString ConductivityPlot::TickText(const Axis& axis, double value) {
    constexpr int most = 9;
    const int decimals = std::clamp(static_cast<int>(-std::floor(std::log10(axis.step) + 1e-9)), 0, most);
    return ToQt(FormatFixed(value, decimals));
}

QPointF ConductivityPlot::PlaceOf(const QRectF& area, double degF, double k) const {
    return {area.left() + area.width() * temperature_.Share(Shown(Quantity::temperature, degF)),
            area.bottom() - area.height() * conductivity_.Share(Shown(Quantity::conductivity, k))};
}

void ConductivityPlot::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setFont(theme::CaptionFont());
    const QFontMetrics metrics(theme::CaptionFont());
    const int left = metrics.horizontalAdvance(QStringLiteral("0.0000")) + theme::gap;
    const int right = theme::gap + metrics.horizontalAdvance(QStringLiteral("-0000")) / 2;
    const QRectF area(left, 2.0 * metrics.height(), width() - left - right,
                      height() - 4.5 * metrics.height());
    if (!check_.hasCurve && points_.empty()) {
        painter.setPen(theme::Current().quiet);
        painter.drawText(rect(), Qt::AlignCenter, tr("The curve shows here as soon as there is one."));
        return;
    }
    DrawAxes(painter, area);
    if (check_.hasCurve) {
        DrawCurve(painter, area);
    }
    DrawPoints(painter, area);
}

void ConductivityPlot::DrawAxes(QPainter& painter, const QRectF& area) const {
    const auto& colors = theme::Current();
    const double text = QFontMetricsF(painter.font()).height();
    const auto steps = [](const Axis& axis) { return std::lround((axis.high - axis.low) / axis.step); };
    for (long i = 0; i <= steps(conductivity_); ++i) {
        const double value = conductivity_.low + static_cast<double>(i) * conductivity_.step;
        const double y = area.bottom() - area.height() * conductivity_.Share(value);
        painter.setPen(QPen(colors.line, i == 0 ? 1.5 : 1));
        painter.drawLine(QPointF(area.left(), y), QPointF(area.right(), y));
        painter.setPen(colors.quiet);
        painter.drawText(QRectF(0, y - text / 2, area.left() - theme::gap, text), Qt::AlignRight,
                         TickText(conductivity_, value));
    }
    painter.setPen(colors.quiet);
    for (long i = 0; i <= steps(temperature_); ++i) {
        const double value = temperature_.low + static_cast<double>(i) * temperature_.step;
        const double x = area.left() + area.width() * temperature_.Share(value);
        painter.drawText(QRectF(x - 2 * text, area.bottom() + 4, 4 * text, text), Qt::AlignHCenter,
                         TickText(temperature_, value));
    }
    painter.drawText(QRectF(0, 0, width(), text), Qt::AlignLeft,
                     tr("k, %1").arg(ToQt(InfoOf(Quantity::conductivity).Text(units_))));
    painter.drawText(QRectF(area.left(), height() - text - 2, area.width(), text), Qt::AlignHCenter,
                     tr("Mean temperature, %1").arg(ToQt(InfoOf(Quantity::temperature).Text(units_))));
}

void ConductivityPlot::DrawCurve(QPainter& painter, const QRectF& area) const {
    constexpr int pieces = 96;
    QPainterPath path;
    for (int i = 0; i <= pieces; ++i) {
        const double t =
            check_.lowTemp + (double{check_.highTemp} - double{check_.lowTemp}) * i / double{pieces};
        const QPointF place = PlaceOf(area, t, check_.curve.ConductivityAt(t));
        if (i == 0) {
            path.moveTo(place);
        } else {
            path.lineTo(place);
        }
    }
    painter.setPen(QPen(theme::Current().accent, 2));
    painter.drawPath(path);
}

void ConductivityPlot::DrawPoints(QPainter& painter, const QRectF& area) const {
    constexpr double radius = 3.5;
    painter.setPen(QPen(theme::Current().panel, 1));
    painter.setBrush(theme::Current().second);
    for (const CTemperaturePoint& point : points_) {
        painter.drawEllipse(PlaceOf(area, point.Temperature, point.Conductivity), radius, radius);
    }
}

} // namespace kaloria
