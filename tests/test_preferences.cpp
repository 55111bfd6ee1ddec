// Preferences: saved on request, restored by the next main window; the unit on close.
#include "app/tglyphora.h"
#include "browser/samplebox.h"
#include "components/errorreport.h"
#include "support/testsupport.h"

#include <QAction>
#include <QComboBox>
#include <QFile>

namespace {

// Saves through the menu, answering the confirmation box; returns its text.
QString savePreferences(tglyphora& w)
{
    QString text;
    TestSupport::whenModal([&](QWidget* modal) {
        auto* box = qobject_cast<QMessageBox*>(modal);
        if (!box)
            return;
        text = box->windowTitle() + QLatin1Char('|') + box->text();
        box->button(QMessageBox::Ok)->click();
    });
    w.findChild<QAction*>(QStringLiteral("msavepref"))->trigger();
    return text;
}

int countKey(const QString& key)
{
    QFile file(TestSupport::settingsFile());
    if (!file.open(QIODevice::ReadOnly))
        return -1;
    int count = 0;
    for (const QByteArray& line : file.readAll().split('\n'))
        if (line.startsWith(key.toUtf8() + '='))
            ++count;
    return count;
}

// A window that loads the settings as the program does, for a bad stored value.
int loadWithBadSize()
{
    TestSupport::whenModal([](QWidget* modal) {
        if (auto* box = qobject_cast<QMessageBox*>(modal)) {
            std::printf("text=%s\n", qPrintable(box->text()));
            std::fflush(stdout);
            box->button(QMessageBox::Ok)->click();
        }
    });
    ErrorReport::guard([] { (new tglyphora)->show(); });
    std::printf("loaded\n");
    return 0;
}

const bool registered = [] {
    TestSupport::registerScenario(QStringLiteral("bad-size"), &loadWithBadSize);
    return true;
}();

} // namespace

