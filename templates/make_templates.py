#!/usr/bin/env python3
"""Writes the default bill templates: RTF text in .doc files, A4, one copy on a page.

    make_templates.py [FOLDER]     writes them there (default: beside this file)
    make_templates.py --check      exit status 1 when a file beside this one is not what would be written

The three kinds differ in their columns of tax, so they are written by one program. Lengths are twips (1/1440 inch).
Only what the document engine reads is used, and nothing that other word processors show differently. A run's format
stands inside of braces and the end of its paragraph is one point high: a row whose values are all empty shrinks to
next to nothing.
"""

import pathlib
import sys

PAGE_WIDTH, PAGE_HEIGHT, MARGIN = 11906, 16838, 720
WIDTH = PAGE_WIDTH - 2 * MARGIN
LINES = 10
LEFT = 5900                     # left column of the blocks above and below the lines
IDENTIFIERS = (620, 2500, 2920)  # where GSTIN, the word PAN and the PAN stand

# Three sizes (in half points) of one family; colours by their place in the table below.
NAME, TEXT, SMALL = 40, 18, 15
BAND, GREY, RULE = 1, 2, 3
COLOURS = r"{\colortbl;\red236\green236\blue236;\red89\green89\blue89;\red150\green150\blue150;}"


def escaped(text):
    """Text as RTF: its own braces and back-slashes, and everything beyond ASCII, written out."""
    out = []
    for character in text:
        if character in "\\{}":
            out.append("\\" + character)
        elif character == "\n":
            out.append("\\line ")
        elif ord(character) < 128:
            out.append(character)
        else:
            out.append("\\u%d?" % ord(character))
    return "".join(out)


def run(text, size=TEXT, bold=False, grey=False):
    words = "\\fs%d%s%s" % (size, "\\b" if bold else "", "\\cf%d" % GREY if grey else "")
    return "{%s %s}" % (words, escaped(text))


def label(text):
    return run(text, SMALL, grey=True)


def paragraph(*runs, align="ql", before=0, intbl=True, hang=0, tabs=(), exact=0):
    """A paragraph of runs with tabs between them, which stand at `tabs`; with `hang` the second run stands that far
    from the left, and further lines below it. `exact` is a line height that does not follow the fonts."""
    stops = "\\li%d\\fi-%d" % (hang, hang) if hang else ""
    stops += "".join("\\tx%d" % tab for tab in tabs or (hang,) if tab)
    height = "\\sl-%d\\slmult0" % exact if exact else ""
    words = "\\pard\\plain%s\\%s\\sb%d%s%s\\f0\\fs2 " % ("\\intbl" if intbl else "", align, before, stops, height)
    return words + "\\tab ".join(runs) + "\\fs2"


class Cell:
    """One cell: its width, its paragraphs (joined by \\par), its borders as a text of the letters t, l, b, r."""

    def __init__(self, width, *paragraphs, rules="", band=False, valign="t", words=""):
        self.width, self.paragraphs, self.rules, self.band = width, paragraphs, rules, band
        self.valign, self.words = valign, words

    def definition(self, edge):
        rules = "".join("\\clbrdr%s\\brdrs\\brdrw5\\brdrcf%d" % (side, RULE) for side in self.rules)
        band = "\\clcbpat%d" % BAND if self.band else ""
        return "%s\\clvertal%s%s%s\\cellx%d\n" % (self.words, self.valign, rules, band, edge)

    def content(self):
        return "\\par\n".join(self.paragraphs or (paragraph(),)) + "\\cell\n"


def row(*cells, height=0, top=40, bottom=40, side=50, words=""):
    """A row: `top`, `bottom` and `side` are the distances of the text from the cell's edges."""
    edge, definitions = 0, []
    for cell in cells:
        edge += cell.width
        definitions.append(cell.definition(edge))
    padding = "\\trpaddl%d\\trpaddt%d\\trpaddb%d\\trpaddr%d\\trpaddfl3\\trpaddft3\\trpaddfb3\\trpaddfr3" % (
        side, top, bottom, side)
    return "\\trowd\\trgaph0\\trleft0\\trkeep%s\\trrh%d%s\n%s%s\\row\n" % (
        words, height, padding, "".join(definitions), "".join(cell.content() for cell in cells))


