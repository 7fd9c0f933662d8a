// SPDX-License-Identifier: GPL-3.0-or-later
#include "application/application.h"
#include "application/material_rules.h"
#include "tests/ui/dialog_driver.h"
#include "ui/dialogs/emittance_dialog.h"
#include "ui/dialogs/fuel_dialog.h"
#include "ui/dialogs/insulation_dialog.h"
#include "ui/dialogs/points_grid.h"
#include "ui/theme.h"

#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>
#include <QTableWidget>
#include <QTest>
#include <QTimer>

#include <cmath>
#include <functional>
#include <memory>

using namespace kaloria;
using kaloria::test::Find;
using kaloria::test::FirstNameless;
using kaloria::test::IsReady;
using kaloria::test::Type;

namespace {

bool Near(double value, double expected) { return std::abs(value - expected) <= 2e-6 * std::abs(expected); }

bool SameRecord(const CInsulation& a, const CInsulation& b) {
    const auto samePoint = [](const CTemperaturePoint& p, const CTemperaturePoint& q) {
        return p.Temperature == q.Temperature && p.Conductivity == q.Conductivity;
    };
    // The coefficients of a material with points are the fit's and no part of the record.
    const bool sameCurve = !a.TemperaturePoints.empty() || (a.A == b.A && a.B == b.B && a.C == b.C);
    return sameCurve && a.ID == b.ID && a.Name == b.Name && a.MaxTemp == b.MaxTemp &&
           a.MinTemp == b.MinTemp && a.InsulationType == b.InsulationType && a.Active == b.Active &&
           a.CreatedBy == b.CreatedBy &&
           std::equal(a.TemperaturePoints.begin(), a.TemperaturePoints.end(), b.TemperaturePoints.begin(),
                      b.TemperaturePoints.end(), samePoint);
}

bool SameRecord(const CFuel& a, const CFuel& b) {
    const auto samePollutant = [](const CPollutant& p, const CPollutant& q) {
        return p.ID == q.ID && p.Name == q.Name && p.Amount == q.Amount;
    };
    return a.ID == b.ID && a.Name == b.Name && a.Cost == b.Cost && a.CostUnits == b.CostUnits &&
           a.BTU == b.BTU && a.BTUUnits == b.BTUUnits && a.UnitCostFactor == b.UnitCostFactor &&
           a.ConversionEfficiency == b.ConversionEfficiency &&
           a.ConversionEfficiencyChange == b.ConversionEfficiencyChange && a.Active == b.Active &&
           std::equal(a.Pollutants.begin(), a.Pollutants.end(), b.Pollutants.begin(), b.Pollutants.end(),
                      samePollutant);
}

template <class Record>
bool SameRecord(const Record& a, const Record& b) {
    return a.ID == b.ID && a.Name == b.Name && a.Emittance == b.Emittance && a.Active == b.Active &&
           a.CreatedBy == b.CreatedBy;
}

} // namespace

class DialogsTest final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void RecordsComeBackAsTheyWere_data();
    void RecordsComeBackAsTheyWere();
    void EntriesInSiAreConverted();
    void WrongEntriesAreMarked_data();
    void WrongEntriesAreMarked();
    void NewRecordsAreNotMarkedAtOnce();
    void PointsAreChecked();
    void PolynomialStartsFromThePoints();
    void PastedPairsBecomePoints();
    void FuelsByTheirMeasure_data();
    void FuelsByTheirMeasure();
    void SuppliedFuelsKeepWhatTheyAre();
    void EmptyAmountsAreNoPollutants();
    void GivingUpIsAsked();
    void EveryControlHasAName_data();
    void EveryControlHasAName();

private:
    template <class Dialog, class Record>
    void CheckUntouched(const Collection<Record>& records);
    [[nodiscard]] std::unique_ptr<QDialog> Open(const QString& which);

    MessageList messages_;
    CApplication application_{KALORIA_RESOURCES_DIR, messages_};
    Catalogue& records_ = application_.Records();
};

void DialogsTest::initTestCase() {
    QVERIFY(application_.LoadConfigurationFile());
    theme::Install(*qApp);
}

