// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/atomic_file.h"
#include "reports/rtf_binder.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>
#include <string>
#include <vector>

namespace kaloria::rtf {
namespace {

using Words = std::vector<std::string>;

constexpr const char* company = "CompanyName Address CityStateZip PhoneNumber ";
constexpr const char* surface =
    "SurfaceNumber SurfaceGeometry PipeSize BaseMetalEmittance BaseMetalName InstallationComplexity "
    "ComplexityFactor LaborRate ProductivityFactor PipeInstallationCost BoardInstallationCost PageNumber ";
constexpr const char* columns = "Temperature Thickness HeatLoss SurfaceTemp Payback AnnualCost TotalSavings";

Words SplitWords(const std::string& text) {
    std::istringstream in(text);
    Words words;
    for (std::string word; in >> word;) {
        words.push_back(word);
    }
    return words;
}

std::string SixColumns() {
    std::string all;
    for (const std::string& word : SplitWords(columns)) {
        for (int i = 1; i <= 6; ++i) {
            all += fmt::format("{}{} ", word, i);
        }
    }
    return all;
}

struct Template {
    std::string name;
    std::string tags;   ///< without brackets
    std::string blocks; ///< of them those that stand alone in a paragraph outside tables
};

std::vector<Template> Templates() {
    const std::string pages = std::string(company) + surface;
    const std::string one = pages + "Temperature TableData EconomicThickness Savings ";
    const std::string panel = std::string(company) +
                              "ItemDescription CalculationType Geometry BareSurfaceEmittance "
                              "AverageAmbientTemp AverageWindSpeed RelativeHumidity DewPoint "
                              "OuterJacketMaterial OuterSurfaceEmittance ";
    return {
        {"Cover",
         std::string(company) + "ProjectName ProjectNumber System Location Date Engineer Contact Phone "
                                "ReportDate",
         ""},
        {"GeneralEconomic",
         std::string(company) +
             "FuelName FuelPrice FuelCostUnits FuelBTU FuelBTUUnits AverageTemp AverageWindSpeed "
             "ReferenceThickness FuelEfficiency FuelInflationRate OperatingHours InterestRate TaxRate "
             "PlantDepreciationPeriod InsulationDepreciationPeriod InvestmentRate "
             "InsulationMaintenancePercent FuelMaintenancePercent JacketEmittance JacketName BaseEmittance "
             "InsulationName Date ReportDate",
         ""},
        {"Economic", pages + SixColumns() + "HeatGain", ""},
        {"EconomicEngineer", one + "HeatGain Units1 Units2 Units3 Units4 Units6 Units7",
         "TableData EconomicThickness Savings"},
        {"Environmental", pages + SixColumns() + "HeatGain PollutionData", "PollutionData"},
        {"EnvironmentalEngineer", one + "PollutionData", "TableData PollutionData EconomicThickness Savings"},
        {"Disclaimer", "", ""},
        {"ShortReport",
         panel + "SystemUnits PipeType PipeSize ProcessTemp Efficiency HoursPerYear RelativeHumidityLabel "
                 "DewPointLabel CondensationControlThicknessLabel CondensationControlThickness "
                 "InsulationLayer1 InsulationLayer2 InsulationLayer3 InsulationLayer4 InsulationLayer5 "
                 "UpperHeader LowerHeader Data",
         "Efficiency HoursPerYear InsulationLayer1 InsulationLayer5 UpperHeader LowerHeader Data"},
        {"Table", panel + "MaxSurfaceTemperature InsulationLayers Table", "InsulationLayers Table"},
        {"InsulationTable", std::string(company) + "ItemDescription CalculationType Geometry Table", "Table"},
    };
}

std::string Bracketed(const std::string& word) { return fmt::format("<{}/>", word); }

/// A template, or a sample when the name is that of a file.
Document Loaded(const std::string& name) {
    const bool isSample = name.ends_with(".rtf");
    return Document(ReadFile(isSample ? KALORIA_TEST_DATA_DIR "/rtf/" + name
                                      : KALORIA_RESOURCES_DIR "/" + name + "Template.rtf",
                             maxBytes));
}

TEST(RtfTemplates, HaveTheirTagsAndRoomForBlocks) {
    TableBuilder table(std::vector<TableColumn>(2));
    table.AddRow({"1"});
    for (const Template& sample : Templates()) {
        SCOPED_TRACE(sample.name);
        Document document = Loaded(sample.name);
        Words expected;
        for (const std::string& word : SplitWords(sample.tags)) {
            expected.push_back(Bracketed(word));
        }
        std::sort(expected.begin(), expected.end());
        EXPECT_EQ(document.Tags(), expected);
        const std::string text = fmt::format("\n{}", document.PlainText());
        for (const std::string& word : SplitWords(sample.blocks)) {
            EXPECT_NE(text.find(fmt::format("\n<{}/>\n", word)), std::string::npos) << word;
            EXPECT_NO_THROW(document.FillBlock(Bracketed(word), table.Build())) << word;
        }
    }
}

/// A row goes with the optional tag that it is there for, and takes nothing else along.
TEST(RtfTemplates, LoseOptionalLinesAlone) {
    const struct {
        const char* name;
        const char* tags;
    } rows[] = {
        {"ShortReport", "RelativeHumidityLabel RelativeHumidity"},
        {"ShortReport", "DewPointLabel DewPoint"},
        {"ShortReport", "CondensationControlThicknessLabel CondensationControlThickness"},
        {"ShortReport", "PipeType PipeSize"},
        {"writer-short-report.rtf", "PipeType PipeSize"},
        {"writer-short-report.rtf", "DewPointLabel DewPoint"},
        {"writer-short-report.rtf", "InsulationLayer3"},
        {"ShortReport", "InsulationLayer3"},
        {"ShortReport", "Efficiency"},
        {"ShortReport", "HoursPerYear"},
        {"Table", "MaxSurfaceTemperature"},
        {"Table", "RelativeHumidity"},
        {"Table", "DewPoint"},
        {"Economic", "PipeSize"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.tags);
        Document document = Loaded(row.name);
        auto left = document.Tags();
        const Words words = SplitWords(row.tags);
        EXPECT_EQ(document.RemoveParagraphsWith({Bracketed(words.front())}), 1U);
        for (const std::string& word : words) {
            left.erase(std::remove(left.begin(), left.end(), Bracketed(word)), left.end());
        }
        EXPECT_EQ(document.Tags(), left);
    }
}

} // namespace
} // namespace kaloria::rtf