class Kind:
    def __init__(self, word, title, taxes, law):
        self.word, self.title, self.taxes, self.law = word, title, taxes, law

    def columns(self):
        """Columns of the line table: heading, width, align, placeholder of a line, placeholder of the total row."""
        columns = [("#", 400, "ql", "#SN_%d#", ""),
                   ("Particulars", 0, "ql", "#PARTICULARS_SAC_%d#", ""),
                   ("Year", 770, "ql", "#YR_%d#", ""),
                   ("Amount", 1010, "qr", "#AMT_%d#", "#GTAMT#"),
                   ("Discount", 905, "qr", "#DISC_%d#", "#GTDISC#"),
                   ("Taxable value" if self.taxes else "Net amount", 1010, "qr", "#NAMT_%d#", "#GTNAMT#")]
        for _, rate, amount, total in self.taxes:
            columns += [("Rate", 515, "qr", rate, ""), ("Amount", 905, "qr", amount, total)]
        if self.taxes:
            columns.append(("Total", 1105, "qr", "#TAMT_%d#", "#GTTAMT#"))
        if len(self.taxes) < 2:  # there is room for sums of ten digits
            columns = [(name, width + 110 if name in ("Amount", "Discount", "Taxable value", "Net amount") else width,
                        *others) for name, width, *others in columns]
        rest = WIDTH - sum(column[1] for column in columns)
        return [column if column[1] else (column[0], rest) + column[2:] for column in columns]


KINDS = [
    Kind("Intra", "TAX INVOICE",
         [("CGST", "#CRT_%d#", "#CAMT_%d#", "#GTCAMT#"), ("SGST", "#SRT_%d#", "#SAMT_%d#", "#GTSAMT#")],
         "Whether tax is payable on reverse charge: No"),
    Kind("Inter", "TAX INVOICE", [("IGST", "#IRT_%d#", "#IAMT_%d#", "#GTIAMT#")],
         "Whether tax is payable on reverse charge: No"),
    Kind("NoTax", "BILL OF SUPPLY", [], "No tax is charged on this supply. Whether tax is payable on reverse charge: No"),
]


def heading():
    left = Cell(LEFT,
                paragraph(run("#FIRM_NAME#", NAME, bold=True)),
                paragraph(run("#FIRM_DESIG#"), before=40), valign="b")
    right = Cell(WIDTH - LEFT,
                 paragraph(run("#FIRM_ADDRESS#", SMALL), align="qr"),
                 paragraph(run("#FIRM_CONTDET#", SMALL), align="qr", before=30),
                 paragraph(run("#FIRM_EMLWEB#", SMALL), align="qr", before=30), valign="b")
    return row(left, right, bottom=110)


def title(kind):
    left = Cell(LEFT, paragraph(label("GSTIN"), run("#FIRM_GSTIN#", bold=True), label("PAN"),
                                run("#FIRM_PAN#", bold=True), tabs=IDENTIFIERS), rules="tb", band=True, valign="c")
    right = Cell(WIDTH - LEFT, paragraph(run(kind.title, bold=True), align="qr"), rules="tb", band=True, valign="c")
    return row(left, right, top=70, bottom=70)


def receiver():
    def pair(name, value, bold=False, before=30):
        return paragraph(label(name), run(value, bold=bold), hang=1250, before=before)

    left = Cell(LEFT,
                paragraph(label("Billed to")),
                paragraph(run("#PARTY_NAME#", bold=True), before=30),
                paragraph(run("#PARTY_ADDRESS#"), before=20),
                paragraph(label("GSTIN"), run("#PARTY_GSTIN#"), label("PAN"), run("#PARTY_PAN#"), before=50,
                          tabs=IDENTIFIERS))
    right = Cell(WIDTH - LEFT,
                 pair("Number", "#BILL_NO#", bold=True, before=0),
                 pair("Date", "#BILL_DT#"),
                 pair("Place of supply", "#PLACE_OF_SUPPLY#"))
    return row(left, right, top=110, bottom=150)


def column_headings(kind):
    columns = kind.columns()
    if not kind.taxes:
        return row(*(Cell(width, paragraph(label(name), align=align), rules="tb", valign="b")
                     for name, width, align, _, _ in columns), top=50, bottom=50, words="\\trhdr")
    plain, taxes = columns[:6], columns[6:-1]
    first = [Cell(width, paragraph(label(name), align=align), rules="t", valign="b", words="\\clvmgf")
             for name, width, align, _, _ in plain]
    for number, tax in enumerate(kind.taxes):
        first.append(Cell(taxes[2 * number][1] + taxes[2 * number + 1][1], paragraph(label(tax[0]), align="qc"),
                          rules="tb"))
    name, width, align, _, _ = columns[-1]
    first.append(Cell(width, paragraph(label(name), align=align), rules="t", valign="b", words="\\clvmgf"))
    second = [Cell(width, rules="b", words="\\clvmrg") for _, width, _, _, _ in plain]
    second += [Cell(width, paragraph(label(name), align=align), rules="b", valign="b")
               for name, width, align, _, _ in taxes]
    second.append(Cell(width, rules="b", words="\\clvmrg"))
    return row(*first, words="\\trhdr") + row(*second, words="\\trhdr")


