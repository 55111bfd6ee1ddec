// Shared test harness: an isolated settings folder per test process, driving modal
// dialogs, running a scenario in a child process, fonts and the PDF printer queue.
#pragma once

#include <QAbstractButton>
#include <QMessageBox>
#include <QProcess>
#include <QString>
#include <QStringList>
#include <QtTest>
#include <functional>

class QWidget;

namespace TestSupport {

// Prepares the environment before the application object exists: offscreen platform
// (unless set), a fresh XDG_CONFIG_HOME and XDG_RUNTIME_DIR for this process.
void prepareEnvironment();
// The folder XDG_CONFIG_HOME points to, and the settings file inside it.
QString configHome();
QString settingsFile();
// Removes every stored setting.
void clearSettings();
// Writes a raw setting straight into the store, as something outside the program would.
void writeSetting(const QString& section, const QString& key, const QString& value);
QString readSetting(const QString& section, const QString& key, const QString& def = QString());
bool hasSetting(const QString& section, const QString& key);

// Runs `action` on the next modal widget that appears (polled every 10 ms, up to
// timeoutMs). Returns a flag that becomes true once the action ran.
std::shared_ptr<bool> whenModal(std::function<void(QWidget*)> action, int timeoutMs = 10000);
// The same, for a modal widget other than `current` (a box opened over a dialog).
std::shared_ptr<bool> whenAnotherModal(QWidget* current, std::function<void(QWidget*)> action, int timeoutMs = 10000);
// Waits (processing events) until `done` becomes true or the time runs out.
bool waitFor(const std::function<bool()>& done, int timeoutMs = 10000);

// fontconfig's family list, asked at run time: first family name of each font, sorted
// and without duplicates.
QStringList fcFamilies();

// Child-process scenarios: a test executable started with "--scenario NAME" runs the
// scenario registered under NAME instead of its tests.
void registerScenario(const QString& name, std::function<int()> scenario);
struct ChildResult {
    int exitCode = -1;
    QProcess::ExitStatus exitStatus = QProcess::CrashExit;
    QString out;
    QString err;
};
ChildResult runScenario(const QString& name, const QStringList& extraEnv = {}, int timeoutMs = 60000);

// Takes from this process (and the threads and children it starts afterwards) the
// power to ignore file permissions that root has, so that an unwritable folder is
// unwritable in a test run as root. True when the process now obeys permissions.
bool obeyFilePermissions();

// The PDF printer queue: true when a default printer exists; otherwise the test is
// skipped unless GLYPHORA_REQUIRE_PRINTER is set, in which case it fails.
bool requirePrinter();
// Folder where the PDF queue writes its files.
QString pdfOutputFolder();
// Gives this process's print jobs a document name of their own ("Glyphora" and eight
// random letters and digits) and returns it: the PDF queue is shared, and its files are
// named after the document, so that waitForPdf sees only this process's jobs.
QString useOwnDocumentName();
// Waits until the queue is empty and returns the newest PDF written after `since` (only
// this process's PDFs once useOwnDocumentName was called).
QString waitForPdf(const QDateTime& since, int timeoutMs = 60000);
QString pdfText(const QString& pdf);
QString pdfFonts(const QString& pdf);

} // namespace TestSupport

// Like QTEST_MAIN, with the program's application object and an isolated environment.
int glyphoraTestMain(int argc, char** argv, QObject* test);
#define GLYPHORA_TEST_MAIN(TestObject)                  \
    int main(int argc, char** argv)                     \
    {                                                   \
        TestObject test;                                \
        return glyphoraTestMain(argc, argv, &test);     \
    }
