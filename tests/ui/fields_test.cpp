// SPDX-License-Identifier: GPL-3.0-or-later
// The fields of the job in the window: what is typed reaches the file and comes back, in both systems of
// units; wrong entries; the units switch.
#include "application/choices.h"
#include "application/visible_fields.h"
#include "data/number_format.h"
#include "tests/ui/window_driver.h"

#include <QCheckBox>
#include <QRadioButton>

#include <set>

namespace kaloria {
namespace {

using test::ProgramCopy;
using test::Q;
using test::WindowDriver;
namespace fs = std::filesystem;

QString T(const char* text) { return QString::fromUtf8(text); }

/// Choices that decide which fields are shown; between them they show every field there is.
struct Scene {
    const char* name;
    int type;
    const char* geometry;
    Field moisture;
    bool isHot;
    bool isNew;
    Field costs;
};
constexpr Scene scenes[] = {
    {"hot pipe", 0, "Horizontal Pipe", Field::RelativeHumidity, true, true, Field::FEA},
    {"cold duct", 1, "Horizontal Rectangular Duct", Field::WetBulbTemperature, false, false, Field::FEA},
    {"cold tube", 1, "Vertical Tube", Field::DewPoint, false, true, Field::PreviousCostData},
    {"limited flow", 2, "Vertical Flat", Field::RelativeHumidity, true, false, Field::UserSuppliedCostData},
    {"humid tank", 1, "Vertical Tank", Field::RelativeHumidity, true, true, Field::FEA},
    {"yearly", 4, "Vertical Pipe", Field::RelativeHumidity, true, true, Field::FEA},
};

/// The field as a person works it: an entry, a drop-down, a check box, or a pair of buttons.
const std::map<Field, std::pair<const char*, const char*>>& ButtonPairs() {
    static const std::map<Field, std::pair<const char*, const char*>> pairs{
        {Field::HotSurface, {"optHotSurface", "optColdSurface"}},
        {Field::NewApplication, {"optNewApplication", "optRetrofit"}},
        {Field::EngineeringReport, {"optEngineeringReport", "optTablesReport"}},
    };
    return pairs;
}

/// The panels that have fields, each once.
constexpr MenuPosition positions[] = {{0, 0}, {1, 0}, {1, 2}, {2, 0}, {2, 1}, {2, 2}, {2, 3}};

class FieldsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { theme::Install(*qApp); }
    void ComeBackFromTheFile_data();
    void ComeBackFromTheFile();
    void AreAllCovered();
    void MarkWrongEntries_data();
    void MarkWrongEntries();
    void SwitchThereAndBack();
    void SwitchTheirLabels();

private:
    static void Show(WindowDriver& driver, const Scene& scene);
    /// The shown text of every field of a panel that can be seen now.
    static std::map<Field, QString> Shown(WindowDriver& driver);
    /// Every panel's fields together.
    static std::map<Field, QString> ShownAnywhere(WindowDriver& driver);

