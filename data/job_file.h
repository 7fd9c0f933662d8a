// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "data/catalogue.h"
#include "data/file_problem.h"
#include "data/job.h"

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

/// The job file: an XML document whose root "Job" holds one element for each field, in the order of the field
/// table. The functions named ...Text work on the file's bytes.
namespace kaloria {

/// The attribute `Version` of the files written, and the only one that is read.
inline constexpr std::string_view jobVersion = "4";

/// How opening a job went.
struct JobLoad {
    enum class Kind {
        done,
        notFound,     ///< no such file; the job is unchanged
        wrongVersion, ///< not exactly jobVersion; the job is unchanged
        failed,       ///< what was read before the failure stays in the job
    };
    Kind kind = Kind::done;
    FileProblem problem; ///< what was wrong, unless done
};

/// Sets the fields of @p job that the file has; the others stay. The first row of the layer build-up in the
/// file clears the rows of the job.
///
/// A row whose `ID` the catalogue does not have is kept and marked as missing. Elements of unknown names and
/// comments are ignored; of an element that stands there twice the last one counts.
[[nodiscard]] JobLoad LoadJob(const std::filesystem::path& path, const Catalogue& catalogue, Job& job);
[[nodiscard]] JobLoad LoadJobText(std::string bytes, const Catalogue& catalogue, Job& job);

/// Replaces the file, read-only or not, by this job. A material is written as the `ID` of the first record of
/// its name; one that is missing from the catalogue keeps the `ID` that it came with.
/// @throws FileError; the old file is then as it was
void SaveJob(const std::filesystem::path& path, const Job& job, const Catalogue& catalogue);
[[nodiscard]] std::string JobText(const Job& job, const Catalogue& catalogue);

/// Everything wrong or doubtful in a job file, in the order of its lines.
[[nodiscard]] std::vector<FileProblem> CheckJob(const std::filesystem::path& path,
                                                const Catalogue& catalogue);
[[nodiscard]] std::vector<FileProblem> CheckJobText(std::string bytes, const Catalogue& catalogue);

} // namespace kaloria
