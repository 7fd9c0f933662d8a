// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/viewer/find_bar.h"

#include "ui/theme.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QTextEdit>

namespace kaloria::viewer {

namespace {

constexpr int mostMarks = 2000; // more would make scrolling slow

QPushButton* ButtonOf(const QString& text, const QString& name, const QString& told, QWidget* parent) {
    auto* const button = new QPushButton(text, parent);
    button->setObjectName(name);
    button->setAccessibleName(told);
    button->setAutoDefault(false);
    return button;
}

} // namespace

FindBar::FindBar(QTextEdit& text, QWidget* parent)
    : QWidget(parent), text_(text), wanted_(new QLineEdit(this)), told_(new QLabel(this)) {
    setObjectName(QStringLiteral("fraFind"));
    wanted_->setObjectName(QStringLiteral("txtFind"));
    wanted_->setPlaceholderText(tr("Find in the report"));
    wanted_->setAccessibleName(tr("Find in the report"));
    wanted_->setClearButtonEnabled(true);
    told_->setObjectName(QStringLiteral("lblFound"));
    theme::SetRole(*told_, "quiet");
    auto* const previous =
        ButtonOf(tr("&Previous"), QStringLiteral("cmdFindPrevious"), tr("Find previous"), this);
    auto* const next = ButtonOf(tr("&Next"), QStringLiteral("cmdFindNext"), tr("Find next"), this);
    auto* const close = ButtonOf(tr("Close"), QStringLiteral("cmdFindClose"), tr("Close the search"), this);

    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins(theme::cardGap, theme::gap, theme::cardGap, theme::gap);
    row->setSpacing(theme::gap);
    constexpr int fieldWidth = 260;
    wanted_->setMinimumWidth(fieldWidth);
    row->addWidget(wanted_);
    row->addWidget(previous);
    row->addWidget(next);
    row->addWidget(told_, 1);
    row->addWidget(close);

    connect(wanted_, &QLineEdit::textChanged, this, &FindBar::FindTyped);
    connect(wanted_, &QLineEdit::returnPressed, this, &FindBar::FindNext);
    connect(previous, &QPushButton::clicked, this, &FindBar::FindPrevious);
    connect(next, &QPushButton::clicked, this, &FindBar::FindNext);
    connect(close, &QPushButton::clicked, this, &QWidget::hide);
    hide();
}

void FindBar::Open() {
    const QString selected = text_.textCursor().selectedText();
    if (!selected.isEmpty() && !selected.contains(QChar(QChar::ParagraphSeparator))) {
        wanted_->setText(selected);
    }
    show();
    wanted_->setFocus(Qt::ShortcutFocusReason);
    wanted_->selectAll();
    Refresh();
}

void FindBar::Refresh() {
    places_.clear();
    count_ = 0;
    QList<QTextEdit::ExtraSelection> marks;
    QTextCharFormat look;
    look.setBackground(QColor(0xfff2a8)); // the paper is white in the dark scheme too
    QTextCursor at(text_.document());
    while (isVisible() && !wanted_->text().isEmpty()) {
        at = text_.document()->find(wanted_->text(), at);
        if (at.isNull()) {
            break;
        }
        ++count_;
        places_.append(at.selectionStart());
        if (marks.size() < mostMarks) {
            marks.append({at, look});
        }
    }
    text_.setExtraSelections(marks);
    Tell();
}

void FindBar::FindTyped() {
    Refresh();
    QTextCursor cursor = text_.textCursor();
    cursor.setPosition(cursor.selectionStart()); // a longer word may begin where the shorter did
    text_.setTextCursor(cursor);
    Find({});
}

void FindBar::Find(QTextDocument::FindFlags flags) {
    if (wanted_->text().isEmpty()) {
        return;
    }
    QTextCursor found = text_.document()->find(wanted_->text(), text_.textCursor(), flags);
    if (found.isNull()) {
        QTextCursor end(text_.document());
        end.movePosition(flags.testFlag(QTextDocument::FindBackward) ? QTextCursor::End : QTextCursor::Start);
        found = text_.document()->find(wanted_->text(), end, flags);
    }
    if (!found.isNull()) {
        text_.setTextCursor(found);
        text_.ensureCursorVisible();
        Lift();
    }
    Tell();
}

/// Shows what stands behind the place too.
void FindBar::Lift() {
    QScrollBar* const bar = text_.verticalScrollBar();
    bar->setValue(bar->value() + text_.cursorRect().top() - text_.viewport()->height() / 3);
}

void FindBar::Tell() {
    const auto index = places_.indexOf(text_.textCursor().selectionStart());
    const bool isAtOne = index >= 0 && text_.textCursor().hasSelection();
    told_->setText(wanted_->text().isEmpty() ? QString()
                   : count_ == 0             ? tr("Not found")
                   : isAtOne                 ? tr("%1 of %2").arg(index + 1).arg(count_)
                                             : tr("%1 found").arg(count_));
}

void FindBar::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) {
        hide();
        text_.setFocus(Qt::OtherFocusReason);
        return;
    }
    QWidget::keyPressEvent(event);
}

void FindBar::hideEvent(QHideEvent* event) {
    text_.setExtraSelections({});
    QWidget::hideEvent(event);
}

} // namespace kaloria::viewer
