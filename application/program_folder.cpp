// SPDX-License-Identifier: GPL-3.0-or-later
#include "application/program_folder.h"

#include "data/atomic_file.h"

#include <cstdlib>
#include <string>
#include <system_error>
#include <unistd.h>

namespace kaloria {

namespace {

namespace fs = std::filesystem;

constexpr const char* configurationName = "CorvaneConfig.xml";
constexpr std::size_t largestResource = 64U << 20U;

fs::path FromEnvironment(const char* name) {
    const char* const value = std::getenv(name); // NOLINT(concurrency-mt-unsafe): one thread
    return value != nullptr && *value == '/' ? fs::path(value) : fs::path();
}

/// Copies what is not there yet, folder by folder; each file whole or not at all.
void Seed(const fs::path& from, const fs::path& to) {
    std::error_code error;
    fs::create_directories(to, error);
    for (const auto& entry : fs::recursive_directory_iterator(from, error)) {
        const fs::path target = to / fs::relative(entry.path(), from, error);
        if (entry.is_directory(error)) {
            fs::create_directories(target, error);
        } else if (entry.is_regular_file(error) && !fs::exists(target, error)) {
            try {
                ReplaceFile(target, ReadFile(entry.path(), largestResource));
            } catch (const FileError&) {
                continue; // the missing file is reported where it is needed
            }
        }
    }
}

} // namespace

ProgramPlaces ProgramPlaces::OfThisProcess() {
    std::error_code error;
    ProgramPlaces places;
    places.executableFolder = fs::read_symlink("/proc/self/exe", error).parent_path();
    places.installedResources = places.executableFolder.parent_path() / "share" / "kaloria";
    const fs::path data = FromEnvironment("XDG_DATA_HOME");
    places.userData = (data.empty() ? FromEnvironment("HOME") / ".local" / "share" : data) / "kaloria";
    return places;
}

fs::path ChooseProgramFolder(const ProgramPlaces& places) {
    std::error_code error;
    const bool writable = ::access(places.executableFolder.c_str(), W_OK) == 0;
    const bool hasFiles = fs::exists(places.executableFolder / configurationName, error);
    const bool installed = fs::exists(places.installedResources / configurationName, error);
    if (writable && (hasFiles || !installed)) {
        return places.executableFolder;
    }
    if (installed) {
        Seed(places.installedResources, places.userData);
    } else if (hasFiles) {
        Seed(places.executableFolder, places.userData);
    }
    return places.userData;
}

} // namespace kaloria
