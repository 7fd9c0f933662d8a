// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/atomic_file.h"

#include <fmt/format.h>

#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <fcntl.h>
#include <random>
#include <sys/stat.h>
#include <sys/types.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace kaloria {

namespace {

namespace fs = std::filesystem;
using Kind = FileError::Kind;

[[noreturn]] void ThrowSystemError(Kind kind, const fs::path& path, int code) {
    throw FileError(code == ENOENT || code == ENOTDIR ? Kind::notFound : kind, path,
                    std::generic_category().message(code));
}

/// Owns a file descriptor.
class Descriptor {
public:
    explicit Descriptor(int number) : number_(number) {}
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor() { Close(); }

    [[nodiscard]] int Number() const { return number_; }
    [[nodiscard]] bool IsOpen() const { return number_ >= 0; }
    /// False when the system reports a late write error.
    bool Close() { return number_ < 0 || ::close(std::exchange(number_, -1)) == 0; }

private:
    int number_;
};

/// Removes the temporary file unless it has become the target.
class TemporaryName {
public:
    explicit TemporaryName(fs::path path) : path_(std::move(path)) {}
    TemporaryName(const TemporaryName&) = delete;
    TemporaryName& operator=(const TemporaryName&) = delete;
    ~TemporaryName() {
        if (!path_.empty()) {
            ::unlink(path_.c_str());
        }
    }

    [[nodiscard]] const fs::path& Path() const { return path_; }
    void Keep() { path_.clear(); }

private:
    fs::path path_;
};

/// The file that @p target means once every symbolic link is followed, be it there or not.
fs::path FollowLinks(fs::path target) {
    constexpr int maxLinks = 40; // as the kernel's own limit
    std::error_code error;
    for (int i = 0; i < maxLinks && fs::is_symlink(fs::symlink_status(target, error)); ++i) {
        const fs::path next = fs::read_symlink(target, error);
        if (error) {
            ThrowSystemError(Kind::unwritable, target, error.value());
        }
        target = next.is_absolute() ? next : target.parent_path() / next;
    }
    if (fs::is_symlink(fs::symlink_status(target, error))) {
        ThrowSystemError(Kind::unwritable, target, ELOOP);
    }
    return target;
}

fs::path FolderOf(const fs::path& file) {
    return file.has_parent_path() ? file.parent_path() : fs::path(".");
}

fs::path UnpredictableNameIn(const fs::path& folder) {
    std::random_device device;
    const std::uint64_t number = (std::uint64_t{device()} << 32U) | device();
    return folder / fmt::format(".kaloria-{:016x}.tmp", number);
}

void WriteAll(const Descriptor& file, const fs::path& path, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = ::write(file.Number(), bytes.data(), bytes.size());
        if (written < 0 && errno != EINTR) {
            ThrowSystemError(Kind::unwritable, path, errno);
        }
        bytes.remove_prefix(written > 0 ? static_cast<std::size_t>(written) : 0);
    }
}

/// Owner and permissions of the file about to be replaced. The owner can be kept only by who may give files
/// away, hence no error when it cannot.
void TakeOver(const Descriptor& file, const struct stat& old, const fs::path& path) {
    [[maybe_unused]] const int ownerKept = ::fchown(file.Number(), old.st_uid, old.st_gid);
    constexpr mode_t permissionBits = 0777;
    if (::fchmod(file.Number(), (old.st_mode & permissionBits) | S_IWUSR) != 0) {
        ThrowSystemError(Kind::unwritable, path, errno);
    }
}

/// Makes the renamed entry durable. A folder that may not be opened, or whose file system knows no such
/// request, is no error: the replacement itself has been done.
void SyncFolder(const fs::path& folder) {
    const Descriptor handle(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (handle.IsOpen() && ::fsync(handle.Number()) != 0 && errno == EIO) {
        ThrowSystemError(Kind::unwritable, folder, errno);
    }
}

std::string ReadUpTo(const Descriptor& file, const fs::path& path, std::size_t maxBytes,
                     std::size_t expected) {
    std::string bytes;
    bytes.reserve(expected + 1);
    constexpr std::size_t step = 65536;
    for (;;) {
        const std::size_t old = bytes.size();
        bytes.resize(old + (expected > old ? expected - old + 1 : step));
        const ssize_t count = ::read(file.Number(), bytes.data() + old, bytes.size() - old);
        bytes.resize(old + (count > 0 ? static_cast<std::size_t>(count) : 0));
        if (count == 0) {
            return bytes;
        }
        if (count < 0 && errno != EINTR) {
            ThrowSystemError(Kind::unreadable, path, errno);
        }
        // The file may have grown since its size was asked for.
        if (bytes.size() > maxBytes) {
            throw FileError(Kind::tooLarge, path, fmt::format("larger than {} bytes", maxBytes));
        }
    }
}

} // namespace

FileError::FileError(Kind kind, fs::path path, const std::string& reason)
    : std::runtime_error(fmt::format("{}: {}", path.string(), reason)), kind_(kind), path_(std::move(path)) {}

std::string ReadFile(const fs::path& path, std::size_t maxBytes) {
    // Without O_NONBLOCK the open of a pipe would wait for a writer.
    const Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    struct stat status {};
    if (!file.IsOpen() || ::fstat(file.Number(), &status) != 0) {
        ThrowSystemError(Kind::unreadable, path, errno);
    }
    if (!S_ISREG(status.st_mode)) {
        throw FileError(Kind::notRegular, path, "not a regular file");
    }
    const auto size = static_cast<std::size_t>(status.st_size);
    if (size > maxBytes) {
        throw FileError(Kind::tooLarge, path, fmt::format("larger than {} bytes", maxBytes));
    }
    return ReadUpTo(file, path, maxBytes, size);
}

void ReplaceFile(const fs::path& target, std::string_view bytes) {
    const fs::path file = FollowLinks(target);
    struct stat old {};
    const bool exists = ::stat(file.c_str(), &old) == 0;
    if (!exists && errno != ENOENT) {
        ThrowSystemError(Kind::unwritable, target, errno);
    }
    if (exists && !S_ISREG(old.st_mode)) {
        throw FileError(Kind::notRegular, target, "not a regular file");
    }

    const fs::path temporaryPath = UnpredictableNameIn(FolderOf(file));
    constexpr mode_t privateFile = 0600; // nobody else reads it before it has the old file's permissions
    constexpr mode_t newFile = 0666;     // less the bits of the umask
    Descriptor handle(::open(temporaryPath.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW,
                             exists ? privateFile : newFile));
    if (!handle.IsOpen()) {
        ThrowSystemError(Kind::unwritable, target, errno);
    }
    TemporaryName temporary(temporaryPath);
    WriteAll(handle, target, bytes);
    if (exists) {
        TakeOver(handle, old, target);
    }
    if (::fsync(handle.Number()) != 0 || !handle.Close() ||
        ::rename(temporary.Path().c_str(), file.c_str()) != 0) {
        ThrowSystemError(Kind::unwritable, target, errno);
    }
    temporary.Keep();
    SyncFolder(FolderOf(file));
}

} // namespace kaloria
