// The typographic details window: opening it on a family of 18 faces until every field
// and the sample are drawn (the family is $GLYPHORA_DETAILS_FAMILY, else the first one
// fontconfig lists with 18 faces, else the one with the most), and re-drawing the live sample after a move of the
// weight axis of Inter's variable font, at 48 pixels for a 60-character sample.
#include "app/glyphoraapplication.h"
#include "app/tglyphora.h"
#include "browser/enumfont.h"
#include "browser/samplebox.h"
#include "fontfile/fontdetails.h"
#include "fontfile/fontsystem.h"

#include "support/benchsupport.h"

#include <QComboBox>
#include <QElapsedTimer>
#include <QLabel>
#include <QSlider>
#include <QTreeWidget>
#include <benchmark/benchmark.h>

#include <algorithm>
#include <ctime>
#include <vector>

namespace {

tglyphora* mainWindow()
{
    static tglyphora* w = [] {
        auto* created = new tglyphora;
        created->show();
        QCoreApplication::processEvents();
        return created;
    }();
    return w;
}

// Wall-clock and processor-time percentiles of the steps.
void putPercentiles(benchmark::State& state, const std::vector<double>& ms, const std::vector<double>& cpu)
{
    state.counters["median_ms"] = percentile(ms, 0.5);
    state.counters["p99_ms"] = percentile(ms, 0.99);
    state.counters["max_ms"] = percentile(ms, 1.0);
    state.counters["cpu_median_ms"] = percentile(cpu, 0.5);
    state.counters["cpu_p99_ms"] = percentile(cpu, 0.99);
}

QString familyOf18Faces()
{
    const QString chosen = qEnvironmentVariable("GLYPHORA_DETAILS_FAMILY");
    if (!chosen.isEmpty())
        return chosen;
    // Without such a family (the small and medium tiers), the one with the most faces.
    QString most;
    qsizetype mostFaces = 0;
    for (const QString& family : EnumFont::families()) {
        const qsizetype faces = FontSystem::familyFaces(family).size();
        if (faces == 18)
            return family;
        if (faces > mostFaces) {
            most = family;
            mostFaces = faces;
        }
    }
    return most;
}

bool select(tglyphora* w, const QString& family, int size)
{
    const auto found = w->List1->findItems(family, Qt::MatchExactly);
    if (found.isEmpty())
        return false;
    w->List1->setCurrentItem(found.first());
    w->List1_Click();
    w->Combo1->setCurrentIndex(w->Combo1->findText(QStringLiteral(" ") + QString::number(size)));
    return true;
}

void BM_OpenDetails(benchmark::State& state)
{
    tglyphora* w = mainWindow();
    const QString family = familyOf18Faces();
    if (family.isEmpty() || !select(w, family, 13)) {
        state.SkipWithError("no family");
        return;
    }
    std::vector<double> ms, cpu;
    double first = -1;
    for (auto _ : state) {
        const double cpuStart = threadCpuMs();
        QElapsedTimer clock;
        clock.start();
        FontDetails window;
        window.show(); // reads every face's list entry and the regular face's tables, draws both pictures
        window.repaint();
        const double elapsed = clock.nsecsElapsed() / 1e6;
        cpu.push_back(threadCpuMs() - cpuStart);
        if (first < 0)
            first = elapsed;
        ms.push_back(elapsed);
        state.counters["faces"] = window.lstFaces->topLevelItemCount();
        state.counters["fields"] = window.lstMetriques->topLevelItemCount();
    }
    state.counters["first_ms"] = first;
    putPercentiles(state, ms, cpu);
}

void BM_RedrawAfterSlider(benchmark::State& state)
{
    tglyphora* w = mainWindow();
    // 36 points are 48 pixels at 96 dpi.
    if (!select(w, QStringLiteral("Inter"), 36)) {
        state.SkipWithError("Inter (fonts-inter-variable) is not installed");
        return;
    }
    w->Text1->setText(QStringLiteral("Portez ce vieux whisky au juge blond qui fume : 0123456789 !")); // 60 characters
    FontDetails window;
    window.show();
    for (int i = 0; i < window.lstFaces->topLevelItemCount(); ++i)
        if (window.lstFaces->topLevelItem(i)->text(6).endsWith(QStringLiteral("/Inter.var.ttf"))
            && window.lstFaces->topLevelItem(i)->text(4).endsWith(QStringLiteral("variable")))
            window.lstFaces->setCurrentItem(window.lstFaces->topLevelItem(i));
    if (window.sldAxe.isEmpty()) {
        state.SkipWithError("no variable face of Inter");
        return;
    }
    QSlider* weight = window.sldAxe[0];
    std::vector<double> ms, cpu;
    int value = weight->minimum();
    for (auto _ : state) {
        value = value + 7 > weight->maximum() ? weight->minimum() : value + 7;
        const double cpuStart = threadCpuMs();
        QElapsedTimer clock;
        clock.start();
        weight->setValue(value); // re-shapes, re-draws and shows the sample
        window.picEchantillon->repaint();
        ms.push_back(clock.nsecsElapsed() / 1e6);
        cpu.push_back(threadCpuMs() - cpuStart);
    }
    state.counters["pixel_size"] = window.samplePixelSize();
    state.counters["characters"] = double(window.sampleText().size());
    state.counters["glyphs"] = double(window.sample().glyphs.size());
    putPercentiles(state, ms, cpu);
}

} // namespace

BENCHMARK(BM_OpenDetails)->Iterations(30)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_RedrawAfterSlider)->Iterations(500)->Unit(benchmark::kMillisecond);

int main(int argc, char** argv)
{
    return runBenchmarks<GlyphoraApplication>(argc, argv);
}
