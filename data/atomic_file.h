// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <string_view>

namespace kaloria {

/// A file could not be read or replaced. what() is a sentence with the path and the system's reason.
class FileError : public std::runtime_error {
public:
    enum class Kind {
        notFound,   ///< the file, or the folder that should hold it, does not exist
        notRegular, ///< a folder, a device, a pipe
        tooLarge,
        unreadable,
        unwritable,
    };

    FileError(Kind kind, std::filesystem::path path, const std::string& reason);

    [[nodiscard]] Kind GetKind() const { return kind_; }
    [[nodiscard]] const std::filesystem::path& Path() const { return path_; }

private:
    Kind kind_;
    std::filesystem::path path_;
};

/// The whole content of a regular file of at most @p maxBytes.
/// @throws FileError
[[nodiscard]] std::string ReadFile(const std::filesystem::path& path, std::size_t maxBytes);

/// Replaces @p target by a file that holds exactly @p bytes, in one step and durably: at any moment, also
/// after a kill or a power failure, the old or the new file is there, whole. Whatever goes wrong leaves the
/// old file as it was.
///
/// A symbolic link is followed and stays; a read-only file is replaced (only the folder has to be writable)
/// and becomes writable for its owner. The other permission bits of the old file are kept, and its owner
/// where the system allows it.
/// @throws FileError
void ReplaceFile(const std::filesystem::path& target, std::string_view bytes);

} // namespace kaloria
