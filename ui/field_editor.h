// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/session.h"

#include <QObject>

class QAbstractButton;
class QComboBox;
class QLabel;
class QLineEdit;
class QWidget;

namespace kaloria {

/// One field of the job in a panel: its label, the control that edits it, its unit and, where the entry is
/// wrong, what is expected. Everything comes from the field table.
class FieldEditor final : public QObject {
    Q_OBJECT

public:
    /// The widgets belong to @p parent; the caller lays them out.
    FieldEditor(Field field, Session& session, QWidget* parent);

    [[nodiscard]] Field Id() const { return field_.id; }
    [[nodiscard]] QWidget* Label() const {
        return label_;
    } ///< of a moisture entry the button that chooses it
    [[nodiscard]] QWidget* Control() const { return control_; }
    [[nodiscard]] QLabel* Unit() const { return unit_; }
    [[nodiscard]] QLabel* Error() const { return error_; }

    /// What the label needs; one that breaks into lines needs less than its text.
    [[nodiscard]] int LabelWidth() const;

    /// Shows the job's text, with label, unit and choices as they are now.
    void Refresh();

    /// For numbers of few digits, two of which stand beside each other.
    void SetShort();

    /// Shows or hides the field whole.
    void SetShown(bool shown);
    [[nodiscard]] bool IsShown() const { return isShown_; }

    /// Marks an entry that cannot stand, by itself.
    void CheckEntry();
    /// What is wrong with the entry; empty when nothing is.
    void SetError(const QString& text);
    [[nodiscard]] bool HasError() const { return hasError_; }

private:
    void BuildLine(QWidget* parent);
    void BuildChoice(QWidget* parent);
    void BuildFlag(QWidget* parent);
    void RefreshChoices();
    void Describe();

    const JobField& field_;
    Session& session_;
    QWidget* label_ = nullptr;
    QWidget* control_ = nullptr;
    QLineEdit* line_ = nullptr;
    QComboBox* choice_ = nullptr;
    QAbstractButton* flag_ = nullptr;
    QLabel* unit_ = nullptr;
    QLabel* error_ = nullptr;
    bool isShown_ = true;
    bool hasError_ = false;
};

/// Object name of the label that stands before a field.
[[nodiscard]] QString LabelName(const JobField& field);

} // namespace kaloria
