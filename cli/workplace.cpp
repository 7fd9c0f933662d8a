// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands.h"

#include <iostream>

namespace kaloria::cli {

void ErrorStream::Show(std::string_view text) { std::cerr << "kaloria-cli: " << text << '\n'; }

void ErrorStream::Log(std::string_view detail) { std::cerr << "kaloria-cli: " << detail << '\n'; }

Workplace::Workplace(const std::filesystem::path& programFolder)
    : application(programFolder, errors), hasCatalogue(application.LoadConfigurationFile()) {
    application.BuildCostData();
}

} // namespace kaloria::cli
