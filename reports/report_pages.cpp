// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/report_pages.h"

#include "data/atomic_file.h"
#include "reports/report_figures.h"
#include "reports/report_tables.h"
#include "reports/report_values.h"

#include <fmt/format.h>

#include <algorithm>

namespace kaloria {

namespace {

constexpr std::string_view tableTag = "<TableData/>";
constexpr std::string_view pollutionTag = "<PollutionData/>";

rtf::Document Filled(const rtf::Document& page, rtf::TagValues values, const rtf::TagValues& particulars) {
    values.insert(particulars.begin(), particulars.end());
    rtf::Document filled = page;
    filled.Fill(values);
    return filled;
}

/// The template, with the file's name in what is thrown when a block does not fit in its place.
void FillBlock(rtf::Document& page, std::string_view tag, const rtf::Markup& block, std::string_view name) {
    try {
        page.FillBlock(tag, block);
    } catch (const FileFault& fault) {
        throw FileError(FileError::Kind::unreadable, name, fault.what());
    }
}

} // namespace

std::string_view BodyTemplateName(ReportKind kind, bool engineering) {
    if (kind == ReportKind::economic) {
        return engineering ? "EconomicEngineerTemplate.rtf" : "EconomicTemplate.rtf";
    }
    return engineering ? "EnvironmentalEngineerTemplate.rtf" : "EnvironmentalTemplate.rtf";
}

rtf::Document LoadTemplate(const std::filesystem::path& folder, std::string_view name) {
    const auto path = folder / name;
    std::string bytes = ReadFile(path, rtf::maxBytes);
    try {
        return rtf::Document(std::move(bytes));
    } catch (const FileFault& fault) {
        throw FileError(FileError::Kind::unreadable, path,
                        fmt::format("line {}: {}", fault.Problem().line, fault.what()));
    }
}

bool HasTag(const rtf::Document& page, std::string_view tag) {
    const auto tags = page.Tags();
    return std::find(tags.begin(), tags.end(), tag) != tags.end();
}

ReportPages::ReportPages(const std::filesystem::path& folder, ReportKind kind, bool engineering)
    : kind_(kind),
      engineering_(engineering),
      cover_(LoadTemplate(folder, "CoverTemplate.rtf")),
      general_(LoadTemplate(folder, "GeneralEconomicTemplate.rtf")),
      body_(LoadTemplate(folder, BodyTemplateName(kind, engineering))),
      disclaimer_(LoadTemplate(folder, "DisclaimerTemplate.rtf")),
      saysDirection_(HasTag(body_, "<HeatGain/>")) {}

rtf::Document ReportPages::Cover(const rtf::TagValues& particulars) const {
    return Filled(cover_, {}, particulars);
}

rtf::Document ReportPages::GeneralEconomic(const rtf::TagValues& particulars, const ReportInputs& inputs,
                                           const EconomicFigures& figures) const {
    return Filled(general_, GeneralValues(inputs, figures), particulars);
}

rtf::Document ReportPages::Body(const rtf::TagValues& particulars, const ReportInputs& inputs,
                                const SurfaceResult& surface, std::size_t pageNumber) const {
    // Where the page cannot say that a flow is a gain, it is a negative loss.
    const bool isGain = (saysDirection_ || engineering_) && IsGain(surface);
    const PageFigures figures(inputs, surface.isPipe, isGain);
    const std::string_view name = BodyTemplateName(kind_, engineering_);
    rtf::TagValues values = HeadingValues(inputs, surface, pageNumber);
    const bool isEnvironmental = kind_ == ReportKind::environmental;
    if (!engineering_) {
        values.merge(ColumnValues(surface, figures));
        rtf::Document page = Filled(body_, std::move(values), particulars);
        if (isEnvironmental) {
            FillBlock(page, pollutionTag, ReductionTable(inputs, surface, figures), name);
        }
        return page;
    }
    const TemperatureResult& step = surface.temperatures.at(0);
    values.merge(EngineeringValues(inputs, step, figures));
    rtf::Document page = Filled(body_, std::move(values), particulars);
    FillBlock(page, tableTag,
              isEnvironmental ? EmissionTable(inputs, step, figures, isGain)
                              : MoneyTable(inputs, step, figures, isGain),
              name);
    if (isEnvironmental) {
        FillBlock(page, pollutionTag, ReductionSentences(inputs, step, figures), name);
    }
    return page;
}

rtf::Document ReportPages::Disclaimer(const rtf::TagValues& particulars) const {
    return Filled(disclaimer_, {}, particulars);
}

} // namespace kaloria