/// Each window by the object name that it has to have.
std::unique_ptr<QDialog> DialogsTest::Open(const QString& which) {
    const std::map<QString, std::function<QDialog*()>> windows{
        {"frmInsulation",
         [this] {
             return new InsulationDialog(records_, DuplicateOf(records_, records_.Insulations.front()),
                                         Units::english);
         }},
        {"frmFuel",
         [this] {
             return new FuelDialog(records_, DuplicateOf(records_, records_.Fuels.front()), Units::english);
         }},
        {"frmBaseMetal",
         [this] {
             return new BaseMetalDialog(records_, DuplicateOf(records_, records_.BaseMetals.front()),
                                        Units::english);
         }},
        {"frmJacket",
         [this] {
             return new JacketDialog(records_, DuplicateOf(records_, records_.JacketMaterials.front()),
                                     Units::english);
         }},
    };
    std::unique_ptr<QDialog> window(windows.at(which)());
    window->show();
    return window;
}

// Records
// -----------------------------------------------------------------------------------------------------------

void DialogsTest::RecordsComeBackAsTheyWere_data() {
    QTest::addColumn<bool>("isSI");
    QTest::newRow("English") << false;
    QTest::newRow("SI") << true;
}

template <class Dialog, class Record>
void DialogsTest::CheckUntouched(const Collection<Record>& records) {
    QFETCH(const bool, isSI);
    for (const Record& record : records) {
        const Dialog dialog(records_, record, isSI ? Units::si : Units::english);
        QVERIFY2(SameRecord(dialog.Edited(), record), record.Name.c_str());
        QVERIFY2(dialog.Reason().isEmpty(), qPrintable(ToQt(record.Name) + ": " + dialog.Reason()));
    }
}

void DialogsTest::RecordsComeBackAsTheyWere() {
    CheckUntouched<InsulationDialog>(records_.Insulations);
    CheckUntouched<FuelDialog>(records_.Fuels);
    CheckUntouched<BaseMetalDialog>(records_.BaseMetals);
    CheckUntouched<JacketDialog>(records_.JacketMaterials);
}

void DialogsTest::EntriesInSiAreConverted() {
    InsulationDialog dialog(records_, DuplicateOf(records_, *FindById(records_.Insulations, 1)), Units::si);
    Find<QRadioButton>(dialog, "optPolynomial")->click();
    Type(dialog, "txtMaxTemp", "300");
    Type(dialog, "txtA", "0.03");
    Type(dialog, "txtB", "0.0001");
    Type(dialog, "txtC", "0.0000004");
    QVERIFY(IsReady(dialog));
    const CInsulation record = dialog.Edited();
    QVERIFY(Near(double{record.MaxTemp}, 572));
    // By hand: 0.03 W/(m C) at 0 C, 0.044 at 100 C; 1 Btu in/(h ft2 F) is 0.144228 W/(m C).
    QVERIFY(Near(record.ConductivityAt(32), 0.03 / 0.144228));
    QVERIFY(Near(record.ConductivityAt(212), 0.044 / 0.144228));
    QVERIFY(Near(record.ConductivityAt(572), 0.096 / 0.144228));
}

void DialogsTest::WrongEntriesAreMarked_data() {
    QTest::addColumn<QString>("window");
    QTest::addColumn<QString>("entry");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("reason");
    const auto add = [](const char* window, const char* entry, const char* text, const char* reason) {
        QTest::addRow("%s.%s \"%s\"", window, entry, text) << window << entry << text << reason;
    };
    add("frmInsulation", "Name", "", "name is needed");
    add("frmInsulation", "Name", "Cellular Glass Block", "already a record");
    add("frmInsulation", "MaxTemp", "12x", "\"12x\" is not a number");
    add("frmInsulation", "MaxTemp", "-400", "below the minimum");
    add("frmInsulation", "MinTemp", "-1000", "within -459.67 to 4000 °F");
    add("frmInsulation", "A", "1,5", "\"1,5\" is not a number");
    add("frmInsulation", "A", "-3", "no material has");
    add("frmFuel", "Cost", "-1", "0 or more");
    add("frmFuel", "BTU", "0", "above 0");
    add("frmFuel", "ConversionEfficiency", "", "number is needed");
    add("frmBaseMetal", "Emittance", "1.01", "between 0 and 1");
    add("frmBaseMetal", "Name", "Copper", "already a record");
    add("frmJacket", "Emittance", "-0.1", "between 0 and 1");
    add("frmJacket", "Emittance", "nan", "is not a number");
}

