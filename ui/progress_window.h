// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>
#include <QElapsedTimer>

#include <string_view>

class QLabel;
class QProgressBar;
class QPushButton;

namespace kaloria {

/// Tells how far a computation in the same thread has come, and lets the user end it. Nothing else of the
/// program can be used meanwhile.
class FrmProgress final : public QDialog {
    Q_OBJECT

public:
    explicit FrmProgress(QWidget* parent = nullptr);

    /// Opens the window the first time. To be called as often as the computation likes: the window is drawn
    /// and asked at most every 50 ms, so that asking costs next to nothing.
    /// @param count  what @p done will be in the end; 0 when nobody knows
    /// @returns false when the user wants it to end
    bool Report(std::string_view caption, int done, int count);

    [[nodiscard]] bool IsCancelled() const { return isCancelled_; }

    /// Cancels; the window stays until the computation has ended.
    void reject() override;

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    QLabel* caption_;
    QProgressBar* bar_;
    QPushButton* cancel_;
    QElapsedTimer lastLook_;
    bool isCancelled_ = false;
};

} // namespace kaloria
