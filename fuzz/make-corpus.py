#!/usr/bin/env python3
"""Writes the fuzz target's seed corpus: small TrueType files, well formed and broken
in the ways the reader must survive. Run once; the files are checked in."""
import os
import struct
import sys

MAGIC = 0x5F0F3CF5


def head(magic=MAGIC):
    return struct.pack('>IIII', 0x10000, 0x10000, 0, magic) + bytes(38)


def os2(fs_selection, code_pages=1):
    t = struct.pack('>HhHHH', 1, 1000, 400, 5, 0) + bytes(20) + struct.pack('>h', 0) + bytes(10) + bytes(16)
    t += b'GLYP' + struct.pack('>HHHhhhHH', fs_selection, 0x20, 0xFFFC, 1600, -400, 200, 1900, 500)
    return t + struct.pack('>II', code_pages, 0)


def ms(name_id, text, lang=0x409):
    return (3, 1, lang, name_id, text.encode('utf-16-be'))


def mac(name_id, raw):
    return (1, 0, 0, name_id, raw)


def name(records, count=None, string_offset=None):
    body, store = b'', b''
    for platform, encoding, lang, name_id, raw in records:
        body += struct.pack('>6H', platform, encoding, lang, name_id, len(raw), len(store))
        store += raw
    count = len(records) if count is None else count
    string_offset = 6 + 12 * len(records) if string_offset is None else string_offset
    return struct.pack('>Hhh', 0, count, string_offset) + body + store


def font(tables, num_tables=None):
    place = 12 + 16 * len(tables)
    directory, body = b'', b''
    for tag, data, *override in tables:
        offset = override[0] if override else place + len(body)
        directory += tag + struct.pack('>III', 0, offset & 0xFFFFFFFF, len(data))
        body += data + bytes((4 - len(data) % 4) % 4)
    count = len(tables) if num_tables is None else num_tables
    return struct.pack('>IHHHH', 0x10000, count, 0, 0, 0) + directory + body


NAMES = [ms(0, 'Copyright'), ms(1, 'Essai'), ms(2, 'Regular'), ms(4, 'Essai Regular'),
         ms(1, 'Essai FR', 0x40C), mac(1, b'Caf\x8e'), mac(6, b'Essai-Regular')]
GOOD = font([(b'head', head()), (b'name', name(NAMES)), (b'OS/2', os2(0x21))])

SEEDS = {
    'good.ttf': GOOD,
    'truncated-directory.ttf': GOOD[:30],
    'truncated-head.ttf': GOOD[:80],
    'truncated-name.ttf': GOOD[:150],
    'truncated-os2.ttf': GOOD[:-30],
    'zero-tables.ttf': font([(b'head', head())], num_tables=0),
    'ffff-tables.ttf': font([(b'head', head())], num_tables=0xFFFF),
    'bad-magic.ttf': font([(b'head', head(0x12345678)), (b'name', name(NAMES))]),
    'no-head.ttf': font([(b'name', name(NAMES)), (b'OS/2', os2(0x20))]),
    'offsets-past-end.ttf': font([(b'head', head()), (b'name', name(NAMES), 0x7FFFFF00), (b'OS/2', os2(1), 0xFFFFFFF0)]),
    'negative-count.ttf': font([(b'head', head()), (b'name', name(NAMES, count=-1))]),
    'huge-count.ttf': font([(b'head', head()), (b'name', name(NAMES, count=0x7FFF))]),
    'negative-string-offset.ttf': font([(b'head', head()), (b'name', name(NAMES, string_offset=-32768))]),
    'odd-and-empty-strings.ttf': font([(b'head', head()), (b'name', name([ms(1, ''), (3, 1, 0x409, 2, b'\x00A\x00r\x00'),
                                                                        (3, 1, 0x409, 4, b'\x4e\x00\x00A')]))]),
    'two-names.ttf': font([(b'head', head()), (b'name', name([ms(1, 'Premier')])), (b'name', name([ms(1, 'Second')])),
                           (b'OS/2', os2(1)), (b'OS/2', os2(0x20))]),
}

if __name__ == '__main__':
    folder = sys.argv[1] if len(sys.argv) > 1 else os.path.join(os.path.dirname(__file__), 'corpus')
    os.makedirs(folder, exist_ok=True)
    for file_name, data in SEEDS.items():
        with open(os.path.join(folder, file_name), 'wb') as out:
            out.write(data)
