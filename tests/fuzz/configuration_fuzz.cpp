// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/configuration_file.h"
#include "tests/fuzz/fuzz_check.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace kaloria;
    const std::string bytes = fuzz::Text(data, size);
    Catalogue catalogue;
    const auto problem = LoadConfigurationText(bytes, catalogue);
    const auto found = CheckConfigurationText(bytes);
    fuzz::Check(!problem || !found.empty(), "what does not load does not pass the check");
    catalogue.BaseMetals.push_back({0, 0.5F, 1, "User", "Lead", true});
    std::string once;
    try {
        once = SavedConfigurationText(bytes, catalogue);
    } catch (const FileFault&) {
        return 0;
    }
    fuzz::Check(!problem, "only a file that loads is saved");
    fuzz::Check(SavedConfigurationText(once, catalogue) == once, "saving twice gives the same bytes");
    Catalogue reloaded;
    fuzz::Check(!LoadConfigurationText(once, reloaded), "what was saved loads");
    fuzz::Check(reloaded.Fuels.size() == catalogue.Fuels.size() &&
                    reloaded.Pipes.size() == catalogue.Pipes.size(),
                "saving loses no record");
    return 0;
}
