#include "FeedServer.h"
#include "ModelFixture.h"

#include <QSignalSpy>
#include <QTest>

#include <QCoro/QCoroTask>

// The refresh cycle against a real replay service on 127.0.0.1, frozen during the last group round,
// with faults injected through the service's own control.
class RefreshCycleTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cyclesApplyInOrderOneAtATime();
    void failures_data();
    void failures();
    void offlineStartFromCache();

private:
    void setFault(const char *endpoint, const QJsonValue &fault, int delayMs = 0);
    void fetch(AppModel &model) { QCoro::waitFor(model.fetchAll()); }

    const QDateTime m_at{QDate(2026, 6, 27), QTime(21, 30), QTimeZone::utc()};
    std::unique_ptr<FeedServer> m_feed;
    std::unique_ptr<ModelFixture> m_fixture;
};

void RefreshCycleTest::init()
{
    m_feed = std::make_unique<FeedServer>(Tournament::bundled(), TournamentClock::frozen(m_at));
    const quint16 port = m_feed->listen();
    QVERIFY(port != 0);
    m_fixture = std::make_unique<ModelFixture>(QStringLiteral("http://127.0.0.1:%1").arg(port));
}

void RefreshCycleTest::setFault(const char *endpoint, const QJsonValue &fault, int delayMs)
{
    QJsonObject command{{QStringLiteral("endpoint"), QLatin1StringView(endpoint)},
                        {QStringLiteral("delay_ms"), delayMs}};
    if (!fault.isNull())
        command.insert(QStringLiteral("fault"), fault);
    const auto error = m_feed->faults().apply(command);
    QVERIFY2(!error, qPrintable(error.value_or(QString())));
}

void RefreshCycleTest::cyclesApplyInOrderOneAtATime()
{
    // Games answer first and teams last; matches must still be named from this cycle's teams.
    setFault("teams", QJsonValue::Null, 400);
    setFault("stadiums", QJsonValue::Null, 250);
    setFault("groups", QJsonValue::Null, 100);
    const auto model = m_fixture->makeModel();
    QSignalSpy loading(model.get(), &AppModel::isLoadingChanged);
    QStringList applied;
    for (const auto &[signal, name] :
         {std::pair{&AppModel::teamsByIDChanged, "teams"},
          std::pair{&AppModel::stadiumsByIDChanged, "stadiums"},
          std::pair{&AppModel::standingsChanged, "groups"}, std::pair{&AppModel::allMatchesChanged, "games"}})
        connect(model.get(), signal, this,
                [&applied, name = name] { applied.append(QLatin1StringView(name)); });

    // A refresh asked for while one is under way is dropped: one cycle applies, once.
    model->refresh();
    model->refresh();
    QVERIFY(model->isLoading());
    QTRY_VERIFY(!model->isLoading());
    QTest::qWait(500); // past the slowest answer of a second cycle, had one started
    QCOMPARE(loading.count(), 2);
    QCOMPARE(applied, QStringList({"teams", "stadiums", "groups", "games"}));
    QCOMPARE(model->allMatches().size(), 104);
    const Match &opening =
        *std::find_if(model->allMatches().cbegin(), model->allMatches().cend(),
                      [](const Match &match) { return match.id == QLatin1StringView("1"); });
    QCOMPARE(opening.homeTeam, QStringLiteral("Mexico"));
    QCOMPARE(opening.stadium, QStringLiteral("Estadio Azteca"));
    QCOMPARE(model->standings().size(), 12);
    QCOMPARE(model->standings().constFirst().group, QStringLiteral("A"));
    QCOMPARE(model->errorMessage(), std::nullopt);

    // Teams and stadiums are asked for only until held. Spoil the next request of each; a cycle
    // that asked for them again would use the fault up.
    for (const char *endpoint : {"teams", "stadiums"})
        QVERIFY(!m_feed->faults().apply({{"endpoint", endpoint}, {"fault", "close"}, {"count", 1}}));
    fetch(*model);
    QCOMPARE(m_feed->faults().peek(FeedEndpoint::Teams).remaining, std::optional(1));
    QCOMPARE(m_feed->faults().peek(FeedEndpoint::Stadiums).remaining, std::optional(1));
    QCOMPARE(model->teamsByID().size(), 48);
}

