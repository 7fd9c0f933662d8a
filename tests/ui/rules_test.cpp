// SPDX-License-Identifier: GPL-3.0-or-later
// What the panels have to say while one edits: every message once, through the controls.
#include "application/messages.h"
#include "data/job_file.h"
#include "tests/ui/window_driver.h"

#include <QTableView>

namespace kaloria {
namespace {

using test::ProgramCopy;
using test::Q;
using test::WindowDriver;

enum class Then { refused, done };

struct Rule {
    const char* name;
    Panel panel;
    std::function<void(WindowDriver&)> before;
    std::function<void(WindowDriver&)> act;
    std::string_view message; ///< empty: nothing is said
    Then then;                ///< refused: not a letter of the job or of the records is another one
};

QString T(const char* text) { return QString::fromLatin1(text); }

std::function<void(WindowDriver&)> Click(const char* button) {
    return [button](WindowDriver& driver) { driver.Click(T(button)); };
}
std::function<void(WindowDriver&)> Type(const char* entry, const char* text) {
    return [=](WindowDriver& driver) { driver.Type(T(entry), T(text)); };
}
std::function<void(WindowDriver&)> Choose(const char* box, const char* text) {
    return [=](WindowDriver& driver) { QVERIFY(driver.Choose(T(box), T(text))); };
}
std::function<void(WindowDriver&)> Both(std::function<void(WindowDriver&)> a,
                                        std::function<void(WindowDriver&)> b) {
    return [a = std::move(a), b = std::move(b)](WindowDriver& driver) {
        a(driver);
        b(driver);
    };
}
void Nothing(WindowDriver& /*driver*/) {}

/// Row of the layers grid below its heading, counted from 0; -1 the last.
std::function<void(WindowDriver&)> SelectLayer(int row) {
    return [row](WindowDriver& driver) {
        QTableWidget& grid = driver.Layers();
        grid.setCurrentCell(row < 0 ? grid.rowCount() - 1 : row, 1);
    };
}

std::function<void(WindowDriver&)> ChooseMaterial(const char* name) {
    return [name](WindowDriver& driver) {
        QTableWidget& grid = driver.Layers();
        grid.editItem(grid.item(1, 2));
        QVERIFY(driver.Choose(T("cboInsulation"), T(name)));
    };
}

void AddLayers(WindowDriver& driver) {
    for (int i = 0; i < 4; ++i) {
        driver.Click(T("cmdAddLayer"));
    }
}

constexpr const char* typeBox = "cboInsulationThicknessCalculationType";
constexpr const char* geometryBox = "cboSurfaceGeometries";

const std::vector<Rule>& Rules() {
    using enum Then;
    static const std::vector<Rule> rules{
        {"a sixth layer", Panel::insulation, AddLayers, Click("cmdAddLayer"), message::tooManyLayers,
         refused},
        {"the base", Panel::insulation, SelectLayer(0), Click("cmdDelete"), message::baseLayerStays, refused},
        {"the base of many", Panel::insulation, Both(AddLayers, SelectLayer(0)), Click("cmdDelete"),
         message::baseLayerStays, refused},
        {"the jacket", Panel::insulation, SelectLayer(-1), Click("cmdDelete"), message::jacketLayerStays,
         refused},
        {"the jacket of many", Panel::insulation, Both(AddLayers, SelectLayer(-1)), Click("cmdDelete"),
         message::jacketLayerStays, refused},
        {"the only layer", Panel::insulation, SelectLayer(1), Click("cmdDelete"), message::oneLayerNeeded,
         refused},
        {"one of two layers", Panel::insulation, Both(Click("cmdAddLayer"), SelectLayer(2)),
         Click("cmdDelete"), "", done},
        {"hotter than the insulation", Panel::surface, Nothing, Type("txtProcessTemp", "1200.1"),
         message::aboveMaxTemp, done},
        {"as hot as it may be", Panel::surface, Nothing, Type("txtProcessTemp", "1200"), "", done},
        {"colder than the insulation", Panel::surface, Nothing, Type("txtProcessTemp", "-0.1"),
         message::belowMinTemp, done},
        {"as cold as it may be", Panel::surface, Nothing, Type("txtProcessTemp", "0"), "", done},
        {"a material for less", Panel::insulation, Type("txtProcessTemp", "1150"),
         ChooseMaterial("Glass Fiber Pipe Insulation 850 F"), message::aboveMaxTemp, done},
        {"a material for more", Panel::insulation, Type("txtProcessTemp", "20"),
         ChooseMaterial("Calcium Silicate Pipe and Block 1200 F"), message::belowMinTemp, done},
        {"duct wrap", Panel::insulation, Type("txtProcessTemp", "150"),
         ChooseMaterial("Glass Fiber Duct Wrap 0.75 lb/cu ft"), message::ductWrap, done},
        {"a table of a flat surface", Panel::surface, Choose(geometryBox, "Vertical Flat"),
         Choose(typeBox, "Insulation Thickness Table"), message::changedToPipe, done},
        {"a table of a tube", Panel::surface, Choose(geometryBox, "Vertical Tube"),
         Choose(typeBox, "Insulation Thickness Table"), "", done},
        {"a flat surface for a table", Panel::surface, Choose(typeBox, "Insulation Thickness Table"),
         Choose(geometryBox, "Vertical Flat"), message::calculationTypeChanged, done},
        {"on without a project number", Panel::project, Nothing, Click("cmdNext"), message::projectRequired,
         refused},
        {"to the end without a date", Panel::project,
         Both(Type("txtProjectNumber", "P-7"), Type("txtDate", "")), Click("cmdFinish"),
         message::projectRequired, refused},
        {"on without a surface", Panel::installedCost, Click("cmdSelectNone"), Click("cmdNext"),
         message::surfaceRequired, refused},
        {"a day that does not exist", Panel::project, Nothing, Type("txtDate", "02/30/2024"),
         message::dateNotValid, done},
        {"a day that exists", Panel::project, Nothing, Type("txtDate", "02/29/2024"), "", done},
        {"edit a system insulation", Panel::insulations, Nothing, Click("cmdEdit"), message::systemMaterial,
         refused},
        {"edit a system base metal", Panel::baseMetals, Nothing, Click("cmdEditBaseMetal"),
         message::systemBaseMetal, refused},
        {"edit a system jacket", Panel::jackets, Nothing, Click("cmdEditJacket"), message::systemJacket,
         refused},
        {"edit a system fuel", Panel::fuels, Nothing, Click("cmdEditFuel"), message::systemFuel, refused},
        {"deactivate a system base metal", Panel::baseMetals, Nothing, Click("cmdActivateBaseMetal"),
         message::systemBaseMetal, refused},
        {"deactivate a system jacket", Panel::jackets, Nothing, Click("cmdActivateJacket"),
         message::systemJacket, refused},
        {"delete a system insulation", Panel::insulations, Nothing, Click("cmdDeleteMaterial"),
         message::deleteMaterial, refused},
        {"delete a system base metal", Panel::baseMetals, Nothing, Click("cmdDeleteBaseMetal"),
         message::deleteBaseMetal, refused},
        {"delete a system jacket", Panel::jackets, Nothing, Click("cmdDeleteJacket"), message::deleteJacket,
         refused},
        {"delete a system fuel", Panel::fuels, Nothing, Click("cmdDeleteFuel"), message::deleteFuel, refused},
        {"a new fuel in SI", Panel::fuels, [](WindowDriver& driver) { driver.Trigger(T("mnuUnitsSI")); },
         Click("cmdAddFuel"), message::fuelsInImperial, refused},
    };
    return rules;
}

class RulesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { theme::Install(*qApp); }
    void SaysItOnceAndKeepsToIt_data();
    void SaysItOnceAndKeepsToIt();
    void ChangesTheOtherSetting();
    void EditsLayersInTheirCells();
    void TakesAnOpenCellAlong_data();
    void TakesAnOpenCellAlong();
    void LeaveChoicesToTheOneWhoChooses();
    void SaysNothingOfUnitsAlone();

private:
    ProgramCopy folder_;
};

void RulesTest::SaysItOnceAndKeepsToIt_data() {
    QTest::addColumn<std::size_t>("number");
    for (std::size_t i = 0; i < Rules().size(); ++i) {
        QTest::newRow(Rules()[i].name) << i;
    }
}

void RulesTest::SaysItOnceAndKeepsToIt() {
    QFETCH(std::size_t, number);
    const Rule& rule = Rules()[number];
    WindowDriver driver(folder_);
    driver.window->ShowPanel(Panel::surface);
    driver.window->ShowPanel(rule.panel);
    if (rule.panel == Panel::insulation) {
        driver.window->ShowPanel(Panel::surface); // it has the layers too
    }
    rule.before(driver);
    driver.told.clear();
    const MenuPosition position = driver.window->Position();
    const auto state = [&] {
        QStringList lines{QString::fromStdString(JobText(driver.TheJob(), driver.Session().Records()))};
        for (const char* const name : {"flxInsulationMaterial", "flxBaseMetals", "flxJacket", "flxFuel"}) {
            const QAbstractItemModel& model = *driver.Find<QTableView>(T(name)).model();
            for (int row = 0; row < model.rowCount(); ++row) {
                lines << model.index(row, 1).data().toString() + model.index(row, 2).data().toString();
            }
        }
        return lines;
    };
    const QStringList before = state();

    rule.act(driver);

    QCOMPARE(driver.told, rule.message.empty() ? QStringList() : QStringList{Q(rule.message)});
    QVERIFY2(driver.boxes.AreDone(), qPrintable(driver.boxes.unexpected.join(u'\n')));
    QCOMPARE(state() == before, rule.then == Then::refused);
    QCOMPARE(driver.window->Position(), position);
}

void RulesTest::ChangesTheOtherSetting() {
    WindowDriver driver(folder_);
    driver.Choose(T(geometryBox), T("Vertical Flat"));
    QVERIFY(!driver.Find(T("cboPipeSize")).isVisible());
    driver.Choose(T(typeBox), T("Insulation Thickness Table"));
    QCOMPARE(driver.Find<QComboBox>(T(geometryBox)).currentText(), T("Horizontal Pipe"));
    QVERIFY(driver.Find(T("cboPipeSize")).isVisible());
    driver.Choose(T(geometryBox), T("Horizontal Rectangular Duct"));
    QCOMPARE(driver.Find<QComboBox>(T(typeBox)).currentText(), T("Personnel Protection"));
    QVERIFY(driver.Find(T("txtMaxSurfaceTemp")).isVisible());
    QCOMPARE(driver.LabelText(T("lblDuctWidthInput")), T("Duct Horiz. Dimension:"));
    QCOMPARE(driver.LabelText(T("lblDuctDepthInput")), T("Duct Vert. Dimension:"));
    driver.Choose(T(geometryBox), T("Vertical Rectangular Duct"));
    QCOMPARE(driver.LabelText(T("lblDuctWidthInput")), T("Duct Width:"));
    QCOMPARE(driver.LabelText(T("lblDuctDepthInput")), T("Duct Depth:"));
    driver.Choose(T(geometryBox), T("Vertical Tank"));
    QCOMPARE(driver.LabelText(T("lblTankEnds")), Q(message::tankEnds));
    QVERIFY(driver.Find(T("lblTankEnds")).isVisible());
    driver.Choose(T(geometryBox), T("Horizontal Tube"));
    QCOMPARE(driver.LabelText(T("lblPipeSizeInput")), T("NTS Tube Size:"));
    QVERIFY(!driver.Find(T("lblTankEnds")).isVisible());
    QCOMPARE(static_cast<std::size_t>(driver.Find<QComboBox>(T("cboPipeSize")).count()),
             driver.Session().Records().Tubes.size());
}

void RulesTest::EditsLayersInTheirCells() {
    WindowDriver driver(folder_);
    QTableWidget& grid = driver.Layers();
    const auto column = [&](int number) {
        QStringList texts;
        for (int row = 0; row < grid.rowCount(); ++row) {
            texts << grid.item(row, number)->text();
        }
        return texts;
    };
    QCOMPARE(column(1), (QStringList{T("Base Metal"), T("Insulation"), T("Jacket Material")}));
    driver.Click(T("cmdAddLayer"));
    const auto choose = [&](int row, int cell, const char* box, const char* text) {
        grid.editItem(grid.item(row, cell));
        QVERIFY(driver.Choose(T(box), T(text)));
    };
    choose(2, 2, "cboInsulation", "Cellular Glass Pipe Insulation");
    choose(2, 4, "cboNominalThickness", "2");
    QCOMPARE(column(3).mid(1, 2), (QStringList{T("Vary"), T("Fix")}));
    QCOMPARE(column(4).mid(1, 2), (QStringList{QString(), T("2")}));
    driver.Click(T("cmdMoveUp"));
    QCOMPARE(column(2)[1], T("Cellular Glass Pipe Insulation"));
    QCOMPARE(grid.currentRow(), 1); // the selection goes with the row
    driver.Click(T("cmdCopyRow"));
    QCOMPARE(column(2)[1], column(2)[2]);
    QCOMPARE(column(0), (QStringList{T("1"), T("2"), T("3"), T("4"), T("5")}));
    choose(0, 2, "cboInsulation", "Copper");
    QCOMPARE(driver.Find<QComboBox>(T("cboBaseMetals")).currentText().left(6), T("Copper"));
    choose(1, 3, "cboLockThickness", "Vary");
    QCOMPARE(driver.TheJob().layers[0].locked, "Vary");
    // Flat surfaces have their thicknesses typed, and what is typed wrong stays to be seen.
    driver.Choose(T(geometryBox), T("Vertical Flat"));
    grid.editItem(grid.item(2, 4));
    auto& line = driver.Find<QLineEdit>(T("txtLayerThickness"));
    line.selectAll();
    QTest::keyClicks(&line, T("2 1/"));
    QTest::keyClick(&line, Qt::Key_Return);
    QTRY_COMPARE(column(4)[2], T("2 1/"));
    QVERIFY(driver.Find(T("lblInsulationError")).isVisible());
    driver.Trigger(T("mnuFileCalculate"));
    QVERIFY(!driver.Session().Result().done);
    QCOMPARE(column(4)[2], T("2 1/"));
}

void RulesTest::TakesAnOpenCellAlong_data() {
    QTest::addColumn<QString>("action");
    for (const char* const action : {"mnuFileCalculate", "mnuUnitsSI", "mnuFileSave", "cmdCopyRow"}) {
        QTest::newRow(action) << T(action);
    }
}

/// A thickness that is still being typed counts when something else is asked for from the keyboard.
void RulesTest::TakesAnOpenCellAlong() {
    QFETCH(QString, action);
    const auto file = folder_.Scratch("open-cell.kal");
    WindowDriver driver(folder_);
    driver.Choose(T(geometryBox), T("Vertical Flat"));
    QVERIFY(driver.Session().Save(file));
    QTableWidget& grid = driver.Layers();
    driver.Choose(T(typeBox), T("Heat Loss Per Hour"));
    grid.setCurrentCell(1, 3);
    grid.editItem(grid.item(1, 3));
    QVERIFY(driver.Choose(T("cboLockThickness"), T("Fix")));
    grid.editItem(grid.item(1, 4));
    auto& line = driver.Find<QLineEdit>(T("txtLayerThickness"));
    QTest::keyClicks(&line, T("2.5"));
    if (action.startsWith(T("cmd"))) {
        driver.Find<QAbstractButton>(action).click(); // an access key leaves the cursor where it is too
        QCOMPARE(driver.TheJob().layers.size(), std::size_t{2});
        QCOMPARE(driver.TheJob().layers[1].thickness, "2.5");
    } else {
        driver.Trigger(action);
    }
    if (action == u"mnuFileCalculate") {
        QCOMPARE(driver.Session().Result().grid.rows.size(), std::size_t{2});
    } else if (action == u"mnuUnitsSI") {
        QCOMPARE(driver.TheJob().layers[0].thickness, "63.5");
        QCOMPARE(grid.item(1, 4)->text(), T("63.5"));
        return;
    } else if (action == u"mnuFileSave") {
        QVERIFY(test::Slurp(file).find("Thickness=\"2.5\"") != std::string::npos);
        QVERIFY(!driver.window->isWindowModified());
    }
    QCOMPARE(driver.TheJob().layers[0].thickness, "2.5");
}

/// Who scrolls a panel does not mean the drop-down that comes to lie under the pointer.
void RulesTest::LeaveChoicesToTheOneWhoChooses() {
    WindowDriver driver(folder_);
    driver.Choose(T(typeBox), T("Heat Loss Per Year"));
    driver.window->ShowPanel(Panel::fuel);
    const std::string before = JobText(driver.TheJob(), driver.Session().Records());
    for (const char* const name : {"cboFuelType", "cboSystemUnits", geometryBox, "cboBaseMetals"}) {
        auto& box = driver.Find<QComboBox>(T(name));
        const QPointF middle(box.rect().center());
        for (const int turn : {-120, -120}) {
            QWheelEvent event(middle, box.mapToGlobal(middle), {}, {0, turn}, Qt::NoButton, Qt::NoModifier,
                              Qt::NoScrollPhase, false);
            QApplication::sendEvent(&box, &event);
        }
    }
    QCOMPARE(JobText(driver.TheJob(), driver.Session().Records()), before);
}

/// A caution that was given is not given again because the same temperature now reads in other units.
void RulesTest::SaysNothingOfUnitsAlone() {
    WindowDriver driver(folder_);
    driver.Type(T("txtProcessTemp"), T("1500"));
    QCOMPARE(driver.told, QStringList{Q(message::aboveMaxTemp)});
    driver.told.clear();
    driver.Trigger(T("mnuUnitsSI"));
    auto& line = driver.Find<QLineEdit>(T("txtProcessTemp"));
    line.setFocus();
    QTest::keyClick(&line, Qt::Key_Return);
    QCOMPARE(driver.told, QStringList());
    driver.Type(T("txtProcessTemp"), T("900"));
    QCOMPARE(driver.told, QStringList{Q(message::aboveMaxTemp)});
}

} // namespace
} // namespace kaloria

QTEST_MAIN(kaloria::RulesTest)
#include "rules_test.moc"
