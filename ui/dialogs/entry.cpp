// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/dialogs/entry.h"

#include "data/number_format.h"
#include "data/value_text.h"
#include "engine/number_text.h"
#include "ui/theme.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QStyle>

namespace kaloria {

namespace {

constexpr int numberWidth = 110;

QLineEdit* NewLine(const QString& subject, bool isNumber) {
    auto* const line = new QLineEdit;
    line->setObjectName(QStringLiteral("txt") + subject);
    line->setMaxLength(1000);
    if (isNumber) {
        line->setAlignment(Qt::AlignRight);
        const int wanted = line->fontMetrics().horizontalAdvance(QStringLiteral("-0.0000000000")) + 22;
        line->setFixedWidth(std::max(numberWidth, wanted));
    }
    return line;
}

} // namespace

const char* RoleOf(Severity severity) {
    return severity == Severity::error ? "error" : severity == Severity::warning ? "warning" : "quiet";
}

QString NotANumber(const QString& text) {
    if (text.trimmed().isEmpty()) {
        return Entry::tr("A number is needed.");
    }
    return ParseNumber(FromQt(text)) ? QString() : Entry::tr("\"%1\" is not a number.").arg(text.trimmed());
}

QString ShortText(double value) { return ToQt(value_text::RealText(static_cast<float>(value))); }

QString RoundedText(double value, int decimals) {
    std::string text = FormatFixed(value, decimals);
    if (text.find('.') != std::string::npos) {
        text.erase(text.find_last_not_of('0') + 1);
        if (text.ends_with('.')) {
            text.pop_back();
        }
    }
    return ToQt(text);
}

Entry::Entry(QGridLayout& grid, const QString& subject, const QString& label, QWidget* control)
    : subject_(subject),
      name_(label),
      label_(new QLabel(label)),
      control_(control),
      unit_(new QLabel),
      problem_(new QLabel) {
    name_.remove(u'&').remove(u':');
    label_->setBuddy(control_);
    label_->setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Preferred);
    theme::SetRole(*unit_, "quiet");
    unit_->hide();
    problem_->setObjectName(QStringLiteral("lbl%1Problem").arg(subject_));
    problem_->setWordWrap(true);
    problem_->setFont(theme::CaptionFont());
    problem_->hide();
    const int row = grid.rowCount();
    const bool isWide = control_->maximumWidth() > 10'000;
    grid.addWidget(label_, row, 0);
    grid.addWidget(control_, row, 1, 1, isWide ? 2 : 1);
    if (!isWide) {
        grid.addWidget(unit_, row, 2);
    }
    grid.addWidget(problem_, row + 1, 1, 1, 2);
    grid.setColumnStretch(2, 1);
    setParent(control_);
    Describe();
    if (auto* const line = qobject_cast<QLineEdit*>(control_)) {
        connect(line, &QLineEdit::textEdited, this, [this] {
            Touch();
            Q_EMIT Changed();
        });
        connect(line, &QLineEdit::editingFinished, this, [this, line] {
            // Leaving an entry counts only when one could have filled it in.
            if (line->isVisible() && !IsTouched()) {
                Touch();
                Q_EMIT Changed();
            }
        });
    }
}

void Entry::SetUnit(const QString& unit) {
    unit_->setText(unit);
    unit_->setVisible(isShown_ && !unit.isEmpty());
    Describe();
}

void Entry::Describe() {
    const QString unit = unit_->text();
    control_->setAccessibleName(unit.isEmpty() ? name_ : QStringLiteral("%1, %2").arg(name_, unit));
}

void Entry::SetProblem(const QString& text, Severity severity) {
    problem_->setText(text);
    problem_->setVisible(isShown_ && !text.isEmpty());
    theme::SetRole(*problem_, RoleOf(severity));
    control_->setAccessibleDescription(text);
    const bool isWrong = severity == Severity::error && !text.isEmpty();
    if (control_->property("wrong").toBool() != isWrong) {
        control_->setProperty("wrong", isWrong);
        control_->style()->unpolish(control_);
        control_->style()->polish(control_);
    }
}

QString Entry::Problem() const { return problem_->text(); }

void Entry::SetShown(bool shown) {
    isShown_ = shown;
    label_->setVisible(shown);
    control_->setVisible(shown);
    unit_->setVisible(shown && !unit_->text().isEmpty());
    problem_->setVisible(shown && !problem_->text().isEmpty());
}

TextEntry::TextEntry(QGridLayout& grid, const QString& subject, const QString& label, const QString& text)
    : Entry(grid, subject, label, NewLine(subject, false)), line_(qobject_cast<QLineEdit*>(Control())) {
    line_->setText(text);
    line_->setCursorPosition(0);
}

QString TextEntry::Text() const { return line_->text().trimmed(); }

NumberEntry::NumberEntry(QGridLayout& grid, const QString& subject, const QString& label)
    : Entry(grid, subject, label, NewLine(subject, true)), line_(qobject_cast<QLineEdit*>(Control())) {}

void NumberEntry::SetValue(double value, const QString& text) {
    value_ = value;
    text_ = text;
    line_->setText(text);
}

bool NumberEntry::IsEdited() const { return line_->text() != text_; }

std::optional<double> NumberEntry::Value() const {
    return IsEdited() ? ParseNumber(FromQt(line_->text())) : value_;
}

QString NumberEntry::Unreadable() const {
    return IsEdited() || !value_ ? NotANumber(line_->text()) : QString();
}

} // namespace kaloria
