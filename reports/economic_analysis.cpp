// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/economic_analysis.h"

#include "engine/numeric_fault.h"
#include "reports/economic_thickness.h"
#include "reports/emission_reduction.h"
#include "reports/present_worth.h"
#include "reports/thermal_sweep.h"

#include <algorithm>
#include <cmath>

namespace kaloria {

namespace {

/// Runs one analysis.
class Analyst {
public:
    Analyst(const ReportInputs& inputs, EconomicFigures& figures, CCostData& costs)
        : inputs_(inputs),
          figures_(figures),
          costs_(costs),
          sweep_(inputs),
          lifeCost_(figures),
          moneyFactor_(MoneyFactor(figures)) {}

    std::optional<EconomicAnalysis> Run(const AnalysisProgress& progress) {
        const int count = static_cast<int>(inputs_.surfaces.size());
        analysis_.moneyFactor = moneyFactor_;
        analysis_.cellValues.resize(static_cast<std::size_t>(inputs_.TemperatureCount()));
        analysis_.marginalSavings.resize(analysis_.cellValues.size());
        for (int i = 0; i < count; ++i) {
            if (progress && !progress(i, count)) {
                return std::nullopt;
            }
            AnalyseSurface(inputs_.surfaces[static_cast<std::size_t>(i)]);
        }
        for (ResultTable& table : analysis_.marginalSavings) {
            table.SubtractNeighbours();
            table.Negate();
        }
        if (progress) {
            (void)progress(count, count);
        }
        analysis_.figures = figures_;
        return std::move(analysis_);
    }

private:
    void AnalyseSurface(const ReportSurface& surface) {
        SurfaceResult& result = analysis_.surfaces.emplace_back();
        result.position = surface.position;
        result.name = surface.name;
        result.isPipe = surface.pipe != nullptr;
        for (int k = 1; k <= inputs_.TemperatureCount(); ++k) {
            TemperatureResult& step = result.temperatures.emplace_back();
            step.temperature = inputs_.Temperature(k);
            step.rows = sweep_.Solve(surface, step.temperature);
            PriceRows(step, surface);
            CompareRows(step);
            FillTables(step, surface.position, static_cast<std::size_t>(k) - 1);
        }
    }

    /// What stands in each row for itself.
    void PriceRows(TemperatureResult& step, const ReportSurface& surface) {
        for (ThicknessResult& row : step.rows) {
            if (!row.made) {
                continue;
            }
            row.installedCost = row.nominal > 0.0F ? InstalledCost(surface.position, row) : 0.0F;
            if (!row.IsSolved()) {
                continue;
            }
            row.wet = inputs_.dewPoint && row.surfaceTemp < *inputs_.dewPoint;
            Guarded(row, [&] {
                row.annualCost = AnnualCost(row.heatFlow);
                if (row.installedCost) {
                    row.curve = lifeCost_.Of(row.heatFlow, *row.installedCost);
                }
            });
        }
    }

    /// The price of this very thickness, wherever the grid has it; the record gets the heat flow.
    std::optional<float> InstalledCost(int position, const ThicknessResult& row) {
        for (int k = 1; k <= CCostData::lastThicknessPosition; ++k) {
            const CThicknessCost* found = costs_.FindCostData(position, k);
            if (found == nullptr || found->Thickness != row.nominal) {
                continue;
            }
            CThicknessCost& record = costs_.GetCostData(position, k);
            record.HeatFlow = row.heatFlow;
            record.SurfaceTemp = row.surfaceTemp;
            return record.InstalledCost > 0.0F ? std::optional(record.InstalledCost) : std::nullopt;
        }
        return std::nullopt;
    }

    [[nodiscard]] float AnnualCost(float heatFlow) const {
        const FaultTrap trap;
        const float cost = Single(std::abs(double{heatFlow} * figures_.hoursPerYear /
                                           (figures_.efficiency / 100.0) * figures_.unitFuelCost));
        trap.Check("cost of a row", {cost});
        return cost;
    }

    /// A fault concerns its row alone.
    template <class Work>
    static void Guarded(ThicknessResult& row, const Work& work) {
        try {
            work();
        } catch (const NumericFault& fault) {
            row.fault = fault.what();
            row.money.reset();
            row.curve.reset();
        }
    }

