// The font uninstall window and its menu command, on fonts installed for a user whose
// home and data folders are temporary.
#include "app/tglyphora.h"
#include "browser/enumfont.h"
#include "output/fontuninstall.h"
#include "output/userfonts.h"
#include "support/testsupport.h"

#include <QAbstractButton>
#include <QAction>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTreeWidget>

namespace {

void be16(QByteArray& out, quint32 value)
{
    out.append(char((value >> 8) & 0xFF));
    out.append(char(value & 0xFF));
}

void be32(QByteArray& out, quint32 value)
{
    be16(out, value >> 16);
    be16(out, value & 0xFFFF);
}

QByteArray utf16be(const QString& text)
{
    QByteArray out;
    for (QChar c : text)
        be16(out, c.unicode());
    return out;
}

// The name table: family (1), subfamily (2), full name (4) and PostScript name (6),
// Windows platform, US English.
QByteArray nameTable(const QString& family, const QString& style)
{
    const QString postscript = QString(family + QLatin1Char('-') + style).remove(QLatin1Char(' '));
    const QList<QPair<int, QByteArray>> names = {{1, utf16be(family)}, {2, utf16be(style)},
                                                 {4, utf16be(family + QLatin1Char(' ') + style)}, {6, utf16be(postscript)}};
    QByteArray table, strings;
    be16(table, 0);                  // format
    be16(table, quint32(names.size()));
    be16(table, quint32(6 + 12 * names.size())); // string storage offset
    for (const auto& [id, text] : names) {
        be16(table, 3);      // Windows
        be16(table, 1);      // Unicode BMP
        be16(table, 0x0409); // US English
        be16(table, quint32(id));
        be16(table, quint32(text.size()));
        be16(table, quint32(strings.size()));
        strings.append(text);
    }
    return table + strings;
}

// A TrueType font with one empty glyph and the given names: enough for FreeType and
// fontconfig to take it as an installed font.
QByteArray trueTypeFont(const QString& family, const QString& style, bool bold)
{
    QMap<QByteArray, QByteArray> tables;
    QByteArray head;
    be32(head, 0x00010000); be32(head, 0x00010000); be32(head, 0); be32(head, 0x5F0F3CF5);
    be16(head, 0x000B); be16(head, 1000);
    for (int i = 0; i < 4; ++i) be32(head, 0);         // created, modified
    be16(head, 0); be16(head, 0); be16(head, 500); be16(head, 700); // bounding box
    be16(head, bold ? 1 : 0); be16(head, 8); be16(head, 2); be16(head, 0); be16(head, 0);
    tables["head"] = head;

    QByteArray hhea;
    be32(hhea, 0x00010000); be16(hhea, 800); be16(hhea, quint16(-200)); be16(hhea, 0); be16(hhea, 500);
    be16(hhea, 0); be16(hhea, 0); be16(hhea, 500); be16(hhea, 1); be16(hhea, 0); be16(hhea, 0);
    for (int i = 0; i < 5; ++i) be16(hhea, 0);          // reserved, metric data format
    be16(hhea, 1);                                      // one horizontal metric
    tables["hhea"] = hhea;

    QByteArray maxp;
    be32(maxp, 0x00010000); be16(maxp, 1);
    for (int i = 0; i < 13; ++i) be16(maxp, i == 4 ? 2 : 0); // maxZones 2, the rest 0
    tables["maxp"] = maxp;

    QByteArray os2;
    be16(os2, 4); be16(os2, 500); be16(os2, bold ? 700 : 400); be16(os2, 5); be16(os2, 0);
    for (int i = 0; i < 10; ++i) be16(os2, 100);        // sub/superscript and strike-out metrics
    be16(os2, 0);                                       // family class
    os2.append(QByteArray(10, '\0'));                   // PANOSE
    for (int i = 0; i < 4; ++i) be32(os2, i == 0 ? 1 : 0); // Unicode ranges: Basic Latin
    os2.append("GLYP");
    be16(os2, bold ? 0x20 : 0x40);                      // fsSelection: bold or regular
    be16(os2, 0x20); be16(os2, 0x7E);
    be16(os2, 800); be16(os2, quint16(-200)); be16(os2, 0); be16(os2, 800); be16(os2, 200);
    be32(os2, 1); be32(os2, 0);                         // code pages: Latin 1
    be16(os2, 500); be16(os2, 700); be16(os2, 0); be16(os2, 32); be16(os2, 0);
    tables["OS/2"] = os2;

    QByteArray hmtx;
    be16(hmtx, 500); be16(hmtx, 0);
    tables["hmtx"] = hmtx;

    // cmap: format 4 with the space (U+0020) on glyph 0 and the closing segment.
    QByteArray cmap;
    be16(cmap, 0); be16(cmap, 1); be16(cmap, 3); be16(cmap, 1); be32(cmap, 12);
    be16(cmap, 4); be16(cmap, 32); be16(cmap, 0); be16(cmap, 4); be16(cmap, 4); be16(cmap, 1); be16(cmap, 0);
    be16(cmap, 0x20); be16(cmap, 0xFFFF);              // end codes
    be16(cmap, 0);
    be16(cmap, 0x20); be16(cmap, 0xFFFF);              // start codes
    be16(cmap, quint16(-0x20)); be16(cmap, 1);         // deltas
    be16(cmap, 0); be16(cmap, 0);                      // range offsets
    tables["cmap"] = cmap;

    QByteArray loca;
    be16(loca, 0); be16(loca, 0);
    tables["loca"] = loca;
    tables["glyf"] = QByteArray();

    QByteArray post;
    be32(post, 0x00030000); be32(post, 0); be16(post, quint16(-100)); be16(post, 50);
    for (int i = 0; i < 5; ++i) be32(post, 0);
    tables["post"] = post;
    tables["name"] = nameTable(family, style);

    // Offset table and directory, then the tables padded to four bytes.
    const int count = int(tables.size());
    QByteArray font;
    be32(font, 0x00010000); be16(font, quint32(count)); be16(font, 128); be16(font, 3); be16(font, quint32(count * 16 - 128));
    quint32 offset = 12 + 16 * quint32(count);
    QByteArray body;
    for (auto it = tables.cbegin(); it != tables.cend(); ++it) {
        QByteArray data = it.value();
        quint32 sum = 0;
        QByteArray padded = data + QByteArray((4 - data.size() % 4) % 4, '\0');
        for (qsizetype i = 0; i < padded.size(); i += 4)
            sum += (quint32(quint8(padded[i])) << 24) | (quint32(quint8(padded[i + 1])) << 16)
                   | (quint32(quint8(padded[i + 2])) << 8) | quint32(quint8(padded[i + 3]));
        font.append(it.key());
        be32(font, sum);
        be32(font, offset);
        be32(font, quint32(data.size()));
        body.append(padded);
        offset += quint32(padded.size());
    }
    return font + body;
}

QString install(const QString& folder, const QString& fileName, const QString& family, const QString& style = QStringLiteral("Regular"))
{
    QDir().mkpath(folder);
    const QString path = folder + QLatin1Char('/') + fileName;
    QFile file(path);
    if (file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        file.write(trueTypeFont(family, style, style.contains(QStringLiteral("Bold"))));
    return path;
}

QStringList rows(const QTreeWidget* list)
{
    QStringList result;
    for (int i = 0; i < list->topLevelItemCount(); ++i) {
        const QTreeWidgetItem* item = list->topLevelItem(i);
        result.append(item->text(0) + QLatin1Char('|') + item->text(1) + QLatin1Char('|') + item->text(2));
    }
    return result;
}

QStringList listed(const tglyphora& main)
{
    QStringList names;
    for (int i = 0; i < main.List1->topLevelItemCount(); ++i)
        names.append(main.List1->topLevelItem(i)->text(0));
    return names;
}

void selectFamilies(FontUninstall* window, const QStringList& families)
{
    for (int i = 0; i < window->List1->topLevelItemCount(); ++i) {
        QTreeWidgetItem* item = window->List1->topLevelItem(i);
        item->setSelected(families.contains(item->text(0)));
    }
}

// Clicks "Désinstaller" and answers the question; returns the question's text.
QString uninstallAnswering(FontUninstall* window, QMessageBox::StandardButton answer)
{
    auto question = std::make_shared<QString>();
    TestSupport::whenModal([question, answer](QWidget* modal) {
        if (auto* box = qobject_cast<QMessageBox*>(modal)) {
            *question = box->text();
            if (box->standardButtons() == (QMessageBox::Yes | QMessageBox::No))
                box->button(answer)->click();
        }
    });
    window->Command1->click();
    return *question;
}

} // namespace

class TestFontUninstall : public QObject {
    Q_OBJECT
private:
    QTemporaryDir m_home;

