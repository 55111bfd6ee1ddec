// Web font and collection writers for the tests.
#include "support/webfontwriter.h"

#include <QMap>
#include <algorithm>
#include <string>
#include <woff2/encode.h>
#include <zlib.h>

namespace WebFontWriter {

namespace {

void put16(QByteArray& out, quint32 value)
{
    out.append(char((value >> 8) & 0xFF)).append(char(value & 0xFF));
}

void put32(QByteArray& out, quint32 value)
{
    put16(out, value >> 16);
    put16(out, value & 0xFFFF);
}

quint32 get32(const QByteArray& data, qsizetype at)
{
    quint32 value = 0;
    for (int i = 0; i < 4; ++i)
        value = (value << 8) | quint8(data[at + i]);
    return value;
}

quint16 get16(const QByteArray& data, qsizetype at)
{
    return quint16((quint8(data[at]) << 8) | quint8(data[at + 1]));
}

struct Entry {
    QByteArray tag;
    quint32 checksum;
    QByteArray data;
    quint32 offset; // in the font
};

QList<Entry> entriesOf(const QByteArray& sfnt)
{
    QList<Entry> entries;
    for (int i = 0; i < get16(sfnt, 4); ++i) {
        const qsizetype at = 12 + 16 * i;
        entries.append({sfnt.mid(at, 4), get32(sfnt, at + 4), sfnt.mid(get32(sfnt, at + 8), get32(sfnt, at + 12)),
                        get32(sfnt, at + 8)});
    }
    return entries;
}

void pad(QByteArray& out)
{
    out.append((4 - out.size() % 4) % 4, '\0');
}

} // namespace

QByteArray woff(const QByteArray& sfnt, const WoffOptions& options)
{
    QList<Entry> entries = entriesOf(sfnt);
    std::sort(entries.begin(), entries.end(), [](const Entry& a, const Entry& b) { return a.tag < b.tag; });
    // Data in the order the font had it.
    QList<qsizetype> byOffset;
    for (qsizetype i = 0; i < entries.size(); ++i)
        byOffset.append(i);
    std::sort(byOffset.begin(), byOffset.end(), [&](qsizetype a, qsizetype b) { return entries[a].offset < entries[b].offset; });

    const qsizetype headerSize = 44 + 20 * entries.size();
    QByteArray data;
    QMap<qsizetype, QPair<quint32, quint32>> placed; // index -> offset, compLength
    quint32 total = 12 + 16 * quint32(entries.size());
    for (qsizetype i : byOffset) {
        const QByteArray& table = entries[i].data;
        QByteArray stored = table;
        if (options.compress) {
            uLongf length = compressBound(uLong(table.size()));
            QByteArray packed(qsizetype(length), '\0');
            if (compress2(reinterpret_cast<Bytef*>(packed.data()), &length, reinterpret_cast<const Bytef*>(table.constData()),
                          uLong(table.size()), 9) == Z_OK && qsizetype(length) < table.size())
                stored = packed.left(qsizetype(length));
        }
        placed.insert(i, {quint32(headerSize + data.size()), quint32(stored.size())});
        data.append(stored);
        pad(data);
        total += quint32((table.size() + 3) & ~3);
    }

    QByteArray out;
    out.append("wOFF");
    put32(out, get32(sfnt, 0)); // flavor
    put32(out, quint32(headerSize + data.size()));
    put16(out, quint32(entries.size()));
    put16(out, 0);
    put32(out, options.totalSfntSize.value_or(total));
    put16(out, 1);
    put16(out, 0);
    for (int i = 0; i < 5; ++i)
        put32(out, 0); // no metadata, no private data
    for (qsizetype i = 0; i < entries.size(); ++i) {
        out.append(entries[i].tag);
        put32(out, placed[i].first);
        put32(out, placed[i].second);
        put32(out, options.origLength.value_or(quint32(entries[i].data.size())));
        put32(out, entries[i].checksum);
    }
    return out + data;
}

QByteArray woff2(const QByteArray& sfnt)
{
    const auto* bytes = reinterpret_cast<const uint8_t*>(sfnt.constData());
    size_t length = woff2::MaxWOFF2CompressedSize(bytes, size_t(sfnt.size()));
    QByteArray out(qsizetype(length), '\0');
    woff2::WOFF2Params params;
    params.brotli_quality = 4; // the best quality takes seconds; tests need the format, not the last byte
    if (!woff2::ConvertTTFToWOFF2(bytes, size_t(sfnt.size()), reinterpret_cast<uint8_t*>(out.data()), &length, params))
        return QByteArray();
    out.truncate(qsizetype(length));
    return out;
}

QByteArray withWoff2TotalSize(QByteArray woff2, quint32 totalSfntSize)
{
    QByteArray field;
    put32(field, totalSfntSize);
    woff2.replace(16, 4, field); // totalSfntSize follows signature, flavor, length, numTables, reserved
    return woff2;
}

QByteArray collection(const QList<QByteArray>& fonts)
{
    QByteArray out;
    out.append("ttcf");
    put32(out, 0x00010000);
    put32(out, quint32(fonts.size()));
    QByteArray body;
    const qsizetype start = 12 + 4 * fonts.size();
    for (const QByteArray& font : fonts) {
        put32(out, quint32(start + body.size()));
        const QList<Entry> entries = entriesOf(font);
        const qsizetype faceStart = start + body.size();
        QByteArray face = font.left(12);
        qsizetype place = faceStart + 12 + 16 * entries.size();
        QByteArray tables;
        for (const Entry& entry : entries) {
            face.append(entry.tag);
            put32(face, entry.checksum);
            put32(face, quint32(place + tables.size()));
            put32(face, quint32(entry.data.size()));
            tables.append(entry.data);
            pad(tables);
        }
        body.append(face + tables);
        pad(body);
    }
    return out + body;
}

} // namespace WebFontWriter
