#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""The ten templates of the reports, as rich text.

scripts/make-reference-data writes them to resources/. One typographic system:
a sans-serif face, two sizes of headings, gray labels, hairlines, one accent.
Texts and tables are 6.5 in wide and stand inside the margins of letter and,
when only the paper is changed, of A4 paper. Everything is ASCII with LF.

A tag of a block (a table or lines) stands alone in its paragraph.
"""

# --- measures [twip, 1/1440 in] -------------------------------------------
WIDTH = 9360             # of the text: 6.5 in
GAP = 70                 # text of a cell from its edge; paragraphs stand in line with it
PAPER = (12240, 15840)   # letter
LEFT, RIGHT = 1356, 1190  # leave 9694 on letter, WIDTH on A4 paper (11906)
TOP = BOTTOM = 1440      # leave 9 in on letter
RAGGED = PAPER[0] - LEFT - RIGHT - WIDTH + GAP  # right indent of running text on letter

INK, GRAY, RULE, ACCENT = 1, 2, 3, 4
COLORS = ("1f2a33", "66707a", "c9ced3", "b4481e")

FONT = r"{\f0\fswiss\fprq2\fcharset0 Arial{\*\falt Liberation Sans};}"

# name: number, paragraph format, character format
STYLES = {
    "Normal": (0, r"\sl260\slmult0", rf"\f0\fs19\cf{INK}"),
    "Report Title": (1, r"\sb40\sa60\keepn", rf"\f0\fs36\b\cf{INK}"),
    "Report Heading": (2, r"\sb280\sa80\keepn", rf"\f0\fs21\b\cf{INK}"),
    "Report Kicker": (3, r"\keepn", rf"\f0\fs17\b\cf{ACCENT}"),
    "Report Label": (4, r"\sb39\sa30", rf"\f0\fs17\cf{GRAY}"),
    "Report Value": (5, r"\sb30\sa30", rf"\f0\fs18\cf{INK}"),
    "Report Table": (6, r"\sb8\sa8", rf"\f0\fs17\cf{INK}"),
    "Report Company": (7, "", rf"\f0\fs17\b\cf{INK}"),
    "Report Small": (8, "", rf"\f0\fs15\cf{GRAY}"),
}


def style_table():
    entries = [r"{\s%d%s%s %s;}" % (number, paragraph, character, name)
               for name, (number, paragraph, character) in STYLES.items()]
    return "{\\stylesheet" + "\n".join(entries) + "}"


def color_table():
    entries = ["\\red%d\\green%d\\blue%d;" % tuple(bytes.fromhex(c)) for c in COLORS]
    return "{\\colortbl;" + "".join(entries) + "}"


def document(title, *parts, header):
    return "\n".join([
        r"{\rtf1\ansi\ansicpg1252\deff0\deflang1033\uc1",
        "{\\fonttbl" + FONT + "}",
        color_table(),
        style_table(),
        r"{\info{\title %s}}" % title,
        rf"\paperw{PAPER[0]}\paperh{PAPER[1]}\margl{LEFT}\margr{RIGHT}\margt{TOP}\margb{BOTTOM}",
        r"\headery700\footery700\widowctrl",
        *header,
        *parts,
        "}",
    ]) + "\n"


# --- paragraphs -------------------------------------------------------------

def begin(style, extra=""):
    """Formats of a paragraph up to its text."""
    number, paragraph, character = STYLES[style]
    return rf"\pard\plain\s{number}{paragraph}{extra}{character} "


def paragraph(style, text, extra=""):
    return begin(style, rf"\li{GAP}{extra}") + text + r"\par"


def title(text):
    return paragraph("Report Title", text)


def heading(text):
    return paragraph("Report Heading", text)


def kicker(text, right=""):
    """A line in the accent's color over a title, with gray text at the right edge."""
    if right:
        text += r"\tab{\b0\cf%d %s}" % (GRAY, right)
    return paragraph("Report Kicker", text, rf"\tqr\tx{WIDTH - GAP}")


def running_text(text):
    return paragraph("Normal", text, rf"\ri{RAGGED}\sa120")


def block(tag):
    """The place of a table: the empty paragraph left behind it takes up next to nothing."""
    return begin("Report Table", rf"\li{GAP}") + "{" + tag + r"}{\fs2\par}"


def lines(tag, style="Report Value"):
    return paragraph(style, tag, rf"\ri{RAGGED}")


def space(height):
    return rf"\pard\plain\sl-{height}\slmult0\f0\fs2\par"


# --- tables -----------------------------------------------------------------

