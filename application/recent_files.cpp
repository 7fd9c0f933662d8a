// SPDX-License-Identifier: GPL-3.0-or-later
#include "application/recent_files.h"

#include "application/path_text.h"

#include <algorithm>
#include <string>
#include <system_error>
#include <utility>

namespace kaloria {

namespace {

constexpr std::string_view section = "Recent";
constexpr std::string_view key = "Files";
constexpr char separator = '|';

std::filesystem::path Absolute(const std::filesystem::path& file) {
    std::error_code error;
    const auto absolute = std::filesystem::absolute(file, error).lexically_normal();
    return error ? file : absolute;
}

} // namespace

std::vector<std::filesystem::path> RecentFiles::List() const {
    std::vector<std::filesystem::path> files;
    const std::string stored = settings_.Get(section, key);
    std::string_view rest = stored;
    while (!rest.empty() && files.size() < most) {
        const auto end = std::min(rest.find(separator), rest.size());
        const auto file = ParsePathText(rest.substr(0, end));
        if (file && file->is_absolute() && std::find(files.begin(), files.end(), *file) == files.end()) {
            files.push_back(*file);
        }
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    return files;
}

void RecentFiles::Add(const std::filesystem::path& file) {
    std::vector<std::filesystem::path> files{Absolute(file)};
    for (auto& other : List()) {
        if (other != files.front() && files.size() < most) {
            files.push_back(std::move(other));
        }
    }
    Keep(files);
}

void RecentFiles::Remove(const std::filesystem::path& file) {
    auto files = List();
    if (std::erase(files, Absolute(file)) > 0) {
        Keep(files);
    }
}

void RecentFiles::Clear() { Keep({}); }

void RecentFiles::Keep(const std::vector<std::filesystem::path>& files) {
    std::string text;
    for (const auto& file : files) {
        text += (text.empty() ? "" : std::string(1, separator)) + PathText(file);
    }
    settings_.Set(section, key, text);
}

} // namespace kaloria
