// SPDX-License-Identifier: GPL-3.0-or-later
#include "application/comparison.h"
#include "application/program_folder.h"
#include "cli/commands.h"

#include <CLI/CLI.hpp>

#include <exception>
#include <iostream>
#include <map>

namespace {

using namespace kaloria::cli;
using kaloria::ChooseProgramFolder;
using kaloria::ProgramPlaces;

void AddFormat(CLI::App& command, Format& format) {
    static const std::map<std::string, Format> names{
        {"table", Format::table}, {"csv", Format::csv}, {"json", Format::json}};
    command.add_option("--format", format, "How to print: table, csv or json")
        ->transform(CLI::CheckedTransformer(names))
        ->option_text("FORMAT");
}

/// What is changed in a job before it is used.
void AddChanges(CLI::App& command, JobOptions& options) {
    command
        .add_option(
            "--set", options.sets,
            "Set an input by its element name, before the units are switched; repeat for more. Layers: "
            "Insulation.2=NAME, Insulation.2.Thickness=2, Insulation.1.Locked=Vary")
        ->option_text("FIELD=VALUE")
        ->allow_extra_args(false);
    command.add_option("--units", options.units, "Switch the job to english or si units")
        ->check(CLI::IsMember({"english", "si"}));
}

void AddJob(CLI::App& command, JobOptions& options) {
    command.add_option("job", options.job, "Job file (default: the default job)")->option_text("JOB");
    AddChanges(command, options);
}

void AddAnalysis(CLI::App& command, AnalysisOptions& options) {
    AddJob(command, options);
    command
        .add_option("--items", options.items,
                    "Sizes and surfaces by position, such as 6,12-15,27, or all: 1 to 26 are the pipe sizes, "
                    "27 to 29 "
                    "the vertical, top and bottom flat surfaces (default: as the job has it)")
        ->option_text("LIST");
    command
        .add_option("--layout", options.layout,
                    "tables: the economic thickness at six temperatures; engineering: every thickness at one")
        ->check(CLI::IsMember({"tables", "engineering"}));
    command.add_option("--import-costs", options.importCosts, "Use the installed costs of this file")
        ->option_text("FILE");
}

void AddEconomics(CLI::App& command, EconomicsOptions& options) {
    AddAnalysis(command, options);
    command.add_option("--export-costs", options.exportCosts, "Write the installed costs to this file")
        ->option_text("FILE");
    AddFormat(command, options.format);
}

CLI::Option* AddOutput(CLI::App& command, std::filesystem::path& file, const std::string& help) {
    return command.add_option("-o,--output", file, help)->option_text("FILE");
}

void AddReport(CLI::App& command, ReportOptions& options) {
    AddAnalysis(command, options);
    command.add_option("--kind", options.kind, "economic or environmental")
        ->check(CLI::IsMember({"economic", "environmental"}));
    AddOutput(command, options.file, "The report, a rich-text file; replaced when it is there")->required();
}

void AddCompare(CLI::App& command, CompareOptions& options) {
    command
        .add_option("jobs", options.jobs, "Job files, two to six; the first is what the others differ from")
        ->required()
        ->expected(2, static_cast<int>(kaloria::mostKeptCases))
        ->option_text("JOB JOB...");
    AddChanges(command, options);
    command
        .add_option("--thickness", options.thickness,
                    "Compare at the nominal thickness nearest to this one, in or mm, in place of the design "
                    "thickness")
        ->option_text("T");
    AddFormat(command, options.format);
    AddOutput(command, options.file, "Write the comparison to this .xlsx or .csv file instead of printing it")
        ->check([](const std::string& file) {
            const auto suffix = std::filesystem::path(file).extension();
            return suffix == ".xlsx" || suffix == ".csv" ? std::string() : "write FILE.xlsx or FILE.csv";
        });
}

/// Everything the command line can say.
struct Arguments {
    std::string programFolder;
    CalculateOptions calculate;
    CompareOptions compare;
    AuditOptions audit;
    ThicknessTableOptions thicknessTable;
    EconomicsOptions economics;
    ReportOptions report;
    ShortReportOptions shortReport;
    ValidateOptions validate;
    ListOptions list;
    CheckOptions check;
    CLI::App* calculateCommand = nullptr;
    CLI::App* compareCommand = nullptr;
    CLI::App* auditCommand = nullptr;
    CLI::App* thicknessTableCommand = nullptr;
    CLI::App* economicsCommand = nullptr;
    CLI::App* reportCommand = nullptr;
    CLI::App* shortReportCommand = nullptr;
    CLI::App* solveCommand = nullptr;
    CLI::App* validateCommand = nullptr;
    CLI::App* listCommand = nullptr;
    CLI::App* checkCommand = nullptr;

