// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/field_card.h"

#include "application/visible_fields.h"
#include "ui/theme.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

#include <algorithm>

namespace kaloria {

namespace {

constexpr int cellsPerField = 3; // label, field, unit

/// Numbers have a unit beside them; everything else takes the room of both.
bool IsNumber(Field field) {
    const FieldKind kind = InfoOf(field).kind;
    return kind == FieldKind::number || kind == FieldKind::moisture;
}

QLabel* TitleLabel(const QString& text, QWidget* parent) {
    auto* const title = new QLabel(text, parent);
    theme::SetRole(*title, "cardTitle");
    return title;
}

QVBoxLayout* CardLayout(QWidget* card) {
    card->setAttribute(Qt::WA_StyledBackground);
    theme::SetRole(*card, "card");
    auto* const layout = new QVBoxLayout(card);
    layout->setContentsMargins(theme::cardPadding, 10, theme::cardPadding, 12);
    layout->setSpacing(7);
    return layout;
}

} // namespace

FieldCard::FieldCard(const QString& title, std::initializer_list<Field> fields, Session& session, int columns,
                     QWidget* parent)
    : QWidget(parent),
      session_(session),
      layout_(CardLayout(this)),
      grid_(new QGridLayout),
      columns_(columns) {
    layout_->addWidget(TitleLabel(title, this));
    grid_->setHorizontalSpacing(theme::gap);
    grid_->setVerticalSpacing(6);
    layout_->addLayout(grid_);
    int place = 0;
    for (const Field field : fields) {
        auto* const editor = new FieldEditor(field, session_, this);
        editors_.push_back(editor);
        if (columns > 1) {
            editor->SetShort();
        }
        Place(*editor, place / columns * 2, place % columns * cellsPerField);
        ++place;
    }
    grid_->setColumnMinimumWidth(0, columns == 1 ? theme::labelWidth : 0);
    grid_->setColumnStretch(columns * cellsPerField, 1);
}

void FieldCard::Place(FieldEditor& editor, int row, int column) {
    if (InfoOf(editor.Id()).kind == FieldKind::flag) {
        grid_->addWidget(editor.Control(), row, column, 1, cellsPerField);
        editor.Label()->hide();
        editor.Unit()->hide();
        return;
    }
    grid_->addWidget(editor.Label(), row, column);
    if (IsNumber(editor.Id())) {
        grid_->addWidget(editor.Control(), row, column + 1);
        grid_->addWidget(editor.Unit(), row, column + 2);
    } else {
        grid_->addWidget(editor.Control(), row, column + 1, 1, -1);
        editor.Unit()->hide();
    }
    grid_->addWidget(editor.Error(), row + 1, column + 1, 1, -1);
}

void FieldCard::Refresh() {
    bool isAnyShown = hasOwnContent_;
    for (FieldEditor* const editor : editors_) {
        editor->Refresh();
        editor->SetShown(IsShown(editor->Id(), session_.TheJob(), session_.Records()));
        isAnyShown = isAnyShown || editor->IsShown();
    }
    setVisible(isAnyShown);
}

void FieldCard::ShowFindings(const std::vector<Finding>& findings) {
    for (FieldEditor* const editor : editors_) {
        const auto found = std::find_if(findings.begin(), findings.end(), [&](const Finding& finding) {
            return finding.severity == Severity::error && finding.subject == InfoOf(editor->Id()).element;
        });
        // An entry that cannot stand has said so already.
        if (found != findings.end() && !editor->HasError()) {
            editor->SetError(ToQt(found->text));
        }
    }
}

FieldEditor* FieldCard::FirstWrong() const {
    const auto found = std::find_if(editors_.begin(), editors_.end(), [](const FieldEditor* editor) {
        return editor->IsShown() && editor->HasError();
    });
    return found == editors_.end() ? nullptr : *found;
}

int FieldCard::LabelWidth() const {
    int widest = 0;
    for (const FieldEditor* const editor : editors_) {
        if (columns_ == 1 && editor->IsShown() && InfoOf(editor->Id()).kind != FieldKind::flag) {
            widest = std::max(widest, editor->LabelWidth());
        }
    }
    return widest;
}

void FieldCard::SetLabelWidth(int width) {
    if (columns_ == 1) {
        grid_->setColumnMinimumWidth(0, width);
    }
}

void FieldCard::Add(QWidget* widget) {
    layout_->addWidget(widget);
    hasOwnContent_ = true;
}

Card::Card(const QString& title, QWidget* parent)
    : QWidget(parent), layout_(CardLayout(this)), title_(TitleLabel(title, this)) {
    layout_->addWidget(title_);
    title_->setVisible(!title.isEmpty());
}

} // namespace kaloria