void RefreshCycleTest::failures_data()
{
    QTest::addColumn<QStringList>("faults"); // endpoint:fault
    QTest::addColumn<bool>("earlierData");
    QTest::addColumn<bool>("showsMessage");
    QTest::addColumn<bool>("stampMoves");

    // clang-format off
    QTest::newRow("first run, service down") << QStringList{"all:503"} << false << true << false;
    QTest::newRow("games fail, the rest is news") << QStringList{"games:500"} << false << false << true;
    QTest::newRow("games fail after a good cycle") << QStringList{"games:close"} << true << false << true;
    QTest::newRow("nothing answers after a good cycle")
        << QStringList{"games:503", "groups:empty"} << true << false << false;
    // clang-format on
}

void RefreshCycleTest::failures()
{
    QFETCH(QStringList, faults);
    QFETCH(bool, earlierData);
    QFETCH(bool, showsMessage);
    QFETCH(bool, stampMoves);

    QDateTime clock(QDate(2026, 6, 27), QTime(22, 0), QTimeZone::utc());
    const auto model = m_fixture->makeModel([&clock] { return clock; });
    if (earlierData) {
        fetch(*model);
        QVERIFY(!model->allMatches().isEmpty());
    }
    const QDateTime stampBefore = model->lastUpdated();
    const QString gamesCache = *m_fixture->api().cacheURL(APIService::gamesPath);
    const QByteArray cachedGames = ModelFixture::readFile(gamesCache);
    for (const QString &fault : faults) {
        const QStringList parts = fault.split(u':');
        setFault(parts.at(0).toLatin1().constData(), parts.at(1));
    }
    clock = clock.addSecs(30);
    fetch(*model);

    QCOMPARE(model->errorMessage(),
             showsMessage ? std::optional(AppModel::unreachableMessage) : std::nullopt);
    QCOMPARE(model->lastUpdated(), stampMoves ? clock : stampBefore);
    QVERIFY(!model->isLoading());
    if (earlierData) {
        QCOMPARE(model->allMatches().size(), 104);
        QCOMPARE(ModelFixture::readFile(gamesCache), cachedGames);
    }

    // Whatever went wrong, the next cycle runs and brings the tournament.
    QVERIFY(!m_feed->faults().apply({{"reset", true}}));
    fetch(*model);
    QCOMPARE(model->allMatches().size(), 104);
    QCOMPARE(model->errorMessage(), std::nullopt);
}

void RefreshCycleTest::offlineStartFromCache()
{
    {
        const auto online = m_fixture->makeModel();
        fetch(*online);
        QCOMPARE(online->allMatches().size(), 104);
    }
    m_feed.reset();
    const auto offline = m_fixture->makeModel();
    QCOMPARE(offline->allMatches().size(), 104);
    QCOMPARE(offline->standings().size(), 12);
    QCOMPARE(offline->teamsByID().size(), 48);
    QVERIFY(offline->lastUpdated().isValid());
    QCOMPARE(std::optional(offline->lastUpdated()), m_fixture->api().cacheTimestamp());
    // Live at 21:30 on 27 June: the cached data already picks a title, without any alert.
    QVERIFY(offline->trayTitle());

    const QDateTime stamp = offline->lastUpdated();
    fetch(*offline);
    QCOMPARE(offline->errorMessage(), std::nullopt);
    QCOMPARE(offline->lastUpdated(), stamp);
}

QTEST_GUILESS_MAIN(RefreshCycleTest)
#include "RefreshCycleTest.moc"
