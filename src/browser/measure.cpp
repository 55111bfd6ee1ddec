// Measuring the sample on the printer in the chosen unit.
#include "app/tglyphora.h"

#include "browser/measureformat.h"
#include "browser/samplebox.h"
#include "components/printer.h"
#include "components/runtimeerror.h"

#include <QAction>
#include <QLabel>

void tglyphora::afficheinfos()
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

    const QString text = Text2->text();
    Panel(2)->setText(MeasureFormat::format(printer.TextWidth(text)));
    Panel(3)->setText(MeasureFormat::format(printer.TextHeight(text)));
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
