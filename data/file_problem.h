// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <stdexcept>
#include <string>
#include <utility>

namespace kaloria {

/// What is wrong in a file that was read, and where.
struct FileProblem {
    int line = 0; ///< from 1; 0 when it concerns the file as a whole
    std::string text;
};

/// Carries a FileProblem out of the depths of a reader. The public functions of the file modules catch it and
/// hand out the problem as a value.
class FileFault : public std::runtime_error {
public:
    explicit FileFault(FileProblem problem)
        : std::runtime_error(problem.text), problem_(std::move(problem)) {}

    [[nodiscard]] const FileProblem& Problem() const { return problem_; }

private:
    FileProblem problem_;
};

} // namespace kaloria
