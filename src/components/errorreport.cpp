// Run-time error report: "Erreur d'exécution 'N' :" and the description, then exit.
#include "components/errorreport.h"

#include "components/runtimeerror.h"

#include <QApplication>
#include <QMessageBox>
#include <cstdio>
#include <cstdlib>
#include <new>

namespace ErrorReport {

static bool reporting = false;

void reportAndExit(const RuntimeError& error)
{
    const QString text = QStringLiteral("Erreur d'exécution '%1' :\n\n%2").arg(error.number()).arg(error.description());
    std::fprintf(stderr, "Glyphora: %s (%s)\n", qPrintable(text.simplified()), qPrintable(error.source()));
    std::fflush(stderr);
    if (!reporting && qobject_cast<QApplication*>(QCoreApplication::instance())) {
        reporting = true; // an error raised while the box is up must not stack boxes
        QApplication::restoreOverrideCursor();
        QMessageBox box(QMessageBox::Critical, QStringLiteral("Glyphora"), text, QMessageBox::Ok);
        box.setObjectName(QStringLiteral("RuntimeErrorBox"));
        box.exec();
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
