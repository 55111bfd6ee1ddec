// The preview window and the name finder on every format: the type box and its
// filters, a collection drawn face after face, OpenType CFF, WOFF and WOFF2, a WOFF
// named .ttf, a truncated WOFF2 and a WOFF declaring a huge size.
#include "fontfile/ffontpreview.h"
#include "fontfile/filelists.h"
#include "fontfile/fname.h"
#include "fontfile/fontregistration.h"
#include "fontfile/picturebox.h"
#include "support/sfntwriter.h"
#include "support/testsupport.h"
#include "support/webfontwriter.h"

#include <QComboBox>
#include <QFontDatabase>
#include <QLabel>
#include <QApplication>
#include <QPushButton>
#include <QScrollBar>
#include <QWheelEvent>
#include <QTemporaryDir>

namespace {

const QStringList captions = {
    QStringLiteral("Polices TrueType (*.ttf)"),
    QStringLiteral("Toutes les polices (*.ttf *.otf *.ttc *.otc *.woff *.woff2)"),
    QStringLiteral("Polices OpenType (*.otf)"),
    QStringLiteral("Collections (*.ttc *.otc)"),
    QStringLiteral("Polices web (*.woff *.woff2)"),
};

QStringList filesOf(const FileListBox* list)
{
    QStringList names;
    for (int i = 0; i < list->ListCount(); ++i)
        names << list->List(i);
    return names;
}

void choose(FileListBox* list, const QString& name)
{
    list->setListIndex(int(filesOf(list).indexOf(name)));
}

QStringList itemsOf(const QComboBox* box)
{
    QStringList items;
    for (int i = 0; i < box->count(); ++i)
        items << box->itemText(i);
    return items;
}

QByteArray drawable(const QString& name)
{
    return Sfnt::drawable(Sfnt::familyNames(name));
}

QString informationOf(const QString& family, bool installed)
{
    return QStringLiteral("Nom: %1\r\nFamille : %1\r\nSous famille: Regular\r\nNom complet: %1 Regular\r\n"
                          "Identifier unique : %1 Regular test\r\nNom Postscript : %2-Regular\r\n"
                          "Copyright: Copyright (c) Glyphora tests\r\nTrademark: Glyphora is a test mark\r\n"
                          "Version: Version 1.0\r\nInstallée: %3\r\n")
        .arg(family, QString(family).remove(QLatin1Char(' ')), installed ? QStringLiteral("Oui") : QStringLiteral("Non"));
}

QString emptyInformation()
{
    return QStringLiteral("Nom: \r\nFamille : \r\nSous famille: \r\nNom complet: \r\nIdentifier unique : \r\n"
                          "Nom Postscript : \r\nCopyright: \r\nTrademark: \r\nVersion: \r\nInstallée: Non\r\n");
}

int inkIn(const PictureBox* picture, int top, int bottom)
{
    const QImage image = picture->Image();
    const QRgb background = image.pixel(image.width() - 1, image.height() - 1);
    int ink = 0;
    for (int y = std::max(0, top); y < std::min(bottom, image.height()); ++y)
        for (int x = 0; x < image.width(); ++x)
            ink += image.pixel(x, y) != background;
    return ink;
}

} // namespace

class TestFormatWindows : public QObject {
    Q_OBJECT
private:
    QTemporaryDir m_dir;
    QString m_startFolder;
    QString path(const QString& name) const { return m_dir.filePath(name); }

private Q_SLOTS:
    void initTestCase()
    {
        qputenv("LC_ALL", "en_US.UTF-8");
        m_startFolder = QDir::currentPath();
        QByteArray cff = Sfnt::renamed(Sfnt::readFile(QStringLiteral("/usr/share/fonts/opentype/urw-base35/NimbusSans-Regular.otf")),
                                       Sfnt::familyNames(QStringLiteral("Glyphora Cff")));
        cff.replace(0, 4, "OTTO");
        const QMap<QString, QByteArray> files = {
            {QStringLiteral("a.ttf"), drawable(QStringLiteral("Glyphora Fenetre"))},
            {QStringLiteral("B.OTF"), cff},
            {QStringLiteral("c.ttc"), WebFontWriter::collection({drawable(QStringLiteral("Glyphora Face Un")),
                                                                 drawable(QStringLiteral("Glyphora Face Deux"))})},
            {QStringLiteral("d.otc"), WebFontWriter::collection({cff})},
            {QStringLiteral("e.woff"), WebFontWriter::woff(drawable(QStringLiteral("Glyphora Fenetre Woff")))},
            {QStringLiteral("F.WOFF2"), WebFontWriter::woff2(drawable(QStringLiteral("Glyphora Fenetre Woff2")))},
            {QStringLiteral("g.txt"), "texte"},
            {QStringLiteral("h.ttf"), WebFontWriter::woff(drawable(QStringLiteral("Glyphora Fenetre Deguisee")))},
            {QStringLiteral("i.woff2"), WebFontWriter::woff2(drawable(QStringLiteral("Z"))).left(3000)},
            {QStringLiteral("j.woff"), WebFontWriter::woff(drawable(QStringLiteral("Z")), {.totalSfntSize = 0xFFFFFFF0u})},
        };
        for (auto it = files.cbegin(); it != files.cend(); ++it)
            QVERIFY(Sfnt::writeFile(path(it.key()), it.value()));
    }

