// Reading background pictures: Qt's formats, Windows metafiles, and files that give none.
#include "samples/picturefile.h"
#include "samples/wmfdecoder.h"
#include "support/testpictures.h"
#include "support/testsupport.h"

#include <QBuffer>
#include <QTemporaryDir>

namespace {

QImage pattern(int width, int height)
{
    // Three colours in stripes and a marked corner, so that both size and place show.
    QImage image(width, height, QImage::Format_RGB32);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            image.setPixel(x, y, (x / 2) % 2 ? qRgb(0, 0, 255) : qRgb(255, 255, 0));
    image.setPixel(0, 0, qRgb(255, 0, 0));
    return image;
}

QByteArray encoded(const QImage& image, const char* format)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, format);
    return bytes;
}

bool near(QRgb a, QRgb b, int tolerance)
{
    return std::abs(qRed(a) - qRed(b)) <= tolerance && std::abs(qGreen(a) - qGreen(b)) <= tolerance
           && std::abs(qBlue(a) - qBlue(b)) <= tolerance;
}

} // namespace

class TestPictureFile : public QObject {
    Q_OBJECT
private:
    QTemporaryDir m_dir;

private Q_SLOTS:
    void gifPixelsComeBackExactly()
    {
        const QImage image = pattern(37, 11);
        const QString path = TestPictures::write(m_dir.path(), QStringLiteral("motif.gif"), TestPictures::gif(image));
        const QImage read = PictureFile::Load(path);
        QCOMPARE(read.size(), QSize(37, 11));
        for (int y = 0; y < 11; ++y)
            for (int x = 0; x < 37; ++x)
                QCOMPARE(read.pixel(x, y), image.pixel(x, y));
    }

    void bmpAndPng()
    {
        const QImage image = pattern(20, 9);
        for (const char* format : {"BMP", "PNG"}) {
            const QString path = TestPictures::write(m_dir.path(), QStringLiteral("motif.") + QString::fromLatin1(format).toLower(),
                                                     encoded(image, format));
            const QImage read = PictureFile::Load(path);
            QCOMPARE(read.size(), QSize(20, 9));
            QCOMPARE(read.pixel(0, 0), qRgb(255, 0, 0));
            QCOMPARE(read.pixel(3, 5), qRgb(0, 0, 255));
        }
    }

    void jpegAndJpg()
    {
        QImage image(24, 16, QImage::Format_RGB32);
        image.fill(qRgb(0, 128, 255));
        for (const QString& name : {QStringLiteral("fond.jpg"), QStringLiteral("fond.jpeg")}) {
            const QImage read = PictureFile::Load(TestPictures::write(m_dir.path(), name, encoded(image, "JPG")));
            QCOMPARE(read.size(), QSize(24, 16));
            QVERIFY(near(read.pixel(12, 8), qRgb(0, 128, 255), 6));
        }
    }

    void icon()
    {
        QImage image(32, 32, QImage::Format_ARGB32);
        image.fill(qRgb(0, 160, 0));
        const QByteArray bytes = encoded(image, "ICO");
        QVERIFY(!bytes.isEmpty());
        const QImage read = PictureFile::Load(TestPictures::write(m_dir.path(), QStringLiteral("icone.ico"), bytes));
        QCOMPARE(read.size(), QSize(32, 32));
        QCOMPARE(read.pixel(5, 5) & 0xFFFFFF, qRgb(0, 160, 0) & 0xFFFFFF);
    }

    void placeableMetafile()
    {
        const QString path = TestPictures::write(m_dir.path(), QStringLiteral("dessin.wmf"),
                                                 TestPictures::wmfFilled(100, 50, qRgb(255, 0, 0)));
        const QImage read = PictureFile::Load(path);
        QCOMPARE(read.size(), QSize(100, 50));
        QCOMPARE(read.pixel(50, 25), qRgb(255, 0, 0));
        QCOMPARE(read.pixel(1, 1), qRgb(255, 0, 0));
    }

