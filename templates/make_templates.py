#!/usr/bin/env python3
"""Writes the default templates of bills and receipts: RTF text in .doc files, A4.

    make_templates.py [FOLDER]     writes them there (default: beside this file)
    make_templates.py --check      exit status 1 when a file beside this one is not what would be written

The kinds of document differ in little, so they are written by one program. A single copy takes an upright page; two
copies stand side by side on a page across, in the same table rows, with a line to cut along between them. Lengths are
twips (1/1440 inch). Only what the document engine reads is used, and nothing that other word processors show
differently. A run's format stands inside of braces and the end of its paragraph is one point high: a row whose values
are all empty shrinks to next to nothing. So does the row above the company's name, which is the place for a logo, and a
paragraph with the hidden text "[optional]" whose fields all came out empty: its label is not printed then.
"""

import pathlib
import sys

A4 = (11906, 16838)
LINES = 10

# Colours by their place in the table.
BAND, GREY, RULE = 1, 2, 3
COLOURS = r"{\colortbl;\red236\green236\blue236;\red89\green89\blue89;\red150\green150\blue150;}"


class Sheet:
    """A page for one or two copies: the width of a copy, three sizes (in half points) of one family, and where things
    stand in the blocks above and below the lines."""

    def __init__(self, suffix, labels, page, margin, gap, sizes, left, wide, label_width):
        self.suffix, self.labels, self.page, self.margin, self.gap = suffix, labels, page, margin, gap
        self.name, self.text, self.small = sizes
        self.width = (page[0] - 2 * margin - (len(labels) - 1) * gap) // len(labels)
        self.left = left                # left column of the blocks
        self.wide = wide                # the wider of two blocks, where the right one holds little
        self.label_width = label_width  # labels in front of their values
        self.double = len(labels) > 1
        self.side = 35 if self.double else 50  # of a cell's text from its left and right edge
        self.identifiers = ((480, 1850), (350, 1500)) if self.double else ((620, 2650), (420, 1900))  # label, whole


SHEETS = [
    Sheet("", ["Original for recipient"], A4, 720, 0, (40, 18, 15), 5900, 7400, 1250),
    Sheet("_2Copy", ["Original for recipient", "Duplicate for supplier"], A4[::-1], 400, 560, (28, 14, 13), 4350, 5200,
          1050),
]


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


def run(text, size, bold=False, grey=False):
    words = "\\fs%d%s%s" % (size, "\\b" if bold else "", "\\cf%d" % GREY if grey else "")
    return "{%s %s}" % (words, escaped(text))


OPTIONAL = "{\\v\\fs2 [optional]}"


def field(name, size, grey=True):
    """A number that the layout knows: PAGE, NUMPAGES."""
    words = "\\fs%d%s" % (size, "\\cf%d" % GREY if grey else "")
    return "{%s {\\field{\\*\\fldinst %s}{\\fldrslt 1}}}" % (words, name)


def paragraph(*runs, align="ql", before=0, intbl=True, hang=0, tabs=(), exact=0, optional=False, keep=False):
    """A paragraph of runs with tabs between them, which stand at `tabs`; with `hang` the second run stands that far
    from the left, and further lines below it. `exact` is a line height that does not follow the fonts. An `optional` one
    is left out when its fields are empty; no page ends behind one that must `keep` with the next row."""
    stops = "\\li%d\\fi-%d" % (hang, hang) if hang else ""
    stops += "".join("\\tx%d" % tab for tab in tabs or (hang,) if tab)
    height = "\\sl-%d\\slmult0" % exact if exact else ""
    height += "\\keepn" if keep else ""
    words = "\\pard\\plain%s\\%s\\sb%d%s%s\\f0\\fs2 " % ("\\intbl" if intbl else "", align, before, stops, height)
    return words + "\\tab ".join(runs) + (OPTIONAL if optional else "") + "\\fs2"


APART = paragraph(intbl=False) + "\\par\n"  # between two tables


