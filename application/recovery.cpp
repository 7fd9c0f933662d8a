// SPDX-License-Identifier: GPL-3.0-or-later
#include "application/recovery.h"

#include "application/path_text.h"
#include "data/atomic_file.h"
#include "data/job_file.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstdlib>
#include <fcntl.h>
#include <string>
#include <sys/file.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace kaloria {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view firstLine = "Kaloria recovery copy 1\n";
constexpr std::string_view unsavedLine = "unsaved=1\n";
constexpr std::string_view savedLine = "unsaved=0\n";
constexpr std::string_view pathKey = "path=";
constexpr std::size_t largestCopy = 1 << 24;
constexpr const char* copyExtension = ".copy";
constexpr const char* lockExtension = ".lock";

fs::path With(fs::path file, const char* extension) { return file.replace_extension(extension); }

/// What stands above the job in a copy.
struct CopyHeader {
    fs::path jobPath;
    bool unsaved = true;
    std::size_t size = 0; ///< up to the job's text
};

std::string HeaderText(const fs::path& jobPath, bool unsaved) {
    return fmt::format("{}{}{}{}\n", firstLine, unsaved ? unsavedLine : savedLine, pathKey,
                       PathText(jobPath));
}

std::optional<CopyHeader> ParseHeader(std::string_view bytes) {
    std::string_view rest = bytes;
    if (!rest.starts_with(firstLine)) {
        return std::nullopt;
    }
    rest.remove_prefix(firstLine.size());
    CopyHeader header;
    header.unsaved = rest.starts_with(unsavedLine);
    if (!header.unsaved && !rest.starts_with(savedLine)) {
        return std::nullopt;
    }
    rest.remove_prefix(unsavedLine.size());
    const auto end = rest.find('\n');
    if (!rest.starts_with(pathKey) || end == std::string_view::npos) {
        return std::nullopt;
    }
    const auto path = ParsePathText(rest.substr(pathKey.size(), end - pathKey.size()));
    if (!path) {
        return std::nullopt;
    }
    header.jobPath = *path;
    header.size = bytes.size() - rest.size() + end + 1;
    return header;
}

std::optional<std::string> BytesOf(const fs::path& file) {
    try {
        return ReadFile(file, largestCopy);
    } catch (const FileError&) {
        return std::nullopt;
    }
}

/// A damaged copy is shown all the same, so that it is not lost without a word: reading it says what is
/// wrong.
RecoveryCopy Describe(const fs::path& file) {
    RecoveryCopy copy;
    copy.file = file;
    copy.unsaved = true;
    std::error_code error;
    copy.written = fs::last_write_time(file, error);
    const auto bytes = BytesOf(file);
    if (const auto header = bytes ? ParseHeader(*bytes) : std::nullopt) {
        copy.jobPath = header->jobPath;
        copy.unsaved = header->unsaved;
    }
    return copy;
}

bool Exists(const fs::path& file) {
    std::error_code error;
    return fs::exists(fs::symlink_status(file, error));
}

void Remove(const fs::path& file) noexcept {
    std::error_code ignored; // what cannot be removed is offered again at the next start
    fs::remove(file, ignored);
}

std::vector<fs::path> FilesOf(const fs::path& folder, const char* extension) {
    std::vector<fs::path> files;
    std::error_code error;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
        if (entry->path().extension() == extension) {
            files.push_back(entry->path());
        }
    }
    return files;
}

} // namespace

FileLock::~FileLock() {
    if (file_ >= 0) {
        ::close(file_);
    }
}

bool FileLock::Take(const fs::path& path) {
    constexpr int ownerOnly = 0600;
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-vararg): the system's interface
    const int file = ::open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, ownerOnly);
    if (file < 0) {
        return false;
    }
    struct stat held {};
    struct stat named {};
    // Whoever held it may have removed the file between our opening and our locking it.
    const bool taken = ::flock(file, LOCK_EX | LOCK_NB) == 0 && ::fstat(file, &held) == 0 &&
                       ::stat(path.c_str(), &named) == 0 && held.st_ino == named.st_ino &&
                       held.st_dev == named.st_dev;
    if (!taken) {
        ::close(file);
        return false;
    }
    file_ = file;
    path_ = path;
    return true;
}

