#include "AppDelegate.h"

#include "AppcastUpdater.h"
#include "DebugHooks.h"
#include "FlagCache.h"
#include "GlassImages.h"
#include "PanelController.h"
#include "State/SettingsKeys.h"
#include "TrayItem.h"
#include "UpdateController.h"
#include "UpdateToastWindowController.h"

#include <QGuiApplication>
#include <QPointer>
#include <QQuickWindow>
#include <QTimer>

namespace {

std::unique_ptr<UpdateEngine> orAppcastUpdater(std::unique_ptr<UpdateEngine> engine)
{
    if (engine)
        return engine;
    return std::make_unique<AppcastUpdater>(AppcastUpdater::Options::fromEnvironment());
}

} // namespace

AppDelegate::AppDelegate(AppModel::Services services, std::unique_ptr<UpdateEngine> updateEngine,
                         QObject *parent)
    : QObject(parent), m_model(std::move(services)),
      m_updates(std::make_unique<UpdateController>(orAppcastUpdater(std::move(updateEngine))))
{
    // Qt 6.4 compiles QML modules into the resources under their URI's path.
    m_engine.addImportPath(QStringLiteral("qrc:/"));
    m_engine.addImageProvider(QStringLiteral("glass"), new GlassImageProvider);
    m_engine.setNetworkAccessManagerFactory(&FlagCacheFactory::shared());
}

AppDelegate::~AppDelegate() = default;

void AppDelegate::launch(std::unique_ptr<TrayItem> tray)
{
    m_tray = std::move(tray);
    m_updateToast = std::make_unique<UpdateToastWindowController>(m_engine, *m_updates);
    // Queued, so that the toast is sized after its content has caught up with the new phase.
    connect(m_updates.get(), &UpdateController::phaseChanged, this, &AppDelegate::presentUpdateToast,
            Qt::QueuedConnection);
    connect(m_updates.get(), &UpdateController::isUserInitiatedChanged, this,
            &AppDelegate::presentUpdateToast, Qt::QueuedConnection);
    m_panel = std::make_unique<PanelController>(m_model, m_engine, m_updates.get());
    // Both windows stay above other programs'; between the two, the panel, where the user works, wins.
    connect(m_updateToast.get(), &UpdateToastWindowController::shown, m_panel.get(), &PanelController::raise);
    if (m_tray) {
        connect(m_tray.get(), &TrayItem::activated, this,
                [this](const QPoint &position) { togglePanel(position); });
        connect(m_tray.get(), &TrayItem::refreshRequested, &m_model, &AppModel::refresh);
        connect(m_tray.get(), &TrayItem::hideScoresToggled, this,
                [this] { m_model.setHideScores(!m_model.hideScores()); });
        connect(&m_model, &AppModel::hideScoresChanged, m_tray.get(),
                [this] { m_tray->setScoresHidden(m_model.hideScores()); });
        m_tray->setScoresHidden(m_model.hideScores());
        connect(m_tray.get(), &TrayItem::quitRequested, qApp, &QCoreApplication::quit);
        connect(m_tray.get(), &TrayItem::hostChanged, this, &AppDelegate::updateTrayIconScore);
    }
    connect(&m_model.menuBar(), &MenuBarPreferences::iconScoreChanged, this,
            &AppDelegate::updateTrayIconScore);
    updateTrayIconScore();
    connect(&m_model, &AppModel::trayTitleChanged, this, &AppDelegate::updateStatusTitle);
    connect(&m_model, &AppModel::panelRequested, this, [this] {
        if (!m_panel->isShown())
            m_panel->show();
    });
    updateStatusTitle();
    m_model.startPolling();
    m_model.refresh();
    if (DebugHooks::isPresentationRequested(m_environment))
        m_panel->show();
    applyDebugHooks();
}

void AppDelegate::togglePanel(const QPoint &position)
{
    m_panel->toggle(position);
}

void AppDelegate::updateStatusTitle()
{
    if (!m_tray)
        return;
    // An absent or empty title leaves the icon alone.
    m_tray->setTitle(m_model.trayTitle().value_or(QString()));
    QStringList lines;
    for (const Match &match : m_model.liveMatchesCache())
        lines << m_model.trayLineFor(match);
    m_tray->setLiveMatches(lines);
}

