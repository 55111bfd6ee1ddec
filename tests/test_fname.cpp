// The name finder: its controls, the start in the system fonts folder, the lookup by
// bare file name from the current folder, nothing registered or written, drives.
#include "app/tglyphora.h"
#include "browser/enumfont.h"
#include "fontfile/filelists.h"
#include "fontfile/fname.h"
#include "fontfile/fontregistration.h"
#include "support/sfntwriter.h"
#include "support/testsupport.h"

#include <QApplication>
#include <QDir>
#include <QFontDatabase>
#include <QLabel>
#include <QPushButton>
#include <QTemporaryDir>

namespace {

int rowOf(const FileListBox* list, const QString& name)
{
    for (int i = 0; i < list->ListCount(); ++i)
        if (list->List(i) == name)
            return i;
    return -1;
}

QStringList filesOf(const FileListBox* list)
{
    QStringList names;
    for (int i = 0; i < list->ListCount(); ++i)
        names << list->List(i);
    return names;
}

} // namespace

class TestFName : public QObject {
    Q_OBJECT
private:
    QTemporaryDir m_dir;
    QString m_startFolder;
    int m_databaseChanges = 0;

    QString path(const QString& name) const { return m_dir.filePath(name); }

private Q_SLOTS:
    void initTestCase()
    {
        m_startFolder = QDir::currentPath();
        QVERIFY(Sfnt::writeFile(path(QStringLiteral("nom.ttf")),
                                Sfnt::drawable(Sfnt::familyNames(QStringLiteral("Glyphora Nom")))));
        QVERIFY(Sfnt::writeFile(path(QStringLiteral("pas-une-police.ttf")), "Ceci n'est pas une police."));
        QVERIFY(Sfnt::writeFile(path(QStringLiteral("tronquee.ttf")),
                                Sfnt::drawable(Sfnt::familyNames(QStringLiteral("Glyphora Tronquee"))).left(300)));
        QDir dir(m_dir.path());
        for (const char* folder : {"A", "B", "B/sous", "B/sous/plus"})
            QVERIFY(dir.mkpath(QString::fromLatin1(folder)));
        QVERIFY(Sfnt::writeFile(path(QStringLiteral("A/a.ttf")), "a"));
        QVERIFY(Sfnt::writeFile(path(QStringLiteral("B/sous/b.TTF")), "b"));
        connect(qGuiApp, &QGuiApplication::fontDatabaseChanged, this, [this] { ++m_databaseChanges; });
    }

    void cleanup()
    {
        QDir::setCurrent(m_startFolder);
        DriveFolders::refreshVolumes();
    }

    void controls()
    {
        FName window;
        QCOMPARE(window.windowTitle(), QStringLiteral("Obtenir le nom d'une police"));
        QCOMPARE(window.findChild<QPushButton*>(QStringLiteral("Command2"))->text(), QStringLiteral("Obtenir le nom"));
        QCOMPARE(window.findChild<QPushButton*>(QStringLiteral("Command1"))->text(), QStringLiteral("&Fermer"));
        QVERIFY(window.findChild<QLabel*>(QStringLiteral("Label1")));
        QVERIFY(window.findChild<DriveListBox*>(QStringLiteral("Drive1")));
        QVERIFY(window.findChild<DirListBox*>(QStringLiteral("Dir1")));
        QCOMPARE(window.findChild<FileListBox*>(QStringLiteral("File1"))->Pattern(), QStringLiteral("*.ttf"));
    }

    void startsInTheSystemFontsFolder()
    {
        if (!QFileInfo(FName::SystemFontsFolder()).isDir())
            QSKIP("no system fonts folder on this machine");
        FName window;
        window.show();
        QCOMPARE(window.Dir1->Path(), FName::SystemFontsFolder());
        QCOMPARE(window.File1->Path(), FName::SystemFontsFolder());
        QCOMPARE(QDir::currentPath(), FName::SystemFontsFolder()); // browsing moves the current folder
    }

    void folderChangeMovesTheCurrentFolder()
    {
        FName window;
        window.show();
        window.Dir1->setPath(m_dir.path());
        QCOMPARE(QDir::currentPath(), QDir(m_dir.path()).absolutePath());
        QCOMPARE(window.File1->Path(), window.Dir1->Path());
        QCOMPARE(filesOf(window.File1),
                 (QStringList{QStringLiteral("nom.ttf"), QStringLiteral("pas-une-police.ttf"), QStringLiteral("tronquee.ttf")}));
        // Opening a listed subfolder by double click, as a user does.
        for (int i = 0; i < window.Dir1->count(); ++i) {
            if (window.Dir1->item(i)->data(Qt::UserRole).toString() == QDir(m_dir.path()).filePath(QStringLiteral("B"))) {
                const QRect place = window.Dir1->visualItemRect(window.Dir1->item(i));
                // A real double click: press and release, then the second press.
                QTest::mouseClick(window.Dir1->viewport(), Qt::LeftButton, {}, place.center());
                QTest::mouseDClick(window.Dir1->viewport(), Qt::LeftButton, {}, place.center());
                break;
            }
        }
        QCOMPARE(window.Dir1->Path(), QDir(m_dir.path()).filePath(QStringLiteral("B")));
        QCOMPARE(QDir::currentPath(), window.Dir1->Path());
        QCOMPARE(window.File1->ListCount(), 0);
        QCOMPARE(window.Dir1->ListCount(), 1);
        QCOMPARE(window.Dir1->List(0), QDir(m_dir.path()).filePath(QStringLiteral("B/sous")));
        QCOMPARE(window.Dir1->List(-2), QDir(m_dir.path()).absolutePath());
    }

