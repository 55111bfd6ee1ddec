// Installing fonts for the user, whose home and data folders are temporary: one file,
// several of every format (web fonts written unpacked), the replace question, files
// that are no fonts, the family listed and drawable afterwards without a restart, the
// preview window's button, and installing then uninstalling.
#include "app/tglyphora.h"
#include "browser/enumfont.h"
#include "fontfile/ffontpreview.h"
#include "fontfile/filelists.h"
#include "fontfile/webfont.h"
#include "output/fontinstall.h"
#include "output/fontuninstall.h"
#include "output/userfonts.h"
#include "support/modalscript.h"
#include "support/sfntwriter.h"
#include "support/testsupport.h"
#include "support/webfontwriter.h"

#include <QAction>
#include <QDirIterator>
#include <QFileDialog>
#include <QFontDatabase>
#include <QLabel>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTreeWidget>

using FontInstall::Outcome;

namespace {

QByteArray fontNamed(const QString& family)
{
    return Sfnt::drawable(Sfnt::familyNames(family));
}

// Every file under a folder with its bytes, hidden ones included.
QMap<QString, QByteArray> snapshot(const QString& folder)
{
    QMap<QString, QByteArray> files;
    QDirIterator it(folder, QDir::Files | QDir::Hidden | QDir::System, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString path = it.next();
        files.insert(QDir(folder).relativeFilePath(path), Sfnt::readFile(path));
    }
    return files;
}

QStringList listed(const tglyphora& main)
{
    QStringList names;
    for (int i = 0; i < main.List1->topLevelItemCount(); ++i)
        names.append(main.List1->topLevelItem(i)->text(0));
    return names;
}

const auto neverAsked = [](const QString& name) -> bool {
    qWarning("unexpected question about %s", qPrintable(name));
    return false;
};

} // namespace

class TestFontInstall : public QObject {
    Q_OBJECT
private:
    QTemporaryDir m_home;
    QTemporaryDir m_sources;

