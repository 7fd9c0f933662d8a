// SPDX-License-Identifier: GPL-3.0-or-later
#include "application/thickness_table_reading.h"

#include "application/field_reader.h"
#include "data/field_check.h"
#include "engine/numeric_fault.h"

#include <fmt/format.h>

#include <algorithm>

namespace kaloria {

namespace {

/// Reads one table.
class TableReader {
public:
    TableReader(const Job& job, Catalogue& catalogue)
        : job_(job), plain_(job), catalogue_(catalogue), fields_(job) {}

    ThicknessTableReading Read() {
        ReadTemperatures();
        if (inputs_.HasColdColumn()) {
            inputs_.moisture = MoistureInput{job_.moisture, fields_.Needed(job_.moisture)};
        }
        PutAsideWhatIsNotUsed();
        ChooseVaryingLayer();
        ReadSizes();
        CheckGoal();
        ThicknessTableReading reading;
        if (!fields_.HasFailed()) {
            reading.inputs = std::move(inputs_);
        }
        reading.findings = std::move(fields_.findings);
        return reading;
    }

private:
    void ReadTemperatures() {
        const Units units = fields_.UnitsInForce();
        const double start = fields_.Needed(Field::ReportStartingTemperature);
        const double increment = fields_.Needed(Field::ReportTemperatureIncrement);
        ambient_ = fields_.Needed(Field::AmbientTemp);
        const bool usable = !fields_.HasFailed();
        int k = 0;
        for (TableColumn& column : inputs_.columns) {
            column.temp = Single(increment * ++k + start);
            column.value = FromEnglish(Quantity::temperature, units, column.temp);
            column.text = fmt::format("{} {}", FormatNumber(column.value, NumberFormat::whole),
                                      InfoOf(Quantity::temperature).Text(units));
            column.cold = usable && column.temp < ambient_;
            if (usable) {
                CheckRange(column, k);
            }
        }
        if (usable && increment == 0.0) {
            fields_.Warn(Field::ReportTemperatureIncrement,
                         "Without an increment all six temperatures are the same.");
        }
    }

    void CheckRange(const TableColumn& column, int number) {
        const JobField& process = InfoOf(Field::ProcessTemp);
        if (column.temp < process.low || column.temp > process.high) {
            fields_.Fail(Field::ReportTemperatureIncrement,
                         fmt::format("temperature {} would be {}, outside {}", number, column.text,
                                     RangeText(process, fields_.UnitsInForce())));
        }
    }

    /// Inputs that the reading of a case asks for and the table has no use for become harmless.
    void PutAsideWhatIsNotUsed() {
        const Job defaults(fields_.UnitsInForce());
        constexpr auto table = static_cast<std::size_t>(calculation_type::thicknessTable);
        plain_[Field::InsulationThicknessCalculationType] = calculationTypeNames[table];
        plain_[Field::ProcessTemp] = defaults[Field::ProcessTemp];
        if (!inputs_.HasHotColumn()) {
            plain_[Field::MaxSurfaceTemp] = defaults[Field::MaxSurfaceTemp];
        }
    }

    void ChooseVaryingLayer() {
        const auto varies = [](const JobLayer& layer) { return layer.locked == "Vary"; };
        if (std::any_of(plain_.layers.begin(), plain_.layers.end(), varies)) {
            return;
        }
        if (plain_.layers.size() == 1 && plain_.layers.front().locked == "Fix") {
            plain_.layers.front().locked = "Vary";
            fields_.Note(Severity::information, "Insulation.1",
                         "The thickness of the only layer is varied for the table, though it is fixed.");
        } else if (!plain_.layers.empty()) {
            fields_.Fail(Field::Insulation,
                         "one layer must be set to \"Vary\", the one whose thickness the table gives");
        }
    }

    void ReadSizes() {
        const auto* geometry = FindByName(catalogue_.SurfaceGeometries, job_[Field::SurfaceGeometry]);
        auto sizes = SizeTexts(catalogue_, geometry != nullptr ? geometry->ID : 0, job_.UnitsInForce());
        if (sizes.empty()) {
            sizes.push_back(job_[Field::PipeSize]); // reading it says what is wrong
        }
        for (const std::string& size : sizes) {
            plain_[Field::PipeSize] = size;
            CaseReading reading = ReadCase(plain_, catalogue_);
            for (Finding& finding : reading.findings) {
                AddNew(std::move(finding), size);
            }
            if (!reading.inputs) {
                return; // what is wrong is wrong for every size
            }
            reading.inputs->fuel.reset();
            inputs_.sizes.push_back(std::move(*reading.inputs));
        }
    }

    void AddNew(Finding finding, const std::string& size) {
        const auto known = [&](const Finding& other) {
            return other.subject == finding.subject && other.severity == finding.severity;
        };
        if (std::any_of(fields_.findings.begin(), fields_.findings.end(), known)) {
            return;
        }
        if (finding.severity == Severity::information) {
            finding.text = fmt::format("From size {} on: {}", size, finding.text);
        }
        fields_.findings.push_back(std::move(finding));
    }

    void CheckGoal() {
        if (!fields_.HasFailed() && inputs_.HasHotColumn() &&
            inputs_.sizes.front().maxSurfaceTemp <= ambient_) {
            fields_.Warn(Field::MaxSurfaceTemp,
                         "The air is as warm as the maximum surface temperature: no thickness keeps a hot "
                         "surface below it.");
        }
    }

    const Job& job_;
    Job plain_;
    Catalogue& catalogue_;
    FieldReader fields_;
    ThicknessTableInputs inputs_;
    float ambient_ = 0; // [degF]
};

} // namespace

bool ThicknessTableInputs::HasHotColumn() const {
    return std::any_of(columns.begin(), columns.end(), [](const TableColumn& c) { return !c.cold; });
}

bool ThicknessTableInputs::HasColdColumn() const {
    return std::any_of(columns.begin(), columns.end(), [](const TableColumn& c) { return c.cold; });
}

ThicknessTableReading ReadThicknessTable(const Job& job, Catalogue& catalogue) {
    return TableReader(job, catalogue).Read();
}

} // namespace kaloria
