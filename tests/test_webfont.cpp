// Web fonts unpacked in memory: format signatures, WOFF made here with zlib and WOFF2
// with libwoff's encoder, each turned back into the font's tables; truncated, corrupt
// and oversized files refused with a French reason.
#include "fontfile/truetypefile.h"
#include "fontfile/webfont.h"
#include "support/sfntwriter.h"
#include "support/testsupport.h"
#include "support/webfontwriter.h"

#include <QTemporaryDir>

using WebFont::Format;
using WebFont::Status;

namespace {

std::span<const std::uint8_t> view(const QByteArray& bytes)
{
    return {reinterpret_cast<const std::uint8_t*>(bytes.constData()), std::size_t(bytes.size())};
}

QByteArray testFont()
{
    static const QByteArray font = Sfnt::drawable(Sfnt::familyNames(QStringLiteral("Glyphora Web")));
    return font;
}

// Encoding at brotli's best quality takes seconds: once per run.
QByteArray testWoff2()
{
    static const QByteArray woff2 = WebFontWriter::woff2(testFont());
    return woff2;
}

QList<QByteArray> tagsOf(const QByteArray& sfnt)
{
    QList<QByteArray> tags;
    const int count = (quint8(sfnt[4]) << 8) | quint8(sfnt[5]);
    for (int i = 0; i < count; ++i)
        tags.append(sfnt.mid(12 + 16 * i, 4));
    std::sort(tags.begin(), tags.end());
    return tags;
}

QString familyOf(const QByteArray& sfnt)
{
    TrueType::FontTables tables;
    TrueType::readFontFile(view(sfnt), tables);
    return TrueType::nameString(tables, 1, 0x0409).value_or(QString());
}

} // namespace

