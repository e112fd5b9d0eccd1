#pragma once

#include <QString>

#include <atomic>
#include <cstdint>
#include <functional>
#include <mutex>
#include <thread>
#include <vector>

struct wl_display;

// A Wayland compositor in a thread of the test, offering what a Qt client needs to show a window
// (surfaces, shared memory, xdg-shell) and KWin's blur manager, whose requests it records.
//
// It stands in for KWin, which cannot run on this machine: its Debian package brings a whole Plasma
// desktop, and it needs a GPU or a parent compositor to draw into. The client side under test is the
// real one, Qt's wayland platform plugin included.
class KWinBlurCompositor {
public:
    struct Blur {
        uint32_t surfaceId = 0;
        bool wholeSurface = false;
        bool committed = false;
        bool released = false;
    };

    KWinBlurCompositor();
    ~KWinBlurCompositor();

    // The socket's name, for WAYLAND_DISPLAY.
    QString socketName() const { return m_socketName; }
    std::vector<Blur> blurs() const;

    // For the request handlers, on the compositor's thread.
    size_t addBlur(uint32_t surfaceId);
    void changeBlur(size_t index, const std::function<void(Blur &)> &change);

private:
    wl_display *m_display;
    QString m_socketName;
    mutable std::mutex m_mutex;
    std::vector<Blur> m_blurs;
    std::atomic_bool m_stopping = false;
    std::thread m_thread;
};
