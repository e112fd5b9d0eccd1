#include "PanelController.h"

#include "BlurBehind.h"
#include "State/AppModel.h"
#include "SwayPlacement.h"
#include "WindowFade.h"
#include "WindowShape.h"

#include <QCursor>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickWindow>
#include <QScreen>

#include <malloc.h>

namespace {

// How long after the panel closed for a click elsewhere a tray click still counts as that same click.
constexpr std::chrono::milliseconds outsideCloseClickWindow{400};

bool pinnedOpen()
{
    return qEnvironmentVariable("TIDEWELL_PINNED") == QLatin1StringView("1");
}

} // namespace

PanelController::PanelController(AppModel &model, QQmlEngine &engine, QObject *updates, QObject *parent)
    : QObject(parent), m_model(model), m_engine(engine), m_updates(updates)
{
    m_releaseTimer.setSingleShot(true);
    m_releaseTimer.setInterval(releaseAfter);
    connect(&m_releaseTimer, &QTimer::timeout, this, &PanelController::release);
    m_graceTimer.setSingleShot(true);
    m_graceTimer.setInterval(outsideClickGrace);
    connect(&m_graceTimer, &QTimer::timeout, this, &PanelController::onGraceEnded);
    connect(&m_clicks, &GlobalClickMonitor::pressed, this, &PanelController::onPressAnywhere);
    m_model.glass().onGlassChange = [self = QPointer(this)] {
        if (self && self->m_window)
            self->applyGlass();
    };
}

PanelController::~PanelController()
{
    m_model.glass().onGlassChange = nullptr;
}

QQuickWindow *PanelController::window()
{
    if (!m_window)
        build();
    return m_window.get();
}

void PanelController::build()
{
    QQmlComponent component(&m_engine);
    component.setData("import Pitchlark.App\nFrostPanel {}", QUrl());
    if (!component.isReady())
        qFatal("The panel could not be built: %s", qPrintable(component.errorString()));
    QVariantMap properties = glassProperties();
    properties.insert(QStringLiteral("model"), QVariant::fromValue(&m_model));
    properties.insert(QStringLiteral("updates"), QVariant::fromValue(m_updates.data()));
    QObject *root = component.createWithInitialProperties(properties);
    m_window.reset(qobject_cast<QQuickWindow *>(root));
    if (!m_window)
        qFatal("The panel could not be built: %s", qPrintable(component.errorString()));
    m_window->installEventFilter(this);
    connect(m_window.get(), &QWindow::activeChanged, this, &PanelController::onActiveChanged);
    m_fade = std::make_unique<WindowFade>(*m_window);
}

void PanelController::release()
{
    if (m_shown)
        return;
    m_fade.reset();
    m_window.reset();
    m_engine.collectGarbage();
    m_engine.trimComponentCache();
    // Hand the freed heap back to the system, or the resident size would not show the release.
    malloc_trim(0);
}

QRect PanelController::panelGeometry(const QRect &available)
{
    return QRect(available.right() + 1 - panelWidth - screenMargin, available.top() + screenMargin,
                 panelWidth, available.height() - 2 * screenMargin);
}

QVariantMap PanelController::glassProperties() const
{
    const GlassPreferences &glass = m_model.glass();
    return {{QStringLiteral("blur"), glass.blur()},
            {QStringLiteral("tintHue"), glass.tintHue()},
            {QStringLiteral("tint"), glass.tint()},
            {QStringLiteral("grain"), glass.grain()},
            {QStringLiteral("borderless"), glass.floatingCards()}};
}

void PanelController::applyGlass()
{
    const QVariantMap properties = glassProperties();
    for (auto property = properties.cbegin(); property != properties.cend(); ++property)
        m_window->setProperty(qPrintable(property.key()), property.value());
}

void PanelController::show(const QPoint &position)
{
    m_releaseTimer.stop();
    window();
    QScreen *screen = position.isNull() ? nullptr : QGuiApplication::screenAt(position);
    if (!screen)
        screen = QGuiApplication::primaryScreen();
    if (screen) {
        m_window->setScreen(screen);
        m_window->setGeometry(panelGeometry(screen->availableGeometry()));
    }
    m_grace = QDeadlineTimer(outsideClickGrace);
    m_graceTimer.start();
    m_clicks.setWatching(!pinnedOpen());
    m_shown = true;
    m_fade->setOpacity(0);
    m_window->show();
    if (SwayPlacement::isRunning()) {
        if (!m_sway)
            m_sway = std::make_unique<SwayPlacement>(QCoreApplication::applicationPid(), m_window->title(),
                                                     &PanelController::panelGeometry);
        m_sway->place();
    }
    m_window->raise();
    m_window->requestActivate();
    // The compositor learns about the window only once it is mapped.
    m_blurBehind = requestBlurBehind(m_window.get());
    m_window->setProperty("compositorBlurs", m_blurBehind);
    shapeForCompositing();
    m_fade->fadeTo(1, fadeInDuration, QEasingCurve::OutCubic);
}

void PanelController::hide()
{
    if (!m_shown)
        return;
    m_shown = false;
    m_graceTimer.stop();
    m_clicks.setWatching(false);
    m_fade->fadeTo(0, fadeOutDuration, QEasingCurve::InOutQuad, [this] {
        if (m_shown)
            return;
        m_window->hide();
        m_releaseTimer.start();
    });
}

void PanelController::toggle(const QPoint &position)
{
    if (m_shown) {
        hide();
        return;
    }
    if (!m_justClosedFromOutside.hasExpired()) {
        m_justClosedFromOutside = QDeadlineTimer(0);
        return;
    }
    show(position);
}

void PanelController::raise()
{
    if (m_shown)
        m_window->raise();
}

void PanelController::shapeForCompositing()
{
    // Without a compositor the window's transparent parts show black: cut them off with a shape.
    m_window->setMask(displayIsComposited() ? QRegion() : roundedRegion(m_window->size(), cornerRadius));
}

void PanelController::onActiveChanged()
{
    // Where clicks in other programs cannot be seen (Wayland), one shows up as the panel losing focus.
    if (m_window->isActive() || !m_shown || pinnedOpen() || !m_grace.hasExpired())
        return;
    closeFromOutside();
}

void PanelController::onPressAnywhere()
{
    if (!m_shown || pinnedOpen() || !m_grace.hasExpired() || m_window->geometry().contains(QCursor::pos()))
        return;
    closeFromOutside();
}

void PanelController::onGraceEnded()
{
    // Focus lost inside the grace was that first click's doing; taking it back lets the next loss close
    // the panel where clicks cannot be watched. With the click monitor there is no need to steal it.
    if (m_shown && !m_window->isActive() && !pinnedOpen() && !m_clicks.isAvailable())
        m_window->requestActivate();
}

void PanelController::closeFromOutside()
{
    m_justClosedFromOutside = QDeadlineTimer(outsideCloseClickWindow);
    hide();
}

bool PanelController::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_window.get() && event->type() == QEvent::KeyPress &&
        static_cast<QKeyEvent *>(event)->key() == Qt::Key_Escape) {
        hide();
        return true;
    }
    return QObject::eventFilter(watched, event);
}