class TestWebFont : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void formatsByTheirFirstBytes()
    {
        const QList<QPair<QByteArray, Format>> cases = {
            {QByteArray("\x00\x01\x00\x00", 4), Format::TrueType}, {"true", Format::TrueType},
            {"OTTO", Format::OpenType}, {"ttcf", Format::Collection}, {"wOFF", Format::Woff},
            {"wOF2", Format::Woff2}, {"WOFF", Format::Unknown}, {"%!PS", Format::Unknown}, {"wOF", Format::Unknown},
            {QByteArray(), Format::Unknown},
        };
        for (const auto& [head, format] : cases)
            QCOMPARE(WebFont::detect(view(head + QByteArray(8, 'x').left(head.size() >= 4 ? 8 : 0))), format);
        QVERIFY(WebFont::isWebFont(Format::Woff) && WebFont::isWebFont(Format::Woff2));
        QVERIFY(!WebFont::isWebFont(Format::Collection));
        QVERIFY(WebFont::isFont(Format::OpenType) && !WebFont::isFont(Format::Unknown));
    }

    void woffGivesTheFontsTablesBack()
    {
        for (bool compress : {true, false}) {
            const QByteArray woff = WebFontWriter::woff(testFont(), {.compress = compress});
            QCOMPARE(WebFont::detect(view(woff)), Format::Woff);
            if (compress)
                QVERIFY(woff.size() < testFont().size() * 3 / 4);
            const WebFont::Decoded result = WebFont::decode(woff);
            QCOMPARE(result.status, Status::Decoded);
            QCOMPARE(result.format, Format::Woff);
            QCOMPARE(result.sfnt.left(4), testFont().left(4)); // the flavor
            QCOMPARE(tagsOf(result.sfnt), tagsOf(testFont()));
            for (const QByteArray& tag : tagsOf(testFont()))
                QCOMPARE(Sfnt::tableOf(result.sfnt, tag), Sfnt::tableOf(testFont(), tag));
            QCOMPARE(qint64(result.declaredSize), qint64(result.sfnt.size()));
            QCOMPARE(familyOf(result.sfnt), QStringLiteral("Glyphora Web"));
            QVERIFY(WebFont::refusal(result, QStringLiteral("x.woff")).isEmpty());
        }
    }

    void woffBinarySearchFields()
    {
        const QByteArray sfnt = WebFont::decode(WebFontWriter::woff(testFont())).sfnt;
        const int tables = (quint8(sfnt[4]) << 8) | quint8(sfnt[5]);
        int power = 1;
        while (power * 2 <= tables)
            power *= 2;
        QCOMPARE((quint8(sfnt[6]) << 8) | quint8(sfnt[7]), power * 16);
        QCOMPARE((quint8(sfnt[10]) << 8) | quint8(sfnt[11]), tables * 16 - power * 16);
    }

    void woffDeclaringAHugeSizeIsRefusedUnread()
    {
        const QByteArray bomb = WebFontWriter::woff(testFont(), {.totalSfntSize = 0xFFFFFFF0u});
        const WebFont::Decoded result = WebFont::decode(bomb);
        QCOMPARE(result.status, Status::TooLarge);
        QCOMPARE(result.declaredSize, quint64(0xFFFFFFF0u));
        QVERIFY(result.sfnt.isEmpty());
        QCOMPARE(WebFont::refusal(result, QStringLiteral("bombe.woff")),
                 QStringLiteral("La police web « bombe.woff » est refusée : décompressée, elle ferait 4096,0 Mo, "
                                "au-delà de la limite de 64 Mo."));
    }

    void woffTablesAddingUpPastTheLimitAreRefused()
    {
        // Every table claims 40 MB: the sum passes 64 MB whatever the header says.
        const QByteArray bomb = WebFontWriter::woff(testFont(), {.totalSfntSize = 1000, .origLength = 40u << 20});
        const WebFont::Decoded result = WebFont::decode(bomb);
        QCOMPARE(result.status, Status::TooLarge);
        QCOMPARE(WebFont::refusal(result, QStringLiteral("b.woff")),
                 QStringLiteral("La police web « b.woff » est refusée : décompressée, elle dépasserait la limite de 64 Mo."));
        // Within a smaller limit, a real font is refused the same way.
        QCOMPARE(WebFont::decode(WebFontWriter::woff(testFont()), 4096).status, Status::TooLarge);
    }

    void woffWithWrongLengthsOrDataIsMalformed()
    {
        // A table that claims more bytes than it inflates to.
        QCOMPARE(WebFont::decode(WebFontWriter::woff(testFont(), {.origLength = 1u << 20})).status, Status::Malformed);
        // Corrupt compressed data.
        QByteArray corrupt = WebFontWriter::woff(testFont());
        for (qsizetype i = corrupt.size() / 2; i < corrupt.size() / 2 + 64; ++i)
            corrupt[i] = char(corrupt[i] ^ 0x5A);
        QCOMPARE(WebFont::decode(corrupt).status, Status::Malformed);
        const WebFont::Decoded broken = WebFont::decode(corrupt);
        QCOMPARE(WebFont::refusal(broken, QStringLiteral("c.woff")),
                 QStringLiteral("La police web « c.woff » est illisible : le fichier WOFF est tronqué ou abîmé."));
        // No table at all.
        QByteArray empty = WebFontWriter::woff(testFont()).left(44);
        empty[12] = 0;
        empty[13] = 0;
        QCOMPARE(WebFont::decode(empty).status, Status::Malformed);
    }

    void truncatedWoffAtManyPlaces()
    {
        const QByteArray woff = WebFontWriter::woff(testFont());
        for (qsizetype length = 0; length < woff.size(); length += std::max<qsizetype>(1, length / 7)) {
            const WebFont::Decoded result = WebFont::decode(woff.left(length));
            QVERIFY2(result.status == Status::Malformed || (length < 4 && result.status == Status::NotWebFont),
                     qPrintable(QString::number(length)));
            QVERIFY(result.sfnt.isEmpty());
        }
    }

    void woff2GivesTheFontBack()
    {
        const QByteArray woff2 = testWoff2();
        QVERIFY(!woff2.isEmpty());
        QCOMPARE(WebFont::detect(view(woff2)), Format::Woff2);
        QVERIFY(woff2.size() < testFont().size() / 2);
        const WebFont::Decoded result = WebFont::decode(woff2);
        QCOMPARE(result.status, Status::Decoded);
        QCOMPARE(result.format, Format::Woff2);
        // glyf and loca are rebuilt by the decoder; the other tables come back as they were.
        QCOMPARE(tagsOf(result.sfnt), tagsOf(testFont()));
        for (const char* tag : {"name", "OS/2", "cmap", "post", "hhea"})
            QCOMPARE(Sfnt::tableOf(result.sfnt, tag), Sfnt::tableOf(testFont(), tag));
        QCOMPARE(familyOf(result.sfnt), QStringLiteral("Glyphora Web"));
    }

    void truncatedWoff2IsMalformed()
    {
        const QByteArray woff2 = testWoff2();
        for (qsizetype length : {qsizetype(4), qsizetype(20), qsizetype(47), qsizetype(100), woff2.size() / 2, woff2.size() - 1}) {
            const WebFont::Decoded result = WebFont::decode(woff2.left(length));
            QVERIFY2(result.status == Status::Malformed, qPrintable(QString::number(length)));
            QVERIFY(result.sfnt.isEmpty());
        }
        QCOMPARE(WebFont::refusal(WebFont::decode(woff2.left(100)), QStringLiteral("t.woff2")),
                 QStringLiteral("La police web « t.woff2 » est illisible : le fichier WOFF2 est tronqué ou abîmé."));
    }

    void woff2DeclaringAHugeSizeIsRefused()
    {
        const QByteArray bomb = WebFontWriter::withWoff2TotalSize(testWoff2(), 3u << 30);
        const WebFont::Decoded result = WebFont::decode(bomb);
        QCOMPARE(result.status, Status::TooLarge);
        QCOMPARE(result.declaredSize, quint64(3u << 30));
        QVERIFY(WebFont::refusal(result, QStringLiteral("b.woff2")).contains(QStringLiteral("3072,0 Mo")));
    }

    void woff2UnpackingPastTheLimitIsStopped()
    {
        // The header understates the size: the output stops at the limit.
        const QByteArray lying = WebFontWriter::withWoff2TotalSize(testWoff2(), 1000);
        QCOMPARE(WebFont::decode(lying, 64 * 1024).status, Status::TooLarge);
        // With room enough, libwoff copes with the wrong total.
        QCOMPARE(WebFont::decode(lying).status, Status::Decoded);
    }

    void filesAreKnownByTheirBytesNotTheirNames()
    {
        QTemporaryDir dir;
        const QString disguised = dir.filePath(QStringLiteral("vraie.ttf"));
        QVERIFY(Sfnt::writeFile(disguised, WebFontWriter::woff(testFont())));
        QCOMPARE(WebFont::detectFile(disguised), Format::Woff);
        const WebFont::Decoded result = WebFont::decodeFile(disguised);
        QCOMPARE(result.status, Status::Decoded);
        QCOMPARE(familyOf(result.sfnt), QStringLiteral("Glyphora Web"));

        const QString plain = dir.filePath(QStringLiteral("plain.woff2"));
        QVERIFY(Sfnt::writeFile(plain, testFont()));
        QCOMPARE(WebFont::decodeFile(plain).status, Status::NotWebFont);
        QCOMPARE(WebFont::decodeFile(plain).format, Format::TrueType);
        QCOMPARE(WebFont::decodeFile(dir.filePath(QStringLiteral("absent.woff"))).format, Format::Unknown);
        QCOMPARE(WebFont::detectFile(dir.path()), Format::Unknown);
    }

    void aWebFontFileLargerThanTheLimitIsNotRead()
    {
        QTemporaryDir dir;
        const QString path = dir.filePath(QStringLiteral("enorme.woff"));
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(WebFontWriter::woff(testFont()).left(44));
        QVERIFY(file.resize(WebFont::maxSfntSize + 1)); // sparse: costs no disk
        file.close();
        const WebFont::Decoded result = WebFont::decodeFile(path);
        QCOMPARE(result.status, Status::TooLarge);
        QVERIFY(result.sfnt.isEmpty());
    }

    void installedWebFontsDecode()
    {
        for (const QString& path : {QStringLiteral("/usr/share/fonts/woff/dejavu/DejaVuSans.woff"),
                                    QStringLiteral("/usr/share/fonts/woff2/dejavu/DejaVuSans.woff2")}) {
            if (!QFile::exists(path))
                QSKIP("fonts-dejavu-web is not installed");
            const WebFont::Decoded result = WebFont::decodeFile(path);
            QCOMPARE(result.status, Status::Decoded);
            QCOMPARE(familyOf(result.sfnt), QStringLiteral("DejaVu Sans"));
        }
    }

    void suffixFollowsTheOutlines()
    {
        QCOMPARE(WebFont::sfntSuffix(testFont()), QStringLiteral(".ttf"));
        QByteArray cff = testFont();
        cff.replace(0, 4, "OTTO");
        QCOMPARE(WebFont::sfntSuffix(cff), QStringLiteral(".otf"));
    }
};

GLYPHORA_TEST_MAIN(TestWebFont)
#include "test_webfont.moc"