void DialogsTest::WrongEntriesAreMarked() {
    QFETCH(const QString, window);
    QFETCH(const QString, entry);
    QFETCH(const QString, text);
    QFETCH(const QString, reason);
    const auto dialog = Open(window);
    if (auto* const polynomial = dialog->findChild<QRadioButton*>("optPolynomial")) {
        polynomial->click();
    }
    const QByteArray name = ("txt" + entry).toLatin1();
    const auto* const line = Find<QLineEdit>(*dialog, name);
    const QString before = line->text();
    QVERIFY(IsReady(*dialog));
    Type(*dialog, name, text);
    QVERIFY(!IsReady(*dialog));
    QVERIFY(line->property("wrong").toBool());
    QVERIFY2(Find<QLabel>(*dialog, "lblReason")->text().contains(reason),
             qPrintable(Find<QLabel>(*dialog, "lblReason")->text()));
    QVERIFY(!Find<QLabel>(*dialog, ("lbl" + entry + "Problem").toLatin1())->isHidden());
    Type(*dialog, name, before);
    QVERIFY(IsReady(*dialog));
    QVERIFY(!line->property("wrong").toBool());
}

void DialogsTest::NewRecordsAreNotMarkedAtOnce() {
    JacketDialog dialog(records_, NewJacket(records_), Units::english);
    dialog.show();
    const auto* const emittance = Find<QLineEdit>(dialog, "txtEmittance");
    QVERIFY(!IsReady(dialog) && !emittance->property("wrong").toBool());
    Type(dialog, "txtEmittance", "2");
    QVERIFY(emittance->property("wrong").toBool());
    Type(dialog, "txtEmittance", "0.2");
    Type(dialog, "txtName", "Stucco");
    QVERIFY(IsReady(dialog));
    const CJacketMaterial record = dialog.Edited();
    QCOMPARE(record.Emittance, 0.2F);
    QCOMPARE(record.CreatedBy, std::string("User"));
}

// Insulations
// -----------------------------------------------------------------------------------------------------------

void DialogsTest::PointsAreChecked() {
    CInsulation record = NewInsulation(records_);
    record.Name = "Test wool";
    record.InsulationType = 2;
    record.MaxTemp = 600;
    // On k = 0.2 + 0.001 T, which three points give exactly.
    record.TemperaturePoints = {{300, 0.5F}, {0, 0.2F}, {100, 0.3F}};
    InsulationDialog dialog(records_, record, Units::english);
    QVERIFY(IsReady(dialog));
    QVERIFY(dialog.Summary().contains("0.2 to 0.8 over 0 °F to 600 °F"));
    QVERIFY(Near(dialog.Edited().ConductivityAt(200), 0.4));
    QCOMPARE(dialog.Edited().TemperaturePoints.front().Temperature, 0.0F);

    auto* const table = Find<QTableWidget>(dialog, "flxTemperaturePoints");
    QCOMPARE(table->horizontalHeaderItem(1)->text(), "Temperature");
    table->item(1, 2)->setText("0,2");
    QVERIFY(!IsReady(dialog));
    QVERIFY(dialog.Reason().contains("Row 2"));
    QVERIFY(table->item(1, 2)->background().color() == theme::Current().wrongGround);
    QVERIFY(dialog.Summary().contains("No curve"));
    table->item(1, 2)->setText("0.2");
    QVERIFY(IsReady(dialog));

    table->setCurrentCell(2, 1);
    Find<QPushButton>(dialog, "cmdDeletePoint")->click();
    QVERIFY2(dialog.Reason().contains("3 different temperatures"), qPrintable(dialog.Reason()));
}

