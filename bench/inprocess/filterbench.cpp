// In-process benchmarks of the font list's filter panel on the font tier FONTCONFIG_FILE
// selects: one keystroke in the filter box until the list is repainted (typing
// "noto sans mono" letter by letter, then erasing it), the family index built in one
// pass, and scrolling the whole list page by page with names in their own font (the
// longest time the GUI thread is busy in one go, the time until a page is drawn in
// its own fonts, and peak memory - compare with BM_ScrollNamesOff in another process).
#include "app/glyphoraapplication.h"
#include "app/tglyphora.h"
#include "browser/familyindex.h"
#include "browser/fontlistfilter.h"
#include "browser/fontnamedelegate.h"
#include "browser/namerenderer.h"

#include "support/benchsupport.h"

#include <QAction>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QLineEdit>
#include <QScrollBar>
#include <QTimer>
#include <QTreeWidget>
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstring>
#include <ctime>
#include <fstream>
#include <string>

namespace {

tglyphora* window()
{
    static tglyphora* w = [] {
        auto* created = new tglyphora;
        created->resize(860, 600);
        created->show();
        QCoreApplication::processEvents();
        return created;
    }();
    return w;
}

FontListFilter* filterOf(tglyphora* w) { return w->findChild<FontListFilter*>(QStringLiteral("FontListFilter")); }

long statusKb(const char* field)
{
    std::ifstream status("/proc/self/status");
    std::string line;
    while (std::getline(status, line))
        if (line.rfind(field, 0) == 0)
            return std::stol(line.substr(std::strlen(field)));
    return 0;
}

void waitUntil(const std::function<bool()>& done)
{
    QElapsedTimer clock;
    clock.start();
    while (!done() && clock.elapsed() < 120000)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
}

// One key typed into the filter box, until the list has been laid out and repainted;
// then the time until the samples show the selected row, if it moved.
double keystroke(tglyphora* w, QLineEdit* box, Qt::Key key, const QString& text, std::vector<double>& samples,
                 std::vector<double>& cpu)
{
    QElapsedTimer clock;
    clock.start();
    const double cpuStart = threadCpuMs();
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, text);
    QCoreApplication::sendEvent(box, &press);
    QKeyEvent release(QEvent::KeyRelease, key, Qt::NoModifier, text);
    QCoreApplication::sendEvent(box, &release);
    w->List1->viewport()->repaint();
    const double list = clock.nsecsElapsed() / 1e6;
    cpu.push_back(threadCpuMs() - cpuStart);
    if (qEnvironmentVariableIsSet("GLYPHORA_BENCH_VERBOSE"))
        std::fprintf(stderr, "%-16s wall %7.2f  cpu %7.2f\n", qPrintable(box->text()), list, cpu.back());
    QElapsedTimer after;
    after.start();
    QCoreApplication::processEvents();
    samples.push_back(after.nsecsElapsed() / 1e6);
    return list;
}

void BM_FilterKeystroke(benchmark::State& state)
{
    tglyphora* w = window();
    auto* box = w->findChild<QLineEdit*>(QStringLiteral("txtFiltre"));
    FontListFilter* filter = filterOf(w);
    // The index is built when the box takes the focus, as a user clicks into it.
    box->setFocus();
    filter->ensureIndex();
    waitUntil([&] { return filter->index() != nullptr; });
    const QString typed = QStringLiteral("noto sans mono");
    std::vector<double> ms, samples, cpu;
    int shown = 0;
    for (auto _ : state) {
        ms.clear();
        for (QChar c : typed)
            ms.push_back(keystroke(w, box, c == QLatin1Char(' ') ? Qt::Key_Space : Qt::Key(c.toUpper().unicode()), QString(c), samples, cpu));
        shown = filter->visibleCount();
        for (qsizetype i = 0; i < typed.size(); ++i)
            ms.push_back(keystroke(w, box, Qt::Key_Backspace, QString(), samples, cpu));
    }
    state.counters["cpu_median_ms"] = percentile(cpu, 0.5);
    state.counters["cpu_p99_ms"] = percentile(cpu, 0.99);
    state.counters["samples_median_ms"] = percentile(samples, 0.5);
    state.counters["samples_max_ms"] = percentile(samples, 1.0);
    state.counters["rows"] = w->List1->topLevelItemCount();
    state.counters["matching_noto_sans_mono"] = shown;
    state.counters["median_ms"] = percentile(ms, 0.5);
    state.counters["p99_ms"] = percentile(ms, 0.99);
    state.counters["max_ms"] = percentile(ms, 1.0);
}

