// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QIcon>
#include <QPixmap>
#include <QString>

#include <filesystem>

namespace kaloria {

/// The pictures that lie in the folder "images" beside the program, where people may exchange them.
class Pictures {
public:
    explicit Pictures(const std::filesystem::path& programFolder) : folder_(programFolder / "images") {}

    /// A navigation picture, `<base>on.gif` or `<base>off.gif`; the dark scheme's own where there is one.
    /// Empty when the file is missing or no picture.
    [[nodiscard]] QIcon Navigation(const QString& base, bool isOn) const;

    /// A picture by its file name; null when the file is missing or no picture.
    [[nodiscard]] QPixmap Named(const QString& fileName) const;

private:
    [[nodiscard]] QString PathOf(const QString& fileName) const;

    std::filesystem::path folder_;
};

} // namespace kaloria