def in_cell(style, extra=""):
    # The indents make the gap between columns: readers differ in what a gap of the row does to its edge.
    return begin(style, rf"\intbl\li{GAP}\ri{GAP}" + extra)


def cell(text, style, extra=""):
    return in_cell(style, extra) + text + r"\cell"


def row(widths, cells, rules="b", row_format="", color=RULE, align=""):
    """One row; cells are what cell() gives.

    rules: sides of every cell with a hairline.
    align: how the text of the cells stands, when not at the top.
    """
    out = [rf"\trowd\trgaph0\trleft0\trkeep{row_format}"]
    right = 0
    for width in widths:
        right += width
        edges = align + "".join(rf"\clbrdr{side}\brdrs\brdrw10\brdrcf{color}" for side in rules)
        out.append(rf"{edges}\cellx{right}")
    return "\n".join([*out, *cells, r"\row"])


PAIR = (2980, WIDTH - 2980)
PAIRS = (2500, 2400, 2500, 1960)


def facts(*rows):
    """Labels and values. A row of two is as wide as the page, one of four has two pairs."""
    out = []
    for texts in rows:
        widths = (PAIRS[0], WIDTH - PAIRS[0]) if len(texts) == 2 else PAIRS
        cells = [cell(text, "Report Value" if i % 2 else "Report Label")
                 for i, text in enumerate(texts)]
        out.append(row(widths, cells))
    return "\n".join(out)


# The sixth column has its unit behind its value and must not wrap.
FIGURES = (1640, 1090, 1090, 1090, 1090, 1090, 2270)


def figures(first, *rows):
    """The six operating temperatures as columns: a ruled heading, a row per quantity."""
    def cells(label, word, bold):
        weight = r"\b" if bold else ""
        return [cell(label, "Report Table", rf"\sb50\sa50{weight}"),
                *(cell(f"<{word}{i}/>", "Report Table", rf"\qr\sb50\sa50{weight}") for i in range(1, 6)),
                cell(f"<{word}6/>", "Report Table", rf"\ql\li170\sb50\sa50{weight}")]
    out = [row(FIGURES, cells(*first, True), "tb", r"\trhdr", color=INK)]
    out += [row(FIGURES, cells(*texts, False)) for texts in rows]
    return "\n".join(out)


# --- what pages have in common ----------------------------------------------

def page_header():
    """Company at the left, the page of the document at the right, a hairline below."""
    page = r"Page {\field{\*\fldinst PAGE}{\fldrslt 1}}"
    address = r"<Address/>\~\~ <CityStateZip/>\~\~ <PhoneNumber/>"
    cells = [in_cell("Report Company") + r"<CompanyName/>\par" + "\n" + cell(address, "Report Small", r"\sa60"),
             cell(page, "Report Small", r"\qr")]
    return ["{\\header", row((7900, WIDTH - 7900), cells), r"\pard\plain\f0\fs4\par}"]


def estimate():
    """The facts behind the costs of a surface."""
    return [
        heading("Surface and installation"),
        facts(
            ("Base metal", "<BaseMetalName/>", "Emittance of the base metal", "<BaseMetalEmittance/>"),
            ("Complexity", "<InstallationComplexity/>", "Complexity factor", "<ComplexityFactor/>"),
            ("Labor rate ($/hr)", "<LaborRate/>", "Productivity factor (%)", "<ProductivityFactor/>"),
            ("Pipe insulation price", "<PipeInstallationCost/>",
             "Board insulation price", "<BoardInstallationCost/>"),
        ),
    ]


def surface(what):
    return [
        kicker(what, "Surface <SurfaceNumber/>, report page <PageNumber/>"),
        title("<SurfaceGeometry/>"),
        lines("<PipeSize/>"),
        *estimate(),
    ]


SIX_TEMPERATURES = (
    ("Operating temp.", "Temperature"),
    ("Thickness", "Thickness"),
    ("Heat <HeatGain/>", "HeatLoss"),
    ("Surface temp.", "SurfaceTemp"),
    ("Payback", "Payback"),
    ("Annual cost", "AnnualCost"),
    ("Total savings", "TotalSavings"),
)


# --- the templates ----------------------------------------------------------

