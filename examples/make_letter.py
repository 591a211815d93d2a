#!/usr/bin/python3
"""Makes the example document: a letter in Word's format with headings, tables, lists and a picture.

    examples/make_letter.py                          makes examples/letter.docx again
    examples/make_letter.py OUTPUT --pages 50        the same letter with more (or fewer) chapters, a page each
    examples/make_letter.py OUTPUT --check           says whether OUTPUT is what this program makes

Python 3 and its standard library only: a .docx is a zip archive of XML. The bytes depend on nothing but this file.
"""

import argparse
import io
import pathlib
import struct
import sys
import zipfile
import zlib
from xml.sax.saxutils import escape

INK, ACCENT, PALE = "22313F", "1F6F78", "E8F1F2"
PICTURE_PIXELS = (900, 300)
EMU_PER_POINT = 12700
CELL_MARGIN = 110  # twentieths of a point; a table is moved by as much, to begin where the text does


# --- What the letter says -------------------------------------------------------------------------------------

def opening():
    return [
        text("The Foliant authors", "Sender"),
        text("To whoever has to send a hundred documents before lunch", "Addressee"),
        text("Dear reader,"),
        text("you have just turned a Word document into a PDF with **one call**. Nobody opened a menu, chose a "
             "printer, typed a file name into a dialog or waited for a progress bar to decide that it was "
             "finished. This letter is the document that made the journey, so look at it closely: if its "
             "headings, its tables and its picture are where you would have put them, the journey was a good one."),
        text("One call, one PDF", "Heading2"),
        picture("Sheets go in on the left; one bound document comes out on the right."),
        text("A program that makes PDF files for a living does five things, over and over: it starts the "
             "application that understands the document, opens the document without letting its macros run, "
             "prints it, hands what was printed to a distiller, and tidies up. None of these steps is "
             "difficult. Doing them **in the right order, every time**, also when the third one fails on "
             "the four-hundredth document at a quarter to six, is."),
        text("That order is what Foliant is. The applications are the same ones you have at your desk, or "
             "stand-ins built on free engines where there is no such desk; the order never changes."),
        text("With kind regards from the press room,"),
        text("The Foliant authors", "Signature"),
    ]


def journey():
    return [
        text("How the document travels", "Heading1"),
        text("Each step below waits for the one before it, and each knows how to undo itself. When one fails, "
             "the clean-up runs from the last step that worked back to the first, and the error you see is "
             "the first one, never a complaint about the clean-up."),
        *(text(step, "Step") for step in [
            "**Start.** The application is created, out of sight, and told not to ask questions.",
            "**Open.** The document is opened for reading, with the password you gave, if it needs one.",
            "**Arrange.** Orientation and page numbers are set as the call asks, and nowhere else.",
            "**Print.** The pages go to a PostScript file, or straight to the PDF printer.",
            "**Distil.** PostScript becomes PDF, with notifications of progress as the pages go by.",
            "**Leave.** The document is closed unsaved, the application quits, the default printer is what "
            "it was.",
        ]),
        text("Who does the work", "Heading2"),
        table([120, 165, 165], [
            ["Host", "At a Windows desk", "Here, without one"],
            ["Word", "opens, arranges, prints", "LibreOffice, inside our own process"],
            ["Distiller", "PostScript to PDF", "Ghostscript, in a sandbox"],
            ["The save dialog", "answered by the window sender", "answered by the same decisions"],
            ["The registry", "the registry", "a small keyed store of settings"],
        ]),
        text("The table is short on purpose. A stand-in offers exactly the members that are called on the "
             "real host, gives the real result, and says so plainly when the engine beneath it is missing."),
    ]


