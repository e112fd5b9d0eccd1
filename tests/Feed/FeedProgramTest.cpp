#include "FeedTestSupport.h"

#include <QProcess>
#include <QRegularExpression>
#include <QTest>

// The pitchlark-feed program itself: a running replay, and a frozen one set up from the command line.
class FeedProgramTest : public QObject {
    Q_OBJECT

private slots:
    void runningReplayBringsTheFinalGroupGamesLive();
    void frozenReplayWithFaultsAndABusyPort();

private:
    // Starts the program and reads the port it printed; 0 when it did not come up.
    static quint16 start(QProcess &process, const QStringList &arguments);
};

namespace {

const QString program = QStringLiteral(PITCHLARK_FEED_PROGRAM);

QJsonObject gameWithID(const QByteArray &body, const QString &id)
{
    for (const QJsonValue &game : QJsonDocument::fromJson(body).object().value(u"games").toArray()) {
        if (game.toObject().value(u"id").toString() == id)
            return game.toObject();
    }
    return {};
}

} // namespace

quint16 FeedProgramTest::start(QProcess &process, const QStringList &arguments)
{
    process.start(program, arguments);
    if (!process.waitForStarted(5000))
        return 0;
    static const QRegularExpression listening(QStringLiteral(R"(listening on http://127\.0\.0\.1:(\d+))"));
    QByteArray printed;
    while (!printed.contains('\n') && process.waitForReadyRead(5000))
        printed += process.readAllStandardOutput();
    return quint16(listening.match(QString::fromUtf8(printed)).captured(1).toUInt());
}

void FeedProgramTest::runningReplayBringsTheFinalGroupGamesLive()
{
    QProcess process;
    const quint16 port = start(process, {"--from", "2026-06-27T20:55:00Z", "--speed", "600", "--port", "0"});
    QVERIFY(port != 0);
    const QUrl games(QStringLiteral("http://127.0.0.1:%1/get/games").arg(port));

    const auto panamaEnglandElapsed = [&games] {
        return gameWithID(httpExchange(games).body, QStringLiteral("67")).value(u"time_elapsed").toString();
    };
    // Five tournament minutes pass in half a wall-clock second; allow far more.
    QTRY_VERIFY_WITH_TIMEOUT(panamaEnglandElapsed() != QStringLiteral("notstarted"), 10000);
    const QByteArray body = httpExchange(games).body;
    for (const QString id : {"67", "68"}) {
        bool isMinute = false;
        gameWithID(body, id).value(u"time_elapsed").toString().toInt(&isMinute);
        QVERIFY2(isMinute, qPrintable(id));
    }

    const QJsonObject clock =
        QJsonDocument::fromJson(
            httpExchange(QUrl(QStringLiteral("http://127.0.0.1:%1/_clock").arg(port))).body)
            .object();
    QCOMPARE(clock.value(u"mode").toString(), QStringLiteral("running"));
    QCOMPARE(clock.value(u"from").toString(), QStringLiteral("2026-06-27T20:55:00Z"));
    QCOMPARE(clock.value(u"speed").toDouble(), 600.0);
    process.kill();
    process.waitForFinished(5000);
}

void FeedProgramTest::frozenReplayWithFaultsAndABusyPort()
{
    QProcess process;
    const quint16 port =
        start(process, {"--at", "2026-06-11T19:30:00Z", "--port", "0", "--elapsed-style", "live", "--fault",
                        "stadiums=503", "--delay", "all=20", "--fault", "teams=empty"});
    QVERIFY(port != 0);
    const auto url = [port](const char *path) {
        return QUrl(QStringLiteral("http://127.0.0.1:%1%2").arg(port).arg(QLatin1StringView(path)));
    };
    QCOMPARE(httpExchange(url("/get/stadiums")).status, 503);
    QCOMPARE(httpExchange(url("/get/teams")).body, QByteArray(R"({"teams":[]})"));
    // The coarse style sends a word for a running game instead of its minute.
    const QByteArray games = httpExchange(url("/get/games")).body;
    QCOMPARE(gameWithID(games, QStringLiteral("1")).value(u"time_elapsed").toString(),
             QStringLiteral("live"));
    QCOMPARE(gameWithID(games, QStringLiteral("2")).value(u"time_elapsed").toString(),
             QStringLiteral("notstarted"));
    const QJsonObject faults =
        QJsonDocument::fromJson(httpExchange(url("/_control")).body).object().value(u"faults").toObject();
    QCOMPARE(faults.value(u"games").toObject().value(u"delay_ms").toInt(), 20);
    QCOMPARE(faults.value(u"groups").toObject().value(u"fault").toString(), QStringLiteral("none"));
    const QJsonObject clock = QJsonDocument::fromJson(httpExchange(url("/_clock")).body).object();
    QCOMPARE(clock.value(u"now").toString(), QStringLiteral("2026-06-11T19:30:00Z"));
    QCOMPARE(clock.value(u"mode").toString(), QStringLiteral("frozen"));

    // A second replay on the same port says why it cannot start.
    QProcess second;
    second.start(program, {QStringLiteral("--port"), QString::number(port)});
    QVERIFY(second.waitForFinished(5000));
    QCOMPARE(second.exitCode(), 1);
    QVERIFY(second.readAllStandardError().contains("cannot listen"));
    process.kill();
    process.waitForFinished(5000);
}

QTEST_GUILESS_MAIN(FeedProgramTest)
#include "FeedProgramTest.moc"
