// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "application/finding.h"

#include <QObject>
#include <QString>

#include <optional>

class QGridLayout;
class QLabel;
class QLineEdit;
class QWidget;

namespace kaloria {

/// A row of an editing dialog: label, control, unit and, below, what is wrong with it. The subject names the
/// record's field, as findings do.
class Entry : public QObject {
    Q_OBJECT

public:
    /// Adds the row to @p grid; the label's mnemonic leads to the control, which becomes the row's.
    Entry(QGridLayout& grid, const QString& subject, const QString& label, QWidget* control);

    [[nodiscard]] const QString& Subject() const { return subject_; }
    [[nodiscard]] QWidget* Control() const { return control_; }
    void SetUnit(const QString& unit);

    /// Marks the control; an empty text takes the mark away.
    void SetProblem(const QString& text, Severity severity = Severity::error);
    [[nodiscard]] QString Problem() const;

    /// Whether the user has been at it; a new record's empty entries are not marked before.
    [[nodiscard]] bool IsTouched() const { return isTouched_; }
    void Touch() { isTouched_ = true; }

    /// Why the control's content cannot be read at all; empty when it can.
    [[nodiscard]] virtual QString Unreadable() const { return {}; }

    void SetShown(bool shown);
    [[nodiscard]] bool IsShown() const { return isShown_; }

Q_SIGNALS:
    void Changed(); ///< by the user

private:
    void Describe();

    QString subject_;
    QString name_;
    QLabel* label_;
    QWidget* control_;
    QLabel* unit_;
    QLabel* problem_;
    bool isShown_ = true;
    bool isTouched_ = false;
};

/// A text of one line.
class TextEntry final : public Entry {
    Q_OBJECT

public:
    TextEntry(QGridLayout& grid, const QString& subject, const QString& label, const QString& text);
    [[nodiscard]] QString Text() const;

private:
    QLineEdit* line_;
};

/// A number in the units that are shown, with as many digits as one wants to read. Ask IsEdited before taking
/// Value over: what was not edited shall stay exactly what it was.
class NumberEntry final : public Entry {
    Q_OBJECT

public:
    NumberEntry(QGridLayout& grid, const QString& subject, const QString& label);

    /// Shows @p value with the digits of @p text. Empty until then.
    void SetValue(double value, const QString& text);
    /// In the units shown; nothing when the text is no number.
    [[nodiscard]] std::optional<double> Value() const;
    [[nodiscard]] bool IsEdited() const;
    [[nodiscard]] QString Unreadable() const override;
    [[nodiscard]] QLineEdit* Line() const { return line_; }

private:
    QLineEdit* line_;
    std::optional<double> value_; ///< what went in
    QString text_;
};

/// Role of a text of that severity in the style sheet.
[[nodiscard]] const char* RoleOf(Severity severity);

/// What is wrong with a text that should be a number; empty when it is one.
[[nodiscard]] QString NotANumber(const QString& text);

/// Digits of a value for an entry: all of single precision, or @p decimals without zeros at the end.
[[nodiscard]] QString ShortText(double value);
[[nodiscard]] QString RoundedText(double value, int decimals);

} // namespace kaloria
