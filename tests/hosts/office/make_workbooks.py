"""Writes the workbooks that the tests open. Standard library only.

    make_workbooks.py FOLDER
"""

import base64
import sys
import zipfile
from pathlib import Path

MAIN = "http://schemas.openxmlformats.org/spreadsheetml/2006/main"
RELATIONSHIPS = "http://schemas.openxmlformats.org/officeDocument/2006/relationships"
PACKAGE = "http://schemas.openxmlformats.org/package/2006"
TYPE = "application/vnd.openxmlformats-officedocument.spreadsheetml"
HEAD = '<?xml version="1.0" encoding="UTF-8"?>'


def column_name(number):
    name = ""
    while number >= 0:
        name = chr(65 + number % 26) + name
        number = number // 26 - 1
    return name


def cell(row, column, value):
    place = f"{column_name(column)}{row + 1}"
    if isinstance(value, str):
        return f'<c r="{place}" t="inlineStr"><is><t>{value}</t></is></c>'
    return f'<c r="{place}"><v>{value}</v></c>'


def sheet(rows, setup=""):
    """`rows` are lists of values; None leaves a cell empty. `setup` is what follows the cells."""
    data = "".join(
        f'<row r="{r + 1}">{"".join(cell(r, c, v) for c, v in enumerate(row) if v is not None)}</row>'
        for r, row in enumerate(rows))
    return f'{HEAD}<worksheet xmlns="{MAIN}"><sheetData>{data}</sheetData>{setup}</worksheet>'


# Two formats of cells: none, and the one that is a date in whatever form the user's country writes it.
STYLES = (f'{HEAD}<styleSheet xmlns="{MAIN}"><fonts count="1"><font/></fonts><fills count="1"><fill/></fills>'
          '<borders count="1"><border/></borders><cellStyleXfs count="1"><xf/></cellStyleXfs><cellXfs count="2"><xf/>'
          '<xf numFmtId="14" applyNumberFormat="1"/></cellXfs></styleSheet>')


# A table of three columns with a row of headings and one of totals; `setup` of the sheet that it lies on.
TABLE = (f'{HEAD}<table xmlns="{MAIN}" id="1" name="Stock" displayName="Stock" ref="A1:C4" totalsRowCount="1">'
         '<tableColumns count="3"><tableColumn id="1" name="Article"/><tableColumn id="2" name="Shelf"/>'
         '<tableColumn id="3" name="Pieces"/></tableColumns></table>')
TABLE_PART = f'<tableParts count="1"><tablePart xmlns:r="{RELATIONSHIPS}" r:id="t1"/></tableParts>'


def write_xlsx(path, sheets, names="", styles="", table=""):
    """`sheets` are pairs of a name and XML. The table, if there is one, is the first sheet's."""
    numbers = range(1, len(sheets) + 1)
    overrides = "".join(f'<Override PartName="/xl/worksheets/sheet{n}.xml" ContentType="{TYPE}.worksheet+xml"/>'
                        for n in numbers)
    listed = "".join(f'<sheet name="{name}" sheetId="{n}" r:id="r{n}"/>' for n, (name, _) in zip(numbers, sheets))
    related = "".join(f'<Relationship Id="r{n}" Type="{RELATIONSHIPS}/worksheet" Target="worksheets/sheet{n}.xml"/>'
                      for n in numbers)
    if styles:
        overrides += f'<Override PartName="/xl/styles.xml" ContentType="{TYPE}.styles+xml"/>'
        related += f'<Relationship Id="styles" Type="{RELATIONSHIPS}/styles" Target="styles.xml"/>'
    if table:
        overrides += f'<Override PartName="/xl/tables/table1.xml" ContentType="{TYPE}.table+xml"/>'
    with zipfile.ZipFile(path, "w", zipfile.ZIP_DEFLATED) as package:
        package.writestr("[Content_Types].xml", (
            f'{HEAD}<Types xmlns="{PACKAGE}/content-types">'
            '<Default Extension="rels" ContentType="application/vnd.openxmlformats-package.relationships+xml"/>'
            f'<Override PartName="/xl/workbook.xml" ContentType="{TYPE}.sheet.main+xml"/>{overrides}</Types>'))
        package.writestr("_rels/.rels", (
            f'{HEAD}<Relationships xmlns="{PACKAGE}/relationships"><Relationship Id="r1" '
            f'Type="{RELATIONSHIPS}/officeDocument" Target="xl/workbook.xml"/></Relationships>'))
        package.writestr("xl/workbook.xml", (
            f'{HEAD}<workbook xmlns="{MAIN}" xmlns:r="{RELATIONSHIPS}"><sheets>{listed}</sheets>'
            f'<definedNames>{names}</definedNames></workbook>'))
        package.writestr("xl/_rels/workbook.xml.rels",
                         f'{HEAD}<Relationships xmlns="{PACKAGE}/relationships">{related}</Relationships>')
        if styles:
            package.writestr("xl/styles.xml", styles)
        if table:
            package.writestr("xl/tables/table1.xml", table)
            package.writestr("xl/worksheets/_rels/sheet1.xml.rels", (
                f'{HEAD}<Relationships xmlns="{PACKAGE}/relationships"><Relationship Id="t1" '
                f'Type="{RELATIONSHIPS}/table" Target="../tables/table1.xml"/></Relationships>'))
        for n, (_, xml) in zip(numbers, sheets):
            package.writestr(f"xl/worksheets/sheet{n}.xml", xml)


