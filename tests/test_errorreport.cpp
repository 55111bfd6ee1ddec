// The run-time error report, run as the program runs (a child process with its own
// settings): its lines, the exit status, the offer to reset a bad setting, the binary
// settings file set aside, and the sample texts recovered at the next start.
#include "app/debut.h"
#include "app/tglyphora.h"
#include "browser/samplebox.h"
#include "components/errorreport.h"
#include "components/printer.h"
#include "fontfile/fontregistration.h"
#include "support/modalscript.h"
#include "support/sfntwriter.h"
#include "support/testsupport.h"

#include <QAction>
#include <QComboBox>
#include <QDirIterator>
#include <QFile>
#include <QInputDialog>
#include <QLabel>
#include <QTemporaryDir>
#include <QTimer>

namespace {

QString oneLine(QString text)
{
    return text.replace(QLatin1Char('\n'), QLatin1Char('|'));
}

// In the child: answers the report when it comes, after printing its title, text and
// buttons. GLYPHORA_ANSWER=reset chooses "Réinitialiser ce réglage", else the box's
// quit (or OK) button.
void answerTheReport()
{
    auto* poll = new QTimer;
    poll->setInterval(10);
    QObject::connect(poll, &QTimer::timeout, [poll] {
        for (QWidget* top : QApplication::topLevelWidgets()) {
            auto* box = qobject_cast<QMessageBox*>(top);
            if (!box || box->objectName() != QLatin1String("RuntimeErrorBox") || !box->isVisible())
                continue;
            poll->stop();
            QStringList buttons;
            for (QAbstractButton* button : box->buttons())
                buttons.append(button->text());
            buttons.sort();
            std::printf("title=%s\ntext=%s\nbuttons=%s\n", qPrintable(box->windowTitle()), qPrintable(oneLine(box->text())),
                        qPrintable(buttons.join(QLatin1Char('|'))));
            std::fflush(stdout);
            const bool reset = qEnvironmentVariable("GLYPHORA_ANSWER") == QLatin1String("reset");
            QAbstractButton* answer = reset ? box->findChild<QAbstractButton*>(QStringLiteral("ResetSetting"))
                                            : box->button(QMessageBox::Ok);
            if (answer)
                answer->click();
            return;
        }
    });
    poll->start();
}

void printState()
{
    tglyphora* w = tglyphora::instance();
    std::printf("state=%s\n", qPrintable(oneLine(QStringList{
        w->Text1->text().replace(QStringLiteral("\r\n"), QStringLiteral("/")), w->Text2->text(),
        QString::number(w->unite()), QString::number(w->ButtonValue(tglyphora::BoldButton)),
        QString::number(w->ButtonValue(tglyphora::UnderlineButton)), w->Combo1->currentText().trimmed(),
        w->Panel(1)->text()}.join(QLatin1Char(';')))));
    std::fflush(stdout);
}

// The program's start: the report ends it when something fails; otherwise the state.
int start()
{
    answerTheReport();
    ErrorReport::guard([] { debut::Main(); });
    printState();
    return 0;
}

// The user types, chooses a unit, bold and a size, then answers the slideshow's
// question with a pause the timer refuses.
int typeThenFail()
{
    answerTheReport();
    ErrorReport::guard([] { debut::Main(); });
    tglyphora* w = tglyphora::instance();
    w->Text1->setText(QStringLiteral("Mes notes à garder\r\nligne 2"));
    w->Text2->setText(QStringLiteral("Bonjour, ça va ?"));
    w->findChild<QAction*>(QStringLiteral("munit_1"))->trigger();
    w->findChild<QAction*>(QStringLiteral("mbold"))->trigger();
    w->Combo1->setCurrentIndex(26);
    ModalScript script({[](QWidget* modal) {
        if (auto* box = qobject_cast<QInputDialog*>(modal)) {
            box->setTextValue(QStringLiteral("66"));
            box->accept();
        }
    }});
    QTimer::singleShot(0, w, [w] { w->findChild<QAction*>(QStringLiteral("mvisboucle"))->trigger(); });
    QApplication::exec();
    return 0; // not reached
}

// Saving the list into the folder GLYPHORA_FOLDER, which this process may not write.
int saveListInto()
{
    if (!TestSupport::obeyFilePermissions())
        return 98;
    answerTheReport();
    ErrorReport::guard([] { debut::Main(); });
    tglyphora* w = tglyphora::instance();
    ModalScript script({ModalScript::chooseFile(qEnvironmentVariable("GLYPHORA_FOLDER") + QStringLiteral("/listepol.txt"))});
    QTimer::singleShot(0, w, [w] { w->findChild<QAction*>(QStringLiteral("mcreatefile"))->trigger(); });
    QApplication::exec();
    return 0; // not reached
}

// Prints the font list (the design leaves its document open), with a family named
// GLYPHORA_MARKER among the fonts, then fails: the report sends the waiting document.
int printListThenFail()
{
    QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("marque.ttf"));
    Sfnt::writeFile(file, Sfnt::boxFont(qEnvironmentVariable("GLYPHORA_MARKER"), Sfnt::characterRange(U'A', U'z')));
    FontRegistration::add(file);
    answerTheReport();
    ErrorReport::guard([] { debut::Main(); });
    tglyphora* w = tglyphora::instance();
    w->charge();
    ModalScript script({ModalScript::clickButton(QMessageBox::Yes), [](QWidget* modal) {
                            if (auto* box = qobject_cast<QInputDialog*>(modal)) {
                                box->setTextValue(QStringLiteral("-1"));
                                box->accept();
                            }
                        }});
    QTimer::singleShot(0, w, [w] {
        w->findChild<QAction*>(QStringLiteral("mimpnames"))->trigger();
        std::printf("open=%d\n", int(Printer::instance().hasOpenDocument()));
        std::fflush(stdout);
        w->findChild<QAction*>(QStringLiteral("mvisboucle"))->trigger();
    });
    QApplication::exec();
    return 0; // not reached
}

