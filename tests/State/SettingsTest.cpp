#include "ModelFixture.h"
#include "State/SettingsStore.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QTest>

// Settings survive restarts exactly, read a wrongly typed value as absent, and never lose a file that
// could not be read.
class SettingsTest : public QObject {
    Q_OBJECT

private slots:
    void storeTypeRules_data();
    void storeTypeRules();
    void corruptFileIsKeptAside_data();
    void corruptFileIsKeptAside();
    void leftoverTemporaryFilesAreRemoved();
    void modelLoadsWithDefaults_data();
    void modelLoadsWithDefaults();
    void actionsPersist();
    void glassDragIsWrittenOnceAndItsEndAtOnce();
};

void SettingsTest::storeTypeRules_data()
{
    QTest::addColumn<QByteArray>("stored");
    QTest::addColumn<QVariant>("asString");
    QTest::addColumn<QVariant>("asInteger");
    QTest::addColumn<QVariant>("asReal");
    QTest::addColumn<QVariant>("asBool");
    QTest::addColumn<QVariant>("asList");

    const QVariant none;
    // clang-format off
    QTest::newRow("text") << QByteArray(R"("60")") << QVariant("60") << none << none << none << none;
    QTest::newRow("integer") << QByteArray("300") << none << QVariant(qint64(300)) << QVariant(300.0) << none << none;
    QTest::newRow("real") << QByteArray("0.5") << none << none << QVariant(0.5) << none << none;
    QTest::newRow("whole real") << QByteArray("30.0") << none << QVariant(qint64(30)) << QVariant(30.0) << none << none;
    QTest::newRow("Boolean") << QByteArray("true") << none << none << none << QVariant(true) << none;
    QTest::newRow("list of text") << QByteArray(R"(["2","10"])") << none << none << none << none
                                  << QVariant(QStringList{"2", "10"});
    QTest::newRow("list with a number") << QByteArray(R"(["2",10])") << none << none << none << none << none;
    QTest::newRow("null") << QByteArray("null") << none << none << none << none << none;
    // clang-format on
}

void SettingsTest::storeTypeRules()
{
    QFETCH(QByteArray, stored);
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("settings.json"));
    QVERIFY(ModelFixture::writeFile(path, R"({"Key":)" + stored + "}"));

    const SettingsStore store(path);
    const auto optionalToVariant = [](const auto &value) {
        return value ? QVariant::fromValue(*value) : QVariant();
    };
    QTEST(optionalToVariant(store.string(QStringLiteral("Key"))), "asString");
    QTEST(optionalToVariant(store.integer(QStringLiteral("Key"))), "asInteger");
    QTEST(optionalToVariant(store.real(QStringLiteral("Key"))), "asReal");
    QTEST(optionalToVariant(store.boolean(QStringLiteral("Key"))), "asBool");
    QTEST(optionalToVariant(store.stringList(QStringLiteral("Key"))), "asList");
    QVERIFY(!store.string(QStringLiteral("Missing")));
}

void SettingsTest::corruptFileIsKeptAside_data()
{
    QTest::addColumn<QByteArray>("corrupt");
    QTest::newRow("cut off") << QByteArray("{\"FavoriteTeamIDs\": [\"1\", \"2\"");
    // Valid JSON, but too large to be settings: not even read.
    QTest::newRow("over the size cap") << QByteArray("{\"FavoriteTeamIDs\": [\"1\", \"2\"]" +
                                                     QByteArray(SettingsStore::maximumFileSize, ' ') + "}");
}

void SettingsTest::corruptFileIsKeptAside()
{
    QFETCH(QByteArray, corrupt);
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("settings.json"));
    QVERIFY(ModelFixture::writeFile(path, corrupt));

    SettingsStore store(path);
    QVERIFY(!store.stringList(QStringLiteral("FavoriteTeamIDs")));
    // Reading alone changes nothing on disk.
    QCOMPARE(ModelFixture::readFile(path), corrupt);

    store.set(QStringLiteral("NotifyGoals"), false);
    QCOMPARE(ModelFixture::readFile(path + QStringLiteral(".corrupt")), corrupt);
    QCOMPARE(SettingsStore(path).boolean(QStringLiteral("NotifyGoals")), std::optional(false));

    // A later write does not move the good file aside again.
    store.set(QStringLiteral("NotifyGoals"), true);
    QCOMPARE(ModelFixture::readFile(path + QStringLiteral(".corrupt")), corrupt);
}

void SettingsTest::leftoverTemporaryFilesAreRemoved()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("settings.json"));
    const QDateTime longAgo = QDateTime::currentDateTimeUtc().addSecs(-3600);
    // A write killed an hour ago, one that may be going on in another process, and a kept-aside file.
    for (const char *name : {"settings.json.Ab12Cd", "settings.json.Xy98Zz", "settings.json.corrupt"}) {
        QVERIFY(ModelFixture::writeFile(folder.filePath(QLatin1StringView(name)), "{}"));
        if (qstrcmp(name, "settings.json.Xy98Zz") != 0) {
            QFile file(folder.filePath(QLatin1StringView(name)));
            QVERIFY(file.open(QIODevice::ReadWrite));
            QVERIFY(file.setFileTime(longAgo, QFileDevice::FileModificationTime));
        }
    }
    const SettingsStore store(path);
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files),
             QStringList({"settings.json.corrupt", "settings.json.Xy98Zz"}));
}

