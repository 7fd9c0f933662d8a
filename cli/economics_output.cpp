// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/economics_output.h"

#include "cli/findings_output.h"
#include "cli/text_table.h"
#include "data/number_format.h"

#include <fmt/format.h>

#include <ostream>

namespace kaloria::cli {

namespace {

/// A column of a report: its figure of a thickness, in English units.
struct Column {
    std::string name;
    Quantity quantity;
    NumberFormat format;
    std::optional<double> (*value)(const ThicknessResult& row);
};

template <class Figure>
std::optional<double> IfSolved(const ThicknessResult& row, Figure figure) {
    return row.IsSolved() ? std::optional<double>(figure(row)) : std::nullopt;
}

template <class Figure>
std::optional<double> OfMoney(const ThicknessResult& row, Figure figure) {
    return row.money ? std::optional<double>(figure(*row.money)) : std::nullopt;
}

std::vector<Column> ColumnsOf(bool isPipe, bool gain) {
    const SurfaceQuantities quantities(isPipe);
    using N = NumberFormat;
    using Row = ThicknessResult;
    return {
        {gain ? "Heat Gain" : "Heat Loss", quantities.flow, N::hundredths,
         [](const Row& row) { return IfSolved(row, [](const Row& r) { return std::abs(r.heatFlow); }); }},
        {"Surface Temp", Quantity::temperature, N::tenths,
         [](const Row& row) { return IfSolved(row, [](const Row& r) { return r.surfaceTemp; }); }},
        {"Installed Cost", quantities.price, N::hundredths,
         [](const Row& row) {
             return row.installedCost ? std::optional<double>(*row.installedCost) : std::nullopt;
         }},
        {"Annual Cost", quantities.yearlyMoney, N::hundredths,
         [](const Row& row) { return IfSolved(row, [](const Row& r) { return r.annualCost; }); }},
        {"Payback", Quantity::years, N::hundredths,
         [](const Row& row) { return OfMoney(row, [](const MoneyResult& m) { return m.payback.years; }); }},
        {"Total Savings", quantities.yearlyMoney, N::hundredths,
         [](const Row& row) { return OfMoney(row, [](const MoneyResult& m) { return m.totalSavings; }); }},
    };
}

/// The cost curve, shown with every thickness.
std::vector<Column> CurveColumnsOf(bool isPipe) {
    const Quantity money = SurfaceQuantities(isPipe).yearlyMoney;
    const auto ofCurve = NumberFormat::hundredths;
    using Row = ThicknessResult;
    return {
        {"Capital", money, ofCurve,
         [](const Row& row) { return row.curve ? std::optional(row.curve->capital) : std::nullopt; }},
        {"Energy", money, ofCurve,
         [](const Row& row) { return row.curve ? std::optional(row.curve->energy) : std::nullopt; }},
        {"Total Cost", money, ofCurve,
         [](const Row& row) { return row.curve ? std::optional(row.curve->Total()) : std::nullopt; }},
    };
}

std::string UnitOf(Quantity quantity, Units units) {
    return fmt::format("({})", InfoOf(quantity).Text(units));
}

/// Prints one report.
class Printer {
public:
    Printer(const EconomicsResult& result, const CReport& report, std::ostream& out)
        : units_(result.units), report_(report), analysis_(*report.Analysis()), out_(out) {}

    void PrintInputs() {
        const ReportInputs& inputs = report_.Inputs;
        const EconomicFigures& money = analysis_.figures;
        out_ << "Economic Analysis\n\n";
        Line("Insulation:", inputs.insulation.Name);
        Line("Jacket material:", inputs.jacket.Name);
        Line("Ambient temp.:", With(Quantity::temperature, inputs.ambientTemp, NumberFormat::tenths));
        Line("Wind speed:", With(Quantity::windSpeed, inputs.windSpeed, NumberFormat::tenths));
        if (inputs.dewPoint) {
            Line("Dew point:", With(Quantity::temperature, *inputs.dewPoint, NumberFormat::tenths));
        }
        Line("Fuel:", fmt::format("{}, {}", inputs.fuel.Name, FuelCostText()));
        Line("Conversion efficiency:", With(Quantity::percent, money.efficiency, NumberFormat::tenths));
        Line("Annual operation:", With(Quantity::hoursPerYear, money.hoursPerYear, NumberFormat::whole));
        Line("Reference:", ReferenceText());
    }

    void PrintTables(const SurfaceResult& surface) {
        bool gain = true;
        for (const TemperatureResult& step : surface.temperatures) {
            gain = gain && step.rows.front().heatFlow < 0.0F;
        }
        out_ << '\n' << surface.name << ": economic thickness\n\n";
        auto columns = ColumnsOf(surface.isPipe, gain);
        TextTable table =
            TableOf({{"Temperature", Quantity::temperature}, {"Thickness", Quantity::length}}, columns);
        TextTable reductions = ReductionTable({"Temperature", Quantity::temperature}, surface.isPipe);
        std::vector<std::string> notes;
        for (const TemperatureResult& step : surface.temperatures) {
            const std::string temp = Number(Quantity::temperature, step.temperature, NumberFormat::tenths);
            const ThicknessResult* row = step.Economic();
            table.rows.push_back({temp, row != nullptr ? ThicknessText(*row) : "-"});
            AddCells(table.rows.back(), columns, row);
            AddReductions(reductions, temp, row, surface.isPipe);
            if (step.outcome != EconomicOutcome::found) {
                notes.push_back(fmt::format("{} {}: {}.", temp, InfoOf(Quantity::temperature).Text(units_),
                                            TextOf(step.outcome)));
            }
        }
        Finish(table, reductions, notes);
    }

