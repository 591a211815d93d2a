#!/usr/bin/env python3
"""Writes small Access databases for the tests: make_databases.py FOLDER

shop.mdb       tables, queries, a report with a query of its own, a linked table
shop.accdb     the same in the newer format
locked.mdb     the same behind the password "open sesame"
encrypted.accdb    one that says it is encrypted
fields.accdb   empty texts and calculated columns
damaged.mdb    a record that points outside of its page
short.mdb      the beginning of shop.mdb
lost.mdb       shop.mdb whose table says that it has more records
"""

import os
import struct
import sys

PAGE = 4096
BOOL, BYTE, INT, LONG, MONEY, SINGLE, DOUBLE, DATE, BINARY, TEXT, OLE, MEMO = range(1, 13)
FIXED = {BOOL: 0, BYTE: 1, INT: 2, LONG: 4, MONEY: 8, SINGLE: 4, DOUBLE: 8, DATE: 8}
PACK = {BYTE: "<B", INT: "<h", LONG: "<i", MONEY: "<q", SINGLE: "<f", DOUBLE: "<d", DATE: "<d"}
TABLE, QUERY, LINKED, REPORT = 1, 5, 6, -32764


def utf16(text):
    return text.encode("utf-16-le")


def cipher(data):
    """The fixed one of a database's first page."""
    key = bytes([0xC7, 0xDA, 0x39, 0x6B])
    box = list(range(256))
    j = 0
    for i in range(256):
        j = (j + box[i] + key[i % 4]) % 256
        box[i], box[j] = box[j], box[i]
    result = bytearray()
    i = j = 0
    for byte in data:
        i = (i + 1) % 256
        j = (j + box[i]) % 256
        box[i], box[j] = box[j], box[i]
        result.append(byte ^ box[(box[i] + box[j]) % 256])
    return bytes(result)


def is_fixed(column):
    """Whether each record has room for it; calculated columns are kept with a head, as texts are."""
    return column[1] in FIXED and "Expression" not in (column[2] if len(column) > 2 else {})


def calculated(value):
    """What a calculated field holds, behind its head."""
    return bytes(16) + struct.pack("<I", len(value)) + value + bytes(3)


