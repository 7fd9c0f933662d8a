// SPDX-License-Identifier: GPL-3.0-or-later
#include "application/program_folder.h"

#include "application/shipped_files.h"

#include <cstdlib>
#include <system_error>
#include <unistd.h>

namespace kaloria {

namespace {

namespace fs = std::filesystem;

constexpr const char* configurationName = "CorvaneConfig.xml";

fs::path FromEnvironment(const char* name) {
    const char* const value = std::getenv(name); // NOLINT(concurrency-mt-unsafe): one thread
    return value != nullptr && *value == '/' ? fs::path(value) : fs::path();
}

} // namespace

ProgramPlaces ProgramPlaces::OfThisProcess() {
    std::error_code error;
    ProgramPlaces places;
    const fs::path executable = fs::read_symlink("/proc/self/exe", error);
    // Without /proc, in a bare chroot, the programs are those of a package.
    places.executableFolder = executable.empty() ? fs::path("/usr/bin") : executable.parent_path();
    places.installedResources = places.executableFolder.parent_path() / "share" / "kaloria";
    const fs::path data = FromEnvironment("XDG_DATA_HOME");
    const fs::path home = FromEnvironment("HOME");
    if (!data.empty()) {
        places.userData = data / "kaloria";
    } else if (!home.empty()) {
        places.userData = home / ".local" / "share" / "kaloria";
    }
    return places;
}

fs::path ChooseProgramFolder(const ProgramPlaces& places, MessageSink& log) {
    std::error_code error;
    const bool writable = ::access(places.executableFolder.c_str(), W_OK) == 0;
    const bool hasFiles = fs::exists(places.executableFolder / configurationName, error);
    const bool installed = fs::exists(places.installedResources / configurationName, error);
    if (writable && (hasFiles || !installed)) {
        return places.executableFolder;
    }
    const fs::path& shipped = installed ? places.installedResources : places.executableFolder;
    if ((installed || hasFiles) && !places.userData.empty()) {
        BringShippedFiles(shipped, places.userData, log);
    }
    const bool seeded = fs::exists(places.userData / configurationName, error);
    return seeded ? places.userData : shipped;
}

} // namespace kaloria
