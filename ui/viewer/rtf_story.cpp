// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/viewer/rtf_story.h"

#include <algorithm>
#include <utility>

namespace kaloria::viewer {

namespace {
void Spend(std::size_t& budget, std::size_t amount) { budget -= std::min(budget, amount); }
} // namespace

void Story::AddText(const QString& text, const TextLook& look, Budget& budget) {
    if (text.isEmpty() || look.isHidden || look.isDeleted) {
        return;
    }
    Spend(budget.characters, static_cast<std::size_t>(text.size()));
    auto& runs = current_.runs;
    if (!runs.empty() && runs.back().picture < 0 && runs.back().field == Field::none &&
        runs.back().look == look) {
        runs.back().text += text;
        return;
    }
    Spend(budget.runs, 1);
    runs.push_back({look, text});
}

void Story::AddPicture(int picture, const TextLook& look, Budget& budget) {
    Spend(budget.runs, 1);
    if (!look.isHidden && !look.isDeleted) {
        current_.runs.push_back({look, {}, picture});
    }
}

void Story::AddField(Field field, const TextLook& look, Budget& budget) {
    Spend(budget.runs, 1);
    if (!look.isHidden && !look.isDeleted) {
        current_.runs.push_back({look, {}, -1, field});
    }
}

Paragraph Story::TakeParagraph(const ParagraphLook& look, const TextLook& endLook, Budget& budget) {
    Spend(budget.paragraphs, 1);
    Paragraph paragraph = std::exchange(current_, {});
    paragraph.look = look;
    paragraph.endLook = endLook;
    return paragraph;
}

void Story::EndParagraph(const ParagraphLook& look, const TextLook& endLook, Budget& budget) {
    Paragraph paragraph = TakeParagraph(look, endLook, budget);
    if (look.isInTable) {
        row_.Add(std::move(paragraph));
        return;
    }
    if (row_.IsOpen()) {
        EndRow(budget);
    }
    paragraph.look.breaksPage = std::exchange(breaksPage_, false) || look.breaksPage;
    blocks.push_back({std::move(paragraph), section});
}

void Story::EndCell(const ParagraphLook& look, const TextLook& endLook, Budget& budget) {
    row_.Add(TakeParagraph(look, endLook, budget));
    row_.EndCell();
}

void Story::EndRow(Budget& budget) {
    Row row = row_.Take();
    Spend(budget.cells, row.cells.size());
    if (!row.cells.empty()) {
        row.breaksPage = std::exchange(breaksPage_, false);
        blocks.push_back({std::move(row), section});
    }
}

void Story::BreakPage(const ParagraphLook& look, const TextLook& endLook, Budget& budget) {
    if (look.isInTable) {
        return; // a row cannot begin a sheet in its middle
    }
    if (!current_.runs.empty()) {
        EndParagraph(look, endLook, budget);
    }
    breaksPage_ = true;
}

void Story::End(const ParagraphLook& look, const TextLook& endLook, Budget& budget) {
    if (!current_.runs.empty()) {
        EndParagraph(look, endLook, budget);
    }
    if (row_.IsOpen()) {
        EndRow(budget);
    }
}

void Story::Insert(std::vector<Block> more) {
    for (Block& block : more) {
        auto* const paragraph = std::get_if<Paragraph>(&block.content);
        if (row_.IsOpen() && paragraph != nullptr) {
            row_.Add(std::move(*paragraph));
        } else {
            block.section = section;
            blocks.push_back(std::move(block));
        }
    }
}

} // namespace kaloria::viewer
