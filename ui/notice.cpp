// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/notice.h"

#include "ui/theme.h"

#include <QLabel>

namespace kaloria {

namespace {

struct Look {
    const char* role;
    const char* sign;
};

Look LookOf(Severity severity) {
    switch (severity) {
    case Severity::error:
        return {"noticeWrong", "✗ "};
    case Severity::warning:
        return {"noticeCare", "⚠ "};
    case Severity::information:
        break;
    }
    return {"noticeInfo", "ℹ "};
}

QLabel* NewLabel(QWidget* parent) {
    auto* const label = new QLabel(parent);
    label->setWordWrap(true);
    label->setTextFormat(Qt::PlainText);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return label;
}

void Show(QLabel& label, const Look& look, const QString& text) {
    label.setText(QString::fromUtf8(look.sign) + text);
    theme::SetRole(label, look.role);
}

} // namespace

QLabel* NewNotice(Severity severity, const QString& text, QWidget* parent) {
    QLabel* const label = NewLabel(parent);
    ShowNotice(*label, severity, text);
    return label;
}

QLabel* NewNotice(const Finding& finding, QWidget* parent) {
    return NewNotice(finding.severity, ToQt(finding.text), parent);
}

QLabel* NewGoodNotice(const QString& text, QWidget* parent) {
    QLabel* const label = NewLabel(parent);
    Show(*label, {"noticeMet", "✓ "}, text);
    return label;
}

void ShowNotice(QLabel& label, Severity severity, const QString& text) {
    Show(label, LookOf(severity), text);
}

} // namespace kaloria
