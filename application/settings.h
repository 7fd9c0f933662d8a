// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <string_view>

namespace kaloria {

/// Per-user settings of the application "Kaloria", by section and key; a text that is not there is empty.
class SettingsStore {
public:
    SettingsStore() = default;
    SettingsStore(const SettingsStore&) = delete;
    SettingsStore& operator=(const SettingsStore&) = delete;
    virtual ~SettingsStore() = default;

    [[nodiscard]] virtual std::string Get(std::string_view section, std::string_view key) const = 0;

    /// @return whether it is kept beyond this run
    virtual bool Set(std::string_view section, std::string_view key, std::string_view value) = 0;
};

/// Settings in memory, for tests.
class MemorySettings : public SettingsStore {
public:
    [[nodiscard]] std::string Get(std::string_view section, std::string_view key) const override;
    bool Set(std::string_view section, std::string_view key, std::string_view value) override;

protected:
    /// By "section/key".
    std::map<std::string, std::string, std::less<>> values;
};

/// Settings in a file of "[section]" headings and "key=value" lines, replaced in one step at every change. A
/// file that cannot be read counts as empty; lines of other forms are dropped at the next change.
class FileSettings final : public MemorySettings {
public:
    explicit FileSettings(std::filesystem::path file);
    bool Set(std::string_view section, std::string_view key, std::string_view value) override;

    /// The user's file: Kaloria/Kaloria.ini in the configuration folder of the desktop (XDG_CONFIG_HOME, or
    /// .config in the home folder).
    [[nodiscard]] static std::filesystem::path UserFile();

private:
    std::filesystem::path file_;
};

namespace setting {
inline constexpr std::string_view section = "Application";
inline constexpr std::string_view showDisclaimer = "ShowDisclaimer";
inline constexpr std::string_view firstRun = "FirstRun";
inline constexpr std::string_view yes = "TRUE";
inline constexpr std::string_view no = "FALSE";
} // namespace setting

/// What the program has to do at a start.
struct StartUpChoices {
    bool showDisclaimer = false;
    bool firstRun = false; ///< ask for the user information
};

/// Reads the two start-up settings and writes "TRUE" where one is missing.
[[nodiscard]] StartUpChoices ReadStartUpChoices(SettingsStore& settings);

/// Writes "FALSE" to FirstRun. Once the user has been asked, not before: a program that ended at the
/// disclaimer has not asked yet.
void EndFirstRun(SettingsStore& settings);

} // namespace kaloria
