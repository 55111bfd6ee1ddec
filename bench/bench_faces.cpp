// The names of every face of every OpenType (.otf) and collection (.ttc, .otc) file that
// fontconfig knows: the program's own reader (faceCount, readFontFace, every string
// decoded) against FreeType (FT_New_Face for each face, FT_Get_Sfnt_Name), in files/s.
#include "fontfile/truetypefile.h"

#include "support/freetypenames.h"

#include <QStringList>
#include <benchmark/benchmark.h>
#include <fontconfig/fontconfig.h>

namespace {

const QStringList& openTypeFiles()
{
    static const QStringList files = [] {
        QStringList found;
        FcPattern* pattern = FcPatternCreate();
        FcObjectSet* objects = FcObjectSetBuild(FC_FILE, nullptr);
        FcFontSet* fonts = FcFontList(nullptr, pattern, objects);
        for (int i = 0; fonts && i < fonts->nfont; ++i) {
            FcChar8* file = nullptr;
            if (FcPatternGetString(fonts->fonts[i], FC_FILE, 0, &file) != FcResultMatch)
                continue;
            const QString path = QString::fromUtf8(reinterpret_cast<const char*>(file));
            for (const char* suffix : {".otf", ".ttc", ".otc"})
                if (path.endsWith(QLatin1String(suffix), Qt::CaseInsensitive))
                    found.append(path);
        }
        if (fonts)
            FcFontSetDestroy(fonts);
        FcObjectSetDestroy(objects);
        FcPatternDestroy(pattern);
        found.sort();
        found.removeDuplicates();
        return found;
    }();
    return files;
}

void setCounters(benchmark::State& state, qsizetype files, qint64 faces, qint64 names)
{
    state.counters["files"] = double(files);
    state.counters["faces"] = double(faces);
    state.counters["files/s"] = benchmark::Counter(double(files) * double(state.iterations()), benchmark::Counter::kIsRate);
    state.counters["names/face"] = faces ? double(names) / double(faces) : 0.0;
}

void ownReaderEveryFace(benchmark::State& state)
{
    const QStringList& files = openTypeFiles();
    qint64 faces = 0, names = 0;
    for (auto _ : state) {
        faces = names = 0;
        for (const QString& file : files) {
            const int count = TrueType::faceCount(file);
            for (int face = 0; face < count; ++face) {
                TrueType::FontTables tables;
                TrueType::readFontFace(file, face, tables);
                ++faces;
                if (!tables.names)
                    continue;
                for (qsizetype i = 0; i < tables.names->records.size(); ++i) {
                    QString text = tables.names->string(i);
                    benchmark::DoNotOptimize(text);
                    ++names;
                }
            }
        }
    }
    setCounters(state, files.size(), faces, names);
}

void freeTypeEveryFace(benchmark::State& state)
{
    QList<QByteArray> paths;
    for (const QString& file : openTypeFiles())
        paths.append(file.toLocal8Bit());
    FT_Library library = nullptr;
    FT_Init_FreeType(&library);
    qint64 faces = 0, names = 0;
    for (auto _ : state) {
        faces = names = 0;
        for (const QByteArray& path : paths) {
            FT_Long count = 1;
            for (FT_Long index = 0; index < count; ++index) {
                FT_Face face = nullptr;
                if (FT_New_Face(library, path.constData(), index, &face) != 0)
                    break;
                count = face->num_faces;
                ++faces;
                names += freeTypeNameRecords(face);
                FT_Done_Face(face);
            }
        }
    }
    FT_Done_FreeType(library);
    setCounters(state, paths.size(), faces, names);
}

} // namespace

BENCHMARK(ownReaderEveryFace)->Unit(benchmark::kMillisecond);
BENCHMARK(freeTypeEveryFace)->Unit(benchmark::kMillisecond);
BENCHMARK_MAIN();
