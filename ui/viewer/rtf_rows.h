// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "reports/rtf_token.h"
#include "ui/viewer/rtf_resources.h"

namespace kaloria::viewer {

/// Collects a row of a table: what is said about it (\trowd ... \cellx), which may stand in front of its
/// cells or behind them, and the paragraphs of its cells.
class RowCollector {
public:
    /// @returns whether the word is about rows or their cells
    bool ApplyWord(const rtf::Token& word, const Resources& resources);

    void Add(Paragraph paragraph) { paragraphs_.push_back(std::move(paragraph)); }
    void EndCell();

    /// Whether text of a row has come that no \row has ended.
    [[nodiscard]] bool IsOpen() const { return !cells_.empty() || !paragraphs_.empty(); }

    /// The row; the next one has the same cells unless it says otherwise.
    [[nodiscard]] Row Take();

private:
    bool ApplyRowWord(const rtf::Token& word);
    bool ApplyCellWord(const rtf::Token& word, const Resources& resources);
    bool ApplyMerge(std::string_view name);
    void EndLook(int right);

    Row row_; ///< without cells
    std::vector<CellLook> looks_;
    CellLook next_;                ///< the look that \cellx ends
    QColor pattern_;               ///< behind its shading's points
    std::size_t side_ = sideCount; ///< of next_ that words of borders are about; sideCount: none
    std::vector<std::vector<Paragraph>> cells_;
    std::vector<Paragraph> paragraphs_; ///< of the cell that is open
};

} // namespace kaloria::viewer
