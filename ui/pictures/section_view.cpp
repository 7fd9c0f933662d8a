// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/pictures/section_view.h"

#include "ui/pictures/picture_export.h"
#include "ui/pictures/section_painter.h"
#include "ui/theme.h"

#include <QContextMenuEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>

namespace kaloria {

SectionView::SectionView(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("picSection"));
    setMouseTracking(true);
    setFocusPolicy(Qt::TabFocus);
    setAccessibleName(tr("Section"));
}

void SectionView::Show(SectionModel model) {
    model_ = std::move(model);
    pointedAt_.reset();
    setAccessibleName(ToQt(model_.title));
    setAccessibleDescription(ToQt(model_.description));
    isStale_ = false;
    update();
}

void SectionView::SetStale(bool stale) {
    isStale_ = stale;
    pointedAt_.reset();
    setAccessibleDescription(stale ? tr("Out of date") : ToQt(model_.description));
    update();
}

picture::Drawing SectionView::AsDrawing() const {
    return {size(), ToQt(model_.title),
            [model = model_, stale = isStale_, area = QRectF(rect())](QPaintDevice& device) {
                QPainter painter(&device);
                painter.fillRect(area, theme::Current().panel);
                SectionPainter(model, area, stale).Paint(painter, {});
            }};
}

std::optional<std::size_t> SectionView::BandAt(const QPointF& place) const {
    return SectionPainter(model_, QRectF(rect()), isStale_).BandAt(place);
}

void SectionView::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    SectionPainter(model_, QRectF(rect()), isStale_).Paint(painter, pointedAt_);
    if (hasFocus()) {
        painter.setRenderHint(QPainter::Antialiasing, false);
        painter.setPen(theme::Current().accent);
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
    }
}

QString SectionView::ToolTipOf(std::size_t band) const {
    const SectionBand& solid = model_.bands.at(band);
    QStringList lines{
        ToQt(solid.name), tr("Thickness %1").arg(ToQt(solid.thicknessText)),
        tr("k = %1 at the mean of %2").arg(ToQt(solid.conductivityText), ToQt(solid.meanTempText))};
    if (!solid.shareText.empty()) {
        lines << tr("%1 of the whole resistance (air film %2)")
                     .arg(ToQt(solid.shareText), ToQt(model_.filmShareText));
    }
    if (!solid.limit.empty()) {
        lines << tr("⚠ %1").arg(ToQt(solid.limit));
    }
    return lines.join(u'\n');
}

void SectionView::mouseMoveEvent(QMouseEvent* event) {
    const auto band = isStale_ ? std::nullopt : BandAt(event->position());
    if (band != pointedAt_) {
        pointedAt_ = band;
        update();
    }
    if (band) {
        QToolTip::showText(event->globalPosition().toPoint(), ToolTipOf(*band), this);
    } else {
        QToolTip::hideText();
    }
}

void SectionView::leaveEvent(QEvent* event) {
    pointedAt_.reset();
    update();
    QWidget::leaveEvent(event);
}

void SectionView::contextMenuEvent(QContextMenuEvent* event) {
    if (isStale_ || !model_.fault.empty()) {
        return;
    }
    QMenu menu(this);
    picture::AddActions(menu, *this, [this] { return AsDrawing(); });
    menu.exec(event->globalPos());
}

} // namespace kaloria
