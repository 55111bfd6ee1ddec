// The main window's command that opens the rotated sample over a picture.
#include "app/tglyphora.h"

void tglyphora::mimgfond_Click() {}
