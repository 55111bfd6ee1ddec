// Drawing one font file that is not installed in the preview window: registering it,
// drawing the sample at the nine sizes with its names, and letting it go. The file is
// $GLYPHORA_PREVIEW_FONT (a TrueType file the tier's fontconfig does not know), copied
// under a fresh name for every iteration so that each one is a first drawing.
#include "app/glyphoraapplication.h"
#include "fontfile/ffontpreview.h"
#include "fontfile/filelists.h"

#include "support/benchsupport.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFontDatabase>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>

namespace {

void BM_PreviewUninstalledFile(benchmark::State& state)
{
    const QString source = qEnvironmentVariable("GLYPHORA_PREVIEW_FONT");
    if (source.isEmpty() || !QFile::exists(source)) {
        state.SkipWithError("GLYPHORA_PREVIEW_FONT names no font file");
        return;
    }
    QTemporaryDir folder;
    FFontPreview window;
    window.resize(900, 640);
    window.show();
    window.Dir1->setPath(folder.path());
    const QStringList familiesBefore = QFontDatabase::families();
    int copy = 0;
    for (auto _ : state) {
        state.PauseTiming();
        const QString name = QStringLiteral("apercu-%1.ttf").arg(copy++);
        QFile::copy(source, QDir(folder.path()).filePath(name));
        window.File1->setPath(folder.path()); // lists the new copy
        window.File1->setListIndex(window.File1->ListCount() - 1);
        state.ResumeTiming();
        window.File1_Click();
    }
    state.counters["left_registered"] = double(QFontDatabase::families().size() - familiesBefore.size());
}

// Every .ttf file of $GLYPHORA_PREVIEW_FOLDER drawn in turn, as a user stepping down
// the file list would: what stays registered afterwards is only the deliberate case
// of a file whose face name could not be resolved.
void BM_PreviewFolder(benchmark::State& state)
{
    const QString folder = qEnvironmentVariable("GLYPHORA_PREVIEW_FOLDER");
    if (folder.isEmpty() || !QDir(folder).exists()) {
        state.SkipWithError("GLYPHORA_PREVIEW_FOLDER names no folder");
        return;
    }
    FFontPreview window;
    window.resize(900, 640);
    window.show();
    window.Dir1->setPath(folder);
    window.File1->setPath(folder);
    const int files = window.File1->ListCount();
    const int before = int(QFontDatabase::families().size());
    int unresolved = 0;
    for (auto _ : state) {
        for (int i = 0; i < files; ++i) {
            window.File1->setListIndex(i); // a click on the entry draws it
            if (window.windowTitle() == QCoreApplication::applicationName())
                ++unresolved;
        }
    }
    state.counters["files"] = files;
    state.counters["without_face_name"] = unresolved;
    state.counters["left_registered"] = double(QFontDatabase::families().size() - before);
}

} // namespace

BENCHMARK(BM_PreviewFolder)->Unit(benchmark::kMillisecond)->Iterations(1);
BENCHMARK(BM_PreviewUninstalledFile)->Unit(benchmark::kMillisecond)->Iterations(20);

int main(int argc, char** argv)
{
    return runBenchmarks<GlyphoraApplication>(argc, argv);
}
