// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

namespace kaloria::test {

/// The 140 lines of a small ratio file of round numbers: two thicknesses, labor 10 on pipe and 20 flat, and
/// for each of the types 1 to 4 material 0.5 and none on pipe, 0.25 and 1 flat.
inline std::vector<std::string> RatioLines() {
    std::vector<std::string> lines{"1,2"};
    lines.insert(lines.end(), 26, "10,10");
    lines.emplace_back("20,20");
    for (const char* const type : {"1", "2", "3", "4"}) {
        lines.emplace_back(type);
        lines.insert(lines.end(), 26, "0.5,0");
        lines.emplace_back("0.25,1");
    }
    return lines;
}

inline std::string Joined(const std::vector<std::string>& lines, const std::string& end = "\n") {
    std::string text;
    for (const std::string& line : lines) {
        text += line + end;
    }
    return text;
}

/// @p text @p count times with commas between.
inline std::string Repeated(const std::string& text, int count) {
    std::string line = text;
    for (int i = 1; i < count; ++i) {
        line += "," + text;
    }
    return line;
}

} // namespace kaloria::test