def letters_that_survive():
    return [
        text("Letters that must survive", "Heading1"),
        text("A PDF that looks right can still be mute: search it for \u201coffice\u201d and nothing is found, because "
             "the two f\u2019s and the i were printed as one shape that nobody can spell. So here are the words "
             "that usually go missing. Search for them; copy them; they should come back whole."),
        text("Find the **office**, the **offline affidavit**, the **fluent** waffle, a **naïve** façade, "
             "the **flawless** finish, an **efficient** staff, five baffled flute players, a Dvořák first "
             "edition, the **Größe** of the effort, and everything written in **čeština**.", "Callout"),
        table([90, 360], [
            ["Language", "A sentence with something to lose"],
            ["Čeština", "Příliš žluťoučký kůň úpěl ďábelské ódy."],
            ["Deutsch", "Zwölf Boxkämpfer jagen Viktor quer über den großen Sylter Deich."],
            ["Ελληνικά", "Ξεσκεπάζω την ψυχοφθόρα βδελυγμία."],
            ["English", "The fluffy officer offered five fish fillets, finely filleted, at the ferry office."],
            ["Français", "Dès Noël, où un zéphyr haï me vêt de glaçons würmiens, je dîne d’exquis rôtis."],
            ["Íslenska", "Kæmi ný öxi hér, ykist þjófum nú bæði víl og ádrepa."],
            ["Polski", "Pchnąć w tę łódź jeża lub ośm skrzyń fig."],
            ["Русский", "Съешь же ещё этих мягких французских булок, да выпей чаю."],
        ]),
        text("Marks that are easily swapped", "Heading2"),
        text("Dashes are not hyphens \u2013 nor minus signs \u2014 and \u201cquotes\u201d have two sides. Prices come in €, £ "
             "and ¥, angles in °, fractions as ½ and ¾, footnotes with † and ‡, and a kerned \u201cAVATAR\u201d "
             "is still six letters."),
    ]


def before_you_send():
    return [
        text("Before you send it", "Heading1"),
        text("Making the file is half of the work; the other half is being sure of it. This is the list that "
             "hangs beside our press."),
        *(text(item, "Point") for item in [
            "The number of pages is the number of pages: compare it with the document, not with your hopes.",
            "The text can be searched. Try a word with an accent and a word with a ligature.",
            "The fonts are embedded, so the reader sees your letters and not their own.",
            "A password that was asked for is really needed to open it.",
            "Nothing is left behind: no temporary file, no hidden application, no borrowed default printer.",
        ]),
        text("When something goes wrong", "Heading2"),
        text("Errors are part of the product. A good one answers three questions in one breath: **what** "
             "failed, on **which file**, and **what to do** about it."),
        table([150, 300], [
            ["You see", "It means"],
            ["File not found", "The document is not where the call says; nothing was changed."],
            ["Permission denied", "The folder for the result cannot be written to."],
            ["Can\u2019t create object", "The application, or the engine that stands in for it, is not installed."],
            ["No answer in time", "A dialog stayed open and nobody was there to answer it."],
        ]),
        text("And when nothing goes wrong, you hear nothing. That, too, is part of the product.", "Callout"),
    ]


def body(pages):
    chapters = [journey, letters_that_survive, before_you_send]
    parts = opening()
    for number in range(pages - 1):
        parts += chapters[number % len(chapters)]()
    return "".join(parts)


# --- How Word writes it down ----------------------------------------------------------------------------------

NAMESPACES = ('xmlns:w="http://schemas.openxmlformats.org/wordprocessingml/2006/main" '
              'xmlns:r="http://schemas.openxmlformats.org/officeDocument/2006/relationships" '
              'xmlns:wp="http://schemas.openxmlformats.org/drawingml/2006/wordprocessingDrawing" '
              'xmlns:a="http://schemas.openxmlformats.org/drawingml/2006/main" '
              'xmlns:pic="http://schemas.openxmlformats.org/drawingml/2006/picture"')
XML = '<?xml version="1.0" encoding="UTF-8" standalone="yes"?>\n'


def runs(marked):
    """Text in which **stars** make bold."""
    pieces = []
    for index, piece in enumerate(marked.split("**")):
        if piece:
            bold = "<w:rPr><w:b/></w:rPr>" if index % 2 else ""
            pieces.append(f'<w:r>{bold}<w:t xml:space="preserve">{escape(piece)}</w:t></w:r>')
    return "".join(pieces)


