#include "FakeDesktopPortal.h"
#include "ModelFixture.h"
#include "State/BackgroundPortalLoginItem.h"
#include "State/StartAtLogin.h"
#include "State/XdgAutostartLoginItem.h"

#include <QFile>
#include <QScopeGuard>
#include <QTemporaryDir>
#include <QTest>

// Start at login through a real autostart entry in a temporary XDG config folder, or through the
// Background portal on a private session bus, and how the settings switch shows each state.
class LoginItemTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void existingEntry_data();
    void existingEntry();
    void registerAndUnregister_data();
    void registerAndUnregister();
    void switchExplainsAFailure_data();
    void switchExplainsAFailure();
    void portalAnswer_data();
    void portalAnswer();

private:
    std::unique_ptr<ModelFixture> m_fixture;
    FakeDesktopPortal m_portal;
};

void LoginItemTest::initTestCase()
{
    QVERIFY2(QDBusConnection::sessionBus().isConnected(), "no session bus: run under dbus-run-session");
    QVERIFY(m_portal.publish());
}

void LoginItemTest::init()
{
    m_fixture = std::make_unique<ModelFixture>();
}

void LoginItemTest::existingEntry_data()
{
    QTest::addColumn<QByteArray>("entry");
    QTest::addColumn<bool>("enabled");

    // clang-format off
    QTest::newRow("plain entry") << QByteArray("[Desktop Entry]\nExec=/usr/bin/pitchlark\n") << true;
    QTest::newRow("hidden") << QByteArray("[Desktop Entry]\nHidden=true\n") << false;
    QTest::newRow("switched off in GNOME") << QByteArray("[Desktop Entry]\nX-GNOME-Autostart-enabled=false\n") << false;
    // clang-format on
}

void LoginItemTest::existingEntry()
{
    QFETCH(QByteArray, entry);
    QFETCH(bool, enabled);
    QVERIFY(ModelFixture::writeFile(XdgAutostartLoginItem::entryPath(), entry));
    const XdgAutostartLoginItem item(QStringLiteral("/usr/bin/pitchlark"));
    QCOMPARE(item.status(), enabled ? LoginItem::Status::enabled : LoginItem::Status::notRegistered);
}

void LoginItemTest::registerAndUnregister_data()
{
    QTest::addColumn<QString>("binary");
    QTest::addColumn<bool>("onPath");
    QTest::addColumn<QByteArray>("exec");

    // clang-format off
    QTest::newRow("installed on PATH, by name") << "pitchlark" << true << QByteArray("Exec=pitchlark\n");
    QTest::newRow("elsewhere, by quoted path") << "pitchlark \"beta\"" << false << QByteArray("Exec=\"%1/pitchlark \\\"beta\\\"\"\n");
    // clang-format on
}

void LoginItemTest::registerAndUnregister()
{
    QFETCH(QString, binary);
    QFETCH(bool, onPath);
    QFETCH(QByteArray, exec);
    // A real executable file, so that PATH lookup finds it or not as it would for the installed program.
    QTemporaryDir folder;
    QFile program(folder.filePath(binary));
    QVERIFY(program.open(QIODevice::WriteOnly));
    program.setPermissions(program.permissions() | QFileDevice::ExeOwner);
    program.close();
    const QByteArray path = qgetenv("PATH");
    const auto restorePath = qScopeGuard([&path] { qputenv("PATH", path); });
    if (onPath)
        qputenv("PATH", QFile::encodeName(folder.path()) + ':' + path);

    XdgAutostartLoginItem item(program.fileName());
    QCOMPARE(item.status(), LoginItem::Status::notRegistered);
    QCOMPARE(item.registerItem(), std::nullopt);
    QCOMPARE(item.status(), LoginItem::Status::enabled);
    QFile entry(XdgAutostartLoginItem::entryPath());
    QVERIFY(entry.open(QIODevice::ReadOnly));
    const QByteArray contents = entry.readAll();
    QVERIFY2(contents.contains(exec.replace("%1", QFile::encodeName(folder.path()))), contents);
    QVERIFY(contents.contains("Icon=com.pitchlark.Pitchlark\n"));
    QCOMPARE(item.unregisterItem(), std::nullopt);
    QCOMPARE(item.status(), LoginItem::Status::notRegistered);
    QCOMPARE(item.unregisterItem(), std::nullopt);
}

