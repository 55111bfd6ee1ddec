// The about box: six tabs, the version lines and links, the splash shown from it.
#include "about/about.h"
#include "app/splash.h"
#include "app/tglyphora.h"
#include "support/testsupport.h"

#include <QDesktopServices>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QTabBar>
#include <QTextEdit>

class UrlRecorder : public QObject {
    Q_OBJECT
public:
    QList<QUrl> opened;
public Q_SLOTS:
    void open(const QUrl& url) { opened.append(url); }
};

class TestAbout : public QObject {
    Q_OBJECT

private:
    UrlRecorder recorder;

private Q_SLOTS:
    void initTestCase()
    {
        for (const char* scheme : {"http", "https", "mailto"})
            QDesktopServices::setUrlHandler(QString::fromLatin1(scheme), &recorder, "open");
    }

    void cleanupTestCase()
    {
        for (const char* scheme : {"http", "https", "mailto"})
            QDesktopServices::unsetUrlHandler(QString::fromLatin1(scheme));
    }

    void sixTabsEachShowingItsPanel()
    {
        about box;
        box.show();
        auto* tabs = box.findChild<QTabBar*>(QStringLiteral("TabStrip1"));
        QVERIFY(tabs);
        QStringList captions;
        for (int i = 0; i < tabs->count(); ++i)
            captions.append(tabs->tabText(i));
        QCOMPARE(captions, (QStringList{QStringLiteral("Glyphora"), QStringLiteral("Version"), QStringLiteral("Cancer"),
                                        QStringLiteral("Donation"), QStringLiteral("Crédits"), QStringLiteral("Autres programmes")}));
        const QList<QWidget*> panels = {box.FrmGlyphora, box.List1, box.FrmCancer, box.FrmDonation, box.Text1, box.FrmAutres};
        QCOMPARE(box.FrmGlyphora->objectName(), QStringLiteral("FrmGlyphora"));
        QCOMPARE(box.List1->objectName(), QStringLiteral("List1"));
        QCOMPARE(box.FrmCancer->objectName(), QStringLiteral("FrmCancer"));
        QCOMPARE(box.FrmDonation->objectName(), QStringLiteral("FrmDonation"));
        QCOMPARE(box.Text1->objectName(), QStringLiteral("Text1"));
        for (int tab = 1; tab <= 6; ++tab) {
            tabs->setCurrentIndex(tab - 1);
            for (int p = 0; p < 6; ++p)
                QCOMPARE(panels[p]->isVisible(), p == tab - 1);
        }
        const QPoint place = panels[5]->pos();
        box.TabStrip1_Click(2);
        QCOMPARE(box.List1->pos(), place);
        // An index outside 1..6 changes nothing.
        box.TabStrip1_Click(0);
        box.TabStrip1_Click(7);
        QVERIFY(box.List1->isVisible());
        QCOMPARE(tabs->currentIndex(), 1);
    }

    void versionLines()
    {
        about box;
        box.show();
        QStringList lines;
        for (int i = 0; i < box.List1->count(); ++i)
            lines.append(box.List1->item(i)->text());
        QCOMPARE(lines.size(), 10);
        QCOMPARE(lines[0], QStringLiteral("Major version number\t3"));
        QCOMPARE(lines[1], QStringLiteral("Minor version number\t3"));
        QCOMPARE(lines[2], QStringLiteral("Revision\t\t\t0"));
        QVERIFY(lines[3].startsWith(QStringLiteral("Comment\t\t\t")) && lines[3].size() > 10);
        QVERIFY(lines[4].startsWith(QStringLiteral("Company name\t\t")) && !lines[4].endsWith(QLatin1Char('\t')));
        QCOMPARE(lines[5], QStringLiteral("Exe name\t\t\tglyphora"));
        QVERIFY(lines[6].startsWith(QStringLiteral("File Description\t\t")));
        QVERIFY(lines[7].startsWith(QStringLiteral("Legal Copyright\t\t")));
        QVERIFY(lines[8].startsWith(QStringLiteral("Legal Trademarks\t\t")));
        QCOMPARE(lines[9], QStringLiteral("Product Name\t\tGlyphora"));
        for (const QString& line : lines)
            QVERIFY2(!line.section(QLatin1Char('\t'), -1).isEmpty(), qPrintable(line));
    }

