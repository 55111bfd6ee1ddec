// The main window's commands that open the font-file windows, each modally.
#include "app/tglyphora.h"
#include "fontfile/ffontpreview.h"
#include "fontfile/fname.h"
#include "fontfile/fontinfo.h"

void tglyphora::minfos_Click()
{
    FontInfo window(this);
    window.exec();
}

void tglyphora::mobtain_Click()
{
    FName window(this);
    window.exec();
}

void tglyphora::mpreview_Click()
{
    FFontPreview window(this);
    window.exec();
}