    QString dataHome() const { return m_home.path() + QStringLiteral("/share"); }
    QString fontsFolder() const { return dataHome() + QStringLiteral("/fonts"); }
    QString trashFiles() const { return dataHome() + QStringLiteral("/Trash/files"); }

public:
    TestFontUninstall()
    {
        // Before the application and fontconfig start: the user's home, data and cache are temporary.
        qputenv("HOME", m_home.path().toLocal8Bit());
        qputenv("XDG_DATA_HOME", (m_home.path() + QStringLiteral("/share")).toLocal8Bit());
        qputenv("XDG_CACHE_HOME", (m_home.path() + QStringLiteral("/cache")).toLocal8Bit());
    }

private Q_SLOTS:
    void init()
    {
        QDir(fontsFolder()).removeRecursively();
        QDir(m_home.path() + QStringLiteral("/.fonts")).removeRecursively();
        QDir(dataHome() + QStringLiteral("/Trash")).removeRecursively();
        UserFonts::Refresh();
    }

    void theHandMadeFontIsInstalledForFontconfig()
    {
        const QString path = install(fontsFolder(), QStringLiteral("essai.ttf"), QStringLiteral("Glyphora Essai Zero"));
        const UserFonts::FontFile file = UserFonts::Describe(path);
        QCOMPARE(file.family, QStringLiteral("Glyphora Essai Zero"));
        QCOMPARE(file.style, QStringLiteral("Regular"));
        UserFonts::Refresh();
        QVERIFY(EnumFont::families().contains(QStringLiteral("Glyphora Essai Zero")));
        QCOMPARE(UserFonts::Folders(), QStringList{fontsFolder()});
    }