class Cell:
    """One cell: its width, its paragraphs (joined by \\par), its borders as a text of the letters t, l, b, r."""

    def __init__(self, width, *paragraphs, rules="", band=False, valign="t", words="", style="\\brdrs"):
        self.width, self.paragraphs, self.rules, self.band = width, paragraphs, rules, band
        self.valign, self.words, self.style = valign, words, style

    def definition(self, edge):
        rules = "".join("\\clbrdr%s%s\\brdrw5\\brdrcf%d" % (side, self.style, RULE) for side in self.rules)
        band = "\\clcbpat%d" % BAND if self.band else ""
        return "%s\\clvertal%s%s%s\\cellx%d\n" % (self.words, self.valign, rules, band, edge)

    def content(self):
        return "\\par\n".join(self.paragraphs or (paragraph(),)) + "\\cell\n"


class Row:
    """A row of one copy: `top` and `bottom` are the distances of the text from the cell's edges."""

    def __init__(self, *cells, top=40, bottom=40, words=""):
        self.cells, self.top, self.bottom, self.words = list(cells), top, bottom, words


def written(row, cells, side):
    edge, definitions = 0, []
    for cell in cells:
        edge += cell.width
        definitions.append(cell.definition(edge))
    padding = "\\trpaddl%d\\trpaddt%d\\trpaddb%d\\trpaddr%d\\trpaddfl3\\trpaddft3\\trpaddfb3\\trpaddfr3" % (
        side, row.top, row.bottom, side)
    return "\\trowd\\trgaph0\\trleft0\\trkeep%s\\trrh0%s\n%s%s\\row\n" % (
        row.words, padding, "".join(definitions), "".join(cell.content() for cell in cells))


