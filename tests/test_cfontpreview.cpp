// CFontPreview on real files: names in the system language, style flags, face name
// resolution, temporary registration and its announcements, and paths it refuses.
#include "browser/enumfont.h"
#include "components/runtimeerror.h"
#include "fontfile/cfontpreview.h"
#include "fontfile/fontregistration.h"
#include "support/sfntwriter.h"
#include "support/testsupport.h"

#include <QDir>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QTemporaryDir>
#include <QWidget>

namespace {

// Counts the font-change announcements a top-level window receives.
class AnnouncementCounter : public QWidget {
public:
    int received = 0;

protected:
    bool event(QEvent* e) override
    {
        if (e->type() == FontRegistration::fontChangeEventType())
            ++received;
        return QWidget::event(e);
    }
};

int errorNumberOf(const std::function<void()>& action)
{
    try {
        action();
    } catch (const RuntimeError& e) {
        return e.number();
    }
    return 0;
}

bool familyAnywhere(const QString& family)
{
    return QFontDatabase::families().contains(family) || EnumFont::families().contains(family)
           || FontRegistration::registeredFamilies().contains(family);
}

} // namespace

class TestCFontPreview : public QObject {
    Q_OBJECT
private:
    QTemporaryDir m_dir;
    int m_databaseChanges = 0;

    QString file(const QString& name) const { return m_dir.filePath(name); }
    void write(const QString& name, const QByteArray& bytes) { QVERIFY(Sfnt::writeFile(file(name), bytes)); }

private Q_SLOTS:
    void initTestCase()
    {
        // The system language comes from LANG here; nothing above it may override it.
        qunsetenv("LC_ALL");
        qunsetenv("LC_MESSAGES");
        qputenv("LANG", "en_US.UTF-8");
        QVERIFY(m_dir.isValid());
        QVERIFY2(!Sfnt::installedTrueTypeFile().isEmpty(), "DejaVu Sans must be installed");
        write(QStringLiteral("essai.ttf"), Sfnt::drawable(Sfnt::familyNames(QStringLiteral("Glyphora Essai"))));
        write(QStringLiteral("styles.ttf"), Sfnt::simpleFont(Sfnt::familyNames(QStringLiteral("Glyphora Styles")), 0x21));
        write(QStringLiteral("lines.ttf"), Sfnt::simpleFont(Sfnt::familyNames(QStringLiteral("Glyphora Lignes")), 0x12));
        write(QStringLiteral("fontaine.ttf"),
              Sfnt::drawable({Sfnt::microsoft(1, QStringLiteral("Glyphora Fontaine"), 0x0409),
                              Sfnt::microsoft(1, QStringLiteral("Glyphora Fontaine FR"), 0x040C),
                              Sfnt::microsoft(2, QStringLiteral("Regular"), 0x0409),
                              Sfnt::microsoft(2, QStringLiteral("Normal"), 0x040C),
                              Sfnt::microsoft(4, QStringLiteral("Glyphora Fontaine Regular"), 0x0409),
                              Sfnt::microsoft(4, QStringLiteral("Glyphora Fontaine Normal"), 0x040C),
                              Sfnt::microsoft(0, QStringLiteral("Copyright"), 0x0409),
                              Sfnt::microsoft(0, QStringLiteral("Droits"), 0x040C)}));
        // French names whose family alone the system does not know, but "family subfamily" it does.
        write(QStringLiteral("epsilon.ttf"),
              Sfnt::drawable({Sfnt::microsoft(1, QStringLiteral("Glyphora Epsilon"), 0x0409),
                              Sfnt::microsoft(1, QStringLiteral("Glyphora"), 0x040C),
                              Sfnt::microsoft(2, QStringLiteral("Regular"), 0x0409),
                              Sfnt::microsoft(2, QStringLiteral("Epsilon"), 0x040C),
                              Sfnt::microsoft(4, QStringLiteral("Glyphora Epsilon Regular"), 0x0409)}));
        // ... and one where only the full name is known.
        write(QStringLiteral("delta.ttf"),
              Sfnt::drawable({Sfnt::microsoft(1, QStringLiteral("Glyphora Delta"), 0x0409),
                              Sfnt::microsoft(1, QStringLiteral("Glyphora Delta FR"), 0x040C),
                              Sfnt::microsoft(2, QStringLiteral("Normal"), 0x040C),
                              Sfnt::microsoft(4, QStringLiteral("Glyphora Delta"), 0x040C)}));
        write(QStringLiteral("mac.ttf"),
              Sfnt::simpleFont({Sfnt::macintosh(1, "Glyphora Caf\x8E"), Sfnt::macintosh(2, "R\x8Egulier"),
                                Sfnt::macintosh(4, "Glyphora Caf\x8E R\x8Egulier"), Sfnt::macintosh(0, "\xA9 1999")}));
        QByteArray faux = Sfnt::drawable(Sfnt::familyNames(QStringLiteral("Glyphora Faux")));
        QByteArray head = Sfnt::tableOf(faux, "head");
        head.replace(12, 4, QByteArray::fromHex("0BADF00D")); // magicNumber
        faux = Sfnt::withTable(faux, "head", head);
        write(QStringLiteral("faux.ttf"), faux);
        write(QStringLiteral("texte.ttf"), "Ceci n'est pas une police.\r\n");
        QDir(m_dir.path()).mkdir(QStringLiteral("dossier.ttf"));
        connect(qGuiApp, &QGuiApplication::fontDatabaseChanged, this, [this] { ++m_databaseChanges; });
    }

