#include "ModelFixture.h"
#include "State/XdgAutostartLoginItem.h"

#include <QFile>
#include <QTest>

// Start at login through a real autostart entry in a temporary XDG config folder, and how the model
// shows each state under the settings switch.
class LoginItemTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void existingEntry_data();
    void existingEntry();
    void registerAndUnregister();
    void noStablePathIsUnavailable();
    void failureTextReplacesTheHint();

private:
    std::unique_ptr<ModelFixture> m_fixture;
};

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
    QTest::newRow("switched on in GNOME") << QByteArray("[Desktop Entry]\nX-GNOME-Autostart-enabled=true\n") << true;
    // clang-format on
}

void LoginItemTest::existingEntry()
{
    QFETCH(QByteArray, entry);
    QFETCH(bool, enabled);
    QDir().mkpath(QFileInfo(XdgAutostartLoginItem::entryPath()).absolutePath());
    QFile file(XdgAutostartLoginItem::entryPath());
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(entry);
    file.close();

    const XdgAutostartLoginItem item(QStringLiteral("/usr/bin/pitchlark"));
    QCOMPARE(item.status(), enabled ? LoginItem::Status::enabled : LoginItem::Status::notRegistered);
}

void LoginItemTest::registerAndUnregister()
{
    XdgAutostartLoginItem item(QStringLiteral("/opt/Pitchlark/pitchlark \"beta\""));
    QCOMPARE(item.status(), LoginItem::Status::notRegistered);
    QCOMPARE(item.registerItem(), std::nullopt);
    QCOMPARE(item.status(), LoginItem::Status::enabled);
    QFile entry(XdgAutostartLoginItem::entryPath());
    QVERIFY(entry.open(QIODevice::ReadOnly));
    QVERIFY(entry.readAll().contains("Exec=\"/opt/Pitchlark/pitchlark \\\"beta\\\"\"\n"));
    QCOMPARE(item.unregisterItem(), std::nullopt);
    QCOMPARE(item.status(), LoginItem::Status::notRegistered);
    QCOMPARE(item.unregisterItem(), std::nullopt);
}

void LoginItemTest::noStablePathIsUnavailable()
{
    // This test binary lives in a CMake build tree: no entry may point there.
    QCOMPARE(XdgAutostartLoginItem::stableExecutablePath(), QString());
    const auto model = m_fixture->makeModel();
    QVERIFY(!model->startAtLoginEnabled());
    QCOMPARE(model->startAtLoginStatusMessage(),
             std::optional<QString>("Start at Login is unavailable for this build."));
    model->updateStartAtLogin(true);
    QVERIFY(!model->startAtLoginEnabled());
    QVERIFY(!QFile::exists(XdgAutostartLoginItem::entryPath()));
}

void LoginItemTest::failureTextReplacesTheHint()
{
    // An autostart folder that is a file makes the write fail for real.
    const QString autostartFolder = QFileInfo(XdgAutostartLoginItem::entryPath()).absolutePath();
    QDir().mkpath(QFileInfo(autostartFolder).absolutePath());
    QFile blocker(autostartFolder);
    QVERIFY(blocker.open(QIODevice::WriteOnly));
    blocker.close();

    APIService api;
    AppModel::Services services;
    services.api = &api;
    services.loginItem = std::make_unique<XdgAutostartLoginItem>(QStringLiteral("/usr/bin/pitchlark"));
    AppModel model(std::move(services));
    QVERIFY(!model.startAtLoginStatusMessage());
    model.updateStartAtLogin(true);
    QVERIFY(!model.startAtLoginEnabled());
    QVERIFY(model.startAtLoginStatusMessage());
    QVERIFY(!model.startAtLoginStatusMessage()->isEmpty());
}

QTEST_GUILESS_MAIN(LoginItemTest)
#include "LoginItemTest.moc"
