// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/rail.h"

#include "application/navigation.h"
#include "ui/theme.h"

#include <QKeyEvent>
#include <QPainter>
#include <QVBoxLayout>

#include <algorithm>

namespace kaloria {

namespace {
constexpr int pictureSize = 24;
constexpr int barWidth = 3;
constexpr int buttonHeight = 60;
} // namespace

RailButton::RailButton(const QString& title, QString pictureBase, const Pictures& pictures, QWidget* parent)
    : QToolButton(parent), base_(std::move(pictureBase)), pictures_(pictures) {
    setText(title);
    setCheckable(true);
    setAutoExclusive(true);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setAccessibleName(title);
    setFont(theme::CaptionFont());
    ShowPicture();
}

void RailButton::ShowPicture() {
    on_ = pictures_.Navigation(base_, true);
    off_ = pictures_.Navigation(base_, false);
    update();
}

QSize RailButton::sizeHint() const {
    return {theme::railWidth, std::max(buttonHeight, pictureSize + fontMetrics().height() + 18)};
}

void RailButton::paintEvent(QPaintEvent* /*event*/) {
    const theme::Colors& colors = theme::Current();
    QPainter painter(this);
    if (isChecked() || underMouse()) {
        QColor ground = colors.railText;
        ground.setAlphaF(isChecked() ? 0.16F : 0.08F);
        painter.fillRect(rect(), ground);
    }
    if (isChecked()) {
        painter.fillRect(QRect(0, 0, barWidth, height()), colors.accent);
    }
    if (hasFocus()) {
        painter.setPen(QPen(colors.railText, 1, Qt::DotLine));
        painter.drawRect(rect().adjusted(5, 3, -4, -4));
    }
    const int top = (height() - pictureSize - fontMetrics().height() - 4) / 2;
    const QRect place((width() - pictureSize) / 2, top, pictureSize, pictureSize);
    (isChecked() ? on_ : off_).paint(&painter, place);
    painter.setPen(isChecked() ? QColor(Qt::white) : colors.railText);
    painter.drawText(QRect(0, top + pictureSize + 4, width(), fontMetrics().height()), Qt::AlignHCenter,
                     text());
}

Rail::Rail(const Pictures& pictures, QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("imgCategoryButtons"));
    setAccessibleName(tr("Categories"));
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 8, 0, 0);
    layout->setSpacing(0);
    int category = 0;
    for (const MenuCategory& entry : MenuCategories()) {
        auto* const button = new RailButton(ToQt(entry.title), ToQt(entry.image), pictures, this);
        button->setObjectName(QStringLiteral("imgCategoryButtons%1").arg(category));
        const QKeySequence keys(Qt::ALT | static_cast<Qt::Key>(Qt::Key_1 + category));
        button->setShortcut(keys);
        button->setToolTip(QStringLiteral("%1 (%2)").arg(ToQt(entry.title), keys.toString()));
        connect(button, &QToolButton::clicked, this, [this, category] { Q_EMIT Chosen(category); });
        layout->addWidget(button);
        buttons_.push_back(button);
        ++category;
    }
    layout->addStretch();
    int widest = theme::railWidth;
    for (const RailButton* const button : buttons_) {
        widest = std::max(widest, button->fontMetrics().horizontalAdvance(button->text()) + 14);
    }
    setFixedWidth(widest);
}

void Rail::Select(int category) { buttons_.at(static_cast<std::size_t>(category))->setChecked(true); }

void Rail::ShowPictures() {
    for (RailButton* const button : buttons_) {
        button->ShowPicture();
    }
}

void Rail::paintEvent(QPaintEvent* /*event*/) { QPainter(this).fillRect(rect(), theme::Current().rail); }

void Rail::keyPressEvent(QKeyEvent* event) {
    const int step = event->key() == Qt::Key_Down ? 1 : event->key() == Qt::Key_Up ? -1 : 0;
    const auto focused =
        std::find_if(buttons_.begin(), buttons_.end(), [](const RailButton* b) { return b->hasFocus(); });
    const auto next = focused - buttons_.begin() + step;
    if (step == 0 || focused == buttons_.end() || next < 0 ||
        next >= static_cast<std::ptrdiff_t>(buttons_.size())) {
        QWidget::keyPressEvent(event);
        return;
    }
    buttons_.at(static_cast<std::size_t>(next))->setFocus();
    buttons_.at(static_cast<std::size_t>(next))->click();
}

} // namespace kaloria
