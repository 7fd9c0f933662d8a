// SPDX-License-Identifier: GPL-3.0-or-later
// Economic and environmental reports of whole jobs, with templates of a line each and with those that ship.
#include "application/report_file.h"
#include "application/report_run.h"
#include "reports/rtf_binder.h"
#include "tests/support/job_fixture.h"
#include "tests/support/temporary_folder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <gmock/gmock.h>
#include <regex>

namespace kaloria {
namespace {

namespace fs = std::filesystem;
using test::Sets;
using test::Spill;
using test::TemporaryFolder;
using ::testing::ContainsRegex;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::StartsWith;

const std::string separator = std::string(65, '-') + "\n";

/// A 6 in pipe at 350 degF.
const Sets steamLine{{"ReportStartingTemperature", "250"}};
const Sets coldLine{{"HotSurface", "False"},
                    {"ReportFuel", "Electricity"},
                    {"ReportFuelCost", "0.0806"},
                    {"ReportHeatingValue", "3412.87"},
                    {"ReportInsulationMaterial", "Cellular Glass Pipe Insulation"},
                    {"ReportPipeInsulationPrice", "0"},
                    {"ReportStartingTemperature", "60"},
                    {"ReportTemperatureIncrement", "-20"}};
const Sets retrofit{{"NewApplication", "False"}, {"ReportExistingInsulationThickness", "1"}};

struct Asked {
    ReportKind kind = ReportKind::economic;
    bool engineering = false;
    std::vector<int> items{12};
    Units units = Units::english;
    ReportProgress progress = {};
};

/// A program folder whose templates can be changed.
struct OwnFolder {
    OwnFolder() {
        for (const auto& entry : fs::directory_iterator(KALORIA_RESOURCES_DIR)) {
            if (entry.is_regular_file()) {
                fs::copy_file(entry.path(), folder / entry.path().filename().string());
            }
        }
    }
    TemporaryFolder folder;
};

class Report : protected OwnFolder, public test::JobFixture {
protected:
    Report() : JobFixture(folder / "") {}

    void SetTemplate(const std::string& name, const std::string& text) {
        Spill(folder / (name + "Template.rtf"), "{\\rtf1\\ansi\\uc1 " + text + "\\par}");
    }

    /// Templates of one line, which tell pages apart.
    void SetShortTemplates() {
        SetTemplate("Cover", "cover <ProjectName/> <ReportDate/>");
        SetTemplate("GeneralEconomic", "general <FuelName/>");
        SetTemplate("Economic", "tables <PipeSize/> <PageNumber/>");
        SetTemplate("EconomicEngineer", "engineer <PipeSize/> <PageNumber/>");
        SetTemplate("Environmental", "air tables <PipeSize/> <PageNumber/>");
        SetTemplate("EnvironmentalEngineer", "air engineer <PipeSize/> <PageNumber/>");
        SetTemplate("Disclaimer", "end <CompanyName/>");
    }

    ReportResult Run(const Sets& sets, const Asked& asked = {}) {
        OpenAsFiled(sets, asked.units);
        ReportRequest request;
        request.economics.choice.items = asked.items;
        request.economics.choice.engineering = asked.engineering;
        request.kind = asked.kind;
        request.date = std::chrono::year(2026) / 3 / 7;
        request.progress = asked.progress;
        return RunReport(application, request);
    }

    std::string TextOfReport(const Sets& sets, const Asked& asked = {}) {
        const ReportResult result = Run(sets, asked);
        return result.rtf.empty() ? "" : rtf::Document(result.rtf).PlainText();
    }

