// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "application/plot_series.h"

#include <QWidget>

#include <optional>

class QCustomPlot;
class QLabel;

namespace kaloria {

namespace picture {
struct Drawing;
}

/// A plot of any kind in the colours in force. Points that stand for a row of the results grid say so when
/// one points at them.
class PlotView final : public QWidget {
    Q_OBJECT

public:
    explicit PlotView(QWidget* parent = nullptr);

    void Show(PlotModel model);
    /// An answer that no longer belongs to the inputs is drawn grey and without its figures.
    void SetStale(bool stale);
    [[nodiscard]] const PlotModel& Model() const { return model_; }
    [[nodiscard]] picture::Drawing AsDrawing() const;
    [[nodiscard]] QSize sizeHint() const override { return {330, 190}; }

Q_SIGNALS:
    void RowPointedAt(int row);
    void RowLeft();
    void RowChosen(int row);

protected:
    void changeEvent(QEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Hit {
        std::optional<std::size_t> row;
        QString text;
    };
    void Draw();
    [[nodiscard]] QString NoteText() const;
    [[nodiscard]] std::optional<Hit> HitAt(const QPointF& place) const;
    [[nodiscard]] bool IsLaidOut() const;
    void PointAt(const QPointF& place, const QPoint& global);
    void Leave();

    PlotModel model_;
    QCustomPlot* plot_ = nullptr;
    QLabel* reason_ = nullptr;
    QLabel* note_ = nullptr;
    std::optional<std::size_t> pointedAt_;
    bool isStale_ = false;
    bool isDrawing_ = false;
};

} // namespace kaloria
