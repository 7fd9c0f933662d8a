// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "application/plot_series.h"

#include <QColor>

class QCPAxis;
class QCPAxisRect;
class QCPLegend;
class QCustomPlot;

namespace kaloria {

/// Fills a plot widget with what a model says, replacing whatever it held.
class PlotPainter {
public:
    /// @param stale  grey, without ticks and texts of the answer
    PlotPainter(QCustomPlot& plot, const PlotModel& model, bool stale);
    void Draw();

private:
    void Dress(QCPAxis& axis, const QColor& color, const std::string& title) const;
    QCPAxisRect* AddRect(int row, int column);
    void DrawCurves();
    void AddCurve(QCPAxisRect& rect, const PlotCurve& curve);
    [[nodiscard]] int CurvesOn(bool isRight) const;
    [[nodiscard]] bool NeedsLegend() const;
    QCPLegend* AddLegend();
    void SetRanges(QCPAxisRect& rect);
    void AddMark(QCPAxisRect& rect, const PlotMark& mark);
    void AddText(QCPAxisRect& rect, QCPAxis& axis, const PlotMark& mark, const QColor& color, bool isOutside);
    void DrawBars();
    void AddBars(QCPAxisRect& rect, const PlotBars& bars, bool named);
    void AddBarText(QCPAxisRect& rect, double value, double place, const std::string& text);
    [[nodiscard]] QColor ColorOf(PlotColor color) const;
    [[nodiscard]] QColor ColorOfAxis(bool isRight) const;

    QCustomPlot& plot_;
    const PlotModel& model_;
    bool isStale_;
};

} // namespace kaloria
