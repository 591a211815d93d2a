#!/usr/bin/python3
"""Makes the inputs of the gallery, one for each family of documents, but for the letter, which make_letter.py makes, and
the PostScript files, which are written by hand.

    examples/make_inputs.py [FOLDER]       into FOLDER [examples]

Needs python3-openpyxl, python3-ezdxf and python3-pil, LibreOffice to write PowerPoint's format, and what the tests have
to write Access's. The results are kept beside this program, so that only who changes an input runs it.
"""

import pathlib
import random
import subprocess
import sys
import tempfile
import zipfile

import ezdxf
import openpyxl
from openpyxl.chart import BarChart, Reference
from openpyxl.styles import Alignment, Font, PatternFill
from PIL import Image, ImageDraw, ImageFilter, ImageFont

INK, ACCENT, PALE = "22313F", "1F6F78", "E8F1F2"
FONT = "/usr/share/fonts/truetype/liberation/LiberationSans-Regular.ttf"


# --- A workbook: what a lighthouse museum counts ----------------------------------------------------------------

MONTHS = ["January", "February", "March", "April", "May", "June", "July", "August", "September", "October", "November",
          "December"]


def heading_row(sheet, row, titles):
    for column, title in enumerate(titles, 1):
        cell = sheet.cell(row, column, title)
        cell.font, cell.fill = Font(name="Liberation Sans", size=10, bold=True, color="FFFFFF"), PatternFill("solid", ACCENT)
        cell.alignment = Alignment(horizontal="left" if column == 1 else "right")


def write_workbook(path):
    chance = random.Random(1)
    book = openpyxl.Workbook()
    book._named_styles["Normal"].font = Font(name="Liberation Sans", size=10)

    visitors = book.active
    visitors.title = "Visitors"
    visitors["A1"] = "Visitors of the lighthouse"
    visitors["A1"].font = Font(name="Liberation Sans", size=16, bold=True, color=INK)
    heading_row(visitors, 3, ["Month", "Adults", "Children", "Together"])
    for i, month in enumerate(MONTHS):
        season = 1 + min(i, 11 - i) ** 2
        row = [month, season * 31 + chance.randrange(60), season * 17 + chance.randrange(40), f"=B{i + 4}+C{i + 4}"]
        for column, value in enumerate(row, 1):
            visitors.cell(i + 4, column, value)
    visitors.cell(16, 1, "Year").font = Font(name="Liberation Sans", size=10, bold=True)
    for column in "BCD":
        visitors[f"{column}16"] = f"=SUM({column}4:{column}15)"
        visitors[f"{column}16"].font = Font(name="Liberation Sans", size=10, bold=True)
    visitors.column_dimensions["A"].width = 16
    chart = BarChart()
    chart.title, chart.height, chart.width = "Visitors a month", 8, 16
    chart.add_data(Reference(visitors, min_col=2, max_col=3, min_row=3, max_row=15), titles_from_data=True)
    chart.set_categories(Reference(visitors, min_col=1, min_row=4, max_row=15))
    chart.grouping, chart.overlap = "stacked", 100
    visitors.add_chart(chart, "A18")

    costs = book.create_sheet("Costs")
    heading_row(costs, 1, ["What", "Budget", "Spent", "Left"])
    for row, (what, budget, spent) in enumerate([("Paint", 4200, 3980.5), ("Lamp oil", 950, 1020), ("Glass", 12000, 11840),
                                                 ("Boat", 2600, 1875.25), ("Biscuits", 300, 612.4)], 2):
        for column, value in enumerate([what, budget, spent, f"=B{row}-C{row}"], 1):
            cell = costs.cell(row, column, value)
            cell.number_format = "#,##0.00;[Red]-#,##0.00"
    costs.column_dimensions["A"].width = 16
    for column in "BCD":
        costs.column_dimensions[column].width = 13

    keepers = book.create_sheet("Keepers")
    heading_row(keepers, 1, ["Name", "From", "Until"])
    for row in (("Ada Lindqvist", 1891, 1912), ("Jón Sturluson", 1912, 1938), ("Maria Ó Briain", 1938, 1971)):
        keepers.append(row)
    keepers.column_dimensions["A"].width = 20
    book.save(path)


# --- Slides ---------------------------------------------------------------------------------------------------

