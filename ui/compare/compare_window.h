// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>

class QLabel;
class QLineEdit;
class QPushButton;
class QSplitter;
class QVBoxLayout;

namespace kaloria {

class CompareCommands;
class CompareGrid;
class PlotView;

/// The kept cases side by side, with their curves over each other (`frmCompare`). Stays open beside the main
/// window and follows its units.
class CompareWindow final : public QDialog {
    Q_OBJECT

public:
    CompareWindow(CompareCommands& commands, QWidget* parent);
    ~CompareWindow() override;

protected:
    void showEvent(QShowEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void BuildHead(QVBoxLayout& page);
    void BuildBody(QVBoxLayout& page);
    QWidget* BuildTable();
    QWidget* BuildPlots();
    QPushButton* Button(const QString& text, const char* name, const QString& tip);
    void Refresh();
    void ShowCase(int index);
    void ShowReasons();
    void RenameCase();
    void MoveCase(int by);
    void Export();

    CompareCommands& commands_;
    QLabel* count_ = nullptr;
    QLabel* empty_ = nullptr;
    QLabel* notice_ = nullptr;
    QPushButton* keep_ = nullptr;
    QPushButton* copy_ = nullptr;
    QPushButton* export_ = nullptr;
    QSplitter* body_ = nullptr;
    CompareGrid* grid_ = nullptr;
    QLineEdit* name_ = nullptr;
    QPushButton* left_ = nullptr;
    QPushButton* right_ = nullptr;
    PlotView* flow_ = nullptr;
    PlotView* surface_ = nullptr;
    QLabel* flowTitle_ = nullptr;
};

} // namespace kaloria
