// The preview window on a folder of test files: the lists, drawing an installed and
// an uninstalled font, the description, nothing left registered, the delayed redraw
// after a resize, Esc, the clipboard copy and the menu command that opens it.
#include "app/tglyphora.h"
#include "browser/enumfont.h"
#include "fontfile/ffontpreview.h"
#include "fontfile/filelists.h"
#include "fontfile/fontregistration.h"
#include "fontfile/picturebox.h"
#include "support/sfntwriter.h"
#include "support/testsupport.h"

#include <QClipboard>
#include <QComboBox>
#include <QDir>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QTemporaryDir>
#include <QTimer>
#include <QWindow>

namespace {

QString fixtureFolder()
{
    static QTemporaryDir folder;
    return folder.path();
}

void writeFixtures()
{
    const QDir dir(fixtureFolder());
    QVERIFY(Sfnt::writeFile(dir.filePath(QStringLiteral("essai.ttf")),
                            Sfnt::drawable(Sfnt::familyNames(QStringLiteral("Glyphora Apercu")))));
    QVERIFY(QFile::copy(Sfnt::installedTrueTypeFile(), dir.filePath(QStringLiteral("INSTALLE.TTF"))));
    QVERIFY(Sfnt::writeFile(dir.filePath(QStringLiteral("casse.ttf")),
                            Sfnt::simpleFont(Sfnt::familyNames(QStringLiteral("X"))).left(40)));
    QVERIFY(Sfnt::writeFile(dir.filePath(QStringLiteral("lisezmoi.txt")), "texte"));
    QVERIFY(Sfnt::writeFile(dir.filePath(QStringLiteral(".cachee.ttf")), "cachée"));
    dir.mkdir(QStringLiteral("sous-dossier"));
    QVERIFY(Sfnt::writeFile(dir.filePath(QStringLiteral("sous-dossier/autre.ttf")),
                            Sfnt::drawable(Sfnt::familyNames(QStringLiteral("Glyphora Autre")))));
}

// Pixels of the drawing that differ from its background, in a band of rows.
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

int rowOf(const FileListBox* list, const QString& name)
{
    for (int i = 0; i < list->ListCount(); ++i)
        if (list->List(i) == name)
            return i;
    return -1;
}

QString expectedInformation(const QStringList& values, bool installed)
{
    const QStringList labels = {QStringLiteral("Nom: "), QStringLiteral("Famille : "), QStringLiteral("Sous famille: "),
                                QStringLiteral("Nom complet: "), QStringLiteral("Identifier unique : "),
                                QStringLiteral("Nom Postscript : "), QStringLiteral("Copyright: "),
                                QStringLiteral("Trademark: "), QStringLiteral("Version: ")};
    QString text;
    for (int i = 0; i < labels.size(); ++i)
        text += labels[i] + values.value(i) + QStringLiteral("\r\n");
    return text + (installed ? QStringLiteral("Installée: Oui\r\n") : QStringLiteral("Installée: Non\r\n"));
}

bool registeredAnywhere(const QString& family)
{
    return QFontDatabase::families().contains(family) || EnumFont::families().contains(family)
           || FontRegistration::registeredFamilies().contains(family);
}

// The child process: started with arguments, so each drawing goes to the clipboard.
int clipboardScenario()
{
    QDir::setCurrent(qEnvironmentVariable("GLYPHORA_FIXTURES"));
    FFontPreview window;
    window.show();
    window.File1->setListIndex(rowOf(window.File1, QStringLiteral("essai.ttf")));
    std::fputs(window.copiesToClipboard() ? "copies\n" : "no copy\n", stdout);
    std::fputs(QGuiApplication::clipboard()->text().toUtf8().constData(), stdout);
    return 0;
}

} // namespace

class TestFFontPreview : public QObject {
    Q_OBJECT
private:
    QString m_startFolder;

private Q_SLOTS:
    void initTestCase()
    {
        qputenv("LC_ALL", "en_US.UTF-8");
        writeFixtures();
        m_startFolder = QDir::currentPath();
    }

    void init() { QVERIFY(QDir::setCurrent(fixtureFolder())); }
    void cleanup() { QDir::setCurrent(m_startFolder); }

