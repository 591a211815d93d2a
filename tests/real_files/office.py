"""Office documents beside soffice: what it makes of each of them is kept, and what foliant makes is compared with that.

A reference lies in references/KIND/NAME.pdf beside the folder of the documents' kind; an empty one says that soffice made
nothing of the document.
"""

import collections
import os
import pathlib
import re
import shutil
import signal
import subprocess
import tempfile

from workplace import Outcome, expect, page_count, pictures, require_sound, text_of_pages, unlike, words_of

BATCH = 25  # documents for one soffice
FIRST_PAGES = 3
WHOLE = "1:1048576"  # all rows of a sheet
RANGE = "A1:H40"
PASSWORDS = {
    "35897-type4.xls": "freedom", "60320-protected.xlsx": "Test001!!", "password.ods": "test", "password.xls": "password",
    "passwordOld.ods": "test", "passwordWrongSHA.ods": "test", "protected_passtika.xlsb": "tika",
    "protected_passtika.xlsx": "tika", "protected_sha512.xlsx": "this is a test", "xor-encryption-abc.xls": "abc",
}  # by the tests that these documents come from
UNLIKE = 0.005  # a page of which more looks different does not look the same


class Row:
    """A row of the table: what is called on the documents of a folder. `name` is the member, and after a comma what it is
    called for; `choose` says which documents it takes."""

    def __init__(self, key, name, folder, attempt, choose=lambda file: True):
        self.key, self.name, self.folder, self.attempt, self.choose = key, name, folder, attempt, choose


# References.

def reference_of(document):
    return document.parent.parent / "references" / document.parent.name / (document.name + ".pdf")


def is_refused_by_soffice(document):
    return reference_of(document).stat().st_size == 0


def convert(documents, profile, limit):
    """Has one soffice convert documents whose names differ before the last dot, and keeps what it made."""
    with tempfile.TemporaryDirectory(prefix="references-") as made:
        words = ["soffice", f"-env:UserInstallation=file://{profile}", "--headless", "--convert-to", "pdf",
                 "--outdir", made, *documents]
        environment = {**os.environ, "LC_ALL": "C.UTF-8"}
        with subprocess.Popen(words, env=environment, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                              start_new_session=True) as running:
            try:
                running.wait(limit)
            except subprocess.TimeoutExpired:
                os.killpg(running.pid, signal.SIGKILL)
        for document in documents:
            pdf = pathlib.Path(made) / (document.stem + ".pdf")
            if pdf.exists() and pdf.read_bytes()[-32:].rstrip().endswith(b"%%EOF"):
                shutil.copyfile(pdf, reference_of(document))


def make_references(documents, patience):
    """Makes those that are missing. What stops a soffice, or makes it hang, is tried once more on its own."""
    missing = [document for document in documents if not reference_of(document).exists()]
    if not missing:
        return
    reference_of(missing[0]).parent.mkdir(parents=True, exist_ok=True)
    by_ending = collections.defaultdict(list)
    for document in missing:
        by_ending[document.suffix].append(document)
    with tempfile.TemporaryDirectory(prefix="profile-") as profile:
        for same in by_ending.values():
            for begin in range(0, len(same), BATCH):
                batch = same[begin:begin + BATCH]
                convert(batch, profile, 120 * patience)
                for document in batch:
                    if not reference_of(document).exists():
                        convert([document], profile, 30 * patience)
                    if not reference_of(document).exists():
                        reference_of(document).touch()
            print(f"references: {len(same)} *{same[0].suffix}", flush=True)


def prepared(key, documents, patience):
    """The documents that the row is for, each with its reference."""
    row = next(row for row in ROWS if row.key == key)
    chosen = [document.resolve() for document in documents if row.choose(document)]
    make_references(chosen, patience)
    return chosen


# Comparisons.

def require_same_words(place, made, wanted):
    """Each word as often as in the other PDF."""
    got, wanted = (words_of("\n".join(text_of_pages(place, file))) for file in (made, wanted))
    more, less = got - wanted, wanted - got
    expect("differs", not more and not less,
           f"of {wanted.total()} words {less.total()} missing, {more.total()} other: "
           f"{list(less)[:4]} / {list(more)[:4]}")


def require_same_looks(place, made, wanted):
    pages = zip(pictures(place, made, FIRST_PAGES), pictures(place, wanted, FIRST_PAGES))
    for number, (one, other) in enumerate(pages, 1):
        part = unlike(one, other)
        expect("looks different", part <= UNLIKE, f"{part:.1%} of page {number}")


def require_as_soffice(place, made):
    """The same pages with the same words, and the first ones look the same."""
    require_sound(place, made, 0)
    expect("beyond the tool", not is_refused_by_soffice(place.source), f"{page_count(place, made)} pages")
    wanted = reference_of(place.source)
    pages = page_count(place, made), page_count(place, wanted)
    expect("differs", pages[0] == pages[1], f"{pages[0]} pages, soffice has {pages[1]}")
    require_same_words(place, made, wanted)
    require_same_looks(place, made, wanted)


# The members.

def whole_document(place):
    """With the page setup that the document has, whatever it is."""
    place.call("CreatePDF", place.source, "made.pdf")
    require_as_soffice(place, place.path("made.pdf"))