def slide(title, lines, number):
    bullets = "".join(f'<text:p text:style-name="line">{line}</text:p>' for line in lines)
    bars = "".join(f'<draw:rect draw:style-name="bar{i % 2}" svg:x="{16 + 2.4 * i}cm" svg:y="{15.5 - h}cm" svg:width="2cm" '
                   f'svg:height="{h}cm"/>' for i, h in enumerate((2 + number, 4, 5 + number, 7)))
    return (f'<draw:page draw:name="{title}" draw:master-page-name="Default">'
            f'<draw:rect draw:style-name="band" svg:x="0cm" svg:y="0cm" svg:width="28cm" svg:height="3.4cm"/>'
            f'<draw:frame draw:style-name="plain" svg:x="1.5cm" svg:y="0.8cm" svg:width="25cm" svg:height="2cm">'
            f'<draw:text-box><text:p text:style-name="title">{title}</text:p></draw:text-box></draw:frame>'
            f'<draw:frame draw:style-name="plain" svg:x="1.5cm" svg:y="5cm" svg:width="14cm" svg:height="9cm">'
            f'<draw:text-box>{bullets}</draw:text-box></draw:frame>{bars}</draw:page>')


def write_slides(path):
    spaces = {"office": "office", "style": "style", "text": "text", "draw": "drawing", "fo": "xsl-fo-compatible",
              "svg": "svg-compatible"}
    names = " ".join(f'xmlns:{short}="urn:oasis:names:tc:opendocument:xmlns:{name}:1.0"' for short, name in spaces.items())
    filled = ('<style:style style:name="{}" style:family="graphic"><style:graphic-properties draw:stroke="none" '
              'draw:fill="solid" draw:fill-color="#{}"/></style:style>')
    written = ('<style:style style:name="{}" style:family="paragraph"><style:paragraph-properties fo:margin-bottom="0.4cm"/>'
               '<style:text-properties fo:font-size="{}pt" fo:color="#{}" fo:font-family="Liberation Sans"/></style:style>')
    slides = [("The lamp is lit", ["Glass replaced in March", "2,318 visitors in June", "The boat floats again"]),
              ("What it cost", ["Paint, oil and glass", "Biscuits: see next year"]),
              ("Next year", ["A new door", "Opening at dusk", "More biscuits"])]
    with tempfile.TemporaryDirectory() as folder:
        flat = pathlib.Path(folder, path.stem + ".fodp")
        flat.write_text(
            f'<?xml version="1.0" encoding="UTF-8"?><office:document {names} office:version="1.2" '
            'office:mimetype="application/vnd.oasis.opendocument.presentation"><office:automatic-styles>'
            '<style:page-layout style:name="layout"><style:page-layout-properties fo:page-width="28cm" '
            'fo:page-height="15.75cm" style:print-orientation="landscape"/></style:page-layout>'
            '<style:style style:name="plain" style:family="graphic"><style:graphic-properties draw:stroke="none" '
            'draw:fill="none"/></style:style>'
            + filled.format("band", ACCENT) + filled.format("bar0", ACCENT) + filled.format("bar1", "9CC5C9")
            + written.format("title", 36, "FFFFFF") + written.format("line", 24, INK)
            + '</office:automatic-styles><office:master-styles><style:master-page style:name="Default" '
            'style:page-layout-name="layout"/></office:master-styles><office:body><office:presentation>'
            + "".join(slide(title, lines, n) for n, (title, lines) in enumerate(slides))
            + '</office:presentation></office:body></office:document>', encoding="utf-8")
        subprocess.run(["soffice", "--headless", f"-env:UserInstallation=file://{folder}/profile", "--convert-to", "pptx",
                        "--outdir", str(path.parent), str(flat)], check=True, stdout=subprocess.DEVNULL)


# --- A Visio drawing of two pages, each of its own size ----------------------------------------------------------

HEAD = '<?xml version="1.0" encoding="UTF-8"?>'
PACKAGE = "http://schemas.openxmlformats.org/package/2006"
VISIO = "http://schemas.microsoft.com/office/visio/2012/main"
VISIO_RELATIONS = "http://schemas.microsoft.com/visio/2010/relationships"
RELATIONS = "http://schemas.openxmlformats.org/officeDocument/2006/relationships"


