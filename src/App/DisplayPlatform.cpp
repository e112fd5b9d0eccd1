#include "DisplayPlatform.h"

#include <QByteArray>
#include <QtGlobal>

#include <wayland-client-core.h>
#include <xcb/xcb.h>

namespace {

bool xDisplayAnswers()
{
    if (qEnvironmentVariableIsEmpty("DISPLAY"))
        return false;
    xcb_connection_t *connection = xcb_connect(nullptr, nullptr);
    const bool connected = xcb_connection_has_error(connection) == 0;
    xcb_disconnect(connection);
    return connected;
}

// WAYLAND_DISPLAY, or the compositor's default socket when that is unset, as Qt itself looks.
bool waylandDisplayAnswers()
{
    // libwayland would print its own complaint about a missing runtime directory.
    if (!qgetenv("WAYLAND_DISPLAY").startsWith('/') && qEnvironmentVariableIsEmpty("XDG_RUNTIME_DIR"))
        return false;
    wl_display *display = wl_display_connect(nullptr);
    if (!display)
        return false;
    wl_display_disconnect(display);
    return true;
}

} // namespace

bool chooseDisplayPlatform()
{
    const QByteArray configured = qgetenv("QT_QPA_PLATFORM");
    if (configured == "xcb")
        return xDisplayAnswers();
    if (configured.startsWith("wayland"))
        return waylandDisplayAnswers();
    if (!configured.isEmpty())
        return true;
    if (xDisplayAnswers())
        qputenv("QT_QPA_PLATFORM", "xcb");
    else if (waylandDisplayAnswers())
        qputenv("QT_QPA_PLATFORM", "wayland");
    else
        return false;
    return true;
}
