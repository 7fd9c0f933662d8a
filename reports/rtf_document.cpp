// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/rtf_document.h"

#include "reports/rtf_characters.h"
#include "reports/rtf_tags.h"
#include "reports/rtf_text.h"

#include <utility>

namespace kaloria::rtf {

namespace {

/// @p escaped text where each \uN is followed by @p fallbackLength characters that readers pass over.
std::string WithFallbackOfOne(std::string escaped, int fallbackLength) {
    return fallbackLength == 1 || escaped.find("\\u") == std::string::npos ? std::move(escaped)
                                                                           : "{\\uc1 " + escaped + "}";
}

/// Puts together what there is to be read.
class PlainWriter {
public:
    void Add(const Piece& piece);
    [[nodiscard]] std::string Take() { return text_.Take(); }

private:
    void AddUnit(char32_t unit) {
        text_.Add(unit);
        startsLine_ = unit == '\n';
    }

    Utf8Builder text_;
    bool startsLine_ = true;
};

void PlainWriter::Add(const Piece& piece) {
    switch (piece.kind) {
    case Piece::Kind::character:
        AddUnit(piece.character);
        break;
    case Piece::Kind::tab:
    case Piece::Kind::cellEnd:
    case Piece::Kind::nestedCellEnd:
        AddUnit('\t');
        break;
    case Piece::Kind::lineBreak:
    case Piece::Kind::paragraphEnd:
    case Piece::Kind::sectionEnd:
    case Piece::Kind::rowEnd:
        AddUnit('\n');
        break;
    case Piece::Kind::storyBegin:
    case Piece::Kind::storyEnd:
        if (!startsLine_) {
            AddUnit('\n');
        }
        break;
    default:
        break;
    }
}

} // namespace

Document::Document(std::string bytes) : bytes_(std::move(bytes)) { CheckDocument(bytes_); }

std::vector<std::string> Document::Tags() const {
    TagSet tags;
    static_cast<void>(TagEdits(bytes_, [&](std::string_view tag, const Piece&, Edit&) {
        tags.emplace(tag);
        return false;
    }));
    return {tags.begin(), tags.end()};
}

void Document::Fill(const TagValues& values) {
    auto edits = TagEdits(bytes_, [&](std::string_view tag, const Piece& first, Edit& edit) {
        const auto value = values.find(tag);
        if (value == values.end()) {
            return false;
        }
        edit.text = WithFallbackOfOne(EscapedText(value->second), first.fallbackLength);
        return true;
    });
    bytes_ = Edited(bytes_, std::move(edits));
}

void Document::FillBlock(std::string_view tag, const Markup& block) {
    auto edits = TagEdits(bytes_, [&](std::string_view found, const Piece& first, Edit& edit) {
        if (found != tag) {
            return false;
        }
        if (block.IsTable() && first.isInTable) {
            throw FaultAtByte(bytes_, first.begin,
                              std::string(tag) + " is replaced by a table and cannot stand in a table");
        }
        edit.text = block.IsTable() && !first.startsParagraph ? "\\par " : "";
        edit.text += block.Rtf();
        return true;
    });
    bytes_ = Edited(bytes_, std::move(edits));
}

std::size_t Document::RemoveParagraphsWith(const TagSet& tags) {
    Removal removal = RemovalOf(bytes_, tags);
    bytes_ = Edited(bytes_, std::move(removal.edits));
    return removal.count;
}

std::string Document::PlainText(TextOf part) const {
    PlainWriter text;
    TextScanner scanner(bytes_);
    for (Piece piece = scanner.Next(); piece.kind != Piece::Kind::end; piece = scanner.Next()) {
        const bool isOfStory = !piece.isInBody || piece.kind == Piece::Kind::storyEnd;
        if (part == TextOf::everything || !isOfStory) {
            text.Add(piece);
        }
    }
    return text.Take();
}

} // namespace kaloria::rtf
