"""Every way in which an OpenDocument file can name another file, from the format's schema: all attributes
xlink:href, the files that a text section or an index is made from, and what XML itself allows."""

SPACES = {name: f"urn:oasis:names:tc:opendocument:xmlns:{space}:1.0" for name, space in {
    "office": "office", "text": "text", "style": "style", "draw": "drawing", "table": "table", "form": "form",
    "script": "script", "meta": "meta", "anim": "animation", "presentation": "presentation", "chart": "chart",
    "number": "datastyle", "config": "config", "dr3d": "dr3d", "db": "database"}.items()}
SPACES |= {"fo": "urn:oasis:names:tc:opendocument:xmlns:xsl-fo-compatible:1.0",
           "svg": "urn:oasis:names:tc:opendocument:xmlns:svg-compatible:1.0",
           "xlink": "http://www.w3.org/1999/xlink", "xforms": "http://www.w3.org/2002/xforms",
           "loext": "urn:org:documentfoundation:names:experimental:office:xmlns:loext:1.0"}
NAMES = " ".join(f'xmlns:{prefix}="{space}"' for prefix, space in SPACES.items())
SIZE = 'svg:width="6cm" svg:height="4cm"'


def document(body, styles="", automatic="", master="", settings="", doctype="", fonts="", scripts=""):
    page = ('<style:page-layout style:name="pm1"><style:page-layout-properties fo:page-width="21cm" '
            'fo:page-height="29.7cm" fo:margin="2cm"/></style:page-layout>' if "pm1" not in automatic else "")
    masters = master or '<style:master-page style:name="Standard" style:page-layout-name="pm1"/>'
    return (f'<?xml version="1.0" encoding="UTF-8"?>{doctype}<office:document {NAMES} office:version="1.2" '
            'office:mimetype="application/vnd.oasis.opendocument.text">'
            f'{settings}{scripts}<office:font-face-decls>{fonts}</office:font-face-decls>'
            f'<office:styles>{styles}</office:styles><office:automatic-styles>{page}{automatic}'
            f'</office:automatic-styles><office:master-styles>{masters}</office:master-styles>'
            f'<office:body><office:text>{body}</office:text></office:body></office:document>')


def link(url):
    return f'xlink:href="{url}" xlink:type="simple" xlink:show="embed" xlink:actuate="onLoad"'


def frame(content):
    return f'<text:p><draw:frame text:anchor-type="as-char" {SIZE}>{content}</draw:frame></text:p>'


def shape(kind="draw:rect", style="g1", content=""):
    return f'<{kind} text:anchor-type="as-char" {SIZE} draw:style-name="{style}">{content}<text:p/></{kind}>'


def fill(url):
    return (f'<draw:fill-image draw:name="F" {link(url)}/>'
            '<style:style style:name="g1" style:family="graphic"><style:graphic-properties draw:fill="bitmap" '
            'draw:fill-image-name="F" style:repeat="stretch"/></style:style>')


def background(url):
    return f'<style:background-image {link(url)} style:repeat="stretch"/>'


def page_background(url):
    return (f'<style:page-layout style:name="pm1"><style:page-layout-properties fo:page-width="21cm" '
            f'fo:page-height="29.7cm" fo:margin="2cm">{background(url)}</style:page-layout-properties>'
            '</style:page-layout>')


