// PdfTask: a PDF written on a worker thread while a progress box counts the steps and
// offers to stop, so that a PDF of thousands of fonts leaves the window responsive.
#pragma once

#include "output/proofpages.h"

#include <QPageLayout>
#include <atomic>

class QWidget;

namespace PdfTask {

// What the drawing reports as it goes (from the worker thread).
class Progress {
public:
    // Counts one step done; false once the user asked to stop.
    bool step()
    {
        m_done.fetch_add(1, std::memory_order_relaxed);
        return !m_stop.load(std::memory_order_relaxed);
    }
    int done() const { return m_done.load(std::memory_order_relaxed); }
    bool stopped() const { return m_stop.load(std::memory_order_relaxed); }
    void stop() { m_stop.store(true, std::memory_order_relaxed); }

private:
    std::atomic<int> m_done{0};
    std::atomic<bool> m_stop{false};
};

enum class Result { Written, Failed, Stopped };

struct Job {
    QString path;
    QPageLayout layout;
    int resolution = 1200;
    QString title;
    int steps = 0;   // the progress box's length
    QString label;   // what the progress box says
    // Runs on the worker thread: it may only use what it captured by value, fonts and
    // the flow.
    std::function<void(PageFlow&, Progress&)> draw;
};

// Writes the PDF; the file is left untouched when it fails or is stopped.
Result write(QWidget* owner, const Job& job);

} // namespace PdfTask