void BM_IndexOnePass(benchmark::State& state)
{
    window();
    int families = 0;
    for (auto _ : state) {
        const FamilyIndex::Snapshot snapshot;
        families = FamilyIndex::build(snapshot, state.range(0) != 0).size();
    }
    state.counters["families"] = families;
}

// Scrolls the whole list a page at a time; a 1 ms heartbeat timer measures the longest
// time the GUI thread stays busy.
void scrollWholeList(benchmark::State& state, bool names)
{
    tglyphora* w = window();
    // The setting is saved: a run with names on leaves them on for the next process.
    auto* mapercu = w->findChild<QAction*>(QStringLiteral("mapercu"));
    if (mapercu->isChecked() != names)
        mapercu->trigger();
    if (names)
        waitUntil([&] { return filterOf(w)->index() != nullptr; });
    auto* delegate = qobject_cast<FontNameDelegate*>(w->List1->itemDelegate());
    QScrollBar* bar = w->List1->verticalScrollBar();
    QElapsedTimer beat;
    double longestGap = 0;
    QTimer heartbeat;
    heartbeat.setInterval(1);
    QObject::connect(&heartbeat, &QTimer::timeout, [&] {
        longestGap = std::max(longestGap, beat.nsecsElapsed() / 1e6);
        beat.restart();
    });
    std::vector<double> pageMs;
    for (auto _ : state) {
        bar->setValue(0);
        beat.start();
        heartbeat.start();
        for (int value = 0;; value += bar->pageStep()) {
            QElapsedTimer page;
            page.start();
            bar->setValue(value);
            if (delegate) {
                // Until every row of the page has been painted from its own image.
                waitUntil([&] {
                    if (delegate->renderer()->pendingCount() > 0)
                        return false;
                    QCoreApplication::processEvents();
                    return delegate->waitingRows() == 0;
                });
            } else {
                waitUntil([&] { return page.elapsed() >= 20; });
            }
            pageMs.push_back(page.nsecsElapsed() / 1e6);
            if (value >= bar->maximum())
                break;
        }
        heartbeat.stop();
    }
    state.counters["pages"] = double(pageMs.size());
    state.counters["page_median_ms"] = percentile(pageMs, 0.5);
    state.counters["page_max_ms"] = percentile(pageMs, 1.0);
    state.counters["gui_longest_busy_ms"] = std::max(0.0, longestGap - 1);
    state.counters["peak_rss_MB"] = statusKb("VmHWM:") / 1024.0;
    state.counters["images_MB"] = delegate ? delegate->renderer()->cachedBytes() / 1048576.0 : 0;
}

// The cost of one image, drawn on this thread: CPU time per family over the first
// families of the list (each a first load of its face).
void BM_RenderName(benchmark::State& state)
{
    tglyphora* w = window();
    FontListFilter* filter = filterOf(w);
    filter->ensureIndex();
    waitUntil([&] { return filter->index() != nullptr; });
    const int count = std::min(int(state.range(0)), w->List1->topLevelItemCount());
    std::vector<double> cpu;
    for (auto _ : state) {
        for (int i = 0; i < count; ++i) {
            const FamilyIndex::Family* family = filter->index()->find(w->List1->topLevelItem(i)->text(0));
            const double start = threadCpuMs();
            const QImage image = NameRenderer::render({family->name, family->drawsOwnName, family->sample, family->file, family->faceIndex},
                                                      w->List1->font(), 17, 1);
            benchmark::DoNotOptimize(image);
            cpu.push_back(threadCpuMs() - start);
        }
    }
    state.counters["cpu_median_ms"] = percentile(cpu, 0.5);
    state.counters["cpu_p90_ms"] = percentile(cpu, 0.9);
    state.counters["cpu_max_ms"] = percentile(cpu, 1.0);
}

void BM_ScrollNamesOn(benchmark::State& state) { scrollWholeList(state, true); }
void BM_ScrollNamesOff(benchmark::State& state) { scrollWholeList(state, false); }

} // namespace

BENCHMARK(BM_FilterKeystroke)->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_IndexOnePass)->Arg(0)->Arg(1)->Iterations(3)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_RenderName)->Arg(300)->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ScrollNamesOn)->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ScrollNamesOff)->Iterations(1)->Unit(benchmark::kMillisecond);

int main(int argc, char** argv)
{
    return runBenchmarks<GlyphoraApplication>(argc, argv);
}
