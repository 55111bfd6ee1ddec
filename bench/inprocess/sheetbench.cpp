// The RTF and HTML font sheets of every family of the tier FONTCONFIG_FILE selects: the
// bytes built in memory against copying a buffer of the same size in memory (so that the
// disk does not swing the ratio), and, separately, the time to write them to a file.
#include "browser/enumfont.h"
#include "output/fontsheet.h"

#include "support/benchsupport.h"

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>

#include <cstring>

namespace {

const QString sample = QStringLiteral("Texte d'essai\r\nVoix ambiguë d'un cœur qui au zéphyr préfère les jattes de kiwis");

const QStringList& families()
{
    static const QStringList names = EnumFont::families();
    return names;
}

QString outputPath()
{
    static QTemporaryDir dir;
    return dir.filePath(QStringLiteral("sheet"));
}

QByteArray rtfSheet() { return FontSheet::rtf(families(), families().value(0), sample, QStringLiteral(" 10"), QStringLiteral(" 12")); }
QByteArray htmlSheet() { return FontSheet::html(families(), families().value(0), sample); }

QByteArray sheet(int kind) { return kind == 0 ? rtfSheet() : htmlSheet(); }
const char* kindName(int kind) { return kind == 0 ? "rtf" : "html"; }

// Building the sheet's bytes.
void BM_SheetBuild(benchmark::State& state)
{
    const int kind = int(state.range(0));
    qsizetype size = 0;
    for (auto _ : state) {
        const QByteArray bytes = sheet(kind);
        benchmark::DoNotOptimize(bytes.constData());
        size = bytes.size();
    }
    state.SetLabel(kindName(kind));
    state.counters["fonts"] = families().size();
    state.counters["bytes"] = double(size);
}

// Copying a buffer of the sheet's size into a fresh one: the floor for making its bytes.
void BM_SheetMemoryCopy(benchmark::State& state)
{
    const int kind = int(state.range(0));
    const QByteArray source = sheet(kind);
    for (auto _ : state) {
        QByteArray copy(source.size(), Qt::Uninitialized);
        std::memcpy(copy.data(), source.constData(), size_t(source.size()));
        benchmark::DoNotOptimize(copy.constData());
        benchmark::ClobberMemory();
    }
    state.SetLabel(kindName(kind));
    state.counters["bytes"] = double(source.size());
}

// Writing the sheet's bytes to a file (page cache; reported apart, as the disk varies).
void BM_SheetWrite(benchmark::State& state)
{
    const int kind = int(state.range(0));
    const QByteArray bytes = sheet(kind);
    for (auto _ : state) {
        QFile out(outputPath());
        if (!out.open(QIODevice::WriteOnly | QIODevice::Truncate))
            std::abort();
        out.write(bytes);
    }
    state.SetLabel(kindName(kind));
    state.counters["bytes"] = double(bytes.size());
}

} // namespace

BENCHMARK(BM_SheetBuild)->Arg(0)->Arg(1)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_SheetMemoryCopy)->Arg(0)->Arg(1)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_SheetWrite)->Arg(0)->Arg(1)->Unit(benchmark::kMicrosecond);

int main(int argc, char** argv)
{
    return runBenchmarks<QCoreApplication>(argc, argv);
}
