// The main window's command that opens the typographic details of the selected family.
#include "app/tglyphora.h"
#include "fontfile/fontdetails.h"

void tglyphora::mdetails_Click()
{
    FontDetails window(this);
    window.exec();
}