void DialogsTest::PolynomialStartsFromThePoints() {
    CInsulation record = NewInsulation(records_);
    record.Name = "Test wool";
    record.InsulationType = 2;
    record.MaxTemp = 600;
    record.TemperaturePoints = {{0, 0.2F}, {100, 0.3F}, {300, 0.5F}};
    InsulationDialog dialog(records_, record, Units::english);
    Find<QRadioButton>(dialog, "optPolynomial")->click();
    Type(dialog, "txtC", "0.000001");
    // The points stay as evidence: the last is now 0.09 off.
    QVERIFY2(dialog.Summary().contains("0.09 (18 %) at 300 °F"), qPrintable(dialog.Summary()));
    const CInsulation edited = dialog.Edited();
    QVERIFY(edited.TemperaturePoints.empty());
    QVERIFY(Near(edited.ConductivityAt(100), 0.31));
    // And come back.
    Find<QRadioButton>(dialog, "optTemperaturePoints")->click();
    QCOMPARE(dialog.Edited().TemperaturePoints.size(), 3U);
}

void DialogsTest::PastedPairsBecomePoints() {
    PointsGrid grid({}, Units::si);
    grid.Paste("50\t0.040\r\n100\t0.050\n\n150;0.060\n200 0.070\nno pair\n");
    const auto points = grid.Points();
    QCOMPARE(points.size(), 4U);
    QVERIFY(Near(double{points[3].Temperature}, 392));
    QVERIFY(Near(double{points[3].Conductivity}, 0.07 / 0.144228));
    QVERIFY(!grid.Unreadable().isEmpty()); // what is no pair stays to be seen
}

// Fuels
// -----------------------------------------------------------------------------------------------------------

void DialogsTest::FuelsByTheirMeasure_data() {
    QTest::addColumn<QString>("costUnits");
    QTest::addColumn<bool>("isSI");
    QTest::addColumn<QString>("cost");
    QTest::addColumn<QString>("heat");
    QTest::addColumn<QString>("price");
    QTest::addColumn<double>("englishCost");
    QTest::addColumn<double>("englishHeat");
    QTest::addColumn<QString>("heatUnits");
    // Prices of a million Btu by hand; at 50 % twice as much after conversion.
    QTest::newRow("gas") << "$/Mcf" << false << "5"
                         << "1000"
                         << "$5 per million Btu of fuel, $10" << 5.0 << 1000.0 << "Btu/cf";
    QTest::newRow("oil") << "$/gal" << false << "2.8"
                         << "140000"
                         << "$20 per" << 2.8 << 140000.0 << "Btu/gal";
    QTest::newRow("coal") << "$/ton" << false << "50"
                          << "12500"
                          << "$2 per" << 50.0 << 12500.0 << "Btu/lb";
    QTest::newRow("heat") << "$/MMBtu" << false << "12"
                          << "1000000"
                          << "$12 per" << 12.0 << 1e6 << "Btu/MMBtu";
    // 1 ft3 is 0.02831685 m3, 1 Btu 1055.87 J: a thousand m3 of 37.2 GJ at $200 are $5.38 a GJ.
    QTest::newRow("gas in SI") << "$/Mcf" << true << "200"
                               << "37200000"
                               << "$5.38 per GJ" << 5.66337 << 37.2e6 * 0.02831685 / 1055.87 << "Btu/cf";
}