void SettingsTest::modelLoadsWithDefaults_data()
{
    QTest::addColumn<QByteArray>("settings");
    QTest::addColumn<int>("refreshInterval");
    QTest::addColumn<QString>("trayDisplayMode");
    QTest::addColumn<QStringList>("favorites");
    QTest::addColumn<double>("glassBlur");
    QTest::addColumn<bool>("notificationsEnabled");

    // clang-format off
    QTest::newRow("fresh install") << QByteArray() << 30 << "auto" << QStringList() << 0.78 << false;
    QTest::newRow("unknown interval") << QByteArray(R"({"RefreshIntervalSeconds":45})") << 30 << "auto" << QStringList() << 0.78 << false;
    QTest::newRow("mode is case-sensitive") << QByteArray(R"({"TrayDisplayMode":"Pinned"})") << 30 << "auto" << QStringList() << 0.78 << false;
    QTest::newRow("stored values") << QByteArray(R"({"RefreshIntervalSeconds":300,"TrayDisplayMode":"rotate","FavoriteTeamIDs":["9","1"],"GlassBlur":0.3,"NotificationsEnabled":true,"FloatingCards":true})")
                                   << 300 << "rotate" << QStringList{"1", "9"} << 0.3 << true;
    QTest::newRow("corrupt file") << QByteArray("{{{") << 30 << "auto" << QStringList() << 0.78 << false;
    // clang-format on
}

void SettingsTest::modelLoadsWithDefaults()
{
    QFETCH(QByteArray, settings);
    ModelFixture fixture;
    if (!settings.isEmpty())
        QVERIFY(ModelFixture::writeFile(fixture.settingsPath(), settings));

    const auto model = fixture.makeModel();
    QTEST(model->menuBar().property("refreshInterval").toInt(), "refreshInterval");
    QTEST(model->menuBar().property("displayMode").toString(), "trayDisplayMode");
    QTEST(model->property("favoriteTeamIDs").toStringList(), "favorites");
    QTEST(model->glass().blur(), "glassBlur");
    QTEST(model->alerts().notificationsEnabled(), "notificationsEnabled");
    // The floating style never outlives a run, and the switches keep their defaults.
    QVERIFY(!model->glass().floatingCards());
    const AlertPreferences &alerts = model->alerts();
    QVERIFY(alerts.notifyMatchStart() && alerts.notifyGoals() && alerts.notifyFullTime() &&
            alerts.inAppBanners());
    QVERIFY(!model->menuBar().pinnedLiveMatchID());
}

void SettingsTest::actionsPersist()
{
    ModelFixture fixture;
    {
        const auto model = fixture.makeModel();
        model->toggleFavorite(QStringLiteral("7"));
        model->toggleFavorite(QStringLiteral("12"));
        model->toggleFavorite(QStringLiteral("3"));
        model->toggleFavorite(QStringLiteral("3"));
        model->menuBar().togglePinnedMatch(QStringLiteral("104"));
    }
    // Each write leaves a complete document behind and no temporary file next to it.
    const QJsonObject stored =
        QJsonDocument::fromJson(ModelFixture::readFile(fixture.settingsPath())).object();
    QCOMPARE(QDir(QFileInfo(fixture.settingsPath()).absolutePath()).entryList(QDir::Files),
             QStringList{"settings.json"});
    // Plain text order, as stored lists are compared by other tools too.
    QCOMPARE(stored.value(QStringLiteral("FavoriteTeamIDs")).toVariant().toStringList(),
             QStringList({"12", "7"}));
    QCOMPARE(stored.value(QStringLiteral("TrayDisplayMode")).toString(), QStringLiteral("pinned"));

    const auto restarted = fixture.makeModel();
    QCOMPARE(restarted->favoriteTeamIDs(), QSet<QString>({"7", "12"}));
    QCOMPARE(restarted->menuBar().pinnedLiveMatchID(), std::optional<QString>("104"));
    QCOMPARE(restarted->menuBar().displayMode(), TrayDisplayMode::pinned);

    restarted->menuBar().togglePinnedMatch(QStringLiteral("104"));
    QVERIFY(!QJsonDocument::fromJson(ModelFixture::readFile(fixture.settingsPath()))
                 .object()
                 .contains("PinnedLiveMatchID"));
}

void SettingsTest::glassDragIsWrittenOnceAndItsEndAtOnce()
{
    ModelFixture fixture;
    const auto model = fixture.makeModel();
    GlassPreferences &glass = model->glass();
    const auto storedGrain = [&fixture] {
        return SettingsStore(fixture.settingsPath()).real(QStringLiteral("GlassGrain"));
    };
    for (int step = 1; step <= 40; ++step)
        glass.setGrain(step / 100.0);
    QCOMPARE(storedGrain(), std::nullopt);
    QTRY_COMPARE(storedGrain(), std::optional(0.4));
    // The drag's end is written at once, so a kill right after it loses nothing.
    glass.setGrain(0.6);
    glass.save();
    QCOMPARE(storedGrain(), std::optional(0.6));
}

QTEST_GUILESS_MAIN(SettingsTest)
#include "SettingsTest.moc"
