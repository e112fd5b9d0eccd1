#include "KWinWaylandBlur.h"

#include "blur-client-protocol.h"

#include <QGuiApplication>
#include <QWindow>
#include <qpa/qplatformnativeinterface.h>

#include <wayland-client.h>

#include <cstring>

namespace {

void onGlobal(void *data, wl_registry *registry, uint32_t name, const char *interface, uint32_t)
{
    if (std::strcmp(interface, org_kde_kwin_blur_manager_interface.name) != 0)
        return;
    *static_cast<org_kde_kwin_blur_manager **>(data) = static_cast<org_kde_kwin_blur_manager *>(
        wl_registry_bind(registry, name, &org_kde_kwin_blur_manager_interface, 1));
}

void onGlobalRemove(void *, wl_registry *, uint32_t) {}

// Looks for the manager on an event queue of our own, so that the roundtrip dispatches none of Qt's
// events. The manager sends no events, so the queue is never needed again.
org_kde_kwin_blur_manager *bindManager(wl_display *display)
{
    if (!display)
        return nullptr;
    wl_event_queue *queue = wl_display_create_queue(display);
    auto *displayOnQueue = static_cast<wl_display *>(wl_proxy_create_wrapper(display));
    wl_proxy_set_queue(reinterpret_cast<wl_proxy *>(displayOnQueue), queue);
    wl_registry *registry = wl_display_get_registry(displayOnQueue);
    wl_proxy_wrapper_destroy(displayOnQueue);

    org_kde_kwin_blur_manager *manager = nullptr;
    static const wl_registry_listener listener{onGlobal, onGlobalRemove};
    wl_registry_add_listener(registry, &listener, &manager);
    wl_display_roundtrip_queue(display, queue);
    wl_registry_destroy(registry);
    return manager;
}

// The blur object must outlive the request: KWin drops a surface's blur when its object goes away.
class SurfaceBlur : public QObject {
public:
    SurfaceBlur(org_kde_kwin_blur *blur, QWindow *window) : QObject(window), m_blur(blur) {}
    ~SurfaceBlur() override { org_kde_kwin_blur_release(m_blur); }

private:
    org_kde_kwin_blur *m_blur;
};

} // namespace

bool requestKWinWaylandBlur(QWindow *window)
{
    QPlatformNativeInterface *native = QGuiApplication::platformNativeInterface();
    if (!window || !native)
        return false;
    // Bound once for the connection, which lasts as long as the program.
    static org_kde_kwin_blur_manager *const manager =
        bindManager(static_cast<wl_display *>(native->nativeResourceForIntegration("wl_display")));
    auto *surface = static_cast<wl_surface *>(native->nativeResourceForWindow("surface", window));
    if (!manager || !surface)
        return false;
    delete window->findChild<SurfaceBlur *>(QString(), Qt::FindDirectChildrenOnly);
    org_kde_kwin_blur *blur = org_kde_kwin_blur_manager_create(manager, surface);
    // No region means the whole surface; the blur takes effect with the surface's next commit.
    org_kde_kwin_blur_set_region(blur, nullptr);
    org_kde_kwin_blur_commit(blur);
    new SurfaceBlur(blur, window);
    return true;
}
