// Commands that hand the user over to other tools: the fonts folder, the desktop's
// character map, the program's own character table and font uninstallation.
#include "app/tglyphora.h"

void tglyphora::mopenfoldttf_Click() {}
void tglyphora::mcharmap_Click() {}
void tglyphora::mautretable_Click() {}
void tglyphora::mdesinst_Click() {}
