// Commands of the "&Divers" menu that export or copy the font list, and the openers
// of the other windows.
#include "app/tglyphora.h"

#include "components/runtimeerror.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QTreeWidget>

void tglyphora::mclipboard_Click()
{
    QTreeWidgetItem* item = List1->currentItem();
    if (!item)
        throw RuntimeError::objectMissing(QStringLiteral("List1.SelectedItem"));
    if (List1->indexOfTopLevelItem(item) == -1)
        return;
    QGuiApplication::clipboard()->setText(item->text(0));
}

void tglyphora::mcreatefile_Click() {}
void tglyphora::mimpnames_Click() {}
void tglyphora::mHTML_Click() {}
void tglyphora::mpagtst_Click() {}
