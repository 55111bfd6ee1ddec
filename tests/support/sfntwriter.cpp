// Test font writer: big-endian fields appended one by one.
#include "support/sfntwriter.h"

#include <QFile>
#include <QMap>
#include <QPoint>
#include <QProcess>
#include <QSize>
#include <algorithm>

namespace Sfnt {

namespace {

void put16(QByteArray& out, quint16 value)
{
    out.append(char(value >> 8)).append(char(value & 0xFF));
}

void put32(QByteArray& out, quint32 value)
{
    put16(out, quint16(value >> 16));
    put16(out, quint16(value & 0xFFFF));
}

void set16(QByteArray& data, qsizetype at, quint16 value)
{
    if (at + 2 <= data.size()) {
        data[at] = char(value >> 8);
        data[at + 1] = char(value & 0xFF);
    }
}

void set32(QByteArray& data, qsizetype at, quint32 value)
{
    set16(data, at, quint16(value >> 16));
    set16(data, at + 2, quint16(value & 0xFFFF));
}

quint16 get16(const QByteArray& data, qsizetype at)
{
    return quint16((quint8(data[at]) << 8) | quint8(data[at + 1]));
}

quint32 get32(const QByteArray& data, qsizetype at)
{
    return (quint32(get16(data, at)) << 16) | get16(data, at + 2);
}

// The tables of a well-formed font, in directory order.
QList<Table> tablesOf(const QByteArray& font)
{
    QList<Table> tables;
    const int count = get16(font, 4);
    for (int i = 0; i < count; ++i) {
        const qsizetype entry = 12 + 16 * i;
        tables.append({font.mid(entry, 4), font.mid(get32(font, entry + 8), get32(font, entry + 12)), {}});
    }
    return tables;
}

} // namespace

Name microsoft(int nameId, const QString& text, int language)
{
    QByteArray bytes;
    for (QChar c : text)
        put16(bytes, c.unicode());
    return {3, 1, language, nameId, bytes, {}, {}};
}

Name macintosh(int nameId, const QByteArray& bytes)
{
    return {1, 0, 0, nameId, bytes, {}, {}};
}

QByteArray head(quint32 magic)
{
    QByteArray t;
    put32(t, 0x00010000);   // version
    put32(t, 0x00010000);   // fontRevision
    put32(t, 0);            // checkSumAdjustment
    put32(t, magic);        // magicNumber
    put16(t, 0x000B);       // flags
    put16(t, 2048);         // unitsPerEm
    t.append(16, '\0');     // created, modified
    for (int v : {0, -500, 2000, 1900}) // xMin, yMin, xMax, yMax
        put16(t, quint16(v));
    put16(t, 0);            // macStyle
    put16(t, 8);            // lowestRecPPEM
    put16(t, 2);            // fontDirectionHint
    put16(t, 0);            // indexToLocFormat
    put16(t, 0);            // glyphDataFormat
    return t;               // 54 bytes
}

QByteArray os2(quint16 fsSelection, quint32 codePageRange1)
{
    QByteArray t;
    put16(t, 1);            // version
    put16(t, 1000);         // xAvgCharWidth
    put16(t, 400);          // usWeightClass
    put16(t, 5);            // usWidthClass
    put16(t, 0);            // fsType
    t.append(20, '\0');     // subscript and superscript sizes and offsets, strikeout size and position
    put16(t, 0);            // sFamilyClass
    t.append(10, '\0');     // panose
    t.append(16, '\0');     // ulUnicodeRange1..4
    t.append("GLYP");       // achVendID
    put16(t, fsSelection);  // fsSelection, offset 62
    put16(t, 0x20);         // usFirstCharIndex
    put16(t, 0xFFFC);       // usLastCharIndex
    for (int v : {1600, -400, 200, 1900, 500}) // typo ascender, descender, line gap, win ascent, win descent
        put16(t, quint16(v));
    put32(t, codePageRange1); // offset 78
    put32(t, 0);              // ulCodePageRange2
    return t;                 // 86 bytes
}

QByteArray name(const QList<Name>& names, const NameOptions& options)
{
    QByteArray records;
    QByteArray storage;
    for (const Name& n : names) {
        const int offset = n.offset.value_or(int(storage.size()));
        put16(records, quint16(n.platform));
        put16(records, quint16(n.encoding));
        put16(records, quint16(n.language));
        put16(records, quint16(n.nameId));
        put16(records, quint16(n.length.value_or(int(n.bytes.size()))));
        put16(records, quint16(offset));
        if (!n.offset)
            storage.append(n.bytes);
    }
    QByteArray t;
    put16(t, 0); // format
    put16(t, quint16(options.count.value_or(qint16(names.size()))));
    put16(t, quint16(options.stringOffset.value_or(qint16(6 + 12 * names.size()))));
    return t + records + storage;
}

QByteArray font(const QList<Table>& tables, std::optional<quint16> numTables)
{
    QByteArray out;
    put32(out, 0x00010000);
    put16(out, numTables.value_or(quint16(tables.size())));
    put16(out, 0); // searchRange
    put16(out, 0); // entrySelector
    put16(out, 0); // rangeShift
    qint64 place = 12 + 16 * tables.size();
    QByteArray body;
    for (const Table& table : tables) {
        out.append(table.tag.leftJustified(4, ' ', true));
        put32(out, 0); // checkSum, not used
        put32(out, quint32(table.offset.value_or(place + body.size())));
        put32(out, quint32(table.data.size()));
        body.append(table.data);
        body.append((4 - body.size() % 4) % 4, '\0');
    }
    return out + body;
}

QByteArray simpleFont(const QList<Name>& names, quint16 fsSelection, quint32 magic)
{
    return font({{"head", head(magic), {}}, {"name", name(names), {}}, {"OS/2", os2(fsSelection), {}}});
}

QByteArray tableOf(const QByteArray& font, const QByteArray& tag)
{
    for (const Table& table : tablesOf(font))
        if (table.tag == tag)
            return table.data;
    return QByteArray();
}

QList<qint64> tableBoundaries(const QByteArray& font)
{
    QList<qint64> points{0, 12, 12 + 16 * qint64(get16(font, 4))};
    const int count = get16(font, 4);
    for (int i = 0; i < count; ++i) {
        const qsizetype entry = 12 + 16 * i;
        points << get32(font, entry + 8) << get32(font, entry + 8) + get32(font, entry + 12);
    }
    std::sort(points.begin(), points.end());
    points.erase(std::unique(points.begin(), points.end()), points.end());
    return points;
}

QByteArray withTable(const QByteArray& source, const QByteArray& tag, const QByteArray& data)
{
    QList<Table> tables = tablesOf(source);
    auto found = std::find_if(tables.begin(), tables.end(), [&](const Table& t) { return t.tag == tag; });
    if (found != tables.end())
        found->data = data;
    else
        tables.append({tag, data, {}});
    // The directory stays sorted by tag, as real fonts have it.
    std::sort(tables.begin(), tables.end(), [](const Table& a, const Table& b) { return a.tag < b.tag; });
    return font(tables);
}

QByteArray renamed(const QByteArray& source, const QList<Name>& names)
{
    return withTable(source, "name", name(names));
}

QList<Name> familyNames(const QString& family, const QString& subfamily)
{
    return {
        microsoft(0, QStringLiteral("Copyright (c) Glyphora tests")),
        microsoft(1, family),
        microsoft(2, subfamily),
        microsoft(3, family + QStringLiteral(" ") + subfamily + QStringLiteral(" test")),
        microsoft(4, family + QStringLiteral(" ") + subfamily),
        microsoft(5, QStringLiteral("Version 1.0")),
        microsoft(6, QString(family).remove(QLatin1Char(' ')) + QStringLiteral("-") + subfamily),
        microsoft(7, QStringLiteral("Glyphora is a test mark")),
    };
}

namespace {

// Format 4: one segment per BMP code, then the closing 0xFFFF segment.
QByteArray cmapFormat4(const QList<QPair<char32_t, quint16>>& mapping)
{
    QList<QPair<char32_t, quint16>> bmp;
    for (const auto& entry : mapping)
        if (entry.first < 0xFFFF)
            bmp.append(entry);
    bmp.append({0xFFFF, 0});
    const int segments = int(bmp.size());
    int searchRange = 2;
    int selector = 0;
    while (searchRange * 2 <= segments * 2) {
        searchRange *= 2;
        ++selector;
    }
    QByteArray table;
    put16(table, 4);                              // format
    put16(table, quint16(16 + 8 * segments));     // length
    put16(table, 0);                              // language
    put16(table, quint16(segments * 2));          // segCountX2
    put16(table, quint16(searchRange));           // searchRange
    put16(table, quint16(selector));              // entrySelector
    put16(table, quint16(segments * 2 - searchRange)); // rangeShift
    for (const auto& entry : bmp)
        put16(table, quint16(entry.first));       // endCode
    put16(table, 0);                              // reservedPad
    for (const auto& entry : bmp)
        put16(table, quint16(entry.first));       // startCode
    for (const auto& entry : bmp)                 // idDelta: glyph - code, modulo 65536
        put16(table, entry.first == 0xFFFF ? 1 : quint16(entry.second - entry.first));
    for (int i = 0; i < segments; ++i)
        put16(table, 0);                          // idRangeOffset
    return table;
}

QByteArray cmapFormat12(const QList<QPair<char32_t, quint16>>& mapping)
{
    QByteArray table;
    put16(table, 12);                                   // format
    put16(table, 0);                                    // reserved
    put32(table, quint32(16 + 12 * mapping.size()));    // length
    put32(table, 0);                                    // language
    put32(table, quint32(mapping.size()));              // numGroups
    for (const auto& entry : mapping) {
        put32(table, entry.first);                      // startCharCode
        put32(table, entry.first);                      // endCharCode
        put32(table, entry.second);                     // startGlyphID
    }
    return table;
}

} // namespace

QByteArray cmap(const QList<QPair<char32_t, quint16>>& mapping)
{
    const QByteArray bmp = cmapFormat4(mapping);
    const QByteArray full = cmapFormat12(mapping);
    QByteArray table;
    put16(table, 0); // version
    put16(table, 2); // numTables
    put16(table, 3);
    put16(table, 1);
    put32(table, 4 + 2 * 8);
    put16(table, 3);
    put16(table, 10);
    put32(table, quint32(4 + 2 * 8 + bmp.size()));
    return table + bmp + full;
}

QByteArray withSymbolCmap(const QByteArray& source)
{
    QByteArray cmap = tableOf(source, "cmap");
    const int count = get16(cmap, 2);
    for (int i = 0; i < count; ++i) {
        const qsizetype record = 4 + 8 * i;
        if (get16(cmap, record) == 3 && get16(cmap, record + 2) == 1) {
            set16(cmap, record + 2, 0);
            break;
        }
    }
    return withTable(source, "cmap", cmap);
}

QByteArray withCodePages(const QByteArray& source, quint32 codePageRange1, std::optional<quint16> first,
                         std::optional<quint16> last, std::optional<quint16> defaultChar)
{
    QByteArray table = tableOf(source, "OS/2");
    set32(table, 78, codePageRange1);
    if (first)
        set16(table, 64, *first);
    if (last)
        set16(table, 66, *last);
    if (defaultChar) {
        if (get16(table, 0) < 2) { // usDefaultChar exists from version 2 on
            table = table.left(86).leftJustified(96, '\0');
            set16(table, 0, 2);
        }
        set16(table, 90, *defaultChar);
    }
    return withTable(source, "OS/2", table);
}

namespace {

constexpr int firstChar = 0x20;
constexpr int lastChar = 0x7E;
constexpr int sideBearing = 100;

// A box of the glyph for character c: width and height vary with the character.
QSize boxOf(int c)
{
    return QSize(300 + (c * 37) % 900, 600 + (c * 53) % 1200);
}

QByteArray boxGlyph(QSize box)
{
    QByteArray g;
    put16(g, 1);                                  // numberOfContours
    for (int v : {sideBearing, 0, sideBearing + box.width(), box.height()}) // xMin, yMin, xMax, yMax
        put16(g, quint16(v));
    put16(g, 3);                                  // endPtsOfContours
    put16(g, 0);                                  // instructionLength
    g.append(4, char(0x01));                      // flags: on curve, 16-bit deltas
    for (int dx : {sideBearing, 0, box.width(), 0})
        put16(g, quint16(dx));
    for (int dy : {0, box.height(), 0, -box.height()})
        put16(g, quint16(dy));
    return g;
}

QByteArray cmapFormat4()
{
    QByteArray sub;
    put16(sub, 4);                 // format
    put16(sub, 32);                // length: 14 + 4 arrays of 2 segments + reservedPad
    put16(sub, 0);                 // language
    for (int v : {4, 4, 1, 0})     // segCountX2, searchRange, entrySelector, rangeShift
        put16(sub, quint16(v));
    for (int v : {lastChar, 0xFFFF, 0, firstChar, 0xFFFF}) // endCode, reservedPad, startCode
        put16(sub, quint16(v));
    for (int v : {1 - firstChar, 1, 0, 0}) // idDelta (glyph 1 is the first character), idRangeOffset
        put16(sub, quint16(v));
    QByteArray cmap;
    for (int v : {0, 1, 3, 1})     // version, numTables, platform 3, encoding 1
        put16(cmap, quint16(v));
    put32(cmap, 12);
    return cmap + sub;
}

} // namespace

QByteArray outlineFont(const QList<Name>& names)
{
    const int glyphs = 1 + lastChar - firstChar + 1; // .notdef then each character
    QByteArray glyf, loca, hmtx;
    int widest = 0;
    for (int g = 0; g < glyphs; ++g) {
        const int c = firstChar + g - 1;
        put16(loca, quint16(glyf.size() / 2));
        const QSize box = g == 0 ? QSize(800, 1400) : boxOf(c);
        if (c != firstChar) // the space draws nothing
            glyf.append(boxGlyph(box));
        const int advance = box.width() + 2 * sideBearing;
        widest = std::max(widest, advance);
        put16(hmtx, quint16(advance));
        put16(hmtx, sideBearing);
    }
    put16(loca, quint16(glyf.size() / 2));

    QByteArray hhea;
    put32(hhea, 0x00010000);
    for (int v : {1900, -500, 200, widest, 0, 0, widest, 1, 0, 0, 0, 0, 0, 0, 0, glyphs})
        put16(hhea, quint16(v)); // ascender .. numberOfHMetrics
    QByteArray maxp;
    put32(maxp, 0x00010000);
    for (int v : {glyphs, 4, 1, 0, 0, 2, 0, 0, 0, 0, 0, 0, 0, 0})
        put16(maxp, quint16(v)); // numGlyphs, maxPoints, maxContours, ..., maxZones 2, the rest 0
    QByteArray post;
    for (quint32 v : {0x00030000u, 0u, 0xFF380064u, 0u, 0u, 0u, 0u, 0u}) // v3, italicAngle, underline, ...
        put32(post, v);
    return font({{"OS/2", os2(0), {}}, {"cmap", cmapFormat4(), {}}, {"glyf", glyf, {}}, {"head", head(), {}},
                 {"hhea", hhea, {}}, {"hmtx", hmtx, {}}, {"loca", loca, {}}, {"maxp", maxp, {}},
                 {"name", name(names), {}}, {"post", post, {}}});
}

QByteArray os2(const Os2Fields& f)
{
    QByteArray t;
    put16(t, f.version);
    put16(t, 1000);             // xAvgCharWidth
    put16(t, f.weightClass);
    put16(t, f.widthClass);
    put16(t, f.fsType);
    t.append(16, '\0');         // subscript and superscript sizes and offsets
    put16(t, quint16(f.strikeoutSize));
    put16(t, quint16(f.strikeoutPosition));
    put16(t, 0);                // sFamilyClass
    for (quint8 digit : f.panose)
        t.append(char(digit));
    for (quint32 range : f.unicodeRanges)
        put32(t, range);
    t.append(f.vendor.leftJustified(4, ' ', true)); // achVendID, offset 58
    put16(t, f.fsSelection);    // offset 62
    put16(t, 0x20);             // usFirstCharIndex
    put16(t, 0xFFFC);           // usLastCharIndex
    for (qint16 v : {f.typoAscender, f.typoDescender, f.typoLineGap})
        put16(t, quint16(v));
    put16(t, f.winAscent);
    put16(t, f.winDescent);     // 78 bytes: the end of version 0
    if (f.version == 0)
        return t;
    put32(t, f.codePages[0]);
    put32(t, f.codePages[1]);   // 86 bytes: the end of version 1
    if (f.version == 1)
        return t;
    put16(t, quint16(f.xHeight));
    put16(t, quint16(f.capHeight));
    put16(t, 0);                // usDefaultChar
    put16(t, 0x20);             // usBreakChar
    put16(t, 2);                // usMaxContext: 96 bytes
    if (f.version >= 5) {
        put16(t, 0);            // usLowerOpticalPointSize
        put16(t, 0xFFFF);       // usUpperOpticalPointSize
    }
    return t;
}

QByteArray withoutTable(const QByteArray& source, const QByteArray& tag)
{
    QList<Table> tables = tablesOf(source);
    tables.removeIf([&](const Table& t) { return t.tag == tag; });
    return font(tables);
}

QByteArray with16(QByteArray table, qsizetype at, quint16 value)
{
    set16(table, at, value);
    return table;
}

QByteArray gsub(const QList<GsubFeature>& features)
{
    const int count = int(features.size());
    // Header (10), then the script list, the feature list and an empty lookup list.
    QByteArray scripts;
    put16(scripts, 1);                      // scriptCount
    scripts.append("DFLT");
    put16(scripts, 8);                      // Script table, from the script list
    put16(scripts, 4);                      // Script: defaultLangSys offset
    put16(scripts, 0);                      //         langSysCount
    put16(scripts, 0);                      // LangSys: lookupOrder
    put16(scripts, 0xFFFF);                 //          requiredFeatureIndex
    put16(scripts, quint16(count));         //          featureIndexCount
    for (int i = 0; i < count; ++i)
        put16(scripts, quint16(i));
    QByteArray list;
    put16(list, quint16(count));
    QByteArray bodies;
    const int recordsEnd = 2 + 6 * count;
    for (const GsubFeature& feature : features) {
        list.append(feature.tag.leftJustified(4, ' ', true));
        put16(list, quint16(recordsEnd + bodies.size()));
        put16(bodies, feature.nameId ? 4 : 0); // featureParams offset, from the feature table
        put16(bodies, 0);                      // lookupIndexCount
        if (feature.nameId) {
            put16(bodies, 0);                  // FeatureParamsStylisticSet: version
            put16(bodies, *feature.nameId);    //                            UINameID
        }
    }
    list.append(bodies);
    QByteArray t;
    put32(t, 0x00010000);
    put16(t, 10);                                       // scriptList
    put16(t, quint16(10 + scripts.size()));             // featureList
    put16(t, quint16(10 + scripts.size() + list.size())); // lookupList
    t.append(scripts).append(list);
    put16(t, 0);                                        // lookupCount
    return t;
}

QString installedTrueTypeFile()
{
    QProcess match;
    match.start(QStringLiteral("fc-match"), {QStringLiteral("-f"), QStringLiteral("%{file}"),
                                             QStringLiteral("DejaVu Sans:style=Book")});
    match.waitForFinished(30000);
    return QString::fromLocal8Bit(match.readAllStandardOutput()).trimmed();
}

QByteArray drawable(const QList<Name>& names)
{
    static const QByteArray source = readFile(installedTrueTypeFile());
    return renamed(source, names);
}

namespace {

// One simple glyph: closed contours of on-curve points, coordinates as 16-bit deltas.
QByteArray glyph(const QList<QList<QPoint>>& contours)
{
    int xMin = 32767, yMin = 32767, xMax = -32768, yMax = -32768, points = 0;
    for (const auto& contour : contours)
        for (const QPoint& p : contour) {
            xMin = std::min(xMin, p.x()), yMin = std::min(yMin, p.y());
            xMax = std::max(xMax, p.x()), yMax = std::max(yMax, p.y());
        }
    QByteArray g;
    put16(g, quint16(contours.size())); // numberOfContours
    for (int v : {xMin, yMin, xMax, yMax})
        put16(g, quint16(v));
    for (const auto& contour : contours) {
        points += int(contour.size());
        put16(g, quint16(points - 1)); // endPtsOfContours
    }
    put16(g, 0);                     // instructionLength
    g.append(points, char(0x01));    // flags: on curve, 16-bit deltas
    QPoint last(0, 0);
    QByteArray ys;
    for (const auto& contour : contours)
        for (const QPoint& p : contour) {
            put16(g, quint16(p.x() - last.x()));
            put16(ys, quint16(p.y() - last.y()));
            last = p;
        }
    g += ys;
    while (g.size() % 4)
        g.append('\0');
    return g;
}

QList<QPoint> box(int left, int bottom, int right, int top, bool clockwise = true)
{
    QList<QPoint> points{{left, bottom}, {left, top}, {right, top}, {right, bottom}};
    if (!clockwise)
        std::reverse(points.begin(), points.end());
    return points;
}

} // namespace

QList<char32_t> characterRange(char32_t first, char32_t last)
{
    QList<char32_t> codes;
    for (char32_t c = first; c <= last; ++c)
        codes.append(c);
    return codes;
}

QByteArray boxFont(const QString& family, const QList<char32_t>& characters)
{
    QList<char32_t> codes = characters;
    std::sort(codes.begin(), codes.end());
    codes.erase(std::unique(codes.begin(), codes.end()), codes.end());
    const int numGlyphs = int(codes.size()) + 1;

    QByteArray glyf, loca, hmtx;
    const QByteArray notdef = glyph({box(100, 0, 900, 1400), box(200, 100, 800, 1300, false)});
    const QByteArray wide = glyph({box(100, 0, 1100, 1400)});
    const QByteArray narrow = glyph({box(300, 200, 700, 1000)});
    put32(loca, 0);
    for (int i = 0; i < numGlyphs; ++i) {
        glyf += i == 0 ? notdef : (codes[i - 1] % 2 == 0 ? wide : narrow);
        put32(loca, quint32(glyf.size()));
        put16(hmtx, 1200); // advanceWidth
        put16(hmtx, 100);  // lsb
    }

    // cmap: one format 4 subtable, a segment per run of consecutive codes.
    QList<QPair<char32_t, char32_t>> runs;
    for (char32_t c : codes) {
        if (!runs.isEmpty() && runs.last().second + 1 == c)
            runs.last().second = c;
        else
            runs.append({c, c});
    }
    runs.append({0xFFFF, 0xFFFF});
    const int segments = int(runs.size());
    QByteArray ends, starts, deltas, offsets;
    int glyphId = 1;
    for (const auto& [first, last] : runs) {
        put16(ends, quint16(last));
        put16(starts, quint16(first));
        put16(deltas, first == 0xFFFF ? 1 : quint16(glyphId - int(first)));
        put16(offsets, 0);
        glyphId += int(last - first + 1);
    }
    int power = 1, log = 0;
    while (power * 2 <= segments)
        power *= 2, ++log;
    QByteArray sub;
    put16(sub, 4);
    put16(sub, quint16(16 + 8 * segments)); // length
    put16(sub, 0);                          // language
    put16(sub, quint16(2 * segments));
    put16(sub, quint16(2 * power));
    put16(sub, quint16(log));
    put16(sub, quint16(2 * segments - 2 * power));
    sub += ends;
    put16(sub, 0); // reservedPad
    sub += starts + deltas + offsets;
    QByteArray cmap;
    put16(cmap, 0);
    put16(cmap, 1);
    put16(cmap, 3);
    put16(cmap, 1);
    put32(cmap, 12);
    cmap += sub;

    QByteArray headTable = head();
    set16(headTable, 18, 2048);           // unitsPerEm
    set16(headTable, 50, 1);              // indexToLocFormat: long
    QByteArray hhea;
    put32(hhea, 0x00010000);
    for (int v : {1600, -400, 200, 1200, 100, 100, 1100, 1, 0, 0, 0, 0, 0, 0, 0})
        put16(hhea, quint16(v)); // ascender .. metricDataFormat
    put16(hhea, quint16(numGlyphs)); // numberOfHMetrics
    QByteArray maxp;
    put32(maxp, 0x00010000);
    put16(maxp, quint16(numGlyphs));
    for (int v : {8, 2, 0, 0, 2, 0, 0, 0, 0, 0, 0, 0, 0})
        put16(maxp, quint16(v));
    QByteArray post;
    for (quint32 v : {0x00030000u, 0u})
        put32(post, v);
    put16(post, quint16(-100));
    put16(post, 50);
    for (int i = 0; i < 5; ++i)
        put32(post, 0);
    QByteArray os2Table = os2(0x40, 0);
    set16(os2Table, 64, quint16(codes.isEmpty() ? 0 : std::min<char32_t>(codes.first(), 0xFFFF)));
    set16(os2Table, 66, quint16(codes.isEmpty() ? 0 : std::min<char32_t>(codes.last(), 0xFFFF)));
    return font({{"OS/2", os2Table, {}}, {"cmap", cmap, {}}, {"glyf", glyf, {}}, {"head", headTable, {}},
                 {"hhea", hhea, {}}, {"hmtx", hmtx, {}}, {"loca", loca, {}}, {"maxp", maxp, {}},
                 {"name", name(familyNames(family)), {}}, {"post", post, {}}});
}

QByteArray readFile(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

bool writeFile(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly | QIODevice::Truncate) && file.write(bytes) == bytes.size();
}

} // namespace Sfnt
