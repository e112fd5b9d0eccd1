#include "PanelHarness.h"
#include "ScriptedEngine.h"
#include "UpdateController.h"

#include <QCoreApplication>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QQuickItem>
#include <QTest>

namespace {

// Longer than the panel's page slide.
constexpr int slideDuration = 500;

QJsonValue stored(const Panel &panel, const QString &key)
{
    QFile settings(panel.settingsPath());
    if (!settings.open(QIODevice::ReadOnly))
        return QJsonValue::Undefined;
    return QJsonDocument::fromJson(settings.readAll()).object().value(key);
}

// A setting by its path from the model, as the screens name it ("glass.floatingCards").
QVariant setting(const AppModel &model, const QByteArray &path)
{
    const QObject *owner = &model;
    const QList<QByteArray> names = path.split('.');
    for (qsizetype step = 0; step + 1 < names.size(); ++step)
        owner = owner->property(names.at(step)).value<QObject *>();
    return owner->property(names.constLast());
}

struct Inks {
    QColor primary;
    QColor accent;
    bool operator==(const Inks &) const = default;
};

Inks currentInks()
{
    return {ThemeSingleton::instance()->primary(), ThemeSingleton::instance()->accent()};
}

} // namespace

// The settings page, driven with the mouse and keyboard: every control stores its key at once and
// changes what it stands for. The update engine is a scripted one, because the real one needs a signed
// AppImage and a release server; everything else is the real panel over the replayed tournament.
class SettingsScreenTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { Panel::prepareEngine(m_engine); }
    void init();
    void cleanup();
    void switchesStoreTheirSetting_data();
    void switchesStoreTheirSetting();
    void intervalRestartsPolling_data();
    void intervalRestartsPolling();
    void modeChangesTheMenuBarChoice_data();
    void modeChangesTheMenuBarChoice();
    void glassControlsStoreAndRestyle_data();
    void glassControlsStoreAndRestyle();
    void slidersFollowTheKeyboard();
    void resetRestoresTheGlassButNotTheCardStyle();
    void startAtLoginExplainsWhyItCannot();
    void checkForUpdatesFollowsTheUpdater_data();
    void checkForUpdatesFollowsTheUpdater();
    void aboutFactsAreShown();

private:
    void openSettings(QObject *updates);
    // Scrolls the settings page until the named control is in view, and gives it back.
    QQuickItem *reveal(const QString &name) const;
    void clickAt(const QString &name, double fraction) const;

    QQmlEngine m_engine;
    ScriptedEngine *m_updateEngine = nullptr;
    std::unique_ptr<UpdateController> m_updates;
    std::unique_ptr<Panel> m_panel;
};

void SettingsScreenTest::init()
{
    auto engine = std::make_unique<ScriptedEngine>();
    m_updateEngine = engine.get();
    m_updates = std::make_unique<UpdateController>(std::move(engine));
    openSettings(m_updates.get());
}

void SettingsScreenTest::cleanup()
{
    m_panel.reset();
    m_updates.reset();
}

void SettingsScreenTest::openSettings(QObject *updates)
{
    m_panel.reset();
    m_panel = std::make_unique<Panel>(Tournament::bundled(), m_engine, updates);
    QVERIFY(QTest::qWaitForWindowExposed(m_panel->window));
    m_panel->model->navigation().openSettings();
    QTRY_VERIFY(m_panel->item(QStringLiteral("backButton")));
    // The page has slid in before its controls are in reach; the slide starts a frame after the push.
    QTest::qWait(slideDuration);
    QTRY_COMPARE(m_panel->item(QStringLiteral("backButton"))->mapToScene({}).x(), qreal(16));
}

QQuickItem *SettingsScreenTest::reveal(const QString &name) const
{
    QQuickItem *target = m_panel->item(name);
    if (!target)
        return nullptr;
    QQuickItem *flickable = target->parentItem();
    while (flickable && !flickable->inherits("QQuickFlickable"))
        flickable = flickable->parentItem();
    if (flickable) {
        auto *content = flickable->property("contentItem").value<QQuickItem *>();
        const qreal y = target->mapToItem(content, QPointF(0, target->height() / 2)).y();
        const qreal maxY = std::max(0.0, flickable->property("contentHeight").toReal() - flickable->height());
        flickable->setProperty("contentY", std::clamp(y - flickable->height() / 2, 0.0, maxY));
    }
    return target;
}

