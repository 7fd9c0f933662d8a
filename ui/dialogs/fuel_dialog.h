// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "data/catalogue.h"
#include "data/fuel_units.h"
#include "ui/dialogs/record_dialog.h"

class QLabel;

namespace kaloria {

class PollutantsGrid;

/// Editor of a fuel. Of a supplied fuel only the figures can be changed; its name, its units and its
/// pollutants are shown.
class FuelDialog final : public RecordDialog {
    Q_OBJECT

public:
    /// @param catalogue must outlive the dialog; @p record is edited as a copy
    FuelDialog(const Catalogue& catalogue, const CFuel& record, Units units, QWidget* parent = nullptr);

    /// The record as it was entered, in its English units whatever is shown.
    [[nodiscard]] CFuel Edited() const;

private:
    [[nodiscard]] std::vector<Finding> Findings() override;
    [[nodiscard]] QString UnreadableElsewhere() override;
    void Blank() override;

    void BuildFuel();
    void BuildPollutants();
    void FillUnits(QComboBox& box) const;
    void ShowUnits();
    void ShowPriceOfHeat(const CFuel& fuel);
    [[nodiscard]] FuelMeasure Measure() const;

    const Catalogue& catalogue_;
    CFuel record_;
    bool isNew_;
    bool isSystem_;
    TextEntry* name_ = nullptr;
    QComboBox* costUnits_ = nullptr;
    NumberEntry* cost_ = nullptr;
    NumberEntry* heat_ = nullptr;
    NumberEntry* efficiency_ = nullptr;
    QCheckBox* active_ = nullptr;
    QLabel* price_ = nullptr;
    PollutantsGrid* pollutants_ = nullptr;
};

} // namespace kaloria