void DialogsTest::FuelsByTheirMeasure() {
    QFETCH(const QString, costUnits);
    QFETCH(const bool, isSI);
    QFETCH(const QString, cost);
    QFETCH(const QString, heat);
    QFETCH(const QString, price);
    QFETCH(const double, englishCost);
    QFETCH(const double, englishHeat);
    QFETCH(const QString, heatUnits);
    FuelDialog dialog(records_, NewFuel(records_), isSI ? Units::si : Units::english);
    auto* const units = Find<QComboBox>(dialog, "cboCostUnits");
    units->setCurrentIndex(units->findData(costUnits));
    Type(dialog, "txtName", "Test fuel");
    Type(dialog, "txtCost", cost);
    Type(dialog, "txtBTU", heat);
    Type(dialog, "txtConversionEfficiency", "50");
    QVERIFY2(IsReady(dialog), qPrintable(dialog.Reason()));
    const QString shown = Find<QLabel>(dialog, "lblPriceOfHeat")->text();
    QVERIFY2(shown.contains(price), qPrintable(shown));
    const CFuel fuel = dialog.Edited();
    QVERIFY(Near(double{fuel.Cost}, englishCost));
    QVERIFY(Near(double{fuel.BTU}, englishHeat));
    QCOMPARE(ToQt(fuel.CostUnits), costUnits);
    QCOMPARE(ToQt(fuel.BTUUnits), heatUnits);
    // Price x factor / heating value is the price of one Btu, the figure that was shown.
    if (!isSI) {
        const double perMillion = 1e6 * double{fuel.Cost} * double{fuel.UnitCostFactor} / double{fuel.BTU};
        QVERIFY(price.startsWith(QStringLiteral("$%1 ").arg(std::round(perMillion))));
    }
}

void DialogsTest::SuppliedFuelsKeepWhatTheyAre() {
    const CFuel& gas = records_.Fuels.front();
    QCOMPARE(gas.CreatedBy, std::string(systemCreator));
    FuelDialog dialog(records_, gas, Units::english);
    for (const char* const name : {"txtName", "cboCostUnits", "flxPollutants"}) {
        QVERIFY2(!Find<QWidget>(dialog, name)->isEnabled(), name);
    }
    Type(dialog, "txtCost", "7.5");
    CFuel expected = gas;
    expected.Cost = 7.5F;
    QVERIFY(IsReady(dialog) && SameRecord(dialog.Edited(), expected));
}

void DialogsTest::EmptyAmountsAreNoPollutants() {
    FuelDialog dialog(records_, DuplicateOf(records_, records_.Fuels.front()), Units::english);
    auto* const table = Find<QTableWidget>(dialog, "flxPollutants");
    QCOMPARE(table->horizontalHeaderItem(2)->text(), "Lbs / 10^6 Btu");
    const std::size_t before = dialog.Edited().Pollutants.size();
    table->item(0, 2)->setText("");
    table->item(1, 2)->setText("0.5");
    const CFuel fuel = dialog.Edited();
    QCOMPARE(fuel.Pollutants.size(), before - 1);
    QCOMPARE(fuel.Pollutants.front().Amount, 0.5F);
    table->item(1, 2)->setText("half");
    QVERIFY(!IsReady(dialog));
    table->item(1, 2)->setText("-1");
    QVERIFY2(dialog.Reason().contains("0 or more"), qPrintable(dialog.Reason()));
}

// Manners
// -----------------------------------------------------------------------------------------------------------

void DialogsTest::GivingUpIsAsked() {
    const auto dialog = Open("frmJacket");
    int asked = 0;
    const auto answer = [&](QMessageBox::StandardButton button) {
        QTimer::singleShot(0, this, [&asked, button] {
            if (auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
                ++asked;
                box->button(button)->click();
            }
        });
        QTest::keyClick(dialog.get(), Qt::Key_Escape);
    };
    Type(*dialog, "txtEmittance", "0.3");
    answer(QMessageBox::Cancel);
    QVERIFY(asked == 1 && dialog->isVisible());
    answer(QMessageBox::Discard);
    QVERIFY(asked == 2 && !dialog->isVisible());

    const auto untouched = Open("frmJacket");
    QTest::keyClick(untouched.get(), Qt::Key_Escape);
    QVERIFY(!untouched->isVisible());
}

void DialogsTest::EveryControlHasAName_data() {
    QTest::addColumn<QString>("window");
    for (const char* const name : {"frmInsulation", "frmFuel", "frmBaseMetal", "frmJacket"}) {
        QTest::newRow(name) << name;
    }
}

void DialogsTest::EveryControlHasAName() {
    QFETCH(const QString, window);
    const auto dialog = Open(window);
    QCOMPARE(dialog->objectName(), window);
    QCOMPARE(FirstNameless(*dialog), QString());
}

QTEST_MAIN(DialogsTest)
#include "dialogs_test.moc"
