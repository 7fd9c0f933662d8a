// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/viewer/rtf_rows.h"

#include <QString>

#include <cstddef>
#include <vector>

namespace kaloria::viewer {

/// What is left of the size that a shown text may have. Beyond it laying the text out would take minutes.
struct Budget {
    std::size_t characters = 4'000'000;
    std::size_t runs = 400'000;
    std::size_t paragraphs = 100'000;
    std::size_t cells = 60'000;
    std::size_t pictureBytes = std::size_t{256} << 20U; ///< unpacked

    [[nodiscard]] bool IsSpent() const {
        return characters == 0 || runs == 0 || paragraphs == 0 || cells == 0;
    }
};

/// A text as it is being read, be it the document's, a header's or a text box's.
class Story {
public:
    enum class Kind { body, header, footer, firstHeader, firstFooter, box };

    explicit Story(Kind kind) : kind_(kind) {}

    [[nodiscard]] Kind GetKind() const { return kind_; }
    [[nodiscard]] RowCollector& Rows() { return row_; }
    [[nodiscard]] Paragraph& Current() { return current_; }

    void AddText(const QString& text, const TextLook& look, Budget& budget);
    void AddPicture(int picture, const TextLook& look, Budget& budget);
    void AddField(Field field, const TextLook& look, Budget& budget);

    void EndParagraph(const ParagraphLook& look, const TextLook& endLook, Budget& budget);
    void EndCell(const ParagraphLook& look, const TextLook& endLook, Budget& budget);
    void EndRow(Budget& budget);
    void BreakPage(const ParagraphLook& look, const TextLook& endLook, Budget& budget);
    /// Puts what is open into the blocks.
    void End(const ParagraphLook& look, const TextLook& endLook, Budget& budget);
    /// Puts a text box's blocks in front of the paragraph that is open.
    void Insert(std::vector<Block> blocks);

    std::size_t section = 0; ///< that new blocks belong to
    std::vector<Block> blocks;

private:
    [[nodiscard]] Paragraph TakeParagraph(const ParagraphLook& look, const TextLook& endLook, Budget& budget);

    Kind kind_;
    Paragraph current_;
    RowCollector row_;
    bool breaksPage_ = false; ///< before the next block
};

} // namespace kaloria::viewer