    void theWindowListsOnlyTheUsersFontFiles()
    {
        install(fontsFolder(), QStringLiteral("un.ttf"), QStringLiteral("Glyphora Essai Un"));
        install(fontsFolder() + QStringLiteral("/sous"), QStringLiteral("deux-gras.ttf"), QStringLiteral("Glyphora Essai Deux"),
                QStringLiteral("Bold"));
        install(m_home.path() + QStringLiteral("/.fonts"), QStringLiteral("trois.ttf"), QStringLiteral("Glyphora Essai Trois"));
        QFile note(fontsFolder() + QStringLiteral("/lisezmoi.txt"));
        QVERIFY(note.open(QIODevice::WriteOnly));
        note.write("pas une police");
        note.close();

        FontUninstall window;
        window.show();
        QCOMPARE(window.windowTitle(), QStringLiteral("Désinstallation de polices"));
        QCOMPARE(window.List1->selectionMode(), QAbstractItemView::ExtendedSelection);
        QCOMPARE(rows(window.List1), (QStringList{QStringLiteral("Glyphora Essai Deux|Bold|deux-gras.ttf"),
                                                  QStringLiteral("Glyphora Essai Trois|Regular|trois.ttf"),
                                                  QStringLiteral("Glyphora Essai Un|Regular|un.ttf")}));
        QCOMPARE(window.Label2->text(), QStringLiteral("Nombre de fichiers de polices : 3"));
        QVERIFY(!window.Command1->isEnabled());
        selectFamilies(&window, {QStringLiteral("Glyphora Essai Un")});
        QVERIFY(window.Command1->isEnabled());
        QCOMPARE(window.Command1->text(), QStringLiteral("&Désinstaller"));
        QCOMPARE(window.Command2->text(), QStringLiteral("&Fermer"));
    }

    void answeringNoRemovesNothing()
    {
        const QString path = install(fontsFolder(), QStringLiteral("un.ttf"), QStringLiteral("Glyphora Essai Un"));
        FontUninstall window;
        window.show();
        selectFamilies(&window, {QStringLiteral("Glyphora Essai Un")});
        QCOMPARE(uninstallAnswering(&window, QMessageBox::No), QStringLiteral("Êtes-vous certain(e) ?"));
        QVERIFY(QFile::exists(path));
        QCOMPARE(window.List1->topLevelItemCount(), 1);
        QVERIFY(window.RemovedFiles().isEmpty());
        QVERIFY(!QDir(trashFiles()).exists() || QDir(trashFiles()).isEmpty());
    }

    void theMenuRemovesAFontToTheTrashAndReloadsTheList()
    {
        const QString one = install(fontsFolder(), QStringLiteral("un.ttf"), QStringLiteral("Glyphora Essai Un"));
        install(fontsFolder(), QStringLiteral("deux.ttf"), QStringLiteral("Glyphora Essai Deux"));
        UserFonts::Refresh();
        tglyphora main;
        main.show();
        QVERIFY(listed(main).contains(QStringLiteral("Glyphora Essai Un")));
        const int before = main.List1->topLevelItemCount();

        QStringList afterRemoval;
        QString question;
        TestSupport::whenModal([&](QWidget* modal) {
            auto* window = qobject_cast<FontUninstall*>(modal);
            if (!window)
                return;
            selectFamilies(window, {QStringLiteral("Glyphora Essai Un")});
            question = uninstallAnswering(window, QMessageBox::Yes);
            afterRemoval = rows(window->List1);
            window->Command2->click();
        });
        main.findChild<QAction*>(QStringLiteral("mdesinst"))->trigger();

        QCOMPARE(question, QStringLiteral("Êtes-vous certain(e) ?"));
        QCOMPARE(afterRemoval, QStringList{QStringLiteral("Glyphora Essai Deux|Regular|deux.ttf")});
        // Gone from the main list, which was loaded again; the other font stays.
        QVERIFY(!listed(main).contains(QStringLiteral("Glyphora Essai Un")));
        QVERIFY(listed(main).contains(QStringLiteral("Glyphora Essai Deux")));
        QCOMPARE(main.List1->topLevelItemCount(), before - 1);
        // Nothing is lost: the file is in the desktop trash, with where it came from.
        QVERIFY(!QFile::exists(one));
        QVERIFY(QFile::exists(trashFiles() + QStringLiteral("/un.ttf")));
        QFile info(dataHome() + QStringLiteral("/Trash/info/un.ttf.trashinfo"));
        QVERIFY(info.open(QIODevice::ReadOnly));
        const QString text = QString::fromUtf8(info.readAll());
        QVERIFY2(text.contains(QStringLiteral("Path=") + one), qPrintable(text));
    }

