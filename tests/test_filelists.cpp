// Drive, folder and file lists, and the drawing surface that keeps its drawing.
#include "components/runtimeerror.h"
#include "fontfile/filelists.h"
#include "fontfile/picturebox.h"
#include "support/sfntwriter.h"
#include "support/testsupport.h"

#include <QDir>
#include <QSignalSpy>
#include <QTemporaryDir>

namespace {

int errorNumberOf(const std::function<void()>& action)
{
    try {
        action();
    } catch (const RuntimeError& e) {
        return e.number();
    }
    return 0;
}

int inkOf(const QImage& image)
{
    const QRgb background = image.pixel(image.width() - 1, image.height() - 1);
    int ink = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            ink += image.pixel(x, y) != background;
    return ink;
}

} // namespace

class TestFileLists : public QObject {
    Q_OBJECT
private:
    QTemporaryDir m_dir;

    QString path(const QString& name) const { return QDir(m_dir.path()).filePath(name); }

private Q_SLOTS:
    void initTestCase()
    {
        QDir dir(m_dir.path());
        QVERIFY(dir.mkpath(QStringLiteral("racine/Zèbre")));
        QVERIFY(dir.mkpath(QStringLiteral("racine/abc")));
        QVERIFY(dir.mkpath(QStringLiteral("racine/.cache")));
        for (const char* name : {"racine/b.TTF", "racine/a.ttf", "racine/c.otf", "racine/d.txt", "racine/.e.ttf"})
            QVERIFY(Sfnt::writeFile(path(QString::fromUtf8(name)), "x"));
    }

    void cleanup() { DriveFolders::refreshVolumes(); }

    void fileListPatterns()
    {
        FileListBox list;
        list.setPath(path(QStringLiteral("racine")));
        list.setPattern(QStringLiteral("*.ttf"));
        QCOMPARE(list.ListCount(), 2);
        QCOMPARE(list.List(0), QStringLiteral("a.ttf"));
        QCOMPARE(list.List(1), QStringLiteral("b.TTF"));
        QCOMPARE(list.List(2), QString());
        list.setPattern(QStringLiteral("*.ttf;*.OTF"));
        QCOMPARE(list.ListCount(), 3);
        list.setPattern(QStringLiteral("*.*"));
        QCOMPARE(list.ListCount(), 4); // every plain file, hidden ones and folders left out
    }

    void fileListSelection()
    {
        FileListBox list;
        list.setPattern(QStringLiteral("*.ttf"));
        list.setPath(path(QStringLiteral("racine")));
        QSignalSpy clicks(&list, &FileListBox::Click);
        QCOMPARE(list.ListIndex(), -1);
        QCOMPARE(list.FileName(), QString());
        list.setListIndex(1);
        QCOMPARE(list.FileName(), QStringLiteral("b.TTF"));
        QCOMPARE(clicks.count(), 1);
        QCOMPARE(errorNumberOf([&] { list.setListIndex(2); }), 380);
        QCOMPARE(errorNumberOf([&] { list.setPath(path(QStringLiteral("absent"))); }), 76);
        QCOMPARE(list.FileName(), QStringLiteral("b.TTF"));
        list.Refresh(); // listing again forgets the choice without a click
        QCOMPARE(list.ListIndex(), -1);
        QCOMPARE(clicks.count(), 1);
    }