// PDFs the queue wrote after `since` that hold the text, once the queue is empty.
QString pdfHolding(const QDateTime& since, const QString& text)
{
    QString found;
    TestSupport::waitFor([&] {
        QProcess lpstat;
        lpstat.start(QStringLiteral("lpstat"), {QStringLiteral("-o")});
        lpstat.waitForFinished(10000);
        if (!lpstat.readAllStandardOutput().trimmed().isEmpty())
            return false;
        QDirIterator files(TestSupport::pdfOutputFolder(), {QStringLiteral("*.pdf")}, QDir::Files,
                           QDirIterator::Subdirectories);
        while (files.hasNext()) {
            const QFileInfo info(files.next());
            if (info.lastModified() >= since && TestSupport::pdfText(info.filePath()).contains(text))
                found = info.filePath();
        }
        return !found.isEmpty();
    }, 60000);
    return found;
}

const bool registered = [] {
    TestSupport::registerScenario(QStringLiteral("print-list-then-fail"), &printListThenFail);
    TestSupport::registerScenario(QStringLiteral("start"), &start);
    TestSupport::registerScenario(QStringLiteral("type-then-fail"), &typeThenFail);
    TestSupport::registerScenario(QStringLiteral("save-list-into"), &saveListInto);
    return true;
}();

QString line(const TestSupport::ChildResult& child, const QString& name)
{
    for (const QString& l : child.out.split(QLatin1Char('\n')))
        if (l.startsWith(name + QLatin1Char('=')))
            return l.mid(name.size() + 1);
    return QString();
}

QString settingsText()
{
    QFile file(TestSupport::settingsFile());
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

} // namespace

class TestErrorReport : public QObject {
    Q_OBJECT

private:
    void prepare()
    {
        TestSupport::clearSettings();
        QFile::remove(TestSupport::settingsFile() + QStringLiteral(".illisible"));
        TestSupport::writeSetting(QStringLiteral("Donation"), QStringLiteral("Merci"), QStringLiteral("oui"));
    }

private Q_SLOTS:
    void init() { prepare(); }

    void aBadSettingIsReportedAndCanBeReset_data()
    {
        QTest::addColumn<QString>("key");
        QTest::addColumn<QString>("value");
        QTest::addColumn<int>("number");
        QTest::addColumn<QString>("why");
        QTest::newRow("TaillePol abc") << "TaillePol" << "abc" << 13 << "« abc » n'est pas un nombre.";
        QTest::newRow("TaillePol 99999") << "TaillePol" << "99999" << 6 << "« 99999 » n'est pas une taille de 4 à 120.";
        QTest::newRow("TaillePol -13") << "TaillePol" << "-13" << 380 << "« -13 » n'est pas une taille de 4 à 120.";
        QTest::newRow("Gras abc") << "Gras" << "abc" << 13 << "« abc » n'est pas un nombre.";
        QTest::newRow("pref maybe") << "pref" << "maybe" << 13 << "« maybe » n'est ni True ni False.";
        QTest::newRow("unite abc") << "unite" << "abc" << 13 << "« abc » n'est pas un nombre.";
        QTest::newRow("CoulTxt 99999999999") << "CoulTxt" << "99999999999" << 6
                                             << "« 99999999999 » n'est pas un nombre entier de -2147483648 à 2147483647.";
    }

