// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <string_view>

namespace kaloria {

/// Appends @p text, one line in UTF-8, as a line of 8-bit text (Windows-1252, CR LF) to the audit file; the
/// file is created when it is missing.
///
/// The line is written whole or not at all, in one request and flushed to the disk, while no other running
/// copy of this program writes; a call waits for its turn. A last line that somebody left without an end is
/// ended first.
/// @throws FileError; the file then holds what it held before
void AppendAuditLine(const std::filesystem::path& path, std::string_view text);

} // namespace kaloria