    void severalFontsAtOnce()
    {
        const QString two = install(fontsFolder(), QStringLiteral("deux.ttf"), QStringLiteral("Glyphora Essai Deux"));
        const QString three = install(m_home.path() + QStringLiteral("/.fonts"), QStringLiteral("trois.ttf"),
                                      QStringLiteral("Glyphora Essai Trois"));
        install(fontsFolder(), QStringLiteral("quatre.ttf"), QStringLiteral("Glyphora Essai Quatre"));
        UserFonts::Refresh();
        FontUninstall window;
        window.show();
        selectFamilies(&window, {QStringLiteral("Glyphora Essai Deux"), QStringLiteral("Glyphora Essai Trois")});
        QCOMPARE(window.List1->selectedItems().size(), 2);
        uninstallAnswering(&window, QMessageBox::Yes);
        QCOMPARE(rows(window.List1), QStringList{QStringLiteral("Glyphora Essai Quatre|Regular|quatre.ttf")});
        QCOMPARE(window.RemovedFiles().size(), 2);
        QVERIFY(window.RemovedFiles().contains(two));
        QVERIFY(window.RemovedFiles().contains(three));
        QVERIFY(QFile::exists(trashFiles() + QStringLiteral("/deux.ttf")));
        QVERIFY(QFile::exists(trashFiles() + QStringLiteral("/trois.ttf")));
        const QStringList families = EnumFont::families();
        QVERIFY(!families.contains(QStringLiteral("Glyphora Essai Deux")));
        QVERIFY(!families.contains(QStringLiteral("Glyphora Essai Trois")));
        QVERIFY(families.contains(QStringLiteral("Glyphora Essai Quatre")));
    }

    void aSecondFileOfTheSameNameKeepsBothInTheTrash()
    {
        for (int round = 0; round < 2; ++round) {
            install(fontsFolder(), QStringLiteral("meme.ttf"), QStringLiteral("Glyphora Essai Meme"));
            FontUninstall window;
            window.show();
            selectFamilies(&window, {QStringLiteral("Glyphora Essai Meme")});
            uninstallAnswering(&window, QMessageBox::Yes);
            QCOMPARE(window.List1->topLevelItemCount(), 0);
        }
        QCOMPARE(QDir(trashFiles()).entryList(QDir::Files).size(), 2);
    }

    void withNoFontsOfItsOwnTheWindowSaysSo()
    {
        FontUninstall window;
        window.show();
        QCOMPARE(window.List1->topLevelItemCount(), 0);
        QCOMPARE(window.Label2->text(),
                 QStringLiteral("Vous n'avez installé aucune police vous-même (répertoire %1).").arg(fontsFolder()));
        QVERIFY(!window.Command1->isEnabled());
        // The system's fonts are never offered.
        QVERIFY(!EnumFont::families().isEmpty());
    }

    void aFileThatCannotGoToTheTrashIsReported()
    {
        const QString path = install(fontsFolder(), QStringLiteral("un.ttf"), QStringLiteral("Glyphora Essai Un"));
        FontUninstall window;
        window.show();
        selectFamilies(&window, {QStringLiteral("Glyphora Essai Un")});
        // The file disappears behind the window's back.
        QVERIFY(QFile::remove(path));
        auto texts = std::make_shared<QStringList>();
        QTimer poll;
        connect(&poll, &QTimer::timeout, this, [texts] {
            if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
                texts->append(box->text());
                box->button(box->standardButtons() & QMessageBox::Yes ? QMessageBox::Yes : QMessageBox::Ok)->click();
            }
        });
        poll.start(10);
        window.Command1->click();
        poll.stop();
        QCOMPARE(texts->size(), 2);
        QCOMPARE(texts->at(1), QStringLiteral("Erreur, impossible de mettre ces fichiers à la corbeille :\n") + path);
        QCOMPARE(window.List1->topLevelItemCount(), 0);
    }
};

GLYPHORA_TEST_MAIN(TestFontUninstall)
#include "test_fontuninstall.moc"
