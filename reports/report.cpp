// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/report.h"

#include "engine/numeric_fault.h"
#include "reports/fuel_cost.h"
#include "reports/report_values.h"
#include "reports/rtf_binder.h"

#include <ctime>

namespace kaloria {

namespace {

/// By the clock on the wall.
std::chrono::year_month_day Today() {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    ::localtime_r(&now, &local);
    constexpr int firstYear = 1900;
    return {std::chrono::year(local.tm_year + firstYear),
            std::chrono::month(static_cast<unsigned>(local.tm_mon + 1)),
            std::chrono::day(static_cast<unsigned>(local.tm_mday))};
}

bool GoesOn(const ReportProgress& progress, std::string_view caption, int done, std::size_t count) {
    return !progress || progress(caption, done, static_cast<int>(count));
}

} // namespace

void CReport::UnitFuelCost() {
    if (Fuel == nullptr) {
        throw NumericFault("no fuel is chosen");
    }
    fuelCostPerBtu_ = kaloria::UnitFuelCost(MeasureOf(Fuel->CostUnits), Fuel->Cost, Fuel->BTU);
}

std::optional<InstalledCostFault> CReport::GetFEA() {
    return EstimateInstalledCosts(ProgramFolder, Inputs.installedCost, ratios_, costData_);
}

bool CReport::Analyse(CCostData& costs, const AnalysisProgress& progress) {
    analysis_.reset();
    Fuel = &Inputs.fuel;
    UnitFuelCost();
    Inputs.money.unitFuelCost = fuelCostPerBtu_;
    analysis_ = kaloria::Analyse(Inputs, Inputs.money, costs, progress);
    return analysis_.has_value();
}

bool CReport::CreateReport(ReportText& work, ReportText& output, const ReportOptions& options) {
    output.rtf.clear();
    const ReportPages pages(ProgramFolder, options.kind, Inputs.engineering);
    const std::size_t count = Inputs.surfaces.size();
    bool isWanted = true; // the analysis does not ask any more when it is done
    const bool isAnalysed =
        Analyse(options.costs != nullptr ? *options.costs : costData_, [&](int done, int) {
            return isWanted = GoesOn(options.progress, "Performing Analysis...", done, count);
        });
    return isAnalysed && isWanted && WritePages(pages, work, output, options);
}

bool CReport::WritePages(const ReportPages& pages, ReportText& work, ReportText& output,
                         const ReportOptions& options) const {
    const auto particulars = ParticularsValues({CompanyName, Address, CityStateZip, PhoneNumber}, Project,
                                               options.date.value_or(Today()));
    const auto make = [&](const rtf::Document& page) -> const rtf::Document& {
        work.rtf = page.Bytes();
        return page;
    };
    rtf::Binder binder(make(pages.Cover(particulars)));
    binder.Append(make(pages.GeneralEconomic(particulars, Inputs, analysis_->figures)));
    const auto& surfaces = analysis_->surfaces;
    constexpr std::size_t pagesBefore = 2;
    for (std::size_t i = 0; i < surfaces.size(); ++i) {
        if (!GoesOn(options.progress, "Creating Report ...", static_cast<int>(i), surfaces.size())) {
            return false;
        }
        binder.Append(make(pages.Body(particulars, Inputs, surfaces[i], pagesBefore + 1 + i)));
    }
    if (!GoesOn(options.progress, "Creating Report ...", static_cast<int>(surfaces.size()),
                surfaces.size())) {
        return false;
    }
    binder.Append(make(pages.Disclaimer(particulars)));
    output.rtf = binder.Bytes();
    return true;
}

} // namespace kaloria
