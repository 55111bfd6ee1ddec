// Run-time error report: "Erreur d'exécution 'N' :", the description and the context
// line; the recovery and the waiting print document before the exit; for a setting,
// the offer to reset it.
#include "components/errorreport.h"

#include "components/printer.h"
#include "components/runtimeerror.h"
#include "components/settings.h"

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <cstdio>
#include <cstdlib>
#include <new>

namespace ErrorReport {

namespace {

bool reporting = false;

std::function<void()>& recovery()
{
    static std::function<void()> save;
    return save;
}

// Runs a last step of the report; a failure there must not hide the report itself.
template <typename F>
void quietly(F&& step)
{
    try {
        step();
    } catch (...) {
    }
}

// The box; true when the user chose to reset the setting the error came from.
bool showBox(const RuntimeError& error)
{
    QApplication::restoreOverrideCursor();
    QMessageBox box(QMessageBox::Critical, QStringLiteral("Glyphora"), reportText(error), QMessageBox::Ok);
    box.setObjectName(QStringLiteral("RuntimeErrorBox"));
    QAbstractButton* reset = nullptr;
    if (error.context().isSetting()) {
        reset = box.addButton(QMessageBox::Reset);
        reset->setText(QStringLiteral("Réinitialiser ce réglage"));
        reset->setObjectName(QStringLiteral("ResetSetting"));
        QAbstractButton* quit = box.button(QMessageBox::Ok);
        quit->setText(QStringLiteral("Quitter"));
        quit->setObjectName(QStringLiteral("Quit"));
        box.setDefaultButton(QMessageBox::Ok);
        box.setEscapeButton(quit);
    }
    box.exec();
    return reset && box.clickedButton() == reset;
}

void resetSetting(const ErrorContext& context)
{
    if (context.unreadableFile)
        Settings::SetFileAside();
    else
        Settings::RemoveSetting(context.settingKey);
}

} // namespace

Doing::Doing(const QString& what) : Doing(ErrorContext{what, {}, {}, {}, {}, false}) {}

Doing::Doing(ErrorContext context) : m_context(std::move(context))
{
    ErrorContext::push(&m_context);
}

Doing::~Doing()
{
    ErrorContext::pop(&m_context);
}

Doing Doing::setting(const QString& section, const QString& key, const QString& value,
                     const QString& notConvertible, const QString& outOfRange)
{
    const QString path = section + QLatin1Char('/') + key;
    return Doing(ErrorContext{QStringLiteral("Réglage ") + path + QStringLiteral(" du fichier ") + Settings::DisplayFileName(),
                              path, value, notConvertible, outOfRange, false});
}

Doing Doing::settingsFile()
{
    return Doing(ErrorContext{QStringLiteral("Lecture du fichier de réglages ") + Settings::DisplayFileName(), {}, {}, {},
                              {}, true});
}

QString contextLine(const RuntimeError& error)
{
    const ErrorContext& context = error.context();
    if (context.isEmpty())
        return QString();
    QString why = error.reason();
    if (!context.settingKey.isEmpty()) {
        const QString& kind = error.number() == RuntimeError::TypeMismatch ? context.notConvertible : context.outOfRange;
        why = QStringLiteral("« ") + context.settingValue + QStringLiteral(" » ") + kind;
    }
    return why.isEmpty() ? context.doing + QLatin1Char('.') : context.doing + QStringLiteral(" : ") + why + QLatin1Char('.');
}

QString reportText(const RuntimeError& error)
{
    QString text = QStringLiteral("Erreur d'exécution '%1' :\n\n%2").arg(error.number()).arg(error.description());
    const QString line = contextLine(error);
    if (!line.isEmpty())
        text += QStringLiteral("\n\n") + line;
    return text;
}

void setRecovery(std::function<void()> save)
{
    recovery() = std::move(save);
}

void reportAndExit(const RuntimeError& error)
{
    const QString text = reportText(error);
    std::fprintf(stderr, "Glyphora: %s (%s)\n", qPrintable(text.simplified()), qPrintable(error.source()));
    std::fflush(stderr);
    if (reporting) // an error raised while the report is under way ends the program at once
        std::exit(ExitStatus);
    reporting = true;
    // The settings file itself is not rewritten while it cannot be read.
    if (recovery() && !error.context().unreadableFile)
        quietly([] { recovery()(); });
    quietly([] { Printer::instance().EndDoc(); });
    if (qobject_cast<QApplication*>(QCoreApplication::instance())) {
        if (showBox(error))
            quietly([&] { resetSetting(error.context()); });
    }
    std::exit(ExitStatus);
}

void reportAndExit(const std::exception& error)
{
    if (const auto* runtime = dynamic_cast<const RuntimeError*>(&error))
        reportAndExit(*runtime);
    if (dynamic_cast<const std::bad_alloc*>(&error))
        reportAndExit(RuntimeError(RuntimeError::OutOfMemory, QStringLiteral("Glyphora"),
                                   QStringLiteral("Mémoire insuffisante")));
    reportAndExit(RuntimeError(51, QStringLiteral("Glyphora"),
                               QStringLiteral("Erreur interne : ") + QString::fromLocal8Bit(error.what())));
}

} // namespace ErrorReport
