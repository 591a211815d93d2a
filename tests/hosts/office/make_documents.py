"""Writes the documents that the tests open. Standard library only.

    make_documents.py FOLDER            all of them
    make_documents.py FILE.docx URL     one document with a picture that is only linked to
"""

import struct
import sys
import zipfile
import zlib
from pathlib import Path

WORD = "http://schemas.openxmlformats.org/wordprocessingml/2006/main"
RELATIONSHIPS = "http://schemas.openxmlformats.org/officeDocument/2006/relationships"
PACKAGE = "http://schemas.openxmlformats.org/package/2006"
NAMESPACES = (f'xmlns:w="{WORD}" xmlns:r="{RELATIONSHIPS}" '
              'xmlns:wp="http://schemas.openxmlformats.org/drawingml/2006/wordprocessingDrawing" '
              'xmlns:a="http://schemas.openxmlformats.org/drawingml/2006/main" '
              'xmlns:pic="http://schemas.openxmlformats.org/drawingml/2006/picture"')
PAGE_BREAK = '<w:p><w:r><w:br w:type="page"/></w:r></w:p>'
TEXT_MIX = "efficient office flow, naïve café, Łódź, Žižkov, Ελλάδα, Москва"


def paragraph(text, font=None):
    properties = f'<w:rPr><w:rFonts w:ascii="{font}" w:hAnsi="{font}" w:cs="{font}"/></w:rPr>' if font else ""
    return f'<w:p><w:r>{properties}<w:t xml:space="preserve">{text}</w:t></w:r></w:p>'


def section(references="", title_page=False, landscape=False, margins=(1440, 1440, 1440, 1440)):
    """Letter paper; margins are top, right, bottom, left, in twips."""
    width, height = (15840, 12240) if landscape else (12240, 15840)
    turned = ' w:orient="landscape"' if landscape else ""
    top, right, bottom, left = margins
    return (f'<w:sectPr>{references}<w:pgSz w:w="{width}" w:h="{height}"{turned}/>'
            f'<w:pgMar w:top="{top}" w:right="{right}" w:bottom="{bottom}" w:left="{left}" '
            f'w:header="720" w:footer="720" w:gutter="0"/>{"<w:titlePg/>" if title_page else ""}</w:sectPr>')


def band(kind, text):
    return f'<w:{kind} {NAMESPACES}>{paragraph(text)}</w:{kind}>'


def picture(relationship, attribute="embed"):
    size = 1828800  # two inches
    return ('<w:p><w:r><w:drawing><wp:inline>'
            f'<wp:extent cx="{size}" cy="{size}"/><wp:docPr id="1" name="Picture"/>'
            '<a:graphic><a:graphicData uri="http://schemas.openxmlformats.org/drawingml/2006/picture"><pic:pic>'
            '<pic:nvPicPr><pic:cNvPr id="1" name="Picture"/><pic:cNvPicPr/></pic:nvPicPr>'
            f'<pic:blipFill><a:blip r:{attribute}="{relationship}"/><a:stretch><a:fillRect/></a:stretch>'
            f'</pic:blipFill><pic:spPr><a:xfrm><a:off x="0" y="0"/><a:ext cx="{size}" cy="{size}"/></a:xfrm>'
            '<a:prstGeom prst="rect"><a:avLst/></a:prstGeom></pic:spPr>'
            '</pic:pic></a:graphicData></a:graphic></wp:inline></w:drawing></w:r></w:p>')


def png(size, pixel):
    """An RGBA picture; pixel(x, y) gives four values."""
    rows = b"".join(b"\0" + bytes(v for x in range(size) for v in pixel(x, y)) for y in range(size))

    def chunk(name, data):
        return struct.pack(">I", len(data)) + name + data + struct.pack(">I", zlib.crc32(name + data))

    return (b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", struct.pack(">IIBBBBB", size, size, 8, 6, 0, 0, 0)) +
            chunk(b"IDAT", zlib.compress(rows)) + chunk(b"IEND", b""))


