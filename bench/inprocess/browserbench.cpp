// In-process benchmarks of the font browser on the font tier FONTCONFIG_FILE selects:
//  - BM_FontSelection: a click on every font back to back, no pause between them, each
//    timed until the samples and the status bar are repainted (first view of each face);
//  - BM_Click: clicks on fonts never shown before, at a person's pace: the list is
//    scrolled to a random place, the window is left idle for a moment (the time to point
//    at a row), then a random row in view is clicked;
//  - BM_KeyNavigation: Down held (25 keys a second), Page Down and Page Up, Up;
//  - BM_SlideshowSteps: the slideshow at half a second per font;
//  - BM_Slideshow: the slideshow at its smallest interval, three passes, with memory;
//  - BM_StatusFigures: the width and height of every family in every unit, measured on
//    the printer (as afficheinfos does) and on the measuring thread: they must be equal.
// Times are the window thread's own processor time (what the event costs it, whatever
// the machine's load) and the wall clock; each benchmark runs in a fresh process.
#include "app/glyphoraapplication.h"
#include "app/tglyphora.h"
#include "browser/enumfont.h"
#include "browser/measureformat.h"
#if __has_include("browser/measureworker.h")
#define HAVE_MEASURE_WORKER 1
#include "browser/measureworker.h"
#endif
#include "browser/samplebox.h"
#include "components/printer.h"
#include "components/scalemode.h"

#include "support/benchsupport.h"

#include <QElapsedTimer>
#include <QInputDialog>
#include <QLabel>
#include <QRandomGenerator>
#include <QScrollBar>
#include <QStatusBar>
#include <QTest>
#include <QTimer>
#include <QTreeWidget>
#include <benchmark/benchmark.h>

#include <algorithm>
#include <ctime>
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

// Runs the event loop for `ms` milliseconds: the window is idle as between two inputs.
void idle(int ms)
{
    QElapsedTimer clock;
    clock.start();
    while (clock.elapsed() < ms)
        QCoreApplication::processEvents(QEventLoop::AllEvents, ms - int(clock.elapsed()));
}

// One event's cost on the window thread: processor time and wall time, each in ms.
struct Costs {
    std::vector<double> cpu, wall;
    void add(double c, double w) { cpu.push_back(c); wall.push_back(w); }
    void report(benchmark::State& state, const std::string& prefix = std::string()) const
    {
        state.counters[prefix + "cpu_median_ms"] = percentile(cpu, 0.5);
        state.counters[prefix + "cpu_p99_ms"] = percentile(cpu, 0.99);
        state.counters[prefix + "wall_median_ms"] = percentile(wall, 0.5);
        state.counters[prefix + "wall_p99_ms"] = percentile(wall, 0.99);
        state.counters[prefix + "events"] = double(cpu.size());
    }
};

// Runs `event` and repaints what it changed, timed.
template <typename Event>
void timed(Costs& costs, tglyphora* w, Event event)
{
    QElapsedTimer clock;
    const double cpu0 = threadCpuMs();
    clock.start();
    event();
    const double cpu1 = threadCpuMs();
    w->Text1->viewport()->repaint();
    const double cpu2 = threadCpuMs();
    w->Text2->viewport()->repaint();
    w->etat->repaint();
    const double cpu3 = threadCpuMs();
    costs.add(cpu3 - cpu0, clock.nsecsElapsed() / 1e6);
    if (qEnvironmentVariableIsSet("GLYPHORA_BENCH_VERBOSE"))
        std::fprintf(stderr, "%s: event %.2f, Text1 %.2f, Text2 and status %.2f ms of processor\n",
                     qPrintable(w->Panel(1)->text()), cpu1 - cpu0, cpu2 - cpu1, cpu3 - cpu2);
}

