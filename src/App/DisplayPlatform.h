#pragma once

// Picks the Qt platform for the tray app before QApplication opens a display, so that a missing display
// is a message and not an abort inside Qt. An X display is preferred when one answers, even on a Wayland
// session: Wayland gives clients no say over where their windows go, and XWayland keeps the panel in the
// right-edge column. Otherwise the program runs on Wayland natively. A platform the user set in
// QT_QPA_PLATFORM is kept. Returns false, with QT_QPA_PLATFORM untouched, when no display answers.
bool chooseDisplayPlatform();