def write_docx(path, body, parts=None, external=None):
    """`parts`: name to (relationship type, content); `external`: relationship id to URL of a picture."""
    kinds = {"header": "wordprocessingml.header+xml", "footer": "wordprocessingml.footer+xml"}
    relations, overrides = [], []
    for name, (kind, _) in (parts or {}).items():
        relations.append(f'<Relationship Id="{Path(name).stem}" Type="{RELATIONSHIPS}/{kind}" Target="{name}"/>')
        if kind in kinds:
            overrides.append(f'<Override PartName="/word/{name}" ContentType='
                             f'"application/vnd.openxmlformats-officedocument.{kinds[kind]}"/>')
    for name, url in (external or {}).items():
        relations.append(f'<Relationship Id="{name}" Type="{RELATIONSHIPS}/image" Target="{url}" '
                         'TargetMode="External"/>')
    with zipfile.ZipFile(path, "w", zipfile.ZIP_DEFLATED) as package:
        package.writestr("[Content_Types].xml", (
            f'<Types xmlns="{PACKAGE}/content-types"><Default Extension="png" ContentType="image/png"/>'
            '<Default Extension="rels" ContentType="application/vnd.openxmlformats-package.relationships+xml"/>'
            '<Default Extension="xml" ContentType="application/xml"/><Override PartName="/word/document.xml" '
            'ContentType="application/vnd.openxmlformats-officedocument.wordprocessingml.document.main+xml"/>'
            f'{"".join(overrides)}</Types>'))
        package.writestr("_rels/.rels", (
            f'<Relationships xmlns="{PACKAGE}/relationships"><Relationship Id="document" '
            f'Type="{RELATIONSHIPS}/officeDocument" Target="word/document.xml"/></Relationships>'))
        package.writestr("word/document.xml", f'<w:document {NAMESPACES}><w:body>{body}</w:body></w:document>')
        package.writestr("word/_rels/document.xml.rels",
                         f'<Relationships xmlns="{PACKAGE}/relationships">{"".join(relations)}</Relationships>')
        for name, (_, content) in (parts or {}).items():
            package.writestr(f"word/{name}", content)


def reference(kind, name, pages="default"):
    return f'<w:{kind}Reference w:type="{pages}" r:id="{name}"/>'


def write_pages(path, count):
    pages = [paragraph(f"This is page number {page}.") for page in range(1, count + 1)]
    write_docx(path, PAGE_BREAK.join(pages) + section())


def write_odt(path, body, settings="", parts=None):
    """An OpenDocument text; `parts`: name to (media type, content)."""
    office = "urn:oasis:names:tc:opendocument:xmlns"
    names = " ".join(f'xmlns:{prefix}="{office}:{space}:1.0"' for prefix, space in
                     [("office", "office"), ("text", "text"), ("script", "script"), ("manifest", "manifest"),
                      ("draw", "drawing"), ("svg", "svg-compatible")])
    names += (' xmlns:xlink="http://www.w3.org/1999/xlink" xmlns:dom="http://www.w3.org/2001/xml-events" '
              'xmlns:ooo="http://openoffice.org/2004/office"')
    entries = "".join(f'<manifest:file-entry manifest:full-path="{name}" manifest:media-type="{media}"/>'
                      for name, (media, _) in (parts or {}).items())
    with zipfile.ZipFile(path, "w") as package:
        package.writestr("mimetype", "application/vnd.oasis.opendocument.text")
        package.writestr("META-INF/manifest.xml", (
            f'<manifest:manifest {names}><manifest:file-entry manifest:full-path="/" '
            'manifest:media-type="application/vnd.oasis.opendocument.text"/><manifest:file-entry '
            f'manifest:full-path="content.xml" manifest:media-type="text/xml"/>{entries}</manifest:manifest>'))
        package.writestr("content.xml", (
            f'<office:document-content {names} office:version="1.2">{settings}<office:body><office:text>'
            f'{body}</office:text></office:body></office:document-content>'))
        for name, (_, content) in (parts or {}).items():
            package.writestr(name, content)


