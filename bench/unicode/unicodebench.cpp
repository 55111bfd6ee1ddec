// The Unicode character table on the GUI thread: opening the window until its grid
// and block list are drawn, a search by name over the whole of Unicode until the
// results are drawn, and scrolling a CJK font's grid page by page. The family is
// $GLYPHORA_UNICODE_FAMILY (DejaVu Sans by default); run each benchmark in a fresh
// process so that "first" really is the first time.
#include "app/debut.h"
#include "app/glyphoraapplication.h"
#include "samples/unicodegrid.h"
#include "samples/unicodenames.h"
#include "samples/unicodetable.h"

#include "support/benchsupport.h"

#include <QCheckBox>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <benchmark/benchmark.h>
#include <ctime>

namespace {

QString family()
{
    const QString name = qEnvironmentVariable("GLYPHORA_UNICODE_FAMILY");
    return name.isEmpty() ? QStringLiteral("DejaVu Sans") : name;
}

void drawNow(UnicodeTable& window)
{
    window.grdCaracteres->viewport()->repaint();
    window.lstBlocs->viewport()->repaint();
}

void openAndDraw(benchmark::State& state)
{
    debut::CurrentFaceName = family();
    for (auto _ : state) {
        UnicodeTable window;
        window.resize(1200, 740);
        window.show();
        drawNow(window);
        state.PauseTiming();
        state.counters["characters"] = double(window.coverage().codes().size());
        state.counters["blocks"] = window.lstBlocs->count();
        window.close();
        state.ResumeTiming();
    }
}

// The first window of the process: block table, font engines and glyph caches cold.
void BM_OpenFirst(benchmark::State& state)
{
    openAndDraw(state);
}

// Later openings, with what the process keeps warm.
void BM_OpenAgain(benchmark::State& state)
{
    openAndDraw(state);
}

void waitForIndex()
{
    NameIndexLoader::instance()->request();
    while (!NameIndexLoader::instance()->index())
        QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
}

// Reading every character name into the index, as the worker thread does.
void BM_NameIndexBuild(benchmark::State& state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(NameIndex::build());
}

// Typing "arrow" in the search box until the matching cells are drawn (index built).
void BM_SearchArrow(benchmark::State& state)
{
    debut::CurrentFaceName = family();
    waitForIndex();
    UnicodeTable window;
    window.resize(1200, 740);
    window.show();
    window.chkHorsPolice->setChecked(true); // the whole of Unicode, not only the font
    for (auto _ : state) {
        state.PauseTiming();
        window.txtCherche->clear();
        drawNow(window);
        state.ResumeTiming();
        window.txtCherche->setText(QStringLiteral("arrow"));
        drawNow(window);
    }
    state.counters["results"] = window.grdCaracteres->cellCount();
}

// Page Down from the first row to the last, each page drawn at once: the longest
// time one page keeps the GUI thread busy.
void BM_ScrollPages(benchmark::State& state)
{
    debut::CurrentFaceName = family();
    UnicodeTable window;
    window.resize(1200, 740);
    window.show();
    drawNow(window);
    UnicodeGrid* grid = window.grdCaracteres;
    double longest = 0;
    double longestCpu = 0;
    double total = 0;
    double totalCpu = 0;
    int pages = 0;
    for (auto _ : state) {
        grid->setCurrentIndex(0);
        grid->viewport()->repaint();
        while (grid->currentIndex() < grid->cellCount() - 1) {
            QElapsedTimer clock;
            clock.start();
            const double cpuStart = threadCpuMs();
            QKeyEvent key(QEvent::KeyPress, Qt::Key_PageDown, Qt::NoModifier);
            QCoreApplication::sendEvent(grid, &key);
            grid->viewport()->repaint();
            const double cpu = threadCpuMs() - cpuStart;
            const double ms = double(clock.nsecsElapsed()) / 1e6;
            longest = std::max(longest, ms);
            longestCpu = std::max(longestCpu, cpu);
            total += ms;
            totalCpu += cpu;
            ++pages;
        }
    }
    state.counters["pages"] = pages;
    state.counters["longest_ms"] = longest;
    state.counters["mean_ms"] = pages ? total / pages : 0;
    state.counters["longest_cpu_ms"] = longestCpu;
    state.counters["mean_cpu_ms"] = pages ? totalCpu / pages : 0;
    state.counters["cell_px"] = grid->cellSize();
}

} // namespace

BENCHMARK(BM_OpenFirst)->Unit(benchmark::kMillisecond)->Iterations(1);
BENCHMARK(BM_OpenAgain)->Unit(benchmark::kMillisecond)->Iterations(10);
BENCHMARK(BM_NameIndexBuild)->Unit(benchmark::kMillisecond)->Iterations(5);
BENCHMARK(BM_SearchArrow)->Unit(benchmark::kMillisecond)->Iterations(20);
BENCHMARK(BM_ScrollPages)->Unit(benchmark::kMillisecond)->Iterations(1);

int main(int argc, char** argv)
{
    return runBenchmarks<GlyphoraApplication>(argc, argv);
}