def box(number, text, x, y, width, height, colour):
    cells = {"PinX": x, "PinY": y, "Width": width, "Height": height, "LocPinX": width / 2, "LocPinY": height / 2,
             "FillPattern": 1, "FillForegnd": f"#{colour}", "LineWeight": 0.014}
    corners = ((0, 0), (width, 0), (width, height), (0, height), (0, 0))
    rows = "".join(f'<Row T="{"MoveTo" if i == 0 else "LineTo"}" IX="{i + 1}"><Cell N="X" V="{cx}"/><Cell N="Y" V="{cy}"/></Row>'
                   for i, (cx, cy) in enumerate(corners))
    return (f'<Shape ID="{number}" Type="Shape">' + "".join(f'<Cell N="{n}" V="{v}"/>' for n, v in cells.items())
            + f'<Section N="Geometry" IX="0">{rows}</Section><Text>{text}</Text></Shape>')


def visio_page(boxes):
    shapes = "".join(box(i, *one) for i, one in enumerate(boxes, 1))
    return f'{HEAD}<PageContents xmlns="{VISIO}"><Shapes>{shapes}</Shapes></PageContents>'


def visio_relations(*targets):
    return f'{HEAD}<Relationships xmlns="{PACKAGE}/relationships">' + "".join(
        f'<Relationship Id="r{i}" Type="{VISIO_RELATIONS}/{kind}" Target="{target}"/>'
        for i, (kind, target) in enumerate(targets, 1)) + "</Relationships>"


def write_drawing(path):
    pages = [("Floors", 8.5, 11, [("Lamp room", 4.25, 9, 2, 1.2, "F7D774"), ("Watch room", 4.25, 7.2, 2.6, 1.6, PALE),
                                  ("Stairs", 4.25, 4.7, 3, 2.8, "FFFFFF"), ("Store", 4.25, 2.2, 3.6, 1.6, PALE)]),
             ("Island", 11, 5, [("Jetty", 1.6, 1.4, 1.8, 0.8, "D9C3A5"), ("Cottage", 5, 3, 1.8, 1.2, PALE),
                                ("Lighthouse", 9, 3, 1.6, 1.6, "F7D774")])]
    kind = "application/vnd.ms-visio"
    parts = {
        "[Content_Types].xml": f'{HEAD}<Types xmlns="{PACKAGE}/content-types"><Default Extension="rels" '
        'ContentType="application/vnd.openxmlformats-package.relationships+xml"/>'
        f'<Override PartName="/visio/document.xml" ContentType="{kind}.drawing.main+xml"/>'
        f'<Override PartName="/visio/pages/pages.xml" ContentType="{kind}.pages+xml"/>'
        + "".join(f'<Override PartName="/visio/pages/page{i}.xml" ContentType="{kind}.page+xml"/>'
                  for i in range(1, len(pages) + 1)) + "</Types>",
        "_rels/.rels": visio_relations(("document", "visio/document.xml")),
        "visio/document.xml": f'{HEAD}<VisioDocument xmlns="{VISIO}"/>',
        "visio/_rels/document.xml.rels": visio_relations(("pages", "pages/pages.xml")),
        "visio/pages/pages.xml": f'{HEAD}<Pages xmlns="{VISIO}" xmlns:r="{RELATIONS}">' + "".join(
            f'<Page ID="{i}" Name="{name}"><PageSheet><Cell N="PageWidth" V="{width}"/><Cell N="PageHeight" V="{height}"/>'
            f'</PageSheet><Rel r:id="r{i + 1}"/></Page>' for i, (name, width, height, _) in enumerate(pages)) + "</Pages>",
        "visio/pages/_rels/pages.xml.rels": visio_relations(*(("page", f"page{i}.xml") for i in range(1, len(pages) + 1))),
    }
    parts.update({f"visio/pages/page{i}.xml": visio_page(boxes) for i, (*_, boxes) in enumerate(pages, 1)})
    with zipfile.ZipFile(path, "w", zipfile.ZIP_DEFLATED) as package:
        for name, text in parts.items():
            package.writestr(zipfile.ZipInfo(name), text)


# --- An AutoCAD drawing: a flange, in model space and on two sheets ----------------------------------------------

