// SPDX-License-Identifier: GPL-3.0-or-later
// The results grid for other programs.
#include "application/grid_export.h"
#include "data/atomic_file.h"
#include "tests/support/job_fixture.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/zip_file.h"

#include <gtest/gtest.h>
#include <pugixml.hpp>

#include <gmock/gmock.h>
#include <optional>

namespace kaloria {
namespace {

using ::testing::HasSubstr;

/// Two rows of a grid with every kind of cell, and a pollutant of the user's with a hostile name.
ResultsGrid SmallGrid() {
    ResultsGrid grid;
    grid.columns = {
        {ResultKind::label, 0, " Variable Insulation", "Thickness", NumberFormat::shortest},
        {ResultKind::surfaceTemp, 0, "Surface Temp", "(°F)", NumberFormat::tenths},
        {ResultKind::cost, 0, "Cost", "($/ft/yr)", NumberFormat::hundredths},
        {ResultKind::emission, 0, "=HYPERLINK(\"x\",1)", "(lb/ft/yr)", NumberFormat::thousandths}};
    grid.rows.resize(2);
    grid.rows[0] = {"Bare", std::nullopt, {{350.04, "350.0"}, {-1.005, "-1.01"}, {}}, false, ""};
    grid.rows[1] = {
        "1.5", 1.5, {{140.25, "140.3"}, {std::nullopt, "-"}, {std::nullopt, "@x\ty, z"}}, true, ""};
    return grid;
}

/// A sheet of a workbook: cells by reference, with texts looked up and numbers as written.
class Sheet {
public:
    Sheet(const std::map<std::string, std::string>& files, const std::string& name) {
        strings_.load_string(files.at("xl/sharedStrings.xml").c_str());
        sheet_.load_string(files.at("xl/worksheets/" + name).c_str());
    }

    [[nodiscard]] std::string Text(const std::string& cell) const {
        const pugi::xml_node node = Cell(cell);
        if (std::string_view(node.attribute("t").value()) != "s") {
            return std::string("no text: ") + node.child_value("v");
        }
        auto item = strings_.child("sst").begin();
        std::advance(item, std::atoi(node.child_value("v")));
        return item->child_value("t");
    }
    [[nodiscard]] std::optional<double> Number(const std::string& cell) const {
        const pugi::xml_node node = Cell(cell);
        const bool isNumber = node.child("v") && node.attribute("t").empty();
        return isNumber ? std::optional(node.child("v").text().as_double()) : std::nullopt;
    }
    [[nodiscard]] int Style(const std::string& cell) const { return Cell(cell).attribute("s").as_int(); }
    [[nodiscard]] const pugi::xml_document& Xml() const { return sheet_; }
    /// The row whose first cell has that text; 0 when none has.
    [[nodiscard]] std::string RowOf(const std::string& text) const {
        for (const pugi::xml_node row : sheet_.child("worksheet").child("sheetData")) {
            std::string number = row.attribute("r").value();
            if (Text("A" + number) == text) {
                return number;
            }
        }
        return "0";
    }

private:
    [[nodiscard]] pugi::xml_node Cell(const std::string& reference) const {
        for (const pugi::xml_node row : sheet_.child("worksheet").child("sheetData")) {
            if (const auto cell = row.find_child_by_attribute("r", reference.c_str())) {
                return cell;
            }
        }
        return {};
    }

