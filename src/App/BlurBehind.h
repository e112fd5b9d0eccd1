#pragma once

class QWindow;

// Asks the compositor to blur what lies behind the window (KWin's protocols on X11 and on Wayland). False
// when the session cannot: the panel then thickens its frost so that text stays legible over any wallpaper.
bool requestBlurBehind(QWindow *window);
