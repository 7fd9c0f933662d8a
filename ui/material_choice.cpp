// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/material_choice.h"

#include "application/layer_rules.h"
#include "data/number_format.h"
#include "ui/theme.h"

#include <QSignalBlocker>

namespace kaloria {

namespace {

/// "Carbon Steel (0.80)", by ID.
template <class Records>
void AddRecords(QComboBox& box, const Records& records, std::int32_t chosen) {
    for (const auto& record : records) {
        if (record.Active || record.ID == chosen) {
            box.addItem(
                QObject::tr("%1 (%2)").arg(ToQt(record.Name),
                                           ToQt(FormatNumber(record.Emittance, NumberFormat::hundredths))),
                record.ID);
        }
    }
}

} // namespace

MaterialChoice::MaterialChoice(Row row, Session& session, QWidget* parent)
    : QComboBox(parent), row_(row), session_(session) {
    const bool isBase = row_ == Row::baseMetal;
    setObjectName(isBase ? QStringLiteral("cboBaseMetals") : QStringLiteral("cboJacketMaterials"));
    setProperty("field", static_cast<int>(isBase ? Field::BaseMetal : Field::Jacket));
    setAccessibleName(isBase ? tr("Base metal") : tr("Jacket material"));
    setToolTip(
        tr("%1\nIn brackets: emittance").arg(ToQt(InfoOf(isBase ? Field::BaseMetal : Field::Jacket).help)));
    setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    setMinimumContentsLength(18);
    setMaxVisibleItems(20);
    connect(this, &QComboBox::activated, this, &MaterialChoice::Chosen);
}

void MaterialChoice::Refresh() {
    const QSignalBlocker blocker(this);
    const Job& job = session_.TheJob();
    const JobMaterial& shown = row_ == Row::baseMetal ? job.baseMetal : job.jacket;
    clear();
    if (row_ == Row::baseMetal) {
        AddRecords(*this, session_.Records().BaseMetals, shown.id);
    } else {
        AddRecords(*this, session_.Records().JacketMaterials, shown.id);
    }
    if (shown.missing) {
        addItem(tr("%1 (not in the catalogue)").arg(ToQt(shown.name)), shown.id);
    }
    setCurrentIndex(findData(shown.id));
}

void MaterialChoice::Chosen() {
    const auto id = static_cast<std::int32_t>(currentData().toInt());
    session_.Edit([&](Job& job) {
        SetMaterial(job, session_.Records(), row_ == Row::baseMetal ? baseRow : JacketRow(job), id);
    });
}

} // namespace kaloria
