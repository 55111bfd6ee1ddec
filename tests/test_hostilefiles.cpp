// Files chosen by the user that are not what they claim: a named pipe, a link to
// /dev/zero, a folder and a dangling link, each as a picture and as a font; pictures
// whose declared size would exhaust memory; a font file built to make its reader work.
// Each is refused (or read within its limits) with the French message of its command.
#include "app/debut.h"
#include "app/tglyphora.h"
#include "components/boundedfile.h"
#include "fontfile/cfontpreview.h"
#include "fontfile/ffontpreview.h"
#include "fontfile/filelists.h"
#include "fontfile/fname.h"
#include "fontfile/fontsystem.h"
#include "fontfile/previewtext.h"
#include "output/userfonts.h"
#include "samples/ftstimg.h"
#include "samples/picturefile.h"
#include "samples/wmfdecoder.h"
#include "support/craftedfonts.h"
#include "support/sampledriver.h"
#include "support/sfntwriter.h"
#include "support/testpictures.h"
#include "support/testsupport.h"

#include <QBuffer>
#include <QElapsedTimer>
#include <QLabel>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTreeWidget>
#include <QtEndian>
#include <sys/stat.h>
#include <zlib.h>

namespace {

// The four kinds of path that are no regular file, made under `dir` with `suffix`.
struct Oddities {
    QString fifo, zeroLink, folder, dangling;
    QStringList all() const { return {fifo, zeroLink, folder, dangling}; }
};

Oddities makeOddities(const QString& dir, const QString& suffix)
{
    Oddities o{dir + QStringLiteral("/tube") + suffix, dir + QStringLiteral("/zero") + suffix,
               dir + QStringLiteral("/dossier") + suffix, dir + QStringLiteral("/perdu") + suffix};
    ::mkfifo(QFile::encodeName(o.fifo).constData(), 0600);
    QFile::link(QStringLiteral("/dev/zero"), o.zeroLink);
    QDir().mkpath(o.folder);
    QFile::link(dir + QStringLiteral("/nulle-part"), o.dangling);
    return o;
}

void appendChunk(QByteArray& png, const char* type, const QByteArray& data)
{
    QByteArray length(4, '\0');
    qToBigEndian<quint32>(quint32(data.size()), length.data());
    const QByteArray body = QByteArray(type, 4) + data;
    QByteArray crc(4, '\0');
    qToBigEndian<quint32>(quint32(crc32(0, reinterpret_cast<const Bytef*>(body.constData()), uInt(body.size()))), crc.data());
    png += length + body + crc;
}

// A PNG of width x height grey pixels, all zero: a few kilobytes that inflate to
// width x height bytes.
QByteArray pngBomb(int width, int height)
{
    QByteArray png("\x89PNG\r\n\x1a\n", 8);
    QByteArray header(13, '\0');
    qToBigEndian<quint32>(quint32(width), header.data());
    qToBigEndian<quint32>(quint32(height), header.data() + 4);
    header[8] = 8; // bit depth; colour type 0 (grey), no interlace
    appendChunk(png, "IHDR", header);
    z_stream stream{};
    deflateInit(&stream, 9);
    QByteArray compressed;
    const QByteArray row(width + 1, '\0'); // a filter byte, then the row
    char out[65536];
    for (int y = 0; y <= height; ++y) {
        const bool last = y == height;
        stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(row.constData()));
        stream.avail_in = last ? 0 : uInt(row.size());
        do {
            stream.next_out = reinterpret_cast<Bytef*>(out);
            stream.avail_out = sizeof out;
            deflate(&stream, last ? Z_FINISH : Z_NO_FLUSH);
            compressed.append(out, qsizetype(sizeof out - stream.avail_out));
        } while (stream.avail_out == 0);
    }
    deflateEnd(&stream);
    appendChunk(png, "IDAT", compressed);
    appendChunk(png, "IEND", QByteArray());
    return png;
}

// A one-pixel BMP whose header is patched to declare another size.
QByteArray bmpDeclaring(int width, int height)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QImage(1, 1, QImage::Format_RGB32).save(&buffer, "BMP");
    qToLittleEndian<qint32>(width, bytes.data() + 18);
    qToLittleEndian<qint32>(height, bytes.data() + 22);
    return bytes;
}

// A placeable metafile of `count` records that only set the background mode.
QByteArray wmfOfRecords(int count)
{
    QByteArray wmf = TestPictures::wmfFilled(10, 10, qRgb(0, 0, 0));
    wmf.chop(6); // the end record
    const char record[] = {4, 0, 0, 0, 0x02, 0x01, 1, 0}; // SETBKMODE, 4 words
    for (int i = 0; i < count; ++i)
        wmf.append(record, sizeof record);
    return wmf + QByteArray("\x03\x00\x00\x00\x00\x00", 6);
}

} // namespace

