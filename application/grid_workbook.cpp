// SPDX-License-Identifier: GPL-3.0-or-later
#include "application/grid_export.h"
#include "application/layer_rules.h"
#include "application/visible_fields.h"
#include "application/workbook.h"
#include "engine/number_text.h"

#include <fmt/format.h>

namespace kaloria {

namespace {

constexpr CellStyle heading{NumberFormat::shortest, true, false, false};
constexpr CellStyle rightHeading{NumberFormat::shortest, true, false, true};

void WriteResults(Workbook& book, const ResultsGrid& grid) {
    std::uint16_t column = 0;
    for (const ResultColumn& head : grid.columns) {
        const CellStyle style = column == 0 ? heading : rightHeading;
        book.Write(0, column, Trimmed(head.name), style);
        book.Write(1, column, Trimmed(head.unit), style);
        ++column;
    }
    std::uint32_t line = 2;
    for (const ResultRow& row : grid.rows) {
        const CellStyle label{NumberFormat::shortest, false, row.isDesign, false};
        if (row.thickness) {
            book.Write(line, 0, *row.thickness, label);
        } else {
            book.Write(line, 0, row.label, label);
        }
        for (std::size_t i = 0; i < row.cells.size(); ++i) {
            const CellStyle style{grid.columns.at(i + 1).format, false, row.isDesign, true};
            const auto at = static_cast<std::uint16_t>(i + 1);
            if (row.cells[i].value) {
                book.Write(line, at, *row.cells[i].value, style);
            } else {
                book.Write(line, at, row.cells[i].text, style);
            }
        }
        ++line;
    }
    book.Freeze(2, 1);
}

/// Writes the sheet of the case, line by line.
class CaseSheet {
public:
    CaseSheet(Workbook& book, const Job& job, const Catalogue& catalogue)
        : book_(book), job_(job), catalogue_(catalogue) {}

    void Write(const CalculationResult& result) {
        Line(result.title);
        Pair("Calculation", job_[Field::InsulationThicknessCalculationType], "");
        Pair("Units", job_[Field::Units], "");
        if (!result.design.label.empty()) {
            Pair(result.design.label, result.design.text, "");
        }
        ++line_;
        Line("Inputs");
        WriteFields();
        ++line_;
        WriteLayers();
        WriteFindings(result.findings);
    }

private:
    void Line(std::string_view text) { book_.Write(line_++, 0, text, heading); }

    void Pair(std::string_view label, std::string_view text, std::string_view unit) {
        book_.Write(line_, 0, label);
        Value(1, text);
        book_.Write(line_++, 2, unit);
    }

    void Value(std::uint16_t column, std::string_view text) {
        const CellStyle right{NumberFormat::shortest, false, false, true};
        if (const auto number = ParseNumber(text)) {
            book_.Write(line_, column, *number, right);
        } else {
            book_.Write(line_, column, text);
        }
    }

    void WriteFields() {
        for (const JobField& field : JobFields()) {
            const bool ofCase = field.group == FieldGroup::surface || field.group == FieldGroup::fuel;
            const bool told = field.id == Field::InsulationThicknessCalculationType;
            if (ofCase && !told && IsShown(field.id, job_, catalogue_) && IsInUse(field.id, job_)) {
                const bool isText = field.kind == FieldKind::text;
                book_.Write(line_, 0, PlainLabelOf(field.id, job_, catalogue_));
                if (isText) {
                    book_.Write(line_, 1, job_[field.id]);
                } else {
                    Value(1, job_[field.id]);
                }
                book_.Write(line_++, 2, PlainUnitOf(field.id, job_, catalogue_));
            }
        }
    }

    void WriteLayers() {
        std::uint16_t column = 0;
        for (const std::string_view text :
             {std::string_view("#"), std::string_view("Type"), std::string_view("Name"),
              std::string_view("Lock Thickness"), LayerThicknessHeading(job_.UnitsInForce())}) {
            book_.Write(line_, column++, text, heading);
        }
        ++line_;
        for (std::size_t row = baseRow; row <= JacketRow(job_); ++row) {
            const LayerRowTexts texts = LayerRow(job_, row);
            Value(0, texts.number);
            book_.Write(line_, 1, texts.type);
            book_.Write(line_, 2, texts.name);
            book_.Write(line_, 3, texts.locked);
            Value(4, texts.thickness);
            ++line_;
        }
    }

    void WriteFindings(const std::vector<Finding>& findings) {
        if (findings.empty()) {
            return;
        }
        ++line_;
        Line("Notes");
        for (const Finding& finding : findings) {
            const std::string_view severity = finding.severity == Severity::error     ? "Error"
                                              : finding.severity == Severity::warning ? "Warning"
                                                                                      : "Information";
            book_.Write(line_, 0, severity);
            book_.Write(line_++, 1, finding.text);
        }
    }

    Workbook& book_;
    const Job& job_;
    const Catalogue& catalogue_;
    std::uint32_t line_ = 0;
};

} // namespace

void WriteGridXlsx(const std::filesystem::path& path, const CalculationResult& result, const Job& job,
                   const Catalogue& catalogue) {
    Workbook book;
    book.AddSheet("Results");
    WriteResults(book, result.grid);
    book.AddSheet("Case");
    CaseSheet(book, job, catalogue).Write(result);
    book.Save(path);
}

} // namespace kaloria
