// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "application/messages.h"

#include <filesystem>

namespace kaloria {

/// Places from which the program folder is chosen.
struct ProgramPlaces {
    std::filesystem::path executableFolder;
    std::filesystem::path
        installedResources;         ///< read-only copies of what ships, of a system-wide installation
    std::filesystem::path userData; ///< the user's own data folder of this program; empty without a home

    /// The places of the running executable: its folder, ../share/kaloria beside it, and kaloria in the data
    /// folder of the desktop (XDG_DATA_HOME, or .local/share in the home folder).
    [[nodiscard]] static ProgramPlaces OfThisProcess();
};

/// The folder that holds configuration, default job, ratio file and templates: the executable's own when it
/// is writable (a program unpacked or built by its user), otherwise the user's data folder, filled from the
/// installed resources and kept up to date with them (BringShippedFiles). A writable folder such as /usr/bin
/// under root is not taken when the files were installed elsewhere.
///
/// Where the user's folder cannot be filled (a service without a home) it is the shipped files themselves, so
/// that calculating goes on; saving into it then fails and says so.
/// @return the folder; it may lack files where copying failed, which the log and loading them report
[[nodiscard]] std::filesystem::path ChooseProgramFolder(const ProgramPlaces& places, MessageSink& log);

} // namespace kaloria
