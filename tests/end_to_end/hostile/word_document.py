"""Every way in which a Word document can name another file: relationships to what is outside the package, fields,
and what a package can carry that has links of its own (drawings, web pages, other documents)."""

import io
import zipfile

MAIN = "http://schemas.openxmlformats.org/"
OFFICE = MAIN + "officeDocument/2006/relationships"
PACKAGE = MAIN + "package/2006"
NAMES = " ".join(f'xmlns:{prefix}="{space}"' for prefix, space in {
    "w": MAIN + "wordprocessingml/2006/main", "r": OFFICE, "m": MAIN + "officeDocument/2006/math",
    "wp": MAIN + "drawingml/2006/wordprocessingDrawing", "a": MAIN + "drawingml/2006/main",
    "pic": MAIN + "drawingml/2006/picture", "c": MAIN + "drawingml/2006/chart", "v": "urn:schemas-microsoft-com:vml",
    "o": "urn:schemas-microsoft-com:office:office", "w10": "urn:schemas-microsoft-com:office:word",
    "wps": "http://schemas.microsoft.com/office/word/2010/wordprocessingShape",
    "wpg": "http://schemas.microsoft.com/office/word/2010/wordprocessingGroup",
    "wpc": "http://schemas.microsoft.com/office/word/2010/wordprocessingCanvas",
    "mc": MAIN + "markup-compatibility/2006",
    "asvg": "http://schemas.microsoft.com/office/drawing/2016/SVG/main"}.items())
EXTENT = 'cx="1828800" cy="1828800"'
SPOT = f'<a:xfrm><a:off x="0" y="0"/><a:ext {EXTENT}/></a:xfrm><a:prstGeom prst="rect"><a:avLst/></a:prstGeom>'


def text(words="x"):
    return f"<w:p><w:r><w:t>{words}</w:t></w:r></w:p>"


def package(body, links=(), parts=None, doctype="", settings_links=(), types=""):
    """`links` and `settings_links`: (id, kind of relationship, address); `parts`: name to content, each a
    relationship of its kind when given as (kind, content)."""
    rows = [f'<Relationship Id="{name}" Type="{OFFICE}/{kind}" Target="{address}" TargetMode="External"/>'
            for name, kind, address in links]
    overrides = []
    for name, (kind, content, media) in (parts or {}).items():
        rows.append(f'<Relationship Id="{name.split("/")[-1].split(".")[0]}" Type="{OFFICE}/{kind}" Target="{name}"/>')
        if media:
            overrides.append(f'<Override PartName="/word/{name}" ContentType="{media}"/>')
    out = io.BytesIO()
    with zipfile.ZipFile(out, "w", zipfile.ZIP_DEFLATED) as file:
        file.writestr("[Content_Types].xml", (
            f'<Types xmlns="{PACKAGE}/content-types"><Default Extension="png" ContentType="image/png"/>'
            '<Default Extension="svg" ContentType="image/svg+xml"/><Default Extension="eps" ContentType="image/x-eps"/>'
            '<Default Extension="rels" ContentType="application/vnd.openxmlformats-package.relationships+xml"/>'
            '<Default Extension="xml" ContentType="application/xml"/><Override PartName="/word/document.xml" '
            'ContentType="application/vnd.openxmlformats-officedocument.wordprocessingml.document.main+xml"/>'
            f'{"".join(overrides)}{types}</Types>'))
        file.writestr("_rels/.rels", (
            f'<Relationships xmlns="{PACKAGE}/relationships"><Relationship Id="d" Type="{OFFICE}/officeDocument" '
            'Target="word/document.xml"/></Relationships>'))
        file.writestr("word/document.xml", f'<?xml version="1.0"?>{doctype}<w:document {NAMES}>{body}</w:document>')
        file.writestr("word/_rels/document.xml.rels",
                      f'<Relationships xmlns="{PACKAGE}/relationships">{"".join(rows)}</Relationships>')
        for name, (_, content, _) in (parts or {}).items():
            file.writestr(f"word/{name}", content)
        if settings_links:
            inner = "".join(f'<Relationship Id="{name}" Type="{OFFICE}/{kind}" Target="{address}" '
                            'TargetMode="External"/>' for name, kind, address in settings_links)
            file.writestr("word/_rels/settings.xml.rels",
                          f'<Relationships xmlns="{PACKAGE}/relationships">{inner}</Relationships>')
    return out.getvalue()


def body(content, before=""):
    return f'{before}<w:body>{content}<w:sectPr><w:pgSz w:w="12240" w:h="15840"/></w:sectPr></w:body>'


