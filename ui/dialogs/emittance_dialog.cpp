// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/dialogs/emittance_dialog.h"

#include "application/material_rules.h"
#include "ui/theme.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>

#include <type_traits>
#include <utility>

namespace kaloria {

namespace {

template <class Record>
constexpr bool isMetal = std::is_same_v<Record, CBaseMetal>;

/// What one has to know about the figure.
template <class Record>
QString Hint() {
    return isMetal<Record>
               ? RecordDialog::tr(
                     "0 is a perfect mirror, 1 a perfectly black surface. Oxidized steel has about "
                     "0.8, polished metal 0.1 or less.")
               : RecordDialog::tr("0 is a perfect mirror, 1 a perfectly black surface. Bright aluminum has "
                                  "about 0.05, weathered 0.1 to 0.2, paint and plastic about 0.9.");
}

template <class Record>
bool IsNew(const Record& record) {
    return record.Name.empty();
}

} // namespace

template <class Record>
EmittanceDialog<Record>::EmittanceDialog(const Catalogue& catalogue, Record record, Units units,
                                         QWidget* parent)
    : RecordDialog(isMetal<Record> ? QStringLiteral("frmBaseMetal") : QStringLiteral("frmJacket"),
                   isMetal<Record> ? tr("Base metal") : tr("Jacket material"), IsNew(record), units, parent),
      catalogue_(catalogue),
      record_(std::move(record)) {
    QGridLayout& grid = AddCard(isMetal<Record> ? tr("Base metal") : tr("Jacket material"));
    name_ = &AddText(grid, QStringLiteral("Name"), tr("&Name:"), ToQt(record_.Name));
    emittance_ = &AddNumber(grid, QStringLiteral("Emittance"), tr("&Emittance:"));
    emittance_->SetUnit(tr("0 to 1"));
    if (!IsNew(record_)) {
        emittance_->SetValue(double{record_.Emittance}, ShortText(double{record_.Emittance}));
    }
    active_ = &AddActive(grid, record_.Active);
    auto* const hint = new QLabel(Hint<Record>());
    hint->setWordWrap(true);
    theme::SetRole(*hint, "quiet");
    grid.addWidget(hint, grid.rowCount(), 0, 1, 3);
    grid.setRowStretch(grid.rowCount(), 1);
    resize(460, 0);
    Recheck();
    name_->Control()->setFocus();
}

template <class Record>
Record EmittanceDialog<Record>::Edited() const {
    Record record = record_;
    record.Name = FromQt(name_->Text());
    record.Emittance = English(*emittance_, Quantity::emittance, record_.Emittance);
    record.Active = active_->isChecked();
    return record;
}

template <class Record>
std::vector<Finding> EmittanceDialog<Record>::Findings() {
    return CheckRecord(catalogue_, Edited());
}

template class EmittanceDialog<CBaseMetal>;
template class EmittanceDialog<CJacketMaterial>;

} // namespace kaloria
