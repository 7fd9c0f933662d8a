// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/panel_page.h"

class QGridLayout;

namespace kaloria {

class MaterialChoice;

/// What is calculated, the surface, its conditions, and the layers where there is room for them.
class SurfacePanel final : public PanelPage {
    Q_OBJECT

public:
    SurfacePanel(Session& session, const QString& objectName, const QString& title);

    void Refresh() override;

private:
    QWidget* BuildMaterials();

    QGridLayout* materials_ = nullptr;
    MaterialChoice* baseMetal_ = nullptr;
    MaterialChoice* jacket_ = nullptr;
    QLabel* tankNote_ = nullptr;
};

} // namespace kaloria