    void CompareRows(TemperatureResult& step) {
        // In a retrofit the surface as it is stands for the choice to do nothing, whatever the threshold.
        const float wanted = inputs_.existing ? 0.0F : inputs_.referenceThickness;
        const auto found = std::find_if(step.rows.begin(), step.rows.end(),
                                        [&](const ThicknessResult& row) { return row.nominal == wanted; });
        if (found == step.rows.end() || !found->IsSolved() || !found->installedCost) {
            step.outcome = EconomicOutcome::noReference;
            return;
        }
        step.reference = static_cast<std::size_t>(found - step.rows.begin());
        const ThicknessResult& reference = *found;
        for (ThicknessResult& row : step.rows) {
            if (row.IsSolved() && row.installedCost && row.nominal > inputs_.referenceThickness) {
                Guarded(row, [&] { row.money = Compare(reference, row); });
            }
        }
        ChooseEconomicThickness(step, inputs_.dewPoint.has_value());
    }

    [[nodiscard]] MoneyResult Compare(const ThicknessResult& reference, const ThicknessResult& row) {
        const PaybackTerms terms = TermsOf({reference.heatFlow, *reference.installedCost},
                                           {row.heatFlow, *row.installedCost}, figures_);
        MoneyResult money;
        money.savedFlow = Single(std::abs(double{reference.heatFlow}) - std::abs(double{row.heatFlow}));
        money.savedCost = reference.annualCost - row.annualCost;
        money.cellValue = CellValue(terms.savedFlow);
        if (money.savedFlow > 0.0F) {
            money.payback = PaybackOf(terms, figures_);
            money.presentWorth = NetPresentWorth(terms, figures_, figures_.insulationYears);
            money.totalSavings = lifeCost_.Yearly(money.presentWorth);
        } else {
            // The terms take a difference of flows for a saving; this one is a loss.
            money.payback = {Payback::Kind::never, Payback::neverYears, std::nullopt};
            money.totalSavings = reference.curve->Total() - row.curve->Total();
            money.presentWorth = lifeCost_.Worth(money.totalSavings);
        }
        for (const CPollutant& pollutant : inputs_.fuel.Pollutants) {
            money.reductions.push_back(EmissionReduction(money.savedFlow, figures_.hoursPerYear,
                                                         figures_.efficiency, pollutant.Amount));
        }
        return money;
    }

    [[nodiscard]] float CellValue(double savedFlow) const {
        const FaultTrap trap;
        const float value = Single(std::abs(savedFlow) * moneyFactor_);
        trap.Check("cell value", {value});
        return value;
    }

    void FillTables(const TemperatureResult& step, int column, std::size_t k) {
        for (std::size_t i = 0; i < step.rows.size(); ++i) {
            const ThicknessResult& row = step.rows[i];
            const int index = static_cast<int>(i);
            if (row.money) {
                analysis_.cellValues[k].At(index, column) = row.money->cellValue;
            }
            if (row.IsSolved()) {
                analysis_.marginalSavings[k].At(index, column) = row.annualCost;
            }
        }
    }

    const ReportInputs& inputs_;
    EconomicFigures& figures_;
    CCostData& costs_;
    ThermalSweep sweep_;
    LifeCost lifeCost_;
    double moneyFactor_;
    EconomicAnalysis analysis_;
};

} // namespace

double MoneyFactor(const EconomicFigures& figures) {
    const FaultTrap trap;
    constexpr double c = 100.0; // undoes the percent in the efficiency
    constexpr double d = 1.0;
    const EconomicFigures& e = figures;
    const double factor = ((double{e.unitFuelCost} * e.hoursPerYear / e.efficiency) * c * d *
                           e.plantMaintenance * (1.0 - e.taxRate)) +
                          e.capacityCost - e.taxRate + 1.0;
    trap.Check("money factor", {factor});
    return factor;
}

std::optional<EconomicAnalysis> Analyse(const ReportInputs& inputs, EconomicFigures& figures,
                                        CCostData& costs, const AnalysisProgress& progress) {
    return Analyst(inputs, figures, costs).Run(progress);
}

} // namespace kaloria
