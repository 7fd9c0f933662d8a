// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "data/xml_document.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <utility>
#include <vector>

namespace kaloria {

/// Gathers what a check finds in a document. Nobody reads thousands of problems, and a hostile file could
/// have millions, so that the list ends with a remark when it is full.
class ProblemList {
public:
    explicit ProblemList(const XmlDocument& document) : document_(document) {}

    void Add(pugi::xml_node place, std::string text) {
        if (problems_.size() < most) {
            problems_.push_back({document_.LineOf(place), std::move(text)});
        } else {
            isFull_ = true;
        }
    }

    /// In the order of the file's lines.
    [[nodiscard]] std::vector<FileProblem> Sorted() {
        std::stable_sort(problems_.begin(), problems_.end(),
                         [](const FileProblem& a, const FileProblem& b) { return a.line < b.line; });
        if (isFull_) {
            problems_.push_back({0, "there are more problems; the rest is not listed"});
        }
        return std::move(problems_);
    }

private:
    static constexpr std::size_t most = 1000;

    const XmlDocument& document_;
    std::vector<FileProblem> problems_;
    bool isFull_ = false;
};

} // namespace kaloria
