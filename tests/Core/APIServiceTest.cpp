#include "Networking/APIService.h"
#include "Models/APIResponses.h"

#include <QElapsedTimer>
#include <QFile>
#include <QHttpServer>
#include <QHttpServerRequest>
#include <QHttpServerResponse>
#include <QSettings>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <QTest>

#include "FetchAndWait.h"

#include <QCoro/QCoroTask>

// The client against real servers on 127.0.0.1: a QHttpServer for answers the service can give, and a bare
// QTcpServer for what only a broken peer does (never answering, announcing a huge body). A peer that
// hangs up or drips its answer is the replay service's "close" and "drip" faults in RefreshCycleTest.
class APIServiceTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void answers_data();
    void answers();
    void failedFetchKeepsLastGoodBodyByteForByte();
    void transportFailures_data();
    void transportFailures();
    void baseURL_data();
    void baseURL();

private:
    void serve(int status, const QByteArray &body);
    QString cacheFile(const QString &path) const { return *m_service->cacheURL(path); }
    static QByteArray readFile(const QString &path);

    QHttpServer m_server;
    quint16 m_port = 0;
    int m_status = 200;
    QByteArray m_body;
    QList<QHttpServerRequest::Method> m_methods;
    QList<QByteArray> m_acceptHeaders;
    std::unique_ptr<QTemporaryDir> m_home;
    std::unique_ptr<APIService> m_service;
};

namespace {

const QByteArray goodGames = R"({"games":[{"id":"1","home_team_id":"1","away_team_id":"2"}]})";

// A peer that accepts one connection and then misbehaves in one way.
class MisbehavingPeer : public QTcpServer {
public:
    enum class Behaviour { neverAnswer, announceHugeBody };

    explicit MisbehavingPeer(Behaviour behaviour) : m_behaviour(behaviour)
    {
        connect(this, &QTcpServer::newConnection, this, [this] {
            QTcpSocket *socket = nextPendingConnection();
            connect(socket, &QTcpSocket::readyRead, socket, [this, socket] { respond(socket); });
        });
        listen(QHostAddress::LocalHost, 0);
    }

private:
    void respond(QTcpSocket *socket)
    {
        socket->readAll();
        if (m_behaviour == Behaviour::announceHugeBody)
            socket->write(
                "HTTP/1.1 200 OK\r\nContent-Type: application/json\r\nContent-Length: 40000000\r\n\r\n[");
    }

    Behaviour m_behaviour;
};

} // namespace

void APIServiceTest::init()
{
    m_home = std::make_unique<QTemporaryDir>();
    qputenv("XDG_CACHE_HOME", m_home->filePath(QStringLiteral("cache")).toUtf8());
    qputenv("XDG_CONFIG_HOME", m_home->filePath(QStringLiteral("config")).toUtf8());
    if (m_port == 0) {
        m_server.route(QStringLiteral("/get/<arg>"), [this](const QString &,
                                                            const QHttpServerRequest &request) {
            m_methods.append(request.method());
            m_acceptHeaders.append(request.value("Accept"));
            return QHttpServerResponse("application/json", m_body, QHttpServerResponse::StatusCode(m_status));
        });
        m_port = m_server.listen(QHostAddress::LocalHost, 0);
        QVERIFY(m_port != 0);
    }
    qputenv("WC_API_BASE_URL", QByteArray("http://127.0.0.1:") + QByteArray::number(m_port));
    m_service = std::make_unique<APIService>();
    m_methods.clear();
    m_acceptHeaders.clear();
}

void APIServiceTest::cleanup()
{
    m_service.reset();
    qunsetenv("WC_API_BASE_URL");
}

void APIServiceTest::serve(int status, const QByteArray &body)
{
    m_status = status;
    m_body = body;
}

