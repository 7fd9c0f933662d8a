// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/menu_strip.h"

#include "ui/theme.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPushButton>

#include <algorithm>

namespace kaloria {

namespace {
constexpr int pictureSize = 16;
constexpr int underline = 3;
constexpr int stripHeight = 46;
constexpr qreal pictureDensity = 2.0; ///< the heading's picture is drawn for twice the pixels
constexpr int wideEnoughForPictures = 1080;
} // namespace

MenuTab::MenuTab(QWidget* parent) : QAbstractButton(parent) {
    setCheckable(true);
    setAutoExclusive(true);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Expanding);
    setCursor(Qt::PointingHandCursor);
}

void MenuTab::Show(const MenuItem& item, const Pictures& pictures) {
    setText(ToQt(item.mnemonic));
    setAccessibleName(ToQt(item.title));
    on_ = pictures.Navigation(ToQt(item.image), true);
    off_ = pictures.Navigation(ToQt(item.image), false);
    updateGeometry();
    update();
}

void MenuTab::SetCompact(bool compact) {
    isCompact_ = compact;
    updateGeometry();
}

QSize MenuTab::sizeHint() const {
    const int width = QFontMetrics(theme::BoldFont()).horizontalAdvance(QString(text()).remove(u'&'));
    return {width + 20 + (isCompact_ ? 0 : pictureSize + 5), stripHeight};
}

void MenuTab::paintEvent(QPaintEvent* /*event*/) {
    const theme::Colors& colors = theme::Current();
    QPainter painter(this);
    if (underMouse() && !isChecked()) {
        painter.fillRect(rect(), colors.accentSoft);
    }
    QRect inner = rect().adjusted(10, 0, -10, 0);
    if (!isCompact_) {
        const QRect place(inner.left(), (height() - pictureSize) / 2, pictureSize, pictureSize);
        (isChecked() ? on_ : off_).paint(&painter, place);
        inner.setLeft(inner.left() + pictureSize + 5);
    }
    painter.setFont(isChecked() ? theme::BoldFont() : font());
    painter.setPen(isChecked() ? colors.text : colors.quiet);
    painter.drawText(inner, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextShowMnemonic, text());
    if (isChecked()) {
        painter.fillRect(QRect(0, height() - underline, width(), underline), colors.accent);
    }
    if (hasFocus()) {
        painter.setPen(QPen(colors.accent, 1, Qt::DotLine));
        painter.drawRect(rect().adjusted(2, 6, -3, -7));
    }
}

MenuStrip::MenuStrip(const Pictures& pictures, QWidget* parent) : QWidget(parent), pictures_(pictures) {
    setObjectName(QStringLiteral("fraMenu"));
    rows_ = new QBoxLayout(QBoxLayout::LeftToRight, this);
    rows_->setContentsMargins(theme::pageMargin, 0, theme::pageMargin, 0);
    rows_->setSpacing(0);
    auto* const layout = new QHBoxLayout;
    layout->setSpacing(6);
    rows_->addLayout(layout);
    rows_->addStretch(1);
    buttons_ = new QHBoxLayout;
    buttons_->setSpacing(6);
    rows_->addLayout(buttons_);
    title_ = new QLabel(this);
    title_->setObjectName(QStringLiteral("lblCategory"));
    title_->setFont(theme::HeadingFont());
    title_->setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Preferred);
    layout->addWidget(title_);
    layout->addSpacing(8);
    for (std::size_t i = 0; i < tabs_.size(); ++i) {
        auto* const tab = new MenuTab(this);
        tab->setObjectName(QStringLiteral("imgMenu%1").arg(i));
        connect(tab, &QAbstractButton::clicked, this, [this, i] {
            Q_EMIT ItemChosen(static_cast<int>(i));
            // An item that opens a dialog does not become the panel that is shown.
            tabs_.at(static_cast<std::size_t>(shown_.menuItem))->setChecked(true);
        });
        layout->addWidget(tab);
        tabs_.at(i) = tab;
    }
    layout->addStretch(1);
    buttons_->addStretch(1);
    BuildSteps();
    BuildUnits();
    action_ = Button(tr("&Calculate"), "cmdShowReport", tr("Calculate this case (F9)"));
    theme::SetRole(*action_, "primary");
    connect(action_, &QPushButton::clicked, this, &MenuStrip::ActionPressed);
    Arrange();
}

