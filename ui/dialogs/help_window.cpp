// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/dialogs/help_window.h"

#include "application/visible_fields.h"
#include "data/field_check.h"
#include "ui/dialogs/grow.h"
#include "ui/theme.h"

#include <QGridLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace kaloria {

HelpWindow::HelpWindow(QWidget* parent) : QDialog(parent, Qt::Tool) {
    setObjectName(QStringLiteral("frmHelp"));
    setWindowTitle(tr("Help"));
    setModal(false);
    setAttribute(Qt::WA_ShowWithoutActivating);
    resize(380, 200);
    auto* const page = new QVBoxLayout(this);
    page->setContentsMargins(theme::pageMargin, theme::pageMargin, theme::pageMargin, theme::pageMargin);
    page->setSpacing(theme::cardGap);
    title_ = new QLabel;
    title_->setObjectName(QStringLiteral("lblHelpTitle"));
    title_->setFont(theme::HeadingFont());
    text_ = new QLabel;
    text_->setObjectName(QStringLiteral("lblHelpText"));
    for (QLabel* const label : {title_, text_}) {
        label->setWordWrap(true);
        label->setTextInteractionFlags(Qt::TextSelectableByMouse);
        page->addWidget(label);
    }
    facts_ = new QGridLayout;
    facts_->setHorizontalSpacing(theme::pageMargin);
    facts_->setColumnStretch(1, 1);
    const auto add = [this](const QString& caption, const QString& name) {
        auto* const label = new QLabel(caption);
        theme::SetRole(*label, "quiet");
        auto* const fact = new QLabel;
        fact->setObjectName(name);
        fact->setWordWrap(true);
        fact->setTextInteractionFlags(Qt::TextSelectableByMouse);
        const int row = facts_->rowCount();
        facts_->addWidget(label, row, 0, Qt::AlignTop);
        facts_->addWidget(fact, row, 1);
        return fact;
    };
    unit_ = add(tr("Unit"), QStringLiteral("lblHelpUnit"));
    range_ = add(tr("Allowed"), QStringLiteral("lblHelpRange"));
    usual_ = add(tr("New jobs"), QStringLiteral("lblHelpDefault"));
    name_ = add(tr("In job files"), QStringLiteral("lblHelpName"));
    page->addLayout(facts_);
    page->addStretch(1);
}

/// A fact without a text takes its caption away with it.
void HelpWindow::SetFact(QLabel& label, const QString& text) {
    int row = 0;
    int column = 0;
    int rows = 0;
    int columns = 0;
    facts_->getItemPosition(facts_->indexOf(&label), &row, &column, &rows, &columns);
    label.setText(text);
    label.setVisible(!text.isEmpty());
    facts_->itemAtPosition(row, 0)->widget()->setVisible(!text.isEmpty());
}

void HelpWindow::Explain(Field field, const Job& job, const Catalogue& catalogue) {
    const JobField& info = InfoOf(field);
    QString title = ToQt(PlainLabelOf(field, job, catalogue));
    title.remove(u':');
    Explain(title, ToQt(info.help));
    const bool isNumber = info.kind == FieldKind::number || info.kind == FieldKind::moisture;
    const Units units = job.UnitsInForce();
    SetFact(*unit_, isNumber ? ToQt(PlainUnitOf(field, job, catalogue)) : QString());
    SetFact(*range_, isNumber ? ToQt(RangeText(info, units)) : QString());
    SetFact(*usual_, info.kind == FieldKind::material
                         ? QString()
                         : ToQt(units == Units::si ? info.defaultTextSI : info.defaultText));
    SetFact(*name_, ToQt(info.element));
    GrowToFit(*this);
}

void HelpWindow::Explain(const QString& title, const QString& text) {
    title_->setText(title);
    text_->setText(text);
    setAccessibleDescription(text);
    for (QLabel* const fact : {unit_, range_, usual_, name_}) {
        SetFact(*fact, {});
    }
}

} // namespace kaloria