def write_macro_odt(path):
    """A document whose macro, bound to its opening, writes a file named ran beside it."""
    library = "http://openoffice.org/2000/library"
    source = ('Sub Ran\n'
              'Dim n : n = FreeFile\n'
              f'Open "{path.parent}/ran" For Output As #n\n'
              'Print #n, "ran"\n'
              'Close #n\n'
              'End Sub\n')
    events = ('<office:scripts><office:event-listeners><script:event-listener script:language="ooo:script" '
              'script:event-name="dom:load" xlink:href="vnd.sun.star.script:Standard.Module1.Ran?language=Basic'
              '&amp;location=document" xlink:type="simple"/></office:event-listeners></office:scripts>')
    write_odt(path, "<text:p>A document with a macro.</text:p>", events, {
        "Basic/script-lc.xml": ("text/xml", (
            f'<library:libraries xmlns:library="{library}"><library:library library:name="Standard" '
            'library:link="false"/></library:libraries>')),
        "Basic/Standard/script-lb.xml": ("text/xml", (
            f'<library:library xmlns:library="{library}" library:name="Standard" library:readonly="false" '
            'library:passwordprotected="false"><library:element library:name="Module1"/></library:library>')),
        "Basic/Standard/Module1.xml": ("text/xml", (
            '<script:module xmlns:script="http://openoffice.org/2000/script" script:name="Module1" '
            f'script:language="StarBasic">{source}</script:module>')),
    })


def write_first_page_fodt(path):
    """One page style whose first page has a header of its own, which Word documents never come out as."""
    office = "urn:oasis:names:tc:opendocument:xmlns"
    names = (f'xmlns:office="{office}:office:1.0" xmlns:text="{office}:text:1.0" xmlns:style="{office}:style:1.0" '
             f'xmlns:fo="{office}:xsl-fo-compatible:1.0"')
    path.write_text(
        f'<office:document {names} office:version="1.2" '
        'office:mimetype="application/vnd.oasis.opendocument.text"><office:automatic-styles>'
        '<style:page-layout style:name="pm1"><style:page-layout-properties fo:page-width="8.5in" '
        'fo:page-height="11in" fo:margin-top="1in" fo:margin-bottom="1in" fo:margin-left="1in" '
        'fo:margin-right="1in"/><style:header-style><style:header-footer-properties fo:min-height="0in" '
        'fo:margin-bottom="0.2in"/></style:header-style></style:page-layout><style:style style:name="P1" '
        'style:family="paragraph"><style:paragraph-properties fo:break-before="page"/></style:style>'
        '</office:automatic-styles><office:master-styles><style:master-page style:name="Standard" '
        'style:page-layout-name="pm1"><style:header><text:p>Running head</text:p></style:header>'
        '<style:header-first><text:p>First head</text:p></style:header-first></style:master-page>'
        '</office:master-styles><office:body><office:text><text:p>Body 1.</text:p>'
        '<text:p text:style-name="P1">Body 2.</text:p></office:text></office:body></office:document>')


def write_layout_documents(folder):
    write_pages(folder / "one.docx", 1)
    write_pages(folder / "five.docx", 5)
    write_pages(folder / "fifty.docx", 50)
    write_docx(folder / "margins.docx",
               paragraph("Margins: top 1, right 2, bottom 1.5, left 0.5 inch.") +
               section(margins=(1440, 2880, 2160, 720)))
    write_docx(folder / "landscape.docx", paragraph("Already landscape.") + section(landscape=True))
    two_pages = PAGE_BREAK.join([paragraph("First section, page 1."), paragraph("First section, page 2.")])
    write_docx(folder / "sections.docx", two_pages + f"<w:p><w:pPr>{section()}</w:pPr></w:p>" +
               paragraph("Second section, landscape.") + section(landscape=True))
    pages = PAGE_BREAK.join(paragraph(f"Body {page}.") for page in (1, 2, 3))
    write_docx(folder / "footer.docx", pages + section(reference("footer", "footer1")),
               {"footer1.xml": ("footer", band("ftr", "Confidential"))})
    write_docx(folder / "title_page.docx",
               pages + section(reference("header", "header1") + reference("header", "header2", "first"), True),
               {"header1.xml": ("header", band("hdr", "Running head")),
                "header2.xml": ("header", band("hdr", "Title head"))})


