// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands.h"
#include "cli/text_table.h"
#include "data/number_format.h"

#include <nlohmann/json.hpp>

#include <functional>
#include <iostream>
#include <map>

namespace kaloria::cli {

namespace {

using nlohmann::json;

std::string Text(double value) { return FormatNumber(value, NumberFormat::shortest); }
std::string YesNo(bool value) { return value ? "True" : "False"; }

TextTable Insulations(CApplication& application) {
    TextTable table{{{{"ID"}, true},
                     {{"Name"}},
                     {{"Active"}},
                     {{"Created By"}},
                     {{"Type"}, true},
                     {{"Min Temp (°F)"}, true},
                     {{"Max Temp (°F)"}, true},
                     {{"Points"}, true},
                     {{"k at 75 °F (BTU*in/hr*sf*°F)"}, true}},
                    {}};
    for (const CInsulation& record : application.Insulations()) {
        CInsulation fitted = record.Copy();
        std::string conductivity = "-";
        try {
            if (!fitted.TemperaturePoints.empty()) {
                fitted.CalculateQuadratic();
            }
            conductivity = FormatNumber(fitted.ConductivityAt(75.0), NumberFormat::thousandths);
        } catch (const NumericFault&) {
            conductivity = "-"; // points that determine no curve
        }
        table.rows.push_back({std::to_string(record.ID), record.Name, YesNo(record.Active), record.CreatedBy,
                              std::to_string(record.InsulationType), Text(record.MinTemp),
                              Text(record.MaxTemp), std::to_string(record.TemperaturePoints.size()),
                              conductivity});
    }
    return table;
}

template <class Records>
TextTable Surfaces(const Records& records) {
    TextTable table{{{{"ID"}, true}, {{"Name"}}, {{"Active"}}, {{"Created By"}}, {{"Emittance"}, true}}, {}};
    for (const auto& record : records) {
        table.rows.push_back({std::to_string(record.ID), record.Name, YesNo(record.Active), record.CreatedBy,
                              FormatNumber(record.Emittance, NumberFormat::hundredths)});
    }
    return table;
}

TextTable Fuels(CApplication& application) {
    TextTable table{{{{"ID"}, true},
                     {{"Name"}},
                     {{"Active"}},
                     {{"Created By"}},
                     {{"Cost"}, true},
                     {{"Cost Units"}},
                     {{"BTU"}, true},
                     {{"BTU Units"}},
                     {{"Efficiency (%)"}, true},
                     {{"Pollutants (lb/10^6 Btu)"}}},
                    {}};
    for (const CFuel& fuel : application.Fuels()) {
        std::string pollutants;
        for (const CPollutant& pollutant : fuel.Pollutants) {
            pollutants += (pollutants.empty() ? "" : ", ") + pollutant.Name + " " + Text(pollutant.Amount);
        }
        table.rows.push_back({std::to_string(fuel.ID), fuel.Name, YesNo(fuel.Active), fuel.CreatedBy,
                              Text(fuel.Cost), fuel.CostUnits, Text(fuel.BTU), fuel.BTUUnits,
                              Text(fuel.ConversionEfficiency), pollutants});
    }
    return table;
}

TextTable Geometries(CApplication& application) {
    TextTable table{{{{"ID"}, true}, {{"Name"}}}, {}};
    for (const CSurfaceGeometry& geometry : application.SurfaceGeometries()) {
        table.rows.push_back({std::to_string(geometry.ID), geometry.Name});
    }
    return table;
}

TextTable Pipes(CApplication& application) {
    TextTable table{{{{"ID"}, true},
                     {{"NPS"}, true},
                     {{"DN"}, true},
                     {{"European"}, true},
                     {{"OD (in)"}, true},
                     {{"OD (mm)"}, true},
                     {{"Wall (in)"}, true},
                     {{"Wall (mm)"}, true}},
                    {}};
    for (const CPipe& pipe : application.Pipes()) {
        table.rows.push_back({std::to_string(pipe.ID), Text(pipe.USNPS), Text(pipe.USMetric),
                              Text(pipe.European), Text(pipe.ActualPipeSizeInches),
                              Text(pipe.ActualPipeSizemm), Text(pipe.WallThicknessInches),
                              Text(pipe.WallThicknessmm)});
    }
    return table;
}

TextTable Tubes(CApplication& application) {
    TextTable table{{{{"ID"}, true}, {{"NTS"}, true}, {{"OD (in)"}, true}, {{"Wall (in)"}, true}}, {}};
    for (const CTube& tube : application.Tubes()) {
        table.rows.push_back({std::to_string(tube.ID), Text(tube.USNTS), Text(tube.ActualTubeSizeInches),
                              Text(tube.WallThicknessInches)});
    }
    return table;
}

/// Cells of right-aligned columns are numbers where they can be.
json JsonOf(const TextTable& table) {
    json list = json::array();
    for (const auto& row : table.rows) {
        json object = json::object();
        for (std::size_t i = 0; i < table.columns.size(); ++i) {
            const json number = table.columns[i].right ? json::parse(row[i], nullptr, false) : json();
            object[table.columns[i].headings.front()] = number.is_number() ? number : json(row[i]);
        }
        list.push_back(std::move(object));
    }
    return list;
}

} // namespace

int RunList(const ListOptions& options, Workplace& workplace) {
    const std::map<std::string, std::function<TextTable(CApplication&)>> lists{
        {"insulations", Insulations},
        {"base-metals", [](CApplication& a) { return Surfaces(a.BaseMetals()); }},
        {"jackets", [](CApplication& a) { return Surfaces(a.JacketMaterials()); }},
        {"fuels", Fuels},
        {"geometries", Geometries},
        {"pipes", Pipes},
        {"tubes", Tubes},
    };
    if (!workplace.hasCatalogue) {
        return exitMisused;
    }
    const TextTable table = lists.at(options.what)(workplace.application);
    switch (options.format) {
    case Format::json:
        std::cout << JsonOf(table).dump(2) << '\n';
        break;
    case Format::csv:
        table.PrintCsv(std::cout);
        break;
    case Format::table:
        table.Print(std::cout);
        break;
    }
    return exitDone;
}

} // namespace kaloria::cli
