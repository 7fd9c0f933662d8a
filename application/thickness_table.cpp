// SPDX-License-Identifier: GPL-3.0-or-later
#include "application/thickness_table.h"

#include "application/calculate.h"
#include "application/condensation.h"
#include "application/report_panel.h"
#include "application/results_grid.h"
#include "application/thickness_table_reading.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>

namespace kaloria {

namespace {

constexpr const char* noThickness = "-";

/// Sizes of one column of which something has to be said.
struct SizesSaid {
    std::size_t count = 0;
    std::string first; ///< size
    std::string text;

    void Add(const std::string& size, const std::string& what = {}) {
        if (count++ == 0) {
            first = size;
            text = what;
        }
    }
};

/// Makes one table.
class TableMaker {
public:
    explicit TableMaker(ThicknessTableInputs inputs) : inputs_(std::move(inputs)) {}

    ThicknessTable Make() {
        if (inputs_.moisture && !ReadDewPoint()) {
            return std::move(table_);
        }
        table_.done = true;
        table_.units = inputs_.sizes.front().units;
        table_.title = PanelTitle(calculation_type::thicknessTable);
        table_.columns = inputs_.columns;
        if (inputs_.HasHotColumn()) {
            table_.maxSurfaceTemp = inputs_.sizes.front().maxSurfaceTemp;
        }
        FillPanel();
        for (const CaseInputs& size : inputs_.sizes) {
            table_.rows.push_back({size.sizeText, {}});
        }
        for (const TableColumn& column : inputs_.columns) {
            SolveColumn(column);
        }
        return std::move(table_);
    }

private:
    void Note(Severity severity, std::string text) {
        table_.findings.push_back({severity, "", std::move(text)});
    }

    bool ReadDewPoint() {
        MoistureReading reading =
            ReadMoisture(*inputs_.moisture, inputs_.sizes.front().ambientTemp, calculator_);
        table_.condensation = reading.condensation;
        table_.findings = std::move(reading.findings);
        return table_.condensation.has_value();
    }

    void FillPanel() {
        table_.panel = BuildPanel(inputs_.sizes.front(), table_.condensation, {});
        std::erase_if(table_.panel, [](const PanelLine& line) {
            return line.control == "lblPipeSize" || line.control == "lblProcessTemp";
        });
        if (table_.maxSurfaceTemp) {
            const double shown = FromEnglish(Quantity::temperature, table_.units, *table_.maxSurfaceTemp);
            table_.panel.push_back({"lblMaxSurfaceTemp", "Maximum Surface Temp:",
                                    fmt::format("{} {}", FormatNumber(shown, NumberFormat::tenths),
                                                InfoOf(Quantity::temperature).Text(table_.units))});
        }
    }

    /// The thickness of each size at one temperature: what a calculation of that case gives as its design
    /// thickness.
    void SolveColumn(const TableColumn& column) {
        std::optional<float> dewPoint;
        if (table_.condensation) {
            dewPoint = table_.condensation->dewPoint;
        }
        chosen_.clear();
        faults_ = {};
        unsettled_ = {};
        missing_ = false;
        for (std::size_t i = 0; i < inputs_.sizes.size(); ++i) {
            CaseInputs& inputs = inputs_.sizes[i];
            inputs.processTemp = column.temp;
            inputs.calculationType =
                column.cold ? calculation_type::condensationControl : calculation_type::personnelProtection;
            const auto meetsGoal = [&](const SolvedRow& row) { return MeetsGoal(row, inputs, dewPoint); };
            const auto rows = SolveInsulatedRows(inputs, calculator_, meetsGoal);
            const bool found = !rows.empty() && meetsGoal(rows.back());
            const bool faulty = Watch(rows, inputs);
            missing_ = missing_ || (faulty && !found);
            AddCell(table_.rows[i], found ? &rows.back() : nullptr);
        }
        Report(column);
    }

    void AddCell(TableRow& row, const SolvedRow* solved) {
        TableCell& cell = row.cells.emplace_back();
        cell.text = noThickness;
        if (solved != nullptr) {
            cell.thickness = *solved->nominal;
            cell.text = ThicknessText(*cell.thickness);
            chosen_.push_back(*solved);
        }
    }

    /// Notes what went wrong on the way to a thickness; true when a row had no solution.
    bool Watch(const std::vector<SolvedRow>& rows, const CaseInputs& inputs) {
        const auto fault =
            std::find_if(rows.begin(), rows.end(), [](const SolvedRow& row) { return !row.IsSolved(); });
        if (fault != rows.end()) {
            faults_.Add(inputs.sizeText,
                        fmt::format("{} {}: {}", ThicknessText(*fault->nominal),
                                    InfoOf(Quantity::length).Text(inputs.units), fault->fault));
        }
        if (std::any_of(rows.begin(), rows.end(), [](const SolvedRow& r) { return r.stoppedBySafeguard; })) {
            unsettled_.Add(inputs.sizeText);
        }
        return fault != rows.end();
    }

    void Report(const TableColumn& column) {
        if (faults_.count > 0) {
            Note(missing_ ? Severity::error : Severity::warning,
                 fmt::format("At {} there are thicknesses without a result on {} of {} sizes, the first on "
                             "size {}, {}.",
                             column.text, faults_.count, table_.rows.size(), faults_.first, faults_.text));
        }
        if (unsettled_.count > 0) {
            Note(Severity::warning,
                 fmt::format("At {} the iteration did not come to rest for a thickness on {} of {} sizes, "
                             "the first on size {}: answers alternate there, and one of them was taken.",
                             column.text, unsettled_.count, table_.rows.size(), unsettled_.first));
        }
        for (SolvedRow& row : chosen_) {
            row.stoppedBySafeguard = false; // said already
        }
        for (Finding& finding : CheckRows(inputs_.sizes.front(), chosen_)) {
            finding.text = fmt::format("At {}: {}", column.text, finding.text);
            table_.findings.push_back(std::move(finding));
        }
    }

    ThicknessTableInputs inputs_;
    CHeatLossCalculator calculator_;
    ThicknessTable table_;
    // Of the column that is being solved:
    std::vector<SolvedRow> chosen_;
    SizesSaid faults_;
    SizesSaid unsettled_;
    bool missing_ = false; // a cell stayed empty that a row without a solution might have filled
};

} // namespace

ThicknessTable MakeThicknessTable(const Job& job, Catalogue& catalogue) {
    ThicknessTableReading reading = ReadThicknessTable(job, catalogue);
    ThicknessTable table;
    if (reading.inputs) {
        table = TableMaker(std::move(*reading.inputs)).Make();
    }
    table.findings.insert(table.findings.begin(), std::make_move_iterator(reading.findings.begin()),
                          std::make_move_iterator(reading.findings.end()));
    return table;
}

} // namespace kaloria