def drawing(uri, graphic):
    return (f'<w:p><w:r><w:drawing><wp:inline><wp:extent {EXTENT}/><wp:docPr id="1" name="d"/><a:graphic>'
            f'<a:graphicData uri="{uri}">{graphic}</a:graphicData></a:graphic></wp:inline></w:drawing></w:r></w:p>')


def picture(blip):
    return ('<pic:pic><pic:nvPicPr><pic:cNvPr id="1" name="p"/><pic:cNvPicPr/></pic:nvPicPr><pic:blipFill>'
            f'{blip}<a:stretch><a:fillRect/></a:stretch></pic:blipFill><pic:spPr>{SPOT}</pic:spPr></pic:pic>')


def word_shape(fill, line=""):
    return f'<wps:wsp><wps:cNvSpPr/><wps:spPr>{SPOT}{fill}{line}</wps:spPr><wps:bodyPr/></wps:wsp>'


BLIP = '<a:blip r:link="x"/>'
BLIP_FILL = f'<a:blipFill>{BLIP}<a:stretch><a:fillRect/></a:stretch></a:blipFill>'
PICTURE = MAIN + "drawingml/2006/picture"
SHAPE = "http://schemas.microsoft.com/office/word/2010/wordprocessingShape"
GROUP = "http://schemas.microsoft.com/office/word/2010/wordprocessingGroup"
CANVAS = "http://schemas.microsoft.com/office/word/2010/wordprocessingCanvas"


def field(instruction):
    return ('<w:p><w:r><w:fldChar w:fldCharType="begin" w:dirty="true"/></w:r><w:r><w:instrText xml:space="preserve"> '
            f'{instruction} </w:instrText></w:r><w:r><w:fldChar w:fldCharType="separate"/></w:r><w:r><w:t>old</w:t></w:r>'
            '<w:r><w:fldChar w:fldCharType="end"/></w:r></w:p>')


def vml(content):
    return f'<w:p><w:r><w:pict>{content}</w:pict></w:r></w:p>'


def plain_vml(inside, attributes=""):
    return vml(f'<v:rect style="width:100pt;height:100pt" {attributes}>{inside}</v:rect>')


def embedded_svg(href):
    return ('<svg xmlns="http://www.w3.org/2000/svg" xmlns:xlink="http://www.w3.org/1999/xlink" width="200" height="200">'
            f'<image width="200" height="200" xlink:href="{href}"/></svg>')


