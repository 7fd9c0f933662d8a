// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/atomic_file.h"
#include "tests/support/temporary_folder.h"

#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <functional>
#include <random>
#include <set>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace kaloria {
namespace {

namespace fs = std::filesystem;
using test::Slurp;
using test::Spill;
using test::TemporaryFolder;

mode_t ModeOf(const fs::path& path) {
    struct stat status {};
    return ::stat(path.c_str(), &status) == 0 ? status.st_mode & 07777U : 0;
}

FileError::Kind KindOfFailure(const std::function<void()>& action) {
    try {
        action();
    } catch (const FileError& error) {
        return error.GetKind();
    }
    throw std::runtime_error("no FileError");
}

TEST(ReplaceFile, KeepsPermissionsAndReplacesReadOnlyFiles) {
    const TemporaryFolder folder;
    const mode_t mask = ::umask(0027);
    ReplaceFile(folder / "new", "one");
    ::umask(mask);
    EXPECT_EQ(ModeOf(folder / "new"), 0640U);

    struct Row {
        mode_t before;
        mode_t after;
    };
    for (const Row row : {Row{0444, 0644}, Row{0600, 0600}, Row{0664, 0664}}) {
        Spill(folder / "old", "a much longer old text");
        ::chmod((folder / "old").c_str(), row.before);
        ReplaceFile(folder / "old", "two");
        EXPECT_EQ(Slurp(folder / "old"), "two");
        EXPECT_EQ(ModeOf(folder / "old"), row.after);
    }
    EXPECT_EQ(folder.FileCount(), 2) << "a temporary file was left behind";
}

TEST(ReplaceFile, FollowsSymbolicLinksAndLeavesThemInPlace) {
    const TemporaryFolder folder;
    fs::create_directory(folder / "elsewhere");
    Spill(folder / "elsewhere/real", "old");
    fs::create_symlink("elsewhere/real", folder / "relative");
    fs::create_symlink(folder / "relative", folder / "chain");
    fs::create_symlink("elsewhere/not-yet", folder / "dangling");
    fs::create_symlink("loop", folder / "loop");

    ReplaceFile(folder / "chain", "new");
    EXPECT_EQ(Slurp(folder / "elsewhere/real"), "new");
    EXPECT_TRUE(fs::is_symlink(folder / "chain"));
    EXPECT_TRUE(fs::is_symlink(folder / "relative"));
    ReplaceFile(folder / "dangling", "born");
    EXPECT_EQ(Slurp(folder / "elsewhere/not-yet"), "born");
    EXPECT_EQ(KindOfFailure([&] { ReplaceFile(folder / "loop", "x"); }), FileError::Kind::unwritable);
}

TEST(ReplaceFile, FailureLeavesTheOldFileAndNoTemporaryOne) {
    const TemporaryFolder folder;
    EXPECT_EQ(KindOfFailure([&] { ReplaceFile(folder / "absent/file", "x"); }), FileError::Kind::notFound);
    EXPECT_EQ(KindOfFailure([&] { ReplaceFile(folder / "", "x"); }), FileError::Kind::notRegular);

    // The disk is full in the middle of writing: here, a limit on the size of files.
    Spill(folder / "file", "old");
    rlimit unlimited{};
    ::getrlimit(RLIMIT_FSIZE, &unlimited);
    const rlimit small{4096, unlimited.rlim_max};
    std::signal(SIGXFSZ, SIG_IGN);
    ::setrlimit(RLIMIT_FSIZE, &small);
    EXPECT_EQ(KindOfFailure([&] { ReplaceFile(folder / "file", std::string(100000, 'x')); }),
              FileError::Kind::unwritable);
    ::setrlimit(RLIMIT_FSIZE, &unlimited);
    std::signal(SIGXFSZ, SIG_DFL);
    EXPECT_EQ(Slurp(folder / "file"), "old");
    EXPECT_EQ(folder.FileCount(), 1);
}

[[noreturn]] void SaveForEver(const fs::path& path, const std::string& even, const std::string& odd) {
    for (unsigned i = 0;; ++i) {
        ReplaceFile(path, i % 2 == 0 ? even : odd);
    }
}

TEST(ReplaceFile, KilledAtAnyMomentLeavesOneWholeText) {
    const TemporaryFolder folder;
    const fs::path path = folder / "job";
    const std::string start(200'000, 's');
    const std::string even(500'000, 'e');
    const std::string odd(300'000, 'o');
    std::mt19937 random(20240229);
    std::set<char> seen;
    for (int i = 0; i < 50; ++i) {
        ReplaceFile(path, start);
        const pid_t child = ::fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            SaveForEver(path, even, odd);
        }
        std::this_thread::sleep_for(std::chrono::microseconds(random() % 20'000));
        ::kill(child, SIGKILL);
        ::waitpid(child, nullptr, 0);
        const std::string found = Slurp(path);
        ASSERT_TRUE(found == start || found == even || found == odd)
            << found.size() << " bytes after kill " << i;
        seen.insert(found.front());
    }
    EXPECT_GT(seen.size(), 1U) << "no kill came after the first save: the test proves nothing";
}

TEST(ReadFile, ReadsRegularFilesUpToALimit) {
    const TemporaryFolder folder;
    const std::string bytes("a\0b\r\n", 5);
    Spill(folder / "file", bytes);
    ::mkfifo((folder / "pipe").c_str(), 0600);

    EXPECT_EQ(ReadFile(folder / "file", 5), bytes);
    struct Row {
        const char* name;
        FileError::Kind kind;
    };
    for (const Row& row : {Row{"file", FileError::Kind::tooLarge}, Row{"absent", FileError::Kind::notFound},
                           Row{"file/inside", FileError::Kind::notFound},
                           Row{"pipe", FileError::Kind::notRegular}, Row{"", FileError::Kind::notRegular}}) {
        EXPECT_EQ(KindOfFailure([&] { (void)ReadFile(folder / row.name, 4); }), row.kind) << row.name;
    }
}

} // namespace
} // namespace kaloria
