// SPDX-License-Identifier: GPL-3.0-or-later
#include "application/comparison_rows.h"
#include "application/headline.h"
#include "data/quantity.h"

#include <fmt/format.h>

namespace kaloria {

namespace {

using Kind = ComparisonRow::Kind;

std::string LabelOf(const ResultColumn& column) { return IsFlow(column) ? FlowNameOf(column) : column.name; }

bool IsMoney(const ResultColumn& column) {
    return column.kind == ResultKind::cost || column.kind == ResultKind::savings ||
           column.kind == ResultKind::emission;
}

std::string ComparedAt(const ComparedCase& compared) {
    std::string row = RowCaption(compared.result, compared.row);
    switch (compared.why) {
    case ComparedRow::design:
        return row + ", design";
    case ComparedRow::chosen:
        return row + ", chosen";
    case ComparedRow::thickest:
        return row + ", thickest";
    default:
        return row;
    }
}

/// Walks the figures, one after the other through all cases.
class ResultWalk {
public:
    explicit ResultWalk(const std::vector<ComparedCase>& cases) : cases_(cases), rows_(cases.size()) {}

    std::vector<ComparisonRow> Run() {
        AddWords();
        ForAll([this](std::size_t i, const ComparedCase& c) { AddThickness(i, c); });
        ForAll([this](std::size_t i, const ComparedCase& c) {
            Temperature(i, c, "Surface temperature", c.Solved().surfaceTemp);
        });
        ForAll([this](std::size_t i, const ComparedCase& c) { AddColumns(i, c, IsFlow); });
        if (!SharedFlow(cases_)) {
            ForAll([this](std::size_t i, const ComparedCase& c) { AddFlux(i, c); });
        }
        ForAll([this](std::size_t i, const ComparedCase& c) {
            if (const auto saved = EfficiencyOf(c.Solved(), c.result.solved.front())) {
                rows_.Number(i, "Saved against bare", "%", NumberFormat::hundredths, *saved);
            }
        });
        AddOutsideTemperatures();
        ForAll([this](std::size_t i, const ComparedCase& c) { AddColumns(i, c, IsMoney); });
        AddCare();
        return {std::make_move_iterator(rows_.rows.begin()), std::make_move_iterator(rows_.rows.end())};
    }

private:
    template <class Add>
    void ForAll(Add&& add) {
        for (std::size_t i = 0; i < cases_.size(); ++i) {
            if (cases_[i].HasFigures()) {
                add(i, cases_[i]);
            }
        }
    }

    void AddWords() {
        ForAll([this](std::size_t i, const ComparedCase& c) {
            rows_.Word(i, Kind::word, "Compared at", ComparedAt(c));
        });
        ForAll([this](std::size_t i, const ComparedCase& c) {
            if (c.meetsGoal) {
                rows_.Word(i, Kind::word, "Goal met", *c.meetsGoal ? "yes" : "no");
            }
        });
    }

    void AddThickness(std::size_t i, const ComparedCase& c) {
        const std::string unit(InfoOf(Quantity::length).Text(c.result.units));
        if (const auto& thickness = c.thicknesses.at(c.row)) {
            rows_.Number(i, "Insulation, nominal thickness", unit, NumberFormat::shortest, *thickness);
        }
    }

    void Temperature(std::size_t i, const ComparedCase& c, const std::string& label, double degF) {
        rows_.Number(i, label, std::string(InfoOf(Quantity::temperature).Text(c.result.units)),
                     NumberFormat::tenths, FromEnglish(Quantity::temperature, c.result.units, degF));
    }

    /// What the grid has.
    template <class Wanted>
    void AddColumns(std::size_t i, const ComparedCase& c, Wanted&& wanted) {
        const auto& columns = c.result.grid.columns;
        for (std::size_t column = 1; column < columns.size(); ++column) {
            const std::optional<double> value = c.Shown().cells.at(column - 1).value;
            if (value && wanted(columns[column])) {
                rows_.Number(i, LabelOf(columns[column]), UnitOf(columns[column], c.result.units),
                             columns[column].format, *value);
            }
        }
    }

    /// What flows through a pipe's foot and through a wall's square foot can be compared by area.
    void AddFlux(std::size_t i, const ComparedCase& c) {
        rows_.Number(i, "Heat flux at the surface",
                     std::string(InfoOf(Quantity::heatFlux).Text(c.result.units)), NumberFormat::hundredths,
                     FromEnglish(Quantity::heatFlux, c.result.units, c.Solved().meanFlux));
    }

    /// Only of build-ups of several layers: the outside of a single one is the surface.
    void AddOutsideTemperatures() {
        for (std::size_t layer = 0; layer < mostLayers; ++layer) {
            ForAll([&](std::size_t i, const ComparedCase& c) {
                const auto& layers = c.Solved().layers;
                if (layer + 1 < layers.size()) {
                    Temperature(i, c, fmt::format("Outside of layer {}", layer + 1),
                                layers[layer].outsideTemp);
                }
            });
        }
    }

    void AddCare() {
        for (std::size_t i = 0; i < cases_.size(); ++i) {
            if (!cases_[i].HasFigures()) {
                rows_.Word(i, Kind::care, "No answer", cases_[i].reason);
            }
        }
        ForAll([this](std::size_t i, const ComparedCase& c) {
            std::string texts;
            for (const Finding& finding : c.result.findings) {
                if (finding.severity != Severity::information) {
                    texts += (texts.empty() ? "" : " ") + finding.text;
                }
            }
            if (!texts.empty()) {
                rows_.Word(i, Kind::care, "Warnings", texts);
            }
        });
    }

    const std::vector<ComparedCase>& cases_;
    ComparisonRows rows_;
};

} // namespace

std::vector<ComparisonRow> ComparedResults(const std::vector<ComparedCase>& cases) {
    return ResultWalk(cases).Run();
}

} // namespace kaloria
