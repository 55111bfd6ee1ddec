// The main window's "A propos de ..." command.
#include "about/about.h"
#include "app/tglyphora.h"

void tglyphora::mabout_Click()
{
    about box(this);
    box.exec();
}
