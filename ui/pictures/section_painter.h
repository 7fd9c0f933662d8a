// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "application/section_model.h"

#include <QColor>
#include <QPainterPath>
#include <QPointF>
#include <QRectF>
#include <QString>

#include <optional>
#include <vector>

class QPainter;

namespace kaloria {

/// Lays a section out in an area and draws it: on the screen, in a file, for the printer.
class SectionPainter {
public:
    /// @param model  must outlive this object
    SectionPainter(const SectionModel& model, const QRectF& area, bool stale);

    /// @param pointedAt  the band that is framed
    void Paint(QPainter& painter, std::optional<std::size_t> pointedAt) const;
    [[nodiscard]] std::optional<std::size_t> BandAt(const QPointF& place) const;

private:
    /// A line of the column at the right, with the place that it speaks of.
    struct Label {
        QString text;
        bool isWrong = false;
        bool isQuiet = false;
        std::size_t inner = 0; ///< interface, or the inner one of a dimension
        bool isDimension = false;
        double y = 0;
    };

    void LayOut();
    void AddLabels();
    [[nodiscard]] double Depth(std::size_t index) const;
    [[nodiscard]] QPainterPath Outline(std::size_t index) const;
    [[nodiscard]] QPainterPath BandPath(std::size_t band) const;
    [[nodiscard]] QPointF Anchor(double depth, double y) const;
    [[nodiscard]] QColor ColorAt(double degF) const;
    [[nodiscard]] QBrush BrushOf(std::size_t band) const;
    [[nodiscard]] bool ProcessFits() const;

    void PaintBands(QPainter& painter, std::optional<std::size_t> pointedAt) const;
    void PaintBox(QPainter& painter, std::size_t band) const;
    void PaintProcess(QPainter& painter) const;
    void PaintScale(QPainter& painter) const;
    void PaintLabels(QPainter& painter) const;

    const SectionModel& model_;
    QRectF area_;
    QRectF shape_;  // where the shape may be
    QRectF column_; // where the labels are
    QRectF scaleBar_;
    QPointF center_;
    double pixels_ = 1; // per inch
    bool isStale_ = false;
    std::vector<Label> labels_;
};

} // namespace kaloria
