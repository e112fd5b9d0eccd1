#include "BlurBehind.h"
#include "KWinBlurCompositor.h"
#include "WindowFade.h"

#include <QGuiApplication>
#include <QQuickItem>
#include <QQuickWindow>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>
#include <QWindow>
#include <qpa/qplatformnativeinterface.h>

#include <wayland-client.h>

#include <chrono>
#include <memory>

// The panel's blur and fade on a KWin session that stays on Wayland, through Qt's wayland platform, against a
// compositor in the test that plays KWin's part.
class KWinWaylandBlurTest : public QObject {
    Q_OBJECT

public:
    explicit KWinWaylandBlurTest(KWinBlurCompositor &compositor) : m_compositor(compositor) {}

private slots:
    // One window through its life: its blur follows the surface it has at each step.
    void blurFollowsTheWindowsSurface()
    {
        auto window = shownWindow();
        QVERIFY(requestBlurBehind(window.get()));
        QTRY_COMPARE(m_compositor.blurs().size(), size_t(1));
        QTRY_VERIFY(m_compositor.blurs().back().committed);
        QCOMPARE(m_compositor.blurs().back().surfaceId, surfaceId(window.get()));
        QVERIFY(m_compositor.blurs().back().wholeSurface);
        QVERIFY(!m_compositor.blurs().back().released);

        // A hidden window loses its surface; showing it again must blur the new one and let the old go.
        window->hide();
        window->show();
        QVERIFY(QTest::qWaitForWindowExposed(window.get()));
        QVERIFY(requestBlurBehind(window.get()));
        QTRY_VERIFY(m_compositor.blurs().size() == 2 && m_compositor.blurs().back().committed);
        QVERIFY(m_compositor.blurs().front().released);
        QVERIFY(!m_compositor.blurs().back().released);
        QCOMPARE(m_compositor.blurs().back().surfaceId, surfaceId(window.get()));

        // Closing the window releases its blur.
        window.reset();
        QTRY_VERIFY(m_compositor.blurs().back().released);
    }

    // Wayland lets no client set its window's opacity, so a fade there moves the Qt Quick content.
    void fadeMovesTheContent()
    {
        using namespace std::chrono_literals;
        QTest::failOnWarning(QRegularExpression(QStringLiteral("opacity")));
        QQuickWindow window;
        window.resize(388, 600);
        WindowFade fade(window);
        fade.setOpacity(0);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        QCOMPARE(window.contentItem()->opacity(), 0.0);
        fade.fadeTo(1, 50ms, QEasingCurve::Linear);
        QTRY_COMPARE(window.contentItem()->opacity(), 1.0);
    }

private:
    static std::unique_ptr<QWindow> shownWindow()
    {
        auto window = std::make_unique<QWindow>();
        window->setFlags(Qt::FramelessWindowHint | Qt::Tool);
        window->resize(388, 600);
        window->show();
        if (!QTest::qWaitForWindowExposed(window.get()))
            qWarning("The window was never shown");
        return window;
    }

    static uint32_t surfaceId(QWindow *window)
    {
        return wl_proxy_get_id(static_cast<wl_proxy *>(
            QGuiApplication::platformNativeInterface()->nativeResourceForWindow("surface", window)));
    }

    KWinBlurCompositor &m_compositor;
};

int main(int argc, char *argv[])
{
    // The compositor's socket goes into a runtime directory of the test's own.
    const QTemporaryDir runtime;
    qputenv("XDG_RUNTIME_DIR", QFile::encodeName(runtime.path()));
    KWinBlurCompositor compositor;
    qputenv("WAYLAND_DISPLAY", compositor.socketName().toUtf8());
    qputenv("QT_QPA_PLATFORM", "wayland");
    qputenv("QT_WAYLAND_DISABLE_WINDOWDECORATION", "1");
    qputenv("QT_QUICK_BACKEND", "software");
    QGuiApplication app(argc, argv);
    KWinWaylandBlurTest test(compositor);
    return QTest::qExec(&test, argc, argv);
}

#include "KWinWaylandBlurTest.moc"
