// SPDX-License-Identifier: GPL-3.0-or-later
#include "application/results_grid.h"

#include "application/insulation_thickness.h"
#include "engine/surface_geometry.h"

#include <algorithm>

namespace kaloria {

namespace {

using namespace calculation_type;

constexpr const char* notComputed = "-";

/// Builds one grid.
class GridBuilder {
public:
    GridBuilder(const CaseInputs& inputs, std::span<const SolvedRow> rows,
                std::span<const std::optional<RowMoney>> money)
        : inputs_(inputs),
          rows_(rows),
          money_(money),
          si_(inputs.units == Units::si),
          perLength_(geometry::IsPerLength(inputs.geometry->ID)) {}

    ResultsGrid Build(const SolvedRow* design) {
        AddColumns();
        for (std::size_t i = 0; i < rows_.size(); ++i) {
            AddRow(i, &rows_[i] == design);
        }
        return std::move(grid_);
    }

private:
    void Add(ResultKind kind, std::string name, std::string unit, NumberFormat format,
             std::size_t index = 0) {
        grid_.columns.push_back({kind, index, std::move(name), std::move(unit), format});
    }

    /// Heat flow of type 3 is per square foot even on cylinders.
    [[nodiscard]] bool FlowPerLength() const {
        const bool fluxOfCylinder =
            inputs_.calculationType == interfaceTemperatures && geometry::IsCylinder(inputs_.geometry->ID);
        return perLength_ && !fluxOfCylinder;
    }

    void AddColumns() {
        const bool economic = inputs_.calculationType == heatLossPerYear;
        if (inputs_.Varies() || economic) {
            Add(ResultKind::label, " Variable Insulation", "Thickness", NumberFormat::shortest);
        } else {
            Add(ResultKind::label, "Insulation", "Layers", NumberFormat::shortest);
        }
        if (economic) {
            AddEconomicColumns();
            return;
        }
        Add(ResultKind::surfaceTemp, "Surface Temp", TempUnit(), NumberFormat::tenths);
        Add(ResultKind::hourlyHeatFlow, FlowName(), HourlyUnit(), NumberFormat::hundredths);
        Add(ResultKind::efficiency, "Efficiency", "(%)", NumberFormat::hundredths);
        if (inputs_.calculationType == interfaceTemperatures) {
            for (std::size_t layer = 0; layer < inputs_.layers.size(); ++layer) {
                Add(ResultKind::layerThickness, "Thickness", si_ ? "(mm)" : "(in)", NumberFormat::hundredths,
                    layer);
                Add(ResultKind::interfaceTemp, "Interface Temp", TempUnit(), NumberFormat::whole, layer);
                Add(ResultKind::conductivity, "k", si_ ? "(W/m*°C)" : "(BTU*in/hr*sf*°F)",
                    NumberFormat::thousandths, layer);
            }
        }
    }

    void AddEconomicColumns() {
        // The yearly headings say W/m in SI; people's reports and audit files know them so. A finding says
        // what the figure is.
        const std::string unit =
            perLength_ ? (si_ ? "(W/m)" : "(BTU/ft/yr)") : (si_ ? "(W/m^2)" : "(BTU/ft^2/yr)");
        const Quantity money = MoneyQuantity();
        const std::string moneyUnit = "(" + std::string(InfoOf(money).Text(inputs_.units)) + ")";
        const std::string emissionUnit =
            "(" + std::string(InfoOf(EmissionQuantity()).Text(inputs_.units)) + ")";
        Add(ResultKind::annualHeatFlow, FlowName(), unit, NumberFormat::whole);
        Add(ResultKind::cost, "Cost", moneyUnit, NumberFormat::hundredths);
        Add(ResultKind::savings, "Savings", moneyUnit, NumberFormat::hundredths);
        std::size_t index = 0;
        for (const CPollutant& pollutant : inputs_.fuel->record->Pollutants) {
            Add(ResultKind::emission, pollutant.Name, emissionUnit, NumberFormat::thousandths, index++);
        }
    }

    [[nodiscard]] std::string TempUnit() const { return si_ ? "(°C)" : "(°F)"; }
    [[nodiscard]] std::string FlowName() const { return inputs_.IsCold() ? "Heat Gain" : "Heat Loss"; }
    [[nodiscard]] std::string HourlyUnit() const {
        return FlowPerLength() ? (si_ ? "(W/m)" : "(BTU/hr/ft)") : (si_ ? "(W/m^2)" : "(BTU/hr/ft^2)");
    }
    [[nodiscard]] Quantity FlowQuantity() const {
        return FlowPerLength() ? Quantity::heatFlowPerLength : Quantity::heatFlux;
    }
    [[nodiscard]] Quantity MoneyQuantity() const {
        return perLength_ ? Quantity::moneyPerLength : Quantity::moneyPerArea;
    }
    [[nodiscard]] Quantity EmissionQuantity() const {
        return perLength_ ? Quantity::emissionPerLength : Quantity::emissionPerArea;
    }

