"""The files that no document may bring into a PDF: each shows the word or the colour that a test looks for."""

import os
import struct
import zipfile
import zlib

WORD = "CANARYWORD"
COLOUR = (255, 0, 255)


def png():
    """A picture, all of it in the colour."""
    size = 48
    rows = (b"\0" + bytes(COLOUR) * size) * size

    def chunk(name, data):
        return struct.pack(">I", len(data)) + name + data + struct.pack(">I", zlib.crc32(name + data))

    return (b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", struct.pack(">IIBBBBB", size, size, 8, 2, 0, 0, 0)) +
            chunk(b"IDAT", zlib.compress(rows)) + chunk(b"IEND", b""))


def svg():
    return ('<svg xmlns="http://www.w3.org/2000/svg" width="200" height="100"><rect width="200" height="100" '
            f'fill="#ff00ff"/><text x="10" y="50" font-size="20">{WORD}</text></svg>')


def pdf():
    page = f"1 0 1 rg 0 0 200 200 re f 0 g BT /F1 20 Tf 10 100 Td ({WORD}) Tj ET".encode()
    objects = [b"<</Type/Catalog/Pages 2 0 R>>", b"<</Type/Pages/Kids[3 0 R]/Count 1>>",
               b"<</Type/Page/Parent 2 0 R/MediaBox[0 0 200 200]/Contents 4 0 R/Resources<</Font<</F1 5 0 R>>>>>>",
               b"<</Length %d>>stream\n%s\nendstream" % (len(page), page),
               b"<</Type/Font/Subtype/Type1/BaseFont/Helvetica>>"]
    out, places = b"%PDF-1.4\n", []
    for number, body in enumerate(objects, 1):
        places.append(len(out))
        out += b"%d 0 obj\n%s\nendobj\n" % (number, body)
    table = b"".join(b"%010d 00000 n \n" % place for place in places)
    return out + b"xref\n0 6\n0000000000 65535 f \n" + table + (
        b"trailer\n<</Size 6/Root 1 0 R>>\nstartxref\n%d\n%%%%EOF\n" % len(out))


def odt():
    office = "urn:oasis:names:tc:opendocument:xmlns"
    return (f'<office:document xmlns:office="{office}:office:1.0" xmlns:text="{office}:text:1.0" '
            'office:version="1.2" office:mimetype="application/vnd.oasis.opendocument.text"><office:body>'
            f'<office:text><text:p>{WORD}</text:p></office:text></office:body></office:document>')


def sheet():
    office = "urn:oasis:names:tc:opendocument:xmlns"
    return (f'<office:document xmlns:office="{office}:office:1.0" xmlns:text="{office}:text:1.0" '
            f'xmlns:table="{office}:table:1.0" office:version="1.2" '
            'office:mimetype="application/vnd.oasis.opendocument.spreadsheet"><office:body><office:spreadsheet>'
            f'<table:table table:name="S"><table:table-row><table:table-cell><text:p>{WORD}</text:p>'
            '</table:table-cell></table:table-row></table:table></office:spreadsheet></office:body>'
            '</office:document>')


FILES = {
    "secret.png": png,
    "secret.svg": svg,
    "secret.pdf": pdf,
    "secret.txt": lambda: WORD + "\n",
    "secret.fodt": odt,
    "secret.fods": sheet,
    "secret.html": lambda: f'<html><body bgcolor="#ff00ff">{WORD}</body></html>',
    "secret.css": lambda: f'body {{ background-color: #ff00ff }} p:before {{ content: "{WORD}" }}',
    "secret.rtf": lambda: r"{\rtf1 " + WORD + r"\par}",
}


def write(folder):
    """All of them, and a pipe that nobody writes to, into a folder."""
    folder.mkdir(parents=True)
    for name, make in FILES.items():
        content = make()
        (folder / name).write_bytes(content.encode() if isinstance(content, str) else content)
    os.mkfifo(folder / "pipe.png")
    with zipfile.ZipFile(folder / "secret.docx", "w") as package:
        package.writestr("readme.txt", WORD)