def relationship_ways(u):
    image = [("x", "image", u("secret.png"))]
    for target in ("secret.png", "secret.svg", "secret.pdf", "pipe.png"):
        yield f"picture-{target.replace('secret.', '')}", package(
            body(drawing(PICTURE, picture(BLIP))), [("x", "image", u(target))])
    yield "picture-in-group", package(body(drawing(
        GROUP, f'<wpg:wgp><wpg:cNvGrpSpPr/><wpg:grpSpPr>{SPOT}</wpg:grpSpPr>{picture(BLIP)}</wpg:wgp>')), image)
    yield "picture-in-canvas", package(body(drawing(CANVAS, f'<wpc:wpc><wpc:bg/><wpc:whole/>{picture(BLIP)}</wpc:wpc>')),
                                       image)
    yield "shape-fill", package(body(drawing(SHAPE, word_shape(BLIP_FILL))), image)
    yield "shape-fill-tiled", package(body(drawing(SHAPE, word_shape(
        f'<a:blipFill>{BLIP}<a:tile/></a:blipFill>'))), image)
    yield "shape-in-group-fill", package(body(drawing(
        GROUP, f'<wpg:wgp><wpg:cNvGrpSpPr/><wpg:grpSpPr>{SPOT}{BLIP_FILL}</wpg:grpSpPr>'
               f'{word_shape("<a:grpFill/>")}</wpg:wgp>')), image)
    yield "line-fill", package(body(drawing(SHAPE, word_shape("", f'<a:ln w="127000">{BLIP_FILL}</a:ln>'))), image)
    yield "svg-extension", package(body(drawing(PICTURE, picture(
        '<a:blip><a:extLst><a:ext uri="{96DAC541-7B7A-43D3-8B79-37D633B846F1}"><asvg:svgBlip r:link="x"/></a:ext>'
        '</a:extLst></a:blip>'))), [("x", "image", u("secret.svg"))])
    for attribute in ("r:id", "o:relid", "r:href", "r:pict"):
        yield f"vml-image-{attribute[2:]}", package(body(plain_vml(f'<v:imagedata {attribute}="x"/>')), image)
    yield "vml-image-address", package(body(plain_vml(f'<v:imagedata src="{u("secret.png")}" o:href="{u("secret.png")}"/>')))
    for part in ("fill", "stroke"):
        yield f"vml-{part}", package(body(plain_vml(f'<v:{part} r:id="x" type="frame" filltype="frame"/>')), image)
        yield f"vml-{part}-address", package(body(plain_vml(f'<v:{part} src="{u("secret.png")}" type="frame"/>')))
    yield "vml-in-group", package(body(vml(
        '<v:group style="width:100pt;height:100pt" coordsize="100,100"><v:rect style="width:100;height:100">'
        '<v:imagedata r:id="x"/></v:rect></v:group>')), image)
    yield "page-background", package(body(text(), (
        '<w:background w:color="FFFFFF"><v:background o:bwmode="white"><v:fill r:id="x" type="frame"/></v:background>'
        '</w:background>')), image, {"settings.xml": ("settings", f'<w:settings {NAMES}><w:displayBackgroundShape/></w:settings>',
                                                      None)})
    yield "linked-object", package(body(
        '<w:p><w:r><w:object><v:shape style="width:100pt;height:100pt"><v:imagedata r:id="y"/></v:shape>'
        '<o:OLEObject Type="Link" ProgID="Word.Document.8" r:id="x" UpdateMode="Always"><o:LinkType>Picture</o:LinkType>'
        '</o:OLEObject></w:object></w:r></w:p>'),
        [("x", "oleObject", u("secret.fodt")), ("y", "image", u("secret.png"))])
    for target in ("secret.fodt", "secret.html", "secret.txt", "secret.rtf"):
        yield f"chunk-{target[7:]}", package(body('<w:altChunk r:id="x"/>' + text()), [("x", "aFChunk", u(target))])
    yield "sub-document", package(body('<w:p><w:subDoc r:id="x"/></w:p>'), [("x", "subDocument", u("secret.fodt"))])
    yield "chart", package(body(drawing(MAIN + "drawingml/2006/chart", '<c:chart r:id="x"/>')),
                           [("x", "chart", u("secret.fods"))])
    yield "header", package(
        f'<w:body>{text()}<w:sectPr><w:headerReference w:type="default" r:id="x"/></w:sectPr></w:body>',
        [("x", "header", u("secret.fodt"))])
    for kind in ("styles", "numbering", "theme", "fontTable", "footnotes", "comments", "settings", "customXml"):
        yield f"part-{kind}", package(body(text()), [("x", kind, u("secret.fodt"))])
    yield "hyperlink", package(body('<w:p><w:hyperlink r:id="x"><w:r><w:t>x</w:t></w:r></w:hyperlink></w:p>'),
                               [("x", "hyperlink", u("secret.fodt"))])
    yield "video", package(body(drawing(PICTURE, (
        '<pic:pic><pic:nvPicPr><pic:cNvPr id="1" name="p"><a:hlinkClick r:id="x"/></pic:cNvPr><pic:cNvPicPr/>'
        f'</pic:nvPicPr><pic:blipFill>{BLIP}</pic:blipFill><pic:spPr>{SPOT}</pic:spPr></pic:pic>'))),
        [("x", "video", u("secret.png"))])
    settings = (f'<w:settings {NAMES}><w:attachedTemplate r:id="x"/><w:mailMerge><w:mainDocumentType w:val="formLetters"/>'
                '<w:dataType w:val="textFile"/><w:dataSource r:id="y"/></w:mailMerge></w:settings>')
    yield "template-and-data-source", package(body(field("MERGEFIELD x")), parts={"settings.xml": (
        "settings", settings, "application/vnd.openxmlformats-officedocument.wordprocessingml.settings+xml")},
        settings_links=[("x", "attachedTemplate", u("secret.fodt")), ("y", "mailMergeSource", u("secret.txt"))])
    numbering = (f'<w:numbering {NAMES}><w:numPicBullet w:numPicBulletId="0"><w:pict><v:shape style="width:90pt;height:90pt">'
                 f'<v:imagedata src="{u("secret.png")}" r:id="x"/></v:shape></w:pict></w:numPicBullet><w:abstractNum '
                 'w:abstractNumId="0"><w:lvl w:ilvl="0"><w:numFmt w:val="bullet"/><w:lvlText w:val="o"/>'
                 '<w:lvlPicBulletId w:val="0"/></w:lvl></w:abstractNum><w:num w:numId="1"><w:abstractNumId w:val="0"/>'
                 '</w:num></w:numbering>')
    yield "bullet", package(body('<w:p><w:pPr><w:numPr><w:ilvl w:val="0"/><w:numId w:val="1"/></w:numPr></w:pPr>'
                                 '<w:r><w:t>x</w:t></w:r></w:p>'), image, {"numbering.xml": (
        "numbering", numbering, "application/vnd.openxmlformats-officedocument.wordprocessingml.numbering+xml")})


