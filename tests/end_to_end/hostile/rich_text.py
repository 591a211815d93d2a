"""Every way in which an RTF file can name another file."""


def escaped(text):
    return text.replace("\\", "\\\\").replace("{", "\\{").replace("}", "\\}")


def document(body, header=""):
    return r"{\rtf1\ansi\deff0{\fonttbl{\f0 DejaVu Sans;}}" + header + r"\f0\fs24 " + body + r"\par}"


def field(instruction):
    return r'{\field\flddirty{\*\fldinst ' + instruction + r'}{\fldrslt old}}'


def shape(properties):
    inner = "".join(r"{\sp{\sn " + name + r"}{\sv " + value + "}}" for name, value in properties)
    return (r"{\shp{\*\shpinst\shpleft0\shptop0\shpright3000\shpbottom3000\shpfhdr0\shpbxcolumn\shpbypara\shpwr3"
            + inner + "}}")


def ways(u):
    """Name of the way to the document; `u` gives the address of one of the user's files."""
    for name in ("secret.png", "secret.svg", "secret.pdf", "pipe.png"):
        for kind, spelled in (("address", u(name)), ("path", u(name).replace("file://", ""))):
            yield f"includepicture-{name.replace('secret.', '')}-{kind}", document(
                field(r'INCLUDEPICTURE "' + escaped(spelled) + r'" \\d'))
    for name in ("secret.txt", "secret.fodt", "secret.rtf"):
        yield f"includetext-{name[7:]}", document(field(r'INCLUDETEXT "' + escaped(u(name)) + '"'))
    yield "link", document(field(r'LINK Word.Document.8 "' + escaped(u("secret.fodt")) + r'" "" \\a \\p'))
    yield "dde", document(field(r'DDEAUTO soffice "' + escaped(u("secret.fodt")) + '" x'))
    for name in ("pibName", "fillBlipName", "lineFillBlipName"):
        flags = name.replace("Name", "Flags")
        yield name.lower(), document(shape([("shapeType", "75" if name == "pibName" else "1"), (flags, "10"),
                                            ("fillType", "3"), (name, escaped(u("secret.png")))]))
    yield "background", document("x", r"\viewbksp1{\*\background" + shape(
        [("shapeType", "1"), ("fillType", "3"), ("fillBlipFlags", "10"), ("fillBlipName", escaped(u("secret.png")))]) + "}")
    yield "template", document("x", r"{\*\template " + escaped(u("secret.rtf")) + "}")
    yield "sub-document", document(r"{\subdocument0}", r"{\*\filetbl{\file\fid0\fvalidntfs " + escaped(u("secret.rtf")) + "}}")
    yield "linked-object", document(
        r"{\object\objautlink\rsltpict\objw2000\objh2000{\*\objclass Word.Document.8}{\*\objname " +
        escaped(u("secret.fodt")) + r"}{\*\objdata 01050000}{\result old}}")
    yield "next-file", document("x", r"{\*\nextfile " + escaped(u("secret.rtf")) + "}")
