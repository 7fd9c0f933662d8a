// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "application/finding.h"
#include "data/quantity.h"
#include "ui/dialogs/entry.h"

#include <QDialog>

#include <vector>

class QCheckBox;
class QComboBox;
class QGridLayout;
class QHBoxLayout;
class QLabel;
class QPushButton;
class QVBoxLayout;

namespace kaloria {

/// Editor of a copy of a reference record. Whatever is wrong is marked where it was entered and named beside
/// OK, which waits until nothing is.
class RecordDialog : public QDialog {
    Q_OBJECT

public:
    /// Asks before what was entered is given up.
    void reject() override;

    /// What stands in the way of OK; empty when nothing does.
    [[nodiscard]] QString Reason() const;

protected:
    /// @param isNew  empty entries are not marked before the user has been at them
    RecordDialog(const QString& name, const QString& title, bool isNew, Units units, QWidget* parent);

    // Building; every entry added is asked and marked from then on.
    [[nodiscard]] QHBoxLayout& Columns() const { return *columns_; }
    /// A card in the left column, or wherever @p column says.
    QGridLayout& AddCard(const QString& title, QVBoxLayout* column = nullptr);
    TextEntry& AddText(QGridLayout& grid, const QString& subject, const QString& label, const QString& text);
    NumberEntry& AddNumber(QGridLayout& grid, const QString& subject, const QString& label);
    QComboBox& AddChoice(QGridLayout& grid, const QString& subject, const QString& label);
    QCheckBox& AddActive(QGridLayout& grid, bool isActive);
    [[nodiscard]] Entry* EntryOf(const QString& subject) const;

    /// To be called once when everything is built, and by whatever is changed.
    void Recheck();
    void Changed();

    [[nodiscard]] Units InUnits() const { return units_; }
    /// A temperature with its unit in the units shown, of a value in degF.
    [[nodiscard]] QString TemperatureText(double degF) const;
    void SetTemperature(NumberEntry& entry, double degF) const;
    /// What the entry holds as the record's English value; @p original when it was not edited.
    [[nodiscard]] float English(const NumberEntry& entry, Quantity quantity, float original) const;

private:
    /// What is wrong with the record as it is entered; asked only when every entry can be read.
    [[nodiscard]] virtual std::vector<Finding> Findings() = 0;
    /// Faults of grids and the like that are no entries; empty when there are none.
    [[nodiscard]] virtual QString UnreadableElsewhere() { return {}; }

    /// What is shown of the record besides the entries would be out of date.
    virtual void Blank() {}

    void BuildFoot();
    void CheckEntries();
    void Mark(const std::vector<Finding>& findings);

    QHBoxLayout* columns_ = nullptr;
    QVBoxLayout* left_ = nullptr;
    QLabel* reason_ = nullptr;
    QPushButton* ok_ = nullptr;
    std::vector<Entry*> entries_;
    Units units_;
    bool isNew_;
    bool isDirty_ = false;
};

} // namespace kaloria
