"""Writes a desktop database in the Jet 4 format, as small as mdbtools reads one: FILE TABLE RECORDS [password] [damage]

RECORDS is a text with tabs: the first field is the ID, the others are the texts Feld1, Feld2 and so on. With a password the
head is marked as a database that asks for one, as such databases are; the pages themselves are not enciphered.
"""
import struct
import sys

PAGE = 4096
LONG, INTEGER, TEXT, OLE = 4, 3, 10, 11
FIXED, NULLABLE = 1, 2


def rc4(key, data):
    box = list(range(256))
    j = 0
    for i in range(256):
        j = (j + box[i] + key[i % len(key)]) & 255
        box[i], box[j] = box[j], box[i]
    out, i, j = bytearray(), 0, 0
    for byte in data:
        i = (i + 1) & 255
        j = (j + box[i]) & 255
        box[i], box[j] = box[j], box[i]
        out.append(byte ^ box[(box[i] + box[j]) & 255])
    return bytes(out)


def head(password):
    page = bytearray(PAGE)
    page[0:4] = b"\0\1\0\0"
    page[4:20] = b"Standard Jet DB\0"
    struct.pack_into("<I", page, 0x14, 1)  # Jet 4
    plain = bytearray(128)  # from 0x18 on, enciphered with a fixed key
    struct.pack_into("<H", plain, 0x3C - 0x18, 1252)
    name = password.encode("utf-16-le")[:40]
    plain[0x42 - 0x18:0x42 - 0x18 + len(name)] = name
    page[0x18:0x98] = rc4(bytes((0xC7, 0xDA, 0x39, 0x6B)), bytes(plain))
    return page


def row(columns, values):
    """Fixed values first, then the texts with their ends, then which of them are there."""
    fixed, texts, there = b"", [], 0
    for number, ((_, kind), value) in enumerate(zip(columns, values)):
        there |= (value is not None) << number
        if kind == LONG:
            fixed += struct.pack("<i", value)
        elif kind == INTEGER:
            fixed += struct.pack("<h", value)
        else:
            texts.append((value or "").encode("utf-16-le"))
    data = struct.pack("<H", len(columns)) + fixed
    starts = []
    for text in texts:
        starts.append(len(data))
        data += text
    starts.append(len(data))
    for start in reversed(starts):
        data += struct.pack("<H", start)
    data += struct.pack("<H", len(texts))
    return data + there.to_bytes((len(columns) + 7) // 8, "little")


def data_pages(owner, rows):
    pages, page, used, offsets = [], None, PAGE, []

    def close():
        struct.pack_into("<BBHIIH", page, 0, 1, 1, used - 14 - 2 * len(offsets), owner, 0, len(offsets))
        for i, offset in enumerate(offsets):
            struct.pack_into("<H", page, 14 + 2 * i, offset)

    for data in rows:
        if page is None or used - len(data) < 14 + 2 * (len(offsets) + 1):
            if page is not None:
                close()
            page, used, offsets = bytearray(PAGE), PAGE, []
            pages.append(page)
        used -= len(data)
        page[used:used + len(data)] = data
        offsets.append(used)
    close()
    return pages


def definition(columns, count, map_page, map_row):
    page = bytearray(PAGE)
    struct.pack_into("<BBH", page, 0, 2, 1, 0)
    struct.pack_into("<I", page, 16, count)
    texts = sum(kind in (TEXT, OLE) for _, kind in columns)
    struct.pack_into("<BHHHII", page, 40, 0x4E, len(columns), texts, len(columns), 0, 0)
    for place in (55, 59):
        struct.pack_into("<I", page, place, map_page << 8 | map_row)
    at, fixed_at, text_number = 63, 0, 0
    for number, (_, kind) in enumerate(columns):
        size = {LONG: 4, INTEGER: 2, TEXT: 510, OLE: 0}[kind]
        is_fixed = kind in (LONG, INTEGER)
        struct.pack_into("<BIHHH", page, at, kind, 0, number, text_number, number)
        struct.pack_into("<BB", page, at + 15, NULLABLE | (FIXED if is_fixed else 0), 0)
        struct.pack_into("<HH", page, at + 21, fixed_at, size)
        fixed_at += size if is_fixed else 0
        text_number += not is_fixed
        at += 25
    for name, _ in columns:
        name = name.encode("utf-16-le")
        struct.pack_into("<H", page, at, len(name))
        page[at + 2:at + 2 + len(name)] = name
        at += 2 + len(name)
    struct.pack_into("<I", page, 8, at - 8)
    return page


def usage_map(pages):
    bits = sum(1 << page for page in pages)
    return struct.pack("<BI", 0, 0) + bits.to_bytes(64, "little")


def main(file, table, records, password="", damage=""):
    rows = [line.rstrip("\n").split("\t") for line in open(records, encoding="utf-8") if line.strip()]
    columns = [("ID", LONG)] + [("Feld%d" % i, TEXT) for i in range(1, len(rows[0]))]
    catalog = [("Id", LONG), ("ParentId", LONG), ("Type", INTEGER), ("Flags", LONG), ("Name", TEXT), ("LvProp", OLE)]
    texts = data_pages(5, [row(columns, [int(r[0])] + [t or None for t in r[1:]]) for r in rows])
    objects = data_pages(2, [
        row(catalog, (2, 0, 1, -0x80000000, "MSysObjects", None)),
        row(catalog, (5, 0, 1, 0, table, None)),
    ])
    # 0 head, 1 and 3 which pages a table has, 2 the catalog and 4 its rows, 5 the table and 6.. its rows
    pages = [head(password), data_pages(0, [usage_map([4])])[0], definition(catalog, 2, 1, 0)]
    pages += [data_pages(0, [usage_map(range(6, 6 + len(texts)))])[0], objects[0], definition(columns, len(rows), 3, 0)]
    content = b"".join(bytes(page) for page in pages + texts)
    if damage == "torn":
        content = content[:7 * PAGE + 100]
    if damage == "noise":
        content = content[:2 * PAGE] + bytes((i * 37 + 11) & 255 for i in range(len(content) - 2 * PAGE))
    if damage == "newer":  # the head of an .accdb, whose pages are laid out alike
        content = content[:4] + b"Standard ACE DB\0\2" + content[21:]
    open(file, "wb").write(content)


main(*sys.argv[1:])
