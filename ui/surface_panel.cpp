// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/surface_panel.h"

#include "application/visible_fields.h"
#include "ui/material_choice.h"
#include "ui/theme.h"

#include <QGridLayout>
#include <QLabel>

namespace kaloria {

SurfacePanel::SurfacePanel(Session& session, const QString& objectName, const QString& title)
    : PanelPage(session, objectName, title) {
    AddFields(tr("What is calculated"), {Field::ItemDescription, Field::InsulationThicknessCalculationType,
                                         Field::MaxSurfaceTemp, Field::HeatFlowLimit});
    FieldCard* const moisture = AddFields(
        tr("Moisture of the air"), {Field::RelativeHumidity, Field::WetBulbTemperature, Field::DewPoint});
    moisture->setObjectName(QStringLiteral("fraCondensation"));
    FieldCard* const surface = AddFields(
        tr("Surface"), {Field::SurfaceGeometry, Field::PipeSize, Field::DuctWidth, Field::DuctDepth});
    surface->Add(BuildMaterials());
    AddFields(tr("Conditions"),
              {Field::ProcessTemp, Field::AmbientTemp, Field::WindSpeed, Field::HoursPerYear}, 2);
    AddStretch();
}

QWidget* SurfacePanel::BuildMaterials() {
    auto* const rows = new QWidget(this);
    auto* const grid = new QGridLayout(rows);
    materials_ = grid;
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(theme::gap);
    grid->setVerticalSpacing(6);
    grid->setColumnStretch(1, 1);
    baseMetal_ = new MaterialChoice(MaterialChoice::Row::baseMetal, TheSession(), rows);
    jacket_ = new MaterialChoice(MaterialChoice::Row::jacket, TheSession(), rows);
    int row = 0;
    for (MaterialChoice* const choice : {baseMetal_, jacket_}) {
        const Field field = choice == baseMetal_ ? Field::BaseMetal : Field::Jacket;
        auto* const label = new QLabel(ToQt(InfoOf(field).label), rows);
        label->setBuddy(choice);
        grid->addWidget(label, row, 0);
        grid->addWidget(choice, row, 1);
        ++row;
    }
    tankNote_ = new QLabel(rows);
    tankNote_->setObjectName(QStringLiteral("lblTankEnds"));
    tankNote_->setWordWrap(true);
    theme::SetRole(*tankNote_, "quiet");
    grid->addWidget(tankNote_, row, 0, 1, 2);
    return rows;
}

void SurfacePanel::Refresh() {
    PanelPage::Refresh();
    materials_->setColumnMinimumWidth(0, LabelWidth());
    baseMetal_->Refresh();
    jacket_->Refresh();
    tankNote_->setText(ToQt(TankNote(TheSession().TheJob(), TheSession().Records())));
    tankNote_->setVisible(!tankNote_->text().isEmpty());
}

} // namespace kaloria
