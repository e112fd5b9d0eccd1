#pragma once

#include <QString>

class QDBusConnection;

// Whether the tray host behind a StatusNotifierWatcher shows an item's XAyatanaLabel beside its icon.
// The watcher's program names the host (GNOME Shell's AppIndicator extension, Ayatana's indicator
// service); when it cannot be read (inside a sandbox), the desktop named in XDG_CURRENT_DESKTOP does.
// Plasma, waybar and the other hosts show the icon alone.
bool hostShowsLabels(const QString &watcherProgram, const QString &currentDesktop);

// The file name of the program that owns service on bus, or empty when it cannot be read.
QString ownerProgram(const QDBusConnection &bus, const QString &service);