class TestPreferences : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { TestSupport::clearSettings(); }

    void firstStartShowsTheDefaults()
    {
        tglyphora w;
        w.show();
        QCOMPARE(w.Combo1->currentText(), QStringLiteral(" 13"));
        QCOMPARE(w.Text1->font().pointSize(), 13);
        for (int button : {12, 13, 14, 15})
            QCOMPARE(w.ButtonValue(button), 0);
        QVERIFY(!TestSupport::hasSetting(QStringLiteral("Param"), QStringLiteral("pref")));
    }

    void savedLookComesBackAtTheNextStart()
    {
        {
            tglyphora w;
            w.show();
            w.Combo1->setCurrentIndex(32); // 36
            w.Button(12)->trigger();
            w.Button(13)->trigger();
            w.Button(9)->trigger();
            w.Text1->setForeColor(QColor(0x11, 0x22, 0x33));
            w.Text2->setForeColor(QColor(0x11, 0x22, 0x33));
            w.Text1->setBackColor(QColor(0xFA, 0xF0, 0x64));
            w.Text2->setBackColor(QColor(0xFA, 0xF0, 0x64));
            w.Text1->setText(QStringLiteral("Première ligne\r\nseconde ligne\r\n\r\nquatrième"));
            w.Text2->setText(QStringLiteral("essai\r\nsur deux lignes"));
            const QString message = savePreferences(w);
            QCOMPARE(message, QStringLiteral("Glyphora|Tous les paramètres tels que la taille de la police, sa couleur, "
                                             "gras ou pas, italique ou pas, barré ou pas .... ont été sauvegardés et "
                                             "seront restaurés à chaque lancement de Glyphora"));
        }
        QCOMPARE(TestSupport::readSetting(QStringLiteral("Param"), QStringLiteral("CoulTxt")), QString::number(0x332211));
        QCOMPARE(TestSupport::readSetting(QStringLiteral("Param"), QStringLiteral("CoulFond")), QString::number(0x64F0FA));
        QCOMPARE(TestSupport::readSetting(QStringLiteral("Param"), QStringLiteral("TaillePol")), QStringLiteral("36"));
        QCOMPARE(TestSupport::readSetting(QStringLiteral("Param"), QStringLiteral("Gras")), QStringLiteral("1"));
        QCOMPARE(TestSupport::readSetting(QStringLiteral("Param"), QStringLiteral("Souligne")), QStringLiteral("0"));
        QCOMPARE(TestSupport::readSetting(QStringLiteral("Param"), QStringLiteral("Align")), QStringLiteral("1"));

        tglyphora again;
        again.show();
        QCOMPARE(again.ButtonValue(12), 1);
        QCOMPARE(again.ButtonValue(13), 1);
        QCOMPARE(again.ButtonValue(14), 0);
        QCOMPARE(again.ButtonValue(15), 0);
        QCOMPARE(again.ButtonValue(9), 1);
        QCOMPARE(again.ButtonValue(8), 0);
        QCOMPARE(again.Text1->alignment(), 2);
        QCOMPARE(again.Text2->alignment(), 2);
        QCOMPARE(again.Text1->ForeColor(), QColor(0x11, 0x22, 0x33));
        QCOMPARE(again.Text2->ForeColor(), QColor(0x11, 0x22, 0x33));
        QCOMPARE(again.Text1->BackColor(), QColor(0xFA, 0xF0, 0x64));
        QCOMPARE(again.Text2->BackColor(), QColor(0xFA, 0xF0, 0x64));
        QCOMPARE(again.Combo1->currentText(), QStringLiteral(" 36"));
        QCOMPARE(again.Text1->font().pointSize(), 36);
        QCOMPARE(again.Text2->font().pointSize(), 36);
        QVERIFY(again.Text1->font().bold() && again.Text2->font().italic());
        QCOMPARE(again.Text1->text(), QStringLiteral("Première ligne\r\nseconde ligne\r\n\r\nquatrième"));
        QCOMPARE(again.Text2->text(), QStringLiteral("essai\r\nsur deux lignes"));
    }

    void savingTwiceKeepsOneValuePerKey()
    {
        tglyphora w;
        w.show();
        savePreferences(w);
        w.Button(14)->trigger();
        savePreferences(w);
        for (const char* key : {"pref", "Gras", "Italique", "Souligne", "Barre", "CoulTxt", "CoulFond", "TaillePol", "Texte1", "Texte2"})
            QCOMPARE(countKey(QString::fromLatin1(key)), 1);
        QCOMPARE(TestSupport::readSetting(QStringLiteral("Param"), QStringLiteral("Souligne")), QStringLiteral("1"));
    }

    void noAlignmentButtonLeavesAlignUnchanged()
    {
        TestSupport::writeSetting(QStringLiteral("Param"), QStringLiteral("Align"), QStringLiteral("2"));
        tglyphora w;
        w.show();
        QCOMPARE(w.ButtonValue(8) + w.ButtonValue(9) + w.ButtonValue(10), 0);
        savePreferences(w);
        QCOMPARE(TestSupport::readSetting(QStringLiteral("Param"), QStringLiteral("Align")), QStringLiteral("2"));
        w.Button(8)->trigger();
        savePreferences(w);
        QCOMPARE(TestSupport::readSetting(QStringLiteral("Param"), QStringLiteral("Align")), QStringLiteral("0"));
    }

    void missingSizeGivesFifteen()
    {
        TestSupport::writeSetting(QStringLiteral("Param"), QStringLiteral("pref"), QStringLiteral("True"));
        tglyphora w;
        w.show();
        QCOMPARE(w.Text1->font().pointSize(), 15);
        QCOMPARE(w.Text2->font().pointSize(), 15);
        QCOMPARE(w.Combo1->currentText(), QStringLiteral(" 15"));
        // Align missing: left.
        QCOMPARE(w.ButtonValue(8), 1);
    }

    void unitIsStoredWhenTheWindowCloses()
    {
        auto* w = new tglyphora;
        w->show();
        w->munit_Click(0);
        QVERIFY(!TestSupport::hasSetting(QStringLiteral("Param"), QStringLiteral("unite")));
        w->close();
        QCOMPARE(TestSupport::readSetting(QStringLiteral("Param"), QStringLiteral("unite")), QStringLiteral("1"));
        delete w;
        // Saving the preferences does not write it.
        TestSupport::clearSettings();
        tglyphora other;
        other.show();
        other.munit_Click(3);
        savePreferences(other);
        QVERIFY(!TestSupport::hasSetting(QStringLiteral("Param"), QStringLiteral("unite")));
        tglyphora third;
        third.show();
        QCOMPARE(third.unite(), 6);
    }

    void unreadableSizeIsARunTimeError()
    {
        TestSupport::writeSetting(QStringLiteral("Param"), QStringLiteral("pref"), QStringLiteral("True"));
        TestSupport::writeSetting(QStringLiteral("Param"), QStringLiteral("TaillePol"), QStringLiteral("abc"));
        const auto child = TestSupport::runScenario(QStringLiteral("bad-size"));
        QCOMPARE(child.exitStatus, QProcess::NormalExit);
        QCOMPARE(child.exitCode, ErrorReport::ExitStatus);
        QVERIFY2(child.out.contains(QStringLiteral("Erreur d'exécution '13'")), qPrintable(child.out + child.err));
        QVERIFY(child.out.contains(QStringLiteral("Incompatibilité de type")));
        QVERIFY(!child.out.contains(QStringLiteral("loaded")));
    }

    void outOfRangeSizeIsARunTimeError()
    {
        TestSupport::writeSetting(QStringLiteral("Param"), QStringLiteral("pref"), QStringLiteral("True"));
        TestSupport::writeSetting(QStringLiteral("Param"), QStringLiteral("TaillePol"), QStringLiteral("200"));
        const auto child = TestSupport::runScenario(QStringLiteral("bad-size"));
        QCOMPARE(child.exitCode, ErrorReport::ExitStatus);
        QVERIFY2(child.out.contains(QStringLiteral("Erreur d'exécution '380'")), qPrintable(child.out + child.err));
    }

    void hugeColourIsAnOverflow()
    {
        TestSupport::writeSetting(QStringLiteral("Param"), QStringLiteral("pref"), QStringLiteral("True"));
        TestSupport::writeSetting(QStringLiteral("Param"), QStringLiteral("CoulTxt"), QStringLiteral("99999999999"));
        const auto child = TestSupport::runScenario(QStringLiteral("bad-size"));
        QCOMPARE(child.exitCode, ErrorReport::ExitStatus);
        QVERIFY2(child.out.contains(QStringLiteral("Erreur d'exécution '6'")), qPrintable(child.out + child.err));
        QVERIFY(child.out.contains(QStringLiteral("Dépassement de capacité")));
    }
};

GLYPHORA_TEST_MAIN(TestPreferences)
#include "test_preferences.moc"