def line(kind, number):
    return row(*(Cell(width, paragraph(run(placeholder % number), align=align), rules="t" if number == 1 else "")
                 for _, width, align, placeholder, _ in kind.columns()), top=30, bottom=10)


def totals(kind):
    columns = kind.columns()
    cells = [Cell(sum(column[1] for column in columns[:3]), paragraph(run("Total", bold=True)), rules="tb", band=True)]
    free = 0  # a rate has no total: its width goes to the amount beside it
    for _, width, align, _, placeholder in columns[3:]:
        if not placeholder:
            free = width
            continue
        cells.append(Cell(free + width, paragraph(run(placeholder, bold=True), align=align), rules="tb", band=True))
        free = 0
    return row(*cells, top=60, bottom=60)


def amount():
    # The rupee sign comes from another font, whose taller line would put the two texts out of line.
    return row(Cell(7400, paragraph(label("Amount in words")), paragraph(run("#TOTWORDS#"), exact=230)),
               Cell(WIDTH - 7400, paragraph(label("Amount payable"), align="qr"),
                    paragraph(run("₹ #TOTFIGS#", bold=True), align="qr", exact=230)),
               top=90, bottom=120)


def payment_and_signature():
    def pair(name, value):
        return paragraph(label(name), run(value), hang=1150, before=20)

    left = Cell(LEFT,
                paragraph(label("Payment")),
                pair("In favour of", "#PAYTERMS_INFAVOF#"),
                pair("Bank", "#PAYTERMS_BANKNM_BRADD#"),
                pair("Account no.", "#PAYTERMS_ACNO#"),
                pair("IFSC", "#PAYTERMS_IFSC#"),
                paragraph(run("#PAYTERMS_COMMENTS#"), before=60),
                paragraph(run("#NOTE#"), before=60), rules="t")
    right = Cell(WIDTH - LEFT,
                 paragraph(run("For #FIRM_NAME#"), align="qr"),
                 paragraph(run("#AUTHSIGN_NAME#", bold=True), align="qr", before=900),
                 paragraph(run("#AUTHSIGN_DESIG#"), align="qr", before=20),
                 paragraph(label("Authorised signatory"), align="qr", before=20), rules="t")
    return row(left, right, top=110, bottom=150)


def law(kind):
    return row(Cell(7400, paragraph(run(kind.law, SMALL, grey=True)), rules="t"),
               Cell(WIDTH - 7400, paragraph(run("E. & O. E.", SMALL, grey=True), align="qr"), rules="t"),
               top=60)


def template(kind):
    # Three tables, a point apart: the headings of the lines are repeated on each page that the lines reach.
    apart = paragraph(intbl=False) + "\\par\n"
    body = (heading() + title(kind) + receiver() + apart + column_headings(kind)
            + "".join(line(kind, number) for number in range(1, LINES + 1)) + totals(kind)
            + apart + amount() + payment_and_signature() + law(kind))
    return ("{\\rtf1\\ansi\\ansicpg1252\\uc1\\deff0\n{\\fonttbl{\\f0\\fswiss\\fcharset0 Liberation Sans;}}\n"
            + COLOURS + "\n\\paperw%d\\paperh%d\\margl%d\\margr%d\\margt%d\\margb%d\n"
            % (PAGE_WIDTH, PAGE_HEIGHT, MARGIN, MARGIN, MARGIN, MARGIN)
            + body + paragraph(intbl=False) + "\\par}\n")


def main(arguments):
    here = pathlib.Path(__file__).resolve().parent
    if arguments == ["--check"]:
        stale = [kind.word for kind in KINDS
                 if (here / f"GST_{kind.word}_Bill.doc").read_text("ascii") != template(kind)]
        if stale:
            print("not current:", ", ".join(stale))
        return 1 if stale else 0
    folder = pathlib.Path(arguments[0]) if arguments else here
    for kind in KINDS:
        (folder / f"GST_{kind.word}_Bill.doc").write_text(template(kind), "ascii")
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