class TestHostileFiles : public QObject {
    Q_OBJECT
private:
    QTemporaryDir m_dir;
    tglyphora* m_main = nullptr;

    QString path(const QString& name) const { return m_dir.filePath(name); }

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY(m_dir.isValid());
        m_main = new tglyphora;
        m_main->show();
    }

    void cleanupTestCase() { delete m_main; }

    void boundedReadsTellWhatTheyFound()
    {
        const Oddities odd = makeOddities(m_dir.path(), QStringLiteral(".bin"));
        for (const QString& p : {odd.fifo, odd.zeroLink, odd.folder})
            QCOMPARE(int(BoundedFile::read(p, 1024).outcome), int(BoundedFile::Outcome::NotRegular));
        QCOMPARE(int(BoundedFile::read(odd.dangling, 1024).outcome), int(BoundedFile::Outcome::Missing));
        QVERIFY(Sfnt::writeFile(path(QStringLiteral("dix.bin")), QByteArray(10, 'x')));
        QCOMPARE(BoundedFile::read(path(QStringLiteral("dix.bin")), 10).bytes, QByteArray(10, 'x'));
        QCOMPARE(int(BoundedFile::read(path(QStringLiteral("dix.bin")), 9).outcome), int(BoundedFile::Outcome::TooLarge));
        // A file whose size says 0 but that holds more is still read only up to the limit.
        QCOMPARE(int(BoundedFile::read(QStringLiteral("/proc/self/status"), 16).outcome),
                 int(BoundedFile::Outcome::TooLarge));
        QVERIFY(BoundedFile::read(QStringLiteral("/proc/self/status"), 1 << 20).bytes.startsWith("Name:"));
    }

    void oddPathsAsPicturesAreReported()
    {
        const Oddities odd = makeOddities(m_dir.path(), QStringLiteral(".gif"));
        for (const QString& p : odd.all()) {
            SampleDriver::MessageCatcher messages;
            QElapsedTimer clock;
            clock.start();
            QVERIFY(FtstImg::ReadPicture(m_main, p).isNull());
            QCOMPARE(messages.texts, QStringList{PictureFile::ErrorText(p)});
            QVERIFY2(clock.elapsed() < 5000, qPrintable(p)); // no read to the end of /dev/zero
        }
    }

    void thePictureCommandReportsAPipeAndADevice()
    {
        const Oddities odd = makeOddities(m_dir.path(), QStringLiteral("-commande.gif"));
        m_main->List1->setCurrentItem(m_main->List1->topLevelItem(0));
        for (const QString& p : {odd.fifo, odd.zeroLink}) {
            SampleDriver::chooseFile(p);
            SampleDriver::MessageCatcher messages;
            m_main->mimgfond_Click();
            QCOMPARE(messages.texts, QStringList{PictureFile::ErrorText(p)});
            QVERIFY(!m_main->findChild<FtstImg*>());
        }
    }

    void picturesTooLargeToDecodeAreRefused()
    {
        // 80 bytes of metafile declaring 8000 x 8000 pixels.
        const QByteArray wmf = TestPictures::wmfWithFrame(8000, 8000);
        QVERIFY(wmf.size() < 200);
        QVERIFY(WmfDecoder::Decode(wmf).isNull());
        // A PNG of 8000 x 6000 grey pixels: 48 megapixels in about 50 KB.
        const QByteArray png = pngBomb(8000, 6000);
        QVERIFY(png.size() < 200 * 1024);
        const QByteArray bmp = bmpDeclaring(30000, 30000);
        for (const auto& [name, bytes] : {std::pair{QStringLiteral("grand.wmf"), wmf},
                                          std::pair{QStringLiteral("bombe.png"), png},
                                          std::pair{QStringLiteral("grand.bmp"), bmp}}) {
            const QString file = TestPictures::write(m_dir.path(), name, bytes);
            SampleDriver::MessageCatcher messages;
            QVERIFY(FtstImg::ReadPicture(m_main, file).isNull());
            QCOMPARE(messages.texts, QStringList{PictureFile::ErrorText(file)});
        }
        // Just under the limits both still load.
        QCOMPARE(PictureFile::Decode(pngBomb(8000, 5000)).size(), QSize(8000, 5000));
        QCOMPARE(WmfDecoder::Decode(TestPictures::wmfWithFrame(4000, 3000)).size(), QSize(4000, 3000));
    }

    void metafilesOfTooManyRecordsAreRefused()
    {
        QCOMPARE(WmfDecoder::RecordCount(wmfOfRecords(10)), 10 + WmfDecoder::RecordCount(wmfOfRecords(0)));
        QVERIFY(!WmfDecoder::Decode(wmfOfRecords(1000)).isNull());
        QVERIFY(WmfDecoder::RecordCount(wmfOfRecords(int(WmfDecoder::MaximumRecords))) > WmfDecoder::MaximumRecords);
        QVERIFY(WmfDecoder::Decode(wmfOfRecords(int(WmfDecoder::MaximumRecords))).isNull());
    }

    void aMetafileClaimingAHugeRecordIsRefused()
    {
        // Found by fuzzing: libwmf allocates the header's largest record size up front
        // (here 1.7 billion words, 3.4 GB) before reading a single record.
        QByteArray wmf = TestPictures::wmfFilled(40, 20, qRgb(255, 0, 0));
        QVERIFY(!WmfDecoder::Decode(wmf).isNull());
        qToLittleEndian<quint32>(0x65440007, wmf.data() + 22 + 12); // mtMaxRecord
        QCOMPARE(WmfDecoder::RecordCount(wmf), -1);
        QVERIFY(WmfDecoder::Decode(wmf).isNull());
        // A record shorter than its own header is refused too.
        QByteArray shortRecord = TestPictures::wmfFilled(40, 20, qRgb(255, 0, 0));
        qToLittleEndian<quint32>(2, shortRecord.data() + 22 + 18);
        QVERIFY(WmfDecoder::Decode(shortRecord).isNull());
    }

    void oddPathsAsFontsAreIgnoredByTheReader()
    {
        const Oddities odd = makeOddities(m_dir.path(), QStringLiteral(".ttf"));
        for (const QString& p : odd.all()) {
            CFontPreview preview;
            preview.setFontFile(p);
            QCOMPARE(preview.FontFile(), QString()); // refused like a folder: nothing changes
            QCOMPARE(preview.FaceName(), QString());
            QCOMPARE(FontSystem::familyOfFile(p), QString());
            QCOMPARE(UserFonts::Describe(p).family, QString());
        }
    }

    void oddPathsInThePreviewAreReported()
    {
        // The list shows regular files; each is then replaced by something else, as
        // another program could do between the listing and the click.
        QTemporaryDir folder;
        const QStringList names{QStringLiteral("tube.ttf"), QStringLiteral("zero.ttf"), QStringLiteral("dossier.ttf"),
                                QStringLiteral("perdu.ttf")};
        for (const QString& name : names)
            QVERIFY(Sfnt::writeFile(folder.filePath(name), Sfnt::simpleFont(Sfnt::familyNames(QStringLiteral("Fichier")))));
        FFontPreview window;
        window.show();
        window.Dir1->setPath(folder.path());
        QCOMPARE(window.File1->ListCount(), 4);
        for (const QString& name : names)
            QFile::remove(folder.filePath(name));
        const Oddities odd = makeOddities(folder.path(), QStringLiteral(".ttf"));
        for (const QString& p : odd.all()) {
            const QList<QListWidgetItem*> found = window.File1->findItems(QFileInfo(p).fileName(), Qt::MatchExactly);
            QCOMPARE(found.size(), 1);
            const int row = window.File1->row(found.first());
            SampleDriver::MessageCatcher messages;
            window.File1->setListIndex(row);
            QCOMPARE(messages.texts.size(), 1);
            QCOMPARE(messages.texts.first(), PreviewText::refusalText(p, BoundedFile::check(p, BoundedFile::FontLimit)));
            QVERIFY(messages.texts.first().startsWith(QStringLiteral("Erreur, ")));
            QVERIFY(window.lastInformation().endsWith(QStringLiteral("Installée: Non\r\n")));
        }
        QVERIFY(PreviewText::refusalText(odd.fifo, BoundedFile::Outcome::NotRegular).contains(QStringLiteral("un tube")));
        // The folder list offers only the real folder, not the link to /dev/zero (choosing
        // it would be a path that cannot be entered).
        window.Dir1->setPath(folder.path());
        QCOMPARE(window.Dir1->ListCount(), 1);
        QCOMPARE(QFileInfo(window.Dir1->List(0)).fileName(), QStringLiteral("dossier.ttf"));
        QVERIFY(PreviewText::refusalText(odd.dangling, BoundedFile::Outcome::Missing).contains(QStringLiteral("introuvable")));
    }

    void theNameAmplifierIsReadWithinItsLimitsInThePreview()
    {
        QTemporaryDir folder;
        QVERIFY(Sfnt::writeFile(folder.filePath(QStringLiteral("ampli.ttf")), CraftedFonts::nameAmplifier()));
        FFontPreview window;
        window.show();
        window.Dir1->setPath(folder.path());
        SampleDriver::MessageCatcher messages;
        window.File1->setListIndex(0);
        QVERIFY(messages.texts.isEmpty());
        QVERIFY2(window.lastInformation().startsWith(QStringLiteral("Nom: \r\nFamille : Ampli\r\nSous famille: \r\n")),
                 qPrintable(window.lastInformation()));
    }
};

GLYPHORA_TEST_MAIN(TestHostileFiles)
#include "test_hostilefiles.moc"