def field_ways(u):
    path = u("secret.txt").replace("file://", "")
    for name in ("secret.png", "secret.svg", "secret.pdf"):
        for spelled in (u(name), u(name).replace("file://", "")):
            kind = "address" if spelled.startswith("file:") else "path"
            yield f"field-includepicture-{name[7:]}-{kind}", package(body(field(f'INCLUDEPICTURE "{spelled}" \\d')))
    for name in ("secret.txt", "secret.fodt"):
        yield f"field-includetext-{name[7:]}", package(body(field(f'INCLUDETEXT "{u(name)}"')))
    yield "field-link", package(body(field(f'LINK Word.Document.8 "{u("secret.fodt")}" "" \\a \\p')))
    yield "field-dde", package(body(field(f'DDEAUTO soffice "{u("secret.fodt")}" x')))
    yield "field-rd", package(body(field(f'RD "{path}"') + field("TOC")))
    yield "field-import", package(body(field(f'IMPORT "{path}"')))
    yield "field-database", package(body(field(f'DATABASE \\d "{path}" \\c "x" \\s "SELECT * FROM x"')))


EPS = ("%!PS-Adobe-3.0 EPSF-3.0\n%%BoundingBox: 0 0 100 100\n%%EndComments\n"
       "newpath 10 10 moveto 90 90 lineto stroke\nshowpage\n%%EOF\n")


def carried_ways(u):
    """What the package carries is innocent itself, and links on, or takes another program to draw."""
    yield "eps", package(body(drawing(PICTURE, picture('<a:blip r:embed="drawn"/>'))),
                         parts={"media/drawn.eps": ("image", EPS, None)})
    for name in ("secret.png", "secret.svg"):
        yield f"svg-with-{name[7:]}", package(
            body(drawing(PICTURE, picture('<a:blip r:embed="drawn"/>'))),
            parts={"media/drawn.svg": ("image", embedded_svg(u(name)), None)})
    chunks = {
        "html": ("text/html", f'<html><body background="{u("secret.png")}"><img src="{u("secret.png")}"></body></html>'),
        "rtf": ("application/rtf", r'{\rtf1 {\field{\*\fldinst INCLUDEPICTURE "' + u("secret.png") + r'"}{\fldrslt x}}}'),
        "mht": ("message/rfc822", "MIME-Version: 1.0\r\nContent-Type: text/html\r\n\r\n"
                                  f'<html><body><img src="{u("secret.png")}"></body></html>'),
        "txt": ("text/plain", f'<html><body><img src="{u("secret.png")}"></body></html>'),
    }
    for ending, (media, content) in chunks.items():
        yield f"carried-{ending}", package(body('<w:altChunk r:id="chunk"/>' + text()),
                                           parts={f"chunk.{ending}": ("aFChunk", content, media)})
    inner = package(body(drawing(PICTURE, picture(BLIP))), [("x", "image", u("secret.png"))])
    docx = "application/vnd.openxmlformats-officedocument.wordprocessingml.document.main+xml"
    yield "carried-docx", package(body('<w:altChunk r:id="chunk"/>' + text()),
                                  parts={"chunk.docx": ("aFChunk", inner, docx)})
    yield "embedded-docx", package(body(
        '<w:p><w:r><w:object><v:shape style="width:100pt;height:100pt"/><o:OLEObject Type="Embed" '
        'ProgID="Word.Document.12" ShapeID="s" DrawAspect="Content" r:id="inner"/></w:object></w:r></w:p>'),
        parts={"embeddings/inner.docx": ("package", inner, docx)})


def xml_ways(u):
    for kind, doctype, words in [
            ("entity", f'<!DOCTYPE d [<!ENTITY s SYSTEM "{u("secret.txt")}">]>', "&s;"),
            ("parameter-entity", f'<!DOCTYPE d [<!ENTITY % p SYSTEM "{u("secret.txt")}"> %p;]>', "x"),
            ("doctype", f'<!DOCTYPE d SYSTEM "{u("secret.txt")}">', "x")]:
        yield kind, package(body(text(words)), doctype=doctype)


def ways(u):
    """Name of the way to the document; `u` gives the address of one of the user's files."""
    for group in (relationship_ways, field_ways, carried_ways, xml_ways):
        yield from group(u)
