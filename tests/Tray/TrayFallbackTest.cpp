#include "SingleInstance.h"
#include "StatusIcon.h"
#include "SystemTrayFallbackItem.h"
#include "TrayFactory.h"

#include <QDBusConnection>
#include <QMenu>
#include <QSignalSpy>
#include <QTest>

// The desktop without StatusNotifierItem support, and without a session bus at all (CTest points the
// bus address nowhere). The offscreen platform has no system tray, so whether an icon shows and how the
// tray reports clicks cannot be exercised here; what the fallback puts into its QSystemTrayIcon can.
class TrayFallbackTest : public QObject {
    Q_OBJECT

private slots:
    void runsWithoutBusOrTray();
    void scoreReplacesIcon_data();
    void scoreReplacesIcon();
    void menuRunsActions_data();
    void menuRunsActions();
};

namespace {

QSystemTrayIcon *trayIcon(SystemTrayFallbackItem &item)
{
    return item.findChild<QSystemTrayIcon *>();
}

QImage iconImage(QSystemTrayIcon *icon)
{
    return icon->icon().pixmap(QSize(48, 48)).toImage().convertToFormat(QImage::Format_ARGB32);
}

} // namespace

void TrayFallbackTest::runsWithoutBusOrTray()
{
    QVERIFY(!QDBusConnection::sessionBus().isConnected());
    QCOMPARE(createTrayItem().get(), nullptr);
    QString errors;
    QTextStream errorStream(&errors);
    QCOMPARE(SingleInstance::toggleRunningInstance(errorStream), 1);
    // Alone without a bus: the start goes on as the one instance.
    SingleInstance instance;
    QCOMPARE(instance.claimOrHandOver(errorStream), std::nullopt);
}

void TrayFallbackTest::scoreReplacesIcon_data()
{
    QTest::addColumn<QStringList>("titles");
    QTest::addColumn<QStringList>("liveMatches");
    QTest::addColumn<QString>("toolTip");
    QTest::addColumn<bool>("plainIcon");

    // clang-format off
    QTest::newRow("score") << QStringList{"🇭🇷 1–1 🇬🇭"} << QStringList{"Croatia 1–1 Ghana · 64′", "Panama 0–2 England · 67′"} << "🇭🇷 1–1 🇬🇭\nCroatia 1–1 Ghana · 64′\nPanama 0–2 England · 67′" << false;
    QTest::newRow("full time") << QStringList{"🇭🇷 1–1 🇬🇭", ""} << QStringList{} << "Pitchlark" << true;
    // clang-format on
}

void TrayFallbackTest::scoreReplacesIcon()
{
    QFETCH(QStringList, titles);
    QFETCH(QStringList, liveMatches);
    QFETCH(bool, plainIcon);
    SystemTrayFallbackItem item;
    QSystemTrayIcon *icon = trayIcon(item);
    QVERIFY(icon);
    for (const QString &title : std::as_const(titles))
        item.setTitle(title);
    item.setLiveMatches(liveMatches);

    QTEST(icon->toolTip(), "toolTip");
    const QImage symbol = renderStatusIcon(48);
    QCOMPARE(iconImage(icon) == symbol, plainIcon);
}

void TrayFallbackTest::menuRunsActions_data()
{
    QTest::addColumn<QString>("label");
    QTest::addColumn<QString>("shortcut");
    QTest::addColumn<QString>("signal");

    // clang-format off
    QTest::newRow("refresh") << "Refresh Now" << "Ctrl+R" << "refreshRequested";
    QTest::newRow("hide scores") << "Hide Scores" << "" << "hideScoresToggled";
    // clang-format on
}

void TrayFallbackTest::menuRunsActions()
{
    QFETCH(QString, label);
    QFETCH(QString, signal);
    SystemTrayFallbackItem item;
    QMenu *menu = trayIcon(item)->contextMenu();
    QVERIFY(menu);
    const QList<QAction *> actions = menu->actions();
    const auto action = std::find_if(actions.begin(), actions.end(),
                                     [&label](QAction *each) { return each->text() == label; });
    QVERIFY(action != actions.end());
    // The check mark follows the model's setting, whoever changed it.
    item.setScoresHidden(true);
    QCOMPARE((*action)->isChecked(), label == u"Hide Scores");
    item.setScoresHidden(false);
    QVERIFY(!(*action)->isChecked());

    QStringList fired;
    connect(&item, &TrayItem::activated, this, [&fired] { fired << "activated"; });
    connect(&item, &TrayItem::refreshRequested, this, [&fired] { fired << "refreshRequested"; });
    connect(&item, &TrayItem::hideScoresToggled, this, [&fired] { fired << "hideScoresToggled"; });
    connect(&item, &TrayItem::quitRequested, this, [&fired] { fired << "quitRequested"; });
    QTEST((*action)->shortcut().toString(), "shortcut");
    (*action)->trigger();
    QCOMPARE(fired, QStringList{signal});
}

QTEST_MAIN(TrayFallbackTest)
#include "TrayFallbackTest.moc"
