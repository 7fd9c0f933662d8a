// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "data/file_problem.h"
#include "reports/rtf_markup.h"
#include "reports/rtf_token.h"

#include <cstddef>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace kaloria::rtf {

/// Tags with their brackets ("<CompanyName/>") and the UTF-8 texts that take their places.
using TagValues = std::map<std::string, std::string, std::less<>>;

/// Tags with their brackets.
using TagSet = std::set<std::string, std::less<>>;

/// A rich-text document, as a template is read from a file and its tags are filled in. Unchanged it is
/// written with the bytes that it was read from.
///
/// A tag is found wherever it reads as one, in the text, in headers and footers, footnotes and text boxes,
/// also when a word processor has split it by formatting, bookmarks or escapes. It gets the formatting of its
/// first character.
class Document {
public:
    /// @throws FileFault with the line of the error, and its byte in the text
    explicit Document(std::string bytes);

    [[nodiscard]] const std::string& Bytes() const { return bytes_; }

    /// The tags that stand in the document, each once, sorted.
    [[nodiscard]] std::vector<std::string> Tags() const;

    /// Fills in every occurrence of the tags; others stay. All in one go: a value that reads as a tag is not
    /// filled in again.
    /// @throws FileFault when it would become larger than a document may be; then nothing is changed
    void Fill(const TagValues& values);

    /// Puts a block of markup in the place of every occurrence of a tag. A table starts a line of its own.
    /// @throws FileFault  as Fill; when a table would come to stand in a cell of another
    void FillBlock(std::string_view tag, const Markup& block);

    /// Takes out each paragraph with one of the tags, for an optional line that is not there. In a table,
    /// when the tag's paragraph is all that its cell holds, the whole row. A paragraph whose end has to stay,
    /// as the last of a header, is left empty.
    /// @returns how many were taken out
    std::size_t RemoveParagraphsWith(const TagSet& tags);

    enum class TextOf {
        body,
        everything, ///< headers, footers, footnotes and text boxes too, each on lines of its own
    };
    /// What there is to be read, in UTF-8: a line per paragraph and per row, tabs between the cells.
    [[nodiscard]] std::string PlainText(TextOf part = TextOf::body) const;

private:
    std::string bytes_;
};

} // namespace kaloria::rtf
