// SPDX-License-Identifier: GPL-3.0-or-later
#include "application/audit_file.h"

#include "application/text_encoding.h"
#include "data/atomic_file.h"

#include <cerrno>
#include <fcntl.h>
#include <string>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/types.h>
#include <system_error>
#include <unistd.h>

namespace kaloria {

namespace {

namespace fs = std::filesystem;

/// The audit file, open for appending and locked against other programs until the end of its life.
class LockedFile {
public:
    /// @throws FileError
    explicit LockedFile(const fs::path& path) : path_(path) {
        // Between opening and locking, another program may have replaced the file; a line appended to the old
        // one would be lost.
        constexpr int mostReplacements = 100;
        for (int i = 0; i < mostReplacements; ++i) {
            Open();
            Lock();
            if (IsStillInPlace()) {
                return;
            }
            Close();
        }
        throw FileError(FileError::Kind::unwritable, path_, "another program keeps replacing it");
    }
    LockedFile(const LockedFile&) = delete;
    LockedFile& operator=(const LockedFile&) = delete;
    ~LockedFile() { Close(); }

    /// @throws FileError after putting the file back to what it was
    void Append(std::string line) {
        if (EndsWithinALine()) {
            line.insert(0, "\r\n");
        }
        ssize_t written = 0;
        do {
            errno = 0;
            written = ::write(number_, line.data(), line.size());
        } while (written < 0 && errno == EINTR);
        if (written != static_cast<ssize_t>(line.size())) {
            // A request that was only partly done names no reason; it is the room that was not enough.
            GiveUp(written < 0 ? errno : ENOSPC, written);
        }
        Flush(written);
    }

private:
    void Open() {
        // Without O_NONBLOCK the open of a pipe would wait for a reader.
        number_ = ::open(path_.c_str(), O_RDWR | O_APPEND | O_CREAT | O_CLOEXEC | O_NONBLOCK, 0666);
        if (number_ < 0) {
            Throw(errno);
        }
    }

    void Lock() {
        int outcome = 0;
        do {
            outcome = ::flock(number_, LOCK_EX);
        } while (outcome != 0 && errno == EINTR);
        // Some file systems of other machines know no locks; there the single request has to do.
        const bool unknownHere = errno == EOPNOTSUPP || errno == ENOLCK || errno == ENOSYS || errno == EINVAL;
        if (outcome != 0 && !unknownHere) {
            CloseAndThrow(errno);
        }
    }

    [[nodiscard]] bool IsStillInPlace() {
        struct stat opened {};
        if (::fstat(number_, &opened) != 0) {
            CloseAndThrow(errno);
        }
        if (!S_ISREG(opened.st_mode)) {
            Close();
            throw FileError(FileError::Kind::notRegular, path_, "not a regular file");
        }
        size_ = opened.st_size;
        struct stat named {};
        return ::stat(path_.c_str(), &named) == 0 && named.st_ino == opened.st_ino &&
               named.st_dev == opened.st_dev;
    }

    [[nodiscard]] bool EndsWithinALine() const {
        char last = '\n';
        return size_ > 0 && ::pread(number_, &last, 1, size_ - 1) == 1 && last != '\n';
    }

    void Flush(ssize_t written) {
        // Where a file system knows no such request there is nothing more to be done.
        if (::fsync(number_) != 0 && errno != EINVAL && errno != ENOSYS && errno != EOPNOTSUPP) {
            GiveUp(errno, written);
        }
    }

    /// Takes the part that was written back, unless someone who heeds no lock has written behind it.
    [[noreturn]] void GiveUp(int code, ssize_t written) {
        struct stat now {};
        if (written > 0 && ::fstat(number_, &now) == 0 && now.st_size == size_ + written) {
            [[maybe_unused]] const int undone = ::ftruncate(number_, size_);
        }
        Throw(code);
    }

    void Close() {
        if (number_ >= 0) {
            ::close(number_);
            number_ = -1;
        }
    }

    [[noreturn]] void CloseAndThrow(int code) {
        Close();
        Throw(code);
    }

    [[noreturn]] void Throw(int code) const {
        const bool absent = code == ENOENT || code == ENOTDIR;
        throw FileError(absent ? FileError::Kind::notFound : FileError::Kind::unwritable, path_,
                        std::generic_category().message(code));
    }

    const fs::path& path_;
    int number_ = -1;
    off_t size_ = 0; // before the line
};

} // namespace

void AppendAuditLine(const fs::path& path, std::string_view text) {
    LockedFile(path).Append(ToWindows1252(text) + "\r\n");
}

} // namespace kaloria
