// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/panel_page.h"

#include "ui/theme.h"

#include <QVBoxLayout>

#include <algorithm>

namespace kaloria {

PanelPage::PanelPage(Session& session, const QString& objectName, const QString& title, QWidget* parent)
    : QScrollArea(parent), session_(session), page_(new QWidget), layout_(new QVBoxLayout(page_)) {
    setObjectName(objectName);
    setAccessibleName(title);
    setFrameShape(QFrame::NoFrame);
    setWidgetResizable(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    setFocusPolicy(Qt::NoFocus);
    page_->setProperty("role", QStringLiteral("page"));
    layout_->setContentsMargins(0, 0, 4, 0);
    layout_->setSpacing(theme::cardGap);
    setWidget(page_);
    viewport()->setAutoFillBackground(false);
}

FieldCard* PanelPage::AddFields(const QString& title, std::initializer_list<Field> fields, int columns) {
    auto* const card = new FieldCard(title, fields, session_, columns, page_);
    layout_->addWidget(card);
    cards_.push_back(card);
    return card;
}

void PanelPage::AddWidget(QWidget* widget) {
    // Before the stretch, when it has been set already.
    const int last = layout_->count() - 1;
    const bool hasStretch = last >= 0 && layout_->itemAt(last)->spacerItem() != nullptr;
    layout_->insertWidget(hasStretch ? last : last + 1, widget);
    widget->show();
}

void PanelPage::AddStretch() { layout_->addStretch(1); }

void PanelPage::Refresh() {
    int widest = theme::labelWidth;
    for (FieldCard* const card : cards_) {
        card->Refresh();
        widest = std::max(widest, card->LabelWidth());
    }
    // One column of fields through all cards of the panel.
    for (FieldCard* const card : cards_) {
        card->SetLabelWidth(widest);
    }
    labelWidth_ = widest;
}

void PanelPage::Recheck() {
    for (FieldCard* const card : cards_) {
        for (FieldEditor* const editor : card->Editors()) {
            editor->CheckEntry();
        }
    }
}

void PanelPage::ShowFindings(const std::vector<Finding>& findings) {
    for (FieldCard* const card : cards_) {
        card->ShowFindings(findings);
    }
}

FieldEditor* PanelPage::FirstWrong() const {
    for (const FieldCard* const card : cards_) {
        if (FieldEditor* const wrong = card->FirstWrong()) {
            return wrong;
        }
    }
    return nullptr;
}

FieldEditor* PanelPage::EditorOf(Field field) const {
    for (const FieldCard* const card : cards_) {
        for (FieldEditor* const editor : card->Editors()) {
            if (editor->Id() == field) {
                return editor;
            }
        }
    }
    return nullptr;
}

} // namespace kaloria
