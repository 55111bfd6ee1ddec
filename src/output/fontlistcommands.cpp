// Commands of the "&Divers" menu that export or copy the font list, and the opener of
// the test page dialog.
#include "app/tglyphora.h"

#include "browser/samplebox.h"
#include "components/cmdialog.h"
#include "components/colorvalue.h"
#include "components/errorreport.h"
#include "components/msgbox.h"
#include "components/printer.h"
#include "components/runtimeerror.h"
#include "output/fontlisttext.h"
#include "output/ptest.h"

#include <QClipboard>
#include <QDir>
#include <QComboBox>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QSaveFile>
#include <QTreeWidget>

namespace {

// The run-time error of a file that cannot be opened for output.
RuntimeError openFailure(const QString& path)
{
    const QFileInfo info(path);
    const int number = info.absoluteDir().exists() ? RuntimeError::PathFileAccess : RuntimeError::PathNotFound;
    return RuntimeError::fileError(number, path, QStringLiteral("mcreatefile"));
}

// Runs one statement whose failure is skipped.
template <typename F>
void ignoringFailure(F&& statement)
{
    try {
        statement();
    } catch (const std::exception&) {
    }
}

} // namespace

void tglyphora::mclipboard_Click()
{
    const ErrorReport::Doing copying(QStringLiteral("Copie du nom de la police sélectionnée"));
    QTreeWidgetItem* item = List1->currentItem();
    if (!item)
        throw RuntimeError::objectMissing(QStringLiteral("List1.SelectedItem"));
    if (List1->indexOfTopLevelItem(item) == -1)
        return;
    QGuiApplication::clipboard()->setText(item->text(0));
}

void tglyphora::mcreatefile_Click()
{
    const QString file = CMDIALOG::ShowFileDialog(
        this, CMDIALOG::ModeSave, QStringLiteral("Sauvegarder la liste des polices"), QStringLiteral("listepol.txt"),
        CMDIALOG::BuildFilter({QStringLiteral("Fichier texte"), QStringLiteral("*.txt"), QStringLiteral("Tous"),
                               QStringLiteral("*.*")}),
        QStringLiteral("."), QStringLiteral("txt"));
    if (file.trimmed().isEmpty())
        return;
    const ErrorReport::Doing saving(QStringLiteral("Enregistrement de la liste dans ") + file);

    setCursor(Qt::WaitCursor);
    // Written beside the file and renamed over it once complete, so that a failed save
    // (full disk, write error) leaves the previous file as it was. Unbuffered, so that a
    // failed write is seen before the rename (a buffered one fails only at the commit).
    QSaveFile out(file);
    out.setDirectWriteFallback(true);
    if (!out.open(QIODevice::WriteOnly | QIODevice::Unbuffered)) {
        unsetCursor();
        throw openFailure(file);
    }
    QStringList names;
    const int count = List1->topLevelItemCount();
    names.reserve(count);
    for (int i = 0; i < count; ++i)
        names.append(List1->topLevelItem(i)->text(0));
    const QByteArray bytes = FontListText::listFile(names);
    const bool written = out.write(bytes) == bytes.size() && out.commit();
    unsetCursor();
    if (!written) {
        RuntimeError error = RuntimeError::fileError(RuntimeError::PathFileAccess, file, QStringLiteral("mcreatefile"));
        if (out.error() == QFileDevice::ResourceError)
            error.setReason(QStringLiteral("le disque est plein"));
        throw error;
    }
}

void tglyphora::mimpnames_Click()
{
    if (!MsgBox::Ask(this, QStringLiteral("Etes vous certain(e) ?")))
        return;
    // Every failure is skipped statement by statement, the absence of a printer too.
    // The document stays open: the next ended document carries these lines.
    Printer& printer = Printer::instance();
    ignoringFailure([&] { printer.setFont(Combo1->font()); });
    ignoringFailure([&] { printer.setFontName(Combo1->font().family()); });
    setCursor(Qt::WaitCursor);
    const int count = List1->topLevelItemCount();
    for (int i = 0; i < count; ++i) {
        const QString name = List1->topLevelItem(i)->text(0);
        ignoringFailure([&] { printer.Print(name); });
    }
    unsetCursor();
}

void tglyphora::mHTML_Click()
{
    QString attribute;
    if (MsgBox::Ask(this, QStringLiteral("Voulez vous inclure la commande de couleur ?")))
        attribute = FontListText::colourAttribute(ColorValue::fromColor(Text1->ForeColor()));

    QTreeWidgetItem* item = List1->currentItem();
    if (!item || List1->indexOfTopLevelItem(item) == -1) {
        MsgBox::Inform(this, QStringLiteral("Vous devez d'abord sélectionner une police dans la liste"));
        return;
    }
    QGuiApplication::clipboard()->setText(FontListText::fontTag(item->text(0), attribute));
    MsgBox::Inform(this, QStringLiteral("La commande HTML a été placée dans le presse papiers"));
}

void tglyphora::mpagtst_Click()
{
    Ptest dialog(this);
    dialog.exec();
}
