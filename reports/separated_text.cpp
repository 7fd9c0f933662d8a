// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/separated_text.h"

#include "engine/number_text.h"

#include <fmt/format.h>

#include <algorithm>

namespace kaloria::separated_text {

std::vector<std::string_view> Lines(std::string_view text) {
    constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF"; // spreadsheets write one
    if (text.starts_with(byteOrderMark)) {
        text.remove_prefix(byteOrderMark.size());
    }
    std::vector<std::string_view> lines;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        lines.push_back(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    while (!lines.empty() && Trimmed(lines.back()).empty()) {
        lines.pop_back();
    }
    return lines;
}

std::vector<std::string_view> Fields(std::string_view line, std::size_t most) {
    std::vector<std::string_view> fields;
    for (bool more = true; more && fields.size() <= most;) {
        const std::size_t comma = line.find(',');
        more = comma != std::string_view::npos;
        fields.push_back(Trimmed(line.substr(0, comma)));
        line.remove_prefix(more ? comma + 1 : line.size());
    }
    return fields;
}

std::string NotANumber(std::string_view field) {
    if (field.empty()) {
        return "empty, a number is expected";
    }
    constexpr std::size_t longest = 24;
    std::string shown(field.substr(0, longest));
    std::replace_if(
        shown.begin(), shown.end(), [](char c) { return c < ' ' || c > '~'; }, '?');
    return fmt::format("\"{}{}\" is not a number that fits", shown, field.size() > longest ? "..." : "");
}

} // namespace kaloria::separated_text
