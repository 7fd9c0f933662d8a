// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/viewer/rtf_rows.h"

#include "ui/viewer/rtf_look.h"

#include <algorithm>
#include <cstdlib>
#include <iterator>
#include <utility>

namespace kaloria::viewer {

namespace {

using rtf::Token;
using Merge = CellLook::Merge;

constexpr std::size_t mostCells = 64; // of a row, as word processors have it
constexpr int leastCell = 60;         // so that its text is seen [twip]
constexpr int usualCell = 1440;       // of a cell that nothing is said about [twip]
constexpr int wholeShade = 10000;
constexpr int widestGap = 1440;
constexpr int farthestCell = 131072; // tables may be wider than the sheet; they are made to fit

/// A gray, or a colour made lighter.
QColor Shaded(int shade) {
    const int level = 255 - 255 * shade / wholeShade;
    return {level, level, level};
}

} // namespace

bool RowCollector::ApplyWord(const Token& word, const Resources& resources) {
    if (side_ < sideCount && ApplyBorderWord(next_.borders.at(side_), word, resources)) {
        return true;
    }
    if (word.name.substr(0, 2) == "tr") {
        return ApplyRowWord(word);
    }
    if (word.name == "cellx") {
        EndLook(NumberOf(word, -farthest, farthestCell, usualCell));
        return true;
    }
    return word.name.substr(0, 2) == "cl" && ApplyCellWord(word, resources);
}

bool RowCollector::ApplyRowWord(const Token& word) {
    side_ = sideCount;
    if (word.name == "trowd") {
        row_ = {};
        looks_.clear();
        next_ = {};
    } else if (word.name == "trgaph") {
        row_.padding.at(Side::left) = row_.padding.at(Side::right) = NumberOf(word, 0, widestGap);
    } else if (word.name == "trpaddl") {
        row_.padding.at(Side::left) = NumberOf(word, 0, widestGap);
    } else if (word.name == "trpaddr") {
        row_.padding.at(Side::right) = NumberOf(word, 0, widestGap);
    } else if (word.name == "trpaddt") {
        row_.padding.at(Side::top) = NumberOf(word, 0, widestGap);
    } else if (word.name == "trpaddb") {
        row_.padding.at(Side::bottom) = NumberOf(word, 0, widestGap);
    } else if (word.name == "trleft") {
        row_.left = NumberOf(word, -farthest, farthest);
    } else if (word.name == "trrh") {
        row_.height = std::abs(NumberOf(word, -farthest, farthest));
    } else if (word.name == "trhdr") {
        row_.isHeading = true;
    } else if (word.name == "trql" || word.name == "trqr" || word.name == "trqc") {
        row_.alignment = word.name == "trqr"   ? Qt::AlignRight
                         : word.name == "trqc" ? Qt::AlignHCenter
                                               : Qt::AlignLeft;
    }
    return true;
}

bool RowCollector::ApplyMerge(std::string_view name) {
    if (name == "clmgf" || name == "clmrg") {
        next_.across = name == "clmgf" ? Merge::first : Merge::more;
    } else if (name == "clvmgf" || name == "clvmrg") {
        next_.down = name == "clvmgf" ? Merge::first : Merge::more;
    } else {
        return false;
    }
    return true;
}

bool RowCollector::ApplyCellWord(const Token& word, const Resources& resources) {
    constexpr std::string_view borders[sideCount] = {"clbrdrt", "clbrdrr", "clbrdrb", "clbrdrl"};
    const auto* const side = std::find(std::begin(borders), std::end(borders), word.name);
    if (side != std::end(borders)) {
        side_ = static_cast<std::size_t>(side - std::begin(borders));
        return true;
    }
    side_ = sideCount;
    constexpr std::string_view paddings[sideCount] = {"clpadt", "clpadr", "clpadb", "clpadl"};
    const auto* const padding = std::find(std::begin(paddings), std::end(paddings), word.name);
    if (padding != std::end(paddings)) {
        next_.padding.at(static_cast<std::size_t>(padding - std::begin(paddings))) =
            NumberOf(word, 0, widestGap);
    } else if (word.name == "clvertalc") {
        next_.vertical = QTextCharFormat::AlignMiddle;
    } else if (word.name == "clvertalb") {
        next_.vertical = QTextCharFormat::AlignBottom;
    } else if (word.name == "clvertalt") {
        next_.vertical = QTextCharFormat::AlignTop;
    } else if (word.name == "clcbpat") {
        pattern_ = resources.Color(word.value);
        next_.shading = pattern_.isValid() ? pattern_ : next_.shading;
    } else if (word.name == "clshdng" && !pattern_.isValid() && word.value > 0) {
        next_.shading = Shaded(NumberOf(word, 0, wholeShade));
    } else {
        ApplyMerge(word.name);
    }
    return true;
}

void RowCollector::EndLook(int right) {
    if (looks_.size() < mostCells) {
        const int left = looks_.empty() ? row_.left : looks_.back().right;
        next_.right = std::max(right, left + leastCell);
        looks_.push_back(next_);
    }
    next_ = {};
    pattern_ = QColor(); // not {}, which would be a colour
    side_ = sideCount;
}

void RowCollector::EndCell() {
    if (cells_.size() < mostCells) {
        cells_.push_back(std::exchange(paragraphs_, {}));
    } else {
        // Beyond what a row can have, the text goes on in its last cell.
        auto& last = cells_.back();
        std::move(paragraphs_.begin(), paragraphs_.end(), std::back_inserter(last));
        paragraphs_.clear();
    }
}

Row RowCollector::Take() {
    if (!paragraphs_.empty()) {
        EndCell();
    }
    Row row = row_;
    for (std::size_t i = 0; i < std::max(cells_.size(), looks_.size()); ++i) {
        CellLook look = i < looks_.size() ? looks_[i] : CellLook{};
        look.right = i < looks_.size()
                         ? look.right
                         : (row.cells.empty() ? row.left : row.cells.back().look.right) + usualCell;
        std::vector<Paragraph> text = i < cells_.size() ? std::move(cells_[i]) : std::vector<Paragraph>{};
        if (look.across == Merge::more && !row.cells.empty()) {
            Cell& first = row.cells.back();
            first.look.right = look.right;
            first.look.borders.at(Side::right) = look.borders.at(Side::right);
            const bool hasText = std::any_of(text.begin(), text.end(),
                                             [](const Paragraph& paragraph) { return !paragraph.IsBlank(); });
            if (hasText) {
                std::move(text.begin(), text.end(), std::back_inserter(first.paragraphs));
            }
        } else {
            row.cells.push_back({look, std::move(text)});
        }
    }
    cells_.clear();
    return row;
}

} // namespace kaloria::viewer
