// Recovery: what a run-time error would lose (the two sample texts, the unit, the
// styles and the size) is written to the settings group "Recuperation" before the
// program ends, and given back once by the next main window.
#pragma once

class tglyphora;

namespace Recovery {

// Restores a recovery left by the previous run, once (the group is removed first), with
// a note in status panel 1; then registers the window's state with the error report.
void restoreAndWatch(tglyphora* window);
// Writes the window's state to "Recuperation".
void save(const tglyphora& window);
// True when a recovery waits for the next start.
bool pending();

} // namespace Recovery
