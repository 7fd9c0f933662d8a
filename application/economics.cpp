// SPDX-License-Identifier: GPL-3.0-or-later
#include "application/economics.h"

#include "reports/custom_costs.h"

#include <fmt/format.h>

#include <algorithm>

namespace kaloria {

namespace {

/// Runs one analysis.
class EconomicsRun {
public:
    EconomicsRun(CApplication& application, const EconomicsRequest& request, const EconomicsWork& work)
        : application_(application), report_(application.Report()), request_(request), work_(work) {}

    EconomicsResult Run() {
        ReportChoice choice = request_.choice;
        if (!request_.costFile.empty()) {
            choice.costSource = CostSource::supplied;
        }
        result_.units = application_.CurrentJob().UnitsInForce();
        ReportReading reading = ReadReport(application_.CurrentJob(), application_.Records(), choice);
        result_.findings = std::move(reading.findings);
        if (reading.inputs) {
            report_.ProgramFolder = application_.ProgramFolder();
            report_.Inputs = std::move(*reading.inputs);
            CCostData none;
            result_.hasCosts = ProvideCosts(reading.costSource);
            Analyse(result_.hasCosts ? report_.CostData() : none);
        }
        return std::move(result_);
    }

private:
    void Fail(Field field, std::string text) {
        result_.findings.push_back({Severity::error, std::string(InfoOf(field).element), std::move(text)});
    }

    /// Whether the report's grid holds installed costs of these inputs.
    bool ProvideCosts(CostSource source) {
        switch (source) {
        case CostSource::estimate:
            return Estimate();
        case CostSource::supplied:
            return LoadSupplied();
        default:
            return HasPrevious();
        }
    }

    bool Estimate() {
        const auto fault = report_.GetFEA();
        if (!fault) {
            return true;
        }
        Fail(Field::FEA, fault->message);
        if (!fault->detail.empty() && fault->detail != fault->message) {
            Fail(Field::FEA, fault->detail);
        }
        return false;
    }

    bool LoadSupplied() {
        const auto path =
            request_.costFile.empty() ? CustomCostsPath(application_.JobPath) : request_.costFile;
        const auto problem = LoadCustomCosts(path, report_.CostData());
        if (problem) {
            Fail(Field::UserSuppliedCostData,
                 problem->line > 0 ? fmt::format("{}:{}: {}", path.string(), problem->line, problem->text)
                                   : problem->text);
        }
        return !problem;
    }

    bool HasPrevious() {
        for (int size = 1; size <= CCostData::lastSizePosition; ++size) {
            for (int thickness = 1; thickness <= CCostData::lastThicknessPosition; ++thickness) {
                const CThicknessCost* cost = report_.CostData().FindCostData(size, thickness);
                if (cost != nullptr && cost->InstalledCost > 0.0F) {
                    return true;
                }
            }
        }
        Fail(Field::PreviousCostData, "There are no installed costs of an earlier run.");
        return false;
    }

    void Analyse(CCostData& costs) {
        try {
            result_.done = work_(report_, costs);
            result_.cancelled = !result_.done;
        } catch (const NumericFault& fault) {
            result_.findings.push_back({Severity::error, "", fmt::format("No analysis: {}.", fault.what())});
        }
        if (result_.done) {
            result_.complete = true;
            for (const SurfaceResult& surface : report_.Analysis()->surfaces) {
                Check(surface);
            }
        }
    }

    void Check(const SurfaceResult& surface) {
        CheckRows(surface);
        for (const TemperatureResult& step : surface.temperatures) {
            const bool isAnswer =
                step.outcome == EconomicOutcome::found || step.outcome == EconomicOutcome::notWorthwhile;
            const bool isKnown = !result_.hasCosts && step.outcome == EconomicOutcome::noPrice;
            if (!isAnswer && !isKnown) {
                result_.findings.push_back(
                    {Severity::warning, "", fmt::format("{}: {}.", surface.name, TextOf(step.outcome))});
                return;
            }
        }
    }

    void CheckRows(const SurfaceResult& surface) {
        std::string fault;
        bool unsteady = false;
        for (const TemperatureResult& step : surface.temperatures) {
            const auto& rows = step.rows;
            const auto faulty =
                std::find_if(rows.begin(), rows.end(), [](const auto& row) { return !row.fault.empty(); });
            fault = faulty != rows.end() && fault.empty() ? faulty->fault : fault;
            unsteady = unsteady ||
                       std::any_of(rows.begin(), rows.end(), [](const auto& row) { return row.unsteady; });
            result_.complete = result_.complete && std::any_of(rows.begin(), rows.end(), [](const auto& row) {
                                   return row.money.has_value();
                               });
        }
        if (!fault.empty()) {
            result_.findings.push_back(
                {Severity::error, "",
                 fmt::format("{}: not every thickness has a result: {}.", surface.name, fault)});
        }
        if (unsteady) {
            result_.findings.push_back(
                {Severity::warning, "",
                 fmt::format("{}: for a thickness there is no steady solution: the air flow "
                             "changes its kind there, and one of two answers is used.",
                             surface.name)});
        }
    }

    CApplication& application_;
    CReport& report_;
    const EconomicsRequest& request_;
    const EconomicsWork& work_;
    EconomicsResult result_;
};

} // namespace

EconomicsResult RunEconomics(CApplication& application, const EconomicsRequest& request) {
    return RunEconomicsWith(application, request, [&](CReport& report, CCostData& costs) {
        return report.Analyse(costs, request.progress);
    });
}

EconomicsResult RunEconomicsWith(CApplication& application, const EconomicsRequest& request,
                                 const EconomicsWork& work) {
    return EconomicsRun(application, request, work).Run();
}

} // namespace kaloria
