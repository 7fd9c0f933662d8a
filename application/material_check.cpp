// SPDX-License-Identifier: GPL-3.0-or-later
#include "application/conductivity_check.h"
#include "application/material_rules.h"
#include "data/fuel_units.h"
#include "data/xml_text.h"
#include "engine/number_text.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <set>

namespace kaloria {

namespace {

using Findings = std::vector<Finding>;

constexpr float coldest = -459.67F; // absolute zero [degF]
constexpr float hottest = 4000.0F;  // above every insulation's service [degF]

constexpr FuelUnitPair unitPairs[] = {
    {"$/Mcf", "Btu/cf"}, {"$/gal", "Btu/gal"}, {"$/lb", "Btu/lb"},
    {"$/ton", "Btu/lb"}, {"$/kWh", "Btu/kWh"}, {"$/MMBtu", "Btu/MMBtu"},
};

void Fail(Findings& findings, std::string_view subject, std::string text) {
    findings.push_back({Severity::error, std::string(subject), std::move(text)});
}

void Warn(Findings& findings, std::string_view subject, std::string text) {
    findings.push_back({Severity::warning, std::string(subject), std::move(text)});
}

/// Job files and choices name records by their names, so a name belongs to one record.
template <class Record>
void CheckName(const Collection<Record>& records, const Record& record, Findings& findings) {
    if (Trimmed(record.Name).empty()) {
        Fail(findings, "Name", "A name is needed.");
    } else if (Trimmed(record.Name) != record.Name || XmlText(record.Name) != record.Name ||
               record.Name.find_first_of("\t\r\n") != std::string::npos) {
        Fail(findings, "Name", "The name has blanks at its ends or characters that cannot be saved.");
    }
    for (const Record& other : records) {
        if (other.ID != record.ID && other.Name == record.Name) {
            Fail(findings, "Name", fmt::format("There is already a record named \"{}\".", record.Name));
            return;
        }
    }
}

void CheckEmittance(float emittance, Findings& findings) {
    if (!(emittance >= 0.0F && emittance <= 1.0F)) {
        Fail(findings, "Emittance", "The emittance has to be between 0 and 1.");
    } else if (emittance == 0.0F) {
        Warn(findings, "Emittance", "A surface of emittance 0 does not radiate; no real one is such.");
    }
}

bool IsServiceTemp(float temp) { return temp >= coldest && temp <= hottest; }

void CheckLimits(const CInsulation& record, Units units, Findings& findings) {
    for (const auto& [subject, temp] : {std::pair{"MinTemp", record.MinTemp}, {"MaxTemp", record.MaxTemp}}) {
        if (!IsServiceTemp(temp)) {
            Fail(findings, subject,
                 fmt::format("The limit has to be within {:g} to {:g} {}.",
                             FromEnglish(Quantity::temperature, units, coldest),
                             FromEnglish(Quantity::temperature, units, hottest),
                             InfoOf(Quantity::temperature).Text(units)));
        }
    }
    if (record.MaxTemp < record.MinTemp) {
        Fail(findings, "MaxTemp", "The maximum temperature is below the minimum temperature.");
    } else if (record.MaxTemp == record.MinTemp) {
        Warn(findings, "MaxTemp", "Without service limits no temperature is warned of.");
    }
}

/// Installed costs know the types 1 to 4; calculations of heat flow do not ask.
void CheckType(const CInsulation& record, Findings& findings) {
    constexpr std::int32_t lastPriced = 4;
    if (record.InsulationType < 1) {
        Fail(findings, "InsulationType", "The type is a number from 1.");
    } else if (record.InsulationType > lastPriced) {
        findings.push_back({Severity::information, "InsulationType",
                            "Installed costs are estimated for the types 1 to 4 only."});
    }
}

bool SameIgnoringCase(std::string_view a, std::string_view b) {
    const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; };
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [&](char x, char y) { return lower(x) == lower(y); });
}

/// The price of heat is told from the unit of purchase, by exact text; anything else would count as dollars
/// per million Btu.
void CheckFuelUnits(const CFuel& record, Findings& findings) {
    const auto* const pair = std::find_if(std::begin(unitPairs), std::end(unitPairs),
                                          [&](const FuelUnitPair& p) { return p.cost == record.CostUnits; });
    if (pair == std::end(unitPairs)) {
        Fail(
            findings, "CostUnits",
            fmt::format("\"{}\" is none of $/Mcf, $/gal, $/lb, $/ton, $/kWh and $/MMBtu.", record.CostUnits));
    } else if (!SameIgnoringCase(record.BTUUnits, pair->heat)) {
        Fail(findings, "BTUUnits",
             fmt::format("A fuel bought in {} has its heating value in {}.", pair->cost, pair->heat));
    }
}

void CheckPollutants(const CFuel& record, Findings& findings) {
    std::set<std::string> names;
    for (const CPollutant& pollutant : record.Pollutants) {
        if (Trimmed(pollutant.Name).empty() || XmlText(pollutant.Name) != pollutant.Name) {
            Fail(findings, "Pollutants", "Every pollutant needs a name.");
        } else if (!names.insert(pollutant.Name).second) {
            Fail(findings, "Pollutants", fmt::format("\"{}\" stands twice.", pollutant.Name));
        }
        if (!std::isfinite(pollutant.Amount) || !(pollutant.Amount >= 0.0F)) {
            Fail(findings, "Pollutants",
                 fmt::format("The amount of \"{}\" has to be 0 or more.", pollutant.Name));
        }
    }
}

} // namespace

std::span<const FuelUnitPair> FuelUnitPairs() { return unitPairs; }

Findings CheckRecord(const Catalogue& catalogue, const CInsulation& record, Units units) {
    Findings findings;
    CheckName(catalogue.Insulations, record, findings);
    CheckLimits(record, units, findings);
    CheckType(record, findings);
    const ConductivityCheck curve = CheckConductivity(record, units);
    findings.insert(findings.end(), curve.findings.begin(), curve.findings.end());
    return findings;
}

Findings CheckRecord(const Catalogue& catalogue, const CBaseMetal& record) {
    constexpr std::int32_t lastKnownMetal = 3;
    Findings findings;
    CheckName(catalogue.BaseMetals, record, findings);
    CheckEmittance(record.Emittance, findings);
    if (record.ID > lastKnownMetal) {
        findings.push_back({Severity::information, "Name",
                            "The wall conducts heat as plastic does: only carbon steel, stainless steel and "
                            "copper have conductivities of their own."});
    }
    return findings;
}

Findings CheckRecord(const Catalogue& catalogue, const CJacketMaterial& record) {
    Findings findings;
    CheckName(catalogue.JacketMaterials, record, findings);
    CheckEmittance(record.Emittance, findings);
    return findings;
}

Findings CheckRecord(const Catalogue& catalogue, const CFuel& record) {
    constexpr float mostEfficient = 1000.0F; // [%], as the field of a job
    Findings findings;
    CheckName(catalogue.Fuels, record, findings);
    CheckFuelUnits(record, findings);
    if (!std::isfinite(record.Cost) || !(record.Cost >= 0.0F)) {
        Fail(findings, "Cost", "The price has to be 0 or more.");
    }
    if (!std::isfinite(record.BTU) || !(record.BTU > 0.0F)) {
        Fail(findings, "BTU", "The heating value has to be above 0.");
    }
    if (!(record.ConversionEfficiency > 0.0F && record.ConversionEfficiency <= mostEfficient)) {
        Fail(findings, "ConversionEfficiency",
             "The conversion efficiency has to be above 0 and up to 1000 %.");
    }
    CheckPollutants(record, findings);
    return findings;
}

} // namespace kaloria
