#include "KWinBlurCompositor.h"

#include "blur-server-protocol.h"
#include "xdg-shell-server-protocol.h"

#include <wayland-server.h>

namespace {

struct SurfaceState {
    wl_resource *xdgSurface = nullptr;
    wl_resource *toplevel = nullptr;
    bool configured = false;
};

void destroyResource(wl_client *, wl_resource *resource)
{
    wl_resource_destroy(resource);
}

template<typename... Arguments>
void ignore(wl_client *, wl_resource *, Arguments...)
{}

// wl_surface: everything is accepted; buffers go straight back and frames are done at once, so that
// the client never waits on a screen that does not exist.
void surfaceCommit(wl_client *, wl_resource *resource)
{
    auto *state = static_cast<SurfaceState *>(wl_resource_get_user_data(resource));
    if (state->toplevel && !state->configured) {
        state->configured = true;
        wl_array states;
        wl_array_init(&states);
        xdg_toplevel_send_configure(state->toplevel, 0, 0, &states);
        wl_array_release(&states);
        xdg_surface_send_configure(state->xdgSurface, wl_display_next_serial(wl_client_get_display(
                                                          wl_resource_get_client(resource))));
    }
}

void surfaceAttach(wl_client *, wl_resource *, wl_resource *buffer, int32_t, int32_t)
{
    if (buffer)
        wl_buffer_send_release(buffer);
}

void surfaceFrame(wl_client *client, wl_resource *, uint32_t id)
{
    wl_resource *callback = wl_resource_create(client, &wl_callback_interface, 1, id);
    wl_callback_send_done(callback, 0);
    wl_resource_destroy(callback);
}

const struct wl_surface_interface surfaceRequests = {
    destroyResource,
    surfaceAttach,
    ignore<int32_t, int32_t, int32_t, int32_t>,
    surfaceFrame,
    ignore<wl_resource *>,
    ignore<wl_resource *>,
    surfaceCommit,
    ignore<int32_t>,
    ignore<int32_t>,
    ignore<int32_t, int32_t, int32_t, int32_t>,
    ignore<int32_t, int32_t>,
};

const struct wl_region_interface regionRequests = {
    destroyResource, ignore<int32_t, int32_t, int32_t, int32_t>, ignore<int32_t, int32_t, int32_t, int32_t>};

void createSurface(wl_client *client, wl_resource *compositor, uint32_t id)
{
    wl_resource *surface =
        wl_resource_create(client, &wl_surface_interface, wl_resource_get_version(compositor), id);
    wl_resource_set_implementation(surface, &surfaceRequests, new SurfaceState, [](wl_resource *resource) {
        delete static_cast<SurfaceState *>(wl_resource_get_user_data(resource));
    });
}

void createRegion(wl_client *client, wl_resource *, uint32_t id)
{
    wl_resource *region = wl_resource_create(client, &wl_region_interface, 1, id);
    wl_resource_set_implementation(region, &regionRequests, nullptr, nullptr);
}

const struct wl_compositor_interface compositorRequests = {createSurface, createRegion};

// xdg-shell: one configure after the first commit makes a toplevel mapped.
const struct xdg_toplevel_interface toplevelRequests = {
    destroyResource,
    ignore<wl_resource *>,
    ignore<const char *>,
    ignore<const char *>,
    ignore<wl_resource *, uint32_t, int32_t, int32_t>,
    ignore<wl_resource *, uint32_t>,
    ignore<wl_resource *, uint32_t, uint32_t>,
    ignore<int32_t, int32_t>,
    ignore<int32_t, int32_t>,
    ignore<>,
    ignore<>,
    ignore<wl_resource *>,
    ignore<>,
    ignore<>,
};

void getToplevel(wl_client *client, wl_resource *xdgSurface, uint32_t id)
{
    auto *surface = static_cast<wl_resource *>(wl_resource_get_user_data(xdgSurface));
    auto *state = static_cast<SurfaceState *>(wl_resource_get_user_data(surface));
    state->toplevel =
        wl_resource_create(client, &xdg_toplevel_interface, wl_resource_get_version(xdgSurface), id);
    wl_resource_set_implementation(state->toplevel, &toplevelRequests, nullptr, nullptr);
}

const struct xdg_surface_interface xdgSurfaceRequests = {
    destroyResource,
    getToplevel,
    ignore<uint32_t, wl_resource *, wl_resource *>,
    ignore<int32_t, int32_t, int32_t, int32_t>,
    ignore<uint32_t>,
};

void getXdgSurface(wl_client *client, wl_resource *shell, uint32_t id, wl_resource *surface)
{
    wl_resource *xdgSurface =
        wl_resource_create(client, &xdg_surface_interface, wl_resource_get_version(shell), id);
    wl_resource_set_implementation(xdgSurface, &xdgSurfaceRequests, surface, nullptr);
    static_cast<SurfaceState *>(wl_resource_get_user_data(surface))->xdgSurface = xdgSurface;
}

const struct xdg_wm_base_interface shellRequests = {destroyResource, ignore<uint32_t>, getXdgSurface,
                                                    ignore<uint32_t>};

// org_kde_kwin_blur: what the client asks is written down for the test to read.
struct BlurResource {
    KWinBlurCompositor *compositor;
    size_t index;
};

BlurResource &blurOf(wl_resource *resource)
{
    return *static_cast<BlurResource *>(wl_resource_get_user_data(resource));
}

const struct org_kde_kwin_blur_interface blurRequests = {
    [](wl_client *, wl_resource *resource) {
        blurOf(resource).compositor->changeBlur(blurOf(resource).index,
                                                [](auto &blur) { blur.committed = true; });
    },
    [](wl_client *, wl_resource *resource, wl_resource *region) {
        blurOf(resource).compositor->changeBlur(blurOf(resource).index,
                                                [region](auto &blur) { blur.wholeSurface = !region; });
    },
    [](wl_client *, wl_resource *resource) {
        blurOf(resource).compositor->changeBlur(blurOf(resource).index,
                                                [](auto &blur) { blur.released = true; });
        wl_resource_destroy(resource);
    },
};

void createBlur(wl_client *client, wl_resource *manager, uint32_t id, wl_resource *surface)
{
    auto *compositor = static_cast<KWinBlurCompositor *>(wl_resource_get_user_data(manager));
    wl_resource *blur = wl_resource_create(client, &org_kde_kwin_blur_interface, 1, id);
    wl_resource_set_implementation(
        blur, &blurRequests, new BlurResource{compositor, compositor->addBlur(wl_resource_get_id(surface))},
        [](wl_resource *resource) { delete &blurOf(resource); });
}

const struct org_kde_kwin_blur_manager_interface blurManagerRequests = {createBlur, ignore<wl_resource *>};

// A global whose objects all share one implementation and the global's data.
template<const wl_interface *interface, auto *implementation>
void bindTo(wl_client *client, void *data, uint32_t version, uint32_t id)
{
    wl_resource *resource = wl_resource_create(client, interface, int(version), id);
    wl_resource_set_implementation(resource, implementation, data, nullptr);
}

} // namespace

