// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "application/settings.h"

#include <cstddef>
#include <filesystem>
#include <vector>

namespace kaloria {

/// The jobs opened or saved last, newest first, kept in the section "Recent" of the settings.
class RecentFiles {
public:
    static constexpr std::size_t most = 8;

    /// @param settings  must outlive this object
    explicit RecentFiles(SettingsStore& settings) : settings_(settings) {}

    [[nodiscard]] std::vector<std::filesystem::path> List() const;
    /// Puts a file first; relative paths are made absolute.
    void Add(const std::filesystem::path& file);
    void Remove(const std::filesystem::path& file);
    void Clear();

private:
    void Keep(const std::vector<std::filesystem::path>& files);

    SettingsStore& settings_;
};

} // namespace kaloria
