// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

// What tests do with a dialog.
namespace kaloria::test {

template <class Control>
[[nodiscard]] Control* Find(const QWidget& window, const char* name) {
    auto* const control = window.findChild<Control*>(QLatin1String(name));
    if (control == nullptr) {
        qFatal("there is no control %s", name);
    }
    return control;
}

inline void Type(const QWidget& window, const char* name, const QString& text) {
    auto* const line = Find<QLineEdit>(window, name);
    line->selectAll();
    QTest::keyClick(line, Qt::Key_Delete);
    QTest::keyClicks(line, text);
}

[[nodiscard]] inline bool IsReady(const QWidget& window) {
    return Find<QPushButton>(window, "cmdOK")->isEnabled();
}

/// The first control that takes the cursor without a name for scripts or for screen readers, by its class and
/// what names it has; empty when all have both.
[[nodiscard]] inline QString FirstNameless(const QWidget& window) {
    for (const QWidget* const control : window.findChildren<QWidget*>()) {
        const bool takesFocus = (control->focusPolicy() & Qt::TabFocus) != 0 && control->isVisible();
        const bool isText = qobject_cast<const QLabel*>(control) != nullptr;
        if (takesFocus && !isText && !control->objectName().startsWith("qt_") &&
            (control->accessibleName().isEmpty() || control->objectName().isEmpty())) {
            return QStringLiteral("%1 \"%2\" \"%3\"")
                .arg(QLatin1String(control->metaObject()->className()), control->objectName(),
                     control->accessibleName());
        }
    }
    return {};
}

} // namespace kaloria::test
