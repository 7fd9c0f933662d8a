// SPDX-License-Identifier: GPL-3.0-or-later
#include "application/settings.h"

#include "data/atomic_file.h"
#include "engine/number_text.h"

#include <algorithm>
#include <cstdlib>
#include <sstream>
#include <system_error>

namespace kaloria {

namespace {

constexpr std::size_t largestFile = 1 << 20;

std::string KeyOf(std::string_view section, std::string_view key) {
    return std::string(section) + "/" + std::string(key);
}

/// One line a value: what would break the line becomes a blank.
std::string OneLine(std::string_view value) {
    std::string text(value);
    std::replace_if(
        text.begin(), text.end(), [](char c) { return c == '\n' || c == '\r' || c == '\0'; }, ' ');
    return text;
}

std::string Setting(SettingsStore& settings, std::string_view key) {
    std::string value = settings.Get(setting::section, key);
    if (!value.empty()) {
        return value;
    }
    settings.Set(setting::section, key, setting::yes);
    return std::string(setting::yes);
}

} // namespace

std::string MemorySettings::Get(std::string_view section, std::string_view key) const {
    const auto found = values.find(KeyOf(section, key));
    return found == values.end() ? std::string() : found->second;
}

bool MemorySettings::Set(std::string_view section, std::string_view key, std::string_view value) {
    values[KeyOf(section, key)] = OneLine(value);
    return true;
}

FileSettings::FileSettings(std::filesystem::path file) : file_(std::move(file)) {
    std::string text;
    try {
        text = ReadFile(file_, largestFile);
    } catch (const FileError&) {
        return; // a first start, or settings that cannot be read: the defaults serve
    }
    std::istringstream lines(text);
    std::string section;
    for (std::string line; std::getline(lines, line);) {
        const std::string_view trimmed = Trimmed(line);
        const auto equals = trimmed.find('=');
        if (trimmed.size() > 1 && trimmed.front() == '[' && trimmed.back() == ']') {
            section = trimmed.substr(1, trimmed.size() - 2);
        } else if (equals != std::string_view::npos && trimmed.front() != ';' && trimmed.front() != '#') {
            values[KeyOf(section, Trimmed(trimmed.substr(0, equals)))] = Trimmed(trimmed.substr(equals + 1));
        }
    }
}

bool FileSettings::Set(std::string_view section, std::string_view key, std::string_view value) {
    MemorySettings::Set(section, key, value);
    std::string text;
    std::string current;
    for (const auto& [name, stored] : values) {
        const auto slash = name.find('/');
        if (text.empty() || name.substr(0, slash) != current) {
            current = name.substr(0, slash);
            text += "[" + current + "]\n";
        }
        text += name.substr(slash + 1) + "=" + stored + "\n";
    }
    std::error_code ignored; // a folder that cannot be made shows as a file that cannot be written
    std::filesystem::create_directories(file_.parent_path(), ignored);
    try {
        ReplaceFile(file_, text);
    } catch (const FileError&) {
        return false;
    }
    return true;
}

std::filesystem::path FileSettings::UserFile() {
    const char* const configured =
        std::getenv("XDG_CONFIG_HOME");           // NOLINT(concurrency-mt-unsafe): one thread
    const char* const home = std::getenv("HOME"); // NOLINT(concurrency-mt-unsafe)
    const std::filesystem::path base = configured != nullptr && *configured == '/'
                                           ? std::filesystem::path(configured)
                                           : std::filesystem::path(home != nullptr ? home : "") / ".config";
    return base / "Kaloria" / "Kaloria.ini";
}

StartUpChoices ReadStartUpChoices(SettingsStore& settings) {
    StartUpChoices choices;
    choices.showDisclaimer = Setting(settings, setting::showDisclaimer) == setting::yes;
    choices.firstRun = Setting(settings, setting::firstRun) == setting::yes;
    return choices;
}

void EndFirstRun(SettingsStore& settings) { settings.Set(setting::section, setting::firstRun, setting::no); }

} // namespace kaloria
