// The RTF and HTML font sheets of every family of the tier FONTCONFIG_FILE selects,
// built and written to a file, against writing the same bytes raw.
#include "browser/enumfont.h"
#include "output/fontsheet.h"

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>

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

void writeFile(const QByteArray& bytes)
{
    QFile out(outputPath());
    if (!out.open(QIODevice::WriteOnly | QIODevice::Truncate))
        std::abort();
    out.write(bytes);
}

QByteArray rtfSheet() { return FontSheet::rtf(families(), families().value(0), sample, QStringLiteral(" 10"), QStringLiteral(" 12")); }
QByteArray htmlSheet() { return FontSheet::html(families(), families().value(0), sample); }

void BM_RtfSheet(benchmark::State& state)
{
    for (auto _ : state)
        writeFile(rtfSheet());
    state.counters["fonts"] = families().size();
}

void BM_RtfRawWrite(benchmark::State& state)
{
    const QByteArray bytes = rtfSheet();
    for (auto _ : state)
        writeFile(bytes);
    state.counters["bytes"] = bytes.size();
}

void BM_HtmlSheet(benchmark::State& state)
{
    for (auto _ : state)
        writeFile(htmlSheet());
    state.counters["fonts"] = families().size();
}

void BM_HtmlRawWrite(benchmark::State& state)
{
    const QByteArray bytes = htmlSheet();
    for (auto _ : state)
        writeFile(bytes);
    state.counters["bytes"] = bytes.size();
}

} // namespace

BENCHMARK(BM_RtfSheet)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_RtfRawWrite)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_HtmlSheet)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_HtmlRawWrite)->Unit(benchmark::kMicrosecond);

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