    void AddTo(CLI::App& app) {
        app.add_option("--program-folder", programFolder,
                       "Folder of configuration, default job and other files (default: beside the program)");
        calculateCommand = app.add_subcommand("calculate", "Calculate a job and print its results");
        AddJob(*calculateCommand, calculate);
        AddFormat(*calculateCommand, calculate.format);
        compareCommand = app.add_subcommand("compare", "Calculate jobs and print them side by side");
        AddCompare(*compareCommand, compare);
        auditCommand = app.add_subcommand("audit", "Calculate a job and append it to an audit file");
        AddJob(*auditCommand, audit);
        auditCommand->add_option("--append", audit.file, "The audit file; created when it is missing")
            ->required()
            ->option_text("FILE");
        thicknessTableCommand = app.add_subcommand(
            "thickness-table", "Thickness that every pipe or tube size needs at six temperatures");
        AddJob(*thicknessTableCommand, thicknessTable);
        thicknessTableCommand->add_flag("--dimensions", thicknessTable.dimensions,
                                        "Print the dimensions of all insulation made for the sizes instead");
        AddFormat(*thicknessTableCommand, thicknessTable.format);
        AddOutput(*thicknessTableCommand, thicknessTable.file,
                  "Write the table to this rich-text file instead of printing it");
        economicsCommand = app.add_subcommand(
            "economics", "Installed costs, paybacks, economic thickness and emissions of a job");
        AddEconomics(*economicsCommand, economics);
        reportCommand =
            app.add_subcommand("report", "Economic or environmental report of a job, as a rich-text file");
        AddReport(*reportCommand, report);
        shortReportCommand =
            app.add_subcommand("short-report", "Calculate a job and report it as a rich-text file");
        AddJob(*shortReportCommand, shortReport);
        AddOutput(*shortReportCommand, shortReport.file, "The report; replaced when it is there")->required();
        solveCommand = app.add_subcommand("solve", "Solve raw engine cases, JSON Lines in and out");
        validateCommand = app.add_subcommand("validate", "Compare the engine with published results");
        validateCommand->add_option("--cases", validate.cases, "File of cases (default: those that ship)");
        AddFormat(*validateCommand, validate.format);
        listCommand = app.add_subcommand("list", "List reference data");
        listCommand
            ->add_option("what", list.what,
                         "insulations, base-metals, jackets, fuels, geometries, pipes, tubes")
            ->required()
            ->check(CLI::IsMember(
                {"insulations", "base-metals", "jackets", "fuels", "geometries", "pipes", "tubes"}));
        AddFormat(*listCommand, list.format);
        checkCommand =
            app.add_subcommand("check", "Say what is wrong in a job, configuration, ratio or cost file");
        checkCommand->add_option("file", check.file, "The file")->required()->option_text("FILE");
    }
};

std::filesystem::path ProgramFolder(const Arguments& arguments) {
    ErrorStream log;
    return arguments.programFolder.empty() ? ChooseProgramFolder(ProgramPlaces::OfThisProcess(), log)
                                           : std::filesystem::path(arguments.programFolder);
}

int Run(const Arguments& arguments) {
    if (arguments.solveCommand->parsed()) {
        return RunSolve();
    }
    const std::filesystem::path folder = ProgramFolder(arguments);
    if (arguments.validateCommand->parsed()) {
        return RunValidate(arguments.validate, folder);
    }
    if (arguments.checkCommand->parsed()) {
        return RunCheck(arguments.check, folder);
    }
    Workplace workplace(folder);
    if (arguments.compareCommand->parsed()) {
        return RunCompare(arguments.compare, workplace);
    }
    if (arguments.auditCommand->parsed()) {
        return RunAudit(arguments.audit, workplace);
    }
    if (arguments.thicknessTableCommand->parsed()) {
        return RunThicknessTable(arguments.thicknessTable, workplace);
    }
    if (arguments.economicsCommand->parsed()) {
        return RunEconomics(arguments.economics, workplace);
    }
    if (arguments.reportCommand->parsed()) {
        return RunReport(arguments.report, workplace);
    }
    if (arguments.shortReportCommand->parsed()) {
        return RunShortReport(arguments.shortReport, workplace);
    }
    return arguments.listCommand->parsed() ? RunList(arguments.list, workplace)
                                           : RunCalculate(arguments.calculate, workplace);
}

} // namespace

int main(int argc, char** argv) {
    try {
        CLI::App app("Kaloria: heat loss, surface temperatures and thickness of industrial insulation",
                     "kaloria-cli");
        app.set_version_flag("--version", "kaloria-cli " KALORIA_VERSION);
        app.require_subcommand(1);
        Arguments arguments;
        arguments.AddTo(app);
        try {
            app.parse(argc, argv);
        } catch (const CLI::ParseError& error) {
            return app.exit(error) == 0 ? exitDone : exitMisused;
        }
        return Run(arguments);
    } catch (const std::exception& error) {
        std::cerr << "kaloria-cli: " << error.what() << '\n';
        return exitMisused;
    }
}