    void lookupGivesTheFaceNameWithoutRegistering()
    {
        FName window;
        window.show();
        window.Dir1->setPath(m_dir.path());
        const QStringList appFolderBefore = QDir(QCoreApplication::applicationDirPath()).entryList(QDir::Files);
        const int changes = m_databaseChanges;
        window.File1->setListIndex(rowOf(window.File1, QStringLiteral("nom.ttf")));
        QTest::mouseClick(window.Command2, Qt::LeftButton);
        QCOMPARE(window.Label1->text(), QStringLiteral("Glyphora Nom"));
        QCOMPARE(m_databaseChanges, changes);
        QVERIFY(!QFontDatabase::families().contains(QStringLiteral("Glyphora Nom")));
        QVERIFY(!EnumFont::families().contains(QStringLiteral("Glyphora Nom")));
        QVERIFY(!FontRegistration::registeredFamilies().contains(QStringLiteral("Glyphora Nom")));
        // No scratch file anywhere.
        QCOMPARE(QDir(QCoreApplication::applicationDirPath()).entryList(QDir::Files), appFolderBefore);
        QVERIFY(!QFileInfo::exists(QCoreApplication::applicationDirPath() + QStringLiteral("/~TEMP.FOT")));
        QVERIFY(!QFileInfo::exists(path(QStringLiteral("~TEMP.FOT"))));
    }

    void noSelectionEmptiesTheLabel()
    {
        FName window;
        window.show();
        window.Dir1->setPath(m_dir.path());
        window.Label1->setText(QStringLiteral("ancien nom"));
        QCOMPARE(window.File1->ListIndex(), -1);
        QTest::mouseClick(window.Command2, Qt::LeftButton);
        QCOMPARE(window.Label1->text(), QString());
    }

    void doubleClickGivesTheSameResult()
    {
        FName window;
        window.show();
        window.Dir1->setPath(m_dir.path());
        const int row = rowOf(window.File1, QStringLiteral("nom.ttf"));
        const QRect place = window.File1->visualItemRect(window.File1->item(row));
        QTest::mouseClick(window.File1->viewport(), Qt::LeftButton, {}, place.center());
        QTest::mouseDClick(window.File1->viewport(), Qt::LeftButton, {}, place.center());
        QCOMPARE(window.File1->ListIndex(), row);
        const QString byDoubleClick = window.Label1->text();
        window.Label1->clear();
        QTest::mouseClick(window.Command2, Qt::LeftButton);
        QCOMPARE(byDoubleClick, window.Label1->text());
        QCOMPARE(byDoubleClick, QStringLiteral("Glyphora Nom"));
    }

    void filesThatAreNoFontGiveNothing()
    {
        FName window;
        window.show();
        window.Dir1->setPath(m_dir.path());
        for (const char* name : {"pas-une-police.ttf", "tronquee.ttf"}) {
            window.Label1->setText(QStringLiteral("x"));
            window.File1->setListIndex(rowOf(window.File1, QString::fromLatin1(name)));
            window.Command2_Click();
            QCOMPARE(window.Label1->text(), QString());
            QVERIFY(!QApplication::activeModalWidget()); // no message
        }
        QVERIFY(!QFileInfo::exists(path(QStringLiteral("~TEMP.FOT"))));
        // A name that no longer exists in the current folder gives nothing either.
        QCOMPARE(FontRegistration::faceNameOfFile(QStringLiteral("absent.ttf")), QString());
        QCOMPARE(FontRegistration::faceNameOfFile(m_dir.path()), QString());
    }

    void anotherDriveMovesToItsCurrentFolder()
    {
        const QString driveA = QDir(m_dir.path()).filePath(QStringLiteral("A"));
        const QString driveB = QDir(m_dir.path()).filePath(QStringLiteral("B"));
        DriveFolders::setVolumes({driveA, driveB});
        QDir::setCurrent(driveA);
        FName window; // opens the fonts folder, which lies on neither drive
        window.show();
        QCOMPARE(window.Drive1->count(), 2);
        QCOMPARE(window.Drive1->Drive(), driveA);

        window.Drive1->setCurrentIndex(1); // B: its root, nothing current there yet
        QCOMPARE(window.Dir1->Path(), driveB);
        QCOMPARE(QDir::currentPath(), driveB);
        window.Dir1->setPath(QDir(driveB).filePath(QStringLiteral("sous")));
        QCOMPARE(filesOf(window.File1), QStringList{QStringLiteral("b.TTF")});

        window.Drive1->setCurrentIndex(0); // back to A
        QCOMPARE(window.Dir1->Path(), driveA);
        QCOMPARE(window.File1->Path(), driveA);
        QCOMPARE(filesOf(window.File1), QStringList{QStringLiteral("a.ttf")});

        window.Drive1->setCurrentIndex(1); // B remembers its current folder
        QCOMPARE(window.Dir1->Path(), QDir(driveB).filePath(QStringLiteral("sous")));
        QCOMPARE(QDir::currentPath(), window.Dir1->Path());
        QCOMPARE(filesOf(window.File1), QStringList{QStringLiteral("b.TTF")});
    }

    void closeButton()
    {
        FName window;
        window.show();
        QTest::mouseClick(window.Command1, Qt::LeftButton);
        QVERIFY(!window.isVisible());
    }

    void menuCommandOpensItModally()
    {
        tglyphora main;
        QString name;
        bool wasModal = false;
        auto ran = TestSupport::whenModal([&](QWidget* modal) {
            name = modal->objectName();
            wasModal = modal->isModal();
            modal->findChild<QPushButton*>(QStringLiteral("Command1"))->click();
        });
        main.mobtain_Click();
        QVERIFY(*ran);
        QCOMPARE(name, QStringLiteral("FName"));
        QVERIFY(wasModal);
    }
};

GLYPHORA_TEST_MAIN(TestFName)
#include "test_fname.moc"
