// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "application/messages.h"

#include <filesystem>

namespace kaloria {

/// Brings what ships, everything below @p from, into the user's folder @p to, and newer versions of it after
/// an upgrade:
///
/// - A file that is not there is copied.
/// - A file that the user has not changed since it was copied is replaced.
/// - Of the configuration file the supplied records are replaced and the user's own stay, see
///   RenewedConfigurationText; "changed" is one whose supplied records somebody has edited.
/// - A file that the user has changed stays. The log says so, once for every newer version.
///
/// What was copied is remembered in "shipped-files.txt" of @p to. Each file is replaced in one step or stays
/// as it was, and what goes wrong is said in the log.
void BringShippedFiles(const std::filesystem::path& from, const std::filesystem::path& to, MessageSink& log);

} // namespace kaloria