def write_flange(path):
    drawing = ezdxf.new("R2010", setup=True)
    drawing.units = ezdxf.units.MM
    for name, colour, line in (("outline", 7, "CONTINUOUS"), ("centre", 1, "CENTER"), ("notes", 5, "CONTINUOUS")):
        drawing.layers.add(name, color=colour, linetype=line)
    model = drawing.modelspace()
    hole = drawing.blocks.new("hole")
    hole.add_circle((0, 0), 8, dxfattribs={"layer": "outline"})
    hole.add_line((-11, 0), (11, 0), dxfattribs={"layer": "centre"})
    hole.add_line((0, -11), (0, 11), dxfattribs={"layer": "centre"})
    for radius in (100, 45):
        model.add_circle((0, 0), radius, dxfattribs={"layer": "outline"})
    model.add_circle((0, 0), 75, dxfattribs={"layer": "centre"})
    for n in range(6):
        model.add_blockref("hole", ezdxf.math.Vec3.from_deg_angle(60 * n, 75), dxfattribs={"rotation": 60 * n})
    ring = model.add_hatch(color=8)
    ring.set_pattern_fill("ANSI31", scale=1.5)
    for radius, flag in ((45, ezdxf.const.BOUNDARY_PATH_EXTERNAL), (36, ezdxf.const.BOUNDARY_PATH_DEFAULT)):
        ring.paths.add_edge_path(flags=flag).add_arc((0, 0), radius, 0, 360)
    model.add_linear_dim(base=(0, -125), p1=(-100, 0), p2=(100, 0), dimstyle="Standard", override={
        "dimtxt": 7, "dimasz": 6, "dimexe": 3, "dimexo": 3, "dimgap": 2, "dimdec": 0, "dimtad": 1}).render()
    model.add_mtext("{\\H8;FLANGE}\\P6 holes, 16 mm\\Psteel", dxfattribs={"layer": "notes", "char_height": 6, "insert": (115, 90)})
    model.add_spline([(110, -40), (135, -10), (150, -60), (180, -30)], dxfattribs={"layer": "notes"})
    for number, scale in ((1, 1), (2, 2)):
        name = f"Sheet {number}"
        sheet = drawing.layouts.new(name) if number > 1 else drawing.layout("Layout1")
        if number == 1:
            drawing.layouts.rename("Layout1", name)
            sheet = drawing.layout(name)
        sheet.page_setup(size=(297, 210), margins=(10, 10, 10, 10), units="mm")
        sheet.add_lwpolyline([(0, 0), (277, 0), (277, 190), (0, 190)], close=True)
        sheet.add_viewport(center=(138, 101), size=(270, 170), view_center_point=(20, 0) if number == 1 else (75, 0),
                           view_height=290 / scale)
        sheet.add_text(f"{name}, scale {'1:2' if scale == 1 else '1:1'}", dxfattribs={"height": 5}).set_placement((180, 6))
    drawing.saveas(path)


# --- An Access database -----------------------------------------------------------------------------------------

def write_database(path):
    sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent / "tests" / "hosts" / "access"))
    import make_databases as access
    database = access.Database()
    database.add_table("Keepers", [("No", access.LONG), ("Name", access.TEXT), ("Born", access.DATE), ("Wage", access.MONEY),
                                   ("Beard", access.BOOL), ("Remarks", access.MEMO)], [
        (n, name, access.day(born), wage * 10000, beard, remark) for n, (name, born, wage, beard, remark) in enumerate([
            ("Ada Lindqvist", "1866-05-01", 112, False, "Counted the stairs twice, and got 112 both times."),
            ("Jón Sturluson", "1884-11-23", 140, True, "See the bill for the moustache."),
            ("Maria Ó Briain", "1911-02-14", 260, False, None),
            ("Otto Ziegler", "1899-08-30", 180, True, "Keeper for one winter. Took up the accordion.")], 1)])
    database.add_table("Boats", [("Name", access.TEXT), ("Built", access.INT), ("Metres", access.DOUBLE)],
                       [("Patience", 1889, 7.5), ("Patience II", 1931, 8.25), ("Biscuit", 1978, 5.5)])
    database.add_queries({"Bearded": access.select(["Keepers"], ["Keepers.Name", "Keepers.Born"], "Keepers.Beard = True",
                                                   orders=["Keepers.Name"])})
    path.write_bytes(database.bytes())


# --- Pictures ---------------------------------------------------------------------------------------------------