def write_content_documents(folder):
    write_docx(folder / "text_mix.docx", paragraph(TEXT_MIX, "DejaVu Sans") + paragraph(TEXT_MIX, "DejaVu Serif") +
               paragraph("efficient office flow, naïve café", "C059") + section())
    fading = png(64, lambda x, y: (200, 30, 30, 4 * x))
    write_docx(folder / "picture.docx", paragraph("Text above a fading picture.") + picture("image1") + section(),
               {"image1.png": ("image", fading)})
    # A picture that lies over text makes LibreOffice draw both, and let its own thread work meanwhile.
    write_odt(folder / "comment.odt", (
        '<text:p>aaa<office:annotation><text:p>The remark.</text:p></office:annotation>'
        '<draw:frame text:anchor-type="as-char" svg:width="2cm" svg:height="2cm">'
        '<draw:image xlink:href="Pictures/fading.png" xlink:type="simple"/></draw:frame></text:p>'),
        parts={"Pictures/fading.png": ("image/png", fading)})
    (folder / "utf8.txt").write_text("naïve café Łódź\nsecond line\n", encoding="utf-8")
    (folder / "latin.txt").write_text("naïve café\n", encoding="cp1252")
    (folder / "utf16.txt").write_text("naïve café\n", encoding="utf-16")
    (folder / "page.html").write_text("<!DOCTYPE html><html><body><h1>A heading</h1><p>Some prose.</p></body></html>")
    (folder / "note.rtf").write_text(r"{\rtf1\ansi\deff0{\fonttbl{\f0 DejaVu Sans;}}\f0\fs24 Rich words.\par}")
    (folder / "old.doc").write_text("Plain words under an old name.\n")
    write_first_page_fodt(folder / "first_page.fodt")
    write_odt(folder / "text.odt", "<text:p>Open words.</text:p>")
    write_macro_odt(folder / "macro.odt")


def write_old_word(path, mark, version, text):
    """A document of Word for Windows before 6: a header that says where the text lies, and the text."""
    start, content = 0x200, text.encode("cp1252")
    header = bytearray(start)
    struct.pack_into("<HHHH", header, 0, mark, version, 0x2006, 0x409)
    struct.pack_into("<II", header, 0x18, start, start + len(content))
    struct.pack_into("<I", header, 0x34, len(content))
    path.write_bytes(bytes(header) + content + bytes(512))


def write_old_documents(folder):
    write_old_word(folder / "word2.doc", 0xA5DB, 45, "Words of Word 2.\rAnd more.\r")
    write_old_word(folder / "word1.doc", 0xA59B, 33, "Words of Word 1.\r")
    # What begins like a document of Word for the Mac and is none.
    (folder / "half_mac.doc").write_bytes(bytes([0xFE, 0x37, 0, 0x23]) + bytes((i * 73 + 41) % 251 for i in range(900)))
    # What some take for an early WordPerfect, because that has no mark.
    (folder / "control.doc").write_bytes(bytes([0xBE, 0x31, 1, 2, 3]) + b"Words between control codes.\x0d" * 9)


def write_bad_documents(folder):
    good = (folder / "one.docx").read_bytes()
    (folder / "empty.docx").write_bytes(b"")
    (folder / "truncated.docx").write_bytes(good[:len(good) // 2])
    (folder / "noise.docx").write_bytes(bytes((i * 73 + 41) % 251 for i in range(100)))
    (folder / "noise.txt").write_bytes(bytes((i * 73 + 41) % 251 for i in range(100)))
    (folder / "prose.docx").write_text("Only words.\n")
    (folder / "paper.doc").write_bytes(b"%PDF-1.4\n%\xe2\xe3\xcf\xd3\n1 0 obj\n<<>>\nendobj\n")
    with zipfile.ZipFile(folder / "archive.docx", "w") as package:
        package.writestr("readme.txt", "not a document")
    write_docx(folder / "broken_xml.docx", "<w:p><w:r><w:t>cut off")


def main():
    if len(sys.argv) == 3:
        write_docx(sys.argv[1], paragraph("A linked picture.") + picture("linked", "link") + section(),
                   external={"linked": sys.argv[2]})
        return
    folder = Path(sys.argv[1]).resolve()
    folder.mkdir(parents=True, exist_ok=True)
    write_layout_documents(folder)
    write_content_documents(folder)
    write_old_documents(folder)
    write_bad_documents(folder)


main()
