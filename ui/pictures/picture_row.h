// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "application/plot_series.h"
#include "ui/session.h"

#include <QWidget>

#include <array>
#include <cstdint>

class QLabel;
class QPushButton;

namespace kaloria {

class PlotView;
class SectionView;

/// The two pictures of an answer: the section of a row at the left, a plot of one's choice at the right. Only
/// the plot that is shown is worked out.
class PictureRow final : public QWidget {
    Q_OBJECT

public:
    enum class Kind : std::uint8_t { thickness, profile, yearlyCost, emissions, sensitivity };

    explicit PictureRow(Session& session, QWidget* parent = nullptr);

    /// Shows that row of the session's result, until another one is shown.
    void ShowRow(int row);
    /// Shows another row for as long as one points at it.
    void PointAt(int row);
    void PointAway();
    void SetStale();
    void Choose(Kind kind);

    [[nodiscard]] SectionView* Section() const { return section_; }
    [[nodiscard]] PlotView* Plot() const { return plot_; }

Q_SIGNALS:
    void RowPointedAt(int row);
    void RowLeft();
    void RowChosen(int row);

private:
    static constexpr std::size_t kindCount = 5;
    QWidget* BuildPlotCard();
    void ShowNow(int row);
    [[nodiscard]] bool Fits(Kind kind) const;
    [[nodiscard]] PlotModel ModelOf(Kind kind, std::size_t row) const;

    Session& session_;
    SectionView* section_ = nullptr;
    QLabel* sectionTitle_ = nullptr;
    PlotView* plot_ = nullptr;
    QLabel* plotTitle_ = nullptr;
    std::array<QPushButton*, kindCount> choices_{};
    Kind wanted_ = Kind::thickness;
    int row_ = 0;
};

} // namespace kaloria