    pugi::xml_document strings_;
    pugi::xml_document sheet_;
};

TEST(GridExport, TextPastesAsCellsAndNeverAsAFormula) {
    EXPECT_EQ(GridAsTabText(SmallGrid()), "Variable Insulation\tSurface Temp\tCost\t'=HYPERLINK(\"x\",1)\n"
                                          "Thickness\t(°F)\t($/ft/yr)\t(lb/ft/yr)\n"
                                          "Bare\t350.0\t-1.01\t\n"
                                          "1.5\t140.3\t-\t'@x y, z\n");
    EXPECT_EQ(GridAsCsv(SmallGrid()),
              "\xEF\xBB\xBFVariable Insulation,Surface Temp,Cost,\"'=HYPERLINK(\"\"x\"\",1)\"\r\n"
              "Thickness,(°F),($/ft/yr),(lb/ft/yr)\r\n"
              "Bare,350.0,-1.01,\r\n"
              "1.5,140.3,-,\"'@x\ty, z\"\r\n");
}

class GridWorkbook : public test::JobFixture {};

TEST_F(GridWorkbook, HoldsNumbersFormatsHeadingsAndTheCase) {
    CalculationResult result = Run({{"ItemDescription", "=2+3"}, {"ProcessTemp", "350.5"}});
    const Job& job = application.CurrentJob();
    ASSERT_TRUE(result.done && result.grid.rows.size() > 3);

    const test::TemporaryFolder scratch;
    const auto path = scratch / "grid.xlsx";
    WriteGridXlsx(path, result, job, application.Records());
    const auto files = test::Unzipped(test::Slurp(path));
    const Sheet grid(files, "sheet1.xml");
    const Sheet inputs(files, "sheet2.xml");
    EXPECT_EQ(grid.Text("A1"), "Variable Insulation");
    EXPECT_EQ(grid.Text("B2"), "(°F)");
    EXPECT_EQ(grid.Text("A3"), "Bare");
    std::set<int> styles;
    for (std::size_t i = 1; i < result.grid.rows.size(); ++i) {
        const ResultRow& row = result.grid.rows[i];
        const std::string line = std::to_string(i + 3);
        EXPECT_EQ(grid.Number("A" + line), row.thickness);
        for (std::size_t c = 0; c < row.cells.size(); ++c) {
            const std::string cell = static_cast<char>('B' + c) + line;
            ASSERT_EQ(grid.Number(cell).has_value(), row.cells[c].value.has_value()) << cell;
            if (row.cells[c].value) {
                EXPECT_NEAR(*grid.Number(cell), *row.cells[c].value, 1e-12 * std::abs(*row.cells[c].value));
            }
        }
        if (row.isDesign) {
            EXPECT_NE(grid.Style("B" + line), grid.Style("B3")) << "marked";
        }
    }
    const pugi::xml_node pane = grid.Xml().select_node("//pane").node();
    EXPECT_EQ(std::string(pane.attribute("topLeftCell").value()), "B3");
    EXPECT_EQ(std::string(pane.attribute("state").value()), "frozen");
    EXPECT_GT(grid.Xml().select_node("//cols/col[@min='1']").node().attribute("width").as_double(), 19);
    EXPECT_THAT(files.at("xl/styles.xml"), HasSubstr("formatCode=\"0.0\""));
    EXPECT_FALSE(grid.Xml().select_node("//f") || inputs.Xml().select_node("//f")) << "a formula";

    EXPECT_EQ(inputs.Text("B" + inputs.RowOf("Item description")), "=2+3");
    const std::string process = inputs.RowOf("Process temp.");
    EXPECT_EQ(inputs.Number("B" + process), 350.5);
    EXPECT_EQ(inputs.Text("C" + process), "°F");
    EXPECT_EQ(inputs.RowOf("Duct Width"), "0") << "not an input of this case";

    // What goes wrong leaves the old file; whoever calls is told.
    const std::string before = test::Slurp(path);
    EXPECT_THROW(WriteGridXlsx(scratch / "no" / "grid.xlsx", result, job, application.Records()), FileError);
    EXPECT_THROW(WriteGridCsv(scratch / "no" / "grid.csv", result.grid), FileError);
    result.grid.columns[0].name = std::string(40000, 'x') + "\x01\xFF";
    WriteGridXlsx(path, result, job, application.Records());
    const auto longFiles = test::Unzipped(test::Slurp(path));
    EXPECT_EQ(Sheet(longFiles, "sheet1.xml").Text("A1").size(), 32767U);
    EXPECT_NE(test::Slurp(path), before);
    EXPECT_EQ(scratch.FileCount(), 1) << "no temporary file stays";
}

} // namespace
} // namespace kaloria
