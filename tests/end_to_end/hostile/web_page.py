"""Every way in which a web page can name another file."""


def page(body, head="", attributes=""):
    return f"<!DOCTYPE html><html><head>{head}</head><body{attributes}>{body}</body></html>"


def ways(u):
    """Name of the way to the document; `u` gives the address of one of the user's files."""
    png = u("secret.png")
    for name in ("secret.png", "secret.svg", "secret.pdf", "pipe.png"):
        yield f"img-{name.replace('secret.', '')}", page(f'<img src="{u(name)}" width="200" height="200">')
    for attribute in ("lowsrc", "dynsrc", "longdesc", "data-src", "srcset"):
        yield f"img-{attribute}", page(f'<img {attribute}="{png}" width="200" height="200">')
    yield "img-path", page(f'<img src="{png.replace("file://", "")}" width="200" height="200">')
    yield "img-base", page('<img src="secret.png" width="200">', f'<base href="{png.rsplit("/", 1)[0]}/">')
    yield "body-background", page("x", attributes=f' background="{png}"')
    for tag, inner in [("table", "<tr><td>x</td></tr>"), ("tr", "<td>x</td>"), ("td", "x")]:
        wrapped = {"table": "{}", "tr": "<table>{}</table>", "td": "<table><tr>{}</tr></table>"}[tag]
        yield f"{tag}-background", page(wrapped.format(f'<{tag} background="{png}">{inner}</{tag}>'))
    for use in ("background-image", "background", "list-style-image", "content", "border-image", "cursor"):
        yield f"style-{use}", page(f'<ul style="{use}: url({png})"><li style="{use}: url({png})">x</li></ul>'
                                   f'<p style="{use}: url({png})">x</p><div style="{use}: url({png})">x</div>')
        yield f"sheet-{use}", page("<ul><li>x</li></ul><p>x</p>",
                                   f"<style>body, p, ul, li, table {{ {use}: url({png}) }}</style>")
    yield "sheet-link", page("<p>x</p>", f'<link rel="stylesheet" href="{u("secret.css")}">')
    yield "sheet-import", page("<p>x</p>", f'<style>@import url({u("secret.css")});</style>')
    yield "sheet-font", page("<p style='font-family: E'>x</p>",
                             f'<style>@font-face {{ font-family: E; src: url({u("secret.txt")}) }}</style>')
    yield "input-image", page(f'<form><input type="image" src="{png}" width="200" height="200"></form>')
    for tag in ("iframe", "embed", "frame"):
        yield tag, page(f'<{tag} src="{u("secret.html")}" width="300" height="200"></{tag}>')
    yield "frameset", f'<html><frameset cols="*"><frame src="{u("secret.html")}"></frameset></html>'
    yield "object", page(f'<object data="{u("secret.html")}" width="300" height="200"></object>')
    yield "object-picture", page(f'<object data="{png}" type="image/png" width="200" height="200"></object>')
    yield "applet", page(f'<applet code="x" codebase="{png.rsplit("/", 1)[0]}" width="200" height="200"></applet>')
    yield "sound", page(f'<bgsound src="{u("secret.txt")}"><audio src="{u("secret.txt")}"></audio>')
    yield "video", page(f'<video poster="{png}" src="{png}" width="200" height="200"></video>')
    yield "script", page("x", f'<script src="{u("secret.txt")}"></script>')
    yield "refresh", page("x", f'<meta http-equiv="refresh" content="0; url={u("secret.html")}">')
    yield "include", page(f'<!--#include file="{u("secret.txt").replace("file://", "")}" -->')
    yield "drawing", page('<svg width="200" height="200" xmlns:xlink="http://www.w3.org/1999/xlink">'
                          f'<image width="200" height="200" xlink:href="{png}"/></svg>')
    yield "section", page(f'<div href="{u("secret.html")}">x</div>')
    yield "text-section", page(f'<multicol><div id="s" href="{u("secret.fodt")}#x">x</div></multicol>')