def ways(u):
    """Name of the way to the document; `u` gives the address of one of the user's files."""
    yield "image", document(frame(f'<draw:image {link(u("secret.png"))}/>'))
    yield "image-svg", document(frame(f'<draw:image {link(u("secret.svg"))}/>'))
    yield "image-pdf", document(frame(f'<draw:image {link(u("secret.pdf"))}/>'))
    yield "image-pipe", document(frame(f'<draw:image {link(u("pipe.png"))}/>'))
    yield "image-second-choice", document(frame('<draw:image xlink:href="missing.png"/>'
                                                f'<draw:image {link(u("secret.png"))}/>'))
    yield "image-in-group", document("<text:p><draw:g text:anchor-type='as-char'><draw:frame "
                                     f"{SIZE}><draw:image {link(u('secret.png'))}/></draw:frame></draw:g></text:p>")
    yield "image-map", document(frame(f'<draw:image-map><draw:area-rectangle {link(u("secret.png"))} svg:x="0cm" '
                                      'svg:y="0cm" svg:width="1cm" svg:height="1cm"/></draw:image-map>'))
    yield "shape-fill", document(f"<text:p>{shape()}</text:p>", fill(u("secret.png")))
    yield "shape-fill-svg", document(f"<text:p>{shape()}</text:p>", fill(u("secret.svg")))
    yield "custom-shape-fill", document(
        "<text:p>" + shape("draw:custom-shape", content="") + "</text:p>", fill(u("secret.png")))
    yield "frame-fill", document(
        f'<text:p><draw:frame draw:style-name="g1" text:anchor-type="as-char" {SIZE}><draw:text-box><text:p>x</text:p>'
        "</draw:text-box></draw:frame></text:p>", fill(u("secret.png")))
    for name, family, use in [
            ("paragraph", "paragraph", '<text:p text:style-name="b">x</text:p>'),
            ("section", "section", '<text:section text:style-name="b" text:name="s"><text:p>x</text:p></text:section>'),
            ("frame", "graphic", f'<text:p><draw:frame draw:style-name="b" text:anchor-type="as-char" {SIZE}>'
                                 "<draw:text-box><text:p>x</text:p></draw:text-box></draw:frame></text:p>")]:
        for target in ("secret.png", "secret.svg"):
            yield f"{name}-background-{target[-3:]}", document(use, automatic=(
                f'<style:style style:name="b" style:family="{family}"><style:{family}-properties '
                f'fo:background-color="transparent">{background(u(target))}</style:{family}-properties></style:style>'))
    for part, family in [("table", "table"), ("row", "table-row"), ("cell", "table-cell")]:
        attributes = {name: ' table:style-name="b"' if name == part else "" for name in ("table", "row", "cell")}
        yield f"{part}-background", document(
            f'<table:table table:name="t"{attributes["table"]}><table:table-column/><table:table-row{attributes["row"]}>'
            f'<table:table-cell{attributes["cell"]}><text:p>x</text:p></table:table-cell></table:table-row></table:table>',
            automatic=f'<style:style style:name="b" style:family="{family}"><style:{family}-properties>'
                      f'{background(u("secret.png"))}</style:{family}-properties></style:style>')
    yield "page-background", document("<text:p>x</text:p>", automatic=page_background(u("secret.png")))
    yield "page-fill", document("<text:p>x</text:p>", fill(u("secret.png")), automatic=(
        '<style:page-layout style:name="pm1"><style:page-layout-properties fo:page-width="21cm" '
        'fo:page-height="29.7cm" fo:margin="2cm" draw:fill="bitmap" draw:fill-image-name="F"/></style:page-layout>'))
    yield "header-background", document("<text:p>x</text:p>", automatic=(
        '<style:page-layout style:name="pm1"><style:page-layout-properties fo:page-width="21cm" fo:page-height="29.7cm" '
        'fo:margin="2cm"/><style:header-style><style:header-footer-properties fo:min-height="2cm">'
        f'{background(u("secret.png"))}</style:header-footer-properties></style:header-style></style:page-layout>'),
        master='<style:master-page style:name="Standard" style:page-layout-name="pm1"><style:header><text:p>h</text:p>'
               '</style:header></style:master-page>')
    yield "bullet", document(
        '<text:list text:style-name="L"><text:list-item><text:p>x</text:p></text:list-item></text:list>',
        automatic='<text:list-style style:name="L"><text:list-level-style-image text:level="1" '
                  f'{link(u("secret.png"))}><style:list-level-properties text:min-label-width="3cm" fo:width="3cm" '
                  'fo:height="3cm"/></text:list-level-style-image></text:list-style>')
    for target in ("secret.fodt", "secret.txt", "secret.html", "secret.rtf"):
        yield f"section-source-{target[7:]}", document(
            f'<text:section text:name="s"><text:section-source {link(u(target))}/><text:p>old</text:p></text:section>')
    yield "section-source-filter", document(
        f'<text:section text:name="s"><text:section-source {link(u("secret.txt"))} text:filter-name="Text"/>'
        "<text:p>old</text:p></text:section>")
    yield "dde-section", document(
        '<text:section text:name="s"><office:dde-source office:dde-application="soffice" office:dde-topic="'
        f'{u("secret.fodt")}" office:dde-item="x" office:automatic-update="true"/><text:p>old</text:p></text:section>')
    for target in ("secret.fodt", "secret.fods", "secret.svg"):
        yield f"object-{target[7:]}", document(frame(f'<draw:object {link(u(target))}/>'))
    yield "object-ole", document(frame(f'<draw:object-ole {link(u("secret.fodt"))}/>'))
    yield "plugin", document(frame(f'<draw:plugin {link(u("secret.png"))} draw:mime-type="image/png"/>'))
    yield "applet", document(frame(f'<draw:applet {link(u("secret.html"))} draw:code="x"/>'))
    yield "floating-frame", document(frame(f'<draw:floating-frame {link(u("secret.html"))} draw:frame-name="f"/>'))
    yield "form-image", document(
        f'<office:forms><form:form form:name="f"><form:image xml:id="i" form:id="i" form:image-data="{u("secret.png")}" '
        'form:control-implementation="ooo:com.sun.star.form.component.ImageButton"/></form:form></office:forms>'
        f'<text:p><draw:control draw:control="i" text:anchor-type="as-char" {SIZE}/></text:p>')
    yield "form-image-frame", document(
        f'<office:forms><form:form form:name="f"><form:image-frame xml:id="i" form:id="i" form:image-data="{u("secret.png")}" '
        'form:control-implementation="ooo:com.sun.star.form.component.DatabaseImageControl"/></form:form></office:forms>'
        f'<text:p><draw:control draw:control="i" text:anchor-type="as-char" {SIZE}/></text:p>')
    yield "xforms-instance", document(
        f'<office:forms><xforms:model id="m"><xforms:instance id="i" src="{u("secret.fodt")}"/></xforms:model>'
        "</office:forms><text:p>x</text:p>")
    yield "font", document('<text:p text:style-name="P">x</text:p>', fonts=(
        f'<style:font-face style:name="E" svg:font-family="E"><svg:font-face-src><svg:font-face-uri {link(u("secret.txt"))}>'
        '<svg:font-face-format svg:string="truetype"/></svg:font-face-uri></svg:font-face-src></style:font-face>'),
        automatic='<style:style style:name="P" style:family="paragraph"><style:text-properties style:font-name="E"/>'
                  "</style:style>")
    yield "index-file", document(
        f'<text:alphabetical-index text:name="i"><text:alphabetical-index-source><text:alphabetical-index-auto-mark-file '
        f'{link(u("secret.txt"))}/></text:alphabetical-index-source><text:index-body><text:p>x</text:p></text:index-body>'
        "</text:alphabetical-index>")
    yield "template", document("<text:p>x</text:p>", settings=(
        f'<office:meta><meta:template {link(u("secret.fodt"))}/></office:meta>'))
    yield "reload", document("<text:p>x</text:p>", settings=(
        f'<office:meta><meta:auto-reload {link(u("secret.fodt"))} meta:delay="PT0S"/></office:meta>'))
    yield "table-source", document(
        f'<table:table table:name="t"><table:table-source {link(u("secret.fods"))} table:table-name="S"/>'
        "<table:table-column/><table:table-row><table:table-cell><text:p>x</text:p></table:table-cell></table:table-row>"
        "</table:table>")
    yield "database-field", document(
        f'<text:p><text:database-display text:table-name="S" text:table-type="table" text:column-name="A">'
        f'<form:connection-resource {link(u("secret.fods"))}/></text:database-display></text:p>')
    inner = frame(f'<draw:image {link(u("secret.png"))}/>')
    yield "image-in-object", document(frame(
        f'<draw:object><office:document {NAMES} office:version="1.2" '
        'office:mimetype="application/vnd.oasis.opendocument.text"><office:body><office:text>'
        f"{inner}</office:text></office:body></office:document></draw:object>"))
    yield "entity", document("<text:p>&secret;</text:p>",
                             doctype=f'<!DOCTYPE d [<!ENTITY secret SYSTEM "{u("secret.txt")}">]>')
    yield "parameter-entity", document("<text:p>x</text:p>",
                                       doctype=f'<!DOCTYPE d [<!ENTITY % p SYSTEM "{u("secret.txt")}"> %p;]>')
    yield "doctype", document("<text:p>x</text:p>", doctype=f'<!DOCTYPE d SYSTEM "{u("secret.txt")}">')
    yield "stylesheet", document("<text:p>x</text:p>",
                                 doctype=f'<?xml-stylesheet href="{u("secret.css")}" type="text/css"?>')
    yield "sound", document(f'<text:p><draw:rect text:anchor-type="as-char" {SIZE}><office:event-listeners>'
                            f'<presentation:event-listener script:event-name="dom:load" presentation:action="sound">'
                            f'<presentation:sound {link(u("secret.txt"))}/></presentation:event-listener>'
                            "</office:event-listeners></draw:rect></text:p>")
