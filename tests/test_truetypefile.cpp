// The TrueType reader on hand-made files: names, decoding, style word, validity, the
// state kept between files, and a corpus of broken files.
#include "fontfile/bytereader.h"
#include "fontfile/truetypefile.h"
#include "support/craftedfonts.h"
#include "support/sfntwriter.h"
#include "support/testsupport.h"

#include <QTemporaryDir>

using namespace TrueType;

namespace {

std::span<const std::uint8_t> view(const QByteArray& bytes)
{
    return {reinterpret_cast<const std::uint8_t*>(bytes.constData()), std::size_t(bytes.size())};
}

ReadEnd readInto(const QByteArray& bytes, FontTables& tables)
{
    return readFontFile(view(bytes), tables);
}

QString nameOf(const FontTables& tables, int id, int language = 0x0409)
{
    return nameString(tables, id, language).value_or(QStringLiteral("<never read>"));
}

int endCode(ReadEnd end)
{
    return int(end);
}

QByteArray bytesOf(std::initializer_list<int> values)
{
    QByteArray out;
    for (int v : values)
        out.append(char(v));
    return out;
}

const QList<Sfnt::Name> frenchAndEnglish = {
    Sfnt::microsoft(1, QStringLiteral("Fontaine"), 0x0409),
    Sfnt::microsoft(1, QStringLiteral("Fontaine FR"), 0x040C),
    Sfnt::microsoft(2, QStringLiteral("Regular"), 0x0409),
    Sfnt::microsoft(2, QStringLiteral("Normal"), 0x040C),
    Sfnt::microsoft(4, QStringLiteral("Fontaine Regular"), 0x0409),
    Sfnt::microsoft(4, QStringLiteral("Fontaine Normal"), 0x040C),
};

} // namespace

