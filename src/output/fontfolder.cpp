// Commands that hand the user over to other tools: the fonts folder, the desktop's
// character map, the program's own character table and font uninstallation.
#include "app/tglyphora.h"

#include "app/debut.h"
#include "components/msgbox.h"
#include "components/runtimeerror.h"
#include "output/fontuninstall.h"
#include "output/launcher.h"
#include "output/userfonts.h"
#include "samples/charmap.h"

#include <QDir>
#include <QTreeWidget>
#include <QUrl>

void tglyphora::mopenfoldttf_Click()
{
    const QString folder = UserFonts::Folder();
    const bool opened = QDir().mkpath(folder)
                        && Launcher::Start(QStringLiteral("xdg-open"), {QUrl::fromLocalFile(folder).toString()});
    if (!opened)
        MsgBox::Inform(this, QStringLiteral("Erreur, impossible d'ouvrir le répertoire..."));
}

void tglyphora::mcharmap_Click()
{
    // No font is passed: the program opens as the user left it.
    const QString program = Launcher::FirstInstalled(
        {QStringLiteral("gnome-characters"), QStringLiteral("gucharmap"), QStringLiteral("kcharselect")});
    if (program.isEmpty() || !Launcher::Start(program))
        MsgBox::Inform(this, QStringLiteral("Erreur, CHARMAP.EXE n'est peut être pas installé sur votre ordinateur ?"));
}

void tglyphora::mautretable_Click()
{
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