// The figures afficheinfos would write for the shown font, measured on the printer
// here (this makes the printer's engine on this thread, not the measuring thread's).
QString expectedFigures(tglyphora* w)
{
    Printer& printer = Printer::instance();
    printer.setFont(w->Text2->font());
    const QString text = w->Text2->text();
    return MeasureFormat::format(printer.TextWidth(text)) + QLatin1Char('|') + MeasureFormat::format(printer.TextHeight(text));
}

// Waits until the width and height panels carry `want`.
double figuresDelayMs(tglyphora* w, const QString& want)
{
    QElapsedTimer clock;
    clock.start();
    while (w->Panel(2)->text() + QLatin1Char('|') + w->Panel(3)->text() != want && clock.elapsed() < 5000)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 1);
    return clock.nsecsElapsed() / 1e6;
}

void BM_FontSelection(benchmark::State& state)
{
    tglyphora* w = window();
    const int count = w->List1->topLevelItemCount();
    Costs costs;
    for (auto _ : state) {
        for (int i = 0; i < count; ++i) {
            timed(costs, w, [&] {
                w->List1->setCurrentItem(w->List1->topLevelItem(i));
                w->List1_Click();
            });
        }
    }
    state.counters["fonts"] = count;
    costs.report(state);
    state.counters["wall_max_ms"] = percentile(costs.wall, 1.0);
}

void BM_Click(benchmark::State& state)
{
    tglyphora* w = window();
    const int count = w->List1->topLevelItemCount();
    const int clicks = std::min(count, int(state.range(0)));
    const int pauseMs = int(state.range(1));
    QRandomGenerator random(17);
    Costs costs;
    std::vector<double> delays;
    for (auto _ : state) {
        for (int i = 0; i < clicks; ++i) {
            // Scroll to a random place, as with the wheel or the scroll bar.
            QScrollBar* bar = w->List1->verticalScrollBar();
            bar->setValue(random.bounded(bar->maximum() + 1));
            idle(pauseMs);
            const QTreeWidgetItem* top = w->List1->itemAt(0, 0);
            const int first = top ? w->List1->indexOfTopLevelItem(const_cast<QTreeWidgetItem*>(top)) : 0;
            const int inView = std::max(1, w->List1->viewport()->height() / std::max(1, w->List1->visualItemRect(w->List1->topLevelItem(first)).height()));
            const int row = std::min(count - 1, first + int(random.bounded(inView)));
            timed(costs, w, [&] {
                w->List1->setCurrentItem(w->List1->topLevelItem(row));
                w->List1_Click();
            });
            QElapsedTimer untimed;
            untimed.start();
            const QString want = expectedFigures(w);
            figuresDelayMs(w, want);
            delays.push_back(untimed.nsecsElapsed() / 1e6);
        }
    }
    costs.report(state);
    state.counters["figures_delay_median_ms"] = percentile(delays, 0.5);
    state.counters["figures_delay_p99_ms"] = percentile(delays, 0.99);
}

// Keys as a person holds them: a key event every `gapMs`, the window idle in between.
void pressKeys(tglyphora* w, Costs& costs, Qt::Key key, int times, int gapMs)
{
    for (int i = 0; i < times; ++i) {
        timed(costs, w, [&] { QTest::keyClick(w->List1, key); });
        idle(gapMs);
    }
}

void BM_KeyNavigation(benchmark::State& state)
{
    tglyphora* w = window();
    w->List1->setFocus();
    w->List1->setCurrentItem(w->List1->topLevelItem(0));
    w->List1_Click();
    idle(300);
    Costs down, page, up;
    for (auto _ : state) {
        pressKeys(w, down, Qt::Key_Down, int(state.range(0)), 40);
        pressKeys(w, page, Qt::Key_PageDown, 20, 250);
        pressKeys(w, page, Qt::Key_PageUp, 10, 250);
        pressKeys(w, up, Qt::Key_Up, int(state.range(0)) / 2, 40);
    }
    Costs all;
    for (const Costs* c : {&down, &page, &up}) {
        all.cpu.insert(all.cpu.end(), c->cpu.begin(), c->cpu.end());
        all.wall.insert(all.wall.end(), c->wall.begin(), c->wall.end());
    }
    all.report(state);
    down.report(state, "down_");
    page.report(state, "page_");
}

