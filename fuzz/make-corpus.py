#!/usr/bin/env python3
"""Writes the seed corpus of every fuzz target into fuzz/corpus/NAME: small TrueType,
OpenType and collection files, well formed and broken in the ways the reader must survive
(truetypefile), chains of them (fontpreview), small pictures of every format the picture
loader reads (picturefile), sheet inputs with hostile names (fontsheet), and WOFF and WOFF2
files for the web font unpacker (webfont). Run once; the files are checked in. JPEG seeds
need ImageMagick's convert; WOFF2 seeds need woff2_compress (Debian's woff2 package)."""
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
    # Many entries pointing at one name table (small: the 917 KB original is built by the tests).
    'one-table-many-entries.ttf': font([(b'head', head())] + [(b'name', name(NAMES), 12 + 16 * 65 + 56)] * 64),
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

# Chains for one CFontPreview, files cut at this marker.
MARKER = b'\n--fichier--\n'
CHAINS = {
    'good-then-no-name.chain': GOOD + MARKER + font([(b'head', head()), (b'OS/2', os2(1))]),
    'bad-magic-then-good.chain': SEEDS['bad-magic.ttf'] + MARKER + GOOD,
    'good-then-no-head-then-broken.chain': GOOD + MARKER + SEEDS['no-head.ttf'] + MARKER + SEEDS['truncated-name.ttf'],
    'two-names-twice.chain': SEEDS['two-names.ttf'] + MARKER + SEEDS['two-names.ttf'],
}


def png(width, height):
    def chunk(kind, data):
        return struct.pack('>I', len(data)) + kind + data + struct.pack('>I', zlib.crc32(kind + data))
    rows = b''.join(b'\x00' + bytes((x * 40) % 256 for x in range(width)) for _ in range(height))
    return (b'\x89PNG\r\n\x1a\n' + chunk(b'IHDR', struct.pack('>IIBBBBB', width, height, 8, 0, 0, 0, 0))
            + chunk(b'IDAT', zlib.compress(rows)) + chunk(b'IEND', b''))


