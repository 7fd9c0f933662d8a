// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "application/application.h"
#include "application/covering_table.h"
#include "application/thickness_table.h"

#include <filesystem>
#include <string_view>
#include <vector>

namespace kaloria {

/// File names by which the tables are proposed.
inline constexpr std::string_view thicknessTableFile = "NewTable.rtf";
inline constexpr std::string_view coveringTableFile = "NewInsulationTable.rtf";

/// Replaces the file at @p path by the thickness table of the current job; false after a message.
bool ExportThicknessTable(CApplication& application, const ThicknessTable& table,
                          const std::filesystem::path& path);

/// The same with the dimensions of all insulation made for the sizes of the current job's geometry.
bool ExportCoverings(CApplication& application, const std::vector<SizeCoverings>& sizes,
                     const std::filesystem::path& path);

} // namespace kaloria