    void newObject()
    {
        CFontPreview preview;
        QVERIFY(!preview.Broadcast());
        QCOMPARE(preview.FontFile(), QString());
        QCOMPARE(preview.FaceName(), QString());
        QVERIFY(!preview.Installed());
        QVERIFY(!preview.ValidTrueTypeFile());
        QVERIFY(!preview.Bold());
        QCOMPARE(preview.systemLanguage(), 0x0409);
        // No name table read yet: out of range.
        QCOMPARE(errorNumberOf([&] { preview.FamilyName(); }), 9);
        QCOMPARE(errorNumberOf([&] { preview.Copyright(); }), 9);
    }

    void uninstalledFontIsRegisteredWhilePreviewed()
    {
        const QString family = QStringLiteral("Glyphora Essai");
        QVERIFY(!familyAnywhere(family));
        {
            CFontPreview preview;
            preview.setFontFile(file(QStringLiteral("essai.ttf")));
            QCOMPARE(preview.FontFile(), file(QStringLiteral("essai.ttf")));
            QCOMPARE(preview.FaceName(), family);
            QVERIFY(!preview.Installed());
            QVERIFY(preview.ValidTrueTypeFile());
            QCOMPARE(preview.FamilyName(), family);
            QCOMPARE(preview.SubFamilyName(), QStringLiteral("Regular"));
            QCOMPARE(preview.FullName(), QStringLiteral("Glyphora Essai Regular"));
            QCOMPARE(preview.UniqueIdentifier(), QStringLiteral("Glyphora Essai Regular test"));
            QCOMPARE(preview.PostscriptName(), QStringLiteral("GlyphoraEssai-Regular"));
            QCOMPARE(preview.Copyright(), QStringLiteral("Copyright (c) Glyphora tests"));
            QCOMPARE(preview.Trademark(), QStringLiteral("Glyphora is a test mark"));
            QCOMPARE(preview.VersionString(), QStringLiteral("Version 1.0"));
            QVERIFY(FontRegistration::registeredFamilies().contains(family));
            QVERIFY(QFontDatabase::families().contains(family));
        }
        QVERIFY(!familyAnywhere(family)); // nothing left behind
    }

    void installedFontIsNeverRegistered()
    {
        const int before = m_databaseChanges;
        {
            CFontPreview preview;
            preview.setFontFile(Sfnt::installedTrueTypeFile());
            QCOMPARE(preview.FaceName(), QStringLiteral("DejaVu Sans"));
            QVERIFY(preview.Installed());
            QVERIFY(preview.ValidTrueTypeFile());
            QCOMPARE(preview.FamilyName(), QStringLiteral("DejaVu Sans"));
            preview.setFontFile(Sfnt::installedTrueTypeFile());
            QVERIFY(preview.Installed());
        }
        QCOMPARE(m_databaseChanges, before);
    }

    void samePathTwiceRegistersAgain()
    {
        CFontPreview preview;
        int before = m_databaseChanges;
        preview.setFontFile(file(QStringLiteral("essai.ttf")));
        QCOMPARE(m_databaseChanges, before + 1); // registered
        before = m_databaseChanges;
        preview.setFontFile(file(QStringLiteral("essai.ttf")));
        QCOMPARE(m_databaseChanges, before + 2); // unregistered, registered again
        QCOMPARE(preview.FaceName(), QStringLiteral("Glyphora Essai"));
        QVERIFY(!preview.Installed());
        QCOMPARE(FontRegistration::registeredFamilies().count(QStringLiteral("Glyphora Essai")), 1);
    }

    void broadcastOffSendsNothing()
    {
        AnnouncementCounter window;
        {
            CFontPreview preview;
            preview.setFontFile(file(QStringLiteral("essai.ttf")));
            QCOMPARE(preview.FaceName(), QStringLiteral("Glyphora Essai"));
        }
        QCOMPARE(window.received, 0);
    }

