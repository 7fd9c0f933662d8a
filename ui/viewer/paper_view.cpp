// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/viewer/paper_view.h"

#include "ui/theme.h"
#include "ui/viewer/document_builder.h"
#include "ui/viewer/report_pages.h"

#include <QAbstractTextDocumentLayout>
#include <QPainter>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextFrame>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>
#include <utility>

namespace kaloria::viewer {

namespace {

constexpr double desk = 16; // between two sheets

double BottomOf(const QTextDocument& document, const QTextBlock& block) {
    return document.documentLayout()->blockBoundingRect(block).bottom();
}

double TopOf(const QTextDocument& document, const QTextBlock& block) {
    return document.documentLayout()->blockBoundingRect(block).top();
}

std::vector<QTextBlock> SeparatorsOf(const QTextDocument& document) {
    std::vector<QTextBlock> separators;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        if (block.blockFormat().boolProperty(separatorProperty)) {
            separators.push_back(block);
        }
    }
    return separators;
}

std::size_t SectionBehind(const QTextBlock& separator) {
    return static_cast<std::size_t>(separator.blockFormat().intProperty(sectionProperty));
}

bool HasTextBehind(const QTextBlock& separator) {
    for (QTextBlock block = separator.next(); block.isValid(); block = block.next()) {
        if (!block.text().trimmed().isEmpty()) {
            return true;
        }
    }
    return false;
}

} // namespace

PaperView::PaperView(QWidget* parent) : QTextEdit(parent) {
    setReadOnly(true);
    setFrameStyle(QFrame::NoFrame);
    setLineWrapMode(QTextEdit::FixedPixelWidth);
    // No cursor: keys scroll.
    setTextInteractionFlags(Qt::TextSelectableByMouse);
    viewport()->setAutoFillBackground(false);
    text_.sections.emplace_back();
    connect(verticalScrollBar(), &QScrollBar::valueChanged, viewport(), qOverload<>(&QWidget::update));
}

double PaperView::Units(int twips) const { return twips * zoom_ * UnitsPerInch() / twipsPerInch; }

int PaperView::WidestPaper() const {
    int widest = 0;
    for (const Section& section : text_.sections) {
        widest = std::max(widest, section.paperWidth);
    }
    return widest;
}

void PaperView::Show(RichText text) {
    text_ = std::move(text);
    Rebuild();
    moveCursor(QTextCursor::Start);
    verticalScrollBar()->setValue(0);
    horizontalScrollBar()->setValue(0);
}

void PaperView::SetZoom(double zoom) {
    constexpr double least = 0.25;
    constexpr double most = 5;
    zoom = std::clamp(zoom, least, most);
    if (std::abs(zoom - zoom_) < 1e-3) {
        return;
    }
    const int anchor = textCursor().anchor();
    const int position = textCursor().position();
    const double seen = verticalScrollBar()->value() / zoom_;
    zoom_ = zoom;
    Rebuild();
    QTextCursor cursor(document());
    cursor.setPosition(anchor);
    cursor.setPosition(position, QTextCursor::KeepAnchor);
    setTextCursor(cursor);
    verticalScrollBar()->setValue(static_cast<int>(std::lround(seen * zoom_)));
    Q_EMIT ZoomChanged();
}

double PaperView::FittingZoom() const {
    const double room = width() - verticalScrollBar()->sizeHint().width() - 2 * desk;
    return room * twipsPerInch / (UnitsPerInch() * std::max(WidestPaper(), 1));
}

void PaperView::Rebuild() {
    BuildOptions options;
    options.scale = zoom_;
    const int widest = WidestPaper();
    for (const Section& section : text_.sections) {
        const int aside = (widest - section.paperWidth) / 2;
        options.insets.push_back({aside + section.marginLeft, aside + section.marginRight});
    }
    auto next = BuildDocument(text_, text_.blocks, options);
    SetRootMargins(*next, desk); // before it is laid out, which takes most of the time
    setDocument(next.get());
    paper_ = std::move(next); // the old one goes when nothing shows it any more
    setLineWrapColumnOrWidth(static_cast<int>(std::ceil(Units(widest))));
    Paginate();
    Center();
    viewport()->update();
}