KWinBlurCompositor::KWinBlurCompositor() : m_display(wl_display_create())
{
    m_socketName = QString::fromUtf8(wl_display_add_socket_auto(m_display));
    wl_display_init_shm(m_display);
    wl_global_create(m_display, &wl_compositor_interface, 4, nullptr,
                     bindTo<&wl_compositor_interface, &compositorRequests>);
    wl_global_create(m_display, &xdg_wm_base_interface, 1, nullptr,
                     bindTo<&xdg_wm_base_interface, &shellRequests>);
    wl_global_create(m_display, &org_kde_kwin_blur_manager_interface, 1, this,
                     bindTo<&org_kde_kwin_blur_manager_interface, &blurManagerRequests>);
    m_thread = std::thread([this] {
        wl_event_loop *loop = wl_display_get_event_loop(m_display);
        while (!m_stopping) {
            wl_event_loop_dispatch(loop, 20);
            wl_display_flush_clients(m_display);
        }
    });
}

KWinBlurCompositor::~KWinBlurCompositor()
{
    m_stopping = true;
    m_thread.join();
    wl_display_destroy_clients(m_display);
    wl_display_destroy(m_display);
}

std::vector<KWinBlurCompositor::Blur> KWinBlurCompositor::blurs() const
{
    const std::lock_guard lock(m_mutex);
    return m_blurs;
}

size_t KWinBlurCompositor::addBlur(uint32_t surfaceId)
{
    const std::lock_guard lock(m_mutex);
    m_blurs.push_back({surfaceId});
    return m_blurs.size() - 1;
}

void KWinBlurCompositor::changeBlur(size_t index, const std::function<void(Blur &)> &change)
{
    const std::lock_guard lock(m_mutex);
    change(m_blurs[index]);
}
