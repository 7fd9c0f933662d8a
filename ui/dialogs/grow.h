// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/theme.h"

#include <QLayout>
#include <QWidget>

#include <algorithm>

namespace kaloria {

/// Makes a window as high as its wrapped texts need at its width. Never lower: what one is looking at stays
/// where it is.
inline void GrowToFit(QWidget& window) {
    QLayout* const layout = window.layout();
    layout->activate();
    const QSize least = layout->totalMinimumSize();
    const int width = std::max(window.width(), least.width());
    const int wanted = layout->hasHeightForWidth() ? layout->totalHeightForWidth(width) : least.height();
    window.resize(width, std::max(window.height(), wanted));
}

/// The same before the window is shown, when its height is still nobody's choice.
inline void FitHeight(QWidget& window, int width) {
    QLayout* const layout = window.layout();
    layout->activate();
    window.resize(width, layout->hasHeightForWidth() ? layout->totalHeightForWidth(width)
                                                     : layout->totalSizeHint().height());
}

/// Height of a grid's row, which follows the size of the text.
inline int RowHeight(const QWidget& grid) {
    constexpr int room = 12;
    return std::max(theme::fieldHeight, grid.fontMetrics().height() + room);
}

} // namespace kaloria
