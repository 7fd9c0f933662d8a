// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/field_editor.h"

#include "application/choices.h"
#include "application/visible_fields.h"
#include "data/field_check.h"
#include "ui/theme.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFontMetrics>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QStyle>

#include <map>

namespace kaloria {

namespace {

constexpr int numberWidth = 84;
constexpr int longLabel = 240;

/// Fits the entry of a number, which is as wide as a number needs to be.
int NumberWidth(const QWidget& widget) {
    return std::max(numberWidth, widget.fontMetrics().horizontalAdvance(QStringLiteral("0.000E+000")) + 20);
}

void Repolish(QWidget& widget, bool wrong) {
    if (widget.property("wrong").toBool() == wrong) {
        return;
    }
    widget.setProperty("wrong", wrong);
    widget.style()->unpolish(&widget);
    widget.style()->polish(&widget);
}

} // namespace

QString LabelName(const JobField& field) {
    // Labels that people's scripts know by a name of their own.
    static const std::map<Field, QString> known{
        {Field::InsulationThicknessCalculationType, QStringLiteral("lblCalculationType")},
        {Field::HoursPerYear, QStringLiteral("lblAnnualOperation")},
        {Field::Fuel, QStringLiteral("lblFuelType")},
        {Field::MaxSurfaceTemp, QStringLiteral("lblMaxSurfaceTemp")},
        {Field::HeatFlowLimit, QStringLiteral("lblHeatFlowLimit")},
        {Field::HeatContent, QStringLiteral("lblHeatContent")},
        {Field::FuelCost, QStringLiteral("lblFuelCost")},
        {Field::ConversionEfficiency, QStringLiteral("lblConversionEfficiency")},
    };
    const auto found = known.find(field.id);
    return found != known.end() ? found->second : QStringLiteral("lbl%1Input").arg(ToQt(field.element));
}

FieldEditor::FieldEditor(Field field, Session& session, QWidget* parent)
    : QObject(parent), field_(InfoOf(field)), session_(session) {
    switch (field_.kind) {
    case FieldKind::choice:
        BuildChoice(parent);
        break;
    case FieldKind::flag:
        BuildFlag(parent);
        break;
    default:
        BuildLine(parent);
        break;
    }
    control_->setObjectName(ToQt(field_.control));
    control_->setProperty("field", static_cast<int>(field_.id));
    if (label_ == nullptr) {
        auto* const label = new QLabel(parent);
        label->setBuddy(control_);
        label_ = label;
    }
    label_->setObjectName(LabelName(field_));
    unit_ = new QLabel(parent);
    unit_->setObjectName(QStringLiteral("lbl%1Unit").arg(ToQt(field_.element)));
    theme::SetRole(*unit_, "quiet");
    error_ = new QLabel(parent);
    error_->setObjectName(QStringLiteral("lbl%1Error").arg(ToQt(field_.element)));
    error_->setWordWrap(true);
    error_->setFont(theme::CaptionFont());
    theme::SetRole(*error_, "error");
    error_->hide();
    connect(&session_, &Session::FieldChanged, this, [this](Field changed) {
        if (changed == field_.id) {
            Refresh();
        }
    });
}

void FieldEditor::BuildLine(QWidget* parent) {
    line_ = new QLineEdit(parent);
    control_ = line_;
    line_->setMaxLength(1000);
    const bool isNumber = field_.kind != FieldKind::text;
    if (isNumber) {
        line_->setAlignment(Qt::AlignRight);
        line_->setFixedWidth(NumberWidth(*line_));
    }
    connect(line_, &QLineEdit::textEdited, this, [this](const QString& text) {
        session_.SetText(field_.id, FromQt(text));
        CheckEntry();
    });
    connect(line_, &QLineEdit::editingFinished, this, [this] { session_.Committed(field_.id); });
    if (field_.kind == FieldKind::moisture) {
        auto* const button = new QRadioButton(parent);
        connect(button, &QRadioButton::toggled, this, [this](bool on) {
            if (on) {
                session_.SetMoisture(field_.id);
            }
        });
        flag_ = button;
        label_ = button;
    }
}

void FieldEditor::BuildChoice(QWidget* parent) {
    choice_ = new QComboBox(parent);
    control_ = choice_;
    choice_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    choice_->setMinimumContentsLength(field_.choice == FieldChoice::size ? 6 : 18);
    choice_->setMaxVisibleItems(20);
    connect(choice_, &QComboBox::activated, this,
            [this](int) { session_.Choose(field_.id, FromQt(choice_->currentText())); });
}

void FieldEditor::BuildFlag(QWidget* parent) {
    flag_ = new QCheckBox(parent);
    control_ = flag_;
    connect(flag_, &QAbstractButton::clicked, this,
            [this](bool on) { session_.SetText(field_.id, on ? "True" : "False"); });
}

void FieldEditor::Refresh() {
    const Job& job = session_.TheJob();
    Describe();
    if (choice_ != nullptr) {
        RefreshChoices();
    } else if (line_ != nullptr) {
        const QString text = ToQt(job[field_.id]);
        if (line_->text() != text) {
            line_->setText(text);
        }
        if (flag_ != nullptr) {
            const QSignalBlocker blocker(flag_);
            flag_->setChecked(job.moisture == field_.id);
            line_->setEnabled(flag_->isChecked());
        }
        CheckEntry();
    } else {
        const QSignalBlocker blocker(flag_);
        flag_->setChecked(job.IsTrue(field_.id));
    }
}

void FieldEditor::RefreshChoices() {
    const QSignalBlocker blocker(choice_);
    const std::string& chosen = session_.TheJob()[field_.id];
    QStringList texts;
    for (const std::string& text : ChoicesOf(field_.id, session_.TheJob(), session_.Records())) {
        texts << ToQt(text);
    }
    const QString shown = ToQt(chosen);
    // An entry that the list does not have stays to be seen, and is marked.
    const bool isKnown = texts.contains(shown);
    if (!isKnown && !shown.isEmpty()) {
        texts << shown;
    }
    QStringList before;
    for (int i = 0; i < choice_->count(); ++i) {
        before << choice_->itemText(i);
    }
    if (before != texts) {
        choice_->clear();
        choice_->addItems(texts);
    }
    choice_->setCurrentIndex(static_cast<int>(texts.indexOf(shown)));
    choice_->setToolTip(ToQt(field_.help));
    SetError(isKnown || texts.isEmpty() ? QString()
                                        : tr("\"%1\" is not in the list; choose another.").arg(shown));
}

void FieldEditor::Describe() {
    const Job& job = session_.TheJob();
    const QString text = ToQt(LabelOf(field_.id, job, session_.Records()));
    const QString unit = ToQt(UnitTextOf(field_.id, job, session_.Records()));
    if (auto* const label = qobject_cast<QLabel*>(label_)) {
        // A long label breaks, so that the fields of its card keep one column.
        const bool isLong = label->fontMetrics().horizontalAdvance(text) > longLabel;
        label->setWordWrap(isLong);
        label->setMinimumWidth(isLong ? longLabel * 3 / 4 : 0);
        label->setText(text);
    } else if (auto* const button = qobject_cast<QAbstractButton*>(label_)) {
        button->setText(text);
    }
    if (choice_ == nullptr && line_ == nullptr) {
        flag_->setText(text);
    }
    unit_->setText(unit);
    QString name = text;
    name.remove(u':');
    control_->setAccessibleName(unit.isEmpty() ? name : QStringLiteral("%1, %2").arg(name, unit));
    control_->setAccessibleDescription(ToQt(field_.help));
    QString tip = ToQt(field_.help);
    if (field_.kind == FieldKind::number || field_.kind == FieldKind::moisture) {
        tip += QStringLiteral("\n%1").arg(ToQt(RangeText(field_, job.UnitsInForce())));
    }
    control_->setToolTip(tip);
}

void FieldEditor::CheckEntry() {
    if (line_ == nullptr || field_.id == Field::Date) {
        return; // a date is judged when it is left, by its panel
    }
    const Job& job = session_.TheJob();
    const bool counts = field_.kind != FieldKind::moisture || job.moisture == field_.id;
    const auto wrong =
        counts ? WhatIsWrong(field_, job[field_.id], job.UnitsInForce()) : std::optional<std::string>();
    SetError(wrong ? ToQt(*wrong) : QString());
}

void FieldEditor::SetShort() {
    if (line_ != nullptr) {
        line_->setFixedWidth(line_->fontMetrics().horizontalAdvance(QStringLiteral("-0000.0")) + 22);
    }
}

int FieldEditor::LabelWidth() const {
    const auto* const label = qobject_cast<const QLabel*>(label_);
    return label != nullptr && label->wordWrap() ? label->minimumWidth() : label_->sizeHint().width();
}

void FieldEditor::SetShown(bool shown) {
    isShown_ = shown;
    label_->setVisible(shown && (line_ != nullptr || choice_ != nullptr));
    control_->setVisible(shown);
    unit_->setVisible(shown && !unit_->text().isEmpty());
    error_->setVisible(shown && hasError_);
}

void FieldEditor::SetError(const QString& text) {
    hasError_ = !text.isEmpty();
    if (hasError_) {
        QString sentence = text;
        sentence[0] = sentence[0].toUpper();
        error_->setText(sentence.endsWith(u'.') ? sentence : sentence + u'.');
    }
    error_->setVisible(isShown_ && hasError_);
    Repolish(*control_, hasError_);
}

} // namespace kaloria
