// Prints how fast the replay service computes the tournament at an instant and how many /get/games
// requests per second it answers on loopback.

#include "FeedServer.h"
#include "Tournament.h"
#include "TournamentReplay.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QJsonDocument>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QThread>

#include <cstdio>
#include <future>

namespace {

// Instants spread evenly from an hour before the opening game to the end of the final.
QList<Instant> instantsAcrossTheTournament(const TournamentReplay &replay, int count)
{
    const Instant first = replay.firstKickoff() - std::chrono::hours(1);
    const auto span = replay.end() - first;
    QList<Instant> instants;
    for (int index = 0; index < count; ++index)
        instants.append(first + span * index / (count - 1));
    return instants;
}

void computeAtInstants(const TournamentReplay &replay)
{
    const QList<Instant> instants = instantsAcrossTheTournament(replay, 2000);
    qsizetype bytes = 0;
    QElapsedTimer timer;
    timer.start();
    for (const Instant instant : instants) {
        const QJsonArray games = replay.games(instant);
        const QJsonArray groups = replay.groups(instant);
        bytes += games.size() + groups.size();
    }
    const double recordsMicros = double(timer.nsecsElapsed()) / 1000.0 / double(instants.size());

    timer.restart();
    for (const Instant instant : instants) {
        bytes += QJsonDocument(QJsonObject{{QStringLiteral("games"), replay.games(instant)}})
                     .toJson(QJsonDocument::Compact)
                     .size();
    }
    const double bodyMicros = double(timer.nsecsElapsed()) / 1000.0 / double(instants.size());
    std::printf("tournament at an instant: %.0f us for 104 game records and 12 group tables (mean of %lld "
                "instants)\n",
                recordsMicros, qlonglong(instants.size()));
    std::printf("/get/games body at an instant: %.0f us to compute and serialise (%lld bytes checked)\n",
                bodyMicros, qlonglong(bytes));
}

// Serves from its own thread so that the client's work does not count against the server's.
class ServerThread {
public:
    explicit ServerThread(TournamentClock clock)
    {
        std::promise<quint16> port;
        m_port = port.get_future();
        m_thread.reset(QThread::create([this, clock, promise = std::move(port)]() mutable {
            FeedServer server(Tournament::bundled(), clock);
            QEventLoop loop;
            m_loop = &loop;
            promise.set_value(server.listen());
            loop.exec();
        }));
        m_thread->start();
    }

    ~ServerThread()
    {
        QMetaObject::invokeMethod(m_loop, &QEventLoop::quit, Qt::QueuedConnection);
        m_thread->wait();
    }

    quint16 port() { return m_port.get(); }

private:
    std::unique_ptr<QThread> m_thread;
    std::future<quint16> m_port;
    QEventLoop *m_loop = nullptr;
};

// Keeps as many requests in flight as Qt opens connections to one host, for a fixed time.
double requestsPerSecond(quint16 port, std::chrono::milliseconds duration)
{
    QNetworkAccessManager network;
    const QNetworkRequest request(QUrl(QStringLiteral("http://127.0.0.1:%1/get/games").arg(port)));
    constexpr int inFlight = 6;
    int answered = 0;
    int failed = 0;
    QElapsedTimer timer;
    QEventLoop loop;
    int inFlightNow = inFlight;
    std::function<void()> send = [&] {
        QNetworkReply *reply = network.get(request);
        QObject::connect(reply, &QNetworkReply::finished, reply, [&, reply] {
            reply->readAll();
            (reply->error() == QNetworkReply::NoError ? answered : failed)++;
            reply->deleteLater();
            if (timer.elapsed() < duration.count())
                send();
            else if (--inFlightNow == 0)
                loop.quit();
        });
    };
    timer.start();
    for (int request = 0; request < inFlight; ++request)
        send();
    loop.exec();
    if (failed > 0)
        std::printf("  (%d requests failed)\n", failed);
    return double(answered) * 1000.0 / double(timer.elapsed());
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication app(argc, argv);
    const Tournament &tournament = Tournament::bundled();
    const TournamentReplay replay(tournament);
    computeAtInstants(replay);

    const QDateTime finalGroupGames(QDate(2026, 6, 27), QTime(21, 30), Qt::UTC);
    {
        ServerThread server(TournamentClock::frozen(finalGroupGames));
        std::printf("/get/games on loopback, frozen clock: %.0f requests/s\n",
                    requestsPerSecond(server.port(), std::chrono::milliseconds(2000)));
    }
    {
        // A new tournament second every 1/60 s: most answers are computed afresh.
        ServerThread server(TournamentClock::running(finalGroupGames, 60));
        std::printf("/get/games on loopback, clock at 60x: %.0f requests/s\n",
                    requestsPerSecond(server.port(), std::chrono::milliseconds(2000)));
    }
    return 0;
}
