// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "reports/rtf_document.h"
#include "reports/rtf_merge.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace kaloria::rtf {

/// The line that stands after every page of a report, the last one included: printing page by page goes from
/// one to the next.
inline constexpr std::string_view pageSeparator =
    "-----------------------------------------------------------------";

/// Binds filled pages, each a document of its own, to one report.
///
/// Each page starts a section, and thereby a new sheet, with the paper size, margins, header and footer that
/// its own template has: a wide table may lie across, and a page without a header goes on with the one before
/// it, the first page's if none has its own. Pages are numbered through. Fonts, colours, styles and lists are
/// merged, so that pages which were written by different word processors keep their looks; what belongs to
/// the document as a whole (author, defaults) is the first page's.
class Binder {
public:
    explicit Binder(const Document& first);

    void Append(const Document& page);

    /// The whole report.
    [[nodiscard]] std::string Bytes() const;

private:
    void AppendSeparator(const Document& page);

    std::string first_;
    std::size_t firstEnd_; ///< of its text
    MergedTables tables_;
    std::string more_; ///< what comes behind the text of the first; ends in an open paragraph
};

} // namespace kaloria::rtf
