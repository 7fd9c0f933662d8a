// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "application/application.h"
#include "reports/rtf_document.h"

#include <filesystem>
#include <functional>
#include <string>
#include <string_view>

namespace kaloria {

/// Replaces the file at @p path by a finished report; false after a message.
bool SaveReport(const CApplication& application, const std::filesystem::path& path, std::string_view rtf);

/// Loads a template of the program folder, has it filled and replaces the file at @p path by the result;
/// false after a message: the template is missing or broken, which names it, or the report cannot be saved.
/// @param fill  may throw FileFault
bool ExportFilled(const CApplication& application, std::string_view templateName,
                  const std::filesystem::path& path,
                  const std::function<std::string(rtf::Document page)>& fill);

/// Shows that a template stands in the way of a report.
void ShowTemplateProblem(const CApplication& application, std::string_view problem);

} // namespace kaloria