    void folderList()
    {
        DirListBox dirs;
        QSignalSpy changes(&dirs, &DirListBox::Change);
        dirs.setPath(path(QStringLiteral("racine")));
        QCOMPARE(changes.count(), 1);
        QCOMPARE(dirs.Path(), path(QStringLiteral("racine")));
        QCOMPARE(dirs.ListCount(), 2); // hidden folders left out, sorted without regard to case
        QCOMPARE(dirs.List(0), path(QStringLiteral("racine/abc")));
        QCOMPARE(dirs.List(1), path(QStringLiteral("racine/Zèbre")));
        QCOMPARE(dirs.List(-1), path(QStringLiteral("racine")));
        QCOMPARE(dirs.List(-2), QDir(m_dir.path()).absolutePath());
        QCOMPARE(dirs.ListIndex(), -1);
        dirs.setPath(path(QStringLiteral("racine")));
        QCOMPARE(changes.count(), 1); // the same folder is no change
        QCOMPARE(errorNumberOf([&] { dirs.setPath(path(QStringLiteral("absent"))); }), 76);
        QCOMPARE(dirs.Path(), path(QStringLiteral("racine")));
        // Enter opens the chosen folder.
        dirs.setCurrentRow(dirs.count() - 1);
        QTest::keyClick(&dirs, Qt::Key_Return);
        QCOMPARE(dirs.Path(), path(QStringLiteral("racine/Zèbre")));
        QCOMPARE(changes.count(), 2);
    }

    void drivesAndTheirFolders()
    {
        const QString a = path(QStringLiteral("racine"));
        const QString b = path(QStringLiteral("racine/abc"));
        DriveFolders::setVolumes({a, b});
        QCOMPARE(DriveFolders::volumeOf(path(QStringLiteral("racine/abc/x"))), b); // the longest root
        QCOMPARE(DriveFolders::volumeOf(path(QStringLiteral("racine/abcd"))), a);
        QCOMPARE(DriveFolders::volumeOf(QStringLiteral("/")), QString());
        DriveFolders::ChDir(path(QStringLiteral("racine/Zèbre")));
        QCOMPARE(DriveFolders::currentFolderOf(a), path(QStringLiteral("racine/Zèbre")));
        QCOMPARE(DriveFolders::currentFolderOf(b), b);
        DriveFolders::ChDrive(b);
        QCOMPARE(QDir::currentPath(), b);
        QCOMPARE(DriveFolders::currentFolderOf(a), path(QStringLiteral("racine/Zèbre")));
        QCOMPARE(errorNumberOf([&] { DriveFolders::ChDir(path(QStringLiteral("absent"))); }), 76);

        DriveListBox drives;
        QCOMPARE(drives.count(), 2);
        QCOMPARE(drives.Drive(), b);
        QSignalSpy changes(&drives, &DriveListBox::Change);
        drives.setDrive(path(QStringLiteral("racine/Zèbre")));
        QCOMPARE(drives.Drive(), a);
        QCOMPARE(changes.count(), 1);
        QCOMPARE(errorNumberOf([&] { drives.setDrive(QStringLiteral("/")); }), 68);
    }

    void systemVolumes()
    {
        DriveFolders::refreshVolumes();
        QVERIFY(DriveFolders::volumes().contains(QStringLiteral("/")));
        DriveListBox drives;
        QCOMPARE(drives.Drive(), DriveFolders::volumeOf(QDir::currentPath()));
    }

    void pictureKeepsItsDrawing()
    {
        PictureBox picture;
        picture.resize(300, 200);
        picture.show();
        QCOMPARE(inkOf(picture.Image()), 0);
        picture.Print(QStringLiteral("Première ligne\r\nDeuxième"));
        const int line = picture.TextHeight();
        QCOMPARE(picture.CurrentY(), 2 * line);
        QCOMPARE(picture.CurrentX(), 0);
        picture.Print(QString());
        QCOMPARE(picture.CurrentY(), 3 * line);
        const int ink = inkOf(picture.Image());
        QVERIFY(ink > 0);
        picture.resize(400, 260); // growing keeps the drawing
        QCOMPARE(picture.Image().size(), QSize(400, 260));
        QCOMPARE(inkOf(picture.Image()), ink);
        picture.resize(100, 100);
        picture.resize(400, 260);
        QCOMPARE(inkOf(picture.Image()), ink);
        QCOMPARE(inkOf(picture.grab().toImage()), ink);
        picture.Cls();
        QCOMPARE(inkOf(picture.Image()), 0);
        QCOMPARE(picture.CurrentY(), 0);
    }
};

GLYPHORA_TEST_MAIN(TestFileLists)
#include "test_filelists.moc"