    ProgramCopy folder_;
    std::set<Field> covered_;
};

// Round trip
// ---------------------------------------------------------------------------------------------------------------

void FieldsTest::Show(WindowDriver& driver, const Scene& scene) {
    driver.window->ShowPanel(Panel::surface);
    driver.Choose(T("cboInsulationThicknessCalculationType"), Q(calculationTypeNames[scene.type]));
    driver.Choose(T("cboSurfaceGeometries"), T(scene.geometry));
    if (scene.type == 1) {
        driver.Click(QStringLiteral("lbl%1Input").arg(Q(InfoOf(scene.moisture).element)));
    }
    driver.window->ShowPosition({2, 1});
    driver.Click(scene.isHot ? T("optHotSurface") : T("optColdSurface"));
    driver.Click(scene.isNew ? T("optNewApplication") : T("optRetrofit"));
    driver.window->ShowPosition({2, 2});
    driver.Click(QStringLiteral("opt%1").arg(Q(InfoOf(scene.costs).element)));
}

std::map<Field, QString> FieldsTest::Shown(WindowDriver& driver) {
    std::map<Field, QString> texts;
    for (const JobField& field : JobFields()) {
        auto* const control = driver.window->findChild<QWidget*>(Q(field.control));
        if (control == nullptr || !control->isVisible()) {
            continue;
        }
        if (const auto* const line = qobject_cast<QLineEdit*>(control)) {
            texts[field.id] = line->text();
        } else if (const auto* const box = qobject_cast<QComboBox*>(control)) {
            texts[field.id] = box->currentText();
        } else if (const auto* const button = qobject_cast<QAbstractButton*>(control);
                   button != nullptr && field.kind == FieldKind::flag) {
            texts[field.id] = button->isChecked() ? T("True") : T("False");
        }
    }
    return texts;
}

std::map<Field, QString> FieldsTest::ShownAnywhere(WindowDriver& driver) {
    std::map<Field, QString> texts;
    for (const MenuPosition position : positions) {
        driver.window->ShowPosition(position);
        texts.merge(Shown(driver));
    }
    return texts;
}

/// Something else that may stand in the field.
QString OtherText(const JobField& field, const Job& job) {
    const Units units = job.UnitsInForce();
    if (field.kind == FieldKind::text) {
        return field.id == Field::Date ? T("03/12/2024") : Q(field.element) + T(" <é> & \"7\" µm²");
    }
    constexpr double share = 0.3; // of the range, which for prices is a long number
    const double low = FromEnglish(field.quantity, units, field.low);
    const double high = FromEnglish(field.quantity, units, std::min(field.high, 4321.0));
    return Q(FormatNumber(low + share * (high - low) + 0.17, NumberFormat::hundredths));
}

void FieldsTest::ComeBackFromTheFile_data() {
    QTest::addColumn<int>("scene");
    QTest::addColumn<bool>("si");
    for (int scene = 0; scene < static_cast<int>(std::size(scenes)); ++scene) {
        QTest::addRow("%s, English", scenes[scene].name) << scene << false;
        QTest::addRow("%s, SI", scenes[scene].name) << scene << true;
    }
}

void FieldsTest::ComeBackFromTheFile() {
    QFETCH(int, scene);
    QFETCH(bool, si);
    const fs::path file = folder_.Scratch("fields.kal");
    std::map<Field, QString> entered;
    {
        WindowDriver driver(folder_);
        driver.Click(T("cmdLive")); // off: no answer is wanted
        driver.Choose(T("cboSystemUnits"), si ? T("SI") : T("English"));
        Show(driver, scenes[scene]);
        for (const MenuPosition position : positions) {
            driver.window->ShowPosition(position);
            for (const auto& [field, text] : Shown(driver)) {
                const JobField& info = InfoOf(field);
                if (auto* const line = driver.window->findChild<QLineEdit*>(Q(info.control))) {
                    if (line->isEnabled()) {
                        driver.Type(Q(info.control), OtherText(info, driver.TheJob()));
                        QCOMPARE(Q(driver.TheJob()[field]), line->text());
                        QVERIFY2(!line->property("wrong").toBool(), info.element.data());
                    }
                } else if (auto* const box = driver.window->findChild<QComboBox*>(Q(info.control))) {
                    const bool decides = field == Field::InsulationThicknessCalculationType ||
                                         field == Field::SurfaceGeometry || field == Field::Units;
                    if (!decides && info.kind == FieldKind::choice) {
                        driver.Choose(*box, box->itemText(box->count() - 1));
                        QCOMPARE(Q(driver.TheJob()[field]), box->currentText());
                    } else if (info.kind == FieldKind::material) {
                        driver.Choose(*box, box->itemText(box->count() - 2));
                    }
                } else if (field == Field::PrintReport) {
                    driver.Click(Q(info.control));
                } else if (field == Field::EngineeringReport) {
                    driver.Click(T(ButtonPairs().at(field).first));
                }
            }
        }
        entered = ShownAnywhere(driver);
        QVERIFY(driver.window->isWindowModified());
        QVERIFY(driver.Session().Save(file));
        QVERIFY(!driver.window->isWindowModified());
        QCOMPARE(driver.told.filter(T("aution")), driver.told); // nothing but service temperatures
    }
    WindowDriver driver(folder_);
    driver.window->Jobs().OpenPath(QString::fromStdString(file.string()));
    QCOMPARE(driver.told, QStringList());
    const auto opened = ShownAnywhere(driver);
    for (const auto& [field, text] : entered) {
        const auto found = opened.find(field);
        QVERIFY2(found != opened.end(), InfoOf(field).element.data());
        QVERIFY2(found->second == text,
                 qPrintable(Q(InfoOf(field).element) + T(": ") + found->second + T(" for ") + text));
        covered_.insert(field);
    }
    QCOMPARE(opened.size(), entered.size());
    QCOMPARE(driver.Find<QComboBox>(T("cboSystemUnits")).currentText(), si ? T("SI") : T("English"));
}

void FieldsTest::AreAllCovered() {
    QStringList missed;
    for (const JobField& field : JobFields()) {
        if (!covered_.contains(field.id)) {
            missed << Q(field.element);
        }
    }
    // The position has a test of its own, so have the layers.
    QCOMPARE(missed, (QStringList{T("CurrentCategory"), T("CurrentMenuItem"), T("Insulation")}));
}

// Wrong entries
// ---------------------------------------------------------------------------------------------------------------

void FieldsTest::MarkWrongEntries_data() {
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("entry");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("says"); // part of the sentence beside the entry
    const auto row = [](const char* type, const char* entry, const char* typed, const char* says) {
        QTest::addRow("%s: %s", entry, typed) << T(type) << T(entry) << T(typed) << T(says);
    };
    row("Personnel Protection", "ProcessTemp", "35x", "not a number");
    row("Personnel Protection", "ProcessTemp", "5000", "-459 to 3000 °F");
    row("Personnel Protection", "ProcessTemp", "", "");
    row("Personnel Protection", "AmbientTemp", "1e9", "-100 to 250 °F");
    row("Personnel Protection", "WindSpeed", "-1", "0 to 200 mph");
    row("Personnel Protection", "MaxSurfaceTemp", "nan", "not a number");
    row("Heat Flow Limitation", "HeatFlowLimit", "1,5", "not a number");
    row("Condensation Control", "RelativeHumidity", "101", "0 to 100 %");
    row("Heat Loss Per Year", "HoursPerYear", "9000", "0 to 8784");
    row("Heat Loss Per Year", "FuelCost", "free", "not a number");
}

void FieldsTest::MarkWrongEntries() {
    QFETCH(QString, type);
    QFETCH(QString, entry);
    QFETCH(QString, typed);
    QFETCH(QString, says);
    WindowDriver driver(folder_);
    driver.Choose(T("cboInsulationThicknessCalculationType"), type);
    auto& line = driver.Find<QLineEdit>(T("txt") + entry);
    driver.window->ShowPanel(line.isVisible() ? Panel::surface : Panel::fuel);
    const QString good = line.text();
    driver.Trigger(T("mnuFileCalculate"));
    QVERIFY(driver.Session().Result().done);
    driver.window->ShowPosition({0, 0});
    driver.window->ShowPanel(Panel::surface);
    if (!line.isVisible()) {
        driver.window->ShowPanel(Panel::fuel);
    }

    driver.Type(T("txt") + entry, typed);
    auto& error = driver.Find<QLabel>(QStringLiteral("lbl%1Error").arg(entry));
    driver.window->ShowPosition({4, 0}); // Calculate leads back to the entry
    driver.Trigger(T("mnuFileCalculate"));
    QVERIFY(!driver.Session().Result().done);
    QVERIFY(line.isVisible());
    QTRY_VERIFY(line.hasFocus());
    QVERIFY(line.property("wrong").toBool());
    QVERIFY(error.isVisible());
    QVERIFY2(error.text().contains(says) && !error.text().isEmpty(), qPrintable(error.text()));
    QVERIFY(driver.LabelText(T("lblStale")).contains(T("No answer")));
    QVERIFY(!driver.Find(T("flxResults")).isEnabled());
    QCOMPARE(line.text(), typed); // as it was typed
    QCOMPARE(Q(driver.TheJob()[FindField(entry.toStdString())->id]), typed);

    driver.Type(T("txt") + entry, good);
    driver.Trigger(T("mnuFileCalculate"));
    QVERIFY(driver.Session().Result().done);
    QVERIFY(!error.isVisible() && !line.property("wrong").toBool());
}

// Units
// ---------------------------------------------------------------------------------------------------------------

void FieldsTest::SwitchThereAndBack() {
    WindowDriver driver(folder_);
    Show(driver, scenes[1]);
    driver.window->ShowPanel(Panel::surface);
    driver.Type(T("txtProcessTemp"), T("40.123456"));
    driver.Type(T("txtAmbientTemp"), T("8x"));
    driver.Type(T("txtWindSpeed"), QString());
    driver.window->ShowPosition({2, 1});
    driver.Type(T("txtReportFuelCost"), T("4.5300"));
    const auto before = ShownAnywhere(driver);
    driver.Trigger(T("mnuUnitsSI"));
    driver.window->ShowPanel(Panel::surface);
    QCOMPARE(driver.Text(T("txtProcessTemp")), T("4.5"));
    QCOMPARE(driver.Text(T("txtAmbientTemp")), T("8x"));
    QCOMPARE(driver.Text(T("txtWindSpeed")), QString());
    QCOMPARE(driver.Text(T("txtDuctWidth")), T("609.6"));
    driver.Trigger(T("mnuUnitsEnglish"));
    const auto after = ShownAnywhere(driver);
    for (const auto& [field, text] : before) {
        QVERIFY2(after.at(field) == text, InfoOf(field).element.data());
    }
    // What is edited in between keeps its value.
    driver.Trigger(T("mnuUnitsSI"));
    driver.window->ShowPanel(Panel::surface);
    driver.Type(T("txtProcessTemp"), T("100"));
    driver.Trigger(T("mnuUnitsEnglish"));
    QCOMPARE(driver.Text(T("txtProcessTemp")), T("212.0"));
}

struct SwitchedLabel {
    int scene; ///< that shows it
    const char* label;
    const char* english;
    const char* si;
};
constexpr SwitchedLabel switchedLabels[] = {
    {0, "lblProcessTempUnit", "°F", "°C"},
    {0, "lblAmbientTempUnit", "°F", "°C"},
    {0, "lblMaxSurfaceTempUnit", "°F", "°C"},
    {0, "lblWindSpeedUnit", "mph", "m/s"},
    {1, "lblDuctWidthUnit", "in", "mm"},
    {2, "lblDewPointUnit", "°F", "°C"},
    {3, "lblHeatFlowLimitUnit", "BTU/hr/ft^2", "W/m^2"},
    {5, "lblFuelCost", "First Year Cost ($/Mcf):", "First Year Cost ($/Mm^3):"},
    {5, "lblHeatContent", "Heating Value (Btu/cf):", "Heating Value (J/m^3):"},
    {0, "lblInvestmentRateInput",
     "Incremental Cost of Plant Capacity ($/MMBtu/hr):", "Incremental Cost of Plant Capacity ($/MMJ/hr):"},
    {0, "lblAnnualAverageTempInput",
     "Average Annual Ambient Temperature (°F):", "Average Annual Ambient Temperature (°C):"},
    {0, "lblAnnualAverageWindSpeedInput",
     "Average Annual Wind Speed (mph):", "Average Annual Wind Speed (m/s):"},
    {0, "lblReportPipeInsulationPriceInput",
     "Material Price, $/ft for 2 x 2 pipe insulation, including jacket:",
     "Material Price, $/m for 50 x 50 pipe insulation, including jacket:"},
    {0, "lblReportBoardInsulationPriceInput",
     "Material Price, $/sqft for 2 inch thick board or block, including jacket:",
     "Material Price, $/m^2 for 50 mm thick board or block, including jacket:"},
    {0, "lblPaybackReferenceThicknessInput", "Thickness (in):", "Thickness (mm):"},
    {1, "lblChillerWetBulbTemperatureInput",
     "Wet Bulb Design Temperature (F):", "Wet Bulb Design Temperature (C):"},
    {1, "lblChillerMakeUpWaterCostInput",
     "Cost of Chiller Make-Up Water ($/1000 gallons):", "Cost of Chiller Make-Up Water ($/1000 liters):"},
};

void FieldsTest::SwitchTheirLabels() {
    for (int scene = 0; scene < static_cast<int>(std::size(scenes)); ++scene) {
        WindowDriver driver(folder_);
        Show(driver, scenes[scene]);
        const auto check = [&](bool si) {
            for (const SwitchedLabel& row : switchedLabels) {
                if (row.scene == scene) {
                    QCOMPARE(driver.LabelText(T(row.label)), T(si ? row.si : row.english));
                }
            }
            QCOMPARE(driver.Layers().horizontalHeaderItem(4)->text(),
                     si ? T("Thickness, mm") : T("Thickness, Inches"));
            QCOMPARE(driver.Find<QComboBox>(T("cboSystemUnits")).currentText(), si ? T("SI") : T("English"));
            QCOMPARE(driver.Find<QAction>(T("mnuUnitsSI")).isChecked(), si);
        };
        check(false);
        driver.Choose(T("cboSystemUnits"), T("SI"));
        check(true);
        driver.Trigger(T("mnuUnitsEnglish"));
        check(false);
    }
}

} // namespace
} // namespace kaloria

QTEST_MAIN(kaloria::FieldsTest)
#include "fields_test.moc"