    void loadsOnTheCurrentFolder()
    {
        FFontPreview window;
        window.show();
        QCOMPARE(window.Dir1->Path(), QDir::currentPath());
        QCOMPARE(window.File1->Path(), QDir::currentPath());
        QCOMPARE(window.File1->Pattern(), QStringLiteral("*.ttf"));
        // Case-insensitive pattern, plain files only, sorted without regard to case.
        QStringList listed;
        for (int i = 0; i < window.File1->ListCount(); ++i)
            listed << window.File1->List(i);
        QCOMPARE(listed, (QStringList{QStringLiteral("casse.ttf"), QStringLiteral("essai.ttf"), QStringLiteral("INSTALLE.TTF")}));
        QCOMPARE(window.File1->ListIndex(), -1);
        QCOMPARE(window.Drive1->Drive(), DriveFolders::volumeOf(QDir::currentPath()));
        QVERIFY(window.Drive1->count() >= 1);
        QCOMPARE(window.copiesToClipboard(), QCoreApplication::arguments().size() > 1);
        QCOMPARE(window.findChild<QTimer*>(QStringLiteral("Timer1")), window.Timer1);
        QVERIFY(window.findChild<PictureBox*>(QStringLiteral("Picture1")));
    }

    void folderChangeMovesTheFileList()
    {
        FFontPreview window;
        window.show();
        window.Dir1->setPath(QDir(fixtureFolder()).filePath(QStringLiteral("sous-dossier")));
        QCOMPARE(window.File1->Path(), window.Dir1->Path());
        QCOMPARE(window.File1->ListCount(), 1);
        QCOMPARE(window.File1->List(0), QStringLiteral("autre.ttf"));
        QCOMPARE(QDir::currentPath(), QDir(fixtureFolder()).absolutePath()); // the preview does not change it
    }

    void installedFontSaysOui()
    {
        FFontPreview window;
        window.show();
        const int before = FontRegistration::registeredFamilies().size();
        window.File1->setListIndex(rowOf(window.File1, QStringLiteral("INSTALLE.TTF")));
        QCOMPARE(window.windowTitle(), QStringLiteral("Glyphora: DejaVu Sans"));
        const QString info = window.lastInformation();
        QVERIFY2(info.startsWith(QStringLiteral("Nom: DejaVu Sans\r\nFamille : DejaVu Sans\r\nSous famille: Book\r\n")),
                 qPrintable(info));
        QVERIFY(info.endsWith(QStringLiteral("Installée: Oui\r\n")));
        QCOMPARE(FontRegistration::registeredFamilies().size(), before);
        QVERIFY(inkIn(window.Picture1, 0, 60) > 500); // the 60-point sample
    }

    void uninstalledFontSaysNonAndLeavesNothing()
    {
        const QString family = QStringLiteral("Glyphora Apercu");
        QVERIFY(!registeredAnywhere(family));
        FFontPreview window;
        window.show();
        window.File1->setListIndex(rowOf(window.File1, QStringLiteral("essai.ttf")));
        QCOMPARE(window.windowTitle(), QStringLiteral("Glyphora: ") + family);
        QCOMPARE(window.lastInformation(),
                 expectedInformation({family, family, QStringLiteral("Regular"), QStringLiteral("Glyphora Apercu Regular"),
                                      QStringLiteral("Glyphora Apercu Regular test"), QStringLiteral("GlyphoraApercu-Regular"),
                                      QStringLiteral("Copyright (c) Glyphora tests"),
                                      QStringLiteral("Glyphora is a test mark"), QStringLiteral("Version 1.0")},
                                     false));
        QVERIFY(!registeredAnywhere(family)); // released once the drawing is done
        QVERIFY(inkIn(window.Picture1, 0, 60) > 500);
        // The drawing stays after the registration is gone.
        const QImage drawn = window.Picture1->Image();
        window.Picture1->repaint();
        QCOMPARE(window.Picture1->Image(), drawn);
        QCOMPARE(window.Picture1->grab().toImage().pixel(20, 40), drawn.pixel(20, 40));
    }

    void brokenFileIsDescribedWithoutSamples()
    {
        FFontPreview window;
        window.show();
        window.File1->setListIndex(rowOf(window.File1, QStringLiteral("casse.ttf")));
        QCOMPARE(window.windowTitle(), QStringLiteral("Glyphora"));
        QCOMPARE(window.lastInformation(), expectedInformation({}, false));
        // Only the ten information lines are drawn, in the window's font.
        const int line = window.Picture1->TextHeight();
        QVERIFY(inkIn(window.Picture1, 0, 10 * line) > 100);
        QCOMPARE(inkIn(window.Picture1, 11 * line, window.Picture1->Image().height()), 0);
    }

    void samplesComeBeforeTheInformation()
    {
        FFontPreview window;
        window.resize(1000, 900);
        window.show();
        window.File1->setListIndex(rowOf(window.File1, QStringLiteral("essai.ttf")));
        // Nine sample lines and the character line fill far more than ten small lines.
        const int line = window.Picture1->TextHeight();
        QVERIFY(inkIn(window.Picture1, 15 * line, 30 * line) > 0);
    }

