// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/session.h"

#include <QComboBox>

namespace kaloria {

/// The drop-downs `cboBaseMetals` and `cboJacketMaterials`: the innermost and the outermost row of the layer
/// build-up, with their emittances.
class MaterialChoice final : public QComboBox {
    Q_OBJECT

public:
    enum class Row { baseMetal, jacket };

    MaterialChoice(Row row, Session& session, QWidget* parent);
    void Refresh();

private:
    void Chosen();

    Row row_;
    Session& session_;
};

} // namespace kaloria
