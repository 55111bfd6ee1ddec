// Hostile font files in the preview window: the 917 KB file whose 32,765 name entries
// all point at one name table of 32,767 records, and a file of three such tables that
// runs into the reader's work cap, each drawn by a click in the preview as a user would.
// The reader alone is measured too, so that the preview's cost is seen apart from it.
#include "app/glyphoraapplication.h"
#include "fontfile/ffontpreview.h"
#include "fontfile/filelists.h"
#include "fontfile/truetypefile.h"
#include "support/craftedfonts.h"

#include "support/benchsupport.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>

namespace {

QString writeFont(const QTemporaryDir& folder, const QString& name, const QByteArray& bytes)
{
    const QString path = QDir(folder.path()).filePath(name);
    QFile file(path);
    if (file.open(QIODevice::WriteOnly))
        file.write(bytes);
    return path;
}

QByteArray crafted(int which)
{
    return which == 0 ? CraftedFonts::nameAmplifier() : CraftedFonts::nameAmplifier(32765, 30000, 3);
}

void BM_HostileFontInPreview(benchmark::State& state)
{
    QTemporaryDir folder;
    writeFont(folder, QStringLiteral("hostile.ttf"), crafted(int(state.range(0))));
    FFontPreview window;
    window.resize(900, 640);
    window.show();
    window.Dir1->setPath(folder.path());
    window.File1->setPath(folder.path());
    window.File1->setListIndex(0);
    for (auto _ : state)
        window.File1_Click();
    state.counters["file_KB"] = double(QFileInfo(QDir(folder.path()).filePath(QStringLiteral("hostile.ttf"))).size()) / 1024;
}

void BM_HostileFontReader(benchmark::State& state)
{
    QTemporaryDir folder;
    const QString path = writeFont(folder, QStringLiteral("hostile.ttf"), crafted(int(state.range(0))));
    int records = 0;
    for (auto _ : state) {
        TrueType::FontTables tables;
        TrueType::readFontFile(path, tables);
        records = tables.names ? int(tables.names->records.size()) : 0;
        benchmark::DoNotOptimize(records);
    }
    state.counters["records"] = records;
}

} // namespace

// Argument 0: one name table behind every entry; 1: three distinct tables (work cap).
BENCHMARK(BM_HostileFontReader)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_HostileFontInPreview)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond)->Iterations(10);

int main(int argc, char** argv)
{
    return runBenchmarks<GlyphoraApplication>(argc, argv);
}