    void init() { QVERIFY(QDir::setCurrent(m_dir.path())); }
    void cleanup() { QDir::setCurrent(m_startFolder); }

    void typeBoxFiltersTheFileList()
    {
        FFontPreview preview;
        preview.show();
        FName finder;
        finder.show();
        finder.Dir1->setPath(m_dir.path());
        const QList<QStringList> expected = {
            {"a.ttf", "h.ttf"},
            {"a.ttf", "B.OTF", "c.ttc", "d.otc", "e.woff", "F.WOFF2", "h.ttf", "i.woff2", "j.woff"},
            {"B.OTF"},
            {"c.ttc", "d.otc"},
            {"e.woff", "F.WOFF2", "i.woff2", "j.woff"},
        };
        for (QDialog* window : {static_cast<QDialog*>(&preview), static_cast<QDialog*>(&finder)}) {
            auto* types = window->findChild<QComboBox*>(QStringLiteral("cboType"));
            auto* files = window->findChild<FileListBox*>(QStringLiteral("File1"));
            QVERIFY(types);
            QCOMPARE(itemsOf(types), captions);
            QCOMPARE(types->currentIndex(), 0); // TrueType alone, as before
            QCOMPARE(files->Pattern(), QStringLiteral("*.ttf"));
            QCOMPARE(filesOf(files), expected[0]);
            for (int i = 0; i < captions.size(); ++i) {
                types->setCurrentIndex(i);
                QCOMPARE(filesOf(files), expected[i]);
            }
            types->setCurrentIndex(0);
            QCOMPARE(filesOf(files), expected[0]);
        }
        QCOMPARE(preview.cboType->geometry().top(), preview.File1->geometry().bottom() + 7); // under the file list
        QVERIFY(preview.rect().contains(preview.cmdInstaller->geometry()));
    }

    void collectionIsDrawnFaceAfterFace()
    {
        FFontPreview window;
        window.resize(1000, 900);
        window.show();
        window.cboType->setCurrentIndex(3);
        choose(window.File1, QStringLiteral("c.ttc"));
        QCOMPARE(window.windowTitle(), QStringLiteral("Glyphora: Glyphora Face Un"));
        QCOMPARE(window.lastInformation(), informationOf(QStringLiteral("Glyphora Face Un"), false)
                                               + informationOf(QStringLiteral("Glyphora Face Deux"), false));
        QVERIFY(window.lastMessage().isEmpty());
        QVERIFY(!FontRegistration::registeredFamilies().contains(QStringLiteral("Glyphora Face Deux")));
        QVERIFY(inkIn(window.Picture1, 0, 60) > 500);
    }

