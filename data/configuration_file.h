// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "data/catalogue.h"
#include "data/file_problem.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

/// The configuration file: the reference data of the program, an XML document of sections of records (see
/// data/record_tables.h). The functions named ...Text work on the file's bytes.
namespace kaloria {

/// Appends the records of the file to @p catalogue (which is not emptied first) and sets its header texts.
///
/// Stops at the first thing that is not as it should be and returns it; what was read before stays. The root
/// element must be the first node of the document: behind a declaration or a comment no records are found,
/// which is no failure.
[[nodiscard]] std::optional<FileProblem> LoadConfiguration(const std::filesystem::path& path,
                                                           Catalogue& catalogue);
[[nodiscard]] std::optional<FileProblem> LoadConfigurationText(std::string bytes, Catalogue& catalogue);

/// Replaces the user's insulations, base metals, jacket materials and fuels in the file by those of
/// @p catalogue; everything else in the file stays, above all the system records.
///
/// Returns what prevented it; the file is then as it was. A file that does not load whole is never written
/// to: the catalogue then lacks records that the file still has, and saving would delete them.
[[nodiscard]] std::optional<FileProblem> SaveConfiguration(const std::filesystem::path& path,
                                                           const Catalogue& catalogue);

/// The new text of a file whose text is @p bytes.
/// @throws FileFault
[[nodiscard]] std::string SavedConfigurationText(std::string bytes, const Catalogue& catalogue);

/// The user's records alone, as text to be compared.
/// @throws FileFault for a record that cannot be written
[[nodiscard]] std::string UserRecordsText(const Catalogue& catalogue);

/// The text of the file without the user's records: equal texts are the same supplied data.
/// @throws FileFault
[[nodiscard]] std::string SystemConfigurationText(std::string bytes);

struct RenewedConfiguration {
    std::string text;
    std::vector<std::string> leftOut; ///< newer system records that the user's stand in the way of, named
};

/// What ships in @p shipped with the user's records of @p mine behind it. A new system record whose `ID` or
/// name already belongs to one of the user's is left out, so that every job keeps the records it was made
/// with.
/// @throws FileFault when either does not load whole
[[nodiscard]] RenewedConfiguration RenewedConfigurationText(std::string shipped, std::string mine);

/// Everything wrong or doubtful in the file, in the order of its lines.
[[nodiscard]] std::vector<FileProblem> CheckConfiguration(const std::filesystem::path& path);
[[nodiscard]] std::vector<FileProblem> CheckConfigurationText(std::string bytes);

} // namespace kaloria
