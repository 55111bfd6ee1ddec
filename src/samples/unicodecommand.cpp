// The main window's command that opens the Unicode character table.
#include "app/tglyphora.h"

#include "app/debut.h"
#include "components/runtimeerror.h"
#include "samples/unicodetable.h"

#include <QTreeWidget>

void tglyphora::municode_Click()
{
    QTreeWidgetItem* item = List1->currentItem();
    if (!item)
        throw RuntimeError::objectMissing(QStringLiteral("List1.SelectedItem"));
    debut::CurrentFaceName = item->text(0);
    UnicodeTable window(this);
    window.exec();
}
