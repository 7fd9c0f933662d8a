// SPDX-License-Identifier: GPL-3.0-or-later
#include "application/table_report.h"
#include "cli/commands.h"
#include "cli/findings_output.h"
#include "cli/thickness_table_output.h"
#include "engine/surface_geometry.h"

#include <nlohmann/json.hpp>

#include <iostream>

namespace kaloria::cli {

namespace {

void PrintJson(const nlohmann::json& object) {
    std::cout << object.dump(2, ' ', false, nlohmann::json::error_handler_t::replace) << '\n';
}

int PrintDimensions(CApplication& application, const ThicknessTableOptions& options) {
    const Job& job = application.CurrentJob();
    const auto* const shape = FindByName(application.SurfaceGeometries(), job[Field::SurfaceGeometry]);
    if (shape == nullptr || !geometry::IsCylinder(shape->ID)) {
        std::cerr << "kaloria-cli: only pipes and tubes have a table of insulation\n";
        return exitNotComputed;
    }
    const Units units = job.UnitsInForce();
    const auto sizes = CoveringTable(application.Records(), shape->ID, units);
    if (!options.file.empty()) {
        return ExportCoverings(application, sizes, options.file) ? exitDone : exitMisused;
    }
    if (options.format == Format::json) {
        PrintJson(ToJson(sizes, units));
    } else if (options.format == Format::csv) {
        PrintCoveringsCsv(sizes, units, std::cout);
    } else {
        PrintCoverings(sizes, units, std::cout);
    }
    return exitDone;
}

void Print(const ThicknessTable& table, Format format) {
    if (format == Format::json) {
        PrintJson(ToJson(table));
    } else if (!table.done) {
        return;
    } else if (format == Format::csv) {
        PrintThicknessTableCsv(table, std::cout);
    } else {
        PrintThicknessTable(table, std::cout);
    }
}

} // namespace

int RunThicknessTable(const ThicknessTableOptions& options, Workplace& workplace) {
    if (!OpenJob(options, workplace)) {
        return exitMisused;
    }
    CApplication& application = workplace.application;
    if (options.dimensions) {
        return PrintDimensions(application, options);
    }
    const ThicknessTable table = MakeThicknessTable(application.CurrentJob(), application.Records());
    if (!table.done || !options.file.empty() || options.format != Format::table) {
        Complain(table.findings); // the printed table has them below it
    }
    if (options.file.empty()) {
        Print(table, options.format);
    } else if (table.done && !ExportThicknessTable(application, table, options.file)) {
        return exitMisused;
    }
    return HasErrors(table.findings) || !table.done ? exitNotComputed : exitDone;
}

} // namespace kaloria::cli