    void AddRow(std::size_t index, bool isDesign) {
        const SolvedRow& solved = rows_[index];
        ResultRow row;
        row.label = Label(solved);
        row.isDesign = isDesign;
        row.fault = solved.fault;
        if (solved.nominal) {
            row.thickness = *solved.nominal;
        }
        for (const ResultColumn& column : grid_.columns) {
            if (column.kind != ResultKind::label) {
                row.cells.push_back(Cell(column, index));
            }
        }
        grid_.rows.push_back(std::move(row));
    }

    [[nodiscard]] std::string Label(const SolvedRow& row) const {
        if (row.bare) {
            return inputs_.retrofit ? "Layer 0" : "Bare";
        }
        if (row.nominal) {
            return ThicknessText(*row.nominal);
        }
        std::string names;
        for (const LayerInput& layer : inputs_.layers) {
            names += (names.empty() ? "" : ", ") +
                     (IsDuctWrap(layer.material.Name) ? std::string("Duct Wrap") : layer.material.Name);
        }
        return names;
    }

    [[nodiscard]] ResultCell Cell(const ResultColumn& column, std::size_t index) const {
        const SolvedRow& row = rows_[index];
        if (IsBlank(column.kind, row)) {
            return {};
        }
        const std::optional<double> value = row.IsSolved() ? Value(column, index) : std::nullopt;
        return value ? ResultCell{value, FormatNumber(*value, column.format)} : ResultCell{{}, notComputed};
    }

    /// Cells of the bare row that have nothing to say.
    [[nodiscard]] static bool IsBlank(ResultKind kind, const SolvedRow& row) {
        return row.bare && (kind == ResultKind::efficiency || kind == ResultKind::savings ||
                            kind == ResultKind::layerThickness || kind == ResultKind::interfaceTemp ||
                            kind == ResultKind::conductivity);
    }

    [[nodiscard]] double Shown(Quantity quantity, double english) const {
        return FromEnglish(quantity, inputs_.units, english);
    }

    [[nodiscard]] std::optional<double> Value(const ResultColumn& column, std::size_t index) const {
        const SolvedRow& row = rows_[index];
        switch (column.kind) {
        case ResultKind::surfaceTemp:
            return Shown(Quantity::temperature, row.surfaceTemp);
        case ResultKind::hourlyHeatFlow:
            return Shown(FlowQuantity(), row.unitHeatFlow);
        case ResultKind::annualHeatFlow:
            return Shown(FlowQuantity(), row.unitHeatFlow) * inputs_.hoursPerYear;
        case ResultKind::efficiency:
            return EfficiencyOf(row, rows_.front());
        case ResultKind::layerThickness:
            return Shown(Quantity::length, row.layers[column.index].thickness);
        case ResultKind::interfaceTemp:
            return Shown(Quantity::temperature, row.layers[column.index].outsideTemp);
        case ResultKind::conductivity:
            return Shown(Quantity::conductivity, row.layers[column.index].conductivity);
        default:
            return MoneyValue(column, index);
        }
    }

    [[nodiscard]] std::optional<double> MoneyValue(const ResultColumn& column, std::size_t index) const {
        const auto& money = money_[index];
        if (!money) {
            return std::nullopt;
        }
        switch (column.kind) {
        case ResultKind::cost:
            return Shown(MoneyQuantity(), money->cost);
        case ResultKind::savings:
            return money_.front() ? std::optional(Shown(MoneyQuantity(), money->savings)) : std::nullopt;
        default:
            return Shown(EmissionQuantity(), money->emissions[column.index]);
        }
    }

    const CaseInputs& inputs_;
    std::span<const SolvedRow> rows_;
    std::span<const std::optional<RowMoney>> money_;
    bool si_;
    bool perLength_;
    ResultsGrid grid_;
};

} // namespace

ResultsGrid BuildGrid(const CaseInputs& inputs, std::span<const SolvedRow> rows,
                      std::span<const std::optional<RowMoney>> money, const SolvedRow* design) {
    return GridBuilder(inputs, rows, money).Build(design);
}

ResultsGrid EmptyGrid() {
    ResultsGrid grid;
    grid.columns = {{ResultKind::label, 0, "Insulation", "Thickness", NumberFormat::shortest},
                    {ResultKind::surfaceTemp, 0, "Surface Temp", "(°F)", NumberFormat::tenths},
                    {ResultKind::hourlyHeatFlow, 0, "Heat Loss", "(BTU/hr/ft)", NumberFormat::hundredths},
                    {ResultKind::efficiency, 0, "Efficiency", "(%)", NumberFormat::hundredths}};
    return grid;
}

std::string ThicknessText(double thickness) { return FormatNumber(thickness, NumberFormat::shortest); }

} // namespace kaloria
