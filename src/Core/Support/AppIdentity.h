#pragma once

#include <QString>

// The one reverse-DNS id a desktop knows Pitchlark by: the desktop file and AppStream id, the icon
// name, the single-instance D-Bus service and the notification and portal app id.
namespace AppIdentity {
inline QString appId()
{
    return QStringLiteral("com.pitchlark.Pitchlark");
}
} // namespace AppIdentity
