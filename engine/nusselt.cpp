// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/nusselt.h"

#include <cmath>

namespace kaloria::nusselt {

namespace {

double Square(double x) { return x * x; }

double FourthRoot(double x) { return std::sqrt(std::sqrt(x)); }

double SixthRoot(double x) { return std::cbrt(std::sqrt(x)); }

/// 1 + (c/Pr)^(9/16), the Prandtl-number function of Churchill and Usagi
double PrandtlFunction(double c, double prandtl) {
    const double root = FourthRoot(FourthRoot(c / prandtl)); // (c/Pr)^(1/16)
    return 1.0 + Square(Square(Square(root))) * root;
}

/// 0.387 Ra^(1/6) / [1 + (c/Pr)^(9/16)]^(8/27)
double TurbulentTerm(double c, double rayleigh, double prandtl) {
    return 0.387 * SixthRoot(rayleigh) / std::pow(PrandtlFunction(c, prandtl), 8.0 / 27.0);
}

} // namespace

double NaturalHorizontalCylinder(double rayleigh, double prandtl) {
    return Square(0.6 + TurbulentTerm(0.559, rayleigh, prandtl));
}

double NaturalVertical(double rayleigh, double prandtl) {
    return Square(0.825 + TurbulentTerm(0.492, rayleigh, prandtl));
}

double NaturalVerticalLaminar(double rayleigh, double prandtl) {
    return 0.68 + 0.67 * FourthRoot(rayleigh) / std::pow(PrandtlFunction(0.492, prandtl), 4.0 / 9.0);
}

double NaturalHorizontalFavourable(double rayleigh) {
    return rayleigh < 1e7 ? 0.54 * FourthRoot(rayleigh) : 0.15 * std::cbrt(rayleigh);
}

double NaturalHorizontalUnfavourable(double rayleigh) { return 0.27 * FourthRoot(rayleigh); }

double ForcedCylinder(double reynolds, double prandtl) {
    if (reynolds == 0.0) {
        return 0.3; // what the powers below give, without computing them: still air is the common case
    }
    const double prandtlRoot = std::cbrt(prandtl);
    const double denominator = FourthRoot(1.0 + Square(std::cbrt(0.4) / prandtlRoot));
    const double eighthRoot = FourthRoot(std::sqrt(reynolds / 282000.0));
    const double bracket = 1.0 + Square(Square(eighthRoot)) * eighthRoot; // 1 + (Re/282000)^(5/8)
    return 0.3 + 0.62 * std::sqrt(reynolds) * prandtlRoot / denominator * std::pow(bracket, 0.8);
}

double ForcedPlate(double reynolds, double prandtl) {
    if (reynolds <= 0.0) {
        return 0.0;
    }
    const double prandtlRoot = std::cbrt(prandtl);
    if (reynolds < 500000.0) {
        return 0.6774 * std::sqrt(reynolds) * prandtlRoot /
               FourthRoot(1.0 + Square(std::cbrt(0.0468) / prandtlRoot));
    }
    return (0.037 * std::pow(reynolds, 0.8) - 871.0) * prandtlRoot;
}

} // namespace kaloria::nusselt
