// The one place that knows how a run-time error ends the program: a message box with
// the error's number, description and what the program was doing, the user's sample
// texts kept for the next start, a waiting print document sent, then the exit.
//
// How to use it:
//  - Say what you are doing; any RuntimeError raised while the scope is open carries
//    that line into the report:
//        const ErrorReport::Doing saving(QStringLiteral("Enregistrement de la liste dans ") + path);
//  - No exception may unwind through Qt's code (signal emission, QAction::activate,
//    QDialog::exec, event delivery). Every slot that can raise is connected guarded,
//    and every event handler that can raise wraps its body:
//        ErrorReport::connect(action, &QAction::triggered, this, &tglyphora::mfoo_Click);
//        connect(action, &QAction::triggered, this, ErrorReport::guarded([this, i] { munit_Click(i); }));
//        void X::paintEvent(QPaintEvent*) override { ErrorReport::guard([&] { ... }); }
//    The slots themselves still raise (callers and tests may call them directly); the
//    boundary is where Qt calls in.
#pragma once

#include <QObject>
#include <QString>
#include <exception>
#include <functional>

#include "components/runtimeerror.h"

namespace ErrorReport {

// Exit status of a program ended by a run-time error.
inline constexpr int ExitStatus = 3;

// A scope that says what the program is doing. Errors made while it is open carry its
// line (the innermost scope wins). Open it on the stack, never on the heap.
class Doing {
public:
    // A plain activity: "Enregistrement de la liste dans /tmp/listepol.txt".
    explicit Doing(const QString& what);
    // Reading setting section/key whose stored text is value. notConvertible says why a
    // text that is not of the right kind does not do ("n'est pas un nombre"),
    // outOfRange why a value out of range does not ("n'est pas une taille de 4 à 120").
    static Doing setting(const QString& section, const QString& key, const QString& value,
                         const QString& notConvertible, const QString& outOfRange);
    // Reading the settings file as a whole.
    static Doing settingsFile();
    ~Doing();
    Doing(const Doing&) = delete;
    Doing& operator=(const Doing&) = delete;

private:
    explicit Doing(ErrorContext context);
    ErrorContext m_context;
};

// The report's context line for an error: "<what> : <why>." or "" outside any scope.
QString contextLine(const RuntimeError& error);
// The whole text of the report box.
QString reportText(const RuntimeError& error);

// Called before the report ends the program, to keep what the user would lose. The
// main window sets it once it has loaded; an empty function removes it.
void setRecovery(std::function<void()> save);

[[noreturn]] void reportAndExit(const RuntimeError& error);
[[noreturn]] void reportAndExit(const std::exception& error);

// Runs f; a RuntimeError or any other exception escaping it is reported.
template <typename F>
void guard(F&& f)
{
    try {
        f();
    } catch (const RuntimeError& e) {
        reportAndExit(e);
    } catch (const std::exception& e) {
        reportAndExit(e);
    }
}

// A slot body that Qt may call: f runs inside guard.
template <typename F>
auto guarded(F f)
{
    return [f = std::move(f)]() mutable { guard(f); };
}

// QObject::connect to a member slot, the slot running inside guard. The slot's own
// parameters are passed on from the signal.
template <typename Sender, typename Signal, typename Receiver, typename Object, typename... Args>
QMetaObject::Connection connect(const Sender* sender, Signal signal, Receiver* receiver, void (Object::*slot)(Args...))
{
    return QObject::connect(sender, signal, receiver, [receiver, slot](Args... args) {
        guard([&] { (static_cast<Object*>(receiver)->*slot)(args...); });
    });
}

} // namespace ErrorReport
