// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tests/support/temporary_folder.h"

#include <filesystem>

namespace kaloria::test {

/// A program folder of a test's own, with everything that ships.
class ProgramCopy {
public:
    ProgramCopy() {
        namespace fs = std::filesystem;
        for (const auto& entry : fs::recursive_directory_iterator(KALORIA_RESOURCES_DIR)) {
            const fs::path inside = fs::relative(entry.path(), KALORIA_RESOURCES_DIR);
            if (*inside.begin() != "source" && entry.is_regular_file()) {
                fs::create_directories((Path() / inside).parent_path());
                fs::copy_file(entry.path(), Path() / inside);
            }
        }
    }

    [[nodiscard]] std::filesystem::path Path() const { return folder_ / "program"; }
    [[nodiscard]] std::filesystem::path Scratch(const char* name) const { return folder_ / name; }

private:
    TemporaryFolder folder_;
};

} // namespace kaloria::test