class TestTrueTypeFile : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void byteReaderStaysInside()
    {
        const QByteArray data = bytesOf({0x12, 0x34, 0x56, 0x78, 0x9A});
        ByteReader reader(view(data));
        QCOMPARE(reader.u16().value(), quint16(0x1234));
        QCOMPARE(reader.i16().value(), qint16(0x5678));
        QVERIFY(!reader.u16()); // one byte left
        QCOMPARE(reader.position(), std::size_t(4));
        QCOMPARE(reader.u8().value(), quint8(0x9A));
        QVERIFY(!reader.u8());
        QVERIFY(reader.seek(0));
        QCOMPARE(reader.u32().value(), quint32(0x12345678));
        QVERIFY(reader.seek(5));
        QVERIFY(!reader.seek(6));
        QVERIFY(!reader.seek(-1));
        QCOMPARE(reader.position(), std::size_t(5));
        QVERIFY(reader.seek(1));
        QVERIFY(!reader.bytes(std::size_t(-1)));
        QVERIFY(!reader.skip(5));
        QCOMPARE(reader.bytes(4)->size(), std::size_t(4));
        QVERIFY(reader.seek(0));
        QCOMPARE(reader.i32().value(), qint32(0x12345678));
        const QByteArray negative = bytesOf({0xFF, 0xFF, 0xFF, 0xF0});
        ByteReader signedReader(view(negative));
        QCOMPARE(signedReader.i32().value(), -16);
    }

    void readsNamesStylesAndValidity()
    {
        const QByteArray file = Sfnt::simpleFont(Sfnt::familyNames(QStringLiteral("Essai")), 0x21);
        FontTables tables;
        QCOMPARE(endCode(readInto(file, tables)), endCode(ReadEnd::Complete));
        QVERIFY(tables.valid);
        QCOMPARE(tables.styleWord, qint16(0x21));
        QCOMPARE(nameOf(tables, 0), QStringLiteral("Copyright (c) Glyphora tests"));
        QCOMPARE(nameOf(tables, 1), QStringLiteral("Essai"));
        QCOMPARE(nameOf(tables, 2), QStringLiteral("Regular"));
        QCOMPARE(nameOf(tables, 3), QStringLiteral("Essai Regular test"));
        QCOMPARE(nameOf(tables, 4), QStringLiteral("Essai Regular"));
        QCOMPARE(nameOf(tables, 5), QStringLiteral("Version 1.0"));
        QCOMPARE(nameOf(tables, 6), QStringLiteral("Essai-Regular"));
        QCOMPARE(nameOf(tables, 7), QStringLiteral("Glyphora is a test mark"));
        QCOMPARE(nameOf(tables, 8), QString()); // no record with that ID
        QCOMPARE(tables.names->records.size(), 8);
    }

    void frenchSystemPicksFrenchNames()
    {
        FontTables tables;
        readInto(Sfnt::simpleFont(frenchAndEnglish), tables);
        QCOMPARE(nameOf(tables, 1, 0x040C), QStringLiteral("Fontaine FR"));
        QCOMPARE(nameOf(tables, 2, 0x040C), QStringLiteral("Normal"));
        QCOMPARE(nameOf(tables, 4, 0x040C), QStringLiteral("Fontaine Normal"));
        QCOMPARE(nameOf(tables, 1, 0x0409), QStringLiteral("Fontaine"));
        QCOMPARE(nameOf(tables, 4, 0x0409), QStringLiteral("Fontaine Regular"));
        // Any other language: the last Microsoft record of the ID.
        QCOMPARE(nameOf(tables, 1, 0x0407), QStringLiteral("Fontaine FR"));

        QList<Sfnt::Name> reversed(frenchAndEnglish.rbegin(), frenchAndEnglish.rend());
        FontTables other;
        readInto(Sfnt::simpleFont(reversed), other);
        QCOMPARE(nameOf(other, 1, 0x040C), QStringLiteral("Fontaine FR"));
        QCOMPARE(nameOf(other, 1, 0x0409), QStringLiteral("Fontaine"));
        QCOMPARE(nameOf(other, 1, 0x0407), QStringLiteral("Fontaine"));
    }

    void microsoftBeatsOtherPlatforms()
    {
        FontTables tables;
        readInto(Sfnt::simpleFont({Sfnt::macintosh(1, "Mac first"), Sfnt::microsoft(1, QStringLiteral("Windows")),
                                   Sfnt::macintosh(1, "Mac last"), Sfnt::macintosh(2, "Roman"),
                                   Sfnt::macintosh(2, "Second Mac")}),
                 tables);
        QCOMPARE(nameOf(tables, 1), QStringLiteral("Windows"));
        QCOMPARE(nameOf(tables, 2), QStringLiteral("Roman")); // first non-empty of another platform
    }

    void macintoshOnlyNamesAreAnsiText()
    {
        // Mac Roman bytes are not converted: 0x8E (é on a Macintosh) reads as Ž.
        FontTables tables;
        readInto(Sfnt::simpleFont({Sfnt::macintosh(1, "Caf\x8E Cr\xE8me"), Sfnt::macintosh(4, "\xA9 Caf\x8E")}), tables);
        QCOMPARE(nameOf(tables, 1), QStringLiteral("CafŽ Crème"));
        QCOMPARE(nameOf(tables, 4), QStringLiteral("© CafŽ"));
        QCOMPARE(nameOf(tables, 1, 0x040C), QStringLiteral("CafŽ Crème"));
    }

    void bigEndianShortcut()
    {
        QCOMPARE(decodeNameString(view(bytesOf({0x00, 0x41, 0x00, 0x72, 0x00, 0x69, 0x00, 0x61, 0x00, 0x6C}))),
                 QStringLiteral("Arial"));
        QCOMPARE(decodeNameString(view(bytesOf({0x00, 0xE9, 0x00, 0x74, 0x00, 0xE9}))), QStringLiteral("été"));
        // A first character of U+4E00 starts with a non-zero byte: kept as 8-bit text.
        QCOMPARE(decodeNameString(view(bytesOf({0x4E, 0x00, 0x00, 0x41}))),
                 QStringLiteral("N") + QChar(0) + QChar(0) + QStringLiteral("A"));
        // Past U+00FF the high byte of a character lands in the one before.
        QCOMPARE(decodeNameString(view(bytesOf({0x00, 0x41, 0x4E, 0x00}))), QString(QChar(0x4E41)) + QChar(0));
        // An odd trailing byte makes no character; a lone zero byte gives nothing.
        QCOMPARE(decodeNameString(view(bytesOf({0x00, 0x41, 0x00, 0x72, 0x00}))), QStringLiteral("Ar"));
        QCOMPARE(decodeNameString(view(bytesOf({0x00}))), QString());
        QCOMPARE(decodedLength(view(bytesOf({0x00}))), qsizetype(0));
        QCOMPARE(decodeNameString(view(bytesOf({0x80, 0x41}))), QStringLiteral("€A"));

        FontTables tables;
        readInto(Sfnt::simpleFont({Sfnt::microsoft(1, QString(QChar(0x4E00)) + QStringLiteral("A"))}), tables);
        QCOMPARE(nameOf(tables, 1), QStringLiteral("N") + QChar(0) + QChar(0) + QStringLiteral("A"));
    }

    void zeroLengthStringsAreEmpty()
    {
        // An empty Microsoft record outside the system language, then a Macintosh one.
        Sfnt::Name empty = Sfnt::microsoft(1, QString(), 0x0407);
        FontTables tables;
        readInto(Sfnt::simpleFont({empty, Sfnt::macintosh(1, "Later")}), tables);
        QCOMPARE(nameOf(tables, 1), QStringLiteral("Later"));
        readInto(Sfnt::simpleFont({Sfnt::macintosh(1, QByteArray()), Sfnt::macintosh(1, "Next")}), tables);
        QCOMPARE(nameOf(tables, 1), QStringLiteral("Next"));
        // In the system language the empty Microsoft string ends the search.
        readInto(Sfnt::simpleFont({Sfnt::microsoft(1, QString()), Sfnt::macintosh(1, "Later")}), tables);
        QCOMPARE(nameOf(tables, 1), QString());
        readInto(Sfnt::simpleFont({Sfnt::macintosh(1, "First"), empty}), tables);
        QCOMPARE(nameOf(tables, 1), QString()); // Microsoft overrides, even with nothing
        Sfnt::Name lone = Sfnt::microsoft(2, QString(), 0x0407);
        lone.bytes = bytesOf({0x00});
        readInto(Sfnt::simpleFont({lone, Sfnt::macintosh(2, "Mac")}), tables);
        QCOMPARE(nameOf(tables, 2), QStringLiteral("Mac"));
    }

    void wrongHeadMagic()
    {
        FontTables tables;
        const ReadEnd end = readInto(Sfnt::simpleFont(Sfnt::familyNames(QStringLiteral("Faux")), 0x21, 0x12345678), tables);
        QCOMPARE(endCode(end), endCode(ReadEnd::Complete));
        QVERIFY(!tables.valid);
        QVERIFY(!tables.names);
        QCOMPARE(tables.styleWord, qint16(0));
        QVERIFY(!nameString(tables, 1, 0x0409));
    }

    void stateIsNotResetBetweenFiles()
    {
        FontTables tables;
        readInto(Sfnt::simpleFont(Sfnt::familyNames(QStringLiteral("Premier")), 0x01), tables);

        // A valid file with no name and no OS/2 table keeps the earlier names and style.
        readInto(Sfnt::font({{"head", Sfnt::head(), {}}}), tables);
        QVERIFY(tables.valid);
        QCOMPARE(nameOf(tables, 1), QStringLiteral("Premier"));
        QCOMPARE(tables.styleWord, qint16(0x01));

        // With no head at all, the earlier valid flag stands and this file's tables are read.
        readInto(Sfnt::font({{"name", Sfnt::name({Sfnt::microsoft(1, QStringLiteral("Sans tête"))}), {}},
                             {"OS/2", Sfnt::os2(0x20), {}}}),
                 tables);
        QVERIFY(tables.valid);
        QCOMPARE(nameOf(tables, 1), QStringLiteral("Sans tête"));
        QCOMPARE(tables.styleWord, qint16(0x20));

        // A wrong magic clears the flag but nothing else.
        readInto(Sfnt::simpleFont(Sfnt::familyNames(QStringLiteral("Autre")), 0x02, 0), tables);
        QVERIFY(!tables.valid);
        QCOMPARE(nameOf(tables, 1), QStringLiteral("Sans tête"));
        // And then a headless file is not read.
        readInto(Sfnt::font({{"name", Sfnt::name({Sfnt::microsoft(1, QStringLiteral("Ignoré"))}), {}}}), tables);
        QCOMPARE(nameOf(tables, 1), QStringLiteral("Sans tête"));
    }

    void tableCounts()
    {
        const QByteArray good = Sfnt::simpleFont(Sfnt::familyNames(QStringLiteral("Comptes")));
        for (quint16 count : {quint16(0), quint16(0xFFFF), quint16(0x8000)}) {
            QByteArray file = good;
            file[4] = char(count >> 8);
            file[5] = char(count & 0xFF);
            FontTables tables;
            QCOMPARE(endCode(readInto(file, tables)), endCode(ReadEnd::BadTableCount));
            QVERIFY(!tables.valid);
            QVERIFY(!tables.names);
        }
        QByteArray tooMany = good;
        tooMany[4] = 0x7F;
        tooMany[5] = char(0xFF);
        FontTables tables;
        QCOMPARE(endCode(readInto(tooMany, tables)), endCode(ReadEnd::DirectoryOutside));
    }

    void offsetsPastTheEnd()
    {
        const QList<Sfnt::Name> names = Sfnt::familyNames(QStringLiteral("Loin"));
        FontTables tables;
        QCOMPARE(endCode(readInto(Sfnt::font({{"head", Sfnt::head(), 1 << 20}}), tables)), endCode(ReadEnd::HeadOutside));
        QCOMPARE(endCode(readInto(Sfnt::font({{"head", Sfnt::head(), qint64(0xFFFFFFF0)}}), tables)),
                 endCode(ReadEnd::HeadOutside));
        QVERIFY(!tables.valid);

        QCOMPARE(endCode(readInto(Sfnt::font({{"head", Sfnt::head(), {}}, {"name", Sfnt::name(names), 0x7FFFFFF0}}), tables)),
                 endCode(ReadEnd::NameHeaderOutside));
        QVERIFY(tables.valid);
        QVERIFY(!tables.names);
        QCOMPARE(endCode(readInto(Sfnt::font({{"head", Sfnt::head(), {}}, {"name", Sfnt::name(names), -4}}), tables)),
                 endCode(ReadEnd::NameHeaderOutside));

        QCOMPARE(endCode(readInto(Sfnt::font({{"head", Sfnt::head(), {}}, {"name", Sfnt::name(names), {}},
                                              {"OS/2", Sfnt::os2(0x20), 100000}}), tables)),
                 endCode(ReadEnd::OS2Outside));
        QCOMPARE(nameOf(tables, 1), QStringLiteral("Loin")); // read before the failure
        QCOMPARE(tables.styleWord, qint16(0));
    }

    void nameCounts()
    {
        const QList<Sfnt::Name> names = Sfnt::familyNames(QStringLiteral("Noms"));
        FontTables tables;
        readInto(Sfnt::simpleFont(Sfnt::familyNames(QStringLiteral("Avant"))), tables);
        for (qint16 count : {qint16(0), qint16(-1), qint16(-32768)}) {
            QByteArray file = Sfnt::font({{"head", Sfnt::head(), {}}, {"name", Sfnt::name(names, {count, {}}), {}}});
            QCOMPARE(endCode(readInto(file, tables)), endCode(ReadEnd::BadNameCount));
            QCOMPARE(nameOf(tables, 1), QStringLiteral("Avant"));
        }
        const QByteArray huge = Sfnt::font({{"head", Sfnt::head(), {}}, {"name", Sfnt::name(names, {qint16(32767), {}}), {}}});
        QCOMPARE(endCode(readInto(huge, tables)), endCode(ReadEnd::NameRecordsOutside));
        QCOMPARE(nameOf(tables, 1), QStringLiteral("Avant"));
    }

    void stringsOutsideTheFile()
    {
        QList<Sfnt::Name> names = Sfnt::familyNames(QStringLiteral("Fuite"));
        names[4].offset = 30000; // full name, past the end
        FontTables tables;
        QCOMPARE(endCode(readInto(Sfnt::simpleFont(names), tables)), endCode(ReadEnd::StringOutside));
        QCOMPARE(nameOf(tables, 1), QStringLiteral("Fuite"));     // before the bad record
        QCOMPARE(nameOf(tables, 4), QString());                   // the bad record
        QCOMPARE(nameOf(tables, 5), QString());                   // after it
        QCOMPARE(tables.names->records.size(), 8);

        names = Sfnt::familyNames(QStringLiteral("Négatif"));
        names[2].length = -2;
        QCOMPARE(endCode(readInto(Sfnt::simpleFont(names), tables)), endCode(ReadEnd::BadStringLength));
        QCOMPARE(nameOf(tables, 1), QStringLiteral("Négatif"));
        QCOMPARE(nameOf(tables, 2), QString());

        names = Sfnt::familyNames(QStringLiteral("Avant la table"));
        names[1].offset = -32768;
        const QByteArray file = Sfnt::font({{"head", Sfnt::head(), {}}, {"name", Sfnt::name(names, {{}, qint16(-32768)}), {}}});
        QCOMPARE(endCode(readInto(file, tables)), endCode(ReadEnd::StringOutside));
        QCOMPARE(nameOf(tables, 0), QString());
    }

    void oddLengthStrings()
    {
        Sfnt::Name odd = Sfnt::microsoft(1, QStringLiteral("Ar"));
        odd.bytes.append('\0');
        FontTables tables;
        QCOMPARE(endCode(readInto(Sfnt::simpleFont({odd}), tables)), endCode(ReadEnd::Complete));
        QCOMPARE(nameOf(tables, 1), QStringLiteral("Ar"));
    }

    void repeatedTables()
    {
        const QByteArray file = Sfnt::font({
            {"head", Sfnt::head(), {}},
            {"name", Sfnt::name({Sfnt::microsoft(1, QStringLiteral("Premier nom"))}), {}},
            {"OS/2", Sfnt::os2(0x01), {}},
            {"name", Sfnt::name({Sfnt::microsoft(1, QStringLiteral("Second nom"))}), {}},
            {"OS/2", Sfnt::os2(0x20), {}},
            {"head", Sfnt::head(0), {}},
        });
        FontTables tables;
        QCOMPARE(endCode(readInto(file, tables)), endCode(ReadEnd::Complete));
        QVERIFY(tables.valid); // the first head decides
        QCOMPARE(nameOf(tables, 1), QStringLiteral("Second nom"));
        QCOMPARE(tables.styleWord, qint16(0x20));

        const QByteArray badFirst = Sfnt::font({{"head", Sfnt::head(0), {}}, {"head", Sfnt::head(), {}},
                                                {"name", Sfnt::name({Sfnt::microsoft(1, QStringLiteral("X"))}), {}}});
        FontTables other;
        readInto(badFirst, other);
        QVERIFY(!other.valid);
        QVERIFY(!other.names);
    }

    void tagsAreExact()
    {
        const QByteArray file = Sfnt::font({{"HEAD", Sfnt::head(), {}}, {"head", Sfnt::head(), {}},
                                            {"Name", Sfnt::name({Sfnt::microsoft(1, QStringLiteral("Non"))}), {}},
                                            {"os/2", Sfnt::os2(0x20), {}}});
        FontTables tables;
        readInto(file, tables);
        QVERIFY(tables.valid);
        QVERIFY(!tables.names);
        QCOMPARE(tables.styleWord, qint16(0));
    }

    void truncatedAtEveryByte()
    {
        // head, name and OS/2 lie in that order; the read ends where the bytes run out.
        const QByteArray full = Sfnt::simpleFont(Sfnt::familyNames(QStringLiteral("Tronqué")), 0x21);
        const qint64 headAt = 12 + 16 * 3;
        const qint64 nameAt = headAt + 56;
        const QByteArray nameTable = Sfnt::tableOf(full, "name");
        const qint64 recordsEnd = nameAt + 6 + 12 * 8;
        const qint64 os2At = nameAt + nameTable.size() + (4 - nameTable.size() % 4) % 4;
        QVERIFY(Sfnt::tableBoundaries(full).contains(os2At));
        for (qint64 size = 0; size <= full.size(); ++size) {
            FontTables tables;
            const ReadEnd end = readInto(full.left(size), tables);
            ReadEnd expected = ReadEnd::Complete;
            if (size < 12) expected = ReadEnd::NoOffsetTable;
            else if (size < headAt) expected = ReadEnd::DirectoryOutside;
            else if (size < headAt + 54) expected = ReadEnd::HeadOutside;
            else if (size < nameAt + 6) expected = ReadEnd::NameHeaderOutside;
            else if (size < recordsEnd) expected = ReadEnd::NameRecordsOutside;
            else if (size < nameAt + nameTable.size()) expected = ReadEnd::StringOutside;
            else if (size < os2At + 64) expected = ReadEnd::OS2Outside;
            QCOMPARE(endCode(end), endCode(expected));
            QCOMPARE(tables.valid, size >= headAt + 54);
            QCOMPARE(bool(tables.names), size >= recordsEnd);
            QCOMPARE(tables.styleWord, qint16(size >= os2At + 64 ? 0x21 : 0));
            if (size >= nameAt + nameTable.size())
                QCOMPARE(nameOf(tables, 7), QStringLiteral("Glyphora is a test mark"));
            else if (tables.names)
                QCOMPARE(nameOf(tables, 7), QString());
        }
    }

    void overlappingStringsStaySmall()
    {
        // 2000 records all naming the same 30000 bytes: nothing is copied per record.
        QList<Sfnt::Name> names;
        Sfnt::Name big = Sfnt::macintosh(1, QByteArray(30000, 'x'));
        names.append(big);
        for (int i = 1; i < 2000; ++i) {
            Sfnt::Name again = big;
            again.bytes.clear();
            again.length = 30000;
            again.offset = i % 7;
            again.nameId = i % 8;
            names.append(again);
        }
        FontTables tables;
        QCOMPARE(endCode(readInto(Sfnt::simpleFont(names), tables)), endCode(ReadEnd::Complete));
        QVERIFY(tables.names->store.size() <= 30010);
        QCOMPARE(nameOf(tables, 1).size(), 30000);
    }

    void readsFromDisk()
    {
        QTemporaryDir dir;
        const QString good = dir.filePath(QStringLiteral("bon.ttf"));
        const QString empty = dir.filePath(QStringLiteral("vide.ttf"));
        QVERIFY(Sfnt::writeFile(good, Sfnt::simpleFont(Sfnt::familyNames(QStringLiteral("Disque")), 0x20)));
        QVERIFY(Sfnt::writeFile(empty, QByteArray()));
        FontTables tables;
        QCOMPARE(endCode(readFontFile(good, tables)), endCode(ReadEnd::Complete));
        QCOMPARE(nameOf(tables, 1), QStringLiteral("Disque"));
        QCOMPARE(endCode(readFontFile(empty, tables)), endCode(ReadEnd::NoOffsetTable));
        QCOMPARE(endCode(readFontFile(dir.filePath(QStringLiteral("absent.ttf")), tables)), endCode(ReadEnd::CannotOpen));
        QCOMPARE(nameOf(tables, 1), QStringLiteral("Disque"));
        QVERIFY(tables.valid);
    }

    void entriesPointingAtOneTableReadItOnce()
    {
        // The 917 KB file: 32,765 name entries, one name table of 32,767 records.
        const QByteArray file = CraftedFonts::nameAmplifier();
        QCOMPARE(file.size(), 917546);
        QTemporaryDir dir;
        const QString path = dir.filePath(QStringLiteral("ampli.ttf"));
        QVERIFY(Sfnt::writeFile(path, file));
        for (bool fromDisk : {false, true}) {
            FontTables tables;
            const ReadEnd end = fromDisk ? readFontFile(path, tables) : readInto(file, tables);
            QCOMPARE(endCode(end), endCode(ReadEnd::Complete));
            QVERIFY(tables.valid);
            QCOMPARE(tables.names->records.size(), 32767);
            QCOMPARE(nameOf(tables, 1), QStringLiteral("Ampli"));
            QCOMPARE(nameOf(tables, 1, 0x040C), QStringLiteral("Ampli"));
        }
    }

    void aRepeatedOffsetStillMakesTheLastEntryWin()
    {
        // name A, name B, then A again: A is the last one read, though not parsed twice.
        QByteArray file = Sfnt::font({
            {"head", Sfnt::head(), {}},
            {"name", Sfnt::name({Sfnt::microsoft(1, QStringLiteral("Nom A"))}), {}},
            {"OS/2", Sfnt::os2(0x01), {}},
            {"name", Sfnt::name({Sfnt::microsoft(1, QStringLiteral("Nom B"))}), {}},
            {"OS/2", Sfnt::os2(0x20), {}},
            {"name", Sfnt::name({Sfnt::microsoft(1, QStringLiteral("Nom C"))}), {}},
            {"OS/2", Sfnt::os2(0x10), {}},
        });
        // The last name and OS/2 entries are pointed back at the first ones.
        file.replace(12 + 16 * 5 + 8, 4, file.mid(12 + 16 * 1 + 8, 4));
        file.replace(12 + 16 * 6 + 8, 4, file.mid(12 + 16 * 2 + 8, 4));
        FontTables tables;
        QCOMPARE(endCode(readInto(file, tables)), endCode(ReadEnd::Complete));
        QCOMPARE(nameOf(tables, 1), QStringLiteral("Nom A"));
        QCOMPARE(tables.styleWord, qint16(0x01));
    }

    void tooManyNameRecordsEndTheRead()
    {
        // Three distinct tables of 30,000 records: the third goes past 65,536 records.
        const QByteArray file = CraftedFonts::nameAmplifier(5, 30000, 3);
        FontTables tables;
        QCOMPARE(endCode(readInto(file, tables)), endCode(ReadEnd::WorkCapReached));
        QVERIFY(tables.valid);
        QCOMPARE(tables.names->records.size(), 30000); // the second table stays
        // Two such tables are within the limits.
        FontTables two;
        QCOMPARE(endCode(readInto(CraftedFonts::nameAmplifier(2, 30000, 2), two)), endCode(ReadEnd::Complete));
    }

    void tooManyStringBytesEndTheRead()
    {
        // Forty name tables, each with one string of 30,000 bytes: 1.2 MB to copy.
        QList<Sfnt::Table> list{{"head", Sfnt::head(), {}}};
        for (int i = 0; i < 40; ++i)
            list.append({"name", Sfnt::name({Sfnt::macintosh(1, QByteArray(30000, char('a' + i % 26)))}), {}});
        FontTables tables;
        QCOMPARE(endCode(readInto(Sfnt::font(list), tables)), endCode(ReadEnd::WorkCapReached));
        const int read = int((readLimits.stringBytes) / 30000); // tables whose strings fit
        QCOMPARE(nameOf(tables, 1), QString(30000, QChar(u'a' + (read - 1) % 26)));
    }

    void tooManyTablesEndTheRead()
    {
        // More OS/2 tables at distinct offsets than a file may make the reader read.
        QList<Sfnt::Table> list{{"head", Sfnt::head(), {}}};
        for (int i = 0; i < readLimits.tables + 10; ++i)
            list.append({"OS/2", Sfnt::os2(quint16(i)), {}});
        FontTables tables;
        QCOMPARE(endCode(readInto(Sfnt::font(list), tables)), endCode(ReadEnd::WorkCapReached));
        QCOMPARE(tables.styleWord, qint16(readLimits.tables - 1));
    }

    void bitsOfTheStyleWord()
    {
        QVERIFY(isBitSet(0x21, 0));
        QVERIFY(isBitSet(0x21, 5));
        QVERIFY(!isBitSet(0x21, 1));
        QVERIFY(isBitSet(qint16(0x8000), 15));
        QVERIFY(!isBitSet(-1, 16));
        QVERIFY(!isBitSet(-1, -1));
    }
};

GLYPHORA_TEST_MAIN(TestTrueTypeFile)
#include "test_truetypefile.moc"
