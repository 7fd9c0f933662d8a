// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "application/application.h"
#include "application/economics.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

/// The commands of kaloria-cli: results to standard output, complaints to standard error. One options struct
/// and one function per command.
namespace kaloria::cli {

/// What a command ends with.
enum ExitCode : int {
    exitDone = 0,
    exitNotComputed = 1, ///< the case could not be computed
    exitMisused = 2,     ///< bad arguments or files
};

/// How results are printed.
enum class Format { table, csv, json };

/// Messages as lines on standard error.
class ErrorStream final : public MessageSink {
public:
    void Show(std::string_view text) override;
    void Log(std::string_view detail) override;
};

/// The application with its reference data, as every command needs it.
struct Workplace {
    explicit Workplace(const std::filesystem::path& programFolder);

    ErrorStream errors;
    CApplication application;
    bool hasCatalogue = false; ///< the configuration file was read whole
};

/// Which job, and what is changed in it before it is used.
struct JobOptions {
    std::filesystem::path job;     ///< empty: the default job
    std::vector<std::string> sets; ///< FIELD=VALUE, in order
    std::string units;             ///< "english", "si" or empty: as the job has them
};

/// Opens the job and applies the changes; false after a complaint.
[[nodiscard]] bool OpenJob(const JobOptions& options, Workplace& workplace);

struct CalculateOptions : JobOptions {
    Format format = Format::table;
};
[[nodiscard]] int RunCalculate(const CalculateOptions& options, Workplace& workplace);

struct CompareOptions : JobOptions {
    std::vector<std::filesystem::path> jobs; ///< two to mostKeptCases
    std::optional<double> thickness; ///< nominal, to compare at [in or mm]; none: the design thickness
    Format format = Format::table;
    std::filesystem::path file; ///< .csv or .xlsx, replaced by the comparison; empty: it is printed
};
/// Calculates jobs and puts them side by side.
[[nodiscard]] int RunCompare(const CompareOptions& options, Workplace& workplace);

struct AuditOptions : JobOptions {
    std::filesystem::path file; ///< that receives the line
};
/// Calculates the job and appends it to the audit file; a case without an answer is not appended.
[[nodiscard]] int RunAudit(const AuditOptions& options, Workplace& workplace);

struct ThicknessTableOptions : JobOptions {
    bool dimensions = false; ///< the dimensions of all coverings instead
    Format format = Format::table;
    std::filesystem::path file; ///< that is replaced by the table as rich text; empty: it is printed
};
[[nodiscard]] int RunThicknessTable(const ThicknessTableOptions& options, Workplace& workplace);

/// What an economic analysis of the job is asked for.
struct AnalysisOptions : JobOptions {
    std::optional<std::string> items;  ///< positions; none: as the job has it
    std::string layout;                ///< "tables", "engineering" or empty: as the job has it
    std::filesystem::path importCosts; ///< file of installed costs to be used; empty: the job's source
};

/// The request of the options; nothing after a complaint.
[[nodiscard]] std::optional<EconomicsRequest> RequestOf(const AnalysisOptions& options);

struct EconomicsOptions : AnalysisOptions {
    std::filesystem::path exportCosts; ///< file to receive the installed costs; empty: none
    Format format = Format::table;
};
[[nodiscard]] int RunEconomics(const EconomicsOptions& options, Workplace& workplace);

struct ReportOptions : AnalysisOptions {
    std::string kind = "economic"; ///< or "environmental"
    std::filesystem::path file;    ///< that is replaced by the report
};
[[nodiscard]] int RunReport(const ReportOptions& options, Workplace& workplace);

struct ShortReportOptions : JobOptions {
    std::filesystem::path file; ///< that is replaced by the report
};
/// Calculates the job and writes the short report of it.
[[nodiscard]] int RunShortReport(const ShortReportOptions& options, Workplace& workplace);

/// JSON Lines of raw engine cases from standard input.
[[nodiscard]] int RunSolve();

struct ValidateOptions {
    std::filesystem::path cases; ///< empty: the published cases that ship with the program
    Format format = Format::table;
};
[[nodiscard]] int RunValidate(const ValidateOptions& options, const std::filesystem::path& programFolder);

struct ListOptions {
    std::string what;
    Format format = Format::table;
};
[[nodiscard]] int RunList(const ListOptions& options, Workplace& workplace);

struct CheckOptions {
    std::filesystem::path file;
};
[[nodiscard]] int RunCheck(const CheckOptions& options, const std::filesystem::path& programFolder);

} // namespace kaloria::cli