    /// What a body page of these tags becomes.
    std::string Body(const std::string& tags, const Sets& sets, const Asked& asked = {}) {
        SetShortTemplates();
        const bool economic = asked.kind == ReportKind::economic;
        SetTemplate(std::string(economic ? "Economic" : "Environmental") +
                        (asked.engineering ? "Engineer" : ""),
                    "body\\par " + tags);
        const std::string text = TextOfReport(sets, asked);
        const auto begin = text.find("body\n") + 5;
        return text.substr(begin, text.find('\n' + separator, begin) - begin);
    }
};

TEST_F(Report, PagesStandInOrderWithASeparatorBehindEach) {
    const struct {
        ReportKind kind;
        bool engineering;
        Units units;
        std::vector<int> items;
        std::string body;
    } rows[] = {
        {ReportKind::economic,
         false,
         Units::english,
         {6, 27},
         "tables Pipe Size = 2 inches 3\n" + separator + "tables  4\n" + separator},
        {ReportKind::economic, true, Units::si, {12}, "engineer Pipe Size = 150 mm 3\n" + separator},
        {ReportKind::environmental, false, Units::si, {12}, "air tables Pipe Size = 150 mm 3\n" + separator},
        {ReportKind::environmental,
         true,
         Units::english,
         {12},
         "air engineer Pipe Size = 6 inches 3\n" + separator},
        {ReportKind::economic, false, Units::english, {}, ""},
    };
    SetShortTemplates();
    for (const auto& row : rows) {
        SCOPED_TRACE(row.body);
        EXPECT_EQ(TextOfReport({{"ReportName", "Plant {7}\\x Ω"}, {"CompanyName", "Müller"}},
                               {row.kind, row.engineering, row.items, row.units, {}}),
                  "cover Plant {7}\\x Ω 03/07/2026\n" + separator + "general Natural Gas\n" + separator +
                      row.body + "end Müller\n" + separator);
    }
}

TEST_F(Report, TellsWhatItDoesAndCanBeEndedBetweenItems) {
    std::vector<std::string> seen;
    const auto watch = [&](std::string_view caption, int done, int count) {
        seen.push_back(std::string(caption) + std::to_string(done) + "/" + std::to_string(count));
        return true;
    };
    EXPECT_FALSE(Run({}, {.items = {5, 6}, .progress = watch}).rtf.empty());
    EXPECT_EQ(seen.front().substr(0, 22), "Performing Analysis...");
    const std::size_t steps = seen.size();
    EXPECT_EQ(seen.back(), "Creating Report ...2/2");
    for (std::size_t last = 0; last < steps; ++last) {
        std::size_t step = 0;
        const auto end = [&](std::string_view, int, int) { return step++ != last; };
        const ReportResult result = Run({}, {.items = {5, 6}, .progress = end});
        EXPECT_TRUE(result.economics.cancelled);
        EXPECT_TRUE(result.rtf.empty()) << "ended at step " << last;
    }
}

TEST_F(Report, ATemplateThatIsMissingOrBrokenIsNamedBeforeAnythingIsDone) {
    const char* const names[] = {"Cover", "GeneralEconomic", "Economic", "Disclaimer"};
    for (const char* const name : names) {
        const auto path = folder / (std::string(name) + "Template.rtf");
        const std::string whole = test::Slurp(path);
        for (const bool isMissing : {true, false}) {
            fs::remove(path);
            if (!isMissing) {
                Spill(path, whole.substr(0, whole.size() / 2));
            }
            messages.shown.clear();
            bool isStarted = false;
            const auto watch = [&](std::string_view, int, int) { return isStarted = true; };
            const ReportResult result = Run({}, {.progress = watch});
            EXPECT_TRUE(result.rtf.empty() && !result.hasTemplates && !isStarted);
            EXPECT_THAT(messages.shown, ElementsAre(HasSubstr(path.filename().string())));
        }
        Spill(path, whole);
    }
    EXPECT_FALSE(Run({}).rtf.empty());
    messages.shown.clear();
    EXPECT_FALSE(SaveReport(application, folder / "no/such/folder.rtf", "{\\rtf1}"));
    EXPECT_THAT(messages.shown,
                ElementsAre("A problem occured while saving your report.  Please try again."));
}

TEST_F(Report, TheTemplatesThatShipAreFilledWhole) {
    for (const Sets& sets : {steamLine, coldLine, retrofit}) {
        for (const Units units : {Units::english, Units::si}) {
            for (const ReportKind kind : {ReportKind::economic, ReportKind::environmental}) {
                for (const bool engineering : {false, true}) {
                    const ReportResult result = Run(sets, {kind, engineering, {12, 28}, units, {}});
                    ASSERT_FALSE(result.rtf.empty());
                    const rtf::Document report(result.rtf);
                    EXPECT_THAT(report.Tags(), ElementsAre());
                    const std::string text = report.PlainText(rtf::Document::TextOf::everything);
                    const char* const size =
                        units == Units::si ? "Pipe Size = 150 mm" : "Pipe Size = 6 inches";
                    EXPECT_THAT(text, HasSubstr(size));
                    EXPECT_THAT(text, HasSubstr("Top of Tank or Duct"));
                }
            }
        }
    }
}

/// The figures of the worked examples in docs/methods-economics.md, and those that the window's drawing has
/// of the same line.
TEST_F(Report, EveryThicknessWithItsMoney) {
    const std::string english =
        Body("<EconomicThickness/>\\par <Savings/>\\par <TableData/>", steamLine, {.engineering = true});
    EXPECT_THAT(english, StartsWith("The economic thickness is a single layer of 2.5 in.\n"
                                    "Its total savings against the bare surface are 58.79 $/lnft/yr; "));
    EXPECT_THAT(english, HasSubstr("Thickness\tHeat Loss\tSurface Temp\tInstalled Cost\tPayback\t"
                                   "Annual Cost\tTotal Savings\t\n"
                                   "Inches\tBtu/hr/ft\t°F\t$/lnft\tYears\t$/ft/yr\t$/lnft/yr\t\n"
                                   "Bare\t1572.74\t349.3\t0.00\t-\t"));
    EXPECT_THAT(english, HasSubstr("\n0.5\t269.43\t162.5\t-\t-\t")); // the estimate has no price for it
    EXPECT_THAT(english, HasSubstr("\n1.5\t123.37\t110.9\t"));
    EXPECT_THAT(english, ContainsRegex("\n2.5\t[0-9.\t]+\t24.12\t[0-9.]+\t[0-9.]+\t58.79\t\n"));
    EXPECT_THAT(english, ContainsRegex("\n3.0\t74.29\t[0-9.]+\t27.90\t[0-9.]+\t3.41\t58.76\t\n"
                                       "Double Layer\t\n3.5\t"));
    EXPECT_THAT(english, HasSubstr("\nTriple Layer\t\n6.5\t"));

    // 123.37 Btu/(h ft) x 0.9614 W/m x 3600 s; 27.90 and 58.759 $/ft x 3.28084 ft/m.
    const std::string si = Body("<TableData/>", steamLine, {.engineering = true, .units = Units::si});
    EXPECT_THAT(si, HasSubstr("\nmm\tJ/hr/m\t°C\t$/m\tYears\t$/m/yr\t$/m/yr\t\n"));
    std::smatch match;
    ASSERT_TRUE(std::regex_search(si, match, std::regex("\n38.1\t([0-9]+)\t43.8\t")));
    EXPECT_NEAR(std::stod(match[1]), 426988, 20);
    EXPECT_THAT(si, ContainsRegex("\n76.2\t[0-9]+\t[0-9.]+\t91.5[34]\t[0-9.]+\t[0-9.]+\t192.78\t\n"));
}

TEST_F(Report, WhatTheAirIsSpared) {
    const Asked engineer{ReportKind::environmental, true, {12}, Units::english, {}};
    const std::string text = Body("<PollutionData/>\\par <TableData/>", steamLine, engineer);
    EXPECT_THAT(text, StartsWith("The reduction in CO2 is 1811.19 Lbs/lnft/yr\tThe reduction in NOx is "));
    EXPECT_THAT(text, HasSubstr("\nThickness\tHeat Loss\tCO2\tNOx\tSO2\tCO\tCH4\tN2O\tPM\t\n"));
    EXPECT_THAT(text, ContainsRegex("\n2.0\t97.91\t1794.2[67]\t"));
    EXPECT_THAT(text, HasSubstr("\nBare\t1572.74\t-\t-\t"));
    const Asked tables{ReportKind::environmental, false, {27}, Units::si, {}};
    EXPECT_THAT(Body("<PollutionData/>", steamLine, tables),
                StartsWith("Temperature\tCO2 Reduction\tNOx Reduction\tSO2 Reduction\tCO Reduction\t"
                           "CH4 Reduction\tN2O Reduction\tPM Reduction\t\n"
                           "°C\tLbs/sqft/yr\tLbs/sqft/yr\t"));
}

TEST_F(Report, TheSixthColumnCarriesTheUnits) {
    const std::string tags = "<Temperature5/>|<Temperature6/>|<Thickness6/>|<HeatLoss6/>|<SurfaceTemp6/>|"
                             "<Payback6/>|<AnnualCost6/>|<TotalSavings6/>|<HeatGain/>|<Units5/>";
    const std::string number = "-?[0-9.]+";
    const struct {
        int item;
        Units units;
        std::string units7;
    } rows[] = {
        {12, Units::english, "750.0 °F|N in|N Btu/ft/hr|N °F|N yr|N \\$/ft/yr|N \\$/lnft/yr|"},
        {27, Units::english, "750.0 °F|N in|N Btu/hr/ft\\^2|N °F|N yr|N \\$/ft\\^2/yr|N \\$/sqft/yr|"},
        {12, Units::si, "398.9 °C|N mm|N W/m|N °C|N yr|N \\$/m/yr|N \\$/m/yr|"},
        {29, Units::si, "398.9 °C|N mm|N W/m\\^2|N °C|N yr|N \\$/m\\^2/yr|N \\$/sqm/yr|"},
    };
    for (const auto& row : rows) {
        std::string pattern = std::regex_replace(row.units7, std::regex("\\|"), "\\|");
        pattern = std::regex_replace(pattern, std::regex("N"), number);
        const std::string text = Body(tags, {}, {.items = {row.item}, .units = row.units});
        EXPECT_TRUE(std::regex_match(text, std::regex(number + "\\|" + pattern + "Loss\\|<Units5/>")))
            << text << "\n"
            << pattern;
    }
}

TEST_F(Report, WhatWasNotComputedIsADash) {
    const std::string tags = "<Thickness1/>|<HeatLoss1/>|<SurfaceTemp1/>|<Payback1/>|<AnnualCost1/>|"
                             "<TotalSavings1/>|<LaborRate/>|<BoardInstallationCost/>";
    const Sets unpriced{{"FEA", "False"}, {"PreviousCostData", "True"}};
    EXPECT_EQ(Body(tags, unpriced), "-|-|-|-|-|-|-|-");
    EXPECT_EQ(Body("<EconomicThickness/> <Savings/>", unpriced, {.engineering = true}),
              "There is no economic thickness. No thickness above the reference has an installed cost. There "
              "are no savings to be reported.");
    // Twenty hours a year do not pay for insulation.
    const std::string idle =
        Body("<EconomicThickness/>\\par <Savings/>", {{"AnnualOperation", "20"}}, {.engineering = true});
    EXPECT_THAT(idle, StartsWith("No thickness pays: the reference is cheaper"));
    EXPECT_THAT(idle, HasSubstr("it is never paid back."));
}

/// A column that gave the thickness that comes closest would recommend a loss.
TEST_F(Report, WhereNoThicknessPaysTheTablesGiveTheReference) {
    const std::string tags = "<Thickness1/>|<HeatLoss1/>|<Payback1/>|<TotalSavings1/>";
    const struct {
        Sets sets;
        const char* pattern;
    } rows[] = {
        {{}, "Bare\\|[0-9.]+\\|-\\|-"},
        {{{"PaybackReferenceThickness", "2"}}, "2.0\\|[0-9.]+\\|-\\|-"},
        {retrofit, "Do Nothing\\|[0-9.]+\\|-\\|-"},
    };
    for (const auto& row : rows) {
        Sets sets = row.sets;
        sets.emplace_back("AnnualOperation", "20"); // hours: insulation is not paid for by them
        EXPECT_THAT(Body(tags, sets), ::testing::MatchesRegex(row.pattern));
    }
    const Asked air{ReportKind::environmental, false, {12}, Units::english, {}};
    EXPECT_THAT(Body("<PollutionData/>", {{"AnnualOperation", "20"}}, air), HasSubstr("\n250.0\t-\t-\t"));
}

TEST_F(Report, AGainIsNoLoss) {
    // Bare, 135.32 Btu/(h ft) flow in.
    const Asked engineer{.engineering = true};
    EXPECT_THAT(Body("<HeatGain/>\\par <TableData/>", coldLine, engineer),
                ::testing::AllOf(StartsWith("Gain\nThickness\tHeat Gain\t"), HasSubstr("\nBare *\t135.32\t"),
                                 HasSubstr("\n* surface below the dew point of ")));
    EXPECT_THAT(Body("<HeatGain/> <HeatLoss1/>", coldLine), StartsWith("Gain 1"));
    EXPECT_THAT(Body("Heat loss: <HeatLoss1/>", coldLine), StartsWith("Heat loss: -1"));
    EXPECT_THAT(Body("<HeatGain/> <HeatLoss1/>", steamLine), StartsWith("Loss 8"));
}

TEST_F(Report, GeneralPageInBothUnits) {
    const std::string tags = "<FuelPrice/> <FuelCostUnits/>|<FuelBTU/> <FuelBTUUnits/>|<AverageTemp/>|"
                             "<AverageWindSpeed/>|<ReferenceThickness/>|<FuelEfficiency/>|<TaxRate/>|"
                             "<InvestmentRate/>|<OperatingHours/>|<InsulationDepreciationPeriod/>";
    const struct {
        Sets sets;
        Units units;
        const char* text;
    } rows[] = {
        {{{"PaybackReferenceThickness", "1"}, {"InvestmentRate", "20000"}},
         Units::english,
         "4.53 $/Mcf|1026 Btu/cf|75.0 °F|2.0 mph|1.0 in|80.0|25.0|20000.00 $/MMBtu/hr|8320|15"},
        // 4.53 $ per 1000 x 0.02831685 m3; 1026 x 1055.87 / 0.02831685 J/m3.
        {{}, Units::si, "0.1600 $/m^3|38257173 J/m^3|23.9 °C|0.9 m/s|Bare|80.0|25.0|0.00 $/MMJ/hr|8320|15"},
        {{{"ReportFuel", "Electricity"},
          {"ReportFuelCost", "0.0806"},
          {"NewApplication", "False"},
          {"ReportExistingInsulationThickness", "1"}},
         Units::english,
         "0.0806 $/kWh|1026 Btu/kWh|75.0 °F|2.0 mph|Do Nothing (Mineral Wool Pipe Insulation 1200 "
         "F)|80.0|25.0|"
         "0.00 $/MMBtu/hr|8320|15"},
    };
    SetShortTemplates();
    SetTemplate("GeneralEconomic", "data\\par " + tags);
    for (const auto& row : rows) {
        EXPECT_THAT(TextOfReport(row.sets, {.items = {}, .units = row.units}),
                    HasSubstr(std::string("data\n") + row.text + "\n"));
    }
}

} // namespace
} // namespace kaloria