void SettingsScreenTest::clickAt(const QString &name, double fraction) const
{
    QQuickItem *target = reveal(name);
    QVERIFY2(target, qPrintable(name));
    const QPointF point = target->mapToScene(QPointF(target->width() * fraction, target->height() / 2));
    QTest::mouseClick(m_panel->window, Qt::LeftButton, {}, point.toPoint());
}

void SettingsScreenTest::switchesStoreTheirSetting_data()
{
    QTest::addColumn<QString>("control");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QByteArray>("property");

    // clang-format off
    QTest::newRow("match alerts") << "notificationsEnabled" << "NotificationsEnabled" << QByteArray("alerts.notificationsEnabled");
    QTest::newRow("kick-off") << "notifyMatchStart" << "NotifyMatchStart" << QByteArray("alerts.notifyMatchStart");
    QTest::newRow("goals") << "notifyGoals" << "NotifyGoals" << QByteArray("alerts.notifyGoals");
    QTest::newRow("full time") << "notifyFullTime" << "NotifyFullTime" << QByteArray("alerts.notifyFullTime");
    QTest::newRow("banners") << "inAppBanners" << "InAppBanners" << QByteArray("alerts.inAppBanners");
    QTest::newRow("floating cards") << "floatingCards" << "FloatingCards" << QByteArray("glass.floatingCards");
    // clang-format on
}

void SettingsScreenTest::switchesStoreTheirSetting()
{
    QFETCH(QString, control);
    QFETCH(QString, key);
    QFETCH(QByteArray, property);

    // The three kinds can be chosen only while alerts are on.
    m_panel->model->alerts().setNotificationsEnabled(true);
    const bool before = setting(*m_panel->model, property).toBool();
    clickAt(control, 0.5);
    QCOMPARE(setting(*m_panel->model, property).toBool(), !before);
    QCOMPARE(stored(*m_panel, key), QJsonValue(!before));
    QCOMPARE(reveal(control)->property("checked").toBool(), !before);

    // And back from the keyboard.
    reveal(control)->forceActiveFocus(Qt::TabFocusReason);
    QTest::keyClick(m_panel->window, Qt::Key_Space);
    QCOMPARE(setting(*m_panel->model, property).toBool(), before);
    QCOMPARE(stored(*m_panel, key), QJsonValue(before));
}

void SettingsScreenTest::intervalRestartsPolling_data()
{
    QTest::addColumn<QString>("segment");
    QTest::addColumn<int>("seconds");

    QTest::newRow("15s") << "segment-15" << 15;
    QTest::newRow("60s") << "segment-60" << 60;
    QTest::newRow("5m") << "segment-300" << 300;
}