void FileLock::RemoveFile() noexcept {
    if (file_ >= 0) {
        Remove(path_);
        ::close(file_);
        file_ = -1;
    }
}

RecoveryStore::RecoveryStore(fs::path folder) : folder_(std::move(folder)) {}

fs::path RecoveryStore::UserFolder() {
    const char* const configured = std::getenv("XDG_STATE_HOME"); // NOLINT(concurrency-mt-unsafe): one thread
    const char* const home = std::getenv("HOME");                 // NOLINT(concurrency-mt-unsafe)
    const fs::path base = configured != nullptr && *configured == '/'
                              ? fs::path(configured)
                              : fs::path(home != nullptr ? home : "") / ".local" / "state";
    return base / "Kaloria" / "recovery";
}

/// Jobs are nobody else's business.
bool RecoveryStore::MakeFolder() const {
    std::error_code error;
    if (fs::create_directories(folder_, error)) {
        fs::permissions(folder_, fs::perms::owner_all, error);
    }
    return fs::is_directory(folder_, error);
}

/// A process number comes again: a name whose copy is there belongs to a run before.
bool RecoveryStore::HaveOwn() {
    constexpr int mostNames = 1000;
    for (int number = 1; own_ == nullptr && number <= mostNames; ++number) {
        const fs::path file = folder_ / fmt::format("{}-{}{}", ::getpid(), number, lockExtension);
        auto lock = std::make_unique<FileLock>();
        if (lock->Take(file) && !Exists(With(file, copyExtension))) {
            own_ = std::move(lock);
        }
    }
    return own_ != nullptr;
}

bool RecoveryStore::Write(const Job& job, const Catalogue& catalogue, const fs::path& jobPath, bool unsaved) {
    if (!MakeFolder() || !HaveOwn()) {
        return false;
    }
    try {
        ReplaceFile(With(own_->Path(), copyExtension),
                    HeaderText(jobPath, unsaved) + JobText(job, catalogue));
        return true;
    } catch (const FileError&) {
        return false;
    }
}

void RecoveryStore::DiscardOwn() {
    if (own_ != nullptr) {
        Remove(With(own_->Path(), copyExtension));
        own_->RemoveFile();
        own_.reset();
    }
}

std::vector<RecoveryCopy> RecoveryStore::Abandoned() {
    for (const fs::path& file : FilesOf(folder_, copyExtension)) {
        Claim(file);
    }
    for (const fs::path& file : FilesOf(folder_, lockExtension)) { // of runs that ended before a first copy
        FileLock lock;
        if (!Exists(With(file, copyExtension)) && lock.Take(file) && !Exists(With(file, copyExtension))) {
            lock.RemoveFile();
        }
    }
    std::vector<RecoveryCopy> copies;
    for (const Claimed& claimed : claimed_) {
        copies.push_back(claimed.copy);
    }
    std::sort(copies.begin(), copies.end(),
              [](const RecoveryCopy& a, const RecoveryCopy& b) { return a.written > b.written; });
    return copies;
}

void RecoveryStore::Claim(const fs::path& copyFile) {
    claimed_.emplace_back();
    if (claimed_.back().lock.Take(With(copyFile, lockExtension)) && Exists(copyFile)) {
        claimed_.back().copy = Describe(copyFile);
    } else {
        claimed_.pop_back();
    }
}

std::optional<FileProblem> RecoveryStore::Take(const RecoveryCopy& copy, const Catalogue& catalogue,
                                               Job& job) {
    const auto bytes = BytesOf(copy.file);
    const auto header = bytes ? ParseHeader(*bytes) : std::nullopt;
    if (!header) {
        return FileProblem{0, copy.file.string() + ": this is no recovery copy, or it is damaged"};
    }
    Job recovered;
    JobLoad load = LoadJobText(bytes->substr(header->size), catalogue, recovered);
    if (load.kind != JobLoad::Kind::done) {
        return std::move(load.problem);
    }
    job = std::move(recovered);
    return std::nullopt;
}

void RecoveryStore::Discard(const RecoveryCopy& copy) {
    const auto found = std::find_if(claimed_.begin(), claimed_.end(),
                                    [&](const Claimed& claimed) { return claimed.copy.file == copy.file; });
    if (found != claimed_.end()) {
        Remove(copy.file);
        found->lock.RemoveFile();
        claimed_.erase(found);
    }
}

} // namespace kaloria