def sheet_names(place, *password):
    """As the error for a sheet that is not there lists them."""
    try:
        place.call("CreatePDFfromExcel2", "made.pdf", place.source, "no such sheet", "A1", *password)
    except Outcome as outcome:
        listed = re.search(r"has no worksheet no such sheet\. It has \"(.*)\"\.", outcome.detail, re.DOTALL)
        if outcome.word == "failed" and listed:
            return listed[1].split('", "')
        raise
    raise Outcome("silent", "prints a sheet that is not there")


def print_sheets(place, sheets, *options):
    """Prints those that hold something, each whole, and says how many these are."""
    sheets = list(sheets)
    while sheets:
        try:
            place.call("CreatePDFfromMultiExcel2", "made.pdf", place.source, "--excel-worksheets", *sheets,
                       "--ranges", *[WHOLE] * len(sheets), "--landscape", *["no"] * len(sheets), *options)
            break
        except Outcome as outcome:
            empty = re.search(rf'There is nothing in {WHOLE}: worksheet "(.*?)" of ', outcome.detail)
            if outcome.word != "failed" or not empty:
                raise
            sheets.remove(empty[1])
    return len(sheets)


def with_letters(words):
    """Without page numbers, which begin anew on every sheet that is printed by its name."""
    return collections.Counter({word: count for word, count in words.items() if re.search(r"[^\W\d]", word)})


def each_sheet(place):
    """Every sheet by its name, as it is but upright: what soffice prints is there."""
    printed = print_sheets(place, sheet_names(place))
    expect("beyond the tool", not is_refused_by_soffice(place.source), f"{printed} sheets")
    wanted = with_letters(words_of("\n".join(text_of_pages(place, reference_of(place.source)))))
    if not printed:
        expect("differs", not wanted, "nothing is printed")
        raise Outcome("no text")
    require_sound(place, place.path("made.pdf"), 0)
    less = wanted - words_of("\n".join(text_of_pages(place, place.path("made.pdf"))))
    expect("differs", not less, f"of {wanted.total()} words {less.total()} missing: {list(less)[:4]}")


def require_as_printed(place):
    """What came through PostScript and Distiller, beside what the printer got."""
    made, wanted = place.path("made.pdf"), place.path("printed.pdf")
    require_sound(place, made, 0)
    pages = page_count(place, made), page_count(place, wanted)
    expect("differs", pages[0] == pages[1], f"{pages[0]} pages, printed are {pages[1]}")
    require_same_words(place, made, wanted)
    require_same_looks(place, made, wanted)


def range_with_grid(place):
    """A range of the first sheet through PostScript and Distiller, and printed."""
    sheet = sheet_names(place)[0]
    try:
        place.call("CreatePDFfromExcel2", "printed.pdf", place.source, sheet, RANGE, "--use-grid")
    except Outcome as outcome:
        expect("no text", "no page" not in outcome.detail, outcome.detail)
        raise
    place.call("CreatePDFfromExcel", "made.pdf", place.source, sheet, RANGE, "--use-grid")
    require_as_printed(place)


def locked(place):
    """Without its password it is refused, with it all that it holds is printed."""
    password = PASSWORDS[original_name(place.source)]
    try:
        place.call("CreatePDFfromExcel2", "made.pdf", place.source, "1", "A1")
    except Outcome as outcome:
        expect(outcome.word, outcome.word == "failed" and "password" in outcome.detail, outcome.detail)
    else:
        raise Outcome("silent", "opens without its password")
    option = ("--password", password)
    expect("no text", print_sheets(place, sheet_names(place, *option), *option), "")
    require_sound(place, place.path("made.pdf"), 0)
    expect("differs", text_of_pages(place, place.path("made.pdf")), "no pages")


def slides(place):
    """All slides as they lie; those that are upright come out turned."""
    place.call("CreatePDFfromPowerPoint2", "made.pdf", place.source, "--horizontal-orientation")
    require_as_soffice(place, place.path("made.pdf"))


def distilled_slides(place):
    """Through PostScript and Distiller, beside what the printer gets."""
    place.call("CreatePDFfromPowerPoint2", "printed.pdf", place.source, "--horizontal-orientation")
    place.call("CreatePDFfromPowerPoint", "made.pdf", place.source, "--horizontal-orientation")
    require_as_printed(place)


def visio_drawing(place):
    place.call("CreatePDFfromVisio", "made.pdf", place.source)
    require_as_soffice(place, place.path("made.pdf"))


def original_name(document):
    return document.name.rpartition("--")[2]


ROWS = [
    Row("workbook", "CreatePDF, a workbook", "workbooks", whole_document),
    Row("sheets", "CreatePDFfromMultiExcel2, all worksheets", "workbooks", each_sheet),
    Row("range", "CreatePDFfromExcel, a range", "workbooks", range_with_grid),
    Row("locked", "CreatePDFfromExcel2, with a password", "workbooks", locked,
        lambda document: original_name(document) in PASSWORDS),
    Row("slides", "CreatePDFfromPowerPoint2", "presentations", slides),
    Row("distilled-slides", "CreatePDFfromPowerPoint", "presentations", distilled_slides),
    Row("visio", "CreatePDFfromVisio", "visio", visio_drawing),
    Row("document", "CreatePDF, a text or drawing", "documents", whole_document),
]
