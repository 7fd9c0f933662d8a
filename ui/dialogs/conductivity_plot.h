// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "application/conductivity_check.h"
#include "data/quantity.h"

#include <QWidget>

#include <vector>

namespace kaloria {

/// The conductivity curve of a material over its range, with the points it was fitted to.
class ConductivityPlot final : public QWidget {
    Q_OBJECT

public:
    explicit ConductivityPlot(Units units, QWidget* parent = nullptr);
    void Show(const ConductivityCheck& check, const std::vector<CTemperaturePoint>& points);
    [[nodiscard]] QSize sizeHint() const override { return {400, 280}; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    /// A span of values on an axis, its ends at round numbers.
    struct Axis {
        double low = 0;
        double high = 1;
        double step = 1;
        [[nodiscard]] double Share(double value) const { return (value - low) / (high - low); }
    };
    [[nodiscard]] static Axis AxisOf(double low, double high);
    [[nodiscard]] static QString TickText(const Axis& axis, double value);
    [[nodiscard]] double Shown(Quantity quantity, double english) const;
    [[nodiscard]] QPointF PlaceOf(const QRectF& area, double degF, double k) const;
    void SetAxes();
    void DrawAxes(QPainter& painter, const QRectF& area) const;
    void DrawCurve(QPainter& painter, const QRectF& area) const;
    void DrawPoints(QPainter& painter, const QRectF& area) const;

    Units units_;
    ConductivityCheck check_;
    std::vector<CTemperaturePoint> points_;
    Axis temperature_;
    Axis conductivity_;
};

} // namespace kaloria
