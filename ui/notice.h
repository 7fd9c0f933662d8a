// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "application/finding.h"

#include <QString>

class QLabel;
class QWidget;

namespace kaloria {

/// A line that tells something about the answer beside it, with the sign and the colours of its severity.
[[nodiscard]] QLabel* NewNotice(Severity severity, const QString& text, QWidget* parent);
[[nodiscard]] QLabel* NewNotice(const Finding& finding, QWidget* parent);

/// The same when all is well.
[[nodiscard]] QLabel* NewGoodNotice(const QString& text, QWidget* parent);

/// Turns a label into such a line, or into another one.
void ShowNotice(QLabel& label, Severity severity, const QString& text);

} // namespace kaloria
