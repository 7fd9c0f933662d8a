// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/pictures.h"

#include <QToolButton>
#include <QWidget>

#include <vector>

namespace kaloria {

/// A picture with its name below it, as the rail shows a category.
class RailButton final : public QToolButton {
    Q_OBJECT

public:
    RailButton(const QString& title, QString pictureBase, const Pictures& pictures, QWidget* parent);
    void ShowPicture();
    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString base_;
    const Pictures& pictures_;
    QIcon on_;
    QIcon off_;
};

/// The column of categories at the left, `imgCategoryButtons`.
class Rail final : public QWidget {
    Q_OBJECT

public:
    Rail(const Pictures& pictures, QWidget* parent);

    void Select(int category);
    /// Takes the pictures again, for another colour scheme.
    void ShowPictures();

Q_SIGNALS:
    void Chosen(int category);

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    std::vector<RailButton*> buttons_;
};

} // namespace kaloria