class Database:
    def __init__(self, version=1, password="", encrypted=False):
        created = 37257.0
        header = bytearray(PAGE)
        header[0:4] = bytes([0, 1, 0, 0])
        header[4:19] = b"Standard Jet DB" if version == 1 else b"Standard ACE DB"
        header[0x14:0x18] = struct.pack("<I", version)
        secret = bytearray(0x98 - 0x18)
        secret[0x3C - 0x18:0x3E - 0x18] = struct.pack("<H", 1252)
        mask = struct.pack("<i", int(created))
        hidden = utf16(password).ljust(40, b"\0")
        secret[0x42 - 0x18:0x42 - 0x18 + 40] = bytes(b ^ mask[i % 4] for i, b in enumerate(hidden))
        secret[0x6E - 0x18:0x70 - 0x18] = struct.pack("<H", 0x409)
        secret[0x72 - 0x18:0x7A - 0x18] = struct.pack("<d", created)
        header[0x18:0x98] = cipher(secret)
        if encrypted:
            header[0x299:0x29B] = struct.pack("<H", 0x80)
        # The page of page usage, and that of the catalogue's definition, which stands on page 2.
        self.pages = [bytes(header), bytes([1, 1]).ljust(PAGE, b"\0"), b""]
        self.objects = []

    def add_page(self, content):
        self.pages.append(content)
        return len(self.pages) - 1

    @staticmethod
    def data_page(owner, rows):
        page = bytearray(PAGE)
        end = PAGE
        offsets = b""
        for row in rows:
            end -= len(row)
            page[end:end + len(row)] = row
            offsets += struct.pack("<H", end)
        page[0:14] = struct.pack("<BBHIIH", 1, 1, end - 14 - len(offsets), owner, 0, len(rows))
        page[14:14 + len(offsets)] = offsets
        return bytes(page)

    def long_value(self, content):
        """A long text in the record itself, or in a chain of rows on pages of their own."""
        if len(content) <= 200:
            return struct.pack("<III", len(content) | 0x80000000, 0, 0) + content
        place = 0
        pieces = [content[i:i + 3000] for i in range(0, len(content), 3000)]
        for piece in reversed(pieces):
            place = self.add_page(self.data_page(0x4C41564C, [struct.pack("<I", place) + piece])) << 8
        return struct.pack("<III", len(content), place, 0)

    def row(self, columns, values):
        fixed = b""
        variable = []
        mask = 0
        for i, (column, value) in enumerate(zip(columns, values)):
            kind = column[1]
            if is_fixed(column):
                if kind != BOOL:
                    fixed += struct.pack(PACK[kind], 0 if value is None else value)
                mask |= (bool(value) if kind == BOOL else value is not None) << i
                continue
            mask |= (value is not None) << i
            if value is None:
                variable.append(b"")
            elif isinstance(value, bytes) and kind != OLE:
                variable.append(value)
            elif kind == TEXT:
                variable.append(utf16(value))
            elif kind == MEMO:
                variable.append(self.long_value(utf16(value)))
            else:
                variable.append(self.long_value(value))
        row = struct.pack("<H", len(columns)) + fixed
        ends = []
        for content in variable:
            ends.append(len(row))
            row += content
        row += struct.pack("<H", len(row))
        row += b"".join(struct.pack("<H", end) for end in reversed(ends))
        row += struct.pack("<H", len(variable))
        return row + mask.to_bytes((len(columns) + 7) // 8, "little")

    def put_table(self, number, columns, rows, is_system=False, claimed_rows=None):
        data = []
        waiting, used = [], 14
        for row in [self.row(columns, values) for values in rows]:
            if used + len(row) + 2 > PAGE:
                data.append(self.add_page(self.data_page(number, waiting)))
                waiting, used = [], 14
            waiting.append(row)
            used += len(row) + 2
        data.append(self.add_page(self.data_page(number, waiting)))
        bits = bytearray(64)
        for page in data:
            bits[page // 8] |= 1 << page % 8
        usage = self.add_page(self.data_page(number, [bytes(5) + bytes(bits), bytes(69)]))

        definition = b""
        offset = variables = 0
        for i, column in enumerate(columns):
            kind, fixed = column[1], is_fixed(column)
            definition += struct.pack("<BIHHHHHBBIHH", kind, 0, i, 0 if fixed else variables, i, 0x409, 0,
                                      3 if fixed else 2, 0, 0, offset if fixed else 0,
                                      FIXED.get(kind, 510 if kind in (TEXT, BINARY) else 0))
            if fixed:
                offset += FIXED[kind]
            else:
                variables += 1
        for name, *_ in columns:
            definition += struct.pack("<H", len(utf16(name))) + utf16(name)
        definition += b"\xff\xff"
        head = struct.pack("<BBHIIIIIBBBBIQBHHHIIII", 2, 1, 0, 0, 0, 0,
                           len(rows) if claimed_rows is None else claimed_rows, 0, 1, 0, 0, 0, 0, 0,
                           0x53 if is_system else 0x4E, len(columns), variables, len(columns), 0, 0,
                           usage << 8, usage << 8 | 1)
        page = bytearray((head + definition).ljust(PAGE, b"\0"))
        page[8:12] = struct.pack("<I", len(head) + len(definition) - 8)
        self.pages[number] = bytes(page)

    def add_object(self, number, name, kind, flags=0, properties=None):
        self.objects.append((number, name, kind, flags, properties))

    @staticmethod
    def properties(columns):
        """Captions and formats of columns, given as (name, type, {property: text})."""
        named = [(column[0], column[2]) for column in columns if len(column) > 2]
        if not named:
            return None
        names = sorted({key for _, texts in named for key in texts})
        block = b"".join(struct.pack("<H", len(utf16(key))) + utf16(key) for key in names)
        result = b"MR2\0" + struct.pack("<IH", len(block) + 6, 0x80) + block
        for column, texts in named:
            block = struct.pack("<IH", len(utf16(column)) + 6, len(utf16(column))) + utf16(column)
            for key, value in texts.items():
                content = utf16(value)
                block += struct.pack("<HBBHH", len(content) + 8, 0, TEXT, names.index(key), len(content)) + content
            result += struct.pack("<IH", len(block) + 6, 1) + block
        return result

    def add_table(self, name, columns, rows, claimed_rows=None):
        number = self.add_page(b"")
        self.put_table(number, columns, rows, claimed_rows=claimed_rows)
        self.add_object(number, name, TABLE, properties=self.properties(columns))

    def add_queries(self, queries):
        """Queries by name, each a list of (attribute, expression, flag, name1, name2)."""
        columns = [("Attribute", BYTE), ("Expression", MEMO), ("Flag", INT), ("Name1", TEXT), ("Name2", TEXT),
                   ("ObjectId", LONG), ("Order", BINARY)]
        rows = []
        for i, (name, pieces) in enumerate(queries.items()):
            number = -0x80000000 + 0x100 + i
            self.add_object(number, name, QUERY)
            for k, (attribute, expression, flag, name1, name2) in enumerate(pieces):
                rows.append((attribute, expression, flag, name1, name2, number, struct.pack(">I", k)))
        number = self.add_page(b"")
        # Stored the wrong way round: what counts is the order that they name.
        self.put_table(number, columns, list(reversed(rows)), is_system=True)
        self.add_object(number, "MSysQueries", TABLE, flags=-0x80000000)

    def bytes(self):
        columns = [("Id", LONG), ("Name", TEXT), ("Type", INT), ("Flags", LONG), ("LvProp", OLE)]
        catalogue = [(2, "MSysObjects", TABLE, -0x80000000, None)] + self.objects
        self.put_table(2, columns, catalogue, is_system=True)
        return b"".join(self.pages)


def day(text):
    import datetime
    return float((datetime.date.fromisoformat(text) - datetime.date(1899, 12, 30)).days)


def select(sources, outputs=(), where=None, joins=(), groups=(), having=None, orders=(), options=0, kind=1, top=None):
    pieces = [(1, None, kind, None, None), (3, None, options, top, None)]
    pieces += [(5, None, None, *(source if isinstance(source, tuple) else (source, None))) for source in sources]
    pieces += [(6, *(output if isinstance(output, tuple) else (output, 0, None)), None) for output in outputs]
    pieces += [(7, condition, flag, left, right) for left, right, condition, flag in joins]
    if where:
        pieces.append((8, where, None, None, None))
    pieces += [(9, group, None, None, None) for group in groups]
    if having:
        pieces.append((10, having, None, None, None))
    pieces += [(11, order.removesuffix(" D"), None, "D" if order.endswith(" D") else None, None) for order in orders]
    return pieces


CUSTOMERS = [("No", LONG), ("Name", TEXT, {"Caption": "Company"}), ("City", TEXT), ("Since", DATE),
             ("Credit", MONEY), ("Active", BOOL), ("Notes", MEMO), ("Logo", OLE), ("Rate", SINGLE, {"Format": "Percent"})]
LONG_NOTE = " ".join(f"word{i}" for i in range(2000))


def shop(version=1, password="", claimed_rows=None, encrypted=False):
    database = Database(version, password, encrypted)
    database.add_table("Customers", CUSTOMERS, [
        (1, "Alfreds Futterkiste", "Berlin", day("1996-07-04"), 12345000, True, "first line\r\nsecond line",
         b"\x89" * 5000, 0.25),
        (2, "Bólido Comidas", "Madrid", day("2001-12-31") + 0.5, -5000, False, LONG_NOTE, None, 0.0),
        (3, "Königlich Essen", "Brandenburg", None, None, True, None, None, None),
        (4, "Łódź Export", "Łódź", day("1899-12-30") + 0.75, 0, False, "", None, 1.0),
    ], claimed_rows=claimed_rows)
    database.add_table("Orders", [("OrderNo", LONG), ("Customer", LONG), ("Article", TEXT), ("Pieces", INT), ("Price", MONEY)], [
        (100 + i, 1 + i % 2, f"Article {i % 7}", i, 15000 * i) for i in range(300)])
    database.add_table("Wide", [(f"Column {i}", TEXT) for i in range(30)],
                       [tuple(f"value{r}x{i}" for i in range(30)) for r in range(3)])
    database.add_table("Empty", [("Nothing", TEXT)], [])
    database.add_queries({
        "Berliners": select(["Customers"], ["Customers.Name", "Customers.City"], 'Customers.City Like "B*"',
                            orders=["Customers.Name D"]),
        "Totals": select(["Customers", "Orders"], ["Customers.Name", ("Sum([Pieces]*[Price])", 0, "Total"), ("Count(*)", 0, "Orders")],
                         joins=[("Customers", "Orders", "Customers.No = Orders.Customer", 2)], groups=["Customers.Name"]),
        "All orders": select(["Orders"], options=1),
        "Asks": select(["Orders"], ["Orders.OrderNo"], "Orders.Pieces > [How many?]"),
        "Removes": select(["Orders"], kind=5),
        "~sq_rActive customers": select(["Customers"], ["Customers.Name"], "Customers.Active = True"),
    })
    database.add_object(0x200, "Active customers", REPORT)
    database.add_object(0x201, "Styled", REPORT)
    database.add_object(0x202, "Elsewhere", LINKED)
    return database.bytes()


def fields():
    """Empty texts, and columns that are calculated from others: as what counts what they result in, not their type."""
    def column(name, kind, result):
        return name, kind, {"Expression": "[No]", "ResultType": str(result)}
    database = Database(version=2)
    decimal = struct.pack("<HBBIII", 0, 3, 0x80, 1, 2345, 0)
    database.add_table("Results", [
        ("No", LONG), ("Text", TEXT), column("Length", LONG, LONG), column("Money", DOUBLE, MONEY), column("Large", INT, BOOL),
        column("Name", TEXT, TEXT), column("Exact", DOUBLE, 16), column("Long", TEXT, MEMO)], [
        (1, "", calculated(struct.pack("<i", 12)), calculated(struct.pack("<q", 833333333)), calculated(b"\xff"),
         calculated(utf16("Wayne, Bruce")), calculated(decimal), database.long_value(calculated(utf16("Wayne")))),
        (2, None, None, calculated(b""), calculated(b"\0"), calculated(b""), None, None),
    ])
    database.add_table("Damaged results", [("No", LONG), column("Length", LONG, LONG)], [
        (1, bytes(16) + struct.pack("<I", 4000) + bytes(7))])
    return database.bytes()


def main(folder):
    os.makedirs(folder, exist_ok=True)
    whole = shop()
    # What the record of the first customer says that its long text starts at, beyond every page.
    place = whole.index(struct.pack("<I", len(utf16("first line\r\nsecond line")) | 0x80000000))
    damaged = whole[:place] + struct.pack("<II", 5000, 0x7FFFFF00) + whole[place + 8:]
    for name, content in {
        "shop.mdb": whole,
        "shop.accdb": shop(version=2),
        "locked.mdb": shop(password="open sesame"),
        "encrypted.accdb": shop(version=2, encrypted=True),
        "fields.accdb": fields(),
        "damaged.mdb": damaged,
        "short.mdb": whole[:len(whole) - 100],
        "lost.mdb": shop(claimed_rows=9),
        "empty.mdb": b"",
        "renamed.mdb": b"%PDF-1.4 and no database at all" * 300,
    }.items():
        with open(os.path.join(folder, name), "wb") as file:
            file.write(content)


if __name__ == "__main__":
    main(sys.argv[1])
