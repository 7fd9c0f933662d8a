// SPDX-License-Identifier: GPL-3.0-or-later
#include "application/short_report.h"

#include "application/grid_markup.h"
#include "application/panel_values.h"
#include "application/report_file.h"
#include "reports/report_pages.h"

#include <fmt/format.h>

namespace kaloria {

namespace {

/// Fills one page.
class ShortReport {
public:
    ShortReport(rtf::Document page, const CalculationResult& result, const Job& job)
        : page_(std::move(page)), result_(result), values_(PanelValues(result.panel, result.title, job)) {}

    std::string Make() {
        AddSurface();
        AddMoisture();
        AddGoal();
        AddLayers();
        AddHours();
        page_.RemoveParagraphsWith(absent_);
        FillFuel();
        FillGrid();
        page_.Fill(values_);
        return page_.Bytes();
    }

private:
    [[nodiscard]] std::optional<std::string> Label(std::string_view control) const {
        return PanelText(result_.panel, control);
    }

    void AddSurface() {
        const bool isTube = Label("lblGeometry").value_or("").find("Tube") != std::string::npos;
        values_["<PipeType/>"] = isTube ? "Tube" : "Pipe";
        if (!Label("lblPipeSize")) {
            absent_.insert({"<PipeType/>", "<PipeSize/>"});
        }
    }

    void AddMoisture() {
        values_["<RelativeHumidityLabel/>"] = "Relative Humidity";
        values_["<DewPointLabel/>"] = "   Dew Point";
        if (!result_.condensation) {
            absent_.insert(
                {"<RelativeHumidityLabel/>", "<RelativeHumidity/>", "<DewPointLabel/>", "<DewPoint/>"});
        }
    }

    void AddGoal() {
        std::string label = result_.design.label;
        if (label.empty()) {
            absent_.insert({"<CondensationControlThicknessLabel/>", "<CondensationControlThickness/>"});
        } else if (label.back() == ':') {
            label.pop_back(); // the template sets its own
        }
        values_["<CondensationControlThicknessLabel/>"] = label;
    }

    void AddLayers() {
        for (std::size_t n = 1; n <= mostLayers; ++n) {
            const std::string tag = fmt::format("<InsulationLayer{}/>", n);
            const auto name = Label(fmt::format("lblInsulationLayer{}", n));
            if (!name) {
                absent_.insert(tag);
                continue;
            }
            values_[tag] = fmt::format("Insulation Layer {} = {}, {}", n, *name,
                                       Label(fmt::format("lblInsulationThickness{}", n)).value_or(""));
        }
    }

    void AddHours() {
        if (const auto hours = Label("lblHoursPerYear")) {
            values_["<HoursPerYear/>"] = "Hours Per Year = " + *hours;
        } else {
            absent_.insert({"<HoursPerYear/>", "<Efficiency/>"});
        }
    }

    /// The efficiency and the fuel that goes with it, line by line.
    void FillFuel() {
        if (!Label("lblReportEfficiency")) {
            return;
        }
        // Two lines: the blanks set the second figure of each apart.
        page_.FillBlock(
            "<Efficiency/>",
            rtf::Paragraphs({"Efficiency = " + WithUnit("lblReportEfficiency") +
                                 "        Fuel Name = " + Label("lblFuelName").value_or(""),
                             "Heat Content = " + WithUnit("lblReportHeatContent") +
                                 "                     Fuel Cost = " + WithUnit("lblReportFuelCost")}));
    }

    /// The label's text with the unit that its caption has in parentheses.
    [[nodiscard]] std::string WithUnit(std::string_view control) const {
        for (const PanelLine& line : result_.panel) {
            if (line.control == control) {
                const auto open = line.caption.rfind('(');
                const auto close = line.caption.rfind(')');
                const bool hasUnit = open != std::string::npos && close != std::string::npos && open < close;
                return hasUnit ? line.text + " " + line.caption.substr(open + 1, close - open - 1)
                               : line.text;
            }
        }
        return {};
    }

    /// One table in the place of the rows. It begins with the headings, so that they are repeated on the next
    /// sheet; their own lines go.
    void FillGrid() {
        const bool hasHeading = HasTag(page_, "<UpperHeader/>") || HasTag(page_, "<LowerHeader/>");
        page_.RemoveParagraphsWith({"<UpperHeader/>", "<LowerHeader/>"});
        page_.FillBlock("<Data/>", GridTable(result_.grid, hasHeading));
    }

    rtf::Document page_;
    const CalculationResult& result_;
    rtf::TagValues values_;
    rtf::TagSet absent_;
};

} // namespace

std::string MakeShortReport(rtf::Document page, const CalculationResult& result, const Job& job) {
    return ShortReport(std::move(page), result, job).Make();
}

bool ExportShortReport(CApplication& application, const CalculationResult& result,
                       const std::filesystem::path& path) {
    return ExportFilled(application, "ShortReportTemplate.rtf", path, [&](rtf::Document page) {
        return MakeShortReport(std::move(page), result, application.CurrentJob());
    });
}

} // namespace kaloria
