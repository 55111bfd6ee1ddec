// The preview window drawing a font that is not installed, given as TrueType and as the
// same font in WOFF2: what unpacking in memory adds to registering, nine sizes and the
// description. The files are $GLYPHORA_PREVIEW_TTF and $GLYPHORA_PREVIEW_WOFF2 (by
// default DejaVu Sans from fonts-dejavu-core and fonts-dejavu-web): run with a
// FONTCONFIG_FILE that does not list that family, so that both are previewed as
// uninstalled files. Each iteration draws a fresh copy, so each is a first drawing.
#include "app/glyphoraapplication.h"
#include "fontfile/ffontpreview.h"
#include "fontfile/filelists.h"

#include "support/benchsupport.h"

#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QFontDatabase>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>

namespace {

QString sourceFor(bool woff2)
{
    const QString variable = qEnvironmentVariable(woff2 ? "GLYPHORA_PREVIEW_WOFF2" : "GLYPHORA_PREVIEW_TTF");
    if (!variable.isEmpty())
        return variable;
    return woff2 ? QStringLiteral("/usr/share/fonts/woff2/dejavu/DejaVuSans.woff2")
                 : QStringLiteral("/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf");
}

void BM_PreviewFormat(benchmark::State& state)
{
    const bool woff2 = state.range(0) != 0;
    const QString source = sourceFor(woff2);
    if (!QFile::exists(source)) {
        state.SkipWithError("no source font file");
        return;
    }
    QTemporaryDir folder;
    FFontPreview window;
    window.resize(900, 640);
    window.show();
    window.cboType->setCurrentIndex(1); // every font type
    window.Dir1->setPath(folder.path());
    const int familiesBefore = int(QFontDatabase::families().size());
    int copy = 0;
    for (auto _ : state) {
        state.PauseTiming();
        const QString name = QStringLiteral("apercu-%1.%2").arg(copy++).arg(woff2 ? QStringLiteral("woff2") : QStringLiteral("ttf"));
        QFile::copy(source, QDir(folder.path()).filePath(name));
        window.File1->setPath(folder.path());
        window.File1->setListIndex(window.File1->ListCount() - 1);
        state.ResumeTiming();
        window.File1_Click();
    }
    state.counters["installed"] = window.lastInformation().endsWith(QStringLiteral("Oui\r\n"));
    state.counters["left_registered"] = double(QFontDatabase::families().size() - familiesBefore);
}

} // namespace

// Argument 0: the TrueType file; 1: the same font as WOFF2.
BENCHMARK(BM_PreviewFormat)->ArgName("woff2")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond)->Iterations(30);

int main(int argc, char** argv)
{
    return runBenchmarks<GlyphoraApplication>(argc, argv);
}
