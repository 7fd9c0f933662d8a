// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "data/catalogue.h"
#include "ui/dialogs/record_dialog.h"

class QLabel;
class QRadioButton;
class QWidget;

namespace kaloria {

class PlotView;
struct ConductivityCheck;
class PointsGrid;

/// Editor of an insulation material: its limits, and its conductivity as a polynomial or as paired points,
/// with the curve that the calculation will use drawn and checked while one types.
class InsulationDialog final : public RecordDialog {
    Q_OBJECT

public:
    /// @param catalogue must outlive the dialog; @p record is edited as a copy
    InsulationDialog(const Catalogue& catalogue, const CInsulation& record, Units units,
                     QWidget* parent = nullptr);

    /// The record as it was entered, in English units whatever is shown: with points, or with coefficients
    /// and no points.
    [[nodiscard]] CInsulation Edited() const;

    /// Sum of the check beside the plot.
    [[nodiscard]] QString Summary() const;

private:
    [[nodiscard]] std::vector<Finding> Findings() override;
    [[nodiscard]] QString UnreadableElsewhere() override;
    void Blank() override;

    void BuildMaterial();
    void BuildConductivity();
    void BuildPolynomial(QGridLayout& grid);
    void BuildCheck();
    void ShowForm();
    void UseFittedCurve();
    void SetPolynomial(const CInsulation& record);
    void Summarize(const ConductivityCheck& check, const std::vector<CTemperaturePoint>& points);

    const Catalogue& catalogue_;
    CInsulation record_;
    TextEntry* name_ = nullptr;
    QComboBox* type_ = nullptr;
    NumberEntry* maxTemp_ = nullptr;
    NumberEntry* minTemp_ = nullptr;
    QCheckBox* active_ = nullptr;
    QRadioButton* polynomial_ = nullptr;
    QRadioButton* points_ = nullptr;
    NumberEntry* a_ = nullptr;
    NumberEntry* b_ = nullptr;
    NumberEntry* c_ = nullptr;
    QLabel* pointsNote_ = nullptr;
    PointsGrid* grid_ = nullptr;
    PlotView* plot_ = nullptr;
    QLabel* summary_ = nullptr;
};

} // namespace kaloria
