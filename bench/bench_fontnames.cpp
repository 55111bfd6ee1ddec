// Reading the naming strings of every font file on the machine: the program's own
// TrueType reader against FreeType (FT_New_Face + FT_Get_Sfnt_Name), in files/s.
#include "fontfile/truetypefile.h"

#include "support/freetypenames.h"

#include <QStringList>
#include <benchmark/benchmark.h>
#include <fontconfig/fontconfig.h>

namespace {

// Every font file fontconfig knows, each once.
QStringList allFontFiles()
{
    QStringList files;
    FcPattern* pattern = FcPatternCreate();
    FcObjectSet* objects = FcObjectSetBuild(FC_FILE, nullptr);
    FcFontSet* fonts = FcFontList(nullptr, pattern, objects);
    for (int i = 0; fonts && i < fonts->nfont; ++i) {
        FcChar8* file = nullptr;
        if (FcPatternGetString(fonts->fonts[i], FC_FILE, 0, &file) == FcResultMatch)
            files.append(QString::fromUtf8(reinterpret_cast<const char*>(file)));
    }
    if (fonts)
        FcFontSetDestroy(fonts);
    FcObjectSetDestroy(objects);
    FcPatternDestroy(pattern);
    files.sort();
    files.removeDuplicates();
    return files;
}

const QStringList& fontFiles(bool sfntOnly)
{
    static const QStringList all = allFontFiles();
    static const QStringList sfnt = [] {
        QStringList only;
        for (const QString& file : all)
            if (file.endsWith(QLatin1String(".ttf"), Qt::CaseInsensitive)
                || file.endsWith(QLatin1String(".otf"), Qt::CaseInsensitive))
                only.append(file);
        return only;
    }();
    return sfntOnly ? sfnt : all;
}

void setCounters(benchmark::State& state, qsizetype files, qint64 names)
{
    state.counters["files"] = double(files);
    state.counters["files/s"] = benchmark::Counter(double(files) * double(state.iterations()), benchmark::Counter::kIsRate);
    state.counters["names/file"] = files ? double(names) / double(files) : 0.0;
}

void ownReader(benchmark::State& state)
{
    const QStringList& files = fontFiles(state.range(0) != 0);
    qint64 names = 0;
    for (auto _ : state) {
        names = 0;
        for (const QString& file : files) {
            TrueType::FontTables tables;
            TrueType::readFontFile(file, tables);
            if (!tables.names)
                continue;
            for (qsizetype i = 0; i < tables.names->records.size(); ++i) {
                QString text = tables.names->string(i);
                benchmark::DoNotOptimize(text);
                ++names;
            }
        }
    }
    setCounters(state, files.size(), names);
}

void freeType(benchmark::State& state)
{
    const QStringList& files = fontFiles(state.range(0) != 0);
    QList<QByteArray> paths;
    for (const QString& file : files)
        paths.append(file.toLocal8Bit());
    FT_Library library = nullptr;
    FT_Init_FreeType(&library);
    qint64 names = 0;
    for (auto _ : state) {
        names = 0;
        for (const QByteArray& path : paths) {
            FT_Face face = nullptr;
            if (FT_New_Face(library, path.constData(), 0, &face) != 0)
                continue;
            names += freeTypeNameRecords(face);
            FT_Done_Face(face);
        }
    }
    FT_Done_FreeType(library);
    setCounters(state, files.size(), names);
}

} // namespace

// Argument 0: every font file; 1: TrueType and OpenType (.ttf, .otf) files only.
BENCHMARK(ownReader)->ArgName("sfntOnly")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);
BENCHMARK(freeType)->ArgName("sfntOnly")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);
BENCHMARK_MAIN();
