// debut: the program's start-up and the state it shares between windows.
#pragma once

#include <QString>

namespace debut {

// Shows the donation splash unless "Donation"/"Merci" holds any text, then the main
// window, modeless. Returns at once after that.
void Main();

// Program-wide state.
inline QString CurrentFaceName;   // the font selected in the main window's list
inline QString CurrentPrinterName; // the default printer, read when the main window loads
inline QString LastFolder;        // folder of the last picture chosen
inline QString PicturePath;       // the picture chosen for the rotated sample

} // namespace debut