    void resizingRedrawsOnlyOnceTheButtonIsUp()
    {
        FFontPreview window;
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        QTRY_VERIFY(!window.Timer1->isActive()); // the redraw after the first layout
        window.File1->setListIndex(rowOf(window.File1, QStringLiteral("essai.ttf")));
        window.Picture1->Cls();
        QCOMPARE(inkIn(window.Picture1, 0, 60), 0);

        // The left button is held on the window while its size changes.
        QTest::mousePress(window.windowHandle(), Qt::LeftButton, {}, QPoint(window.width() - 2, window.height() - 2));
        QVERIFY(QGuiApplication::mouseButtons() & Qt::LeftButton);
        window.resize(window.width() + 40, window.height() + 30);
        QVERIFY(window.Timer1->isActive());
        QTest::qWait(3 * window.Timer1->interval());
        QVERIFY(window.Timer1->isActive());
        QCOMPARE(inkIn(window.Picture1, 0, 60), 0); // not redrawn while held

        QTest::mouseRelease(window.windowHandle(), Qt::LeftButton, {}, QPoint(window.width() - 2, window.height() - 2));
        QTRY_VERIFY(!window.Timer1->isActive());
        QVERIFY(inkIn(window.Picture1, 0, 60) > 500);
        QVERIFY(!registeredAnywhere(QStringLiteral("Glyphora Apercu")));
    }

    void resizeLaysOutTheControls()
    {
        FFontPreview window;
        window.resize(800, 500);
        window.show();
        const QRect picture = window.Picture1->geometry();
        QVERIFY(picture.left() > window.Drive1->geometry().right());
        QVERIFY(window.Dir1->geometry().top() > window.Drive1->geometry().bottom());
        QVERIFY(window.File1->geometry().top() > window.Dir1->geometry().bottom());
        QVERIFY(window.rect().contains(picture));
        QVERIFY(window.rect().contains(window.File1->geometry()));
        QVERIFY(picture.width() > 400);
    }

    void escapeClosesOnRelease()
    {
        FFontPreview window;
        window.show();
        window.File1->setFocus();
        QTest::keyPress(window.File1, Qt::Key_Escape);
        QVERIFY(window.isVisible());
        QTest::keyRelease(window.File1, Qt::Key_Escape);
        QVERIFY(!window.isVisible());

        FFontPreview other;
        other.show();
        QTest::keyClick(&other, Qt::Key_Escape);
        QVERIFY(!other.isVisible());
    }

    void drawingWithoutArgumentsLeavesTheClipboard()
    {
        if (QCoreApplication::arguments().size() > 1)
            QSKIP("started with arguments: every drawing goes to the clipboard");
        QGuiApplication::clipboard()->setText(QStringLiteral("inchangé"));
        FFontPreview window;
        window.show();
        window.File1->setListIndex(rowOf(window.File1, QStringLiteral("essai.ttf")));
        QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("inchangé"));
    }

    void withArgumentsTheDescriptionGoesToTheClipboard()
    {
        const auto child = TestSupport::runScenario(QStringLiteral("clipboard"),
                                                    {QStringLiteral("GLYPHORA_FIXTURES=") + fixtureFolder()});
        QCOMPARE(child.exitCode, 0);
        const QString family = QStringLiteral("Glyphora Apercu");
        QCOMPARE(child.out,
                 QStringLiteral("copies\n")
                     + expectedInformation({family, family, QStringLiteral("Regular"), QStringLiteral("Glyphora Apercu Regular"),
                                            QStringLiteral("Glyphora Apercu Regular test"),
                                            QStringLiteral("GlyphoraApercu-Regular"),
                                            QStringLiteral("Copyright (c) Glyphora tests"),
                                            QStringLiteral("Glyphora is a test mark"), QStringLiteral("Version 1.0")},
                                           false));
    }

    void menuCommandOpensItModally()
    {
        tglyphora main;
        QString title;
        bool wasModal = false;
        auto ran = TestSupport::whenModal([&](QWidget* modal) {
            title = modal->objectName();
            wasModal = modal->isModal();
            modal->close();
        });
        main.mpreview_Click();
        QVERIFY(*ran);
        QCOMPARE(title, QStringLiteral("FFontPreview"));
        QVERIFY(wasModal);
        QVERIFY(!main.findChild<FFontPreview*>()); // gone once closed
    }
};

int main(int argc, char** argv)
{
    TestSupport::registerScenario(QStringLiteral("clipboard"), clipboardScenario);
    TestFFontPreview test;
    return glyphoraTestMain(argc, argv, &test);
}
#include "test_ffontpreview.moc"
