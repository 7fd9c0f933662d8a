// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/rtf_output.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

namespace kaloria::rtf {

namespace {

/// Whether @p c right behind a control word would be taken for a part of it.
bool Joins(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '-' || c == ' ';
}

} // namespace

void Output::Put(std::string_view bytes) {
    if (bytes.empty()) {
        return;
    }
    if (isBare_ && Joins(bytes.front())) {
        text_ += ' ';
    }
    text_ += bytes;
    isBare_ = false;
}

void Output::PutToken(std::string_view bytes, const Token& token) {
    Put(bytes.substr(token.begin, token.end - token.begin));
    isBare_ = token.isBare;
}

void Output::PutWord(const Token& word, int value) {
    Put(fmt::format("\\{}{}{}", word.name, value, word.isBare ? "" : " "));
    isBare_ = word.isBare;
}

std::string Output::Take() {
    isBare_ = false;
    return std::exchange(text_, {});
}

std::string Edited(std::string_view bytes, std::vector<Edit> edits) {
    std::stable_sort(edits.begin(), edits.end(),
                     [](const Edit& left, const Edit& right) { return left.begin < right.begin; });
    Output out;
    out.Reserve(bytes.size());
    std::size_t at = 0;
    for (const Edit& edit : edits) {
        if (edit.begin < at) {
            at = edit.text.empty() ? std::max(at, edit.end) : at;
            continue;
        }
        out.Put(bytes.substr(at, edit.begin - at));
        if (edit.begin > at && edit.followsBareWord) {
            out.MarkBare();
        }
        out.Put(edit.text);
        at = edit.end;
        if (out.Size() > maxBytes) {
            throw FileFault({0, fmt::format("filled in, it would be larger than {} bytes", maxBytes)});
        }
    }
    out.Put(bytes.substr(at));
    return out.Take();
}

} // namespace kaloria::rtf
