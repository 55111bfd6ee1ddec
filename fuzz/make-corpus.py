#!/usr/bin/env python3
"""Writes the fuzz targets' seed corpora: small TrueType, OpenType and collection files,
well formed and broken in the ways the reader must survive (corpus/), and WOFF and WOFF2
files for the web font unpacker (corpus-webfont/). WOFF2 files are made by woff2_compress
(Debian's woff2 package). Run once; the files are checked in."""
import os
import shutil
import struct
import subprocess
import sys
import tempfile
import zlib

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

def collection(fonts, count=None):
    """A TrueType collection: each font's directory moved to its place, tables not shared."""
    count = len(fonts) if count is None else count
    header = b'ttcf' + struct.pack('>II', 0x10000, count)
    body, offsets = b'', []
    start = 12 + 4 * len(fonts)
    for data in fonts:
        place = start + len(body)
        offsets.append(place)
        num = struct.unpack('>H', data[4:6])[0]
        face = bytearray(data[:12 + 16 * num])
        for i in range(num):
            at = 12 + 16 * i
            old = struct.unpack('>I', face[at + 8:at + 12])[0]
            face[at + 8:at + 12] = struct.pack('>I', old + place)
        body += bytes(face) + data[12 + 16 * num:]
        body += bytes((4 - len(body) % 4) % 4)
    return header + b''.join(struct.pack('>I', o) for o in offsets) + body


def tiny_truetype():
    """Two glyphs (an empty one and a square mapped from 'A'), enough for WOFF2's glyf transform."""
    head_table = struct.pack('>IIIIHHQQhhhhHHhhh', 0x10000, 0x10000, 0, MAGIC, 0x000B, 1000, 0, 0,
                             100, 0, 500, 400, 0, 8, 2, 0, 0)
    hhea = struct.pack('>IhhhHhhhhhhhhhhhH', 0x10000, 800, -200, 0, 600, 100, 100, 500, 1, 0, 0, 0, 0, 0, 0, 0, 2)
    maxp = struct.pack('>IHHHHHHHHHHHHHH', 0x10000, 2, 4, 1, 0, 0, 2, 0, 0, 0, 0, 0, 0, 0, 0)
    hmtx = struct.pack('>HhHh', 600, 0, 600, 100)
    square = struct.pack('>hhhhhHH', 1, 100, 0, 500, 400, 3, 0) + bytes([1, 1, 1, 1]) \
        + struct.pack('>hhhh', 100, 400, 0, -400) + struct.pack('>hhhh', 0, 0, 400, 0)
    square += bytes((4 - len(square) % 4) % 4)
    loca = struct.pack('>HHH', 0, 0, len(square) // 2)
    cmap4 = struct.pack('>HHHHHHHHHHHHhhHH', 4, 32, 0, 4, 4, 1, 0, 0x41, 0xFFFF, 0, 0x41, 0xFFFF,
                        1 - 0x41, 1, 0, 0)
    cmap = struct.pack('>HHHHI', 0, 1, 3, 1, 12) + cmap4
    post = struct.pack('>II', 0x30000, 0) + bytes(24)
    return font([(b'OS/2', os2(0x40)), (b'cmap', cmap), (b'glyf', square), (b'head', head_table),
                 (b'hhea', hhea), (b'hmtx', hmtx), (b'loca', loca), (b'maxp', maxp),
                 (b'name', name(NAMES)), (b'post', post)])


def woff(sfnt, total=None, compress=True):
    num = struct.unpack('>H', sfnt[4:6])[0]
    entries = []
    for i in range(num):
        tag, checksum, offset, length = struct.unpack('>4sIII', sfnt[12 + 16 * i:28 + 16 * i])
        entries.append((tag, checksum, sfnt[offset:offset + length]))
    entries.sort()
    header_size = 44 + 20 * num
    directory, data = b'', b''
    for tag, checksum, table in entries:
        packed = zlib.compress(table, 9) if compress else table
        stored = packed if len(packed) < len(table) else table
        directory += tag + struct.pack('>IIII', header_size + len(data), len(stored), len(table), checksum)
        data += stored + bytes((4 - len(stored) % 4) % 4)
    real_total = 12 + 16 * num + sum((len(t) + 3) & ~3 for _, _, t in entries)
    header = b'wOFF' + sfnt[0:4] + struct.pack('>IHHIHHIIIII', header_size + len(data), num, 0,
                                               real_total if total is None else total, 1, 0, 0, 0, 0, 0, 0)
    return header + directory + data


def woff2(sfnt):
    with tempfile.TemporaryDirectory() as folder:
        path = os.path.join(folder, 'font.ttf')
        with open(path, 'wb') as out:
            out.write(sfnt)
        subprocess.run(['woff2_compress', path], check=True, stdout=subprocess.DEVNULL)
        with open(os.path.join(folder, 'font.woff2'), 'rb') as result:
            return result.read()


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
    'opentype.otf': b'OTTO' + GOOD[4:],
    'collection.ttc': collection([GOOD, font([(b'head', head()), (b'name', name([ms(1, 'Second')]))])]),
    'collection-huge-count.ttc': collection([GOOD], count=0xFFFFFFFF),
    'collection-truncated.ttc': collection([GOOD, GOOD])[:40],
    'collection-offset-outside.ttc': b'ttcf' + struct.pack('>III', 0x10000, 2, 20) + struct.pack('>I', 0x7FFFFFF0)
                                     + GOOD,
}

WEB_SEEDS = {
    'tiny.woff': lambda: woff(tiny_truetype()),
    'tiny-stored.woff': lambda: woff(tiny_truetype(), compress=False),
    'huge-declared.woff': lambda: woff(tiny_truetype(), total=0xFFFFFFF0),
    'names.woff': lambda: woff(GOOD),
    'tiny.woff2': lambda: woff2(tiny_truetype()),
    'names.woff2': lambda: woff2(GOOD),
    'truncated.woff2': lambda: woff2(tiny_truetype())[:60],
    'huge-declared.woff2': lambda: (lambda w: w[:16] + struct.pack('>I', 0xC0000000) + w[20:])(woff2(tiny_truetype())),
}

if __name__ == '__main__':
    folder = sys.argv[1] if len(sys.argv) > 1 else os.path.join(os.path.dirname(__file__), 'corpus')
    os.makedirs(folder, exist_ok=True)
    for file_name, data in SEEDS.items():
        with open(os.path.join(folder, file_name), 'wb') as out:
            out.write(data)
    web_folder = sys.argv[2] if len(sys.argv) > 2 else os.path.join(os.path.dirname(__file__), 'corpus-webfont')
    os.makedirs(web_folder, exist_ok=True)
    if not shutil.which('woff2_compress'):
        sys.exit('woff2_compress is missing: apt-get install woff2')
    for file_name, make in WEB_SEEDS.items():
        with open(os.path.join(web_folder, file_name), 'wb') as out:
            out.write(make())