def text(marked, style="BodyText"):
    return f'<w:p><w:pPr><w:pStyle w:val="{style}"/></w:pPr>{runs(marked)}</w:p>'


def table(widths, rows):
    """Widths in points; the first row is the heading and is repeated on each page."""
    grid = "".join(f'<w:gridCol w:w="{width * 20}"/>' for width in widths)
    out = [f'<w:tbl><w:tblPr><w:tblStyle w:val="Ruled"/><w:tblW w:w="{sum(widths) * 20}" w:type="dxa"/>'
           f'<w:tblInd w:w="{CELL_MARGIN}" w:type="dxa"/><w:tblLayout w:type="fixed"/></w:tblPr><w:tblGrid>{grid}</w:tblGrid>']
    for number, row in enumerate(rows):
        fill = ACCENT if number == 0 else PALE if number % 2 == 0 else "FFFFFF"
        style = "TableHead" if number == 0 else "TableText"
        heading = "<w:trPr><w:cantSplit/><w:tblHeader/></w:trPr>" if number == 0 else "<w:trPr><w:cantSplit/></w:trPr>"
        cells = "".join(f'<w:tc><w:tcPr><w:tcW w:w="{width * 20}" w:type="dxa"/>'
                        f'<w:shd w:val="clear" w:color="auto" w:fill="{fill}"/></w:tcPr>{text(cell, style)}</w:tc>'
                        for width, cell in zip(widths, row))
        out.append(f"<w:tr>{heading}{cells}</w:tr>")
    return "".join(out) + "</w:tbl>" + text("", "AfterTable")


def picture(caption):
    width, height = 450 * EMU_PER_POINT, 150 * EMU_PER_POINT
    return (f'<w:p><w:pPr><w:pStyle w:val="Picture"/></w:pPr><w:r><w:drawing><wp:inline distT="0" distB="0" distL="0" distR="0">'
            f'<wp:extent cx="{width}" cy="{height}"/><wp:docPr id="1" name="Press" descr="{escape(caption)}"/>'
            f'<a:graphic><a:graphicData uri="http://schemas.openxmlformats.org/drawingml/2006/picture"><pic:pic>'
            f'<pic:nvPicPr><pic:cNvPr id="1" name="press.png"/><pic:cNvPicPr/></pic:nvPicPr>'
            f'<pic:blipFill><a:blip r:embed="picture"/><a:stretch><a:fillRect/></a:stretch></pic:blipFill>'
            f'<pic:spPr><a:xfrm><a:off x="0" y="0"/><a:ext cx="{width}" cy="{height}"/></a:xfrm>'
            f'<a:prstGeom prst="rect"><a:avLst/></a:prstGeom></pic:spPr></pic:pic></a:graphicData></a:graphic>'
            f'</wp:inline></w:drawing></w:r></w:p>' + text(caption, "Caption"))


def document(pages):
    return (f'{XML}<w:document {NAMESPACES}><w:body>{body(pages)}<w:sectPr>'
            f'<w:headerReference w:type="default" r:id="header"/><w:footerReference w:type="default" r:id="footer"/>'
            f'<w:pgSz w:w="11906" w:h="16838"/><w:pgMar w:top="1700" w:right="1450" w:bottom="1300" w:left="1450" '
            f'w:header="800" w:footer="600" w:gutter="0"/></w:sectPr></w:body></w:document>')


def edge(kind, words, side):
    """A header or footer: a line of small print with a rule on one side."""
    return (f'{XML}<w:{kind} {NAMESPACES}><w:p><w:pPr><w:pStyle w:val="SmallPrint"/><w:pBdr>'
            f'<w:{side} w:val="single" w:sz="6" w:space="6" w:color="{ACCENT}"/></w:pBdr></w:pPr>{runs(words)}</w:p>'
            f'</w:{kind}>')


