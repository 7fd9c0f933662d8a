// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "application/navigation.h"
#include "ui/pictures.h"

#include <QAbstractButton>
#include <QWidget>

#include <array>

class QBoxLayout;
class QComboBox;
class QHBoxLayout;
class QLabel;
class QPushButton;

namespace kaloria {

/// A menu item of a category: its picture and its name, underlined where one is.
class MenuTab final : public QAbstractButton {
    Q_OBJECT

public:
    explicit MenuTab(QWidget* parent);
    void Show(const MenuItem& item, const Pictures& pictures);
    /// Without pictures the names have room in a narrow window.
    void SetCompact(bool compact);
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QIcon on_;
    QIcon off_;
    bool isCompact_ = false;
};

/// The strip along the top, `fraMenu`: category, its menu items, the steps between panels, units and
/// Calculate.
class MenuStrip final : public QWidget {
    Q_OBJECT

public:
    MenuStrip(const Pictures& pictures, QWidget* parent);

    /// Shows a position; @p action is what the button at the right does there.
    void Show(MenuPosition position, const QString& action);
    void ShowUnits(bool isSI);
    void ShowLive(bool isLive);
    /// Loads the pictures of the scheme in force.
    void ShowPictures();

Q_SIGNALS:
    void ItemChosen(int menuItem);
    void Next();
    void Back();
    void Finish();
    void UnitsChosen(bool si);
    void LiveChosen(bool live);
    void ActionPressed();

protected:
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    QPushButton* Button(const QString& text, const char* name, const QString& tip);
    void Arrange();
    void BuildSteps();
    void BuildUnits();

    const Pictures& pictures_;
    QBoxLayout* rows_ = nullptr;
    QHBoxLayout* buttons_ = nullptr;
    QLabel* title_ = nullptr;
    std::array<MenuTab*, 4> tabs_{};
    QPushButton* cmdBack_ = nullptr;
    QPushButton* cmdNext_ = nullptr;
    QPushButton* cmdFinish_ = nullptr;
    QComboBox* cboSystemUnits_ = nullptr;
    QPushButton* live_ = nullptr;
    QPushButton* action_ = nullptr;
    MenuPosition shown_;
    QPixmap picture_;
};

} // namespace kaloria
