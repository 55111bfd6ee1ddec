// Proofs: the PDF of the whole font list of the tier FONTCONFIG_FILE selects (time, PDF
// size, pages), and a comparison of 20 fonts redrawn after a change of size.
#include "browser/enumfont.h"
#include "components/pageflow.h"
#include "components/printer.h"
#include "output/comparemodel.h"
#include "output/comparisonview.h"
#include "output/proofpages.h"

#include "support/benchsupport.h"

#include <QApplication>
#include <QFileInfo>
#include <QImage>
#include <QPainter>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>

namespace {

const QStringList& families()
{
    static const QStringList names = EnumFont::families();
    return names;
}

// Every family once, in a fresh process: Qt keeps the fonts it met, so a second run
// would measure its cache.
void BM_ListPdf(benchmark::State& state)
{
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("listepol.pdf"));
    Printer& printer = Printer::instance();
    const QPageLayout layout = printer.pageLayout();
    const int resolution = printer.resolution();
    int pages = 0;
    for (auto _ : state) {
        ProofPages::writePdf(path, layout, resolution, QStringLiteral("Liste des polices"), [&](PageFlow& flow) {
            ProofPages::fontList(flow, families(), QApplication::font());
            pages = flow.pageCount();
        });
    }
    state.counters["fonts"] = double(families().size());
    state.counters["pages"] = pages;
    state.counters["MB"] = double(QFileInfo(path).size()) / (1024.0 * 1024.0);
}

// Twenty fonts of the tier, the alphabet sample, each round at a size not drawn before:
// the rows are laid out again and painted as the window paints them.
void BM_CompareSizeChange(benchmark::State& state)
{
    CompareModel model;
    for (qsizetype i = 0; i < families().size() && model.count() < CompareModel::MaxFonts; i += std::max<qsizetype>(1, families().size() / 20))
        model.add(families()[i]);
    model.setText(QStringLiteral("ABCDEFGHIJKLMNOPQRSTUVWXYZ\nabcdefghijklmnopqrstuvwxyz\n0123456789"));
    ComparisonView view;
    view.resize(1000, 700);
    QImage image(1000, 700, QImage::Format_ARGB32_Premultiplied);
    int size = 4;
    for (auto _ : state) {
        model.setSize(size);
        size = size >= 120 ? 4 : size + 1;
        view.setRows(model.rows());
        image.fill(Qt::white);
        view.render(&image);
    }
    state.counters["fonts"] = model.count();
}

} // namespace

BENCHMARK(BM_ListPdf)->Unit(benchmark::kMillisecond)->Iterations(1);
BENCHMARK(BM_CompareSizeChange)->Unit(benchmark::kMillisecond)->Iterations(100);

int main(int argc, char** argv)
{
    return runBenchmarks<QApplication>(argc, argv);
}
