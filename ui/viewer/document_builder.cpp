// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/viewer/document_builder.h"

#include "ui/viewer/document_writer.h"
#include "ui/viewer/report_pages.h"
#include "ui/viewer/table_grid.h"

#include <QGuiApplication>
#include <QScreen>
#include <QTextFrameFormat>

#include <utility>

namespace kaloria::viewer {

namespace {

/// A paragraph with borders is a table of one cell: documents of Qt know no other borders.
Row Framed(std::span<const Block> blocks, int width) {
    Row row;
    Cell cell;
    for (const Block& block : blocks) {
        cell.paragraphs.push_back(std::get<Paragraph>(block.content));
    }
    const ParagraphLook& look = cell.paragraphs.front().look;
    cell.look.borders = look.borders;
    cell.look.shading = look.shading;
    cell.look.padding.fill(look.borderSpace);
    cell.look.right = width - look.right;
    row.left = look.left;
    row.breaksPage = look.breaksPage;
    for (Paragraph& paragraph : cell.paragraphs) {
        paragraph.look.left = paragraph.look.right = 0;
        paragraph.look.breaksPage = false;
    }
    row.cells.push_back(std::move(cell));
    return row;
}

class Builder {
public:
    Builder(const RichText& text, std::span<const Block> blocks, const BuildOptions& options)
        : text_(text),
          blocks_(blocks),
          options_(options),
          document_(std::make_unique<QTextDocument>()),
          writer_(text, options, *document_) {}

    std::unique_ptr<QTextDocument> Build() {
        document_->setUndoRedoEnabled(false);
        document_->setDocumentMargin(0);
        QTextCursor cursor(document_.get());
        cursor.beginEditBlock();
        for (std::size_t at = 0; at < blocks_.size();) {
            at = std::holds_alternative<Row>(blocks_[at].content) ? AddTable(cursor, at)
                                                                  : AddParagraph(cursor, at);
        }
        cursor.endEditBlock();
        return std::move(document_);
    }

private:
    std::size_t AddTable(QTextCursor& cursor, std::size_t begin) {
        TableGrid grid;
        std::size_t at = begin;
        for (; at < blocks_.size() && blocks_[at].section == blocks_[begin].section; ++at) {
            const auto* const row = std::get_if<Row>(&blocks_[at].content);
            if (row == nullptr || !grid.Add(*row)) {
                break;
            }
        }
        writer_.WriteTable(cursor, grid, blocks_[begin].section);
        return at;
    }

    std::size_t AddParagraph(QTextCursor& cursor, std::size_t begin) {
        const auto& paragraph = std::get<Paragraph>(blocks_[begin].content);
        const std::size_t section = blocks_[begin].section;
        if (IsSeparator(paragraph.Text())) {
            if (options_.showsSeparators) {
                const std::size_t next = begin + 1 < blocks_.size() ? blocks_[begin + 1].section : section;
                writer_.WriteSeparator(cursor, paragraph, next);
            }
            return begin + 1;
        }
        if (!paragraph.look.HasBorder()) {
            writer_.WriteBlock(cursor, paragraph, section);
            return begin + 1;
        }
        const std::size_t end = EndOfFrame(begin);
        TableGrid grid;
        const Row row = Framed(blocks_.subspan(begin, end - begin), text_.sections.at(section).TextWidth());
        grid.Add(row);
        writer_.WriteTable(cursor, grid, section);
        return end;
    }

    /// Neighbours with the same borders share them.
    [[nodiscard]] std::size_t EndOfFrame(std::size_t begin) const {
        const ParagraphLook& look = std::get<Paragraph>(blocks_[begin].content).look;
        std::size_t end = begin + 1;
        for (; end < blocks_.size(); ++end) {
            const auto* const next = std::get_if<Paragraph>(&blocks_[end].content);
            if (next == nullptr || next->look.borders != look.borders || next->look.left != look.left ||
                next->look.right != look.right || next->look.breaksPage) {
                break;
            }
        }
        return end;
    }

    const RichText& text_;
    std::span<const Block> blocks_;
    const BuildOptions& options_;
    std::unique_ptr<QTextDocument> document_;
    DocumentWriter writer_;
};

} // namespace

double UnitsPerInch() {
    constexpr double usual = 96;
    const QScreen* const screen = QGuiApplication::primaryScreen();
    return screen == nullptr ? usual : qRound(screen->logicalDotsPerInchY());
}

std::unique_ptr<QTextDocument> BuildDocument(const RichText& text, std::span<const Block> blocks,
                                             const BuildOptions& options) {
    return Builder(text, blocks, options).Build();
}

} // namespace kaloria::viewer
