// debut: the program's start-up and the state it shares between windows.
#pragma once

#include <QString>
#include <QStringList>

namespace debut {

// Shows the donation splash unless "Donation"/"Merci" holds any text, then the main
// window, modeless. Returns at once after that.
void Main();
// The same, then, once the main window is up, the preview window on these font files
// (the first one shown); files that are no fonts are named in a message.
void Main(const QStringList& files);

// Program-wide state.
inline QString CurrentFaceName;   // the font selected in the main window's list
inline QString CurrentPrinterName; // the default printer, read when the main window loads
inline QString LastFolder;        // folder of the last picture chosen
inline QString PicturePath;       // the picture chosen for the rotated sample
inline QStringList ShownFaces;    // the last fonts shown in the main window, most recent first

// Puts a font shown in the main window at the head of ShownFaces (six are kept).
inline void noteShownFace(const QString& face)
{
    ShownFaces.removeAll(face);
    ShownFaces.prepend(face);
    while (ShownFaces.size() > 6)
        ShownFaces.removeLast();
}

} // namespace debut
