#include "FeedTestSupport.h"

#include "Models/APIResponses.h"
#include "Networking/APIService.h"

#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QTest>

#include "FetchAndWait.h"

// The replay service's faults over real HTTP, as the app's own client meets them, and the control
// endpoint that sets them.
class FeedFaultsTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void faultsAsTheAppMeetsThem();

private:
    QString fetchGames();
    QString fetchTeams();
    QJsonObject faults() const;

    QTemporaryDir m_home;
    std::unique_ptr<FrozenFeed> m_feed;
    std::unique_ptr<APIService> m_service;
};

namespace {

// One line for what the app got: "104 games", or which failure it was.
template<typename Envelope, typename List>
QString outcome(const Result<Envelope, FetchError> &result, List Envelope::*list, const char *noun)
{
    if (result)
        return QStringLiteral("%1 %2").arg(((*result).*list).size()).arg(QLatin1StringView(noun));
    if (const AppError *error = result.error().appError())
        return error->description();
    return result.error().decodeError() ? QStringLiteral("unreadable body") : QStringLiteral("no answer");
}

} // namespace

void FeedFaultsTest::initTestCase()
{
    QVERIFY(m_home.isValid());
    qputenv("XDG_CACHE_HOME", m_home.filePath(QStringLiteral("cache")).toUtf8());
    qputenv("XDG_CONFIG_HOME", m_home.filePath(QStringLiteral("config")).toUtf8());
    m_feed = std::make_unique<FrozenFeed>("2026-07-01T12:00:00Z");
    QVERIFY(m_feed->isListening());
    qputenv("WC_API_BASE_URL", m_feed->baseURL().toUtf8());
    m_service = std::make_unique<APIService>(std::chrono::milliseconds(5000));
}

// Whatever the previous test set, a reset clears it.
void FeedFaultsTest::init()
{
    QCOMPARE(m_feed->control(R"({"reset": true})").status, 200);
    QVERIFY(faults().value(u"faults").toObject().isEmpty());
}

QString FeedFaultsTest::fetchGames()
{
    return outcome(fetchAndWait<APIGamesResponse>(*m_service, APIService::gamesPath),
                   &APIGamesResponse::games, "games");
}

QString FeedFaultsTest::fetchTeams()
{
    return outcome(fetchAndWait<APITeamsResponse>(*m_service, APIService::teamsPath),
                   &APITeamsResponse::teams, "teams");
}

QJsonObject FeedFaultsTest::faults() const
{
    return QJsonDocument::fromJson(m_feed->get(QStringLiteral("/_control")).body).object();
}

// One walk through what RefreshCycleTest does not meet: faults given as text, cut-off bodies, counts
// and delays, and clients that leave early.
void FeedFaultsTest::faultsAsTheAppMeetsThem()
{
    QCOMPARE(m_feed->get(QStringLiteral("/get/scores")).status, 404);
    QCOMPARE(httpExchange(m_feed->url(QStringLiteral("/get/games")), "POST", "{}").status, 404);
    QCOMPARE(httpExchange(m_feed->url(QStringLiteral("/_control")), "DELETE").status, 404);

    QCOMPARE(m_feed->control(R"({"endpoint": "games", "fault": "403"})").status, 200);
    QCOMPARE(fetchGames(), QStringLiteral("The API rejected the request."));
    // A fault lasts until it is reset or replaced, and stays on its endpoint.
    QCOMPARE(fetchGames(), QStringLiteral("The API rejected the request."));
    QCOMPARE(fetchTeams(), QStringLiteral("48 teams"));
    QCOMPARE(m_feed->control(R"({"endpoint": "games", "fault": "truncated"})").status, 200);
    QCOMPARE(fetchGames(), QStringLiteral("unreadable body"));

    QCOMPARE(m_feed->control(R"({"endpoint": "games", "fault": 500, "count": 2, "delay_ms": 300})").status,
             200);
    QElapsedTimer timer;
    timer.start();
    QCOMPARE(fetchGames(), QStringLiteral("Server error 500."));
    QVERIFY(timer.elapsed() >= 300);
    QCOMPARE(faults().value(u"faults").toObject().keys(), QStringList{QStringLiteral("games")});
    QCOMPARE(faults().value(u"faults").toObject().value(u"games").toObject().value(u"count").toInt(), 1);
    QCOMPARE(fetchGames(), QStringLiteral("Server error 500."));
    QCOMPARE(fetchGames(), QStringLiteral("104 games"));
    QVERIFY(faults().value(u"faults").toObject().isEmpty());

    // A delay alone slows a good answer.
    QCOMPARE(m_feed->control(R"({"endpoint": "games", "delay_ms": 200})").status, 200);
    timer.restart();
    QCOMPARE(fetchGames(), QStringLiteral("104 games"));
    QVERIFY(timer.elapsed() >= 200);
    // A client that leaves first does not take the service down.
    {
        QNetworkAccessManager network;
        QNetworkReply *reply = network.get(QNetworkRequest(m_feed->url(QStringLiteral("/get/games"))));
        QTest::qWait(50);
        reply->abort();
        delete reply;
    }
    QTest::qWait(300); // the delayed answer comes due with nobody left to take it
    QCOMPARE(fetchGames(), QStringLiteral("104 games"));

    QCOMPARE(m_feed->control(R"({"endpoint": "all", "fault": "close", "delay_ms": 50})").status, 200);
    QCOMPARE(faults().value(u"faults").toObject().size(), 4);
    QCOMPARE(fetchTeams(), QStringLiteral("no answer"));
}

QTEST_GUILESS_MAIN(FeedFaultsTest)
#include "FeedFaultsTest.moc"
