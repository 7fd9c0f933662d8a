// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/pictures.h"

#include "ui/theme.h"

#include <QFileInfo>

namespace kaloria {

QString Pictures::PathOf(const QString& fileName) const {
    const QString folder = QString::fromStdString(folder_.string());
    const QString dark = folder + QStringLiteral("/dark/") + fileName;
    if (theme::CurrentScheme() == theme::Scheme::dark && QFileInfo::exists(dark)) {
        return dark;
    }
    return folder + u'/' + fileName;
}

QIcon Pictures::Navigation(const QString& base, bool isOn) const {
    // QIcon finds the "@2x" file beside it by itself.
    return QIcon(PathOf(base + (isOn ? QStringLiteral("on.gif") : QStringLiteral("off.gif"))));
}

QPixmap Pictures::Named(const QString& fileName) const { return QPixmap(PathOf(fileName)); }

} // namespace kaloria
