// SPDX-License-Identifier: GPL-3.0-or-later
#include "application/shipped_files.h"

#include "application/path_text.h"
#include "data/atomic_file.h"
#include "data/configuration_file.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <cstdint>
#include <map>
#include <optional>
#include <sstream>
#include <string>
#include <system_error>
#include <utility>

namespace kaloria {

namespace {

namespace fs = std::filesystem;

constexpr const char* configurationName = "CorvaneConfig.xml";
constexpr const char* registerName = "shipped-files.txt";
constexpr std::string_view registerHeading = "Kaloria shipped files 1";
constexpr const char* unknown = "-";
constexpr std::size_t largestFile = 64U << 20U;
constexpr std::size_t largestRegister = 1U << 20U;

/// What is remembered of one file, as digests.
struct Memory {
    std::string seen; ///< the shipped version that was last dealt with
    std::string left; ///< the user's copy as it was last left here; unknown where it never was
};

using Register = std::map<fs::path, Memory>;

/// Tells versions of a file apart (FNV-1a and the length); no protection against somebody who wants a clash.
std::string Digest(std::string_view bytes) {
    std::uint64_t hash = 0xcbf29ce484222325U;
    for (const char byte : bytes) {
        hash = (hash ^ static_cast<unsigned char>(byte)) * 0x100000001b3U;
    }
    return fmt::format("{:016x}-{}", hash, bytes.size());
}

/// The digest of what counts as content: the user's own records do not.
std::string ContentDigest(const fs::path& name, const std::string& bytes) {
    return Digest(name == configurationName ? SystemConfigurationText(bytes) : bytes);
}

/// Lines of two digests and a name; other lines are passed over, and their files count as the user's own.
Register ReadRegister(const fs::path& file) {
    Register files;
    try {
        std::istringstream lines(ReadFile(file, largestRegister));
        std::string line;
        std::getline(lines, line);
        if (line != registerHeading) {
            return files;
        }
        while (std::getline(lines, line)) {
            std::istringstream words(line);
            Memory memory;
            std::string name;
            words >> memory.seen >> memory.left >> name;
            if (const auto path = ParsePathText(name)) {
                files[*path] = std::move(memory);
            }
        }
    } catch (const FileError&) {
        files.clear(); // none yet
    }
    return files;
}

std::string RegisterText(const Register& files) {
    std::string text = fmt::format("{}\n", registerHeading);
    for (const auto& [name, memory] : files) {
        text += fmt::format("{} {} {}\n", memory.seen, memory.left, PathText(name));
    }
    return text;
}

class Bringing {
public:
    Bringing(fs::path from, fs::path to, MessageSink& log)
        : from_(std::move(from)),
          to_(std::move(to)),
          log_(log),
          files_(ReadRegister(to_ / registerName)),
          before_(RegisterText(files_)) {}

    void All() {
        std::error_code error;
        fs::recursive_directory_iterator entry(from_, error);
        for (const fs::recursive_directory_iterator end; entry != end; entry.increment(error)) {
            // A read-only unpacked folder holds the programs too; they need no copy.
            const bool isProgram = !entry->path().has_extension();
            std::error_code unreadable;
            if (entry->is_regular_file(unreadable) && !isProgram) {
                One(entry->path().lexically_relative(from_));
            }
        }
        if (const std::string after = RegisterText(files_); after != before_) {
            Try(registerName, [&] { ReplaceFile(to_ / registerName, after); });
        }
    }

private:
    template <class Work>
    void Try(const fs::path& name, Work&& work) {
        try {
            work();
        } catch (const FileError& error) {
            log_.Log(error.what());
        } catch (const FileFault& fault) {
            Say(name, fault.Problem().line == 0
                          ? fault.Problem().text
                          : fmt::format("line {}: {}", fault.Problem().line, fault.Problem().text));
        }
    }

    void One(const fs::path& name) {
        Try(name, [&] {
            const std::string shipped = ReadFile(from_ / name, largestFile);
            std::error_code error;
            const bool isThere = fs::exists(to_ / name, error);
            if (isThere && IsSettled(name, Digest(shipped))) {
                return; // every start but the first after an upgrade
            }
            const std::string newest = ContentDigest(name, shipped);
            if (isThere) {
                Renew(name, shipped, newest);
            } else {
                fs::create_directories((to_ / name).parent_path(), error);
                ReplaceFile(to_ / name, shipped);
                files_[name] = {newest, newest};
            }
        });
    }

    [[nodiscard]] bool IsSettled(const fs::path& name, const std::string& digest) const {
        const auto known = files_.find(name);
        return known != files_.end() && known->second.seen == digest && known->second.left == digest;
    }

    void Renew(const fs::path& name, const std::string& shipped, const std::string& newest) {
        const std::string mine = ReadFile(to_ / name, largestFile);
        const std::string content = ContentDigest(name, mine);
        Memory& memory = files_.try_emplace(name, Memory{unknown, unknown}).first->second;
        if (content == newest) {
            memory = {newest, newest};
        } else if (content == memory.left) {
            const RenewedConfiguration renewed = name == configurationName
                                                     ? RenewedConfigurationText(shipped, mine)
                                                     : RenewedConfiguration{shipped, {}};
            if (!renewed.leftOut.empty() && memory.seen != newest) {
                Say(name, fmt::format("renewed without {}: your own records have these IDs or names",
                                      fmt::join(renewed.leftOut, ", ")));
            }
            if (renewed.text != mine) {
                ReplaceFile(to_ / name, renewed.text);
            }
            memory = {newest, ContentDigest(name, renewed.text)};
        } else {
            if (memory.seen != newest) {
                Say(name, fmt::format("kept as it was changed here; a newer one is in {}", from_.string()));
            }
            memory.seen = newest;
        }
    }

    void Say(const fs::path& name, std::string_view what) {
        log_.Log(fmt::format("{}: {}", (to_ / name).string(), what));
    }

    fs::path from_;
    fs::path to_;
    MessageSink& log_;
    Register files_;
    std::string before_;
};

} // namespace

void BringShippedFiles(const fs::path& from, const fs::path& to, MessageSink& log) {
    std::error_code error;
    fs::create_directories(to, error);
    if (error) {
        log.Log(fmt::format("{}: {}", to.string(), error.message()));
        return;
    }
    Bringing(from, to, log).All();
}

} // namespace kaloria
