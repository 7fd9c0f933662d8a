// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/rtf_binder.h"

#include "reports/rtf_page.h"
#include "reports/rtf_text.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>

namespace kaloria::rtf {

namespace {

/// Whether text stands behind the last paragraph that the document ends.
bool EndsInOpenParagraph(const Document& page) {
    bool isOpen = false;
    TextScanner scanner(page.Bytes());
    for (Piece piece = scanner.Next(); piece.kind != Piece::Kind::end; piece = scanner.Next()) {
        if (piece.isInBody && piece.kind < Piece::Kind::rowFormat) {
            isOpen = piece.kind < Piece::Kind::paragraphEnd;
        }
    }
    return isOpen;
}

} // namespace

Binder::Binder(const Document& first)
    : first_(first.Bytes()), firstEnd_(CheckDocument(first_)), tables_(first_) {
    AppendSeparator(first);
}

void Binder::Append(const Document& page) {
    // It ends the paragraph of the separator; a \par before it would leave an empty line, and on a full sheet
    // an empty sheet.
    more_ += "\\sect\n";
    more_ += SectionOf(page.Bytes(), tables_);
    AppendSeparator(page);
}

void Binder::AppendSeparator(const Document& page) {
    more_ += EndsInOpenParagraph(page) ? "\\par\n" : "\n";
    more_ += "\\pard\\plain\\fs12 ";
    more_ += pageSeparator;
}

std::string Binder::Bytes() const { return tables_.Grown(first_, firstEnd_) + more_ + "\\par}\n"; }

} // namespace kaloria::rtf