def style(name, size, *, font="serif", color=INK, before=0, after=0, line=264, extra="", run="", following="BodyText"):
    """A paragraph style: sizes in points, the line height in 240ths of a line."""
    face = {"serif": "Times New Roman", "sans": "Arial"}[font]
    outline = f'<w:outlineLvl w:val="{int(name[-1]) - 1}"/><w:keepNext/>' if name.startswith("Heading") else ""
    label = name.replace("Heading", "heading ")
    return (f'<w:style w:type="paragraph" w:styleId="{name}"><w:name w:val="{label}"/><w:next w:val="{following}"/>'
            f'<w:qFormat/><w:pPr>{extra}<w:spacing w:before="{before * 20}" w:after="{after * 20}" w:line="{line}" '
            f'w:lineRule="auto"/>{outline}</w:pPr><w:rPr><w:rFonts w:ascii="{face}" w:hAnsi="{face}" w:cs="{face}"/>{run}'
            f'<w:color w:val="{color}"/><w:sz w:val="{int(size * 2)}"/><w:lang w:val="en-GB"/></w:rPr></w:style>')


def numbered(list_id):
    return f'<w:numPr><w:ilvl w:val="0"/><w:numId w:val="{list_id}"/></w:numPr>'


def styles():
    callout = (f'<w:pBdr><w:left w:val="single" w:sz="24" w:space="10" w:color="{ACCENT}"/></w:pBdr>'
               f'<w:shd w:val="clear" w:color="auto" w:fill="{PALE}"/><w:ind w:left="240"/>')
    cell = "".join(f'<w:{side} w:w="{width}" w:type="dxa"/>'
                   for side, width in [("top", 50), ("left", CELL_MARGIN), ("bottom", 50), ("right", CELL_MARGIN)])
    rule = "".join(f'<w:{side} w:val="single" w:sz="4" w:color="{ACCENT}"/>' for side in ["top", "bottom", "insideH"])
    return (f'{XML}<w:styles {NAMESPACES}>' + "".join([
        style("BodyText", 11.5, after=9, line=286, extra='<w:jc w:val="both"/>'),
        style("Sender", 20, font="sans", color=ACCENT, after=2, run="<w:b/>"),
        style("Addressee", 11.5, after=22, run="<w:i/>"),
        style("Signature", 13, color=ACCENT, run="<w:i/>"),
        style("Heading1", 20, font="sans", color=ACCENT, after=12, run="<w:b/>", extra="<w:pageBreakBefore/>"),
        style("Heading2", 14, font="sans", color=ACCENT, before=12, after=6, run="<w:b/>"),
        style("Step", 11.5, after=5, extra=numbered(1), following="Step"),
        style("Point", 11.5, after=5, extra=numbered(2), following="Point"),
        style("Callout", 12, before=6, after=14, line=300, extra=callout, run="<w:i/>"),
        style("Picture", 11.5, before=2, after=4, extra='<w:keepNext/><w:jc w:val="center"/>'),
        style("Caption", 9.5, font="sans", after=12, extra='<w:jc w:val="center"/>'),
        style("TableHead", 10, font="sans", color="FFFFFF", run="<w:b/>"),
        style("TableText", 10.5),
        style("AfterTable", 6),
        style("SmallPrint", 9, font="sans", color="5B6B73"),
    ]) + f'<w:style w:type="table" w:styleId="Ruled"><w:name w:val="Ruled"/><w:tblPr><w:tblBorders>{rule}</w:tblBorders>'
         f'<w:tblCellMar>{cell}</w:tblCellMar></w:tblPr></w:style></w:styles>')


def numbering():
    def level(number, kind, mark):
        return (f'<w:abstractNum w:abstractNumId="{number}"><w:lvl w:ilvl="0"><w:start w:val="1"/>'
                f'<w:numFmt w:val="{kind}"/><w:lvlText w:val="{mark}"/><w:pPr><w:ind w:left="480" w:hanging="400"/></w:pPr>'
                f'<w:rPr><w:b/><w:color w:val="{ACCENT}"/></w:rPr></w:lvl></w:abstractNum>')
    uses = "".join(f'<w:num w:numId="{number}"><w:abstractNumId w:val="{number}"/></w:num>' for number in (1, 2))
    return (f'{XML}<w:numbering {NAMESPACES}>{level(1, "decimal", "%1.")}{level(2, "bullet", chr(0x2022))}{uses}'
            f'</w:numbering>')


