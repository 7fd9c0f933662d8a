// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/viewer/document_builder.h"

#include <QTextBlockFormat>
#include <QTextCharFormat>
#include <QTextTableCellFormat>

namespace kaloria::viewer {

/// Between a cell's edge and its text [twip].
[[nodiscard]] int PaddingOf(const CellLook& look, const Row& row, Side side);

/// Turns looks into the formats of Qt's documents.
class Formats {
public:
    Formats(const RichText& text, const BuildOptions& options);

    /// @param twips  a length on paper
    [[nodiscard]] double Units(int twips) const { return unitsPerTwip_ * twips; }
    [[nodiscard]] Inset InsetOf(std::size_t section) const;

    [[nodiscard]] QTextCharFormat Of(const TextLook& look) const;
    [[nodiscard]] QTextBlockFormat Of(const ParagraphLook& look, const Inset& inset) const;
    /// @param endLook  of the first paragraph in the cell
    [[nodiscard]] QTextTableCellFormat Of(const CellLook& look, const Row& row,
                                          const TextLook& endLook) const;

private:
    void SetLineHeight(QTextBlockFormat& format, const ParagraphLook& look) const;
    void SetTabs(QTextBlockFormat& format, const ParagraphLook& look) const;

    const RichText& text_;
    const BuildOptions& options_;
    double unitsPerTwip_;
};

} // namespace kaloria::viewer
