// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/conduction.h"

#include "engine/numeric_fault.h"

#include <cmath>
#include <cstddef>

namespace kaloria::conduction {

void EquivalentThicknesses(std::span<const float> radii, std::span<double> equivalents) {
    const double outer = radii.back();
    for (std::size_t i = 0; i < equivalents.size(); ++i) {
        equivalents[i] = outer * std::log(double{radii[i + 1]} / radii[i]);
    }
}

void Resistances(std::span<const double> equivalents, std::span<const float> conductivities,
                 std::span<double> resistances) {
    for (std::size_t i = 0; i < resistances.size(); ++i) {
        resistances[i] = equivalents[i] / conductivities[i];
    }
}

double Flux(double tempDifference, double film, std::span<const double> resistances) {
    double sum = 0.0;
    for (const double resistance : resistances) {
        sum += resistance;
    }
    return tempDifference / (1.0 / film + sum);
}

void InterfaceTemperatures(double flux, std::span<const double> resistances, std::span<float> temps) {
    for (std::size_t i = 0; i < resistances.size(); ++i) {
        temps[i + 1] = Single(temps[i] - flux * resistances[i]);
    }
}

double WallConductivity(int baseMetalId, double meanTemp) {
    const double t = meanTemp;
    switch (baseMetalId) {
    case 1:
        return 458.46 - 0.1926 * t - 1e-5 * t * t + 2e-8 * t * t * t;
    case 2:
        return 87.534 + 0.0689 * t - 1e-5 * t * t + 2e-9 * t * t * t;
    case 3:
        return 2700.0;
    default:
        return 1.02;
    }
}

} // namespace kaloria::conduction
