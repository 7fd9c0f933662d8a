// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "data/quantity.h"
#include "reports/economic_results.h"

#include <QWidget>

#include <vector>

class QComboBox;

namespace kaloria {

class PlotView;

/// The cost curve of the last economic analysis: capital, energy and total against thickness, for one of its
/// surfaces at one of its temperatures. Hidden until there is an analysis.
class EconomicCard final : public QWidget {
    Q_OBJECT

public:
    explicit EconomicCard(QWidget* parent = nullptr);

    void Show(const EconomicAnalysis& analysis, Units units);
    /// The inputs have changed since.
    void SetStale();
    [[nodiscard]] PlotView* Plot() const { return plot_; }

private:
    QComboBox* AddChoice(const char* name, const QString& what);
    void ShowTemperatures();
    void ShowCurve();

    std::vector<SurfaceResult> surfaces_;
    Units units_ = Units::english;
    QComboBox* surface_ = nullptr;
    QComboBox* temperature_ = nullptr;
    PlotView* plot_ = nullptr;
};

} // namespace kaloria