QPushButton* MenuStrip::Button(const QString& text, const char* name, const QString& tip) {
    auto* const button = new QPushButton(text, this);
    button->setObjectName(QLatin1String(name));
    button->setToolTip(tip);
    button->setAccessibleName(tip);
    buttons_->addWidget(button);
    return button;
}

void MenuStrip::BuildSteps() {
    cmdBack_ = Button(tr("‹ Bac&k"), "cmdBack", tr("Previous panel"));
    cmdNext_ = Button(tr("&Next ›"), "cmdNext", tr("Next panel"));
    // Its letters are all taken by the menu bar and the panels.
    cmdFinish_ = Button(tr("Finish"), "cmdFinish", tr("Skip the remaining panels (Ctrl+Enter)"));
    cmdFinish_->setShortcut(Qt::CTRL | Qt::Key_Return);
    connect(cmdBack_, &QPushButton::clicked, this, &MenuStrip::Back);
    connect(cmdNext_, &QPushButton::clicked, this, &MenuStrip::Next);
    connect(cmdFinish_, &QPushButton::clicked, this, &MenuStrip::Finish);
    buttons_->addSpacing(8);
}

void MenuStrip::BuildUnits() {
    cboSystemUnits_ = new QComboBox(this);
    cboSystemUnits_->setObjectName(QStringLiteral("cboSystemUnits"));
    cboSystemUnits_->setAccessibleName(tr("System of units"));
    cboSystemUnits_->setToolTip(tr("Units of all inputs and results"));
    cboSystemUnits_->addItems({QStringLiteral("English"), QStringLiteral("SI")});
    buttons_->addWidget(cboSystemUnits_);
    connect(cboSystemUnits_, &QComboBox::activated, this,
            [this](int index) { Q_EMIT UnitsChosen(index == 1); });
    live_ = Button(tr("Li&ve"), "cmdLive", tr("Calculate as you type"));
    live_->setCheckable(true);
    connect(live_, &QPushButton::clicked, this, &MenuStrip::LiveChosen);
}

void MenuStrip::Show(MenuPosition position, const QString& action) {
    shown_ = position;
    const MenuCategory* const category = CategoryAt(position.category);
    if (category == nullptr) {
        return;
    }
    title_->setText(ToQt(category->title));
    for (std::size_t i = 0; i < tabs_.size(); ++i) {
        const bool isThere = i < category->items.size();
        tabs_.at(i)->setVisible(isThere);
        if (isThere) {
            tabs_.at(i)->Show(category->items[i], pictures_);
        }
    }
    tabs_.at(static_cast<std::size_t>(position.menuItem))->setChecked(true);
    cmdBack_->setEnabled(PreviousPanel(position).has_value());
    cmdNext_->setEnabled(NextPanel(position).has_value());
    cmdFinish_->setEnabled(category->finish != FinishAction::none);
    action_->setText(action);
    Arrange();
    QString name = action;
    action_->setAccessibleName(name.remove(u'&'));
}

void MenuStrip::ShowUnits(bool isSI) { cboSystemUnits_->setCurrentIndex(isSI ? 1 : 0); }

void MenuStrip::ShowLive(bool isLive) {
    live_->setChecked(isLive);
    live_->setText(isLive ? tr("Li&ve ✓") : tr("Li&ve"));
}

void MenuStrip::ShowPictures() {
    picture_ = pictures_.Named(QStringLiteral("header.bmp"));
    picture_.setDevicePixelRatio(pictureDensity);
    Show(shown_, action_->text());
}

void MenuStrip::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    for (MenuTab* const tab : tabs_) {
        tab->SetCompact(width() < wideEnoughForPictures);
    }
    Arrange();
}

void MenuStrip::Arrange() {
    // In large type or a narrow window the buttons stand below the tabs rather than be cut.
    const int margins = 2 * theme::pageMargin;
    const QLayout* const tabs = rows_->itemAt(0)->layout();
    const bool fits =
        width() == 0 || tabs->minimumSize().width() + buttons_->minimumSize().width() + margins <= width();
    rows_->setDirection(fits ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
    const int row = std::max(stripHeight, fontMetrics().height() * 2 + 14);
    setFixedHeight(fits ? row : 2 * row);
}

void MenuStrip::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.fillRect(rect(), theme::Current().panel);
    painter.drawPixmap(QPointF(width() - picture_.deviceIndependentSize().width(), 0), picture_);
    painter.setPen(theme::Current().line);
    painter.drawLine(rect().bottomLeft(), rect().bottomRight());
}

} // namespace kaloria