def bmp_dib(width, height, for_icon=False):
    row = bytes([0, 0, 255, 0] * width)
    pixels = row * height
    mask = bytes(((width + 31) // 32) * 4 * height) if for_icon else b''
    header = struct.pack('<IiiHHIIiiII', 40, width, height * (2 if for_icon else 1), 1, 32, 0,
                         len(pixels) + len(mask), 2835, 2835, 0, 0)
    return header + pixels + mask


def bmp(width, height):
    dib = bmp_dib(width, height)
    return b'BM' + struct.pack('<IHHI', 14 + len(dib), 0, 0, 54) + dib


def ico(width, height):
    dib = bmp_dib(width, height, True)
    return struct.pack('<HHH', 0, 1, 1) + struct.pack('<BBBBHHII', width, height, 0, 0, 1, 32, len(dib), 22) + dib


# A 2 x 2 GIF: two colours, LZW codes of 3 bits written by hand.
GIF = (b'GIF89a' + struct.pack('<HH', 2, 2) + b'\x80\x00\x00' + b'\xff\x00\x00\x00\x00\xff'
       + b'\x2c' + struct.pack('<HHHH', 0, 0, 2, 2) + b'\x00' + b'\x02\x02\x44\x34\x00\x3b')


def wmf(width, height, placeable=True):
    records = b''
    def record(function, *words):
        return struct.pack('<IH', 3 + len(words), function) + struct.pack('<%dh' % len(words), *words)
    records += record(0x020B, 0, 0)                      # SETWINDOWORG
    records += record(0x020C, height, width)             # SETWINDOWEXT
    records += record(0x02FC, 0, 0x00FF, 0, 0)           # CREATEBRUSHINDIRECT, solid red
    records += record(0x012D, 0)                         # SELECTOBJECT
    records += record(0x041B, height, width, 0, 0)       # RECTANGLE
    records += record(0x0000)                            # end
    size_words = (18 + len(records)) // 2
    standard = struct.pack('<HHHIHIH', 1, 9, 0x0300, size_words, 1, 7, 0)
    if not placeable:
        return standard + records
    head16 = struct.pack('<IHhhhhHI', 0x9AC6CDD7, 0, 0, 0, width, height, 96, 0)
    checksum = 0
    for i in range(0, 20, 2):
        checksum ^= struct.unpack('<H', head16[i:i + 2])[0]
    return head16 + struct.pack('<H', checksum) + standard + records


def tga(width, height):
    return struct.pack('<BBBHHBHHHHBB', 0, 0, 2, 0, 0, 0, 0, 0, width, height, 24, 0) + bytes([0, 0, 255] * width * height)


# First byte: the suffix the file is given (0 gif, 1 jpg, 2 jpeg, 3 bmp, 4 ico, 5 wmf,
# 6 png, 7 tga, 8 ppm, 9 xpm), as the fuzz target reads it.
PICTURES = {
    'deux.gif': b'\x00' + GIF,
    'rouge.bmp': b'\x03' + bmp(4, 3),
    'icone.ico': b'\x04' + ico(4, 4),
    'cadre.wmf': b'\x05' + wmf(40, 20),
    'standard.wmf': b'\x05' + wmf(30, 30, placeable=False),
    'gris.png': b'\x06' + png(5, 4),
    'sans-signature.tga': b'\x07' + tga(3, 2),
    'portable.ppm': b'\x08' + b'P6\n2 2\n255\n' + bytes(12),
    'texte.xpm': b'\x09' + b'/* XPM */\nstatic char *x[] = {"2 1 1 1", ". c #FF0000", ".."};\n',
    'png-nomme-gif.gif': b'\x00' + png(3, 3),
}

# Lines: name font, sample, sample size, name size, then the fonts.
SHEETS = {
    'simple.txt': 'Arial\nTexte d\'essai\n 10\n 12\nArial\nCourier New\n',
    'accolades.txt': 'a{b}\\c;d\nT\n 6\n 120\n}\n{\n\\\na;b\n\\par}{\\rtf1\n',
    'balises.txt': '<script>"&\'\n<b>gras</b> & "x"\n 10\n 10\n<i>\n"\n&amp;\n',
    'unicode.txt': '\u0416\u4e2d\u0639\nПривет 中文 مرحبا \U0001F600\n 10\n 12\nШрифт\n字体\n\U0001F600;\n',
    'tailles.txt': 'A\nT\n1e400\n-5\nA\n',
}


def write_all(folder, seeds):
    os.makedirs(folder, exist_ok=True)
    for file_name, data in seeds.items():
        with open(os.path.join(folder, file_name), 'wb') as out:
            out.write(data if isinstance(data, bytes) else data.encode('utf-8'))


def jpeg_seed():
    """A small JPEG through ImageMagick, when it is there."""
    convert = shutil.which('convert')
    if not convert:
        return None
    with tempfile.TemporaryDirectory() as tmp:
        out = os.path.join(tmp, 'seed.jpg')
        subprocess.run([convert, '-size', '6x4', 'gradient:red-blue', '-quality', '50', out], check=True)
        with open(out, 'rb') as f:
            return f.read()

if __name__ == '__main__':
    root = sys.argv[1] if len(sys.argv) > 1 else os.path.join(os.path.dirname(__file__), 'corpus')
    write_all(os.path.join(root, 'truetypefile'), SEEDS)
    write_all(os.path.join(root, 'fontpreview'), CHAINS)
    jpeg = jpeg_seed()
    if jpeg:
        PICTURES['degrade.jpg'] = b'\x01' + jpeg
        PICTURES['degrade.jpeg'] = b'\x02' + jpeg
    write_all(os.path.join(root, 'picturefile'), PICTURES)
    write_all(os.path.join(root, 'fontsheet'), SHEETS)
    if not shutil.which('woff2_compress'):
        sys.exit('woff2_compress is missing: apt-get install woff2')
    write_all(os.path.join(root, 'webfont'), {name: make() for name, make in WEB_SEEDS.items()})
