// Measuring the sample on the printer in the chosen unit: at once when asked directly,
// on the measuring thread after a font is shown.
#include "app/tglyphora.h"

#include "browser/measureformat.h"
#include "browser/measureworker.h"
#include "browser/samplebox.h"
#include "components/printer.h"
#include "components/runtimeerror.h"
#include "components/scalemode.h"

#include <QAction>
#include <QLabel>

void tglyphora::afficheinfos()
{
    if (m_holdMeasure) {
        m_measurePending = true;
        return;
    }
    // A figure still being measured for an earlier font must not replace these.
    if (m_measureWorker)
        m_measureWorker->cancel();
    Printer& printer = Printer::instance();
    printer.setFont(Text2->font());

    const QString unitName = UnitName(m_unite);
    Panel(2)->setToolTip(QStringLiteral("Largeur du texte en ") + unitName);
    Panel(3)->setToolTip(QStringLiteral("Hauteur du texte en ") + unitName);

    const QString text = Text2->text();
    Panel(2)->setText(MeasureFormat::format(printer.TextWidth(text)));
    Panel(3)->setText(MeasureFormat::format(printer.TextHeight(text)));
}

MeasureWorker* tglyphora::measureWorker()
{
    if (!m_measureWorker) {
        m_measureWorker = new MeasureWorker(this);
        connect(m_measureWorker, &MeasureWorker::measured, this, [this](quint64, MeasuredText figures) {
            showFigures(figures, Printer::instance().resolution(), Printer::instance().ScaleMode());
        });
    }
    return m_measureWorker;
}

// The figures of the font just shown: from those prepared ahead when there are some,
// else measured on the measuring thread against a surface of the printer's resolution,
// which gives the printer's own figures; a newer font or a direct measurement drops them.
void tglyphora::measureShownFont()
{
    if (m_holdMeasure) {
        m_measurePending = true;
        return;
    }
    Printer& printer = Printer::instance();
    printer.setFont(Text2->font());
    const QString unitName = UnitName(m_unite);
    Panel(2)->setToolTip(QStringLiteral("Largeur du texte en ") + unitName);
    Panel(3)->setToolTip(QStringLiteral("Hauteur du texte en ") + unitName);

    const QFont font = Text2->font();
    const QString text = Text2->text();
    const int dpi = printer.resolution();
    MeasureWorker* worker = measureWorker();
    if (const auto figures = worker->cached(font, text, dpi)) {
        worker->cancel();
        showFigures(*figures, dpi, printer.ScaleMode());
        return;
    }
    worker->request(font, text, dpi);
}

void tglyphora::showFigures(const MeasuredText& figures, int dpi, int scaleMode)
{
    Panel(2)->setText(MeasureFormat::format(ScaleMode::fromDevicePixels(figures.width, dpi, scaleMode, false)));
    Panel(3)->setText(MeasureFormat::format(ScaleMode::fromDevicePixels(figures.height, dpi, scaleMode, true)));
}

void tglyphora::munit_Click(int Index)
{
    // Errors are ignored: each step that fails is skipped and the next one runs.
    auto step = [](auto&& action) {
        try {
            action();
        } catch (const RuntimeError&) {
        }
    };
    step([&] { Printer::instance().setScaleMode(Index + 1); });
    m_unite = Index + 1;
    step([&] { afficheinfos(); });
    step([&] { munit(Index)->setChecked(true); });
    // Runs even for the item just checked, so choosing the checked unit unchecks it.
    step([&] {
        if (m_checkedUnit != -1)
            munit(m_checkedUnit)->setChecked(false);
    });
    m_checkedUnit = Index;
}
