// No exception crosses Qt: each menu command that can fail, triggered as the menu does
// (QAction::activate), ends in the run-time error report from its own boundary; none
// reaches the application object's last-resort catch, which says so on stderr. Built
// with AddressSanitizer, the same runs are made with the leak checker on and must show
// no leak of the program's own (what Qt allocates around a call leaks when an exception
// unwinds through a Qt built without unwinding support).
#include "app/debut.h"
#include "app/tglyphora.h"
#include "components/errorreport.h"
#include "support/modalscript.h"
#include "support/testsupport.h"

#include <QAction>
#include <QInputDialog>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTimer>
#include <QTreeWidget>

#if defined(__SANITIZE_ADDRESS__)
#define GLYPHORA_WITH_ASAN 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define GLYPHORA_WITH_ASAN 1
#endif
#endif

namespace {

// The commands, each with what sets it up to fail and the error it ends in.
struct Command {
    const char* action;
    bool withoutSelection;
    QString answer; // typed into the dialog the command opens, if any
    int number;
};

const Command commands[] = {
    {"mcreatefile", false, QStringLiteral("/nulle-part/glyphora/listepol.txt"), 76},
    {"mvisboucle", false, QStringLiteral("66"), 380},
    {"mclipboard", true, QString(), 91},
    {"mautretable", true, QString(), 91},
    {"mimgfond", true, QString(), 91},
    {"municode", true, QString(), 91},
};

// Child: opens the program, sets up the command named by GLYPHORA_COMMAND to fail and
// triggers its menu item. The report is answered; the program ends in it.
int failingCommand()
{
    const QString name = qEnvironmentVariable("GLYPHORA_COMMAND");
    const Command* command = nullptr;
    for (const Command& c : commands)
        if (name == QLatin1String(c.action))
            command = &c;
    if (!command)
        return 97;
    ErrorReport::guard([] { debut::Main(); });
    tglyphora* w = tglyphora::instance();
    if (command->withoutSelection)
        w->List1->setCurrentItem(nullptr);
    const QString answer = command->answer;
    ModalScript script({[answer](QWidget* modal) {
                            if (auto* input = qobject_cast<QInputDialog*>(modal)) {
                                input->setTextValue(answer);
                                input->accept();
                            } else if (auto* box = qobject_cast<QMessageBox*>(modal)) {
                                std::printf("report=%s\n", qPrintable(box->text().simplified()));
                                std::fflush(stdout);
                                box->button(QMessageBox::Ok)->click();
                            } else {
                                ModalScript::chooseFile(answer)(modal);
                            }
                        },
                        [](QWidget* modal) {
                            if (auto* box = qobject_cast<QMessageBox*>(modal)) {
                                std::printf("report=%s\n", qPrintable(box->text().simplified()));
                                std::fflush(stdout);
                                box->button(QMessageBox::Ok)->click();
                            }
                        }});
    QAction* action = w->findChild<QAction*>(QString::fromLatin1(command->action));
    QTimer::singleShot(0, action, [action] { action->trigger(); });
    QApplication::exec();
    return 0; // not reached
}

const bool registered = [] {
    TestSupport::registerScenario(QStringLiteral("failing-command"), &failingCommand);
    return true;
}();

// The leak reports LeakSanitizer printed, one block per leak.
QStringList leaksIn(const QString& err)
{
    QStringList leaks;
    const QStringList blocks = err.split(QRegularExpression(QStringLiteral("\n(?=(Direct|Indirect) leak of )")));
    for (const QString& block : blocks)
        if (block.startsWith(QLatin1String("Direct leak")) || block.startsWith(QLatin1String("Indirect leak")))
            leaks.append(block.left(2500));
    return leaks;
}

} // namespace

class TestExceptionBoundary : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        TestSupport::clearSettings();
        TestSupport::writeSetting(QStringLiteral("Donation"), QStringLiteral("Merci"), QStringLiteral("oui"));
    }

    void eachFailingCommandIsReportedFromItsOwnBoundary_data()
    {
        QTest::addColumn<QString>("action");
        QTest::addColumn<int>("number");
        for (const Command& c : commands)
            QTest::newRow(c.action) << QString::fromLatin1(c.action) << c.number;
    }

    void eachFailingCommandIsReportedFromItsOwnBoundary()
    {
        QFETCH(QString, action);
        QFETCH(int, number);
        QStringList environment{QStringLiteral("GLYPHORA_COMMAND=") + action};
#ifdef GLYPHORA_WITH_ASAN
        // fontconfig keeps part of its parsed configuration for the life of the process:
        // that is the library's own, not the program's.
        QTemporaryDir folder;
        const QString suppressions = folder.filePath(QStringLiteral("lsan.supp"));
        QFile file(suppressions);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("leak:libfontconfig.so\n");
        file.close();
        environment << QStringLiteral("ASAN_OPTIONS=detect_leaks=1:fast_unwind_on_malloc=0:malloc_context_size=40")
                    << QStringLiteral("LSAN_OPTIONS=suppressions=") + suppressions;
#endif
        const auto child = TestSupport::runScenario(QStringLiteral("failing-command"), environment);
        QCOMPARE(child.exitStatus, QProcess::NormalExit);
        QVERIFY2(child.out.contains(QStringLiteral("report=Erreur d'exécution '%1'").arg(number)),
                 qPrintable(child.out + child.err.left(3000)));
        QVERIFY2(!child.err.contains(QStringLiteral("non interceptée")), qPrintable(child.err.left(3000)));
#ifdef GLYPHORA_WITH_ASAN
        const QStringList leaks = leaksIn(child.err);
        QVERIFY2(leaks.isEmpty(), qPrintable(leaks.join(QStringLiteral("\n----\n"))));
#endif
        QCOMPARE(child.exitCode, ErrorReport::ExitStatus);
    }
};

GLYPHORA_TEST_MAIN(TestExceptionBoundary)
#include "test_exceptionboundary.moc"
