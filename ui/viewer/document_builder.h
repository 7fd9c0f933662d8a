// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/viewer/rich_text.h"

#include <QString>
#include <QTextDocument>
#include <QTextFormat>

#include <functional>
#include <memory>
#include <span>
#include <vector>

namespace kaloria::viewer {

/// Properties of blocks, for who paints the sheets.
inline constexpr int separatorProperty = QTextFormat::UserProperty + 1; ///< of a separator: true
inline constexpr int sectionProperty =
    QTextFormat::UserProperty + 2; ///< of a separator: the section behind it

/// Room that a section's blocks leave at both sides [twip].
struct Inset {
    int left = 0;
    int right = 0;
};

struct BuildOptions {
    double scale = 1;            ///< of everything, type included
    std::vector<Inset> insets;   ///< by section; none: the text fills the document's width
    bool showsSeparators = true; ///< as text that can be found but not seen
    std::function<QString(Field)> fieldText = [](Field) { return QString(); };
};

/// Device-independent units per inch that documents of this program are laid out in.
[[nodiscard]] double UnitsPerInch();

/// @param blocks  of @p text, the whole or a part
[[nodiscard]] std::unique_ptr<QTextDocument>
BuildDocument(const RichText& text, std::span<const Block> blocks, const BuildOptions& options);

} // namespace kaloria::viewer
