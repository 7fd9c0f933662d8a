// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "application/application.h"
#include "reports/rtf_document.h"

#include <filesystem>
#include <string>

namespace kaloria {

/// The short report of a calculated case: the labels of the report panel and the results grid in the places
/// of the template's tags. Lines of what the case does not have are taken out.
/// @param job  whose calculation it was; gives the user's particulars
/// @throws FileFault when the template has the grid in a place where no table can stand
[[nodiscard]] std::string MakeShortReport(rtf::Document page, const CalculationResult& result,
                                          const Job& job);

/// Replaces the file at @p path by the short report of a calculation of the current job; false after a
/// message.
bool ExportShortReport(CApplication& application, const CalculationResult& result,
                       const std::filesystem::path& path);

} // namespace kaloria
