// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/field_card.h"

#include <QScrollArea>

#include <vector>

class QVBoxLayout;

namespace kaloria {

/// A data panel, an element of `fraData`: cards one below the other, which scroll before they clip.
class PanelPage : public QScrollArea {
    Q_OBJECT

public:
    PanelPage(Session& session, const QString& objectName, const QString& title, QWidget* parent = nullptr);

    FieldCard* AddFields(const QString& title, std::initializer_list<Field> fields, int columns = 1);
    void AddWidget(QWidget* widget);
    /// What follows fills up the page.
    void AddStretch();

    /// Shows the job anew.
    virtual void Refresh();
    /// Forgets what a calculation found and checks the entries by themselves.
    void Recheck();
    virtual void ShowFindings(const std::vector<Finding>& findings);
    /// The first entry that is wrong; nullptr when none is.
    [[nodiscard]] FieldEditor* FirstWrong() const;
    [[nodiscard]] FieldEditor* EditorOf(Field field) const;

protected:
    [[nodiscard]] Session& TheSession() const { return session_; }
    /// Width of the column of labels through all cards.
    [[nodiscard]] int LabelWidth() const { return labelWidth_; }

private:
    Session& session_;
    QWidget* page_ = nullptr;
    QVBoxLayout* layout_ = nullptr;
    std::vector<FieldCard*> cards_;
    int labelWidth_ = 0;
};

} // namespace kaloria
