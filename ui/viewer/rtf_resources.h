// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/viewer/rich_text.h"

#include <string_view>

namespace kaloria::viewer {

/// What the tables at the start of an RTF document hold and its text refers to by number.
struct Resources {
    std::map<int, Font> fonts;
    std::vector<QColor> colors; ///< invalid: automatic
    int defaultFont = 0;
    int codePage = 1252;

    /// Invalid for a number without a colour.
    [[nodiscard]] QColor Color(int number) const;
    [[nodiscard]] const Font& FontOf(int number) const;
};

/// @throws FileFault
[[nodiscard]] Resources ReadResources(std::string_view bytes);

} // namespace kaloria::viewer
