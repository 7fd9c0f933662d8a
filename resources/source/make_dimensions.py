#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Writes the dimensional reference tables of Kaloria beside this script.

    pipes.csv, tubes.csv, pipe_insulation_thickness.csv,
    tube_insulation_thickness.csv, nominal_thickness.csv

docs/reference-data.md explains the series, the rules and the sources.  Ends
with status 1 when a diameter contradicts a published weight factor.
"""
import csv
import math
import os
import sys

HERE = os.path.dirname(os.path.abspath(__file__))

# --- pipes: NPS, DN, European OD mm (EN 10220), OD in, OD mm, STD wall in, mm
PIPES = [
    (0.5, 15, 21.3, 0.840, 21.3, 0.109, 2.77),
    (0.75, 20, 26.9, 1.050, 26.7, 0.113, 2.87),
    (1, 25, 33.7, 1.315, 33.4, 0.133, 3.38),
    (1.25, 32, 42.4, 1.660, 42.2, 0.140, 3.56),
    (1.5, 40, 48.3, 1.900, 48.3, 0.145, 3.68),
    (2, 50, 60.3, 2.375, 60.3, 0.154, 3.91),
    (2.5, 65, 76.1, 2.875, 73.0, 0.203, 5.16),
    (3, 80, 88.9, 3.500, 88.9, 0.216, 5.49),
    (3.5, 90, 101.6, 4.000, 101.6, 0.226, 5.74),
    (4, 100, 114.3, 4.500, 114.3, 0.237, 6.02),
    (5, 125, 139.7, 5.563, 141.3, 0.258, 6.55),
    (6, 150, 168.3, 6.625, 168.3, 0.280, 7.11),
    (8, 200, 219.1, 8.625, 219.1, 0.322, 8.18),
    (10, 250, 273.0, 10.750, 273.0, 0.365, 9.27),
    (12, 300, 323.9, 12.750, 323.8, 0.375, 9.53),
    (14, 350, 355.6, 14.000, 355.6, 0.375, 9.53),
    (16, 400, 406.4, 16.000, 406.4, 0.375, 9.53),
    (18, 450, 457.0, 18.000, 457.0, 0.375, 9.53),
    (20, 500, 508.0, 20.000, 508.0, 0.375, 9.53),
    (22, 550, 559.0, 22.000, 559.0, 0.375, 9.53),
    (24, 600, 610.0, 24.000, 610.0, 0.375, 9.53),
    (26, 650, 660.0, 26.000, 660.0, 0.375, 9.53),
    (28, 700, 711.0, 28.000, 711.0, 0.375, 9.53),
    (30, 750, 762.0, 30.000, 762.0, 0.375, 9.53),
    (32, 800, 813.0, 32.000, 813.0, 0.375, 9.53),
    (36, 900, 914.0, 36.000, 914.0, 0.375, 9.53),
]

# --- tubes: nominal size, OD in, type L wall in
TUBES = [
    (0.25, 0.375, 0.030),
    (0.375, 0.500, 0.035),
    (0.5, 0.625, 0.040),
    (0.625, 0.750, 0.042),
    (0.75, 0.875, 0.045),
    (1, 1.125, 0.050),
    (1.25, 1.375, 0.055),
    (1.5, 1.625, 0.060),
    (2, 2.125, 0.070),
    (2.5, 2.625, 0.080),
    (3, 3.125, 0.090),
    (3.5, 3.625, 0.100),
    (4, 4.125, 0.110),
    (5, 5.125, 0.125),
    (6, 6.125, 0.140),
]

# --- the 18 nominal thicknesses in the four series
US = [0.5, 1, 1.5, 2, 2.5, 3, 3.5, 4, 4.5, 5, 5.5, 6, 6.5, 7, 7.5, 8, 9, 10]
US_METRIC = [13, 25, 40, 50, 65, 75, 90, 100, 115, 125, 140, 150, 165, 180,
             190, 200, 230, 250]
EUROPEAN = [20, 25, 30, 40, 50, 60, 70, 80, 90, 100, 110, 120, 130, 140, 150,
            160, 180, 200]
EUROPEAN_FLAT = [30, 40, 50, 60, 70, 80, 90, 100, 110, 120, 130, 140, 150,
                 160, 180, 200, 220, 240]

# --- diameters of the simplified (nesting) dimensional system, inches
SERIES = [1.32, 1.66, 1.90, 2.38, 2.88, 3.50, 4.00, 4.50, 5.00, 5.56, 6.62,
          7.62, 8.62, 9.62, 10.75, 11.75, 12.75] + [float(i) for i in range(14, 61)]

HALVES = [1, 1.5, 2, 2.5, 3, 3.5, 4, 4.5, 5]

# Outside diameters for nominal 1, 1.5 ... 5 in.
PIPE_OD = {
    0.5: [2.88, 4.00, 5.00, 6.62, 7.62, 8.62, 9.62, 10.75, 11.75],
    0.75: [2.88, 4.00, 5.00, 6.62, 7.62, 8.62, 9.62, 10.75, 11.75],
    1: [3.50, 4.50, 5.56, 6.62, 7.62, 8.62, 9.62, 10.75, 11.75],
    1.25: [3.50, 5.00, 5.56, 6.62, 7.62, 8.62, 9.62, 10.75, 11.75],
    1.5: [4.00, 5.00, 6.62, 7.62, 8.62, 9.62, 10.75, 11.75, 12.75],
    2: [4.50, 5.56, 6.62, 7.62, 8.62, 9.62, 10.75, 11.75, 12.75],
    2.5: [5.00, 6.62, 7.62, 8.62, 9.62, 10.75, 11.75, 12.75, 14.00],
    3: [5.56, 6.62, 7.62, 8.62, 9.62, 10.75, 11.75, 12.75, 14.00],
    3.5: [6.62, 7.62, 8.62, 9.62, 10.75, 11.75, 12.75, 12.75, 14.00],
    4: [6.62, 7.62, 8.62, 9.62, 10.75, 11.75, 12.75, 14.00, 15.00],
    5: [7.62, 8.62, 9.62, 10.75, 11.75, 12.75, 14.00, 15.00, 16.00],
    6: [8.62, 9.62, 10.75, 11.75, 12.75, 14.00, 15.00, 16.00, 17.00],
    8: [10.75, 11.75, 12.75, 14.00, 15.00, 16.00, 17.00, 18.00, 19.00],
    10: [12.75, 14.00, 15.00, 16.00, 17.00, 18.00, 19.00, 20.00, 21.00],
    12: [15.00, 16.00, 17.00, 18.00, 19.00, 20.00, 21.00, 22.00, 23.00],
}

# Published weight factors (insulation area, square feet per foot) against
# which the diameters are checked: Facility Piping Systems Handbook,
# Table 2.14.  Columns 1, 1.5 ... 6 in; None where the table is blank.
HALVES6 = HALVES + [5.5, 6]
AREA = {
    1: [.055, .10, .16, .23, .31, .40, None, None, None, None, None],
    1.25: [.048, .12, .15, .22, .30, .39, None, None, None, None, None],
    1.5: [.063, .11, .21, .29, .38, .48, None, None, None, None, None],
    2: [.080, .14, .21, .29, .37, .47, .59, None, None, None, None],
    2.5: [.091, .19, .27, .36, .46, .58, .70, .83, None, None, None],
    3: [.10, .17, .25, .34, .44, .56, .68, .81, None, None, None],
    3.5: [.14, .23, .31, .41, .54, .66, .78, None, .97, None, None],
    4: [.13, .21, .30, .39, .51, .63, .77, .96, 1.10, None, None],
    5: [.15, .24, .34, .45, .58, .71, .88, 1.04, 1.20, None, None],
    6: [.17, .27, .38, .51, .64, .83, .97, 1.13, 1.34, None, None],
    8: [None, .34, .47, .66, .80, .97, 1.17, 1.36, 1.56, 1.75, None],
    10: [None, .43, .59, .75, .93, 1.12, 1.32, 1.54, 1.76, 1.99, None],
    12: [None, .50, .68, .88, 1.07, 1.28, 1.52, 1.74, 1.99, 2.24, 2.50],
    14: [None, .51, .70, .90, 1.11, 1.34, 1.57, 1.81, 2.07, 2.34, 2.62],
    16: [None, .57, .78, 1.01, 1.24, 1.49, 1.74, 2.01, 2.29, 2.58, 2.88],
    18: [None, .64, .87, 1.12, 1.37, 1.64, 1.92, 2.21, 2.51, 2.82, 3.14],
    20: [None, .70, .96, 1.23, 1.50, 1.79, 2.09, 2.40, 2.73, 3.06, 3.40],
    24: [None, .83, 1.13, 1.44, 1.77, 2.10, 2.44, 2.80, 3.16, 3.54, 3.92],
}

# Outside diameters over tube insulation for nominal 1, 1.5 ... 3 in.
TUBE_OD = {
    0.375: [2.38, 3.50, 4.50, 5.56, 6.62],
    0.5: [2.88, 3.50, 4.50, 5.56, 6.62],
    0.75: [2.88, 4.00, 5.00, 6.62, 7.62],
    1: [2.88, 4.00, 5.00, 6.62, 7.62],
    1.25: [3.50, 4.50, 5.56, 6.62, 7.62],
    1.5: [3.50, 4.50, 5.56, 6.62, 7.62],
    2: [4.00, 5.00, 6.62, 7.62, 8.62],
    2.5: [4.50, 5.56, 6.62, 7.62, 8.62],
    3: [5.00, 6.62, 7.62, 8.62, 9.62],
    3.5: [5.56, 6.62, 7.62, 8.62, 9.62],
    4: [6.62, 7.62, 8.62, 9.62, 10.75],
    5: [7.62, 8.62, 9.62, 10.75, 11.75],
    6: [8.62, 9.62, 10.75, 11.75, 12.75],
}


def num(x, places):
    """Shortest decimal text with at most the given number of places."""
    s = f"{x:.{places}f}"
    return s.rstrip("0").rstrip(".") if "." in s else s


def step_up(od, halves):
    """The diameter a number of half-inch thickness steps further out."""
    return SERIES[SERIES.index(od) + halves]


def nearest(d, t):
    """Series diameter nearest to d + 2 t whose wall is at most 0.10 in short."""
    fits = [s for s in SERIES if (s - d) / 2 >= t - 0.10]
    return min(fits, key=lambda s: (abs(s - (d + 2 * t)), -s))


def pipe_limits(nps):
    """Least and greatest nominal thickness for which a row is given."""
    if nps <= 6:
        low = 0.5
    elif nps <= 24:
        low = 1
    else:
        low = 1.5
    high = 6 if nps <= 1.5 else 8 if nps <= 5 else 10
    return low, high


def published_area(nps, t):
    """Published weight factor of a pipe and nominal thickness, or None."""
    if nps in AREA and t in HALVES6:
        return AREA[nps][HALVES6.index(t)]
    return None


def pipe_diameter(nps, d, t):
    """(outside diameter, source) for one pipe and nominal thickness."""
    if nps >= 14:
        od, rule = d + 2 * t, "rule: pipe + 2 x nominal"
    elif t == 0.5:
        od, rule = nearest(d, t), "rule: nearest nesting diameter"
    elif t > 5:
        od, rule = step_up(PIPE_OD[nps][-1], round((t - 5) * 2)), "rule: one diameter per 1/2 in"
    else:
        od, rule = PIPE_OD[nps][HALVES.index(t)], "ASTM C585 nesting, recalled"
        if nps >= 8 and t == 1:
            rule = "rule: one diameter below 1.5 in"
    if published_area(nps, t) is not None:
        return od, "ASTM C585 nesting, checked"
    return od, rule


def contradictions():
    """Published weight factors that are nearer to a neighbouring diameter."""
    for nps, _, _, d, *_ in PIPES:
        for t in HALVES6:
            factor = published_area(nps, t)
            if factor is None:
                continue
            od, _ = pipe_diameter(nps, d, t)
            i = SERIES.index(od)
            miss = [abs(math.pi / 4 * (s * s - d * d) / 144 - factor)
                    for s in SERIES[i - 1:i + 2]]
            if miss[1] > min(miss):
                yield f"NPS {num(nps, 2)} at {t} in: {od} in does not fit the factor {factor}"


def pipe_source(row, european):
    """Source text of a pipe record, by its row number from 1."""
    text = "ASME B36.10M, STD wall (read)"
    if row >= 22:
        text += ", mm diameter recalled"
    how = "read" if row <= 11 and european != 101.6 else "recalled"
    return f"{text}; EN 10220 diameter {how}"


def tube_source(nominal):
    text = "ASTM B88 type L (read)"
    return text + "; two tables differ on this wall" if nominal == 4 else text


def nominal_source(t):
    how = "within ASTM C585 (scope read)" if t <= 5 else "laid in layers"
    return f"US {how}; metric rounding and European steps recalled"


def tube_limits(nts):
    low = 0.5 if nts <= 4 else 1
    high = 3 if nts <= 0.5 else 4 if nts <= 1.5 else 5
    return low, high


def tube_diameter(nts, d, t):
    """(outside diameter, source) for one tube and nominal thickness."""
    if t == 0.5 or nts not in TUBE_OD:
        return nearest(d, t), "rule: nearest nesting diameter"
    row = TUBE_OD[nts]
    if t <= 3:
        return row[HALVES.index(t)], "ASTM C585 tubing, recalled"
    return step_up(row[-1], round((t - 3) * 2)), "rule: one diameter per 1/2 in"


def thickness_rows(sizes, limits, diameter):
    """Rows (id, nominal, actual, od, type, source): the inch rows of a size,
    thinnest first, then its millimetre rows."""
    for ident, (nominal, od_in) in enumerate(sizes, 1):
        low, high = limits(nominal)
        inch = []
        for i, t in enumerate(US):
            if low <= t <= high:
                od, source = diameter(nominal, od_in, t)
                inch.append((i, t, (od - od_in) / 2, od, source))
        for i, t, act, od, source in inch:
            yield ident, num(t, 1), num(act, 3), num(od, 2), 1, source
        for i, t, act, od, source in inch:
            yield (ident, num(US_METRIC[i], 0), num(act * 25.4, 2),
                   num(od * 25.4, 1), 2, source + "; inch row x 25.4")


def write(name, header, rows):
    with open(os.path.join(HERE, name), "w", newline="", encoding="utf-8") as f:
        w = csv.writer(f, lineterminator="\n")
        w.writerow(header)
        w.writerows(rows)


def main():
    wrong = list(contradictions())
    if wrong:
        sys.exit("\n".join(wrong))
    write("pipes.csv",
          ["ID", "US-NPS", "US-Metric", "European", "ActualPipeSizeInches",
           "ActualPipeSizemm", "WallThicknessInches", "WallThicknessmm", "Source"],
          [[i, num(p[0], 2), p[1], num(p[2], 1), num(p[3], 3), num(p[4], 1),
            num(p[5], 3), num(p[6], 2), pipe_source(i, p[2])] for i, p in enumerate(PIPES, 1)])
    write("tubes.csv",
          ["ID", "US-NTS", "ActualTubeSizeInches", "WallThicknessInches", "Source"],
          [[i, num(t[0], 3), num(t[1], 3), num(t[2], 3), tube_source(t[0])]
           for i, t in enumerate(TUBES, 1)])
    write("nominal_thickness.csv",
          ["US", "USMetric", "European", "EuropeanFlat", "Source"],
          [[num(a, 1), b, c, d, nominal_source(a)]
           for a, b, c, d in zip(US, US_METRIC, EUROPEAN, EUROPEAN_FLAT)])
    write("pipe_insulation_thickness.csv",
          ["PipeID", "NominalThickness", "ActualThickness", "OD",
           "InsulationType", "Source"],
          thickness_rows([(p[0], p[3]) for p in PIPES], pipe_limits, pipe_diameter))
    write("tube_insulation_thickness.csv",
          ["TubeID", "NominalThickness", "ActualThickness", "OD",
           "InsulationType", "Source"],
          thickness_rows([(t[0], t[1]) for t in TUBES], tube_limits, tube_diameter))


if __name__ == "__main__":
    main()