    QString fontsFolder() const { return m_home.path() + QStringLiteral("/share/fonts"); }
    QString source(const QString& name) const { return QDir(m_sources.path()).filePath(name); }

public:
    TestFontInstall()
    {
        // Before the application and fontconfig start: the user's home, data and cache are temporary.
        qputenv("HOME", m_home.path().toLocal8Bit());
        qputenv("XDG_DATA_HOME", (m_home.path() + QStringLiteral("/share")).toLocal8Bit());
        qputenv("XDG_CACHE_HOME", (m_home.path() + QStringLiteral("/cache")).toLocal8Bit());
    }

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY(Sfnt::writeFile(source(QStringLiteral("essai.ttf")), fontNamed(QStringLiteral("Glyphora Pose Un"))));
        QVERIFY(Sfnt::writeFile(source(QStringLiteral("web.woff")),
                                WebFontWriter::woff(fontNamed(QStringLiteral("Glyphora Pose Woff")))));
        QVERIFY(Sfnt::writeFile(source(QStringLiteral("web2.woff2")),
                                WebFontWriter::woff2(fontNamed(QStringLiteral("Glyphora Pose Woff Deux")))));
        QVERIFY(Sfnt::writeFile(source(QStringLiteral("texte.ttf")), "ceci n'est pas une police\n"));
        QVERIFY(Sfnt::writeFile(source(QStringLiteral("bombe.woff")),
                                WebFontWriter::woff(fontNamed(QStringLiteral("X")), {.totalSfntSize = 0xFFFFFFF0u})));
        QVERIFY(Sfnt::writeFile(source(QStringLiteral("menu.ttf")), fontNamed(QStringLiteral("Glyphora Pose Menu"))));
        QVERIFY(Sfnt::writeFile(source(QStringLiteral("bouton.ttf")), fontNamed(QStringLiteral("Glyphora Pose Bouton"))));
        TestSupport::writeSetting(QStringLiteral("Donation"), QStringLiteral("Merci"), QStringLiteral("oui"));
    }

    void init()
    {
        QDir(fontsFolder()).removeRecursively();
        QDir(m_home.path() + QStringLiteral("/share/Trash")).removeRecursively();
        UserFonts::Refresh();
    }

    void installsOneFileIntoAFolderItCreates()
    {
        QVERIFY(!QFileInfo::exists(fontsFolder()));
        const auto results = FontInstall::install({source(QStringLiteral("essai.ttf"))}, neverAsked);
        QCOMPARE(results.size(), 1);
        QCOMPARE(results[0].outcome, Outcome::Installed);
        QCOMPARE(results[0].target, fontsFolder() + QStringLiteral("/essai.ttf"));
        QVERIFY(results[0].message.isEmpty());
        QCOMPARE(Sfnt::readFile(results[0].target), Sfnt::readFile(source(QStringLiteral("essai.ttf"))));
        QCOMPARE(UserFonts::Folder(), fontsFolder());
    }

    void installsSeveralWebFontsUnpacked()
    {
        const QString otf = QStringLiteral("/usr/share/fonts/opentype/urw-base35/NimbusSans-Regular.otf");
        QVERIFY2(QFile::exists(otf), "fonts-urw-base35 is not installed");
        const auto results = FontInstall::install({source(QStringLiteral("essai.ttf")), source(QStringLiteral("web.woff")),
                                                   source(QStringLiteral("web2.woff2")), otf},
                                                  neverAsked);
        QCOMPARE(results.size(), 4);
        for (const auto& result : results)
            QCOMPARE(result.outcome, Outcome::Installed);
        QCOMPARE(snapshot(fontsFolder()).keys(), (QStringList{QStringLiteral("NimbusSans-Regular.otf"), QStringLiteral("essai.ttf"),
                                                              QStringLiteral("web.ttf"), QStringLiteral("web2.ttf")}));
        // Web fonts are written as the font they unpack to.
        QCOMPARE(Sfnt::readFile(fontsFolder() + QStringLiteral("/web.ttf")),
                 WebFont::decodeFile(source(QStringLiteral("web.woff"))).sfnt);
        QCOMPARE(Sfnt::readFile(fontsFolder() + QStringLiteral("/web2.ttf")),
                 WebFont::decodeFile(source(QStringLiteral("web2.woff2"))).sfnt);
        QCOMPARE(Sfnt::readFile(fontsFolder() + QStringLiteral("/NimbusSans-Regular.otf")), Sfnt::readFile(otf));
        FontInstall::publish(fontsFolder() + QStringLiteral("/web.ttf"));
        const QStringList families = EnumFont::families();
        for (const char* family : {"Glyphora Pose Un", "Glyphora Pose Woff", "Glyphora Pose Woff Deux"})
            QVERIFY2(families.contains(QString::fromLatin1(family)), family);
    }

    void replacingAsksFirst()
    {
        QVERIFY(QDir().mkpath(fontsFolder()));
        const QString target = fontsFolder() + QStringLiteral("/essai.ttf");
        QVERIFY(Sfnt::writeFile(target, fontNamed(QStringLiteral("Glyphora Ancienne"))));
        const QByteArray before = Sfnt::readFile(target);
        QStringList asked;
        auto no = FontInstall::install({source(QStringLiteral("essai.ttf"))}, [&](const QString& name) {
            asked.append(name);
            return false;
        });
        QCOMPARE(asked, QStringList{QStringLiteral("essai.ttf")});
        QCOMPARE(no[0].outcome, Outcome::Kept);
        QCOMPARE(Sfnt::readFile(target), before);
        auto yes = FontInstall::install({source(QStringLiteral("essai.ttf"))}, [&](const QString& name) {
            asked.append(name);
            return true;
        });
        QCOMPARE(asked.size(), 2);
        QCOMPARE(yes[0].outcome, Outcome::Replaced);
        QCOMPARE(Sfnt::readFile(target), Sfnt::readFile(source(QStringLiteral("essai.ttf"))));
        // A web font is asked about under the name it takes.
        QVERIFY(Sfnt::writeFile(fontsFolder() + QStringLiteral("/web.ttf"), "ancien"));
        FontInstall::install({source(QStringLiteral("web.woff"))}, [&](const QString& name) {
            asked.append(name);
            return false;
        });
        QCOMPARE(asked.last(), QStringLiteral("web.ttf"));
        // A file of the folder itself is already installed: no question, nothing written.
        QCOMPARE(FontInstall::install({target}, neverAsked)[0].outcome, Outcome::AlreadyThere);
    }

    void filesThatAreNoFontsAreRefused()
    {
        const auto results = FontInstall::install({source(QStringLiteral("texte.ttf")), source(QStringLiteral("bombe.woff")),
                                                   source(QStringLiteral("absente.ttf"))},
                                                  neverAsked);
        QCOMPARE(results[0].outcome, Outcome::Refused);
        QCOMPARE(results[0].message,
                 QStringLiteral("Le fichier « texte.ttf » n'est pas une police lisible : il n'a pas été installé."));
        QCOMPARE(results[1].outcome, Outcome::Refused);
        QCOMPARE(results[1].message, QStringLiteral("La police web « bombe.woff » est refusée : décompressée, elle ferait "
                                                    "4096,0 Mo, au-delà de la limite de 64 Mo. Il n'a pas été installé."));
        QCOMPARE(results[2].outcome, Outcome::Refused);
        QVERIFY(snapshot(fontsFolder()).isEmpty());
    }

    void menuInstallsAndTheListShowsTheFamilyKeepingTheSelection()
    {
        tglyphora main;
        main.show();
        const QString family = QStringLiteral("Glyphora Pose Menu");
        QVERIFY(!listed(main).contains(family));
        QVERIFY(!QFontDatabase::families().contains(family));
        const QString kept = listed(main).value(listed(main).size() / 2);
        main.List1->setCurrentItem(main.List1->findItems(kept, Qt::MatchExactly).first());
        main.List1_Click();

        QString title;
        QStringList filters;
        ModalScript script({[&](QWidget* modal) {
                                if (auto* dialog = qobject_cast<QFileDialog*>(modal)) {
                                    filters = dialog->nameFilters();
                                    QCOMPARE(dialog->fileMode(), QFileDialog::ExistingFiles);
                                }
                                ModalScript::chooseFile(source(QStringLiteral("menu.ttf")), &title)(modal);
                            }});
        main.findChild<QAction*>(QStringLiteral("minstaller"))->trigger();
        QVERIFY(script.waitUntilDone());
        QCOMPARE(title, QStringLiteral("Installer des polices"));
        QCOMPARE(filters.value(0), QStringLiteral("Toutes les polices (*.ttf *.otf *.ttc *.otc *.woff *.woff2)"));
        QCOMPARE(script.unexpected(), QStringList());
        QVERIFY(QFile::exists(fontsFolder() + QStringLiteral("/menu.ttf")));
        // Listed and drawable at once; the selection stays where it was.
        QVERIFY(listed(main).contains(family));
        QVERIFY(QFontDatabase::families().contains(family));
        QCOMPARE(main.List1->currentItem()->text(0), kept);
        QCOMPARE(main.Panel(1)->text(), kept);
    }

    void menuAsksBeforeReplacingAndTellsWhatWasRefused()
    {
        tglyphora main;
        main.show();
        QVERIFY(QDir().mkpath(fontsFolder()));
        QVERIFY(Sfnt::writeFile(fontsFolder() + QStringLiteral("/essai.ttf"), "ancien"));
        QString question, refusal;
        QFileDialog* dialog = nullptr;
        ModalScript script({[&](QWidget* modal) {
                                dialog = qobject_cast<QFileDialog*>(modal);
                                dialog->setDirectory(m_sources.path());
                                ModalScript::chooseFile(QStringLiteral("\"essai.ttf\" \"texte.ttf\""))(modal);
                            },
                            ModalScript::clickButton(QMessageBox::No, &question),
                            ModalScript::clickButton(QMessageBox::Ok, &refusal)});
        main.minstaller_Click();
        QVERIFY(script.waitUntilDone());
        QCOMPARE(question, QStringLiteral("Glyphora: Remplacer « essai.ttf » ?"));
        QCOMPARE(refusal, QStringLiteral("Glyphora: Le fichier « texte.ttf » n'est pas une police lisible : il n'a pas été installé."));
        QCOMPARE(Sfnt::readFile(fontsFolder() + QStringLiteral("/essai.ttf")), QByteArray("ancien"));
        QCOMPARE(script.unexpected(), QStringList());
    }

    void previewButtonInstallsTheShownFile()
    {
        FFontPreview window;
        window.show();
        window.Dir1->setPath(m_sources.path());
        QVERIFY(!window.cmdInstaller->isEnabled());
        for (int i = 0; i < window.File1->ListCount(); ++i)
            if (window.File1->List(i) == QStringLiteral("bouton.ttf"))
                window.File1->setListIndex(i);
        QVERIFY(window.lastInformation().endsWith(QStringLiteral("Installée: Non\r\n")));
        QVERIFY(window.cmdInstaller->isEnabled());
        QCOMPARE(window.cmdInstaller->text(), QStringLiteral("Installer"));
        ModalScript script; // no question expected
        window.cmdInstaller->click();
        QCOMPARE(script.unexpected(), QStringList());
        QCOMPARE(Sfnt::readFile(fontsFolder() + QStringLiteral("/bouton.ttf")), Sfnt::readFile(source(QStringLiteral("bouton.ttf"))));
        // Drawn again: the font is now one of the system's.
        QVERIFY2(window.lastInformation().endsWith(QStringLiteral("Installée: Oui\r\n")), qPrintable(window.lastInformation()));
    }

    void installingThenUninstallingLeavesTheFolderAsItWas()
    {
        QVERIFY(QDir().mkpath(fontsFolder()));
        QVERIFY(Sfnt::writeFile(fontsFolder() + QStringLiteral("/deja.ttf"), fontNamed(QStringLiteral("Glyphora Deja La"))));
        UserFonts::Refresh();
        const QMap<QString, QByteArray> before = snapshot(fontsFolder());

        const auto results = FontInstall::install({source(QStringLiteral("essai.ttf")), source(QStringLiteral("web2.woff2"))}, neverAsked);
        QCOMPARE(results.size(), 2);
        FontInstall::publish(results[0].target);
        QCOMPARE(snapshot(fontsFolder()).size(), 3);

        FontUninstall window;
        window.show();
        for (int i = 0; i < window.List1->topLevelItemCount(); ++i) {
            QTreeWidgetItem* item = window.List1->topLevelItem(i);
            item->setSelected(item->text(0).startsWith(QStringLiteral("Glyphora Pose")));
        }
        QCOMPARE(window.List1->selectedItems().size(), 2);
        ModalScript script({ModalScript::clickButton(QMessageBox::Yes)});
        window.Command1->click();
        QCOMPARE(snapshot(fontsFolder()), before);
        QVERIFY(!EnumFont::families().contains(QStringLiteral("Glyphora Pose Un")));
    }
};

GLYPHORA_TEST_MAIN(TestFontInstall)
#include "test_fontinstall.moc"