def write_ods(path):
    """Two sheets that share the one page style."""
    namespaces = " ".join(f'xmlns:{n}="urn:oasis:names:tc:opendocument:xmlns:{n}:1.0"'
                          for n in ("office", "table", "text", "manifest"))
    table = ('<table:table table:name="{0}"><table:table-row><table:table-cell office:value-type="string">'
             "<text:p>in {0}</text:p></table:table-cell></table:table-row></table:table>")
    mimetype = "application/vnd.oasis.opendocument.spreadsheet"
    with zipfile.ZipFile(path, "w") as package:
        package.writestr("mimetype", mimetype, zipfile.ZIP_STORED)
        package.writestr("META-INF/manifest.xml", (
            f'{HEAD}<manifest:manifest {namespaces}><manifest:file-entry manifest:full-path="/" '
            f'manifest:media-type="{mimetype}"/><manifest:file-entry manifest:full-path="content.xml" '
            'manifest:media-type="text/xml"/></manifest:manifest>'))
        package.writestr("content.xml", (
            f'{HEAD}<office:document-content {namespaces}><office:body><office:spreadsheet>'
            f'{table.format("One")}{table.format("Two")}'
            "</office:spreadsheet></office:body></office:document-content>"))


# The content of a workbook, as LibreOffice encrypts it for the password "open sesame": one cell, "kept from others".
SECRET = """
lNMZCxiOwY7tr2mdq1NYAFpmV04nj7kEU0jRlVhvVB18dJdzzG7e01k8/UgIIzLbBEaHF7kNBL8YgsVcc77TBEJrDAYANZy9HYNpXuUiYsKL4xlLalrYDLoE
nH82qSOZZRGRreP/Gj3sG4wVxg5/pva5wk6QV7yAqI3QXCS7+LgiTYrovpMn9Sgd1GDxzB9wHREf8XMURt/RU4VYlZJTM21oPT+4tQ/uh7++X6IH0vhQSlt1
LVR6DvEsCIoaBDds+G88oGX8ROqPrLN7yXbGRZGECfc2Ou990TSugJmxO2E=
"""


def write_locked(path):
    """A workbook in OpenDocument that is encrypted by AES."""
    mimetype = "application/vnd.oasis.opendocument.spreadsheet"
    manifest = "urn:oasis:names:tc:opendocument:xmlns:manifest:1.0"
    sha256 = "http://www.w3.org/2000/09/xmldsig#sha256"
    with zipfile.ZipFile(path, "w") as package:
        package.writestr("mimetype", mimetype, zipfile.ZIP_STORED)
        package.writestr("META-INF/manifest.xml", (
            f'{HEAD}<manifest:manifest xmlns:manifest="{manifest}" manifest:version="1.2"><manifest:file-entry '
            f'manifest:full-path="/" manifest:version="1.2" manifest:media-type="{mimetype}"/><manifest:file-entry '
            'manifest:full-path="content.xml" manifest:media-type="text/xml" manifest:size="543">'
            f'<manifest:encryption-data manifest:checksum-type="{manifest}#sha256-1k" '
            'manifest:checksum="KQP380JTEPB2XxFYAJMgPKKeCLKmg0j9roizpLW2kAk="><manifest:algorithm '
            'manifest:algorithm-name="http://www.w3.org/2001/04/xmlenc#aes256-cbc" '
            'manifest:initialisation-vector="8LU7LaBB/KSe8LmDkGCzRQ=="/><manifest:key-derivation '
            'manifest:key-derivation-name="PBKDF2" manifest:key-size="32" manifest:iteration-count="1024" '
            'manifest:salt="zrIHcuDJ0kDHXrJrDjer7g=="/><manifest:start-key-generation '
            f'manifest:start-key-generation-name="{sha256}" manifest:key-size="32"/></manifest:encryption-data>'
            '</manifest:file-entry></manifest:manifest>'))
        package.writestr("content.xml", base64.b64decode(SECRET), zipfile.ZIP_STORED)