    void linksOpenTheirPages()
    {
        about box;
        box.show();
        recorder.opened.clear();
        box.TabStrip1_Click(1);
        QTest::mouseClick(box.findChild<QLabel*>(QStringLiteral("lblTitle")), Qt::LeftButton);
        QTest::mouseClick(box.findChild<QLabel*>(QStringLiteral("Label3")), Qt::LeftButton);
        QTest::mouseClick(box.findChild<QLabel*>(QStringLiteral("Label7")), Qt::LeftButton);
        box.TabStrip1_Click(3);
        QTest::mouseClick(box.findChild<QLabel*>(QStringLiteral("Label4")), Qt::LeftButton);
        box.TabStrip1_Click(4);
        QTest::mouseClick(box.findChild<QPushButton*>(QStringLiteral("Command2")), Qt::LeftButton);
        QCOMPARE(recorder.opened.size(), 5);
        QVERIFY(recorder.opened[0].toString().endsWith(QStringLiteral("/glyphora.phtml")));
        // Major 3, minor 3, revision 0 written one after another.
        QVERIFY2(recorder.opened[1].toString().endsWith(QStringLiteral("/verfont.phtml?version=330")),
                 qPrintable(recorder.opened[1].toString()));
        QCOMPARE(recorder.opened[2].scheme(), QStringLiteral("mailto"));
        QVERIFY(recorder.opened[3].host().endsWith(QStringLiteral("example.org")));
        QVERIFY(recorder.opened[4].host().endsWith(QStringLiteral("example.org")));
    }

    void donationText()
    {
        about box;
        box.show();
        const QStringList lines = box.txtDonation->toPlainText().split(QLatin1Char('\n'));
        QCOMPARE(lines.size(), 6);
        QCOMPARE(lines[0], QStringLiteral("Glyphora est gratuit et restera gratuit"));
        QCOMPARE(lines[1], QStringLiteral("Il n'y a pas d'obligation de payer quoi que ce soit."));
        QVERIFY(lines[2].startsWith(QStringLiteral("Mais comme la réservation d'un nom de domaine")));
        QCOMPARE(lines[3], QString());
        QCOMPARE(lines[5], QStringLiteral("Appuyer sur le bouton pour faire une donation"));
    }

    void closeButtonAndPicture()
    {
        about box;
        box.show();
        QTest::mouseClick(box.findChild<QPushButton*>(QStringLiteral("Command1")), Qt::LeftButton);
        QVERIFY(!box.isVisible());
        about other;
        other.show();
        QTest::mouseClick(other.findChild<QLabel*>(QStringLiteral("Image1")), Qt::LeftButton);
        QVERIFY(!other.isVisible());
    }

    void splashFromTheAboutBox()
    {
        about box;
        box.show();
        QString text;
        TestSupport::whenModal([&](QWidget* modal) {
            auto* splash = qobject_cast<Splash*>(modal);
            QVERIFY(splash);
            text = splash->LoadMsg->text();
            QTest::keyClick(splash, Qt::Key_Space);
        });
        box.lblSplash_Click();
        QCOMPARE(text, QStringLiteral("Merci de faire une donation\r\nAllez voir la fenêtre 'A propos de'"));
        QVERIFY(box.isVisible());
    }

    void mainWindowOpensTheBoxModally()
    {
        tglyphora w;
        w.show();
        bool modal = false;
        QString title;
        TestSupport::whenModal([&](QWidget* widget) {
            modal = qobject_cast<about*>(widget) != nullptr;
            title = widget->windowTitle();
            static_cast<QDialog*>(widget)->accept();
        });
        w.findChild<QAction*>(QStringLiteral("mabout"))->trigger();
        QVERIFY(modal);
        TestSupport::whenModal([](QWidget* widget) { static_cast<QDialog*>(widget)->accept(); });
        w.Toolbar1_ButtonClick(21);
    }
};

GLYPHORA_TEST_MAIN(TestAbout)
#include "test_about.moc"