    void broadcastOnTellsEveryWindow()
    {
        AnnouncementCounter first;
        AnnouncementCounter second;
        {
            CFontPreview preview;
            preview.setBroadcast(true);
            QVERIFY(preview.Broadcast());
            preview.setFontFile(file(QStringLiteral("essai.ttf")));
            QCOMPARE(first.received, 1);
            QCOMPARE(second.received, 1);
            preview.setFontFile(Sfnt::installedTrueTypeFile()); // unregisters; an installed font adds nothing
            QCOMPARE(first.received, 2);
        }
        QCOMPARE(first.received, 2);
        QCOMPARE(second.received, 2);
    }

    void styleFlags()
    {
        CFontPreview preview;
        preview.setFontFile(file(QStringLiteral("styles.ttf")));
        QVERIFY(preview.Bold());
        QVERIFY(preview.Italic());
        QVERIFY(!preview.Underlined());
        QVERIFY(!preview.StrikeOut());
        preview.setFontFile(file(QStringLiteral("lines.ttf")));
        QVERIFY(!preview.Bold());
        QVERIFY(!preview.Italic());
        QVERIFY(preview.Underlined());
        QVERIFY(preview.StrikeOut());
        QCOMPARE(preview.FamilyName(), QStringLiteral("Glyphora Lignes"));
        QCOMPARE(preview.FaceName(), QString()); // no outlines: the system cannot use it
    }

    void frenchAndEnglishNames()
    {
        const QString fontaine = file(QStringLiteral("fontaine.ttf"));
        {
            CFontPreview preview; // LANG=en_US
            preview.setFontFile(fontaine);
            QCOMPARE(preview.FamilyName(), QStringLiteral("Glyphora Fontaine"));
            QCOMPARE(preview.SubFamilyName(), QStringLiteral("Regular"));
            QCOMPARE(preview.FullName(), QStringLiteral("Glyphora Fontaine Regular"));
            QCOMPARE(preview.Copyright(), QStringLiteral("Copyright"));
            QCOMPARE(preview.FaceName(), QStringLiteral("Glyphora Fontaine"));
            QVERIFY(!preview.Installed());
        }
        QVERIFY(!familyAnywhere(QStringLiteral("Glyphora Fontaine")));

        qputenv("LANG", "de_DE.UTF-8"); // neither language: the last Microsoft record
        {
            CFontPreview preview;
            QCOMPARE(preview.systemLanguage(), 0x0407);
            preview.setFontFile(fontaine);
            QCOMPARE(preview.FamilyName(), QStringLiteral("Glyphora Fontaine FR"));
        }
        qputenv("LANG", "fr_FR.UTF-8");
        {
            CFontPreview preview;
            QCOMPARE(preview.systemLanguage(), 0x040C);
            preview.setFontFile(fontaine);
            QCOMPARE(preview.FamilyName(), QStringLiteral("Glyphora Fontaine FR"));
            QCOMPARE(preview.SubFamilyName(), QStringLiteral("Normal"));
            QCOMPARE(preview.FullName(), QStringLiteral("Glyphora Fontaine Normal"));
            QCOMPARE(preview.Copyright(), QStringLiteral("Droits"));
            // The system lists the family under its English name only, so none of the
            // French candidates is known: the face stays unresolved.
            QCOMPARE(preview.FaceName(), QString());
        }
        // An unresolved registration is deliberately never taken back...
        QVERIFY(FontRegistration::registeredFamilies().contains(QStringLiteral("Glyphora Fontaine")));
        qputenv("LANG", "en_US.UTF-8");
        {
            // ...so the English face is now known before this object registers anything.
            CFontPreview preview;
            const int before = m_databaseChanges;
            preview.setFontFile(fontaine);
            QCOMPARE(preview.FaceName(), QStringLiteral("Glyphora Fontaine"));
            QVERIFY(preview.Installed());
            QCOMPARE(m_databaseChanges, before);
        }
    }

    void faceNameCandidatesInOrder()
    {
        qputenv("LANG", "fr_FR.UTF-8");
        {
            CFontPreview preview;
            preview.setFontFile(file(QStringLiteral("epsilon.ttf")));
            QCOMPARE(preview.FamilyName(), QStringLiteral("Glyphora"));
            QCOMPARE(preview.FaceName(), QStringLiteral("Glyphora Epsilon")); // family, space, subfamily
        }
        {
            CFontPreview preview;
            preview.setFontFile(file(QStringLiteral("delta.ttf")));
            QCOMPARE(preview.FamilyName(), QStringLiteral("Glyphora Delta FR"));
            QCOMPARE(preview.FaceName(), QStringLiteral("Glyphora Delta")); // the full name
        }
        qputenv("LANG", "en_US.UTF-8");
        QVERIFY(!familyAnywhere(QStringLiteral("Glyphora Epsilon")));
        QVERIFY(!familyAnywhere(QStringLiteral("Glyphora Delta")));
    }

