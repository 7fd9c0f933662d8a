// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "data/catalogue.h"
#include "data/file_problem.h"
#include "data/job.h"

#include <filesystem>
#include <list>
#include <memory>
#include <optional>
#include <vector>

namespace kaloria {

/// A copy that a run left behind.
struct RecoveryCopy {
    std::filesystem::path file;    ///< the copy itself
    std::filesystem::path jobPath; ///< of the job; empty when it never had a file
    bool unsaved = false;          ///< the job had changes that its file does not have
    std::filesystem::file_time_type written;
};

/// A file that this process holds locked until the object goes.
class FileLock {
public:
    FileLock() = default;
    FileLock(const FileLock&) = delete;
    FileLock& operator=(const FileLock&) = delete;
    ~FileLock();

    /// Makes the file when it is missing.
    /// @return whether the file is ours now: nobody else holds it, and it is still there under its name
    [[nodiscard]] bool Take(const std::filesystem::path& path);
    [[nodiscard]] const std::filesystem::path& Path() const { return path_; }
    void RemoveFile() noexcept; ///< the file goes, the lock with it

private:
    std::filesystem::path path_;
    int file_ = -1;
};

/// Copies of the current job against a crash. Each run keeps one of its own, under a lock that the system
/// lifts when the process ends, however it ends; a copy whose lock can be taken was left behind.
class RecoveryStore {
public:
    /// @param folder  made when the first copy is written
    explicit RecoveryStore(std::filesystem::path folder);
    RecoveryStore(const RecoveryStore&) = delete;
    RecoveryStore& operator=(const RecoveryStore&) = delete;
    /// Releases the locks; the copies stay. An orderly end calls DiscardOwn before.
    ~RecoveryStore() = default;

    /// The user's folder: Kaloria/recovery in the state folder of the desktop (XDG_STATE_HOME, or
    /// .local/state in the home folder).
    [[nodiscard]] static std::filesystem::path UserFolder();

    /// Replaces this run's copy; false when it could not be written.
    bool Write(const Job& job, const Catalogue& catalogue, const std::filesystem::path& jobPath,
               bool unsaved);
    void DiscardOwn();

    /// The copies that crashed runs left, newest first. They are this run's from then on: another program
    /// that asks does not see them until this object goes.
    [[nodiscard]] std::vector<RecoveryCopy> Abandoned();

    /// Reads a copy into @p job (materials without names, see CApplication::NameMaterials). The copy stays
    /// until it is discarded.
    /// @return what is wrong with the copy (then @p job is as it was); nothing when it was read whole
    [[nodiscard]] std::optional<FileProblem> Take(const RecoveryCopy& copy, const Catalogue& catalogue,
                                                  Job& job);
    void Discard(const RecoveryCopy& copy);

private:
    struct Claimed {
        FileLock lock;
        RecoveryCopy copy;
    };

    [[nodiscard]] bool HaveOwn();
    [[nodiscard]] bool MakeFolder() const;
    void Claim(const std::filesystem::path& copyFile);

    std::filesystem::path folder_;
    std::unique_ptr<FileLock> own_;
    std::list<Claimed> claimed_;
};

} // namespace kaloria
