// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QSize>
#include <QString>

#include <functional>

class QMenu;
class QPaintDevice;
class QWidget;

namespace kaloria::picture {

/// Something that can be drawn anywhere: on the screen's scale, in device-independent pixels.
struct Drawing {
    QSize size;
    QString name;                            ///< "Section at 1.5 in.", also the proposed file name
    std::function<void(QPaintDevice&)> draw; ///< ground and all, on a device that nothing else paints on
};

/// Copies it as a picture, at twice the screen's resolution.
void Copy(const Drawing& drawing);

/// Writes it to the file, of the kind that its suffix tells: .png, .svg or .pdf.
/// @returns what prevented it; empty when it is written
[[nodiscard]] QString Save(const Drawing& drawing, const QString& path);

/// "Copy" and "Save picture...", which asks for the file and says what went wrong.
void AddActions(QMenu& menu, QWidget& owner, const std::function<Drawing()>& drawing);

} // namespace kaloria::picture
