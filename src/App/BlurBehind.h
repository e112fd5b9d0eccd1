#pragma once

class QWindow;

// Asks the compositor to blur what lies behind the window (KWin's protocols on X11 and on Wayland). False
// when the session cannot: the panel then thickens its frost so that text stays legible over any wallpaper.
bool requestBlurBehind(QWindow *window);

// Whether a compositor draws the windows (on X11: the _NET_WM_CM_S0 selection has an owner). Without one,
// a window's transparent pixels show black.
bool displayIsComposited();