void SettingsScreenTest::intervalRestartsPolling()
{
    QFETCH(QString, segment);
    QFETCH(int, seconds);

    m_panel->model->startPolling();
    const QTimer *before = m_panel->model->pollingTimer();
    QCOMPARE(before->interval(), 30'000);
    clickAt(segment, 0.5);
    QCOMPARE(m_panel->model->menuBar().refreshInterval(), *refreshIntervalFromSeconds(seconds));
    QCOMPARE(stored(*m_panel, QStringLiteral("RefreshIntervalSeconds")), QJsonValue(seconds));
    const QTimer *timer = m_panel->model->pollingTimer();
    QVERIFY(timer->isActive());
    QCOMPARE(timer->interval(), seconds * 1000);
    // A fresh period from the click, not what was left of the old one.
    QVERIFY(timer->remainingTime() > seconds * 1000 - 1000);
    QCOMPARE(reveal(QStringLiteral("refreshInterval"))->property("current").toString(),
             QString::number(seconds));
}

void SettingsScreenTest::modeChangesTheMenuBarChoice_data()
{
    QTest::addColumn<QString>("mode");
    QTest::addColumn<QString>("description");

    QTest::newRow("pinned") << "pinned"
                            << "Show the match you pinned";
    QTest::newRow("rotate") << "rotate"
                            << "Cycle all live matches";
    QTest::newRow("auto") << "auto"
                          << "Show the first live match";
}

void SettingsScreenTest::modeChangesTheMenuBarChoice()
{
    QFETCH(QString, mode);
    QFETCH(QString, description);

    // Start away from the mode under test, so that the click has something to change.
    m_panel->model->menuBar().updateDisplayMode(mode == u"auto" ? QStringLiteral("rotate")
                                                                : QStringLiteral("auto"));
    clickAt(QStringLiteral("segment-") + mode, 0.5);
    QCOMPARE(m_panel->model->menuBar().property("displayMode").toString(), mode);
    QCOMPARE(stored(*m_panel, QStringLiteral("TrayDisplayMode")), QJsonValue(mode));
    QList<QQuickItem *> texts;
    collectTexts(m_panel->window->contentItem(), texts);
    QVERIFY(std::any_of(texts.cbegin(), texts.cend(), [&](QQuickItem *text) {
        return text->isVisible() && text->property("text").toString() == description;
    }));
}

void SettingsScreenTest::glassControlsStoreAndRestyle_data()
{
    QTest::addColumn<QString>("control");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QByteArray>("property");
    QTest::addColumn<double>("fraction");
    QTest::addColumn<double>("expected");
    QTest::addColumn<bool>("retints");
    // Whether the panel window's own material follows, under the same property name.
    QTest::addColumn<bool>("restylesWindow");

    // clang-format off
    QTest::newRow("blur") << "glassBlur" << "GlassBlur" << QByteArray("blur") << 0.25 << 0.25 << false << true;
    QTest::newRow("tint strength") << "glassTint" << "GlassTint" << QByteArray("tint") << 0.9 << 0.9 << true << true;
    QTest::newRow("tint hue") << "glassTintHue" << "GlassTintHue" << QByteArray("tintHue") << 0.1 << 0.1 << true << true;
    QTest::newRow("grain") << "glassGrain" << "GlassGrain" << QByteArray("grain") << 0.75 << 0.75 << false << true;
    // The card opacity runs from 0.2 to 1, and only the cards read it.
    QTest::newRow("card opacity") << "surfaceOpacity" << "SurfaceOpacity" << QByteArray("surfaceOpacity") << 0.5 << 0.6 << false << false;
    // clang-format on
}

void SettingsScreenTest::glassControlsStoreAndRestyle()
{
    QFETCH(QString, control);
    QFETCH(QString, key);
    QFETCH(QByteArray, property);
    QFETCH(double, fraction);
    QFETCH(double, expected);
    QFETCH(bool, retints);
    QFETCH(bool, restylesWindow);

    // The knob is as wide as the margin it keeps from each end, so a click lands within a few hundredths.
    const double tolerance = 0.04;
    const Inks inksBefore = currentInks();
    clickAt(control, fraction);
    const double value = m_panel->model->glass().property(property).toDouble();
    QVERIFY2(std::abs(value - expected) < tolerance, qPrintable(QString::number(value)));
    QCOMPARE(stored(*m_panel, key).toDouble(), value);
    QCOMPARE(currentInks() != inksBefore, retints);
    if (restylesWindow)
        QCOMPARE(m_panel->window->property(property).toDouble(), value);
}

void SettingsScreenTest::slidersFollowTheKeyboard()
{
    QQuickItem *slider = reveal(QStringLiteral("glassGrain"));
    slider->forceActiveFocus(Qt::TabFocusReason);
    QTest::keyClick(m_panel->window, Qt::Key_End);
    const GlassPreferences &glass = m_panel->model->glass();
    QCOMPARE(glass.grain(), 1.0);
    QTest::keyClick(m_panel->window, Qt::Key_Right);
    QCOMPARE(glass.grain(), 1.0);
    QTest::keyClick(m_panel->window, Qt::Key_Left);
    QCOMPARE(glass.grain(), 0.95);
    QTest::keyClick(m_panel->window, Qt::Key_Home);
    QCOMPARE(glass.grain(), 0.0);
    // Keys are written a moment later, as a drag's moves are.
    QTRY_COMPARE(stored(*m_panel, QStringLiteral("GlassGrain")), QJsonValue(0.0));
}

void SettingsScreenTest::resetRestoresTheGlassButNotTheCardStyle()
{
    GlassPreferences &glass = m_panel->model->glass();
    glass.setBlur(0.1);
    glass.setTintHue(0.9);
    glass.setTint(0.7);
    glass.setGrain(0.9);
    glass.setSurfaceOpacity(0.3);
    glass.setFloatingCards(true);
    const Inks tinted = currentInks();
    clickAt(QStringLiteral("resetGlass"), 0.5);
    QCOMPARE(stored(*m_panel, QStringLiteral("GlassBlur")), QJsonValue(GlassPreferences::defaultBlur));
    QCOMPARE(stored(*m_panel, QStringLiteral("GlassTintHue")), QJsonValue(GlassPreferences::defaultTintHue));
    QCOMPARE(stored(*m_panel, QStringLiteral("GlassTint")), QJsonValue(GlassPreferences::defaultTint));
    QCOMPARE(stored(*m_panel, QStringLiteral("GlassGrain")), QJsonValue(GlassPreferences::defaultGrain));
    QCOMPARE(stored(*m_panel, QStringLiteral("SurfaceOpacity")),
             QJsonValue(GlassPreferences::defaultSurfaceOpacity));
    QVERIFY(glass.floatingCards());
    QVERIFY(currentInks() != tinted);
    QCOMPARE(m_panel->window->property("blur").toDouble(), GlassPreferences::defaultBlur);
}

void SettingsScreenTest::startAtLoginExplainsWhyItCannot()
{
    // A build run from its build tree has no fixed place to start from: the switch says so beneath it,
    // and turning it on gives the reason in the login item's own words.
    QQuickItem *toggle = reveal(QStringLiteral("startAtLogin"));
    QVERIFY(!toggle->property("checked").toBool());
    const auto shownBeneath = [this](const QString &text) {
        QList<QQuickItem *> texts;
        collectTexts(m_panel->window->contentItem(), texts);
        return std::any_of(texts.cbegin(), texts.cend(), [&](QQuickItem *item) {
            return item->isVisible() && item->property("text").toString() == text;
        });
    };
    QVERIFY(shownBeneath(QStringLiteral("Start at Login is unavailable for this build.")));
    clickAt(QStringLiteral("startAtLogin"), 0.5);
    QVERIFY(!m_panel->model->startAtLogin().enabled());
    QVERIFY(!toggle->property("checked").toBool());
    QVERIFY(shownBeneath(QStringLiteral("Pitchlark is not installed in a fixed place.")));
}

void SettingsScreenTest::checkForUpdatesFollowsTheUpdater_data()
{
    QTest::addColumn<QString>("updater");
    QTest::addColumn<bool>("enabled");
    QTest::addColumn<QString>("note");

    QTest::newRow("ready") << "ready" << true << "";
    QTest::newRow("busy checking") << "busy" << false << "";
    QTest::newRow("managed elsewhere") << "failed" << false << "Updates are managed by your package manager.";
    QTest::newRow("no updater") << "none" << false << "Updates are not available in this build.";
}

void SettingsScreenTest::checkForUpdatesFollowsTheUpdater()
{
    QFETCH(QString, updater);
    QFETCH(bool, enabled);
    QFETCH(QString, note);

    if (updater == u"failed") {
        m_panel.reset();
        m_updates = std::make_unique<UpdateController>(
            std::make_unique<ScriptedEngine>(QStringLiteral("Updates are managed by your package manager.")));
        openSettings(m_updates.get());
    } else if (updater == u"none") {
        openSettings(nullptr);
    } else if (updater == u"busy") {
        m_updateEngine->setCanCheck(false);
    }
    QQuickItem *button = reveal(QStringLiteral("checkForUpdates"));
    QCOMPARE(button->isEnabled(), enabled);
    QCOMPARE(m_panel->item(QStringLiteral("updatesNote"))->property("detail").toString(), note);
    clickAt(QStringLiteral("checkForUpdates"), 0.5);
    if (updater == u"ready" || updater == u"busy")
        QCOMPARE(m_updateEngine->checks(), enabled ? 1 : 0);
}

void SettingsScreenTest::aboutFactsAreShown()
{
    const auto shown = [this](const QString &row) {
        QQuickItem *item = reveal(row);
        return item ? findVisibleItem(item, QStringLiteral("value"))->property("text").toString() : QString();
    };
    QCOMPARE(shown(QStringLiteral("version")), QCoreApplication::applicationVersion());
    QCOMPARE(shown(QStringLiteral("dataService")), m_panel->model->dataServiceURL());
    // The harness's fetch has just written the cache.
    const QDateTime cached = m_panel->model->cachedDataTime();
    QVERIFY(cached.isValid());
    QCOMPARE(shown(QStringLiteral("cachedData")), QLocale().toString(cached, QLocale::ShortFormat));
}

QTEST_MAIN(SettingsScreenTest)
#include "SettingsScreenTest.moc"