    void PrintEveryThickness(const SurfaceResult& surface, const TemperatureResult& step) {
        out_ << '\n'
             << surface.name << " at " << With(Quantity::temperature, step.temperature, NumberFormat::tenths)
             << "\n\n";
        auto columns = ColumnsOf(surface.isPipe, step.rows.front().heatFlow < 0.0F);
        for (Column& column : CurveColumnsOf(surface.isPipe)) {
            columns.push_back(std::move(column));
        }
        TextTable table = TableOf({{"Thickness", Quantity::length}, {"Layers", Quantity::none}}, columns);
        table.columns.push_back({});
        TextTable reductions = ReductionTable({"Thickness", Quantity::length}, surface.isPipe);
        for (std::size_t i = 0; i < step.rows.size(); ++i) {
            const ThicknessResult& row = step.rows[i];
            if (!row.made) {
                continue;
            }
            table.rows.push_back({ThicknessText(row), row.layers > 0 ? std::to_string(row.layers) : ""});
            AddCells(table.rows.back(), columns, &row);
            table.rows.back().push_back(
                fmt::format("{}{}", step.economic == i ? "<" : "", row.wet ? " wet" : ""));
            if (row.money) {
                AddReductions(reductions, ThicknessText(row), &row, surface.isPipe);
            }
        }
        std::vector<std::string> notes;
        if (const ThicknessResult* economic = step.Economic()) {
            notes.push_back(fmt::format("Economic thickness: {} {}", ThicknessText(*economic),
                                        InfoOf(Quantity::length).Text(units_)));
        }
        if (step.outcome != EconomicOutcome::found) {
            notes.push_back(fmt::format("{}.", TextOf(step.outcome)));
        }
        Finish(table, reductions, notes);
    }

private:
    struct Leading {
        std::string name;
        Quantity quantity;
    };

    void Line(const std::string& caption, const std::string& text) {
        out_ << fmt::format("{:<24}{}\n", caption, text);
    }

    [[nodiscard]] std::string Number(Quantity quantity, double value, NumberFormat format) const {
        return FormatNumber(FromEnglish(quantity, units_, value), format);
    }

    [[nodiscard]] std::string With(Quantity quantity, double value, NumberFormat format) const {
        return fmt::format("{} {}", Number(quantity, value, format), InfoOf(quantity).Text(units_));
    }

    [[nodiscard]] std::string FuelCostText() const {
        const double perMillionBtu = analysis_.figures.unitFuelCost * 1e6;
        constexpr double millionBtuPerGigajoule = 1.0 / 1.05587;
        return units_ == Units::si
                   ? fmt::format("{} $/GJ", FormatFixed(perMillionBtu * millionBtuPerGigajoule, 3))
                   : fmt::format("{} $/MMBtu", FormatFixed(perMillionBtu, 3));
    }

    [[nodiscard]] std::string ReferenceText() const {
        const ReportInputs& inputs = report_.Inputs;
        if (inputs.existing) {
            return "Do Nothing (existing insulation)";
        }
        return inputs.referenceThickness > 0.0F
                   ? With(Quantity::length, inputs.referenceThickness, NumberFormat::tenths)
                   : "Bare";
    }

    [[nodiscard]] std::string ThicknessText(const ThicknessResult& row) const {
        if (row.nominal > 0.0F) {
            return Number(Quantity::length, row.nominal, NumberFormat::tenths);
        }
        return report_.Inputs.existing ? "Do Nothing" : "Bare";
    }

    [[nodiscard]] TextTable TableOf(const std::vector<Leading>& leading,
                                    const std::vector<Column>& columns) const {
        TextTable table;
        for (const Leading& column : leading) {
            table.columns.push_back(
                {{column.name, column.quantity == Quantity::none ? "" : UnitOf(column.quantity, units_)},
                 true});
        }
        for (const Column& column : columns) {
            table.columns.push_back({{column.name, UnitOf(column.quantity, units_)}, true});
        }
        return table;
    }

    [[nodiscard]] TextTable ReductionTable(const Leading& leading, bool isPipe) const {
        TextTable table = TableOf({leading}, {});
        for (const CPollutant& pollutant : report_.Inputs.fuel.Pollutants) {
            table.columns.push_back(
                {{pollutant.Name, UnitOf(SurfaceQuantities(isPipe).emission, units_)}, true});
        }
        return table;
    }

    void AddCells(std::vector<std::string>& cells, const std::vector<Column>& columns,
                  const ThicknessResult* row) {
        for (const Column& column : columns) {
            cells.push_back(row != nullptr ? CellOf(column, *row) : "-");
        }
    }

