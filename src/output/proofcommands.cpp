// The main window's proof commands of the "&Outils" menu: the compare window, the font
// list as a PDF, and the print preview of the printed font list.
#include "app/tglyphora.h"

#include "components/cmdialog.h"
#include "components/msgbox.h"
#include "components/pageflow.h"
#include "components/printer.h"
#include "output/comparer.h"
#include "output/printpreview.h"
#include "output/proofpages.h"

#include <QApplication>
#include <QComboBox>
#include <QTreeWidget>

namespace {

QStringList listedNames(const QTreeWidget* list)
{
    QStringList names;
    const int count = list->topLevelItemCount();
    names.reserve(count);
    for (int i = 0; i < count; ++i)
        names.append(list->topLevelItem(i)->text(0));
    return names;
}

} // namespace

void tglyphora::mcomparer_Click()
{
    Comparer dialog(this);
    dialog.exec();
}

void tglyphora::mlistepdf_Click()
{
    const QString file = CMDIALOG::ShowFileDialog(
        this, CMDIALOG::ModeSave, QStringLiteral("Enregistrer la liste des polices en PDF"), QStringLiteral("listepol.pdf"),
        CMDIALOG::BuildFilter({QStringLiteral("Fichier PDF"), QStringLiteral("*.pdf"), QStringLiteral("Tous"), QStringLiteral("*.*")}),
        QStringLiteral("."), QStringLiteral("pdf"));
    if (file.trimmed().isEmpty())
        return;
    const QStringList names = listedNames(List1);
    const QFont interfaceFont = QApplication::font();
    setCursor(Qt::WaitCursor);
    Printer& printer = Printer::instance();
    const bool written =
        ProofPages::writePdf(file, printer.pageLayout(), printer.resolution(), QStringLiteral("Liste des polices"),
                             [&](PageFlow& flow) { ProofPages::fontList(flow, names, interfaceFont); });
    unsetCursor();
    if (!written)
        MsgBox::Inform(this, QStringLiteral("Problème pendant l'impression ou la génération du fichier"));
}

void tglyphora::maperculiste_Click()
{
    // The list as "Imprimer la liste des polices" prints it: in the size box's font.
    const QStringList names = listedNames(List1);
    QFont font = Combo1->font();
    font.setFamily(Combo1->font().family());
    PrintPreview::exec(this, [names, font](PageFlow& flow) { ProofPages::lines(flow, font, names); });
}
