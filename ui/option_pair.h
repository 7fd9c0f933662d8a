// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/session.h"

#include <QWidget>

#include <initializer_list>
#include <vector>

class QRadioButton;

namespace kaloria {

/// Option buttons beside each other for a flag of the job: one for True and one for False.
class OptionPair final : public QWidget {
    Q_OBJECT

public:
    struct Option {
        const char* name; ///< object name
        QString text;
    };

    OptionPair(Field field, const Option& whenTrue, const Option& whenFalse, Session& session,
               QWidget* parent);
    void Refresh();

private:
    Field field_;
    Session& session_;
    QRadioButton* yes_ = nullptr;
    QRadioButton* no_ = nullptr;
};

} // namespace kaloria
