#include "FeedTestSupport.h"

#include <QProcess>
#include <QRegularExpression>
#include <QTest>

// The pitchlark-feed program itself: its options, what it prints, and a running replay.
class FeedProgramTest : public QObject {
    Q_OBJECT

private slots:
    void badOptionsAreRefused_data();
    void badOptionsAreRefused();
    void helpAndVersion();
    void runningReplayBringsTheFinalGroupGamesLive();
    void faultsFromTheCommandLine();
    void busyPortIsReported();

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

void FeedProgramTest::badOptionsAreRefused_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("message");

    // clang-format off
    QTest::newRow("port too high") << QStringList{"--port", "70000"} << "--port needs a number";
    QTest::newRow("time without zone") << QStringList{"--at", "2026-06-27T20:50:00"} << "with a zone";
    QTest::newRow("no such day") << QStringList{"--from", "2026-02-30T20:50:00Z"} << "--from needs";
    QTest::newRow("speed without start") << QStringList{"--speed", "60"} << "--speed needs --from";
    QTest::newRow("zero speed") << QStringList{"--from", "2026-06-27T20:50:00Z", "--speed", "0"} << "above 0";
    QTest::newRow("frozen and running") << QStringList{"--at", "2026-06-27T20:50:00Z", "--from", "2026-06-27T20:50:00Z"} << "cannot be used with --from";
    QTest::newRow("unknown elapsed style") << QStringList{"--elapsed-style", "seconds"} << "minute or live";
    QTest::newRow("unknown fault") << QStringList{"--fault", "games=418x"} << "unknown fault";
    QTest::newRow("unknown endpoint") << QStringList{"--fault", "scores=503"} << "endpoint=value";
    QTest::newRow("negative delay") << QStringList{"--delay", "games=-1"} << "bad delay";
    QTest::newRow("host name as address") << QStringList{"--address", "example.org"} << "IP address";
    QTest::newRow("unknown option") << QStringList{"--replay"} << "Unknown option";
    QTest::newRow("stray argument") << QStringList{"now"} << "unexpected argument";
    // clang-format on
}

void FeedProgramTest::badOptionsAreRefused()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, message);

    QProcess process;
    process.start(program, arguments);
    QVERIFY(process.waitForFinished(5000));
    QCOMPARE(process.exitStatus(), QProcess::NormalExit);
    QCOMPARE(process.exitCode(), 2);
    const QString printed = QString::fromUtf8(process.readAllStandardError());
    QVERIFY2(printed.contains(message), qPrintable(printed));
    QVERIFY(process.readAllStandardOutput().isEmpty());
}

void FeedProgramTest::helpAndVersion()
{
    QProcess process;
    process.start(program, {QStringLiteral("--help")});
    QVERIFY(process.waitForFinished(5000));
    QCOMPARE(process.exitCode(), 0);
    const QByteArray help = process.readAllStandardOutput();
    for (const char *option :
         {"--at", "--from", "--speed", "--port", "--elapsed-style", "--fault", "--delay"})
        QVERIFY2(help.contains(option), option);

    process.start(program, {QStringLiteral("--version")});
    QVERIFY(process.waitForFinished(5000));
    QCOMPARE(process.exitCode(), 0);
    QVERIFY(process.readAllStandardOutput().startsWith("pitchlark-feed "));
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

void FeedProgramTest::faultsFromTheCommandLine()
{
    QProcess process;
    const quint16 port = start(process, {"--at", "2026-06-11T19:30:00Z", "--port", "0", "--fault",
                                         "games=503", "--delay", "all=20", "--fault", "teams=empty"});
    QVERIFY(port != 0);
    const auto url = [port](const char *path) {
        return QUrl(QStringLiteral("http://127.0.0.1:%1%2").arg(port).arg(QLatin1StringView(path)));
    };
    QCOMPARE(httpExchange(url("/get/games")).status, 503);
    QCOMPARE(httpExchange(url("/get/teams")).body, QByteArray(R"({"teams":[]})"));
    const QJsonObject faults =
        QJsonDocument::fromJson(httpExchange(url("/_control")).body).object().value(u"faults").toObject();
    QCOMPARE(faults.value(u"games").toObject().value(u"delay_ms").toInt(), 20);
    QCOMPARE(faults.value(u"stadiums").toObject().value(u"fault").toString(), QStringLiteral("none"));
    const QJsonObject clock = QJsonDocument::fromJson(httpExchange(url("/_clock")).body).object();
    QCOMPARE(clock.value(u"now").toString(), QStringLiteral("2026-06-11T19:30:00Z"));
    QCOMPARE(clock.value(u"mode").toString(), QStringLiteral("frozen"));
    process.kill();
    process.waitForFinished(5000);
}

void FeedProgramTest::busyPortIsReported()
{
    QProcess first;
    const quint16 port = start(first, {"--port", "0"});
    QVERIFY(port != 0);
    QProcess second;
    second.start(program, {QStringLiteral("--port"), QString::number(port)});
    QVERIFY(second.waitForFinished(5000));
    QCOMPARE(second.exitCode(), 1);
    QVERIFY(second.readAllStandardError().contains("cannot listen"));
    first.kill();
    first.waitForFinished(5000);
}

QTEST_GUILESS_MAIN(FeedProgramTest)
#include "FeedProgramTest.moc"
