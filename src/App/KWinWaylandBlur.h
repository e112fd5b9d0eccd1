#pragma once

class QWindow;

// KWin's blur for a window of the wayland platform (org_kde_kwin_blur). False when the compositor does
// not offer it or the window has no surface yet. Asked again on every show: a hidden window gives up its
// surface, and the blur goes with it.
bool requestKWinWaylandBlur(QWindow *window);
