#include "GlobalClickMonitor.h"

#include <QGuiApplication>
#include <QSocketNotifier>

#include <xcb/xcb.h>
#include <xcb/xinput.h>

#include <cstdlib>

namespace {

// Raw events reach root-window listeners even while another client grabs the pointer from 2.1 on.
constexpr uint16_t xinputMajor = 2;
constexpr uint16_t xinputMinor = 2;

bool hasXInput22(xcb_connection_t *connection)
{
    xcb_input_xi_query_version_reply_t *reply = xcb_input_xi_query_version_reply(
        connection, xcb_input_xi_query_version(connection, xinputMajor, xinputMinor), nullptr);
    const bool enough =
        reply && (reply->major_version > xinputMajor ||
                  (reply->major_version == xinputMajor && reply->minor_version >= xinputMinor));
    std::free(reply);
    return enough;
}

} // namespace

GlobalClickMonitor::GlobalClickMonitor(QObject *parent) : QObject(parent)
{
    if (QGuiApplication::platformName() != QLatin1StringView("xcb"))
        return;
    xcb_connection_t *connection = xcb_connect(nullptr, nullptr);
    const xcb_query_extension_reply_t *xinput =
        xcb_connection_has_error(connection) ? nullptr : xcb_get_extension_data(connection, &xcb_input_id);
    if (!xinput || !xinput->present || !hasXInput22(connection)) {
        xcb_disconnect(connection);
        return;
    }
    m_connection = connection;
    m_xinputOpcode = xinput->major_opcode;
    m_root = xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
    m_notifier =
        std::make_unique<QSocketNotifier>(xcb_get_file_descriptor(connection), QSocketNotifier::Read);
    connect(m_notifier.get(), &QSocketNotifier::activated, this, &GlobalClickMonitor::readEvents);
}

GlobalClickMonitor::~GlobalClickMonitor()
{
    m_notifier.reset();
    if (m_connection)
        xcb_disconnect(m_connection);
}

void GlobalClickMonitor::setWatching(bool watching)
{
    if (!m_connection)
        return;
    struct {
        xcb_input_event_mask_t head;
        uint32_t bits;
    } mask{{XCB_INPUT_DEVICE_ALL_MASTER, 1},
           watching ? uint32_t(XCB_INPUT_XI_EVENT_MASK_RAW_BUTTON_PRESS) : 0u};
    xcb_input_xi_select_events(m_connection, m_root, 1, &mask.head);
    xcb_flush(m_connection);
}

void GlobalClickMonitor::readEvents()
{
    bool press = false;
    while (xcb_generic_event_t *event = xcb_poll_for_event(m_connection)) {
        if ((event->response_type & 0x7f) == XCB_GE_GENERIC) {
            const auto *generic = reinterpret_cast<const xcb_ge_generic_event_t *>(event);
            const auto *raw = reinterpret_cast<const xcb_input_raw_button_press_event_t *>(event);
            // Buttons 4 to 7 are the wheel's steps.
            press |= generic->extension == m_xinputOpcode &&
                     generic->event_type == XCB_INPUT_RAW_BUTTON_PRESS && raw->detail >= 1 &&
                     raw->detail <= 3;
        }
        std::free(event);
    }
    if (press)
        emit pressed();
}
