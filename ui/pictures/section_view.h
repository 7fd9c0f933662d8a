// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "application/section_model.h"

#include <QRectF>
#include <QWidget>

#include <optional>

namespace kaloria {

namespace picture {
struct Drawing;
}

/// The cut through the surface: in true proportion, coloured by temperature, with the temperatures of its
/// interfaces and the thicknesses of its layers. Pointing at a layer tells more about it.
class SectionView final : public QWidget {
    Q_OBJECT

public:
    explicit SectionView(QWidget* parent = nullptr);

    void Show(SectionModel model);
    /// An answer that no longer belongs to the inputs is drawn grey and without a figure.
    void SetStale(bool stale);
    [[nodiscard]] const SectionModel& Model() const { return model_; }
    [[nodiscard]] picture::Drawing AsDrawing() const;
    [[nodiscard]] QSize sizeHint() const override { return {270, 190}; }
    [[nodiscard]] QSize minimumSizeHint() const override { return {230, 150}; }

    /// The band at a place of the widget; nothing outside of all.
    [[nodiscard]] std::optional<std::size_t> BandAt(const QPointF& place) const;

protected:
    void paintEvent(QPaintEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    [[nodiscard]] QString ToolTipOf(std::size_t band) const;

    SectionModel model_;
    std::optional<std::size_t> pointedAt_;
    bool isStale_ = true;
};

} // namespace kaloria
