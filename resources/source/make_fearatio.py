#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Writes fea_ratio.csv, the installed-cost ratios of Kaloria.

Reads pipes.csv, nominal_thickness.csv and pipe_insulation_thickness.csv from
the folder of this script and writes the table beside them;
scripts/make-reference-data turns it into resources/FEAratio.dta.

Labour ratio.  A ratio of 1 stands for 0.012 hours of craft labour per foot of
pipe or per square foot of flat surface, at labour factor 1 (material type 3)
and productivity 100.  With A the outer surface of a layer and Ao the finished
outer surface, both in square feet per foot, and t the thickness of one layer
in inches:

    hours per foot   = sum over layers (0.02 + 0.060 (0.9 + 0.1 t) A)
                       + 0.01 + 0.047 Ao
    hours per sq ft  = sum over layers  0.060 (0.9 + 0.1 t)  + 0.047

Layers are of equal thickness: on pipe one up to 3 in nominal, two up to 6 in,
three above; on flat surfaces one up to 4 in, two up to 8 in, three above.

Material ratio.  With V the insulation volume in cubic feet per foot, Ao as
above, and V2, A2 their values for 2 in pipe with 2 in insulation:

    pipe:  w V / V2 + (1 - w) Ao / A2          w  = 1 - 0.90 A2 / pipe price
    flat:  wf T / 2 + (1 - wf)                 wf = 1 - 0.90 / board price

0.90 is the price of the jacket, with its laps and fastenings, per square foot
of finished surface; the prices are the default prices of the material type.
A combination that is not made has the ratio 0.
"""
import csv
import math
import os

HERE = os.path.dirname(os.path.abspath(__file__))

UNIT_HOURS = 0.012
JACKET_PRICE = 0.90

# type code: (name, default pipe price, default board price)
TYPES = {
    1: ("glass fibre", 4.97, 1.71),
    2: ("mineral wool", 4.97, 1.71),
    3: ("calcium silicate", 4.88, 1.90),
    4: ("cellular glass", 4.63, 1.92),
}


def read(name):
    with open(os.path.join(HERE, name), newline="", encoding="utf-8") as f:
        return list(csv.DictReader(f))


def pipe_layers(t):
    return 1 if t <= 3 else 2 if t <= 6 else 3


def flat_layers(t):
    return 1 if t <= 4 else 2 if t <= 8 else 3


def area(d):
    """Surface of a cylinder of d inches, square feet per foot."""
    return math.pi * d / 12


def volume(d, od):
    """Insulation between two diameters, cubic feet per foot."""
    return math.pi * (od * od - d * d) / 4 / 144


def pipe_hours(d, od, n):
    t = (od - d) / 2 / n
    hours = 0.01 + 0.047 * area(od)
    for i in range(1, n + 1):
        hours += 0.02 + 0.060 * (0.9 + 0.1 * t) * area(d + 2 * t * i)
    return hours


def flat_hours(thick, n):
    return n * 0.060 * (0.9 + 0.1 * thick / n) + 0.047


def made(code, nps, t):
    """Whether type code is made for the size at nominal thickness t."""
    if t < 1:
        return code == 1 and nps <= 6
    if t == 1:
        return nps <= 24 if code in (1, 2) else nps <= 6
    return True


def build():
    thick = [float(r["US"]) for r in read("nominal_thickness.csv")]
    pipes = [(int(r["ID"]), float(r["US-NPS"]), float(r["ActualPipeSizeInches"]))
             for r in read("pipes.csv")]
    od = {(int(r["PipeID"]), float(r["NominalThickness"])): float(r["OD"])
          for r in read("pipe_insulation_thickness.csv")
          if r["InsulationType"] == "1"}
    base = next(p for p in pipes if p[1] == 2)
    v2 = volume(base[2], od[base[0], 2.0])
    a2 = area(od[base[0], 2.0])

    labour = []
    for ident, nps, d in pipes:
        labour.append([pipe_hours(d, od[ident, t], pipe_layers(t)) / UNIT_HOURS
                       if (ident, t) in od else 0 for t in thick])
    labour.append([flat_hours(t, flat_layers(t)) / UNIT_HOURS if t >= 1 else 0
                   for t in thick])

    material = {}
    for code, (_, pipe_price, board_price) in TYPES.items():
        w = 1 - JACKET_PRICE * a2 / pipe_price
        wf = 1 - JACKET_PRICE / board_price
        rows = []
        for ident, nps, d in pipes:
            row = []
            for t in thick:
                o = od.get((ident, t))
                if o is None or not made(code, nps, t):
                    row.append(0)
                else:
                    row.append(w * volume(d, o) / v2 + (1 - w) * area(o) / a2)
            rows.append(row)
        rows.append([wf * t / 2 + (1 - wf) if t >= 1 else 0 for t in thick])
        material[code] = rows
    return thick, [p[1] for p in pipes], labour, material


def text(x, places):
    return "0" if x == 0 else f"{x:.{places}f}"


def main():
    thick, sizes, labour, material = build()
    names = [f"{s:g}" for s in sizes] + ["flat"]
    table = [["labour", "", i, names[i - 1]] + [text(x, 2) for x in row]
             for i, row in enumerate(labour, 1)]
    for code in sorted(material):
        table += [["material", code, i, names[i - 1]] + [text(x, 3) for x in row]
                  for i, row in enumerate(material[code], 1)]
    with open(os.path.join(HERE, "fea_ratio.csv"), "w", newline="", encoding="utf-8") as f:
        w = csv.writer(f, lineterminator="\n")
        w.writerow(["Table", "Type", "SizePosition", "Size"]
                   + [f"T{t:g}" for t in thick])
        w.writerows(table)


if __name__ == "__main__":
    main()