    void macintoshOnlyNames()
    {
        CFontPreview preview;
        preview.setFontFile(file(QStringLiteral("mac.ttf")));
        QVERIFY(preview.ValidTrueTypeFile());
        QCOMPARE(preview.FamilyName(), QStringLiteral("Glyphora CafŽ"));
        QCOMPARE(preview.SubFamilyName(), QStringLiteral("RŽgulier"));
        QCOMPARE(preview.FullName(), QStringLiteral("Glyphora CafŽ RŽgulier"));
        QCOMPARE(preview.Copyright(), QStringLiteral("© 1999"));
        QCOMPARE(preview.Trademark(), QString());
    }

    void wrongMagicIsStillOffered()
    {
        CFontPreview preview;
        const int before = m_databaseChanges;
        preview.setFontFile(file(QStringLiteral("faux.ttf")));
        QVERIFY(!preview.ValidTrueTypeFile());
        QCOMPARE(errorNumberOf([&] { preview.FamilyName(); }), 9); // no names of its own
        QVERIFY(!preview.Bold());
        QCOMPARE(preview.FaceName(), QString());
        QVERIFY(!preview.Installed());
        // Offered to the system all the same; unresolved, so it is never taken back.
        QCOMPARE(m_databaseChanges, before + 1);
        QVERIFY(FontRegistration::registeredFamilies().contains(QStringLiteral("Glyphora Faux")));
    }

    void wrongMagicKeepsTheEarlierNames()
    {
        CFontPreview preview;
        preview.setFontFile(file(QStringLiteral("styles.ttf")));
        preview.setFontFile(file(QStringLiteral("faux.ttf")));
        QVERIFY(!preview.ValidTrueTypeFile());
        QCOMPARE(preview.FamilyName(), QStringLiteral("Glyphora Styles")); // not reset between files
        QVERIFY(preview.Bold());
    }

    void folderPathChangesNothing()
    {
        CFontPreview preview;
        preview.setFontFile(Sfnt::installedTrueTypeFile());
        preview.setFontFile(file(QStringLiteral("dossier.ttf")));
        QCOMPARE(preview.FontFile(), Sfnt::installedTrueTypeFile());
        QCOMPARE(preview.FaceName(), QStringLiteral("DejaVu Sans"));
        QVERIFY(preview.Installed());
        QVERIFY(preview.ValidTrueTypeFile());
        preview.setFontFile(m_dir.path());
        preview.setFontFile(file(QStringLiteral("absent.ttf")));
        preview.setFontFile(QString());
        QCOMPARE(preview.FontFile(), Sfnt::installedTrueTypeFile());
        QCOMPARE(preview.FamilyName(), QStringLiteral("DejaVu Sans"));

        CFontPreview fresh;
        fresh.setFontFile(file(QStringLiteral("dossier.ttf")));
        QCOMPARE(fresh.FontFile(), QString());
        QCOMPARE(errorNumberOf([&] { fresh.FamilyName(); }), 9);
    }

    void refusedPathStillLetsThePreviousFileGo()
    {
        // The previous registration goes first, whatever the new path turns out to be.
        CFontPreview preview;
        preview.setFontFile(file(QStringLiteral("essai.ttf")));
        QCOMPARE(preview.FaceName(), QStringLiteral("Glyphora Essai"));
        preview.setFontFile(file(QStringLiteral("dossier.ttf")));
        QCOMPARE(preview.FontFile(), file(QStringLiteral("essai.ttf")));
        QCOMPARE(preview.FaceName(), QString());
        QVERIFY(!preview.ValidTrueTypeFile());
        QCOMPARE(preview.FamilyName(), QStringLiteral("Glyphora Essai"));
        QVERIFY(!familyAnywhere(QStringLiteral("Glyphora Essai")));
    }

    void notAFont()
    {
        CFontPreview preview;
        preview.setFontFile(file(QStringLiteral("texte.ttf")));
        QCOMPARE(preview.FontFile(), file(QStringLiteral("texte.ttf")));
        QVERIFY(!preview.ValidTrueTypeFile());
        QCOMPARE(preview.FaceName(), QString());
        QCOMPARE(errorNumberOf([&] { preview.FullName(); }), 9);
    }

    void relativePaths()
    {
        const QString previous = QDir::currentPath();
        QDir::setCurrent(m_dir.path());
        {
            CFontPreview preview;
            preview.setFontFile(QStringLiteral("essai.ttf"));
            QCOMPARE(preview.FaceName(), QStringLiteral("Glyphora Essai"));
        }
        QDir::setCurrent(previous);
        QVERIFY(!familyAnywhere(QStringLiteral("Glyphora Essai")));
    }
};

GLYPHORA_TEST_MAIN(TestCFontPreview)
#include "test_cfontpreview.moc"
