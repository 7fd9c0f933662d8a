// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "reports/rtf_document.h"
#include "reports/rtf_output.h"
#include "reports/rtf_text.h"

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

/// Tags, the placeholders of a template: "<CompanyName/>". A word processor may have split one over runs,
/// groups and escapes; what counts is that it reads as one in one paragraph.
namespace kaloria::rtf {

/// Finds tags in the pieces of a text, handed to it one after another.
class TagMatcher {
public:
    /// @returns the tag that @p piece completes, empty when it completes none; good until the next call
    [[nodiscard]] std::string_view Feed(const Piece& piece);

    /// Those of the tag just completed.
    [[nodiscard]] const std::vector<Piece>& Pieces() const { return pieces_; }

private:
    void Clear();

    std::string text_;
    std::vector<Piece> pieces_;
    bool isComplete_ = false;
};

/// Says what comes in a tag's place: puts it into the edit and returns true, or false to leave the tag there.
using TagFiller = std::function<bool(std::string_view tag, const Piece& first, Edit& edit)>;

/// The edits that fill tags. What comes in the place of a tag gets the formatting of its first character.
[[nodiscard]] std::vector<Edit> TagEdits(std::string_view bytes, const TagFiller& fill);

/// The edits that take out each paragraph with one of the tags, or the table row when it is all that a cell
/// holds.
struct Removal {
    std::vector<Edit> edits;
    std::size_t count = 0; ///< of paragraphs and rows
};
[[nodiscard]] Removal RemovalOf(std::string_view bytes, const TagSet& tags);

} // namespace kaloria::rtf
