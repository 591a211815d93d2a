"""Writes the presentations and drawings that the tests open. Standard library only.

    make_drawings.py FOLDER
"""

import struct
import sys
import zipfile
from pathlib import Path

HEAD = '<?xml version="1.0" encoding="UTF-8"?>'
PACKAGE = "http://schemas.openxmlformats.org/package/2006"
OPEN_DOCUMENT = " ".join(f'xmlns:{n}="urn:oasis:names:tc:opendocument:xmlns:{n}:1.0"'
                         for n in ("office", "style", "text", "presentation"))
OPEN_DOCUMENT += (' xmlns:draw="urn:oasis:names:tc:opendocument:xmlns:drawing:1.0"'
                  ' xmlns:fo="urn:oasis:names:tc:opendocument:xmlns:xsl-fo-compatible:1.0"'
                  ' xmlns:svg="urn:oasis:names:tc:opendocument:xmlns:svg-compatible:1.0"'
                  ' xmlns:form="urn:oasis:names:tc:opendocument:xmlns:form:1.0" xmlns:ooo="http://openoffice.org/2004/office"')
# A grey pattern of 64 by 64 pixels: smaller ones LibreOffice does not leave as they are.
JPEG = ("/9j/4AAQSkZJRgABAQAAAQABAAD/2wBDAKBueIx4ZKCMgoy0qqC+8P//8Nzc8P////////////////////////////////////////////////"
        "//////////wAALCABAAEABAREA/8QAFwABAQEBAAAAAAAAAAAAAAAAAQIEA//EABQQAQAAAAAAAAAAAAAAAAAAAAD/2gAIAQEAAD8A4lRJUWck"
        "lRLOSokqZlElRLOSVElnKiSos5JUSWclRJU//9k=")
VISIO = "http://schemas.microsoft.com/office/visio/2012/main"
RELATIONS = "http://schemas.openxmlformats.org/officeDocument/2006/relationships"
VISIO_RELATIONS = "http://schemas.microsoft.com/visio/2010/relationships"


def slide(number, hidden=False):
    style = "hidden" if hidden else "shown"
    return (f'<draw:page draw:name="page{number}" draw:master-page-name="Default" draw:style-name="{style}">'
            '<draw:frame draw:style-name="plain" svg:x="2cm" svg:y="2cm" svg:width="20cm" svg:height="3cm"><draw:text-box>'
            f'<text:p text:style-name="large">This is slide {number}.</text:p></draw:text-box></draw:frame></draw:page>')


def photographs(number):
    """A slide with nothing but photographs."""
    images = "".join(f'<draw:frame svg:x="{x}cm" svg:y="2cm" svg:width="9cm" svg:height="9cm"><draw:image>'
                     f'<office:binary-data>{JPEG}</office:binary-data></draw:image></draw:frame>' for x in (2, 14))
    return (f'<draw:page draw:name="page{number}" draw:master-page-name="Default" draw:style-name="shown">{images}'
            '</draw:page>')


def box_to_tick():
    """A slide with a ticked box on yellow ground, 20 centimetres wide."""
    return ('<draw:page draw:name="page1" draw:master-page-name="Default" draw:style-name="shown"><office:forms>'
            '<form:form form:name="form"><form:checkbox form:control-implementation='
            '"ooo:com.sun.star.form.component.CheckBox" xml:id="box" form:id="box" form:label="Tick" '
            'form:current-state="checked"/></form:form></office:forms><draw:control draw:style-name="yellow" '
            'draw:control="box" svg:x="2cm" svg:y="2cm" svg:width="20cm" svg:height="3cm"/></draw:page>')


def write_slides(path, slides):
    """Slides of 28 by 21 centimetres."""
    page = '<style:style style:name="{}" style:family="drawing-page"><style:drawing-page-properties {}/></style:style>'
    path.write_text(
        f'{HEAD}<office:document {OPEN_DOCUMENT} office:version="1.2" '
        'office:mimetype="application/vnd.oasis.opendocument.presentation"><office:automatic-styles>'
        '<style:page-layout style:name="layout"><style:page-layout-properties fo:page-width="28cm" fo:page-height="21cm" '
        'style:print-orientation="landscape"/></style:page-layout>'
        '<style:style style:name="plain" style:family="graphic"><style:graphic-properties draw:stroke="none" '
        'draw:fill="none" fo:padding="0cm"/></style:style>'
        '<style:style style:name="yellow" style:family="graphic"><style:graphic-properties fo:background-color="#ffff00"/>'
        '</style:style><style:style style:name="large" style:family="paragraph"><style:text-properties fo:font-size="40pt"/></style:style>'
        f'{page.format("hidden", "presentation:visibility=" + chr(34) + "hidden" + chr(34))}{page.format("shown", "")}'
        '</office:automatic-styles><office:master-styles><style:master-page style:name="Default" '
        'style:page-layout-name="layout"/></office:master-styles>'
        f'<office:body><office:presentation>{"".join(slides)}</office:presentation></office:body></office:document>',
        encoding="utf-8")


def visio_page(text):
    """A rectangle with a text in it."""
    corners = ((0, 0), (2, 0), (2, 1), (0, 1), (0, 0))
    rows = "".join(f'<Row T="{"MoveTo" if i == 0 else "LineTo"}" IX="{i + 1}"><Cell N="X" V="{x}"/><Cell N="Y" V="{y}"/></Row>'
                   for i, (x, y) in enumerate(corners))
    cells = "".join(f'<Cell N="{n}" V="{v}"/>' for n, v in
                    (("PinX", 2), ("PinY", 2), ("Width", 2), ("Height", 1), ("LocPinX", 1), ("LocPinY", 0.5)))
    return (f'{HEAD}<PageContents xmlns="{VISIO}"><Shapes><Shape ID="1" Type="Shape">{cells}'
            f'<Section N="Geometry" IX="0">{rows}</Section><Text>{text}</Text></Shape></Shapes></PageContents>')


