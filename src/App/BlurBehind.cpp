#include "BlurBehind.h"

#include "KWinWaylandBlur.h"

#include <QGuiApplication>
#include <QWindow>

#include <xcb/xcb.h>

#include <cstdlib>
#include <cstring>

namespace {

// The program's X connection, or none off X11: the offscreen platform also answers the X11 interface,
// with no connection behind it.
xcb_connection_t *x11Connection()
{
    auto *x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return x11 ? x11->connection() : nullptr;
}

xcb_atom_t internAtom(xcb_connection_t *connection, const char *name)
{
    const xcb_intern_atom_cookie_t cookie =
        xcb_intern_atom(connection, false, uint16_t(std::strlen(name)), name);
    xcb_intern_atom_reply_t *reply = xcb_intern_atom_reply(connection, cookie, nullptr);
    const xcb_atom_t atom = reply ? reply->atom : xcb_atom_t(XCB_ATOM_NONE);
    std::free(reply);
    return atom;
}

// Whether the root window carries the property: KWin's effects announce themselves that way, each with
// a property named after its protocol, set while the effect is loaded.
bool rootHasProperty(xcb_connection_t *connection, xcb_window_t root, xcb_atom_t property)
{
    const xcb_get_property_cookie_t cookie =
        xcb_get_property(connection, false, root, property, XCB_GET_PROPERTY_TYPE_ANY, 0, 0);
    xcb_get_property_reply_t *reply = xcb_get_property_reply(connection, cookie, nullptr);
    const bool present = reply && reply->type != XCB_NONE;
    std::free(reply);
    return present;
}

// Whether the window manager announces the blur protocol in _NET_SUPPORTED on the root window.
bool windowManagerSupports(xcb_connection_t *connection, xcb_window_t root, xcb_atom_t wanted)
{
    const xcb_atom_t supported = internAtom(connection, "_NET_SUPPORTED");
    if (supported == XCB_ATOM_NONE || wanted == XCB_ATOM_NONE)
        return false;
    const xcb_get_property_cookie_t cookie =
        xcb_get_property(connection, false, root, supported, XCB_ATOM_ATOM, 0, 4096);
    xcb_get_property_reply_t *reply = xcb_get_property_reply(connection, cookie, nullptr);
    if (!reply)
        return false;
    const auto *atoms = static_cast<const xcb_atom_t *>(xcb_get_property_value(reply));
    const int count = xcb_get_property_value_length(reply) / int(sizeof(xcb_atom_t));
    bool found = false;
    for (int index = 0; index < count && !found; ++index)
        found = atoms[index] == wanted;
    std::free(reply);
    return found;
}

bool requestX11BlurBehind(QWindow *window)
{
    xcb_connection_t *connection = x11Connection();
    if (!connection)
        return false;
    const xcb_screen_t *screen = xcb_setup_roots_iterator(xcb_get_setup(connection)).data;
    const xcb_atom_t blurRegion = internAtom(connection, "_KDE_NET_WM_BLUR_BEHIND_REGION");
    if (!screen || blurRegion == XCB_ATOM_NONE ||
        !(rootHasProperty(connection, screen->root, blurRegion) ||
          windowManagerSupports(connection, screen->root, blurRegion)))
        return false;
    // An empty region means the whole window.
    xcb_change_property(connection, XCB_PROP_MODE_REPLACE, xcb_window_t(window->winId()), blurRegion,
                        XCB_ATOM_CARDINAL, 32, 0, nullptr);
    xcb_flush(connection);
    return true;
}

} // namespace

bool requestBlurBehind(QWindow *window)
{
    // Each platform is asked only for its own kind of connection.
    const QString platform = QGuiApplication::platformName();
    if (!window)
        return false;
    if (platform == QLatin1StringView("xcb"))
        return requestX11BlurBehind(window);
    if (platform.startsWith(QLatin1StringView("wayland")))
        return requestKWinWaylandBlur(window);
    return false;
}

bool displayIsComposited()
{
    xcb_connection_t *connection = x11Connection();
    if (!connection)
        return true; // Wayland compositors always composite; offscreen has nothing behind the window.
    const xcb_atom_t selection = internAtom(connection, "_NET_WM_CM_S0");
    xcb_get_selection_owner_reply_t *reply =
        xcb_get_selection_owner_reply(connection, xcb_get_selection_owner(connection, selection), nullptr);
    const bool owned = reply && reply->owner != XCB_NONE;
    std::free(reply);
    return owned;
}
