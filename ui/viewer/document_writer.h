// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/viewer/document_formats.h"
#include "ui/viewer/table_grid.h"

#include <QTextCursor>
#include <QTextTable>

#include <set>

namespace kaloria::viewer {

/// Writes blocks into a document, each behind the one before.
class DocumentWriter {
public:
    DocumentWriter(const RichText& text, const BuildOptions& options, QTextDocument& document);

    void WriteBlock(QTextCursor& cursor, const Paragraph& paragraph, std::size_t section);
    /// @param nextSection  behind the separator
    void WriteSeparator(QTextCursor& cursor, const Paragraph& paragraph, std::size_t nextSection);
    void WriteTable(QTextCursor& cursor, const TableGrid& grid, std::size_t section);

private:
    [[nodiscard]] QTextTableFormat TableFormat(const TableGrid& grid, const std::vector<int>& edges,
                                               std::size_t section);
    void WriteCell(QTextTable& table, const TableGrid::Place& place, const Row& row, int width);
    void WriteRuns(QTextCursor& cursor, const Paragraph& paragraph, int width);
    void WritePicture(QTextCursor& cursor, const Run& run, int width);
    void KeepFromTable(double space);
    /// The format of a paragraph behind the one written last: spaces between them add up.
    [[nodiscard]] QTextBlockFormat Following(QTextBlockFormat format);

    const RichText& text_;
    const BuildOptions& options_;
    QTextDocument& document_;
    Formats formats_;
    std::set<int> pictures_;  ///< that the document has got
    bool isBlockFree_ = true; ///< the cursor stands in an empty block that nothing is written in
    bool hasBlocks_ = false;
    QTextTable* lastTable_ = nullptr; ///< that the cursor stands right behind
    bool isLastEmpty_ = false;        ///< the last block is an empty paragraph
    double spaceBefore_ = 0;          ///< that the last block asks for behind it
};

} // namespace kaloria::viewer