QByteArray APIServiceTest::readFile(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void APIServiceTest::answers_data()
{
    QTest::addColumn<int>("status");
    QTest::addColumn<QByteArray>("body");
    QTest::addColumn<QString>("appError"); // the AppError's text, when the answer is one
    QTest::addColumn<bool>("decodeError"); // the body was read and was not a feed body

    // clang-format off
    QTest::newRow("200 envelope") << 200 << goodGames << QString() << false;
    QTest::newRow("201 counts as success") << 201 << goodGames << QString() << false;
    QTest::newRow("204 no content") << 204 << QByteArray() << QString() << true;
    QTest::newRow("200 wrong shape") << 200 << QByteArray(R"({"games":null})") << QString() << true;
    QTest::newRow("429") << 429 << goodGames << "Rate limited — retrying soon." << false;
    QTest::newRow("503") << 503 << QByteArray() << "Server error 503." << false;
    // clang-format on
}

void APIServiceTest::answers()
{
    QFETCH(int, status);
    QFETCH(QByteArray, body);
    QFETCH(QString, appError);
    QFETCH(bool, decodeError);

    serve(status, body);
    const auto result = fetchAndWait<APIGamesResponse>(*m_service, APIService::gamesPath);
    QCOMPARE(m_methods, QList{QHttpServerRequest::Method::Get});
    QCOMPARE(m_acceptHeaders, QList<QByteArray>{"application/json"});
    const bool succeeds = appError.isEmpty() && !decodeError;
    QCOMPARE(result.ok(), succeeds);
    // Only a body that decoded is kept, exactly as it was sent.
    QCOMPARE(QFile::exists(cacheFile(APIService::gamesPath)), succeeds);
    if (succeeds) {
        QCOMPARE(readFile(cacheFile(APIService::gamesPath)), body);
        return;
    }
    QCOMPARE(result.error().appError() != nullptr, !appError.isEmpty());
    QCOMPARE(result.error().decodeError() != nullptr, decodeError);
    if (!appError.isEmpty())
        QCOMPARE(result.error().description(), appError);
}

void APIServiceTest::failedFetchKeepsLastGoodBodyByteForByte()
{
    const QByteArray first = "{ \"teams\" : [ {\"id\":\"1\",\"name_en\":\"Mexico\"}, {\"id\":\"2\"}, "
                             "{\"id\":\"3\"} ] }\n";
    serve(200, first);
    QVERIFY(fetchAndWait<APITeamsResponse>(*m_service, APIService::teamsPath));

    // Answers that decode but cannot be the tournament fail too: an empty list, and one that lost most
    // of what was held (a cut-off array that is still JSON).
    for (const auto &[status, body] : {std::pair{200, QByteArray(R"({"teams":[1,2]})")},
                                       std::pair{200, QByteArray(R"({"teams":[{"id":"1"})")},
                                       std::pair{200, QByteArray(R"({"teams":[]})")},
                                       std::pair{200, QByteArray(R"({"teams":[{"id":"1"}]})")},
                                       std::pair{500, QByteArray("oops")}, std::pair{429, QByteArray()}}) {
        serve(status, body);
        QVERIFY(!fetchAndWait<APITeamsResponse>(*m_service, APIService::teamsPath));
        QCOMPARE(readFile(cacheFile(APIService::teamsPath)), first);
    }
    // A new start knows what was held from the cache alone.
    serve(200, R"({"teams":[{"id":"1"}]})");
    APIService restarted;
    QVERIFY(!fetchAndWait<APITeamsResponse>(restarted, APIService::teamsPath));

    const QByteArray second = R"([{"id":"2","name_en":"South Africa"},{"id":"4"}])";
    serve(200, second);
    const auto teams = fetchAndWait<APITeamsResponse>(*m_service, APIService::teamsPath);
    QVERIFY(teams);
    QCOMPARE(teams->teams.constFirst().nameEn, QStringLiteral("South Africa"));
    QCOMPARE(readFile(cacheFile(APIService::teamsPath)), second);
}

void APIServiceTest::transportFailures_data()
{
    QTest::addColumn<MisbehavingPeer::Behaviour>("behaviour");
    QTest::addColumn<QNetworkReply::NetworkError>("expected");

    // clang-format off
    QTest::newRow("time-out") << MisbehavingPeer::Behaviour::neverAnswer << QNetworkReply::OperationCanceledError;
    QTest::newRow("over 32 MiB") << MisbehavingPeer::Behaviour::announceHugeBody
                                 << QNetworkReply::OperationCanceledError;
    // clang-format on
}

void APIServiceTest::transportFailures()
{
    QFETCH(MisbehavingPeer::Behaviour, behaviour);

    MisbehavingPeer peer(behaviour);
    QVERIFY(peer.isListening());
    qputenv("WC_API_BASE_URL", QByteArray("http://127.0.0.1:") + QByteArray::number(peer.serverPort()));
    // Short, so the time-out cases don't wait 25 or 60 s.
    APIService service(std::chrono::milliseconds(300), std::chrono::milliseconds(1500));
    QElapsedTimer elapsed;
    elapsed.start();

    const auto result = fetchAndWait<APIGamesResponse>(service, APIService::gamesPath);
    QVERIFY(!result);
    QVERIFY(result.error().transportError());
    QTEST(result.error().transportError()->code, "expected");
    QVERIFY(!QFile::exists(*service.cacheURL(APIService::gamesPath)));
    QVERIFY(elapsed.elapsed() < 3000);
}

void APIServiceTest::baseURL_data()
{
    QTest::addColumn<QVariant>("environment"); // null: unset
    QTest::addColumn<QVariant>("configured");  // null: no key in pitchlark.conf
    QTest::addColumn<QString>("expectedURL");  // empty: invalid URL

    const QVariant unset;
    // clang-format off
    QTest::newRow("built-in") << unset << unset << "https://worldcup26.ir/get/teams";
    QTest::newRow("config file") << unset << QVariant("http://127.0.0.1:8080") << "http://127.0.0.1:8080/get/teams";
    QTest::newRow("environment wins") << QVariant("http://localhost:9000") << QVariant("http://127.0.0.1:8080")
                                      << "http://localhost:9000/get/teams";
    QTest::newRow("empty environment") << QVariant("") << QVariant("http://127.0.0.1:8080") << QString();
    QTest::newRow("no scheme") << unset << QVariant("worldcup26.ir") << QString();
    // clang-format on
}

void APIServiceTest::baseURL()
{
    QFETCH(QVariant, environment);
    QFETCH(QVariant, configured);
    QFETCH(QString, expectedURL);

    if (environment.isValid())
        qputenv("WC_API_BASE_URL", environment.toString().toUtf8());
    else
        qunsetenv("WC_API_BASE_URL");
    if (configured.isValid()) {
        QSettings config(m_home->filePath(QStringLiteral("config/pitchlark/pitchlark.conf")),
                         QSettings::IniFormat);
        config.setValue(QStringLiteral("WC_API_BASE_URL"), configured);
    }

    const auto request = m_service->makeRequest(APIService::teamsPath);
    QCOMPARE(request.ok(), !expectedURL.isEmpty());
    if (request)
        QCOMPARE(request->url().toString(), expectedURL);
    else
        QCOMPARE(request.error().description(), QStringLiteral("Invalid API URL."));
}

QTEST_GUILESS_MAIN(APIServiceTest)
#include "APIServiceTest.moc"