    void aBadSettingIsReportedAndCanBeReset()
    {
        QFETCH(QString, key);
        QFETCH(QString, value);
        QFETCH(int, number);
        QFETCH(QString, why);
        const QString param = QStringLiteral("Param");
        if (key != QLatin1String("pref"))
            TestSupport::writeSetting(param, QStringLiteral("pref"), QStringLiteral("True"));
        TestSupport::writeSetting(param, QStringLiteral("Texte2"), QStringLiteral("gardé"));
        TestSupport::writeSetting(param, key, value);

        // Quitter: the report, the status, and nothing touched.
        const QString before = settingsText();
        const auto quit = TestSupport::runScenario(QStringLiteral("start"));
        QCOMPARE(quit.exitStatus, QProcess::NormalExit);
        QCOMPARE(quit.exitCode, ErrorReport::ExitStatus);
        QCOMPARE(line(quit, QStringLiteral("title")), QStringLiteral("Glyphora"));
        const QString text = line(quit, QStringLiteral("text"));
        QVERIFY2(text.startsWith(QStringLiteral("Erreur d'exécution '%1' :||").arg(number)), qPrintable(quit.out + quit.err));
        QVERIFY2(text.endsWith(QStringLiteral("||Réglage Param/") + key + QStringLiteral(" du fichier ")
                               + TestSupport::settingsFile() + QStringLiteral(" : ") + why),
                 qPrintable(text));
        QCOMPARE(line(quit, QStringLiteral("buttons")), QStringLiteral("Quitter|Réinitialiser ce réglage"));
        QVERIFY(line(quit, QStringLiteral("state")).isEmpty());
        QCOMPARE(settingsText(), before);

        // Réinitialiser ce réglage: only that key goes, and the next start works.
        const auto reset = TestSupport::runScenario(QStringLiteral("start"), {QStringLiteral("GLYPHORA_ANSWER=reset")});
        QCOMPARE(reset.exitCode, ErrorReport::ExitStatus);
        QVERIFY(!TestSupport::hasSetting(param, key));
        QCOMPARE(TestSupport::readSetting(param, QStringLiteral("Texte2")), QStringLiteral("gardé"));
        QCOMPARE(TestSupport::readSetting(QStringLiteral("Donation"), QStringLiteral("Merci")), QStringLiteral("oui"));
        const auto next = TestSupport::runScenario(QStringLiteral("start"));
        QCOMPARE(next.exitCode, 0);
        QVERIFY2(!line(next, QStringLiteral("state")).isEmpty(), qPrintable(next.out + next.err));
    }

    void anUnreadableSettingsFileIsSetAside()
    {
        QByteArray garbage;
        for (int i = 0; i < 4096; ++i)
            garbage.append(char((i * 7919 + 13) % 256));
        QFile file(TestSupport::settingsFile());
        QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        file.write(garbage);
        file.close();

        const auto quit = TestSupport::runScenario(QStringLiteral("start"));
        QCOMPARE(quit.exitCode, ErrorReport::ExitStatus);
        QVERIFY2(line(quit, QStringLiteral("text")).endsWith(QStringLiteral("||Lecture du fichier de réglages ")
                                                             + TestSupport::settingsFile()
                                                             + QStringLiteral(" : le fichier est illisible.")),
                 qPrintable(quit.out + quit.err));
        QCOMPARE(line(quit, QStringLiteral("buttons")), QStringLiteral("Quitter|Réinitialiser ce réglage"));
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(file.readAll(), garbage); // untouched, not even by the recovery
        file.close();

        const auto reset = TestSupport::runScenario(QStringLiteral("start"), {QStringLiteral("GLYPHORA_ANSWER=reset")});
        QCOMPARE(reset.exitCode, ErrorReport::ExitStatus);
        QVERIFY(!QFile::exists(TestSupport::settingsFile()));
        QFile aside(TestSupport::settingsFile() + QStringLiteral(".illisible"));
        QVERIFY(aside.open(QIODevice::ReadOnly));
        QCOMPARE(aside.readAll(), garbage);

        TestSupport::writeSetting(QStringLiteral("Donation"), QStringLiteral("Merci"), QStringLiteral("oui"));
        const auto next = TestSupport::runScenario(QStringLiteral("start"));
        QCOMPARE(next.exitCode, 0);
        QVERIFY(!line(next, QStringLiteral("state")).isEmpty());
    }

