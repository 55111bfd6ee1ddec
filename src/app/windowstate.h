// WindowState: the main window's size, position, maximized state and the positions of
// its two splitters, kept in the settings group "Fenetre" between runs. Without that
// group the window keeps its first-start geometry.
#pragma once

class tglyphora;

namespace WindowState {

// Applies the stored size and position (before the window is shown) and arranges for
// the stored splitter positions to be applied once it is shown. Values that are not
// numbers, or that would put the window off every screen, are ignored.
void restore(tglyphora& window);
// Applies the stored splitter positions now (the window must have its size).
void restoreSplitters(tglyphora& window);
// Stores the window's normal geometry, maximized state and splitter positions.
void save(const tglyphora& window);

} // namespace WindowState
