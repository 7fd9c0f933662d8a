// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/pictures/section_painter.h"

#include "ui/theme.h"

#include <QFontMetricsF>
#include <QObject>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace kaloria {

namespace {

constexpr double scaleWidth = 7;
constexpr double edge = 3;        // around everything
constexpr double slabShare = 0.5; // of the width for a slab, the rest for the process before it
constexpr int gradientSteps = 10;

QColor Mix(const QColor& from, const QColor& to, double share) {
    const auto part = [share](int a, int b) { return static_cast<int>(std::lround(a + (b - a) * share)); };
    return {part(from.red(), to.red()), part(from.green(), to.green()), part(from.blue(), to.blue())};
}

/// Cool to hot: yellow over orange to ember; in cold service from deep to pale blue.
QColor Warmth(double share, bool isCold) {
    const QColor cool = isCold ? QColor(0x1d4f91) : QColor(0xf8dc72);
    const QColor middle = isCold ? QColor(0x5b9bd0) : QColor(0xe98a3c);
    const QColor warm = isCold ? QColor(0xd3e8f6) : QColor(0xc23a1e);
    const double t = std::clamp(share, 0.0, 1.0);
    return t < 0.5 ? Mix(cool, middle, t * 2) : Mix(middle, warm, t * 2 - 1);
}

QFont SmallFont() { return theme::CaptionFont(); }

QColor MetalColor() { return {0x66, 0x70, 0x7a}; }
QColor JacketColor() { return {0xb4, 0xbe, 0xc8}; }

} // namespace

SectionPainter::SectionPainter(const SectionModel& model, const QRectF& area, bool stale)
    : model_(model), area_(area), isStale_(stale) {
    if (!model_.bands.empty()) {
        LayOut();
    }
}

double SectionPainter::Depth(std::size_t index) const { return model_.DepthOf(index); }

void SectionPainter::LayOut() {
    const QFontMetricsF metrics(SmallFont());
    AddLabels();
    double widest = 0;
    for (const Label& label : labels_) {
        widest = std::max(widest, metrics.horizontalAdvance(label.text));
    }
    // The words of the scale stand in corners, which circles and slabs leave free.
    const double corner = model_.shape == SectionShape::box ? metrics.height() : 0;
    const double left = scaleWidth + 8;
    scaleBar_ = QRectF(area_.left() + edge, area_.top() + edge, scaleWidth, area_.height() - 2 * edge);
    const double columnWidth = std::min(widest + 4, area_.width() * 0.46);
    column_ = QRectF(area_.right() - edge - columnWidth, area_.top(), columnWidth, area_.height());
    shape_ = QRectF(area_.left() + left, area_.top() + edge, column_.left() - 13 - area_.left() - left,
                    area_.height() - 2 * edge)
                 .adjusted(0, corner, 0, -corner);
    center_ = shape_.center();
    const double depth = Depth(model_.bands.size());
    switch (model_.shape) {
    case SectionShape::cylinder:
        pixels_ = std::min(shape_.width(), shape_.height()) / 2 / (model_.bore + depth);
        break;
    case SectionShape::box:
        pixels_ = std::min(shape_.width() / (model_.width + 2 * depth),
                           shape_.height() / (model_.height + 2 * depth));
        break;
    case SectionShape::slab:
        pixels_ = shape_.width() * slabShare / depth;
        break;
    }
    // Labels one below the other, around the middle.
    const double step =
        std::min(metrics.height() * 1.35, area_.height() / static_cast<double>(labels_.size()));
    double y = area_.center().y() - step * static_cast<double>(labels_.size() - 1) / 2;
    for (Label& label : labels_) {
        label.y = y;
        y += step;
    }
}

