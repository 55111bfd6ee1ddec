// Hostile TrueType files made in memory, shared by the tests, the benchmarks and the
// fuzz seeds: each one is built to make a careless reader do far more work than its
// size suggests. Header-only and Qt Core only.
#pragma once

#include <QByteArray>
#include <QtGlobal>

namespace CraftedFonts {

inline void put16(QByteArray& out, quint16 value)
{
    out.append(char(value >> 8)).append(char(value & 0xFF));
}

inline void put32(QByteArray& out, quint32 value)
{
    put16(out, quint16(value >> 16));
    put16(out, quint16(value & 0xFFFF));
}

// The family name every record of the amplifying name tables carries.
inline constexpr char amplifiedFamily[] = "Ampli";

// A head table followed by `tables` copies of one name table of `records` records,
// each naming the family "Ampli" (nameID 1, Microsoft, English), the string stored
// once before the first table. After the head entry, `entries` directory entries
// point at the name tables in turn.
//
// The default is the 917 KB file of 32,766 entries (one head, 32,765 name entries)
// that all point at one name table of 32,767 records.
inline QByteArray nameAmplifier(int entries = 32765, int records = 32767, int tables = 1)
{
    const int numTables = entries + 1;
    const quint32 headOffset = 12 + 16 * quint32(numTables);
    const quint32 storageOffset = headOffset + 56; // head is 54 bytes, padded to 4
    const quint32 firstName = storageOffset + 12;  // "Ampli" in 16-bit text, padded
    const quint32 tableSize = 6 + 12 * quint32(records);
    QByteArray file;
    put32(file, 0x00010000);
    put16(file, quint16(numTables));
    put16(file, 0);
    put16(file, 0);
    put16(file, 0);
    file += QByteArray("head") + QByteArray(4, '\0');
    put32(file, headOffset);
    put32(file, 54);
    for (int i = 0; i < entries; ++i) {
        file += QByteArray("name") + QByteArray(4, '\0');
        put32(file, firstName + quint32(i % tables) * tableSize);
        put32(file, tableSize);
    }
    QByteArray head;
    put32(head, 0x00010000); // version
    put32(head, 0x00010000); // fontRevision
    put32(head, 0);          // checkSumAdjustment
    put32(head, 0x5F0F3CF5); // magicNumber
    head.resize(56, '\0');
    file += head;
    QByteArray storage;
    for (char c : QByteArray(amplifiedFamily))
        storage.append('\0').append(c);
    storage.resize(12, '\0');
    file += storage;
    for (int t = 0; t < tables; ++t) {
        // The strings lie before the table: a negative stringOffset reaches them.
        const qint64 stringOffset = qint64(storageOffset) - qint64(firstName + quint32(t) * tableSize);
        QByteArray table;
        put16(table, 0);
        put16(table, quint16(records));
        put16(table, quint16(qint16(qMax<qint64>(stringOffset, -32768))));
        for (int r = 0; r < records; ++r) {
            put16(table, 3);      // platformID: Microsoft
            put16(table, 1);      // encodingID
            put16(table, 0x0409); // languageID
            put16(table, 1);      // nameID: family
            put16(table, 10);     // length of "Ampli" in 16-bit text
            put16(table, 0);      // offset in the storage
        }
        file += table;
    }
    return file;
}

} // namespace CraftedFonts
