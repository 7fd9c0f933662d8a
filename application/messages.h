// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kaloria {

/// Where what the application has to say goes: a box in the window, a line on standard error, a list in a
/// test.
class MessageSink {
public:
    MessageSink() = default;
    MessageSink(const MessageSink&) = delete;
    MessageSink& operator=(const MessageSink&) = delete;
    virtual ~MessageSink() = default;

    /// One of the fixed texts below: for the person.
    virtual void Show(std::string_view text) = 0;

    /// What was behind it, with the place of the error: for the log.
    virtual void Log(std::string_view detail) = 0;
};

/// Keeps everything; for tests and for callers that ask afterwards.
class MessageList final : public MessageSink {
public:
    void Show(std::string_view text) override { shown.emplace_back(text); }
    void Log(std::string_view detail) override { logged.emplace_back(detail); }

    std::vector<std::string> shown;
    std::vector<std::string> logged;
};

/// The fixed texts, spelt as people's scripts and manuals know them.
namespace message {
inline constexpr std::string_view fileNotFound = "File not found.";
inline constexpr std::string_view wrongVersion = "File is of a different version and will not work.";
inline constexpr std::string_view openingJob = "An error has occured while opening job information.  ";
inline constexpr std::string_view savingJob = "An error has occured while saving job information.  ";
inline constexpr std::string_view loadingMaterials = "An error occured while loading material data.";
inline constexpr std::string_view noAuditFile = "No audit file has been selected.";
inline constexpr std::string_view savingAudit = "An error has occured while saving audit data.";
} // namespace message

} // namespace kaloria
