// SPDX-License-Identifier: GPL-3.0-or-later
// Takes a picture of every panel and window, in both unit systems, light and dark, into a folder:
//
//     ui_screenshots FOLDER [SUFFIX [PERCENT]]        scale: QT_SCALE_FACTOR=2; PERCENT of the usual text
//     size
#include "application/navigation.h"
#include "application/report_run.h"
#include "tests/ui/program_copy.h"
#include "ui/compare/compare_commands.h"
#include "ui/compare/compare_window.h"
#include "ui/dialogs/about_box.h"
#include "ui/dialogs/disclaimer.h"
#include "ui/dialogs/emittance_dialog.h"
#include "ui/dialogs/fuel_dialog.h"
#include "ui/dialogs/help_window.h"
#include "ui/dialogs/insulation_dialog.h"
#include "ui/main_window.h"
#include "ui/theme.h"
#include "ui/viewer/view_report.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDir>
#include <QTest>

#include <iostream>

namespace {

using namespace kaloria;

class Photographer {
public:
    Photographer(QString folder, QString suffix) : folder_(std::move(folder)), suffix_(std::move(suffix)) {
        QDir().mkpath(folder_);
    }

    void TakeAll() {
        for (const theme::Scheme scheme : {theme::Scheme::light, theme::Scheme::dark}) {
            theme::Force(scheme);
            for (const Units units : {Units::english, Units::si}) {
                name_ = QStringLiteral("%1-%2").arg(
                    scheme == theme::Scheme::dark ? QStringLiteral("dark") : QStringLiteral("light"),
                    units == Units::si ? QStringLiteral("si") : QStringLiteral("english"));
                TakeWindow(units);
            }
        }
    }

private:
    void TakeWindow(Units units) {
        MemorySettings settings;
        MessageBoxes messages;
        messages.SetHandler([](const std::string& text) { std::cerr << text << '\n'; });
        MainWindow window({program_.Path(), program_.Scratch("recovery")}, settings, messages);
        window.StartUp();
        window.SwitchUnits(units);
        window.resize(1280, 800);
        window.show();
        QTest::qWait(50);
        for (int category = 0; category < static_cast<int>(MenuCategories().size()); ++category) {
            const auto items = MenuCategories()[static_cast<std::size_t>(category)].items;
            for (int item = 0; item < static_cast<int>(items.size()); ++item) {
                if (items[static_cast<std::size_t>(item)].panel != Panel::none) {
                    window.ShowPosition({category, item});
                    Take(window, QStringLiteral("panel-%1-%2").arg(category).arg(item));
                }
            }
        }
        TakeCases(window);
        TakeDialogs(window, units);
    }

    void TakeCases(MainWindow& window) {
        window.ShowPosition({1, 0});
        Session& session = window.TheSession();
        for (int type = 1; type < 7; ++type) {
            session.Choose(Field::InsulationThicknessCalculationType,
                           std::string(calculationTypeNames[static_cast<std::size_t>(type)]));
            Take(window, QStringLiteral("type-%1").arg(type));
            if (calculationTypeNames[static_cast<std::size_t>(type)] == "Heat Loss Per Year") {
                TakePlots(window);
            }
        }
        session.Choose(Field::InsulationThicknessCalculationType, std::string(calculationTypeNames[0]));
        session.SetText(Field::ProcessTemp, "35x");
        Take(window, QStringLiteral("wrong-entry"));
        session.SetText(Field::ProcessTemp, "350");
        session.Choose(Field::SurfaceGeometry, "Horizontal Rectangular Duct");
        Take(window, QStringLiteral("duct"));
        window.resize(1024, 700);
        Take(window, QStringLiteral("narrow"));
        window.ShowPosition({1, 3});
        Take(window, QStringLiteral("narrow-results"));
        window.resize(1280, 800);
    }

