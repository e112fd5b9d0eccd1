#include "UpdateToastWindowController.h"

#include "UpdateController.h"
#include "WindowFade.h"

#include <QGuiApplication>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <QScreen>
#include <QtMath>

UpdateToastWindowController::UpdateToastWindowController(QQmlEngine &engine, UpdateController &controller,
                                                         QObject *parent)
    : QObject(parent), m_engine(engine), m_controller(controller)
{}

UpdateToastWindowController::~UpdateToastWindowController() = default;

QRect UpdateToastWindowController::toastGeometry(const QRect &available, const QSize &size)
{
    return QRect(QPoint(available.right() + 1 - size.width() - screenMargin, available.top() + screenMargin),
                 size);
}

void UpdateToastWindowController::build()
{
    m_window = std::make_unique<QQuickWindow>();
    // A notice, not a window to work in: it never takes the focus from what the user is doing.
    m_window->setFlags(Qt::FramelessWindowHint | Qt::Tool | Qt::WindowStaysOnTopHint |
                       Qt::WindowDoesNotAcceptFocus);
    m_window->setColor(Qt::transparent);
    m_window->setTitle(QStringLiteral("Pitchlark update"));

    QQmlComponent component(&m_engine);
    component.setData("import Pitchlark.Features\nUpdateToastView {}", QUrl());
    QObject *root = component.createWithInitialProperties(
        {{QStringLiteral("controller"), QVariant::fromValue(static_cast<QObject *>(&m_controller))}});
    m_view = qobject_cast<QQuickItem *>(root);
    if (!m_view)
        qFatal("The update toast could not be built: %s", qPrintable(component.errorString()));
    m_view->setParent(m_window.get());
    m_view->setParentItem(m_window->contentItem());
    // The content grows and shrinks with the phase; the window follows while it is up.
    const auto refit = [this] {
        if (m_window->isVisible())
            fitToContent();
    };
    connect(m_view, &QQuickItem::implicitWidthChanged, this, refit);
    connect(m_view, &QQuickItem::implicitHeightChanged, this, refit);
    m_fade = std::make_unique<WindowFade>(*m_window);
}

void UpdateToastWindowController::fitToContent()
{
    const QSize size(qCeil(m_view->implicitWidth()), qCeil(m_view->implicitHeight()));
    m_view->setSize(size);
    if (QScreen *screen = QGuiApplication::primaryScreen()) {
        m_window->setScreen(screen);
        m_window->setGeometry(toastGeometry(screen->availableGeometry(), size));
    } else {
        m_window->resize(size);
    }
}

void UpdateToastWindowController::show()
{
    if (!m_window)
        build();
    fitToContent();
    if (m_shown)
        return;
    m_shown = true;
    // A toast still fading out is taken back from where its fade has got to.
    if (!m_window->isVisible())
        m_fade->setOpacity(0);
    m_window->show();
    m_fade->fadeTo(1, fadeInDuration, QEasingCurve::InOutQuad);
    emit shown();
}

void UpdateToastWindowController::hide()
{
    if (!m_window || !m_shown)
        return;
    m_shown = false;
    m_fade->fadeTo(0, fadeOutDuration, QEasingCurve::InOutQuad, [this] {
        if (!m_shown)
            m_window->hide();
    });
}