void SectionPainter::AddLabels() {
    const auto place = [&](std::size_t index) {
        const SectionInterface& shown = model_.interfaces[index];
        const bool isWrong = !shown.limit.empty();
        labels_.push_back({QStringLiteral("%1%2 %3").arg(isWrong ? QStringLiteral("⚠ ") : QString(),
                                                         ToQt(shown.text), ToQt(shown.name)),
                           isWrong, false, index, false, 0});
    };
    for (std::size_t band = 0; band < model_.bands.size(); ++band) {
        const SectionBand& solid = model_.bands[band];
        if (!solid.isWall || model_.bands.size() == 1) {
            const bool isWrong = !solid.limit.empty();
            labels_.push_back(
                {isWrong ? QStringLiteral("⚠ %1 %2").arg(ToQt(solid.thicknessText), ToQt(solid.limitWord))
                         : ToQt(solid.thicknessText),
                 isWrong, !isWrong, band, true, 0});
        }
        place(band + 1);
    }
}

QPainterPath SectionPainter::Outline(std::size_t index) const {
    const double depth = Depth(index) * pixels_;
    QPainterPath path;
    if (model_.shape == SectionShape::cylinder) {
        const double radius = model_.bore * pixels_ + depth;
        path.addEllipse(center_, radius, radius);
    } else if (model_.shape == SectionShape::box) {
        const QSizeF size(model_.width * pixels_ + 2 * depth, model_.height * pixels_ + 2 * depth);
        path.addRect(QRectF(center_ - QPointF(size.width() / 2, size.height() / 2), size));
    } else {
        const double inside = shape_.right() - Depth(model_.bands.size()) * pixels_;
        path.addRect(QRectF(inside, shape_.top(), depth, shape_.height()));
    }
    return path;
}

QPainterPath SectionPainter::BandPath(std::size_t band) const {
    return Outline(band + 1).subtracted(Outline(band));
}

/// The place at that depth, right of the middle, as near to height @p y as the shape allows.
QPointF SectionPainter::Anchor(double depth, double y) const {
    const double deep = depth * pixels_;
    if (model_.shape == SectionShape::slab) {
        return {shape_.right() - (Depth(model_.bands.size()) - depth) * pixels_, y};
    }
    if (model_.shape == SectionShape::box) {
        const double half = model_.height * pixels_ / 2;
        const double nearest = std::clamp(y, center_.y() - half, center_.y() + half);
        return {center_.x() + model_.width * pixels_ / 2 + deep, nearest};
    }
    constexpr double steepest = 0.8; // sine of the angle
    const double radius = model_.bore * pixels_ + deep;
    const double up = std::clamp(y - center_.y(), -steepest * radius, steepest * radius);
    return {center_.x() + std::sqrt(radius * radius - up * up), center_.y() + up};
}

QColor SectionPainter::ColorAt(double degF) const {
    if (isStale_) {
        return theme::Current().line;
    }
    const double low = std::min(model_.processTemp, model_.ambientTemp);
    const double span = std::abs(model_.processTemp - model_.ambientTemp);
    return Warmth(span > 0 ? (degF - low) / span : 0, model_.IsCold());
}

QBrush SectionPainter::BrushOf(std::size_t band) const {
    const double inner = model_.bore * pixels_ + Depth(band) * pixels_;
    const double outer = model_.bore * pixels_ + Depth(band + 1) * pixels_;
    const auto fill = [&](QGradient& gradient, double from, double to) {
        for (int i = 0; i <= gradientSteps; ++i) {
            const double share = i / double{gradientSteps};
            gradient.setColorAt(std::clamp(from + share * (to - from), 0.0, 1.0),
                                ColorAt(model_.TempIn(band, share)));
        }
    };
    if (model_.shape == SectionShape::cylinder) {
        QRadialGradient gradient(center_, outer);
        fill(gradient, inner / outer, 1);
        return gradient;
    }
    QLinearGradient gradient(Anchor(Depth(band), center_.y()), Anchor(Depth(band + 1), center_.y()));
    fill(gradient, 0, 1);
    return gradient;
}

