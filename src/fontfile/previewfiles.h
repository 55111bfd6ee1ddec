// Font files handed to the program (its command line, a file manager): the preview
// window opened on them.
#pragma once

#include <QStringList>

class QWidget;

namespace PreviewFiles {

// Names in one French message the files that are no fonts (by their first bytes), then
// shows the preview window, modally, on the first font among them. Nothing opens when
// none is a font.
void open(QWidget* owner, const QStringList& files);

} // namespace PreviewFiles
