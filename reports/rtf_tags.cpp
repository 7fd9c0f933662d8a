// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/rtf_tags.h"

#include <utility>

namespace kaloria::rtf {

namespace {

constexpr std::size_t longestTag = 64;

bool MayStandInName(char32_t c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '/';
}

Edit Deletion(const Piece& piece) { return {piece.begin, piece.end, {}, piece.followsBareWord}; }

/// Adds to deletions in the order of the document. One that follows the last without a gap extends it: a long
/// paragraph is a few of them, not one for each character.
void AddDeletion(std::vector<Edit>& deletions, Edit deletion) {
    if (!deletions.empty() && deletions.back().end == deletion.begin) {
        deletions.back().end = deletion.end;
    } else {
        deletions.push_back(std::move(deletion));
    }
}

void AddDeletions(std::vector<Edit>& deletions, const std::vector<Edit>& more) {
    for (const Edit& deletion : more) {
        AddDeletion(deletions, deletion);
    }
}

} // namespace

std::string_view TagMatcher::Feed(const Piece& piece) {
    if (isComplete_ || piece.IsBreak() || piece.character == '<' || text_.size() == longestTag) {
        Clear();
    }
    const bool goesOn = text_.empty() ? piece.character == '<' && !piece.IsBreak()
                                      : MayStandInName(piece.character) || piece.character == '>';
    if (!goesOn) {
        Clear();
        return {};
    }
    text_ += static_cast<char>(piece.character);
    pieces_.push_back(piece);
    isComplete_ = text_.ends_with("/>") && text_.find('/') == text_.size() - 2 && text_.size() > 3;
    return isComplete_ ? text_ : std::string_view();
}

void TagMatcher::Clear() {
    text_.clear();
    pieces_.clear();
    isComplete_ = false;
}

std::vector<Edit> TagEdits(std::string_view bytes, const TagFiller& fill) {
    std::vector<Edit> edits;
    TextScanner scanner(bytes);
    TagMatcher matcher;
    for (Piece piece = scanner.Next(); piece.kind != Piece::Kind::end; piece = scanner.Next()) {
        const std::string_view tag = matcher.Feed(piece);
        if (tag.empty()) {
            continue;
        }
        Edit first = Deletion(matcher.Pieces().front());
        if (!fill(tag, matcher.Pieces().front(), first)) {
            continue;
        }
        edits.push_back(std::move(first));
        for (std::size_t i = 1; i < matcher.Pieces().size(); ++i) {
            edits.push_back(Deletion(matcher.Pieces()[i]));
        }
    }
    return edits;
}

namespace {

/// Goes through a text and gathers what to take out. A header, a footnote or a text box inside it is looked
/// at for itself, so the paragraphs being read form a stack.
class Remover {
public:
    Remover(std::string_view bytes, const TagSet& tags) : bytes_(bytes), tags_(tags) { open_.emplace_back(); }

    [[nodiscard]] Removal Run() &&;

private:
    struct Story {
        std::vector<Edit> paragraph; ///< deletes all that the paragraph has shown so far
        bool hasTag = false;
        std::vector<Edit> row; ///< the same of the table row, without its paragraph
        bool rowHasTag = false;
        std::size_t cellParagraphs = 0; ///< that stay, before the current one
        Edit lastEnd;                   ///< of the paragraph before in the cell, when it stays
    };

    void Take(const Piece& piece);
    void EndParagraph(const Piece& end);
    void EndCell(const Piece& end);
    void EndRow(const Piece& end);
    void EndTextOnly();
    void StartParagraph();
    void Delete(const std::vector<Edit>& edits);
    [[nodiscard]] Story& Top() { return open_.back(); }

    std::string_view bytes_;
    const TagSet& tags_;
    std::vector<Story> open_;
    Removal removal_;
};

Removal Remover::Run() && {
    TextScanner scanner(bytes_);
    TagMatcher matcher;
    for (Piece piece = scanner.Next(); piece.kind != Piece::Kind::end; piece = scanner.Next()) {
        const std::string_view tag = matcher.Feed(piece);
        Top().hasTag = Top().hasTag || (!tag.empty() && tags_.contains(tag));
        Take(piece);
    }
    EndTextOnly();
    return std::move(removal_);
}

void Remover::Take(const Piece& piece) {
    switch (piece.kind) {
    case Piece::Kind::storyBegin:
        open_.emplace_back();
        break;
    case Piece::Kind::storyEnd:
        EndTextOnly();
        open_.pop_back();
        break;
    case Piece::Kind::paragraphEnd:
        EndParagraph(piece);
        break;
    case Piece::Kind::cellEnd:
        EndCell(piece);
        break;
    case Piece::Kind::rowEnd:
        EndRow(piece);
        break;
    case Piece::Kind::rowFormat:
        // A row's cells without the row would be taken for the start of another.
        AddDeletion(Top().row, Deletion(piece));
        break;
    case Piece::Kind::sectionEnd:
    case Piece::Kind::nestedCellEnd:
        EndTextOnly();
        break;
    default:
        AddDeletion(Top().paragraph, Deletion(piece));
    }
}

void Remover::EndParagraph(const Piece& end) {
    Story& story = Top();
    AddDeletion(story.paragraph, Deletion(end));
    if (story.hasTag) {
        Delete(story.paragraph);
    } else {
        ++story.cellParagraphs;
        story.lastEnd = Deletion(end);
    }
    if (end.isInTable) {
        AddDeletions(story.row, story.paragraph);
    } else {
        story.row.clear();
        story.rowHasTag = false;
        story.cellParagraphs = 0;
    }
    StartParagraph();
}

/// The end of a cell cannot go without its row, the end of the paragraph before can.
void Remover::EndCell(const Piece& end) {
    Story& story = Top();
    if (story.hasTag && story.cellParagraphs == 0) {
        story.rowHasTag = true;
    } else if (story.hasTag) {
        removal_.edits.push_back(story.lastEnd);
        Delete(story.paragraph);
    }
    AddDeletion(story.paragraph, Deletion(end));
    AddDeletions(story.row, story.paragraph);
    story.cellParagraphs = 0;
    StartParagraph();
}

void Remover::EndRow(const Piece& end) {
    Story& story = Top();
    AddDeletions(story.row, story.paragraph);
    AddDeletion(story.row, Deletion(end));
    if (story.rowHasTag) {
        Delete(story.row);
    }
    story.row.clear();
    story.rowHasTag = false;
    StartParagraph();
}

/// A paragraph whose end has to stay, as that of a section or of a header.
void Remover::EndTextOnly() {
    if (Top().hasTag) {
        Delete(Top().paragraph);
    }
    StartParagraph();
}

void Remover::StartParagraph() {
    Top().paragraph.clear();
    Top().hasTag = false;
}

void Remover::Delete(const std::vector<Edit>& edits) {
    removal_.edits.insert(removal_.edits.end(), edits.begin(), edits.end());
    ++removal_.count;
}

} // namespace

Removal RemovalOf(std::string_view bytes, const TagSet& tags) { return Remover(bytes, tags).Run(); }

} // namespace kaloria::rtf
