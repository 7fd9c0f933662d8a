// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/job_file.h"
#include "tests/fuzz/fuzz_check.h"

namespace {

const kaloria::Catalogue& SmallCatalogue() {
    static const kaloria::Catalogue catalogue = [] {
        kaloria::Catalogue filled;
        filled.Insulations.emplace_back().ID = 9;
        filled.Insulations.back().Name = "Wool";
        filled.BaseMetals.push_back({0, 0.5F, 1, "System", "Steel", true});
        return filled;
    }();
    return catalogue;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace kaloria;
    const std::string bytes = fuzz::Text(data, size);
    Job job;
    const JobLoad load = LoadJobText(bytes, SmallCatalogue(), job);
    const auto found = CheckJobText(bytes, SmallCatalogue());
    fuzz::Check(load.kind == JobLoad::Kind::done || !found.empty(),
                "what does not open does not pass the check");
    fuzz::Check(job.layers.size() <= mostLayers, "no more than five layers");

    // Whatever was read, in whole or in part, must be written so that it opens again.
    const std::string once = JobText(job, SmallCatalogue());
    Job reopened;
    fuzz::Check(LoadJobText(once, SmallCatalogue(), reopened).kind == JobLoad::Kind::done,
                "what was saved opens");
    const std::string twice = JobText(reopened, SmallCatalogue());
    Job third;
    fuzz::Check(LoadJobText(twice, SmallCatalogue(), third).kind == JobLoad::Kind::done, "... and again");
    fuzz::Check(JobText(third, SmallCatalogue()) == twice, "saving twice gives the same bytes");
    return 0;
}