def write_photo(path):
    """Dusk: a sky, a sea, a lighthouse and its beam."""
    width, height = 900, 600
    picture = Image.new("RGB", (width, height))
    draw = ImageDraw.Draw(picture)
    for y in range(height):
        dusk = y / height
        draw.line([(0, y), (width, y)], (int(30 + 190 * dusk), int(50 + 90 * dusk), int(95 + 20 * dusk)))
    draw.rectangle([0, 430, width, height], (22, 49, 63))
    beam = Image.new("L", picture.size)
    ImageDraw.Draw(beam).polygon([(640, 205), (0, 90), (0, 290)], 110)
    picture.paste((255, 241, 190), mask=beam.filter(ImageFilter.GaussianBlur(18)))
    draw.polygon([(612, 440), (668, 440), (655, 230), (625, 230)], (236, 236, 230))
    for y in (270, 330, 390):
        draw.polygon([(618, y + 30), (662, y + 30), (660, y), (620, y)], (178, 58, 52))
    draw.rectangle([626, 196, 654, 230], (250, 226, 130))
    draw.polygon([(620, 196), (660, 196), (640, 172)], (60, 40, 40))
    draw.ellipse([520, 425, 780, 480], (38, 44, 40))
    picture.save(path, quality=88, dpi=(150, 150))


def write_scan(path):
    """Two sheets as a scanner at 100 dots an inch in black and white makes them."""
    large, small = ImageFont.truetype(FONT, 34), ImageFont.truetype(FONT, 20)
    sheets = []
    for number, lines in enumerate((["Keeper's log", "21 March. Wind from the west.", "Glass cleaned, lamp lit at dusk."],
                                    ["Keeper's log, continued", "22 March. Fog. The horn all night.", "Biscuits arrived."])):
        sheet = Image.new("1", (827, 1169), 1)
        draw = ImageDraw.Draw(sheet)
        for row, line in enumerate(lines):
            draw.text((90, 100 + 60 * row), line, 0, font=small if row else large)
        draw.line([(90, 150), (730, 150 + number)], 0, 2)
        sheets.append(sheet)
    sheets[0].save(path, save_all=True, append_images=sheets[1:], compression="group4", dpi=(100, 100))


# --- Text and a web page --------------------------------------------------------------------------------------

def write_notes(path):
    path.write_text("How to light the lamp\n=====================\n\n"
                    + "".join(f"{n}.\t{step}\n" for n, step in enumerate(
                        ["Climb the stairs. There are 112 of them; nobody has ever counted another number.",
                         "Wipe the glass, inside and outside, when the wind allows it.",
                         "Fill the oil to the mark, not above. Jón's moustache was a warning to all.",
                         "Light the wick at dusk, and write the time into the log.",
                         "Wind the clockwork every four hours: ½ turn too many breaks the spring (→ see the bill)."], 1))
                    + "\nÆ, œ and ß are letters too, and so are Ω and Ж.\n", encoding="utf-8")


def write_page(path):
    path.write_text(f"""<!DOCTYPE html>
<html lang="en">
<meta charset="utf-8">
<title>The lighthouse</title>
<style>
  body {{ font: 12pt/1.5 "Liberation Serif", serif; color: #{INK}; margin: 0 }}
  header {{ background: #{ACCENT}; color: white; padding: 1.5em 2em }}
  main {{ columns: 2; column-gap: 2em; padding: 1em 2em }}
  aside {{ background: #{PALE}; border-radius: 8px; padding: 1em; break-inside: avoid }}
</style>
<header><h1>The lighthouse</h1><p>Open from dusk till dawn</p></header>
<main>
  <p>For a hundred and thirty years the lamp has burned on the island, and for most of them somebody has climbed the
  stairs to light it. Today you can climb them too.</p>
  <p>The boat leaves the jetty at six, and comes back when everybody has seen enough.</p>
  <aside><strong>Prices.</strong> Adults 4, children 2, keepers free. Write to
  <a href="mailto:keeper@lighthouse.example">keeper@lighthouse.example</a>.</aside>
  <p>In winter the island belongs to the seals, and the log has little to say but the weather.</p>
</main>
</html>
""", encoding="utf-8")


def main():
    folder = pathlib.Path(sys.argv[1] if len(sys.argv) > 1 else pathlib.Path(__file__).parent)
    write_workbook(folder / "visitors.xlsx")
    write_slides(folder / "meeting.pptx")
    write_drawing(folder / "island.vsdx")
    write_flange(folder / "flange.dxf")
    write_database(folder / "museum.mdb")
    write_photo(folder / "dusk.jpg")
    write_scan(folder / "log.tif")
    write_notes(folder / "lamp.txt")
    write_page(folder / "lighthouse.html")


if __name__ == "__main__":
    main()
