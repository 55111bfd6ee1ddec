// The toolbar's icons and the application icon, drawn as vector shapes so that they
// are sharp at every scale.
#pragma once

#include <QIcon>

namespace ToolIcons {

// Icon of toolbar button n (1..21); a null icon for places without one.
QIcon buttonIcon(int n);
QIcon applicationIcon();

} // namespace ToolIcons
