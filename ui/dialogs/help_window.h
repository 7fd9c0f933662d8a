// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "data/catalogue.h"
#include "data/job.h"

#include <QDialog>

class QGridLayout;
class QLabel;

namespace kaloria {

/// What a field means, in what unit it counts and what may stand in it (`frmHelp`). Stays open beside the
/// window while one goes from field to field.
class HelpWindow final : public QDialog {
    Q_OBJECT

public:
    explicit HelpWindow(QWidget* parent = nullptr);

    /// Explains the field as the job shows it now. Does not open the window.
    void Explain(Field field, const Job& job, const Catalogue& catalogue);
    /// Explains something that is no field.
    void Explain(const QString& title, const QString& text);

private:
    void SetFact(QLabel& label, const QString& text);

    QLabel* title_ = nullptr;
    QLabel* text_ = nullptr;
    QGridLayout* facts_ = nullptr;
    QLabel* unit_ = nullptr;
    QLabel* range_ = nullptr;
    QLabel* usual_ = nullptr;
    QLabel* name_ = nullptr;
};

} // namespace kaloria