def beside(sheet, copies):
    """The blocks of all copies, each row of one in line with the same row of the others."""
    out = []
    for blocks in zip(*copies):
        if isinstance(blocks[0], str):
            out.append(blocks[0])
            continue
        cells = list(blocks[0].cells)
        for block in blocks[1:]:
            cells += [Cell(sheet.gap // 2, rules="r", style="\\brdrdash"), Cell(sheet.gap - sheet.gap // 2)]
            cells += block.cells
        out.append(written(blocks[0], cells, sheet.side))
    return "".join(out)


class Document:
    """What both kinds of document have in common, for one sheet."""

    title = law = number = date = ""
    received_by = "Billed to"
    details = ()  # label and value beside the other party

    def __init__(self, sheet):
        self.sheet = sheet

    def text(self, text, bold=False):
        return run(text, self.sheet.text, bold=bold)

    def label(self, text):
        return run(text, self.sheet.small, grey=True)

    def small(self, text):
        return run(text, self.sheet.small)

    def pair(self, name, value, bold=False, before=30, hang=0):
        return paragraph(self.label(name), self.text(value, bold), hang=hang or self.sheet.label_width, before=before,
                         optional=True)

    def two(self, left, *paragraphs, align="t", rules="", band=False, **options):
        """A row of the left block's paragraphs and the right one's."""
        width = options.pop("width", self.sheet.left)
        return Row(Cell(width, *left, valign=align, rules=rules, band=band),
                   Cell(self.sheet.width - width, *paragraphs, valign=align, rules=rules, band=band), **options)

    def logo(self):
        return Row(Cell(self.sheet.width), top=0, bottom=0)

    def running_head(self):
        """Ahead of what a document has on its second page and further ones."""
        right = [self.small("%s %s of %s, page " % (self.title, self.number, self.date)),
                 field("PAGE", self.sheet.small, grey=False), self.small(" of "),
                 field("NUMPAGES", self.sheet.small, grey=False)]
        width = self.sheet.left - self.sheet.width // 10
        return Row(Cell(width, paragraph(run("#FIRM_NAME#", self.sheet.small, bold=True))),
                   Cell(self.sheet.width - width, paragraph("".join(right), align="qr")), top=0, bottom=80)

    def heading(self):
        return self.two([paragraph(run("#FIRM_NAME#", self.sheet.name, bold=True)),
                         paragraph(self.text("#FIRM_DESIG#"), before=40)],
                        paragraph(self.small("#FIRM_ADDRESS#"), align="qr"),
                        paragraph(self.small("#FIRM_CONTDET#"), align="qr", before=30),
                        paragraph(self.small("#FIRM_EMLWEB#"), align="qr", before=30), align="b", bottom=110)

    def band(self, copy):
        (gstin, first), (pan, second) = self.sheet.identifiers
        look = {"rules": "tb", "band": True, "valign": "c"}
        return Row(Cell(first, self.pair("GSTIN", "#FIRM_GSTIN#", bold=True, before=0, hang=gstin), **look),
                   Cell(second, self.pair("PAN", "#FIRM_PAN#", bold=True, before=0, hang=pan), **look),
                   Cell(self.sheet.width - first - second, paragraph(self.text(self.title, bold=True), align="qr"),
                        paragraph(self.label(copy), align="qr", before=10), **look), top=60, bottom=60)

    def other_party(self):
        return self.two([paragraph(self.label(self.received_by)),
                         paragraph(self.text("#PARTY_NAME#", bold=True), before=30),
                         paragraph(self.text("#PARTY_ADDRESS#"), before=20),
                         self.pair("GSTIN", "#PARTY_GSTIN#", before=50, hang=self.sheet.identifiers[0][0]),
                         self.pair("PAN", "#PARTY_PAN#", before=20, hang=self.sheet.identifiers[0][0])],
                        *(self.pair(name, value, bold=place == 0, before=30 if place else 0)
                          for place, (name, value) in enumerate(self.details)), top=110, bottom=150)

    def words_and_figures(self, words, figures, name, **options):
        # The rupee sign comes from another font, whose taller line would put the two texts out of line.
        exact = self.sheet.text * 13
        return self.two([paragraph(self.label("Amount in words")), paragraph(self.text(words), exact=exact)],
                        paragraph(self.label(name), align="qr"),
                        paragraph(self.text("₹ " + figures, bold=True), align="qr", exact=exact),
                        width=self.sheet.wide, top=90, bottom=120, **options)

    def signature(self):
        return [paragraph(self.text("For #FIRM_NAME#"), align="qr"),
                paragraph(self.text("#AUTHSIGN_NAME#", bold=True), align="qr", before=900),
                paragraph(self.text("#AUTHSIGN_DESIG#"), align="qr", before=20),
                paragraph(self.label("Authorised signatory"), align="qr", before=20)]

    def foot(self):
        return self.two([paragraph(self.label(self.law))], paragraph(self.label("E. & O. E."), align="qr"),
                        width=self.sheet.wide, rules="t", top=60)

    def blocks(self, copy):
        """The rows of one copy, and what stands between its tables."""
        raise NotImplementedError

    def template(self):
        sheet = self.sheet
        words = "\\landscape" if sheet.double else ""
        head = beside(sheet, [[self.running_head()] for _ in sheet.labels])
        return ("{\\rtf1\\ansi\\ansicpg1252\\uc1\\deff0\n{\\fonttbl{\\f0\\fswiss\\fcharset0 Liberation Sans;}}\n"
                + COLOURS + "\n\\paperw%d\\paperh%d%s\\margl%d\\margr%d\\margt%d\\margb%d\n"
                % (*sheet.page, words, sheet.margin, sheet.margin, sheet.margin, sheet.margin)
                + "\\headery%d\\titlepg\n{\\header %s%s\\par}\n" % (sheet.margin - 200, head, paragraph(intbl=False))
                + beside(sheet, [self.blocks(label) for label in sheet.labels])
                + paragraph(intbl=False) + "\\par}\n")


class Column:
    """A column of the line table: heading, width (0 takes the rest), align, the placeholders of a line, one below the
    other, and that of the total row."""

    def __init__(self, heading, width, align, *lines, total=""):
        self.heading, self.width, self.align, self.lines, self.total = heading, width, align, lines, total


class Bill(Document):
    number, date = "#BILL_NO#", "#BILL_DT#"
    details = (("Number", number), ("Date", date), ("Place of supply", "#PLACE_OF_SUPPLY#"))

    def __init__(self, sheet, word, title, taxes, law):
        super().__init__(sheet)
        self.file_name, self.title, self.taxes, self.law = "GST_%s_Bill%s.doc" % (word, sheet.suffix), title, taxes, law

    def columns(self):
        net = "Taxable value" if self.taxes else "Net amount"
        if self.sheet.double:
            room = 0 if len(self.taxes) > 1 else 60
            columns = [Column("#", 300, "ql", "#SN_%d#"),
                       Column("Particulars", 0, "ql", "#PARTICULARS_SAC_%d#"),
                       Column("Year", 680, "ql", "#YR_%d#"),
                       Column("Amount", 790 + room, "qr", "#AMT_%d#", total="#GTAMT#"),
                       Column("Discount", 700 + room, "qr", "#DISC_%d#", total="#GTDISC#"),
                       Column(net, 790 + room, "qr", "#NAMT_%d#", total="#GTNAMT#")]
            columns += [Column(name, 700 + 2 * room, "qr", rate, amount, total=total) for name, rate, amount, total in self.taxes]
            if self.taxes:
                columns.append(Column("Total", 850, "qr", "#TAMT_%d#", total="#GTTAMT#"))
        else:
            room = 0 if len(self.taxes) > 1 else 110  # for sums of ten digits
            columns = [Column("#", 400, "ql", "#SN_%d#"),
                       Column("Particulars", 0, "ql", "#PARTICULARS_SAC_%d#"),
                       Column("Year", 770, "ql", "#YR_%d#"),
                       Column("Amount", 1010 + room, "qr", "#AMT_%d#", total="#GTAMT#"),
                       Column("Discount", 905 + room, "qr", "#DISC_%d#", total="#GTDISC#"),
                       Column(net, 1010 + room, "qr", "#NAMT_%d#", total="#GTNAMT#")]
            for _, rate, amount, total in self.taxes:
                columns += [Column("Rate", 515, "qr", rate), Column("Amount", 905 + room, "qr", amount, total=total)]
            if self.taxes:
                columns.append(Column("Total", 1105, "qr", "#TAMT_%d#", total="#GTTAMT#"))
        columns[1].width = self.sheet.width - sum(column.width for column in columns)
        return columns

    def heading_cell(self, column, rules, words=""):
        return Cell(column.width, paragraph(self.label(column.heading), align=column.align), rules=rules, valign="b",
                    words=words)

    def column_headings(self):
        columns = self.columns()
        if self.sheet.double or not self.taxes:
            return [Row(*(self.heading_cell(column, "tb") for column in columns), top=50, bottom=50, words="\\trhdr")]
        plain, taxes = columns[:6], columns[6:-1]
        first = [self.heading_cell(column, "t", "\\clvmgf") for column in plain]
        for number, tax in enumerate(self.taxes):
            first.append(Cell(taxes[2 * number].width + taxes[2 * number + 1].width,
                              paragraph(self.label(tax[0]), align="qc"), rules="tb"))
        first.append(self.heading_cell(columns[-1], "t", "\\clvmgf"))
        second = [Cell(column.width, rules="b", words="\\clvmrg") for column in plain]
        second += [self.heading_cell(column, "b") for column in taxes]
        second.append(Cell(columns[-1].width, rules="b", words="\\clvmrg"))
        return [Row(*first, words="\\trhdr"), Row(*second, words="\\trhdr")]

    def line(self, number):
        return Row(*(Cell(column.width,
                          *(paragraph(self.text(placeholder % number), align=column.align, keep=number == LINES)
                            for placeholder in column.lines), rules="t" if number == 1 else "")
                     for column in self.columns()), top=30, bottom=10)

    def totals(self):
        columns = self.columns()
        cells = [Cell(sum(column.width for column in columns[:3]), paragraph(self.text("Total", bold=True)), rules="tb",
                      band=True)]
        free = 0  # a rate has no total: its width goes to the amount beside it
        for column in columns[3:]:
            if not column.total:
                free = column.width
                continue
            cells.append(Cell(free + column.width, paragraph(self.text(column.total, bold=True), align=column.align),
                              rules="tb", band=True))
            free = 0
        return Row(*cells, top=60, bottom=60)

    def payment_and_signature(self):
        return self.two([self.pair("In favour of", "#PAYTERMS_INFAVOF#", before=20),
                         self.pair("Bank", "#PAYTERMS_BANKNM_BRADD#", before=20),
                         self.pair("Account no.", "#PAYTERMS_ACNO#", before=20),
                         self.pair("IFSC", "#PAYTERMS_IFSC#", before=20),
                         paragraph(self.text("#PAYTERMS_COMMENTS#"), before=60),
                         paragraph(self.text("#NOTE#"), before=60)],
                        *self.signature(), rules="t", top=110, bottom=150)

    def blocks(self, copy):
        # Three tables, a point apart: the headings of the lines are repeated on each page that the lines reach.
        return [self.logo(), self.heading(), self.band(copy), self.other_party(), APART, *self.column_headings(),
                *(self.line(number) for number in range(1, LINES + 1)), self.totals(), APART,
                self.words_and_figures("#TOTWORDS#", "#TOTFIGS#", "Amount payable"), self.payment_and_signature(),
                self.foot()]


class Receipt(Document):
    title = "RECEIPT"
    law = "Cheques and drafts are subject to realisation. Tax is as charged in the bills named above."
    received_by = "Received from"
    number, date = "#RCPT_NO#", "#RCPT_DT#"
    details = (("Number", number), ("Date", date))

    def __init__(self, sheet):
        super().__init__(sheet)
        self.file_name = "GST_Receipt%s.doc" % sheet.suffix

    def settlement(self):
        return Row(Cell(self.sheet.width, *(self.pair(name, value, before=120) for name, value in (
            ("Received", "#PAYMENT_DETAILS#"), ("Against", "#BILL_REFERENCES#"), ("Made up of", "#TOTAMT_ADJ_DETAILS#")))),
            top=0, bottom=120)

    def note_and_signature(self):
        return self.two([paragraph(self.text("#NOTE#"))], *self.signature(), rules="t", top=110, bottom=150)

    def blocks(self, copy):
        return [self.logo(), self.heading(), self.band(copy), self.other_party(),
                self.words_and_figures("#AMOUNT_WORDS#", "#AMOUNT#", "Amount received", rules="tb", band=True),
                self.settlement(), self.note_and_signature(), self.foot()]


CGST = ("CGST", "#CRT_%d#", "#CAMT_%d#", "#GTCAMT#")
SGST = ("SGST", "#SRT_%d#", "#SAMT_%d#", "#GTSAMT#")
IGST = ("IGST", "#IRT_%d#", "#IAMT_%d#", "#GTIAMT#")
CHARGED = "Whether tax is payable on reverse charge: No"


def documents():
    for sheet in SHEETS:
        yield Bill(sheet, "Intra", "TAX INVOICE", [CGST, SGST], CHARGED)
        yield Bill(sheet, "Inter", "TAX INVOICE", [IGST], CHARGED)
        yield Bill(sheet, "NoTax", "BILL OF SUPPLY", [], "No tax is charged on this supply. " + CHARGED)
        yield Receipt(sheet)


def main(arguments):
    here = pathlib.Path(__file__).resolve().parent
    if arguments == ["--check"]:
        stale = [document.file_name for document in documents()
                 if not (here / document.file_name).is_file()
                 or (here / document.file_name).read_text("ascii") != document.template()]
        if stale:
            print("not current:", ", ".join(stale))
        return 1 if stale else 0
    folder = pathlib.Path(arguments[0]) if arguments else here
    for document in documents():
        (folder / document.file_name).write_text(document.template(), "ascii")
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
