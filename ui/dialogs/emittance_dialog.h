// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "data/catalogue.h"
#include "ui/dialogs/record_dialog.h"

namespace kaloria {

/// Editor of a base metal or a jacket material: a name and an emittance.
template <class Record>
class EmittanceDialog final : public RecordDialog {
public:
    /// @param catalogue must outlive the dialog; @p record is edited as a copy
    EmittanceDialog(const Catalogue& catalogue, Record record, Units units, QWidget* parent = nullptr);

    /// The record as it was entered.
    [[nodiscard]] Record Edited() const;

private:
    [[nodiscard]] std::vector<Finding> Findings() override;

    const Catalogue& catalogue_;
    Record record_;
    TextEntry* name_ = nullptr;
    NumberEntry* emittance_ = nullptr;
    QCheckBox* active_ = nullptr;
};

using BaseMetalDialog = EmittanceDialog<CBaseMetal>;
using JacketDialog = EmittanceDialog<CJacketMaterial>;

extern template class EmittanceDialog<CBaseMetal>;
extern template class EmittanceDialog<CJacketMaterial>;

} // namespace kaloria
