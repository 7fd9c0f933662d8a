// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/dialogs/fuel_dialog.h"

#include "application/material_rules.h"
#include "application/record_entry.h"
#include "engine/numeric_fault.h"
#include "reports/fuel_cost.h"
#include "ui/dialogs/pollutants_grid.h"
#include "ui/theme.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QVBoxLayout>

#include <algorithm>

namespace kaloria {

FuelDialog::FuelDialog(const Catalogue& catalogue, const CFuel& record, Units units, QWidget* parent)
    : RecordDialog(QStringLiteral("frmFuel"), tr("Fuel"), record.Name.empty(), units, parent),
      catalogue_(catalogue),
      record_(record),
      isNew_(record.Name.empty()),
      isSystem_(record.CreatedBy == systemCreator) {
    BuildFuel();
    BuildPollutants();
    ShowUnits();
    resize(760, 0);
    Recheck();
    (isSystem_ ? cost_->Control() : name_->Control())->setFocus();
}

void FuelDialog::BuildFuel() {
    QGridLayout& grid = AddCard(tr("Fuel"));
    name_ = &AddText(grid, QStringLiteral("Name"), tr("&Name:"), ToQt(record_.Name));
    costUnits_ = &AddChoice(grid, QStringLiteral("CostUnits"), tr("&Priced in:"));
    FillUnits(*costUnits_);
    connect(costUnits_, &QComboBox::currentIndexChanged, this, [this] { ShowUnits(); });
    cost_ = &AddNumber(grid, QStringLiteral("Cost"), tr("P&rice:"));
    heat_ = &AddNumber(grid, QStringLiteral("BTU"), tr("&Heating value:"));
    efficiency_ = &AddNumber(grid, QStringLiteral("ConversionEfficiency"), tr("Conversion &efficiency:"));
    efficiency_->SetUnit(QStringLiteral("%"));
    if (!isNew_) {
        const bool isSI = InUnits() == Units::si;
        const double cost = isSI ? FuelCostToSI(Measure(), record_.Cost) : double{record_.Cost};
        const double heat = isSI ? HeatContentToSI(Measure(), record_.BTU) : double{record_.BTU};
        cost_->SetValue(cost, ShortText(cost));
        heat_->SetValue(heat, ShortText(heat));
        efficiency_->SetValue(record_.ConversionEfficiency, ShortText(record_.ConversionEfficiency));
    }
    active_ = &AddActive(grid, record_.Active);
    price_ = new QLabel;
    price_->setObjectName(QStringLiteral("lblPriceOfHeat"));
    price_->setWordWrap(true);
    grid.addWidget(price_, grid.rowCount(), 0, 1, 3);
    grid.setRowStretch(grid.rowCount(), 1);
    name_->Control()->setEnabled(!isSystem_);
    costUnits_->setEnabled(!isSystem_);
}

void FuelDialog::BuildPollutants() {
    auto* const column = new QVBoxLayout;
    Columns().addLayout(column, 4);
    QGridLayout& grid = AddCard(tr("Pollutants"), column);
    pollutants_ = new PollutantsGrid(catalogue_, record_);
    if (isSystem_) {
        pollutants_->Lock();
    }
    connect(pollutants_, &PollutantsGrid::Changed, this, &FuelDialog::Changed);
    grid.addWidget(pollutants_, 1, 0, 1, 3);
    auto* const hint = new QLabel(
        isSystem_
            ? tr("Name, units and pollutants of a supplied fuel stay as they are; changes of its figures "
                 "last until the program ends.")
            : tr("Pounds per million Btu of fuel. An amount left empty is not reported."));
    hint->setWordWrap(true);
    theme::SetRole(*hint, "quiet");
    grid.addWidget(hint, 2, 0, 1, 3);
}

void FuelDialog::FillUnits(QComboBox& box) const {
    CFuel fuel;
    for (const FuelUnitPair& pair : FuelUnitPairs()) {
        fuel.CostUnits = pair.cost;
        const QString text = ToQt(pair.cost);
        const QString shown = ToQt(FuelUnitsOf(fuel, InUnits()).costEntry);
        box.addItem(text == shown ? text : tr("%1, here %2").arg(text, shown), text);
    }
    const QString own = ToQt(record_.CostUnits);
    if (box.findData(own) < 0 && !own.isEmpty()) {
        box.addItem(own, own);
    }
    box.setCurrentIndex(std::max(0, box.findData(own)));
}

FuelMeasure FuelDialog::Measure() const { return MeasureOf(FromQt(costUnits_->currentData().toString())); }

void FuelDialog::ShowUnits() {
    const FuelUnitTexts texts = FuelUnitsOf(Edited(), InUnits());
    cost_->SetUnit(ToQt(texts.costEntry));
    heat_->SetUnit(ToQt(texts.heat));
}

CFuel FuelDialog::Edited() const {
    CFuel record = record_;
    record.Name = FromQt(name_->Text());
    record.CostUnits = FromQt(costUnits_->currentData().toString());
    // The heating value is always of the measure that the price is of.
    for (const FuelUnitPair& pair : FuelUnitPairs()) {
        if (pair.cost == record.CostUnits) {
            record.BTUUnits = pair.heat;
        }
    }
    const bool isSI = InUnits() == Units::si;
    const double cost = cost_->Value().value_or(0);
    const double heat = heat_->Value().value_or(0);
    // A number stands as it is read: in another measure it is another price.
    const bool isOtherMeasure = record.CostUnits != record_.CostUnits;
    if (cost_->IsEdited() || isOtherMeasure) {
        record.Cost = static_cast<float>(isSI ? FuelCostToEnglish(Measure(), cost) : cost);
    }
    if (heat_->IsEdited() || isOtherMeasure) {
        record.BTU = static_cast<float>(isSI ? HeatContentToEnglish(Measure(), heat) : heat);
    }
    record.ConversionEfficiency = English(*efficiency_, Quantity::percent, record_.ConversionEfficiency);
    record.Active = active_->isChecked();
    if (pollutants_ != nullptr && !isSystem_) {
        record.Pollutants = pollutants_->Pollutants();
    }
    if (isNew_ || isOtherMeasure || record.BTU != record_.BTU) {
        record.UnitCostFactor = static_cast<float>(UnitCostFactorOf(record.CostUnits, record.BTU));
    }
    return record;
}

QString FuelDialog::UnreadableElsewhere() { return pollutants_->Unreadable(); }

void FuelDialog::Blank() { price_->clear(); }

std::vector<Finding> FuelDialog::Findings() {
    const CFuel fuel = Edited();
    std::vector<Finding> findings = CheckRecord(catalogue_, fuel);
    // The units are chosen in one entry.
    for (Finding& finding : findings) {
        finding.subject = finding.subject == "BTUUnits" ? "CostUnits" : finding.subject;
    }
    if (HasErrors(findings)) {
        Blank();
    } else {
        ShowPriceOfHeat(fuel);
    }
    return findings;
}

/// The figure by which fuels compare, and by which a slip in a price or a unit is seen.
void FuelDialog::ShowPriceOfHeat(const CFuel& fuel) {
    constexpr double million = 1e6;
    constexpr double percent = 100;
    constexpr int cents = 2;
    try {
        const double perMillionBtu = million * UnitFuelCost(Measure(), fuel.Cost, fuel.BTU);
        const double useful = perMillionBtu * percent / double{fuel.ConversionEfficiency};
        // A kilowatt-hour's heating value converts without a volume or a mass.
        const double gigajoules = HeatContentToSI(FuelMeasure::electricity, million) / 1e9;
        const bool isSI = InUnits() == Units::si;
        const auto text = [&](double price) { return RoundedText(isSI ? price / gigajoules : price, cents); };
        price_->setText(tr("Heat costs $%1 per %3 of fuel, $%2 after conversion.")
                            .arg(text(perMillionBtu), text(useful), isSI ? tr("GJ") : tr("million Btu")));
    } catch (const NumericFault&) {
        Blank();
    }
}

} // namespace kaloria
