// In-process benchmarks of the font browser on the font tier FONTCONFIG_FILE selects:
// a click on every font until the samples and the status bar are repainted (first view
// of each face included), and the slideshow through the whole list at its smallest
// interval, three times, with the memory after each pass.
#include "app/glyphoraapplication.h"
#include "app/tglyphora.h"
#include "browser/samplebox.h"

#include <QElapsedTimer>
#include <QInputDialog>
#include <QStatusBar>
#include <QTimer>
#include <QTreeWidget>
#include <benchmark/benchmark.h>

#include <algorithm>
#include <fstream>
#include <memory>
#include <string>

namespace {

tglyphora* window()
{
    static tglyphora* w = [] {
        auto* created = new tglyphora;
        created->show();
        QCoreApplication::processEvents();
        return created;
    }();
    return w;
}

long residentKb()
{
    std::ifstream status("/proc/self/status");
    std::string line;
    while (std::getline(status, line))
        if (line.rfind("VmRSS:", 0) == 0)
            return std::stol(line.substr(6));
    return 0;
}

double percentile(std::vector<double> values, double p)
{
    std::sort(values.begin(), values.end());
    const size_t index = std::min(values.size() - 1, static_cast<size_t>(p * (values.size() - 1) + 0.5));
    return values[index];
}

// One pass over every family, each click timed until the repaint is done.
void BM_FontSelection(benchmark::State& state)
{
    tglyphora* w = window();
    const int count = w->List1->topLevelItemCount();
    std::vector<double> ms;
    for (auto _ : state) {
        ms.clear();
        ms.reserve(count);
        for (int i = 0; i < count; ++i) {
            QElapsedTimer clock;
            clock.start();
            w->List1->setCurrentItem(w->List1->topLevelItem(i));
            w->List1_Click();
            w->Text1->viewport()->repaint();
            w->Text2->viewport()->repaint();
            w->etat->repaint();
            ms.push_back(clock.nsecsElapsed() / 1e6);
        }
    }
    double total = 0;
    for (double v : ms)
        total += v;
    state.counters["fonts"] = count;
    state.counters["mean_ms"] = total / count;
    state.counters["median_ms"] = percentile(ms, 0.5);
    state.counters["p99_ms"] = percentile(ms, 0.99);
    state.counters["max_ms"] = percentile(ms, 1.0);
}

// Starts the slideshow through its menu with the smallest interval (1 ms) and runs
// the event loop until the show ends by itself.
double slideshowPass(tglyphora* w)
{
    QTimer::singleShot(0, [] {
        if (auto* box = qobject_cast<QInputDialog*>(QApplication::activeModalWidget())) {
            box->setTextValue(QStringLiteral("0.001"));
            box->accept();
        }
    });
    w->mvisboucle_Click();
    QElapsedTimer clock;
    clock.start();
    while (w->Timer1->isActive())
        QCoreApplication::processEvents(QEventLoop::AllEvents, 50);
    return clock.nsecsElapsed() / 1e6;
}

void BM_Slideshow(benchmark::State& state)
{
    tglyphora* w = window();
    const int shown = std::max(1, w->List1->topLevelItemCount() - 1);
    double first = 0, second = 0;
    long afterFirst = 0, afterSecond = 0, afterThird = 0;
    for (auto _ : state) {
        first = slideshowPass(w);
        afterFirst = residentKb();
        second = slideshowPass(w);
        afterSecond = residentKb();
        slideshowPass(w);
        afterThird = residentKb();
    }
    state.counters["fonts"] = shown;
    state.counters["pass1_ms_per_font"] = first / shown;
    state.counters["pass2_ms_per_font"] = second / shown;
    state.counters["rss_after_pass1_MB"] = afterFirst / 1024.0;
    state.counters["rss_after_pass2_MB"] = afterSecond / 1024.0;
    state.counters["rss_growth_MB"] = (afterSecond - afterFirst) / 1024.0;
    state.counters["rss_growth_third_pass_MB"] = (afterThird - afterSecond) / 1024.0;
}

} // namespace

// Each benchmark runs once in a fresh process, so the first views are first views.
BENCHMARK(BM_FontSelection)->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Slideshow)->Iterations(1)->Unit(benchmark::kMillisecond);

int main(int argc, char** argv)
{
    GlyphoraApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
