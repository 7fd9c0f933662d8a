// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "reports/economic_results.h"
#include "reports/report_figures.h"
#include "reports/report_inputs.h"
#include "reports/report_particulars.h"
#include "reports/rtf_document.h"

#include <chrono>
#include <cstddef>
#include <string>

/// The texts that take the places of a report's tags, page by page.
namespace kaloria {

/// "mm/dd/yyyy".
[[nodiscard]] std::string ReportDateText(std::chrono::year_month_day date);

/// Company, project and date: the same on every page.
[[nodiscard]] rtf::TagValues ParticularsValues(const CompanyParticulars& company,
                                               const ProjectParticulars& project,
                                               std::chrono::year_month_day date);

/// Fuel, money, weather and materials: what every surface of the report has in common.
/// @param figures  as they were reckoned with
[[nodiscard]] rtf::TagValues GeneralValues(const ReportInputs& inputs, const EconomicFigures& figures);

/// The heading of a page about one surface.
/// @param pageNumber  in the report, from 1
[[nodiscard]] rtf::TagValues HeadingValues(const ReportInputs& inputs, const SurfaceResult& surface,
                                           std::size_t pageNumber);

/// Columns 1 to 6 of a tables report: the economic thickness at each temperature, or the reference where none
/// pays. The last one carries the units.
[[nodiscard]] rtf::TagValues ColumnValues(const SurfaceResult& surface, const PageFigures& figures);

/// Temperature, units and the sentences about the economic thickness of an engineering report.
[[nodiscard]] rtf::TagValues EngineeringValues(const ReportInputs& inputs, const TemperatureResult& step,
                                               const PageFigures& figures);

/// Whether heat flows in through the bare surface at each temperature.
[[nodiscard]] bool IsGain(const SurfaceResult& surface);

} // namespace kaloria
