// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/insulation.h"

#include "engine/numeric_fault.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <utility>

namespace kaloria {

namespace {

constexpr std::size_t order = 3;
using Row = std::array<double, order + 1>; // coefficients and right-hand side
using Matrix = std::array<Row, order>;

/// Solves the system in place and returns its solution.
std::array<double, order> SolveByElimination(Matrix& m) {
    std::array<double, order> columnScale{};
    for (std::size_t c = 0; c < order; ++c) {
        for (const Row& row : m) {
            columnScale[c] = std::max(columnScale[c], std::abs(row[c]));
        }
    }
    for (std::size_t c = 0; c < order; ++c) {
        std::size_t best = c;
        for (std::size_t r = c + 1; r < order; ++r) {
            if (std::abs(m[r][c]) > std::abs(m[best][c])) {
                best = r;
            }
        }
        // Written so that a NaN pivot counts as singular too.
        if (!(std::abs(m[best][c]) > 1e-12 * columnScale[c])) {
            throw NumericFault("the temperature points do not determine a conductivity curve");
        }
        std::swap(m[c], m[best]);
        for (std::size_t r = c + 1; r < order; ++r) {
            const double factor = m[r][c] / m[c][c];
            for (std::size_t k = c; k <= order; ++k) {
                m[r][k] -= factor * m[c][k];
            }
        }
    }
    std::array<double, order> solution{};
    for (std::size_t r = order; r-- > 0;) {
        double rest = m[r][order];
        for (std::size_t k = r + 1; k < order; ++k) {
            rest -= m[r][k] * solution[k];
        }
        solution[r] = rest / m[r][r];
    }
    return solution;
}

} // namespace

void CInsulation::CalculateQuadratic() {
    const FaultTrap trap;
    lowerTemp_ = -1000.0F;
    upperTemp_ = 4000.0F;
    // Temperatures are divided by the largest one, so that the sums of their powers stay of one size and
    // the test for a singular system means the same for cryogenic and for furnace data.
    double scale = 0.0;
    for (const CTemperaturePoint& point : TemperaturePoints) {
        lowerTemp_ = std::min(lowerTemp_, point.Temperature);
        upperTemp_ = std::max(upperTemp_, point.Temperature);
        scale = std::max(scale, std::abs(double{point.Temperature}));
    }
    scale = scale > 0.0 ? scale : 1.0;

    Matrix normal{};
    for (const CTemperaturePoint& point : TemperaturePoints) {
        const double t = point.Temperature / scale;
        const std::array<double, order> powers{1.0, t, t * t};
        for (std::size_t r = 0; r < order; ++r) {
            for (std::size_t c = 0; c < order; ++c) {
                normal[r][c] += powers[r] * powers[c];
            }
            normal[r][order] += powers[r] * point.Conductivity;
        }
    }
    const auto [a, b, c] = SolveByElimination(normal);
    trap.Check("conductivity curve", {a, b, c});
    A = Single(a);
    B = Single(b / scale);
    C = Single(c / (scale * scale));
}

} // namespace kaloria
