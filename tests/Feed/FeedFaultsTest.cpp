#include "FeedTestSupport.h"

#include "Models/APIResponses.h"
#include "Networking/APIService.h"

#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QTest>

#include "FetchAndWait.h"

// Every fault of the replay service over real HTTP, as the app's own client meets it, and the control
// endpoint that sets them.
class FeedFaultsTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void faultsAsTheAppMeetsThem_data();
    void faultsAsTheAppMeetsThem();
    void delayedAnswersTakeTheirTime();
    void faultsStayOnTheirEndpoint();
    void countedFaultsWearOff();
    void badControlRequestsChangeNothing_data();
    void badControlRequestsChangeNothing();
    void clientLeavingBeforeADelayedAnswer();
    void unknownPathsAreNotFound();

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

void FeedFaultsTest::faultsAsTheAppMeetsThem_data()
{
    QTest::addColumn<QByteArray>("command");
    QTest::addColumn<QString>("seen");

    // clang-format off
    QTest::newRow("no fault") << QByteArray(R"({"endpoint": "games", "fault": "none"})") << "104 games";
    QTest::newRow("401") << QByteArray(R"({"endpoint": "games", "fault": 401})") << "The API rejected the request.";
    QTest::newRow("403 given as text") << QByteArray(R"({"endpoint": "games", "fault": "403"})") << "The API rejected the request.";
    QTest::newRow("429") << QByteArray(R"({"endpoint": "games", "fault": 429})") << "Rate limited — retrying soon.";
    QTest::newRow("503 on all") << QByteArray(R"({"endpoint": "all", "fault": 503})") << "Server error 503.";
    QTest::newRow("malformed") << QByteArray(R"({"endpoint": "games", "fault": "malformed"})") << "unreadable body";
    QTest::newRow("truncated") << QByteArray(R"({"endpoint": "games", "fault": "truncated"})") << "unreadable body";
    QTest::newRow("bare array") << QByteArray(R"({"endpoint": "games", "fault": "bare"})") << "104 games";
    QTest::newRow("empty list") << QByteArray(R"({"endpoint": "games", "fault": "empty"})") << "unreadable body";
    QTest::newRow("closed") << QByteArray(R"({"endpoint": "games", "fault": "close"})") << "no answer";
    // clang-format on
}

void FeedFaultsTest::faultsAsTheAppMeetsThem()
{
    QFETCH(QByteArray, command);
    QFETCH(QString, seen);

    QCOMPARE(m_feed->control(command).status, 200);
    QCOMPARE(fetchGames(), seen);
    // A fault lasts until it is reset.
    QCOMPARE(fetchGames(), seen);
}

void FeedFaultsTest::delayedAnswersTakeTheirTime()
{
    QCOMPARE(m_feed->control(R"({"endpoint": "games", "fault": 503, "delay_ms": 300})").status, 200);
    QElapsedTimer timer;
    timer.start();
    QCOMPARE(fetchGames(), QStringLiteral("Server error 503."));
    QVERIFY(timer.elapsed() >= 300);

    QCOMPARE(m_feed->control(R"({"endpoint": "games", "delay_ms": 200})").status, 200);
    timer.restart();
    QCOMPARE(fetchGames(), QStringLiteral("104 games"));
    QVERIFY(timer.elapsed() >= 200);
}

void FeedFaultsTest::faultsStayOnTheirEndpoint()
{
    QCOMPARE(m_feed->control(R"({"endpoint": "games", "fault": "close"})").status, 200);
    QCOMPARE(fetchTeams(), QStringLiteral("48 teams"));
    QCOMPARE(faults().value(u"faults").toObject().keys(), QStringList{QStringLiteral("games")});

    QCOMPARE(m_feed->control(R"({"endpoint": "all", "fault": "close", "delay_ms": 50})").status, 200);
    QCOMPARE(faults().value(u"faults").toObject().size(), 4);
    QCOMPARE(fetchTeams(), QStringLiteral("no answer"));
}

