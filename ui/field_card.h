// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/field_editor.h"

#include <QWidget>

#include <initializer_list>
#include <vector>

class QGridLayout;
class QLabel;
class QVBoxLayout;

namespace kaloria {

/// A titled group of fields, labels left and fields in one column, or in two columns of short numbers.
class FieldCard final : public QWidget {
    Q_OBJECT

public:
    FieldCard(const QString& title, std::initializer_list<Field> fields, Session& session, int columns = 1,
              QWidget* parent = nullptr);

    /// Shows the job anew; the card hides when none of its fields is used.
    void Refresh();
    /// Marks the fields that a calculation found wrong.
    void ShowFindings(const std::vector<Finding>& findings);

    /// The first entry that is wrong; nullptr when none is.
    [[nodiscard]] FieldEditor* FirstWrong() const;

    /// What the longest label that is shown needs; 0 for cards of two columns.
    [[nodiscard]] int LabelWidth() const;
    void SetLabelWidth(int width);

    /// Puts something of the panel's own below the fields.
    void Add(QWidget* widget);
    [[nodiscard]] const std::vector<FieldEditor*>& Editors() const { return editors_; }

private:
    void Place(FieldEditor& editor, int row, int column);

    Session& session_;
    QVBoxLayout* layout_ = nullptr;
    QGridLayout* grid_ = nullptr;
    std::vector<FieldEditor*> editors_;
    int columns_ = 1;
    bool hasOwnContent_ = false;
};

/// A card without fields, for what a panel puts into it.
class Card final : public QWidget {
    Q_OBJECT

public:
    explicit Card(const QString& title, QWidget* parent = nullptr);
    [[nodiscard]] QVBoxLayout* Content() const { return layout_; }
    [[nodiscard]] QLabel* Title() const { return title_; }

private:
    QVBoxLayout* layout_ = nullptr;
    QLabel* title_ = nullptr;
};

} // namespace kaloria
