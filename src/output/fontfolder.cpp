// Commands that hand the user over to other tools: the fonts folder, the desktop's
// character map, the program's own character table and font uninstallation.
#include "app/tglyphora.h"

#include "app/debut.h"
#include "components/errorreport.h"
#include "components/msgbox.h"
#include "components/runtimeerror.h"
#include "output/fontuninstall.h"
#include "output/launcher.h"
#include "output/userfonts.h"
#include "samples/charmap.h"

#include <QDir>
#include <QTreeWidget>
#include <QUrl>

namespace {

// Starts a desktop program; its message is shown when it cannot start or ends with an
// error in its first seconds (a file manager that finds no handler, say).
void launch(QWidget* owner, const QString& program, const QStringList& arguments, const QString& failure)
{
    const auto report = [owner, failure](bool failed) {
        if (failed)
            MsgBox::Inform(owner, failure);
    };
    if (program.isEmpty() || !Launcher::StartWatched(program, arguments, owner, report))
        MsgBox::Inform(owner, failure);
}

} // namespace

void tglyphora::mopenfoldttf_Click()
{
    const QString failure = QStringLiteral("Erreur, impossible d'ouvrir le répertoire...");
    const QString folder = UserFonts::Folder();
    if (!QDir().mkpath(folder)) {
        MsgBox::Inform(this, failure);
        return;
    }
    launch(this, QStringLiteral("xdg-open"), {QUrl::fromLocalFile(folder).toString()}, failure);
}

void tglyphora::mcharmap_Click()
{
    // No font is passed: the program opens as the user left it.
    const QString program = Launcher::FirstInstalled(
        {QStringLiteral("gnome-characters"), QStringLiteral("gucharmap"), QStringLiteral("kcharselect")});
    launch(this, program, {}, QStringLiteral("Erreur, CHARMAP.EXE n'est peut être pas installé sur votre ordinateur ?"));
}

void tglyphora::mautretable_Click()
{
    const ErrorReport::Doing opening(QStringLiteral("Ouverture de la table de caractères de la police sélectionnée"));
    QTreeWidgetItem* item = List1->currentItem();
    if (!item)
        throw RuntimeError::objectMissing(QStringLiteral("List1.SelectedItem"));
    debut::CurrentFaceName = item->text(0);
    charmap window(this);
    window.exec();
}

void tglyphora::mdesinst_Click()
{
    FontUninstall window(this);
    window.exec();
    charge();
}