/// A rectangle's layer as frames from outside to inside: no gradient follows its corners.
void SectionPainter::PaintBox(QPainter& painter, std::size_t band) const {
    constexpr int frames = 24;
    for (int i = frames; i > 0; --i) {
        const double share = i / double{frames};
        const double deep = (Depth(band) + share * model_.bands[band].thickness) * pixels_;
        const QRectF inside(center_ - QPointF(model_.width, model_.height) * pixels_ / 2,
                            QSizeF(model_.width, model_.height) * pixels_);
        painter.fillRect(inside.adjusted(-deep, -deep, deep, deep), ColorAt(model_.TempIn(band, share)));
    }
}

void SectionPainter::PaintBands(QPainter& painter, std::optional<std::size_t> pointedAt) const {
    const theme::Colors& colors = theme::Current();
    painter.setPen(Qt::NoPen);
    for (std::size_t band = model_.bands.size(); band > 0; --band) {
        const bool isWall = model_.bands[band - 1].isWall;
        if (model_.shape == SectionShape::box && !isWall) {
            PaintBox(painter, band - 1);
        } else {
            painter.fillPath(BandPath(band - 1),
                             isWall ? QBrush(isStale_ ? colors.quiet : MetalColor()) : BrushOf(band - 1));
        }
        // A thin wall is still seen as a line.
        painter.strokePath(Outline(band), QPen(isWall ? MetalColor() : colors.panel, isWall ? 1.2 : 0.6));
    }
    if (model_.shape == SectionShape::box) {
        painter.fillPath(Outline(0), colors.panel);
    }
    if (!model_.jacket.empty()) {
        const QPen jacket(isStale_ ? colors.line : JacketColor(), 2);
        if (model_.shape == SectionShape::slab) {
            painter.setPen(jacket);
            painter.drawLine(shape_.topRight(), shape_.bottomRight());
        } else {
            painter.strokePath(Outline(model_.bands.size()), jacket);
        }
    }
    for (std::size_t band = 0; band < model_.bands.size() && !isStale_; ++band) {
        if (!model_.bands[band].limit.empty()) {
            painter.strokePath(BandPath(band), QPen(colors.wrong, 1.5, Qt::DashLine));
        }
    }
    if (pointedAt && *pointedAt < model_.bands.size()) {
        painter.strokePath(BandPath(*pointedAt), QPen(colors.text, 1.5));
    }
}

bool SectionPainter::ProcessFits() const {
    if (model_.shape == SectionShape::slab) {
        return true;
    }
    const QFontMetricsF metrics(theme::BoldFont());
    const QFontMetricsF small(SmallFont());
    const double widest = std::max(metrics.horizontalAdvance(ToQt(model_.processText)),
                                   small.horizontalAdvance(ToQt(model_.subject)));
    const bool isBox = model_.shape == SectionShape::box;
    const double width = (isBox ? model_.width : 2 * model_.bore) * pixels_;
    const double height = (isBox ? model_.height : 2 * model_.bore) * pixels_;
    return widest + 8 < width * (isBox ? 1 : 0.92) && metrics.height() + small.height() < height;
}

void SectionPainter::PaintProcess(QPainter& painter) const {
    const theme::Colors& colors = theme::Current();
    const QFontMetricsF metrics(theme::BoldFont());
    const QFontMetricsF small(SmallFont());
    QPointF middle = center_;
    if (model_.shape == SectionShape::slab) {
        const double wall = shape_.right() - Depth(model_.bands.size()) * pixels_;
        middle.setX((shape_.left() + wall) / 2);
    }
    const double top = middle.y() - (metrics.height() + small.height()) / 2;
    const auto write = [&](const QFont& font, const QColor& color, double y, double height,
                           const QString& text) {
        painter.setFont(font);
        painter.setPen(color);
        painter.drawText(QRectF(middle.x() - 100, y, 200, height), Qt::AlignCenter, text);
    };
    if (ProcessFits()) {
        write(theme::BoldFont(), colors.text, top, metrics.height(), ToQt(model_.processText));
        write(SmallFont(), colors.quiet, top + metrics.height(), small.height(),
              model_.shape == SectionShape::slab ? QObject::tr("process") : ToQt(model_.subject));
    }
}

