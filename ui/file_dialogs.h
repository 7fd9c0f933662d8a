// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <filesystem>

class QWidget;

/// Asking for files, everywhere in the same way.
namespace kaloria::files {

enum class Overwrite { ask, dontAsk };

/// A name to write to, with the extension @p suffix put behind a name that has none; empty when cancelled.
[[nodiscard]] QString AskSave(QWidget* parent, const QString& title, const QString& proposed,
                              const QString& filter, const QString& suffix,
                              Overwrite overwrite = Overwrite::ask);

/// An existing file; empty when cancelled.
[[nodiscard]] QString AskOpen(QWidget* parent, const QString& title, const QString& folder,
                              const QString& filter);

[[nodiscard]] inline QString ToQt(const std::filesystem::path& path) {
    return QString::fromStdString(path.string());
}
[[nodiscard]] inline std::filesystem::path FromQt(const QString& path) { return {path.toStdString()}; }

} // namespace kaloria::files
