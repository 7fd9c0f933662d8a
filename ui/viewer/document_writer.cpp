// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/viewer/document_writer.h"

#include <QTextTable>
#include <QUrl>

#include <algorithm>
#include <utility>

namespace kaloria::viewer {

DocumentWriter::DocumentWriter(const RichText& text, const BuildOptions& options, QTextDocument& document)
    : text_(text), options_(options), document_(document), formats_(text, options) {}

QTextBlockFormat DocumentWriter::Following(QTextBlockFormat format) {
    // Documents of Qt take the larger of two margins that meet, word processors their sum.
    const double before = std::exchange(spaceBefore_, format.bottomMargin());
    if (format.topMargin() > 0) {
        format.setTopMargin(format.topMargin() + before);
    }
    return format;
}

namespace {
/// A picture's line is as high as the picture, however far the lines of text are apart.
ParagraphLook LookOf(const Paragraph& paragraph) {
    ParagraphLook look = paragraph.look;
    const bool hasPicture = std::any_of(paragraph.runs.begin(), paragraph.runs.end(),
                                        [](const Run& run) { return run.picture >= 0; });
    look.lineHeight = hasPicture ? 0 : look.lineHeight;
    return look;
}
} // namespace

void DocumentWriter::WriteBlock(QTextCursor& cursor, const Paragraph& paragraph, std::size_t section) {
    QTextBlockFormat format = Following(formats_.Of(LookOf(paragraph), formats_.InsetOf(section)));
    const bool isFirst = !std::exchange(hasBlocks_, true);
    if (isFirst) {
        format.clearProperty(QTextFormat::PageBreakPolicy); // it starts a sheet anyhow
    }
    const QTextCharFormat look = formats_.Of(paragraph.endLook);
    // The empty block behind a table has no height, so that an empty paragraph needs one of its own.
    if (isBlockFree_ && (isFirst || !paragraph.runs.empty())) {
        KeepFromTable(format.topMargin());
        cursor.setBlockFormat(format);
        cursor.setBlockCharFormat(look);
    } else {
        cursor.insertBlock(format, look);
    }
    isBlockFree_ = false;
    lastTable_ = nullptr;
    isLastEmpty_ = paragraph.runs.empty();
    WriteRuns(cursor, paragraph, text_.sections.at(section).TextWidth());
}

void DocumentWriter::KeepFromTable(double space) {
    // The space in front of a block counts from another block only.
    if (lastTable_ != nullptr && space > 0) {
        QTextTableFormat format = lastTable_->format();
        format.setBottomMargin(space);
        lastTable_->setFormat(format);
    }
}

void DocumentWriter::WriteSeparator(QTextCursor& cursor, const Paragraph& paragraph,
                                    std::size_t nextSection) {
    QTextBlockFormat format;
    format.setProperty(separatorProperty, true);
    format.setProperty(sectionProperty, static_cast<int>(nextSection));
    QTextCharFormat look;
    look.setFontPointSize(6 * options_.scale);
    look.setForeground(Qt::transparent);
    if (std::exchange(isBlockFree_, false)) {
        cursor.setBlockFormat(format);
        cursor.setBlockCharFormat(look);
    } else {
        cursor.insertBlock(format, look);
    }
    cursor.insertText(paragraph.Text(), look);
    spaceBefore_ = 0;
    lastTable_ = nullptr;
}

void DocumentWriter::WriteRuns(QTextCursor& cursor, const Paragraph& paragraph, int width) {
    for (const Run& run : paragraph.runs) {
        if (run.picture >= 0) {
            WritePicture(cursor, run, width - paragraph.look.left - paragraph.look.right);
        } else {
            cursor.insertText(run.field == Field::none ? run.text : options_.fieldText(run.field),
                              formats_.Of(run.look));
        }
    }
}

void DocumentWriter::WritePicture(QTextCursor& cursor, const Run& run, int width) {
    const Picture& picture = text_.pictures.at(static_cast<std::size_t>(run.picture));
    const QUrl name(QStringLiteral("picture:%1").arg(run.picture));
    if (pictures_.insert(run.picture).second) {
        document_.addResource(QTextDocument::ImageResource, name, picture.image);
    }
    const double fit = std::min(1.0, static_cast<double>(std::max(width, 1)) / picture.width);
    QTextImageFormat format;
    format.setName(name.toString());
    format.setWidth(formats_.Units(picture.width) * fit);
    format.setHeight(formats_.Units(picture.height) * fit);
    cursor.insertImage(format);
}

QTextTableFormat DocumentWriter::TableFormat(const TableGrid& grid, const std::vector<int>& edges,
                                             std::size_t section) {
    QTextTableFormat format;
    format.setBorder(0);
    format.setBorderCollapse(true);
    format.setCellSpacing(0);
    format.setCellPadding(0);
    const Row& first = *grid.Rows().front();
    const Inset inset = formats_.InsetOf(section);
    format.setLeftMargin(formats_.Units(inset.left + edges.front()));
    if (first.alignment != Qt::AlignLeft) {
        const int rest = text_.sections.at(section).TextWidth() - (edges.back() - edges.front());
        const int share = first.alignment == Qt::AlignRight ? 1 : 2;
        format.setLeftMargin(formats_.Units(inset.left + std::max(0, rest / share)));
    }
    format.setTopMargin(std::exchange(spaceBefore_, 0));
    if (first.breaksPage && hasBlocks_) {
        format.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
    }
    QList<QTextLength> widths;
    for (std::size_t i = 1; i < edges.size(); ++i) {
        widths.append(QTextLength(QTextLength::FixedLength, formats_.Units(edges[i] - edges[i - 1])));
    }
    format.setColumnWidthConstraints(widths);
    const auto body =
        std::find_if(grid.Rows().begin(), grid.Rows().end(), [](const Row* row) { return !row->isHeading; });
    const auto headings = static_cast<int>(body - grid.Rows().begin());
    format.setHeaderRowCount(body == grid.Rows().end() ? 0 : headings);
    return format;
}

void DocumentWriter::WriteTable(QTextCursor& cursor, const TableGrid& grid, std::size_t section) {
    // The last empty block before a table has no height; a paragraph must not be it.
    if (!isBlockFree_ && isLastEmpty_) {
        cursor.insertBlock(QTextBlockFormat(), QTextCharFormat());
    }
    // Some writers let a table of the whole width be much wider than the sheet.
    const Section& look = text_.sections.at(section);
    const bool isTooWide = grid.Edges().back() > look.paperWidth;
    const std::vector<int> edges = isTooWide ? grid.FittedEdges(look.TextWidth()) : grid.Edges();
    QTextTable* const table =
        cursor.insertTable(static_cast<int>(grid.Rows().size()), static_cast<int>(grid.ColumnCount()),
                           TableFormat(grid, edges, section));
    for (const TableGrid::Place& place : grid.Places()) {
        if (place.columns > 1 || place.rows > 1) {
            table->mergeCells(static_cast<int>(place.row), static_cast<int>(place.column),
                              static_cast<int>(place.rows), static_cast<int>(place.columns));
        }
        if (place.cell != nullptr) {
            const int width = edges[place.column + place.columns] - edges[place.column];
            WriteCell(*table, place, *grid.Rows()[place.row], width);
        }
    }
    cursor = table->lastCursorPosition();
    cursor.movePosition(QTextCursor::NextCharacter);
    isBlockFree_ = true;
    hasBlocks_ = true;
    lastTable_ = table;
    spaceBefore_ = 0;
}

void DocumentWriter::WriteCell(QTextTable& table, const TableGrid::Place& place, const Row& row, int width) {
    QTextTableCell cell = table.cellAt(static_cast<int>(place.row), static_cast<int>(place.column));
    const auto& paragraphs = place.cell->paragraphs;
    // A cell's format is that of its first block's end too.
    QTextTableCellFormat look =
        formats_.Of(place.cell->look, row, paragraphs.empty() ? TextLook{} : paragraphs.front().endLook);
    if (!paragraphs.empty()) {
        // The space in front of a cell's first block does not count, nor that behind its last.
        look.setTopPadding(look.topPadding() + formats_.Units(std::max(0, paragraphs.front().look.before)));
        look.setBottomPadding(look.bottomPadding() +
                              formats_.Units(std::max(0, paragraphs.back().look.after)));
    }
    cell.setFormat(look);
    QTextCursor cursor = cell.firstCursorPosition();
    spaceBefore_ = 0;
    bool isFirst = true;
    for (const Paragraph& paragraph : paragraphs) {
        QTextBlockFormat format = Following(formats_.Of(LookOf(paragraph), {}));
        if (row.height > 0 && paragraphs.size() == 1 && paragraph.runs.empty()) {
            // Tables of Qt know no height of rows, but that of lines.
            format.setLineHeight(formats_.Units(row.height), QTextBlockFormat::MinimumHeight);
        }
        if (std::exchange(isFirst, false)) {
            cursor.setBlockFormat(format);
        } else {
            cursor.insertBlock(format, formats_.Of(paragraph.endLook));
        }
        WriteRuns(cursor, paragraph,
                  width - PaddingOf(place.cell->look, row, Side::left) -
                      PaddingOf(place.cell->look, row, Side::right));
    }
}

} // namespace kaloria::viewer
