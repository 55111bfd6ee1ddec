// The main window's commands that open the font-file windows, each modally.
#include "app/tglyphora.h"

void tglyphora::minfos_Click() {}
void tglyphora::mobtain_Click() {}
void tglyphora::mpreview_Click() {}
