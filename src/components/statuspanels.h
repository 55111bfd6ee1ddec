// The main window's seven status bar panels: sunken labels that shrink with an ellipsis
// rather than run into each other, the date and time panels kept current by a clock.
#pragma once

#include <QList>
#include <QStringList>

class QLabel;
class QStatusBar;

namespace StatusPanels {

// Adds the panels to `bar` (objectNames "Panel1".."Panel7", tool tips `hoverTexts`) and
// returns them, panel 1 first. The clock that updates panels 6 and 7 belongs to `bar`.
QList<QLabel*> build(QStatusBar* bar, const QStringList& hoverTexts);

} // namespace StatusPanels