def cover():
    logo = row((WIDTH,), [cell("", "Normal")], "", r"\trrh1900")
    rule = row((900, WIDTH - 900), [cell("", "Report Small"), cell("", "Report Small")], "")
    rule = rule.replace(r"\cellx900", rf"\clbrdrt\brdrs\brdrw40\brdrcf{ACCENT}\cellx900", 1)
    return document(
        "Insulation report",
        logo,
        paragraph("Report Heading", "<CompanyName/>", r"\sb0\sa20"),
        paragraph("Report Label", "<Address/>", r"\sb0\sa0"),
        paragraph("Report Label", "<CityStateZip/>", r"\sb0\sa0"),
        paragraph("Report Label", "<PhoneNumber/>", r"\sb0\sa0"),
        space(3400),
        rule,
        kicker("Industrial insulation report"),
        title("<ProjectName/>"),
        space(500),
        facts(
            ("Project number", "<ProjectNumber/>"),
            ("System", "<System/>"),
            ("Location", "<Location/>"),
            ("Date", "<Date/>"),
            ("Engineer", "<Engineer/>"),
            ("Contact", "<Contact/>"),
            ("Phone", "<Phone/>"),
            ("Date of this report", "<ReportDate/>"),
        ),
        space(20),
        header=[r"{\header\pard\plain\f0\fs15\par}"])


def general_economic():
    return document(
        "General economic data",
        kicker("For every surface of this report", "Report of <ReportDate/>"),
        title("General economic data"),
        heading("Fuel"),
        facts(
            ("Fuel", "<FuelName/>", "Conversion efficiency (%)", "<FuelEfficiency/>"),
            ("Price", "<FuelPrice/> <FuelCostUnits/>", "Price increase per year (%)", "<FuelInflationRate/>"),
            ("Heat content", "<FuelBTU/> <FuelBTUUnits/>", "Operating hours per year", "<OperatingHours/>"),
        ),
        heading("Money"),
        facts(
            ("Interest rate (%)", "<InterestRate/>", "Tax rate (%)", "<TaxRate/>"),
            ("Plant depreciation (years)", "<PlantDepreciationPeriod/>",
             "Insulation depreciation (years)", "<InsulationDepreciationPeriod/>"),
            ("Fuel maintenance (%)", "<FuelMaintenancePercent/>",
             "Insulation maintenance (%)", "<InsulationMaintenancePercent/>"),
            ("Plant investment", "<InvestmentRate/>"),
        ),
        heading("Weather and materials"),
        facts(
            ("Average temperature", "<AverageTemp/>", "Average wind speed", "<AverageWindSpeed/>"),
            ("Insulation", "<InsulationName/>"),
            ("Jacket", "<JacketName/>"),
            ("Emittance of the jacket", "<JacketEmittance/>",
             "Emittance of the bare surface", "<BaseEmittance/>"),
            ("Compared with", "<ReferenceThickness/>"),
            ("Date of the data", "<Date/>"),
        ),
        space(20),
        header=page_header())


def economic_tables():
    return document(
        "Economic thickness",
        *surface("Economic thickness"),
        heading("By operating temperature"),
        figures(*SIX_TEMPERATURES),
        space(20),
        header=page_header())


def units_legend():
    """Names and units under the columns of the table above, which makes its first one as wide as this."""
    units = (("Thickness", 1), ("Heat <HeatGain/>", 2), ("Surface Temp", 3), ("Installed Cost", 4),
             ("Payback", 6), ("Annual Cost", 7), ("Total Savings", 7))
    width = (WIDTH - 1240) // (len(units) - 1)
    widths = (WIDTH - width * (len(units) - 1),) + (width,) * (len(units) - 1)
    cells = [cell(rf"{label}\line <Units{number}/>", "Report Small", (r"\qr" if i else "") + r"\sb60")
             for i, (label, number) in enumerate(units)]
    return row(widths, cells, "")


def economic_engineering():
    return document(
        "Economic thickness",
        *surface("Economic thickness"),
        heading("Every thickness at <Temperature/>"),
        lines("<EconomicThickness/>", "Normal"),
        lines("<Savings/>", "Normal"),
        space(120),
        block("<TableData/>"),
        units_legend(),
        space(20),
        header=page_header())


def environmental_engineering():
    return document(
        "Emissions kept from the air",
        *surface("Emission reduction"),
        heading("Every thickness at <Temperature/>"),
        lines("<EconomicThickness/>", "Normal"),
        lines("<Savings/>", "Normal"),
        space(120),
        block("<TableData/>"),
        heading("Reduction at the economic thickness"),
        lines("<PollutionData/>", "Normal"),
        header=page_header())


def environmental_tables():
    return document(
        "Emissions kept from the air",
        *surface("Emission reduction"),
        heading("By operating temperature"),
        figures(*SIX_TEMPERATURES),
        heading("Reduction at the economic thickness"),
        block("<PollutionData/>"),
        space(20),
        header=page_header())