void SectionPainter::PaintScale(QPainter& painter) const {
    const theme::Colors& colors = theme::Current();
    QLinearGradient gradient(scaleBar_.bottomLeft(), scaleBar_.topLeft());
    for (int i = 0; i <= gradientSteps; ++i) {
        const double share = i / double{gradientSteps};
        gradient.setColorAt(share, Warmth(share, model_.IsCold()));
    }
    painter.setPen(Qt::NoPen);
    painter.setBrush(gradient);
    painter.drawRoundedRect(scaleBar_, 2, 2);
    painter.setFont(SmallFont());
    painter.setPen(colors.quiet);
    const QRectF words = scaleBar_.adjusted(scaleWidth + 4, -3, 120, 3);
    painter.drawText(words, Qt::AlignLeft | Qt::AlignTop,
                     ToQt(model_.IsCold() ? model_.ambientText : model_.processText));
    painter.drawText(words, Qt::AlignLeft | Qt::AlignBottom,
                     ToQt(model_.IsCold() ? model_.processText : model_.ambientText));
}

void SectionPainter::PaintLabels(QPainter& painter) const {
    const theme::Colors& colors = theme::Current();
    const QFontMetricsF metrics(SmallFont());
    painter.setFont(SmallFont());
    for (const Label& label : labels_) {
        const double half = label.isDimension ? model_.bands[label.inner].thickness / 2 : 0;
        const QPointF place = Anchor(Depth(label.inner) + half, label.y);
        const QPointF start(column_.left() - 3, label.y);
        painter.setPen(QPen(label.isWrong ? colors.wrong : colors.quiet, 1));
        painter.drawLine(start, QPointF(start.x() - 5, label.y));
        painter.drawLine(QPointF(start.x() - 5, label.y), place);
        if (label.isDimension) {
            const QPointF from = Anchor(Depth(label.inner), label.y);
            const QPointF to = Anchor(Depth(label.inner + 1), label.y);
            painter.setPen(QPen(QColor(0x1d, 0x23, 0x2b), 1.2));
            painter.drawLine(from, to);
            for (const QPointF& end : {from, to}) {
                painter.drawLine(end - QPointF(0, 3), end + QPointF(0, 3));
            }
        } else {
            painter.setBrush(label.isWrong ? colors.wrong : colors.text);
            painter.drawEllipse(place, 1.8, 1.8);
        }
        painter.setPen(label.isWrong ? colors.wrong : label.isQuiet ? colors.quiet : colors.text);
        painter.drawText(
            QRectF(column_.left(), label.y - metrics.height() / 2, column_.width(), metrics.height()),
            Qt::AlignLeft | Qt::AlignVCenter,
            metrics.elidedText(label.text, Qt::ElideRight, column_.width()));
    }
}

void SectionPainter::Paint(QPainter& painter, std::optional<std::size_t> pointedAt) const {
    painter.setRenderHint(QPainter::Antialiasing);
    if (model_.bands.empty()) {
        painter.setPen(theme::Current().quiet);
        painter.setFont(SmallFont());
        painter.drawText(area_, Qt::AlignCenter | Qt::TextWordWrap,
                         isStale_ || model_.fault.empty() ? QString() : ToQt(model_.fault));
        return;
    }
    PaintBands(painter, pointedAt);
    if (!isStale_) {
        PaintScale(painter);
        PaintProcess(painter);
        PaintLabels(painter);
    }
}

std::optional<std::size_t> SectionPainter::BandAt(const QPointF& place) const {
    for (std::size_t band = 0; band < model_.bands.size(); ++band) {
        if (BandPath(band).contains(place)) {
            return band;
        }
    }
    return std::nullopt;
}

} // namespace kaloria
