// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/viewer/report_printer.h"

#include "ui/viewer/document_builder.h"
#include "ui/viewer/report_pages.h"

#include <QAbstractTextDocumentLayout>
#include <QPageSize>

#include <algorithm>
#include <utility>

namespace kaloria::viewer {

namespace {

constexpr double pointsPerTwip = 1.0 / 20;

const Edges& EdgesOf(const Section& section, bool isFirst) {
    return isFirst && section.hasFirst ? section.first : section.all;
}

void DrawPage(QPainter& painter, const QTextDocument& document, const QPointF& at, const QRectF& part) {
    QAbstractTextDocumentLayout::PaintContext context;
    context.palette.setColor(QPalette::Text, Qt::black);
    context.clip = part;
    painter.save();
    painter.translate(at - part.topLeft());
    painter.setClipRect(part);
    document.documentLayout()->draw(&painter, context);
    painter.restore();
}

} // namespace

ReportPrinter::ReportPrinter(const RichText& text, QPagedPaintDevice& device) : text_(text), device_(device) {
    for (const Part& part : PartsOf(text)) {
        AddBody(text, part.begin, part.end, text.sections.at(part.section), part.startsSection);
    }
}

double ReportPrinter::Units(int twips) const { return twips * device_.logicalDpiY() / twipsPerInch; }

QPageLayout ReportPrinter::LayoutOf(const Section& section) {
    const QSizeF points(section.paperWidth * pointsPerTwip, section.paperHeight * pointsPerTwip);
    const bool liesAcross = points.width() > points.height();
    // Named sizes stand upright.
    const QPageSize size(liesAcross ? points.transposed() : points, QPageSize::Point, QString(),
                         QPageSize::FuzzyMatch);
    QPageLayout layout(size, liesAcross ? QPageLayout::Landscape : QPageLayout::Portrait, QMarginsF());
    layout.setMode(QPageLayout::FullPageMode);
    return layout;
}

std::unique_ptr<QTextDocument> ReportPrinter::Laid(std::span<const Block> blocks, const Section& section,
                                                   const Sheet& sheet) const {
    BuildOptions options;
    options.showsSeparators = false;
    // The documents' own way of asking a device for its resolution leaves some lengths as they are.
    options.scale = device_.logicalDpiY() / UnitsPerInch();
    options.fieldText = [&](Field field) {
        return QString::number(field == Field::pageNumber ? sheet.number : SheetCount());
    };
    auto document = BuildDocument(text_, blocks, options);
    document->setTextWidth(std::max(Units(section.TextWidth()), 1.0));
    return document;
}

double ReportPrinter::EdgeHeight(const Edge& edge, const Section& section) const {
    return edge ? Laid(*edge, section, {})->size().height() : 0;
}

void ReportPrinter::AddBody(const RichText& text, std::size_t begin, std::size_t end, const Section& section,
                            bool startsSection) {
    Body body;
    body.section = &section;
    // A header or footer that is higher than the margin pushes the text away.
    const double header = Units(section.headerTop) + EdgeHeight(section.all.header, section);
    const double footer = Units(section.footerBottom) + EdgeHeight(section.all.footer, section);
    body.top = section.all.header ? std::max(Units(section.marginTop), header) : Units(section.marginTop);
    const double below =
        section.all.footer ? std::max(Units(section.marginBottom), footer) : Units(section.marginBottom);
    const double leastHeight = Units(static_cast<int>(twipsPerInch));
    body.height = std::max(Units(section.paperHeight) - body.top - below, leastHeight);
    body.document = Laid(std::span(text.blocks).subspan(begin, end - begin), section, {});
    body.document->setPageSize(QSizeF(body.document->textWidth(), body.height));
    const int pages = std::max(body.document->pageCount(), 1);
    for (int page = 0; page < pages; ++page) {
        const bool isFirst = startsSection && page == 0;
        const int next = sheets_.empty() ? 1 : sheets_.back().number + 1;
        sheets_.push_back(
            {bodies_.size(), page, isFirst && section.firstNumber > 0 ? section.firstNumber : next, isFirst});
    }
    bodies_.push_back(std::move(body));
}

bool ReportPrinter::Print(bool setsPaper, int first, int last) {
    const int end = last <= 0 ? SheetCount() : std::min(last, SheetCount());
    QPainter painter;
    for (int i = std::max(first, 1) - 1; i < end; ++i) {
        const Sheet& sheet = sheets_[static_cast<std::size_t>(i)];
        if (setsPaper) {
            device_.setPageLayout(LayoutOf(*bodies_[sheet.body].section));
        }
        if (painter.isActive() ? !device_.newPage() : !painter.begin(&device_)) {
            return false;
        }
        Draw(painter, sheet);
    }
    return !painter.isActive() || painter.end();
}

void ReportPrinter::Fit(QPainter& painter, const Section& section) const {
    const QSizeF paper(Units(section.paperWidth), Units(section.paperHeight));
    QSizeF sheet(device_.width(), device_.height());
    const bool turns = (paper.width() > paper.height()) != (sheet.width() > sheet.height());
    if (turns) {
        painter.translate(sheet.width(), 0);
        painter.rotate(90);
        sheet.transpose();
    }
    const double fit = std::min({1.0, sheet.width() / paper.width(), sheet.height() / paper.height()});
    painter.scale(fit, fit);
}

void ReportPrinter::Draw(QPainter& painter, const Sheet& sheet) const {
    const Body& body = bodies_[sheet.body];
    painter.save();
    Fit(painter, *body.section);
    const QRectF part(0, sheet.page * body.height, body.document->textWidth(), body.height);
    DrawPage(painter, *body.document, {Units(body.section->marginLeft), body.top}, part);
    DrawEdges(painter, sheet);
    painter.restore();
}

void ReportPrinter::DrawEdges(QPainter& painter, const Sheet& sheet) const {
    const Section& section = *bodies_[sheet.body].section;
    const Edges& edges = EdgesOf(section, sheet.isFirst);
    const double x = Units(section.marginLeft);
    if (edges.header) {
        const auto header = Laid(*edges.header, section, sheet);
        DrawPage(painter, *header, {x, Units(section.headerTop)}, QRectF(QPointF(), header->size()));
    }
    if (edges.footer) {
        const auto footer = Laid(*edges.footer, section, sheet);
        const double y = Units(section.paperHeight - section.footerBottom) - footer->size().height();
        DrawPage(painter, *footer, {x, y}, QRectF(QPointF(), footer->size()));
    }
}

} // namespace kaloria::viewer
