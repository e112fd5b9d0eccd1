#include "PanelHarness.h"
#include "ScriptedEngine.h"
#include "UpdateController.h"

#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTest>

namespace {

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
    void controlsStoreAndRestyle_data();
    void controlsStoreAndRestyle();
    void keyboardAndReset();
    void intervalRestartsPolling();
    void checkForUpdatesFollowsTheUpdater_data();
    void checkForUpdatesFollowsTheUpdater();

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
    // Controls are in reach once the page has slid in; the slide (under 500 ms) starts a frame late.
    QTest::qWait(500);
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

void SettingsScreenTest::controlsStoreAndRestyle_data()
{
    QTest::addColumn<QString>("control");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QByteArray>("property");
    QTest::addColumn<double>("fraction"); // where along the control the click lands
    QTest::addColumn<double>("expected"); // a switch's state as 0 or 1
    QTest::addColumn<bool>("retints");
    // Whether the panel window's own material follows, under the same property name.
    QTest::addColumn<bool>("restylesWindow");

    // clang-format off
    QTest::newRow("match alerts") << "notificationsEnabled" << "NotificationsEnabled" << QByteArray("alerts.notificationsEnabled") << 0.5 << 0.0 << false << false;
    QTest::newRow("goals") << "notifyGoals" << "NotifyGoals" << QByteArray("alerts.notifyGoals") << 0.5 << 0.0 << false << false;
    QTest::newRow("floating cards") << "floatingCards" << "FloatingCards" << QByteArray("glass.floatingCards") << 0.5 << 1.0 << false << false;
    QTest::newRow("refresh interval") << "segment-300" << "RefreshIntervalSeconds" << QByteArray("menuBar.refreshInterval") << 0.5 << 300.0 << false << false;
    QTest::newRow("tint hue") << "glassTintHue" << "GlassTintHue" << QByteArray("glass.tintHue") << 0.1 << 0.1 << true << true;
    QTest::newRow("grain") << "glassGrain" << "GlassGrain" << QByteArray("glass.grain") << 0.75 << 0.75 << false << true;
    // The card opacity runs from 0.2 to 1, and only the cards read it.
    QTest::newRow("card opacity") << "surfaceOpacity" << "SurfaceOpacity" << QByteArray("glass.surfaceOpacity") << 0.5 << 0.6 << false << false;
    // clang-format on
}

void SettingsScreenTest::controlsStoreAndRestyle()
{
    QFETCH(QString, control);
    QFETCH(QString, key);
    QFETCH(QByteArray, property);
    QFETCH(double, fraction);
    QFETCH(double, expected);
    QFETCH(bool, retints);
    QFETCH(bool, restylesWindow);

    // The three kinds of alert can be chosen only while alerts are on.
    m_panel->model->alerts().setNotificationsEnabled(true);
    // A slider's knob is as wide as the margin it keeps from each end, so a click lands within a few
    // hundredths.
    const double tolerance = 0.04;
    const Inks inksBefore = currentInks();
    clickAt(control, fraction);
    const QVariant value = setting(*m_panel->model, property);
    QVERIFY2(std::abs(value.toDouble() - expected) < tolerance, qPrintable(value.toString()));
    QCOMPARE(stored(*m_panel, key).toVariant(), value);
    QCOMPARE(currentInks() != inksBefore, retints);
    if (restylesWindow)
        QCOMPARE(m_panel->window->property(property.mid(property.indexOf('.') + 1)), value);
}

void SettingsScreenTest::keyboardAndReset()
{
    QQuickItem *toggle = reveal(QStringLiteral("floatingCards"));
    toggle->forceActiveFocus(Qt::TabFocusReason);
    QTest::keyClick(m_panel->window, Qt::Key_Space);
    GlassPreferences &glass = m_panel->model->glass();
    QVERIFY(glass.floatingCards());
    QVERIFY(toggle->property("checked").toBool());
    QCOMPARE(stored(*m_panel, QStringLiteral("FloatingCards")), QJsonValue(true));

    QQuickItem *slider = reveal(QStringLiteral("glassGrain"));
    slider->forceActiveFocus(Qt::TabFocusReason);
    QTest::keyClick(m_panel->window, Qt::Key_End);
    QCOMPARE(glass.grain(), 1.0);
    QTest::keyClick(m_panel->window, Qt::Key_Right);
    QCOMPARE(glass.grain(), 1.0);
    QTest::keyClick(m_panel->window, Qt::Key_Left);
    QCOMPARE(glass.grain(), 0.95);
    QTest::keyClick(m_panel->window, Qt::Key_Home);
    QCOMPARE(glass.grain(), 0.0);
    // Keys are written a moment later, as a drag's moves are.
    QTRY_COMPARE(stored(*m_panel, QStringLiteral("GlassGrain")), QJsonValue(0.0));

    // The reset restores the glass, but not the card style.
    glass.setBlur(0.1);
    glass.setTintHue(0.9);
    glass.setTint(0.7);
    glass.setGrain(0.9);
    glass.setSurfaceOpacity(0.3);
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

void SettingsScreenTest::intervalRestartsPolling()
{
    m_panel->model->startPolling();
    QCOMPARE(m_panel->model->pollingTimer()->interval(), 30'000);
    clickAt(QStringLiteral("segment-15"), 0.5);
    const QTimer *timer = m_panel->model->pollingTimer();
    QVERIFY(timer->isActive());
    QCOMPARE(timer->interval(), 15'000);
    // A fresh period from the click, not what was left of the old one.
    QVERIFY(timer->remainingTime() > 14'000);
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

QTEST_MAIN(SettingsScreenTest)
#include "SettingsScreenTest.moc"