def relations(*targets):
    return f'{HEAD}<Relationships xmlns="{PACKAGE}/relationships">' + "".join(
        f'<Relationship Id="r{i + 1}" Type="{VISIO_RELATIONS}/{kind}" Target="{target}"/>'
        for i, (kind, target) in enumerate(targets)) + "</Relationships>"


def write_vsdx(path, sizes=((8.5, 11), (10, 5)), main="drawing"):
    """Pages of these sizes, in inches."""
    pages = "".join(
        f'<Page ID="{i}" Name="Page-{i + 1}"><PageSheet><Cell N="PageWidth" V="{w}"/><Cell N="PageHeight" V="{h}"/></PageSheet>'
        f'<Rel r:id="r{i + 1}"/></Page>' for i, (w, h) in enumerate(sizes))
    kind = "application/vnd.ms-visio"
    with zipfile.ZipFile(path, "w", zipfile.ZIP_DEFLATED) as package:
        package.writestr("[Content_Types].xml", (
            f'{HEAD}<Types xmlns="{PACKAGE}/content-types">'
            '<Default Extension="rels" ContentType="application/vnd.openxmlformats-package.relationships+xml"/>'
            f'<Override PartName="/visio/document.xml" ContentType="{kind}.{main}.main+xml"/>'
            f'<Override PartName="/visio/pages/pages.xml" ContentType="{kind}.pages+xml"/>'
            + "".join(f'<Override PartName="/visio/pages/page{i + 1}.xml" ContentType="{kind}.page+xml"/>'
                      for i in range(len(sizes))) + "</Types>"))
        package.writestr("_rels/.rels", relations(("document", "visio/document.xml")))
        package.writestr("visio/document.xml", f'{HEAD}<VisioDocument xmlns="{VISIO}"/>')
        package.writestr("visio/_rels/document.xml.rels", relations(("pages", "pages/pages.xml")))
        package.writestr("visio/pages/pages.xml", f'{HEAD}<Pages xmlns="{VISIO}" xmlns:r="{RELATIONS}">{pages}</Pages>')
        package.writestr("visio/pages/_rels/pages.xml.rels",
                         relations(*(("page", f"page{i + 1}.xml") for i in range(len(sizes)))))
        for i in range(len(sizes)):
            package.writestr(f"visio/pages/page{i + 1}.xml", visio_page(f"drawn on {i + 1}"))


def write_compound_file(path, streams):
    """A compound file with two streams, in the order of their names' lengths; each fills eight sectors."""
    sector, length, end, free = 512, 8, 0xFFFFFFFE, 0xFFFFFFFF
    starts = [2, 2 + length]
    chains = [number + 1 if number + 1 - start < length else end for start in starts for number in range(start, start + length)]
    table = [0xFFFFFFFD, end, *chains]

    def entry(name, kind, right, child, start, size):
        text = name.encode("utf-16-le")
        return struct.pack("<64sHBBIII16s4s8s8sIQ", text, len(text) + 2 if text else 0, kind, 1, free, right, child, b"", b"",
                           b"", b"", start, size)
    names = list(streams)
    with open(path, "wb") as file:
        file.write(struct.pack("<8s16sHHHHH6sIIIIIIIII", b"\xd0\xcf\x11\xe0\xa1\xb1\x1a\xe1", b"", 0x3E, 3, 0xFFFE, 9, 6, b"",
                               0, 1, 1, 0, 4096, end, 0, end, 0))
        file.write(struct.pack("<109I", 0, *[free] * 108))
        file.write(struct.pack("<128I", *table, *[free] * (128 - len(table))))
        file.write(entry("Root Entry", 5, free, 1, end, 0) + entry(names[0], 2, 2, free, starts[0], sector * length)
                   + entry(names[1], 2, free, free, starts[1], sector * length) + entry("", 0, free, free, 0, 0))
        for content in streams.values():
            file.write(content.ljust(sector * length, b"\0"))


def main():
    folder = Path(sys.argv[1])
    folder.mkdir(parents=True, exist_ok=True)
    write_slides(folder / "slides.fodp", [slide(n, hidden=n == 3) for n in range(1, 5)])
    write_slides(folder / "photographs.fodp", [photographs(1), photographs(2)])
    write_slides(folder / "controls.fodp", [box_to_tick()])
    write_vsdx(folder / "plan.vsdx")
    write_vsdx(folder / "plan.vstx", main="template")
    write_vsdx(folder / "shapes.vssx", sizes=(), main="stencil")
    write_compound_file(folder / "encrypted.ppt", {
        "Current User": b"\0\0\xf6\x0f\x14\0\0\0\x14\0\0\0\xdf\xc4\xd1\xf3", "PowerPoint Document": b"noise"})
    (folder / "cut.vdx").write_text('<?xml version="1.0"?><VisioDocument><Pages><Page ID="0">')
    for name in ("prose.pptx", "prose.vsd"):
        (folder / name).write_text("This is neither.\n")
    for name in ("noise.ppt", "noise.vsd"):
        (folder / name).write_bytes(bytes(range(256)) * 4)
    (folder / "cut.vsdx").write_bytes((folder / "plan.vsdx").read_bytes()[:900])


main()
