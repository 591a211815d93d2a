"""Workbooks, a deck, a drawing and a text for bench/compare. Standard library only."""

import os
import random
import struct
import zipfile
import zlib

HEAD = '<?xml version="1.0" encoding="UTF-8"?>'
MAIN = "http://schemas.openxmlformats.org/spreadsheetml/2006/main"
RELATIONS = "http://schemas.openxmlformats.org/officeDocument/2006/relationships"
PACKAGE = "http://schemas.openxmlformats.org/package/2006"
SHEET = "application/vnd.openxmlformats-officedocument.spreadsheetml"
WORDS = ("the office filed fluent affidavits quick brown fox jumps over lazy dog report of sales in northern "
         "region during second quarter with figures").split()


def make_lines(path, _):
    """A megabyte of lines of four to fourteen words."""
    chosen = random.Random(5)
    lines, size = [], 0
    while size < 1_000_000:
        lines.append(" ".join(chosen.choice(WORDS) for _ in range(chosen.randint(4, 14))))
        size += len(lines[-1]) + 1
    path.write_text("\n".join(lines))


def sheet(number, rows):
    """Eight columns: a number, words, amounts and formulas of them."""
    chosen = random.Random(number)
    data = []
    for row in range(1, rows + 1):
        words = " ".join(chosen.choice(WORDS) for _ in range(2))
        cells = [f'<c r="A{row}"><v>{row}</v></c>', f'<c r="B{row}" t="inlineStr"><is><t>{words}</t></is></c>']
        cells += [f'<c r="{column}{row}"><v>{chosen.randint(1, 99999) / 100}</v></c>' for column in "CDEF"]
        cells += [f'<c r="G{row}"><f>SUM(C{row}:F{row})</f></c>', f'<c r="H{row}"><f>G{row}*A{row}</f></c>']
        data.append(f'<row r="{row}">{"".join(cells)}</row>')
    return f'{HEAD}<worksheet xmlns="{MAIN}"><sheetData>{"".join(data)}</sheetData></worksheet>'


def write_workbook(path, sheets, rows):
    numbers = range(1, sheets + 1)
    overrides = "".join(f'<Override PartName="/xl/worksheets/sheet{n}.xml" ContentType="{SHEET}.worksheet+xml"/>'
                        for n in numbers)
    listed = "".join(f'<sheet name="Sheet{n}" sheetId="{n}" r:id="r{n}"/>' for n in numbers)
    related = "".join(f'<Relationship Id="r{n}" Type="{RELATIONS}/worksheet" Target="worksheets/sheet{n}.xml"/>'
                      for n in numbers)
    with zipfile.ZipFile(path, "w", zipfile.ZIP_DEFLATED) as package:
        package.writestr("[Content_Types].xml", (
            f'{HEAD}<Types xmlns="{PACKAGE}/content-types"><Default Extension="rels" '
            'ContentType="application/vnd.openxmlformats-package.relationships+xml"/><Override '
            f'PartName="/xl/workbook.xml" ContentType="{SHEET}.sheet.main+xml"/>{overrides}</Types>'))
        package.writestr("_rels/.rels", (
            f'{HEAD}<Relationships xmlns="{PACKAGE}/relationships"><Relationship Id="r1" '
            f'Type="{RELATIONS}/officeDocument" Target="xl/workbook.xml"/></Relationships>'))
        package.writestr("xl/workbook.xml", (
            f'{HEAD}<workbook xmlns="{MAIN}" xmlns:r="{RELATIONS}"><sheets>{listed}</sheets></workbook>'))
        package.writestr("xl/_rels/workbook.xml.rels",
                         f'{HEAD}<Relationships xmlns="{PACKAGE}/relationships">{related}</Relationships>')
        for n in numbers:
            package.writestr(f"xl/worksheets/sheet{n}.xml", sheet(n, rows))


def make_workbook(path, sheets):
    write_workbook(path, sheets, 2000)


def make_small_workbook(path, sheets):
    write_workbook(path, sheets, 20)


def picture(width, height):
    """Noise, which does not compress."""
    def chunk(name, data):
        return struct.pack(">I", len(data)) + name + data + struct.pack(">I", zlib.crc32(name + data))
    rows = b"".join(b"\0" + os.urandom(3 * width) for _ in range(height))
    return (b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", struct.pack(">IIBBBBB", width, height, 8, 2, 0, 0, 0)) +
            chunk(b"IDAT", zlib.compress(rows, 1)) + chunk(b"IEND", b""))


SPACES = "urn:oasis:names:tc:opendocument:xmlns"
NAMES = " ".join(f'xmlns:{prefix}="{SPACES}:{space}:1.0"' for prefix, space in
                 [("office", "office"), ("text", "text"), ("draw", "drawing"), ("svg", "svg-compatible"),
                  ("manifest", "manifest")]) + ' xmlns:xlink="http://www.w3.org/1999/xlink"'


def frame(place, size, content):
    return (f'<draw:frame svg:x="{place[0]}cm" svg:y="{place[1]}cm" svg:width="{size[0]}cm" svg:height="{size[1]}cm">'
            f'{content}</draw:frame>')


def words_in_a_box(words):
    return f'<draw:text-box><text:p>{words}</text:p></draw:text-box>'


def write_open_document(path, kind, body, pictures):
    with zipfile.ZipFile(path, "w") as package:
        package.writestr("mimetype", f"application/vnd.oasis.opendocument.{kind}")
        entries = "".join(f'<manifest:file-entry manifest:full-path="{name}" manifest:media-type="image/png"/>'
                          for name in pictures)
        package.writestr("META-INF/manifest.xml", (
            f'{HEAD}<manifest:manifest {NAMES}><manifest:file-entry manifest:full-path="/" manifest:media-type='
            f'"application/vnd.oasis.opendocument.{kind}"/><manifest:file-entry manifest:full-path="content.xml" '
            f'manifest:media-type="text/xml"/>{entries}</manifest:manifest>'))
        package.writestr("content.xml", (
            f'{HEAD}<office:document-content {NAMES} office:version="1.2"><office:body>{body}</office:body>'
            '</office:document-content>'))
        for name, content in pictures.items():
            package.writestr(name, content)


def make_deck(path, slides):
    """Each slide with a title, a paragraph and a picture of its own."""
    pictures = {f"Pictures/p{n}.png": picture(400, 300) for n in range(slides)}
    pages = []
    for n, name in enumerate(pictures):
        image = f'<draw:image xlink:href="{name}" xlink:type="simple"/>'
        pages.append(f'<draw:page draw:name="page{n + 1}">' +
                     frame((2, 1), (22, 2), words_in_a_box(f"Slide {n + 1}")) +
                     frame((2, 4), (10, 12), words_in_a_box(" ".join(WORDS * 3))) +
                     frame((13, 4), (12, 9), image) + "</draw:page>")
    write_open_document(path, "presentation", f'<office:presentation>{"".join(pages)}</office:presentation>', pictures)


def make_sketch(path, _):
    page = '<draw:page draw:name="page1">' + frame((2, 2), (10, 2), words_in_a_box("ground floor")) + "</draw:page>"
    write_open_document(path, "graphics", f"<office:drawing>{page}</office:drawing>", {})
