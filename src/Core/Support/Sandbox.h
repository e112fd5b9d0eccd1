#pragma once

#include <QFile>

// Inside a Flatpak sandbox the host's session services are reached through the desktop portals.
inline bool insideFlatpak()
{
    return QFile::exists(QStringLiteral("/.flatpak-info"));
}