void FeedFaultsTest::countedFaultsWearOff()
{
    QCOMPARE(m_feed->control(R"({"endpoint": "games", "fault": 500, "count": 2})").status, 200);
    QCOMPARE(fetchGames(), QStringLiteral("Server error 500."));
    QCOMPARE(faults().value(u"faults").toObject().value(u"games").toObject().value(u"count").toInt(), 1);
    QCOMPARE(fetchGames(), QStringLiteral("Server error 500."));
    QCOMPARE(fetchGames(), QStringLiteral("104 games"));
    QVERIFY(faults().value(u"faults").toObject().isEmpty());
}

void FeedFaultsTest::badControlRequestsChangeNothing_data()
{
    QTest::addColumn<QByteArray>("command");
    QTest::addColumn<QString>("reason");

    // clang-format off
    QTest::newRow("not JSON") << QByteArray("{endpoint") << "JSON object";
    QTest::newRow("a list") << QByteArray("[]") << "JSON object";
    QTest::newRow("unknown endpoint") << QByteArray(R"({"endpoint": "scores", "fault": 503})") << "\"endpoint\"";
    QTest::newRow("unknown fault") << QByteArray(R"({"endpoint": "games", "fault": "explode"})") << "unknown fault";
    QTest::newRow("success status") << QByteArray(R"({"endpoint": "games", "fault": 200})") << "unknown fault";
    QTest::newRow("fractional status") << QByteArray(R"({"endpoint": "games", "fault": 503.5})") << "\"fault\"";
    QTest::newRow("negative delay") << QByteArray(R"({"endpoint": "games", "delay_ms": -5})") << "bad delay";
    QTest::newRow("endless delay") << QByteArray(R"({"endpoint": "games", "delay_ms": 1e9})") << "bad delay";
    QTest::newRow("delay as a word") << QByteArray(R"({"endpoint": "games", "delay_ms": true})") << "\"delay_ms\"";
    QTest::newRow("zero count") << QByteArray(R"({"endpoint": "games", "fault": 503, "count": 0})") << "\"count\"";
    QTest::newRow("misspelt key") << QByteArray(R"({"endpoint": "games", "delay": 100})") << "unknown key";
    QTest::newRow("half a reset") << QByteArray(R"({"reset": false})") << "reset";
    // clang-format on
}

void FeedFaultsTest::badControlRequestsChangeNothing()
{
    QFETCH(QByteArray, command);
    QFETCH(QString, reason);

    QCOMPARE(m_feed->control(R"({"endpoint": "teams", "fault": 429})").status, 200);
    const QJsonObject before = faults();
    const HttpAnswer answer = m_feed->control(command);
    QCOMPARE(answer.status, 400);
    const QString error = QJsonDocument::fromJson(answer.body).object().value(u"error").toString();
    QVERIFY2(error.contains(reason), qPrintable(error));
    QCOMPARE(faults(), before);
    QCOMPARE(fetchGames(), QStringLiteral("104 games"));
}

void FeedFaultsTest::clientLeavingBeforeADelayedAnswer()
{
    QCOMPARE(m_feed->control(R"({"endpoint": "games", "delay_ms": 300})").status, 200);
    {
        QNetworkAccessManager network;
        QNetworkReply *reply = network.get(QNetworkRequest(m_feed->url(QStringLiteral("/get/games"))));
        QTest::qWait(50);
        reply->abort();
        delete reply;
    }
    QTest::qWait(400); // the delayed answer comes due with nobody left to take it
    QCOMPARE(m_feed->control(R"({"reset": true})").status, 200);
    QCOMPARE(fetchGames(), QStringLiteral("104 games"));
}

void FeedFaultsTest::unknownPathsAreNotFound()
{
    QCOMPARE(m_feed->get(QStringLiteral("/get/scores")).status, 404);
    QCOMPARE(httpExchange(m_feed->url(QStringLiteral("/get/games")), "POST", "{}").status, 404);
    QCOMPARE(httpExchange(m_feed->url(QStringLiteral("/_control")), "DELETE").status, 404);
}

QTEST_GUILESS_MAIN(FeedFaultsTest)
#include "FeedFaultsTest.moc"
