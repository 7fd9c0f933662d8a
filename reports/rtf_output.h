// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "reports/rtf_token.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace kaloria::rtf {

/// Puts markup together. Where a control word that no blank ends comes before something that it would swallow
/// or run into, as after the text between them was taken out, it puts a blank.
class Output {
public:
    void Reserve(std::size_t size) { text_.reserve(size); }
    [[nodiscard]] std::size_t Size() const { return text_.size(); }

    /// Bytes that do not end in a bare word, or about which MarkBare says so.
    void Put(std::string_view bytes);
    void PutToken(std::string_view bytes, const Token& token);
    /// The word with another number, ended as it was.
    void PutWord(const Token& word, int value);
    void MarkBare() { isBare_ = true; }

    [[nodiscard]] std::string Take();

private:
    std::string text_;
    bool isBare_ = false; ///< ends in a bare word
};

/// Bytes [begin, end) of a document to be replaced.
struct Edit {
    std::size_t begin = 0;
    std::size_t end = 0;
    std::string text; ///< does not end in a bare word
    bool followsBareWord = false;
};

/// The document with the edits made, in whatever order they come. What one of them deletes is gone; of two
/// that put text in the same place the first counts.
/// @throws FileFault when the result is too large
[[nodiscard]] std::string Edited(std::string_view bytes, std::vector<Edit> edits);

} // namespace kaloria::rtf
