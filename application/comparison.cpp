// SPDX-License-Identifier: GPL-3.0-or-later
#include "application/comparison.h"

#include "application/calculate.h"
#include "application/headline.h"
#include "engine/number_text.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

namespace kaloria {

namespace {

constexpr bool StartsCharacter(char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U; }

/// The first characters of a UTF-8 text, on one line.
std::string Cut(std::string_view text, std::size_t most) {
    std::string cut;
    std::size_t count = 0;
    for (const char c : text) {
        count += StartsCharacter(c) ? 1U : 0U;
        if (count > most) {
            break;
        }
        cut += static_cast<unsigned char>(c) < ' ' ? ' ' : c;
    }
    return std::string(Trimmed(cut));
}

} // namespace

bool Comparison::IsTaken(std::string_view name, std::size_t except) const {
    for (std::size_t i = 0; i < cases_.size(); ++i) {
        if (i != except && cases_[i].name == name) {
            return true;
        }
    }
    return false;
}

std::string Comparison::Unique(const std::string& wanted) const {
    std::string name = wanted.empty() ? "Case 1" : wanted;
    for (std::size_t number = 2; IsTaken(name, cases_.size()); ++number) {
        const std::string suffix = fmt::format(" ({})", number);
        name = wanted.empty() ? fmt::format("Case {}", number)
                              : Cut(wanted, longestCaseName - suffix.size()) + suffix;
    }
    return name;
}

std::string Comparison::Add(KeptCase kept) {
    if (IsFull()) {
        return fmt::format("{} cases are kept already. Remove one to keep another.", mostKeptCases);
    }
    std::string wanted = Cut(kept.name, longestCaseName);
    if (wanted.empty()) {
        wanted = Cut(kept.job[Field::ItemDescription], longestCaseName);
    }
    kept.name = Unique(wanted);
    cases_.push_back(std::move(kept));
    return {};
}

std::string Comparison::Rename(std::size_t index, std::string_view name) {
    const std::string cut = Cut(name, longestCaseName);
    if (cut.empty()) {
        return "A case needs a name.";
    }
    if (IsTaken(cut, index)) {
        return fmt::format("There is already a case named \"{}\".", cut);
    }
    cases_.at(index).name = cut;
    return {};
}

void Comparison::Remove(std::size_t index) {
    if (index < cases_.size()) {
        cases_.erase(cases_.begin() + static_cast<std::ptrdiff_t>(index));
    }
}

void Comparison::Move(std::size_t from, std::size_t to) {
    if (from >= cases_.size() || to >= cases_.size()) {
        return;
    }
    const auto begin = cases_.begin();
    const auto at = [begin](std::size_t index) { return begin + static_cast<std::ptrdiff_t>(index); };
    if (from < to) {
        std::rotate(at(from), at(from + 1), at(to + 1));
    } else {
        std::rotate(at(to), at(from), at(from + 1));
    }
}

void Comparison::SwitchUnits(const Catalogue& catalogue, Units units) {
    for (KeptCase& kept : cases_) {
        kept.memory.Switch(kept.job, catalogue, units);
    }
}

// Answers
// ---------------------------------------------------------------------------------------------------------------

namespace {

std::string ReasonOf(const CalculationResult& result) {
    std::string reason;
    for (const Finding& finding : result.findings) {
        if (finding.severity == Severity::error) {
            reason += (reason.empty() ? "" : " ") + finding.text;
        }
    }
    return reason.empty() ? "There is no answer." : reason;
}

double FixedThickness(const CaseInputs& inputs) {
    double sum = 0;
    for (const LayerInput& layer : inputs.layers) {
        sum += layer.varies ? 0 : double{layer.nominal};
    }
    return sum;
}

/// The row whose thickness is the nearest to the one in hand.
std::optional<std::size_t> NearestRow(const CalculationResult& result, const ChosenThickness& chosen) {
    const double wanted = FromEnglish(Quantity::length, result.units,
                                      ToEnglish(Quantity::length, chosen.units, chosen.nominal));
    std::optional<std::size_t> nearest;
    double least = 0;
    for (std::size_t row = 1; row < result.solved.size(); ++row) {
        if (const auto& nominal = result.solved[row].nominal) {
            const double distance = std::abs(*nominal - wanted);
            if (!nearest || distance < least) {
                nearest = row;
                least = distance;
            }
        }
    }
    return nearest;
}

ComparedRow WhyOf(const CalculationResult& result, std::size_t row) {
    if (!result.solved.at(row).nominal) {
        return ComparedRow::given;
    }
    return result.grid.rows.at(row).isDesign ? ComparedRow::design : ComparedRow::thickest;
}

void ChooseRow(ComparedCase& compared, const std::optional<ChosenThickness>& chosen) {
    const auto nearest = chosen ? NearestRow(compared.result, *chosen) : std::nullopt;
    const auto row = nearest ? nearest : HeadlineRow(compared.result);
    if (!row || !compared.result.solved.at(*row).IsSolved()) {
        const SolvedRow& failed = compared.result.solved.at(row.value_or(compared.result.solved.size() - 1));
        compared.reason = fmt::format("There is no solution: {}.", failed.fault);
        return;
    }
    compared.row = *row;
    compared.why = nearest ? ComparedRow::chosen : WhyOf(compared.result, *row);
}

bool HasGoal(int calculationType) {
    return calculationType == calculation_type::personnelProtection ||
           calculationType == calculation_type::condensationControl ||
           calculationType == calculation_type::heatFlowLimitation;
}

void TakeAnswer(ComparedCase& compared, const CaseInputs& inputs, const KeptCase& kept) {
    const double fixed = FixedThickness(inputs);
    for (const SolvedRow& row : compared.result.solved) {
        compared.thicknesses.push_back(row.bare ? std::nullopt
                                                : std::optional(fixed + double{row.nominal.value_or(0)}));
    }
    ChooseRow(compared, kept.chosen);
    if (compared.HasFigures() && HasGoal(inputs.calculationType)) {
        const auto& moisture = compared.result.condensation;
        compared.meetsGoal =
            MeetsGoal(compared.Solved(), inputs, moisture ? std::optional(moisture->dewPoint) : std::nullopt);
    }
}

template <class Record>
void Follow(JobMaterial& material, const Collection<Record>& records) {
    const Record* const numbered = FindById(records, material.id);
    if (numbered != nullptr && numbered->Name == material.name) {
        return;
    }
    constexpr std::int32_t nobody = -1;
    if (const Record* const named = FindByName(records, material.name)) {
        material.id = named->ID;
    } else if (numbered != nullptr) {
        material.id = nobody;
    }
}

ComparedCase SolveCase(const KeptCase& kept, Catalogue& catalogue) {
    ComparedCase compared;
    compared.name = kept.name;
    compared.job = kept.job;
    FollowMaterials(compared.job, catalogue);
    CaseReading reading = ReadCase(compared.job, catalogue);
    if (reading.inputs) {
        CHeatLossCalculator calculator;
        CReport report;
        compared.result = Calculate(*reading.inputs, calculator, report);
    }
    auto& findings = compared.result.findings;
    findings.insert(findings.begin(), std::make_move_iterator(reading.findings.begin()),
                    std::make_move_iterator(reading.findings.end()));
    if (compared.result.done) {
        TakeAnswer(compared, *reading.inputs, kept);
    } else {
        compared.reason = ReasonOf(compared.result);
    }
    return compared;
}

} // namespace

void FollowMaterials(Job& job, const Catalogue& catalogue) {
    Follow(job.baseMetal, catalogue.BaseMetals);
    Follow(job.jacket, catalogue.JacketMaterials);
    for (JobLayer& layer : job.layers) {
        Follow(layer.material, catalogue.Insulations);
    }
}

std::vector<ComparedCase> SolveCases(const std::vector<KeptCase>& cases, const Catalogue& catalogue) {
    // A calculation writes the figures of its fuel into the record; the kept cases leave the job's alone.
    Catalogue own = catalogue;
    std::vector<ComparedCase> compared;
    compared.reserve(cases.size());
    for (const KeptCase& kept : cases) {
        compared.push_back(SolveCase(kept, own));
    }
    return compared;
}

} // namespace kaloria