# --- The picture ----------------------------------------------------------------------------------------------

def mix(under, over, amount):
    return tuple(u + (o - u) * amount for u, o in zip(under, over))


def inside_box(x, y, left, top, width, height, radius):
    """How much of the point lies in a rounded box, 0 to 1, with a soft edge one pixel wide."""
    dx = max(left + radius - x, x - (left + width - radius), 0)
    dy = max(top + radius - y, y - (top + height - radius), 0)
    return min(1, max(0, radius - (dx * dx + dy * dy) ** 0.5 + 0.5))


def sheets():
    """Boxes from back to front: left, top, width, height, corner radius, colour."""
    paper, line, teal, gold = (255, 255, 255), (176, 198, 203), (31, 111, 120), (214, 158, 61)
    for x, y in [(70, 52), (104, 74), (138, 96)]:  # loose sheets, on the left
        yield x - 2, y - 2, 124, 158, 8, line
        yield x, y, 120, 154, 7, paper
        for row in range(6):
            yield x + 16, y + 22 + 20 * row, (88, 80, 88, 60, 84, 46)[row], 6, 3, line
    for index in range(3):  # on their way
        yield 318 + 30 * index, 146, 16, 8, 4, teal
    yield 412, 70, 120, 160, 22, teal  # the press
    yield 432, 92, 80, 20, 10, gold
    yield 432, 136, 80, 10, 5, (120, 173, 180)
    yield 432, 160, 80, 10, 5, (120, 173, 180)
    yield 432, 184, 52, 10, 5, (120, 173, 180)
    for index in range(3):
        yield 560 + 30 * index, 146, 16, 8, 4, teal
    yield 672, 50, 152, 202, 10, teal  # the bound document, on the right
    yield 684, 44, 152, 202, 10, line
    yield 686, 46, 148, 198, 9, paper
    yield 686, 46, 22, 198, 9, gold
    yield 728, 74, 86, 14, 7, teal
    for row in range(6):
        yield 728, 108 + 20 * row, (86, 78, 86, 70, 86, 40)[row], 6, 3, line


def png():
    width, height = PICTURE_PIXELS
    rows = [[mix((244, 249, 249), (221, 235, 237), y / height)] * width for y in range(height)]
    for left, top, box_width, box_height, radius, color in sheets():
        for y in range(max(0, top - 1), min(height, top + box_height + 2)):
            row = rows[y]
            for x in range(max(0, left - 1), min(width, left + box_width + 2)):
                amount = inside_box(x + 0.5, y + 0.5, left, top, box_width, box_height, radius)
                if amount:
                    row[x] = mix(row[x], color, amount)
    raw = b"".join(b"\0" + bytes(round(channel) for pixel in row for channel in pixel) for row in rows)

    def chunk(kind, data):
        return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))
    return (b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", struct.pack(">IIBBBBB", width, height, 8, 2, 0, 0, 0))
            + chunk(b"IDAT", zlib.compress(raw, 9)) + chunk(b"IEND", b""))


# --- The archive ----------------------------------------------------------------------------------------------

OFFICE = "http://schemas.openxmlformats.org/officeDocument/2006/relationships"
PACKAGE = "http://schemas.openxmlformats.org/package/2006"
WORD = "application/vnd.openxmlformats-officedocument.wordprocessingml"


def relationships(entries):
    inner = "".join(f'<Relationship Id="{name}" Type="{kind}" Target="{target}"/>' for name, kind, target in entries)
    return f'{XML}<Relationships xmlns="{PACKAGE}/relationships">{inner}</Relationships>'


