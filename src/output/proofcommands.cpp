// The main window's proof commands of the "&Outils" menu: the compare window, the font
// list as a PDF, and the print preview of the printed font list.
#include "app/tglyphora.h"

#include "components/cmdialog.h"
#include "components/msgbox.h"
#include "components/pageflow.h"
#include "components/printer.h"
#include "output/comparer.h"
#include "output/pdftask.h"
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
    PdfTask::Job job;
    job.path = file;
    job.layout = Printer::instance().pageLayout();
    job.resolution = Printer::instance().resolution();
    job.title = QStringLiteral("Liste des polices");
    const QStringList names = listedNames(List1);
    job.steps = int(names.size());
    job.label = QStringLiteral("Enregistrement de la liste des polices en PDF...");
    job.draw = [names, interfaceFont = QApplication::font()](PageFlow& flow, PdfTask::Progress& progress) {
        ProofPages::fontList(flow, names, interfaceFont, 12, [&progress] { return progress.step(); });
    };
    // Stopped by the user: nothing written, nothing said.
    if (PdfTask::write(this, job) == PdfTask::Result::Failed)
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