def disclaimer():
    texts = (
        ("What the figures are",
         "The heat flows, temperatures, costs, savings and emissions in this report are estimates. They were "
         "calculated from the data listed in it with recognized methods for steady heat flow through "
         "insulation and with the economic assumptions of the general data page. Real systems differ from "
         "these conditions: weather, loads, supports, joints, moisture and workmanship all have an effect "
         "that is not part of the calculation."),
        ("What must be checked",
         "Compare the data of this report with those of the project before the figures are used: sizes, "
         "operating temperatures and hours, properties and temperature limits of the materials, prices, "
         "labor, taxes and fuel. Properties of insulation products vary; the data of the manufacturer and "
         "the standards that apply to the project take precedence. Thicknesses for safety, for fire "
         "protection or against condensation need a review by a qualified engineer."),
        ("No guarantee",
         "This report is no offer and no guarantee of performance, of savings or of emission reductions. It "
         "does not replace the judgment of the engineer who is responsible for the project. Those who "
         "prepared the report and the software that it was made with accept no liability for decisions "
         "that are based on it alone."),
    )
    parts = []
    for name, text in texts:
        parts += [heading(name), running_text(text)]
    return document("About these figures", kicker("Please read"), title("About these figures"), *parts,
                    header=[])


def short_report():
    tags = [*(f"<InsulationLayer{n}/>" for n in range(1, 6)), "<Efficiency/>", "<HoursPerYear/>"]
    design = row(PAIR, [
        cell("<CondensationControlThicknessLabel/>", "Report Value", r"\sb80\sa80"),
        cell(r"{\fs24\b <CondensationControlThickness/>}", "Report Value", r"\sb80\sa80")], "tb", color=INK,
                 align=r"\clvertalb")
    return document(
        "Short report",
        kicker("<CalculationType/>", "<SystemUnits/> units"),
        title("<ItemDescription/>"),
        design,
        heading("Surface and conditions"),
        facts(
            ("System application", "<Geometry/>", "Process temperature", "<ProcessTemp/>"),
            ("Emittance of the bare surface", "<BareSurfaceEmittance/>",
             "Average ambient temperature", "<AverageAmbientTemp/>"),
            ("Emittance of the outer surface", "<OuterSurfaceEmittance/>",
             "Average wind speed", "<AverageWindSpeed/>"),
            ("Outer jacket material", "<OuterJacketMaterial/>"),
            ("Nominal <PipeType/> size", "<PipeSize/>"),
            ("<RelativeHumidityLabel/>", "<RelativeHumidity/>"),
            ("<DewPointLabel/>", "<DewPoint/>"),
        ),
        space(120),
        *(lines(tag, "Report Table") for tag in tags),
        heading("Results"),
        lines("<UpperHeader/>", "Report Table"),
        lines("<LowerHeader/>", "Report Table"),
        block("<Data/>"),
        header=page_header())


def thickness_table():
    return document(
        "Insulation thickness table",
        kicker("<CalculationType/>"),
        title("<ItemDescription/>"),
        facts(
            ("System application", "<Geometry/>", "Average ambient temperature", "<AverageAmbientTemp/>"),
            ("Emittance of the bare surface", "<BareSurfaceEmittance/>",
             "Average wind speed", "<AverageWindSpeed/>"),
            ("Outer jacket material", "<OuterJacketMaterial/>"),
            ("Emittance of the outer surface", "<OuterSurfaceEmittance/>"),
            ("Maximum surface temperature", "<MaxSurfaceTemperature/>"),
            ("Relative humidity", "<RelativeHumidity/>"),
            ("Dew point", "<DewPoint/>"),
        ),
        space(120),
        lines("<InsulationLayers/>"),
        space(200),
        block("<Table/>"),
        header=page_header())


def insulation_table():
    return document(
        "Dimensions of insulation",
        kicker("<CalculationType/>"),
        title("<ItemDescription/>"),
        facts(("System application", "<Geometry/>")),
        space(200),
        block("<Table/>"),
        header=page_header())


TEMPLATES = {
    "CoverTemplate.rtf": cover,
    "GeneralEconomicTemplate.rtf": general_economic,
    "EconomicTemplate.rtf": economic_tables,
    "EconomicEngineerTemplate.rtf": economic_engineering,
    "EnvironmentalTemplate.rtf": environmental_tables,
    "EnvironmentalEngineerTemplate.rtf": environmental_engineering,
    "DisclaimerTemplate.rtf": disclaimer,
    "ShortReportTemplate.rtf": short_report,
    "TableTemplate.rtf": thickness_table,
    "InsulationTableTemplate.rtf": insulation_table,
}


def templates():
    """Names and texts of the ten files."""
    return {name: make() for name, make in TEMPLATES.items()}