void LoginItemTest::switchExplainsAFailure_data()
{
    QTest::addColumn<QString>("program");
    QTest::addColumn<QString>("hint");
    // The reason shown after a failed switch; any text for one in the file system's own words.
    QTest::addColumn<QString>("reason");

    // clang-format off
    // This test binary lives in a CMake build tree: no entry may point there.
    QTest::newRow("no stable path") << XdgAutostartLoginItem::stableExecutablePath()
        << "Start at Login is unavailable for this build." << "Pitchlark is not installed in a fixed place.";
    // An autostart folder that is a file makes the write fail for real.
    QTest::newRow("entry cannot be written") << "/usr/bin/pitchlark" << QString() << QString();
    // clang-format on
}

void LoginItemTest::switchExplainsAFailure()
{
    QFETCH(QString, program);
    QFETCH(QString, reason);
    if (!program.isEmpty()) {
        const QString autostartFolder = QFileInfo(XdgAutostartLoginItem::entryPath()).absolutePath();
        QDir().mkpath(QFileInfo(autostartFolder).absolutePath());
        QFile blocker(autostartFolder);
        QVERIFY(blocker.open(QIODevice::WriteOnly));
    }
    StartAtLogin login(std::make_unique<XdgAutostartLoginItem>(program));
    QVERIFY(!login.enabled());
    QTEST(login.statusMessage().value_or(QString()), "hint");
    login.update(true);
    QVERIFY(!login.enabled());
    QVERIFY(!QFile::exists(XdgAutostartLoginItem::entryPath()));
    QVERIFY(!login.statusMessage().value_or(QString()).isEmpty());
    if (!reason.isEmpty())
        QCOMPARE(login.statusMessage(), std::optional(reason));
}

void LoginItemTest::portalAnswer_data()
{
    QTest::addColumn<FakeDesktopPortal::BackgroundAnswer>("answer");
    QTest::addColumn<bool>("switchOn");
    QTest::addColumn<QString>("message");

    const QString none;
    // clang-format off
    QTest::newRow("granted") << FakeDesktopPortal::BackgroundAnswer::grant << true << none;
    QTest::newRow("denied") << FakeDesktopPortal::BackgroundAnswer::deny << false << none;
    QTest::newRow("waiting for the user") << FakeDesktopPortal::BackgroundAnswer::none << true
        << QString("Approve Pitchlark in System Settings › Login Items.");
    // clang-format on
}

void LoginItemTest::portalAnswer()
{
    QFETCH(FakeDesktopPortal::BackgroundAnswer, answer);
    m_portal.backgroundAnswer = answer;
    m_portal.backgroundRequests.clear();
    StartAtLogin login(std::make_unique<BackgroundPortalLoginItem>());
    QVERIFY(!login.enabled());

    login.update(true);
    QTRY_COMPARE(m_portal.backgroundRequests.size(), 1);
    QCOMPARE(m_portal.backgroundRequests.constFirst().value(QStringLiteral("autostart")), QVariant(true));
    // The answer comes later, as a signal; the switch and its hint follow it.
    QFETCH(QString, message);
    QTRY_COMPARE(login.statusMessage().value_or(QString()), message);
    QFETCH(bool, switchOn);
    QTRY_COMPARE(login.enabled(), switchOn);
    if (answer != FakeDesktopPortal::BackgroundAnswer::grant)
        return;

    // The grant outlives the program; turning the switch off asks the portal to forget it.
    BackgroundPortalLoginItem restarted;
    QCOMPARE(restarted.status(), LoginItem::Status::enabled);
    QCOMPARE(restarted.unregisterItem(), std::nullopt);
    QTRY_COMPARE(restarted.status(), LoginItem::Status::notRegistered);
    QCOMPARE(m_portal.backgroundRequests.constLast().value(QStringLiteral("autostart")), QVariant(false));
}

QTEST_GUILESS_MAIN(LoginItemTest)
#include "LoginItemTest.moc"