    void typedTextsComeBackOnceAfterTheError()
    {
        const auto failed = TestSupport::runScenario(QStringLiteral("type-then-fail"));
        QCOMPARE(failed.exitCode, ErrorReport::ExitStatus);
        QCOMPARE(line(failed, QStringLiteral("text")),
                 QStringLiteral("Erreur d'exécution '380' :||Valeur de propriété incorrecte||Visualisation en boucle avec "
                                "« 66 » secondes d'attente : l'attente doit être comprise entre 0 et 65,535 secondes."));
        QCOMPARE(line(failed, QStringLiteral("buttons")), QStringLiteral("OK"));
        QCOMPARE(TestSupport::readSetting(QStringLiteral("Recuperation"), QStringLiteral("Texte2")),
                 QStringLiteral("Bonjour, ça va ?"));

        const auto restored = TestSupport::runScenario(QStringLiteral("start"));
        QCOMPARE(restored.exitCode, 0);
        QCOMPARE(line(restored, QStringLiteral("state")),
                 QStringLiteral("Mes notes à garder/ligne 2;Bonjour, ça va ?;2;1;0;30;"
                                "Textes d'exemple récupérés après l'erreur précédente"));
        QVERIFY(!TestSupport::hasSetting(QStringLiteral("Recuperation"), QStringLiteral("Texte1")));

        const auto again = TestSupport::runScenario(QStringLiteral("start"));
        const QString state = line(again, QStringLiteral("state"));
        QVERIFY2(state.startsWith(QStringLiteral("ABCDEFGHIJKLMNOPQRSTUVWXYZ/")), qPrintable(state));
        QVERIFY(state.contains(QStringLiteral(";Texte d'essai;")));
        QVERIFY(!state.contains(QStringLiteral("récupérés")));
    }

    void savingTheListWhereItCannotBeWrittenSaysWhere()
    {
        QTemporaryDir root;
        const QString folder = root.filePath(QStringLiteral("lecture-seule"));
        QVERIFY(QDir().mkpath(folder));
        QVERIFY(QFile::setPermissions(folder, QFile::ReadOwner | QFile::ExeOwner | QFile::ReadOther | QFile::ExeOther));
        const auto child = TestSupport::runScenario(QStringLiteral("save-list-into"),
                                                    {QStringLiteral("GLYPHORA_FOLDER=") + folder});
        QFile::setPermissions(folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        QCOMPARE(child.exitCode, ErrorReport::ExitStatus);
        const QString text = line(child, QStringLiteral("text"));
        QVERIFY2(text.startsWith(QStringLiteral("Erreur d'exécution '75' :||")), qPrintable(child.out + child.err));
        QVERIFY2(text.endsWith(QStringLiteral("||Enregistrement de la liste dans ") + folder
                               + QStringLiteral("/listepol.txt : permission refusée.")),
                 qPrintable(text));
        QVERIFY(!QFile::exists(folder + QStringLiteral("/listepol.txt")));
        // The recovery of the untouched samples is there for the next start.
        QCOMPARE(TestSupport::readSetting(QStringLiteral("Recuperation"), QStringLiteral("Texte2")),
                 QStringLiteral("Texte d'essai"));
    }

    void aWaitingPrintDocumentIsSentBeforeTheEnd()
    {
        if (!TestSupport::requirePrinter()) {
            if (qEnvironmentVariableIsSet("GLYPHORA_REQUIRE_PRINTER"))
                QFAIL("no default printer");
            QSKIP("no default printer");
        }
        const QString marker = QStringLiteral("Glyphora Marque %1").arg(QDateTime::currentMSecsSinceEpoch());
        const QDateTime since = QDateTime::currentDateTime().addSecs(-1);
        const auto child = TestSupport::runScenario(QStringLiteral("print-list-then-fail"),
                                                    {QStringLiteral("GLYPHORA_MARKER=") + marker});
        QCOMPARE(child.exitCode, ErrorReport::ExitStatus);
        QCOMPARE(line(child, QStringLiteral("open")), QStringLiteral("1")); // left open by the command
        QVERIFY2(line(child, QStringLiteral("text")).startsWith(QStringLiteral("Erreur d'exécution '380'")),
                 qPrintable(child.out + child.err));
        QVERIFY2(!pdfHolding(since, marker).isEmpty(), qPrintable(marker));
    }

    void contextLinesAreMadeFromTheInnermostScope()
    {
        RuntimeError outside(5, QStringLiteral("x"), QStringLiteral("Argument ou appel de procédure incorrect"));
        QCOMPARE(ErrorReport::contextLine(outside), QString());
        const ErrorReport::Doing outer(QStringLiteral("Extérieur"));
        {
            const ErrorReport::Doing inner(QStringLiteral("Intérieur"));
            const RuntimeError error(5, QStringLiteral("x"), QStringLiteral("Argument ou appel de procédure incorrect"));
            QCOMPARE(ErrorReport::contextLine(error), QStringLiteral("Intérieur : argument ou appel de procédure incorrect."));
        }
        const RuntimeError later = RuntimeError::fileError(RuntimeError::PathNotFound, QStringLiteral("/nulle/part/x.txt"));
        QCOMPARE(ErrorReport::contextLine(later), QStringLiteral("Extérieur : dossier introuvable."));
        QCOMPARE(later.description(), QStringLiteral("Chemin d'accès introuvable : /nulle/part/x.txt"));
    }
};

GLYPHORA_TEST_MAIN(TestErrorReport)
#include "test_errorreport.moc"
