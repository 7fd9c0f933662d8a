// SPDX-License-Identifier: GPL-3.0-or-later
// Copies against a crash, and the list of recent files.
#include "application/path_text.h"
#include "application/recent_files.h"
#include "application/recovery.h"
#include "tests/support/shipped_catalogue.h"
#include "tests/support/temporary_folder.h"

#include <gtest/gtest.h>

#include <memory>
#include <sys/wait.h>
#include <unistd.h>

namespace kaloria {
namespace {

namespace fs = std::filesystem;

class Recovery : public ::testing::Test {
protected:
    /// Writes a copy in a process of its own that then ends without a word.
    void Crash(const std::string& item, const fs::path& jobPath = {}) const {
        const pid_t child = ::fork();
        if (child == 0) {
            RecoveryStore store(folder);
            Job job;
            job[Field::ItemDescription] = item;
            ::_exit(store.Write(job, catalogue, jobPath, !jobPath.empty()) ? 0 : 1);
        }
        int status = 0;
        ASSERT_EQ(::waitpid(child, &status, 0), child);
        ASSERT_EQ(status, 0);
    }

    Catalogue catalogue = test::ShippedCatalogue();
    test::TemporaryFolder scratch;
    fs::path folder = scratch / "state" / "recovery";
};

TEST_F(Recovery, OffersWhatACrashLeftWithAllItsEntries) {
    Job job;
    job[Field::ProcessTemp] = "12 in"; // a slip in the middle of typing is kept as well
    job[Field::ItemDescription] = "Steam <main> & \"drip\" – übermäßig";
    job.layers.push_back({job.layers[0].material, "2", "Fix", "2.5"});
    const fs::path jobPath = "/jobs/a b%|\n\xFFodd.kal";
    {
        RecoveryStore crashed(folder);
        ASSERT_TRUE(crashed.Write(Job(), catalogue, jobPath, false));
        ASSERT_TRUE(crashed.Write(job, catalogue, jobPath, true));
    } // without DiscardOwn
    RecoveryStore store(folder);
    const auto copies = store.Abandoned();
    ASSERT_EQ(copies.size(), 1U);
    EXPECT_EQ(copies[0].jobPath, jobPath);
    EXPECT_TRUE(copies[0].unsaved);
    Job recovered;
    ASSERT_FALSE(store.Take(copies[0], catalogue, recovered));
    EXPECT_EQ(recovered[Field::ProcessTemp], "12 in");
    EXPECT_EQ(recovered[Field::ItemDescription], job[Field::ItemDescription]);
    ASSERT_EQ(recovered.layers.size(), 2U);
    EXPECT_EQ(recovered.layers[1].thickness, "2.5");

    EXPECT_EQ(store.Abandoned().size(), 1U) << "until it is discarded";
    store.Discard(copies[0]);
    EXPECT_TRUE(store.Abandoned().empty());
    EXPECT_TRUE(fs::is_empty(folder));
    EXPECT_EQ(fs::status(folder).permissions() & fs::perms::others_all, fs::perms::none);
}

TEST_F(Recovery, RunningProgramsKeepTheirCopiesAndShareNoCrash) {
    Crash("lost", "/jobs/lost.kal");
    RecoveryStore first(folder);
    RecoveryStore second(folder);
    ASSERT_TRUE(first.Write(Job(), catalogue, {}, false));
    ASSERT_TRUE(second.Write(Job(), catalogue, {}, false));
    const auto found = second.Abandoned();
    ASSERT_EQ(found.size(), 1U) << "neither the own copy nor that of the other program";
    EXPECT_EQ(found[0].jobPath, "/jobs/lost.kal");
    EXPECT_TRUE(first.Abandoned().empty()) << "the second has it";

    first.Discard(found[0]); // not its to discard
    EXPECT_TRUE(fs::exists(found[0].file));
    second.DiscardOwn();
    first.DiscardOwn();
    first.DiscardOwn();
    ASSERT_TRUE(first.Write(Job(), catalogue, {}, true)) << "and on with another job";
    first.DiscardOwn();
    second.Discard(found[0]);
    EXPECT_TRUE(fs::is_empty(folder));

    // Process numbers come again; the copy of a run before is not overwritten.
    const auto earlier = folder / (std::to_string(::getpid()) + "-1.copy");
    test::Spill(earlier, "of a run before");
    ASSERT_TRUE(first.Write(Job(), catalogue, {}, true));
    EXPECT_EQ(test::Slurp(earlier), "of a run before");
    EXPECT_EQ(second.Abandoned().size(), 1U);

    RecoveryStore nowhere("/proc/no/such/folder");
    EXPECT_FALSE(nowhere.Write(Job(), catalogue, {}, true));
    EXPECT_TRUE(nowhere.Abandoned().empty());
}

TEST_F(Recovery, NothingIsLostWithoutAWord) {
    Crash("one");
    Crash("two");
    fs::path damaged;
    for (const auto& entry : fs::directory_iterator(folder)) {
        if (entry.path().extension() == ".copy") {
            damaged = entry.path();
        }
    }
    const std::string whole = test::Slurp(damaged);
    for (const std::string& text :
         {std::string(), std::string("\0\0\0", 3), std::string("Kaloria recovery copy 2\n"),
          std::string("Kaloria recovery copy 1\nunsaved=1\npath=%0\n"), whole.substr(0, whole.size() / 2)}) {
        test::Spill(damaged, text);
        RecoveryStore store(folder);
        const auto copies = store.Abandoned();
        ASSERT_EQ(copies.size(), 2U);
        Job job;
        job[Field::ItemDescription] = "mine";
        int failures = 0;
        for (const RecoveryCopy& copy : copies) {
            Job taken = job;
            const auto problem = store.Take(copy, catalogue, taken);
            EXPECT_EQ(problem.has_value(), copy.file == damaged);
            EXPECT_TRUE(!problem || taken[Field::ItemDescription] == "mine");
            failures += problem ? 1 : 0;
        }
        EXPECT_EQ(failures, 1);
    }
}

TEST(RecentFiles, KeepsTheEightNewestWhateverTheirNames) {
    MemorySettings settings;
    RecentFiles recent(settings);
    for (int i = 0; i < 10; ++i) {
        recent.Add("/jobs/" + std::to_string(i) + ".kal");
    }
    recent.Add("/jobs/5.kal");
    auto files = recent.List();
    ASSERT_EQ(files.size(), 8U);
    EXPECT_EQ(files[0], "/jobs/5.kal");
    EXPECT_EQ(files[1], "/jobs/9.kal");
    EXPECT_EQ(files[7], "/jobs/2.kal");
    recent.Remove("/jobs/9.kal");
    EXPECT_EQ(recent.List().size(), 7U);

    const fs::path odd = "/a|b/ %41 =\n\xC3.kal ";
    recent.Add(odd);
    recent.Add("relative.kal");
    EXPECT_EQ(recent.List()[1], odd);
    EXPECT_TRUE(recent.List()[0].is_absolute());
    EXPECT_EQ(settings.Get("Application", "Files"), "");
    settings.Set("Recent", "Files", "|/good|%zz|not/absolute|/good|%2");
    EXPECT_EQ(recent.List(), std::vector<fs::path>{"/good"});
    recent.Clear();
    EXPECT_TRUE(recent.List().empty());
}

} // namespace
} // namespace kaloria
