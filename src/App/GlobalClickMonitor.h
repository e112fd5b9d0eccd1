#pragma once

#include <QObject>

#include <memory>

class QSocketNotifier;
struct xcb_connection_t;

// Reports every mouse button press on the X display, in any program's window, from XInput 2 raw events
// on the root window, over a connection of its own. Elsewhere (Wayland, offscreen) it never reports,
// and isAvailable() says so.
class GlobalClickMonitor : public QObject {
    Q_OBJECT

public:
    explicit GlobalClickMonitor(QObject *parent = nullptr);
    ~GlobalClickMonitor() override;

    bool isAvailable() const { return m_connection != nullptr; }
    // Presses are asked of the X server only while watching, so an idle program is not woken by them.
    void setWatching(bool watching);

signals:
    // A left, middle or right button went down; wheel steps are not presses.
    void pressed();

private:
    void readEvents();

    xcb_connection_t *m_connection = nullptr;
    uint8_t m_xinputOpcode = 0;
    uint32_t m_root = 0;
    std::unique_ptr<QSocketNotifier> m_notifier;
};
