// SPDX-License-Identifier: GPL-3.0-or-later
#include "application/calculate.h"

#include "application/condensation.h"
#include "application/report_panel.h"
#include "application/results_grid.h"

#include <algorithm>
#include <cmath>

namespace kaloria {

namespace {

using namespace calculation_type;

/// Runs one case.
class Calculation {
public:
    Calculation(const CaseInputs& inputs, CHeatLossCalculator& calculator, CReport& report)
        : inputs_(inputs), calculator_(calculator), report_(report) {}

    CalculationResult Run() {
        result_.done = true;
        result_.calculationType = inputs_.calculationType;
        result_.units = inputs_.units;
        result_.title = PanelTitle(inputs_.calculationType);
        result_.solved = SolveRows(inputs_, calculator_);
        Append(CheckRows(inputs_, result_.solved));
        ResolveDewPoint();
        const SolvedRow* design = Design();
        const auto money = ReckonMoney();
        result_.grid = BuildGrid(inputs_, result_.solved, money, design);
        result_.panel = BuildPanel(inputs_, result_.condensation, result_.design);
        AddRemarks();
        return std::move(result_);
    }

private:
    void Note(Severity severity, std::string subject, std::string text) {
        result_.findings.push_back({severity, std::move(subject), std::move(text)});
    }

    void Append(std::vector<Finding> findings) {
        std::move(findings.begin(), findings.end(), std::back_inserter(result_.findings));
    }

    void ResolveDewPoint() {
        if (inputs_.moisture) {
            MoistureReading reading = ReadMoisture(*inputs_.moisture, inputs_.ambientTemp, calculator_);
            result_.condensation = reading.condensation;
            Append(std::move(reading.findings));
        }
    }

    const SolvedRow* Design() {
        result_.design.label = DesignLabel(inputs_.calculationType);
        if (result_.design.label.empty()) {
            return nullptr;
        }
        result_.design.text = "N/A";
        std::optional<float> dewPoint;
        if (result_.condensation) {
            dewPoint = result_.condensation->dewPoint;
        }
        const SolvedRow* row = DesignRow(result_.solved, inputs_, dewPoint);
        if (row == nullptr) {
            NoteNoDesign();
            return nullptr;
        }
        const double thickness = row->nominal ? *row->nominal : FixedThickness();
        result_.design.value = thickness;
        result_.design.text = ThicknessText(thickness) + (inputs_.units == Units::si ? " mm" : " in.");
        return row;
    }

    /// Nothing varies: what meets the goal is the build-up as it stands.
    [[nodiscard]] double FixedThickness() const {
        double sum = 0;
        for (const LayerInput& layer : inputs_.layers) {
            sum += layer.nominal;
        }
        return sum;
    }

    void NoteNoDesign() {
        if (inputs_.calculationType == condensationControl && !inputs_.IsCold()) {
            Note(Severity::warning, "ProcessTemp",
                 "The process is not colder than the air: there is no condensation to control.");
        } else if (result_.condensation || inputs_.calculationType != condensationControl) {
            Note(Severity::warning, "", "No thickness that was calculated meets the goal.");
        }
    }

    std::vector<std::optional<RowMoney>> ReckonMoney() {
        std::vector<std::optional<RowMoney>> money(result_.solved.size());
        if (!inputs_.fuel) {
            return money;
        }
        CFuel& fuel = *inputs_.fuel->record;
        fuel.BTU = inputs_.fuel->heatContent;
        fuel.Cost = inputs_.fuel->cost;
        report_.Fuel = &fuel;
        try {
            report_.UnitFuelCost();
            result_.unitFuelCost = report_.FuelCostPerBtu();
            for (std::size_t i = 0; i < money.size(); ++i) {
                if (result_.solved[i].IsSolved()) {
                    const RowMoney* bare = i > 0 && money.front() ? &*money.front() : nullptr;
                    money[i] = MoneyOf(result_.solved[i], inputs_, report_.FuelCostPerBtu(), bare);
                }
            }
        } catch (const NumericFault& fault) {
            // Without a cost of heat nothing of the money is known; a part of it would look like the whole.
            std::fill(money.begin(), money.end(), std::nullopt);
            if (inputs_.calculationType == heatLossPerYear) {
                NoteNoMoney(fault);
            }
        }
        return money;
    }

    void NoteNoMoney(const NumericFault& fault) {
        const bool noEfficiency = inputs_.fuel->efficiency == 0.0F;
        const bool noHeat = inputs_.fuel->heatContent == 0.0F;
        const std::string why = noEfficiency ? "the conversion efficiency is 0"
                                : noHeat     ? "the heating value is 0"
                                             : fault.what();
        Note(Severity::error, noEfficiency ? "ConversionEfficiency" : "HeatContent",
             "Costs and emissions cannot be computed: " + why + ".");
    }

    void AddRemarks() {
        if (inputs_.calculationType == heatLossPerYear && inputs_.units == Units::si) {
            Note(Severity::information, "",
                 "The yearly heat flow is the hourly one times the hours per year: watt-hours a year per "
                 "unit.");
        }
        if (result_.condensation && result_.condensation->psychrometric) {
            Note(Severity::information, "DewPoint",
                 "The dew point from relative humidity lies on the safe side of the psychrometric one.");
        }
    }

    const CaseInputs& inputs_;
    CHeatLossCalculator& calculator_;
    CReport& report_;
    CalculationResult result_;
};

} // namespace

bool CalculationResult::HasAnswer() const {
    const auto solvedRows =
        std::count_if(solved.begin(), solved.end(), [](const SolvedRow& row) { return row.IsSolved(); });
    return done && solvedRows > 1 && solved.front().IsSolved();
}

CalculationResult Calculate(const CaseInputs& inputs, CHeatLossCalculator& calculator, CReport& report) {
    return Calculation(inputs, calculator, report).Run();
}

} // namespace kaloria