    void standardMetafile()
    {
        const QByteArray bytes = TestPictures::wmfStandard(200, 100, qRgb(0, 0, 255));
        QVERIFY(WmfDecoder::LooksLikeMetafile(bytes));
        const QImage read = PictureFile::Load(TestPictures::write(m_dir.path(), QStringLiteral("standard.wmf"), bytes));
        QVERIFY(!read.isNull());
        QCOMPARE(read.pixel(read.width() / 2, read.height() / 2), qRgb(0, 0, 255));
    }

    void theContentDecidesNotTheName()
    {
        const QImage image = pattern(8, 8);
        const QImage png = PictureFile::Load(TestPictures::write(m_dir.path(), QStringLiteral("png-named.gif"), encoded(image, "PNG")));
        QCOMPARE(png.size(), QSize(8, 8));
        const QImage wmf = PictureFile::Load(TestPictures::write(m_dir.path(), QStringLiteral("wmf-named.bmp"),
                                                                 TestPictures::wmfFilled(30, 20, qRgb(0, 255, 0))));
        QCOMPARE(wmf.size(), QSize(30, 20));
    }

    void filesThatGiveNoPicture_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QByteArray>("bytes");
        QByteArray noise;
        for (int i = 0; i < 300; ++i)
            noise.append(char((i * 73 + 11) & 0xFF));
        const QByteArray wmf = TestPictures::wmfFilled(100, 50, qRgb(255, 0, 0));
        const QByteArray gif = TestPictures::gif(pattern(30, 30));
        QTest::newRow("empty") << "vide.gif" << QByteArray();
        QTest::newRow("noise") << "bruit.gif" << noise;
        QTest::newRow("text") << "texte.bmp" << QByteArray("Ceci n'est pas une image\r\n");
        QTest::newRow("metafile key and noise") << "faux.wmf" << (wmf.left(4) + noise);
        QTest::newRow("truncated metafile") << "coupe.wmf" << wmf.left(30);
        QTest::newRow("metafile too large") << "immense.wmf" << TestPictures::wmfWithFrame(30000, 30000);
        QTest::newRow("gif header only") << "entete.gif" << gif.left(13);
    }
    void filesThatGiveNoPicture()
    {
        QFETCH(QString, name);
        QFETCH(QByteArray, bytes);
        QVERIFY(PictureFile::Load(TestPictures::write(m_dir.path(), name, bytes)).isNull());
    }

    void aMissingFileGivesNoPicture()
    {
        QVERIFY(PictureFile::Load(m_dir.filePath(QStringLiteral("absent.gif"))).isNull());
        QVERIFY(PictureFile::Load(QString()).isNull());
        QVERIFY(PictureFile::Load(m_dir.path()).isNull()); // a folder
    }

    void metafileSignatures()
    {
        QVERIFY(!WmfDecoder::LooksLikeMetafile(QByteArray()));
        QVERIFY(!WmfDecoder::LooksLikeMetafile(QByteArray("GIF89a")));
        QVERIFY(WmfDecoder::LooksLikeMetafile(QByteArray("\xD7\xCD\xC6\x9A", 4)));
        QByteArray header = TestPictures::wmfStandard(10, 10, 0).left(18);
        QVERIFY(WmfDecoder::LooksLikeMetafile(header));
        header[2] = 8; // header size other than 9 words
        QVERIFY(!WmfDecoder::LooksLikeMetafile(header));
        QVERIFY(WmfDecoder::Decode(QByteArray("\xD7\xCD\xC6\x9A", 4)).isNull());
    }

    void theMessageNamesTheFile()
    {
        const QString text = PictureFile::ErrorText(QStringLiteral("/tmp/fond.gif"));
        QVERIFY(text.startsWith(QStringLiteral("Erreur, impossible de lire l'image \"/tmp/fond.gif\"")));
    }
};

GLYPHORA_TEST_MAIN(TestPictureFile)
#include "test_picturefile.moc"
