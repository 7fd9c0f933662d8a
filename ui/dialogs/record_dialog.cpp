// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/dialogs/record_dialog.h"

#include "ui/dialogs/grow.h"
#include "ui/theme.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFrame>
#include <QGridLayout>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>

namespace kaloria {

namespace {

/// The first of several.
struct FirstFault {
    QString text;
    void Take(const QString& fault) {
        if (text.isEmpty()) {
            text = fault;
        }
    }
};

QString Sentence(const Entry& entry, const QString& fault) {
    QString name = entry.Control()->accessibleName();
    name.truncate(name.indexOf(u',') < 0 ? name.size() : name.indexOf(u','));
    return QStringLiteral("%1: %2").arg(name, fault);
}

} // namespace

RecordDialog::RecordDialog(const QString& name, const QString& title, bool isNew, Units units,
                           QWidget* parent)
    : QDialog(parent), units_(units), isNew_(isNew) {
    constexpr int leftShare = 4;
    setObjectName(name);
    setWindowTitle(title);
    auto* const page = new QVBoxLayout(this);
    page->setContentsMargins(theme::pageMargin, theme::pageMargin, theme::pageMargin, theme::pageMargin);
    page->setSpacing(theme::cardGap);
    columns_ = new QHBoxLayout;
    columns_->setSpacing(theme::cardGap);
    page->addLayout(columns_, 1);
    left_ = new QVBoxLayout;
    left_->setSpacing(theme::cardGap);
    columns_->addLayout(left_, leftShare);
    BuildFoot();
}

void RecordDialog::BuildFoot() {
    auto* const foot = new QHBoxLayout;
    reason_ = new QLabel;
    reason_->setObjectName(QStringLiteral("lblReason"));
    reason_->setWordWrap(true);
    foot->addWidget(reason_, 1);
    auto* const cancel = new QPushButton(tr("Cancel"));
    cancel->setObjectName(QStringLiteral("cmdCancel"));
    ok_ = new QPushButton(tr("&OK"));
    ok_->setObjectName(QStringLiteral("cmdOK"));
    ok_->setDefault(true);
    theme::SetRole(*ok_, "primary");
    for (auto* const button : {cancel, ok_}) {
        button->setAccessibleName(button->text().remove(u'&'));
        foot->addWidget(button, 0, Qt::AlignBottom);
    }
    connect(ok_, &QPushButton::clicked, this, &QDialog::accept);
    connect(cancel, &QPushButton::clicked, this, &RecordDialog::reject);
    qobject_cast<QVBoxLayout*>(layout())->addLayout(foot);
}

QGridLayout& RecordDialog::AddCard(const QString& title, QVBoxLayout* column) {
    auto* const card = new QFrame;
    theme::SetRole(*card, "card");
    auto* const grid = new QGridLayout(card);
    grid->setContentsMargins(theme::cardPadding, theme::cardPadding, theme::cardPadding, theme::cardPadding);
    grid->setHorizontalSpacing(theme::gap);
    grid->setVerticalSpacing(theme::gap);
    auto* const heading = new QLabel(title);
    theme::SetRole(*heading, "cardTitle");
    grid->addWidget(heading, 0, 0, 1, 3);
    (column != nullptr ? column : left_)->addWidget(card);
    return *grid;
}

TextEntry& RecordDialog::AddText(QGridLayout& grid, const QString& subject, const QString& label,
                                 const QString& text) {
    auto* const entry = new TextEntry(grid, subject, label, text);
    entries_.push_back(entry);
    connect(entry, &Entry::Changed, this, &RecordDialog::Changed);
    return *entry;
}

NumberEntry& RecordDialog::AddNumber(QGridLayout& grid, const QString& subject, const QString& label) {
    auto* const entry = new NumberEntry(grid, subject, label);
    entries_.push_back(entry);
    connect(entry, &Entry::Changed, this, &RecordDialog::Changed);
    return *entry;
}

QComboBox& RecordDialog::AddChoice(QGridLayout& grid, const QString& subject, const QString& label) {
    auto* const box = new QComboBox;
    box->setObjectName(QStringLiteral("cbo") + subject);
    auto* const entry = new Entry(grid, subject, label, box);
    entries_.push_back(entry);
    connect(box, &QComboBox::activated, this, [this, entry] {
        entry->Touch();
        Changed();
    });
    return *box;
}

QCheckBox& RecordDialog::AddActive(QGridLayout& grid, bool isActive) {
    auto* const box = new QCheckBox(tr("&Active: offered in the lists"));
    box->setObjectName(QStringLiteral("chkActive"));
    box->setAccessibleName(tr("Active"));
    box->setChecked(isActive);
    grid.addWidget(box, grid.rowCount(), 1, 1, 2);
    connect(box, &QCheckBox::clicked, this, &RecordDialog::Changed);
    return *box;
}

Entry* RecordDialog::EntryOf(const QString& subject) const {
    const auto found = std::find_if(entries_.begin(), entries_.end(),
                                    [&](const Entry* entry) { return entry->Subject() == subject; });
    return found == entries_.end() ? nullptr : *found;
}

void RecordDialog::Changed() {
    isDirty_ = true;
    Recheck();
}

void RecordDialog::Recheck() {
    CheckEntries();
    GrowToFit(*this);
}

void RecordDialog::CheckEntries() {
    FirstFault fault;
    for (Entry* const entry : entries_) {
        const QString unreadable = entry->IsShown() ? entry->Unreadable() : QString();
        if (!unreadable.isEmpty()) {
            fault.Take(Sentence(*entry, unreadable));
        }
        entry->SetProblem(entry->IsTouched() || !isNew_ ? unreadable : QString());
    }
    fault.Take(UnreadableElsewhere());
    if (!fault.text.isEmpty()) {
        reason_->setText(fault.text);
        theme::SetRole(*reason_, isNew_ && !isDirty_ ? "quiet" : "error");
        ok_->setEnabled(false);
        Blank();
        return;
    }
    Mark(Findings());
}

void RecordDialog::Mark(const std::vector<Finding>& findings) {
    FirstFault error;
    QStringList notes;
    Severity worst = Severity::information;
    for (const Finding& finding : findings) {
        const QString text = ToQt(finding.text);
        if (finding.severity == Severity::error) {
            error.Take(text);
        }
        Entry* const entry = EntryOf(ToQt(finding.subject));
        if (entry == nullptr) {
            notes << text;
            worst = std::max(worst, finding.severity);
        } else if (entry->Problem().isEmpty() && (entry->IsTouched() || !isNew_)) {
            entry->SetProblem(text, finding.severity);
        }
    }
    const bool isSound = error.text.isEmpty();
    ok_->setEnabled(isSound);
    reason_->setText(isSound ? notes.join(u'\n') : error.text);
    theme::SetRole(*reason_, isSound ? RoleOf(worst) : isNew_ && !isDirty_ ? "quiet" : "error");
}

QString RecordDialog::Reason() const { return ok_->isEnabled() ? QString() : reason_->text(); }

void RecordDialog::reject() {
    if (isDirty_) {
        QMessageBox question(QMessageBox::Question, windowTitle(), tr("Give up what you entered here?"),
                             QMessageBox::Discard | QMessageBox::Cancel, this);
        question.setObjectName(QStringLiteral("msgDiscard"));
        question.setDefaultButton(QMessageBox::Cancel);
        if (question.exec() != QMessageBox::Discard) {
            return;
        }
    }
    QDialog::reject();
}

QString RecordDialog::TemperatureText(double degF) const {
    constexpr int tenths = 1;
    return QStringLiteral("%1 %2").arg(RoundedText(FromEnglish(Quantity::temperature, units_, degF), tenths),
                                       ToQt(InfoOf(Quantity::temperature).Text(units_)));
}

void RecordDialog::SetTemperature(NumberEntry& entry, double degF) const {
    constexpr int tenths = 1;
    const double shown = FromEnglish(Quantity::temperature, units_, degF);
    entry.SetValue(shown, units_ == Units::english ? ShortText(shown) : RoundedText(shown, tenths));
}

float RecordDialog::English(const NumberEntry& entry, Quantity quantity, float original) const {
    return entry.IsEdited() ? static_cast<float>(ToEnglish(quantity, units_, entry.Value().value_or(0)))
                            : original;
}

} // namespace kaloria