    std::string CellOf(const Column& column, const ThicknessResult& row) {
        const auto value = column.value(row);
        if (!value) {
            return "-";
        }
        const bool isStandIn = column.quantity == Quantity::years && row.money->payback.Flag();
        anyFlag_ = anyFlag_ || isStandIn;
        return Number(column.quantity, *value, column.format) + (isStandIn ? "*" : "");
    }

    void AddReductions(TextTable& table, const std::string& leading, const ThicknessResult* row,
                       bool isPipe) const {
        auto& cells = table.rows.emplace_back();
        cells.push_back(leading);
        for (std::size_t i = 0; i < report_.Inputs.fuel.Pollutants.size(); ++i) {
            cells.push_back(row != nullptr && row->money
                                ? Number(SurfaceQuantities(isPipe).emission, row->money->reductions[i],
                                         NumberFormat::thousandths)
                                : "-");
        }
    }

    void Finish(const TextTable& table, const TextTable& reductions, const std::vector<std::string>& notes) {
        table.Print(out_);
        if (anyFlag_) {
            out_ << "* not paid back within three depreciation periods of the insulation\n";
            anyFlag_ = false;
        }
        for (const std::string& note : notes) {
            out_ << (&note == notes.data() ? "\n" : "") << note << '\n';
        }
        if (!report_.Inputs.fuel.Pollutants.empty() && !reductions.rows.empty()) {
            out_ << "\nReduction of emissions\n\n";
            reductions.Print(out_);
        }
    }

    Units units_;
    const CReport& report_;
    const EconomicAnalysis& analysis_;
    std::ostream& out_;
    bool anyFlag_ = false;
};

/// The figures of a row in CSV, the curve too.
std::vector<Column> CsvColumnsOf(bool isPipe) {
    auto columns = ColumnsOf(isPipe, false);
    for (Column& column : CurveColumnsOf(isPipe)) {
        columns.push_back(std::move(column));
    }
    return columns;
}

TextTable CsvHeadings(Units units, const CFuel& fuel) {
    TextTable table;
    const auto add = [&](std::string name, std::string unit) {
        table.columns.push_back({{std::move(name)}});
        if (!unit.empty()) {
            table.columns.back().headings.push_back(std::move(unit));
        }
    };
    add("Position", "");
    add("Item", "");
    add("Basis", "");
    add("Temperature", UnitOf(Quantity::temperature, units));
    add("Thickness", UnitOf(Quantity::length, units));
    add("Layers", "");
    for (const Column& column : CsvColumnsOf(true)) {
        const bool perBasis = column.quantity != Quantity::temperature && column.quantity != Quantity::years;
        add(column.name, perBasis ? "(per basis)" : UnitOf(column.quantity, units));
    }
    for (const CPollutant& pollutant : fuel.Pollutants) {
        add(pollutant.Name + " Reduction", "(per basis)");
    }
    add("Economic", "");
    return table;
}

std::vector<std::string> CsvCells(const SurfaceResult& surface, const TemperatureResult& step,
                                  const ThicknessResult& row, Units units, const CFuel& fuel) {
    const SurfaceQuantities quantities(surface.isPipe);
    const auto number = [&](Quantity quantity, double value) {
        return FormatNumber(FromEnglish(quantity, units, value), NumberFormat::shortest);
    };
    std::vector<std::string> cells{std::to_string(surface.position),
                                   surface.name,
                                   std::string(InfoOf(quantities.flow).Text(units)),
                                   number(Quantity::temperature, step.temperature),
                                   number(Quantity::length, row.nominal),
                                   std::to_string(row.layers)};
    for (const Column& column : CsvColumnsOf(surface.isPipe)) {
        const auto value = column.value(row);
        cells.push_back(value ? number(column.quantity, *value) : "");
    }
    for (std::size_t i = 0; i < fuel.Pollutants.size(); ++i) {
        cells.push_back(row.money ? number(quantities.emission, row.money->reductions[i]) : "");
    }
    cells.emplace_back(step.Economic() == &row ? "1" : "");
    return cells;
}

} // namespace

void PrintEconomics(const EconomicsResult& result, const CReport& report, std::ostream& out) {
    Printer printer(result, report, out);
    printer.PrintInputs();
    for (const SurfaceResult& surface : report.Analysis()->surfaces) {
        if (report.Inputs.engineering) {
            for (const TemperatureResult& step : surface.temperatures) {
                printer.PrintEveryThickness(surface, step);
            }
        } else {
            printer.PrintTables(surface);
        }
    }
    PrintFindings(result.findings, out);
}

void PrintEconomicsCsv(const EconomicsResult& result, const CReport& report, std::ostream& out) {
    TextTable table = CsvHeadings(result.units, report.Inputs.fuel);
    for (const SurfaceResult& surface : report.Analysis()->surfaces) {
        for (const TemperatureResult& step : surface.temperatures) {
            for (const ThicknessResult& row : step.rows) {
                if (row.made) {
                    table.rows.push_back(CsvCells(surface, step, row, result.units, report.Inputs.fuel));
                }
            }
        }
    }
    table.PrintCsv(out);
}

} // namespace kaloria::cli