void BM_SlideshowSteps(benchmark::State& state)
{
    tglyphora* w = window();
    const int steps = std::min(int(state.range(0)), w->List1->topLevelItemCount() - 2);
    const int intervalMs = int(state.range(1));
    QTimer::singleShot(0, [intervalMs] {
        if (auto* box = qobject_cast<QInputDialog*>(QApplication::activeModalWidget())) {
            box->setTextValue(QString::number(intervalMs / 1000.0));
            box->accept();
        }
    });
    w->mvisboucle_Click();
    // The ticks are timed one by one: each is run here at the show's interval, the
    // timer itself kept still so that nothing else ticks.
    w->Timer1->stop();
    Costs costs;
    for (auto _ : state) {
        for (int i = 0; i < steps; ++i) {
            idle(intervalMs);
            timed(costs, w, [&] { w->Timer1_Timer(); });
        }
    }
    costs.report(state);
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

#ifdef HAVE_MEASURE_WORKER
// Every family with the window's sample font and text: the figures afficheinfos writes
// (the printer) against those of the measuring thread, in the seven units. With
// GLYPHORA_FIGURES_OUT set, the printer's figures are written there, one family a line.
void BM_StatusFigures(benchmark::State& state)
{
    tglyphora* w = window();
    const QFont sample = w->Text2->font();
    const QString text = w->Text2->text();
    Printer& printer = Printer::instance();
    const int dpi = printer.resolution();
    MeasureWorker worker;
    MeasuredText last;
    QObject::connect(&worker, &MeasureWorker::measured, [&](quint64, MeasuredText figures) { last = figures; });
    std::ofstream out;
    if (qEnvironmentVariableIsSet("GLYPHORA_FIGURES_OUT"))
        out.open(qEnvironmentVariable("GLYPHORA_FIGURES_OUT").toStdString());
    int families = 0, differing = 0;
    for (auto _ : state) {
        for (const QString& family : EnumFont::families()) {
            QFont font = sample;
            font.setFamilies({family});
            printer.setFont(font);
            const quint64 generation = worker.request(font, text, dpi);
            (void)generation;
            last = MeasuredText{-1, -1};
            QElapsedTimer clock;
            clock.start();
            while (last.width < 0 && clock.elapsed() < 10000)
                QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
            QString printed, threaded;
            for (int code = 1; code <= 7; ++code) {
                printer.setScaleMode(code);
                printed += MeasureFormat::format(printer.TextWidth(text)) + QLatin1Char(' ') + MeasureFormat::format(printer.TextHeight(text)) + QLatin1Char(' ');
                threaded += MeasureFormat::format(ScaleMode::fromDevicePixels(last.width, dpi, code, false)) + QLatin1Char(' ')
                            + MeasureFormat::format(ScaleMode::fromDevicePixels(last.height, dpi, code, true)) + QLatin1Char(' ');
            }
            ++families;
            if (printed != threaded)
                ++differing;
            if (out)
                out << family.toStdString() << '\t' << printed.toStdString() << '\n';
        }
    }
    state.counters["families"] = families;
    state.counters["differing"] = differing;
}
#endif

} // namespace

// Each benchmark runs once in a fresh process, so the first views are first views.
BENCHMARK(BM_FontSelection)->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Click)->Args({100, 1000})->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_KeyNavigation)->Args({200})->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_SlideshowSteps)->Args({80, 500})->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Slideshow)->Iterations(1)->Unit(benchmark::kMillisecond);
#ifdef HAVE_MEASURE_WORKER
BENCHMARK(BM_StatusFigures)->Iterations(1)->Unit(benchmark::kMillisecond);
#endif

int main(int argc, char** argv)
{
    return runBenchmarks<GlyphoraApplication>(argc, argv);
}
