// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "application/economics.h"

#include <nlohmann/json_fwd.hpp>

#include <iosfwd>

namespace kaloria::cli {

/// What the analysis started from, then each surface: in the layout of tables the economic thickness at each
/// temperature, in the engineering layout every thickness; and the findings.
void PrintEconomics(const EconomicsResult& result, const CReport& report, std::ostream& out);

/// Every surface, temperature and thickness in one table, numbers unrounded; the economic thickness is
/// marked.
void PrintEconomicsCsv(const EconomicsResult& result, const CReport& report, std::ostream& out);

/// The whole analysis with numbers unrounded: `done`, `units`, `inputs`, `pollutants`, `items` (position,
/// name, `temperatures` with `rows` and `economicThickness`), `findings`. What was not computed is null.
[[nodiscard]] nlohmann::json ToJson(const EconomicsResult& result, const CReport& report);

/// Quantities of the figures of a surface, per length or per area.
struct SurfaceQuantities {
    explicit SurfaceQuantities(bool isPipe)
        : flow(isPipe ? Quantity::heatFlowPerLength : Quantity::heatFlux),
          price(isPipe ? Quantity::pipePrice : Quantity::boardPrice),
          yearlyMoney(isPipe ? Quantity::moneyPerLength : Quantity::moneyPerArea),
          emission(isPipe ? Quantity::emissionPerLength : Quantity::emissionPerArea) {}

    Quantity flow;
    Quantity price; ///< present worths too
    Quantity yearlyMoney;
    Quantity emission;
};

} // namespace kaloria::cli