    void aTallDrawingScrolls()
    {
        FFontPreview window;
        window.resize(900, 600);
        window.show();
        QCOMPARE(window.VScroll1->maximum(), 0);
        window.cboType->setCurrentIndex(3);
        choose(window.File1, QStringLiteral("c.ttc"));
        // Two faces do not fit: the drawing grew below the bottom, and the bar reaches it.
        const int content = window.Picture1->ContentHeight();
        QVERIFY2(content > window.Picture1->height(), qPrintable(QString::number(content)));
        QVERIFY(window.Picture1->Image().height() >= content);
        QCOMPARE(window.VScroll1->maximum(), content - window.Picture1->height());
        QVERIFY(window.VScroll1->geometry().left() > window.Picture1->geometry().right());
        const QImage top = window.Picture1->grab().toImage();
        window.VScroll1->setValue(window.VScroll1->maximum());
        QCOMPARE(window.Picture1->ScrollY(), window.VScroll1->maximum());
        QVERIFY(window.Picture1->grab().toImage() != top);
        // The wheel scrolls back up, and the bar follows.
        QWheelEvent wheel(QPointF(10, 10), window.Picture1->mapToGlobal(QPointF(10, 10)), QPoint(), QPoint(0, 240),
                          Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(window.Picture1, &wheel);
        QCOMPARE(window.Picture1->ScrollY(), window.VScroll1->maximum() - 120);
        QCOMPARE(window.VScroll1->value(), window.Picture1->ScrollY());
        // Another file starts at the top again.
        window.cboType->setCurrentIndex(0);
        choose(window.File1, QStringLiteral("a.ttf"));
        QCOMPARE(window.Picture1->ScrollY(), 0);
    }

    void openTypeCffIsDrawn()
    {
        FFontPreview window;
        window.show();
        window.cboType->setCurrentIndex(2);
        choose(window.File1, QStringLiteral("B.OTF"));
        QCOMPARE(window.windowTitle(), QStringLiteral("Glyphora: Glyphora Cff"));
        QVERIFY(window.lastInformation().startsWith(QStringLiteral("Nom: Glyphora Cff\r\n")));
        QVERIFY(inkIn(window.Picture1, 0, 60) > 500);
    }

    void webFontsAreDrawnFromMemory()
    {
        FFontPreview window;
        window.show();
        window.cboType->setCurrentIndex(1);
        for (const auto& [file, family] : {std::pair{QStringLiteral("e.woff"), QStringLiteral("Glyphora Fenetre Woff")},
                                           std::pair{QStringLiteral("F.WOFF2"), QStringLiteral("Glyphora Fenetre Woff2")},
                                           std::pair{QStringLiteral("h.ttf"), QStringLiteral("Glyphora Fenetre Deguisee")}}) {
            choose(window.File1, file);
            QCOMPARE(window.windowTitle(), QStringLiteral("Glyphora: ") + family);
            QCOMPARE(window.lastInformation(), informationOf(family, false));
            QVERIFY(inkIn(window.Picture1, 0, 60) > 500);
            QVERIFY(!QFontDatabase::families().contains(family));
        }
    }

    void refusedWebFontsAreDescribedWithTheirReason()
    {
        FFontPreview window;
        window.show();
        window.cboType->setCurrentIndex(4);
        choose(window.File1, QStringLiteral("i.woff2"));
        QCOMPARE(window.windowTitle(), QStringLiteral("Glyphora"));
        QCOMPARE(window.lastMessage(),
                 QStringLiteral("La police web « i.woff2 » est illisible : le fichier WOFF2 est tronqué ou abîmé."));
        QCOMPARE(window.lastInformation(), emptyInformation());
        choose(window.File1, QStringLiteral("j.woff"));
        QCOMPARE(window.lastMessage(), QStringLiteral("La police web « j.woff » est refusée : décompressée, elle ferait "
                                                      "4096,0 Mo, au-delà de la limite de 64 Mo."));
        QCOMPARE(window.lastInformation(), emptyInformation());
        // The reason is drawn above the description: eleven lines, then nothing.
        const int line = window.Picture1->TextHeight();
        QVERIFY(inkIn(window.Picture1, 0, line) > 50);
        QCOMPARE(inkIn(window.Picture1, 13 * line, window.Picture1->Image().height()), 0);
    }

    void nameFinderNamesEveryFace()
    {
        FName window;
        window.show();
        window.Dir1->setPath(m_dir.path());
        window.cboType->setCurrentIndex(1);
        const QList<QPair<QString, QString>> cases = {
            {QStringLiteral("c.ttc"), QStringLiteral("Glyphora Face Un\nGlyphora Face Deux")},
            {QStringLiteral("B.OTF"), QStringLiteral("Glyphora Cff")},
            {QStringLiteral("e.woff"), QStringLiteral("Glyphora Fenetre Woff")},
            {QStringLiteral("F.WOFF2"), QStringLiteral("Glyphora Fenetre Woff2")},
            {QStringLiteral("h.ttf"), QStringLiteral("Glyphora Fenetre Deguisee")},
            {QStringLiteral("i.woff2"), QStringLiteral("La police web « i.woff2 » est illisible : le fichier WOFF2 est tronqué ou abîmé.")},
        };
        for (const auto& [file, text] : cases) {
            choose(window.File1, file);
            window.Command2->click();
            QCOMPARE(window.Label1->text(), text);
        }
        QVERIFY(!FontRegistration::registeredFamilies().contains(QStringLiteral("Glyphora Face Un")));
    }
};

GLYPHORA_TEST_MAIN(TestFormatWindows)
#include "test_formatwindows.moc"
