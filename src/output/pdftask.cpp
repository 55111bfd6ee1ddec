// PdfTask: ProofPages::writePdf on a std::thread, a QProgressDialog meanwhile.
#include "output/pdftask.h"

#include <QEventLoop>
#include <QProgressDialog>
#include <QTimer>
#include <thread>

namespace PdfTask {

Result write(QWidget* owner, const Job& job)
{
    Progress progress;
    std::atomic<bool> finished{false};
    bool written = false;
    std::thread worker([&] {
        written = ProofPages::writePdf(
            job.path, job.layout, job.resolution, job.title, [&](PageFlow& flow) { job.draw(flow, progress); },
            [&progress] { return !progress.stopped(); });
        finished.store(true);
    });

    QProgressDialog box(job.label, QStringLiteral("Annuler"), 0, std::max(1, job.steps), owner);
    box.setObjectName(QStringLiteral("PdfProgress"));
    box.setWindowTitle(QStringLiteral("Glyphora"));
    box.setWindowModality(Qt::WindowModal);
    box.setMinimumDuration(400);
    box.setAutoReset(false);
    box.setAutoClose(false);
    QObject::connect(&box, &QProgressDialog::canceled, [&progress] { progress.stop(); });
    QEventLoop loop;
    QTimer poll;
    QObject::connect(&poll, &QTimer::timeout, &loop, [&] {
        if (finished.load()) {
            loop.quit();
            return;
        }
        if (!box.wasCanceled())
            box.setValue(std::min(progress.done(), box.maximum() - 1));
    });
    poll.start(50);
    // The window goes on answering: the worker only draws into its own PDF writer.
    loop.exec();
    worker.join();
    // Closing the box would read as a stop; the PDF is already written or not.
    QObject::disconnect(&box, &QProgressDialog::canceled, nullptr, nullptr);
    box.close();
    if (written)
        return Result::Written;
    return progress.stopped() ? Result::Stopped : Result::Failed;
}

} // namespace PdfTask