    /// A year's calculation has every plot there is.
    void TakePlots(MainWindow& window) {
        for (const char* const plot : {"Profile", "Cost", "Emissions", "Sensitivity", "Thickness"}) {
            window.findChild<QAbstractButton*>(QStringLiteral("cmdPlot") + QLatin1String(plot))->click();
            Take(window, QStringLiteral("plot-%1").arg(QString::fromLatin1(plot).toLower()));
        }
    }

    void TakeDialogs(MainWindow& window, Units units) {
        Session& session = window.TheSession();
        const Catalogue& records = session.Records();
        InsulationDialog insulation(records, records.Insulations.front(), units, &window);
        TakeDialog(insulation, "insulation");
        FuelDialog fuel(records, records.Fuels.front(), units, &window);
        TakeDialog(fuel, "fuel");
        BaseMetalDialog metal(records, records.BaseMetals.front(), units, &window);
        TakeDialog(metal, "base-metal");
        JacketDialog jacket(records, records.JacketMaterials.front(), units, &window);
        TakeDialog(jacket, "jacket");
        AboutBox about(session.App(), &window);
        TakeDialog(about, "about");
        Disclaimer disclaimer(session.Settings(), &window);
        TakeDialog(disclaimer, "disclaimer");
        session.Choose(Field::SurfaceGeometry, "Horizontal Pipe");
        const ReportRequest request;
        FrmViewReport viewer(&window);
        viewer.ShowReport(RunReport(session.App(), request).rtf, QStringLiteral("NewJob.rtf"));
        viewer.resize(1000, 800);
        TakeDialog(viewer, "report");
        HelpWindow help(&window);
        help.Explain(Field::ProcessTemp, session.TheJob(), records);
        TakeDialog(help, "help");
        TakeComparison(window);
    }

    void TakeComparison(MainWindow& window) {
        Session& session = window.TheSession();
        window.Compare().ShowWindow();
        auto& shown = *window.findChild<CompareWindow*>();
        Take(shown, QStringLiteral("compare-0"));
        const std::pair<const char*, const char*> variants[] = {{"Steam line, mineral wool", "2"},
                                                                {"In still air", "0"},
                                                                {"In the wind of the open pipe rack", "15"}};
        int count = 0;
        for (const auto& [name, wind] : variants) {
            session.SetText(Field::ItemDescription, name);
            session.SetText(Field::WindSpeed, wind);
            window.Compare().Keep();
            Take(shown, QStringLiteral("compare-%1").arg(++count));
        }
        session.Choose(Field::SurfaceGeometry, "Vertical Flat");
        window.Compare().Keep();
        session.SetText(Field::ProcessTemp, "1400");
        window.Compare().Keep();
        session.Choose(Field::SurfaceGeometry, "Horizontal Pipe");
        session.Choose(Field::PipeSize, "7");
        window.Compare().Keep();
        Take(shown, QStringLiteral("compare-6"));
    }

    void TakeDialog(QWidget& dialog, const char* name) {
        dialog.show();
        Take(dialog, QStringLiteral("dialog-%1").arg(QLatin1String(name)));
        dialog.hide();
    }

    void Take(QWidget& widget, const QString& what) {
        QTest::qWait(120);
        widget.grab().save(QStringLiteral("%1/%2-%3%4.png").arg(folder_, what, name_, suffix_));
    }

    QString folder_;
    QString suffix_;
    QString name_;
    test::ProgramCopy program_;
};

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QApplication::setApplicationVersion(QStringLiteral(KALORIA_VERSION));
    theme::Install(application);
    const QStringList arguments = QApplication::arguments();
    if (arguments.size() < 2) {
        std::cerr << "usage: ui_screenshots FOLDER [SUFFIX [PERCENT]]\n";
        return 2;
    }
    if (arguments.size() > 3) {
        QFont font = QApplication::font();
        font.setPointSizeF(font.pointSizeF() * arguments[3].toDouble() / 100);
        QApplication::setFont(font);
    }
    Photographer(arguments[1], arguments.value(2)).TakeAll();
    return 0;
}