def write_drawing(path):
    """A sheet of three words, on which a beam lies that is 15 cm long."""
    namespaces = " ".join(f'xmlns:{short}="urn:oasis:names:tc:opendocument:xmlns:{name}:1.0"' for short, name in (
        ("office", "office"), ("table", "table"), ("text", "text"), ("draw", "drawing"),
        ("svg", "svg-compatible")))
    cells = "".join(f'<table:table-cell office:value-type="string"><text:p>{word}</text:p></table:table-cell>'
                    for word in ("on", "this", "sheet"))
    path.write_text((
        f'{HEAD}<office:document {namespaces} office:mimetype="application/vnd.oasis.opendocument.spreadsheet">'
        '<office:body><office:spreadsheet><table:table table:name="Beam"><table:shapes>'
        '<draw:rect svg:x="1cm" svg:y="0cm" svg:width="15cm" svg:height="2cm"/></table:shapes>'
        f"<table:table-row>{cells}</table:table-row></table:table>"
        "</office:spreadsheet></office:body></office:document>"), encoding="utf-8")


def main():
    folder = Path(sys.argv[1])
    folder.mkdir(parents=True, exist_ok=True)
    letter = '<pageSetup paperSize="1"/>'
    header = ('<pageMargins left="0.7" right="0.7" top="1" bottom="1" header="0.5" footer="0.5"/>'
              f"{letter}<headerFooter><oddHeader>&amp;Lold left&amp;Cold centre</oddHeader></headerFooter>")
    rows = [["Region", "North", "South"]] + [[f"row {i}", i, i * 100] for i in range(2, 101)]
    write_xlsx(folder / "sales.xlsx",
               [("Sales", sheet(rows, letter)), ("My notes", sheet([["a note"], [None, "another"]], header)),
                ("Blank", sheet([], letter))],
               '<definedName name="Prices">Sales!$B$2:$C$4</definedName>'
               '<definedName name="Elsewhere">\'My notes\'!$A$1</definedName>')
    stock = [["Article", "Shelf", "Pieces"], ["nut", "A", 5], ["bolt", "B", 2], ["Total", None, 7], ["not of it", "C", 9]]
    write_xlsx(folder / "stock.xlsx", [("Stock list", sheet(stock, TABLE_PART)), ("Rest", sheet([["rest", "more"]]))],
               '<definedName name="_xlnm.Print_Area" localSheetId="0">\'Stock list\'!$A$1:$A$2</definedName>'
               '<definedName name="_xlnm.Print_Area" localSheetId="1">Rest!$B$1</definedName>'
               '<definedName name="Ends">\'Stock list\'!$A$1:$A$2,\'Stock list\'!$C$2:$C$3</definedName>'
               '<definedName name="Whole">Stock[#All]</definedName><definedName name="Tax">0.19</definedName>', table=TABLE)
    dated = sheet([[40921]]).replace('r="A1"', 'r="A1" s="1"')
    write_xlsx(folder / "dated.xlsx", [("Dated", dated)], styles=STYLES)
    write_ods(folder / "shared.ods")
    write_drawing(folder / "beam.fods")
    write_locked(folder / "locked.ods")
    (folder / "values.csv").write_text("name;price\nGröße;1,50\n", encoding="utf-8")
    (folder / "prose.xlsx").write_text("This is no workbook.\n")
    (folder / "noise.xlsx").write_bytes(bytes(range(256)) * 4)
    (folder / "cut.xlsx").write_bytes((folder / "sales.xlsx").read_bytes()[:700])
    (folder / "empty.xlsx").write_bytes(b"")


main()
