// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QTextDocument>
#include <QWidget>

class QLabel;
class QLineEdit;
class QTextEdit;

namespace kaloria::viewer {

/// Finds text, from where the cursor is on and around the ends. Every place is marked, and they are counted.
class FindBar final : public QWidget {
    Q_OBJECT

public:
    FindBar(QTextEdit& text, QWidget* parent);

    void Open();
    void FindNext() { Find({}); }
    void FindPrevious() { Find(QTextDocument::FindBackward); }
    /// Marks anew, after the text has become another.
    void Refresh();

    [[nodiscard]] int Count() const { return count_; }

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void Find(QTextDocument::FindFlags flags);
    void FindTyped();
    void Lift();
    void Tell();

    QTextEdit& text_;
    QLineEdit* wanted_;
    QLabel* told_;
    int count_ = 0;
    QList<int> places_; ///< where each begins
};

} // namespace kaloria::viewer