void AppDelegate::updateTrayIconScore()
{
    if (!m_tray)
        return;
    switch (m_model.menuBar().iconScore()) {
    case TrayIconScore::automatic:
        m_tray->setScoreInIcon(!m_tray->hostShowsLabels());
        return;
    case TrayIconScore::always:
        m_tray->setScoreInIcon(true);
        return;
    case TrayIconScore::never:
        m_tray->setScoreInIcon(false);
        return;
    }
}

void AppDelegate::presentUpdateToast()
{
    // A check the user started is reported by the panel's own dialog, never by the toast.
    if (m_updates->phase().kind() != UpdatePhase::Kind::idle && !m_updates->isUserInitiated())
        m_updateToast->show();
    else
        m_updateToast->hide();
}

void AppDelegate::openDetail(const QString &routeText)
{
    if (const auto route = DebugHooks::routeFromText(routeText))
        m_model.navigation().open(*route);
}

void AppDelegate::setFloatingCards(const QString &value)
{
    // The glass's own write stores the setting and tells the panel to restyle.
    m_model.glass().setFloatingCards(DebugHooks::floatingFromText(value));
}

void AppDelegate::applyDebugHooks()
{
    const QString section = m_environment.value(QStringLiteral("TIDEWELL_SECTION"));
    // "bracket" is the standings section on its knockout view, for snapshots of the tree.
    if (section == QLatin1StringView("bracket")) {
        m_model.navigation().setSection(Section::standings);
        m_model.navigation().setShowsBracket(true);
    } else if (const auto chosen = sectionFromRawValue(section)) {
        m_model.navigation().setSection(*chosen);
    }
    if (m_environment.contains(QStringLiteral("TIDEWELL_FLOATING")))
        setFloatingCards(m_environment.value(QStringLiteral("TIDEWELL_FLOATING")));
    if (m_environment.contains(QStringLiteral("TIDEWELL_HIDE_SCORES")))
        m_model.setHideScores(m_environment.value(QStringLiteral("TIDEWELL_HIDE_SCORES")) ==
                              QLatin1StringView("1"));
    if (m_environment.contains(QStringLiteral("TIDEWELL_DETAIL")) ||
        m_environment.contains(QStringLiteral("TIDEWELL_SNAPSHOT")))
        afterLoad(0);
}

void AppDelegate::afterLoad(int attempt)
{
    // Wait for the first data, but not for ever: an unreachable service still gets its snapshot.
    if (!m_model.lastUpdated().isValid() && attempt < hookAttempts) {
        QTimer::singleShot(hookRetryInterval, this, [this, attempt] { afterLoad(attempt + 1); });
        return;
    }
    if (m_environment.contains(QStringLiteral("TIDEWELL_DETAIL")))
        openDetail(m_environment.value(QStringLiteral("TIDEWELL_DETAIL")));
    if (m_environment.contains(QStringLiteral("TIDEWELL_FLOATING_AFTER")))
        setFloatingCards(m_environment.value(QStringLiteral("TIDEWELL_FLOATING_AFTER")));
    if (m_environment.contains(QStringLiteral("TIDEWELL_BANNER")))
        m_model.presentBanner({QStringLiteral("demo"), QStringLiteral("Goal!"),
                               QStringLiteral("Australia 2 \u2013 0 Turkey"), BannerState::Kind::goal});
    if (m_environment.contains(QStringLiteral("TIDEWELL_SNAPSHOT"))) {
        QTimer::singleShot(snapshotDelay, this, [this] {
            writeSnapshot(m_environment.value(QStringLiteral("TIDEWELL_SNAPSHOT")));
        });
    }
}

void AppDelegate::writeSnapshot(const QString &path)
{
    const QImage image = m_panel->window()->grabWindow();
    if (!image.isNull() && image.save(path, "PNG"))
        qInfo().noquote() << QStringLiteral("Tidewell snapshot \u2192 ") + path;
    QCoreApplication::quit();
}
