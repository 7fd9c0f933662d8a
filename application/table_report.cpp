// SPDX-License-Identifier: GPL-3.0-or-later
#include "application/table_report.h"

#include "application/panel_values.h"
#include "application/report_file.h"
#include "data/number_format.h"
#include "reports/report_tables.h"

#include <fmt/format.h>

#include <array>

namespace kaloria {

namespace {

using rtf::Alignment;

/// A first column and others of the same width.
rtf::TableBuilder TableOf(std::size_t count) {
    const int width = reportTextWidth / static_cast<int>(count);
    std::vector<rtf::TableColumn> columns(count, {width, Alignment::right});
    columns.front().alignment = Alignment::left;
    return rtf::TableBuilder(std::move(columns));
}

/// The lines of the layers, innermost first.
rtf::Markup LayerLines(const std::vector<PanelLine>& panel) {
    std::vector<std::string> lines;
    for (std::size_t n = 1; n <= mostLayers; ++n) {
        if (const auto name = PanelText(panel, fmt::format("lblInsulationLayer{}", n))) {
            if (!lines.empty()) {
                lines.back() += ", ";
            }
            lines.push_back(fmt::format("Insulation Layer {} = {}", n, *name));
        }
    }
    return rtf::Paragraphs(lines);
}

/// A decimal in inches, so that the figures stand under each other.
std::string NominalText(double thickness, Units units) {
    const std::string text = FormatNumber(thickness, NumberFormat::shortest);
    return units == Units::si || text.find('.') != std::string::npos ? text : text + ".0";
}

rtf::Markup TableBody(const ThicknessTable& table) {
    auto rows = TableOf(ThicknessTable::temperatures + 1);
    std::vector<std::string> heading{"Size"};
    for (const TableColumn& column : table.columns) {
        heading.push_back(fmt::format("{} {}", FormatNumber(column.value, NumberFormat::whole),
                                      InfoOf(Quantity::temperature).Text(table.units)));
    }
    rows.AddHeading(heading, {.isBold = true, .hasRuleAbove = true, .hasRuleBelow = true});
    bool hasGap = false;
    for (const TableRow& row : table.rows) {
        std::vector<std::string> cells{row.size};
        for (const TableCell& cell : row.cells) {
            cells.push_back(cell.thickness ? NominalText(*cell.thickness, table.units) : cell.text);
            hasGap = hasGap || !cell.thickness;
        }
        rows.AddRow(cells, {.hasRuleBelow = &row == &table.rows.back()});
    }
    if (hasGap) {
        rows.AddSpan("-  no thickness that is made for the size meets the goal", {});
    }
    return rows.Build();
}

rtf::Markup TableBody(const std::vector<SizeCoverings>& sizes, Units units) {
    const std::string unit = fmt::format("({})", InfoOf(Quantity::length).Text(units));
    const auto number = [&](double value) { return FormatFixed(value, units == Units::si ? 1 : 3); };
    auto rows = TableOf(5);
    rows.AddHeading({"Size", "Bare", "Nominal", "Actual", "Outside"}, {.isBold = true, .hasRuleAbove = true});
    rows.AddHeading({"", "Diameter " + unit, "Thickness " + unit, "Thickness " + unit, "Diameter " + unit});
    for (const SizeCoverings& size : sizes) {
        bool isFirst = true;
        for (const CoveringDimensions& covering : size.coverings) {
            rows.AddRow({isFirst ? size.size : "", isFirst ? number(size.outsideDiameter) : "",
                         NominalText(covering.nominal, units), number(covering.actual),
                         number(covering.outside)},
                        {.hasRuleAbove = isFirst, .staysWithNext = isFirst});
            isFirst = false;
        }
    }
    return rows.Build();
}

/// Lines of what the table does not have go.
rtf::TagSet AbsentOf(const ThicknessTable& table) {
    rtf::TagSet absent;
    if (!table.condensation) {
        absent.insert({"<RelativeHumidity/>", "<DewPoint/>"});
    }
    if (!table.maxSurfaceTemp) {
        absent.insert("<MaxSurfaceTemperature/>");
    }
    return absent;
}

} // namespace

bool ExportThicknessTable(CApplication& application, const ThicknessTable& table,
                          const std::filesystem::path& path) {
    return ExportFilled(application, "TableTemplate.rtf", path, [&](rtf::Document page) {
        page.RemoveParagraphsWith(AbsentOf(table));
        page.FillBlock("<InsulationLayers/>", LayerLines(table.panel));
        page.FillBlock("<Table/>", TableBody(table));
        page.Fill(PanelValues(table.panel, table.title, application.CurrentJob()));
        return page.Bytes();
    });
}

bool ExportCoverings(CApplication& application, const std::vector<SizeCoverings>& sizes,
                     const std::filesystem::path& path) {
    return ExportFilled(application, "InsulationTableTemplate.rtf", path, [&](rtf::Document page) {
        const Job& job = application.CurrentJob();
        const Units units = job.UnitsInForce();
        page.FillBlock("<Table/>", TableBody(sizes, units));
        page.Fill(PanelValues({{"lblDescription", "", job[Field::ItemDescription]},
                               {"lblGeometry", "", job[Field::SurfaceGeometry]},
                               {"lblSystemUnits", "", units == Units::si ? "SI" : "English"}},
                              "Insulation Dimensions", job));
        return page.Bytes();
    });
}

} // namespace kaloria
