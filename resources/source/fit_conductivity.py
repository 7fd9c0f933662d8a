#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Fits k = A + B T + C T^2 to the conductivity points of every polynomial
insulation and compares the fit with the coefficients of insulations.csv.

Prints, for each material, both largest differences in k at the points: fit
against coefficients and coefficients against points.  Ends with status 1 when
a coefficient set strays from its fit by more than 0.0001 Btu in/(h ft2 F).
The points of three materials (7, 8 and 29) are themselves computed and stand
rounded in the table, hence that tolerance.
"""
import csv
import os
import sys
from fractions import Fraction

HERE = os.path.dirname(os.path.abspath(__file__))
TOLERANCE = 1e-4


def read(name):
    with open(os.path.join(HERE, name), newline="", encoding="utf-8") as f:
        return list(csv.DictReader(f))


def fit(points, terms):
    """Least-squares coefficients by exact normal equations."""
    rows = [[sum(t ** (i + j) for t, _ in points) for j in range(terms)]
            + [sum(k * t ** i for t, k in points)] for i in range(terms)]
    for c in range(terms):
        rows[c] = [x / rows[c][c] for x in rows[c]]
        for r in range(terms):
            if r != c:
                rows[r] = [x - rows[r][c] * y for x, y in zip(rows[r], rows[c])]
    return [row[terms] for row in rows]


def value(coefficients, t):
    return sum(c * t ** i for i, c in enumerate(coefficients))


def main():
    points = {}
    for r in read("insulation_fit_points.csv"):
        points.setdefault(r["ID"], []).append(
            (Fraction(r["Temperature"]), Fraction(r["Conductivity"])))
    worst = 0
    for r in read("insulations.csv"):
        stored = [Fraction(r[c]) for c in "ABC"]
        if not any(stored):
            continue
        own = points[r["ID"]]
        fitted = fit(own, 3 if stored[2] else 2)
        stray = max(abs(value(fitted, t) - value(stored, t)) for t, _ in own)
        error = max(abs(value(stored, t) - k) for t, k in own)
        worst = max(worst, stray)
        print(f"{r['ID']:>3}  fit {float(stray):.6f}  points {float(error):.4f}  {r['Name']}")
    sys.exit(1 if worst > TOLERANCE else 0)


if __name__ == "__main__":
    main()