void PaperView::SetRootMargins(QTextDocument& document, double bottom) const {
    QTextFrameFormat format = document.rootFrame()->frameFormat();
    format.setTopMargin(desk + Units(text_.sections.front().marginTop));
    format.setBottomMargin(bottom);
    document.rootFrame()->setFrameFormat(format);
}

void PaperView::AddPaper(std::size_t section, double top, double bottom) {
    const int width = text_.sections.at(section).paperWidth;
    papers_.push_back({top, bottom, Units((WidestPaper() - width) / 2), Units(width)});
}

/// Puts the separators where the sheets end. A page longer than a sheet gets a longer sheet.
void PaperView::Paginate() {
    papers_.clear();
    const std::vector<QTextBlock> separators = SeparatorsOf(*document());
    std::vector<double> ends; // of the text of each page, from its first line
    double begin = desk + Units(text_.sections.front().marginTop);
    for (const QTextBlock& separator : separators) {
        ends.push_back(TopOf(*document(), separator) - begin);
        begin = BottomOf(*document(), separator);
    }
    ends.push_back(document()->size().height() - desk - begin);

    double top = desk;
    std::size_t section = 0;
    QTextCursor cursor(document());
    cursor.beginEditBlock();
    for (std::size_t i = 0; i < ends.size(); ++i) {
        const Section& look = text_.sections.at(section);
        const double needed = Units(look.marginTop) + ends[i] + Units(look.marginBottom);
        const double height = std::max(needed, Units(look.paperHeight));
        const double filler = height - Units(look.marginTop) - ends[i];
        if (i < separators.size()) {
            AddPaper(section, top, top + height);
            section = SectionBehind(separators[i]);
            cursor.setPosition(separators[i].position());
            QTextBlockFormat format = separators[i].blockFormat();
            const bool isLast = i + 1 == separators.size() && !HasTextBehind(separators[i]);
            format.setTopMargin(filler);
            format.setLineHeight(desk, QTextBlockFormat::FixedHeight);
            format.setBottomMargin(isLast ? 0 : Units(text_.sections.at(section).marginTop));
            cursor.setBlockFormat(format);
            top += height + desk;
        } else if (separators.empty() || HasTextBehind(separators.back())) {
            AddPaper(section, top, top + height);
            SetRootMargins(*document(), filler + desk);
        }
    }
    cursor.endEditBlock();
}

void PaperView::Center() {
    const int room = width() - verticalScrollBar()->sizeHint().width();
    const int side = std::max(0, (room - lineWrapColumnOrWidth()) / 2);
    if (viewportMargins().left() != side) {
        setViewportMargins(side, 0, side, 0);
    }
}

int PaperView::CurrentPage() const {
    const double seen = verticalScrollBar()->value() + viewport()->height() / 3.0;
    const auto later =
        std::find_if(papers_.begin(), papers_.end(), [&](const Paper& paper) { return paper.top > seen; });
    return std::max(static_cast<int>(later - papers_.begin()), std::min(1, PageCount()));
}

void PaperView::paintEvent(QPaintEvent* event) {
    QPainter painter(viewport());
    painter.fillRect(event->rect(), palette().color(QPalette::Window));
    painter.translate(-horizontalScrollBar()->value(), -verticalScrollBar()->value());
    painter.setPen(theme::Current().line);
    painter.setBrush(Qt::white);
    for (const Paper& paper : papers_) {
        painter.drawRect(QRectF(paper.left, paper.top, paper.width - 1, paper.bottom - paper.top));
    }
    painter.end();
    QTextEdit::paintEvent(event);
}

void PaperView::resizeEvent(QResizeEvent* event) {
    Center();
    QTextEdit::resizeEvent(event);
}

void PaperView::wheelEvent(QWheelEvent* event) {
    if (event->modifiers() != Qt::ControlModifier) {
        QTextEdit::wheelEvent(event);
        return;
    }
    if (event->angleDelta().y() != 0) {
        Q_EMIT ZoomWanted(event->angleDelta().y() > 0 ? 1 : -1);
    }
    event->accept();
}

} // namespace kaloria::viewer