def content_types():
    kinds = [("word/document.xml", f"{WORD}.document.main+xml"), ("word/styles.xml", f"{WORD}.styles+xml"),
             ("word/numbering.xml", f"{WORD}.numbering+xml"), ("word/header.xml", f"{WORD}.header+xml"),
             ("word/footer.xml", f"{WORD}.footer+xml"),
             ("docProps/core.xml", "application/vnd.openxmlformats-package.core-properties+xml")]
    return (f'{XML}<Types xmlns="{PACKAGE}/content-types">'
            f'<Default Extension="rels" ContentType="application/vnd.openxmlformats-package.relationships+xml"/>'
            f'<Default Extension="png" ContentType="image/png"/>'
            + "".join(f'<Override PartName="/{part}" ContentType="{kind}"/>' for part, kind in kinds) + "</Types>")


def properties():
    return (f'{XML}<cp:coreProperties xmlns:cp="{PACKAGE}/metadata/core-properties" '
            'xmlns:dc="http://purl.org/dc/elements/1.1/"><dc:title>A letter from the press room</dc:title>'
            '<dc:creator>The Foliant authors</dc:creator><dc:language>en-GB</dc:language></cp:coreProperties>')


def parts(pages):
    yield "[Content_Types].xml", content_types()
    yield "_rels/.rels", relationships([
        ("document", f"{OFFICE}/officeDocument", "word/document.xml"),
        ("properties", f"{PACKAGE}/relationships/metadata/core-properties", "docProps/core.xml")])
    yield "docProps/core.xml", properties()
    yield "word/_rels/document.xml.rels", relationships([
        ("styles", f"{OFFICE}/styles", "styles.xml"), ("numbering", f"{OFFICE}/numbering", "numbering.xml"),
        ("header", f"{OFFICE}/header", "header.xml"), ("footer", f"{OFFICE}/footer", "footer.xml"),
        ("picture", f"{OFFICE}/image", "media/press.png")])
    yield "word/document.xml", document(pages)
    yield "word/styles.xml", styles()
    yield "word/numbering.xml", numbering()
    yield "word/header.xml", edge("hdr", "**Foliant**  \u00b7  a letter from the press room", "bottom")
    yield "word/footer.xml", edge("ftr", "Made to be turned into a PDF by one call.", "top")
    yield "word/media/press.png", png()


def letter(pages):
    """The bytes of the document."""
    output = io.BytesIO()
    with zipfile.ZipFile(output, "w", zipfile.ZIP_DEFLATED) as archive:
        for name, content in parts(pages):
            # The earliest date a zip archive knows, so that equal letters are equal files.
            archive.writestr(zipfile.ZipInfo(name, (1980, 1, 1, 0, 0, 0)), content, zipfile.ZIP_DEFLATED, 9)
    return output.getvalue()


def same(path, pages):
    """Whether a file holds that letter. The texts are compared, and of the picture that it is there: another
    version of the compression library may pack it in other bytes."""
    if not path.is_file() or not zipfile.is_zipfile(path):
        return False
    with zipfile.ZipFile(path) as archive:
        wanted = dict(parts(pages))
        return archive.namelist() == list(wanted) and all(
            archive.read(name).decode() == content for name, content in wanted.items() if isinstance(content, str))


def main():
    parser = argparse.ArgumentParser(description="Makes the example document.")
    parser.add_argument("output", nargs="?", type=pathlib.Path, default=pathlib.Path(__file__).parent / "letter.docx")
    parser.add_argument("--pages", type=int, default=4, help="how many pages (4 unless told)")
    parser.add_argument("--check", action="store_true", help="write nothing; say whether the output is up to date")
    options = parser.parse_args()
    if options.pages < 1:
        parser.error("a letter has at least one page")
    if not options.check:
        options.output.write_bytes(letter(options.pages))
    elif not same(options.output, options.pages):
        sys.exit(f"{options.output} is not what examples/make_letter.py makes. To mend: examples/make_letter.py")


if __name__ == "__main__":
    main()
