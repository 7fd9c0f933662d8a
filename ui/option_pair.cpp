// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/option_pair.h"

#include "ui/theme.h"

#include <QHBoxLayout>
#include <QRadioButton>

namespace kaloria {

OptionPair::OptionPair(Field field, const Option& whenTrue, const Option& whenFalse, Session& session,
                       QWidget* parent)
    : QWidget(parent), field_(field), session_(session) {
    auto* const layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(18);
    const auto button = [&](const Option& option) {
        auto* const made = new QRadioButton(option.text, this);
        made->setObjectName(QLatin1String(option.name));
        made->setProperty("field", static_cast<int>(field));
        made->setToolTip(ToQt(InfoOf(field).help));
        made->setAccessibleName(QString(option.text).remove(u'&'));
        layout->addWidget(made);
        return made;
    };
    yes_ = button(whenTrue);
    no_ = button(whenFalse);
    layout->addStretch(1);
    const auto set = [this](bool value) {
        // The choice decides which other fields are shown.
        session_.Edit([&](Job& job) { job[field_] = value ? "True" : "False"; });
    };
    connect(yes_, &QRadioButton::clicked, this, [set] { set(true); });
    connect(no_, &QRadioButton::clicked, this, [set] { set(false); });
}

void OptionPair::Refresh() {
    const bool isTrue = session_.TheJob().IsTrue(field_);
    yes_->setChecked(isTrue);
    no_->setChecked(!isTrue);
}

} // namespace kaloria
