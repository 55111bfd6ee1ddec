// Opening the preview window on given files.
#include "fontfile/previewfiles.h"

#include "components/msgbox.h"
#include "fontfile/ffontpreview.h"
#include "fontfile/webfont.h"

#include <QFileInfo>

namespace PreviewFiles {

void open(QWidget* owner, const QStringList& files)
{
    QStringList fonts, others;
    for (const QString& file : files) {
        if (WebFont::isFont(WebFont::detectFile(file)))
            fonts.append(file);
        else
            others.append(QStringLiteral("« ") + QFileInfo(file).fileName() + QStringLiteral(" »"));
    }
    if (!others.isEmpty()) {
        const QString text = others.size() == 1
                                 ? QStringLiteral("Le fichier %1 n'est pas une police de caractères.").arg(others.first())
                                 : QStringLiteral("Ces fichiers ne sont pas des polices de caractères : %1.")
                                       .arg(others.join(QStringLiteral(", ")));
        MsgBox::Inform(owner, text);
    }
    if (fonts.isEmpty())
        return;
    FFontPreview window(owner);
    window.ShowFiles(fonts);
    window.exec();
}

} // namespace PreviewFiles
