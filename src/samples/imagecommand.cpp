// The main window's command that opens the rotated sample over a picture.
#include "app/tglyphora.h"

#include "app/debut.h"
#include "components/cmdialog.h"
#include "components/errorreport.h"
#include "components/runtimeerror.h"
#include "samples/ftstimg.h"

#include <QPointer>
#include <QTreeWidget>

void tglyphora::mimgfond_Click()
{
    const ErrorReport::Doing opening(QStringLiteral("Essai de la police sélectionnée sur une image de fond"));
    QTreeWidgetItem* item = List1->currentItem();
    if (!item)
        throw RuntimeError::objectMissing(QStringLiteral("List1.SelectedItem"));
    debut::CurrentFaceName = item->text(0);

    const QString path = FtstImg::ChoosePicture(this);
    if (path.trimmed().isEmpty())
        return;
    // A file that gives no picture is reported and changes nothing.
    if (FtstImg::ReadPicture(this, path).isNull())
        return;
    debut::PicturePath = path;
    debut::LastFolder = CMDIALOG::ExtractPath(path);

    // One such window at a time: a new choice opens it afresh on the new picture.
    static QPointer<FtstImg> window;
    if (window)
        window->close();
    window = new FtstImg(this);
    window->setAttribute(Qt::WA_DeleteOnClose);
    window->show();
}
